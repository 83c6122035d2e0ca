/* Carrier and service messages (types 129, 130, 153 to 172): the device data
 * of the carrier platforms, the login services, naming, factory data, time
 * synchronisation and small reports.
 *
 * Receivers take every key as optional unless a message below says it is
 * required; service passwords and keys are traced in clear like any value. */
#include <cstring>

#include "core/codec.h"
#include "messages/system_fields.h"

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
    BX_WORD(CTCCElinkStatusParam, eStatus, EnumSwitch, "status", "status:%d"),
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
    BX_TEXT(RouterNameParam, szRouterName, "routername", "RouterTitle:%s"),
};

constexpr Field kKernelCount[] = {
    BX_U32(KernelCountParam, uiCount, "count", "count:%d"),
};

constexpr Field kCTCCRouterPin[] = {
    BX_TEXT(CTCCRouterPinParam, szPin, "pin", "RouterPin:%s"),
};

constexpr Field kFactoryFlag[] = {
    BX_WORD(FactoryFlagParam, eStatus, EnumSwitch, "status", "FactoryFlag status:%d"),
};

/* The file name is not traced. */
constexpr Field kCMCCCfgFileSync[] = {
    BX_TEXT(CMCCCfgFileSyncParam, szCfgFile, "cfgfile", nullptr),
};

constexpr Field kSyncTime[] = {
    BX_U32(SyncTimeParam, uiTime, "time", "time:%llu"),
};

