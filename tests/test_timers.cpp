// Reboot and Wi-Fi timers, rate limits, periodic rate sampling and IPTV.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "support.h"

using bxtest::Msg;
using bxtest::TraceCapture;
using testing::ElementsAre;

namespace {

// A record followed by a guard that no converter may touch.
template <typename Rec>
struct Guarded {
    Rec rec;
    unsigned char guard[512];
    Guarded()
    {
        std::memset(static_cast<void *>(this), 0, sizeof *this);
        std::memset(guard, 0xA5, sizeof guard);
    }
    bool intact() const { return std::all_of(guard, guard + sizeof guard, [](unsigned char b) { return b == 0xA5; }); }
};

std::string repeated(const std::string &elem, unsigned n)
{
    std::string out = "[";
    for (unsigned i = 0; i < n; ++i)
        out += (i ? "," : "") + elem;
    return out + "]";
}

size_t tables(const std::string &typed) { return std::count(typed.begin(), typed.end(), '{'); }

TEST(RebootTimer, BothWaysWithoutBounds)
{
    BX_REQUIRE_TRACE_CAPTURE();
    RebootTimer rec{1, 3, 30, 127};
    EXPECT_EQ(bxtest::stj_typed(MSG_REBOOT_TIMER, &rec), R"(status=s"enable" hour=i32:3 minute=i32:30 week=i32:127)");
    RebootTimer got{7, 7, 7, 7};
    TraceCapture cap;
    EXPECT_EQ(JTS_RebootTimer(Msg(R"({"status": "disable", "hour": 25, "minute": 61, "week": 200})"), &got), 0);
    EXPECT_THAT(cap.take(), ElementsAre("JTS_RebootTimer: reboot status:0\n", "JTS_RebootTimer: reboot hour:25\n",
                                        "JTS_RebootTimer: reboot minute:61\n", "JTS_RebootTimer: reboot week:200\n"));
    EXPECT_EQ(JTS_RebootTimer(Msg(R"({"status": "on"})"), &got), 0);
    EXPECT_EQ(got.uiStatus, 0xFFFFFFFFu);  // stored as converted
    EXPECT_EQ(got.uiWeek, 200u);
    EXPECT_THAT(cap.take_texts(), ElementsAre("reboot status:-1\n", "Illegal parameter: hour\n",
                                              "Illegal parameter: minute\n", "Illegal parameter: week\n"));
}

const WifiTimerTask kTask{4, 1, 0, 1, 22, 30, 7, 0, 62};
const std::string kTaskWire = R"(taskid=i32:4 status=s"enable" action=s"disable" type=s"instant" starthour=i32:22 )"
                              R"(startminute=i32:30 endhour=i32:7 endminute=i32:0 week=i32:62)";

TEST(WifiTimer, SetSendsTheNineKeysAndNeedsAllButStatusAndType)
{
    BX_REQUIRE_TRACE_CAPTURE();
    EXPECT_EQ(bxtest::stj_typed(MSG_WIFI_TIMER_SET, &kTask), kTaskWire);
    WifiTimerTask t{};
    TraceCapture cap;
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_WIFI_TIMER_SET, Msg(R"({"taskid": 4, "action": "enable", "starthour": 99,
              "startminute": 30, "endhour": 7, "endminute": 0, "week": 62})"), &t), 0);
    EXPECT_EQ(t.uiStartHour, 99u);  // presence is all that is checked
    EXPECT_EQ(t.uiAction, 1u);
    EXPECT_THAT(cap.take_texts(), ElementsAre(testing::StartsWith("DEBUG: JsonStr = "), "Json To Struct: [WifiTimer] \n\n",
                                              "Illegal parameter: status\n", "Illegal parameter: type\n"));
}

