#include "input.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>

#include <json-c/json.h>

extern "C" {
#include <libubox/blobmsg_json.h>
}

namespace bxtool {

namespace {

// The most a blob attribute, and so a whole message, can hold.
constexpr size_t kMaxMessage = BLOB_ATTR_LEN_MASK;

bool read_all(FILE *in, std::string &out)
{
    char chunk[4096];
    size_t n;
    while ((n = std::fread(chunk, 1, sizeof chunk, in)) > 0)
        out.append(chunk, n);
    return !std::ferror(in);
}

bool read_text(const char *path, std::string &text)
{
    FILE *in = std::strcmp(path, "-") == 0 ? stdin : std::fopen(path, "r");
    if (in == nullptr) {
        std::fprintf(stderr, "blobxlate: cannot open %s: %s\n", path, std::strerror(errno));
        return false;
    }
    bool ok = read_all(in, text);
    if (in != stdin)
        std::fclose(in);
    if (!ok)
        std::fprintf(stderr, "blobxlate: cannot read %s\n", path);
    return ok;
}

size_t pad4(size_t n) { return (n + 3) & ~size_t{3}; }

// The bytes a value takes as a blobmsg attribute named `name`, the way
// blobmsg_add_json_element adds it (INT32 for a number that fits).
size_t blob_size(const char *name, json_object *obj)
{
    const size_t head = sizeof(blob_attr) + pad4(sizeof(blobmsg_hdr) + std::strlen(name) + 1);
    const json_type type = json_object_get_type(obj);
    size_t value = type == json_type_string ? static_cast<size_t>(json_object_get_string_len(obj)) + 1
                 : type == json_type_double ? 8
                 : type == json_type_boolean ? 1
                 : 0;
    if (type == json_type_int) {
        const int64_t v = json_object_get_int64(obj);
        value = v >= INT32_MIN && v <= INT32_MAX ? 4 : 8;
    }
    if (type == json_type_object) {
        json_object_iterator it = json_object_iter_begin(obj);
        const json_object_iterator end = json_object_iter_end(obj);
        for (; !json_object_iter_equal(&it, &end); json_object_iter_next(&it))
            value += blob_size(json_object_iter_peek_name(&it), json_object_iter_peek_value(&it));
    }
    for (size_t i = 0; type == json_type_array && i < json_object_array_length(obj); ++i)
        value += blob_size("", json_object_array_get_idx(obj, i));
    return pad4(head + value);
}

// The JSON object of the text, or null after saying why.
json_object *parse_object(const char *path, const std::string &text)
{
    json_tokener *tok = json_tokener_new();
    json_object *obj = json_tokener_parse_ex(tok, text.c_str(), static_cast<int>(text.size()));
    const json_tokener_error err = json_tokener_get_error(tok);
    const size_t parsed = json_tokener_get_parse_end(tok);
    json_tokener_free(tok);
    const size_t rest = obj != nullptr ? text.find_first_not_of(" \t\r\n", parsed) : std::string::npos;
    if (obj == nullptr)
        std::fprintf(stderr, "blobxlate: %s is not JSON: %s, at byte %zu\n", path,
                     err == json_tokener_continue ? "it ends early" : json_tokener_error_desc(err), parsed);
    else if (!json_object_is_type(obj, json_type_object))
        std::fprintf(stderr, "blobxlate: %s is not a JSON object\n", path);
    else if (rest != std::string::npos)
        std::fprintf(stderr, "blobxlate: %s has more text after the JSON object, at byte %zu\n", path, rest);
    else
        return obj;
    json_object_put(obj);
    return nullptr;
}

} // namespace

bool read_message(const char *path, BlobBuf &msg)
{
    std::string text;
    if (!read_text(path, text))
        return false;
    if (text.size() > kMaxMessage) {
        std::fprintf(stderr, "blobxlate: %s is %zu bytes, more than the %zu a message can hold\n", path, text.size(),
                     kMaxMessage);
        return false;
    }
    json_object *obj = parse_object(path, text);
    if (obj == nullptr)
        return false;
    // The message is the root attribute: its header and the members.
    const size_t size = blob_size("", obj) - pad4(sizeof(blobmsg_hdr) + 1);
    bool ok = size <= kMaxMessage && blobmsg_add_object(&msg.buf, obj);
    json_object_put(obj);
    if (!ok)
        std::fprintf(stderr, "blobxlate: %s is %zu bytes of JSON whose message takes %zu bytes, more than the %zu a "
                             "message can hold\n", path, text.size(), size, kMaxMessage);
    return ok;
}

} // namespace bxtool
