// URL and DNS filters: the switch, the rules, their lists and the replies.
#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "support.h"

using bxtest::Msg;
using bxtest::TraceCapture;
using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::Not;

namespace {

constexpr uint32_t kUnknown = 0xFFFFFFFFu;

// Records are large (a URL list is about 66 KiB): keep them off the stack.
template <typename T>
std::unique_ptr<T> zeroed()
{
    return std::make_unique<T>();
}

template <size_t N>
void set_text(char (&field)[N], const char *text)
{
    std::strncpy(field, text, N);
}

std::string repeat(const std::string &item, int n, const char *sep = ", ")
{
    std::string out;
    for (int i = 0; i < n; ++i)
        out += (i != 0 ? sep : "") + item;
    return out;
}

// ---- Dispatch rows -----------------------------------------------------------

const MessageTransEntry *row_of(const MessageTransEntry *table, int count, int type)
{
    for (int i = 0; i < count; ++i)
        if (table[i].id == type)
            return &table[i];
    return nullptr;
}

struct Rows {
    int type;
    int stj_pos;
    const char *stj_name;
    StructToJsonFunc stj;
    int jts_pos;
    const char *jts_name;
    JsonToStructFunc jts;
};

// The name texts repeat across types ("FilterUrl" stands for three types
// from JSON): only the number tells them apart.
const Rows kRows[] = {
    {132, 93, "FilterUrl", STJ_FilterUrl_Switch, 34, "FilterUrl", JTS_FilterUrl_Switch},
    {134, 98, "FilterUrl_List", STJ_FilterUrl_List, 35, "FilterUrl", JTS_FilterUrl_Get},
    {135, 94, "FilterUrl", STJ_FilterUrl_Set, 36, "FilterUrl", JTS_FilterUrl_Set},
    {136, 96, "FilterUrl_Reply", STJ_FilterUrl_Reply, 37, "FilterUrlReply", JTS_FilterUrl_Set_Reply},
    {137, 99, "FilterDns_List", STJ_FilterDns_List, 38, "FilterDns", JTS_FilterDns_Get},
    {138, 95, "FilterDns", STJ_FilterDns_Set, 39, "FilterDns", JTS_FilterDns_Set},
    {139, 97, "FilterDns_Reply", STJ_FilterDns_Reply, 40, "FilterDnsReply", JTS_FilterDns_Set_Reply},
};

TEST(Filters, EveryTypeHasItsRowsInBothTables)
{
    // Row positions hold once every family's rows are in the tables.
    const bool complete = g_iStructToJson_FuncNum == 160 && g_iJsonToStruct_FuncNum == 159;
    for (const Rows &r : kRows) {
        SCOPED_TRACE(r.type);
        const MessageTransEntry *stj = row_of(g_astStructToJson_Func, g_iStructToJson_FuncNum, r.type);
        const MessageTransEntry *jts = row_of(g_astJsonToStruct_Func, g_iJsonToStruct_FuncNum, r.type);
        ASSERT_NE(stj, nullptr);
        ASSERT_NE(jts, nullptr);
        EXPECT_STREQ(stj->name, r.stj_name);
        EXPECT_EQ(stj->converter.toJson, r.stj);
        EXPECT_STREQ(jts->name, r.jts_name);
        EXPECT_EQ(jts->converter.toStruct, r.jts);
        if (complete) {
            EXPECT_EQ(stj - g_astStructToJson_Func, r.stj_pos);
            EXPECT_EQ(jts - g_astJsonToStruct_Func, r.jts_pos);
        }
    }
}

TEST(Filters, NullArgumentsFail)
{
    auto list = zeroed<FilterUrlList>();
    Msg msg(R"({"idx": 1, "enable": "enable", "mode": "Black", "status": "enable"})");
    bxtest::Buf buf;
    for (const Rows &r : kRows) {
        SCOPED_TRACE(r.type);
        EXPECT_EQ(r.stj(nullptr, buf.get()), -1);
        EXPECT_EQ(r.stj(list.get(), nullptr), -1);
        EXPECT_EQ(r.jts(nullptr, list.get()), -1);
        EXPECT_EQ(r.jts(msg, nullptr), -1);
    }
    EXPECT_EQ(buf.typed(), "");
}

// ---- The switch (132) ----------------------------------------------------------

TEST(FilterSwitch, SentUnderIdxReceivedUnderStatus)
{
    FilterSwitch rec{1};
    EXPECT_EQ(bxtest::stj_typed(MSG_FILTER_URL_SWITCH, &rec), "idx=s\"enable\"");
    rec.uiStatus = 0;
    EXPECT_EQ(bxtest::stj_typed(MSG_FILTER_URL_SWITCH, &rec), "idx=s\"disable\"");

    // What it sends, it does not take back.
    rec.uiStatus = 7;
    EXPECT_EQ(JTS_FilterUrl_Switch(Msg(R"({"idx": "enable"})"), &rec), -1);
    EXPECT_EQ(rec.uiStatus, 7u);
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_FILTER_URL_SWITCH, Msg(R"({"status": "enable"})"), &rec), 0);
    EXPECT_EQ(rec.uiStatus, 1u);
}