TEST(WifiTimer, SetFailsAtTheFirstMissingRequiredKey)
{
    BX_REQUIRE_TRACE_CAPTURE();
    const char *const keys[] = {"taskid", "status", "action", "type", "starthour", "startminute", "endhour", "endminute", "week"};
    const char *const values[] = {"4", "\"enable\"", "\"enable\"", "\"continuous\"", "22", "30", "7", "15", "62"};
    const uint32_t stored[] = {4, 1, 1, 0, 22, 30, 7, 15, 62};
    const std::pair<size_t, const char *> required[] = {
        {0, "param task id error\n"},   {2, "param action error\n"},       {4, "param start hour error\n"},
        {5, "param start minute error\n"}, {6, "param end hour error\n"}, {7, "param end minute error\n"},
        {8, "param week error\n"},
    };
    for (const auto &[missing, trace] : required) {
        SCOPED_TRACE(keys[missing]);
        std::string json = "{\"x\": 0";
        for (size_t i = 0; i < 9; ++i)
            if (i != missing)
                json += std::string(", \"") + keys[i] + "\": " + values[i];
        WifiTimerTask t;
        std::memset(&t, 0xEE, sizeof t);
        TraceCapture cap;
        EXPECT_EQ(JTS_WifiTimer_Set(Msg((json + "}").c_str()), &t), -1);
        EXPECT_THAT(cap.take(), ElementsAre(std::string("JTS_WifiTimer_Set: ") + trace));
        const uint32_t *fields = &t.uiTaskId;
        for (size_t i = 0; i < 9; ++i)
            EXPECT_EQ(fields[i], i < missing ? stored[i] : 0xEEEEEEEEu) << keys[i];
    }
}

TEST(WifiTimer, ListSendsTheCountedTasksAndGetFillsEveryElement)
{
    BX_REQUIRE_TRACE_CAPTURE();
    Guarded<WifiTimerList> g;
    g.rec.uiCount = 1;
    g.rec.astTask[0] = g.rec.astTask[1] = kTask;
    EXPECT_EQ(bxtest::stj_typed(MSG_WIFI_TIMER, &g.rec), "count=i32:1 timerlist=[{" + kTaskWire + "}]");
    g.rec.uiCount = 100000;  // beyond the record: the tasks it holds
    EXPECT_EQ(tables(bxtest::stj_typed(MSG_WIFI_TIMER, &g.rec)), size_t{WIFI_TIMER_TASK_MAX});

    Guarded<WifiTimerList> got;
    TraceCapture cap;
    EXPECT_EQ(JTS_WifiTimer_Get(Msg(R"({"count": 1, "timerlist": [{"taskid": 1, "status": "enable"}, {"week": 3}, {"taskid": 3}]})"),
                                &got.rec), 0);
    EXPECT_EQ(got.rec.uiCount, 1u);
    EXPECT_EQ(got.rec.astTask[0].uiStatus, 1u);
    EXPECT_EQ(got.rec.astTask[1].uiWeek, 3u);
    EXPECT_EQ(got.rec.astTask[2].uiTaskId, 3u);
    auto texts = cap.take_texts();
    EXPECT_EQ(texts[0], "count: 1\n");
    EXPECT_EQ(std::count(texts.begin(), texts.end(), "Illegal parameter: action\n"), 3);  // all keys optional

    EXPECT_EQ(JTS_WifiTimer_Get(Msg(("{\"timerlist\": " + repeated(R"({"taskid": 9})", WIFI_TIMER_TASK_MAX + 8) + "}").c_str()),
                                &got.rec), 0);
    EXPECT_EQ(got.rec.astTask[WIFI_TIMER_TASK_MAX - 1].uiTaskId, 9u);
    EXPECT_TRUE(got.intact());
    cap.take();
    EXPECT_EQ(JTS_WifiTimer_Get(Msg("{}"), &got.rec), 0);
    EXPECT_THAT(cap.take_texts(), ElementsAre("Illegal parameter: count\n", "Illegal parameter: timerlist\n"));
}

