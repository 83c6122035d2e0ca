// A message type of this test alone, added as README "Adding a message type"
// says (its record, its table, its converter line; no catalogue line, so the
// shipped dispatch tables stay as they are), converted both ways by the
// library's common code.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/codec.h"
#include "support.h"

namespace {

struct ProbeParam {
    char szName[8];    /* "name", required */
    uint32_t uiLevel;  /* "level", 1 to 9 */
    uint32_t eMode;    /* "mode", EnumSwitch word, sent while its bit is set */
    uint32_t uiCapaFlag;
};
constexpr uint32_t kProbeModeBit = 0x4;

constexpr bx::FieldDef kProbeSource[] = {
    BX_TEXT(ProbeParam, szName, "name", "Name:%s", .required = true, .absent = "No name"),
    BX_U32(ProbeParam, uiLevel, "level", "Level:%u", .range = {bx::Check::Before, 1, 9, "[LEVEL] is not valid."}),
    BX_WORD(ProbeParam, eMode, EnumSwitch, "mode", "Mode:%d", .bit = kProbeModeBit),
};
BX_PACKED(kProbe);

} // namespace

extern "C" {
BX_CONVERTERS(STJ_TestProbe, JTS_TestProbe, kProbe, offsetof(ProbeParam, uiCapaFlag))
}

namespace {

// What JTS_TestProbe answers, the trace lines as "function: text", and the
// message STJ_TestProbe makes of the record.
struct Trip {
    int ret;
    std::vector<std::string> trace;
    std::string sent;
};

Trip round_trip(const char *msg, ProbeParam &rec)
{
    bxtest::TraceCapture cap;
    Trip t{JTS_TestProbe(bxtest::Msg(msg), &rec), cap.take(), ""};
    bxtest::Buf buf;
    EXPECT_EQ(STJ_TestProbe(&rec, buf.get()), 0);
    t.sent = buf.typed();
    return t;
}

// The trace lines when the build lets the test read them, else none.
std::vector<std::string> traced(std::vector<std::string> lines)
{
    return bxtest::trace_paths_private() ? lines : std::vector<std::string>{};
}

TEST(AddingAType, ConvertsBothWaysThroughTheCommonCode)
{
    ProbeParam rec{};
    Trip t = round_trip(R"(mode=s"enable" level=i32:3 name=s"beacon")", rec);
    EXPECT_EQ(t.ret, 0);
    EXPECT_EQ(t.trace, traced({"JTS_TestProbe: Name:beacon\n", "JTS_TestProbe: Level:3\n", "JTS_TestProbe: Mode:1\n"}));
    EXPECT_EQ(rec.uiCapaFlag, kProbeModeBit);
    EXPECT_EQ(t.sent, R"(name=s"beacon" level=i32:3 mode=s"enable")");  // table order
    rec = ProbeParam{};
    EXPECT_EQ(round_trip(R"(name=s"b" level=i32:9)", rec).sent, R"(name=s"b" level=i32:9)");  // no bit, no mode
}

TEST(AddingAType, RefusesWhatItsRowsRefuse)
{
    ProbeParam rec{};
    Trip t = round_trip("level=i32:3", rec);
    EXPECT_EQ(t.ret, -1);
    EXPECT_EQ(t.trace, traced({"JTS_CheckBlobAttr: Illegal parameter: name\n", "JTS_TestProbe: No name\n"}));
    rec = ProbeParam{};
    t = round_trip(R"(name=s"b" level=i32:10 mode=s"enable")", rec);
    EXPECT_EQ(t.ret, -1);
    EXPECT_EQ(t.trace, traced({"JTS_TestProbe: Name:b\n", "JTS_TestProbe: [LEVEL] is not valid.\n"}));
    EXPECT_EQ(t.sent, R"(name=s"b" level=i32:0)");  // refused before storing; "mode" never read
}

} // namespace
