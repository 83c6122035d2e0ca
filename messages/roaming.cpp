/* Roaming: layer-2 and assisted roaming settings, the signal-strength query
 * that one access point sends its neighbours about a station and their
 * answer, the BSS transition that steers a station, and a station's roaming,
 * stop-detect and weak-signal reports.
 *
 * No key is required in this family: a missing key is traced and leaves its
 * field as the caller had it. Two MAC forms travel here: the query, answer
 * and BSS transition messages keep 12 characters (bare hexadecimal), the
 * reports 17 (the colon form). */
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>

#include "blobxlate.h"
#include "core/codec.h"

namespace {

using bx::Field;
using bx::Link;

/* A MAC written without separators. */
constexpr size_t kBareMacLen = 12;

/* An element of another blobmsg type than the list's cannot be an entry:
 * it is traced and skipped without taking one. */
constexpr const char *kNotAnEntry = "NULL == cur\n\n";

/* ---- 113: layer-2 roaming ------------------------------------------------ */

constexpr bx::FieldDef kL2RoamingSource[] = {
    BX_WORD(L2RoamingRec, uiStatus, EnumSwitch, "status", "status:%d"),
    BX_S32(L2RoamingRec, iLowRssi2p4g, "lowrssi2p4g", "lowrssi2p4g:%d"),
    BX_S32(L2RoamingRec, iLowRssi5g, "lowrssi5g", "lowrssi5g:%d"),
};
BX_PACKED(kL2Roaming);

/* ---- 114: assisted roaming ------------------------------------------------- */

/* Field i of the table owns bit 1 << i of uiRoamFlag. "enable" travels as a
 * number here, not as a switch word. */
constexpr bx::FieldDef kRoamingSource[] = {
    BX_U32(RoamingRec, uiEnable, "enable", "enable:%u", .bit = 1u << 0),
    BX_S32(RoamingRec, iThresholdRssi, "thresholdrssi", "thresholdrssi:%d", .bit = 1u << 1),
    BX_U32(RoamingRec, uiReportInterval, "reportinterval", "reportinterval:%u", .bit = 1u << 2),
    BX_U32(RoamingRec, uiStartTime, "starttime", "starttime:%u", .bit = 1u << 3),
    BX_S32(RoamingRec, iStartRssi, "startrssi", "startrssi:%d", .bit = 1u << 4),
    BX_U32(RoamingRec, uiLowRssiPeriod, "lowrssiperiod", "lowrssiperiod:%u", .bit = 1u << 5),
    BX_S32(RoamingRec, iThresholdRssi5g, "thresholdrssi5g", "thresholdrssi5g:%d", .bit = 1u << 6),
};
BX_PACKED(kRoaming);
static_assert(kRoamingSource[0].bit == BX_ROAM_ENABLE && kRoamingSource[2].bit == BX_ROAM_REPORT_INTERVAL &&
              kRoamingSource[std::size(kRoamingSource) - 1].bit == BX_ROAM_THRESHOLD_RSSI5G);

/* ---- 115, 116: signal-strength query and answer ------------------------------ */

/* A bare MAC keeps its 12 characters in an array with room for more: the
 * bytes after them stay the caller's, and the trace shows the whole array. */
bx::Read read_bare_mac(const bx::Reading &r, const Field &f, blob_attr *attr)
{
    if (!JTS_CheckBlobAttr(f.key(), attr))
        return bx::kGoOn;
    char *mac = static_cast<char *>(r.record) + f.offset;
    bx::copy_text(mac, kBareMacLen, attr);
    bx::trace_field(r.func, f, mac, strnlen(mac, f.size), 0);
    return bx::kGoOn;
}
constexpr bx::Quirk kBareMac{read_bare_mac, nullptr, "at most 12 characters copied; the bytes after them stay the caller's"};

/* Sent: as many entries as the caller's count says. Received: the walk
 * ends after 32 entries, once the record's count is reached, or with the
 * list. The query's and the answer's list elements are parsed with the
 * message's own policy, so the message and each element list the same keys. */
constexpr bx::FieldDef kApInfoSource[] = {
    BX_KEY("count", bx::Wire::U32),
    BX_KEY("mac", bx::Wire::Text),
    BX_KEY("apinfo", bx::Wire::List),
    BX_TEXT(RoamingApInfoRec, szBssid, "bssid", "bssid:%s", .quirk = &kBareMac),
    BX_U32(RoamingApInfoRec, uiChannel, "channel", "channel:%u"),
};
BX_PACKED(kApInfo);
constexpr bx::ListOf kApInfos = BX_TABLES(RoamingApQueryRec, astApInfo, kApInfo,
    .count_at = offsetof(RoamingApQueryRec, uiCount), .bound = bx::Bound::Count, .odd = kNotAnEntry);
constexpr bx::FieldDef kApQuerySource[] = {
    BX_U32(RoamingApQueryRec, uiCount, "count", "count:%u"),
    BX_TEXT(RoamingApQueryRec, szMac, "mac", "mac:%s", .quirk = &kBareMac),
    BX_LIST(RoamingApQueryRec, astApInfo, "apinfo", kApInfos, nullptr),
    BX_KEY("bssid", bx::Wire::Text),
    BX_KEY("channel", bx::Wire::U32),
};
BX_PACKED(kApQuery);

constexpr bx::FieldDef kApRssiSource[] = {
    BX_KEY("count", bx::Wire::U32),
    BX_KEY("aprssi", bx::Wire::List),
    BX_TEXT(RoamingApRssiRec, szBssid, "bssid", "bssid:%s", .quirk = &kBareMac),
    BX_S32(RoamingApRssiRec, iRssi, "rssi", "rssi:%d"),
};
BX_PACKED(kApRssi);
constexpr bx::ListOf kApRssis = BX_TABLES(RoamingApRspRec, astApRssi, kApRssi,
    .count_at = offsetof(RoamingApRspRec, uiCount), .bound = bx::Bound::Count, .odd = kNotAnEntry);
constexpr bx::FieldDef kApRspSource[] = {
    BX_U32(RoamingApRspRec, uiCount, "count", "count:%u"),
    BX_LIST(RoamingApRspRec, astApRssi, "aprssi", kApRssis, nullptr),
    BX_KEY("bssid", bx::Wire::Text),
    BX_KEY("rssi", bx::Wire::S32),
};
BX_PACKED(kApRsp);

/* ---- 117: BSS transition ------------------------------------------------------ */

constexpr bx::FieldDef kBssTransSource[] = {
    BX_TEXT(RoamingBssTransRec, szSta, "sta", "sta:%s"),
    BX_TEXT(RoamingBssTransRec, szBssid, "bssid", "bssid:%s"),
    BX_U32(RoamingBssTransRec, uiChannel, "channel", "channel:%u"),
};
BX_PACKED(kBssTrans);

/* ---- 118: roaming report --------------------------------------------------------- */

/* The 802.11k/v support flags are boolean words kept in 16-bit fields.
 * Coming in, only the exact word "true" sets one: "false" and unknown words
 * alike store 0 (not the boolean kind's -1 for an unknown word). */
bx::Read read_support_flag(const bx::Reading &r, const Field &f, blob_attr *attr)
{
    if (!JTS_CheckBlobAttr(f.key(), attr))
        return bx::kGoOn;
    const uint16_t flag = std::strcmp(bx::get_text(attr), "true") == 0 ? 1 : 0;
    std::memcpy(static_cast<uint8_t *>(r.record) + f.offset, &flag, sizeof flag);
    bx::trace_field(r.func, f, nullptr, 0, flag);
    return bx::kGoOn;
}
void send_support_flag(const Field &f, const Link *links, const void *record, blob_buf *buf)
{
    uint16_t flag = 0;
    std::memcpy(&flag, static_cast<const uint8_t *>(record) + f.offset, sizeof flag);
    bx::add_word(buf, f.key(), f.word_list, flag);
}
constexpr bx::Quirk kSupportFlag{read_support_flag, send_support_flag, "a 16-bit member: only the word \"true\" stores 1, any other text 0"};
#define SUPPORT_FLAG(m, key_, trace_)                                                                     \
    bx::FieldDef{.key = key_, .wire = bx::Wire::Word, .word_list = EnumBoolean, .offset = BX_FIELD_AT(RoamingReportRec, m), \
                 .size = BX_FIELD_SIZE(RoamingReportRec, m), .trace = trace_, .shape = bx::trace_shape(trace_),  \
                 .quirk = &kSupportFlag}

/* Received in another order than sent: the bssid comes second. */
constexpr bx::FieldDef kReportSource[] = {
    BX_TEXT(RoamingReportRec, szMac, "mac", "mac:%s"),
    BX_TEXT(RoamingReportRec, szBssid, "bssid", "bssid:%s", .way = bx::Way::Received),
    BX_U32(RoamingReportRec, uiConnectTime, "connecttime", "connecttime:%u"),
    BX_S32(RoamingReportRec, iRssi, "rssi", "rssi:%d"),
    BX_WORD(RoamingReportRec, eRadio, EnumBand, "radio", "radio:%d"),
    BX_U32(RoamingReportRec, uiChannel, "channel", "channel:%u"),
    BX_TEXT(RoamingReportRec, szBssid, "bssid", nullptr, .way = bx::Way::Sent),
    BX_U32(RoamingReportRec, uiRxRate, "rxRate", "rxRate:%u"),
    BX_U32(RoamingReportRec, uiTxRate, "txRate", "txRate:%u"),
    SUPPORT_FLAG(usSupport11k, "support11k", "support11k:%u"),
    SUPPORT_FLAG(usSupport11v, "support11v", "support11v:%u"),
};
BX_PACKED(kReport);
#undef SUPPORT_FLAG

/* ---- 119: stop detecting a station (received only) -------------------------------- */

constexpr bx::FieldDef kStopDetectSource[] = {
    BX_TEXT(RoamingStopDetectRec, szMac, "mac", "mac:%s"),
    BX_U32(RoamingStopDetectRec, uiStopDetectTime, "stopdetecttime", "stopdetecttime:%u"),
};
BX_PACKED(kStopDetect);

/* ---- 120: a station's weak signal ------------------------------------------------- */

/* Received in another order than sent: radio before rssi. A received MAC
 * takes all 18 bytes, terminator included: a longer text leaves none. */
constexpr bx::FieldDef kStaRssiSource[] = {
    BX_TEXT(RoamingStaRssiRec, szMac, "mac", "mac:%s", .whole = true, .way = bx::Way::Received),
    BX_TEXT(RoamingStaRssiRec, szMac, "mac", nullptr, .way = bx::Way::Sent),
    BX_S32(RoamingStaRssiRec, iRssi, "rssi", nullptr, .way = bx::Way::Sent),
    BX_WORD(RoamingStaRssiRec, eRadio, EnumBand, "radio", "radio:%d"),
    BX_S32(RoamingStaRssiRec, iRssi, "rssi", "rssi:%d", .way = bx::Way::Received),
};
BX_PACKED(kStaRssi);

} // namespace

