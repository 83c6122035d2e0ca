// Ethernet port messages (types 45 to 50).
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

// ---- Record to message -------------------------------------------------------

struct WireCase {
    const char *what;
    int type;
    const void *record;
    const char *wire;
};

const PortNum kTwoLanOneWan = {2, {3, 4, 9, 9, 9, 9, 9, 9}, 1, {1, 9, 9, 9, 9, 9, 9, 9}};
const PortNum kNoPorts = {0, {7}, 0, {7}};
// Counts above the slots stop at the slots.
const PortNum kCountsAboveSlots = {20, {1, 2, 3, 4, 5, 6, 7, 8}, 9, {8, 7, 6, 5, 4, 3, 2, 1}};
const PortStatus kStatusUp = {2, 3, 1, 1, 1000};
const PortStatus kStatusUnknownWords = {0, 1, 7, 0, 0};
const PortTraffic kTraffic = {1, 1, 0x100000000ull, 2, 3, 4, 5, 6, 7, 0xFFFFFFFFFFFFFFFFull};
const PortRate kRate = {4, 2, 866, 0xFFFFFFFFu};
const PortMac kMac = {2, 4, "aa:bb:cc:dd:ee:ff"};
const PortUpDown kUpDown = {3, 0, 1, "192.168.1.1"};

