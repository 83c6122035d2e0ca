// Roaming: settings, signal-strength query and answer, BSS transition and
// the station reports.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>

#include "support.h"

using bxtest::Msg;
using bxtest::TraceCapture;
using testing::ElementsAre;

namespace {

// Records are shared with C daemons by layout.
static_assert(sizeof(RoamingBssTransRec) == 32 && offsetof(RoamingBssTransRec, uiChannel) == 28);
static_assert(offsetof(RoamingReportRec, szBssid) == 44 && offsetof(RoamingReportRec, usSupport11v) == 64);
static_assert(offsetof(RoamingApQueryRec, astApInfo) == 20 && sizeof(RoamingApInfoRec) == 20);

const char *row_name(const MessageTransEntry *table, int count, int id)
{
    for (int i = 0; i < count; ++i)
        if (table[i].id == id)
            return table[i].name;
    return nullptr;
}

// {"key": [ {"bssid": "...", "<num>": i}, ... ]} with n elements.
std::string ap_list(const char *key, const char *num, int n)
{
    std::string s = std::string("\"") + key + "\": [";
    for (int i = 0; i < n; ++i)
        s += (i ? ", " : "") + std::string("{\"bssid\": \"b") + std::to_string(i) + "\", \"" + num +
             "\": " + std::to_string(i + 1) + "}";
    return s + "]";
}

// The name texts of the Wi-Fi roaming, scan and access-list rows, which the
// dispatchers print; several differ between the two tables.
TEST(WifiRows, NameTextsOfBothTables)
{
    struct Row { int id; const char *to_json; const char *to_struct; };
    const Row rows[] = {
        {MSG_WIFI_DEASSOCIATION, "WifiDeassociation", "WifiDeassociation"},
        {MSG_WIFI_BLACK_WHITE_ADD, "wifi balckwihite add", "wifi balckwihite add"},
        {MSG_WIFI_BLACK_WHITE_DELETE, "wifi balckwihite delete", "wifi balckwihite delete"},
        {MSG_WIFI_BLACK_WHITE_LIST, "wifi balckwihite list", "wifi balckwihite list"},
        {MSG_SCAN_WLAN_NEIGHBOUR, "ScanWlanNeighbour", "ScanWlanNeighbour"},
        {MSG_WLAN_NEIGHBOUR, "WlanNeighbour", "WlanNeighbour"},
        {MSG_WPS_PBC, "WpsPbc", "WpsPbc"},
        {MSG_CHANNEL_SCAN, "ChannelScan", "Channel scan"},
        {MSG_CHANNEL_SCORE, "ChannelScore", "ChannelScore"},
        {MSG_L2_ROAMING, "L2Roaming", "L2Roaming"},
        {MSG_ROAMING, "Roaming", "Roaming"},
        {MSG_ROAMING_AP_RSSI_QUERY, "Roaming AP Rssi Query", "Roaming AP Rssi Query"},
        {MSG_ROAMING_AP_RSSI_RSP, "Roaming AP Rssi RSP", "Roaming AP Rssi RSP"},
        {MSG_ROAMING_BSS_TRANS, "Roaming BSS Trans", "Roaming BSS Trans"},
        {MSG_ROAMING_REPORT, "Roaming report", "Roaming report"},
        {MSG_ROAMING_STOPDETECT, nullptr, "Roaming Stopdetect"},
        {MSG_ROAMING_STA_RSSI, "Roaming Sta Rssi", "Roaming sta Rssi"},
    };
    for (const Row &r : rows) {
        SCOPED_TRACE(r.id);
        EXPECT_STREQ(row_name(g_astStructToJson_Func, g_iStructToJson_FuncNum, r.id), r.to_json);
        EXPECT_STREQ(row_name(g_astJsonToStruct_Func, g_iJsonToStruct_FuncNum, r.id), r.to_struct);
    }
}

TEST(Roaming, RecordToTree)
{
    L2RoamingRec l2{1, -70, -75};
    RoamingRec roam{1, -65, 30, 5, -80, 10, -72, BX_ROAM_ENABLE | BX_ROAM_START_RSSI | BX_ROAM_THRESHOLD_RSSI5G};
    RoamingApQueryRec query{2, "a0b1c2d3e4f5", {{"001122334455", 6}, {"66778899aabb", 149}, {"ccddeeff0011", 1}}};
    RoamingApRspRec rsp{1, {{"001122334455", -55}, {"66778899aabb", -60}}};
    RoamingBssTransRec trans{"a0b1c2d3e4f5", "001122334455", 36};
    RoamingReportRec report{"aa:bb:cc:dd:ee:ff", 1, -61, 120, 866, 780, 36, "00:11:22:33:44:55", 1, 0};
    RoamingStaRssiRec weak{"aa:bb:cc:dd:ee:ff", -85, 0};
    RoamingStopDetectRec stop{"aa:bb:cc:dd:ee:ff", 3};
    struct Case { int type; const void *rec; const char *wire; };
    const Case cases[] = {
        {MSG_L2_ROAMING, &l2, R"(status=s"enable" lowrssi2p4g=i32:-70 lowrssi5g=i32:-75)"},
        {MSG_ROAMING, &roam, "enable=i32:1 startrssi=i32:-80 thresholdrssi5g=i32:-72"},
        {MSG_ROAMING_AP_RSSI_QUERY, &query,
         R"(count=i32:2 mac=s"a0b1c2d3e4f5" apinfo=[{bssid=s"001122334455" channel=i32:6} )"
         R"({bssid=s"66778899aabb" channel=i32:149}])"},
        {MSG_ROAMING_AP_RSSI_RSP, &rsp, R"(count=i32:1 aprssi=[{bssid=s"001122334455" rssi=i32:-55}])"},
        {MSG_ROAMING_BSS_TRANS, &trans, R"(sta=s"a0b1c2d3e4f5" bssid=s"001122334455" channel=i32:36)"},
        {MSG_ROAMING_REPORT, &report,
         R"(mac=s"aa:bb:cc:dd:ee:ff" connecttime=i32:120 rssi=i32:-61 radio=s"5G" channel=i32:36 )"
         R"(bssid=s"00:11:22:33:44:55" rxRate=i32:866 txRate=i32:780 support11k=s"true" support11v=s"false")"},
        {MSG_ROAMING_STA_RSSI, &weak, R"(mac=s"aa:bb:cc:dd:ee:ff" rssi=i32:-85 radio=s"2.4G")"},
        {MSG_ROAMING_STOPDETECT, &stop, ""},  // received only: no row, nothing sent
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.type);
        int ret = -2;
        EXPECT_EQ(bxtest::stj_typed(c.type, c.rec, &ret), c.wire);
        EXPECT_EQ(ret, 0);
    }
}

