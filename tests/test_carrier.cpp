// Carrier and service messages.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "system_support.h"

using bxtest::Guarded;
using bxtest::receive;
using testing::ElementsAre;
using testing::ElementsAreArray;

namespace {

struct RoundTrip {
    int type;
    const char *json;
    const char *wire;  // STRUCT_TRANS_JSON of the record filled from json
    std::vector<std::string> traces;
};

TEST(Carrier, TreeToRecordAndBack)
{
    BX_REQUIRE_TRACE_CAPTURE();
    const RoundTrip cases[] = {
        {MSG_STA_STORAGE_INFO, R"({"mac": "aa:bb:cc:dd:ee:ff", "allow": "true"})",
         "mac=s\"aa:bb:cc:dd:ee:ff\" allow=s\"true\"", {"JTS_StaStorageInfo: mac:aa:bb:cc:dd:ee:ff\n"}},
        {MSG_STA_STORAGE_INFO, R"({"mac": "m", "allow": "yes"})", "mac=s\"m\" allow=s\"false\"",
         {"JTS_StaStorageInfo: mac:m\n"}},
        {MSG_CUSTOM_INFO, R"({"operate": "CUCC", "district": "XG"})", "operate=s\"CUCC\" district=s\"XG\"",
         {"JTS_CustomInfo: operator:2\n", "JTS_CustomInfo: district:34\n"}},
        {MSG_CUSTOM_INFO, R"({"operate": "cucc", "district": "xg"})", "operate=s\"\" district=s\"\"",
         {"JTS_CustomInfo: operator:5\n", "JTS_CustomInfo: district:35\n"}},
        {MSG_CTCC_BASIC_INFO,
         R"({"ctei": "123456789012345", "elinksn": "ESN1", "ifversion": "V2", "elinklink": "enable"})",
         "ctei=s\"123456789012345\" elinksn=s\"ESN1\" ifversion=s\"V2\" elinklink=s\"enable\"",
         {"JTS_CTCCBasicInfo: ctei:123456789012345\n", "JTS_CTCCBasicInfo: elinks:ESN1\n",
          "JTS_CTCCBasicInfo: ifversion:V2\n", "JTS_CTCCBasicInfo: elinklink:1\n"}},
        {MSG_CTCC_ELINK_STATUS, R"({"status": "disable"})", "status=s\"disable\"",
         {"JTS_CTCCElinkInfo: status:0\n"}},
        {MSG_CMCC_BASIC_INFO,
         R"({"devicetype": "t", "producttoken": "pt", "devicevendor": "dv", "devicemodel": "dm",
             "devicesn": "sn", "cmei": "ce", "devicekey": "dk", "provcode": "pc", "dmappkey": "ak",
             "dmpwd": "pw"})",
         "devicetype=s\"t\" producttoken=s\"pt\" devicevendor=s\"dv\" devicemodel=s\"dm\" devicesn=s\"sn\" "
         "cmei=s\"ce\" devicekey=s\"dk\" provcode=s\"pc\" dmappkey=s\"ak\" dmpwd=s\"pw\"",
         {"JTS_CMCCBasicInfo: devicetype:t\n", "JTS_CMCCBasicInfo: producttoken:pt\n",
          "JTS_CMCCBasicInfo: devicevenor:dv\n", "JTS_CMCCBasicInfo: devicemodel:dm\n",
          "JTS_CMCCBasicInfo: devicesn:sn\n", "JTS_CMCCBasicInfo: cmei:ce\n", "JTS_CMCCBasicInfo: devicekey:dk\n",
          "JTS_CMCCBasicInfo: provcode:pc\n", "JTS_CMCCBasicInfo: dmappkey:ak\n", "JTS_CMCCBasicInfo: dmpwd:pw\n"}},
        {MSG_TELNET, R"({"switch": "enable", "telnetUser": "root", "telnetPwd": "pw1"})",
         "switch=s\"enable\" telnetUser=s\"root\" telnetPwd=s\"pw1\"",
         {"JTS_Telnet: telnetswitch:1\n", "JTS_Telnet: telnetUser:root\n", "JTS_Telnet: telnetPwd:pw1\n"}},
        {MSG_SAMBA, R"({"switch": "disable", "sambaUser": "guest", "sambaPwd": "pw2"})",
         "switch=s\"disable\" sambaUser=s\"guest\" sambaPwd=s\"pw2\"",
         {"JTS_Samba: sambaswitch:0\n", "JTS_Samba: sambaUser:guest\n", "JTS_Samba: sambaPwd:pw2\n"}},
        // Another service's account keys are not this one's.
        {MSG_FTP, R"({"switch": "enable", "telnetUser": "root", "ftpPwd": "pw3"})",
         "switch=s\"enable\" ftpUser=s\"\" ftpPwd=s\"pw3\"",
         {"JTS_Ftp: ftpswitch:1\n", "JTS_CheckBlobAttr: Illegal parameter: ftpUser\n", "JTS_Ftp: ftpPwd:pw3\n"}},
        {MSG_ROUTER_NAME, R"({"routername": "Living room"})", "routername=s\"Living room\"",
         {"JTS_RouterName: RouterTitle:Living room\n"}},
        {MSG_KERNELCOUNT, R"({"count": 3})", "count=i32:3", {"JTS_KernelCount: count:3\n"}},
        {MSG_CTCC_ROUTER_PIN, R"({"pin": "12345678"})", "pin=s\"12345678\"",
         {"JTS_CTCCRouterPin: RouterPin:12345678\n"}},
        {MSG_FACTORY_FLAG, R"({"status": "enable"})", "status=s\"enable\"",
         {"JTS_FactoryFlag: FactoryFlag status:1\n"}},
        {MSG_CMCC_CFG_FILE_SYNC, R"({"cfgfile": "/etc/config/x"})", "cfgfile=s\"/etc/config/x\"", {}},
        {MSG_SYNC_TIME, R"({"time": 1700000000})", "time=i32:1700000000", {"JTS_SyncTime: time:1700000000\n"}},
        {MSG_WAN_TCP_UDP_CON_NUM_GET, R"({"wanindex": 1, "number": 250})", "wanindex=i32:1 number=i32:250",
         {"JTS_WanTcpUdpConNum_Get: wan index:1\n", "JTS_WanTcpUdpConNum_Get: ConNum:250\n"}},
        {MSG_WIFI_GET_AGENT_UPLINK_INFO,
         R"({"type": "5g", "ssid": "mesh", "rssi": -61, "noise": -95, "uprate": 866, "downrate": 780})",
         "type=s\"5g\" ssid=s\"mesh\" rssi=i32:-61 noise=i32:-95 uprate=i32:866 downrate=i32:780",
         {"JTS_Agent_Uplink_Info_Get: type:2\n", "JTS_Agent_Uplink_Info_Get: ssid: mesh\n",
          "JTS_Agent_Uplink_Info_Get: Rssi: -61\n", "JTS_Agent_Uplink_Info_Get: Noise: -95\n",
          "JTS_Agent_Uplink_Info_Get: UpRate: 866\n", "JTS_Agent_Uplink_Info_Get: DownRate: 780\n"}},
        {MSG_WIFI_GET_AGENT_UPLINK_INFO, R"({"type": "wifi"})",
         "type=s\"\" ssid=s\"\" rssi=i32:0 noise=i32:0 uprate=i32:0 downrate=i32:0",
         {"JTS_Agent_Uplink_Info_Get: type:3\n", "JTS_CheckBlobAttr: Illegal parameter: ssid\n",
          "JTS_CheckBlobAttr: Illegal parameter: rssi\n", "JTS_CheckBlobAttr: Illegal parameter: noise\n",
          "JTS_CheckBlobAttr: Illegal parameter: uprate\n", "JTS_CheckBlobAttr: Illegal parameter: downrate\n"}},
        {MSG_UPGRADE_REPORT, R"({"status": 0, "errCode": 4})", "status=i32:0 errCode=i32:4",
         {"JTS_Upgrade_report: upgrade status:0(1:succ,0:failed).\n", "JTS_Upgrade_report: upgrade ErrCode:4\n"}},
        {MSG_FILE_SYNC, R"({"srcfile": "/tmp/a", "destfile": "/etc/a"})", "srcfile=s\"/tmp/a\" destfile=s\"/etc/a\"",
         {"JTS_File_Save: pstOut->szSrcFile:/tmp/a\n", "JTS_File_Save: pstOut->szDestFile:/etc/a\n"}},
        {MSG_QUICKJOIN, R"({"status": "enable"})", "status=s\"enable\"", {"JTS_Quickjoin: status:1\n"}},
        {MSG_CUSTOM_FACTORY_INFO, R"({"randpassword": "Ab3dEf7h"})", "randpassword=s\"Ab3dEf7h\"",
         {"JTS_CustomFactoryInfo: randpassword:Ab3dEf7h\n"}},
    };
    for (const RoundTrip &c : cases) {
        SCOPED_TRACE(c.json);
        alignas(8) unsigned char rec[2048] = {};
        auto r = receive(c.type, c.json, rec);
        EXPECT_EQ(r.ret, 0);
        EXPECT_THAT(r.traces, ElementsAreArray(c.traces));
        EXPECT_EQ(bxtest::stj_typed(c.type, rec), c.wire);
    }
}

