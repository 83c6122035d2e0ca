/* Access lists and deassociation: push a set of stations off one radio, and
 * add, delete and list the stations of the Wi-Fi access list (whether the
 * list admits or refuses them is decided outside these messages). */
#include <iterator>

#include "blobxlate.h"
#include "core/codec.h"
#include "messages/wifi_lists.h"

namespace {

using bx::Field;
using bx::wifi::add_tables;
using bx::at_most;

/* ---- 54: deassociation ------------------------------------------------------ */

enum { DA_MACS, DA_COUNT, DA_RADIO, DA_TIME, DA_MAX };
const blobmsg_policy kWifiDeassocPolicy[DA_MAX] = {
    /* DA_MACS */  {"macs", BLOBMSG_TYPE_ARRAY},
    /* DA_COUNT */ {"count", BLOBMSG_TYPE_INT32},
    /* DA_RADIO */ {"radio", BLOBMSG_TYPE_STRING},
    /* DA_TIME */  {"time", BLOBMSG_TYPE_INT32},
};

/* ---- 64, 65, 66: the access list -------------------------------------------------- */

/* One station; also the policy of each element of a received list. */
enum { AE_INDEX, AE_NAME, AE_MAC };
constexpr Field kAccessEntry[] = {
    /* AE_INDEX */ BX_U32(WifiAccessEntryRec, uiIndex, "index", "index:%u"),
    /* AE_NAME */  BX_TEXT(WifiAccessEntryRec, szName, "name", "name:%s"),
    /* AE_MAC */   BX_TEXT(WifiAccessEntryRec, szMac, "mac", "mac:%s"),
};

/* Adding needs the name and the MAC; what was stored before a missing one
 * stays. */
constexpr Field kAccessAdd[] = {
    kAccessEntry[AE_INDEX],
    bx::required(kAccessEntry[AE_NAME], nullptr),
    bx::required(kAccessEntry[AE_MAC], nullptr),
};

/* Deleting names the station by its index alone. */
constexpr Field kAccessIndex[] = {
    bx::required(BX_U32(WifiAccessEntryRec, uiIndex, "index", "index:%u"), nullptr),
};

enum { AL_COUNT, AL_LIST, AL_MAX };
const blobmsg_policy kWifiAccessListPolicy[AL_MAX] = {
    /* AL_COUNT */ {"count", BLOBMSG_TYPE_INT32},
    /* AL_LIST */  {"list", BLOBMSG_TYPE_ARRAY},
};

} // namespace

