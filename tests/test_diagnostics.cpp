// Ping and traceroute requests, their results and the uplink modes (types 40 to 44).
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "support.h"

using bxtest::Msg;
using bxtest::TraceCapture;
using testing::ElementsAre;
using testing::ElementsAreArray;

namespace {

TEST(PingRequest, RangesRefuseAtTheFirstBadValue)
{
    BX_REQUIRE_TRACE_CAPTURE();
    const struct {
        const char *json;
        int ret;
        uint32_t capa;
        std::vector<std::string> last_traces;  // the end of the converter's trace
    } cases[] = {
        {R"({"num": 1})", -1, 0, {"Illegal parameter: host\n", "[Host] is not valid.\n"}},
        {R"({"host": "h", "num": 65536})", -1, 0, {"Host:h\n", "[PING_NUM] is not valid.\n"}},
        {R"({"host": "h", "num": -1})", -1, 0, {"Host:h\n", "[PING_NUM] is not valid.\n"}},
        {R"({"host": "h", "num": 65535, "timeout": 65536})", -1, 0x02,
         {"Num:65535\n", "[PING_TIMEOUT] is not valid.\n"}},
        {R"({"host": "h", "num": 0, "timeout": 0, "blocksize": 0})", -1, 0x06,
         {"TimeOut:0\n", "[PING_BLOCKSIZE] is not valid.\n"}},
        {R"({"host": "h", "blocksize": 65536})", -1, 0,
         {"Illegal parameter: timeout\n", "[PING_BLOCKSIZE] is not valid.\n"}},
        {R"({"host": "h", "blocksize": 65535, "pingtime": "10s", "pingnum": -5, "capaflag": 255})", 0, 0x08,
         {"BlockSize:65535\n", "PingTime:10s\n", "PingNum:-5\n"}},
        {R"({"host": "h", "blocksize": 1})", 0, 0x08,
         {"BlockSize:1\n", "Illegal parameter: pingtime\n", "Illegal parameter: pingnum\n"}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.json);
        PingRequest rec{};
        Msg msg(c.json);
        TraceCapture cap;
        EXPECT_EQ(JTS_Ping(msg, &rec), c.ret);
        EXPECT_EQ(rec.uiCapaFlag, c.capa);
        auto texts = cap.take_texts();
        ASSERT_GE(texts.size(), c.last_traces.size());
        EXPECT_THAT(std::vector<std::string>(texts.end() - static_cast<long>(c.last_traces.size()), texts.end()),
                    ElementsAreArray(c.last_traces));
    }
}

TEST(TraceRouteRequest, ResultTypeIsRequiredAndCheckedLast)
{
    BX_REQUIRE_TRACE_CAPTURE();
    const struct {
        const char *json;
        int ret;
        uint32_t capa;
        const char *last_trace;
    } cases[] = {
        {R"({"host": "h", "numoftries": 0, "timeout": 5, "blocksize": 64, "maxhop": 30})", -1, 0x3C,
         "[ResultType] is not valid.\n"},
        {R"({"host": "h", "maxhop": 65535, "resulttype": 2})", -1, 0x20, "[TRACEROUTE_MAXHOP] is not valid.\n"},
        {R"({"host": "h", "maxhop": 0, "resulttype": 0})", -1, 0, "[TRACEROUTE_MAXHOP] is not valid.\n"},
        {R"({"host": "h", "blocksize": 0, "resulttype": 0})", -1, 0, "[TRACEROUTE_BLOCKSIZE] is not valid.\n"},
        {R"({"host": "h", "numoftries": 65536, "resulttype": 0})", -1, 0, "[TRACEROUTE_NUMOFTRIES] is not valid.\n"},
        {R"({"host": "h", "timeout": 65536, "resulttype": 0})", -1, 0, "[TRACEROUTE_TIMEOUT] is not valid.\n"},
        {R"({"host": "h", "resulttype": 1})", 0, 0, "ResultType:1\n"},
        {R"({"resulttype": 1})", -1, 0, "[Host] is not valid.\n"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.json);
        TraceRouteRequest rec{};
        Msg msg(c.json);
        TraceCapture cap;
        EXPECT_EQ(JTS_TraceRoute(msg, &rec), c.ret);
        EXPECT_EQ(rec.uiCapaFlag, c.capa);
        auto texts = cap.take_texts();
        ASSERT_FALSE(texts.empty());
        EXPECT_EQ(texts.back(), c.last_trace);
    }
    // Values stored before a refusal stay stored; "capaflag" is never read.
    TraceRouteRequest rec{};
    Msg msg(R"({"host": "example.org", "numoftries": 3, "timeout": 5, "blocksize": 64, "maxhop": 30, "capaflag": 1})");
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_TRACE_ROUTE, msg, &rec), -1);
    EXPECT_STREQ(rec.szHost, "example.org");
    EXPECT_EQ(rec.uiNumOfTries, 3u);
    EXPECT_EQ(rec.uiMaxHop, 30u);
    EXPECT_EQ(rec.uiCapaFlag, 0x3Cu);
}