TEST(Carrier, RecordsToTree)
{
    AgentUplinkInfoParam up{1, "bh", -70, -90, 300, 200};
    EXPECT_EQ(bxtest::stj_typed(MSG_WIFI_GET_AGENT_UPLINK_INFO, &up),
              "type=s\"2p4g\" ssid=s\"bh\" rssi=i32:-70 noise=i32:-90 uprate=i32:300 downrate=i32:200");
    // "GD" is a carrier (3) and a province (9).
    CustomInfoParam ci{3, 9};
    EXPECT_EQ(bxtest::stj_typed(MSG_CUSTOM_INFO, &ci), "operate=s\"GD\" district=s\"GD\"");
}

// Only five messages refuse a missing key; the rest take what is there.
TEST(Carrier, MissingKeys)
{
    BX_REQUIRE_TRACE_CAPTURE();
    struct Case {
        int type;
        int ret;
        std::vector<std::string> traces;
    };
    const Case cases[] = {
        {MSG_CTCC_ELINK_STATUS, -1,
         {"JTS_CheckBlobAttr: Illegal parameter: status\n", "JTS_CTCCElinkInfo: [status] is not valid.\n"}},
        {MSG_ROUTER_NAME, -1,
         {"JTS_CheckBlobAttr: Illegal parameter: routername\n", "JTS_RouterName: [routername] is not valid.\n"}},
        {MSG_KERNELCOUNT, -1,
         {"JTS_CheckBlobAttr: Illegal parameter: count\n", "JTS_KernelCount: [count] is not valid.\n"}},
        {MSG_FACTORY_FLAG, -1, {"JTS_CheckBlobAttr: Illegal parameter: status\n"}},
        // A missing time is reported under the name "status".
        {MSG_SYNC_TIME, -1, {"JTS_CheckBlobAttr: Illegal parameter: time\n", "JTS_SyncTime: [status] is not valid.\n"}},
        {MSG_WAN_TCP_UDP_CON_NUM_GET, 0,
         {"JTS_CheckBlobAttr: Illegal parameter: wanindex\n", "JTS_WanTcpUdpConNum_Get: [wan index] is not valid.\n",
          "JTS_CheckBlobAttr: Illegal parameter: number\n"}},
        {MSG_CUSTOM_FACTORY_INFO, 0, {"JTS_CheckBlobAttr: Illegal parameter: randpassword\n"}},
        {MSG_QUICKJOIN, 0, {"JTS_CheckBlobAttr: Illegal parameter: status\n"}},
        {MSG_CMCC_CFG_FILE_SYNC, 0, {"JTS_CheckBlobAttr: Illegal parameter: cfgfile\n"}},
        {MSG_CTCC_ROUTER_PIN, 0, {"JTS_CheckBlobAttr: Illegal parameter: pin\n"}},
        {MSG_UPGRADE_REPORT, 0,
         {"JTS_CheckBlobAttr: Illegal parameter: status\n", "JTS_CheckBlobAttr: Illegal parameter: errCode\n"}},
        {MSG_CTCC_SERVER_INFO, 0,
         {"JTS_CheckBlobAttr: Illegal parameter: bssaddr\n", "JTS_CheckBlobAttr: Illegal parameter: abiaddr\n",
          "JTS_CheckBlobAttr: Illegal parameter: devtoken\n", "JTS_CheckBlobAttr: Illegal parameter: devid\n",
          "JTS_CheckBlobAttr: Illegal parameter: backup\n"}},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.type);
        Guarded<CTCCServerInfoParam> g(0x5A);  // the largest record of these types
        auto r = receive(c.type, R"({"other": "x"})", &g.rec);
        EXPECT_EQ(r.ret, c.ret);
        EXPECT_TRUE(g.rec_all(0x5A));
        EXPECT_TRUE(g.guards_intact());
        EXPECT_THAT(r.traces, ElementsAreArray(c.traces));
    }
}

