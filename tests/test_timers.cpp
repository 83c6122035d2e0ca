// Reboot and Wi-Fi timers, rate limits, periodic rate sampling and IPTV.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
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
    bool intact() const
    {
        return std::all_of(std::begin(guard), std::end(guard), [](unsigned char b) { return b == 0xA5; });
    }
};

// "[e, e, ...]" with n copies of one element.
std::string repeated(const std::string &elem, unsigned n)
{
    std::string out = "[";
    for (unsigned i = 0; i < n; ++i)
        out += (i ? "," : "") + elem;
    return out + "]";
}

// ---- Reboot timer ------------------------------------------------------------------

TEST(RebootTimer, BothWays)
{
    BX_REQUIRE_TRACE_CAPTURE();
    RebootTimer rec{1, 3, 30, 127};
    int ret = -2;
    EXPECT_EQ(bxtest::stj_typed(MSG_REBOOT_TIMER, &rec, &ret), R"(status=s"enable" hour=i32:3 minute=i32:30 week=i32:127)");
    EXPECT_EQ(ret, 0);

    RebootTimer got{};
    Msg msg(R"({"status": "disable", "hour": 25, "minute": 61, "week": 200})");  // no bounds
    TraceCapture cap;
    EXPECT_EQ(JTS_RebootTimer(msg, &got), 0);
    EXPECT_EQ(got.uiStatus, 0u);
    EXPECT_EQ(got.uiHour, 25u);
    EXPECT_EQ(got.uiMinute, 61u);
    EXPECT_EQ(got.uiWeek, 200u);
    EXPECT_THAT(cap.take(), ElementsAre("JTS_RebootTimer: reboot status:0\n", "JTS_RebootTimer: reboot hour:25\n",
                                        "JTS_RebootTimer: reboot minute:61\n", "JTS_RebootTimer: reboot week:200\n"));

    RebootTimer kept{7, 7, 7, 7};
    Msg odd(R"({"status": "on"})");
    EXPECT_EQ(JTS_RebootTimer(odd, &kept), 0);
    EXPECT_EQ(kept.uiStatus, 0xFFFFFFFFu);  // stored as converted
    EXPECT_THAT(cap.take(), ElementsAre("JTS_RebootTimer: reboot status:-1\n",
                                        "JTS_CheckBlobAttr: Illegal parameter: hour\n",
                                        "JTS_CheckBlobAttr: Illegal parameter: minute\n",
                                        "JTS_CheckBlobAttr: Illegal parameter: week\n"));
    EXPECT_EQ(kept.uiHour, 7u);
}

// ---- Wi-Fi timer tasks ---------------------------------------------------------------

WifiTimerTask sample_task()
{
    return WifiTimerTask{4, 1, 0, 1, 22, 30, 7, 0, 62};
}

const char *const kSampleTaskWire =
    R"(taskid=i32:4 status=s"enable" action=s"disable" type=s"instant" starthour=i32:22 startminute=i32:30 )"
    R"(endhour=i32:7 endminute=i32:0 week=i32:62)";

TEST(WifiTimer, SetSendsTheNineKeysInRecordOrder)
{
    WifiTimerTask t = sample_task();
    EXPECT_EQ(bxtest::stj_typed(MSG_WIFI_TIMER_SET, &t), kSampleTaskWire);
    t.uiType = 5;  // no word for it
    EXPECT_THAT(bxtest::stj_typed(MSG_WIFI_TIMER_SET, &t), testing::HasSubstr(R"( type=s"" )"));
}

