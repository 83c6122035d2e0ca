/* Device and firmware information (types 1 to 11): what the device is, what
 * it runs, how loaded it is and which ports it has open.
 *
 * Receivers treat every key as optional: a missing one is traced and its
 * field left as the caller set it, and the conversion still succeeds. */
#include <cstring>

#include "core/codec.h"
#include "messages/walk.h"

namespace {

using bx::Field;

/* ---- Hardware description (type 1) --------------------------------------- */

/* Receivers let the rate lists run one slot past their arrays: the fourth
 * LAN rate is stored over uiWanPortsMax and the second WAN rate over the
 * first four bytes of szSysType. Daemons rely on that, so the walks keep
 * these bounds; they never reach further, and never leave the record. */
static_assert(offsetof(HwInfoParam, uiWanPortsMax) ==
              offsetof(HwInfoParam, auiLanMaxRate) + 3 * sizeof(uint32_t));
static_assert(offsetof(HwInfoParam, szSysType) == offsetof(HwInfoParam, auiWanMaxRate) + sizeof(uint32_t));

/* Quirk (both lists): rates of any type, stored in consecutive 32-bit slots
 * from the list's member, one slot past the array, each traced with its
 * number from 1 and its port kind, the first three letters of the key. */
bx::Read read_rates(const bx::Reading &r, const Field &f, blob_attr *attr)
{
    if (!JTS_CheckBlobAttr(f.key(), attr))
        return bx::kGoOn;
    auto *base = static_cast<unsigned char *>(r.record) + f.offset;
    const unsigned slots = r.list(f)->capacity + 1u;
    unsigned stored = 0;
    bx::walk::each(attr, [&](blob_attr *elem) {
        uint32_t value = bx::get_u32(elem);
        std::memcpy(base + stored * sizeof value, &value, sizeof value);
        ++stored;
        BX_TRACE_AS(r.func, "%.3s port[%d]: %dMbps\n", f.key(), stored, value);
        return stored < slots;
    });
    return bx::kGoOn;
}

constexpr bx::Quirk kRates{read_rates, nullptr, "elements of any type read as numbers, one more than the array holds (the last into the next member)"};

/* Sent as the whole arrays, unnamed numbers. */
constexpr bx::FieldDef kRateSource[] = {BX_U32_ENTRY(nullptr)};
BX_PACKED(kRate);
constexpr bx::ListOf kLanRateList = BX_VALUES(HwInfoParam, auiLanMaxRate, kRate);
constexpr bx::ListOf kWanRateList = BX_VALUES(HwInfoParam, auiWanMaxRate, kRate);

/* Both directions: the head, the rate lists, the tail; receivers also
 * parse "rebootcount", a member the record does not have. */
constexpr bx::FieldDef kHwInfoSource[] = {
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
    BX_KEY("rebootcount", bx::Wire::U32),
    BX_LIST(HwInfoParam, auiLanMaxRate, "lanmaxrate", kLanRateList, nullptr, .quirk = &kRates),
    BX_LIST(HwInfoParam, auiWanMaxRate, "wanmaxrate", kWanRateList, nullptr, .quirk = &kRates),
    BX_U32(HwInfoParam, ui24gMaxBw, "2.4gmaxbw", "2GMaxBW:%d"),
    BX_U32(HwInfoParam, ui5gMaxBw, "5gmaxbw", "5GMaxBW:%d"),
    BX_U32(HwInfoParam, ui24gMode, "2.4gmode", "2GMode:%d"),
    BX_U32(HwInfoParam, ui5gMode, "5gmode", "5GMode:%d"),
    BX_U32(HwInfoParam, ui24gMaxRate, "2.4gmaxrate", "2P4GMaxNegotiateRate:%d"),
    BX_U32(HwInfoParam, ui5gMaxRate, "5gmaxrate", "5GMaxNegotiateRate:%d"),
};
BX_PACKED(kHwInfo);

/* ---- Firmware versions (type 2) ------------------------------------------- */

/* The receiver reads the compile week but not the real version; the sender
 * sends the real version but not the week. */
constexpr bx::FieldDef kFwSource[] = {
    BX_TEXT(FwInfoParam, szFwVersion, "fwversion", "fw version:%s"),
    BX_TEXT(FwInfoParam, szBootVersion, "bootversion", "boot version:%s"),
    BX_TEXT(FwInfoParam, szNewFwVersion, "newfwversion", "new fw version:%s"),
    BX_U32(FwInfoParam, uiYear, "compiletime_year", "Year:%d"),
    BX_U32(FwInfoParam, uiMon, "compiletime_mon", "Month:%d"),
    BX_U32(FwInfoParam, uiDay, "compiletime_day", "Date:%d"),
    BX_U32(FwInfoParam, uiHour, "compiletime_hour", "Hour:%d"),
    BX_U32(FwInfoParam, uiMin, "compiletime_min", "Minute:%d"),
    BX_U32(FwInfoParam, uiSec, "compiletime_sec", "Second:%d"),
    BX_U32(FwInfoParam, uiWeek, "compiletime_week", "Week:%d", .way = bx::Way::Received),
    BX_TEXT(FwInfoParam, szRealVersion, "realversion", nullptr, .way = bx::Way::Sent),
};
BX_PACKED(kFw);

/* ---- The regular messages (types 3, 5 to 9) -------------------------------- */

constexpr bx::FieldDef kManuInfoSource[] = {
    BX_TEXT(ManuInfoParam, szMac, "mac", "Mac:%s"),
    BX_TEXT(ManuInfoParam, szSn, "sn", "SN:%s"),
    BX_TEXT(ManuInfoParam, szProductName, "productname", "product name:%s"),
};
BX_PACKED(kManuInfo);

/* Quirk: "curip" is taken whenever "ip" is there, present or not (a
 * missing one stores the empty text), and never without "ip". */
bx::Read read_cur_ip(const bx::Reading &r, const Field &f, blob_attr *attr)
{
    constexpr size_t kIpSlot = 0;
    if (JTS_CheckBlobAttr(f.key(), r.tb[kIpSlot]))
        bx::store_field(r.func, f, attr, r.record);
    return bx::kGoOn;
}

constexpr bx::Quirk kCurIpOnIp{read_cur_ip, nullptr, "read only when \"ip\" is present, whatever its own presence (absent: stored as the empty text)"};

/* In policy order: ip, domainname, curip. */
constexpr bx::FieldDef kManageInfoSource[] = {
    BX_TEXT(ManageInfoParam, szIp, "ip", "IP:%s"),
    BX_TEXT(ManageInfoParam, szDomainName, "domainname", "Domain Name:%s"),
    BX_TEXT(ManageInfoParam, szCurIp, "curip", "Cur IP:%s", .quirk = &kCurIpOnIp),
};
BX_PACKED(kManageInfo);

constexpr bx::FieldDef kFuncSupportSource[] = {
    BX_WORD(FuncSupportParam, eSupportWifi, EnumSwitch, "wifi", "SupportWifi:%d"),
    BX_WORD(FuncSupportParam, eSupportDualBand, EnumSwitch, "dualband", "SupportDualBand:%d"),
    BX_WORD(FuncSupportParam, eSupportUsb, EnumSwitch, "usb", "SupportUsb:%d"),
    BX_WORD(FuncSupportParam, eSupportVpn, EnumSwitch, "vpn", "SupportVpn:%d"),
    BX_WORD(FuncSupportParam, eSupportIPv6, EnumSwitch, "ipv6", "SupportIPv6:%d"),
    BX_WORD(FuncSupportParam, eSupportPrivMesh, EnumSwitch, "privmesh", "SupportPrivMesh:%d"),
    BX_WORD(FuncSupportParam, eSupportPortBlind, EnumSwitch, "portblind", "SupportPortBlind:%d"),
    BX_WORD(FuncSupportParam, eSupportEasyMesh, EnumSwitch, "easymesh", "SupportEasyMesh:%d"),
};
BX_PACKED(kFuncSupport);

constexpr bx::FieldDef kCpuRateSource[] = {
    BX_U32(CpuRateParam, uiCpuRate, "cpurate", "CpuRate:%d"),
    BX_U32(CpuRateParam, uiCpuTemperature, "cputemprature", "CpuTemperature:%d"),
};
BX_PACKED(kCpuRate);

constexpr bx::FieldDef kMemRateSource[] = {
    BX_U32(MemRateParam, uiRamRate, "ramrate", "RamRate:%d"),
};
BX_PACKED(kMemRate);

constexpr bx::FieldDef kFlashRateSource[] = {
    BX_U32(FlashRateParam, uiRwFlashSize, "rwflashsize", "rwflashsize:%d"),
    BX_U32(FlashRateParam, uiFlashUsageRate, "flashusagerate", "flashusagerate:%d"),
};
BX_PACKED(kFlashRate);

/* The bus order differs from the record's: the clock first, the login
 * history last. */
constexpr bx::FieldDef kRunTimeInfoSource[] = {
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
BX_PACKED(kRunTimeInfo);

/* ---- Open ports (types 10 and 11) ------------------------------------------ */

/* A zero entry ends the list; a full array has none. Ports of any type are
 * read as numbers, up to the array's 32 entries (the message sets no
 * bound of its own). */
constexpr bx::FieldDef kOpenPortSource[] = {BX_U32_ENTRY("Ports: %u")};
BX_PACKED(kOpenPort);
constexpr bx::ListOf kOpenPortList = BX_VALUES(OpenPortParam, auiPorts, kOpenPort, .to_first_empty = true,
    .any_type = true);
constexpr bx::FieldDef kOpenPortsSource[] = {BX_LIST(OpenPortParam, auiPorts, "ports", kOpenPortList, nullptr)};
BX_PACKED(kOpenPorts);

} // namespace

extern "C" {

BX_CONVERTERS(STJ_HwInfo, JTS_HwInfo, kHwInfo)

BX_CONVERTERS(STJ_FwInfo, JTS_FwInfo, kFw)

BX_CONVERTERS(STJ_ManuInfo, JTS_ManuInfo, kManuInfo)

BX_CONVERTERS(STJ_ManageInfo, JTS_ManageInfo, kManageInfo)

BX_CONVERTERS(STJ_FuncSupport, JTS_FuncSupport, kFuncSupport)

BX_CONVERTERS(STJ_CpuRate, JTS_CpuRate, kCpuRate)

BX_CONVERTERS(STJ_MemRate, JTS_MemRate, kMemRate)

BX_CONVERTERS(STJ_FlashRate, JTS_FlashRate, kFlashRate)

BX_CONVERTERS(STJ_RunTimeInfo, JTS_RunTimeInfo, kRunTimeInfo)

BX_CONVERTERS(STJ_TcpOpenPort, JTS_TcpOpenPort, kOpenPorts)

BX_CONVERTERS(STJ_UdpOpenPort, JTS_UdpOpenPort, kOpenPorts)

} // extern "C"