TEST(WifiTimer, Idx)
{
    BX_REQUIRE_TRACE_CAPTURE();
    WifiTimerIdx idx{5};
    EXPECT_EQ(bxtest::stj_typed(MSG_WIFI_TIMER_IDX, &idx), "taskid=i32:5");
    TraceCapture cap;
    EXPECT_EQ(JTS_WifiTimer_Idx(Msg("{}"), &idx), 0);
    EXPECT_EQ(idx.uiTaskId, 5u);
    EXPECT_EQ(JTS_WifiTimer_Idx(Msg(R"({"taskid": 6})"), &idx), 0);
    EXPECT_EQ(idx.uiTaskId, 6u);
    EXPECT_THAT(cap.take(), ElementsAre("JTS_CheckBlobAttr: Illegal parameter: taskid\n", "JTS_WifiTimer_Idx: Idx: 6\n"));
}

TEST(Ratelimit, FlagsChooseTheMembersSent)
{
    const std::pair<uint32_t, const char *> cases[] = {
        {0, R"(mac=s"aa:bb" ip=s"1.2.3.4")"},
        {RATE_LIMIT_VALID_RX, R"(mac=s"aa:bb" ip=s"1.2.3.4" rxratelimit=i32:100)"},
        {RATE_LIMIT_VALID_TX, R"(mac=s"aa:bb" ip=s"1.2.3.4" txratelimit=i32:200)"},
        {7, R"(ratelimitenable=s"enable" mac=s"aa:bb" ip=s"1.2.3.4" rxratelimit=i32:100 txratelimit=i32:200)"},
    };
    for (const auto &[flags, sent] : cases) {
        RateLimitEntry e{5, "aa:bb", "1.2.3.4", 100, 200, flags};  // any non-zero switch is "enable"
        EXPECT_EQ(bxtest::stj_typed(MSG_RATELIMIT, &e), sent) << flags;
    }
    RateLimitEntry off{0, "", "", 0, 0, RATE_LIMIT_VALID_ENABLE};
    EXPECT_EQ(bxtest::stj_typed(MSG_RATELIMIT, &off), R"(ratelimitenable=s"disable" mac=s"" ip=s"")");
}

TEST(Ratelimit, EachGivenRateSetsItsFlagButTheSwitchSetsNone)
{
    struct Case {
        const char *json;
        uint32_t flags;
        const char *sent_back;
    };
    const Case cases[] = {
        {R"({"rxratelimit": 100})", RATE_LIMIT_VALID_RX, R"(mac=s"" ip=s"" rxratelimit=i32:100)"},
        {R"({"txratelimit": 200})", RATE_LIMIT_VALID_TX, R"(mac=s"" ip=s"" txratelimit=i32:200)"},
        {R"({"ratelimitenable": "enable", "mac": "aa:bb", "ip": "1.2.3.4"})", 0, R"(mac=s"aa:bb" ip=s"1.2.3.4")"},
        {R"({"rxratelimit": "100", "txratelimit": 200})", RATE_LIMIT_VALID_TX, R"(mac=s"" ip=s"" txratelimit=i32:200)"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.json);
        RateLimitEntry e{};
        EXPECT_EQ(JSON_TRANS_STRUCT(MSG_RATELIMIT, Msg(c.json), &e), 0);
        EXPECT_EQ(e.uiValidFlags, c.flags);
        EXPECT_EQ(bxtest::stj_typed(MSG_RATELIMIT, &e), c.sent_back);
    }
    RateLimitEntry e{};
    EXPECT_EQ(JTS_Ratelimit(Msg((R"({"ratelimitenable": "yes", "mac": ")" + std::string(40, 'm') + "\"}").c_str()), &e), 0);
    EXPECT_EQ(e.uiEnable, 0xFFFFFFFFu);
    EXPECT_EQ(std::string(e.szMac), std::string(31, 'm'));
}

