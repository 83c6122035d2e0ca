#include "catalogue.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdlib>

#include "blobxlate.h"

namespace bxtool {

namespace {

constexpr int kFirstType = 0;
constexpr int kLastType = 172;

// The record of each type, for each direction.
struct RecordRow {
    int type;
    const char *to_json;
    size_t to_json_size;
    const char *to_struct;
    size_t to_struct_size;
};

#define RECORD(type, rec) RecordRow{type, #rec, sizeof(rec), #rec, sizeof(rec)}
#define RECORDS(type, out, in) RecordRow{type, #out, sizeof(out), #in, sizeof(in)}

constexpr RecordRow kRecords[] = {
    RECORD(MSG_RET, RetParam),
    RECORD(MSG_HW_INFO, HwInfoParam),
    RECORD(MSG_FW_INFO, FwInfoParam),
    RECORD(MSG_MANU_INFO, ManuInfoParam),
    RECORD(MSG_MANAGE_INFO, ManageInfoParam),
    RECORD(MSG_FUNC_SUPPORT, FuncSupportParam),
    RECORD(MSG_CPU_RATE, CpuRateParam),
    RECORD(MSG_MEM_RATE, MemRateParam),
    RECORD(MSG_FLASH_RATE, FlashRateParam),
    RECORD(MSG_RUN_TIME_INFO, RunTimeInfoParam),
    RECORD(MSG_TCP_OPEN_PORT, OpenPortParam),
    RECORD(MSG_UDP_OPEN_PORT, OpenPortParam),
    RECORD(MSG_REBOOT, RebootParam),
    RECORD(MSG_UPGRADE, UpgradeParam),
    RECORD(MSG_LOGIN_PASSWORD, LoginPasswordParam),
    RECORD(MSG_FIRE_WALL, SwitchStatusParam),
    RECORD(MSG_LED_STATUS, SwitchStatusParam),
    RECORD(MSG_DUALBAND_SYNC_STATUS, SwitchStatusParam),
    RECORD(MSG_UPGRADE_STATUS, UpgradeStatusParam),
    RECORD(MSG_LED_COLOUR, LedColourParam),
    RECORD(MSG_WAN_STATUS, WanStatusInfo),
    RECORD(MSG_IPV6_ENABLE, Ipv6Switch),
    RECORD(MSG_IPV6_INFO, Ipv6Info),
    RECORD(MSG_DHCP, WanDhcpConfig),
    RECORD(MSG_STATIC, WanStaticConfig),
    RECORD(MSG_PPPOE, WanPppoeConfig),
    RECORD(MSG_BRIDGE_SWITCH, BridgeSwitchParam),
    RECORD(MSG_BRIDGE_STATUS, BridgeStatusParam),
    RECORD(MSG_REPEATER_SET_INFO, RepeaterSetParam),
    RECORD(MSG_REPEATER_STA_INFO, RepeaterStaInfoParam),
    RECORD(MSG_REPEATER_LIST, RepeaterListParam),
    RECORD(MSG_CLONE_MAC, MacCloneParam),
    RECORD(MSG_LAN_CLONE, MacCloneParam),
    RECORD(MSG_LAN, LanParam),
    RECORD(MSG_DHCP_SERVER, DhcpServerParam),
    RECORD(MSG_LAN_STATIC, LanStaticParam),
    RECORD(MSG_LAN_STATIC_LIST, LanStaticListParam),
    RECORD(MSG_LOCK_NET, LockNetParam),
    RECORD(MSG_PING, PingRequest),
    RECORD(MSG_TRACE_ROUTE, TraceRouteRequest),
    RECORD(MSG_PING_RESULT, PingResult),
    RECORD(MSG_TRACE_ROUTE_RESULT, TraceRouteResult),
    RECORD(MSG_UPLINK_SUPPORT, UplinkSupport),
    RECORD(MSG_PORT_NUM, PortNum),
    RECORD(MSG_PORT_STATUS, PortStatus),
    RECORD(MSG_PORT_TRAFFIC, PortTraffic),
    RECORD(MSG_PORT_RATE, PortRate),
    RECORD(MSG_PORT_MAC, PortMac),
    RECORD(MSG_PORT_UP_DOWN, PortUpDown),
    RECORD(MSG_WIFI_STATUS, WifiSwitchRec),
    RECORD(MSG_WIFI5_STATUS, WifiSwitchRec),
    RECORD(MSG_WIFI_OPT, WifiRadioRec),
    RECORD(MSG_SCAN_WLAN_NEIGHBOUR, WifiRadioRec),
    RECORD(MSG_CHANNEL_SCAN, WifiRadioRec),
    RECORD(MSG_WIFI_DEASSOCIATION, WifiDeassocRec),
    RECORD(MSG_WIFI_MESH, MeshRoleParam),
    RECORD(MSG_WIFI_MESH_ROAMING, MeshRoamingParam),
    RECORD(MSG_WIFI_BACKHAUL_BSS, BackhaulBssParam),
    RECORD(MSG_WIFI_TOPO, WifiTopoParam),
    RECORD(MSG_WIFI_LOCAL_MESH_EVENT, LocalMeshEventParam),
    RECORD(MSG_WIFI_TOPO_MAC, TopoApMacParam),
    RECORD(MSG_WIFI_TOPO_AP_MAP, TopoApMapParam),
    RECORD(MSG_WIFI_TOPO_CHANGE, TopoChangeParam),
    RECORD(MSG_WIFI_SELECT, WifiSelectRec),
    RECORD(MSG_WIFI_BLACK_WHITE_ADD, WifiAccessEntryRec),
    RECORD(MSG_WIFI_BLACK_WHITE_DELETE, WifiAccessEntryRec),
    RECORD(MSG_WIFI_BLACK_WHITE_LIST, WifiAccessListRec),
    RECORD(MSG_RADIO_BASIC, RadioBasicRec),
    RECORD(MSG_AP_BASIC, ApBasicRec),
    RECORD(MSG_AP_ADVANCED, ApAdvancedRec),
    RECORD(MSG_AP_RATE_LIMIT, ApRateLimitRec),
    RECORD(MSG_AP_ACCESS_MODE, ApAccessModeRec),
    RECORD(MSG_AP_ACCESS_RULE, ApAccessRuleRec),
    RECORD(MSG_AP_ADD, ApIndexRec),
    RECORD(MSG_AP_DELETE, ApIndexRec),
    RECORD(MSG_WLAN_NEIGHBOUR, WlanNeighbourRec),
    RECORD(MSG_WPS_PBC, WpsPbcRec),
    RECORD(MSG_CHANNEL_SCORE, ChannelScoreRec),
    RECORD(MSG_REBOOT_TIMER, RebootTimer),
    RECORD(MSG_WIFI_TIMER_SET, WifiTimerTask),
    RECORD(MSG_WIFI_TIMER, WifiTimerList),
    RECORD(MSG_WIFI_TIMER_IDX, WifiTimerIdx),
    RECORD(MSG_STA_LIST, StaListInfo),
    RECORD(MSG_STA_INFO_BY_MAC, StaEntry),
    RECORD(MSG_STA_WIFI_PWD_ERR, StaMac),
    RECORD(MSG_STA_TRAFFIC, StaTraffic),
    RECORD(MSG_STA_NUM, StaNum),
    RECORD(MSG_STA_NAME, StaName),
    RECORD(MSG_STA_MODEL, StaModel),
    RECORD(MSG_STA_CTRL_STATUS, StaCtrlStatusParam),
    RECORD(MSG_STA_CTRL_MODE, StaCtrlModeParam),
    RECORD(MSG_STA_BWLIST_GET, StaCtrlModeParam),
    RECORD(MSG_STA_CTRL_MODE_SWITCH, StaCtrlModeSwitchParam),
    RECORD(MSG_STA_CTRL_LIST, StaCtrlListParam),
    RECORD(MSG_STA_CTRL_INTERNET, StaCtrlAllowParam),
    RECORD(MSG_STA_CTRL_WIFI, StaCtrlAllowParam),
    RECORD(MSG_STA_CTRL_WIFI_LIST, StaCtrlWifiListParam),
    RECORD(MSG_STA_CTRL_ITEM_ADD, StaCtrlItemParam),
    RECORD(MSG_STA_CTRL_INTERNET_TIME, StaCtrlInternetTimeParam),
    RECORD(MSG_RATELIMIT, RateLimitEntry),
    RECORD(MSG_RATELIMIT_LIST, RateLimitList),
    RECORD(MSG_PERIOD_RATE_SET, PeriodRateTask),
    RECORD(MSG_PERIOD_RATE_GET, PeriodRateReport),
    RECORD(MSG_IPTV, IptvConfig),
    RECORD(MSG_L2_ROAMING, L2RoamingRec),
    RECORD(MSG_ROAMING, RoamingRec),
    RECORD(MSG_ROAMING_AP_RSSI_QUERY, RoamingApQueryRec),
    RECORD(MSG_ROAMING_AP_RSSI_RSP, RoamingApRspRec),
    RECORD(MSG_ROAMING_BSS_TRANS, RoamingBssTransRec),
    RECORD(MSG_ROAMING_REPORT, RoamingReportRec),
    RECORD(MSG_ROAMING_STOPDETECT, RoamingStopDetectRec),
    RECORD(MSG_ROAMING_STA_RSSI, RoamingStaRssiRec),
    RECORD(MSG_QOS, QosSwitch),
    RECORD(MSG_DSCP, QosSwitch),
    RECORD(MSG_8021P, QosSwitch),
    RECORD(MSG_QOS_CLASSIFICATION_ADD, QosClassRule),
    RECORD(MSG_QOS_CLASSIFICATION_SET, QosClassRule),
    RECORD(MSG_QOS_CLASSIFICATION_DELETE, QosClassIndex),
    RECORDS(MSG_QOS_CLASSIFICATION_GET, QosClassRule, QosClassIndex),
    RECORD(MSG_QOS_CLASSIFICATION_LIST, QosClassRuleList),
    RECORD(MSG_STA_STORAGE_INFO, StaStorageInfoParam),
    RECORD(MSG_CUSTOM_INFO, CustomInfoParam),
    RECORD(MSG_FILTER_URL_SWITCH, FilterSwitch),
    RECORD(MSG_FILTER_URL_LIST, FilterUrlList),
    RECORD(MSG_FILTER_URL, FilterUrlRule),
    RECORD(MSG_FILTER_URL_REPLY, FilterReply),
    RECORD(MSG_FILTER_DNS_REPLY, FilterReply),
    RECORD(MSG_FILTER_DNS_LIST, FilterDnsList),
    RECORD(MSG_FILTER_DNS, FilterDnsRule),
    RECORD(MSG_VSIE_INFO, VsieInfo),
    RECORD(MSG_VSIE_BEACONTX_ADD, VsieBeaconTxEntry),
    RECORD(MSG_VSIE_BEACONTX_IDX, VsieIndex),
    RECORD(MSG_VSIE_PROBERX_IDX, VsieIndex),
    RECORD(MSG_VSIE_PROBERESP_IDX, VsieIndex),
    RECORD(MSG_VSIE_BEACONTX_LIST, VsieBeaconTxList),
    RECORD(MSG_VSIE_BEACONTX_SET, VsieBeaconTxSwitch),
    RECORD(MSG_VSIE_PROBERX_ADD, VsieProbeRxEntry),
    RECORD(MSG_VSIE_PROBERX_LIST, VsieProbeRxList),
    RECORDS(MSG_VSIE_PROBERX_FLUSH, VsieProbeRxFlush, VsieProbeRxEntry),
    RECORD(MSG_VSIE_PROBERX_RECORD_ADD, VsieProbeRxRecord),
    RECORD(MSG_VSIE_PROBERESP_ADD, VsieProbeRespEntry),
    RECORD(MSG_VSIE_PROBERESP_LIST, VsieProbeRespList),
    RECORD(MSG_CTCC_BASIC_INFO, CTCCBasicInfoParam),
    RECORD(MSG_CTCC_SERVER_INFO, CTCCServerInfoParam),
    RECORD(MSG_CTCC_ELINK_STATUS, CTCCElinkStatusParam),
    RECORD(MSG_CMCC_BASIC_INFO, CMCCBasicInfoParam),
    RECORD(MSG_TELNET, ServiceAccessParam),
    RECORD(MSG_SAMBA, ServiceAccessParam),
    RECORD(MSG_FTP, ServiceAccessParam),
    RECORD(MSG_ROUTER_NAME, RouterNameParam),
    RECORD(MSG_KERNELCOUNT, KernelCountParam),
    RECORD(MSG_CTCC_ROUTER_PIN, CTCCRouterPinParam),
    RECORD(MSG_FACTORY_FLAG, FactoryFlagParam),
    RECORD(MSG_CMCC_CFG_FILE_SYNC, CMCCCfgFileSyncParam),
    RECORD(MSG_SYNC_TIME, SyncTimeParam),
    RECORD(MSG_WAN_TCP_UDP_CON_NUM_GET, WanTcpUdpConNumParam),
    RECORD(MSG_CUSTOM_FACTORY_INFO, CustomFactoryInfoParam),
    RECORD(MSG_WIFI_GET_AGENT_UPLINK_INFO, AgentUplinkInfoParam),
    RECORD(MSG_UPGRADE_REPORT, UpgradeReportParam),
    RECORD(MSG_FILE_SYNC, FileSyncParam),
    RECORD(MSG_QUICKJOIN, QuickjoinParam),
};

#undef RECORD
#undef RECORDS

const char *row_name(const MessageTransEntry *table, int count, int type)
{
    for (int i = 0; i < count; ++i)
        if (table[i].id == type)
            return table[i].name;
    return nullptr;
}

std::optional<MessageInfo> info_of(int type)
{
    MessageInfo info{type, row_name(g_astStructToJson_Func, g_iStructToJson_FuncNum, type),
                     row_name(g_astJsonToStruct_Func, g_iJsonToStruct_FuncNum, type), "?", "?", 0};
    if (info.to_json_name == nullptr && info.to_struct_name == nullptr)
        return std::nullopt;
    for (const RecordRow &r : kRecords) {
        if (r.type == type) {
            info.to_json_record = r.to_json;
            info.to_struct_record = r.to_struct;
            info.record_size = std::max(r.to_json_size, r.to_struct_size);
        }
    }
    return info;
}

std::string lower(std::string s)
{
    std::transform(s.begin(), s.end(), s.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return s;
}

size_t edit_distance(const std::string &a, const std::string &b)
{
    std::vector<size_t> row(b.size() + 1);
    for (size_t j = 0; j <= b.size(); ++j)
        row[j] = j;
    for (size_t i = 1; i <= a.size(); ++i) {
        size_t diagonal = row[0];
        row[0] = i;
        for (size_t j = 1; j <= b.size(); ++j) {
            size_t above = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, diagonal + (a[i - 1] == b[j - 1] ? 0 : 1)});
            diagonal = above;
        }
    }
    return row[b.size()];
}

bool is_number(const std::string &text)
{
    size_t digits = text.find_first_not_of('-') == 1 ? 1 : 0;
    return text.size() > digits && text.find_first_not_of("0123456789", digits) == std::string::npos;
}

struct Candidate {
    size_t distance;
    int type;
    std::string name;
    bool operator<(const Candidate &o) const { return distance != o.distance ? distance < o.distance : type < o.type; }
};

// Names within a few edits of the text, or containing it.
std::string close_matches(const std::string &wanted, const std::vector<MessageInfo> &types)
{
    std::vector<Candidate> found;
    for (const MessageInfo &info : types) {
        for (const char *name : {info.to_json_name, info.to_struct_name}) {
            if (name == nullptr)
                continue;
            std::string key = lower(name);
            size_t d = key.find(wanted) != std::string::npos ? 0 : edit_distance(wanted, key);
            Candidate c{d, info.type, name};
            if (d <= std::max<size_t>(2, wanted.size() / 3) &&
                std::none_of(found.begin(), found.end(), [&](const Candidate &f) { return f.type == c.type && f.name == c.name; }))
                found.push_back(c);
        }
    }
    std::sort(found.begin(), found.end());
    std::string text;
    for (size_t i = 0; i < found.size() && i < 5; ++i)
        text += (i == 0 ? "" : ", ") + std::to_string(found[i].type) + " \"" + found[i].name + "\"";
    return text.empty() ? "none (blobxlate list shows them all)" : text;
}

} // namespace