TEST(DiagnosticRequests, ValidityBitsChooseTheSentKeys)
{
    PingRequest ping{};
    std::strcpy(ping.szHost, "h");
    ping.uiNum = 4;
    ping.uiTimeout = 2;
    ping.uiBlockSize = 56;
    std::strcpy(ping.szPingTime, "t");
    ping.uiPingNum = 9;
    TraceRouteRequest tr{};
    std::strcpy(tr.szHost, "h");
    tr.uiNumOfTries = 3;
    tr.uiTimeout = 5;
    tr.uiBlockSize = 40;
    tr.uiMaxHop = 30;
    tr.uiResultType = 1;
    const struct {
        uint32_t capa;
        const char *ping;
        const char *tr;
    } cases[] = {
        {0, R"(host=s"h" pingtime=s"t" pingnum=i32:9)", R"(host=s"h" resulttype=i32:1)"},
        // "blocksize" of a ping goes with any of the low 16 bits.
        {0x02, R"(host=s"h" num=i32:4 blocksize=i32:56 pingtime=s"t" pingnum=i32:9)", R"(host=s"h" resulttype=i32:1)"},
        {0x10, R"(host=s"h" blocksize=i32:56 pingtime=s"t" pingnum=i32:9)",
         R"(host=s"h" resulttype=i32:1 numoftries=i32:3)"},
        {0x10000, R"(host=s"h" pingtime=s"t" pingnum=i32:9)", R"(host=s"h" resulttype=i32:1)"},
        {0x3E, R"(host=s"h" num=i32:4 timeout=i32:2 blocksize=i32:56 pingtime=s"t" pingnum=i32:9)",
         R"(host=s"h" resulttype=i32:1 numoftries=i32:3 timeout=i32:5 blocksize=i32:40 maxhop=i32:30)"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.capa);
        ping.uiCapaFlag = c.capa;
        tr.uiCapaFlag = c.capa;
        EXPECT_EQ(bxtest::stj_typed(MSG_PING, &ping), c.ping);
        EXPECT_EQ(bxtest::stj_typed(MSG_TRACE_ROUTE, &tr), c.tr);
    }
}

TEST(PingResult, BothWaysWithTheWireSpelling)
{
    BX_REQUIRE_TRACE_CAPTURE();
    Msg msg(R"({"recivedcount": 3, "losscount": 1, "avg": 12, "min": 9, "max": 20, "packetsloss": 25,
                "timetotal": 3010, "packetcount": 4, "packetsize": 64, "pingurl": "u", "host": "h",
                "timeout": 1000})");
    PingResult rec{};
    rec.uiPingNum = 77;
    TraceCapture cap;
    EXPECT_EQ(JTS_PingResult(msg, &rec), 0);
    EXPECT_THAT(cap.take_texts(),
                ElementsAre("RecivedCount:3\n", "LossCount:1\n", "Avg:12\n", "Min:9\n", "Max:20\n", "PacketsLoss:25\n",
                            "TimeTotal:3010\n", "PacketCount:4\n", "PacketSize:64\n", "Pingurl:u\n", "Host:h\n",
                            "TimeOut:1000\n", "Illegal parameter: pingnum\n"));
    EXPECT_EQ(rec.uiPacketsLoss, 25u);
    EXPECT_EQ(bxtest::stj_typed(MSG_PING_RESULT, &rec),
              R"(recivedcount=i32:3 losscount=i32:1 avg=i32:12 min=i32:9 max=i32:20 packetsloss=i32:25 )"
              R"(timetotal=i32:3010 packetcount=i32:4 packetsize=i32:64 pingurl=s"u" host=s"h" timeout=i32:1000 )"
              R"(pingnum=i32:77)");
}

TEST(TraceRouteResult, LongOutputIsCutAndTracedWhenSent)
{
    BX_REQUIRE_TRACE_CAPTURE();
    const std::string out(1100, 'x');
    Msg msg((R"({"result": ")" + out + R"("})").c_str());
    TraceRouteResult rec{};
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_TRACE_ROUTE_RESULT, msg, &rec), 0);
    EXPECT_EQ(std::strlen(rec.szResult), 1023u);
    std::strcpy(rec.szResult, "1 gw 0.5 ms");
    TraceCapture cap;
    EXPECT_EQ(bxtest::stj_typed(MSG_TRACE_ROUTE_RESULT, &rec), R"(result=s"1 gw 0.5 ms")");
    EXPECT_THAT(cap.take(), ElementsAre("STRUCT_TRANS_JSON: Struct To Json: [TraceRoute_Result] \n\n",
                                        "STJ_TraceRoute_Result: STJ_TraceRoute_Result [1 gw 0.5 ms] \n\n"));
}

TEST(UplinkSupport, SwitchWordsBothWays)
{
    Msg msg(R"({"dhcp": "enable", "static": "disable", "pppoe": "Enable", "repeater": "enable"})");
    UplinkSupport rec{};
    rec.uiBridge = 1;
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_UPLINK_SUPPORT, msg, &rec), 0);
    EXPECT_EQ(rec.uiPppoe, 0xFFFFFFFFu);
    // An unknown switch number goes out as the empty word.
    EXPECT_EQ(bxtest::stj_typed(MSG_UPLINK_SUPPORT, &rec),
              R"(dhcp=s"enable" static=s"disable" pppoe=s"" bridge=s"enable" repeater=s"enable")");
}

} // namespace
