/* Neighbour scan, WPS and channel scoring: start a scan of the neighbouring
 * networks on one radio and carry back what it found, start WPS push-button
 * pairing, start a channel scan and carry back each channel's score. */
#include <iterator>

#include "blobxlate.h"
#include "core/codec.h"
#include "messages/wifi_lists.h"

namespace {

using bx::Field;
using bx::wifi::add_tables;
using bx::at_most;

/* ---- 77, 80: the radio alone ------------------------------------------------ */

constexpr Field kRadio[] = {
    BX_WORD(WifiRadioRec, eRadio, EnumBand, "radio", "radio:%d"),
};

/* A channel scan names its radio or is refused. */
constexpr Field kScanRadio[] = {
    bx::required(kRadio[0], "[radio] is not valid."),
};

/* ---- 79: WPS push button ------------------------------------------------------- */

constexpr Field kWpsPbc[] = {
    BX_WORD(WpsPbcRec, eRadio, EnumBand, "radio", "radio:%d"),
    BX_WORD(WpsPbcRec, uiStatus, EnumSwitch, "status", "status:%d"),
};

/* ---- 78: the networks a scan found ---------------------------------------------- */

enum { NB_RADIO, NB_COUNT, NB_LIST, NB_MAX };
const blobmsg_policy kWlanNeighbourPolicy[NB_MAX] = {
    /* NB_RADIO */ {"radio", BLOBMSG_TYPE_STRING},
    /* NB_COUNT */ {"count", BLOBMSG_TYPE_INT32},
    /* NB_LIST */  {"neighbourlist", BLOBMSG_TYPE_ARRAY},
};

/* One neighbour as received. "bandwidth" is a plain number here, not the
 * bandwidth word of the radio messages. */
constexpr Field kNeighbour[] = {
    BX_TEXT(WlanNeighbourEntryRec, szSsid, "ssid", "ssid:%s"),
    BX_TEXT(WlanNeighbourEntryRec, szBssid, "bssid", "bssid:%s"),
    BX_U32(WlanNeighbourEntryRec, uiChannel, "channel", "channel:%u"),
    BX_S32(WlanNeighbourEntryRec, iRssi, "rssi", "rssi:%d"),
    BX_WORD(WlanNeighbourEntryRec, uiStandard, EnumStandard, "standard", "standard:%d"),
    BX_U32(WlanNeighbourEntryRec, eBandWidth, "bandwidth", "bandwidth:%u"),
    BX_WORD(WlanNeighbourEntryRec, eAuth, EnumAuthMode, "authmode", "authmode:%d"),
    BX_WORD(WlanNeighbourEntryRec, eEncryptType, EnumCipher, "encrypttype", "encrypttype:%d"),
};
/* Every field but the encryption type goes out under the key it came in with. */
constexpr size_t kNeighbourSameKeys = std::size(kNeighbour) - 1;

/* ---- 80, 81: channel scan and scores ------------------------------------------------- */

enum { CS_RADIO, CS_COUNT, CS_LIST, CS_MAX };
const blobmsg_policy kChannelScorePolicy[CS_MAX] = {
    /* CS_RADIO */ {"radio", BLOBMSG_TYPE_STRING},
    /* CS_COUNT */ {"count", BLOBMSG_TYPE_INT32},
    /* CS_LIST */  {"scorelist", BLOBMSG_TYPE_ARRAY},
};

constexpr Field kScore[] = {
    BX_U32(ChannelScoreEntryRec, uiChannel, "channel", "channel:%u"),
    BX_U32(ChannelScoreEntryRec, uiScore, "score", "score:%u"),
};

/* The radio of a scan or score message is required; it is slot 0 of
 * both policies. */
static_assert(NB_RADIO == 0 && CS_RADIO == 0);
template <size_t N>
bool store_radio(const char *func, const blobmsg_policy (&policy)[N], blob_attr *const (&tb)[N], uint32_t &radio)
{
    if (!bx::present(policy, tb, NB_RADIO)) {
        BX_TRACE_AS(func, "[radio] is not valid.\n");
        return false;
    }
    radio = static_cast<uint32_t>(bx::get_word(EnumBand, tb[NB_RADIO]));
    BX_TRACE_AS(func, "radio:%d\n", static_cast<int>(radio));
    return true;
}

/* An optional count, stored into the record's count. */
template <size_t N>
void store_count(const char *func, const blobmsg_policy (&policy)[N], blob_attr *const (&tb)[N], size_t slot,
                 uint32_t &count)
{
    if (!bx::present(policy, tb, slot))
        return;
    count = bx::get_u32(tb[slot]);
    BX_TRACE_AS(func, "count:%u\n", count);
}

} // namespace

