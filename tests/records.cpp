#include "records.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "blobxlate.h"

namespace bxtest {

namespace {

template <typename... Records>
constexpr size_t largest()
{
    return std::max({sizeof(Records)...});
}

} // namespace

// Where the two directions of a type use different records, the caller's
// record must be large enough for both.
size_t record_size(int type)
{
    switch (type) {
    case MSG_RET: return sizeof(RetParam);
    case MSG_HW_INFO: return sizeof(HwInfoParam);
    case MSG_FW_INFO: return sizeof(FwInfoParam);
    case MSG_MANU_INFO: return sizeof(ManuInfoParam);
    case MSG_MANAGE_INFO: return sizeof(ManageInfoParam);
    case MSG_FUNC_SUPPORT: return sizeof(FuncSupportParam);
    case MSG_CPU_RATE: return sizeof(CpuRateParam);
    case MSG_MEM_RATE: return sizeof(MemRateParam);
    case MSG_FLASH_RATE: return sizeof(FlashRateParam);
    case MSG_RUN_TIME_INFO: return sizeof(RunTimeInfoParam);
    case MSG_TCP_OPEN_PORT:
    case MSG_UDP_OPEN_PORT: return sizeof(OpenPortParam);
    case MSG_REBOOT: return sizeof(RebootParam);
    case MSG_UPGRADE: return sizeof(UpgradeParam);
    case MSG_LOGIN_PASSWORD: return sizeof(LoginPasswordParam);
    case MSG_FIRE_WALL:
    case MSG_LED_STATUS:
    case MSG_DUALBAND_SYNC_STATUS: return sizeof(SwitchStatusParam);
    case MSG_UPGRADE_STATUS: return sizeof(UpgradeStatusParam);
    case MSG_LED_COLOUR: return sizeof(LedColourParam);
    case MSG_WAN_STATUS: return sizeof(WanStatusInfo);
    case MSG_IPV6_ENABLE: return sizeof(Ipv6Switch);
    case MSG_IPV6_INFO: return sizeof(Ipv6Info);
    case MSG_DHCP: return sizeof(WanDhcpConfig);
    case MSG_STATIC: return sizeof(WanStaticConfig);
    case MSG_PPPOE: return sizeof(WanPppoeConfig);
    case MSG_BRIDGE_SWITCH: return sizeof(BridgeSwitchParam);
    case MSG_BRIDGE_STATUS: return sizeof(BridgeStatusParam);
    case MSG_REPEATER_SET_INFO: return sizeof(RepeaterSetParam);
    case MSG_REPEATER_STA_INFO: return sizeof(RepeaterStaInfoParam);
    case MSG_REPEATER_LIST: return sizeof(RepeaterListParam);
    case MSG_CLONE_MAC:
    case MSG_LAN_CLONE: return sizeof(MacCloneParam);
    case MSG_LAN: return sizeof(LanParam);
    case MSG_DHCP_SERVER: return sizeof(DhcpServerParam);
    case MSG_LAN_STATIC: return sizeof(LanStaticParam);
    case MSG_LAN_STATIC_LIST: return sizeof(LanStaticListParam);
    case MSG_LOCK_NET: return sizeof(LockNetParam);
    case MSG_PING: return sizeof(PingRequest);
    case MSG_TRACE_ROUTE: return sizeof(TraceRouteRequest);
    case MSG_PING_RESULT: return sizeof(PingResult);
    case MSG_TRACE_ROUTE_RESULT: return sizeof(TraceRouteResult);
    case MSG_UPLINK_SUPPORT: return sizeof(UplinkSupport);
    case MSG_PORT_NUM: return sizeof(PortNum);
    case MSG_PORT_STATUS: return sizeof(PortStatus);
    case MSG_PORT_TRAFFIC: return sizeof(PortTraffic);
    case MSG_PORT_RATE: return sizeof(PortRate);
    case MSG_PORT_MAC: return sizeof(PortMac);
    case MSG_PORT_UP_DOWN: return sizeof(PortUpDown);
    case MSG_WIFI_STATUS:
    case MSG_WIFI5_STATUS: return sizeof(WifiSwitchRec);
    case MSG_WIFI_OPT:
    case MSG_SCAN_WLAN_NEIGHBOUR:
    case MSG_CHANNEL_SCAN: return sizeof(WifiRadioRec);
    case MSG_WIFI_DEASSOCIATION: return sizeof(WifiDeassocRec);
    case MSG_WIFI_MESH: return sizeof(MeshRoleParam);
    case MSG_WIFI_MESH_ROAMING: return sizeof(MeshRoamingParam);
    case MSG_WIFI_BACKHAUL_BSS: return sizeof(BackhaulBssParam);
    case MSG_WIFI_TOPO: return sizeof(WifiTopoParam);
    case MSG_WIFI_LOCAL_MESH_EVENT: return sizeof(LocalMeshEventParam);
    case MSG_WIFI_TOPO_MAC: return sizeof(TopoApMacParam);
    case MSG_WIFI_TOPO_AP_MAP: return sizeof(TopoApMapParam);
    case MSG_WIFI_TOPO_CHANGE: return sizeof(TopoChangeParam);
    case MSG_WIFI_SELECT: return sizeof(WifiSelectRec);
    case MSG_WIFI_BLACK_WHITE_ADD:
    case MSG_WIFI_BLACK_WHITE_DELETE: return sizeof(WifiAccessEntryRec);
    case MSG_WIFI_BLACK_WHITE_LIST: return sizeof(WifiAccessListRec);
    case MSG_RADIO_BASIC: return sizeof(RadioBasicRec);
    case MSG_AP_BASIC: return sizeof(ApBasicRec);
    case MSG_AP_ADVANCED: return sizeof(ApAdvancedRec);
    case MSG_AP_RATE_LIMIT: return sizeof(ApRateLimitRec);
    case MSG_AP_ACCESS_MODE: return sizeof(ApAccessModeRec);
    case MSG_AP_ACCESS_RULE: return sizeof(ApAccessRuleRec);
    case MSG_AP_ADD:
    case MSG_AP_DELETE: return sizeof(ApIndexRec);
    case MSG_WLAN_NEIGHBOUR: return sizeof(WlanNeighbourRec);
    case MSG_WPS_PBC: return sizeof(WpsPbcRec);
    case MSG_CHANNEL_SCORE: return sizeof(ChannelScoreRec);
    case MSG_REBOOT_TIMER: return sizeof(RebootTimer);
    case MSG_WIFI_TIMER_SET: return sizeof(WifiTimerTask);
    case MSG_WIFI_TIMER: return sizeof(WifiTimerList);
    case MSG_WIFI_TIMER_IDX: return sizeof(WifiTimerIdx);
    case MSG_STA_LIST: return sizeof(StaListInfo);
    case MSG_STA_INFO_BY_MAC: return sizeof(StaEntry);
    case MSG_STA_WIFI_PWD_ERR: return sizeof(StaMac);
    case MSG_STA_TRAFFIC: return sizeof(StaTraffic);
    case MSG_STA_NUM: return sizeof(StaNum);
    case MSG_STA_NAME: return sizeof(StaName);
    case MSG_STA_MODEL: return sizeof(StaModel);
    case MSG_STA_CTRL_STATUS: return sizeof(StaCtrlStatusParam);
    case MSG_STA_CTRL_MODE:
    case MSG_STA_BWLIST_GET: return sizeof(StaCtrlModeParam);
    case MSG_STA_CTRL_MODE_SWITCH: return sizeof(StaCtrlModeSwitchParam);
    case MSG_STA_CTRL_LIST: return sizeof(StaCtrlListParam);
    case MSG_STA_CTRL_INTERNET:
    case MSG_STA_CTRL_WIFI: return sizeof(StaCtrlAllowParam);
    case MSG_STA_CTRL_WIFI_LIST: return sizeof(StaCtrlWifiListParam);
    case MSG_STA_CTRL_ITEM_ADD: return sizeof(StaCtrlItemParam);
    case MSG_STA_CTRL_INTERNET_TIME: return sizeof(StaCtrlInternetTimeParam);
    case MSG_RATELIMIT: return sizeof(RateLimitEntry);
    case MSG_RATELIMIT_LIST: return sizeof(RateLimitList);
    case MSG_PERIOD_RATE_SET: return sizeof(PeriodRateTask);
    case MSG_PERIOD_RATE_GET: return sizeof(PeriodRateReport);
    case MSG_IPTV: return sizeof(IptvConfig);
    case MSG_L2_ROAMING: return sizeof(L2RoamingRec);
    case MSG_ROAMING: return sizeof(RoamingRec);
    case MSG_ROAMING_AP_RSSI_QUERY: return sizeof(RoamingApQueryRec);
    case MSG_ROAMING_AP_RSSI_RSP: return sizeof(RoamingApRspRec);
    case MSG_ROAMING_BSS_TRANS: return sizeof(RoamingBssTransRec);
    case MSG_ROAMING_REPORT: return sizeof(RoamingReportRec);
    case MSG_ROAMING_STOPDETECT: return sizeof(RoamingStopDetectRec);
    case MSG_ROAMING_STA_RSSI: return sizeof(RoamingStaRssiRec);
    case MSG_QOS:
    case MSG_DSCP:
    case MSG_8021P: return sizeof(QosSwitch);
    case MSG_QOS_CLASSIFICATION_ADD:
    case MSG_QOS_CLASSIFICATION_SET: return sizeof(QosClassRule);
    case MSG_QOS_CLASSIFICATION_DELETE: return sizeof(QosClassIndex);
    case MSG_QOS_CLASSIFICATION_GET: return largest<QosClassRule, QosClassIndex>();
    case MSG_QOS_CLASSIFICATION_LIST: return sizeof(QosClassRuleList);
    case MSG_STA_STORAGE_INFO: return sizeof(StaStorageInfoParam);
    case MSG_CUSTOM_INFO: return sizeof(CustomInfoParam);
    case MSG_FILTER_URL_SWITCH: return sizeof(FilterSwitch);
    case MSG_FILTER_URL_LIST: return sizeof(FilterUrlList);
    case MSG_FILTER_URL: return sizeof(FilterUrlRule);
    case MSG_FILTER_URL_REPLY:
    case MSG_FILTER_DNS_REPLY: return sizeof(FilterReply);
    case MSG_FILTER_DNS_LIST: return sizeof(FilterDnsList);
    case MSG_FILTER_DNS: return sizeof(FilterDnsRule);
    case MSG_VSIE_INFO: return sizeof(VsieInfo);
    case MSG_VSIE_BEACONTX_ADD: return sizeof(VsieBeaconTxEntry);
    case MSG_VSIE_BEACONTX_IDX:
    case MSG_VSIE_PROBERX_IDX:
    case MSG_VSIE_PROBERESP_IDX: return sizeof(VsieIndex);
    case MSG_VSIE_BEACONTX_LIST: return sizeof(VsieBeaconTxList);
    case MSG_VSIE_BEACONTX_SET: return sizeof(VsieBeaconTxSwitch);
    case MSG_VSIE_PROBERX_ADD: return sizeof(VsieProbeRxEntry);
    case MSG_VSIE_PROBERX_LIST: return sizeof(VsieProbeRxList);
    case MSG_VSIE_PROBERX_FLUSH: return largest<VsieProbeRxFlush, VsieProbeRxEntry>();
    case MSG_VSIE_PROBERX_RECORD_ADD: return sizeof(VsieProbeRxRecord);
    case MSG_VSIE_PROBERESP_ADD: return sizeof(VsieProbeRespEntry);
    case MSG_VSIE_PROBERESP_LIST: return sizeof(VsieProbeRespList);
    case MSG_CTCC_BASIC_INFO: return sizeof(CTCCBasicInfoParam);
    case MSG_CTCC_SERVER_INFO: return sizeof(CTCCServerInfoParam);
    case MSG_CTCC_ELINK_STATUS: return sizeof(CTCCElinkStatusParam);
    case MSG_CMCC_BASIC_INFO: return sizeof(CMCCBasicInfoParam);
    case MSG_TELNET:
    case MSG_SAMBA:
    case MSG_FTP: return sizeof(ServiceAccessParam);
    case MSG_ROUTER_NAME: return sizeof(RouterNameParam);
    case MSG_KERNELCOUNT: return sizeof(KernelCountParam);
    case MSG_CTCC_ROUTER_PIN: return sizeof(CTCCRouterPinParam);
    case MSG_FACTORY_FLAG: return sizeof(FactoryFlagParam);
    case MSG_CMCC_CFG_FILE_SYNC: return sizeof(CMCCCfgFileSyncParam);
    case MSG_SYNC_TIME: return sizeof(SyncTimeParam);
    case MSG_WAN_TCP_UDP_CON_NUM_GET: return sizeof(WanTcpUdpConNumParam);
    case MSG_CUSTOM_FACTORY_INFO: return sizeof(CustomFactoryInfoParam);
    case MSG_WIFI_GET_AGENT_UPLINK_INFO: return sizeof(AgentUplinkInfoParam);
    case MSG_UPGRADE_REPORT: return sizeof(UpgradeReportParam);
    case MSG_FILE_SYNC: return sizeof(FileSyncParam);
    case MSG_QUICKJOIN: return sizeof(QuickjoinParam);
    default: return 0;
    }
}

Record::Record(int type, const uint8_t *bytes, size_t len)
{
    size_t size = record_size(type);
    if (size == 0)
        return;
    data_ = std::calloc(1, size);
    if (bytes != nullptr)
        std::memcpy(data_, bytes, std::min(len, size));
    if (type == MSG_STA_LIST) {
        // The caller's array and its capacity in entries.
        auto *list = static_cast<StaListInfo *>(data_);
        list->uiStaNumofEsps %= kStationCapacity + 1;
        stations_ = std::calloc(kStationCapacity, sizeof(StaEntry));
        list->pstListInfo = static_cast<StaEntry *>(stations_);
    }
}

Record::~Record()
{
    std::free(data_);
    std::free(stations_);
}

} // namespace bxtest