TEST(RatelimitList, SendsEveryMemberAndReadsBothRatesAsRx)
{
    BX_REQUIRE_TRACE_CAPTURE();
    Guarded<RateLimitList> g;
    g.rec.uiCount = 2;
    g.rec.astEntry[0] = RateLimitEntry{1, "aa:bb", "1.2.3.4", 100, 200, 0};
    g.rec.astEntry[1] = RateLimitEntry{0, "cc:dd", "", 0, 0, 7};
    EXPECT_EQ(bxtest::stj_typed(MSG_RATELIMIT_LIST, &g.rec),
              R"(count=i32:2 ratelimitlist=[{ratelimitenable=s"enable" mac=s"aa:bb" ip=s"1.2.3.4" rxratelimit=i32:100 )"
              R"(txratelimit=i32:200} {ratelimitenable=s"disable" mac=s"cc:dd" ip=s"" rxratelimit=i32:0 txratelimit=i32:0}])");
    g.rec.uiCount = 1000;
    EXPECT_EQ(tables(bxtest::stj_typed(MSG_RATELIMIT_LIST, &g.rec)), size_t{RATE_LIMIT_LIST_MAX});

    Guarded<RateLimitList> got;
    TraceCapture cap;
    EXPECT_EQ(JTS_RatelimitList(Msg(R"({"count": -1, "ratelimitlist": [{"txratelimit": 200}, {"rxratelimit": 100},
                                       {"ratelimitenable": "disable", "ip": "1.2.3.4"}]})"), &got.rec), 0);
    EXPECT_EQ(got.rec.uiCount, 0xFFFFFFFFu);
    EXPECT_EQ(got.rec.astEntry[0].uiTxRateLimit, 200u);
    EXPECT_EQ(got.rec.astEntry[0].uiValidFlags, RATE_LIMIT_VALID_RX);
    EXPECT_EQ(got.rec.astEntry[1].uiValidFlags, RATE_LIMIT_VALID_RX);
    EXPECT_EQ(got.rec.astEntry[2].uiValidFlags, 0u);
    EXPECT_STREQ(got.rec.astEntry[2].szIp, "1.2.3.4");
    EXPECT_EQ(cap.take_texts()[0], "input uiCount: -1\n");
}

TEST(RatelimitList, WalkStopsAfterThirtyTwoEntriesWhateverTheCount)
{
    BX_REQUIRE_TRACE_CAPTURE();
    for (unsigned elements : {RATE_LIMIT_LIST_MAX, RATE_LIMIT_LIST_MAX + 1, 100}) {
        SCOPED_TRACE(elements);
        Guarded<RateLimitList> g;
        TraceCapture cap;
        std::string json = R"({"count": 1, "ratelimitlist": )" + repeated(R"({"rxratelimit": 7})", elements) + "}";
        EXPECT_EQ(JTS_RatelimitList(Msg(json.c_str()), &g.rec), 0);
        EXPECT_EQ(g.rec.astEntry[RATE_LIMIT_LIST_MAX - 1].uiRxRateLimit, 7u);
        EXPECT_TRUE(g.intact());
        auto lines = cap.take();
        EXPECT_EQ(std::count(lines.begin(), lines.end(), "JTS_RatelimitList: blobmsg parse failed\n"),
                  elements > RATE_LIMIT_LIST_MAX ? 1 : 0);
    }
}

TEST(PeriodRate, SetBothWays)
{
    BX_REQUIRE_TRACE_CAPTURE();
    PeriodRateTask t{1, "wan-watch", 60, 5};
    EXPECT_EQ(bxtest::stj_typed(MSG_PERIOD_RATE_SET, &t),
              R"(tasktype=s"USER" taskname=s"wan-watch" reportinterval=i32:60 sampleinterval=i32:5)");
    PeriodRateTask got{};
    const std::string t32(32, 't');
    TraceCapture cap;
    EXPECT_EQ(JTS_PeriodRate_Set(Msg(("{\"tasktype\": \"UPLINK\", \"taskname\": \"" + t32 +
                                      "tt\", \"reportinterval\": 60, \"sampleinterval\": 5}").c_str()), &got), 0);
    EXPECT_EQ(std::string(got.szTaskName), t32);
    EXPECT_THAT(cap.take_texts(), ElementsAre("eTaskType:0\n", "taskname:" + t32 + "\n", "reportinterval:60\n", "sampleinterval:5\n"));
    EXPECT_EQ(JTS_PeriodRate_Set(Msg(R"({"tasktype": "uplink"})"), &got), 0);
    EXPECT_EQ(got.eTaskType, 2u);
}

