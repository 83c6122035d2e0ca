/* Client stations: the full station list (88), one station looked up by MAC
 * address (89), a wrong-Wi-Fi-password report (90), per-station traffic
 * (91), station counts (92), a station's display name (93) and its brand and
 * model (94).
 *
 * Every key is optional on the way in and no value is refused. */
#include <array>
#include <cstddef>
#include <iterator>

#include "blobxlate.h"
#include "core/codec.h"

namespace {

using bx::Field;

/* ---- One station ----------------------------------------------------------- */

/* The station's keys in the order they are parsed and traced. The labels
 * shared by several keys ("ballowstorage", "rxbytes") are what the daemons'
 * logs have always shown. */
enum {
    STA_MAC, STA_HOSTNAME, STA_NAME, STA_IP, STA_UPMAC, STA_LINKTYPE, STA_PORT, STA_SSID,
    STA_ISONLINE, STA_ONLINETIME, STA_ONOFFTIMESTAMP, STA_VMAC, STA_IPV6, STA_TYPE, STA_BRAND,
    STA_MODEL, STA_RXRATE, STA_TXRATE, STA_RSSI, STA_WEAKRSSI, STA_RXNEGRATE, STA_TXNEGRATE,
    STA_DUPLEX, STA_ALLOWSTORAGE, STA_ALLOWINTERNET, STA_ALLOWWIFI, STA_MACSTATUS, STA_FROMWIFI6,
    STA_RXBYTES, STA_TXBYTES, STA_RXPACKETS, STA_TXPACKETS, STA_TXRETRYPACKETS,
    STA_RXRETRYPACKETS, STA_TXFAILEDPACKETS, STA_RXFAILEDPACKETS, STA_TXDISCARD,
    STA_MAX
};
constexpr bx::FieldDef kStaEntrySource[STA_MAX] = {
    BX_TEXT(StaEntry, szMac, "mac", "mac:%s"),
    BX_TEXT(StaEntry, szHostName, "hostname", "hostname:%s"),
    BX_TEXT(StaEntry, szName, "name", "name:%s"),
    BX_TEXT(StaEntry, szIp, "ip", "ip:%s"),
    BX_TEXT(StaEntry, szUpMac, "upmac", "upmac:%s"),
    BX_WORD(StaEntry, eLinkType, EnumAccessMedium, "linktype", "linktype:%d"),
    BX_U32(StaEntry, uiPort, "port", "port:%u"),
    BX_TEXT(StaEntry, szSsid, "ssid", "ssid:%s"),
    BX_WORD(StaEntry, bIsOnline, EnumBoolean, "isonline", "isonline:%d"),
    BX_S32(StaEntry, iOnlineTime, "onlinetime", "onlinetime:%d"),
    BX_U32(StaEntry, uiOnOffTimestamp, "onofftimestamp", "onofftimestamp:%u"),
    BX_TEXT(StaEntry, szVmac, "vmac", "vmac:%s"),
    BX_TEXT(StaEntry, szIpv6, "ipv6", "ipv6:%s"),
    BX_WORD(StaEntry, eType, EnumDeviceOs, "type", "type:%d"),
    BX_TEXT(StaEntry, szBrand, "brand", "brand:%s"),
    BX_TEXT(StaEntry, szModel, "model", "model:%s"),
    BX_U32(StaEntry, uiRxRate, "rxrate", "rxrate:%u"),
    BX_U32(StaEntry, uiTxRate, "txrate", "txrate:%u"),
    BX_S32(StaEntry, iRssi, "rssi", "rssi:%d"),
    BX_S32(StaEntry, iWeakRssi, "weakrssi", "iWeakRssi:%d"),
    BX_U32(StaEntry, uiRxNegRate, "rxnegrate", "rxnegrate:%u"),
    BX_U32(StaEntry, uiTxNegRate, "txnegrate", "txnegrate:%u"),
    BX_WORD(StaEntry, eDuplex, EnumDuplex, "duplex", "duplex:%u"),
    BX_WORD(StaEntry, bAllowStorage, EnumBoolean, "allowstorage", "ballowstorage:%u"),
    BX_WORD(StaEntry, bAllowInternet, EnumBoolean, "allowinternet", "ballowstorage:%u"),  /* shared label */
    BX_WORD(StaEntry, bAllowWifi, EnumBoolean, "allowwifi", "ballowstorage:%u"),          /* shared label */
    BX_U32(StaEntry, eMacStatus, "macstatus", "emacstatus:%u"),
    BX_WORD(StaEntry, bFromWifi6, EnumBoolean, "fromwifi6", "fromwifi6:%u"),
    BX_U64(StaEntry, uiRxBytes, "rxbytes", "rxbytes:%llu"),
    BX_U64(StaEntry, uiTxBytes, "txbytes", "rxbytes:%llu"),  /* shared label */
    BX_U64(StaEntry, uiRxPackets, "rxpackets", "rxpackets:%llu"),
    BX_U64(StaEntry, uiTxPackets, "txpackets", "txpackets:%llu"),
    BX_U64(StaEntry, uiTxRetryPackets, "txretrypackets", "uiTxRetryPackets:%llu"),
    BX_U64(StaEntry, uiRxRetryPackets, "rxretrypackets", "uiRxRetryPackets:%llu"),
    BX_U64(StaEntry, uiTxFailedPackets, "txfailedpackets", "uiTxFailedPackets:%llu"),
    BX_U64(StaEntry, uiRxFailedPackets, "rxfailedpackets", "uiRxFailedPackets:%llu"),
    BX_U64(StaEntry, uiTxDiscard, "txdiscard", "uiTxDiscard:%llu"),
};
BX_PACKED(kStaEntry);

/* The station's keys as they go out: the policy's order, except that
 * "fromwifi6" goes out before "macstatus". */
constexpr std::array<bx::FieldDef, STA_MAX> sta_keys_out()
{
    static_assert(STA_FROMWIFI6 == STA_MACSTATUS + 1);
    std::array<bx::FieldDef, STA_MAX> out{};
    for (size_t slot = 0; slot < STA_MAX; ++slot)
        out[slot] = kStaEntrySource[slot];
    out[STA_MACSTATUS] = kStaEntrySource[STA_FROMWIFI6];
    out[STA_FROMWIFI6] = kStaEntrySource[STA_MACSTATUS];
    return out;
}
constexpr std::array<bx::FieldDef, STA_MAX> kStaEntryOutSource = sta_keys_out();
BX_PACKED(kStaEntryOut);

/* The list's two keys. The entries live in the caller's array behind
 * pstListInfo (no capacity of the record's own), as many as uiStaNumofEsps
 * says: sent up to it, received up to it as a capacity. */
#define STA_ENTRIES(Entry, ...)                                                                            \
    bx::entries_of(Entry, bx::ListOf{.entry_rows = nullptr, .fields = STA_MAX, .tables = true, .stride = sizeof(StaEntry), .capacity = 0, \
                                     .count_at = offsetof(StaListInfo, uiStaNumofEsps), __VA_ARGS__})
constexpr bx::ListOf kStaEntriesOut = STA_ENTRIES(kStaEntryOut);
constexpr bx::ListOf kStaEntriesIn = STA_ENTRIES(kStaEntry, .bound = bx::Bound::Count, .any_type = true);
#undef STA_ENTRIES
constexpr bx::FieldDef kStaListSentSource[] = {
    BX_U32(StaListInfo, uiStaNumofEsps, "count", nullptr),
    BX_LIST(StaListInfo, pstListInfo, "stalist", kStaEntriesOut, nullptr),
};
BX_PACKED(kStaListSent);
/* The sender's count is only traced. */
constexpr bx::FieldDef kStaListReceivedSource[] = {
    BX_U32(StaListInfo, uiStaNumofEsps, "count", "uiStaNumofEsps: %d", .use = bx::Use::Tested),
    BX_LIST(StaListInfo, pstListInfo, "stalist", kStaEntriesIn, nullptr),
};
BX_PACKED(kStaListReceived);

/* Stores every present key of one element of the station list, in policy
 * order. Each stored "mac" is preceded by the addresses of the array's
 * first two entries (only printed, never read). */
void fill_entry(const char *func, blob_attr *const (&tb)[STA_MAX], StaEntry *entry, const StaEntry *list)
{
    if (tb[STA_MAC] != nullptr) {
        BX_TRACE_AS(func, "-t- -pstOut->pstListInfo[0] = %p\n", static_cast<const void *>(&list[0]));
        BX_TRACE_AS(func, "-t- -pstOut->pstListInfo[1] = %p\n", static_cast<const void *>(&list[1]));
    }
    bx::read_fields(func, kStaEntry, STA_MAX, kStaEntry.links(), tb, entry, bx::kNoMask);
}

/* ---- The small messages -------------------------------------------------------- */

constexpr bx::FieldDef kStaMacSource[] = {
    BX_TEXT(StaMac, szMac, "mac", "mac:%s"),
};
BX_PACKED(kStaMac);

constexpr bx::FieldDef kStaTrafficSource[] = {
    BX_TEXT(StaTraffic, szMac, "mac", "mac:%s"),
    BX_U32(StaTraffic, uiTxBytes, "txbytes", "txbytes:%lu"),
    BX_U32(StaTraffic, uiRxBytes, "rxbytes", "rxbytes:%u"),
    BX_U32(StaTraffic, uiTxPackets, "txpackets", "txpackets:%u"),
    BX_U32(StaTraffic, uiRxPackets, "rxpackets", "rxpackets:%u"),
    BX_U32(StaTraffic, uiTxErrors, "txerrors", "txerrors:%u"),
    BX_U32(StaTraffic, uiRxErrors, "rxerrors", "rxerrors:%u"),
};
BX_PACKED(kStaTraffic);

constexpr bx::FieldDef kStaNumSource[] = {
    BX_U32(StaNum, uiCountAll, "countall", "countall:%d"),
    BX_U32(StaNum, uiCountOnline, "countonline", "countonline:%u"),
    BX_U32(StaNum, uiCountWired, "countwired", "countwired:%u"),
    BX_U32(StaNum, uiCount2p4g, "count2p4g", "count2p4g:%u"),
    BX_U32(StaNum, uiCount5g, "count5g", "count5g:%u"),
};
BX_PACKED(kStaNum);

constexpr bx::FieldDef kStaNameSource[] = {
    BX_TEXT(StaName, szMac, "mac", "mac:%s"),
    BX_TEXT(StaName, szName, "name", "name:%s"),
};
BX_PACKED(kStaName);

/* The texts go out only when uiFlag marks them valid; storing a text marks
 * it valid, the other bits stay as the caller set them. */
constexpr bx::FieldDef kStaModelSource[] = {
    BX_TEXT(StaModel, szMac, "mac", "mac:%s"),
    BX_TEXT(StaModel, szBrand, "brand", "brand:%s", .bit = STA_MODEL_BRAND_VALID),
    BX_TEXT(StaModel, szModel, "model", "model:%s", .bit = STA_MODEL_MODEL_VALID),
};
BX_PACKED(kStaModel);

} // namespace