TEST(WifiTimer, SetRoundTripsWithoutStatusAndType)
{
    BX_REQUIRE_TRACE_CAPTURE();
    WifiTimerTask t{};
    Msg msg(R"({"taskid": 4, "action": "enable", "starthour": 99, "startminute": 30, "endhour": 7,
               "endminute": 0, "week": 62})");
    TraceCapture cap;
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_WIFI_TIMER_SET, msg, &t), 0);
    EXPECT_EQ(t.uiTaskId, 4u);
    EXPECT_EQ(t.uiAction, 1u);
    EXPECT_EQ(t.uiStartHour, 99u);  // accepted: presence is all that is checked
    EXPECT_EQ(t.uiWeek, 62u);
    auto lines = cap.take();
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[1], "JSON_TRANS_STRUCT: Json To Struct: [WifiTimer] \n\n");
    EXPECT_EQ(lines[2], "JTS_CheckBlobAttr: Illegal parameter: status\n");
    EXPECT_EQ(lines[3], "JTS_CheckBlobAttr: Illegal parameter: type\n");
}

TEST(WifiTimer, SetFailsAtTheFirstMissingRequiredKey)
{
    BX_REQUIRE_TRACE_CAPTURE();
    struct Case {
        const char *missing;
        const char *trace;
        size_t stored;  // members stored before it, in record order
    };
    const Case cases[] = {
        {"taskid", "param task id error\n", 0},         {"action", "param action error\n", 2},
        {"starthour", "param start hour error\n", 4},   {"startminute", "param start minute error\n", 5},
        {"endhour", "param end hour error\n", 6},       {"endminute", "param end minute error\n", 7},
        {"week", "param week error\n", 8},
    };
    const char *const keys[] = {"taskid", "status", "action", "type", "starthour",
                                "startminute", "endhour", "endminute", "week"};
    const std::string values[] = {"4", "\"enable\"", "\"enable\"", "\"continuous\"", "22", "30", "7", "15", "62"};
    const uint32_t stored_values[] = {4, 1, 1, 0, 22, 30, 7, 15, 62};
    for (const Case &c : cases) {
        SCOPED_TRACE(c.missing);
        std::string json = "{";
        for (size_t i = 0; i < 9; ++i) {
            if (std::strcmp(keys[i], c.missing) == 0)
                continue;
            json += (json.size() > 1 ? ", \"" : "\"") + std::string(keys[i]) + "\": " + values[i];
        }
        json += "}";
        WifiTimerTask t;
        std::memset(&t, 0xEE, sizeof t);
        Msg msg(json.c_str());
        TraceCapture cap;
        EXPECT_EQ(JTS_WifiTimer_Set(msg, &t), -1);
        EXPECT_THAT(cap.take(), ElementsAre(std::string("JTS_WifiTimer_Set: ") + c.trace));
        const uint32_t *fields = &t.uiTaskId;
        for (size_t i = 0; i < 9; ++i)
            EXPECT_EQ(fields[i], i < c.stored ? stored_values[i] : 0xEEEEEEEEu) << keys[i];
    }
}

TEST(WifiTimer, ListSendsCountThenTheCountedTasks)
{
    Guarded<WifiTimerList> g;
    g.rec.uiCount = 1;
    g.rec.astTask[0] = sample_task();
    g.rec.astTask[1] = sample_task();
    int ret = -2;
    EXPECT_EQ(bxtest::stj_typed(MSG_WIFI_TIMER, &g.rec, &ret),
              std::string("count=i32:1 timerlist=[{") + kSampleTaskWire + "}]");
    EXPECT_EQ(ret, 0);
    g.rec.uiCount = 0;
    EXPECT_EQ(bxtest::stj_typed(MSG_WIFI_TIMER, &g.rec), "count=i32:0 timerlist=[]");
    // A count beyond the record sends the tasks the record holds.
    g.rec.uiCount = 100000;
    std::string typed = bxtest::stj_typed(MSG_WIFI_TIMER, &g.rec);
    EXPECT_EQ(std::count(typed.begin(), typed.end(), '{'), WIFI_TIMER_TASK_MAX);
}