TEST(FilterSwitch, UnknownWordIsStoredThenRefused)
{
    BX_REQUIRE_TRACE_CAPTURE();
    FilterSwitch rec{1};
    TraceCapture cap;
    EXPECT_EQ(JTS_FilterUrl_Switch(Msg(R"({"status": "on"})"), &rec), -1);
    EXPECT_EQ(rec.uiStatus, kUnknown);
    EXPECT_EQ(JTS_FilterUrl_Switch(Msg(R"({"status": "disable"})"), &rec), 0);
    EXPECT_EQ(rec.uiStatus, 0u);
    EXPECT_EQ(JTS_FilterUrl_Switch(Msg(R"({})"), &rec), -1);
    EXPECT_THAT(cap.take(), ElementsAre("JTS_FilterUrl_Switch: Status:-1\n", "JTS_FilterUrl_Switch: Status:0\n",
                                        "JTS_CheckBlobAttr: Illegal parameter: status\n"));
}

// ---- Rules to JSON (135, 138) ----------------------------------------------------

void fill_url_rule(FilterUrlRule &r)
{
    r.uiIdx = 3;
    r.uiEnable = 1;
    set_text(r.aszUrls[0], "a.com");
    set_text(r.aszUrls[1], "b.org");
    set_text(r.szName, "kids");
    set_text(r.aszMacs[0], "aa:bb:cc:dd:ee:ff");
    r.uiMode = 1;
    r.uiWeekday = 31;
    r.astTimeRange[0] = {3600, 7200};
    r.astTimeRange[1] = {0, 86400};
    r.astTimeRange[2] = {5, 0};  // end time 0: not in use
}

const char kUrlRuleTyped[] =
    R"(idx=i32:3 enable=s"enable" urls=[s"a.com" s"b.org"] name=s"kids" macs=[s"aa:bb:cc:dd:ee:ff"] mode=s"White" )"
    R"(weekday=i32:31 timerange=[{starttime=i32:3600 endtime=i32:7200} {starttime=i32:0 endtime=i32:86400}])";

TEST(FilterRuleToJson, UrlRule)
{
    auto rule = zeroed<FilterUrlRule>();
    fill_url_rule(*rule);
    int ret = -2;
    EXPECT_EQ(bxtest::stj_typed(MSG_FILTER_URL, rule.get(), &ret), kUrlRuleTyped);
    EXPECT_EQ(ret, 0);
}

TEST(FilterRuleToJson, DnsRule)
{
    auto rule = zeroed<FilterDnsRule>();
    rule->uiIdx = 2;
    set_text(rule->aszHostnames[0], "ads.example");
    set_text(rule->aszHostnames[1], "track.example");
    set_text(rule->szName, "n");
    set_text(rule->szMacs, "11:22:33:44:55:66");
    rule->uiAction = 2;
    rule->uiWeekday = 1;
    rule->astTimeRange[0] = {10, 20};
    rule->astTimeRange[1] = {30, 40};
    rule->astTimeRange[2] = {50, 60};
    EXPECT_EQ(bxtest::stj_typed(MSG_FILTER_DNS, rule.get()),
              R"(idx=i32:2 enable=s"disable" hostnames=[s"ads.example" s"track.example"] name=s"n" )"
              R"(macs=s"11:22:33:44:55:66" action=s"NameError" mode=s"Black" weekday=i32:1 timerange=[)"
              R"({starttime=i32:10 endtime=i32:20} {starttime=i32:30 endtime=i32:40} {starttime=i32:50 endtime=i32:60}])");
}

TEST(FilterRuleToJson, NoScheduleEndsAfterMode)
{
    auto url = zeroed<FilterUrlRule>();
    fill_url_rule(*url);
    url->uiWeekday = 0;
    EXPECT_EQ(bxtest::stj_typed(MSG_FILTER_URL, url.get()),
              R"(idx=i32:3 enable=s"enable" urls=[s"a.com" s"b.org"] name=s"kids" macs=[s"aa:bb:cc:dd:ee:ff"] mode=s"White")");
    auto dns = zeroed<FilterDnsRule>();
    dns->astTimeRange[0] = {1, 2};
    EXPECT_EQ(bxtest::stj_typed(MSG_FILTER_DNS, dns.get()),
              R"(idx=i32:0 enable=s"disable" hostnames=[] name=s"" macs=s"" action=s"Ignore" mode=s"Black")");
}

TEST(FilterRuleToJson, TextListsEndAtTheFirstEmptySlotAndFullSlotsStayInside)
{
    auto rule = zeroed<FilterUrlRule>();
    std::memset(rule->aszUrls[0], 'x', FILTER_TEXT_LEN);  // no terminator
    set_text(rule->aszUrls[1], "b");
    set_text(rule->aszUrls[3], "after a gap");
    for (auto &mac : rule->aszMacs)  // every slot full: the list ends at the array
        std::memset(mac, 'm', FILTER_TEXT_LEN);
    rule->uiMode = 9;  // no word: empty text
    std::string m32(32, 'm');
    EXPECT_EQ(bxtest::stj_typed(MSG_FILTER_URL, rule.get()),
              "idx=i32:0 enable=s\"disable\" urls=[s\"" + std::string(32, 'x') + "\" s\"b\"] name=s\"\" macs=[" +
                  repeat("s\"" + m32 + "\"", 32, " ") + "] mode=s\"\"");
}

