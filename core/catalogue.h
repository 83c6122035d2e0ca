/* The message catalogue: one line per message type with the records it
 * reads and fills and its row in each dispatch table: the row's position,
 * its name text and its converter.
 *
 * The two tables are not mirror images. Their row orders differ, a type may
 * have a row in one direction only, the same type often carries different
 * name texts in the two (daemons match on the text they have always seen),
 * and some converters stand in several rows (33 and 35 share theirs in both
 * tables). The dispatch tables are built from these lines in row order
 * (core/tables.cpp); a position used twice or left empty stops the compile.
 *
 * Two directions of a type may work on different records (the QoS rule
 * query, the probe flush): a caller's record must hold the larger. */
#ifndef BLOBXLATE_CORE_CATALOGUE_H
#define BLOBXLATE_CORE_CATALOGUE_H

/* X(type, record sent, record received, struct-to-JSON row, JSON-to-struct
 * row); a row is BX_ROW(position, name text, converter) or BX_NO_ROW. */
#define BX_CATALOGUE(X) \
    X(MSG_RET, RetParam, RetParam, BX_ROW(  0, "Ret", STJ_Ret), BX_ROW(  0, "Ret", JTS_Ret)) \
    X(MSG_HW_INFO, HwInfoParam, HwInfoParam, BX_ROW(  1, "HwInfo", STJ_HwInfo), BX_ROW(  1, "HwInfo", JTS_HwInfo)) \
    X(MSG_FW_INFO, FwInfoParam, FwInfoParam, BX_ROW(  2, "FwInfo", STJ_FwInfo), BX_ROW(  2, "FwInfo", JTS_FwInfo)) \
    X(MSG_MANU_INFO, ManuInfoParam, ManuInfoParam, BX_ROW(  3, "ManuInfo", STJ_ManuInfo), BX_ROW(  3, "ManuInfo", JTS_ManuInfo)) \
    X(MSG_MANAGE_INFO, ManageInfoParam, ManageInfoParam, BX_ROW(  4, "ManageInfo", STJ_ManageInfo), BX_ROW(  4, "ManageInfo", JTS_ManageInfo)) \
    X(MSG_FUNC_SUPPORT, FuncSupportParam, FuncSupportParam, BX_ROW(  5, "FuncSupport", STJ_FuncSupport), BX_ROW(  5, "FuncSupport", JTS_FuncSupport)) \
    X(MSG_CPU_RATE, CpuRateParam, CpuRateParam, BX_ROW(  6, "CpuRate", STJ_CpuRate), BX_ROW(  6, "CpuRate", JTS_CpuRate)) \
    X(MSG_MEM_RATE, MemRateParam, MemRateParam, BX_ROW(  7, "MemRate", STJ_MemRate), BX_ROW(  7, "MemRate", JTS_MemRate)) \
    X(MSG_FLASH_RATE, FlashRateParam, FlashRateParam, BX_ROW(  8, "FlashRate", STJ_FlashRate), BX_ROW(  8, "FlashRate", JTS_FlashRate)) \
    X(MSG_RUN_TIME_INFO, RunTimeInfoParam, RunTimeInfoParam, BX_ROW(  9, "RunTimeInfo", STJ_RunTimeInfo), BX_ROW(  9, "RunTimeInfo", JTS_RunTimeInfo)) \
    X(MSG_TCP_OPEN_PORT, OpenPortParam, OpenPortParam, BX_ROW( 10, "TcpOpenPort", STJ_TcpOpenPort), BX_ROW( 47, "tcpopenport", JTS_TcpOpenPort)) \
    X(MSG_UDP_OPEN_PORT, OpenPortParam, OpenPortParam, BX_ROW( 11, "UdpOpenPort", STJ_UdpOpenPort), BX_ROW( 48, "udpopenport", JTS_UdpOpenPort)) \
    X(MSG_REBOOT, RebootParam, RebootParam, BX_ROW( 14, "Reboot", STJ_Reboot), BX_ROW( 10, "Reboot", JTS_Reboot)) \
    X(MSG_UPGRADE, UpgradeParam, UpgradeParam, BX_ROW( 15, "Upgrade", STJ_Upgrade), BX_ROW( 11, "Upgrade", JTS_Upgrade)) \
    X(MSG_LOGIN_PASSWORD, LoginPasswordParam, LoginPasswordParam, BX_ROW( 18, "LoginPassWord", STJ_LoginPassWord), BX_ROW( 12, "LoginPassWord", JTS_LoginPassWord)) \
    X(MSG_FIRE_WALL, SwitchStatusParam, SwitchStatusParam, BX_ROW( 19, "FireWall", STJ_FireWall), BX_ROW( 13, "FireWall", JTS_FireWall)) \
    X(MSG_LED_STATUS, SwitchStatusParam, SwitchStatusParam, BX_ROW( 12, "LedStatus", STJ_LedStatus), BX_ROW( 14, "Led", JTS_Led)) \
    X(MSG_UPGRADE_STATUS, UpgradeStatusParam, UpgradeStatusParam, BX_ROW( 16, "UpgradeStatus", STJ_UpgradeStatus), BX_NO_ROW) \
    X(MSG_LED_COLOUR, LedColourParam, LedColourParam, BX_ROW( 17, "LedColour", STJ_LedColour), BX_ROW( 15, "Ledcolour", JTS_Led_Colour)) \
    X(MSG_DUALBAND_SYNC_STATUS, SwitchStatusParam, SwitchStatusParam, BX_ROW( 13, "DualbandSyncStatus", STJ_DualbandSyncStatus), BX_ROW( 16, "DualbandSync", JTS_DualbandSync)) \
    X(MSG_WAN_STATUS, WanStatusInfo, WanStatusInfo, BX_ROW( 70, "WanStatus", STJ_WanStatus), BX_ROW( 49, "WanStatus", JTS_WanStatus)) \
    X(MSG_IPV6_ENABLE, Ipv6Switch, Ipv6Switch, BX_ROW( 72, "IPv6Enable", STJ_IPv6Enable), BX_ROW( 51, "IPv6Enable", JTS_IPv6Enable)) \
    X(MSG_IPV6_INFO, Ipv6Info, Ipv6Info, BX_ROW( 71, "IPv6Info", STJ_IPv6Info), BX_ROW( 50, "IPv6Info", JTS_IPv6Info)) \
    X(MSG_DHCP, WanDhcpConfig, WanDhcpConfig, BX_ROW( 73, "Dhcp", STJ_Dhcp), BX_ROW( 52, "Dhcp", JTS_Dhcp)) \
    X(MSG_STATIC, WanStaticConfig, WanStaticConfig, BX_ROW( 74, "Static", STJ_Static), BX_ROW( 53, "Static", JTS_Static)) \
    X(MSG_PPPOE, WanPppoeConfig, WanPppoeConfig, BX_ROW( 75, "Pppoe", STJ_Pppoe), BX_ROW( 54, "Pppoe", JTS_Pppoe)) \
    X(MSG_BRIDGE_SWITCH, BridgeSwitchParam, BridgeSwitchParam, BX_ROW( 76, "BridgeSwitch", STJ_BridgeSwitch), BX_ROW( 55, "BridgeSet", JTS_BridgeSet)) \
    X(MSG_BRIDGE_STATUS, BridgeStatusParam, BridgeStatusParam, BX_ROW( 77, "BridgeStatus", STJ_BridgeStatus), BX_ROW( 56, "BridgeGet", JTS_BridgeGet)) \
    X(MSG_REPEATER_SET_INFO, RepeaterSetParam, RepeaterSetParam, BX_ROW( 78, "Repeater_SetInfo", STJ_Repeater_SetInfo), BX_ROW( 57, "RepeaterSet", JTS_RepeaterSet)) \
    X(MSG_REPEATER_STA_INFO, RepeaterStaInfoParam, RepeaterStaInfoParam, BX_ROW( 79, "Repeater_StaInfo", STJ_Repeater_StaInfo), BX_ROW( 58, "RepeaterGet", JTS_RepeaterGet)) \
    X(MSG_REPEATER_LIST, RepeaterListParam, RepeaterListParam, BX_ROW( 80, "Repeater_List", STJ_Repeater_List), BX_ROW( 59, "RepeaterList", JTS_RepeaterList)) \
    X(MSG_CLONE_MAC, MacCloneParam, MacCloneParam, BX_ROW( 81, "CloneMac", STJ_CloneMac), BX_ROW( 60, "WanMacClone", JTS_MacClone)) \
    X(MSG_LAN, LanParam, LanParam, BX_ROW( 82, "Lan", STJ_Lan), BX_ROW( 61, "Lan", JTS_Lan)) \
    X(MSG_LAN_CLONE, MacCloneParam, MacCloneParam, BX_ROW( 83, "LanClone", STJ_CloneMac), BX_ROW( 62, "LanMacClone", JTS_MacClone)) \
    X(MSG_DHCP_SERVER, DhcpServerParam, DhcpServerParam, BX_ROW( 84, "DhcpServer", STJ_DhcpServer), BX_ROW( 63, "DhcpServer", JTS_DhcpServer)) \
    X(MSG_LAN_STATIC, LanStaticParam, LanStaticParam, BX_ROW( 85, "LanStatic", STJ_LanStatic), BX_ROW( 64, "LanStatic", JTS_LanStatic)) \
    X(MSG_LAN_STATIC_LIST, LanStaticListParam, LanStaticListParam, BX_ROW( 86, "LanStatic List", STJ_LanStatic_List), BX_ROW( 65, "LanStatic List", JTS_LanStatic_List)) \
    X(MSG_LOCK_NET, LockNetParam, LockNetParam, BX_ROW( 87, "LockNet", STJ_LockNet), BX_ROW( 66, "LockNet", JTS_LockNet)) \
    X(MSG_PING, PingRequest, PingRequest, BX_ROW( 88, "Ping", STJ_Ping), BX_ROW( 67, "Ping", JTS_Ping)) \
    X(MSG_TRACE_ROUTE, TraceRouteRequest, TraceRouteRequest, BX_ROW( 89, "TraceRoute", STJ_TraceRoute), BX_ROW( 68, "TraceRoute", JTS_TraceRoute)) \
    X(MSG_PING_RESULT, PingResult, PingResult, BX_ROW( 90, "Ping_Result", STJ_Ping_Result), BX_ROW( 69, "PingResult", JTS_PingResult)) \
    X(MSG_TRACE_ROUTE_RESULT, TraceRouteResult, TraceRouteResult, BX_ROW( 91, "TraceRoute_Result", STJ_TraceRoute_Result), BX_ROW( 70, "TraceRouteResult", JTS_TraceRouteResult)) \
    X(MSG_UPLINK_SUPPORT, UplinkSupport, UplinkSupport, BX_ROW( 92, "UplinkSupport", STJ_UplinkSupport), BX_ROW( 71, "UplinkSupport", JTS_UplinkSupport)) \
    X(MSG_PORT_NUM, PortNum, PortNum, BX_ROW(116, "PortNum", STJ_PortNum), BX_ROW( 41, "PortNum", JTS_PortNum)) \
    X(MSG_PORT_STATUS, PortStatus, PortStatus, BX_ROW(117, "StaList", STJ_PortStatus), BX_ROW( 42, "PortStatus", JTS_PortStatus)) \
    X(MSG_PORT_TRAFFIC, PortTraffic, PortTraffic, BX_ROW(118, "StaList", STJ_PortTraffic), BX_ROW( 43, "PortTraffic", JTS_PortTraffic)) \
    X(MSG_PORT_RATE, PortRate, PortRate, BX_ROW(119, "StaList", STJ_PortRate), BX_ROW( 44, "PortRate", JTS_PortRate)) \
    X(MSG_PORT_MAC, PortMac, PortMac, BX_ROW(120, "PortMAC", STJ_PortMAC), BX_ROW( 45, "PortMAC", JTS_PortMAC)) \
    X(MSG_PORT_UP_DOWN, PortUpDown, PortUpDown, BX_ROW(121, "PortUpDown", STJ_PortUpDown), BX_ROW( 46, "PortUpDown", JTS_PortUpDown)) \
    X(MSG_WIFI_STATUS, WifiSwitchRec, WifiSwitchRec, BX_ROW( 21, "WifiStatus", STJ_WifiStatus), BX_ROW(110, "WifiStatus", JTS_WifiStatus)) \
    X(MSG_WIFI_OPT, WifiRadioRec, WifiRadioRec, BX_ROW( 22, "WifiOpt", STJ_WifiOpt), BX_ROW(111, "WifiOpt", JTS_WifiOpt)) \
    X(MSG_WIFI_DEASSOCIATION, WifiDeassocRec, WifiDeassocRec, BX_ROW( 23, "WifiDeassociation", STJ_WifiStaDeassociation), BX_ROW(112, "WifiDeassociation", JTS_WifiStaDeassociation)) \
    X(MSG_WIFI_MESH, MeshRoleParam, MeshRoleParam, BX_ROW( 24, "WifiMesh", STJ_WifiMesh), BX_ROW(113, "WifiMesh", JTS_WifiMesh)) \
    X(MSG_WIFI_MESH_ROAMING, MeshRoamingParam, MeshRoamingParam, BX_ROW( 25, "WifiMeshRoaming", STJ_WifiMeshRoaming), BX_ROW(114, "WifiMeshRoanming", JTS_WifiMeshRoaming)) \
    X(MSG_WIFI_BACKHAUL_BSS, BackhaulBssParam, BackhaulBssParam, BX_ROW( 26, "WifiBackhaulbss", STJ_WifiBackhaulbss), BX_ROW(115, "WIFI_BACKHAULBSS", JTS_WifiBackhaulbss)) \
    X(MSG_WIFI_TOPO, WifiTopoParam, WifiTopoParam, BX_ROW( 27, "WifiTopo", STJ_WifiTopo), BX_ROW(116, "WIFI_TOPO", JTS_WifiTopo)) \
    X(MSG_WIFI_LOCAL_MESH_EVENT, LocalMeshEventParam, LocalMeshEventParam, BX_ROW( 30, "WifiLocalMesh_Event", STJ_WifiLocalMesh_Event), BX_NO_ROW) \
    X(MSG_WIFI_TOPO_MAC, TopoApMacParam, TopoApMacParam, BX_ROW( 28, "WifiTopoMac", STJ_WifiTopoMac), BX_ROW(117, "WIFI_TOPO_AP_MAC", JTS_WifiTopoMac)) \
    X(MSG_WIFI_TOPO_AP_MAP, TopoApMapParam, TopoApMapParam, BX_ROW( 29, "WifiTopoAp_Map", STJ_WifiTopoAp_Map), BX_ROW(118, "WIFI_TOPO_AP_MAP", JTS_WifiTopoAp_Map)) \
    X(MSG_WIFI_TOPO_CHANGE, TopoChangeParam, TopoChangeParam, BX_ROW( 31, "WifiTopoChange", STJ_WifiTopoChange), BX_ROW(119, "WIFI_TOPOCHANGE", JTS_WifiTopoChange)) \
    X(MSG_WIFI_SELECT, WifiSelectRec, WifiSelectRec, BX_ROW( 20, "WifiSelect", STJ_WifiSelect), BX_ROW(109, "WifiSelect", JTS_WifiRadio)) \
    X(MSG_WIFI_BLACK_WHITE_ADD, WifiAccessEntryRec, WifiAccessEntryRec, BX_ROW(113, "wifi balckwihite add", STJ_WifiBlackWhite_Add), BX_ROW(142, "wifi balckwihite add", JTS_WifiBlackWhite_Add)) \
    X(MSG_WIFI_BLACK_WHITE_DELETE, WifiAccessEntryRec, WifiAccessEntryRec, BX_ROW(114, "wifi balckwihite delete", STJ_WifiBlackWhite_Delete), BX_ROW(143, "wifi balckwihite delete", JTS_WifiBlackWhite_Delete)) \
    X(MSG_WIFI_BLACK_WHITE_LIST, WifiAccessListRec, WifiAccessListRec, BX_ROW(115, "wifi balckwihite list", STJ_WifiBlackWhite_List), BX_ROW(144, "wifi balckwihite list", JTS_WifiBlackWhite_List)) \
    X(MSG_WIFI5_STATUS, WifiSwitchRec, WifiSwitchRec, BX_ROW( 32, "Wifi5Status", STJ_Wifi5Status), BX_ROW(120, "Wifi5Status", JTS_Wifi5Status)) \
    X(MSG_RADIO_BASIC, RadioBasicRec, RadioBasicRec, BX_ROW( 33, "RadioBasic", STJ_RadioBasic), BX_ROW(121, "RadioBasic", JTS_RadioBasic)) \
    X(MSG_AP_BASIC, ApBasicRec, ApBasicRec, BX_ROW( 34, "ApBasic", STJ_ApBasic), BX_ROW(122, "ApBasic", JTS_ApBasic)) \
    X(MSG_AP_ADVANCED, ApAdvancedRec, ApAdvancedRec, BX_ROW( 35, "ApAdvanced", STJ_ApAdvanced), BX_ROW(123, "ApAdvanced", JTS_ApAdvanced)) \
    X(MSG_AP_RATE_LIMIT, ApRateLimitRec, ApRateLimitRec, BX_ROW( 36, "ApRateLimit", STJ_ApRateLimit), BX_ROW(124, "ApRateLimit", JTS_ApRateLimit)) \
    X(MSG_AP_ACCESS_MODE, ApAccessModeRec, ApAccessModeRec, BX_ROW( 37, "ApAccessMode", STJ_ApAccessMode), BX_ROW(125, "ApAccessMode", JTS_ApAccessMode)) \
    X(MSG_AP_ACCESS_RULE, ApAccessRuleRec, ApAccessRuleRec, BX_ROW( 38, "ApAccessRule", STJ_ApAccessRule), BX_ROW(126, "ApAccessRule", JTS_ApAccessRule)) \
    X(MSG_AP_ADD, ApIndexRec, ApIndexRec, BX_ROW( 39, "ApAdd", STJ_ApAdd), BX_ROW(127, "ApAdd", JTS_ApAdd)) \
    X(MSG_AP_DELETE, ApIndexRec, ApIndexRec, BX_ROW( 40, "ApDelete", STJ_ApDelete), BX_ROW(128, "ApDelete", JTS_ApDelete)) \
    X(MSG_SCAN_WLAN_NEIGHBOUR, WifiRadioRec, WifiRadioRec, BX_ROW( 41, "ScanWlanNeighbour", STJ_ScanWlanNeighbour), BX_ROW(129, "ScanWlanNeighbour", JTS_ScanWlanNeighbour)) \
    X(MSG_WLAN_NEIGHBOUR, WlanNeighbourRec, WlanNeighbourRec, BX_ROW( 42, "WlanNeighbour", STJ_WlanNeighbour), BX_ROW(130, "WlanNeighbour", JTS_WlanNeighbour)) \
    X(MSG_WPS_PBC, WpsPbcRec, WpsPbcRec, BX_ROW( 43, "WpsPbc", STJ_WpsPbc), BX_ROW(131, "WpsPbc", JTS_WpsPbc)) \
    X(MSG_CHANNEL_SCAN, WifiRadioRec, WifiRadioRec, BX_ROW( 44, "ChannelScan", STJ_ChannelScan), BX_ROW(132, "Channel scan", JTS_ChannelScan)) \
    X(MSG_CHANNEL_SCORE, ChannelScoreRec, ChannelScoreRec, BX_ROW( 45, "ChannelScore", STJ_ChannelScore), BX_ROW(133, "ChannelScore", JTS_ChannelScore)) \
    X(MSG_REBOOT_TIMER, RebootTimer, RebootTimer, BX_ROW( 54, "RebootTimer", STJ_RebootTimer), BX_ROW( 17, "RebootTimer", JTS_RebootTimer)) \
    X(MSG_WIFI_TIMER_SET, WifiTimerTask, WifiTimerTask, BX_ROW( 56, "WifiTimerset", STJ_WifiTimer_Set), BX_ROW( 18, "WifiTimer", JTS_WifiTimer_Set)) \
    X(MSG_WIFI_TIMER, WifiTimerList, WifiTimerList, BX_ROW( 55, "WifiTimer", STJ_WifiTimer_List), BX_ROW( 19, "WifiTimer", JTS_WifiTimer_Get)) \
    X(MSG_WIFI_TIMER_IDX, WifiTimerIdx, WifiTimerIdx, BX_ROW( 57, "WifiTimerIdx", STJ_WifiTimer_Idx), BX_ROW( 20, "WifiTimerIdx", JTS_WifiTimer_Idx)) \
    X(MSG_STA_LIST, StaListInfo, StaListInfo, BX_ROW(122, "StaList", STJ_StaList), BX_ROW( 72, "StaList", JTS_StaList)) \
    X(MSG_STA_INFO_BY_MAC, StaEntry, StaEntry, BX_ROW(123, "StaInfoByMac", STJ_StaInfoByMac), BX_ROW( 73, "StaInfoByMac", JTS_StaInfoByMac)) \
    X(MSG_STA_WIFI_PWD_ERR, StaMac, StaMac, BX_ROW(124, "StaWifiPwdErr", STJ_StaWifiPwdErr), BX_ROW( 74, "StaWifiPwdErr", JTS_WifiPwdErr)) \
    X(MSG_STA_TRAFFIC, StaTraffic, StaTraffic, BX_ROW(125, "StaTraffic", STJ_StaTraffic), BX_ROW( 75, "StaTraffic", JTS_StaTraffic)) \
    X(MSG_STA_NUM, StaNum, StaNum, BX_ROW(126, "StaNum", STJ_StaNum), BX_ROW( 76, "StaNum", JTS_StaNum)) \
    X(MSG_STA_NAME, StaName, StaName, BX_ROW(127, "StaName", STJ_StaName), BX_ROW( 77, "StaName", JTS_StaName)) \
    X(MSG_STA_MODEL, StaModel, StaModel, BX_ROW(128, "StaModel", STJ_StaModel), BX_ROW( 89, "StaModel", JTS_StaModel)) \
    X(MSG_STA_CTRL_STATUS, StaCtrlStatusParam, StaCtrlStatusParam, BX_ROW(129, "StaCtrlStatus", STJ_StaCtrlStatus), BX_ROW( 78, "StaCtrlStatus", JTS_StaCtrlStatus)) \
    X(MSG_STA_CTRL_MODE, StaCtrlModeParam, StaCtrlModeParam, BX_ROW(130, "StaCtrlMode", STJ_StaCtrlMode), BX_ROW( 79, "StaCtrlMode", JTS_StaCtrlMode)) \
    X(MSG_STA_CTRL_MODE_SWITCH, StaCtrlModeSwitchParam, StaCtrlModeSwitchParam, BX_ROW(131, "StaCtrlModeSwitch", STJ_StaCtrlModeSwitch), BX_ROW( 80, "StaCtrlModeSwitch", JTS_StaCtrlModeSwitch)) \
    X(MSG_STA_CTRL_LIST, StaCtrlListParam, StaCtrlListParam, BX_ROW(132, "StaCtrlList", STJ_StaCtrlList), BX_ROW( 81, "StaCtrlList", JTS_StaCtrlList)) \
    X(MSG_STA_BWLIST_GET, StaCtrlModeParam, StaCtrlModeParam, BX_ROW(133, "StaBWListGet", STJ_StaBWListGet), BX_ROW( 87, "StaCtrBlackList", JTS_StaCtrBlackList)) \
    X(MSG_STA_CTRL_INTERNET, StaCtrlAllowParam, StaCtrlAllowParam, BX_ROW(134, "StaCtrlInternet", STJ_StaCtrlInternet), BX_ROW( 82, "StaCtrlInternet", JTS_StaCtrlInternet)) \
    X(MSG_STA_CTRL_WIFI, StaCtrlAllowParam, StaCtrlAllowParam, BX_ROW(135, "StaCtrlWifi", STJ_StaCtrlWifi), BX_ROW( 83, "StaCtrlWifi", JTS_StaCtrlWifi)) \
    X(MSG_STA_CTRL_WIFI_LIST, StaCtrlWifiListParam, StaCtrlWifiListParam, BX_ROW(136, "StaCtrlWifi list", STJ_StaCtrlWifi_List), BX_ROW( 84, "StaCtrlWifi list", JTS_StaCtrlWifi_List)) \
    X(MSG_STA_CTRL_ITEM_ADD, StaCtrlItemParam, StaCtrlItemParam, BX_ROW(137, "StaCtrlItemAdd", STJ_StaCtrlItemAdd), BX_ROW( 85, "StaCtrlItemAdd", JTS_StaCtrlItemAdd)) \
    X(MSG_STA_CTRL_INTERNET_TIME, StaCtrlInternetTimeParam, StaCtrlInternetTimeParam, BX_ROW(138, "StaCtrlInternetTime", STJ_StaCtrlInternetTime), BX_ROW( 86, "StaCtrlInternetTime", JTS_StaCtrlInternetTime)) \
    X(MSG_RATELIMIT, RateLimitEntry, RateLimitEntry, BX_ROW( 58, "Ratelimit", STJ_Ratelimit), BX_ROW( 21, "Ratelimit", JTS_Ratelimit)) \
    X(MSG_RATELIMIT_LIST, RateLimitList, RateLimitList, BX_ROW( 59, "RatelimitList", STJ_RatelimitList), BX_ROW( 22, "RatelimitList", JTS_RatelimitList)) \
    X(MSG_PERIOD_RATE_SET, PeriodRateTask, PeriodRateTask, BX_ROW( 60, "PeriodRateSet", STJ_PeriodRate_Set), BX_ROW( 23, "PeriodRateSet", JTS_PeriodRate_Set)) \
    X(MSG_PERIOD_RATE_GET, PeriodRateReport, PeriodRateReport, BX_ROW( 61, "PeriodRateGet", STJ_PeriodRate_Get), BX_ROW( 24, "PeriodRateGet", JTS_PeriodRate_Get)) \
    X(MSG_IPTV, IptvConfig, IptvConfig, BX_ROW( 62, "Iptv", STJ_IPTV), BX_ROW( 25, "Iptv", JTS_IPTV)) \
    X(MSG_L2_ROAMING, L2RoamingRec, L2RoamingRec, BX_ROW( 63, "L2Roaming", STJ_L2_Roaming), BX_ROW( 26, "L2Roaming", JTS_L2_Roaming)) \
    X(MSG_ROAMING, RoamingRec, RoamingRec, BX_ROW( 64, "Roaming", STJ_Roaming), BX_ROW( 27, "Roaming", JTS_Roaming)) \
    X(MSG_ROAMING_AP_RSSI_QUERY, RoamingApQueryRec, RoamingApQueryRec, BX_ROW( 65, "Roaming AP Rssi Query", STJ_Roaming_APQuery), BX_ROW( 28, "Roaming AP Rssi Query", JTS_Roaming_APQuery)) \
    X(MSG_ROAMING_AP_RSSI_RSP, RoamingApRspRec, RoamingApRspRec, BX_ROW( 66, "Roaming AP Rssi RSP", STJ_Roaming_APRsp), BX_ROW( 29, "Roaming AP Rssi RSP", JTS_Roaming_APRsp)) \
    X(MSG_ROAMING_BSS_TRANS, RoamingBssTransRec, RoamingBssTransRec, BX_ROW( 67, "Roaming BSS Trans", STJ_Roaming_BssTrans), BX_ROW( 30, "Roaming BSS Trans", JTS_Roaming_BssTrans)) \
    X(MSG_ROAMING_REPORT, RoamingReportRec, RoamingReportRec, BX_ROW( 69, "Roaming report", STJ_Roaming_Report), BX_ROW( 31, "Roaming report", JTS_Roaming_Report)) \
    X(MSG_ROAMING_STOPDETECT, RoamingStopDetectRec, RoamingStopDetectRec, BX_NO_ROW, BX_ROW( 33, "Roaming Stopdetect", JTS_Roaming_StopDetect)) \
    X(MSG_ROAMING_STA_RSSI, RoamingStaRssiRec, RoamingStaRssiRec, BX_ROW( 68, "Roaming Sta Rssi", STJ_Roaming_StaRssi), BX_ROW( 32, "Roaming sta Rssi", JTS_Roaming_StaRssi)) \
    X(MSG_QOS, QosSwitch, QosSwitch, BX_ROW( 46, "QoS", STJ_QoS), BX_ROW(134, "QoS", JTS_QoS)) \
    X(MSG_DSCP, QosSwitch, QosSwitch, BX_ROW( 47, "Dscp", STJ_Dscp), BX_ROW(135, "Dscp", JTS_Dscp)) \
    X(MSG_8021P, QosSwitch, QosSwitch, BX_ROW( 48, "8021p", STJ_8021p), BX_ROW(136, "8021p", JTS_8021p)) \
    X(MSG_QOS_CLASSIFICATION_ADD, QosClassRule, QosClassRule, BX_ROW( 49, "Qos_Classification_Add", STJ_Qos_Classification_Add), BX_ROW(137, "Qos_Classification", JTS_Qos_Classification_Add)) \
    X(MSG_QOS_CLASSIFICATION_DELETE, QosClassIndex, QosClassIndex, BX_ROW( 50, "Qos_Classification_Delete", STJ_Qos_Classification_Delete), BX_ROW(138, "Qos_Classification_Delete", JTS_Qos_Classification_Delete)) \
    X(MSG_QOS_CLASSIFICATION_LIST, QosClassRuleList, QosClassRuleList, BX_ROW( 53, "Qos_Classification_List", STJ_Qos_Classification_List), BX_ROW(139, "Qos_Classification_List", JTS_Qos_Classification_List)) \
    X(MSG_QOS_CLASSIFICATION_SET, QosClassRule, QosClassRule, BX_ROW( 51, "Qos_Classification_Set", STJ_Qos_Classification_Set), BX_ROW(140, "Qos_Classification_Set", JTS_Qos_Classification_Set)) \
    X(MSG_QOS_CLASSIFICATION_GET, QosClassRule, QosClassIndex, BX_ROW( 52, "Qos_Classification_Get", STJ_Qos_Classification_Get), BX_ROW(141, "Qos_Classification_Get", JTS_Qos_Classification_Get)) \
    X(MSG_STA_STORAGE_INFO, StaStorageInfoParam, StaStorageInfoParam, BX_ROW(139, "StaStorageInfo", STJ_StaStorageInfo), BX_ROW( 88, "StaStorageInfo", JTS_StaStorageInfo)) \
    X(MSG_CUSTOM_INFO, CustomInfoParam, CustomInfoParam, BX_ROW(140, "CustomInfo", STJ_CustomInfo), BX_ROW( 90, "CustomInfo", JTS_CustomInfo)) \
    X(MSG_FILTER_URL_SWITCH, FilterSwitch, FilterSwitch, BX_ROW( 93, "FilterUrl", STJ_FilterUrl_Switch), BX_ROW( 34, "FilterUrl", JTS_FilterUrl_Switch)) \
    X(MSG_FILTER_URL_LIST, FilterUrlList, FilterUrlList, BX_ROW( 98, "FilterUrl_List", STJ_FilterUrl_List), BX_ROW( 35, "FilterUrl", JTS_FilterUrl_Get)) \
    X(MSG_FILTER_URL, FilterUrlRule, FilterUrlRule, BX_ROW( 94, "FilterUrl", STJ_FilterUrl_Set), BX_ROW( 36, "FilterUrl", JTS_FilterUrl_Set)) \
    X(MSG_FILTER_URL_REPLY, FilterReply, FilterReply, BX_ROW( 96, "FilterUrl_Reply", STJ_FilterUrl_Reply), BX_ROW( 37, "FilterUrlReply", JTS_FilterUrl_Set_Reply)) \
    X(MSG_FILTER_DNS_LIST, FilterDnsList, FilterDnsList, BX_ROW( 99, "FilterDns_List", STJ_FilterDns_List), BX_ROW( 38, "FilterDns", JTS_FilterDns_Get)) \
    X(MSG_FILTER_DNS, FilterDnsRule, FilterDnsRule, BX_ROW( 95, "FilterDns", STJ_FilterDns_Set), BX_ROW( 39, "FilterDns", JTS_FilterDns_Set)) \
    X(MSG_FILTER_DNS_REPLY, FilterReply, FilterReply, BX_ROW( 97, "FilterDns_Reply", STJ_FilterDns_Reply), BX_ROW( 40, "FilterDnsReply", JTS_FilterDns_Set_Reply)) \
    X(MSG_VSIE_INFO, VsieInfo, VsieInfo, BX_ROW(100, "Vsie_Info", STJ_Vsie_Info), BX_ROW( 96, "Vsie_Info", JTS_Vsie_Info)) \
    X(MSG_VSIE_BEACONTX_ADD, VsieBeaconTxEntry, VsieBeaconTxEntry, BX_ROW(101, "Vsie_Beacontx_Add", STJ_Vsie_Beacontx_Add), BX_ROW( 97, "Vsie_Beacontx_Add", JTS_Vsie_Beacontx_Add)) \
    X(MSG_VSIE_BEACONTX_IDX, VsieIndex, VsieIndex, BX_ROW(103, "Vsie_Beacontx_Idx", STJ_Vsie_Beacontx_Idx), BX_ROW( 99, "Vsie_Beacontx_Idx", JTS_Vsie_Beacontx_Idx)) \
    X(MSG_VSIE_BEACONTX_LIST, VsieBeaconTxList, VsieBeaconTxList, BX_ROW(104, "Vsie_Beacontx_List", STJ_Vsie_Beacontx_List), BX_ROW(100, "Vsie_Beacontx_List", JTS_Vsie_Beacontx_List)) \
    X(MSG_VSIE_BEACONTX_SET, VsieBeaconTxSwitch, VsieBeaconTxSwitch, BX_ROW(102, "Vsie_Beacontx_Set", STJ_Vsie_Beacontx_Set), BX_ROW( 98, "Vsie_Beacontx_Set", JTS_Vsie_Beacontx_Set)) \
    X(MSG_VSIE_PROBERX_ADD, VsieProbeRxEntry, VsieProbeRxEntry, BX_ROW(105, "Vsie_Proberx_Add", STJ_Vsie_Proberx_Add), BX_ROW(101, "Vsie_Proberx_Add", JTS_Vsie_Proberx_Add)) \
    X(MSG_VSIE_PROBERX_IDX, VsieIndex, VsieIndex, BX_ROW(107, "Vsie_Proberx_Idx", STJ_Vsie_Beacontx_Idx), BX_ROW(103, "Vsie_Proberx_Idx", JTS_Vsie_Proberx_Idx)) \
    X(MSG_VSIE_PROBERX_LIST, VsieProbeRxList, VsieProbeRxList, BX_ROW(108, "Vsie_Proberx_List", STJ_Vsie_Proberx_List), BX_ROW(104, "Vsie_Proberx_List", JTS_Vsie_Proberx_List)) \
    X(MSG_VSIE_PROBERX_FLUSH, VsieProbeRxFlush, VsieProbeRxEntry, BX_ROW(106, "Vsie_Proberx_Flush", STJ_Vsie_Proberx_Flush), BX_ROW(102, "Vsie_Proberx_Flush", JTS_Vsie_Proberx_Flush)) \
    X(MSG_VSIE_PROBERX_RECORD_ADD, VsieProbeRxRecord, VsieProbeRxRecord, BX_ROW(109, "Vsie_Proberx_Record_Add", STJ_Vsie_Proberx_Record_Add), BX_ROW(105, "Vsie_Proberx_Record_Add", JTS_Vsie_Proberx_Record_Add)) \
    X(MSG_VSIE_PROBERESP_ADD, VsieProbeRespEntry, VsieProbeRespEntry, BX_ROW(110, "Vsie_Proberesp_Add", STJ_Vsie_Proberesp_Add), BX_ROW(106, "Vsie_Proberesp_Add", JTS_Vsie_Proberesp_Add)) \
    X(MSG_VSIE_PROBERESP_IDX, VsieIndex, VsieIndex, BX_ROW(111, "Vsie_Proberesp_Idx", STJ_Vsie_Beacontx_Idx), BX_ROW(107, "Vsie_Proberesp_Idx", JTS_Vsie_Proberesp_Idx)) \
    X(MSG_VSIE_PROBERESP_LIST, VsieProbeRespList, VsieProbeRespList, BX_ROW(112, "Vsie_Proberesp_List", STJ_Vsie_Proberesp_List), BX_ROW(108, "Vsie_Proberesp_List", JTS_Vsie_Proberesp_List)) \
    X(MSG_CTCC_BASIC_INFO, CTCCBasicInfoParam, CTCCBasicInfoParam, BX_ROW(142, "CTCCBasicInfo", STJ_CTCCBasicInfo), BX_ROW( 92, "CTCCBasicInfo", JTS_CTCCBasicInfo)) \
    X(MSG_CTCC_SERVER_INFO, CTCCServerInfoParam, CTCCServerInfoParam, BX_ROW(143, "CTCCServerInfo", STJ_CTCCServerInfo), BX_ROW( 93, "CTCCServerInfo", JTS_CTCCServerInfo)) \
    X(MSG_CTCC_ELINK_STATUS, CTCCElinkStatusParam, CTCCElinkStatusParam, BX_ROW(144, "CTCCElinkStatus", STJ_CTCCElinkStatus), BX_ROW( 94, "CTCCElinkInfo", JTS_CTCCElinkInfo)) \
    X(MSG_CMCC_BASIC_INFO, CMCCBasicInfoParam, CMCCBasicInfoParam, BX_ROW(145, "CMCCBasicInfo", STJ_CMCCBasicInfo), BX_ROW( 95, "CMCCBasicInfo", JTS_CMCCBasicInfo)) \
    X(MSG_TELNET, ServiceAccessParam, ServiceAccessParam, BX_ROW(148, "Telnet", STJ_Telnet), BX_ROW(145, "Telnet", JTS_Telnet)) \
    X(MSG_SAMBA, ServiceAccessParam, ServiceAccessParam, BX_ROW(149, "Samba", STJ_Samba), BX_ROW(146, "Samba", JTS_Samba)) \
    X(MSG_FTP, ServiceAccessParam, ServiceAccessParam, BX_ROW(150, "Ftp", STJ_Ftp), BX_ROW(147, "Ftp", JTS_Ftp)) \
    X(MSG_ROUTER_NAME, RouterNameParam, RouterNameParam, BX_ROW(152, "RouterName", STJ_RouterName), BX_ROW(148, "RouterName", JTS_RouterName)) \
    X(MSG_KERNELCOUNT, KernelCountParam, KernelCountParam, BX_ROW(153, "kernelcount", STJ_KernelCount), BX_ROW(149, "kernelcount", JTS_KernelCount)) \
    X(MSG_CTCC_ROUTER_PIN, CTCCRouterPinParam, CTCCRouterPinParam, BX_ROW(154, "CTCCRouterPin", STJ_CTCCRouterPin), BX_ROW(150, "CTCCRouterPin", JTS_CTCCRouterPin)) \
    X(MSG_FACTORY_FLAG, FactoryFlagParam, FactoryFlagParam, BX_ROW(151, "FactoryFlag", STJ_FactoryFlag), BX_ROW(154, "FactoryFlag", JTS_FactoryFlag)) \
    X(MSG_CMCC_CFG_FILE_SYNC, CMCCCfgFileSyncParam, CMCCCfgFileSyncParam, BX_ROW(146, "CMCCCfgFileSync", STJ_CMCCCfgFileSync), BX_ROW(151, "CMCCCfgFileSync", JTS_CMCCCfgFileSync)) \
    X(MSG_SYNC_TIME, SyncTimeParam, SyncTimeParam, BX_ROW(147, "sync time", STJ_SyncTime), BX_ROW(152, "sync time", JTS_SyncTime)) \
    X(MSG_WAN_TCP_UDP_CON_NUM_GET, WanTcpUdpConNumParam, WanTcpUdpConNumParam, BX_ROW(155, "Wan_TcpUdpConNum_get", STJ_WanTcpUdpConNum_Get), BX_ROW(153, "Wan_TcpUdpConNum_get", JTS_WanTcpUdpConNum_Get)) \
    X(MSG_CUSTOM_FACTORY_INFO, CustomFactoryInfoParam, CustomFactoryInfoParam, BX_ROW(141, "CustomFactoryInfo", STJ_CustomFactoryInfo), BX_ROW( 91, "CustomFactoryInfo", JTS_CustomFactoryInfo)) \
    X(MSG_WIFI_GET_AGENT_UPLINK_INFO, AgentUplinkInfoParam, AgentUplinkInfoParam, BX_ROW(156, "wifi get agent_uplink_info", STJ_Agent_Uplink_Info_Get), BX_ROW(155, "wifi get agent_uplink_info", JTS_Agent_Uplink_Info_Get)) \
    X(MSG_UPGRADE_REPORT, UpgradeReportParam, UpgradeReportParam, BX_ROW(157, "Upgrade report", STJ_Upgrade_report), BX_ROW(156, "Upgrade report", JTS_Upgrade_report)) \
    X(MSG_FILE_SYNC, FileSyncParam, FileSyncParam, BX_ROW(158, "FileSync", STJ_File_Save), BX_ROW(157, "FileSync", JTS_File_Save)) \
    X(MSG_QUICKJOIN, QuickjoinParam, QuickjoinParam, BX_ROW(159, "Quickjoin", STJ_Quickjoin), BX_ROW(158, "Quickjoin", JTS_Quickjoin))

#endif