TEST(WifiTimer, GetFillsEveryElementWhateverTheCount)
{
    BX_REQUIRE_TRACE_CAPTURE();
    Guarded<WifiTimerList> g;
    Msg msg(R"({"count": 1, "timerlist": [{"taskid": 1, "status": "enable"}, {"taskid": 2, "week": 3}, {"taskid": 3}]})");
    TraceCapture cap;
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_WIFI_TIMER, msg, &g.rec), 0);
    EXPECT_EQ(g.rec.uiCount, 1u);
    EXPECT_EQ(g.rec.astTask[0].uiTaskId, 1u);
    EXPECT_EQ(g.rec.astTask[0].uiStatus, 1u);
    EXPECT_EQ(g.rec.astTask[1].uiTaskId, 2u);
    EXPECT_EQ(g.rec.astTask[1].uiWeek, 3u);
    EXPECT_EQ(g.rec.astTask[2].uiTaskId, 3u);
    auto texts = cap.take_texts();
    EXPECT_EQ(texts[1], "Json To Struct: [WifiTimer] \n\n");
    EXPECT_EQ(texts[2], "count: 1\n");
    // Elements are read with all task keys optional.
    EXPECT_EQ(std::count(texts.begin(), texts.end(), "Illegal parameter: action\n"), 3);

    Msg bare(R"({"count": 2})");
    Guarded<WifiTimerList> g2;
    EXPECT_EQ(JTS_WifiTimer_Get(bare, &g2.rec), 0);
    EXPECT_EQ(g2.rec.uiCount, 2u);
    EXPECT_THAT(cap.take_texts(), ElementsAre("count: 2\n", "Illegal parameter: timerlist\n"));
}

TEST(WifiTimer, GetStopsAtTheRecordsCapacity)
{
    Guarded<WifiTimerList> g;
    std::string json = "{\"timerlist\": " + repeated(R"({"taskid": 9, "week": 127})", WIFI_TIMER_TASK_MAX + 8) + "}";
    Msg msg(json.c_str());
    EXPECT_EQ(JTS_WifiTimer_Get(msg, &g.rec), 0);
    EXPECT_EQ(g.rec.astTask[WIFI_TIMER_TASK_MAX - 1].uiTaskId, 9u);
    EXPECT_TRUE(g.intact());
}

TEST(WifiTimer, Idx)
{
    BX_REQUIRE_TRACE_CAPTURE();
    WifiTimerIdx idx{5};
    EXPECT_EQ(bxtest::stj_typed(MSG_WIFI_TIMER_IDX, &idx), "taskid=i32:5");
    WifiTimerIdx got{42};
    TraceCapture cap;
    Msg empty("{}");
    EXPECT_EQ(JTS_WifiTimer_Idx(empty, &got), 0);
    EXPECT_EQ(got.uiTaskId, 42u);
    Msg msg(R"({"taskid": 6})");
    EXPECT_EQ(JTS_WifiTimer_Idx(msg, &got), 0);
    EXPECT_EQ(got.uiTaskId, 6u);
    EXPECT_THAT(cap.take(), ElementsAre("JTS_CheckBlobAttr: Illegal parameter: taskid\n", "JTS_WifiTimer_Idx: Idx: 6\n"));
}

// ---- Rate limits ------------------------------------------------------------------------

TEST(Ratelimit, FlagsChooseTheMembersSent)
{
    struct Case {
        uint32_t flags;
        const char *sent;
    };
    const Case cases[] = {
        {0, R"(mac=s"aa:bb" ip=s"1.2.3.4")"},
        {RATE_LIMIT_VALID_RX, R"(mac=s"aa:bb" ip=s"1.2.3.4" rxratelimit=i32:100)"},
        {RATE_LIMIT_VALID_TX, R"(mac=s"aa:bb" ip=s"1.2.3.4" txratelimit=i32:200)"},
        {RATE_LIMIT_VALID_ENABLE, R"(ratelimitenable=s"enable" mac=s"aa:bb" ip=s"1.2.3.4")"},
        {7, R"(ratelimitenable=s"enable" mac=s"aa:bb" ip=s"1.2.3.4" rxratelimit=i32:100 txratelimit=i32:200)"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.flags);
        RateLimitEntry e{5, "aa:bb", "1.2.3.4", 100, 200, c.flags};  // any non-zero switch is "enable"
        EXPECT_EQ(bxtest::stj_typed(MSG_RATELIMIT, &e), c.sent);
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
        Msg msg(c.json);
        EXPECT_EQ(JSON_TRANS_STRUCT(MSG_RATELIMIT, msg, &e), 0);
        EXPECT_EQ(e.uiValidFlags, c.flags);
        EXPECT_EQ(bxtest::stj_typed(MSG_RATELIMIT, &e), c.sent_back);
    }
    RateLimitEntry e{};
    Msg msg((R"({"ratelimitenable": "yes", "mac": ")" + std::string(40, 'm') + R"("})").c_str());
    EXPECT_EQ(JTS_Ratelimit(msg, &e), 0);
    EXPECT_EQ(e.uiEnable, 0xFFFFFFFFu);
    EXPECT_EQ(std::string(e.szMac), std::string(31, 'm'));
}