// ---- Lists to JSON (134, 137) --------------------------------------------------------

TEST(FilterListToJson, RulesWithIndexZeroAreSkippedButCounted)
{
    auto list = zeroed<FilterUrlList>();
    list->uiCount = 3;
    list->astRule[0].uiIdx = 4;
    list->astRule[2].uiIdx = 9;
    list->astRule[2].uiMode = 1;
    list->astRule[3].uiIdx = 5;  // beyond the count
    EXPECT_EQ(bxtest::stj_typed(MSG_FILTER_URL_LIST, list.get()),
              R"(count=i32:3 list=[{idx=i32:4 enable=s"disable" urls=[] name=s"" macs=[] mode=s"Black"} )"
              R"({idx=i32:9 enable=s"disable" urls=[] name=s"" macs=[] mode=s"White"}])");

    auto dns = zeroed<FilterDnsList>();
    dns->uiCount = 2;
    dns->astRule[1].uiIdx = 1;
    dns->astRule[1].uiAction = 1;
    EXPECT_EQ(bxtest::stj_typed(MSG_FILTER_DNS_LIST, dns.get()),
              R"(count=i32:2 list=[{idx=i32:1 enable=s"disable" hostnames=[] name=s"" macs=s"" action=s"LanIp" mode=s"Black"}])");
}

TEST(FilterListToJson, CountBeyondTheRecordStopsAtItsRules)
{
    auto url = zeroed<FilterUrlList>();
    auto dns = zeroed<FilterDnsList>();
    url->uiCount = dns->uiCount = 1000;
    for (int i = 0; i < FILTER_RULE_NUM; ++i)
        url->astRule[i].uiIdx = dns->astRule[i].uiIdx = static_cast<uint32_t>(i + 1);
    for (auto [type, rec] : {std::pair<int, const void *>{MSG_FILTER_URL_LIST, url.get()}, {MSG_FILTER_DNS_LIST, dns.get()}}) {
        std::string typed = bxtest::stj_typed(type, rec);
        EXPECT_THAT(typed, testing::StartsWith("count=i32:1000 list=[{idx=i32:1 "));
        EXPECT_THAT(typed, testing::HasSubstr("{idx=i32:32 "));
        EXPECT_THAT(typed, Not(testing::HasSubstr("{idx=i32:33 ")));
    }
}

// ---- URL rule from JSON (135) ----------------------------------------------------------

TEST(FilterUrlSet, StoresAndTracesEveryKeyInPolicyOrder)
{
    BX_REQUIRE_TRACE_CAPTURE();
    auto rule = zeroed<FilterUrlRule>();
    Msg msg(R"({"timerange": [{"starttime": 3600, "endtime": 7200}, {"endtime": 86400, "starttime": 0}],
                "weekday": 31, "mode": "White", "macs": ["aa:bb:cc:dd:ee:ff"], "name": "kids",
                "urls": ["a.com", "b.org"], "enable": "enable", "idx": 3})");
    TraceCapture cap;
    EXPECT_EQ(JTS_FilterUrl_Set(msg, rule.get()), 0);
    EXPECT_THAT(cap.take_texts(),
                ElementsAre("Idx:3\n", "Enable:1\n", "Urls0:a.com\n", "Urls1:b.org\n", "Name:kids\n",
                            "Macs0:aa:bb:cc:dd:ee:ff\n", "Mode:1\n", "Weekday:31\n", "Starttime0:3600\n",
                            "Endtime0:7200\n", "Starttime1:0\n", "Endtime1:86400\n"));
    // What came in goes out the same way.
    EXPECT_EQ(bxtest::stj_typed(MSG_FILTER_URL, rule.get()), kUrlRuleTyped);
}

TEST(FilterUrlSet, OptionalKeysAreTracedWhenAbsent)
{
    BX_REQUIRE_TRACE_CAPTURE();
    auto rule = zeroed<FilterUrlRule>();
    rule->uiIdx = 8;
    TraceCapture cap;
    EXPECT_EQ(JTS_FilterUrl_Set(Msg(R"({"enable": "disable", "mode": "Black", "urls": "not a list"})"), rule.get()), 0);
    EXPECT_THAT(cap.take(), ElementsAre("JTS_CheckBlobAttr: Illegal parameter: idx\n", "JTS_FilterUrl_Set: Enable:0\n",
                                        "JTS_CheckBlobAttr: Illegal parameter: urls\n",
                                        "JTS_CheckBlobAttr: Illegal parameter: name\n",
                                        "JTS_CheckBlobAttr: Illegal parameter: macs\n", "JTS_FilterUrl_Set: Mode:0\n",
                                        "JTS_CheckBlobAttr: Illegal parameter: weekday\n",
                                        "JTS_CheckBlobAttr: Illegal parameter: timerange\n"));
    EXPECT_EQ(rule->uiIdx, 8u);
    EXPECT_EQ(rule->aszUrls[0][0], 0);
}

