// blobxlate: converts one message given as JSON text into its record and
// back, the way a daemon receives and answers it, and prints the result.
//
//   blobxlate TYPE [FILE]      (FILE absent or "-": standard input)
//
// Output: the return code of each direction, then the message rebuilt from
// the record as indented JSON. Exit status 0 when both directions returned
// 0, 1 when a converter failed, 2 for bad usage or input.
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

extern "C" {
#include <libubox/blobmsg_json.h>
}

#include "blobxlate.h"

namespace {

constexpr size_t kRecordBytes = 128 * 1024; // larger than any record
constexpr unsigned kStationCapacity = 64;   // entries offered to the station list

bool read_all(FILE *in, std::string &out)
{
    char chunk[4096];
    size_t n;
    while ((n = std::fread(chunk, 1, sizeof chunk, in)) > 0)
        out.append(chunk, n);
    return !std::ferror(in);
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

int usage()
{
    std::fprintf(stderr, "usage: blobxlate TYPE [FILE]\n");
    return 2;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc < 2 || argc > 3)
        return usage();
    char *end = nullptr;
    errno = 0;
    long type = std::strtol(argv[1], &end, 10);
    if (*argv[1] == 0 || *end != 0 || errno != 0) {
        std::fprintf(stderr, "blobxlate: message type must be a number: %s\n", argv[1]);
        return 2;
    }
    if (type < 0 || type > 172 ||
        (BLOBXLATE_FindRow(BLOBXLATE_TO_JSON, static_cast<int>(type)) == nullptr &&
         BLOBXLATE_FindRow(BLOBXLATE_TO_STRUCT, static_cast<int>(type)) == nullptr)) {
        std::fprintf(stderr, "blobxlate: unknown message type %ld\n", type);
        return 2;
    }

    std::string text;
    const char *path = argc == 3 ? argv[2] : "-";
    FILE *in = std::strcmp(path, "-") == 0 ? stdin : std::fopen(path, "r");
    if (in == nullptr) {
        std::fprintf(stderr, "blobxlate: cannot open %s: %s\n", path, std::strerror(errno));
        return 2;
    }
    bool read_ok = read_all(in, text);
    if (in != stdin)
        std::fclose(in);
    if (!read_ok) {
        std::fprintf(stderr, "blobxlate: cannot read %s\n", path);
        return 2;
    }

    blob_buf msg{};
    blob_buf_init(&msg, 0);
    if (!blobmsg_add_json_from_string(&msg, text.c_str())) {
        std::fprintf(stderr, "blobxlate: %s is not a JSON object\n", path);
        blob_buf_free(&msg);
        return 2;
    }

    // A zeroed record, as the converters expect. The station list keeps its
    // entries in a caller-owned array whose capacity is the record's count.
    alignas(16) static unsigned char record[kRecordBytes];
    std::memset(record, 0, sizeof record);
    static StaEntry stations[kStationCapacity];
    auto *station_list = reinterpret_cast<StaListInfo *>(record);
    if (type == MSG_STA_LIST) {
        station_list->uiStaNumofEsps = kStationCapacity;
        station_list->pstListInfo = stations;
    }

    int to_struct = JSON_TRANS_STRUCT(static_cast<int>(type), msg.head, record);
    // The converter leaves the count at the capacity; as the caller we set
    // it to the entries the message filled, so the answer lists just those.
    if (type == MSG_STA_LIST)
        station_list->uiStaNumofEsps = stations_in(msg.head, kStationCapacity);

    blob_buf out{};
    blob_buf_init(&out, 0);
    int to_json = STRUCT_TRANS_JSON(static_cast<int>(type), record, &out);
    char *json = blobmsg_format_json_indent(out.head, true, 0);

    std::printf("JSON_TRANS_STRUCT: %d\nSTRUCT_TRANS_JSON: %d\n%s\n", to_struct, to_json, json != nullptr ? json : "{}");
    std::free(json);
    blob_buf_free(&out);
    blob_buf_free(&msg);
    return (to_struct == 0 && to_json == 0) ? 0 : 1;
}