TEST(RatelimitList, SendsEveryMemberWhateverTheFlags)
{
    Guarded<RateLimitList> g;
    g.rec.uiCount = 2;
    g.rec.astEntry[0] = RateLimitEntry{1, "aa:bb", "1.2.3.4", 100, 200, 0};
    g.rec.astEntry[1] = RateLimitEntry{0, "cc:dd", "", 0, 0, 7};
    EXPECT_EQ(bxtest::stj_typed(MSG_RATELIMIT_LIST, &g.rec),
              R"(count=i32:2 ratelimitlist=[{ratelimitenable=s"enable" mac=s"aa:bb" ip=s"1.2.3.4" rxratelimit=i32:100 )"
              R"(txratelimit=i32:200} {ratelimitenable=s"disable" mac=s"cc:dd" ip=s"" rxratelimit=i32:0 txratelimit=i32:0}])");
    g.rec.uiCount = 1000;
    std::string typed = bxtest::stj_typed(MSG_RATELIMIT_LIST, &g.rec);
    EXPECT_EQ(std::count(typed.begin(), typed.end(), '{'), RATE_LIMIT_LIST_MAX);
}

TEST(RatelimitList, BothRatesMarkTheRxBit)
{
    BX_REQUIRE_TRACE_CAPTURE();
    Guarded<RateLimitList> g;
    Msg msg(R"({"count": 3, "ratelimitlist": [{"txratelimit": 200}, {"rxratelimit": 100},
               {"ratelimitenable": "disable", "mac": "aa:bb", "ip": "1.2.3.4"}]})");
    TraceCapture cap;
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_RATELIMIT_LIST, msg, &g.rec), 0);
    EXPECT_EQ(g.rec.uiCount, 3u);
    EXPECT_EQ(g.rec.astEntry[0].uiTxRateLimit, 200u);
    EXPECT_EQ(g.rec.astEntry[0].uiValidFlags, RATE_LIMIT_VALID_RX);
    EXPECT_EQ(g.rec.astEntry[1].uiRxRateLimit, 100u);
    EXPECT_EQ(g.rec.astEntry[1].uiValidFlags, RATE_LIMIT_VALID_RX);
    EXPECT_EQ(g.rec.astEntry[2].uiEnable, 0u);
    EXPECT_EQ(g.rec.astEntry[2].uiValidFlags, 0u);
    EXPECT_STREQ(g.rec.astEntry[2].szIp, "1.2.3.4");
    auto texts = cap.take_texts();
    EXPECT_EQ(texts[2], "input uiCount: 3\n");
    EXPECT_EQ(std::count(texts.begin(), texts.end(), "blobmsg parse failed\n"), 0);
}

