// Station messages (types 88 to 94).
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "support.h"

using bxtest::Msg;
using bxtest::TraceCapture;
using testing::ElementsAre;
using testing::ElementsAreArray;

namespace {

// "upmac" goes out fifth and "fromwifi6" before "macstatus".
const char kSampleWire[] =
    "mac=s\"aa:bb:cc:dd:ee:01\" hostname=s\"host\" name=s\"Phone\" ip=s\"192.168.1.10\" "
    "upmac=s\"aa:bb:cc:dd:ee:00\" linktype=s\"5G\" port=i32:3 ssid=s\"home\" isonline=s\"true\" "
    "onlinetime=i32:-5 onofftimestamp=i32:1700000000 vmac=s\"02:00:00:00:00:01\" ipv6=s\"fe80::1\" "
    "type=s\"ANDROID\" brand=s\"Acme\" model=s\"X1\" rxrate=i32:866 txrate=i32:433 rssi=i32:-60 "
    "weakrssi=i32:-75 rxnegrate=i32:1200 txnegrate=i32:1100 duplex=s\"FULL\" allowstorage=s\"true\" "
    "allowinternet=s\"false\" allowwifi=s\"true\" fromwifi6=s\"false\" macstatus=i32:2 "
    "rxbytes=i64:5000000000 txbytes=i64:2200000002 rxpackets=i64:3000000003 txpackets=i64:4000000004 "
    "txretrypackets=i64:5000000005 rxretrypackets=i64:6000000006 txfailedpackets=i64:7000000007 "
    "rxfailedpackets=i64:8000000008 txdiscard=i64:9000000009";

// The same station as a received message, keys in another order than sent.
// The counters are above 32 bits: smaller numbers travel as INT32 and are
// not taken where INT64 is expected.
const char kSampleJson[] = R"({
    "txdiscard": 9000000009, "mac": "aa:bb:cc:dd:ee:01", "hostname": "host", "name": "Phone", "ip": "192.168.1.10",
    "upmac": "aa:bb:cc:dd:ee:00", "linktype": "5G", "port": 3, "ssid": "home", "isonline": "true",
    "onlinetime": -5, "onofftimestamp": 1700000000, "vmac": "02:00:00:00:00:01", "ipv6": "fe80::1",
    "type": "ANDROID", "brand": "Acme", "model": "X1", "rxrate": 866, "txrate": 433, "rssi": -60,
    "weakrssi": -75, "rxnegrate": 1200, "txnegrate": 1100, "duplex": "FULL", "allowstorage": "true",
    "allowinternet": "false", "allowwifi": "true", "fromwifi6": "false", "macstatus": 2,
    "rxbytes": 5000000000, "txbytes": 2200000002, "rxpackets": 3000000003, "txpackets": 4000000004,
    "txretrypackets": 5000000005, "rxretrypackets": 6000000006, "txfailedpackets": 7000000007,
    "rxfailedpackets": 8000000008})";

std::string address_of(const void *p)
{
    char text[64];
    std::snprintf(text, sizeof text, "%p", p);
    return text;
}

std::vector<std::string> without_absent_keys(const std::vector<std::string> &lines)
{
    std::vector<std::string> out;
    for (const auto &l : lines)
        if (l.rfind("JTS_CheckBlobAttr: ", 0) != 0)
            out.push_back(l);
    return out;
}

// ---- Record to message ----------------------------------------------------------

StaEntry sample_station()
{
    StaEntry e{};
    Msg msg(kSampleJson);
    EXPECT_EQ(JTS_StaInfoByMac(msg, &e), 0);
    return e;
}

TEST(StationsToMessage, EntriesCarryEveryKeyInSendingOrder)
{
    StaEntry e = sample_station();
    StaListInfo list{1, &e};
    int ret = -2;
    EXPECT_EQ(bxtest::stj_typed(MSG_STA_LIST, &list, &ret), std::string("count=i32:1 stalist=[{") + kSampleWire + "}]");
    EXPECT_EQ(ret, 0);
    // The lookup by MAC address carries the same keys at the top level.
    EXPECT_EQ(bxtest::stj_typed(MSG_STA_INFO_BY_MAC, &e), kSampleWire);
}

TEST(StationsToMessage, EmptyList)
{
    StaEntry unused{};
    const StaListInfo none{0, &unused};
    EXPECT_EQ(bxtest::stj_typed(MSG_STA_LIST, &none), "count=i32:0 stalist=[]");
    // A count without an array: nothing is read.
    const StaListInfo no_array{3, nullptr};
    EXPECT_EQ(bxtest::stj_typed(MSG_STA_LIST, &no_array), "count=i32:3 stalist=[]");
}