constexpr Field kWanTcpUdpConNum[] = {
    BX_U32(WanTcpUdpConNumParam, uiWanIndex, "wanindex", "wan index:%d"),
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

BX_API int STJ_StaStorageInfo(const void *pvRecord, struct blob_buf *pstBuf)
{
    return bx::stj_fields(pvRecord, pstBuf, kStaStorageInfo);
}

BX_API int JTS_StaStorageInfo(struct blob_attr *pstMsg, void *pvRecord)
{
    return bx::jts_fields<kStaStorageInfo>(__func__, pstMsg, pvRecord);
}

BX_API int STJ_CustomInfo(const void *pvRecord, struct blob_buf *pstBuf)
{
    return bx::stj_fields(pvRecord, pstBuf, kCustomInfo);
}

BX_API int JTS_CustomInfo(struct blob_attr *pstMsg, void *pvRecord)
{
    return bx::jts_fields<kCustomInfo>(__func__, pstMsg, pvRecord);
}

BX_API int STJ_CTCCBasicInfo(const void *pvRecord, struct blob_buf *pstBuf)
{
    return bx::stj_fields(pvRecord, pstBuf, kCTCCBasicInfo);
}

BX_API int JTS_CTCCBasicInfo(struct blob_attr *pstMsg, void *pvRecord)
{
    return bx::jts_fields<kCTCCBasicInfo>(__func__, pstMsg, pvRecord);
}

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

BX_API int STJ_CTCCElinkStatus(const void *pvRecord, struct blob_buf *pstBuf)
{
    return bx::stj_fields(pvRecord, pstBuf, kCTCCElinkStatus);
}

BX_API int JTS_CTCCElinkInfo(struct blob_attr *pstMsg, void *pvRecord)
{
    return bx::sys::jts_required<kCTCCElinkStatus>(__func__, pstMsg, pvRecord, "[status] is not valid.\n");
}

BX_API int STJ_CMCCBasicInfo(const void *pvRecord, struct blob_buf *pstBuf)
{
    return bx::stj_fields(pvRecord, pstBuf, kCMCCBasicInfo);
}

BX_API int JTS_CMCCBasicInfo(struct blob_attr *pstMsg, void *pvRecord)
{
    return bx::jts_fields<kCMCCBasicInfo>(__func__, pstMsg, pvRecord);
}

BX_API int STJ_Telnet(const void *pvRecord, struct blob_buf *pstBuf)
{
    return bx::stj_fields(pvRecord, pstBuf, kTelnet);
}

BX_API int JTS_Telnet(struct blob_attr *pstMsg, void *pvRecord)
{
    return bx::jts_fields<kTelnet>(__func__, pstMsg, pvRecord);
}

BX_API int STJ_Samba(const void *pvRecord, struct blob_buf *pstBuf)
{
    return bx::stj_fields(pvRecord, pstBuf, kSamba);
}

BX_API int JTS_Samba(struct blob_attr *pstMsg, void *pvRecord)
{
    return bx::jts_fields<kSamba>(__func__, pstMsg, pvRecord);
}

BX_API int STJ_Ftp(const void *pvRecord, struct blob_buf *pstBuf)
{
    return bx::stj_fields(pvRecord, pstBuf, kFtp);
}

BX_API int JTS_Ftp(struct blob_attr *pstMsg, void *pvRecord)
{
    return bx::jts_fields<kFtp>(__func__, pstMsg, pvRecord);
}

BX_API int STJ_RouterName(const void *pvRecord, struct blob_buf *pstBuf)
{
    return bx::stj_fields(pvRecord, pstBuf, kRouterName);
}

BX_API int JTS_RouterName(struct blob_attr *pstMsg, void *pvRecord)
{
    return bx::sys::jts_required<kRouterName>(__func__, pstMsg, pvRecord, "[routername] is not valid.\n");
}

BX_API int STJ_KernelCount(const void *pvRecord, struct blob_buf *pstBuf)
{
    return bx::stj_fields(pvRecord, pstBuf, kKernelCount);
}

BX_API int JTS_KernelCount(struct blob_attr *pstMsg, void *pvRecord)
{
    return bx::sys::jts_required<kKernelCount>(__func__, pstMsg, pvRecord, "[count] is not valid.\n");
}

BX_API int STJ_CTCCRouterPin(const void *pvRecord, struct blob_buf *pstBuf)
{
    return bx::stj_fields(pvRecord, pstBuf, kCTCCRouterPin);
}

BX_API int JTS_CTCCRouterPin(struct blob_attr *pstMsg, void *pvRecord)
{
    return bx::jts_fields<kCTCCRouterPin>(__func__, pstMsg, pvRecord);
}

BX_API int STJ_FactoryFlag(const void *pvRecord, struct blob_buf *pstBuf)
{
    return bx::stj_fields(pvRecord, pstBuf, kFactoryFlag);
}

BX_API int JTS_FactoryFlag(struct blob_attr *pstMsg, void *pvRecord)
{
    return bx::sys::jts_required<kFactoryFlag>(__func__, pstMsg, pvRecord);
}

BX_API int STJ_CMCCCfgFileSync(const void *pvRecord, struct blob_buf *pstBuf)
{
    return bx::stj_fields(pvRecord, pstBuf, kCMCCCfgFileSync);
}

BX_API int JTS_CMCCCfgFileSync(struct blob_attr *pstMsg, void *pvRecord)
{
    return bx::jts_fields<kCMCCCfgFileSync>(__func__, pstMsg, pvRecord);
}

BX_API int STJ_SyncTime(const void *pvRecord, struct blob_buf *pstBuf)
{
    return bx::stj_fields(pvRecord, pstBuf, kSyncTime);
}

BX_API int JTS_SyncTime(struct blob_attr *pstMsg, void *pvRecord)
{
    /* Quirk: a missing "time" is reported as "[status]". */
    return bx::sys::jts_required<kSyncTime>(__func__, pstMsg, pvRecord, "[status] is not valid.\n");
}

BX_API int STJ_WanTcpUdpConNum_Get(const void *pvRecord, struct blob_buf *pstBuf)
{
    return bx::stj_fields(pvRecord, pstBuf, kWanTcpUdpConNum);
}

BX_API int JTS_WanTcpUdpConNum_Get(struct blob_attr *pstMsg, void *pvRecord)
{
    enum { CONNUM_WANINDEX, CONNUM_NUMBER, CONNUM_MAX };
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    const blobmsg_policy policy[CONNUM_MAX] = {
        /* CONNUM_WANINDEX */ {kWanTcpUdpConNum[0].key, BLOBMSG_TYPE_INT32},
        /* CONNUM_NUMBER */   {kWanTcpUdpConNum[1].key, BLOBMSG_TYPE_INT32},
    };
    blob_attr *tb[CONNUM_MAX];
    bx::parse(policy, tb, pstMsg);
    /* A missing WAN index is reported like a refusal, yet the count is still
     * taken. */
    if (bx::present(policy, tb, CONNUM_WANINDEX))
        bx::store_field(__func__, kWanTcpUdpConNum[CONNUM_WANINDEX], tb[CONNUM_WANINDEX], pvRecord);
    else
        BX_TRACE("[wan index] is not valid.\n");
    if (bx::present(policy, tb, CONNUM_NUMBER))
        bx::store_field(__func__, kWanTcpUdpConNum[CONNUM_NUMBER], tb[CONNUM_NUMBER], pvRecord);
    return 0;
}

BX_API int STJ_CustomFactoryInfo(const void *pvRecord, struct blob_buf *pstBuf)
{
    return bx::stj_fields(pvRecord, pstBuf, kCustomFactoryInfo);
}

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

BX_API int STJ_Agent_Uplink_Info_Get(const void *pvRecord, struct blob_buf *pstBuf)
{
    return bx::stj_fields(pvRecord, pstBuf, kAgentUplinkInfo);
}

BX_API int JTS_Agent_Uplink_Info_Get(struct blob_attr *pstMsg, void *pvRecord)
{
    return bx::jts_fields<kAgentUplinkInfo>(__func__, pstMsg, pvRecord);
}

BX_API int STJ_Upgrade_report(const void *pvRecord, struct blob_buf *pstBuf)
{
    return bx::stj_fields(pvRecord, pstBuf, kUpgradeReport);
}

BX_API int JTS_Upgrade_report(struct blob_attr *pstMsg, void *pvRecord)
{
    return bx::jts_fields<kUpgradeReport>(__func__, pstMsg, pvRecord);
}

BX_API int STJ_File_Save(const void *pvRecord, struct blob_buf *pstBuf)
{
    return bx::stj_fields(pvRecord, pstBuf, kFileSync);
}

BX_API int JTS_File_Save(struct blob_attr *pstMsg, void *pvRecord)
{
    return bx::jts_fields<kFileSync>(__func__, pstMsg, pvRecord);
}

BX_API int STJ_Quickjoin(const void *pvRecord, struct blob_buf *pstBuf)
{
    return bx::stj_fields(pvRecord, pstBuf, kQuickjoin);
}

BX_API int JTS_Quickjoin(struct blob_attr *pstMsg, void *pvRecord)
{
    return bx::jts_fields<kQuickjoin>(__func__, pstMsg, pvRecord);
}

} // extern "C"
