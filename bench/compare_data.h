// The messages the comparison converts, and the same work done without the
// library: the bare libubox calls a hand-written converter makes, and json-c.
#ifndef BLOBXLATE_BENCH_COMPARE_DATA_H
#define BLOBXLATE_BENCH_COMPARE_DATA_H

#include <cstddef>

#include "blobxlate.h"

struct json_object;

namespace bxbench {

constexpr unsigned kStations = 64;

// A WAN status report and a full station list with realistic contents.
void fill_wan(WanStatusInfo &rec);
void fill_stations(StaEntry (&list)[kStations]);

// Record to tree with blobmsg_add_* only, keys and values as the library
// sends them (words through PARATRANS_Int_To_String).
void bare_wan_to_tree(const WanStatusInfo &rec, blob_buf *buf);
void bare_stations_to_tree(const StaListInfo &rec, blob_buf *buf);

// Tree to record with blobmsg_parse against the same policies, then the
// copies into the record (words through PARATRANS_String_To_Int).
void bare_wan_to_record(blob_attr *msg, WanStatusInfo &rec);
void bare_stations_to_record(blob_attr *msg, StaListInfo &rec);

// json-c: build the objects and serialise them; parse the text and read
// every key into the record.
json_object *jsonc_wan_tree(const WanStatusInfo &rec);
json_object *jsonc_stations_tree(const StaListInfo &rec);
void jsonc_wan_to_record(const char *text, WanStatusInfo &rec);
void jsonc_stations_to_record(const char *text, StaListInfo &rec);

} // namespace bxbench

#endif