TEST(PortsToMessage, WireForm)
{
    const WireCase cases[] = {
        {"two LAN one WAN", MSG_PORT_NUM, &kTwoLanOneWan,
         "lan=i32:2 wan=i32:1 lanindex=[i32:3 i32:4] wanindex=[i32:1]"},
        {"no ports", MSG_PORT_NUM, &kNoPorts, "lan=i32:0 wan=i32:0 lanindex=[] wanindex=[]"},
        {"counts above the slots", MSG_PORT_NUM, &kCountsAboveSlots,
         "lan=i32:20 wan=i32:9 lanindex=[i32:1 i32:2 i32:3 i32:4 i32:5 i32:6 i32:7 i32:8] "
         "wanindex=[i32:8 i32:7 i32:6 i32:5 i32:4 i32:3 i32:2 i32:1]"},
        {"status", MSG_PORT_STATUS, &kStatusUp,
         "type=s\"LAN\" index=i32:3 linkstatus=s\"up\" duplex=s\"FULL\" negrate=i32:1000"},
        {"status without words", MSG_PORT_STATUS, &kStatusUnknownWords,
         "type=s\"\" index=i32:1 linkstatus=s\"down\" duplex=s\"\" negrate=i32:0"},
        {"traffic", MSG_PORT_TRAFFIC, &kTraffic,
         "type=s\"WAN\" index=i32:1 txbytes=i64:4294967296 rxbytes=i64:2 txpackets=i64:3 rxpackets=i64:4 "
         "txerrors=i64:5 rxerrors=i64:6 txdrops=i64:7 rxdrops=i64:-1"},
        {"rate", MSG_PORT_RATE, &kRate, "type=s\"5G\" index=i32:2 rxrate=i32:866 txrate=i32:-1"},
        {"mac", MSG_PORT_MAC, &kMac, "type=s\"LAN\" index=i32:4 mac=s\"aa:bb:cc:dd:ee:ff\""},
        {"up/down", MSG_PORT_UP_DOWN, &kUpDown,
         "type=s\"2.4G\" index=i32:0 active=i32:1 port_ip=s\"192.168.1.1\""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        int ret = -2;
        EXPECT_EQ(bxtest::stj_typed(c.type, c.record, &ret), c.wire);
        EXPECT_EQ(ret, 0);
    }
}

// ---- Message to record --------------------------------------------------------

struct PortNumCase {
    const char *what;
    PortNum before;
    const char *json;
    PortNum after;
};

TEST(PortsFromMessage, PortNumStoresThenTestsTheCount)
{
    const PortNumCase cases[] = {
        {"count 0 still takes the first number", {},
         R"({"lan": 0, "lanindex": [5, 6, 7]})", {0, {5}, 0, {}}},
        {"count 2 takes two of five", {},
         R"({"lan": 2, "lanindex": [1, 2, 3, 4, 5], "wan": 1, "wanindex": [9, 8]})", {2, {1, 2}, 1, {9}}},
        {"count left by the caller bounds the walk", {3, {}, 0, {}},
         R"({"lanindex": [1, 2, 3, 4, 5]})", {3, {1, 2, 3}, 0, {}}},
        {"the slots bound a count above them", {},
         R"({"lan": 50, "lanindex": [1, 2, 3, 4, 5, 6, 7, 8, 9, 10], "wan": 50, "wanindex": [1, 2, 3, 4, 5, 6, 7, 8, 9]})",
         {50, {1, 2, 3, 4, 5, 6, 7, 8}, 50, {1, 2, 3, 4, 5, 6, 7, 8}}},
        {"lists of the wrong type are absent", {1, {4}, 1, {4}},
         R"({"lanindex": {"a": 1}, "wanindex": 3})", {1, {4}, 1, {4}}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        // The record sits between guards that a walk past it would hit.
        struct {
            PortNum rec;
            uint32_t guard[4];
        } area;
        std::memset(&area, 0xEE, sizeof area);
        area.rec = c.before;
        Msg msg(c.json);
        EXPECT_EQ(JSON_TRANS_STRUCT(MSG_PORT_NUM, msg, &area.rec), 0);
        EXPECT_EQ(area.rec.uiLanNum, c.after.uiLanNum);
        EXPECT_THAT(area.rec.auiLanIndex, ElementsAreArray(c.after.auiLanIndex));
        EXPECT_EQ(area.rec.uiWanNum, c.after.uiWanNum);
        EXPECT_THAT(area.rec.auiWanIndex, ElementsAreArray(c.after.auiWanIndex));
        EXPECT_THAT(area.guard, testing::Each(0xEEEEEEEEu));
    }
}

TEST(PortsFromMessage, PortNumTraces)
{
    BX_REQUIRE_TRACE_CAPTURE();
    PortNum rec{};
    Msg msg(R"({"lan": 1, "lanindex": [3, 4], "wan": 2, "wanindex": [1, 2]})");
    TraceCapture cap;
    EXPECT_EQ(JTS_PortNum(msg, &rec), 0);
    EXPECT_THAT(cap.take(), ElementsAre("JTS_PortNum: lannum:1\n", "JTS_PortNum: wannum:2\n",
                                        "JTS_PortNum: lanindex:3\n", "JTS_PortNum: wanindex:1\n",
                                        "JTS_PortNum: wanindex:2\n"));
    // Without "wanindex" the converter ends after the LAN list.
    Msg bare(R"({})");
    EXPECT_EQ(JTS_PortNum(bare, &rec), 0);
    EXPECT_THAT(cap.take_texts(), ElementsAre("Illegal parameter: lan\n", "Illegal parameter: wan\n",
                                              "Illegal parameter: lanindex\n", "Illegal parameter: wanindex\n"));
}

TEST(PortsFromMessage, UnknownWordsAndLongTextsAreStoredAsTheyCome)
{
    PortStatus status{};
    Msg odd(R"({"type": "wan", "linkstatus": "UP", "duplex": "half", "negrate": -1})");
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_PORT_STATUS, odd, &status), 0);
    EXPECT_EQ(status.eType, 5u);
    EXPECT_EQ(status.eLinkStatus, 2u);
    EXPECT_EQ(status.eDuplex, 4u);
    EXPECT_EQ(status.uiNegRate, 0xFFFFFFFFu);

    PortMac mac{};
    mac.szMac[17] = 'Z';  // the converter never writes the last byte
    Msg m(R"({"mac": "aa:bb:cc:dd:ee:ff:00"})");
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_PORT_MAC, m, &mac), 0);
    EXPECT_EQ(std::string(mac.szMac, 18), "aa:bb:cc:dd:ee:ffZ");
}