struct WireCase {
    const char *what;
    int type;
    const void *record;
    const char *wire;
};

const StaMac kPwdErr = {"aa:bb:cc:dd:ee:02"};
const StaTraffic kTraffic = {"m", 1, 2, 3, 4, 5, 0xFFFFFFFFu};
const StaNum kCounts = {10, 7, 2, 3, 5};
const StaName kName = {"m", "Living room TV"};
const StaModel kModelNone = {"m", "b", "x", 0};
const StaModel kModelOnly = {"m", "b", "x", STA_MODEL_MODEL_VALID};
const StaModel kModelBoth = {"m", "b", "x", STA_MODEL_BRAND_VALID | STA_MODEL_MODEL_VALID | 0x80};

TEST(StationsToMessage, SmallMessages)
{
    const WireCase cases[] = {
        {"wrong password", MSG_STA_WIFI_PWD_ERR, &kPwdErr, "mac=s\"aa:bb:cc:dd:ee:02\""},
        {"traffic", MSG_STA_TRAFFIC, &kTraffic,
         "mac=s\"m\" txbytes=i32:1 rxbytes=i32:2 txpackets=i32:3 rxpackets=i32:4 txerrors=i32:5 rxerrors=i32:-1"},
        {"counts", MSG_STA_NUM, &kCounts,
         "countall=i32:10 countonline=i32:7 countwired=i32:2 count2p4g=i32:3 count5g=i32:5"},
        {"name", MSG_STA_NAME, &kName, "mac=s\"m\" name=s\"Living room TV\""},
        {"model, no text valid", MSG_STA_MODEL, &kModelNone, "mac=s\"m\""},
        {"model, model valid", MSG_STA_MODEL, &kModelOnly, "mac=s\"m\" model=s\"x\""},
        {"model, both valid", MSG_STA_MODEL, &kModelBoth, "mac=s\"m\" brand=s\"b\" model=s\"x\""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        int ret = -2;
        EXPECT_EQ(bxtest::stj_typed(c.type, c.record, &ret), c.wire);
        EXPECT_EQ(ret, 0);
    }
}

// ---- Message to record: one station ----------------------------------------------

TEST(StationsFromMessage, LookupByMacFillsAndTracesEveryField)
{
    BX_REQUIRE_TRACE_CAPTURE();
    StaEntry e{};
    Msg msg(kSampleJson);
    TraceCapture cap;
    EXPECT_EQ(JTS_StaInfoByMac(msg, &e), 0);
    // The fields whose place differs from their key's place in the message.
    EXPECT_STREQ(e.szUpMac, "aa:bb:cc:dd:ee:00");
    EXPECT_EQ(e.eMacStatus, 2u);
    EXPECT_EQ(e.bFromWifi6, 0u);
    EXPECT_EQ(e.iWeakRssi, -75);
    EXPECT_EQ(e.uiTxDiscard, 9000000009u);
    // Labels are shared by the three permissions and by the two byte
    // counters; "weakrssi" and "macstatus" carry field-style labels.
    const char *want_lines[] = {
        "mac:aa:bb:cc:dd:ee:01", "hostname:host", "name:Phone", "ip:192.168.1.10", "upmac:aa:bb:cc:dd:ee:00",
        "linktype:1", "port:3", "ssid:home", "isonline:1", "onlinetime:-5", "onofftimestamp:1700000000",
        "vmac:02:00:00:00:00:01", "ipv6:fe80::1", "type:3", "brand:Acme", "model:X1", "rxrate:866",
        "txrate:433", "rssi:-60", "iWeakRssi:-75", "rxnegrate:1200", "txnegrate:1100", "duplex:1",
        "ballowstorage:1", "ballowstorage:0", "ballowstorage:1", "emacstatus:2", "fromwifi6:0",
        "rxbytes:5000000000", "rxbytes:2200000002", "rxpackets:3000000003", "txpackets:4000000004",
        "uiTxRetryPackets:5000000005", "uiRxRetryPackets:6000000006", "uiTxFailedPackets:7000000007",
        "uiRxFailedPackets:8000000008", "uiTxDiscard:9000000009",
    };
    std::vector<std::string> lines;
    for (const char *w : want_lines)
        lines.push_back(std::string("JTS_StaInfoByMac: ") + w + "\n");
    EXPECT_THAT(cap.take(), ElementsAreArray(lines));
}

TEST(StationsFromMessage, UnknownWordsAndBadValues)
{
    StaEntry e{};
    e.uiPort = 42;
    std::memset(e.szHostName, 'Z', sizeof e.szHostName);
    Msg msg(R"({"linktype": "wifi", "isonline": "yes", "type": "LINUX", "duplex": "HALF",
                "allowwifi": "TRUE", "port": "3", "rxbytes": 12,
                "hostname": "0123456789012345678901234567890123456789012345678901234567890123456789"})");
    EXPECT_EQ(JTS_StaInfoByMac(msg, &e), 0);
    EXPECT_EQ(e.eLinkType, 3u);
    EXPECT_EQ(e.bIsOnline, 0xFFFFFFFFu);  // -1: neither "true" nor "false"
    EXPECT_EQ(e.eType, 6u);               // the device types have no 5
    EXPECT_EQ(e.eDuplex, 4u);
    EXPECT_EQ(e.bAllowWifi, 0xFFFFFFFFu);
    EXPECT_EQ(e.uiPort, 42u);     // a text where a number belongs is absent
    EXPECT_EQ(e.uiRxBytes, 0u);   // a 32-bit number where a 64-bit one belongs too
    EXPECT_EQ(std::string(e.szHostName, 63), "012345678901234567890123456789012345678901234567890123456789012");
    EXPECT_EQ(e.szHostName[63], 'Z');
}