TEST(PeriodRate, GetStoresEachRateInItsFieldButTracesTheRealTimeOnesSwapped)
{
    BX_REQUIRE_TRACE_CAPTURE();
    PeriodRateReport r{0, "wan-watch", "aa:bb", 11, 22, 33, 44, 55, 66};
    const std::string wire = R"(tasktype=s"UPLINK" taskname=s"wan-watch" mac=s"aa:bb" txrate_rt=i32:11 rxrate_rt=i32:22 )"
                             R"(maxrxrate=i32:33 maxtxrate=i32:44 avarxrate=i32:55 avatxrate=i32:66)";
    EXPECT_EQ(bxtest::stj_typed(MSG_PERIOD_RATE_GET, &r), wire);
    PeriodRateReport got{};
    TraceCapture cap;
    EXPECT_EQ(JTS_PeriodRate_Get(Msg(R"({"tasktype": "UPLINK", "taskname": "wan-watch", "mac": "aa:bb", "txrate_rt": 11,
              "rxrate_rt": 22, "maxrxrate": 33, "maxtxrate": 44, "avarxrate": 55, "avatxrate": 66})"), &got), 0);
    auto texts = cap.take_texts();
    EXPECT_EQ(bxtest::stj_typed(MSG_PERIOD_RATE_GET, &got), wire);
    ASSERT_EQ(texts.size(), 9u);
    // When the tx rate is traced the rx rate is not yet read.
    EXPECT_EQ(texts[3], "period txrate_rt:0\n");
    EXPECT_EQ(texts[4], "period rxrate_rt:11\n");
}

TEST(Iptv, SendsOnlyTheUsedVlanSlots)
{
    IptvConfig c{1, {{0, 1, 2, 3}, {85, 4, 5, 6}}};
    const std::string second = "{vlanid=i32:85 ethports=i32:4 ports2p4g=i32:5 ports5g=i32:6}";
    EXPECT_EQ(bxtest::stj_typed(MSG_IPTV, &c), R"(status=s"enable" vlanlist=[)" + second + "]");
    c.astVlan[0].uiVlanId = 45;
    EXPECT_EQ(bxtest::stj_typed(MSG_IPTV, &c),
              R"(status=s"enable" vlanlist=[{vlanid=i32:45 ethports=i32:1 ports2p4g=i32:2 ports5g=i32:3} )" + second + "]");
    IptvConfig none{0, {}};
    EXPECT_EQ(bxtest::stj_typed(MSG_IPTV, &none), R"(status=s"disable" vlanlist=[])");
}

TEST(Iptv, FillsTwoSlotsAndStopsAtAThird)
{
    BX_REQUIRE_TRACE_CAPTURE();
    Guarded<IptvConfig> g;
    TraceCapture cap;
    EXPECT_EQ(JTS_IPTV(Msg(R"({"status": "enable", "vlanlist": [{"vlanid": 45, "ethports": 1, "ports2p4g": 2,
                              "ports5g": 3}, {"vlanid": 85}, {"vlanid": 99, "ethports": 9}]})"), &g.rec), 0);
    EXPECT_EQ(g.rec.astVlan[1].uiVlanId, 85u);
    EXPECT_EQ(g.rec.astVlan[1].uiEthPorts, 0u);
    EXPECT_TRUE(g.intact());
    EXPECT_THAT(cap.take(), ElementsAre("JTS_IPTV: status:1\n", "JTS_IPTV: Vlanid:45\n", "JTS_IPTV: ethPorts:1\n",
                                        "JTS_IPTV: 2P4GPorts:2\n", "JTS_IPTV: 5GPorts:3\n", "JTS_IPTV: Vlanid:85\n",
                                        "JTS_CheckBlobAttr: Illegal parameter: ethports\n",
                                        "JTS_CheckBlobAttr: Illegal parameter: ports2p4g\n",
                                        "JTS_CheckBlobAttr: Illegal parameter: ports5g\n", "JTS_IPTV: NULL == cur\n\n"));
    IptvConfig kept{7, {{1, 1, 1, 1}, {2, 2, 2, 2}}};
    EXPECT_EQ(JTS_IPTV(Msg(R"({"vlanlist": {"vlanid": 3}})"), &kept), 0);  // a table is no list
    EXPECT_EQ(kept.astVlan[0].uiVlanId, 1u);
    EXPECT_THAT(cap.take(), ElementsAre("JTS_CheckBlobAttr: Illegal parameter: status\n", "JTS_IPTV: No Vlan Task\n"));
}