TEST(PortsFromMessage, SmallCountersSentAsInt32AreNotTaken)
{
    // The counters' policy is INT64; a sender's 32-bit number does not match.
    PortTraffic rec{};
    rec.ulTxBytes = 77;
    bxtest::Buf buf;
    blobmsg_add_u32(buf.get(), "txbytes", 5);
    EXPECT_EQ(JTS_PortTraffic(buf.head(), &rec), 0);
    EXPECT_EQ(rec.ulTxBytes, 77u);
}

struct TraceCase {
    const char *what;
    JsonToStructFunc convert;
    const char *json;
    std::vector<std::string> lines;
};

TEST(PortsFromMessage, Traces)
{
    BX_REQUIRE_TRACE_CAPTURE();
    const TraceCase cases[] = {
        {"status", JTS_PortStatus,
         R"({"type": "LAN", "index": 1, "linkstatus": "up", "duplex": "AUTO", "negrate": 100})",
         {"JTS_PortStatus: type:2\n", "JTS_PortStatus: index:1\n", "JTS_PortStatus: linkstatus:1\n",
          "JTS_PortStatus: duplex:3\n", "JTS_PortStatus: negrate:100\n"}},
        // "rxpackets" is traced as "txpackets" with the transmit count.
        {"traffic", JTS_PortTraffic,
         R"({"type": "WAN", "index": 2, "txbytes": 3000000010, "rxbytes": 3000000020, "txpackets": 3000000030,
             "rxpackets": 3000000040, "txerrors": 3000000050, "rxerrors": 3000000060, "txdrops": 3000000070,
             "rxdrops": 5000000000})",
         {"JTS_PortTraffic: type:1\n", "JTS_PortTraffic: index:2\n", "JTS_PortTraffic: ulTxBytes:3000000010\n",
          "JTS_PortTraffic: ulRxBytes:3000000020\n", "JTS_PortTraffic: txpackets:3000000030\n",
          "JTS_PortTraffic: txpackets:3000000030\n", "JTS_PortTraffic: txerrors:3000000050\n",
          "JTS_PortTraffic: rxerrors:3000000060\n", "JTS_PortTraffic: txdrops:3000000070\n",
          "JTS_PortTraffic: rxdrops:5000000000\n"}},
        {"rate", JTS_PortRate, R"({"type": "2.4G", "index": 1, "rxrate": 7, "txrate": 8})",
         {"JTS_PortRate: type:3\n", "JTS_PortRate: index:1\n", "JTS_PortRate: rxrate:7\n",
          "JTS_PortRate: txrate:8\n"}},
        {"mac", JTS_PortMAC, R"({"type": "LAN", "mac": "00:11:22:33:44:55"})",
         {"JTS_PortMAC: type:2\n", "JTS_CheckBlobAttr: Illegal parameter: index\n",
          "JTS_PortMAC: mac addr:00:11:22:33:44:55\n"}},
        {"up/down", JTS_PortUpDown, R"({"type": "WAN", "index": 1, "active": 0, "port_ip": "10.0.0.1"})",
         {"JTS_PortUpDown: port type:1\n", "JTS_PortUpDown: port index:1\n", "JTS_PortUpDown: port active:0\n",
          "JTS_PortUpDown: port ip:10.0.0.1\n"}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        unsigned char rec[256] = {};
        Msg msg(c.json);
        TraceCapture cap;
        ASSERT_EQ(c.convert(msg, rec), 0);
        EXPECT_THAT(cap.take(), ElementsAreArray(c.lines));
    }
}

