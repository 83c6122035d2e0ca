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

constexpr Field kStaStorageInfo[] = {
    BX_TEXT(StaStorageInfoParam, szMac, "mac", "mac:%s"),
    BX_WORD(StaStorageInfoParam, eAllow, EnumBoolean, "allow", nullptr),
};

constexpr Field kCustomInfo[] = {
    BX_WORD(CustomInfoParam, eOperate, EnumCarrier, "operate", "operator:%d"),
    BX_WORD(CustomInfoParam, eDistrict, EnumProvince, "district", "district:%d"),
};

constexpr Field kCTCCBasicInfo[] = {
    BX_TEXT(CTCCBasicInfoParam, szCtei, "ctei", "ctei:%s"),
    BX_TEXT(CTCCBasicInfoParam, szElinkSn, "elinksn", "elinks:%s"),
    BX_TEXT(CTCCBasicInfoParam, szIfVersion, "ifversion", "ifversion:%s"),
    BX_WORD(CTCCBasicInfoParam, eElinkLink, EnumSwitch, "elinklink", "elinklink:%d"),
};

constexpr Field kCTCCElinkStatus[] = {
    bx::required(BX_WORD(CTCCElinkStatusParam, eStatus, EnumSwitch, "status", "status:%d"), "[status] is not valid."),
};

constexpr Field kCMCCBasicInfo[] = {
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

/* The three login services share one record; the switch key is the same,
 * the account keys carry the service's name. */
constexpr Field kTelnet[] = {
    BX_WORD(ServiceAccessParam, eSwitch, EnumSwitch, "switch", "telnetswitch:%d"),
    BX_TEXT(ServiceAccessParam, szUser, "telnetUser", "telnetUser:%s"),
    BX_TEXT(ServiceAccessParam, szPwd, "telnetPwd", "telnetPwd:%s"),
};
constexpr Field kSamba[] = {
    BX_WORD(ServiceAccessParam, eSwitch, EnumSwitch, "switch", "sambaswitch:%d"),
    BX_TEXT(ServiceAccessParam, szUser, "sambaUser", "sambaUser:%s"),
    BX_TEXT(ServiceAccessParam, szPwd, "sambaPwd", "sambaPwd:%s"),
};
constexpr Field kFtp[] = {
    BX_WORD(ServiceAccessParam, eSwitch, EnumSwitch, "switch", "ftpswitch:%d"),
    BX_TEXT(ServiceAccessParam, szUser, "ftpUser", "ftpUser:%s"),
    BX_TEXT(ServiceAccessParam, szPwd, "ftpPwd", "ftpPwd:%s"),
};

constexpr Field kRouterName[] = {
    bx::required(BX_TEXT(RouterNameParam, szRouterName, "routername", "RouterTitle:%s"), "[routername] is not valid."),
};

constexpr Field kKernelCount[] = {
    bx::required(BX_U32(KernelCountParam, uiCount, "count", "count:%d"), "[count] is not valid."),
};

constexpr Field kCTCCRouterPin[] = {
    BX_TEXT(CTCCRouterPinParam, szPin, "pin", "RouterPin:%s"),
};

constexpr Field kFactoryFlag[] = {
    bx::required(BX_WORD(FactoryFlagParam, eStatus, EnumSwitch, "status", "FactoryFlag status:%d"), nullptr),
};

/* The file name is not traced. */
constexpr Field kCMCCCfgFileSync[] = {
    BX_TEXT(CMCCCfgFileSyncParam, szCfgFile, "cfgfile", nullptr),
};

constexpr Field kSyncTime[] = {
    /* Quirk: a missing "time" is reported as "[status]". */
    bx::required(BX_U32(SyncTimeParam, uiTime, "time", "time:%llu"), "[status] is not valid."),
};

constexpr Field kWanTcpUdpConNum[] = {
    bx::reported(BX_U32(WanTcpUdpConNumParam, uiWanIndex, "wanindex", "wan index:%d"), "[wan index] is not valid."),
    BX_U32(WanTcpUdpConNumParam, uiNumber, "number", "ConNum:%d"),
};

constexpr Field kCustomFactoryInfo[] = {
    BX_TEXT(CustomFactoryInfoParam, szRandPassword, "randpassword", nullptr),
};

constexpr Field kAgentUplinkInfo[] = {
    BX_WORD(AgentUplinkInfoParam, eType, EnumUplinkMedium, "type", "type:%u"),
    BX_TEXT(AgentUplinkInfoParam, szSsid, "ssid", "ssid: %s"),
    BX_S32(AgentUplinkInfoParam, iRssi, "rssi", "Rssi: %d"),
    BX_S32(AgentUplinkInfoParam, iNoise, "noise", "Noise: %d"),
    BX_U32(AgentUplinkInfoParam, uiUpRate, "uprate", "UpRate: %d"),
    BX_U32(AgentUplinkInfoParam, uiDownRate, "downrate", "DownRate: %d"),
};

constexpr Field kUpgradeReport[] = {
    BX_U32(UpgradeReportParam, uiStatus, "status", "upgrade status:%d(1:succ,0:failed)."),
    BX_U32(UpgradeReportParam, uiErrCode, "errCode", "upgrade ErrCode:%d"),
};

constexpr Field kFileSync[] = {
    BX_TEXT(FileSyncParam, szSrcFile, "srcfile", "pstOut->szSrcFile:%s"),
    BX_TEXT(FileSyncParam, szDestFile, "destfile", "pstOut->szDestFile:%s"),
};

constexpr Field kQuickjoin[] = {
    BX_WORD(QuickjoinParam, eStatus, EnumSwitch, "status", "status:%d"),
};

/* ---- CTCC platform servers (type 154) --------------------------------------- */

/* Each member travels only while its bit of uiValidMask is set; storing
 * one sets its bit. Quirk: the copy takes the whole array, so a
 * 65-character text is stored without a terminator. */
#define SERVER_TEXT(member, key, bit) \
    bx::flagged(bx::whole(BX_TEXT(CTCCServerInfoParam, member, key, key ":%s")), bit)
constexpr Field kServerTexts[] = {
    SERVER_TEXT(szBssAddr, "bssaddr", CTCC_SERVER_BSSADDR),
    SERVER_TEXT(szAbiAddr, "abiaddr", CTCC_SERVER_ABIADDR),
    SERVER_TEXT(szDevToken, "devtoken", CTCC_SERVER_DEVTOKEN),
    SERVER_TEXT(szDevId, "devid", CTCC_SERVER_DEVID),
};
#undef SERVER_TEXT
constexpr size_t kServerTextCount = sizeof kServerTexts / sizeof kServerTexts[0];
constexpr int kServerMask = static_cast<int>(offsetof(CTCCServerInfoParam, uiValidMask));

/* Quirk: the copy takes the whole array, so a 65-character text is stored
 * without a terminator. Its trace prints the array and nothing past it. */
void store_server_text(const char *func, const char *key, char *dst, blob_attr *attr)
{
    bx::copy_text(dst, CTCC_SERVER_TEXT_SIZE, attr);
    BX_TRACE_AS(func, "%s:%.*s\n", key, CTCC_SERVER_TEXT_SIZE, dst);
}

/* ---- Factory random password (type 168) --------------------------------------- */

constexpr size_t kRandPasswordLen = 8;

} // namespace

