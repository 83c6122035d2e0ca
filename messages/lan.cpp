/* Bridge, repeater, MAC clone, LAN, DHCP server, static leases and lock-net.
 *
 * Every key is optional in both directions: an absent key is traced and its
 * field left as the caller set it. Each message is one field table; lists
 * are "count" and a named array of tables. */
#include "core/codec.h"

namespace {

using bx::Field;

constexpr bx::FieldDef kBridgeSwitchSource[] = {
    BX_WORD(BridgeSwitchParam, eStatus, EnumSwitch, "status", "status:%d"),
};
BX_PACKED(kBridgeSwitch);

constexpr bx::FieldDef kBridgeStatusSource[] = {
    BX_WORD(BridgeStatusParam, eStatus, EnumSwitch, "status", "status:%d"),
    BX_WORD(BridgeStatusParam, eLinkStatus, EnumLinkState, "linkstatus", "linkstatus:%d"),
    BX_TEXT(BridgeStatusParam, szIp, "ip", "ip:%s"),
};
BX_PACKED(kBridgeStatus);

constexpr bx::FieldDef kRepeaterSetSource[] = {
    BX_WORD(RepeaterSetParam, eRadio, EnumBand, "radio", "radio:%u"),
    BX_TEXT(RepeaterSetParam, szSsid, "ssid", "ssid:%s"),
    BX_TEXT(RepeaterSetParam, szBssid, "bssid", "bssid:%s"),
    BX_WORD(RepeaterSetParam, eSecurity, EnumSecurity, "security", "security:%d"),
    BX_TEXT(RepeaterSetParam, szPassword, "password", "password:%s"),
};
BX_PACKED(kRepeaterSet);

constexpr bx::FieldDef kRepeaterStaInfoSource[] = {
    BX_WORD(RepeaterStaInfoParam, eRadio, EnumBand, "radio", "radio:%u"),
    BX_TEXT(RepeaterStaInfoParam, szSsid, "ssid", "ssid:%s"),
    BX_TEXT(RepeaterStaInfoParam, szBssid, "bssid", "bssid:%s"),
    BX_S32(RepeaterStaInfoParam, iRssi, "rssi", "rssi:%d"),
    BX_WORD(RepeaterStaInfoParam, eConnected, EnumConnected, "status", "status:%d"),
};
BX_PACKED(kRepeaterStaInfo);

constexpr bx::FieldDef kRepeaterApSource[] = {
    BX_TEXT(RepeaterApEntry, szSsid, "ssid", "ssid:%s"),
    BX_TEXT(RepeaterApEntry, szBssid, "bssid", "bssid:%s"),
    BX_U32(RepeaterApEntry, uiChannel, "channel", "channel:%u"),
    BX_S32(RepeaterApEntry, iRssi, "rssi", "rssi:%d"),
    BX_WORD(RepeaterApEntry, eSecurity, EnumSecurity, "security", "security:%d"),
};
BX_PACKED(kRepeaterAp);

constexpr bx::FieldDef kMacCloneSource[] = {
    BX_WORD(MacCloneParam, eStatus, EnumSwitch, "status", "status:%d"),
    BX_TEXT(MacCloneParam, szMac, "mac", "mac:%s"),
};
BX_PACKED(kMacClone);

constexpr bx::FieldDef kLanSource[] = {
    BX_TEXT(LanParam, szIp, "ip", "ip:%s"),
    BX_TEXT(LanParam, szMask, "mask", "mask:%s"),
};
BX_PACKED(kLan);

constexpr bx::FieldDef kDhcpServerSource[] = {
    BX_WORD(DhcpServerParam, eStatus, EnumSwitch, "status", "status:%d"),
    BX_TEXT(DhcpServerParam, szStartIp, "startip", "startip:%s"),
    BX_TEXT(DhcpServerParam, szEndIp, "endip", "endip:%s"),
    BX_U32(DhcpServerParam, uiLeaseTime, "leasetime", "leasetime:%u"),
};
BX_PACKED(kDhcpServer);

constexpr bx::FieldDef kLanStaticSource[] = {
    BX_WORD(LanStaticParam, eAction, EnumListAction, "action", "action:%d"),
    BX_TEXT(LanStaticParam, szMac, "mac", "mac:%s"),
    BX_TEXT(LanStaticParam, szIp, "ip", "ip:%s"),
    BX_TEXT(LanStaticParam, szHostName, "hostname", "hostname:%s"),
};
BX_PACKED(kLanStatic);

constexpr bx::FieldDef kLanStaticEntrySource[] = {
    BX_TEXT(LanStaticEntry, szMac, "mac", "mac:%s"),
    BX_TEXT(LanStaticEntry, szIp, "ip", "ip:%s"),
    BX_TEXT(LanStaticEntry, szHostName, "hostname", "hostname:%s"),
};
BX_PACKED(kLanStaticEntry);

constexpr bx::ListOf kRepeaterList = BX_COUNTED_TABLES(RepeaterListParam, astList, kRepeaterAp);
/* "count" only goes out: a received list counts what it fills. */
constexpr bx::FieldDef kRepeaterListMsgSource[] = {
    BX_COUNT(RepeaterListParam, .way = bx::Way::Sent),
    BX_COUNTED_LIST(RepeaterListParam, astList, "list", kRepeaterList),
};
BX_PACKED(kRepeaterListMsg);

constexpr bx::ListOf kLanStaticList = BX_COUNTED_TABLES(LanStaticListParam, astList, kLanStaticEntry);
constexpr bx::FieldDef kLanStaticListMsgSource[] = {
    BX_COUNT(LanStaticListParam, .way = bx::Way::Sent),
    BX_COUNTED_LIST(LanStaticListParam, astList, "list", kLanStaticList),
};
BX_PACKED(kLanStaticListMsg);

} // namespace

extern "C" {

BX_CONVERTERS(STJ_BridgeSwitch, JTS_BridgeSet, kBridgeSwitch)
BX_CONVERTERS(STJ_BridgeStatus, JTS_BridgeGet, kBridgeStatus)
BX_CONVERTERS(STJ_Repeater_SetInfo, JTS_RepeaterSet, kRepeaterSet)
BX_CONVERTERS(STJ_Repeater_StaInfo, JTS_RepeaterGet, kRepeaterStaInfo)
/* One pair serves the WAN MAC clone (33) and the LAN MAC clone (35). */
BX_CONVERTERS(STJ_CloneMac, JTS_MacClone, kMacClone)
BX_CONVERTERS(STJ_Lan, JTS_Lan, kLan)
BX_CONVERTERS(STJ_DhcpServer, JTS_DhcpServer, kDhcpServer)
BX_CONVERTERS(STJ_LanStatic, JTS_LanStatic, kLanStatic)
BX_CONVERTERS(STJ_LockNet, JTS_LockNet, kBridgeSwitch)

BX_CONVERTERS(STJ_Repeater_List, JTS_RepeaterList, kRepeaterListMsg)
BX_CONVERTERS(STJ_LanStatic_List, JTS_LanStatic_List, kLanStaticListMsg)

} // extern "C"
