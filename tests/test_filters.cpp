// URL and DNS filters: the switch, the rules, their lists and the replies.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "support.h"

using bxtest::Msg;
using bxtest::TraceCapture;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

constexpr uint32_t kUnknown = 0xFFFFFFFFu;

// Records are large (a URL list is about 66 KiB) and zeroed, as callers pass them.
template <typename T>
std::unique_ptr<T> zeroed() { return std::make_unique<T>(); }

std::string repeat(const std::string &item, int n, const char *sep = ", ")
{
    std::string out;
    for (int i = 0; i < n; ++i)
        out += (i != 0 ? sep : "") + item;
    return out;
}

// The last n trace texts.
std::vector<std::string> tail(std::vector<std::string> texts, size_t n)
{
    return std::vector<std::string>(texts.end() - static_cast<long>(std::min(n, texts.size())), texts.end());
}

int row_of(const MessageTransEntry *table, int count, int type)
{
    int i = 0;
    while (i < count && table[i].id != type)
        ++i;
    return i;
}

TEST(Filters, RowsOfBothTablesAndNullArguments)
{
    struct Rows {
        int type;
        const char *stj_name;
        StructToJsonFunc stj;
        const char *jts_name;
        JsonToStructFunc jts;
    };
    // The name texts repeat: only the number tells the rows apart.
    const Rows rows[] = {
        {132, "FilterUrl", STJ_FilterUrl_Switch, "FilterUrl", JTS_FilterUrl_Switch},
        {134, "FilterUrl_List", STJ_FilterUrl_List, "FilterUrl", JTS_FilterUrl_Get},
        {135, "FilterUrl", STJ_FilterUrl_Set, "FilterUrl", JTS_FilterUrl_Set},
        {136, "FilterUrl_Reply", STJ_FilterUrl_Reply, "FilterUrlReply", JTS_FilterUrl_Set_Reply},
        {137, "FilterDns_List", STJ_FilterDns_List, "FilterDns", JTS_FilterDns_Get},
        {138, "FilterDns", STJ_FilterDns_Set, "FilterDns", JTS_FilterDns_Set},
        {139, "FilterDns_Reply", STJ_FilterDns_Reply, "FilterDnsReply", JTS_FilterDns_Set_Reply},
    };
    auto list = zeroed<FilterUrlList>();
    Msg msg(R"({"idx": 1, "enable": "enable", "mode": "Black", "action": "Ignore", "weekday": 0, "status": "enable"})");
    bxtest::Buf buf;
    for (const Rows &r : rows) {
        SCOPED_TRACE(r.type);
        int s = row_of(g_astStructToJson_Func, g_iStructToJson_FuncNum, r.type);
        int j = row_of(g_astJsonToStruct_Func, g_iJsonToStruct_FuncNum, r.type);
        ASSERT_LT(s, g_iStructToJson_FuncNum);
        ASSERT_LT(j, g_iJsonToStruct_FuncNum);
        EXPECT_STREQ(g_astStructToJson_Func[s].name, r.stj_name);
        EXPECT_EQ(g_astStructToJson_Func[s].converter.toJson, r.stj);
        EXPECT_STREQ(g_astJsonToStruct_Func[j].name, r.jts_name);
        EXPECT_EQ(g_astJsonToStruct_Func[j].converter.toStruct, r.jts);
        EXPECT_EQ(r.stj(nullptr, buf.get()), -1);
        EXPECT_EQ(r.stj(list.get(), nullptr), -1);
        EXPECT_EQ(r.jts(nullptr, list.get()), -1);
        EXPECT_EQ(r.jts(msg, nullptr), -1);
    }
    EXPECT_EQ(buf.typed(), "");
}

TEST(FilterSwitch, SentUnderIdxReceivedUnderStatusUnknownWordStoredThenRefused)
{
    BX_REQUIRE_TRACE_CAPTURE();
    FilterSwitch rec{1};
    EXPECT_EQ(bxtest::stj_typed(MSG_FILTER_URL_SWITCH, &rec), "idx=s\"enable\"");
    TraceCapture cap;
    EXPECT_EQ(JTS_FilterUrl_Switch(Msg(R"({"idx": "disable"})"), &rec), -1);
    EXPECT_EQ(rec.uiStatus, 1u);
    EXPECT_EQ(JTS_FilterUrl_Switch(Msg(R"({"status": "disable"})"), &rec), 0);
    EXPECT_EQ(rec.uiStatus, 0u);
    EXPECT_EQ(JTS_FilterUrl_Switch(Msg(R"({"status": "on"})"), &rec), -1);
    EXPECT_EQ(rec.uiStatus, kUnknown);
    EXPECT_THAT(cap.take(), ElementsAre("JTS_CheckBlobAttr: Illegal parameter: status\n",
                                        "JTS_FilterUrl_Switch: Status:0\n", "JTS_FilterUrl_Switch: Status:-1\n"));
}

