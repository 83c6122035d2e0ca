/* Device and firmware information (types 1 to 11): what the device is, what
 * it runs, how loaded it is and which ports it has open.
 *
 * Receivers treat every key as optional: a missing one is traced and its
 * field left as the caller set it, and the conversion still succeeds. */
#include <array>
#include <cstring>
#include <utility>

#include "core/codec.h"

namespace {

using bx::Field;

/* ---- Hardware description (type 1) --------------------------------------- */

/* The members before and after the two rate lists, in the order both
 * directions use. */
constexpr Field kHwHead[] = {
    BX_TEXT(HwInfoParam, szVendor, "vendor", "vendor:%s"),
    BX_TEXT(HwInfoParam, szModel, "model", "model:%s"),
    BX_TEXT(HwInfoParam, szVersion, "version", "version:%s"),
    BX_TEXT(HwInfoParam, szDescriptionUrl, "descriptionurl", "description url:%s"),
    BX_TEXT(HwInfoParam, szCpuModel, "cpumodel", "cpu model:%s"),
    BX_U32(HwInfoParam, uiFlashSize, "flashsize", "flash size:%d"),
    BX_U32(HwInfoParam, uiRamSize, "ramsize", "ram size:%d"),
    BX_U32(HwInfoParam, uiLanPortsMax, "lanportsmax", "lan ports max:%d"),
    BX_U32(HwInfoParam, uiWanPortsMax, "wanportsmax", "wan ports max:%d"),
    BX_TEXT(HwInfoParam, szSysType, "systype", "sys type:%s"),
    BX_TEXT(HwInfoParam, szSysVersion, "sysversion", "sys version:%s"),
    BX_TEXT(HwInfoParam, szDescription, "description", "description:%s"),
    BX_U32(HwInfoParam, uiCpuMainFrequency, "cpumainfrequency", "cpu main frequency:%d"),
    BX_TEXT(HwInfoParam, szCpuSupplier, "cpusupplier", "cpu supplier:%s"),
    BX_TEXT(HwInfoParam, szMemoryProvider, "memoryprovider", "memory provider:%s"),
    BX_U32(HwInfoParam, uiCpuCores, "cpucores", "cpu cores:%d"),
};

constexpr Field kHwTail[] = {
    BX_U32(HwInfoParam, ui24gMaxBw, "2.4gmaxbw", "2GMaxBW:%d"),
    BX_U32(HwInfoParam, ui5gMaxBw, "5gmaxbw", "5GMaxBW:%d"),
    BX_U32(HwInfoParam, ui24gMode, "2.4gmode", "2GMode:%d"),
    BX_U32(HwInfoParam, ui5gMode, "5gmode", "5GMode:%d"),
    BX_U32(HwInfoParam, ui24gMaxRate, "2.4gmaxrate", "2P4GMaxNegotiateRate:%d"),
    BX_U32(HwInfoParam, ui5gMaxRate, "5gmaxrate", "5GMaxNegotiateRate:%d"),
};

constexpr size_t kHeadCount = sizeof kHwHead / sizeof kHwHead[0];
constexpr size_t kTailCount = sizeof kHwTail / sizeof kHwTail[0];

/* Policy slots of the received message: the head, three list-area slots,
 * the tail. */
enum {
    HW_REBOOTCOUNT = kHeadCount, /* listed, never read */
    HW_LANMAXRATE,
    HW_WANMAXRATE,
    HW_TAIL,
    HW_MAX = HW_TAIL + kTailCount
};

constexpr blobmsg_policy hw_policy_entry(size_t i)
{
    if (i < kHeadCount)
        return {kHwHead[i].key, bx::wire_type(kHwHead[i].wire)};
    switch (i) {
    case HW_REBOOTCOUNT: return {"rebootcount", BLOBMSG_TYPE_INT32};
    case HW_LANMAXRATE:  return {"lanmaxrate", BLOBMSG_TYPE_ARRAY};
    case HW_WANMAXRATE:  return {"wanmaxrate", BLOBMSG_TYPE_ARRAY};
    default:             return {kHwTail[i - HW_TAIL].key, bx::wire_type(kHwTail[i - HW_TAIL].wire)};
    }
}

template <size_t... I>
constexpr auto make_hw_policy(std::index_sequence<I...>)
{
    return std::array<blobmsg_policy, sizeof...(I)>{hw_policy_entry(I)...};
}

/* Built from the field tables so that keys are written once. */
constexpr std::array<blobmsg_policy, HW_MAX> kHwInfoPolicy = make_hw_policy(std::make_index_sequence<HW_MAX>{});

/* Receivers let the rate lists run past their arrays: the fourth LAN rate is
 * stored over uiWanPortsMax and the second WAN rate over the first four
 * bytes of szSysType. Daemons rely on that, so the walks keep these bounds;
 * they never reach further. */
constexpr unsigned kLanRateSlots = 4;
constexpr unsigned kWanRateSlots = 2;
static_assert(offsetof(HwInfoParam, uiWanPortsMax) ==
              offsetof(HwInfoParam, auiLanMaxRate) + 3 * sizeof(uint32_t));
static_assert(offsetof(HwInfoParam, szSysType) == offsetof(HwInfoParam, auiWanMaxRate) + sizeof(uint32_t));

/* Stores the list's elements, read as numbers whatever their type, in
 * consecutive 32-bit slots from `first` (a byte offset in the record) and
 * calls trace(element number from 1, value) after each; stops after
 * `slots` elements. */
template <typename Trace>
void store_rates(blob_attr *list, HwInfoParam *rec, size_t first, unsigned slots, Trace trace)
{
    auto *base = reinterpret_cast<unsigned char *>(rec) + first;
    unsigned stored = 0;
    bx::for_each_elem(list, [&](blob_attr *elem) {
        uint32_t rate = bx::get_u32(elem);
        std::memcpy(base + stored * sizeof rate, &rate, sizeof rate);
        ++stored;
        trace(stored, rate);
        return stored < slots;
    });
}

void emit_rates(blob_buf *buf, const char *key, const uint32_t *rates, size_t count)
{
    void *list = blobmsg_open_array(buf, key);
    for (size_t i = 0; i < count; ++i)
        blobmsg_add_u32(buf, nullptr, rates[i]);
    blob_nest_end(buf, list);
}

/* ---- Firmware versions (type 2) ------------------------------------------- */

/* The receiver reads the compile week but not the real version; the sender
 * sends the real version but not the week. */
constexpr Field kFwSent[] = {
    BX_TEXT(FwInfoParam, szFwVersion, "fwversion", nullptr),
    BX_TEXT(FwInfoParam, szBootVersion, "bootversion", nullptr),
    BX_TEXT(FwInfoParam, szNewFwVersion, "newfwversion", nullptr),
    BX_U32(FwInfoParam, uiYear, "compiletime_year", nullptr),
    BX_U32(FwInfoParam, uiMon, "compiletime_mon", nullptr),
    BX_U32(FwInfoParam, uiDay, "compiletime_day", nullptr),
    BX_U32(FwInfoParam, uiHour, "compiletime_hour", nullptr),
    BX_U32(FwInfoParam, uiMin, "compiletime_min", nullptr),
    BX_U32(FwInfoParam, uiSec, "compiletime_sec", nullptr),
    BX_TEXT(FwInfoParam, szRealVersion, "realversion", nullptr),
};

constexpr Field kFwReceived[] = {
    BX_TEXT(FwInfoParam, szFwVersion, "fwversion", "fw version:%s"),
    BX_TEXT(FwInfoParam, szBootVersion, "bootversion", "boot version:%s"),
    BX_TEXT(FwInfoParam, szNewFwVersion, "newfwversion", "new fw version:%s"),
    BX_U32(FwInfoParam, uiYear, "compiletime_year", "Year:%d"),
    BX_U32(FwInfoParam, uiMon, "compiletime_mon", "Month:%d"),
    BX_U32(FwInfoParam, uiDay, "compiletime_day", "Date:%d"),
    BX_U32(FwInfoParam, uiHour, "compiletime_hour", "Hour:%d"),
    BX_U32(FwInfoParam, uiMin, "compiletime_min", "Minute:%d"),
    BX_U32(FwInfoParam, uiSec, "compiletime_sec", "Second:%d"),
    BX_U32(FwInfoParam, uiWeek, "compiletime_week", "Week:%d"),
};

/* ---- The regular messages (types 3, 5 to 9) -------------------------------- */

constexpr Field kManuInfo[] = {
    BX_TEXT(ManuInfoParam, szMac, "mac", "Mac:%s"),
    BX_TEXT(ManuInfoParam, szSn, "sn", "SN:%s"),
    BX_TEXT(ManuInfoParam, szProductName, "productname", "product name:%s"),
};

/* In policy order: ip, domainname, curip. */
constexpr Field kManageInfo[] = {
    BX_TEXT(ManageInfoParam, szIp, "ip", "IP:%s"),
    BX_TEXT(ManageInfoParam, szDomainName, "domainname", "Domain Name:%s"),
    BX_TEXT(ManageInfoParam, szCurIp, "curip", "Cur IP:%s"),
};

constexpr Field kFuncSupport[] = {
    BX_WORD(FuncSupportParam, eSupportWifi, EnumSwitch, "wifi", "SupportWifi:%d"),
    BX_WORD(FuncSupportParam, eSupportDualBand, EnumSwitch, "dualband", "SupportDualBand:%d"),
    BX_WORD(FuncSupportParam, eSupportUsb, EnumSwitch, "usb", "SupportUsb:%d"),
    BX_WORD(FuncSupportParam, eSupportVpn, EnumSwitch, "vpn", "SupportVpn:%d"),
    BX_WORD(FuncSupportParam, eSupportIPv6, EnumSwitch, "ipv6", "SupportIPv6:%d"),
    BX_WORD(FuncSupportParam, eSupportPrivMesh, EnumSwitch, "privmesh", "SupportPrivMesh:%d"),
    BX_WORD(FuncSupportParam, eSupportPortBlind, EnumSwitch, "portblind", "SupportPortBlind:%d"),
    BX_WORD(FuncSupportParam, eSupportEasyMesh, EnumSwitch, "easymesh", "SupportEasyMesh:%d"),
};

constexpr Field kCpuRate[] = {
    BX_U32(CpuRateParam, uiCpuRate, "cpurate", "CpuRate:%d"),
    BX_U32(CpuRateParam, uiCpuTemperature, "cputemprature", "CpuTemperature:%d"),
};

constexpr Field kMemRate[] = {
    BX_U32(MemRateParam, uiRamRate, "ramrate", "RamRate:%d"),
};

constexpr Field kFlashRate[] = {
    BX_U32(FlashRateParam, uiRwFlashSize, "rwflashsize", "rwflashsize:%d"),
    BX_U32(FlashRateParam, uiFlashUsageRate, "flashusagerate", "flashusagerate:%d"),
};

/* The bus order differs from the record's: the clock first, the login
 * history last. */
constexpr Field kRunTimeInfo[] = {
    BX_U32(RunTimeInfoParam, uiOnlineTime, "onlinetime", "OnlineTime:%d"),
    BX_U32(RunTimeInfoParam, uiYear, "year", "Year:%d"),
    BX_U32(RunTimeInfoParam, uiMonth, "month", "Month:%d"),
    BX_U32(RunTimeInfoParam, uiDate, "date", "Date:%d"),
    BX_U32(RunTimeInfoParam, uiHour, "hour", "Hour:%d"),
    BX_U32(RunTimeInfoParam, uiMinute, "minute", "Minute:%d"),
    BX_U32(RunTimeInfoParam, uiSecond, "second", "Second:%d"),
    BX_U32(RunTimeInfoParam, uiWeek, "week", "Week:%d"),
    BX_WORD(RunTimeInfoParam, eGetType, EnumUpgradeMode, "gettype", "GetType:%d"),
    BX_U32(RunTimeInfoParam, uiLoginTimes, "logintimes", "LoginTimes:%d"),
    BX_TEXT(RunTimeInfoParam, szLoginLastTime, "loginlasttime", "LoginLastTime:%s"),
    BX_TEXT(RunTimeInfoParam, szApLastOnlineTime, "aplastonlinetime", "LastOnlineTime:%s"),
};

/* ---- Open ports (types 10 and 11) ------------------------------------------ */

int stj_open_ports(const void *record, blob_buf *buf)
{
    if (record == nullptr || buf == nullptr)
        return -1;
    const auto *rec = static_cast<const OpenPortParam *>(record);
    void *list = blobmsg_open_array(buf, "ports");
    /* A zero entry ends the list; a full array has none. */
    for (size_t i = 0; i < OPEN_PORT_MAX && rec->auiPorts[i] != 0; ++i)
        blobmsg_add_u32(buf, nullptr, rec->auiPorts[i]);
    blob_nest_end(buf, list);
    return 0;
}

int jts_open_ports(const char *func, blob_attr *msg, void *record)
{
    enum { PORTS, PORTS_MAX };
    static const blobmsg_policy policy[PORTS_MAX] = {
        /* PORTS */ {"ports", BLOBMSG_TYPE_ARRAY},
    };
    if (msg == nullptr || record == nullptr)
        return -1;
    auto *rec = static_cast<OpenPortParam *>(record);
    blob_attr *tb[PORTS_MAX];
    bx::parse(policy, tb, msg);
    if (!bx::present(policy, tb, PORTS))
        return 0;
    /* Senders keep to the record's 32 entries but the message does not say
     * so: the walk stops at the array's end whatever it holds. */
    size_t stored = 0;
    bx::for_each_elem(tb[PORTS], [&](blob_attr *elem) {
        rec->auiPorts[stored] = bx::get_u32(elem);
        BX_TRACE_AS(func, "Ports: %u\n", rec->auiPorts[stored]);
        return ++stored < OPEN_PORT_MAX;
    });
    return 0;
}

} // namespace

