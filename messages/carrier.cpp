/* Carrier and service messages (types 129, 130, 153 to 172): the device data
 * of the carrier platforms, the login services, naming, factory data, time
 * synchronisation and small reports.
 *
 * Receivers take every key as optional unless a message below says it is
 * required; service passwords and keys are traced in clear like any value. */
#include <cstring>

#include "core/codec.h"

namespace {

using bx::Field;

constexpr bx::FieldDef kStaStorageInfoSource[] = {
    BX_TEXT(StaStorageInfoParam, szMac, "mac", "mac:%s"),
    BX_WORD(StaStorageInfoParam, eAllow, EnumBoolean, "allow", nullptr),
};
BX_PACKED(kStaStorageInfo);

constexpr bx::FieldDef kCustomInfoSource[] = {
    BX_WORD(CustomInfoParam, eOperate, EnumCarrier, "operate", "operator:%d"),
    BX_WORD(CustomInfoParam, eDistrict, EnumProvince, "district", "district:%d"),
};
BX_PACKED(kCustomInfo);

constexpr bx::FieldDef kCTCCBasicInfoSource[] = {
    BX_TEXT(CTCCBasicInfoParam, szCtei, "ctei", "ctei:%s"),
    BX_TEXT(CTCCBasicInfoParam, szElinkSn, "elinksn", "elinks:%s"),
    BX_TEXT(CTCCBasicInfoParam, szIfVersion, "ifversion", "ifversion:%s"),
    BX_WORD(CTCCBasicInfoParam, eElinkLink, EnumSwitch, "elinklink", "elinklink:%d"),
};
BX_PACKED(kCTCCBasicInfo);

constexpr bx::FieldDef kCTCCElinkStatusSource[] = {
    BX_WORD(CTCCElinkStatusParam, eStatus, EnumSwitch, "status", "status:%d", .required = true,
        .absent = "[status] is not valid."),
};
BX_PACKED(kCTCCElinkStatus);

constexpr bx::FieldDef kCMCCBasicInfoSource[] = {
    BX_TEXT(CMCCBasicInfoParam, szDeviceType, "devicetype", "devicetype:%s"),
    BX_TEXT(CMCCBasicInfoParam, szProductToken, "producttoken", "producttoken:%s"),
    BX_TEXT(CMCCBasicInfoParam, szDeviceVendor, "devicevendor", "devicevenor:%s"),
    BX_TEXT(CMCCBasicInfoParam, szDeviceModel, "devicemodel", "devicemodel:%s"),
    BX_TEXT(CMCCBasicInfoParam, szDeviceSn, "devicesn", "devicesn:%s"),
    BX_TEXT(CMCCBasicInfoParam, szCmei, "cmei", "cmei:%s"),
    BX_TEXT(CMCCBasicInfoParam, szDeviceKey, "devicekey", "devicekey:%s"),
    BX_TEXT(CMCCBasicInfoParam, szProvCode, "provcode", "provcode:%s"),
    BX_TEXT(CMCCBasicInfoParam, szDmAppKey, "dmappkey", "dmappkey:%s"),
    BX_TEXT(CMCCBasicInfoParam, szDmPwd, "dmpwd", "dmpwd:%s"),
};
BX_PACKED(kCMCCBasicInfo);

/* The three login services share one record; the switch key is the same,
 * the account keys carry the service's name. */
constexpr bx::FieldDef kTelnetSource[] = {
    BX_WORD(ServiceAccessParam, eSwitch, EnumSwitch, "switch", "telnetswitch:%d"),
    BX_TEXT(ServiceAccessParam, szUser, "telnetUser", "telnetUser:%s"),
    BX_TEXT(ServiceAccessParam, szPwd, "telnetPwd", "telnetPwd:%s"),
};
BX_PACKED(kTelnet);
constexpr bx::FieldDef kSambaSource[] = {
    BX_WORD(ServiceAccessParam, eSwitch, EnumSwitch, "switch", "sambaswitch:%d"),
    BX_TEXT(ServiceAccessParam, szUser, "sambaUser", "sambaUser:%s"),
    BX_TEXT(ServiceAccessParam, szPwd, "sambaPwd", "sambaPwd:%s"),
};
BX_PACKED(kSamba);
constexpr bx::FieldDef kFtpSource[] = {
    BX_WORD(ServiceAccessParam, eSwitch, EnumSwitch, "switch", "ftpswitch:%d"),
    BX_TEXT(ServiceAccessParam, szUser, "ftpUser", "ftpUser:%s"),
    BX_TEXT(ServiceAccessParam, szPwd, "ftpPwd", "ftpPwd:%s"),
};
BX_PACKED(kFtp);

constexpr bx::FieldDef kRouterNameSource[] = {
    BX_TEXT(RouterNameParam, szRouterName, "routername", "RouterTitle:%s", .required = true,
        .absent = "[routername] is not valid."),
};
BX_PACKED(kRouterName);

constexpr bx::FieldDef kKernelCountSource[] = {
    BX_U32(KernelCountParam, uiCount, "count", "count:%d", .required = true, .absent = "[count] is not valid."),
};
BX_PACKED(kKernelCount);

constexpr bx::FieldDef kCTCCRouterPinSource[] = {
    BX_TEXT(CTCCRouterPinParam, szPin, "pin", "RouterPin:%s"),
};
BX_PACKED(kCTCCRouterPin);

constexpr bx::FieldDef kFactoryFlagSource[] = {
    BX_WORD(FactoryFlagParam, eStatus, EnumSwitch, "status", "FactoryFlag status:%d", .required = true),
};
BX_PACKED(kFactoryFlag);

/* The file name is not traced. */
constexpr bx::FieldDef kCMCCCfgFileSyncSource[] = {
    BX_TEXT(CMCCCfgFileSyncParam, szCfgFile, "cfgfile", nullptr),
};
BX_PACKED(kCMCCCfgFileSync);

constexpr bx::FieldDef kSyncTimeSource[] = {
    /* Quirk: a missing "time" is reported as "[status]". */
    BX_U32(SyncTimeParam, uiTime, "time", "time:%llu", .required = true, .absent = "[status] is not valid."),
};
BX_PACKED(kSyncTime);

constexpr bx::FieldDef kWanTcpUdpConNumSource[] = {
    BX_U32(WanTcpUdpConNumParam, uiWanIndex, "wanindex", "wan index:%d", .absent = "[wan index] is not valid."),
    BX_U32(WanTcpUdpConNumParam, uiNumber, "number", "ConNum:%d"),
};
BX_PACKED(kWanTcpUdpConNum);

constexpr bx::FieldDef kAgentUplinkInfoSource[] = {
    BX_WORD(AgentUplinkInfoParam, eType, EnumUplinkMedium, "type", "type:%u"),
    BX_TEXT(AgentUplinkInfoParam, szSsid, "ssid", "ssid: %s"),
    BX_S32(AgentUplinkInfoParam, iRssi, "rssi", "Rssi: %d"),
    BX_S32(AgentUplinkInfoParam, iNoise, "noise", "Noise: %d"),
    BX_U32(AgentUplinkInfoParam, uiUpRate, "uprate", "UpRate: %d"),
    BX_U32(AgentUplinkInfoParam, uiDownRate, "downrate", "DownRate: %d"),
};
BX_PACKED(kAgentUplinkInfo);

constexpr bx::FieldDef kUpgradeReportSource[] = {
    BX_U32(UpgradeReportParam, uiStatus, "status", "upgrade status:%d(1:succ,0:failed)."),
    BX_U32(UpgradeReportParam, uiErrCode, "errCode", "upgrade ErrCode:%d"),
};
BX_PACKED(kUpgradeReport);

constexpr bx::FieldDef kFileSyncSource[] = {
    BX_TEXT(FileSyncParam, szSrcFile, "srcfile", "pstOut->szSrcFile:%s"),
    BX_TEXT(FileSyncParam, szDestFile, "destfile", "pstOut->szDestFile:%s"),
};
BX_PACKED(kFileSync);

constexpr bx::FieldDef kQuickjoinSource[] = {
    BX_WORD(QuickjoinParam, eStatus, EnumSwitch, "status", "status:%d"),
};
BX_PACKED(kQuickjoin);

/* ---- CTCC platform servers (type 154) --------------------------------------- */

/* Each member travels only while its bit of uiValidMask is set; storing
 * one sets its bit (bits are only ever set: the caller's mask is added
 * to). Quirk: the copy takes the whole array, so a 65-character text is
 * stored without a terminator. */
#define SERVER_TEXT(m, key_, bit_) BX_TEXT(CTCCServerInfoParam, m, key_, key_ ":%s", .whole = true, .bit = bit_)

/* The backup servers go out as bare texts up to the first empty one; they
 * come in as texts whatever their type, up to the array's 16, and the list
 * sets its bit once present. */
constexpr bx::FieldDef kBackupSource[] = {BX_TEXT_ENTRY(CTCC_SERVER_TEXT_SIZE, "backup:%s", .whole = true)};
BX_PACKED(kBackup);
constexpr bx::ListOf kBackups =
    BX_VALUES(CTCCServerInfoParam, aszBackup, kBackup, .to_first_empty = true, .any_type = true);

constexpr bx::FieldDef kCTCCServerInfoSource[] = {
    SERVER_TEXT(szBssAddr, "bssaddr", CTCC_SERVER_BSSADDR),
    SERVER_TEXT(szAbiAddr, "abiaddr", CTCC_SERVER_ABIADDR),
    SERVER_TEXT(szDevToken, "devtoken", CTCC_SERVER_DEVTOKEN),
    SERVER_TEXT(szDevId, "devid", CTCC_SERVER_DEVID),
    BX_LIST(CTCCServerInfoParam, aszBackup, "backup", kBackups, nullptr, .bit = CTCC_SERVER_BACKUP),
};
BX_PACKED(kCTCCServerInfo);
#undef SERVER_TEXT

/* ---- Factory random password (type 168) --------------------------------------- */

constexpr size_t kRandPasswordLen = 8;

/* Quirk: only a password of exactly eight characters is taken; any other
 * is traced (at most 31 characters of it) and leaves the record as it was. */
bx::Read read_rand_password(const bx::Reading &r, const Field &f, blob_attr *attr)
{
    if (!JTS_CheckBlobAttr(f.key(), attr))
        return bx::kGoOn;
    const char *text = bx::get_text(attr);
    if (strnlen(text, kRandPasswordLen + 1) != kRandPasswordLen) {
        BX_TRACE_AS(r.func, "wrong randpassword:%.31s\n", text);
        return bx::kGoOn;
    }
    return bx::read_slot(r, f, attr);
}

constexpr bx::Quirk kRandPasswordRead{read_rand_password, nullptr, "only a text of exactly eight characters is stored; any other is traced and left out"};

constexpr bx::FieldDef kCustomFactoryInfoSource[] = {
    BX_TEXT(CustomFactoryInfoParam, szRandPassword, "randpassword", "randpassword:%s", .quirk = &kRandPasswordRead),
};
BX_PACKED(kCustomFactoryInfo);

} // namespace

