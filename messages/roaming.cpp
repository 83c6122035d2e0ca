/* Roaming: layer-2 and assisted roaming settings, the signal-strength query
 * that one access point sends its neighbours about a station and their
 * answer, the BSS transition that steers a station, and a station's roaming,
 * stop-detect and weak-signal reports.
 *
 * No key is required in this family: a missing key is traced and leaves its
 * field as the caller had it. Two MAC forms travel here: the query, answer
 * and BSS transition messages keep 12 characters (bare hexadecimal), the
 * reports 17 (the colon form). */
#include <cstring>
#include <iterator>
#include <string_view>

#include "blobxlate.h"
#include "core/codec.h"
#include "messages/wifi_lists.h"

namespace {

using bx::Field;
using bx::wifi::add_tables;
using bx::add_text;
using bx::at_most;

/* A MAC written without separators. */
constexpr size_t kBareMacLen = 12;

/* ---- 113: layer-2 roaming ------------------------------------------------ */

constexpr Field kL2Roaming[] = {
    BX_WORD(L2RoamingRec, uiStatus, EnumSwitch, "status", "status:%d"),
    BX_S32(L2RoamingRec, iLowRssi2p4g, "lowrssi2p4g", "lowrssi2p4g:%d"),
    BX_S32(L2RoamingRec, iLowRssi5g, "lowrssi5g", "lowrssi5g:%d"),
};

/* ---- 114: assisted roaming ------------------------------------------------- */

/* Field i of the table owns bit 1 << i of uiRoamFlag. "enable" travels as a
 * number here, not as a switch word. */
/* Field i has bit i of uiRoamFlag. */
constexpr Field kRoaming[] = {
    bx::flagged(BX_U32(RoamingRec, uiEnable, "enable", "enable:%u"), 1u << 0),
    bx::flagged(BX_S32(RoamingRec, iThresholdRssi, "thresholdrssi", "thresholdrssi:%d"), 1u << 1),
    bx::flagged(BX_U32(RoamingRec, uiReportInterval, "reportinterval", "reportinterval:%u"), 1u << 2),
    bx::flagged(BX_U32(RoamingRec, uiStartTime, "starttime", "starttime:%u"), 1u << 3),
    bx::flagged(BX_S32(RoamingRec, iStartRssi, "startrssi", "startrssi:%d"), 1u << 4),
    bx::flagged(BX_U32(RoamingRec, uiLowRssiPeriod, "lowrssiperiod", "lowrssiperiod:%u"), 1u << 5),
    bx::flagged(BX_S32(RoamingRec, iThresholdRssi5g, "thresholdrssi5g", "thresholdrssi5g:%d"), 1u << 6),
};
static_assert(kRoaming[0].mask_bit == BX_ROAM_ENABLE && kRoaming[2].mask_bit == BX_ROAM_REPORT_INTERVAL &&
              kRoaming[std::size(kRoaming) - 1].mask_bit == BX_ROAM_THRESHOLD_RSSI5G);

/* ---- 115, 116: signal-strength query and answer ------------------------------ */

/* The list elements are parsed with the message's own policy: their keys
 * sit in the same slot table as the message's. */
enum { APQ_COUNT, APQ_MAC, APQ_APINFO, APQ_BSSID, APQ_CHANNEL, APQ_MAX };
const blobmsg_policy kRoamingApQueryPolicy[APQ_MAX] = {
    /* APQ_COUNT */   {"count", BLOBMSG_TYPE_INT32},
    /* APQ_MAC */     {"mac", BLOBMSG_TYPE_STRING},
    /* APQ_APINFO */  {"apinfo", BLOBMSG_TYPE_ARRAY},
    /* APQ_BSSID */   {"bssid", BLOBMSG_TYPE_STRING},
    /* APQ_CHANNEL */ {"channel", BLOBMSG_TYPE_INT32},
};

enum { APR_COUNT, APR_APRSSI, APR_BSSID, APR_RSSI, APR_MAX };
const blobmsg_policy kRoamingApRspPolicy[APR_MAX] = {
    /* APR_COUNT */  {"count", BLOBMSG_TYPE_INT32},
    /* APR_APRSSI */ {"aprssi", BLOBMSG_TYPE_ARRAY},
    /* APR_BSSID */  {"bssid", BLOBMSG_TYPE_STRING},
    /* APR_RSSI */   {"rssi", BLOBMSG_TYPE_INT32},
};

/* Entries going out; coming in, "bssid" keeps only 12 characters. */
constexpr Field kApInfo[] = {
    BX_TEXT(RoamingApInfoRec, szBssid, "bssid", nullptr),
    BX_U32(RoamingApInfoRec, uiChannel, "channel", nullptr),
};
constexpr Field kApRssi[] = {
    BX_TEXT(RoamingApRssiRec, szBssid, "bssid", nullptr),
    BX_S32(RoamingApRssiRec, iRssi, "rssi", nullptr),
};

/* Walks a query or answer list: the entries end after 32, or once the
 * record's count is reached, or with the list. fill(tb, n) takes entry n
 * from the element's slots. */
template <size_t N, typename Fill>
void walk_ap_list(const char *func, const blobmsg_policy (&policy)[N], blob_attr *list, uint32_t count,
                  Fill fill)
{
    bx::wifi::fill_entries(func, list, BLOBMSG_TYPE_TABLE, at_most(count, BX_ROAMING_AP_MAX),
                           [&](blob_attr *cur, uint32_t n) {
                               blob_attr *etb[N];
                               bx::parse_elem(policy, etb, cur);
                               fill(etb, n);
                           });
}

/* ---- 117: BSS transition ------------------------------------------------------ */

constexpr Field kBssTrans[] = {
    BX_TEXT(RoamingBssTransRec, szSta, "sta", "sta:%s"),
    BX_TEXT(RoamingBssTransRec, szBssid, "bssid", "bssid:%s"),
    BX_U32(RoamingBssTransRec, uiChannel, "channel", "channel:%u"),
};

/* ---- 118: roaming report --------------------------------------------------------- */

constexpr Field kReportOut[] = {
    BX_TEXT(RoamingReportRec, szMac, "mac", nullptr),
    BX_U32(RoamingReportRec, uiConnectTime, "connecttime", nullptr),
    BX_S32(RoamingReportRec, iRssi, "rssi", nullptr),
    BX_WORD(RoamingReportRec, eRadio, EnumBand, "radio", nullptr),
    BX_U32(RoamingReportRec, uiChannel, "channel", nullptr),
    BX_TEXT(RoamingReportRec, szBssid, "bssid", nullptr),
    BX_U32(RoamingReportRec, uiRxRate, "rxRate", nullptr),
    BX_U32(RoamingReportRec, uiTxRate, "txRate", nullptr),
};

/* Received in another order than sent; the two 16-bit flags follow the
 * table's slots. */
enum {
    RPT_MAC, RPT_BSSID, RPT_CONNECTTIME, RPT_RSSI, RPT_RADIO, RPT_CHANNEL, RPT_RXRATE, RPT_TXRATE,
    RPT_SUPPORT11K, RPT_SUPPORT11V, RPT_MAX
};
constexpr Field kReportIn[] = {
    BX_TEXT(RoamingReportRec, szMac, "mac", "mac:%s"),
    BX_TEXT(RoamingReportRec, szBssid, "bssid", "bssid:%s"),
    BX_U32(RoamingReportRec, uiConnectTime, "connecttime", "connecttime:%u"),
    BX_S32(RoamingReportRec, iRssi, "rssi", "rssi:%d"),
    BX_WORD(RoamingReportRec, eRadio, EnumBand, "radio", "radio:%d"),
    BX_U32(RoamingReportRec, uiChannel, "channel", "channel:%u"),
    BX_U32(RoamingReportRec, uiRxRate, "rxRate", "rxRate:%u"),
    BX_U32(RoamingReportRec, uiTxRate, "txRate", "txRate:%u"),
};
constexpr blobmsg_policy kRoamingReportPolicy[RPT_MAX] = {
    /* RPT_MAC */         {"mac", BLOBMSG_TYPE_STRING},
    /* RPT_BSSID */       {"bssid", BLOBMSG_TYPE_STRING},
    /* RPT_CONNECTTIME */ {"connecttime", BLOBMSG_TYPE_INT32},
    /* RPT_RSSI */        {"rssi", BLOBMSG_TYPE_INT32},
    /* RPT_RADIO */       {"radio", BLOBMSG_TYPE_STRING},
    /* RPT_CHANNEL */     {"channel", BLOBMSG_TYPE_INT32},
    /* RPT_RXRATE */      {"rxRate", BLOBMSG_TYPE_INT32},
    /* RPT_TXRATE */      {"txRate", BLOBMSG_TYPE_INT32},
    /* RPT_SUPPORT11K */  {"support11k", BLOBMSG_TYPE_STRING},
    /* RPT_SUPPORT11V */  {"support11v", BLOBMSG_TYPE_STRING},
};
constexpr bool table_follows_policy()
{
    for (size_t i = 0; i < std::size(kReportIn); ++i) {
        if (std::string_view(kReportIn[i].key) != kRoamingReportPolicy[i].name)
            return false;
    }
    return std::size(kReportIn) == RPT_SUPPORT11K;
}
static_assert(table_follows_policy());

/* Only the exact word "true" sets a support flag: "false" and unknown words
 * alike store 0 (not the boolean kind's -1 for an unknown word). */
uint16_t support_flag(blob_attr *attr)
{
    return std::strcmp(bx::get_text(attr), "true") == 0 ? 1 : 0;
}

/* ---- 119: stop detecting a station (received only) -------------------------------- */

constexpr Field kStopDetect[] = {
    BX_TEXT(RoamingStopDetectRec, szMac, "mac", "mac:%s"),
    BX_U32(RoamingStopDetectRec, uiStopDetectTime, "stopdetecttime", "stopdetecttime:%u"),
};

/* ---- 120: a station's weak signal ------------------------------------------------- */

constexpr Field kStaRssiOut[] = {
    BX_TEXT(RoamingStaRssiRec, szMac, "mac", nullptr),
    BX_S32(RoamingStaRssiRec, iRssi, "rssi", nullptr),
    BX_WORD(RoamingStaRssiRec, eRadio, EnumBand, "radio", nullptr),
};

/* Received in another order than sent: radio before rssi. The MAC takes
 * all 18 bytes, terminator included: a longer text leaves none. */
constexpr Field kStaRssiIn[] = {
    bx::whole(BX_TEXT(RoamingStaRssiRec, szMac, "mac", "mac:%s")),
    BX_WORD(RoamingStaRssiRec, eRadio, EnumBand, "radio", "radio:%d"),
    BX_S32(RoamingStaRssiRec, iRssi, "rssi", "rssi:%d"),
};

} // namespace