TEST(FilterUrlSet, RequiredKeysAndUnknownWords)
{
    BX_REQUIRE_TRACE_CAPTURE();
    struct Case {
        const char *json;
        int ret;
        const char *trace;  // a line the result must show
    };
    const Case cases[] = {
        {R"({"mode": "Black"})", -1, "Illegal parameter: enable\n"},
        {R"({"enable": "on", "mode": "Black"})", -1, "Enable:4294967295\n"},
        {R"({"enable": "enable"})", -1, "Illegal parameter: mode\n"},
        {R"({"enable": "enable", "mode": "Grey", "weekday": 3})", -1, "Mode Error\n"},
        // Neither the day mask nor the times are bounded here.
        {R"({"enable": "enable", "mode": "White", "weekday": 1000, "timerange": [{"starttime": 90000, "endtime": 99999}]})",
         0, "Endtime0:99999\n"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.json);
        auto rule = zeroed<FilterUrlRule>();
        TraceCapture cap;
        EXPECT_EQ(JTS_FilterUrl_Set(Msg(c.json), rule.get()), c.ret);
        EXPECT_THAT(cap.take_texts(), Contains(c.trace));
    }
    // An unknown "enable" is stored before the refusal.
    auto rule = zeroed<FilterUrlRule>();
    EXPECT_EQ(JTS_FilterUrl_Set(Msg(R"({"enable": "on", "mode": "Black"})"), rule.get()), -1);
    EXPECT_EQ(rule->uiEnable, kUnknown);
    // An unknown mode leaves the field as it was and stops before "weekday".
    rule->uiMode = 1;
    EXPECT_EQ(JTS_FilterUrl_Set(Msg(R"({"enable": "enable", "mode": "Grey", "weekday": 3})"), rule.get()), -1);
    EXPECT_EQ(rule->uiMode, 1u);
    EXPECT_EQ(rule->uiWeekday, 0u);
    EXPECT_EQ(rule->uiEnable, 1u);
}

TEST(FilterUrlSet, TextListsStopAtTheirSlots)
{
    auto rule = zeroed<FilterUrlRule>();
    std::memset(rule->aszUrls[1], '#', FILTER_TEXT_LEN);
    std::string url40(40, 'u');
    std::string urls = "\"a\", \"" + url40 + "\", " + repeat("\"z\"", 38);  // 40 in all
    std::string json = R"({"enable": "enable", "mode": "Black", "urls": [)" + urls + R"(], "macs": [7, "m"]})";
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_FILTER_URL, Msg(json.c_str()), rule.get()), 0);
    EXPECT_STREQ(rule->aszUrls[0], "a");
    // 31 characters and the caller's last byte.
    EXPECT_EQ(std::string(rule->aszUrls[1], FILTER_TEXT_LEN), std::string(31, 'u') + "#");
    EXPECT_STREQ(rule->aszUrls[31], "z");
    // The 33rd to 40th URLs have no slot; the name after the slots is untouched.
    EXPECT_EQ(rule->szName[0], 0);
    // A number where a text belongs stores an empty text.
    EXPECT_STREQ(rule->aszMacs[0], "");
    EXPECT_STREQ(rule->aszMacs[1], "m");
}

TEST(FilterUrlSet, AtMostThreePeriods)
{
    auto list = zeroed<FilterUrlList>();  // rule 1 follows rule 0's periods
    std::string json = R"({"enable": "enable", "mode": "Black", "timerange": [)" +
                       repeat(R"({"starttime": 1, "endtime": 2})", 5) + "]}";
    EXPECT_EQ(JTS_FilterUrl_Set(Msg(json.c_str()), &list->astRule[0]), 0);
    for (const auto &pair : list->astRule[0].astTimeRange) {
        EXPECT_EQ(pair.uiStartTime, 1u);
        EXPECT_EQ(pair.uiEndTime, 2u);
    }
    EXPECT_EQ(list->astRule[1].uiIdx, 0u);
    EXPECT_EQ(list->astRule[1].uiEnable, 0u);
}

// ---- DNS rule from JSON (138) ------------------------------------------------------------

// A valid DNS rule, with some members replaced (value) or left out (nullptr).
std::string dns_rule(std::vector<std::pair<std::string, const char *>> changes = {})
{
    std::vector<std::pair<std::string, const char *>> members = {
        {"idx", "5"},
        {"enable", R"("enable")"},
        {"hostnames", R"(["ads.example"])"},
        {"name", R"("n")"},
        {"macs", R"("11:22")"},
        {"action", R"("LanIp")"},
        {"mode", R"("White")"},
        {"weekday", "127"},
        {"timerange", R"([{"starttime": 0, "endtime": 86400}])"},
    };
    for (const auto &[key, value] : changes)
        for (auto &m : members)
            if (m.first == key)
                m.second = value;
    std::string out = "{";
    for (const auto &[key, value] : members)
        if (value != nullptr)
            out += (out.size() > 1 ? ", \"" : "\"") + key + "\": " + value;
    return out + "}";
}

