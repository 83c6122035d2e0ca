// The blob/blobmsg layer on arbitrary bytes: validation, parsing, walking and
// JSON rendering of a received message, then JSON text back into a buffer.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <endian.h>
#include <string>

extern "C" {
#include <libubox/blobmsg_json.h>
}

namespace {

void walk(blob_attr *attr, int depth)
{
    if (depth > 16)
        return;
    blob_attr *cur;
    size_t rem;
    blobmsg_for_each_attr(cur, attr, rem) {
        if (!blobmsg_check_attr_len(cur, false, rem))
            break;
        switch (blobmsg_type(cur)) {
        case BLOBMSG_TYPE_ARRAY:
        case BLOBMSG_TYPE_TABLE:
            blobmsg_check_array(cur, BLOBMSG_TYPE_UNSPEC);
            walk(cur, depth + 1);
            break;
        default:
            break;
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size > 0xfffff)
        return 0;
    // The message as a daemon receives it: a root attribute whose length is
    // that of the bytes that arrived.
    size_t len = sizeof(blob_attr) + size;
    auto *msg = static_cast<blob_attr *>(std::malloc(len));
    msg->id_len = htobe32(static_cast<uint32_t>(len));
    std::memcpy(msg->data, data, size);

    static const blobmsg_policy policy[] = {
        {"a", BLOBMSG_TYPE_STRING}, {"b", BLOBMSG_TYPE_INT32}, {"c", BLOBMSG_TYPE_INT64},
        {"d", BLOBMSG_TYPE_ARRAY},  {"e", BLOBMSG_TYPE_TABLE}, {"f", BLOBMSG_TYPE_UNSPEC},
        {"g", BLOBMSG_CAST_INT64},  {"", BLOBMSG_TYPE_INT8},
    };
    constexpr int n = sizeof policy / sizeof policy[0];
    blob_attr *tb[n];
    blobmsg_parse(policy, n, tb, blob_data(msg), blob_len(msg));
    for (blob_attr *a : tb) {
        if (a == nullptr)
            continue;
        if (blobmsg_type(a) == BLOBMSG_TYPE_ARRAY || blobmsg_type(a) == BLOBMSG_TYPE_TABLE) {
            walk(a, 0);
            blob_attr *inner[n];
            blobmsg_parse_array(policy, n, inner, blobmsg_data(a), blobmsg_data_len(a));
        }
    }

    char *compact = blobmsg_format_json(msg, true);
    char *indented = blobmsg_format_json_indent(msg, true, 0);
    if (compact != nullptr) {
        // What was rendered must read back in.
        blob_buf again{};
        blob_buf_init(&again, 0);
        blobmsg_add_json_from_string(&again, compact);
        blob_buf_free(&again);
    }
    std::free(compact);
    std::free(indented);

    // The bytes as JSON text.
    std::string text(reinterpret_cast<const char *>(data), size);
    blob_buf b{};
    blob_buf_init(&b, 0);
    if (blobmsg_add_json_from_string(&b, text.c_str())) {
        char *out = blobmsg_format_json(b.head, true);
        std::free(out);
    }
    blob_buf_free(&b);
    std::free(msg);
    return 0;
}