extern "C" {

/* Hand-written: the port rate lists sit between the two groups of fields. */
BX_API int STJ_HwInfo(const void *pvRecord, struct blob_buf *pstBuf)
{
    if (pvRecord == nullptr || pstBuf == nullptr)
        return -1;
    const auto *rec = static_cast<const HwInfoParam *>(pvRecord);
    bx::stj_fields(rec, pstBuf, kHwHead);
    emit_rates(pstBuf, "lanmaxrate", rec->auiLanMaxRate, 3);
    emit_rates(pstBuf, "wanmaxrate", rec->auiWanMaxRate, 1);
    return bx::stj_fields(rec, pstBuf, kHwTail);
}

/* Hand-written: the port rate lists sit between the two groups of fields and overrun their arrays. */
BX_API int JTS_HwInfo(struct blob_attr *pstMsg, void *pvRecord)
{
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *rec = static_cast<HwInfoParam *>(pvRecord);
    const char *func = __func__;
    blob_attr *tb[HW_MAX];
    blobmsg_parse(kHwInfoPolicy.data(), HW_MAX, tb, blob_data(pstMsg), blob_len(pstMsg));
    bx::read_fields(__func__, kHwHead, kHeadCount, tb, rec, bx::kNoMask);
    if (JTS_CheckBlobAttr("lanmaxrate", tb[HW_LANMAXRATE])) {
        /* Four slots from auiLanMaxRate: the fourth is uiWanPortsMax. */
        store_rates(tb[HW_LANMAXRATE], rec, offsetof(HwInfoParam, auiLanMaxRate), kLanRateSlots,
                    [func](unsigned n, uint32_t rate) { BX_TRACE_AS(func, "lan port[%d]: %dMbps\n", n, rate); });
    }
    if (JTS_CheckBlobAttr("wanmaxrate", tb[HW_WANMAXRATE])) {
        /* Two slots from auiWanMaxRate: the second is the head of szSysType. */
        store_rates(tb[HW_WANMAXRATE], rec, offsetof(HwInfoParam, auiWanMaxRate), kWanRateSlots,
                    [func](unsigned n, uint32_t rate) { BX_TRACE_AS(func, "wan port[%d]: %dMbps\n", n, rate); });
    }
    bx::read_fields(__func__, kHwTail, kTailCount, tb + HW_TAIL, rec, bx::kNoMask);
    return 0;
}

BX_CONVERTERS(STJ_FwInfo, JTS_FwInfo, kFwSent, kFwReceived)

BX_FIELD_CONVERTERS(STJ_ManuInfo, JTS_ManuInfo, kManuInfo)

BX_SENT_ROW(STJ_ManageInfo, kManageInfo, ::bx::kNoMask)

/* Hand-written: "curip" is taken on the presence of "ip". */
BX_API int JTS_ManageInfo(struct blob_attr *pstMsg, void *pvRecord)
{
    enum { MANAGE_IP, MANAGE_DOMAINNAME, MANAGE_CURIP, MANAGE_MAX };
    static const blobmsg_policy policy[MANAGE_MAX] = {
        /* MANAGE_IP */         {"ip", BLOBMSG_TYPE_STRING},
        /* MANAGE_DOMAINNAME */ {"domainname", BLOBMSG_TYPE_STRING},
        /* MANAGE_CURIP */      {"curip", BLOBMSG_TYPE_STRING},
    };
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    blob_attr *tb[MANAGE_MAX];
    bx::parse(policy, tb, pstMsg);
    if (bx::present(policy, tb, MANAGE_IP))
        bx::store_field(__func__, kManageInfo[MANAGE_IP], tb[MANAGE_IP], pvRecord);
    if (bx::present(policy, tb, MANAGE_DOMAINNAME))
        bx::store_field(__func__, kManageInfo[MANAGE_DOMAINNAME], tb[MANAGE_DOMAINNAME], pvRecord);
    /* Quirk: "curip" is taken whenever "ip" is there, present or not (a
     * missing one stores the empty text), and never without "ip". */
    if (JTS_CheckBlobAttr(policy[MANAGE_CURIP].name, tb[MANAGE_IP]))
        bx::store_field(__func__, kManageInfo[MANAGE_CURIP], tb[MANAGE_CURIP], pvRecord);
    return 0;
}

BX_FIELD_CONVERTERS(STJ_FuncSupport, JTS_FuncSupport, kFuncSupport)

BX_FIELD_CONVERTERS(STJ_CpuRate, JTS_CpuRate, kCpuRate)

BX_FIELD_CONVERTERS(STJ_MemRate, JTS_MemRate, kMemRate)

BX_FIELD_CONVERTERS(STJ_FlashRate, JTS_FlashRate, kFlashRate)

BX_FIELD_CONVERTERS(STJ_RunTimeInfo, JTS_RunTimeInfo, kRunTimeInfo)

/* Hand-written: the open ports are a list of numbers bounded by the record's count. */
BX_API int STJ_TcpOpenPort(const void *pvRecord, struct blob_buf *pstBuf)
{
    return stj_open_ports(pvRecord, pstBuf);
}

/* Hand-written: the open ports are a list of numbers bounded by the record's count. */
BX_API int JTS_TcpOpenPort(struct blob_attr *pstMsg, void *pvRecord)
{
    return jts_open_ports(__func__, pstMsg, pvRecord);
}

/* Hand-written: the open ports are a list of numbers bounded by the record's count. */
BX_API int STJ_UdpOpenPort(const void *pvRecord, struct blob_buf *pstBuf)
{
    return stj_open_ports(pvRecord, pstBuf);
}

/* Hand-written: the open ports are a list of numbers bounded by the record's count. */
BX_API int JTS_UdpOpenPort(struct blob_attr *pstMsg, void *pvRecord)
{
    return jts_open_ports(__func__, pstMsg, pvRecord);
}

} // extern "C"