TEST(PortsFromMessage, AbsentKeysLeaveTheRecord)
{
    BX_REQUIRE_TRACE_CAPTURE();
    PortUpDown rec{9, 8, 7, "1.2.3.4"};
    Msg msg(R"({"index": "3", "active": [1]})");  // wrong types count as absent
    TraceCapture cap;
    EXPECT_EQ(JTS_PortUpDown(msg, &rec), 0);
    EXPECT_EQ(rec.eType, 9u);
    EXPECT_EQ(rec.uiIndex, 8u);
    EXPECT_EQ(rec.uiActive, 7u);
    EXPECT_STREQ(rec.szPortIp, "1.2.3.4");
    EXPECT_THAT(cap.take_texts(), ElementsAre("Illegal parameter: type\n", "Illegal parameter: index\n",
                                              "Illegal parameter: active\n", "Illegal parameter: port_ip\n"));
}

// ---- Dispatch and the program --------------------------------------------------

TEST(PortsDispatch, SendingRowsShareTheStationListName)
{
    BX_REQUIRE_TRACE_CAPTURE();
    struct Names {
        int type;
        const char *sending;
        const char *receiving;
    };
    const Names names[] = {
        {MSG_PORT_NUM, "PortNum", "PortNum"},       {MSG_PORT_STATUS, "StaList", "PortStatus"},
        {MSG_PORT_TRAFFIC, "StaList", "PortTraffic"}, {MSG_PORT_RATE, "StaList", "PortRate"},
        {MSG_PORT_MAC, "PortMAC", "PortMAC"},       {MSG_PORT_UP_DOWN, "PortUpDown", "PortUpDown"},
    };
    for (const auto &n : names) {
        SCOPED_TRACE(n.type);
        unsigned char rec[256] = {};
        bxtest::Buf buf;
        Msg msg(R"({})");
        TraceCapture cap;
        EXPECT_EQ(STRUCT_TRANS_JSON(n.type, rec, buf.get()), 0);
        EXPECT_THAT(cap.take(), ElementsAre(std::string("STRUCT_TRANS_JSON: Struct To Json: [") + n.sending + "] \n\n"));
        EXPECT_EQ(JSON_TRANS_STRUCT(n.type, msg, rec), 0);
        auto lines = cap.take();
        ASSERT_GE(lines.size(), 2u);
        EXPECT_EQ(lines[1], std::string("JSON_TRANS_STRUCT: Json To Struct: [") + n.receiving + "] \n\n");
    }
}

TEST(PortsDispatch, NullArgumentsFail)
{
    const StructToJsonFunc to_json[] = {STJ_PortNum, STJ_PortStatus, STJ_PortTraffic,
                                        STJ_PortRate, STJ_PortMAC, STJ_PortUpDown};
    const JsonToStructFunc to_struct[] = {JTS_PortNum, JTS_PortStatus, JTS_PortTraffic,
                                          JTS_PortRate, JTS_PortMAC, JTS_PortUpDown};
    unsigned char rec[256] = {};
    bxtest::Buf buf;
    Msg msg(R"({"type": "LAN"})");
    for (auto fn : to_json) {
        EXPECT_EQ(fn(nullptr, buf.get()), -1);
        EXPECT_EQ(fn(rec, nullptr), -1);
    }
    for (auto fn : to_struct) {
        EXPECT_EQ(fn(nullptr, rec), -1);
        EXPECT_EQ(fn(msg, nullptr), -1);
    }
    EXPECT_EQ(buf.typed(), "");
}

TEST(PortsProgram, RoundTrip)
{
    bxtest::ToolResult res;
    if (!bxtest::run_tool(MSG_PORT_NUM, R"({"lan": 2, "lanindex": [1, 2, 3], "wan": 1, "wanindex": [4]})", res))
        GTEST_SKIP() << "blobxlate program not built";
    EXPECT_EQ(res.exit_code, 0);
    EXPECT_THAT(res.out, testing::HasSubstr("JSON_TRANS_STRUCT: 0\nSTRUCT_TRANS_JSON: 0\n"));
    EXPECT_THAT(res.out, testing::HasSubstr("\"lanindex\": [\n\t\t1,\n\t\t2\n\t]"));
    EXPECT_THAT(res.out, testing::HasSubstr("\"wanindex\": [\n\t\t4\n\t]"));
}

} // namespace