TEST(FilterDnsSet, StoresAndTracesEveryKey)
{
    BX_REQUIRE_TRACE_CAPTURE();
    auto rule = zeroed<FilterDnsRule>();
    TraceCapture cap;
    EXPECT_EQ(JTS_FilterDns_Set(Msg(dns_rule().c_str()), rule.get()), 0);
    EXPECT_THAT(cap.take_texts(), ElementsAre("Idx:5\n", "Enable:1\n", "Host Name0:ads.example\n", "Name:n\n",
                                              "Mac:11:22\n", "Action:1\n", "Mode:1\n", "Weekday:127\n",
                                              "Starttime0:0\n", "Endtime0:86400\n"));
    EXPECT_EQ(bxtest::stj_typed(MSG_FILTER_DNS, rule.get()),
              R"(idx=i32:5 enable=s"enable" hostnames=[s"ads.example"] name=s"n" macs=s"11:22" action=s"LanIp" )"
              R"(mode=s"White" weekday=i32:127 timerange=[{starttime=i32:0 endtime=i32:86400}])");
}

TEST(FilterDnsSet, RangeTestsRunAfterStoring)
{
    BX_REQUIRE_TRACE_CAPTURE();
    struct Case {
        std::vector<std::pair<std::string, const char *>> changes;
        int ret;
        uint32_t FilterDnsRule::*field;  // the field the message stored last
        uint32_t stored;
        const char *trace;  // a line the result must show, or nullptr
    };
    const Case cases[] = {
        {{{"idx", "17"}}, -1, &FilterDnsRule::uiIdx, 17, "Idx:17\n"},
        {{{"idx", "16"}}, 0, &FilterDnsRule::uiIdx, 16, nullptr},
        {{{"enable", R"("yes")"}}, -1, &FilterDnsRule::uiEnable, kUnknown, nullptr},
        {{{"enable", nullptr}}, -1, &FilterDnsRule::uiEnable, 0, "Illegal parameter: enable\n"},
        {{{"action", nullptr}}, -1, &FilterDnsRule::uiAction, 0, "Illegal parameter: action\n"},
        {{{"action", R"("Drop")"}}, 0, &FilterDnsRule::uiAction, kUnknown, nullptr},
        {{{"mode", nullptr}}, -1, &FilterDnsRule::uiMode, 0, "Illegal parameter: mode\n"},
        // Unlike the URL rule, an unknown mode is stored as -1 and taken.
        {{{"mode", R"("Grey")"}}, 0, &FilterDnsRule::uiMode, kUnknown, nullptr},
        {{{"weekday", nullptr}}, -1, &FilterDnsRule::uiWeekday, 0, "Illegal parameter: weekday\n"},
        {{{"weekday", "128"}}, -1, &FilterDnsRule::uiWeekday, 128, "Weekday:128\n"},
        {{{"timerange", nullptr}}, 0, &FilterDnsRule::uiWeekday, 127, "Illegal parameter: timerange\n"},
        {{{"timerange", R"([{"starttime": 0, "endtime": 86401}])"}}, -1, nullptr, 0, "err time\n"},
        {{{"timerange", R"([{"starttime": 86401, "endtime": 1}])"}}, -1, nullptr, 0, "err time\n"},
    };
    for (const Case &c : cases) {
        std::string json = dns_rule(c.changes);
        SCOPED_TRACE(json);
        auto rule = zeroed<FilterDnsRule>();
        TraceCapture cap;
        EXPECT_EQ(JTS_FilterDns_Set(Msg(json.c_str()), rule.get()), c.ret);
        if (c.field != nullptr) {
            EXPECT_EQ((*rule).*c.field, c.stored);
        }
        if (c.trace != nullptr) {
            EXPECT_THAT(cap.take_texts(), Contains(c.trace));
        }
    }
    // A refused period stays stored, and nothing after it is read.
    auto rule = zeroed<FilterDnsRule>();
    std::string json = dns_rule({{"timerange", R"([{"starttime": 1, "endtime": 86401}, {"starttime": 2, "endtime": 3}])"}});
    EXPECT_EQ(JTS_FilterDns_Set(Msg(json.c_str()), rule.get()), -1);
    EXPECT_EQ(rule->astTimeRange[0].uiStartTime, 1u);
    EXPECT_EQ(rule->astTimeRange[0].uiEndTime, 86401u);
    EXPECT_EQ(rule->astTimeRange[1].uiStartTime, 0u);
}