TEST(RatelimitList, WalkStopsAfterThirtyTwoEntries)
{
    BX_REQUIRE_TRACE_CAPTURE();
    struct Case {
        unsigned elements;
        bool cut;
    };
    for (const Case c : {Case{RATE_LIMIT_LIST_MAX, false}, Case{RATE_LIMIT_LIST_MAX + 1, true}, Case{100, true}}) {
        SCOPED_TRACE(c.elements);
        Guarded<RateLimitList> g;
        // The count neither bounds nor extends the walk.
        std::string json = R"({"count": 1, "ratelimitlist": )" + repeated(R"({"rxratelimit": 7})", c.elements) + "}";
        Msg msg(json.c_str());
        TraceCapture cap;
        EXPECT_EQ(JTS_RatelimitList(msg, &g.rec), 0);
        EXPECT_EQ(g.rec.astEntry[RATE_LIMIT_LIST_MAX - 1].uiRxRateLimit, 7u);
        EXPECT_TRUE(g.intact());
        auto lines = cap.take();
        EXPECT_EQ(std::count(lines.begin(), lines.end(), "JTS_RatelimitList: blobmsg parse failed\n"), c.cut ? 1 : 0);
    }
    Msg bare(R"({"count": -1})");
    Guarded<RateLimitList> g;
    TraceCapture cap;
    EXPECT_EQ(JTS_RatelimitList(bare, &g.rec), 0);
    EXPECT_THAT(cap.take_texts(), ElementsAre("input uiCount: -1\n", "Illegal parameter: ratelimitlist\n"));
}

// ---- Periodic rate sampling --------------------------------------------------------------

TEST(PeriodRate, SetBothWays)
{
    BX_REQUIRE_TRACE_CAPTURE();
    PeriodRateTask t{1, "wan-watch", 60, 5};
    EXPECT_EQ(bxtest::stj_typed(MSG_PERIOD_RATE_SET, &t),
              R"(tasktype=s"USER" taskname=s"wan-watch" reportinterval=i32:60 sampleinterval=i32:5)");
    PeriodRateTask got{};
    Msg msg(("{\"tasktype\": \"UPLINK\", \"taskname\": \"" + std::string(40, 't') +
             "\", \"reportinterval\": 60, \"sampleinterval\": 5}").c_str());
    TraceCapture cap;
    EXPECT_EQ(JTS_PeriodRate_Set(msg, &got), 0);
    EXPECT_EQ(got.eTaskType, 0u);
    EXPECT_EQ(std::string(got.szTaskName), std::string(32, 't'));
    EXPECT_EQ(got.uiSampleInterval, 5u);
    EXPECT_THAT(cap.take_texts(), ElementsAre("eTaskType:0\n", "taskname:" + std::string(32, 't') + "\n",
                                              "reportinterval:60\n", "sampleinterval:5\n"));
    Msg other(R"({"tasktype": "uplink"})");
    EXPECT_EQ(JTS_PeriodRate_Set(other, &got), 0);
    EXPECT_EQ(got.eTaskType, 2u);
}

TEST(PeriodRate, GetStoresEachRateInItsFieldButTracesTheRealTimeOnesSwapped)
{
    BX_REQUIRE_TRACE_CAPTURE();
    PeriodRateReport r{0, "wan-watch", "aa:bb", 11, 22, 33, 44, 55, 66};
    const char *wire = R"(tasktype=s"UPLINK" taskname=s"wan-watch" mac=s"aa:bb" txrate_rt=i32:11 rxrate_rt=i32:22 )"
                       R"(maxrxrate=i32:33 maxtxrate=i32:44 avarxrate=i32:55 avatxrate=i32:66)";
    EXPECT_EQ(bxtest::stj_typed(MSG_PERIOD_RATE_GET, &r), wire);

    PeriodRateReport got{};
    Msg msg(R"({"tasktype": "UPLINK", "taskname": "wan-watch", "mac": "aa:bb", "txrate_rt": 11, "rxrate_rt": 22,
               "maxrxrate": 33, "maxtxrate": 44, "avarxrate": 55, "avatxrate": 66})");
    TraceCapture cap;
    EXPECT_EQ(JTS_PeriodRate_Get(msg, &got), 0);
    auto texts = cap.take_texts();
    EXPECT_EQ(bxtest::stj_typed(MSG_PERIOD_RATE_GET, &got), wire);
    ASSERT_EQ(texts.size(), 9u);
    // When the tx rate is stored the rx rate is not yet read.
    EXPECT_EQ(texts[3], "period txrate_rt:0\n");
    EXPECT_EQ(texts[4], "period rxrate_rt:11\n");
}

