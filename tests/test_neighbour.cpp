// Neighbour scan, WPS push button, channel scan and channel scores.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>

#include "support.h"

using bxtest::Msg;
using bxtest::TraceCapture;
using testing::ElementsAre;

namespace {

static_assert(offsetof(WlanNeighbourEntryRec, szBssid) == 33 && offsetof(WlanNeighbourEntryRec, uiChannel) == 68);
static_assert(sizeof(WlanNeighbourEntryRec) == 92 && offsetof(WlanNeighbourRec, astNeighbour) == 8);

// A list of n tables {"<a>": i + 1, "<b>": 10 * (i + 1)}.
std::string pairs(const char *key, const char *a, const char *b, int n)
{
    std::string s = std::string("\"") + key + "\": [";
    for (int i = 1; i <= n; ++i)
        s += (i > 1 ? ", " : "") + std::string("{\"") + a + "\": " + std::to_string(i) + ", \"" + b +
             "\": " + std::to_string(10 * i) + "}";
    return s + "]";
}

TEST(Neighbour, RecordToTree)
{
    WifiRadioRec radio{1};
    WifiRadioRec bad_radio{7};
    WpsPbcRec wps{0, 1};
    WlanNeighbourRec scan{};
    scan.eRadio = 0;
    scan.uiCount = 1;
    scan.astNeighbour[0] = {"home", "00:11:22:33:44:55", 6, -48, 2 | 8, 40, 5, 3};
    scan.astNeighbour[1] = {"not sent", "x", 1, 1, 1, 1, 1, 1};
    ChannelScoreRec score{};
    score.eRadio = 1;
    score.uiCount = 2;
    score.astScore[0] = {36, 90};
    score.astScore[1] = {149, 75};
    score.astScore[2] = {1, 1};
    struct Case { int type; const void *rec; const char *wire; };
    const Case cases[] = {
        {MSG_SCAN_WLAN_NEIGHBOUR, &radio, R"(radio=s"5G")"},
        {MSG_CHANNEL_SCAN, &radio, R"(radio=s"5G")"},
        {MSG_CHANNEL_SCAN, &bad_radio, R"(radio=s"")"},
        {MSG_WPS_PBC, &wps, R"(radio=s"2.4G" status=s"enable")"},
        // "bandwidth" is a number; the encryption type goes out as "encryttype".
        {MSG_WLAN_NEIGHBOUR, &scan,
         R"(radio=s"2.4G" count=i32:1 neighbourlist=[{ssid=s"home" bssid=s"00:11:22:33:44:55" channel=i32:6 )"
         R"(rssi=i32:-48 standard=s"11g/11n" bandwidth=i32:40 authmode=s"wpa2psk" encryttype=s"aes"}])"},
        {MSG_CHANNEL_SCORE, &score,
         R"(radio=s"5G" count=i32:2 scorelist=[{channel=i32:36 score=i32:90} {channel=i32:149 score=i32:75}])"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.wire);
        int ret = -2;
        EXPECT_EQ(bxtest::stj_typed(c.type, c.rec, &ret), c.wire);
        EXPECT_EQ(ret, 0);
    }
}

TEST(Neighbour, ReceivedEntry)
{
    WlanNeighbourRec rec{};
    Msg msg(R"({"radio": "5G", "count": 4, "neighbourlist": [{"ssid": "0123456789abcdefghijklmnopqrstuvwxyz",
        "bssid": "00:11:22:33:44:55", "channel": 36, "rssi": -70, "standard": "11a/11n/11ac", "bandwidth": 80,
        "authmode": "wpa3psk", "encrypttype": "aes"}, {"encryttype": "tkip", "authmode": "WPA2", "bandwidth": "80M"}]})");
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_WLAN_NEIGHBOUR, msg, &rec), 0);
    EXPECT_EQ(rec.eRadio, 1u);
    EXPECT_EQ(rec.uiCount, 4u);
    const WlanNeighbourEntryRec &a = rec.astNeighbour[0];
    EXPECT_STREQ(a.szSsid, "0123456789abcdefghijklmnopqrstuv");  // 32 characters kept
    EXPECT_STREQ(a.szBssid, "00:11:22:33:44:55");
    EXPECT_EQ(a.uiChannel, 36u);
    EXPECT_EQ(a.iRssi, -70);
    EXPECT_EQ(a.uiStandard, 4u | 8u | 16u);
    EXPECT_EQ(a.eBandWidth, 80u);
    EXPECT_EQ(a.eAuth, 9u);
    EXPECT_EQ(a.eEncryptType, 3u);
    // The sent key "encryttype" is not read; unknown words store the fallback;
    // a bandwidth word is not a number.
    const WlanNeighbourEntryRec &b = rec.astNeighbour[1];
    EXPECT_EQ(b.eEncryptType, 0u);
    EXPECT_EQ(b.eAuth, 11u);
    EXPECT_EQ(b.eBandWidth, 0u);
}