extern "C" {

/* ---- 113 ---- */

BX_FIELD_CONVERTERS(STJ_L2_Roaming, JTS_L2_Roaming, kL2Roaming)

/* ---- 114 ---- */

/* Only the settings the mask names go out; the mask itself never does, and
 * only gains bits: an absent key leaves its bit as it was. */
BX_MASKED_CONVERTERS(STJ_Roaming, JTS_Roaming, RoamingRec, uiRoamFlag, kRoaming, kRoaming)

/* ---- 115 ---- */

/* Hand-written: a list of access points after the count and the MAC. */
BX_API int STJ_Roaming_APQuery(const void *pvRecord, struct blob_buf *pstBuf)
{
    if (pvRecord == nullptr || pstBuf == nullptr)
        return -1;
    const auto *rec = static_cast<const RoamingApQueryRec *>(pvRecord);
    blobmsg_add_u32(pstBuf, "count", rec->uiCount);
    add_text(pstBuf, "mac", rec->szMac);
    /* The count is the caller's word: entries past the record's 32 are never read. */
    add_tables(pstBuf, "apinfo", at_most(rec->uiCount, BX_ROAMING_AP_MAX),
               [&](uint32_t i) { bx::stj_fields(&rec->astApInfo[i], pstBuf, kApInfo); });
    return 0;
}

/* Hand-written: the list elements are parsed with the message's own policy. */
BX_API int JTS_Roaming_APQuery(struct blob_attr *pstMsg, void *pvRecord)
{
    const auto &policy = kRoamingApQueryPolicy;
    const char *func = __func__;  /* the entries' traces are the converter's */
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *rec = static_cast<RoamingApQueryRec *>(pvRecord);
    blob_attr *tb[APQ_MAX];
    bx::parse(policy, tb, pstMsg);
    if (bx::present(policy, tb, APQ_COUNT)) {
        rec->uiCount = bx::get_u32(tb[APQ_COUNT]);
        BX_TRACE("count:%u\n", rec->uiCount);
    }
    if (bx::present(policy, tb, APQ_MAC)) {
        bx::copy_text(rec->szMac, kBareMacLen, tb[APQ_MAC]);
        /* Bytes past the 12 kept are the caller's and may hold no terminator. */
        BX_TRACE("mac:%s\n", bx::shown(rec->szMac).text);
    }
    if (!bx::present(policy, tb, APQ_APINFO))
        return 0;
    walk_ap_list(func, policy, tb[APQ_APINFO], rec->uiCount, [&](blob_attr *(&etb)[APQ_MAX], uint32_t n) {
        RoamingApInfoRec &ap = rec->astApInfo[n];
        if (bx::present(policy, etb, APQ_BSSID)) {  // NOLINT(clang-analyzer-core.CallAndMessage): the analyzer loses the lambda's captured reference
            bx::copy_text(ap.szBssid, kBareMacLen, etb[APQ_BSSID]);
            BX_TRACE_AS(func, "bssid:%s\n", bx::shown(ap.szBssid).text);
        }
        if (bx::present(policy, etb, APQ_CHANNEL)) {
            ap.uiChannel = bx::get_u32(etb[APQ_CHANNEL]);
            BX_TRACE_AS(func, "channel:%u\n", ap.uiChannel);
        }
    });
    return 0;
}

/* ---- 116 ---- */

/* Hand-written: a list of access points after the count. */
BX_API int STJ_Roaming_APRsp(const void *pvRecord, struct blob_buf *pstBuf)
{
    if (pvRecord == nullptr || pstBuf == nullptr)
        return -1;
    const auto *rec = static_cast<const RoamingApRspRec *>(pvRecord);
    blobmsg_add_u32(pstBuf, "count", rec->uiCount);
    /* The count is the caller's word: entries past the record's 32 are never read. */
    add_tables(pstBuf, "aprssi", at_most(rec->uiCount, BX_ROAMING_AP_MAX),
               [&](uint32_t i) { bx::stj_fields(&rec->astApRssi[i], pstBuf, kApRssi); });
    return 0;
}

/* Hand-written: the list elements are parsed with the message's own policy. */
BX_API int JTS_Roaming_APRsp(struct blob_attr *pstMsg, void *pvRecord)
{
    const auto &policy = kRoamingApRspPolicy;
    const char *func = __func__;  /* the entries' traces are the converter's */
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *rec = static_cast<RoamingApRspRec *>(pvRecord);
    blob_attr *tb[APR_MAX];
    bx::parse(policy, tb, pstMsg);
    if (bx::present(policy, tb, APR_COUNT)) {
        rec->uiCount = bx::get_u32(tb[APR_COUNT]);
        BX_TRACE("count:%u\n", rec->uiCount);
    }
    if (!bx::present(policy, tb, APR_APRSSI))
        return 0;
    walk_ap_list(func, policy, tb[APR_APRSSI], rec->uiCount, [&](blob_attr *(&etb)[APR_MAX], uint32_t n) {
        RoamingApRssiRec &ap = rec->astApRssi[n];
        if (bx::present(policy, etb, APR_BSSID)) {  // NOLINT(clang-analyzer-core.CallAndMessage): the analyzer loses the lambda's captured reference
            bx::copy_text(ap.szBssid, kBareMacLen, etb[APR_BSSID]);
            BX_TRACE_AS(func, "bssid:%s\n", bx::shown(ap.szBssid).text);
        }
        if (bx::present(policy, etb, APR_RSSI)) {
            ap.iRssi = bx::get_s32(etb[APR_RSSI]);
            BX_TRACE_AS(func, "rssi:%d\n", ap.iRssi);
        }
    });
    return 0;
}

/* ---- 117 ---- */

BX_SENT_ROW(STJ_Roaming_BssTrans, kBssTrans, ::bx::kNoMask)

/* char[13] keeps 12 characters: a colon-form MAC is cut to its first 12. */
BX_RECEIVED_ROW(JTS_Roaming_BssTrans, kBssTrans, ::bx::kNoMask)

/* ---- 118 ---- */

/* Hand-written: the 802.11k/v flags go out as words from 16-bit fields. */
BX_API int STJ_Roaming_Report(const void *pvRecord, struct blob_buf *pstBuf)
{
    if (pvRecord == nullptr || pstBuf == nullptr)
        return -1;
    const auto *rec = static_cast<const RoamingReportRec *>(pvRecord);
    bx::stj_fields(rec, pstBuf, kReportOut);
    bx::add_word(pstBuf, "support11k", EnumBoolean, rec->usSupport11k);
    bx::add_word(pstBuf, "support11v", EnumBoolean, rec->usSupport11v);
    return 0;
}

/* Hand-written: the 802.11k/v flags come as words into 16-bit fields. */
BX_API int JTS_Roaming_Report(struct blob_attr *pstMsg, void *pvRecord)
{
    const auto &policy = kRoamingReportPolicy;
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *rec = static_cast<RoamingReportRec *>(pvRecord);
    blob_attr *tb[RPT_MAX];
    bx::parse(policy, tb, pstMsg);
    for (size_t i = 0; i < std::size(kReportIn); ++i) {
        if (bx::present(policy, tb, i))
            bx::store_field(__func__, kReportIn[i], tb[i], rec);
    }
    if (bx::present(policy, tb, RPT_SUPPORT11K)) {
        rec->usSupport11k = support_flag(tb[RPT_SUPPORT11K]);
        BX_TRACE("support11k:%u\n", rec->usSupport11k);
    }
    if (bx::present(policy, tb, RPT_SUPPORT11V)) {
        rec->usSupport11v = support_flag(tb[RPT_SUPPORT11V]);
        BX_TRACE("support11v:%u\n", rec->usSupport11v);
    }
    return 0;
}

/* ---- 119 (no record-to-tree direction) ---- */

BX_RECEIVED_ROW(JTS_Roaming_StopDetect, kStopDetect, ::bx::kNoMask)

/* ---- 120 ---- */

BX_CONVERTERS(STJ_Roaming_StaRssi, JTS_Roaming_StaRssi, kStaRssiOut, kStaRssiIn)

} // extern "C"