extern "C" {

BX_FIELD_CONVERTERS(STJ_StaStorageInfo, JTS_StaStorageInfo, kStaStorageInfo)

BX_FIELD_CONVERTERS(STJ_CustomInfo, JTS_CustomInfo, kCustomInfo)

BX_FIELD_CONVERTERS(STJ_CTCCBasicInfo, JTS_CTCCBasicInfo, kCTCCBasicInfo)

/* Hand-written: the backup servers go out as bare texts up to the first empty one. */
BX_API int STJ_CTCCServerInfo(const void *pvRecord, struct blob_buf *pstBuf)
{
    if (pvRecord == nullptr || pstBuf == nullptr)
        return -1;
    const auto *rec = static_cast<const CTCCServerInfoParam *>(pvRecord);
    bx::emit_fields(kServerTexts, kServerTextCount, rec, pstBuf, kServerMask);
    if (!(rec->uiValidMask & CTCC_SERVER_BACKUP))
        return 0;
    void *list = blobmsg_open_array(pstBuf, "backup");
    /* The entries before the first empty one, at most the array's 16. */
    for (size_t i = 0; i < CTCC_SERVER_BACKUP_MAX && rec->aszBackup[i][0] != 0; ++i)
        bx::add_text(pstBuf, nullptr, rec->aszBackup[i]);
    blob_nest_end(pstBuf, list);
    return 0;
}

/* Hand-written: the backup servers are a list of bare texts that fill their whole arrays. */
BX_API int JTS_CTCCServerInfo(struct blob_attr *pstMsg, void *pvRecord)
{
    enum { SERVER_BSSADDR, SERVER_ABIADDR, SERVER_DEVTOKEN, SERVER_DEVID, SERVER_BACKUP, SERVER_MAX };
    static const blobmsg_policy policy[SERVER_MAX] = {
        /* SERVER_BSSADDR */  {"bssaddr", BLOBMSG_TYPE_STRING},
        /* SERVER_ABIADDR */  {"abiaddr", BLOBMSG_TYPE_STRING},
        /* SERVER_DEVTOKEN */ {"devtoken", BLOBMSG_TYPE_STRING},
        /* SERVER_DEVID */    {"devid", BLOBMSG_TYPE_STRING},
        /* SERVER_BACKUP */   {"backup", BLOBMSG_TYPE_ARRAY},
    };
    static_assert(kServerTextCount == SERVER_BACKUP);
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *rec = static_cast<CTCCServerInfoParam *>(pvRecord);
    blob_attr *tb[SERVER_MAX];
    bx::parse(policy, tb, pstMsg);
    /* Bits are only ever set: the caller's mask is added to. */
    bx::read_fields(__func__, kServerTexts, kServerTextCount, tb, rec, kServerMask);
    if (!bx::present(policy, tb, SERVER_BACKUP))
        return 0;
    rec->uiValidMask |= CTCC_SERVER_BACKUP;
    size_t stored = 0;
    const char *func = __func__;
    bx::for_each_elem(tb[SERVER_BACKUP], [&](blob_attr *elem) {
        store_server_text(func, "backup", rec->aszBackup[stored], elem);
        return ++stored < CTCC_SERVER_BACKUP_MAX;
    });
    return 0;
}

BX_FIELD_CONVERTERS(STJ_CTCCElinkStatus, JTS_CTCCElinkInfo, kCTCCElinkStatus)

BX_FIELD_CONVERTERS(STJ_CMCCBasicInfo, JTS_CMCCBasicInfo, kCMCCBasicInfo)

BX_FIELD_CONVERTERS(STJ_Telnet, JTS_Telnet, kTelnet)

BX_FIELD_CONVERTERS(STJ_Samba, JTS_Samba, kSamba)

BX_FIELD_CONVERTERS(STJ_Ftp, JTS_Ftp, kFtp)

BX_FIELD_CONVERTERS(STJ_RouterName, JTS_RouterName, kRouterName)

BX_FIELD_CONVERTERS(STJ_KernelCount, JTS_KernelCount, kKernelCount)

BX_FIELD_CONVERTERS(STJ_CTCCRouterPin, JTS_CTCCRouterPin, kCTCCRouterPin)

BX_FIELD_CONVERTERS(STJ_FactoryFlag, JTS_FactoryFlag, kFactoryFlag)

BX_FIELD_CONVERTERS(STJ_CMCCCfgFileSync, JTS_CMCCCfgFileSync, kCMCCCfgFileSync)

BX_FIELD_CONVERTERS(STJ_SyncTime, JTS_SyncTime, kSyncTime)

BX_FIELD_CONVERTERS(STJ_WanTcpUdpConNum_Get, JTS_WanTcpUdpConNum_Get, kWanTcpUdpConNum)

BX_SENT_ROW(STJ_CustomFactoryInfo, kCustomFactoryInfo, ::bx::kNoMask)

/* Hand-written: only a password of exactly eight characters is taken. */
BX_API int JTS_CustomFactoryInfo(struct blob_attr *pstMsg, void *pvRecord)
{
    enum { FACTORY_RANDPASSWORD, FACTORY_MAX };
    static const blobmsg_policy policy[FACTORY_MAX] = {
        /* FACTORY_RANDPASSWORD */ {"randpassword", BLOBMSG_TYPE_STRING},
    };
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *rec = static_cast<CustomFactoryInfoParam *>(pvRecord);
    blob_attr *tb[FACTORY_MAX];
    bx::parse(policy, tb, pstMsg);
    if (!bx::present(policy, tb, FACTORY_RANDPASSWORD))
        return 0;
    /* Only a password of exactly eight characters is taken; anything else is
     * traced and leaves the record as it was. */
    char scratch[32] = {};
    bx::copy_text(scratch, sizeof scratch - 1, tb[FACTORY_RANDPASSWORD]);
    if (std::strlen(scratch) != kRandPasswordLen) {
        BX_TRACE("wrong randpassword:%s\n", scratch);
        return 0;
    }
    std::strncpy(rec->szRandPassword, scratch, sizeof rec->szRandPassword - 1);
    BX_TRACE("randpassword:%s\n", rec->szRandPassword);
    return 0;
}

BX_FIELD_CONVERTERS(STJ_Agent_Uplink_Info_Get, JTS_Agent_Uplink_Info_Get, kAgentUplinkInfo)

BX_FIELD_CONVERTERS(STJ_Upgrade_report, JTS_Upgrade_report, kUpgradeReport)

BX_FIELD_CONVERTERS(STJ_File_Save, JTS_File_Save, kFileSync)

BX_FIELD_CONVERTERS(STJ_Quickjoin, JTS_Quickjoin, kQuickjoin)

} // extern "C"