TEST(FilterDnsSet, MacFillsTheWholeFieldAndGoesOutBounded)
{
    auto rule = zeroed<FilterDnsRule>();
    std::string mac(40, 'c');
    EXPECT_EQ(JTS_FilterDns_Set(Msg(dns_rule({{"macs", ("\"" + mac + "\"").c_str()}}).c_str()), rule.get()), 0);
    EXPECT_EQ(std::string(rule->szMacs, sizeof rule->szMacs), std::string(32, 'c'));
    EXPECT_EQ(rule->uiAction, 1u);  // the next field is untouched by the copy
    EXPECT_THAT(bxtest::stj_typed(MSG_FILTER_DNS, rule.get()), testing::HasSubstr(" macs=s\"" + std::string(32, 'c') + "\" "));
}

TEST(FilterDnsSet, UnterminatedNameInTheRecordIsRefused)
{
    BX_REQUIRE_TRACE_CAPTURE();
    // The copy stops at 31 characters; a long name in a record that the
    // caller did not zero is left with no terminator, which the length test
    // catches. A short name is padded with zeros and passes.
    auto rule = zeroed<FilterDnsRule>();
    std::memset(rule->szName, 'x', sizeof rule->szName);
    rule->szMacs[0] = 'y';
    EXPECT_EQ(JTS_FilterDns_Set(Msg(dns_rule().c_str()), rule.get()), 0);
    std::memset(rule->szName, 'x', sizeof rule->szName);
    rule->szMacs[0] = 'y';
    rule->uiAction = 0;
    std::string name = "\"" + std::string(31, 'n') + "\"";
    TraceCapture cap;
    EXPECT_EQ(JTS_FilterDns_Set(Msg(dns_rule({{"name", name.c_str()}}).c_str()), rule.get()), -1);
    auto texts = cap.take_texts();
    ASSERT_GE(texts.size(), 2u);
    EXPECT_EQ(texts.back(), "out nmd fsl\n");
    EXPECT_EQ(rule->uiAction, 0u);
}

// ---- Lists from JSON (134, 137) --------------------------------------------------------------

TEST(FilterListFromJson, AtMostThirtyTwoRulesAndCountDoesNotBound)
{
    BX_REQUIRE_TRACE_CAPTURE();
    std::string json = R"({"count": 2, "list": [)" + repeat(R"({"idx": 1, "weekday": 2})", 40) + "]}";
    Msg msg(json.c_str());
    auto url = zeroed<FilterUrlList>();
    auto dns = zeroed<FilterDnsList>();
    TraceCapture cap;
    cap.set_enabled(false);
    EXPECT_EQ(JTS_FilterUrl_Get(msg, url.get()), 0);
    EXPECT_EQ(JTS_FilterDns_Get(msg, dns.get()), 0);
    EXPECT_EQ(url->uiCount, 2u);
    EXPECT_EQ(dns->uiCount, 2u);
    for (int i = 0; i < FILTER_RULE_NUM; ++i) {
        EXPECT_EQ(url->astRule[i].uiWeekday, 2u) << i;
        EXPECT_EQ(dns->astRule[i].uiWeekday, 2u) << i;
    }
    // Only the URL list says why it stops.
    cap.set_enabled(true);
    EXPECT_EQ(JTS_FilterUrl_Get(msg, url.get()), 0);
    auto lines = cap.take();
    EXPECT_EQ(lines.back(), "JTS_FilterUrl_Get: NULL == cur idx = 32\n");
    EXPECT_EQ(JTS_FilterDns_Get(msg, dns.get()), 0);
    EXPECT_THAT(cap.take_texts(), Not(Contains(testing::StartsWith("NULL == cur"))));
}

TEST(FilterListFromJson, UnknownModeRefusesTheUrlListButNotTheDnsList)
{
    Msg msg(R"({"list": [{"idx": 1, "mode": "White"}, {"idx": 2, "name": "x", "mode": "Grey", "weekday": 3},
                         {"idx": 3}]})");
    auto url = zeroed<FilterUrlList>();
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_FILTER_URL_LIST, msg, url.get()), -1);
    EXPECT_EQ(url->astRule[0].uiMode, 1u);
    EXPECT_EQ(url->astRule[1].uiIdx, 2u);  // filled up to the mode
    EXPECT_STREQ(url->astRule[1].szName, "x");
    EXPECT_EQ(url->astRule[1].uiMode, 0u);
    EXPECT_EQ(url->astRule[1].uiWeekday, 0u);
    EXPECT_EQ(url->astRule[2].uiIdx, 0u);

    auto dns = zeroed<FilterDnsList>();
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_FILTER_DNS_LIST, msg, dns.get()), 0);
    EXPECT_EQ(dns->astRule[1].uiMode, kUnknown);
    EXPECT_EQ(dns->astRule[1].uiWeekday, 3u);
    EXPECT_EQ(dns->astRule[2].uiIdx, 3u);
}

// The trace lines of the last rule of a list.
std::vector<std::string> last_lines(std::vector<std::string> texts, size_t n)
{
    return n <= texts.size() ? std::vector<std::string>(texts.end() - static_cast<long>(n), texts.end()) : texts;
}

