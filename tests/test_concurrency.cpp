// Conversions of every type from several threads at once, each thread with
// its own records and buffers, as the daemons' worker threads do. Run under
// ThreadSanitizer in CI. Struct-to-JSON conversions go through the shared
// word buffer of PARATRANS_Int_To_String, which callers must serialise: the
// test holds a lock around them, as a caller must, and lets the
// JSON-to-struct conversions (the bulk of the work) run freely.
#include <gtest/gtest.h>

#include <cstring>
#include <mutex>
#include <thread>
#include <vector>

#include "core/tables.h"
#include "support.h"

namespace {

std::mutex g_words;

void convert_all(int rounds, unsigned *converted)
{
    alignas(16) static thread_local unsigned char rec[131072];
    alignas(16) static thread_local unsigned char back[131072];
    static thread_local StaEntry stations[4];
    for (int round = 0; round < rounds; ++round) {
        for (int type = 0; type <= bx::kLastMessageType; ++type) {
            std::memset(rec, 0, sizeof rec);
            std::memset(back, 0, sizeof back);
            if (type == MSG_STA_LIST) {
                reinterpret_cast<StaListInfo *>(back)->uiStaNumofEsps = 4;
                reinterpret_cast<StaListInfo *>(back)->pstListInfo = stations;
            }
            blob_buf buf{};
            blob_buf_init(&buf, 0);
            {
                std::lock_guard<std::mutex> lock(g_words);
                STRUCT_TRANS_JSON(type, rec, &buf);
            }
            if (JSON_TRANS_STRUCT(type, buf.head, back) == 0)
                ++*converted;
            blob_buf_free(&buf);
        }
    }
}

TEST(Concurrency, EveryTypeFromSeveralThreads)
{
    constexpr int kThreads = 4;
    std::vector<unsigned> converted(kThreads, 0);
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t)
        threads.emplace_back(convert_all, 3, &converted[t]);
    for (auto &th : threads)
        th.join();
    // Every thread saw the same results.
    for (int t = 1; t < kThreads; ++t)
        EXPECT_EQ(converted[t], converted[0]);
    EXPECT_GT(converted[0], 0u);
}

} // namespace
