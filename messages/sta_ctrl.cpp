/* Station access control: the switch, the black/white mode, the lists, and
 * per-station Internet and Wi-Fi permission and Internet hours.
 *
 * Every key is optional in both directions: an absent key is traced and its
 * field left as the caller set it. */
#include "core/codec.h"

namespace {

using bx::Field;

constexpr bx::FieldDef kStatusSource[] = {
    BX_WORD(StaCtrlStatusParam, eStatus, EnumSwitch, "status", "status:%d"),
};
BX_PACKED(kStatus);

constexpr bx::FieldDef kModeSource[] = {
    BX_WORD(StaCtrlModeParam, eMode, EnumListMode, "mode", "mode:%d"),
};
BX_PACKED(kMode);

constexpr bx::FieldDef kModeSwitchSource[] = {
    BX_WORD(StaCtrlModeSwitchParam, eMode, EnumListMode, "mode", "mode:%d"),
    BX_WORD(StaCtrlModeSwitchParam, eStatus, EnumSwitch, "status", "status:%d"),
};
BX_PACKED(kModeSwitch);

constexpr bx::FieldDef kEntrySource[] = {
    BX_TEXT(StaCtrlEntry, szMac, "mac", "mac:%s"),
    BX_TEXT(StaCtrlEntry, szName, "name", "name:%s"),
    BX_WORD(StaCtrlEntry, eMode, EnumListMode, "mode", "mode:%d"),
};
BX_PACKED(kEntry);

constexpr bx::FieldDef kAllowSource[] = {
    BX_TEXT(StaCtrlAllowParam, szMac, "mac", "mac:%s"),
    BX_WORD(StaCtrlAllowParam, bAllow, EnumBoolean, "allow", "allow:%d"),
};
BX_PACKED(kAllow);

constexpr bx::FieldDef kItemSource[] = {
    BX_WORD(StaCtrlItemParam, eAction, EnumListAction, "action", "action:%d"),
    BX_WORD(StaCtrlItemParam, eMode, EnumListMode, "mode", "mode:%d"),
    BX_TEXT(StaCtrlItemParam, szMac, "mac", "mac:%s"),
    BX_TEXT(StaCtrlItemParam, szName, "name", "name:%s"),
};
BX_PACKED(kItem);

constexpr bx::FieldDef kInternetTimeSource[] = {
    BX_TEXT(StaCtrlInternetTimeParam, szMac, "mac", "mac:%s"),
    BX_TEXT(StaCtrlInternetTimeParam, szStartTime, "starttime", "starttime:%s"),
    BX_TEXT(StaCtrlInternetTimeParam, szEndTime, "endtime", "endtime:%s"),
    BX_U32(StaCtrlInternetTimeParam, uiWeekMask, "week", "week:%u"),
};
BX_PACKED(kInternetTime);

constexpr bx::ListOf kCtrlList = BX_COUNTED_TABLES(StaCtrlListParam, astList, kEntry);
/* "count" only goes out: a received list counts what it fills. */
constexpr bx::FieldDef kCtrlListMsgSource[] = {
    BX_COUNT(StaCtrlListParam, .way = bx::Way::Sent),
    BX_COUNTED_LIST(StaCtrlListParam, astList, "list", kCtrlList),
};
BX_PACKED(kCtrlListMsg);

constexpr bx::ListOf kWifiList = BX_COUNTED_TABLES(StaCtrlWifiListParam, astList, kAllow);
constexpr bx::FieldDef kWifiListMsgSource[] = {
    BX_COUNT(StaCtrlWifiListParam, .way = bx::Way::Sent),
    BX_COUNTED_LIST(StaCtrlWifiListParam, astList, "list", kWifiList),
};
BX_PACKED(kWifiListMsg);

} // namespace

extern "C" {

BX_CONVERTERS(STJ_StaCtrlStatus, JTS_StaCtrlStatus, kStatus)
BX_CONVERTERS(STJ_StaCtrlMode, JTS_StaCtrlMode, kMode)
BX_CONVERTERS(STJ_StaCtrlModeSwitch, JTS_StaCtrlModeSwitch, kModeSwitch)
BX_CONVERTERS(STJ_StaCtrlList, JTS_StaCtrlList, kCtrlListMsg)
/* Asks for the list of one mode: the mode record again. */
BX_CONVERTERS(STJ_StaBWListGet, JTS_StaCtrBlackList, kMode)
BX_CONVERTERS(STJ_StaCtrlInternet, JTS_StaCtrlInternet, kAllow)
BX_CONVERTERS(STJ_StaCtrlWifi, JTS_StaCtrlWifi, kAllow)
BX_CONVERTERS(STJ_StaCtrlWifi_List, JTS_StaCtrlWifi_List, kWifiListMsg)
BX_CONVERTERS(STJ_StaCtrlItemAdd, JTS_StaCtrlItemAdd, kItem)
BX_CONVERTERS(STJ_StaCtrlInternetTime, JTS_StaCtrlInternetTime, kInternetTime)

} // extern "C"