// ---- IPTV -----------------------------------------------------------------------------------

TEST(Iptv, SendsOnlyTheUsedVlanSlots)
{
    IptvConfig c{1, {{0, 1, 2, 3}, {85, 4, 5, 6}}};
    EXPECT_EQ(bxtest::stj_typed(MSG_IPTV, &c),
              R"(status=s"enable" vlanlist=[{vlanid=i32:85 ethports=i32:4 ports2p4g=i32:5 ports5g=i32:6}])");
    c.astVlan[0].uiVlanId = 45;
    EXPECT_EQ(bxtest::stj_typed(MSG_IPTV, &c),
              R"(status=s"enable" vlanlist=[{vlanid=i32:45 ethports=i32:1 ports2p4g=i32:2 ports5g=i32:3} )"
              R"({vlanid=i32:85 ethports=i32:4 ports2p4g=i32:5 ports5g=i32:6}])");
    IptvConfig none{0, {}};
    EXPECT_EQ(bxtest::stj_typed(MSG_IPTV, &none), R"(status=s"disable" vlanlist=[])");
}

TEST(Iptv, FillsTwoSlotsAndStopsAtAThird)
{
    BX_REQUIRE_TRACE_CAPTURE();
    Guarded<IptvConfig> g;
    Msg msg(R"({"status": "enable", "vlanlist": [{"vlanid": 45, "ethports": 1, "ports2p4g": 2, "ports5g": 3},
               {"vlanid": 85}, {"vlanid": 99, "ethports": 9}]})");
    TraceCapture cap;
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_IPTV, msg, &g.rec), 0);
    EXPECT_EQ(g.rec.uiStatus, 1u);
    EXPECT_EQ(g.rec.astVlan[0].uiVlanId, 45u);
    EXPECT_EQ(g.rec.astVlan[0].uiPorts5g, 3u);
    EXPECT_EQ(g.rec.astVlan[1].uiVlanId, 85u);
    EXPECT_EQ(g.rec.astVlan[1].uiEthPorts, 0u);
    EXPECT_TRUE(g.intact());
    auto lines = cap.take();
    ASSERT_GE(lines.size(), 2u);
    lines.erase(lines.begin(), lines.begin() + 2);  // the dispatcher's
    EXPECT_THAT(lines, ElementsAre("JTS_IPTV: status:1\n", "JTS_IPTV: Vlanid:45\n", "JTS_IPTV: ethPorts:1\n",
                                   "JTS_IPTV: 2P4GPorts:2\n", "JTS_IPTV: 5GPorts:3\n", "JTS_IPTV: Vlanid:85\n",
                                   "JTS_CheckBlobAttr: Illegal parameter: ethports\n",
                                   "JTS_CheckBlobAttr: Illegal parameter: ports2p4g\n",
                                   "JTS_CheckBlobAttr: Illegal parameter: ports5g\n", "JTS_IPTV: NULL == cur\n\n"));
}

TEST(Iptv, WithoutVlanListThereIsNoTask)
{
    BX_REQUIRE_TRACE_CAPTURE();
    IptvConfig c{7, {{1, 1, 1, 1}, {2, 2, 2, 2}}};
    Msg msg(R"({"vlanlist": {"vlanid": 3}})");  // a table is no list
    TraceCapture cap;
    EXPECT_EQ(JTS_IPTV(msg, &c), 0);
    EXPECT_EQ(c.uiStatus, 7u);
    EXPECT_EQ(c.astVlan[0].uiVlanId, 1u);
    EXPECT_THAT(cap.take(), ElementsAre("JTS_CheckBlobAttr: Illegal parameter: status\n", "JTS_IPTV: No Vlan Task\n"));
}

// ---- Dispatch rows and the command-line program -------------------------------------------------