extern "C" {

/* ---- The station list (88) ---------------------------------------------------- */

BX_DESCRIBED(STJ_StaList, kStaListSent, nullptr, 0, ::bx::kNoMask,
             "the entries are read through pstListInfo, uiStaNumofEsps of them; none without the array")

/* Hand-written: the entries live in the caller's array, reached through the record's pointer, which no list column follows. */
BX_API int STJ_StaList(const void *pvRecord, struct blob_buf *pstBuf)
{
    if (pvRecord == nullptr || pstBuf == nullptr)
        return bx::refuse_null(pvRecord, BX_DESCRIPTION(STJ_StaList));
    const auto *rec = static_cast<const StaListInfo *>(pvRecord);
    blobmsg_add_u32(pstBuf, "count", rec->uiStaNumofEsps);
    void *list = blobmsg_open_array(pstBuf, "stalist");
    /* The count is the caller's array's length; without an array there is
     * nothing to read. */
    uint32_t count = rec->pstListInfo != nullptr ? rec->uiStaNumofEsps : 0;
    for (uint32_t i = 0; i < count; ++i) {
        void *table = blobmsg_open_table(pstBuf, nullptr);
        bx::emit_fields(kStaEntryOut, STA_MAX, kStaEntryOut.links(), &rec->pstListInfo[i], pstBuf, bx::kNoMask);
        blob_nest_end(pstBuf, table);
    }
    blob_nest_end(pstBuf, list);
    return 0;
}

BX_DESCRIBED(JTS_StaList, kStaListReceived, nullptr, kStaListReceived.size(), ::bx::kNoMask,
             "the entries fill the caller's array behind pstListInfo, uiStaNumofEsps at most (none without the "
             "array); an element past them ends the walk; each element uses an entry, even without keys")

/* Hand-written: the entries fill the caller's array through the record's pointer; its count is a capacity, never written back. */
BX_API int JTS_StaList(struct blob_attr *pstMsg, void *pvRecord)
{
    enum { LIST_COUNT, LIST_STALIST, LIST_MAX };
    static_assert(kStaListReceived.size() == LIST_MAX);
    if (pstMsg == nullptr || pvRecord == nullptr)
        return bx::refuse_null(pvRecord, BX_DESCRIPTION(JTS_StaList));
    auto *rec = static_cast<StaListInfo *>(pvRecord);
    /* The caller's count is the capacity of its array, taken before
     * anything else; a missing array offers no room at all. */
    const uint32_t capacity = rec->pstListInfo != nullptr ? rec->uiStaNumofEsps : 0;
    blob_attr *tb[LIST_MAX];
    bx::parse_msg(kStaListReceived, tb, pstMsg);
    /* The sender's count is only traced, never stored: the record's count
     * stays the capacity the caller gave. */
    if (bx::present(kStaListReceived, tb, LIST_COUNT))
        BX_TRACE("uiStaNumofEsps: %d\n", bx::get_s32(tb[LIST_COUNT]));
    if (!bx::present(kStaListReceived, tb, LIST_STALIST))
        return 0;

    const char *func = __func__;
    uint32_t filled = 0;
    bx::for_each_elem(tb[LIST_STALIST], [&](blob_attr *elem) {
        BX_TRACE_AS(func, "-t- blobmsg_parse: -blobmsg_for_each_attr_1\n");
        /* A full array ends the walk; the stations beyond it are dropped. */
        if (filled >= capacity) {
            BX_TRACE_AS(func, "blobmsg parse failed\n");
            return false;
        }
        BX_TRACE_AS(func, "-t- blobmsg_parse: -blobmsg_for_each_attr_2\n");
        blob_attr *entry_tb[STA_MAX];
        bx::parse_elem(kStaEntry, entry_tb, elem);
        BX_TRACE_AS(func, "-t- blobmsg_parse: g_stStaList_Array_policy\n");
        fill_entry(func, entry_tb, &rec->pstListInfo[filled], rec->pstListInfo);
        /* Every element uses up one entry, even one without any key. */
        ++filled;
        return true;
    });
    return 0;
}

/* ---- One station by MAC address (89) -------------------------------------------- */

/* Sent and read like one element of the list, at the top level. */
BX_SENT_ROW(STJ_StaInfoByMac, kStaEntryOut, ::bx::kNoMask)
BX_RECEIVED_ROW(JTS_StaInfoByMac, kStaEntry, ::bx::kNoMask)

/* ---- Wrong Wi-Fi password (90) ------------------------------------------------- */

BX_CONVERTERS(STJ_StaWifiPwdErr, JTS_WifiPwdErr, kStaMac)

/* ---- Per-station traffic (91) --------------------------------------------------- */

BX_CONVERTERS(STJ_StaTraffic, JTS_StaTraffic, kStaTraffic)

/* ---- Station counts (92) --------------------------------------------------------- */

BX_CONVERTERS(STJ_StaNum, JTS_StaNum, kStaNum)

/* ---- Display name (93) ------------------------------------------------------------ */

BX_CONVERTERS(STJ_StaName, JTS_StaName, kStaName)

/* ---- Brand and model (94) ------------------------------------------------------- */

BX_CONVERTERS(STJ_StaModel, JTS_StaModel, kStaModel, offsetof(StaModel, uiFlag))

} // extern "C"
