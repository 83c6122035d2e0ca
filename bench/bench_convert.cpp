// Throughput of the conversions on typical messages, and of the word
// translations that most converters call. Run with the trace switch file
// absent: then each would-be trace line costs one access() call, which is
// part of what is measured.
#include <benchmark/benchmark.h>

#include <cstring>

extern "C" {
#include <libubox/blobmsg_json.h>
}

#include "blobxlate.h"

namespace {

struct Message {
    blob_buf buf{};
    explicit Message(const char *json)
    {
        blob_buf_init(&buf, 0);
        blobmsg_add_json_from_string(&buf, json);
    }
    ~Message() { blob_buf_free(&buf); }
};

void BM_RetToStruct(benchmark::State &state)
{
    Message msg(R"({"espResult": 7})");
    RetParam rec{};
    for (auto _ : state) {
        benchmark::DoNotOptimize(JSON_TRANS_STRUCT(MSG_RET, msg.buf.head, &rec));
        benchmark::ClobberMemory();
    }
}
BENCHMARK(BM_RetToStruct);

void BM_RetToJson(benchmark::State &state)
{
    RetParam rec{7};
    blob_buf buf{};
    for (auto _ : state) {
        blob_buf_init(&buf, 0);
        benchmark::DoNotOptimize(STRUCT_TRANS_JSON(MSG_RET, &rec, &buf));
    }
    blob_buf_free(&buf);
}
BENCHMARK(BM_RetToJson);

void BM_WordToNumber(benchmark::State &state)
{
    char word[] = "WPA2_MIXAESTKIP";  // last word of its list
    for (auto _ : state)
        benchmark::DoNotOptimize(PARATRANS_String_To_Int(EnumSecurity, word));
}
BENCHMARK(BM_WordToNumber);

void BM_NumberToWord(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(PARATRANS_Int_To_String(EnumProvince, 34));
}
BENCHMARK(BM_NumberToWord);

void BM_StandardBitsToText(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(PARATRANS_Int_To_String(EnumStandard, 63));
}
BENCHMARK(BM_StandardBitsToText);

} // namespace