TEST(Carrier, ConnectionCountIsTakenWithoutWanIndex)
{
    WanTcpUdpConNumParam rec{9, 0};
    EXPECT_EQ(receive(MSG_WAN_TCP_UDP_CON_NUM_GET, R"({"number": 12})", &rec).ret, 0);
    EXPECT_EQ(rec.uiWanIndex, 9u);
    EXPECT_EQ(rec.uiNumber, 12u);
}

TEST(Carrier, RandomPasswordMustHaveEightCharacters)
{
    BX_REQUIRE_TRACE_CAPTURE();
    struct Case {
        std::string password;
        bool taken;
        std::string trace;
    };
    const std::string long40(40, 'x');
    const Case cases[] = {
        {"Ab3dEf7h", true, "JTS_CustomFactoryInfo: randpassword:Ab3dEf7h\n"},
        {"Ab3dEf7", false, "JTS_CustomFactoryInfo: wrong randpassword:Ab3dEf7\n"},
        {"Ab3dEf7h9", false, "JTS_CustomFactoryInfo: wrong randpassword:Ab3dEf7h9\n"},
        {"", false, "JTS_CustomFactoryInfo: wrong randpassword:\n"},
        // Measured after the cut to 31 characters.
        {long40, false, "JTS_CustomFactoryInfo: wrong randpassword:" + std::string(31, 'x') + "\n"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.password);
        Guarded<CustomFactoryInfoParam> g;
        std::strcpy(g.rec.szRandPassword, "previous");
        std::string json = R"({"randpassword": ")" + c.password + "\"}";
        auto r = receive(MSG_CUSTOM_FACTORY_INFO, json.c_str(), &g.rec);
        EXPECT_EQ(r.ret, 0);
        EXPECT_STREQ(g.rec.szRandPassword, c.taken ? c.password.c_str() : "previous");
        EXPECT_TRUE(g.guards_intact());
        EXPECT_THAT(r.traces, ElementsAre(c.trace));
    }
}