// ---- To JSON ------------------------------------------------------------------

const char kUrlRuleJson[] =
    R"({"idx": 3, "enable": "enable", "urls": ["a.com", "b.org"], "name": "kids", "macs": ["aa:bb"], "mode": "White",
        "weekday": 31, "timerange": [{"starttime": 3600, "endtime": 7200}, {"starttime": 0, "endtime": 86400},
                                     {"starttime": 5, "endtime": 0}]})";
const char kUrlRuleTyped[] =
    R"(idx=i32:3 enable=s"enable" urls=[s"a.com" s"b.org"] name=s"kids" macs=[s"aa:bb"] mode=s"White" weekday=i32:31 )"
    R"(timerange=[{starttime=i32:3600 endtime=i32:7200} {starttime=i32:0 endtime=i32:86400}])";

TEST(FilterToJson, RulesStopAtEmptySlotsAndUnusedPeriodsAndOmitAnUnusedSchedule)
{
    auto url = zeroed<FilterUrlRule>();
    ASSERT_EQ(JTS_FilterUrl_Set(Msg(kUrlRuleJson), url.get()), 0);
    EXPECT_EQ(bxtest::stj_typed(MSG_FILTER_URL, url.get()), kUrlRuleTyped);
    url->uiWeekday = 0;
    EXPECT_EQ(bxtest::stj_typed(MSG_FILTER_URL, url.get()),
              R"(idx=i32:3 enable=s"enable" urls=[s"a.com" s"b.org"] name=s"kids" macs=[s"aa:bb"] mode=s"White")");

    // Full slots (no terminator) go out as their 32 bytes; a gap ends a list.
    auto gaps = zeroed<FilterUrlRule>();
    std::memset(gaps->aszUrls[0], 'x', FILTER_TEXT_LEN);
    std::strcpy(gaps->aszUrls[2], "after a gap");
    std::memset(gaps->aszMacs, 'm', sizeof gaps->aszMacs);
    gaps->uiMode = 9;  // no word
    EXPECT_EQ(bxtest::stj_typed(MSG_FILTER_URL, gaps.get()),
              "idx=i32:0 enable=s\"disable\" urls=[s\"" + std::string(32, 'x') + "\"] name=s\"\" macs=[" +
                  repeat("s\"" + std::string(32, 'm') + "\"", 32, " ") + "] mode=s\"\"");

    auto dns = zeroed<FilterDnsRule>();
    std::strcpy(dns->aszHostnames[0], "ads.example");
    std::memset(dns->szMacs, 'c', sizeof dns->szMacs);
    dns->uiAction = 2;
    dns->uiWeekday = 1;
    dns->astTimeRange[0] = {10, 20};
    dns->astTimeRange[1] = {30, 40};
    dns->astTimeRange[2] = {50, 60};
    EXPECT_EQ(bxtest::stj_typed(MSG_FILTER_DNS, dns.get()),
              R"(idx=i32:0 enable=s"disable" hostnames=[s"ads.example"] name=s"" macs=s")" + std::string(32, 'c') +
                  R"(" action=s"NameError" mode=s"Black" weekday=i32:1 timerange=[{starttime=i32:10 endtime=i32:20} )"
                  R"({starttime=i32:30 endtime=i32:40} {starttime=i32:50 endtime=i32:60}])");
}

TEST(FilterToJson, ListsSkipIndexZeroCountItAndStopAtTheRecord)
{
    auto url = zeroed<FilterUrlList>();
    url->uiCount = 3;
    url->astRule[0].uiIdx = 4;
    url->astRule[2].uiIdx = 9;
    url->astRule[3].uiIdx = 5;  // beyond the count
    EXPECT_EQ(bxtest::stj_typed(MSG_FILTER_URL_LIST, url.get()),
              R"(count=i32:3 list=[{idx=i32:4 enable=s"disable" urls=[] name=s"" macs=[] mode=s"Black"} )"
              R"({idx=i32:9 enable=s"disable" urls=[] name=s"" macs=[] mode=s"Black"}])");

    auto dns = zeroed<FilterDnsList>();
    dns->uiCount = 1000;
    for (uint32_t i = 0; i < FILTER_RULE_NUM; ++i)
        dns->astRule[i].uiIdx = i + 1;
    std::string typed = bxtest::stj_typed(MSG_FILTER_DNS_LIST, dns.get());
    EXPECT_THAT(typed, testing::StartsWith(
                           R"(count=i32:1000 list=[{idx=i32:1 enable=s"disable" hostnames=[] name=s"" macs=s"" action=s"Ignore" mode=s"Black"} )"));
    EXPECT_THAT(typed, HasSubstr("{idx=i32:32 "));
    EXPECT_THAT(typed, testing::Not(HasSubstr("{idx=i32:33 ")));
}