extern "C" {

/* ---- 54 ---- */

/* Hand-written: the MACs go out as bare texts, as many as the count says. */
BX_API int STJ_WifiStaDeassociation(const void *pvRecord, struct blob_buf *pstBuf)
{
    if (pvRecord == nullptr || pstBuf == nullptr)
        return -1;
    const auto *rec = static_cast<const WifiDeassocRec *>(pvRecord);
    blobmsg_add_u32(pstBuf, "count", rec->uiCount);
    bx::add_word(pstBuf, "radio", EnumBand, rec->eRadio);
    blobmsg_add_u32(pstBuf, "time", rec->uiTime);
    void *macs = blobmsg_open_array(pstBuf, "macs");
    /* The count is the caller's word: slots past the record's 32 are never read. */
    for (uint32_t i = 0; i < at_most(rec->uiCount, BX_WIFI_DEASSOC_MAC_MAX); ++i)
        bx::add_text(pstBuf, nullptr, rec->aszMac[i]);
    blob_nest_end(pstBuf, macs);
    return 0;
}

/* Hand-written: a negative count refuses the message before the MAC list is read. */
BX_API int JTS_WifiStaDeassociation(struct blob_attr *pstMsg, void *pvRecord)
{
    const auto &policy = kWifiDeassocPolicy;
    const char *func = __func__;  /* the entries' traces are the converter's */
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *rec = static_cast<WifiDeassocRec *>(pvRecord);
    blob_attr *tb[DA_MAX];
    bx::parse(policy, tb, pstMsg);
    /* The count is required and, read as a signed number, not negative. */
    if (!bx::present(policy, tb, DA_COUNT) || bx::get_s32(tb[DA_COUNT]) < 0) {
        BX_TRACE("[count] is not valid.\n");
        return -1;
    }
    rec->uiCount = bx::get_u32(tb[DA_COUNT]);
    BX_TRACE("count:%u\n", rec->uiCount);
    if (bx::present(policy, tb, DA_RADIO)) {
        rec->eRadio = static_cast<uint32_t>(bx::get_word(EnumBand, tb[DA_RADIO]));
        BX_TRACE("radio:%d\n", static_cast<int>(rec->eRadio));
    }
    if (bx::present(policy, tb, DA_TIME)) {
        rec->uiTime = bx::get_u32(tb[DA_TIME]);
        BX_TRACE("time:%u\n", rec->uiTime);
    }
    if (!bx::present(policy, tb, DA_MACS))
        return 0;
    /* Up to the 32 slots, whatever the count says; the count stays as given. */
    bx::wifi::fill_entries(func, tb[DA_MACS], BLOBMSG_TYPE_STRING, BX_WIFI_DEASSOC_MAC_MAX,
                           [&](blob_attr *cur, uint32_t n) {
                               bx::copy_text(rec->aszMac[n], sizeof rec->aszMac[n] - 1, cur);
                               /* The slot's last byte is the caller's: trace only the slot. */
                               BX_TRACE_AS(func, "mac:%s\n", bx::shown(rec->aszMac[n]).text);
                           });
    return 0;
}

/* ---- 64 ---- */

BX_CONVERTERS(STJ_WifiBlackWhite_Add, JTS_WifiBlackWhite_Add, kAccessEntry, kAccessAdd)

BX_FIELD_CONVERTERS(STJ_WifiBlackWhite_Delete, JTS_WifiBlackWhite_Delete, kAccessIndex)

/* ---- 66 ---- */

/* Hand-written: a counted list of tables whose count is the caller's. */
BX_API int STJ_WifiBlackWhite_List(const void *pvRecord, struct blob_buf *pstBuf)
{
    if (pvRecord == nullptr || pstBuf == nullptr)
        return -1;
    const auto *rec = static_cast<const WifiAccessListRec *>(pvRecord);
    blobmsg_add_u32(pstBuf, "count", rec->uiCount);
    /* The count is the caller's word: entries past the record's capacity are never read. */
    add_tables(pstBuf, "list", at_most(rec->uiCount, BX_WIFI_ACCESS_LIST_MAX),
               [&](uint32_t i) { bx::stj_fields(&rec->astList[i], pstBuf, kAccessEntry); });
    return 0;
}

/* Hand-written: the count comes from the message, the list fills the record's entries. */
BX_API int JTS_WifiBlackWhite_List(struct blob_attr *pstMsg, void *pvRecord)
{
    const auto &policy = kWifiAccessListPolicy;
    const char *func = __func__;  /* the entries' traces are the converter's */
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *rec = static_cast<WifiAccessListRec *>(pvRecord);
    blob_attr *tb[AL_MAX];
    bx::parse(policy, tb, pstMsg);
    if (bx::present(policy, tb, AL_COUNT)) {
        rec->uiCount = bx::get_u32(tb[AL_COUNT]);
        BX_TRACE("count:%u\n", rec->uiCount);
    }
    if (!bx::present(policy, tb, AL_LIST))
        return 0;
    /* Not bounded by "count": every element is taken, up to the record's
     * capacity so that a long list never writes past it. */
    bx::wifi::fill_entries(func, tb[AL_LIST], BLOBMSG_TYPE_TABLE, BX_WIFI_ACCESS_LIST_MAX,
                           [&](blob_attr *cur, uint32_t n) {
                               bx::wifi::store_entry<kAccessEntry>(func, cur, &rec->astList[n]);
                           });
    return 0;
}

} // extern "C"