TEST(Roaming, SettingsMaskFollowsTheKeysReceived)
{
    RoamingRec rec{};
    rec.iStartRssi = -90;  // not in the message: kept, bit stays clear
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_ROAMING, Msg(R"({"reportinterval": 30})"), &rec), 0);
    EXPECT_EQ(rec.uiReportInterval, 30u);
    EXPECT_EQ(rec.uiRoamFlag, BX_ROAM_REPORT_INTERVAL);
    EXPECT_EQ(rec.iStartRssi, -90);
    EXPECT_EQ(bxtest::stj_typed(MSG_ROAMING, &rec), "reportinterval=i32:30");
    // A second message adds its bits; "enable" is a number, a word is not read.
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_ROAMING, Msg(R"({"thresholdrssi5g": -70, "enable": "enable"})"), &rec), 0);
    EXPECT_EQ(rec.uiRoamFlag, BX_ROAM_REPORT_INTERVAL | BX_ROAM_THRESHOLD_RSSI5G);
    EXPECT_EQ(rec.uiEnable, 0u);
}

TEST(Roaming, QueryAndAnswerListsStopAt32OrTheCount)
{
    struct Case { int elements; const char *count; uint32_t filled; };
    const Case cases[] = {{40, "50", 32}, {40, "3", 3}, {2, "5", 2}, {5, "0", 0}};
    for (const Case &c : cases) {
        SCOPED_TRACE(testing::Message() << c.elements << " elements, count " << c.count);
        RoamingApQueryRec query{};
        std::string q = std::string(R"({"count": )") + c.count + ", " + ap_list("apinfo", "channel", c.elements) + "}";
        EXPECT_EQ(JSON_TRANS_STRUCT(MSG_ROAMING_AP_RSSI_QUERY, Msg(q.c_str()), &query), 0);
        RoamingApRspRec rsp{};
        std::string r = std::string(R"({"count": )") + c.count + ", " + ap_list("aprssi", "rssi", c.elements) + "}";
        EXPECT_EQ(JSON_TRANS_STRUCT(MSG_ROAMING_AP_RSSI_RSP, Msg(r.c_str()), &rsp), 0);
        for (uint32_t i = 0; i < BX_ROAMING_AP_MAX; ++i) {
            SCOPED_TRACE(i);
            EXPECT_EQ(query.astApInfo[i].uiChannel, i < c.filled ? i + 1 : 0u);
            EXPECT_EQ(rsp.astApRssi[i].iRssi, i < c.filled ? static_cast<int32_t>(i + 1) : 0);
        }
    }
    // Sending never reads past the 32 entries, whatever the count says.
    RoamingApRspRec big{};
    big.uiCount = 1000;
    std::string wire = bxtest::stj_typed(MSG_ROAMING_AP_RSSI_RSP, &big);
    EXPECT_EQ(std::count(wire.begin(), wire.end(), '{'), BX_ROAMING_AP_MAX);
}

