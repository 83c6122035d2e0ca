/* Neighbour scan, WPS and channel scoring: start a scan of the neighbouring
 * networks on one radio and carry back what it found, start WPS push-button
 * pairing, start a channel scan and carry back each channel's score. */
#include <cstddef>

#include "blobxlate.h"
#include "core/codec.h"

namespace {

using bx::Field;

/* ---- 77, 80: the radio alone ------------------------------------------------ */

constexpr bx::FieldDef kRadioSource[] = {
    BX_WORD(WifiRadioRec, eRadio, EnumBand, "radio", "radio:%d"),
};
BX_PACKED(kRadio);

/* A channel scan names its radio or is refused. */
constexpr bx::FieldDef kScanRadioSource[] = {
    BX_WORD(WifiRadioRec, eRadio, EnumBand, "radio", "radio:%d", .required = true, .absent = "[radio] is not valid."),
};
BX_PACKED(kScanRadio);

/* ---- 79: WPS push button ------------------------------------------------------- */

constexpr bx::FieldDef kWpsPbcSource[] = {
    BX_WORD(WpsPbcRec, eRadio, EnumBand, "radio", "radio:%d"),
    BX_WORD(WpsPbcRec, uiStatus, EnumSwitch, "status", "status:%d"),
};
BX_PACKED(kWpsPbc);

/* An element of another blobmsg type than the list's cannot be an entry:
 * it is traced and skipped without taking one. */
constexpr const char *kNotAnEntry = "NULL == cur\n\n";

/* ---- 78: the networks a scan found ---------------------------------------------- */

/* One neighbour. "bandwidth" is a plain number here, not the bandwidth word
 * of the radio messages. */
#define NEIGHBOUR_KEYS                                                                               \
    BX_TEXT(WlanNeighbourEntryRec, szSsid, "ssid", "ssid:%s"),                                       \
    BX_TEXT(WlanNeighbourEntryRec, szBssid, "bssid", "bssid:%s"),                                    \
    BX_U32(WlanNeighbourEntryRec, uiChannel, "channel", "channel:%u"),                               \
    BX_S32(WlanNeighbourEntryRec, iRssi, "rssi", "rssi:%d"),                                         \
    BX_WORD(WlanNeighbourEntryRec, uiStandard, EnumStandard, "standard", "standard:%d"),             \
    BX_U32(WlanNeighbourEntryRec, eBandWidth, "bandwidth", "bandwidth:%u"),                          \
    BX_WORD(WlanNeighbourEntryRec, eAuth, EnumAuthMode, "authmode", "authmode:%d")

/* Sent as "encryttype", received as "encrypttype": a list sent back as it
 * came loses its encryption types. */
constexpr bx::FieldDef kNeighbourOutSource[] = {
    NEIGHBOUR_KEYS,
    BX_WORD(WlanNeighbourEntryRec, eEncryptType, EnumCipher, "encryttype", nullptr),
};
BX_PACKED(kNeighbourOut);
constexpr bx::FieldDef kNeighbourInSource[] = {
    NEIGHBOUR_KEYS,
    BX_WORD(WlanNeighbourEntryRec, eEncryptType, EnumCipher, "encrypttype", "encrypttype:%d"),
};
BX_PACKED(kNeighbourIn);
#undef NEIGHBOUR_KEYS

/* Sent: as many entries as the caller's count says. Received: no more than
 * the count in the record, whether this message brought it or the caller
 * put it there. */
constexpr bx::ListOf kNeighboursOut =
    BX_TABLES(WlanNeighbourRec, astNeighbour, kNeighbourOut, .count_at = offsetof(WlanNeighbourRec, uiCount));
constexpr bx::ListOf kNeighboursIn =
    BX_TABLES(WlanNeighbourRec, astNeighbour, kNeighbourIn, .count_at = offsetof(WlanNeighbourRec, uiCount),
        .bound = bx::Bound::Count, .odd = kNotAnEntry);

/* A scan's results name their radio or are refused. */
#define SCAN_RADIO(Rec) BX_WORD(Rec, eRadio, EnumBand, "radio", "radio:%d", .required = true, .absent = "[radio] is not valid.")
#define SCAN_COUNT(Rec) BX_U32(Rec, uiCount, "count", "count:%u")

constexpr bx::FieldDef kNeighboursSource[] = {
    SCAN_RADIO(WlanNeighbourRec),
    SCAN_COUNT(WlanNeighbourRec),
    BX_LIST(WlanNeighbourRec, astNeighbour, "neighbourlist", kNeighboursOut, nullptr, .way = bx::Way::Sent),
    BX_LIST(WlanNeighbourRec, astNeighbour, "neighbourlist", kNeighboursIn, nullptr, .way = bx::Way::Received),
};
BX_PACKED(kNeighbours);

/* ---- 80, 81: channel scan and scores ------------------------------------------------- */

constexpr bx::FieldDef kScoreSource[] = {
    BX_U32(ChannelScoreEntryRec, uiChannel, "channel", "channel:%u"),
    BX_U32(ChannelScoreEntryRec, uiScore, "score", "score:%u"),
};
BX_PACKED(kScore);

/* Sent: as many scores as the caller's count says. Received: not held to
 * "count", every element fills the next pair up to the record's capacity. */
constexpr bx::ListOf kScores =
    BX_TABLES(ChannelScoreRec, astScore, kScore, .count_at = offsetof(ChannelScoreRec, uiCount), .odd = kNotAnEntry);
constexpr bx::FieldDef kChannelScoreSource[] = {
    SCAN_RADIO(ChannelScoreRec),
    SCAN_COUNT(ChannelScoreRec),
    BX_LIST(ChannelScoreRec, astScore, "scorelist", kScores, nullptr),
};
BX_PACKED(kChannelScore);
#undef SCAN_RADIO
#undef SCAN_COUNT

} // namespace

extern "C" {

/* ---- 77 ---- */

BX_CONVERTERS(STJ_ScanWlanNeighbour, JTS_ScanWlanNeighbour, kRadio)

/* ---- 78 ---- */

BX_CONVERTERS(STJ_WlanNeighbour, JTS_WlanNeighbour, kNeighbours)

/* ---- 79 ---- */

BX_CONVERTERS(STJ_WpsPbc, JTS_WpsPbc, kWpsPbc)

/* ---- 80 ---- */

BX_CONVERTERS(STJ_ChannelScan, JTS_ChannelScan, kScanRadio)

/* ---- 81 ---- */

BX_CONVERTERS(STJ_ChannelScore, JTS_ChannelScore, kChannelScore)

} // extern "C"
