#include "support.h"

#include <gtest/gtest.h>

#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

extern "C" {
#include <libubox/blobmsg_json.h>
}

namespace bxtest {

Buf::Buf() { blob_buf_init(&buf_, 0); }
Buf::~Buf() { blob_buf_free(&buf_); }

std::string Buf::json()
{
    char *text = blobmsg_format_json(buf_.head, true);
    std::string out = text != nullptr ? text : "<null>";
    std::free(text);
    return out;
}

std::string Buf::typed() { return bxtest::typed(buf_.head); }

Msg::Msg(const char *json_text)
{
    if (!blobmsg_add_json_from_string(buf_.get(), json_text))
        throw std::runtime_error(std::string("test message is not a JSON object: ") + json_text);
}

namespace {

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
        break;
    case BLOBMSG_TYPE_INT32:
        std::snprintf(num, sizeof num, "i32:%" PRId32, static_cast<int32_t>(blobmsg_get_u32(attr)));
        out += num;
        break;
    case BLOBMSG_TYPE_INT64:
        std::snprintf(num, sizeof num, "i64:%" PRId64, static_cast<int64_t>(blobmsg_get_u64(attr)));
        out += num;
        break;
    case BLOBMSG_TYPE_INT16:
        std::snprintf(num, sizeof num, "i16:%d", static_cast<int16_t>(blobmsg_get_u16(attr)));
        out += num;
        break;
    case BLOBMSG_TYPE_INT8:
        std::snprintf(num, sizeof num, "i8:%d", blobmsg_get_u8(attr));
        out += num;
        break;
    case BLOBMSG_TYPE_ARRAY:
        out += '[';
        describe_list(out, attr, false);
        out += ']';
        break;
    case BLOBMSG_TYPE_TABLE:
        out += '{';
        describe_list(out, attr, true);
        out += '}';
        break;
    default:
        std::snprintf(num, sizeof num, "type%d", blobmsg_type(attr));
        out += num;
        break;
    }
}

} // namespace

std::string typed(blob_attr *table)
{
    std::string out;
    blob_attr *cur;
    size_t rem = blob_len(table);
    bool first = true;
    __blob_for_each_attr(cur, blob_data(table), rem) {
        if (!first)
            out += ' ';
        first = false;
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

void expect_converter_rows(const ConverterRow *rows, size_t count, void *record)
{
    auto find = [](const MessageTransEntry *table, int n, int type) -> const MessageTransEntry * {
        for (int i = 0; i < n; ++i)
            if (table[i].id == type)
                return &table[i];
        return nullptr;
    };
    Msg msg("{}");
    Buf buf;
    for (size_t i = 0; i < count; ++i) {
        const ConverterRow &row = rows[i];
        SCOPED_TRACE(row.type);
        const MessageTransEntry *stj = find(g_astStructToJson_Func, g_iStructToJson_FuncNum, row.type);
        const MessageTransEntry *jts = find(g_astJsonToStruct_Func, g_iJsonToStruct_FuncNum, row.type);
        ASSERT_TRUE(stj != nullptr && jts != nullptr);
        EXPECT_STREQ(stj->name, row.stj_name);
        EXPECT_EQ(stj->converter.toJson, row.stj);
        EXPECT_STREQ(jts->name, row.jts_name);
        EXPECT_EQ(jts->converter.toStruct, row.jts);
        EXPECT_EQ(row.stj(nullptr, buf.get()), -1);
        EXPECT_EQ(row.stj(record, nullptr), -1);
        EXPECT_EQ(row.jts(nullptr, record), -1);
        EXPECT_EQ(row.jts(msg, nullptr), -1);
    }
    EXPECT_EQ(buf.typed(), "");
}

bool run_tool(int type, const std::string &json_text, ToolResult &result)
{
    std::string tool = BLOBXLATE_TOOL;
    if (tool.empty())
        return false;
    char path[] = "/tmp/blobxlate-msg-XXXXXX";
    int fd = mkstemp(path);
    if (fd < 0)
        return false;
    FILE *f = fdopen(fd, "w");
    std::fputs(json_text.c_str(), f);
    std::fclose(f);
    std::string cmd = tool + " " + std::to_string(type) + " " + path + " 2>&1";
    FILE *p = popen(cmd.c_str(), "r");
    result.out.clear();
    if (p != nullptr) {
        char chunk[4096];
        size_t n;
        while ((n = std::fread(chunk, 1, sizeof chunk, p)) > 0)
            result.out.append(chunk, n);
        int status = pclose(p);
        result.exit_code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    unlink(path);
    return true;
}

std::string stj_json(int type, const void *record, int *ret)
{
    Buf buf;
    int r = STRUCT_TRANS_JSON(type, record, buf.get());
    if (ret != nullptr)
        *ret = r;
    return buf.json();
}

} // namespace bxtest