// ---- Message to record: the list ---------------------------------------------------

struct ListFixture {
    StaEntry entries[4];
    StaListInfo rec;
    explicit ListFixture(uint32_t capacity) : entries{}, rec{capacity, entries}
    {
        // What no element may reach keeps a mark.
        for (uint32_t i = capacity; i < 4; ++i)
            std::strcpy(entries[i].szMac, "untouched");
    }
};

TEST(StationsFromMessage, ListFillsUpToTheCallersCapacity)
{
    BX_REQUIRE_TRACE_CAPTURE();
    ListFixture f(2);
    Msg msg(R"({"count": 3, "stalist": [{"mac": "m1"}, {"mac": "m2", "port": 7}, {"mac": "m3"}]})");
    TraceCapture cap;
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_STA_LIST, msg, &f.rec), 0);
    EXPECT_STREQ(f.entries[0].szMac, "m1");
    EXPECT_STREQ(f.entries[1].szMac, "m2");
    EXPECT_EQ(f.entries[1].uiPort, 7u);
    EXPECT_STREQ(f.entries[2].szMac, "untouched");
    // The count is never written back, whatever the message said.
    EXPECT_EQ(f.rec.uiStaNumofEsps, 2u);
    EXPECT_EQ(f.rec.pstListInfo, f.entries);

    const std::string first = "JTS_StaList: -t- -pstOut->pstListInfo[0] = " + address_of(&f.entries[0]) + "\n";
    const std::string second = "JTS_StaList: -t- -pstOut->pstListInfo[1] = " + address_of(&f.entries[1]) + "\n";
    auto lines = cap.take();
    EXPECT_THAT(without_absent_keys(lines),
                ElementsAre(testing::StartsWith("JSON_TRANS_STRUCT: DEBUG: JsonStr = "),
                            "JSON_TRANS_STRUCT: Json To Struct: [StaList] \n\n",
                            "JTS_StaList: uiStaNumofEsps: 3\n",
                            "JTS_StaList: -t- blobmsg_parse: -blobmsg_for_each_attr_1\n",
                            "JTS_StaList: -t- blobmsg_parse: -blobmsg_for_each_attr_2\n",
                            "JTS_StaList: -t- blobmsg_parse: g_stStaList_Array_policy\n",
                            first, second, "JTS_StaList: mac:m1\n",
                            "JTS_StaList: -t- blobmsg_parse: -blobmsg_for_each_attr_1\n",
                            "JTS_StaList: -t- blobmsg_parse: -blobmsg_for_each_attr_2\n",
                            "JTS_StaList: -t- blobmsg_parse: g_stStaList_Array_policy\n",
                            first, second, "JTS_StaList: mac:m2\n", "JTS_StaList: port:7\n",
                            "JTS_StaList: -t- blobmsg_parse: -blobmsg_for_each_attr_1\n",
                            "JTS_StaList: blobmsg parse failed\n"));
    // Each element traces the 36 and 35 keys it lacks.
    EXPECT_EQ(lines.size() - without_absent_keys(lines).size(), 36u + 35u);
}

