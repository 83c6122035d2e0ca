/* Pieces shared by the vendor-element converters (beacon and probe lists). */
#ifndef BLOBXLATE_MESSAGES_VSIE_COMMON_H
#define BLOBXLATE_MESSAGES_VSIE_COMMON_H

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "core/codec.h"

namespace bx::vsie {

/* The low byte of a number element: element arrays carry one byte each. */
inline uint8_t low_byte(const blob_attr *elem) { return static_cast<uint8_t>(get_u32(elem)); }

/* The one member of the index messages (types 142, 146 and 151). */
inline constexpr bx::FieldDef kIndexFieldsSource[] = {
    BX_U32(VsieIndex, uiIdx, "idx", "Idx:%u"),
};
inline constexpr const auto &kIndexFields = ::bx::kPacked<kIndexFieldsSource>;

/* The slots of one message or list element as the hand-written readers
 * see them: whose name the traces carry, the converter's own policy (its
 * keys name a missing slot) and, for an entry of a list, its place, which
 * its traces carry right after the member's label ("Idx0:7"). */
struct Slots {
    const char *func;
    const blobmsg_policy *policy;
    blob_attr *const *tb;
    uint32_t n;  /* the entry's place; 0 for a message's own members */
    int digits;  /* the least digits n is traced with: 1, or 0 to trace no n at all (a zero
                  * printed with no digit) */
};
inline Slots entry_slots(const char *func, const blobmsg_policy *policy, blob_attr *const *tb, uint32_t n)
{
    return Slots{func, policy, tb, n, 1};
}
inline Slots own_slots(const char *func, const blobmsg_policy *policy, blob_attr *const *tb)
{
    return Slots{func, policy, tb, 0, 0};
}

/* JTS_CheckBlobAttr for slot `slot`, with the policy's key. */
inline bool present(const Slots &s, size_t slot) { return JTS_CheckBlobAttr(s.policy[slot].name, s.tb[slot]) != 0; }

/* Each reads slot `slot` when it is there (JTS_CheckBlobAttr with the
 * policy's key), stores it and traces "<label>[n]:<value>"; false when
 * the slot is missing. */
/* The number of `value`, or with `band` the number of its EnumBand word;
 * `value` need not be the slot tested. */
bool number_at(const Slots &s, size_t slot, blob_attr *value, bool band, uint32_t &dst, const char *label);
inline bool number_at(const Slots &s, size_t slot, uint32_t &dst, const char *label)
{
    return number_at(s, slot, s.tb[slot], false, dst, label);
}
/* The number of the band word `word`, which need not be the slot tested. */
inline bool band_at(const Slots &s, size_t slot, blob_attr *word, uint32_t &dst, const char *label)
{
    return number_at(s, slot, word, true, dst, label);
}
/* At most `bound` characters of the text (see copy_text); the trace shows
 * the whole array of `size` bytes, terminated or not. */
bool text_at(const Slots &s, size_t slot, char *dst, size_t bound, size_t size, const char *label);
template <size_t N>
inline bool text_at(const Slots &s, size_t slot, char (&dst)[N], const char *label)
{
    return text_at(s, slot, dst, N - 1, N, label);
}

/* A list as a hand-written converter reads it: no more than `read`
 * entries, the count set to those filled. */
constexpr ListOf read_at_most(ListOf l, uint16_t read)
{
    l.capacity = read < l.capacity ? read : l.capacity;
    l.fills_count = true;
    return l;
}

/* The row's own presence test and report, for a quirk that reads its list
 * its own way: true when the key is there. */
inline bool found(const Reading &r, const Field &f, blob_attr *attr)
{
    test_slot(r, f, attr);
    return attr != nullptr;
}

} // namespace bx::vsie

/* Rec::m, an array of packed element bytes, as the list of numbers key_,
 * read and sent by quirk q (the columns know no byte entries). */
#define BX_VSIE_BYTES(Rec, m, key_, q) \
    BX_MEMBER(Rec, m, ::bx::Wire::List, -1, BX_FIELD_SIZE(Rec, m), key_, nullptr, .quirk = &(q))

#endif