TEST(Carrier, ServerInfoMaskSelectsTheMembers)
{
    CTCCServerInfoParam rec{};
    std::strcpy(rec.szBssAddr, "bss");
    std::strcpy(rec.szAbiAddr, "abi");
    std::strcpy(rec.szDevToken, "tok");
    std::strcpy(rec.szDevId, "id");
    std::strcpy(rec.aszBackup[0], "b0");
    std::strcpy(rec.aszBackup[1], "b1");
    std::strcpy(rec.aszBackup[3], "b3");  // after an empty entry: not sent
    struct Case {
        uint32_t mask;
        const char *wire;
    };
    const Case cases[] = {
        {0, ""},
        {CTCC_SERVER_BSSADDR | CTCC_SERVER_DEVID, "bssaddr=s\"bss\" devid=s\"id\""},
        {CTCC_SERVER_ABIADDR | CTCC_SERVER_DEVTOKEN, "abiaddr=s\"abi\" devtoken=s\"tok\""},
        {CTCC_SERVER_BACKUP, "backup=[s\"b0\" s\"b1\"]"},
        {0x1F, "bssaddr=s\"bss\" abiaddr=s\"abi\" devtoken=s\"tok\" devid=s\"id\" backup=[s\"b0\" s\"b1\"]"},
        {0xFFFFFFE0u, ""},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.mask);
        rec.uiValidMask = c.mask;
        int ret = -2;
        EXPECT_EQ(bxtest::stj_typed(MSG_CTCC_SERVER_INFO, &rec, &ret), c.wire);
        EXPECT_EQ(ret, 0);
    }
    CTCCServerInfoParam empty{};
    empty.uiValidMask = CTCC_SERVER_BACKUP;
    EXPECT_EQ(bxtest::stj_typed(MSG_CTCC_SERVER_INFO, &empty), "backup=[]");
}

