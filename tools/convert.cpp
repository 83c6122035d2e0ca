#include "convert.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

extern "C" {
#include <libubox/blobmsg_json.h>
}

#include "blobxlate.h"

namespace bxtool {

namespace {

constexpr unsigned kStationCapacity = 64; // entries offered to the station list

bool read_all(FILE *in, std::string &out)
{
    char chunk[4096];
    size_t n;
    while ((n = std::fread(chunk, 1, sizeof chunk, in)) > 0)
        out.append(chunk, n);
    return !std::ferror(in);
}

// The message text of `path`, or nothing after saying why on stderr.
bool read_message(const char *path, std::string &text)
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

// The entries JTS_StaList fills: one per element of the message's
// "stalist" array, up to the capacity offered.
unsigned stations_in(blob_attr *msg, unsigned capacity)
{
    static const blobmsg_policy policy[] = {{"stalist", BLOBMSG_TYPE_ARRAY}};
    blob_attr *list = nullptr;
    blobmsg_parse(policy, 1, &list, blob_data(msg), blob_len(msg));
    unsigned n = 0;
    blob_attr *cur;
    size_t rem;
    blobmsg_for_each_attr(cur, list, rem) {
        if (n == capacity)
            break;
        ++n;
    }
    return n;
}

struct BlobBuf {
    blob_buf buf{};
    BlobBuf() { blob_buf_init(&buf, 0); }
    ~BlobBuf() { blob_buf_free(&buf); }
    BlobBuf(const BlobBuf &) = delete;
    BlobBuf &operator=(const BlobBuf &) = delete;
};

} // namespace

int convert(const MessageInfo &info, const char *path)
{
    std::string text;
    if (!read_message(path, text))
        return 2;
    BlobBuf msg;
    if (!blobmsg_add_json_from_string(&msg.buf, text.c_str())) {
        std::fprintf(stderr, "blobxlate: %s is not a JSON object\n", path);
        return 2;
    }

    // A zeroed record of the type, as the converters expect. The station
    // list keeps its entries in a caller-owned array whose capacity is the
    // record's count.
    std::vector<uint64_t> storage((info.record_size + sizeof(uint64_t) - 1) / sizeof(uint64_t));
    void *record = storage.data();
    std::vector<StaEntry> stations(kStationCapacity);
    auto *station_list = static_cast<StaListInfo *>(record);
    if (info.type == MSG_STA_LIST) {
        station_list->uiStaNumofEsps = kStationCapacity;
        station_list->pstListInfo = stations.data();
    }

    int to_struct = JSON_TRANS_STRUCT(info.type, msg.buf.head, record);
    // The converter leaves the count at the capacity; as the caller we set
    // it to the entries the message filled, so the answer lists just those.
    if (info.type == MSG_STA_LIST)
        station_list->uiStaNumofEsps = stations_in(msg.buf.head, kStationCapacity);

    BlobBuf out;
    int to_json = STRUCT_TRANS_JSON(info.type, record, &out.buf);
    std::unique_ptr<char, decltype(&std::free)> json(blobmsg_format_json_indent(out.buf.head, true, 0), &std::free);
    std::printf("JSON_TRANS_STRUCT: %d\nSTRUCT_TRANS_JSON: %d\n%s\n", to_struct, to_json, json ? json.get() : "{}");
    return (to_struct == 0 && to_json == 0) ? 0 : 1;
}

} // namespace bxtool
