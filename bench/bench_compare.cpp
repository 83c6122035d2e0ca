// The station list (type 88, 64 stations of 37 keys) and the WAN status
// (type 22), record to tree and tree to record, each done three ways in one
// run: by the library, by the bare libubox calls a hand-written converter
// would make, and by json-c. After the run a summary gives the ratios.
// Run with the trace switch file absent.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

#include <json-c/json.h>
extern "C" {
#include <libubox/blobmsg_json.h>
}

#include "compare_data.h"

using namespace bxbench;

namespace {

StaEntry g_stations[kStations];
StaListInfo g_list{kStations, g_stations};
WanStatusInfo g_wan;
StaEntry g_filled[kStations];
StaListInfo g_list_out{kStations, g_filled};
WanStatusInfo g_wan_out;

/* A tree built once from a record, with its JSON text for json-c. */
struct Tree {
    blob_buf buf{};
    std::string text;
    void build(int type, const void *record)
    {
        blob_buf_init(&buf, 0);
        STRUCT_TRANS_JSON(type, record, &buf);
        char *json = blobmsg_format_json(buf.head, true);
        text = json;
        std::free(json);
    }
};
Tree g_sta_tree, g_wan_tree;

template <void (*fill)(blob_buf *)>
void to_tree(benchmark::State &state)
{
    blob_buf buf{};
    for (auto _ : state) {
        blob_buf_init(&buf, 0);
        fill(&buf);
        benchmark::DoNotOptimize(buf.head);
    }
    blob_buf_free(&buf);
}

template <json_object *(*make)()>
void to_text(benchmark::State &state)
{
    for (auto _ : state) {
        json_object *o = make();
        benchmark::DoNotOptimize(json_object_to_json_string_ext(o, JSON_C_TO_STRING_PLAIN));
        json_object_put(o);
    }
}

template <void (*read)()>
void to_record(benchmark::State &state)
{
    for (auto _ : state) {
        read();
        benchmark::ClobberMemory();
    }
}

/* The twelve jobs: what each way does, once. */
void sta_library_tree(blob_buf *b) { STRUCT_TRANS_JSON(MSG_STA_LIST, &g_list, b); }
void sta_bare_tree(blob_buf *b) { bare_stations_to_tree(g_list, b); }
json_object *sta_jsonc_tree() { return jsonc_stations_tree(g_list); }
void sta_library_record() { JSON_TRANS_STRUCT(MSG_STA_LIST, g_sta_tree.buf.head, &g_list_out); }
void sta_bare_record() { bare_stations_to_record(g_sta_tree.buf.head, g_list_out); }
void sta_jsonc_record() { jsonc_stations_to_record(g_sta_tree.text.c_str(), g_list_out); }
void wan_library_tree(blob_buf *b) { STRUCT_TRANS_JSON(MSG_WAN_STATUS, &g_wan, b); }
void wan_bare_tree(blob_buf *b) { bare_wan_to_tree(g_wan, b); }
json_object *wan_jsonc_tree() { return jsonc_wan_tree(g_wan); }
void wan_library_record() { JSON_TRANS_STRUCT(MSG_WAN_STATUS, g_wan_tree.buf.head, &g_wan_out); }
void wan_bare_record() { bare_wan_to_record(g_wan_tree.buf.head, g_wan_out); }
void wan_jsonc_record() { jsonc_wan_to_record(g_wan_tree.text.c_str(), g_wan_out); }

void register_all()
{
    using benchmark::RegisterBenchmark;
    RegisterBenchmark("StaList/ToTree/library", to_tree<sta_library_tree>);
    RegisterBenchmark("StaList/ToTree/bare", to_tree<sta_bare_tree>);
    RegisterBenchmark("StaList/ToTree/json-c", to_text<sta_jsonc_tree>);
    RegisterBenchmark("StaList/ToRecord/library", to_record<sta_library_record>);
    RegisterBenchmark("StaList/ToRecord/bare", to_record<sta_bare_record>);
    RegisterBenchmark("StaList/ToRecord/json-c", to_record<sta_jsonc_record>);
    RegisterBenchmark("WanStatus/ToTree/library", to_tree<wan_library_tree>);
    RegisterBenchmark("WanStatus/ToTree/bare", to_tree<wan_bare_tree>);
    RegisterBenchmark("WanStatus/ToTree/json-c", to_text<wan_jsonc_tree>);
    RegisterBenchmark("WanStatus/ToRecord/library", to_record<wan_library_record>);
    RegisterBenchmark("WanStatus/ToRecord/bare", to_record<wan_bare_record>);
    RegisterBenchmark("WanStatus/ToRecord/json-c", to_record<wan_jsonc_record>);
}

/* Keeps the fastest CPU time of each benchmark (the least disturbed by
 * other load on the machine) while the console reporter prints as usual. */
class Fastest : public benchmark::ConsoleReporter {
public:
    std::map<std::string, double> ns;
    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &r : runs) {
            if (r.error_occurred || r.run_type != Run::RT_Iteration)
                continue;
            double t = r.GetAdjustedCPUTime();
            auto [it, fresh] = ns.emplace(r.run_name.function_name, t);
            if (!fresh && t < it->second)
                it->second = t;
        }
        ConsoleReporter::ReportRuns(runs);
    }
};

void summary(const std::map<std::string, double> &ns)
{
    std::printf("\nSummary (trace %s, %s libubox; fastest CPU time of each):\n", BLOBXLATE_BENCH_TRACE,
                BLOBXLATE_BENCH_UBOX);
    for (const char *job : {"StaList/ToTree", "StaList/ToRecord", "WanStatus/ToTree", "WanStatus/ToRecord"}) {
        std::string j = job;
        auto lib = ns.find(j + "/library"), bare = ns.find(j + "/bare"), jc = ns.find(j + "/json-c");
        if (lib == ns.end() || bare == ns.end() || jc == ns.end())
            continue;
        std::printf("  %-20s library %10.0f ns  library/bare %5.2fx  json-c/library %6.2fx\n", job, lib->second,
                    lib->second / bare->second, jc->second / lib->second);
    }
}

} // namespace

int main(int argc, char **argv)
{
    fill_stations(g_stations);
    fill_wan(g_wan);
    g_sta_tree.build(MSG_STA_LIST, &g_list);
    g_wan_tree.build(MSG_WAN_STATUS, &g_wan);
    register_all();
    benchmark::Initialize(&argc, argv);
    Fastest reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    summary(reporter.ns);
    benchmark::Shutdown();
    return 0;
}