TEST(Carrier, ServerInfoTreeToRecord)
{
    BX_REQUIRE_TRACE_CAPTURE();
    CTCCServerInfoParam rec{};
    rec.uiValidMask = 0x100;  // bits are added, never cleared
    auto r = receive(MSG_CTCC_SERVER_INFO, R"({"abiaddr": "abi.example", "devid": "D1",
        "backup": ["b0", "b1"]})", &rec);
    EXPECT_EQ(r.ret, 0);
    EXPECT_EQ(rec.uiValidMask, 0x100u | CTCC_SERVER_ABIADDR | CTCC_SERVER_DEVID | CTCC_SERVER_BACKUP);
    EXPECT_STREQ(rec.szAbiAddr, "abi.example");
    EXPECT_STREQ(rec.aszBackup[1], "b1");
    EXPECT_THAT(r.traces, ElementsAre("JTS_CheckBlobAttr: Illegal parameter: bssaddr\n",
                                      "JTS_CTCCServerInfo: abiaddr:abi.example\n",
                                      "JTS_CheckBlobAttr: Illegal parameter: devtoken\n",
                                      "JTS_CTCCServerInfo: devid:D1\n", "JTS_CTCCServerInfo: backup:b0\n",
                                      "JTS_CTCCServerInfo: backup:b1\n"));
    EXPECT_EQ(bxtest::stj_typed(MSG_CTCC_SERVER_INFO, &rec),
              "abiaddr=s\"abi.example\" devid=s\"D1\" backup=[s\"b0\" s\"b1\"]");
}

// The texts take their whole 65-byte arrays: a 65-character text is stored
// without a terminator, and goes out again as exactly those 65 characters.
TEST(Carrier, ServerInfoTextsFillTheirWholeArrays)
{
    const std::string t65(65, 'a');
    const std::string t70(70, 'b');
    std::string json = R"({"bssaddr": ")" + t65 + R"(", "devtoken": ")" + t70 + R"(", "backup": [")" + t65 + "\"]}";
    Guarded<CTCCServerInfoParam> g(0x5A);
    g.rec.uiValidMask = 0;
    EXPECT_EQ(receive(MSG_CTCC_SERVER_INFO, json.c_str(), &g.rec).ret, 0);
    EXPECT_EQ(std::string(g.rec.szBssAddr, 65), t65);
    EXPECT_EQ(std::string(g.rec.szDevToken, 65), std::string(65, 'b'));
    EXPECT_EQ(std::string(g.rec.aszBackup[0], 65), t65);
    EXPECT_EQ(g.rec.szAbiAddr[0], 0x5A);  // absent: untouched
    EXPECT_TRUE(g.guards_intact());
    EXPECT_EQ(g.rec.uiValidMask, unsigned{CTCC_SERVER_BSSADDR | CTCC_SERVER_DEVTOKEN | CTCC_SERVER_BACKUP});

    std::memset(g.rec.aszBackup[1], 0, sizeof g.rec.aszBackup[1]);
    EXPECT_EQ(bxtest::stj_typed(MSG_CTCC_SERVER_INFO, &g.rec),
              "bssaddr=s\"" + t65 + "\" devtoken=s\"" + std::string(65, 'b') + "\" backup=[s\"" + t65 + "\"]");
}