// ---- Rules from JSON ------------------------------------------------------------

TEST(FilterUrlSet, TracesRequiredKeysAndModeError)
{
    BX_REQUIRE_TRACE_CAPTURE();
    auto rule = zeroed<FilterUrlRule>();
    TraceCapture cap;
    EXPECT_EQ(JTS_FilterUrl_Set(Msg(kUrlRuleJson), rule.get()), 0);
    EXPECT_THAT(cap.take_texts(), ElementsAre("Idx:3\n", "Enable:1\n", "Urls0:a.com\n", "Urls1:b.org\n", "Name:kids\n",
                                              "Macs0:aa:bb\n", "Mode:1\n", "Weekday:31\n", "Starttime0:3600\n",
                                              "Endtime0:7200\n", "Starttime1:0\n", "Endtime1:86400\n",
                                              "Starttime2:5\n", "Endtime2:0\n"));
    struct Case {
        const char *json;
        int ret;
        std::vector<std::string> traces;
    };
    const Case cases[] = {
        {R"({"mode": "Black"})", -1, {"Illegal parameter: idx\n", "Illegal parameter: enable\n"}},
        {R"({"enable": "on", "idx": 1})", -1, {"Idx:1\n", "Enable:4294967295\n"}},
        {R"({"enable": "disable", "urls": "a.com"})", -1,
         {"Illegal parameter: idx\n", "Enable:0\n", "Illegal parameter: urls\n", "Illegal parameter: name\n",
          "Illegal parameter: macs\n", "Illegal parameter: mode\n"}},
        {R"({"idx": 1, "enable": "enable", "mode": "Grey", "weekday": 3})", -1,
         {"Idx:1\n", "Enable:1\n", "Illegal parameter: urls\n", "Illegal parameter: name\n",
          "Illegal parameter: macs\n", "Mode Error\n"}},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.json);
        auto r = zeroed<FilterUrlRule>();
        r->uiMode = 1;
        EXPECT_EQ(JTS_FilterUrl_Set(Msg(c.json), r.get()), c.ret);
        EXPECT_EQ(cap.take_texts(), c.traces);
        EXPECT_EQ(r->uiMode, 1u);  // an unknown mode is not stored
    }
}

TEST(FilterUrlSet, UnboundedValuesAndBoundedTextsAndPeriods)
{
    auto list = zeroed<FilterUrlList>();  // rule 1 lies just after rule 0
    FilterUrlRule &rule = list->astRule[0];
    std::memset(rule.aszUrls[1], '#', FILTER_TEXT_LEN);
    std::string json = R"({"enable": "enable", "mode": "White", "weekday": 1000, "urls": ["a", ")" +
                       std::string(40, 'u') + "\", " + repeat("\"z\"", 38) + R"(], "macs": [7, "m"], "timerange": [)" +
                       repeat(R"({"starttime": 90000, "endtime": 99999})", 5) + "]}";
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_FILTER_URL, Msg(json.c_str()), &rule), 0);
    EXPECT_EQ(rule.uiWeekday, 1000u);
    EXPECT_EQ(std::string(rule.aszUrls[1], FILTER_TEXT_LEN), std::string(31, 'u') + "#");  // caller's last byte
    EXPECT_STREQ(rule.aszUrls[31], "z");
    EXPECT_EQ(rule.szName[0], 0);          // URLs 33 to 40 have no slot
    EXPECT_STREQ(rule.aszMacs[0], "");     // a number where a text belongs
    EXPECT_STREQ(rule.aszMacs[1], "m");
    EXPECT_EQ(rule.astTimeRange[2].uiEndTime, 99999u);
    EXPECT_EQ(list->astRule[1].uiIdx, 0u);  // periods 4 and 5 have no place
}

