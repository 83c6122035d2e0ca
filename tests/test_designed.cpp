// Bridge/LAN, mesh and station access-control messages: the wire forms
// documented in docs/designed-messages.md.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "support.h"

using bxtest::Msg;
using bxtest::TraceCapture;

namespace {

struct WireCase {
    int type;
    const char *json;   // message with every key
    const char *typed;  // what the record gives back
};

// A message goes into a zeroed record and comes back out key for key, with
// the same blobmsg types: the words survive the trip through their numbers.
TEST(Designed, EveryMessageRoundTripsWithItsWireForm)
{
    const WireCase cases[] = {
        {MSG_BRIDGE_SWITCH, R"({"status":"enable"})", R"(status=s"enable")"},
        {MSG_BRIDGE_STATUS, R"({"status":"disable","linkstatus":"up","ip":"192.168.1.2"})",
         R"(status=s"disable" linkstatus=s"up" ip=s"192.168.1.2")"},
        {MSG_REPEATER_SET_INFO,
         R"({"radio":"5G","ssid":"up","bssid":"aa:bb:cc:dd:ee:ff","security":"WPA2_AES","password":"pw"})",
         R"(radio=s"5G" ssid=s"up" bssid=s"aa:bb:cc:dd:ee:ff" security=s"WPA2_AES" password=s"pw")"},
        {MSG_REPEATER_STA_INFO, R"({"radio":"2.4G","ssid":"s","bssid":"b","rssi":-61,"status":"Connected"})",
         R"(radio=s"2.4G" ssid=s"s" bssid=s"b" rssi=i32:-61 status=s"Connected")"},
        {MSG_REPEATER_LIST,
         R"({"count":9,"list":[{"ssid":"a","bssid":"b","channel":36,"rssi":-40,"security":"NONE"},{"ssid":"c"}]})",
         R"(count=i32:2 list=[{ssid=s"a" bssid=s"b" channel=i32:36 rssi=i32:-40 security=s"NONE"} )"
         R"({ssid=s"c" bssid=s"" channel=i32:0 rssi=i32:0 security=s"NONE"}])"},
        {MSG_CLONE_MAC, R"({"status":"enable","mac":"00:11:22:33:44:55"})",
         R"(status=s"enable" mac=s"00:11:22:33:44:55")"},
        {MSG_LAN, R"({"ip":"192.168.1.1","mask":"255.255.255.0"})", R"(ip=s"192.168.1.1" mask=s"255.255.255.0")"},
        {MSG_LAN_CLONE, R"({"status":"disable","mac":"m"})", R"(status=s"disable" mac=s"m")"},
        {MSG_DHCP_SERVER, R"({"status":"enable","startip":"10.0.0.2","endip":"10.0.0.99","leasetime":86400})",
         R"(status=s"enable" startip=s"10.0.0.2" endip=s"10.0.0.99" leasetime=i32:86400)"},
        {MSG_LAN_STATIC, R"({"action":"delete","mac":"m","ip":"10.0.0.5","hostname":"nas"})",
         R"(action=s"delete" mac=s"m" ip=s"10.0.0.5" hostname=s"nas")"},
        {MSG_LAN_STATIC_LIST, R"({"list":[{"mac":"m1","ip":"i1","hostname":"h1"}]})",
         R"(count=i32:1 list=[{mac=s"m1" ip=s"i1" hostname=s"h1"}])"},
        {MSG_LOCK_NET, R"({"status":"enable"})", R"(status=s"enable")"},
        {MSG_WIFI_MESH, R"({"role":"agent"})", R"(role=s"agent")"},
        {MSG_WIFI_MESH_ROAMING, R"({"status":"enable","thresholdrssi":-70})",
         R"(status=s"enable" thresholdrssi=i32:-70)"},
        {MSG_WIFI_BACKHAUL_BSS, R"({"radio":"5G","ssid":"bh","password":"p","authmode":"wpa2psk","cipher":"aes"})",
         R"(radio=s"5G" ssid=s"bh" password=s"p" authmode=s"wpa2psk" cipher=s"aes")"},
        {MSG_WIFI_TOPO,
         R"({"topo":[{"mac":"c","parentmac":"","role":"controller","uplink":"eth","rssi":0,"ip":"10.0.0.1"},)"
         R"({"mac":"a","parentmac":"c","role":"agent","uplink":"5g","rssi":-55,"ip":"10.0.0.7"}]})",
         R"(count=i32:2 topo=[{mac=s"c" parentmac=s"" role=s"controller" uplink=s"eth" rssi=i32:0 ip=s"10.0.0.1"} )"
         R"({mac=s"a" parentmac=s"c" role=s"agent" uplink=s"5g" rssi=i32:-55 ip=s"10.0.0.7"}])"},
        {MSG_WIFI_TOPO_MAC, R"({"maclist":["m1","m2"]})", R"(count=i32:2 maclist=[s"m1" s"m2"])"},
        {MSG_WIFI_TOPO_AP_MAP, R"({"mac":"m","bssid2g":"b2","bssid5g":"b5"})",
         R"(mac=s"m" bssid2g=s"b2" bssid5g=s"b5")"},
        {MSG_WIFI_TOPO_CHANGE, R"({"mac":"m","action":"modify"})", R"(mac=s"m" action=s"modify")"},
        {MSG_STA_CTRL_STATUS, R"({"status":"enable"})", R"(status=s"enable")"},
        {MSG_STA_CTRL_MODE, R"({"mode":"BLACK"})", R"(mode=s"BLACK")"},
        {MSG_STA_CTRL_MODE_SWITCH, R"({"mode":"WHITE","status":"disable"})", R"(mode=s"WHITE" status=s"disable")"},
        {MSG_STA_CTRL_LIST, R"({"list":[{"mac":"m","name":"tv","mode":"BLACK"}]})",
         R"(count=i32:1 list=[{mac=s"m" name=s"tv" mode=s"BLACK"}])"},
        {MSG_STA_BWLIST_GET, R"({"mode":"WHITE"})", R"(mode=s"WHITE")"},
        {MSG_STA_CTRL_INTERNET, R"({"mac":"m","allow":"false"})", R"(mac=s"m" allow=s"false")"},
        {MSG_STA_CTRL_WIFI, R"({"mac":"m","allow":"true"})", R"(mac=s"m" allow=s"true")"},
        {MSG_STA_CTRL_WIFI_LIST, R"({"list":[{"mac":"a","allow":"true"},{"mac":"b","allow":"false"}]})",
         R"(count=i32:2 list=[{mac=s"a" allow=s"true"} {mac=s"b" allow=s"false"}])"},
        {MSG_STA_CTRL_ITEM_ADD, R"({"action":"add","mode":"BLACK","mac":"m","name":"n"})",
         R"(action=s"add" mode=s"BLACK" mac=s"m" name=s"n")"},
        {MSG_STA_CTRL_INTERNET_TIME, R"({"mac":"m","starttime":"08:00","endtime":"22:30","week":31})",
         R"(mac=s"m" starttime=s"08:00" endtime=s"22:30" week=i32:31)"},
    };
    for (const WireCase &c : cases) {
        SCOPED_TRACE(c.type);
        alignas(8) unsigned char rec[8192] = {};
        Msg msg(c.json);
        ASSERT_EQ(JSON_TRANS_STRUCT(c.type, msg, rec), 0);
        int ret = -2;
        EXPECT_EQ(bxtest::stj_typed(c.type, rec, &ret), c.typed);
        EXPECT_EQ(ret, 0);
    }
}

TEST(Designed, LocalMeshEventIsOnlySent)
{
    LocalMeshEventParam rec{};
    std::strcpy(rec.szMac, "m");
    rec.eAction = 2;
    EXPECT_EQ(bxtest::stj_typed(MSG_WIFI_LOCAL_MESH_EVENT, &rec), R"(mac=s"m" action=s"delete")");
    Msg msg(R"({"mac":"x"})");
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_WIFI_LOCAL_MESH_EVENT, msg, &rec), 0);
    EXPECT_STREQ(rec.szMac, "m");
}

