// The system-log sink: a trace text becomes one log entry per line, each
// with its prefix, and the empty line after the dispatcher's "Json To
// Struct" line is left out.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>

#include "core/trace_log.h"
#include "support.h"

using testing::ElementsAre;

namespace {

using Entries = std::vector<std::string>;

// Keeps each entry with its prefix, the source line number left out.
void keep(void *entries, const char *prefix, const char *line, int length)
{
    static const std::regex line_number(R"(\.[0-9]+\]: $)");
    static_cast<Entries *>(entries)->push_back(std::regex_replace(prefix, line_number, "]: ") +
                                               std::string(line, static_cast<size_t>(length)));
}

TEST(TraceLog, GivesTheIncomingMessageDumpOneEntryPerLine)
{
    BX_REQUIRE_TRACE_CAPTURE();
    bxtest::TraceCapture cap;
    Entries got;
    bx::LineLog log{keep, &got};
    BLOBXLATE_SetTraceSink(bx::log_lines, &log);
    RetParam rec{};
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_RET, bxtest::Msg("espResult=i32:7 note=s\"a\""), &rec), 0);
    EXPECT_THAT(got, ElementsAre("[JSON_TRANS_STRUCT]: DEBUG: JsonStr = {", "[JSON_TRANS_STRUCT]: \t\"espResult\": 7,",
                                 "[JSON_TRANS_STRUCT]: \t\"note\": \"a\"", "[JSON_TRANS_STRUCT]: }",
                                 "[JSON_TRANS_STRUCT]: Json To Struct: [Ret] ", "[JTS_Ret]: esp ret:7"));
    // The ready sink leaves the console alone too.
    BLOBXLATE_TraceToSyslog(nullptr);
    JTS_CheckBlobAttr("k", nullptr);
    BLOBXLATE_SetTraceSink(nullptr, nullptr);
    EXPECT_EQ(cap.take_raw(), "");
}

} // namespace