TEST(Neighbour, NeighbourWalkStopsAtTheRecordsCount)
{
    struct Case { const char *count; uint32_t before; uint32_t filled; };
    const Case cases[] = {
        {R"("count": 2, )", 0, 2},
        {"", 0, 0},                        // no count in a zeroed record: nothing
        {"", 3, 3},                        // the caller's count bounds the walk
        {R"("count": 1000, )", 0, 5},      // the list ends first
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(testing::Message() << c.count << c.before);
        WlanNeighbourRec rec{};
        rec.uiCount = c.before;
        std::string m = std::string(R"({"radio": "2.4G", )") + c.count + pairs("neighbourlist", "channel", "rssi", 5) + "}";
        EXPECT_EQ(JSON_TRANS_STRUCT(MSG_WLAN_NEIGHBOUR, Msg(m.c_str()), &rec), 0);
        for (uint32_t i = 0; i < 6; ++i)
            EXPECT_EQ(rec.astNeighbour[i].uiChannel, i < c.filled ? i + 1 : 0u) << i;
    }
    // A count above the capacity never walks past the record.
    WlanNeighbourRec big{};
    std::string m = std::string(R"({"radio": "5G", "count": 500, )") +
                    pairs("neighbourlist", "channel", "rssi", BX_WLAN_NEIGHBOUR_MAX + 10) + "}";
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_WLAN_NEIGHBOUR, Msg(m.c_str()), &big), 0);
    EXPECT_EQ(big.astNeighbour[BX_WLAN_NEIGHBOUR_MAX - 1].uiChannel, static_cast<uint32_t>(BX_WLAN_NEIGHBOUR_MAX));
}

TEST(Neighbour, ScoreWalkIgnoresTheCount)
{
    ChannelScoreRec rec{};
    std::string m = std::string(R"({"radio": "5G", "count": 2, )") + pairs("scorelist", "channel", "score", 5) + "}";
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_CHANNEL_SCORE, Msg(m.c_str()), &rec), 0);
    EXPECT_EQ(rec.uiCount, 2u);
    for (uint32_t i = 0; i < 5; ++i) {
        EXPECT_EQ(rec.astScore[i].uiChannel, i + 1);
        EXPECT_EQ(rec.astScore[i].uiScore, 10 * (i + 1));
    }
    EXPECT_EQ(rec.astScore[5].uiChannel, 0u);
    EXPECT_EQ(bxtest::stj_typed(MSG_CHANNEL_SCORE, &rec),
              R"(radio=s"5G" count=i32:2 scorelist=[{channel=i32:1 score=i32:10} {channel=i32:2 score=i32:20}])");
    // A list longer than the record is cut at its capacity.
    struct { ChannelScoreRec rec; uint32_t guard; } boxed{};
    boxed.guard = 0xC0FFEEu;
    m = std::string(R"({"radio": "5G", )") + pairs("scorelist", "channel", "score", BX_CHANNEL_SCORE_MAX + 3) + "}";
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_CHANNEL_SCORE, Msg(m.c_str()), &boxed.rec), 0);
    EXPECT_EQ(boxed.rec.astScore[BX_CHANNEL_SCORE_MAX - 1].uiChannel, static_cast<uint32_t>(BX_CHANNEL_SCORE_MAX));
    EXPECT_EQ(boxed.guard, 0xC0FFEEu);
}

TEST(Neighbour, RadioIsRequiredExceptForTheScanRequest)
{
    BX_REQUIRE_TRACE_CAPTURE();
    Msg msg(R"({"count": 3, "radio": 1})");  // a number is not a radio word
    struct Case { const char *func; int (*conv)(blob_attr *, void *); int ret; };
    const Case cases[] = {
        {"JTS_WlanNeighbour", JTS_WlanNeighbour, -1},
        {"JTS_ChannelScan", JTS_ChannelScan, -1},
        {"JTS_ChannelScore", JTS_ChannelScore, -1},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.func);
        ChannelScoreRec rec{};
        rec.eRadio = 9;
        TraceCapture cap;
        EXPECT_EQ(c.conv(msg, &rec), c.ret);
        EXPECT_THAT(cap.take(), ElementsAre("JTS_CheckBlobAttr: Illegal parameter: radio\n",
                                            std::string(c.func) + ": [radio] is not valid.\n"));
        EXPECT_EQ(rec.eRadio, 9u);
        EXPECT_EQ(rec.uiCount, 0u);  // nothing after the radio is read
    }
    WifiRadioRec radio{9};
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_SCAN_WLAN_NEIGHBOUR, msg, &radio), 0);
    EXPECT_EQ(radio.eRadio, 9u);
    WpsPbcRec wps{9, 9};
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_WPS_PBC, Msg(R"({"status": "on"})"), &wps), 0);
    EXPECT_EQ(wps.eRadio, 9u);
    EXPECT_EQ(wps.uiStatus, 0xFFFFFFFFu);  // unknown switch word
}

TEST(Neighbour, ToolRoundTripSendsTheEncryptionTypeUnderItsOwnKey)
{
    bxtest::ToolResult res;
    if (!bxtest::run_tool(MSG_WLAN_NEIGHBOUR,
                          R"({"radio": "5G", "count": 1, "neighbourlist": [{"ssid": "n", "encrypttype": "aes"}]})", res))
        GTEST_SKIP() << "blobxlate program not built";
    EXPECT_EQ(res.exit_code, 0) << res.out;
    EXPECT_THAT(res.out, testing::HasSubstr("\"encryttype\": \"aes\""));
    EXPECT_THAT(res.out, testing::Not(testing::HasSubstr("encrypttype")));
}

} // namespace
