#include "convert.h"

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

extern "C" {
#include <libubox/blobmsg_json.h>
}

#include "blobxlate.h"
#include "check.h"
#include "input.h"

namespace bxtool {

namespace {

constexpr unsigned kStationCapacity = 64; // entries offered to the station list

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

} // namespace

int convert(const MessageInfo &info, const char *path)
{
    BlobBuf msg;
    if (!read_message(path, msg))
        return 2;
    print_findings(info.type, msg.buf.head, stderr, "blobxlate: ");

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

namespace bxtool {

int print_sent_for_zeroed(const MessageInfo &info)
{
    std::vector<uint64_t> record((info.record_size + sizeof(uint64_t) - 1) / sizeof(uint64_t));
    BlobBuf out;
    if (STRUCT_TRANS_JSON(info.type, record.data(), &out.buf) != 0)
        return 1;
    std::unique_ptr<char, decltype(&std::free)> json(blobmsg_format_json_indent(out.buf.head, true, 0), &std::free);
    std::printf("%s\n", json ? json.get() : "{}");
    return 0;
}

} // namespace bxtool