TEST(Roaming, BareMacsKeepTwelveCharacters)
{
    RoamingApQueryRec query{};
    Msg q(R"({"count": 1, "mac": "a0:b1:c2:d3:e4:f5", "apinfo": [{"bssid": "00:11:22:33:44:55", "channel": 6}]})");
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_ROAMING_AP_RSSI_QUERY, q, &query), 0);
    EXPECT_STREQ(query.szMac, "a0:b1:c2:d3:");
    EXPECT_STREQ(query.astApInfo[0].szBssid, "00:11:22:33:");
    RoamingBssTransRec trans{};
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_ROAMING_BSS_TRANS, Msg(R"({"sta": "a0:b1:c2:d3:e4:f5", "channel": 11})"), &trans), 0);
    EXPECT_STREQ(trans.szSta, "a0:b1:c2:d3:");
    EXPECT_EQ(trans.uiChannel, 11u);
    // Colon-form MACs of the reports keep 17.
    RoamingStopDetectRec stop{};
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_ROAMING_STOPDETECT, Msg(R"({"mac": "a0:b1:c2:d3:e4:f5:99", "stopdetecttime": 7})"), &stop), 0);
    EXPECT_STREQ(stop.szMac, "a0:b1:c2:d3:e4:f5");
    EXPECT_EQ(stop.uiStopDetectTime, 7u);
}

TEST(Roaming, ReportWords)
{
    struct Case { const char *radio; const char *word; uint32_t band; uint16_t flag; };
    const Case cases[] = {
        {"5G", "true", 1, 1}, {"2.4G", "false", 0, 0}, {"6G", "yes", 2, 0}, {"5g", "TRUE", 2, 0},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.word);
        RoamingReportRec rec{};
        rec.usSupport11k = rec.usSupport11v = 7;
        std::string m = std::string(R"({"radio": ")") + c.radio + R"(", "support11k": ")" + c.word +
                        R"(", "support11v": ")" + c.word + R"(", "mac": "aa:bb:cc:dd:ee:ff"})";
        EXPECT_EQ(JSON_TRANS_STRUCT(MSG_ROAMING_REPORT, Msg(m.c_str()), &rec), 0);
        EXPECT_EQ(rec.eRadio, c.band);
        EXPECT_EQ(rec.usSupport11k, c.flag);
        EXPECT_EQ(rec.usSupport11v, c.flag);
        EXPECT_STREQ(rec.szMac, "aa:bb:cc:dd:ee:ff");
    }
}

TEST(Roaming, WeakSignalMacTakesAllEighteenBytes)
{
    RoamingStaRssiRec rec{};
    rec.iRssi = -1;
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_ROAMING_STA_RSSI, Msg(R"({"mac": "0123456789abcdefghij", "radio": "5G"})"), &rec), 0);
    EXPECT_EQ(std::string(rec.szMac, sizeof rec.szMac), "0123456789abcdefgh");  // no terminator
    EXPECT_EQ(rec.iRssi, -1);  // absent, untouched: the copy stayed in its 18 bytes
    EXPECT_EQ(rec.eRadio, 1u);
    // Sent back, the full field goes out without reading past it.
    EXPECT_EQ(bxtest::stj_typed(MSG_ROAMING_STA_RSSI, &rec), R"(mac=s"0123456789abcdefgh" rssi=i32:-1 radio=s"5G")");
    // A shorter text stops at its end: the rest of the field is cleared.
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_ROAMING_STA_RSSI, Msg(R"({"mac": "aa:bb", "rssi": -77})"), &rec), 0);
    EXPECT_EQ(std::string(rec.szMac, sizeof rec.szMac), std::string("aa:bb") + std::string(13, '\0'));
    EXPECT_EQ(rec.iRssi, -77);
}

TEST(Roaming, MissingKeysAreTracedAndNeverFail)
{
    BX_REQUIRE_TRACE_CAPTURE();
    RoamingStaRssiRec rec{"keep", -3, 1};
    Msg msg(R"({"rssi": "loud", "other": 1})");  // wrong type counts as absent
    TraceCapture cap;
    EXPECT_EQ(JTS_Roaming_StaRssi(msg, &rec), 0);
    EXPECT_THAT(cap.take(), ElementsAre("JTS_CheckBlobAttr: Illegal parameter: mac\n",
                                        "JTS_CheckBlobAttr: Illegal parameter: radio\n",
                                        "JTS_CheckBlobAttr: Illegal parameter: rssi\n"));
    EXPECT_STREQ(rec.szMac, "keep");
    EXPECT_EQ(rec.iRssi, -3);
    EXPECT_EQ(rec.eRadio, 1u);
}

