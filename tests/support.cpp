#include "support.h"

#include "records.h"

#include <gtest/gtest.h>

#include <cinttypes>
#include <cstdio>
#include <cstring>
#include <stdexcept>

namespace bxtest {

Buf::Buf() { blob_buf_init(&buf_, 0); }
Buf::~Buf() { blob_buf_free(&buf_); }
std::string Buf::typed() { return bxtest::typed(buf_.head); }

namespace {

[[noreturn]] void bad_notation(const char *at) { throw std::runtime_error(std::string("bad message text at: ") + at); }

// Adds the members written at p (up to `end`, a closing bracket or the
// terminator) to the open table or array; named members in tables.
const char *add_members(blob_buf *buf, const char *p, bool named)
{
    for (;;) {
        while (*p == ' ')
            ++p;
        if (*p == '\0' || *p == ']' || *p == '}')
            return p;
        std::string name;
        if (named) {
            const char *eq = std::strchr(p, '=');
            if (eq == nullptr)
                bad_notation(p);
            name.assign(p, eq);
            p = eq + 1;
        }
        const char *key = named ? name.c_str() : nullptr;
        char *end = nullptr;
        if (*p == '[' || *p == '{') {
            bool table = *p == '{';
            void *cookie = table ? blobmsg_open_table(buf, key) : blobmsg_open_array(buf, key);
            p = add_members(buf, p + 1, table);
            if (*p != (table ? '}' : ']'))
                bad_notation(p);
            ++p;
            blob_nest_end(buf, cookie);
        } else if (p[0] == 's' && p[1] == '"') {
            const char *close = std::strchr(p + 2, '"');
            if (close == nullptr)
                bad_notation(p);
            blobmsg_add_string(buf, key, std::string(p + 2, close).c_str());
            p = close + 1;
        } else if (std::strncmp(p, "i64:", 4) == 0) {
            blobmsg_add_u64(buf, key, static_cast<uint64_t>(std::strtoll(p + 4, &end, 10)));
            p = end;
        } else if (std::strncmp(p, "i32:", 4) == 0) {
            blobmsg_add_u32(buf, key, static_cast<uint32_t>(std::strtoll(p + 4, &end, 10)));
            p = end;
        } else if (std::strncmp(p, "i8:", 3) == 0) {
            blobmsg_add_u8(buf, key, static_cast<uint8_t>(std::strtol(p + 3, &end, 10)));
            p = end;
        } else {
            bad_notation(p);
        }
    }
}

void describe(std::string &out, blob_attr *attr, bool named);

void describe_list(std::string &out, blob_attr *list, bool named)
{
    blob_attr *cur;
    size_t rem;
    bool first = true;
    blobmsg_for_each_attr(cur, list, rem) {
        if (!first)
            out += ' ';
        first = false;
        describe(out, cur, named);
    }
}

void describe(std::string &out, blob_attr *attr, bool named)
{
    if (named) {
        out += blobmsg_name(attr);
        out += '=';
    }
    char num[64];
    switch (blobmsg_type(attr)) {
    case BLOBMSG_TYPE_STRING:
        out += "s\"";
        out += blobmsg_get_string(attr);
        out += '"';
        return;
    case BLOBMSG_TYPE_INT32:
        std::snprintf(num, sizeof num, "i32:%" PRId32, static_cast<int32_t>(blobmsg_get_u32(attr)));
        break;
    case BLOBMSG_TYPE_INT64:
        std::snprintf(num, sizeof num, "i64:%" PRId64, static_cast<int64_t>(blobmsg_get_u64(attr)));
        break;
    case BLOBMSG_TYPE_INT16:
        std::snprintf(num, sizeof num, "i16:%d", static_cast<int16_t>(blobmsg_get_u16(attr)));
        break;
    case BLOBMSG_TYPE_INT8:
        std::snprintf(num, sizeof num, "i8:%d", blobmsg_get_u8(attr));
        break;
    case BLOBMSG_TYPE_ARRAY:
    case BLOBMSG_TYPE_TABLE: {
        bool table = blobmsg_type(attr) == BLOBMSG_TYPE_TABLE;
        out += table ? '{' : '[';
        describe_list(out, attr, table);
        out += table ? '}' : ']';
        return;
    }
    default:
        std::snprintf(num, sizeof num, "type%d", blobmsg_type(attr));
        break;
    }
    out += num;
}

} // namespace

Msg::Msg(const char *text)
{
    if (*add_members(buf_.get(), text, true) != '\0')
        bad_notation(text);
}

std::string typed(blob_attr *table)
{
    std::string out;
    blob_attr *cur;
    size_t rem = blob_len(table);
    __blob_for_each_attr(cur, blob_data(table), rem) {
        if (!out.empty())
            out += ' ';
        describe(out, cur, true);
    }
    return out;
}

std::string stj_typed(int type, const void *record, int *ret)
{
    Buf buf;
    int r = STRUCT_TRANS_JSON(type, record, buf.get());
    if (ret != nullptr)
        *ret = r;
    return buf.typed();
}

Received receive(int type, const char *msg_text, void *record)
{
    Msg msg(msg_text);
    TraceCapture cap;
    Received r;
    r.ret = JSON_TRANS_STRUCT(type, msg, record);
    for (const std::string &line : cap.take()) {
        if (line.rfind("JSON_TRANS_STRUCT: ", 0) != 0)
            r.trace += line.substr(line.find(": ") + 2);
    }
    return r;
}

void expect_case(const Case &c)
{
    SCOPED_TRACE(std::to_string(c.type) + ": " + c.in);
    Record rec(c.type);
    ASSERT_TRUE(rec.valid());
    Received r = receive(c.type, c.in, rec.get());
    EXPECT_EQ(r.ret, c.ret);
    if (trace_paths_private()) {
        EXPECT_EQ(r.trace, c.trace);
    }
    int ret = -2;
    EXPECT_EQ(stj_typed(c.type, rec.get(), &ret), c.out != nullptr ? c.out : c.in);
    EXPECT_EQ(ret, 0);
}

const MessageTransEntry *find_row(const MessageTransEntry *table, int count, int type)
{
    for (int i = 0; i < count; ++i)
        if (table[i].id == type)
            return &table[i];
    return nullptr;
}

} // namespace bxtest