// A valid DNS rule with members replaced, or left out (nullptr).
std::string dns_rule(std::vector<std::pair<std::string, const char *>> changes = {})
{
    std::vector<std::pair<std::string, const char *>> members = {
        {"idx", "5"}, {"enable", R"("enable")"}, {"hostnames", R"(["h.example"])"}, {"name", R"("n")"},
        {"macs", R"("11:22")"}, {"action", R"("LanIp")"}, {"mode", R"("White")"}, {"weekday", "127"},
        {"timerange", R"([{"starttime": 0, "endtime": 86400}])"}};
    std::string out;
    for (auto &[key, value] : members) {
        for (const auto &change : changes)
            if (change.first == key)
                value = change.second;
        if (value != nullptr)
            out += (out.empty() ? "{\"" : ", \"") + key + "\": " + value;
    }
    return out + "}";
}

TEST(FilterDnsSet, RangeTestsRunAfterStoring)
{
    BX_REQUIRE_TRACE_CAPTURE();
    auto full = zeroed<FilterDnsRule>();
    TraceCapture cap;
    EXPECT_EQ(JTS_FilterDns_Set(Msg(dns_rule().c_str()), full.get()), 0);
    EXPECT_THAT(cap.take_texts(), ElementsAre("Idx:5\n", "Enable:1\n", "Host Name0:h.example\n", "Name:n\n", "Mac:11:22\n",
                                              "Action:1\n", "Mode:1\n", "Weekday:127\n", "Starttime0:0\n",
                                              "Endtime0:86400\n"));
    struct Case {
        const char *key, *value;
        int ret;
        uint32_t FilterDnsRule::*field;
        uint32_t stored;
        const char *last_trace;
    };
    const Case cases[] = {
        {"idx", "17", -1, &FilterDnsRule::uiIdx, 17, "Idx:17\n"},
        {"idx", "16", 0, &FilterDnsRule::uiIdx, 16, "Endtime0:86400\n"},
        {"enable", R"("yes")", -1, &FilterDnsRule::uiEnable, kUnknown, "Enable:4294967295\n"},
        {"enable", nullptr, -1, &FilterDnsRule::uiEnable, 0, "Illegal parameter: enable\n"},
        {"action", nullptr, -1, &FilterDnsRule::uiAction, 0, "Illegal parameter: action\n"},
        {"action", R"("Drop")", 0, &FilterDnsRule::uiAction, kUnknown, "Endtime0:86400\n"},
        {"mode", nullptr, -1, &FilterDnsRule::uiMode, 0, "Illegal parameter: mode\n"},
        {"mode", R"("Grey")", 0, &FilterDnsRule::uiMode, kUnknown, "Endtime0:86400\n"},  // unlike the URL rule
        {"weekday", nullptr, -1, &FilterDnsRule::uiWeekday, 0, "Illegal parameter: weekday\n"},
        {"weekday", "128", -1, &FilterDnsRule::uiWeekday, 128, "Weekday:128\n"},
        {"timerange", nullptr, 0, &FilterDnsRule::uiWeekday, 127, "Illegal parameter: timerange\n"},
        {"timerange", R"([{"starttime": 1, "endtime": 86401}, {"starttime": 2, "endtime": 3}])", -1, nullptr, 0,
         "err time\n"},
        {"timerange", R"([{"starttime": 86401, "endtime": 1}])", -1, nullptr, 0, "err time\n"},
    };
    for (const Case &c : cases) {
        std::string json = dns_rule({{c.key, c.value}});
        SCOPED_TRACE(json);
        auto rule = zeroed<FilterDnsRule>();
        EXPECT_EQ(JTS_FilterDns_Set(Msg(json.c_str()), rule.get()), c.ret);
        EXPECT_EQ(tail(cap.take_texts(), 1), std::vector<std::string>{c.last_trace});
        if (c.field != nullptr) {
            EXPECT_EQ((*rule).*c.field, c.stored);
        } else {
            EXPECT_EQ(rule->astTimeRange[0].uiEndTime + rule->astTimeRange[0].uiStartTime, 86402u);
            EXPECT_EQ(rule->astTimeRange[1].uiEndTime, 0u);
        }
    }
}