TEST(TimerRows, EachTypeReachesItsConverters)
{
    const bxtest::ConverterRow rows[] = {
        {MSG_REBOOT_TIMER, "RebootTimer", "RebootTimer", STJ_RebootTimer, JTS_RebootTimer},
        {MSG_WIFI_TIMER_SET, "WifiTimerset", "WifiTimer", STJ_WifiTimer_Set, JTS_WifiTimer_Set},
        {MSG_WIFI_TIMER, "WifiTimer", "WifiTimer", STJ_WifiTimer_List, JTS_WifiTimer_Get},
        {MSG_WIFI_TIMER_IDX, "WifiTimerIdx", "WifiTimerIdx", STJ_WifiTimer_Idx, JTS_WifiTimer_Idx},
        {MSG_RATELIMIT, "Ratelimit", "Ratelimit", STJ_Ratelimit, JTS_Ratelimit},
        {MSG_RATELIMIT_LIST, "RatelimitList", "RatelimitList", STJ_RatelimitList, JTS_RatelimitList},
        {MSG_PERIOD_RATE_SET, "PeriodRateSet", "PeriodRateSet", STJ_PeriodRate_Set, JTS_PeriodRate_Set},
        {MSG_PERIOD_RATE_GET, "PeriodRateGet", "PeriodRateGet", STJ_PeriodRate_Get, JTS_PeriodRate_Get},
        {MSG_IPTV, "Iptv", "Iptv", STJ_IPTV, JTS_IPTV},
    };
    RateLimitList rec{};
    bxtest::expect_converter_rows(rows, &rec);
}

TEST(TimerTool, RoundTrips)
{
    bxtest::ToolResult res;
    if (!bxtest::run_tool(MSG_RATELIMIT, R"({"mac": "aa:bb", "ip": "1.2.3.4", "ratelimitenable": "enable", "txratelimit": 300})", res))
        GTEST_SKIP() << "blobxlate program not built";
    EXPECT_EQ(res.exit_code, 0);
    EXPECT_EQ(res.out, "JSON_TRANS_STRUCT: 0\nSTRUCT_TRANS_JSON: 0\n{\n\t\"mac\": \"aa:bb\",\n\t\"ip\": \"1.2.3.4\",\n"
                       "\t\"txratelimit\": 300\n}\n");
    ASSERT_TRUE(bxtest::run_tool(MSG_WIFI_TIMER_SET, R"({"taskid": 1, "action": "enable"})", res));
    EXPECT_EQ(res.exit_code, 1);
    EXPECT_THAT(res.out, testing::StartsWith("JSON_TRANS_STRUCT: -1\nSTRUCT_TRANS_JSON: 0\n"));
}

} // namespace