struct ListCase {
    const char *what;
    uint32_t capacity;
    const char *json;
    std::vector<std::string> macs;  // of the four entries afterwards
};

TEST(StationsFromMessage, ListWalk)
{
    const ListCase cases[] = {
        {"an element without keys uses up an entry", 3, R"({"stalist": [{}, {"mac": "b"}]})",
         {"", "b", "", "untouched"}},
        {"an element that is not a table uses up an entry", 3, R"({"stalist": [5, "x", {"mac": "c"}]})",
         {"", "", "c", "untouched"}},
        {"a list that is not an array is absent", 2, R"({"count": 1, "stalist": {"mac": "a"}})",
         {"", "", "untouched", "untouched"}},
        {"no list", 2, R"({"count": 1})", {"", "", "untouched", "untouched"}},
        {"capacity 0 takes nothing", 0, R"({"stalist": [{"mac": "a"}]})",
         {"untouched", "untouched", "untouched", "untouched"}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        ListFixture f(c.capacity);
        Msg msg(c.json);
        EXPECT_EQ(JTS_StaList(msg, &f.rec), 0);
        std::vector<std::string> macs;
        for (const auto &e : f.entries)
            macs.emplace_back(e.szMac);
        EXPECT_EQ(macs, c.macs);
        EXPECT_EQ(f.rec.uiStaNumofEsps, c.capacity);
    }
}

TEST(StationsFromMessage, ListWithoutArrayTakesNothing)
{
    BX_REQUIRE_TRACE_CAPTURE();
    StaListInfo rec{0, nullptr};
    Msg msg(R"({"stalist": [{"mac": "a"}]})");
    TraceCapture cap;
    EXPECT_EQ(JTS_StaList(msg, &rec), 0);
    EXPECT_THAT(cap.take_texts(), ElementsAre("Illegal parameter: count\n",
                                              "-t- blobmsg_parse: -blobmsg_for_each_attr_1\n",
                                              "blobmsg parse failed\n"));
    // A count with no array behind it offers no room either.
    rec.uiStaNumofEsps = 5;
    EXPECT_EQ(JTS_StaList(msg, &rec), 0);
    EXPECT_EQ(rec.uiStaNumofEsps, 5u);
}

TEST(StationsFromMessage, MalformedElementEndsTheWalk)
{
    bxtest::Buf buf;
    void *list = blobmsg_open_array(buf.get(), "stalist");
    for (const char *mac : {"a", "b"}) {
        void *t = blobmsg_open_table(buf.get(), nullptr);
        blobmsg_add_string(buf.get(), "mac", mac);
        blob_nest_end(buf.get(), t);
    }
    blob_nest_end(buf.get(), list);
    // Make the second element claim far more bytes than the list holds.
    blob_attr *array = static_cast<blob_attr *>(blob_data(buf.head()));
    blob_attr *cur;
    size_t rem;
    int n = 0;
    blobmsg_for_each_attr(cur, array, rem) {
        if (++n == 2) {
            uint32_t id_len = ntohl(cur->id_len);
            cur->id_len = htonl((id_len & 0xFF000000u) | 0x00FFFF00u);
            break;
        }
    }
    ASSERT_EQ(n, 2);
    ListFixture f(3);
    EXPECT_EQ(JTS_StaList(buf.head(), &f.rec), 0);
    EXPECT_STREQ(f.entries[0].szMac, "a");
    EXPECT_STREQ(f.entries[1].szMac, "");
}

// ---- Message to record: the small messages --------------------------------------------

struct TraceCase {
    const char *what;
    JsonToStructFunc convert;
    const char *json;
    std::vector<std::string> lines;
};

TEST(StationsFromMessage, SmallMessagesTraceWithTheirOwnWidths)
{
    BX_REQUIRE_TRACE_CAPTURE();
    const TraceCase cases[] = {
        {"wrong password", JTS_WifiPwdErr, R"({"mac": "m"})", {"JTS_WifiPwdErr: mac:m\n"}},
        {"traffic", JTS_StaTraffic,
         R"({"mac": "m", "txbytes": -1, "rxbytes": -2, "txpackets": 3, "rxpackets": 4, "txerrors": 5, "rxerrors": 6})",
         {"JTS_StaTraffic: mac:m\n", "JTS_StaTraffic: txbytes:4294967295\n", "JTS_StaTraffic: rxbytes:4294967294\n",
          "JTS_StaTraffic: txpackets:3\n", "JTS_StaTraffic: rxpackets:4\n", "JTS_StaTraffic: txerrors:5\n",
          "JTS_StaTraffic: rxerrors:6\n"}},
        {"counts", JTS_StaNum,
         R"({"countall": -1, "countonline": -1, "countwired": 2, "count2p4g": 3, "count5g": 4})",
         {"JTS_StaNum: countall:-1\n", "JTS_StaNum: countonline:4294967295\n", "JTS_StaNum: countwired:2\n",
          "JTS_StaNum: count2p4g:3\n", "JTS_StaNum: count5g:4\n"}},
        {"name", JTS_StaName, R"({"name": "TV"})",
         {"JTS_CheckBlobAttr: Illegal parameter: mac\n", "JTS_StaName: name:TV\n"}},
        {"model", JTS_StaModel, R"({"mac": "m", "brand": "b", "model": "x"})",
         {"JTS_StaModel: mac:m\n", "JTS_StaModel: brand:b\n", "JTS_StaModel: model:x\n"}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        unsigned char rec[256] = {};
        Msg msg(c.json);
        TraceCapture cap;
        EXPECT_EQ(c.convert(msg, rec), 0);
        EXPECT_THAT(cap.take(), ElementsAreArray(c.lines));
    }
}

struct ModelCase {
    const char *what;
    uint32_t flag_before;
    const char *json;
    uint32_t flag_after;
};

TEST(StationsFromMessage, ModelMarksTheTextsItStores)
{
    const ModelCase cases[] = {
        {"model only", 0, R"({"mac": "m", "model": "x"})", STA_MODEL_MODEL_VALID},
        {"other bits stay", 0x11, R"({"model": "x"})", 0x13},
        {"nothing stored clears nothing", 0x03, R"({"mac": "m"})", 0x03},
        {"a brand of the wrong type is not stored", 0, R"({"brand": 1})", 0},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        StaModel rec{};
        rec.uiFlag = c.flag_before;
        Msg msg(c.json);
        EXPECT_EQ(JSON_TRANS_STRUCT(MSG_STA_MODEL, msg, &rec), 0);
        EXPECT_EQ(rec.uiFlag, c.flag_after);
    }
}

// ---- Dispatch and the program ---------------------------------------------------------

TEST(StationsDispatch, NullArgumentsFail)
{
    const StructToJsonFunc to_json[] = {STJ_StaList, STJ_StaInfoByMac, STJ_StaWifiPwdErr, STJ_StaTraffic,
                                        STJ_StaNum, STJ_StaName, STJ_StaModel};
    const JsonToStructFunc to_struct[] = {JTS_StaList, JTS_StaInfoByMac, JTS_WifiPwdErr, JTS_StaTraffic,
                                          JTS_StaNum, JTS_StaName, JTS_StaModel};
    StaEntry rec{};
    bxtest::Buf buf;
    Msg msg(R"({"mac": "m"})");
    for (auto fn : to_json) {
        EXPECT_EQ(fn(nullptr, buf.get()), -1);
        EXPECT_EQ(fn(&rec, nullptr), -1);
    }
    for (auto fn : to_struct) {
        EXPECT_EQ(fn(nullptr, &rec), -1);
        EXPECT_EQ(fn(msg, nullptr), -1);
    }
    EXPECT_EQ(buf.typed(), "");
    EXPECT_STREQ(rec.szMac, "");
}

TEST(StationsProgram, ListRoundTripListsTheStationsThatCameIn)
{
    bxtest::ToolResult res;
    if (!bxtest::run_tool(MSG_STA_LIST,
                          R"({"count": 9, "stalist": [{"mac": "m1", "rxbytes": 5000000000}, {"mac": "m2"}]})", res))
        GTEST_SKIP() << "blobxlate program not built";
    EXPECT_EQ(res.exit_code, 0);
    EXPECT_THAT(res.out, testing::HasSubstr("JSON_TRANS_STRUCT: 0\nSTRUCT_TRANS_JSON: 0\n{\n\t\"count\": 2,\n"));
    EXPECT_THAT(res.out, testing::HasSubstr("\"mac\": \"m1\""));
    EXPECT_THAT(res.out, testing::HasSubstr("\"rxbytes\": 5000000000"));
    EXPECT_THAT(res.out, testing::HasSubstr("\"mac\": \"m2\""));
    EXPECT_THAT(res.out, testing::Not(testing::HasSubstr("\"mac\": \"\"")));
}

} // namespace