TEST(FilterDnsSet, MacFillsTheWholeFieldAndAnUnterminatedNameIsRefused)
{
    BX_REQUIRE_TRACE_CAPTURE();
    auto rule = zeroed<FilterDnsRule>();
    std::string mac = "\"" + std::string(40, 'c') + "\"";
    EXPECT_EQ(JTS_FilterDns_Set(Msg(dns_rule({{"macs", mac.c_str()}}).c_str()), rule.get()), 0);
    EXPECT_EQ(std::string(rule->szMacs, sizeof rule->szMacs), std::string(32, 'c'));
    EXPECT_EQ(rule->uiAction, 1u);

    // A long name fills 31 bytes; in a record the caller did not zero, the
    // last byte and the next field then leave it without a terminator.
    auto dirty = zeroed<FilterDnsRule>();
    std::memset(dirty->szName, 'x', sizeof dirty->szName);
    dirty->szMacs[0] = 'y';
    std::string name = "\"" + std::string(31, 'n') + "\"";
    TraceCapture cap;
    EXPECT_EQ(JTS_FilterDns_Set(Msg(dns_rule({{"name", name.c_str()}}).c_str()), dirty.get()), -1);
    EXPECT_EQ(tail(cap.take_texts(), 1), std::vector<std::string>{"out nmd fsl\n"});
    EXPECT_EQ(dirty->uiAction, 0u);
}

// ---- Lists from JSON --------------------------------------------------------------

TEST(FilterListFromJson, AtMostThirtyTwoRulesWhateverTheCount)
{
    BX_REQUIRE_TRACE_CAPTURE();
    Msg msg((R"({"count": 2, "list": [1, )" + repeat(R"({"idx": 1, "weekday": 2})", 39) + "]}").c_str());
    auto url = zeroed<FilterUrlList>();
    auto dns = zeroed<FilterDnsList>();
    TraceCapture cap;
    EXPECT_EQ(JTS_FilterUrl_Get(msg, url.get()), 0);
    EXPECT_EQ(cap.take().back(), "JTS_FilterUrl_Get: NULL == cur idx = 32\n");
    EXPECT_EQ(JTS_FilterDns_Get(msg, dns.get()), 0);
    EXPECT_THAT(cap.take_texts(), testing::Not(Contains(HasSubstr("NULL == cur"))));  // it stops silently
    EXPECT_EQ(url->uiCount, 2u);
    EXPECT_EQ(url->astRule[0].uiWeekday, 0u);  // a number takes a rule's place
    EXPECT_EQ(url->astRule[31].uiWeekday, 2u);
    EXPECT_EQ(dns->astRule[31].uiWeekday, 2u);
    EXPECT_EQ(JTS_FilterDns_Get(Msg(R"({"list": {"a": {"idx": 1}}})"), dns.get()), 0);
}

TEST(FilterListFromJson, UnknownModeRefusesTheUrlListButNotTheDnsList)
{
    Msg msg(R"({"list": [{"idx": 1, "mode": "White"}, {"idx": 2, "name": "x", "mode": "Grey", "weekday": 3}, {"idx": 3}]})");
    auto url = zeroed<FilterUrlList>();
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_FILTER_URL_LIST, msg, url.get()), -1);
    EXPECT_EQ(url->astRule[0].uiMode, 1u);
    EXPECT_STREQ(url->astRule[1].szName, "x");  // filled up to the mode
    EXPECT_EQ(url->astRule[1].uiWeekday, 0u);
    EXPECT_EQ(url->astRule[2].uiIdx, 0u);
    auto dns = zeroed<FilterDnsList>();
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_FILTER_DNS_LIST, msg, dns.get()), 0);
    EXPECT_EQ(dns->astRule[1].uiMode, kUnknown);
    EXPECT_EQ(dns->astRule[2].uiIdx, 3u);
}

TEST(FilterListFromJson, TracesNameTheRuleAndSlot)
{
    BX_REQUIRE_TRACE_CAPTURE();
    const char rule[] = R"({"idx": 4, "enable": "disable", "name": "n", "weekday": 3,
                            "timerange": [{"starttime": 5, "endtime": 6}], )";
    auto url = zeroed<FilterUrlList>();
    auto dns = zeroed<FilterDnsList>();
    TraceCapture cap;
    EXPECT_EQ(JTS_FilterUrl_Get(Msg((R"({"list": [{}, )" + std::string(rule) +
                                     R"("urls": ["u"], "macs": ["m0", "m1"], "mode": "White"}]})").c_str()),
                                url.get()), 0);
    EXPECT_EQ(tail(cap.take_texts(), 10),
              (std::vector<std::string>{"Idx:4\n", "Enable:0\n", "List[1]Urls0:u\n", "Name:n\n", "List[1]Macs0:m0\n",
                                        "List[1]Macs1:m1\n", "Mode:1\n", "Weekday:3\n", "List[1]Starttime0:5\n",
                                        "List[1]Endtime0:6\n"}));
    // Host names carry the URL list's label; unknown words print as -1.
    EXPECT_EQ(JTS_FilterDns_Get(Msg((R"({"list": [)" + std::string(rule) +
                                     R"("hostnames": ["h"], "macs": "aa", "action": "Ban", "mode": "Grey"}]})").c_str()),
                                dns.get()), 0);
    EXPECT_EQ(tail(cap.take_texts(), 10),
              (std::vector<std::string>{"Idx:4\n", "Enable:0\n", "List[0]Urls0:h\n", "Name:n\n", "Macs:aa\n",
                                        "Action:-1\n", "Mode:-1\n", "Weekday:3\n", "List[0]Starttime0:5\n",
                                        "List[0]Endtime0:6\n"}));
}