extern "C" {

BX_CONVERTERS(STJ_StaStorageInfo, JTS_StaStorageInfo, kStaStorageInfo)

BX_CONVERTERS(STJ_CustomInfo, JTS_CustomInfo, kCustomInfo)

BX_CONVERTERS(STJ_CTCCBasicInfo, JTS_CTCCBasicInfo, kCTCCBasicInfo)

BX_CONVERTERS(STJ_CTCCServerInfo, JTS_CTCCServerInfo, kCTCCServerInfo, offsetof(CTCCServerInfoParam, uiValidMask))

BX_CONVERTERS(STJ_CTCCElinkStatus, JTS_CTCCElinkInfo, kCTCCElinkStatus)

BX_CONVERTERS(STJ_CMCCBasicInfo, JTS_CMCCBasicInfo, kCMCCBasicInfo)

BX_CONVERTERS(STJ_Telnet, JTS_Telnet, kTelnet)

BX_CONVERTERS(STJ_Samba, JTS_Samba, kSamba)

BX_CONVERTERS(STJ_Ftp, JTS_Ftp, kFtp)

BX_CONVERTERS(STJ_RouterName, JTS_RouterName, kRouterName)

BX_CONVERTERS(STJ_KernelCount, JTS_KernelCount, kKernelCount)

BX_CONVERTERS(STJ_CTCCRouterPin, JTS_CTCCRouterPin, kCTCCRouterPin)

BX_CONVERTERS(STJ_FactoryFlag, JTS_FactoryFlag, kFactoryFlag)

BX_CONVERTERS(STJ_CMCCCfgFileSync, JTS_CMCCCfgFileSync, kCMCCCfgFileSync)

BX_CONVERTERS(STJ_SyncTime, JTS_SyncTime, kSyncTime)

BX_CONVERTERS(STJ_WanTcpUdpConNum_Get, JTS_WanTcpUdpConNum_Get, kWanTcpUdpConNum)

BX_CONVERTERS(STJ_CustomFactoryInfo, JTS_CustomFactoryInfo, kCustomFactoryInfo)

BX_CONVERTERS(STJ_Agent_Uplink_Info_Get, JTS_Agent_Uplink_Info_Get, kAgentUplinkInfo)

BX_CONVERTERS(STJ_Upgrade_report, JTS_Upgrade_report, kUpgradeReport)

BX_CONVERTERS(STJ_File_Save, JTS_File_Save, kFileSync)

BX_CONVERTERS(STJ_Quickjoin, JTS_Quickjoin, kQuickjoin)

} // extern "C"
