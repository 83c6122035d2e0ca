/* The checker: what a JSON-to-struct converter will do with each part of a
 * message, found by reading the message against the converter's table the
 * way the converter reads it, storing nothing.
 *
 * A table is parsed as blobmsg_parse parses it: attributes in message order,
 * the walk ending at the first malformed one, each row taking the first
 * attribute of its key and type. The rows are then read in table order, as
 * read_slot reads them. A row with a quirk reads its own way: only its
 * presence and type are checked here, its note says the rest. */
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "blobxlate.h"
#include "core/codec.h"
#include "core/describe.h"
#include "enums/words.h"

namespace bx {

namespace {

struct Examination {
    BlobxlateFindingFunc report;
    void *context;
    int found;
    size_t path_len;
    char path[128];
    char text[160];
};

/* Appends ".key", "key" (at the top) or "[n]" to the path; returns the
 * length to restore. */
size_t push_key(Examination &in, const char *key, size_t key_len)
{
    const size_t was = in.path_len;
    const int n = std::snprintf(in.path + was, sizeof in.path - was, "%s%.*s", was > 0 ? "." : "",
                                static_cast<int>(key_len), key);
    in.path_len = n > 0 ? std::strlen(in.path) : was;
    return was;
}

size_t push_index(Examination &in, unsigned index)
{
    const size_t was = in.path_len;
    std::snprintf(in.path + was, sizeof in.path - was, "[%u]", index);
    in.path_len = std::strlen(in.path);
    return was;
}

void pop(Examination &in, size_t was)
{
    in.path_len = was;
    in.path[was] = 0;
}

/* One finding at the current path; `text` has been formatted into in.text. */
void report(Examination &in, int kind, const char *key, bool has_number = false, int64_t number = 0)
{
    ++in.found;
    if (in.report == nullptr)
        return;
    const BlobxlateFinding finding{in.path, key, kind, in.text, has_number ? 1 : 0, number};
    in.report(in.context, &finding);
}

/* Formats the finding's text. */
#define BX_SAY(in, ...) std::snprintf((in).text, sizeof (in).text, __VA_ARGS__)

const char *type_name(int type)
{
    switch (type) {
    case BLOBMSG_TYPE_ARRAY:
        return "ARRAY";
    case BLOBMSG_TYPE_TABLE:
        return "TABLE";
    case BLOBMSG_TYPE_STRING:
        return "STRING";
    case BLOBMSG_TYPE_INT64:
        return "INT64";
    case BLOBMSG_TYPE_INT32:
        return "INT32";
    case BLOBMSG_TYPE_INT16:
        return "INT16";
    case BLOBMSG_TYPE_INT8:
        return "INT8";
    case BLOBMSG_TYPE_DOUBLE:
        return "DOUBLE";
    default:
        return "UNSPEC";
    }
}

bool named(const blob_attr *attr, const char *key)
{
    if (key == nullptr || !blob_is_extended(attr))
        return false;
    const auto *hdr = static_cast<const blobmsg_hdr *>(blob_data(attr));
    const size_t len = std::strlen(key);
    return blobmsg_namelen(hdr) == len && std::memcmp(hdr->name, key, len) == 0;
}

/* An area as blobmsg_parse walks it: fn(attr) for each attribute up to the
 * first malformed one; returns that one, or nullptr. */
template <typename Fn>
blob_attr *walk_area(void *data, size_t len, Fn fn)
{
    if (data == nullptr)
        return nullptr;
    blob_attr *pos;
    unsigned int rem = static_cast<unsigned int>(len);
    __blob_for_each_attr(pos, data, rem) {
        if (!blobmsg_check_attr_len(pos, false, rem))
            return pos;
        fn(pos);
    }
    return nullptr;
}

/* The attribute row f's slot gets: the first of its key and type. */
blob_attr *slot_of(void *data, size_t len, const Field &f)
{
    blob_attr *slot = nullptr;
    walk_area(data, len, [&](blob_attr *attr) {
        if (slot == nullptr && named(attr, f.key()) && blobmsg_type(attr) == wire_type(f.wire))
            slot = attr;
    });
    return slot;
}

struct Area {
    void *data;
    size_t len;
    const ListOf &table;
    const blobmsg_policy *policy;  /* a hand-written converter's own policy, or nullptr: its table's keys */
    uint16_t policy_count;
};

bool in_policy(const Area &a, const blob_attr *attr)
{
    for (uint16_t i = 0; i < a.policy_count; ++i) {
        if (named(attr, a.policy != nullptr ? a.policy[i].name : a.table.row(i).key()))
            return true;
    }
    return false;
}

void examine_wrong_type(Examination &in, const Field &f, const blob_attr *attr, const char *key)
{
    const int have = blobmsg_type(attr);
    const int want = wire_type(f.wire);
    if (want == BLOBMSG_TYPE_INT64 && have == BLOBMSG_TYPE_INT32) {
        BX_SAY(in, "INT32 where INT64 is read: ignored; send it with blobmsg_add_u64");
        report(in, BLOBXLATE_FINDING_SEND_AS_U64, key);
        return;
    }
    BX_SAY(in, "%s where %s is read: ignored, the member keeps its value", type_name(have), type_name(want));
    report(in, BLOBXLATE_FINDING_WRONG_TYPE, key);
}

/* One attribute of an area: is it a key of the table, of the right type,
 * the one its row reads, and read at all? */
void examine_key(Examination &in, const Area &a, blob_attr *attr)
{
    const bool has_name = blob_is_extended(attr);
    const size_t was = push_key(in, has_name ? blobmsg_name(attr) : "",
                                has_name ? blobmsg_namelen(static_cast<const blobmsg_hdr *>(blob_data(attr))) : 0);
    /* The key as a terminated text: the path's last part. */
    const size_t at = was + (was > 0 ? 1 : 0);
    const char *key = at < in.path_len ? in.path + at : "";
    const Field *row = nullptr;
    for (uint8_t i = 0; i < a.table.fields && row == nullptr; ++i) {
        if (named(attr, a.table.row(i).key()))
            row = &a.table.row(i);
    }
    if (row == nullptr && !in_policy(a, attr)) {
        BX_SAY(in, "not a key of this message: ignored");
        report(in, BLOBXLATE_FINDING_UNKNOWN_KEY, key);
    } else if (row != nullptr && blobmsg_type(attr) != wire_type(row->wire)) {
        examine_wrong_type(in, *row, attr, key);
    } else if (row != nullptr && slot_of(a.data, a.len, *row) != attr) {
        BX_SAY(in, "a second \"%s\": ignored, the first is read", row->key());
        report(in, BLOBXLATE_FINDING_DUPLICATE, key);
    } else if (row != nullptr && (!row->tested || (!row->stored && !row->sent))) {
        BX_SAY(in, "never read: ignored");
        report(in, BLOBXLATE_FINDING_NOT_READ, key);
    }
    pop(in, was);
}

/* ---- Values ----------------------------------------------------------------- */

void examine_text(Examination &in, const Field &f, blob_attr *attr)
{
    const size_t bound = f.whole ? f.size : f.size - 1u;
    const size_t len = std::strlen(get_text(attr));
    if (len <= bound)
        return;
    BX_SAY(in, "a text of %zu characters: cut to %zu", len, bound);
    report(in, BLOBXLATE_FINDING_TEXT_CUT, f.key());
}

/* The number a word is stored as; *known false for a word its list does
 * not have. The standard sets are read from a copy: their reading cuts the
 * text. */
int word_number(int kind, blob_attr *attr, bool *known)
{
    const PooledList *k = find_word_list(kind);
    const char *text = get_text(attr);
    if (k == nullptr) {
        *known = false;
        return -1;
    }
    if (k->out != Out::StandardSet) {
        const PooledWord *w = find_text(words_in(*k), text);
        *known = w != nullptr;
        return w != nullptr ? w->number : k->unknown_text;
    }
    char copy[200] = {};
    std::strncpy(copy, text, sizeof copy - 1);
    const int number = PARATRANS_String_To_Int(kind, copy);
    *known = number != k->unknown_text;
    return number;
}

/* The number row f stores for attr, as its member holds it. */
uint32_t stored_number(const Field &f, blob_attr *attr, bool *unknown_word)
{
    *unknown_word = false;
    if (f.wire == Wire::Word) {
        bool known = true;
        const int number = word_number(f.word_list, attr, &known);
        *unknown_word = !known;
        return static_cast<uint32_t>(number);
    }
    if (f.wire == Wire::U64) {
        const uint64_t wide = get_u64(attr);
        uint32_t low = 0;
        std::memcpy(&low, &wide, sizeof low);  /* the member's first four bytes */
        return low;
    }
    return f.wire == Wire::U8 ? get_u32(attr) & 0xFFu : get_u32(attr);
}

bool within(const Field &f, uint32_t value) { return value - f.lowest() <= f.highest() - f.lowest(); }

void examine_number(Examination &in, const Field &f, blob_attr *attr)
{
    bool unknown = false;
    const uint32_t stored = stored_number(f, attr, &unknown);
    const bool refused_after = f.check() == Check::After && !within(f, stored);
    if (unknown) {
        BX_SAY(in, "\"%s\" is no word of its list: stored as %d%s", get_text(attr), static_cast<int>(stored),
            refused_after ? ", then the message is refused" : "");
        report(in, BLOBXLATE_FINDING_UNKNOWN_WORD, f.key(), true, static_cast<int32_t>(stored));
        return;
    }
    const uint32_t tested = f.check() == Check::Before ? get_u32(attr) : stored;
    if (f.check() == Check::None || within(f, tested))
        return;
    BX_SAY(in, "%u is outside %u..%u: the message is refused%s", tested, f.lowest(), f.highest(),
        f.check() == Check::After ? " once it is stored" : "");
    report(in, BLOBXLATE_FINDING_OUT_OF_RANGE, f.key(), true, tested);
}

void examine_area(Examination &in, const Area &a);

/* ---- Lists ------------------------------------------------------------------- */

/* The count a list's walk is bounded by: the record's count as a row read
 * before the list's stores it from the message, else unknown (the
 * caller's): the capacity. A capacity of 0 is the caller's array: no bound
 * known here. */
uint32_t list_limit(const Area &a, const Field &list)
{
    const ListOf &l = *list.list(a.table.entry_links);
    const uint32_t capacity = l.capacity != 0 ? l.capacity : UINT32_MAX;
    if (l.bound == Bound::Capacity || l.count_at < 0)
        return capacity;
    for (uint8_t i = 0; i < a.table.fields && &a.table.row(i) != &list; ++i) {
        const Field &f = a.table.row(i);
        blob_attr *slot = f.stored && f.offset == static_cast<uint16_t>(l.count_at) && f.wire != Wire::List
                              ? slot_of(a.data, a.len, f)
                              : nullptr;
        if (slot == nullptr)
            continue;
        const uint32_t count = at_most(get_u32(slot), capacity);
        return l.bound == Bound::CountAfter && count == 0 ? 1 : count;
    }
    return capacity;
}

void examine_element(Examination &in, const ListOf &l, blob_attr *elem)
{
    const Field &entry = l.entry()[0];
    if (l.tables) {
        examine_area(in, Area{blobmsg_data(elem), blobmsg_data_len(elem), l, nullptr, 0});
    } else if (blobmsg_type(elem) != wire_type(entry.wire)) {
        BX_SAY(in, "a %s element read as the number %u", type_name(blobmsg_type(elem)), get_u32(elem));
        report(in, BLOBXLATE_FINDING_WRONG_TYPE, nullptr, true, get_u32(elem));
    } else if (entry.wire == Wire::Text) {
        examine_text(in, entry, elem);
    } else {
        examine_number(in, entry, elem);
    }
}

void examine_list(Examination &in, const Area &a, const Field &f, blob_attr *attr)
{
    const ListOf &l = *f.list(a.table.entry_links);
    const uint32_t limit = list_limit(a, f);
    const int type = l.tables ? BLOBMSG_TYPE_TABLE : wire_type(l.entry()[0].wire);
    unsigned index = 0;
    uint32_t filled = 0;
    for_each_elem(attr, [&](blob_attr *elem) {
        const size_t was = push_index(in, index++);
        const bool past = filled >= limit;
        if (past) {
            /* The walk ends here, or skips every element from here on. */
            BX_SAY(in, "past the %u entries read: dropped with every element after it", limit);
            report(in, BLOBXLATE_FINDING_LIST_CUT, nullptr);
        } else if (blobmsg_type(elem) != type && !l.any_type) {
            BX_SAY(in, "a %s element where %s is read: skipped", type_name(blobmsg_type(elem)), type_name(type));
            report(in, BLOBXLATE_FINDING_WRONG_TYPE, nullptr);
        } else {
            examine_element(in, l, elem);
            ++filled;
        }
        pop(in, was);
        return !past;
    });
}

/* ---- Tables ------------------------------------------------------------------- */

void examine_row(Examination &in, const Area &a, const Field &f)
{
    if (!f.tested || f.key() == nullptr)
        return;
    blob_attr *attr = slot_of(a.data, a.len, f);
    const size_t was = push_key(in, f.key(), std::strlen(f.key()));
    if (attr == nullptr && f.required) {
        BX_SAY(in, "a required key is missing: the message is refused (%d)", f.refused_ret());
        report(in, BLOBXLATE_FINDING_MISSING, f.key());
    } else if (attr != nullptr && f.stored && f.quirk(a.table.entry_links) == nullptr) {
        if (f.wire == Wire::List && f.list(a.table.entry_links) != nullptr)
            examine_list(in, a, f, attr);
        else if (f.wire == Wire::Text)
            examine_text(in, f, attr);
        else if (f.wire != Wire::List)
            examine_number(in, f, attr);
    }
    pop(in, was);
}

void examine_area(Examination &in, const Area &a)
{
    blob_attr *bad = walk_area(a.data, a.len, [&](blob_attr *attr) { examine_key(in, a, attr); });
    if (bad != nullptr) {
        BX_SAY(in, "a malformed attribute: it and everything after it are not read");
        report(in, BLOBXLATE_FINDING_MALFORMED, nullptr);
    }
    for (uint8_t i = 0; i < a.table.fields; ++i)
        examine_row(in, a, a.table.row(i));
}

} // namespace

} // namespace bx

extern "C" BX_API int BLOBXLATE_Check(int iType, struct blob_attr *pstMsg, BlobxlateFindingFunc pfnReport,
                                      void *pvContext)
{
    const bx::Converter c = bx::converter_of(BLOBXLATE_TO_STRUCT, iType);
    if (c.fields == nullptr || pstMsg == nullptr)
        return -1;
    bx::Examination in{pfnReport, pvContext, 0, 0, {}, {}};
    const bool hand_written = c.note != nullptr;
    bx::examine_area(in, bx::Area{blob_data(pstMsg), blob_len(pstMsg), *c.fields, hand_written ? c.policy : nullptr,
                                  static_cast<uint16_t>(hand_written ? c.policy_count : 0)});
    return in.found;
}
