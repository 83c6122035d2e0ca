#include "core/codec.h"

#include <cstdio>
#include <cstring>
#include <endian.h>

namespace bx {

namespace {

template <size_t Want>
uint64_t load_be(const uint8_t *p)
{
    if constexpr (Want == 8) {
        uint64_t v;
        std::memcpy(&v, p, sizeof v);
        return be64toh(v);
    } else {
        uint32_t v;
        std::memcpy(&v, p, sizeof v);
        return be32toh(v);
    }
}

/* Big-endian value of up to `Want` bytes, from the bytes the attribute has. */
template <size_t Want>
uint64_t read_be(const blob_attr *attr)
{
    if (attr == nullptr)
        return 0;
    const size_t have = blobmsg_data_len(attr);
    const auto *p = static_cast<const uint8_t *>(blobmsg_data(attr));
    uint64_t v = 0;
    if (have >= Want)  /* the usual case: one load, swapped */
        return load_be<Want>(p);
    for (size_t i = 0; i < Want; ++i)
        v = (v << 8) | (i < have ? p[i] : 0u);
    return v;
}

} // namespace

uint32_t get_u32(const blob_attr *attr) { return static_cast<uint32_t>(read_be<4>(attr)); }
uint64_t get_u64(const blob_attr *attr) { return read_be<8>(attr); }

char *get_text(blob_attr *attr)
{
    static char empty[1] = {0};
    if (attr == nullptr)
        return empty;
    size_t len = blobmsg_data_len(attr);
    auto *s = static_cast<char *>(blobmsg_data(attr));
    /* Only a value that is terminated inside the attribute is a text; a
     * checked STRING ends in its terminator, the rest is searched. */
    if (len == 0 || (s[len - 1] != 0 && std::memchr(s, 0, len) == nullptr))
        return empty;
    return s;
}

void copy_text(char *dst, size_t bound, blob_attr *attr)
{
    std::strncpy(dst, get_text(attr), bound);
}

/* Kept out of the slots' reading (see read_slot) while there is a trace to
 * print: its line building is cold. */
#ifndef BLOBXLATE_TRACE_OFF
[[gnu::noinline]]
#endif
void trace_field(const char *func, const Field &f, const char *text, size_t text_len, uint64_t number)
{
#ifndef BLOBXLATE_TRACE_OFF
    /* In the per-call mode a call whose switch is off builds no line. */
    if (f.trace() == nullptr || !trace_may_print())
        return;
    /* Table texts leave the line end to us: one print, one line. A text
     * value is printed with its length, so an array without a terminator of
     * its own is never read past. */
    char line_fmt[160];
    const size_t at = f.shape.at;
    if (f.shape.arg == TraceArg::Text)
        std::snprintf(line_fmt, sizeof line_fmt, "%.*s.*%s\n", static_cast<int>(at), f.trace(), f.trace() + at);
    else
        std::snprintf(line_fmt, sizeof line_fmt, "%s\n", f.trace());
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    switch (f.shape.arg) {
    case TraceArg::Text:
        trace(func, __LINE__, line_fmt, static_cast<int>(text_len), text);
        break;
    case TraceArg::Pointer:
        trace(func, __LINE__, line_fmt, static_cast<const void *>(text));
        break;
    case TraceArg::LongLong:
        trace(func, __LINE__, line_fmt, static_cast<unsigned long long>(number));
        break;
    case TraceArg::Long:
        trace(func, __LINE__, line_fmt, static_cast<unsigned long>(number));
        break;
    case TraceArg::Int:
    case TraceArg::None:
        trace(func, __LINE__, line_fmt, static_cast<unsigned>(number));
        break;
    }
#pragma GCC diagnostic pop
#else
    (void)func;
    (void)f;
    (void)text;
    (void)text_len;
    (void)number;
#endif
}

bool name_header_inside(const blob_attr *elem)
{
    if (!blob_is_extended(elem))
        return true;
    const size_t len = blob_len(elem);
    if (len < sizeof(blobmsg_hdr))
        return false;
    const auto namelen = blobmsg_namelen(static_cast<const blobmsg_hdr *>(blob_data(elem)));
    return static_cast<size_t>(blobmsg_hdrlen(namelen)) <= len;
}

/* The steps and tests of blobmsg_for_each_attr, then the name header and
 * the value checked. */
blob_attr *Elems::next()
{
    bool first = list_ != nullptr;
    if (first) {
        cur_ = static_cast<blob_attr *>(blobmsg_data(list_));
        rem_ = blobmsg_data_len(list_);
        list_ = nullptr;
    }
    while (cur_ != nullptr) {
        if (!first) {
            rem_ -= blob_pad_len(cur_);
            cur_ = blob_next(cur_);
        }
        first = false;
        const bool fits = rem_ >= sizeof(blob_attr) && blob_pad_len(cur_) >= sizeof(blob_attr) &&
                          blob_pad_len(cur_) <= rem_;
        if (!fits || !name_header_inside(cur_))
            break;
        if (blobmsg_check_attr_len(cur_, false, rem_))
            return cur_;
    }
    cur_ = nullptr;
    return nullptr;
}

void parse_span(const blobmsg_policy *policy, size_t count, blob_attr **tb, blob_attr *elem, const char *msg_end)
{
    auto *data = static_cast<char *>(blobmsg_data(elem));
    const size_t span = blob_len(elem);
    const size_t room = data < msg_end ? static_cast<size_t>(msg_end - data) : 0;
    parse_keys(policy, count, tb, data, static_cast<unsigned>(span < room ? span : room));
}

void parse_span(const ListOf &table, blob_attr **tb, blob_attr *elem, const char *msg_end)
{
    auto *data = static_cast<char *>(blobmsg_data(elem));
    const size_t span = blob_len(elem);
    const size_t room = data < msg_end ? static_cast<size_t>(msg_end - data) : 0;
    parse_table(table, tb, data, static_cast<unsigned>(span < room ? span : room));
}

int parse_rows(const Field *rows, size_t count, uint16_t index_at, blob_attr **tb, void *data, unsigned int len)
{
    const auto *ix = reinterpret_cast<const uint8_t *>(rows) + index_at;  /* laid out as KeyIndex */
    return parse_by_keys(RowKeys{rows}, ref_at(ix, count), count, tb, data, len);
}

int add_text(blob_buf *buf, const char *key, const char *text, size_t size)
{
    size_t n = strnlen(text, size);
    /* blobmsg_add_string, with the length already known. */
    if (n < size)
        return blobmsg_add_field(buf, BLOBMSG_TYPE_STRING, key, text, static_cast<unsigned>(n + 1));
    /* A text that fills its whole array has no terminator: the member is
     * written in place, the array's bytes and then the terminator, so that
     * nothing past the array is read. */
    auto *dst = static_cast<char *>(blobmsg_alloc_string_buffer(buf, key, static_cast<unsigned>(n)));
    if (dst == nullptr)
        return -1;
    std::memcpy(dst, text, n);
    dst[n] = 0;
    blobmsg_add_string_buffer(buf);
    return 0;
}

namespace {
void emit_list(const Field &f, const ListOf &l, const void *record, blob_buf *buf);
} // namespace

void emit_field(const Field &f, const Link *links, const void *record, blob_buf *buf)
{
    const auto *base = static_cast<const uint8_t *>(record) + f.offset;
    uint32_t u32 = 0;
    uint64_t u64 = 0;
    switch (f.wire) {
    case Wire::Text:
        add_text(buf, f.key(), reinterpret_cast<const char *>(base), f.size);
        break;
    case Wire::U32:
    case Wire::S32:
        std::memcpy(&u32, base, sizeof u32);
        blobmsg_add_u32(buf, f.key(), u32);
        break;
    case Wire::U64:
        std::memcpy(&u64, base, sizeof u64);
        blobmsg_add_u64(buf, f.key(), u64);
        break;
    case Wire::Word:
        std::memcpy(&u32, base, sizeof u32);
        add_word(buf, f.key(), f.word_list, u32);
        break;
    case Wire::U8:
        blobmsg_add_u32(buf, f.key(), *base);
        break;
    case Wire::List:
        emit_list(f, *f.list(links), record, buf);
        break;
    }
}

namespace {

/* The record's mask to set bits in, or nullptr for a record without one. */
uint32_t *mask_in(void *record, int mask_at)
{
    return mask_at >= 0 ? reinterpret_cast<uint32_t *>(static_cast<uint8_t *>(record) + mask_at) : nullptr;
}

uint32_t mask_of(const void *record, int mask_at)
{
    uint32_t mask = 0;
    if (mask_at >= 0)
        std::memcpy(&mask, static_cast<const uint8_t *>(record) + mask_at, sizeof mask);
    return mask;
}

} // namespace

void emit_fields(const Field *fields, size_t count, const Link *links, const void *record, blob_buf *buf, int mask_at)
{
    const uint32_t mask = mask_of(record, mask_at);
    for (size_t i = 0; i < count; ++i) {
        const Field &f = fields[i];
        const uint32_t sent_if = f.sent_if();
        if (!f.sent || f.way == Way::Received || (sent_if != 0 && (mask & sent_if) == 0))
            continue;
        const Quirk *quirk = f.quirk(links);
        if (quirk != nullptr && quirk->send != nullptr)
            quirk->send(f, links, record, buf);
        else
            emit_field(f, links, record, buf);
    }
}

int jts_table(blob_attr *msg, void *record, const Table &table, const Link *links, const char *func, int mask_at)
{
    if (msg == nullptr || record == nullptr)
        return refuse_null(record, Converter{&table, links, nullptr, table.fields, mask_at, nullptr, nullptr});
    blob_attr *tb[kMaxTableFields];
    void *data = blob_data(msg);
    const size_t len = blob_len(msg);
    parse_rows(table.rows(), table.fields, table.index_at, tb, data, static_cast<unsigned>(len));
    return read_fields(Reading{func, record, mask_in(record, mask_at), static_cast<const char *>(data) + len, tb, links},
                       table.rows(), table.fields)
        .ret;
}

int jts_table(blob_attr *msg, void *record, const Table &table, const Link *links, const char *func)
{
    return jts_table(msg, record, table, links, func, kNoMask);
}

int jts_table(blob_attr *msg, void *record, const Table &table, const char *func)
{
    return jts_table(msg, record, table, nullptr, func, kNoMask);
}

int stj_table(const void *record, blob_buf *buf, const Table &table, const Link *links, int mask_at)
{
    if (record == nullptr || buf == nullptr)
        return refuse_null(record, Converter{&table, links, nullptr, 0, mask_at, nullptr, nullptr});
    emit_fields(table.rows(), table.fields, links, record, buf, mask_at);
    return 0;
}

int stj_table(const void *record, blob_buf *buf, const Table &table, const Link *links)
{
    return stj_table(record, buf, table, links, kNoMask);
}

void store_field(const char *func, const Field &f, blob_attr *attr, void *record)
{
    store_as(func, f, f.wire, attr, record);
}

void store_as(const char *func, const Field &f, Wire wire, blob_attr *attr, void *record)
{
    auto *base = static_cast<uint8_t *>(record) + f.offset;
    uint32_t u32 = 0;
    uint64_t u64 = 0;
    switch (wire) {
    case Wire::Text:
        copy_text(reinterpret_cast<char *>(base), f.whole ? f.size : f.size - 1u, attr);
        /* The last byte is the caller's: trace only what the array holds. */
        trace_field(func, f, reinterpret_cast<const char *>(base),
                    strnlen(reinterpret_cast<const char *>(base), f.size), 0);
        return;
    case Wire::U32:
    case Wire::S32:
        u32 = get_u32(attr);
        std::memcpy(base, &u32, sizeof u32);
        u64 = u32;
        break;
    case Wire::U64:
        u64 = get_u64(attr);
        std::memcpy(base, &u64, sizeof u64);
        break;
    case Wire::Word:
        u32 = static_cast<uint32_t>(get_word(f.word_list, attr));
        std::memcpy(base, &u32, sizeof u32);
        u64 = u32;
        break;
    case Wire::U8:
        *base = static_cast<uint8_t>(get_u32(attr));
        u64 = *base;
        break;
    case Wire::List:  /* read by read_list */
        return;
    }
    trace_field(func, f, nullptr, 0, u64);
}

namespace {

uint32_t count_of(const void *record, const ListOf &l)
{
    uint32_t count = 0;
    if (l.count_at >= 0)
        std::memcpy(&count, static_cast<const uint8_t *>(record) + l.count_at, sizeof count);
    return count;
}

/* One element into one entry: a table by the entry's table, a bare value
 * as the entry's one field. */
Read read_entry(const Reading &r, const ListOf &l, blob_attr *elem, void *entry)
{
    if (!l.tables) {
        store_field(r.func, l.entry()[0], elem, entry);
        return kGoOn;
    }
    blob_attr *tb[kMaxEntryFields];
    if (l.spans && r.msg_end != nullptr)
        parse_span(l, tb, elem, r.msg_end);
    else
        parse_table(l, tb, blobmsg_data(elem), static_cast<unsigned>(blobmsg_data_len(elem)));
    return read_fields(Reading{r.func, entry, nullptr, r.msg_end, tb, l.entry_links}, l.entry(), l.fields);
}

void trace_with_count(const char *func, const char *text, uint32_t n)
{
#ifndef BLOBXLATE_TRACE_OFF
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"
    trace(func, __LINE__, text, n);
#pragma GCC diagnostic pop
#else
    (void)func;
    (void)text;
    (void)n;
#endif
}

/* The entries of a received list, in element order, never past the bound. */
Read read_list(const Reading &r, const Field &f, blob_attr *attr)
{
    const ListOf &l = *r.list(f);
    auto *first = static_cast<uint8_t *>(r.record) + f.offset;
    const uint32_t count = l.bound == Bound::Capacity ? l.capacity : at_most(count_of(r.record, l), l.capacity);
    const uint32_t limit = l.bound == Bound::Count ? count : l.capacity;
    const int type = l.tables ? BLOBMSG_TYPE_TABLE : wire_type(l.entry()[0].wire);
    uint32_t filled = 0;
    Read done = kGoOn;
    for_each_elem(attr, [&](blob_attr *elem) {
        if (filled >= limit) {
            if (l.past_bound != nullptr)
                trace_with_count(r.func, l.past_bound, filled);
            return l.surplus_skipped;
        }
        if (blobmsg_type(elem) != type && !l.any_type) {
            if (l.odd != nullptr)
                trace_with_count(r.func, l.odd, filled);
            return true;
        }
        done = read_entry(r, l, elem, first + filled * l.stride);
        ++filled;
        return !done.refused && !(l.bound == Bound::CountAfter && filled >= count);
    });
    if (l.fills_count && l.count_at >= 0)
        std::memcpy(static_cast<uint8_t *>(r.record) + l.count_at, &filled, sizeof filled);
    trace_field(r.func, f, nullptr, 0, filled);
    return done;
}

bool entry_empty(const Field &f, const uint8_t *entry)
{
    uint8_t first = 0;
    if (f.wire == Wire::Text)
        return entry[f.offset] == 0;
    for (size_t i = 0; i < f.size; ++i)
        first |= entry[f.offset + i];
    return first == 0;
}

/* The entries of a record's list: as many as its count says (never more
 * than the array holds), else the whole array, up to the first empty one
 * where the list says so. */
void emit_list(const Field &f, const ListOf &l, const void *record, blob_buf *buf)
{
    const auto *first = static_cast<const uint8_t *>(record) + f.offset;
    const uint32_t n = l.count_at >= 0 ? at_most(count_of(record, l), l.capacity) : l.capacity;
    void *array = blobmsg_open_array(buf, f.key());
    for (uint32_t i = 0; i < n; ++i) {
        const uint8_t *entry = first + i * l.stride;
        if (l.to_first_empty && entry_empty(l.entry()[0], entry))
            break;
        if (!l.tables) {
            emit_field(l.entry()[0], l.entry_links, entry, buf);
            continue;
        }
        void *table = blobmsg_open_table(buf, nullptr);
        emit_fields(l.entry(), l.fields, l.entry_links, entry, buf, kNoMask);
        blob_nest_end(buf, table);
    }
    blob_nest_end(buf, array);
}

/* Tested unsigned as value - lowest <= highest - lowest: with lowest 1 a
 * zero wraps to the largest number and is refused. */
bool in_range(const Rules &rules, uint32_t value) { return value - rules.lowest <= rules.highest - rules.lowest; }

uint32_t stored_u32(const Field &f, const void *record)
{
    uint32_t value = 0;
    std::memcpy(&value, static_cast<const uint8_t *>(record) + f.offset, sizeof value);
    return value;
}

Read refuse(const Reading &r, const Field &f)
{
    if (f.out_of_range() != nullptr)
        BX_TRACE_AS(r.func, "%s\n", f.out_of_range());
    return {true, -1};
}

/* A list slot, in a frame of its own: the list's walk needs a large one,
 * which the slots of plain values should not set up. */
[[gnu::noinline]] Read read_list_slot(const Reading &r, const Field &f, blob_attr *attr)
{
    const Read done = read_list(r, f, attr);
    if (r.mask != nullptr)
        *r.mask |= f.mask_bit();
    return done;
}

/* A slot whose row has rules: a range tested before or after storing, a
 * mask bit. In a frame of its own, so that the usual slot's reading (which
 * read_slot flattens) holds one copy of storing. */
[[gnu::noinline]] Read read_ruled_slot(const Reading &r, const Field &f, Wire wire, blob_attr *attr)
{
    const Rules rules = f.rules();
    if (rules.check == Check::Before && !in_range(rules, get_u32(attr)))
        return refuse(r, f);
    store_as(r.func, f, wire, attr, r.record);
    if (r.mask != nullptr)
        *r.mask |= rules.mask_bit;
    if (rules.check == Check::After && !in_range(rules, stored_u32(f, r.record)))
        return refuse(r, f);
    return kGoOn;
}

} // namespace

Read test_slot(const Reading &r, const Field &f, blob_attr *attr)
{
    /* JTS_CheckBlobAttr answers 1 for any attribute: called for the missing. */
    if (!f.tested || attr != nullptr || JTS_CheckBlobAttr(f.key(), attr))
        return kGoOn;
    if (f.refusal() != nullptr)
        BX_TRACE_AS(r.func, "%s\n", f.refusal());
    if (!f.required)
        return kGoOn;
    return {true, f.refused_ret()};
}

/* Every plain slot of every message passes here: one frame for all of it. */
[[gnu::flatten]] Read read_slot(const Reading &r, const Field &f, blob_attr *attr) { return read_slot_as(r, f, f.wire, attr); }

Read read_slot_as(const Reading &r, const Field &f, Wire wire, blob_attr *attr)
{
    if (!f.tested)
        return kGoOn;
    if (attr == nullptr)
        return test_slot(r, f, attr);
    if (!f.stored)
        return kGoOn;
    if (wire == Wire::List)
        return read_list_slot(r, f, attr);
    if (f.rules_at != 0)
        return read_ruled_slot(r, f, wire, attr);
    store_as(r.func, f, wire, attr, r.record);  /* the usual row: no range, no mask bit */
    return kGoOn;
}

const Field &ListOf::row(size_t i) const
{
    const Field *f = entry();
    if (way == Way::Both)
        return f[i];
    const Way skipped = other_way(way);
    for (size_t seen = 0;; ++f) {
        if (f->way != skipped && seen++ == i)
            return *f;
    }
}

Read read_fields(const Reading &r, const Field *fields, size_t count)
{
    for (size_t i = 0; i < count; ++i) {
        const Field &f = fields[i];
        if (f.way == Way::Sent)
            continue;
        const Quirk *quirk = f.quirk(r.links);
        Read done = quirk != nullptr && quirk->read != nullptr ? quirk->read(r, f, r.tb[i]) : read_slot(r, f, r.tb[i]);
        if (done.refused)
            return done;
    }
    return kGoOn;
}

Read read_fields(const char *func, const Field *fields, size_t count, const Link *links, blob_attr *const *tb,
                 void *record, int mask_at)
{
    return read_fields(Reading{func, record, mask_in(record, mask_at), nullptr, tb, links}, fields, count);
}

} // namespace bx
