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

/* Stores the numbers of an array attribute in dst[0], dst[1], ..., at most
 * `limit` of them (a byte array keeps each number's low byte), and calls
 * stored(k, dst[k]) after each. An element of any type is read as a number:
 * the daemons never look at an element's type. Returns how many were
 * stored. */
template <typename T, typename Stored>
inline size_t store_numbers(T *dst, size_t limit, blob_attr *array, Stored stored)
{
    size_t k = 0;
    for_each_elem(array, [&](blob_attr *cur) {
        if (k >= limit)
            return false;
        dst[k] = static_cast<T>(get_u32(cur));
        stored(k, dst[k]);
        ++k;
        return true;
    });
    return k;
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
