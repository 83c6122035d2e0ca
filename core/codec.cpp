#include "core/codec.h"

#include <cstdio>
#include <cstring>

namespace bx {

namespace {

/* Big-endian value of up to `want` bytes, from the bytes the attribute has. */
uint64_t read_be(const blob_attr *attr, size_t want)
{
    if (attr == nullptr)
        return 0;
    size_t have = blobmsg_data_len(attr);
    const auto *p = static_cast<const uint8_t *>(blobmsg_data(attr));
    uint64_t v = 0;
    for (size_t i = 0; i < want; ++i)
        v = (v << 8) | (i < have ? p[i] : 0u);
    return v;
}

} // namespace

uint32_t get_u32(const blob_attr *attr) { return static_cast<uint32_t>(read_be(attr, 4)); }
uint64_t get_u64(const blob_attr *attr) { return read_be(attr, 8); }

char *get_text(blob_attr *attr)
{
    static char empty[1] = {0};
    if (attr == nullptr)
        return empty;
    size_t len = blobmsg_data_len(attr);
    auto *s = static_cast<char *>(blobmsg_data(attr));
    /* Only a value that is terminated inside the attribute is a text. */
    if (len == 0 || std::memchr(s, 0, len) == nullptr)
        return empty;
    return s;
}

void copy_text(char *dst, size_t bound, blob_attr *attr)
{
    std::strncpy(dst, get_text(attr), bound);
}

void trace_value(const char *func, int line, const char *fmt, const char *text, uint64_t number)
{
#ifndef BLOBXLATE_TRACE_OFF
    /* Find the conversion of the one value the format prints. */
    const char *p = std::strchr(fmt, '%');
    while (p != nullptr && p[1] == '%')
        p = std::strchr(p + 2, '%');
    int longs = 0;
    char conv = 'd';
    if (p != nullptr) {
        ++p;
        while (*p != 0 && std::strchr("-+ #0123456789.", *p) != nullptr)
            ++p;
        while (*p == 'l') {
            ++longs;
            ++p;
        }
        conv = *p;
    }
    /* Table texts leave the line end to us: one print, one line. */
    char line_fmt[160];
    std::snprintf(line_fmt, sizeof line_fmt, "%s\n", fmt);
    fmt = line_fmt;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    if (conv == 's')
        trace(func, line, fmt, text);
    else if (conv == 'p')
        trace(func, line, fmt, static_cast<const void *>(text));
    else if (longs >= 2)
        trace(func, line, fmt, static_cast<unsigned long long>(number));
    else if (longs == 1)
        trace(func, line, fmt, static_cast<unsigned long>(number));
    else
        trace(func, line, fmt, static_cast<unsigned>(number));
#pragma GCC diagnostic pop
#else
    (void)func;
    (void)line;
    (void)fmt;
    (void)text;
    (void)number;
#endif
}

void emit_field(const Field &f, const void *record, blob_buf *buf)
{
    const auto *base = static_cast<const uint8_t *>(record) + f.offset;
    uint32_t u32 = 0;
    uint64_t u64 = 0;
    switch (f.how) {
    case Kind::Text: {
        const char *text = reinterpret_cast<const char *>(base);
        size_t n = strnlen(text, f.size);
        if (n < f.size) {
            blobmsg_add_string(buf, f.key, text);
            break;
        }
        /* A text that fills its whole array has no terminator: send the
         * array's bytes and never read past it. */
        char bounded[4096];
        n = n < sizeof bounded ? n : sizeof bounded - 1;
        std::memcpy(bounded, text, n);
        bounded[n] = 0;
        blobmsg_add_string(buf, f.key, bounded);
        break;
    }
    case Kind::U32:
    case Kind::S32:
        std::memcpy(&u32, base, sizeof u32);
        blobmsg_add_u32(buf, f.key, u32);
        break;
    case Kind::U64:
        std::memcpy(&u64, base, sizeof u64);
        blobmsg_add_u64(buf, f.key, u64);
        break;
    case Kind::Word:
        std::memcpy(&u32, base, sizeof u32);
        add_word(buf, f.key, f.kind, u32);
        break;
    }
}

int stj_fields(const void *record, blob_buf *buf, const Field *fields, size_t count)
{
    if (record == nullptr || buf == nullptr)
        return -1;
    for (size_t i = 0; i < count; ++i)
        emit_field(fields[i], record, buf);
    return 0;
}

void store_field(const char *func, const Field &f, blob_attr *attr, void *record)
{
    auto *base = static_cast<uint8_t *>(record) + f.offset;
    uint32_t u32 = 0;
    uint64_t u64 = 0;
    switch (f.how) {
    case Kind::Text:
        copy_text(reinterpret_cast<char *>(base), f.size - 1u, attr);
        if (f.trace != nullptr) {
            /* The last byte is the caller's: trace only what the array holds. */
            char shown[4096];
            size_t n = strnlen(reinterpret_cast<const char *>(base), f.size);
            n = n < sizeof shown ? n : sizeof shown - 1;
            std::memcpy(shown, base, n);
            shown[n] = 0;
            trace_value(func, __LINE__, f.trace, shown, 0);
        }
        return;
    case Kind::U32:
    case Kind::S32:
        u32 = get_u32(attr);
        std::memcpy(base, &u32, sizeof u32);
        u64 = u32;
        break;
    case Kind::U64:
        u64 = get_u64(attr);
        std::memcpy(base, &u64, sizeof u64);
        break;
    case Kind::Word:
        u32 = static_cast<uint32_t>(get_word(f.kind, attr));
        std::memcpy(base, &u32, sizeof u32);
        u64 = u32;
        break;
    }
    if (f.trace != nullptr)
        trace_value(func, __LINE__, f.trace, nullptr, u64);
}

namespace {

/* Parses an area against the field table's keys and stores what is there. */
void store_fields(const char *func, void *data, size_t len, void *record, const Field *fields, size_t count)
{
    if (count > kMaxFields)
        count = kMaxFields;
    blobmsg_policy policy[kMaxFields] = {};
    blob_attr *tb[kMaxFields];
    for (size_t i = 0; i < count; ++i)
        policy[i] = blobmsg_policy{fields[i].key, wire_type(fields[i].how)};
    blobmsg_parse(policy, static_cast<int>(count), tb, data, static_cast<unsigned>(len));
    store_present(func, fields, count, tb, record);
}

} // namespace

int jts_fields(const char *func, blob_attr *msg, void *record, const Field *fields, size_t count)
{
    if (msg == nullptr || record == nullptr)
        return -1;
    store_fields(func, blob_data(msg), blob_len(msg), record, fields, count);
    return 0;
}

void stj_list(blob_buf *buf, const char *key, const void *first, size_t stride, uint32_t count, size_t capacity,
              const Field *fields, size_t nfields)
{
    /* A count above the array's size is the caller's error: send what the
     * array holds and never read past it. */
    if (count > capacity)
        count = static_cast<uint32_t>(capacity);
    void *array = blobmsg_open_array(buf, key);
    for (uint32_t i = 0; i < count; ++i) {
        void *table = blobmsg_open_table(buf, nullptr);
        stj_fields(static_cast<const uint8_t *>(first) + i * stride, buf, fields, nfields);
        blob_nest_end(buf, table);
    }
    blob_nest_end(buf, array);
}

uint32_t jts_list(const char *func, blob_attr *list, void *first, size_t stride, size_t capacity,
                  const Field *fields, size_t nfields)
{
    uint32_t filled = 0;
    for_each_elem(list, [&](blob_attr *elem) {
        if (filled >= capacity) {
            trace_value(func, __LINE__, "list full, %u entries kept", nullptr, filled);
            return false;
        }
        if (blobmsg_type(elem) != BLOBMSG_TYPE_TABLE)
            return true;
        store_fields(func, blobmsg_data(elem), blobmsg_data_len(elem),
                     static_cast<uint8_t *>(first) + filled * stride, fields, nfields);
        ++filled;
        return true;
    });
    return filled;
}

} // namespace bx