TEST(FilterListFromJson, ElementParseStaysInsideTheMessage)
{
    // A rule is parsed over its whole payload, name header included, which
    // for a named last rule reaches past the message: copied into memory of
    // exactly its size, a sanitizer build sees any read beyond it.
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
}

// ---- Replies and the blobxlate program ------------------------------------------------

TEST(FilterReply, IndexBothWaysAndMissingIndexIsNoFailure)
{
    BX_REQUIRE_TRACE_CAPTURE();
    for (auto [type, jts] : {std::pair<int, JsonToStructFunc>{MSG_FILTER_URL_REPLY, JTS_FilterUrl_Set_Reply},
                             std::pair<int, JsonToStructFunc>{MSG_FILTER_DNS_REPLY, JTS_FilterDns_Set_Reply}}) {
        SCOPED_TRACE(type);
        FilterReply rec{7};
        EXPECT_EQ(bxtest::stj_typed(type, &rec), "idx=i32:7");
        TraceCapture cap;
        EXPECT_EQ(jts(Msg(R"({"idx": "3"})"), &rec), 0);
        EXPECT_EQ(rec.uiIdx, 7u);
        EXPECT_EQ(jts(Msg(R"({"idx": -2})"), &rec), 0);
        EXPECT_EQ(rec.uiIdx, 0xFFFFFFFEu);
        EXPECT_THAT(cap.take_texts(), ElementsAre("Illegal parameter: idx\n", "Idx:-2\n"));
    }
}

TEST(FilterTool, RoundTrips)
{
    bxtest::ToolResult res;
    if (!bxtest::run_tool(MSG_FILTER_URL, R"({"enable": "enable", "urls": ["a.com"], "mode": "White", "weekday": 1,
                                              "timerange": [{"starttime": 60, "endtime": 120}]})", res))
        GTEST_SKIP() << "blobxlate program not built";
    EXPECT_EQ(res.exit_code, 0);
    EXPECT_EQ(res.out, "JSON_TRANS_STRUCT: 0\nSTRUCT_TRANS_JSON: 0\n{\n\t\"idx\": 0,\n\t\"enable\": \"enable\",\n"
                       "\t\"urls\": [\n\t\t\"a.com\"\n\t],\n\t\"name\": \"\",\n\t\"macs\": [\n\t\t\n\t],\n\t\"mode\": \"White\",\n"
                       "\t\"weekday\": 1,\n\t\"timerange\": [\n\t\t{\n\t\t\t\"starttime\": 60,\n\t\t\t\"endtime\": 120\n"
                       "\t\t}\n\t]\n}\n");
    ASSERT_TRUE(bxtest::run_tool(MSG_FILTER_DNS_LIST, R"({"count": 2, "list": [{"idx": 0, "name": "gone"},
        {"idx": 4, "enable": "enable", "macs": "aa", "action": "NameError", "mode": "Grey"}]})", res));
    EXPECT_EQ(res.exit_code, 0);
    EXPECT_EQ(res.out, "JSON_TRANS_STRUCT: 0\nSTRUCT_TRANS_JSON: 0\n{\n\t\"count\": 2,\n\t\"list\": [\n\t\t{\n"
                       "\t\t\t\"idx\": 4,\n\t\t\t\"enable\": \"enable\",\n\t\t\t\"hostnames\": [\n\t\t\t\t\n\t\t\t],\n"
                       "\t\t\t\"name\": \"\",\n\t\t\t\"macs\": \"aa\",\n\t\t\t\"action\": \"NameError\",\n"
                       "\t\t\t\"mode\": \"\"\n\t\t}\n\t]\n}\n");
}

} // namespace