std::vector<MessageInfo> message_types()
{
    std::vector<MessageInfo> types;
    for (int type = kFirstType; type <= kLastType; ++type)
        if (auto info = info_of(type))
            types.push_back(*info);
    return types;
}

std::optional<MessageInfo> find_type(const std::string &text, std::string &error)
{
    if (is_number(text)) {
        errno = 0;
        long type = std::strtol(text.c_str(), nullptr, 10);
        std::optional<MessageInfo> info;
        if (errno == 0 && type >= kFirstType && type <= kLastType)
            info = info_of(static_cast<int>(type));
        if (!info)
            error = "unknown message type " + text;
        return info;
    }
    const std::string wanted = lower(text);
    const std::vector<MessageInfo> types = message_types();
    std::vector<MessageInfo> named;
    for (const MessageInfo &info : types)
        if ((info.to_json_name != nullptr && lower(info.to_json_name) == wanted) ||
            (info.to_struct_name != nullptr && lower(info.to_struct_name) == wanted))
            named.push_back(info);
    if (named.size() == 1)
        return named.front();
    if (named.empty()) {
        error = "unknown message type \"" + text + "\"; close matches: " + close_matches(wanted, types);
        return std::nullopt;
    }
    error = "message type \"" + text + "\" names more than one type, give the number:";
    for (const MessageInfo &info : named)
        error += " " + std::to_string(info.type);
    return std::nullopt;
}

} // namespace bxtool