TEST(Designed, AbsentKeysAreTracedAndLeaveTheRecordAlone)
{
    BX_REQUIRE_TRACE_CAPTURE();
    DhcpServerParam rec{};
    rec.uiLeaseTime = 600;
    std::strcpy(rec.szEndIp, "keep");
    Msg msg(R"({"status":"enable","startip":"10.0.0.2"})");
    TraceCapture cap;
    EXPECT_EQ(JTS_DhcpServer(msg, &rec), 0);
    EXPECT_EQ(rec.eStatus, 1u);
    EXPECT_STREQ(rec.szStartIp, "10.0.0.2");
    EXPECT_STREQ(rec.szEndIp, "keep");
    EXPECT_EQ(rec.uiLeaseTime, 600u);
    EXPECT_THAT(cap.take(), testing::ElementsAre("JTS_DhcpServer: status:1\n", "JTS_DhcpServer: startip:10.0.0.2\n",
                                                 "JTS_CheckBlobAttr: Illegal parameter: endip\n",
                                                 "JTS_CheckBlobAttr: Illegal parameter: leasetime\n"));
}

TEST(Designed, ListsStopAtTheArrayAndCountWhatWasFilled)
{
    std::string json = R"({"count":1,"list":[)";
    for (int i = 0; i < STA_CTRL_LIST_MAX + 8; ++i)
        json += std::string(i ? "," : "") + R"({"mac":"m)" + std::to_string(i) + R"("})";
    json += "]}";
    StaCtrlListParam rec{};
    std::memset(&rec, 0, sizeof rec);
    Msg msg(json.c_str());
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_STA_CTRL_LIST, msg, &rec), 0);
    EXPECT_EQ(rec.uiCount, static_cast<uint32_t>(STA_CTRL_LIST_MAX));
    EXPECT_STREQ(rec.astList[STA_CTRL_LIST_MAX - 1].szMac, "m31");

    // A count beyond the array sends the array and no more.
    rec.uiCount = 1000;
    bxtest::Buf buf;
    EXPECT_EQ(STJ_StaCtrlList(&rec, buf.get()), 0);
    std::string typed = buf.typed();
    EXPECT_EQ(typed.rfind("count=i32:1000 list=[", 0), 0u);
    EXPECT_NE(typed.find(R"(mac=s"m31")"), std::string::npos);
    EXPECT_EQ(typed.find(R"(mac=s"m32")"), std::string::npos);
}

