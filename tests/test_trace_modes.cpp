// The trace sink, and when each build mode tests the switch file: before
// every line (line) or once per exported call (call). With the channel
// compiled out (off) the trace tests skip.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

#include "support.h"

using bxtest::TraceCapture;
using testing::ElementsAre;
using testing::MatchesRegex;

namespace {

#ifdef BLOBXLATE_TRACE_CALL
constexpr bool kPerCall = true;
#else
constexpr bool kPerCall = false;
#endif

// Lines routed to the sink; `at_first_line` runs once, inside the first one.
struct Heard {
    std::vector<std::string> prefixes, texts;
    void (*at_first_line)() = nullptr;
};
Heard g_heard;

void hear(void *context, const char *prefix, const char *text)
{
    auto *heard = static_cast<Heard *>(context);
    heard->prefixes.emplace_back(prefix);
    heard->texts.emplace_back(text);
    if (heard->prefixes.size() == 1 && heard->at_first_line != nullptr)
        heard->at_first_line();
}

// Installs the sink for one test and restores the console after it.
struct SinkTest : testing::Test {
    void SetUp() override { BLOBXLATE_SetTraceSink(hear, &(g_heard = Heard{})); }
    void TearDown() override { BLOBXLATE_SetTraceSink(nullptr, nullptr); }
};

void switch_on() { if (FILE *f = std::fopen(BLOBXLATE_SWITCH_FILE, "w")) std::fclose(f); }
void switch_off() { unlink(BLOBXLATE_SWITCH_FILE); }

TEST_F(SinkTest, TakesEachLineAsPrefixAndTextWhileTheSwitchExists)
{
    BX_REQUIRE_TRACE_CAPTURE();
    TraceCapture cap;
    JTS_CheckBlobAttr("k", nullptr);
    EXPECT_THAT(g_heard.prefixes, ElementsAre(MatchesRegex(R"(\[JTS_CheckBlobAttr\.[0-9]+\]: )")));
    EXPECT_THAT(g_heard.texts, ElementsAre("Illegal parameter: k\n"));
    EXPECT_EQ(cap.take_raw(), "");  // the console is left alone
    const std::string key(2000, 'k');  // longer than any line buffer: still one whole line
    JTS_CheckBlobAttr(key.c_str(), nullptr);
    ASSERT_EQ(g_heard.texts.size(), 2u);
    EXPECT_EQ(g_heard.texts[1], "Illegal parameter: " + key + "\n");
    cap.set_enabled(false);
    JTS_CheckBlobAttr("absent", nullptr);
    EXPECT_EQ(g_heard.texts.size(), 2u);
    BLOBXLATE_SetTraceSink(nullptr, nullptr);  // back to the console
    cap.set_enabled(true);
    JTS_CheckBlobAttr("console", nullptr);
    EXPECT_EQ(JTS_CheckBlobAttr(nullptr, nullptr), 0);  // a null key prints as nothing
    EXPECT_THAT(cap.take_texts(), ElementsAre("Illegal parameter: console\n", "Illegal parameter: \n"));
    EXPECT_EQ(g_heard.texts.size(), 2u);
}

// A conversion of four lines whose first line removes the switch: the per-
// line test stops at once, the per-call answer holds to the end of the call.
TEST_F(SinkTest, SwitchRemovedDuringAConversionStopsAtTheNextLineOrCall)
{
    BX_REQUIRE_TRACE_CAPTURE();
    TraceCapture cap;
    g_heard.at_first_line = switch_off;
    RetParam rec{};
    bxtest::Msg msg("");
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_RET, msg, &rec), -1);
    EXPECT_EQ(g_heard.texts.size(), kPerCall ? 4u : 1u);
    EXPECT_EQ(g_heard.texts.back(), kPerCall ? "Trans failed.\n" : "DEBUG: JsonStr = {\n\t\n}\n");
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_RET, msg, &rec), -1);
    EXPECT_EQ(g_heard.texts.size(), kPerCall ? 4u : 1u);
}

// The buffer's grow hook runs in the middle of STRUCT_TRANS_JSON: it creates
// the switch and makes a line through a nested exported call.
bool g_hook_armed = false;
bool grow_and_switch_on(blob_buf *buf, int minlen)
{
    void *p = std::realloc(buf->buf, static_cast<size_t>(buf->buflen + minlen));
    if (p == nullptr)
        return false;
    buf->buf = p, buf->buflen += minlen;
    if (g_hook_armed) {
        g_hook_armed = false;
        switch_on();
        JTS_CheckBlobAttr("inside", nullptr);
    }
    return true;
}

TEST_F(SinkTest, SwitchCreatedDuringAConversionCountsFromTheNextLineOrCall)
{
    BX_REQUIRE_TRACE_CAPTURE();
    TraceCapture cap(false);
    blob_buf buf{};
    buf.grow = grow_and_switch_on;
    blob_buf_init(&buf, 0);
    g_hook_armed = true;
    RetParam rec{7};
    EXPECT_EQ(STRUCT_TRANS_JSON(MSG_RET, &rec, &buf), 0);
    EXPECT_FALSE(g_hook_armed);
    blob_buf_free(&buf);
    JTS_CheckBlobAttr("next", nullptr);
    if (kPerCall)
        EXPECT_THAT(g_heard.texts, ElementsAre("Illegal parameter: next\n"));
    else
        EXPECT_THAT(g_heard.texts, ElementsAre("Illegal parameter: inside\n", "Illegal parameter: next\n"));
}

} // namespace