TEST(FilterListFromJson, TracesNameTheRuleAndSlot)
{
    BX_REQUIRE_TRACE_CAPTURE();
    Msg url_msg(R"({"count": 9, "list": [{}, {"idx": 7, "enable": "enable", "urls": ["u"], "name": "n",
                    "macs": ["m0", "m1"], "mode": "White", "weekday": 4,
                    "timerange": [{"starttime": 1, "endtime": 2}]}]})");
    auto url = zeroed<FilterUrlList>();
    TraceCapture cap;
    EXPECT_EQ(JTS_FilterUrl_Get(url_msg, url.get()), 0);
    auto texts = cap.take_texts();
    EXPECT_EQ(texts.front(), "count: 9\n");
    const std::vector<std::string> url_rule = {"Idx:7\n", "Enable:1\n", "List[1]Urls0:u\n", "Name:n\n",
                                               "List[1]Macs0:m0\n", "List[1]Macs1:m1\n", "Mode:1\n", "Weekday:4\n",
                                               "List[1]Starttime0:1\n", "List[1]Endtime0:2\n"};
    EXPECT_THAT(last_lines(texts, url_rule.size()), ElementsAreArray(url_rule));

    Msg dns_msg(R"({"list": [{"idx": 1}, {"idx": 4, "enable": "disable", "hostnames": ["h"], "name": "n",
                              "macs": "aa", "action": "Ban", "mode": "Grey", "weekday": 3,
                              "timerange": [{"starttime": 5, "endtime": 6}]}]})");
    auto dns = zeroed<FilterDnsList>();
    EXPECT_EQ(JTS_FilterDns_Get(dns_msg, dns.get()), 0);
    // Host names carry the URL list's label; unknown words print as -1.
    const std::vector<std::string> dns_rule = {"Idx:4\n", "Enable:0\n", "List[1]Urls0:h\n", "Name:n\n", "Macs:aa\n",
                                               "Action:-1\n", "Mode:-1\n", "Weekday:3\n", "List[1]Starttime0:5\n",
                                               "List[1]Endtime0:6\n"};
    EXPECT_THAT(last_lines(cap.take_texts(), dns_rule.size()), ElementsAreArray(dns_rule));
}

TEST(FilterListFromJson, OddElementsTakeARuleEach)
{
    // A number or a text where a rule belongs fills nothing but uses a
    // rule's place; without "list" nothing is read.
    auto url = zeroed<FilterUrlList>();
    EXPECT_EQ(JTS_FilterUrl_Get(Msg(R"({"list": [1, "x", {"idx": 5}]})"), url.get()), 0);
    EXPECT_EQ(url->astRule[0].uiIdx, 0u);
    EXPECT_EQ(url->astRule[1].uiIdx, 0u);
    EXPECT_EQ(url->astRule[2].uiIdx, 5u);
    url->uiCount = 6;
    EXPECT_EQ(JTS_FilterUrl_Get(Msg(R"({"list": {"a": {"idx": 1}}, "count": 3})"), url.get()), 0);
    EXPECT_EQ(url->uiCount, 3u);
    EXPECT_EQ(url->astRule[0].uiIdx, 0u);
}

TEST(FilterListFromJson, MalformedElementEndsTheWalk)
{
    bxtest::Buf buf;
    void *list = blobmsg_open_array(buf.get(), "list");
    for (uint32_t idx : {1u, 2u}) {
        void *rule = blobmsg_open_table(buf.get(), nullptr);
        blobmsg_add_u32(buf.get(), "idx", idx);
        blob_nest_end(buf.get(), rule);
    }
    blob_nest_end(buf.get(), list);
    // The second rule claims more bytes than the list holds.
    blob_attr *array = static_cast<blob_attr *>(blob_data(buf.head()));
    blob_attr *first = static_cast<blob_attr *>(blobmsg_data(array));
    blob_attr *second = blob_next(first);
    second->id_len = htonl((ntohl(second->id_len) & ~uint32_t{BLOB_ATTR_LEN_MASK}) | 0x1000);
    auto rules = zeroed<FilterDnsList>();
    EXPECT_EQ(JTS_FilterDns_Get(buf.head(), rules.get()), 0);
    EXPECT_EQ(rules->astRule[0].uiIdx, 1u);
    EXPECT_EQ(rules->astRule[1].uiIdx, 0u);
}