TEST(Carrier, ServerInfoBackupListStopsAtSixteen)
{
    BX_REQUIRE_TRACE_CAPTURE();
    std::string json = R"({"backup": [)";
    for (int i = 0; i < 20; ++i)
        json += "\"s" + std::to_string(i) + (i < 19 ? "\", " : "\"]}");
    Guarded<CTCCServerInfoParam> g;
    auto r = receive(MSG_CTCC_SERVER_INFO, json.c_str(), &g.rec);
    EXPECT_EQ(r.ret, 0);
    EXPECT_STREQ(g.rec.aszBackup[15], "s15");
    EXPECT_TRUE(g.guards_intact());
    EXPECT_EQ(r.traces.back(), "JTS_CTCCServerInfo: backup:s15\n");

    // Sending walks at most the array too, however full it is.
    for (auto &entry : g.rec.aszBackup)
        std::memset(entry, 'z', sizeof entry);
    std::string wire = bxtest::stj_typed(MSG_CTCC_SERVER_INFO, &g.rec);
    EXPECT_EQ(std::count(wire.begin(), wire.end(), 's'), 16);
}

TEST(Carrier, RowsCarryTheirNameTexts)
{
    struct Row {
        int type;
        const char *to_json;
        const char *to_struct;
    };
    const Row rows[] = {
        {MSG_STA_STORAGE_INFO, "StaStorageInfo", "StaStorageInfo"},
        {MSG_CUSTOM_INFO, "CustomInfo", "CustomInfo"},
        {MSG_CTCC_BASIC_INFO, "CTCCBasicInfo", "CTCCBasicInfo"},
        {MSG_CTCC_SERVER_INFO, "CTCCServerInfo", "CTCCServerInfo"},
        {MSG_CTCC_ELINK_STATUS, "CTCCElinkStatus", "CTCCElinkInfo"},
        {MSG_CMCC_BASIC_INFO, "CMCCBasicInfo", "CMCCBasicInfo"},
        {MSG_TELNET, "Telnet", "Telnet"},
        {MSG_SAMBA, "Samba", "Samba"},
        {MSG_FTP, "Ftp", "Ftp"},
        {MSG_ROUTER_NAME, "RouterName", "RouterName"},
        {MSG_KERNELCOUNT, "kernelcount", "kernelcount"},
        {MSG_CTCC_ROUTER_PIN, "CTCCRouterPin", "CTCCRouterPin"},
        {MSG_FACTORY_FLAG, "FactoryFlag", "FactoryFlag"},
        {MSG_CMCC_CFG_FILE_SYNC, "CMCCCfgFileSync", "CMCCCfgFileSync"},
        {MSG_SYNC_TIME, "sync time", "sync time"},
        {MSG_WAN_TCP_UDP_CON_NUM_GET, "Wan_TcpUdpConNum_get", "Wan_TcpUdpConNum_get"},
        {MSG_CUSTOM_FACTORY_INFO, "CustomFactoryInfo", "CustomFactoryInfo"},
        {MSG_WIFI_GET_AGENT_UPLINK_INFO, "wifi get agent_uplink_info", "wifi get agent_uplink_info"},
        {MSG_UPGRADE_REPORT, "Upgrade report", "Upgrade report"},
        {MSG_FILE_SYNC, "FileSync", "FileSync"},
        {MSG_QUICKJOIN, "Quickjoin", "Quickjoin"},
        {131, "", ""},
        {167, "", ""},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.type);
        EXPECT_EQ(bxtest::row_name(g_astStructToJson_Func, g_iStructToJson_FuncNum, row.type), row.to_json);
        EXPECT_EQ(bxtest::row_name(g_astJsonToStruct_Func, g_iJsonToStruct_FuncNum, row.type), row.to_struct);
    }
}

TEST(Carrier, ToolRoundTrip)
{
    bxtest::ToolResult res;
    if (!bxtest::run_tool(MSG_CTCC_SERVER_INFO, R"({"devid": "D1", "backup": ["b0"]})", res))
        GTEST_SKIP() << "blobxlate program not built";
    EXPECT_EQ(res.exit_code, 0);
    EXPECT_EQ(res.out, "JSON_TRANS_STRUCT: 0\nSTRUCT_TRANS_JSON: 0\n"
                       "{\n\t\"devid\": \"D1\",\n\t\"backup\": [\n\t\t\"b0\"\n\t]\n}\n");

    // A refused message is reported by the exit status.
    ASSERT_TRUE(bxtest::run_tool(MSG_ROUTER_NAME, R"({"name": "x"})", res));
    EXPECT_EQ(res.exit_code, 1);
}

} // namespace