TEST(Designed, ListElementsThatAreNotTablesAreSkipped)
{
    LanStaticListParam rec{};
    Msg msg(R"({"list":["m0",{"mac":"m1"},7,[],{"mac":"m2"}]})");
    EXPECT_EQ(JTS_LanStatic_List(msg, &rec), 0);
    EXPECT_EQ(rec.uiCount, 2u);
    EXPECT_STREQ(rec.astList[0].szMac, "m1");
    EXPECT_STREQ(rec.astList[1].szMac, "m2");

    TopoApMacParam macs{};
    Msg mixed(R"({"maclist":["a",1,"b"]})");
    EXPECT_EQ(JTS_WifiTopoMac(mixed, &macs), 0);
    EXPECT_EQ(macs.uiCount, 2u);
    EXPECT_STREQ(macs.aszMac[1], "b");
}

TEST(Designed, AbsentListLeavesTheCount)
{
    RepeaterListParam rec{};
    rec.uiCount = 3;
    Msg msg(R"({"count":5})");
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_REPEATER_LIST, msg, &rec), 0);
    EXPECT_EQ(rec.uiCount, 3u);
}

TEST(Designed, TextsAreCutAtTheirArray)
{
    MacCloneParam rec{};
    std::memset(rec.szMac, 0, sizeof rec.szMac);
    std::string longmac(40, 'x');
    Msg msg(("{\"mac\":\"" + longmac + "\"}").c_str());
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_LAN_CLONE, msg, &rec), 0);
    EXPECT_EQ(std::string(rec.szMac), std::string(31, 'x'));
}

TEST(Designed, NullArgumentsAreRefused)
{
    const StructToJsonFunc stj[] = {STJ_BridgeSwitch, STJ_Repeater_List, STJ_WifiTopoMac, STJ_StaCtrlList,
                                    STJ_WifiLocalMesh_Event};
    const JsonToStructFunc jts[] = {JTS_BridgeSet, JTS_RepeaterList, JTS_WifiTopoMac, JTS_StaCtrlList};
    bxtest::Buf buf;
    unsigned char rec[64] = {};
    Msg msg("{}");
    for (auto fn : stj) {
        EXPECT_EQ(fn(nullptr, buf.get()), -1);
        EXPECT_EQ(fn(rec, nullptr), -1);
    }
    for (auto fn : jts) {
        EXPECT_EQ(fn(nullptr, rec), -1);
        EXPECT_EQ(fn(msg, nullptr), -1);
    }
}

TEST(Designed, ToolRoundTrip)
{
    bxtest::ToolResult r;
    if (!bxtest::run_tool(MSG_WIFI_MESH, R"({"role":"controller"})", r))
        GTEST_SKIP() << "blobxlate program not built";
    EXPECT_EQ(r.exit_code, 0);
    EXPECT_EQ(r.out, "JSON_TRANS_STRUCT: 0\nSTRUCT_TRANS_JSON: 0\n{\n\t\"role\": \"controller\"\n}\n");
}

} // namespace