TEST(FilterListFromJson, ElementParseNeverLeavesTheMessage)
{
    // A rule is parsed over its payload, name header included: for a named
    // last rule that span reaches past the message. The message is copied
    // into memory of exactly its size so that a sanitizer build sees any
    // read beyond it.
    bxtest::Buf buf;
    void *list = blobmsg_open_array(buf.get(), "list");
    void *rule = blobmsg_open_table(buf.get(), "a-long-element-name-for-the-rule");
    blobmsg_add_u32(buf.get(), "idx", 6);
    void *times = blobmsg_open_array(buf.get(), "timerange");
    void *pair = blobmsg_open_table(buf.get(), "another-rather-long-name");
    blobmsg_add_u32(buf.get(), "endtime", 9);
    blob_nest_end(buf.get(), pair);
    blob_nest_end(buf.get(), times);
    blob_nest_end(buf.get(), rule);
    blob_nest_end(buf.get(), list);
    std::vector<char> exact(blob_raw_len(buf.head()));
    std::memcpy(exact.data(), buf.head(), exact.size());
    auto *msg = reinterpret_cast<blob_attr *>(exact.data());

    auto url = zeroed<FilterUrlList>();
    EXPECT_EQ(JTS_FilterUrl_Get(msg, url.get()), 0);
    EXPECT_EQ(url->astRule[0].uiIdx, 6u);
    EXPECT_EQ(url->astRule[0].astTimeRange[0].uiEndTime, 9u);
    auto dns = zeroed<FilterDnsList>();
    EXPECT_EQ(JTS_FilterDns_Get(msg, dns.get()), 0);
    EXPECT_EQ(dns->astRule[0].uiIdx, 6u);
}

// ---- Replies (136, 139) --------------------------------------------------------------------

TEST(FilterReply, IndexBothWaysAndMissingIndexIsNoFailure)
{
    BX_REQUIRE_TRACE_CAPTURE();
    const std::pair<int, JsonToStructFunc> replies[] = {{MSG_FILTER_URL_REPLY, JTS_FilterUrl_Set_Reply},
                                                        {MSG_FILTER_DNS_REPLY, JTS_FilterDns_Set_Reply}};
    for (const auto &[type, jts] : replies) {
        SCOPED_TRACE(type);
        FilterReply rec{7};
        EXPECT_EQ(bxtest::stj_typed(type, &rec), "idx=i32:7");
        rec.uiIdx = 9;
        TraceCapture cap;
        EXPECT_EQ(jts(Msg(R"({"idx": "3"})"), &rec), 0);
        EXPECT_EQ(rec.uiIdx, 9u);
        EXPECT_EQ(jts(Msg(R"({"idx": -2})"), &rec), 0);
        EXPECT_EQ(rec.uiIdx, 0xFFFFFFFEu);
        EXPECT_THAT(cap.take_texts(), ElementsAre("Illegal parameter: idx\n", "Idx:-2\n"));
    }
}

// ---- Through the blobxlate program -----------------------------------------------------------

TEST(FilterTool, UrlRuleRoundTrip)
{
    bxtest::ToolResult res;
    if (!bxtest::run_tool(MSG_FILTER_URL,
                          R"({"idx": 3, "enable": "enable", "urls": ["a.com"], "name": "kids", "macs": ["aa"],
                              "mode": "White", "weekday": 31, "timerange": [{"starttime": 3600, "endtime": 7200}]})",
                          res))
        GTEST_SKIP() << "blobxlate program not built";
    EXPECT_EQ(res.exit_code, 0);
    EXPECT_EQ(res.out, "JSON_TRANS_STRUCT: 0\nSTRUCT_TRANS_JSON: 0\n{\n\t\"idx\": 3,\n\t\"enable\": \"enable\",\n"
                       "\t\"urls\": [\n\t\t\"a.com\"\n\t],\n\t\"name\": \"kids\",\n\t\"macs\": [\n\t\t\"aa\"\n\t],\n"
                       "\t\"mode\": \"White\",\n\t\"weekday\": 31,\n\t\"timerange\": [\n\t\t{\n\t\t\t\"starttime\": 3600,\n"
                       "\t\t\t\"endtime\": 7200\n\t\t}\n\t]\n}\n");
    ASSERT_TRUE(bxtest::run_tool(MSG_FILTER_URL, R"({"enable": "enable", "mode": "Grey"})", res));
    EXPECT_EQ(res.exit_code, 1);
    EXPECT_THAT(res.out, testing::StartsWith("JSON_TRANS_STRUCT: -1\nSTRUCT_TRANS_JSON: 0\n"));
}

TEST(FilterTool, DnsListRoundTripDropsRulesWithoutIndex)
{
    bxtest::ToolResult res;
    if (!bxtest::run_tool(MSG_FILTER_DNS_LIST,
                          R"({"count": 2, "list": [{"idx": 0, "name": "gone"},
                                                   {"idx": 4, "enable": "enable", "hostnames": ["h"], "macs": "aa",
                                                    "action": "NameError", "mode": "Black"}]})",
                          res))
        GTEST_SKIP() << "blobxlate program not built";
    EXPECT_EQ(res.exit_code, 0);
    EXPECT_EQ(res.out, "JSON_TRANS_STRUCT: 0\nSTRUCT_TRANS_JSON: 0\n{\n\t\"count\": 2,\n\t\"list\": [\n\t\t{\n"
                       "\t\t\t\"idx\": 4,\n\t\t\t\"enable\": \"enable\",\n\t\t\t\"hostnames\": [\n\t\t\t\t\"h\"\n\t\t\t],\n"
                       "\t\t\t\"name\": \"\",\n\t\t\t\"macs\": \"aa\",\n\t\t\t\"action\": \"NameError\",\n"
                       "\t\t\t\"mode\": \"Black\"\n\t\t}\n\t]\n}\n");
}

} // namespace
