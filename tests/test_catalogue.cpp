// The message catalogue: which types exist in which direction, at which row,
// under which name text. Callers and traces depend on all of it, the odd
// name texts included.
#include <gtest/gtest.h>

#include <cstring>
#include <set>

#include "support.h"

namespace {

constexpr int kNone = -1;

struct CatalogueRow {
    int type;
    int stj_row;
    const char *stj_name;
    int jts_row;
    const char *jts_name;
};

const CatalogueRow kCatalogue[] = {
    {  0, 0, "Ret", 0, "Ret"},
    {  1, 1, "HwInfo", 1, "HwInfo"},
    {  2, 2, "FwInfo", 2, "FwInfo"},
    {  3, 3, "ManuInfo", 3, "ManuInfo"},
    {  4, 4, "ManageInfo", 4, "ManageInfo"},
    {  5, 5, "FuncSupport", 5, "FuncSupport"},
    {  6, 6, "CpuRate", 6, "CpuRate"},
    {  7, 7, "MemRate", 7, "MemRate"},
    {  8, 8, "FlashRate", 8, "FlashRate"},
    {  9, 9, "RunTimeInfo", 9, "RunTimeInfo"},
    { 10, 10, "TcpOpenPort", 47, "tcpopenport"},
    { 11, 11, "UdpOpenPort", 48, "udpopenport"},
    { 12, 14, "Reboot", 10, "Reboot"},
    { 15, 15, "Upgrade", 11, "Upgrade"},
    { 16, 18, "LoginPassWord", 12, "LoginPassWord"},
    { 17, 19, "FireWall", 13, "FireWall"},
    { 18, 12, "LedStatus", 14, "Led"},
    { 19, 16, "UpgradeStatus", kNone, nullptr},
    { 20, 17, "LedColour", 15, "Ledcolour"},
    { 21, 13, "DualbandSyncStatus", 16, "DualbandSync"},
    { 22, 70, "WanStatus", 49, "WanStatus"},
    { 23, 72, "IPv6Enable", 51, "IPv6Enable"},
    { 24, 71, "IPv6Info", 50, "IPv6Info"},
    { 25, 73, "Dhcp", 52, "Dhcp"},
    { 26, 74, "Static", 53, "Static"},
    { 27, 75, "Pppoe", 54, "Pppoe"},
    { 28, 76, "BridgeSwitch", 55, "BridgeSet"},
    { 29, 77, "BridgeStatus", 56, "BridgeGet"},
    { 30, 78, "Repeater_SetInfo", 57, "RepeaterSet"},
    { 31, 79, "Repeater_StaInfo", 58, "RepeaterGet"},
    { 32, 80, "Repeater_List", 59, "RepeaterList"},
    { 33, 81, "CloneMac", 60, "WanMacClone"},
    { 34, 82, "Lan", 61, "Lan"},
    { 35, 83, "LanClone", 62, "LanMacClone"},
    { 36, 84, "DhcpServer", 63, "DhcpServer"},
    { 37, 85, "LanStatic", 64, "LanStatic"},
    { 38, 86, "LanStatic List", 65, "LanStatic List"},
    { 39, 87, "LockNet", 66, "LockNet"},
    { 40, 88, "Ping", 67, "Ping"},
    { 41, 89, "TraceRoute", 68, "TraceRoute"},
    { 42, 90, "Ping_Result", 69, "PingResult"},
    { 43, 91, "TraceRoute_Result", 70, "TraceRouteResult"},
    { 44, 92, "UplinkSupport", 71, "UplinkSupport"},
    { 45, 116, "PortNum", 41, "PortNum"},
    { 46, 117, "StaList", 42, "PortStatus"},
    { 47, 118, "StaList", 43, "PortTraffic"},
    { 48, 119, "StaList", 44, "PortRate"},
    { 49, 120, "PortMAC", 45, "PortMAC"},
    { 50, 121, "PortUpDown", 46, "PortUpDown"},
    { 52, 21, "WifiStatus", 110, "WifiStatus"},
    { 53, 22, "WifiOpt", 111, "WifiOpt"},
    { 54, 23, "WifiDeassociation", 112, "WifiDeassociation"},
    { 55, 24, "WifiMesh", 113, "WifiMesh"},
    { 56, 25, "WifiMeshRoaming", 114, "WifiMeshRoanming"},
    { 57, 26, "WifiBackhaulbss", 115, "WIFI_BACKHAULBSS"},
    { 58, 27, "WifiTopo", 116, "WIFI_TOPO"},
    { 59, 30, "WifiLocalMesh_Event", kNone, nullptr},
    { 60, 28, "WifiTopoMac", 117, "WIFI_TOPO_AP_MAC"},
    { 61, 29, "WifiTopoAp_Map", 118, "WIFI_TOPO_AP_MAP"},
    { 62, 31, "WifiTopoChange", 119, "WIFI_TOPOCHANGE"},
    { 63, 20, "WifiSelect", 109, "WifiSelect"},
    { 64, 113, "wifi balckwihite add", 142, "wifi balckwihite add"},
    { 65, 114, "wifi balckwihite delete", 143, "wifi balckwihite delete"},
    { 66, 115, "wifi balckwihite list", 144, "wifi balckwihite list"},
    { 67, 32, "Wifi5Status", 120, "Wifi5Status"},
    { 68, 33, "RadioBasic", 121, "RadioBasic"},
    { 70, 34, "ApBasic", 122, "ApBasic"},
    { 71, 35, "ApAdvanced", 123, "ApAdvanced"},
    { 72, 36, "ApRateLimit", 124, "ApRateLimit"},
    { 73, 37, "ApAccessMode", 125, "ApAccessMode"},
    { 74, 38, "ApAccessRule", 126, "ApAccessRule"},
    { 75, 39, "ApAdd", 127, "ApAdd"},
    { 76, 40, "ApDelete", 128, "ApDelete"},
    { 77, 41, "ScanWlanNeighbour", 129, "ScanWlanNeighbour"},
    { 78, 42, "WlanNeighbour", 130, "WlanNeighbour"},
    { 79, 43, "WpsPbc", 131, "WpsPbc"},
    { 80, 44, "ChannelScan", 132, "Channel scan"},
    { 81, 45, "ChannelScore", 133, "ChannelScore"},
    { 84, 54, "RebootTimer", 17, "RebootTimer"},
    { 85, 56, "WifiTimerset", 18, "WifiTimer"},
    { 86, 55, "WifiTimer", 19, "WifiTimer"},
    { 87, 57, "WifiTimerIdx", 20, "WifiTimerIdx"},
    { 88, 122, "StaList", 72, "StaList"},
    { 89, 123, "StaInfoByMac", 73, "StaInfoByMac"},
    { 90, 124, "StaWifiPwdErr", 74, "StaWifiPwdErr"},
    { 91, 125, "StaTraffic", 75, "StaTraffic"},
    { 92, 126, "StaNum", 76, "StaNum"},
    { 93, 127, "StaName", 77, "StaName"},
    { 94, 128, "StaModel", 89, "StaModel"},
    { 98, 129, "StaCtrlStatus", 78, "StaCtrlStatus"},
    { 99, 130, "StaCtrlMode", 79, "StaCtrlMode"},
    {100, 131, "StaCtrlModeSwitch", 80, "StaCtrlModeSwitch"},
    {101, 132, "StaCtrlList", 81, "StaCtrlList"},
    {102, 133, "StaBWListGet", 87, "StaCtrBlackList"},
    {103, 134, "StaCtrlInternet", 82, "StaCtrlInternet"},
    {104, 135, "StaCtrlWifi", 83, "StaCtrlWifi"},
    {105, 136, "StaCtrlWifi list", 84, "StaCtrlWifi list"},
    {106, 137, "StaCtrlItemAdd", 85, "StaCtrlItemAdd"},
    {107, 138, "StaCtrlInternetTime", 86, "StaCtrlInternetTime"},
    {108, 58, "Ratelimit", 21, "Ratelimit"},
    {109, 59, "RatelimitList", 22, "RatelimitList"},
    {110, 60, "PeriodRateSet", 23, "PeriodRateSet"},
    {111, 61, "PeriodRateGet", 24, "PeriodRateGet"},
    {112, 62, "Iptv", 25, "Iptv"},
    {113, 63, "L2Roaming", 26, "L2Roaming"},
    {114, 64, "Roaming", 27, "Roaming"},
    {115, 65, "Roaming AP Rssi Query", 28, "Roaming AP Rssi Query"},
    {116, 66, "Roaming AP Rssi RSP", 29, "Roaming AP Rssi RSP"},
    {117, 67, "Roaming BSS Trans", 30, "Roaming BSS Trans"},
    {118, 69, "Roaming report", 31, "Roaming report"},
    {119, kNone, nullptr, 33, "Roaming Stopdetect"},
    {120, 68, "Roaming Sta Rssi", 32, "Roaming sta Rssi"},
    {121, 46, "QoS", 134, "QoS"},
    {122, 47, "Dscp", 135, "Dscp"},
    {123, 48, "8021p", 136, "8021p"},
    {124, 49, "Qos_Classification_Add", 137, "Qos_Classification"},
    {125, 50, "Qos_Classification_Delete", 138, "Qos_Classification_Delete"},
    {126, 53, "Qos_Classification_List", 139, "Qos_Classification_List"},
    {127, 51, "Qos_Classification_Set", 140, "Qos_Classification_Set"},
    {128, 52, "Qos_Classification_Get", 141, "Qos_Classification_Get"},
    {129, 139, "StaStorageInfo", 88, "StaStorageInfo"},
    {130, 140, "CustomInfo", 90, "CustomInfo"},
    {132, 93, "FilterUrl", 34, "FilterUrl"},
    {134, 98, "FilterUrl_List", 35, "FilterUrl"},
    {135, 94, "FilterUrl", 36, "FilterUrl"},
    {136, 96, "FilterUrl_Reply", 37, "FilterUrlReply"},
    {137, 99, "FilterDns_List", 38, "FilterDns"},
    {138, 95, "FilterDns", 39, "FilterDns"},
    {139, 97, "FilterDns_Reply", 40, "FilterDnsReply"},
    {140, 100, "Vsie_Info", 96, "Vsie_Info"},
    {141, 101, "Vsie_Beacontx_Add", 97, "Vsie_Beacontx_Add"},
    {142, 103, "Vsie_Beacontx_Idx", 99, "Vsie_Beacontx_Idx"},
    {143, 104, "Vsie_Beacontx_List", 100, "Vsie_Beacontx_List"},
    {144, 102, "Vsie_Beacontx_Set", 98, "Vsie_Beacontx_Set"},
    {145, 105, "Vsie_Proberx_Add", 101, "Vsie_Proberx_Add"},
    {146, 107, "Vsie_Proberx_Idx", 103, "Vsie_Proberx_Idx"},
    {147, 108, "Vsie_Proberx_List", 104, "Vsie_Proberx_List"},
    {148, 106, "Vsie_Proberx_Flush", 102, "Vsie_Proberx_Flush"},
    {149, 109, "Vsie_Proberx_Record_Add", 105, "Vsie_Proberx_Record_Add"},
    {150, 110, "Vsie_Proberesp_Add", 106, "Vsie_Proberesp_Add"},
    {151, 111, "Vsie_Proberesp_Idx", 107, "Vsie_Proberesp_Idx"},
    {152, 112, "Vsie_Proberesp_List", 108, "Vsie_Proberesp_List"},
    {153, 142, "CTCCBasicInfo", 92, "CTCCBasicInfo"},
    {154, 143, "CTCCServerInfo", 93, "CTCCServerInfo"},
    {155, 144, "CTCCElinkStatus", 94, "CTCCElinkInfo"},
    {156, 145, "CMCCBasicInfo", 95, "CMCCBasicInfo"},
    {157, 148, "Telnet", 145, "Telnet"},
    {158, 149, "Samba", 146, "Samba"},
    {159, 150, "Ftp", 147, "Ftp"},
    {160, 152, "RouterName", 148, "RouterName"},
    {161, 153, "kernelcount", 149, "kernelcount"},
    {162, 154, "CTCCRouterPin", 150, "CTCCRouterPin"},
    {163, 151, "FactoryFlag", 154, "FactoryFlag"},
    {164, 146, "CMCCCfgFileSync", 151, "CMCCCfgFileSync"},
    {165, 147, "sync time", 152, "sync time"},
    {166, 155, "Wan_TcpUdpConNum_get", 153, "Wan_TcpUdpConNum_get"},
    {168, 141, "CustomFactoryInfo", 91, "CustomFactoryInfo"},
    {169, 156, "wifi get agent_uplink_info", 155, "wifi get agent_uplink_info"},
    {170, 157, "Upgrade report", 156, "Upgrade report"},
    {171, 158, "FileSync", 157, "FileSync"},
    {172, 159, "Quickjoin", 158, "Quickjoin"},
};

TEST(Catalogue, TablesHoldEveryRowInOrderWithItsNameText)
{
    EXPECT_EQ(g_iStructToJson_FuncNum, 160);
    EXPECT_EQ(g_iJsonToStruct_FuncNum, 159);
    for (const CatalogueRow &c : kCatalogue) {
        SCOPED_TRACE(c.type);
        if (c.stj_row != kNone) {
            ASSERT_LT(c.stj_row, g_iStructToJson_FuncNum);
            EXPECT_EQ(g_astStructToJson_Func[c.stj_row].id, c.type);
            EXPECT_STREQ(g_astStructToJson_Func[c.stj_row].name, c.stj_name);
            EXPECT_NE(g_astStructToJson_Func[c.stj_row].converter.toJson, nullptr);
        }
        if (c.jts_row != kNone) {
            ASSERT_LT(c.jts_row, g_iJsonToStruct_FuncNum);
            EXPECT_EQ(g_astJsonToStruct_Func[c.jts_row].id, c.type);
            EXPECT_STREQ(g_astJsonToStruct_Func[c.jts_row].name, c.jts_name);
            EXPECT_NE(g_astJsonToStruct_Func[c.jts_row].converter.toStruct, nullptr);
        }
    }
}

// Both MAC clone types share one converter in each direction.
TEST(Catalogue, MacClonesShareTheirConverters)
{
    auto stj = [](int type) {
        for (int i = 0; i < g_iStructToJson_FuncNum; ++i)
            if (g_astStructToJson_Func[i].id == type)
                return g_astStructToJson_Func[i].converter.toJson;
        return StructToJsonFunc{};
    };
    auto jts = [](int type) {
        for (int i = 0; i < g_iJsonToStruct_FuncNum; ++i)
            if (g_astJsonToStruct_Func[i].id == type)
                return g_astJsonToStruct_Func[i].converter.toStruct;
        return JsonToStructFunc{};
    };
    EXPECT_EQ(stj(MSG_CLONE_MAC), stj(MSG_LAN_CLONE));
    EXPECT_EQ(jts(MSG_CLONE_MAC), jts(MSG_LAN_CLONE));
}

// Every number dispatches exactly where it has a row: a type without a row
// in a direction returns 0 and leaves record and buffer as they were, a
// type with one always calls its converter (which announces itself in the
// dispatcher's trace line).
TEST(Catalogue, EveryNumberDispatchesOnlyWhereItHasARow)
{
    BX_REQUIRE_TRACE_CAPTURE();
    std::set<int> stj_types, jts_types;
    for (const CatalogueRow &c : kCatalogue) {
        if (c.stj_row != kNone)
            stj_types.insert(c.type);
        if (c.jts_row != kNone)
            jts_types.insert(c.type);
    }
    bxtest::Msg msg("{}");
    for (int type = -3; type <= 176; ++type) {
        SCOPED_TRACE(type);
        // Large enough for any record; the station list's array pointer is
        // null with a capacity of 0, which its converters accept.
        alignas(16) static unsigned char rec[131072];
        std::memset(rec, 0, sizeof rec);
        bxtest::TraceCapture cap;
        bxtest::Buf buf;
        STRUCT_TRANS_JSON(type, rec, buf.get());
        auto lines = cap.take();
        if (stj_types.count(type)) {
            ASSERT_FALSE(lines.empty());
            EXPECT_EQ(lines[0].rfind("STRUCT_TRANS_JSON: Struct To Json: [", 0), 0u);
        } else {
            EXPECT_TRUE(lines.empty());
            EXPECT_EQ(buf.typed(), "");
        }
        std::memset(rec, 0x5A, sizeof rec);
        int ret = JSON_TRANS_STRUCT(type, msg, rec);
        lines = cap.take();
        ASSERT_FALSE(lines.empty());  // the rendering of the message comes first
        if (jts_types.count(type)) {
            ASSERT_GE(lines.size(), 2u);
            EXPECT_EQ(lines[1].rfind("JSON_TRANS_STRUCT: Json To Struct: [", 0), 0u);
        } else {
            EXPECT_EQ(ret, 0);
            EXPECT_EQ(lines.size(), 1u);
            for (unsigned char b : rec)
                ASSERT_EQ(b, 0x5A);
        }
    }
}

} // namespace
