/* The two dispatch tables. The row order and the name texts are part of the
 * interface (the name texts appear in the dispatchers' trace lines and
 * differ between the two tables for many types); each row carries its
 * position as a comment. Both tables end with a closing row that the
 * dispatchers' inclusive scan may look at but never matches. */
#include "blobxlate.h"
#include "core/tables.h"

namespace {

int closing_row_to_json(const void *, struct blob_buf *) { return 0; }
int closing_row_to_struct(struct blob_attr *, void *) { return 0; }

constexpr MessageTransEntry stj(const char *name, int32_t id, StructToJsonFunc fn)
{
    return {.name = name, .id = id, .converter = {.toJson = fn}};
}

constexpr MessageTransEntry jts(const char *name, int32_t id, JsonToStructFunc fn)
{
    return {.name = name, .id = id, .converter = {.toStruct = fn}};
}

} // namespace

extern "C" {

constinit const MessageTransEntry g_astStructToJson_Func[] = {
    /*   0 */ stj("Ret", MSG_RET, STJ_Ret),
    /*  20 */ stj("WifiSelect", MSG_WIFI_SELECT, STJ_WifiSelect),
    /*  21 */ stj("WifiStatus", MSG_WIFI_STATUS, STJ_WifiStatus),
    /*  22 */ stj("WifiOpt", MSG_WIFI_OPT, STJ_WifiOpt),
    /*  24 */ stj("WifiMesh", MSG_WIFI_MESH, STJ_WifiMesh),
    /*  25 */ stj("WifiMeshRoaming", MSG_WIFI_MESH_ROAMING, STJ_WifiMeshRoaming),
    /*  26 */ stj("WifiBackhaulbss", MSG_WIFI_BACKHAUL_BSS, STJ_WifiBackhaulbss),
    /*  27 */ stj("WifiTopo", MSG_WIFI_TOPO, STJ_WifiTopo),
    /*  28 */ stj("WifiTopoMac", MSG_WIFI_TOPO_MAC, STJ_WifiTopoMac),
    /*  29 */ stj("WifiTopoAp_Map", MSG_WIFI_TOPO_AP_MAP, STJ_WifiTopoAp_Map),
    /*  30 */ stj("WifiLocalMesh_Event", MSG_WIFI_LOCAL_MESH_EVENT, STJ_WifiLocalMesh_Event),
    /*  31 */ stj("WifiTopoChange", MSG_WIFI_TOPO_CHANGE, STJ_WifiTopoChange),
    /*  32 */ stj("Wifi5Status", MSG_WIFI5_STATUS, STJ_Wifi5Status),
    /*  33 */ stj("RadioBasic", MSG_RADIO_BASIC, STJ_RadioBasic),
    /*  34 */ stj("ApBasic", MSG_AP_BASIC, STJ_ApBasic),
    /*  35 */ stj("ApAdvanced", MSG_AP_ADVANCED, STJ_ApAdvanced),
    /*  36 */ stj("ApRateLimit", MSG_AP_RATE_LIMIT, STJ_ApRateLimit),
    /*  37 */ stj("ApAccessMode", MSG_AP_ACCESS_MODE, STJ_ApAccessMode),
    /*  38 */ stj("ApAccessRule", MSG_AP_ACCESS_RULE, STJ_ApAccessRule),
    /*  39 */ stj("ApAdd", MSG_AP_ADD, STJ_ApAdd),
    /*  40 */ stj("ApDelete", MSG_AP_DELETE, STJ_ApDelete),
    /*  70 */ stj("WanStatus", MSG_WAN_STATUS, STJ_WanStatus),
    /*  71 */ stj("IPv6Info", MSG_IPV6_INFO, STJ_IPv6Info),
    /*  72 */ stj("IPv6Enable", MSG_IPV6_ENABLE, STJ_IPv6Enable),
    /*  73 */ stj("Dhcp", MSG_DHCP, STJ_Dhcp),
    /*  74 */ stj("Static", MSG_STATIC, STJ_Static),
    /*  75 */ stj("Pppoe", MSG_PPPOE, STJ_Pppoe),
    /*  76 */ stj("BridgeSwitch", MSG_BRIDGE_SWITCH, STJ_BridgeSwitch),
    /*  77 */ stj("BridgeStatus", MSG_BRIDGE_STATUS, STJ_BridgeStatus),
    /*  78 */ stj("Repeater_SetInfo", MSG_REPEATER_SET_INFO, STJ_Repeater_SetInfo),
    /*  79 */ stj("Repeater_StaInfo", MSG_REPEATER_STA_INFO, STJ_Repeater_StaInfo),
    /*  80 */ stj("Repeater_List", MSG_REPEATER_LIST, STJ_Repeater_List),
    /*  81 */ stj("CloneMac", MSG_CLONE_MAC, STJ_CloneMac),
    /*  82 */ stj("Lan", MSG_LAN, STJ_Lan),
    /*  83 */ stj("LanClone", MSG_LAN_CLONE, STJ_CloneMac),
    /*  84 */ stj("DhcpServer", MSG_DHCP_SERVER, STJ_DhcpServer),
    /*  85 */ stj("LanStatic", MSG_LAN_STATIC, STJ_LanStatic),
    /*  86 */ stj("LanStatic List", MSG_LAN_STATIC_LIST, STJ_LanStatic_List),
    /*  87 */ stj("LockNet", MSG_LOCK_NET, STJ_LockNet),
    /*  88 */ stj("Ping", MSG_PING, STJ_Ping),
    /*  89 */ stj("TraceRoute", MSG_TRACE_ROUTE, STJ_TraceRoute),
    /*  90 */ stj("Ping_Result", MSG_PING_RESULT, STJ_Ping_Result),
    /*  91 */ stj("TraceRoute_Result", MSG_TRACE_ROUTE_RESULT, STJ_TraceRoute_Result),
    /*  92 */ stj("UplinkSupport", MSG_UPLINK_SUPPORT, STJ_UplinkSupport),
    /* 116 */ stj("PortNum", MSG_PORT_NUM, STJ_PortNum),
    /* 117 */ stj("StaList", MSG_PORT_STATUS, STJ_PortStatus),
    /* 118 */ stj("StaList", MSG_PORT_TRAFFIC, STJ_PortTraffic),
    /* 119 */ stj("StaList", MSG_PORT_RATE, STJ_PortRate),
    /* 120 */ stj("PortMAC", MSG_PORT_MAC, STJ_PortMAC),
    /* 121 */ stj("PortUpDown", MSG_PORT_UP_DOWN, STJ_PortUpDown),
    /* 122 */ stj("StaList", MSG_STA_LIST, STJ_StaList),
    /* 123 */ stj("StaInfoByMac", MSG_STA_INFO_BY_MAC, STJ_StaInfoByMac),
    /* 124 */ stj("StaWifiPwdErr", MSG_STA_WIFI_PWD_ERR, STJ_StaWifiPwdErr),
    /* 125 */ stj("StaTraffic", MSG_STA_TRAFFIC, STJ_StaTraffic),
    /* 126 */ stj("StaNum", MSG_STA_NUM, STJ_StaNum),
    /* 127 */ stj("StaName", MSG_STA_NAME, STJ_StaName),
    /* 128 */ stj("StaModel", MSG_STA_MODEL, STJ_StaModel),
    /* 129 */ stj("StaCtrlStatus", MSG_STA_CTRL_STATUS, STJ_StaCtrlStatus),
    /* 130 */ stj("StaCtrlMode", MSG_STA_CTRL_MODE, STJ_StaCtrlMode),
    /* 131 */ stj("StaCtrlModeSwitch", MSG_STA_CTRL_MODE_SWITCH, STJ_StaCtrlModeSwitch),
    /* 132 */ stj("StaCtrlList", MSG_STA_CTRL_LIST, STJ_StaCtrlList),
    /* 133 */ stj("StaBWListGet", MSG_STA_BWLIST_GET, STJ_StaBWListGet),
    /* 134 */ stj("StaCtrlInternet", MSG_STA_CTRL_INTERNET, STJ_StaCtrlInternet),
    /* 135 */ stj("StaCtrlWifi", MSG_STA_CTRL_WIFI, STJ_StaCtrlWifi),
    /* 136 */ stj("StaCtrlWifi list", MSG_STA_CTRL_WIFI_LIST, STJ_StaCtrlWifi_List),
    /* 137 */ stj("StaCtrlItemAdd", MSG_STA_CTRL_ITEM_ADD, STJ_StaCtrlItemAdd),
    /* 138 */ stj("StaCtrlInternetTime", MSG_STA_CTRL_INTERNET_TIME, STJ_StaCtrlInternetTime),
    /* closing row */ stj(nullptr, bx::kClosingRowId, closing_row_to_json),
};
const int32_t g_iStructToJson_FuncNum =
    static_cast<int32_t>(sizeof g_astStructToJson_Func / sizeof g_astStructToJson_Func[0]) - 1;

constinit const MessageTransEntry g_astJsonToStruct_Func[] = {
    /*   0 */ jts("Ret", MSG_RET, JTS_Ret),
    /*  41 */ jts("PortNum", MSG_PORT_NUM, JTS_PortNum),
    /*  42 */ jts("PortStatus", MSG_PORT_STATUS, JTS_PortStatus),
    /*  43 */ jts("PortTraffic", MSG_PORT_TRAFFIC, JTS_PortTraffic),
    /*  44 */ jts("PortRate", MSG_PORT_RATE, JTS_PortRate),
    /*  45 */ jts("PortMAC", MSG_PORT_MAC, JTS_PortMAC),
    /*  46 */ jts("PortUpDown", MSG_PORT_UP_DOWN, JTS_PortUpDown),
    /*  49 */ jts("WanStatus", MSG_WAN_STATUS, JTS_WanStatus),
    /*  50 */ jts("IPv6Info", MSG_IPV6_INFO, JTS_IPv6Info),
    /*  51 */ jts("IPv6Enable", MSG_IPV6_ENABLE, JTS_IPv6Enable),
    /*  52 */ jts("Dhcp", MSG_DHCP, JTS_Dhcp),
    /*  53 */ jts("Static", MSG_STATIC, JTS_Static),
    /*  54 */ jts("Pppoe", MSG_PPPOE, JTS_Pppoe),
    /*  55 */ jts("BridgeSet", MSG_BRIDGE_SWITCH, JTS_BridgeSet),
    /*  56 */ jts("BridgeGet", MSG_BRIDGE_STATUS, JTS_BridgeGet),
    /*  57 */ jts("RepeaterSet", MSG_REPEATER_SET_INFO, JTS_RepeaterSet),
    /*  58 */ jts("RepeaterGet", MSG_REPEATER_STA_INFO, JTS_RepeaterGet),
    /*  59 */ jts("RepeaterList", MSG_REPEATER_LIST, JTS_RepeaterList),
    /*  60 */ jts("WanMacClone", MSG_CLONE_MAC, JTS_MacClone),
    /*  61 */ jts("Lan", MSG_LAN, JTS_Lan),
    /*  62 */ jts("LanMacClone", MSG_LAN_CLONE, JTS_MacClone),
    /*  63 */ jts("DhcpServer", MSG_DHCP_SERVER, JTS_DhcpServer),
    /*  64 */ jts("LanStatic", MSG_LAN_STATIC, JTS_LanStatic),
    /*  65 */ jts("LanStatic List", MSG_LAN_STATIC_LIST, JTS_LanStatic_List),
    /*  66 */ jts("LockNet", MSG_LOCK_NET, JTS_LockNet),
    /*  67 */ jts("Ping", MSG_PING, JTS_Ping),
    /*  68 */ jts("TraceRoute", MSG_TRACE_ROUTE, JTS_TraceRoute),
    /*  69 */ jts("PingResult", MSG_PING_RESULT, JTS_PingResult),
    /*  70 */ jts("TraceRouteResult", MSG_TRACE_ROUTE_RESULT, JTS_TraceRouteResult),
    /*  71 */ jts("UplinkSupport", MSG_UPLINK_SUPPORT, JTS_UplinkSupport),
    /*  72 */ jts("StaList", MSG_STA_LIST, JTS_StaList),
    /*  73 */ jts("StaInfoByMac", MSG_STA_INFO_BY_MAC, JTS_StaInfoByMac),
    /*  74 */ jts("StaWifiPwdErr", MSG_STA_WIFI_PWD_ERR, JTS_WifiPwdErr),
    /*  75 */ jts("StaTraffic", MSG_STA_TRAFFIC, JTS_StaTraffic),
    /*  76 */ jts("StaNum", MSG_STA_NUM, JTS_StaNum),
    /*  77 */ jts("StaName", MSG_STA_NAME, JTS_StaName),
    /*  78 */ jts("StaCtrlStatus", MSG_STA_CTRL_STATUS, JTS_StaCtrlStatus),
    /*  79 */ jts("StaCtrlMode", MSG_STA_CTRL_MODE, JTS_StaCtrlMode),
    /*  80 */ jts("StaCtrlModeSwitch", MSG_STA_CTRL_MODE_SWITCH, JTS_StaCtrlModeSwitch),
    /*  81 */ jts("StaCtrlList", MSG_STA_CTRL_LIST, JTS_StaCtrlList),
    /*  82 */ jts("StaCtrlInternet", MSG_STA_CTRL_INTERNET, JTS_StaCtrlInternet),
    /*  83 */ jts("StaCtrlWifi", MSG_STA_CTRL_WIFI, JTS_StaCtrlWifi),
    /*  84 */ jts("StaCtrlWifi list", MSG_STA_CTRL_WIFI_LIST, JTS_StaCtrlWifi_List),
    /*  85 */ jts("StaCtrlItemAdd", MSG_STA_CTRL_ITEM_ADD, JTS_StaCtrlItemAdd),
    /*  86 */ jts("StaCtrlInternetTime", MSG_STA_CTRL_INTERNET_TIME, JTS_StaCtrlInternetTime),
    /*  87 */ jts("StaCtrBlackList", MSG_STA_BWLIST_GET, JTS_StaCtrBlackList),
    /*  89 */ jts("StaModel", MSG_STA_MODEL, JTS_StaModel),
    /* 109 */ jts("WifiSelect", MSG_WIFI_SELECT, JTS_WifiRadio),
    /* 110 */ jts("WifiStatus", MSG_WIFI_STATUS, JTS_WifiStatus),
    /* 111 */ jts("WifiOpt", MSG_WIFI_OPT, JTS_WifiOpt),
    /* 113 */ jts("WifiMesh", MSG_WIFI_MESH, JTS_WifiMesh),
    /* 114 */ jts("WifiMeshRoanming", MSG_WIFI_MESH_ROAMING, JTS_WifiMeshRoaming),
    /* 115 */ jts("WIFI_BACKHAULBSS", MSG_WIFI_BACKHAUL_BSS, JTS_WifiBackhaulbss),
    /* 116 */ jts("WIFI_TOPO", MSG_WIFI_TOPO, JTS_WifiTopo),
    /* 117 */ jts("WIFI_TOPO_AP_MAC", MSG_WIFI_TOPO_MAC, JTS_WifiTopoMac),
    /* 118 */ jts("WIFI_TOPO_AP_MAP", MSG_WIFI_TOPO_AP_MAP, JTS_WifiTopoAp_Map),
    /* 119 */ jts("WIFI_TOPOCHANGE", MSG_WIFI_TOPO_CHANGE, JTS_WifiTopoChange),
    /* 120 */ jts("Wifi5Status", MSG_WIFI5_STATUS, JTS_Wifi5Status),
    /* 121 */ jts("RadioBasic", MSG_RADIO_BASIC, JTS_RadioBasic),
    /* 122 */ jts("ApBasic", MSG_AP_BASIC, JTS_ApBasic),
    /* 123 */ jts("ApAdvanced", MSG_AP_ADVANCED, JTS_ApAdvanced),
    /* 124 */ jts("ApRateLimit", MSG_AP_RATE_LIMIT, JTS_ApRateLimit),
    /* 125 */ jts("ApAccessMode", MSG_AP_ACCESS_MODE, JTS_ApAccessMode),
    /* 126 */ jts("ApAccessRule", MSG_AP_ACCESS_RULE, JTS_ApAccessRule),
    /* 127 */ jts("ApAdd", MSG_AP_ADD, JTS_ApAdd),
    /* 128 */ jts("ApDelete", MSG_AP_DELETE, JTS_ApDelete),
    /* closing row */ jts(nullptr, bx::kClosingRowId, closing_row_to_struct),
};
const int32_t g_iJsonToStruct_FuncNum =
    static_cast<int32_t>(sizeof g_astJsonToStruct_Func / sizeof g_astJsonToStruct_Func[0]) - 1;

} // extern "C"