TEST(TimerRows, EachTypeReachesItsConverters)
{
    struct Row {
        int type;
        const char *stj_name;
        StructToJsonFunc stj;
        const char *jts_name;
        JsonToStructFunc jts;
    };
    const Row rows[] = {
        {MSG_REBOOT_TIMER, "RebootTimer", STJ_RebootTimer, "RebootTimer", JTS_RebootTimer},
        {MSG_WIFI_TIMER_SET, "WifiTimerset", STJ_WifiTimer_Set, "WifiTimer", JTS_WifiTimer_Set},
        {MSG_WIFI_TIMER, "WifiTimer", STJ_WifiTimer_List, "WifiTimer", JTS_WifiTimer_Get},
        {MSG_WIFI_TIMER_IDX, "WifiTimerIdx", STJ_WifiTimer_Idx, "WifiTimerIdx", JTS_WifiTimer_Idx},
        {MSG_RATELIMIT, "Ratelimit", STJ_Ratelimit, "Ratelimit", JTS_Ratelimit},
        {MSG_RATELIMIT_LIST, "RatelimitList", STJ_RatelimitList, "RatelimitList", JTS_RatelimitList},
        {MSG_PERIOD_RATE_SET, "PeriodRateSet", STJ_PeriodRate_Set, "PeriodRateSet", JTS_PeriodRate_Set},
        {MSG_PERIOD_RATE_GET, "PeriodRateGet", STJ_PeriodRate_Get, "PeriodRateGet", JTS_PeriodRate_Get},
        {MSG_IPTV, "Iptv", STJ_IPTV, "Iptv", JTS_IPTV},
    };
    Msg msg("{}");
    bxtest::Buf buf;
    RateLimitList rec{};
    for (const Row &row : rows) {
        SCOPED_TRACE(row.type);
        const MessageTransEntry *stj = nullptr;
        const MessageTransEntry *jts = nullptr;
        for (int i = 0; i < g_iStructToJson_FuncNum; ++i)
            if (g_astStructToJson_Func[i].id == row.type)
                stj = &g_astStructToJson_Func[i];
        for (int i = 0; i < g_iJsonToStruct_FuncNum; ++i)
            if (g_astJsonToStruct_Func[i].id == row.type)
                jts = &g_astJsonToStruct_Func[i];
        ASSERT_NE(stj, nullptr);
        ASSERT_NE(jts, nullptr);
        EXPECT_STREQ(stj->name, row.stj_name);
        EXPECT_EQ(stj->converter.toJson, row.stj);
        EXPECT_STREQ(jts->name, row.jts_name);
        EXPECT_EQ(jts->converter.toStruct, row.jts);
        EXPECT_EQ(row.stj(nullptr, buf.get()), -1);
        EXPECT_EQ(row.stj(&rec, nullptr), -1);
        EXPECT_EQ(row.jts(nullptr, &rec), -1);
        EXPECT_EQ(row.jts(msg, nullptr), -1);
    }
    EXPECT_EQ(buf.typed(), "");
}

TEST(TimerTool, RoundTrips)
{
    bxtest::ToolResult res;
    if (!bxtest::run_tool(MSG_RATELIMIT, R"({"mac": "aa:bb", "ip": "1.2.3.4", "ratelimitenable": "enable",
                                             "txratelimit": 300})", res))
        GTEST_SKIP() << "blobxlate program not built";
    EXPECT_EQ(res.exit_code, 0);
    EXPECT_EQ(res.out, "JSON_TRANS_STRUCT: 0\nSTRUCT_TRANS_JSON: 0\n{\n\t\"mac\": \"aa:bb\",\n\t\"ip\": \"1.2.3.4\",\n"
                       "\t\"txratelimit\": 300\n}\n");

    ASSERT_TRUE(bxtest::run_tool(MSG_WIFI_TIMER_SET, R"({"taskid": 1, "action": "enable"})", res));
    EXPECT_EQ(res.exit_code, 1);
    EXPECT_THAT(res.out, testing::StartsWith("JSON_TRANS_STRUCT: -1\nSTRUCT_TRANS_JSON: 0\n"));
}

} // namespace