TEST(Roaming, ListElementsThatAreNotTablesAreSkipped)
{
    BX_REQUIRE_TRACE_CAPTURE();
    RoamingApRspRec rec{};
    Msg msg(R"({"count": 3, "aprssi": ["x", {"rssi": -40}, 5, {"bssid": "b1"}]})");
    TraceCapture cap;
    EXPECT_EQ(JTS_Roaming_APRsp(msg, &rec), 0);
    EXPECT_EQ(rec.astApRssi[0].iRssi, -40);
    EXPECT_STREQ(rec.astApRssi[1].szBssid, "b1");
    EXPECT_EQ(rec.astApRssi[1].iRssi, 0);
    auto lines = cap.take();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "JTS_Roaming_APRsp: NULL == cur\n\n"), 2);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "JTS_CheckBlobAttr: Illegal parameter: bssid\n"), 1);
    // The entries' lines carry the converter's name.
    for (const std::string &l : lines)
        EXPECT_THAT(l, testing::AnyOf(testing::StartsWith("JTS_Roaming_APRsp: "), testing::StartsWith("JTS_CheckBlobAttr: ")));
}

// A record the caller did not zero: the bytes a text copy leaves alone hold
// no terminator, and a record-sized tail after it must never show up in a trace.
template <typename Rec>
struct Unzeroed {
    Rec rec;
    char tail[8] = "TAIL";
    Unzeroed() { std::memset(&rec, 'A', sizeof rec); }
};

TEST(Roaming, MacTracesStayInsideTheirArrays)
{
    BX_REQUIRE_TRACE_CAPTURE();
    struct Case { int type; const char *msg; const char *line; };
    const Case cases[] = {
        {MSG_ROAMING_AP_RSSI_QUERY, R"({"mac": "00112233445566778899"})", "JTS_Roaming_APQuery: mac:001122334455AAAA\n"},
        {MSG_ROAMING_AP_RSSI_QUERY, R"({"count": 1, "apinfo": [{"bssid": "00112233445566778899"}]})",
         "JTS_Roaming_APQuery: bssid:001122334455AAAA\n"},
        {MSG_ROAMING_AP_RSSI_RSP, R"({"count": 1, "aprssi": [{"bssid": "00112233445566778899"}]})",
         "JTS_Roaming_APRsp: bssid:001122334455AAAA\n"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.msg);
        Unzeroed<RoamingApQueryRec> query;
        Unzeroed<RoamingApRspRec> rsp;
        void *rec = c.type == MSG_ROAMING_AP_RSSI_QUERY ? static_cast<void *>(&query.rec) : &rsp.rec;
        Msg msg(c.msg);
        TraceCapture cap;
        EXPECT_EQ(JSON_TRANS_STRUCT(c.type, msg, rec), 0);
        EXPECT_THAT(cap.take(), testing::Contains(c.line));
    }
}

TEST(Roaming, NullArguments)
{
    RoamingRec rec{};
    Msg msg(R"({})");
    bxtest::Buf buf;
    EXPECT_EQ(JTS_Roaming(nullptr, &rec), -1);
    EXPECT_EQ(JTS_Roaming_StopDetect(msg, nullptr), -1);
    EXPECT_EQ(STJ_Roaming_Report(nullptr, buf.get()), -1);
    EXPECT_EQ(STJ_Roaming_APQuery(&rec, nullptr), -1);
}

TEST(Roaming, ToolRoundTrip)
{
    bxtest::ToolResult res;
    if (!bxtest::run_tool(MSG_ROAMING_REPORT,
                          R"({"mac": "aa:bb:cc:dd:ee:ff", "radio": "5G", "rssi": -60, "support11k": "true"})", res))
        GTEST_SKIP() << "blobxlate program not built";
    EXPECT_EQ(res.exit_code, 0) << res.out;
    EXPECT_THAT(res.out, testing::HasSubstr("\"radio\": \"5G\""));
    EXPECT_THAT(res.out, testing::HasSubstr("\"support11k\": \"true\""));
    EXPECT_THAT(res.out, testing::HasSubstr("\"support11v\": \"false\""));
    EXPECT_THAT(res.out, testing::HasSubstr("\"rssi\": -60"));
}

} // namespace