extern "C" {

/* ---- 113 ---- */

BX_CONVERTERS(STJ_L2_Roaming, JTS_L2_Roaming, kL2Roaming)

/* ---- 114 ---- */

/* Only the settings the mask names go out; the mask itself never does, and
 * only gains bits: an absent key leaves its bit as it was. */
BX_CONVERTERS(STJ_Roaming, JTS_Roaming, kRoaming, offsetof(RoamingRec, uiRoamFlag))

/* ---- 115 ---- */

BX_CONVERTERS(STJ_Roaming_APQuery, JTS_Roaming_APQuery, kApQuery)

/* ---- 116 ---- */

BX_CONVERTERS(STJ_Roaming_APRsp, JTS_Roaming_APRsp, kApRsp)

/* ---- 117 ---- */

/* char[13] keeps 12 characters: a colon-form MAC is cut to its first 12. */
BX_CONVERTERS(STJ_Roaming_BssTrans, JTS_Roaming_BssTrans, kBssTrans)

/* ---- 118 ---- */

BX_CONVERTERS(STJ_Roaming_Report, JTS_Roaming_Report, kReport)

/* ---- 119 (no record-to-tree direction) ---- */

BX_RECEIVED_ROW(JTS_Roaming_StopDetect, kStopDetect, ::bx::kNoMask)

/* ---- 120 ---- */

BX_CONVERTERS(STJ_Roaming_StaRssi, JTS_Roaming_StaRssi, kStaRssi)

} // extern "C"