extern "C" {

/* ---- 77 ---- */

BX_FIELD_CONVERTERS(STJ_ScanWlanNeighbour, JTS_ScanWlanNeighbour, kRadio)

/* ---- 78 ---- */

/* Hand-written: a list whose entries send "encryttype" but receive "encrypttype". */
BX_API int STJ_WlanNeighbour(const void *pvRecord, struct blob_buf *pstBuf)
{
    if (pvRecord == nullptr || pstBuf == nullptr)
        return -1;
    const auto *rec = static_cast<const WlanNeighbourRec *>(pvRecord);
    bx::add_word(pstBuf, "radio", EnumBand, rec->eRadio);
    blobmsg_add_u32(pstBuf, "count", rec->uiCount);
    /* The count is the caller's word: entries past the record's capacity are never read. */
    add_tables(pstBuf, "neighbourlist", at_most(rec->uiCount, BX_WLAN_NEIGHBOUR_MAX), [&](uint32_t i) {
        const WlanNeighbourEntryRec &nb = rec->astNeighbour[i];
        bx::stj_fields(&nb, pstBuf, kNeighbour, kNeighbourSameKeys);
        /* Sent as "encryttype", received as "encrypttype": a list sent back
         * as it came loses its encryption types. */
        bx::add_word(pstBuf, "encryttype", EnumCipher, nb.eEncryptType);
    });
    return 0;
}

/* Hand-written: a list bounded by the message's count, after a required radio. */
BX_API int JTS_WlanNeighbour(struct blob_attr *pstMsg, void *pvRecord)
{
    const auto &policy = kWlanNeighbourPolicy;
    const char *func = __func__;  /* the entries' traces are the converter's */
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *rec = static_cast<WlanNeighbourRec *>(pvRecord);
    blob_attr *tb[NB_MAX];
    bx::parse(policy, tb, pstMsg);
    if (!store_radio(__func__, policy, tb, rec->eRadio))
        return -1;
    store_count(__func__, policy, tb, NB_COUNT, rec->uiCount);
    if (!bx::present(policy, tb, NB_LIST))
        return 0;
    /* Bounded by the count in the record, whether this message brought it
     * or the caller put it there, and by the record's capacity. */
    bx::wifi::fill_entries(func, tb[NB_LIST], BLOBMSG_TYPE_TABLE, at_most(rec->uiCount, BX_WLAN_NEIGHBOUR_MAX),
                           [&](blob_attr *cur, uint32_t n) {
                               bx::wifi::store_entry<kNeighbour>(func, cur, &rec->astNeighbour[n]);
                           });
    return 0;
}

/* ---- 79 ---- */

BX_FIELD_CONVERTERS(STJ_WpsPbc, JTS_WpsPbc, kWpsPbc)

/* ---- 80 ---- */

BX_FIELD_CONVERTERS(STJ_ChannelScan, JTS_ChannelScan, kScanRadio)

/* ---- 81 ---- */

/* Hand-written: a list of scores after the radio and the count. */
BX_API int STJ_ChannelScore(const void *pvRecord, struct blob_buf *pstBuf)
{
    if (pvRecord == nullptr || pstBuf == nullptr)
        return -1;
    const auto *rec = static_cast<const ChannelScoreRec *>(pvRecord);
    bx::add_word(pstBuf, "radio", EnumBand, rec->eRadio);
    blobmsg_add_u32(pstBuf, "count", rec->uiCount);
    /* The count is the caller's word: entries past the record's capacity are never read. */
    add_tables(pstBuf, "scorelist", at_most(rec->uiCount, BX_CHANNEL_SCORE_MAX),
               [&](uint32_t i) { bx::stj_fields(&rec->astScore[i], pstBuf, kScore); });
    return 0;
}

/* Hand-written: a list bounded by the message's count, after a required radio. */
BX_API int JTS_ChannelScore(struct blob_attr *pstMsg, void *pvRecord)
{
    const auto &policy = kChannelScorePolicy;
    const char *func = __func__;  /* the entries' traces are the converter's */
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *rec = static_cast<ChannelScoreRec *>(pvRecord);
    blob_attr *tb[CS_MAX];
    bx::parse(policy, tb, pstMsg);
    if (!store_radio(__func__, policy, tb, rec->eRadio))
        return -1;
    store_count(__func__, policy, tb, CS_COUNT, rec->uiCount);
    if (!bx::present(policy, tb, CS_LIST))
        return 0;
    /* The scores are not bounded by "count": every element is taken, up to
     * the record's capacity so that a long list never writes past it. */
    bx::wifi::fill_entries(func, tb[CS_LIST], BLOBMSG_TYPE_TABLE, BX_CHANNEL_SCORE_MAX,
                           [&](blob_attr *cur, uint32_t n) {
                               bx::wifi::store_entry<kScore>(func, cur, &rec->astScore[n]);
                           });
    return 0;
}

} // extern "C"
