/* Vendor elements in probes: entries that watch incoming probe requests for
 * elements with a given OUI and collect the stations that sent them, and
 * entries that add elements to the probe responses for one station.
 *
 * Unlike beacon entries, these keep their element bytes packed, one byte
 * each; the bus carries one number per byte. The index messages (types 146
 * and 151) are sent by the beacon index converter. */
#include "messages/vsie_common.h"

namespace {

/* The probe lists (147, 152) take three entries, whatever the record holds:
 * the fourth element ends the walk with "NULL == cur". */
constexpr uint32_t kProbeListEntries = 3;

using bx::vsie::add_bytes;
using bx::at_most;
using bx::vsie::low_byte;

/* Every probe-receive message (types 145 to 149), and every element of its
 * "list" and "record" arrays, is read against this policy (the index message
 * reads its one key through a field table, which finds the same attribute). */
enum {
    PRX_IDX,
    PRX_SERVICENAME,
    PRX_BAND,
    PRX_OUI,
    PRX_RECORD,
    PRX_MAC,
    PRX_VSIE,
    PRX_LIST,
    PRX_MAX
};

constexpr blobmsg_policy kVsieProberxPolicy[PRX_MAX] = {
    /* PRX_IDX */         {"idx", BLOBMSG_TYPE_INT32},
    /* PRX_SERVICENAME */ {"servicename", BLOBMSG_TYPE_STRING},
    /* PRX_BAND */        {"band", BLOBMSG_TYPE_STRING},
    /* PRX_OUI */         {"oui", BLOBMSG_TYPE_ARRAY},
    /* PRX_RECORD */      {"record", BLOBMSG_TYPE_ARRAY},
    /* PRX_MAC */         {"mac", BLOBMSG_TYPE_STRING},
    /* PRX_VSIE */        {"vsie", BLOBMSG_TYPE_ARRAY},
    /* PRX_LIST */        {"list", BLOBMSG_TYPE_ARRAY},
};

/* The same for the probe-response messages (types 150 to 152). */
enum {
    PRESP_IDX,
    PRESP_BAND,
    PRESP_MAC,
    PRESP_IEDATA,
    PRESP_LIST,
    PRESP_MAX
};

constexpr blobmsg_policy kVsieProberespPolicy[PRESP_MAX] = {
    /* PRESP_IDX */    {"idx", BLOBMSG_TYPE_INT32},
    /* PRESP_BAND */   {"band", BLOBMSG_TYPE_STRING},
    /* PRESP_MAC */    {"mac", BLOBMSG_TYPE_STRING},
    /* PRESP_IEDATA */ {"iedata", BLOBMSG_TYPE_ARRAY},
    /* PRESP_LIST */   {"list", BLOBMSG_TYPE_ARRAY},
};

/* Opens an unnamed table in the array that is open. */
void *open_entry(blob_buf *buf) { return blobmsg_open_table(buf, nullptr); }

/* A station record of a probe-receive entry, as a list sends it: its OUI
 * stays behind. */
void emit_record(blob_buf *buf, const VsieProbeRxRecord &rec)
{
    bx::add_text(buf, "mac", rec.szMac);
    bx::add_word(buf, "band", EnumBand, rec.uiBand);
    add_bytes(buf, "vsie", rec.aucVsie, at_most(rec.uiVsieLen, VSIE_PAYLOAD_MAX));
}

/* A probe-response entry as a list sends it (`whole`), or as an added entry
 * is sent: the MAC and the bytes only. */
void emit_response(blob_buf *buf, const VsieProbeRespEntry &entry, bool whole)
{
    if (whole)
        blobmsg_add_u32(buf, "idx", entry.uiIdx);
    bx::add_text(buf, "mac", entry.szMac);
    if (whole)
        bx::add_word(buf, "band", EnumBand, entry.uiBand);
    add_bytes(buf, "iedata", entry.aucIedata, at_most(entry.uiIedataLen, VSIE_IEDATA_MAX));
}

} // namespace

extern "C" {

/* ---- Type 145 ---- */

/* Hand-written: the OUI goes out as a list of bytes. */
BX_API int STJ_Vsie_Proberx_Add(const void *pvRecord, struct blob_buf *pstBuf)
{
    if (pvRecord == nullptr || pstBuf == nullptr)
        return -1;
    const auto *rec = static_cast<const VsieProbeRxEntry *>(pvRecord);
    /* An added entry has no index and no records yet. */
    bx::add_text(pstBuf, "servicename", rec->szServiceName);
    bx::add_word(pstBuf, "band", EnumBand, rec->uiBand);
    add_bytes(pstBuf, "oui", rec->aucOui, sizeof rec->aucOui);
    return 0;
}

/* Hand-written: the OUI comes as a list of bytes. */
BX_API int JTS_Vsie_Proberx_Add(struct blob_attr *pstMsg, void *pvRecord)
{
    const auto &policy = kVsieProberxPolicy;
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *rec = static_cast<VsieProbeRxEntry *>(pvRecord);
    const char *func = __func__;
    blob_attr *tb[PRX_MAX];
    bx::parse(policy, tb, pstMsg);
    /* "idx" is not read. */
    if (bx::present(policy, tb, PRX_SERVICENAME)) {
        bx::copy_text(rec->szServiceName, sizeof rec->szServiceName - 1, tb[PRX_SERVICENAME]);
        BX_TRACE("Servicename:%s\n", bx::shown(rec->szServiceName).text);
    }
    if (bx::present(policy, tb, PRX_BAND)) {
        /* No range check: an unknown word stores 2. */
        rec->uiBand = static_cast<uint32_t>(bx::get_word(EnumBand, tb[PRX_BAND]));
        BX_TRACE("Band:%u\n", rec->uiBand);
    }
    if (!bx::present(policy, tb, PRX_OUI))
        return 0;
    bx::vsie::store_numbers(rec->aucOui, sizeof rec->aucOui, tb[PRX_OUI], [func](size_t k, uint8_t byte) {
        BX_TRACE_AS(func, "OUI[%d]:%d\n", static_cast<int>(k), byte);
    });
    return 0;
}

/* ---- Type 146 (sent by STJ_Vsie_Beacontx_Idx) ---- */

BX_RECEIVED_ROW(JTS_Vsie_Proberx_Idx, bx::vsie::kIndexFields, ::bx::kNoMask)

/* ---- Type 147 ---- */

/* Hand-written: a list of entries, each with its OUI and records. */
BX_API int STJ_Vsie_Proberx_List(const void *pvRecord, struct blob_buf *pstBuf)
{
    if (pvRecord == nullptr || pstBuf == nullptr)
        return -1;
    const auto *rec = static_cast<const VsieProbeRxList *>(pvRecord);
    /* No count: the receiver counts the list. */
    void *list = blobmsg_open_array(pstBuf, "list");
    for (size_t n = 0; n < at_most(rec->uiCount, VSIE_PROBERX_LIST_MAX); ++n) {
        const VsieProbeRxEntry &entry = rec->astEntry[n];
        void *table = open_entry(pstBuf);
        blobmsg_add_u32(pstBuf, "idx", entry.uiIdx);
        bx::add_text(pstBuf, "servicename", entry.szServiceName);
        bx::add_word(pstBuf, "band", EnumBand, entry.uiBand);
        add_bytes(pstBuf, "oui", entry.aucOui, sizeof entry.aucOui);
        void *records = blobmsg_open_array(pstBuf, "record");
        for (size_t r = 0; r < at_most(entry.uiRecordCount, VSIE_PROBERX_RECORD_MAX); ++r) {
            void *record = open_entry(pstBuf);
            emit_record(pstBuf, entry.astRecord[r]);
            blob_nest_end(pstBuf, record);
        }
        blob_nest_end(pstBuf, records);
        blob_nest_end(pstBuf, table);
    }
    blob_nest_end(pstBuf, list);
    return 0;
}

} // extern "C"

namespace {

/* One record of an entry's "record" list. Quirk: the record's "band" only
 * says that there is one; the number stored is the entry's word (the word
 * for no text when the entry has none). The record's OUI bytes are left
 * alone. */
void read_probe_record(const char *func, blob_attr *item, const char *msg_end, blob_attr *entry_band,
                       VsieProbeRxRecord &record)
{
    const auto &policy = kVsieProberxPolicy;
    BX_TRACE_AS(func, "blobmsg_for_each_attr333\n\n");
    blob_attr *rt[PRX_MAX];
    bx::parse_span(policy, rt, item, msg_end);
    BX_TRACE_AS(func, "blobmsg_parse111\n\n");
    if (bx::present(policy, rt, PRX_MAC)) {
        bx::copy_text(record.szMac, sizeof record.szMac - 1, rt[PRX_MAC]);
        BX_TRACE_AS(func, "Mac:%s\n", bx::shown(record.szMac).text);
    }
    if (bx::present(policy, rt, PRX_BAND)) {
        record.uiBand = static_cast<uint32_t>(bx::get_word(EnumBand, entry_band));
        BX_TRACE_AS(func, "Band:%u\n", record.uiBand);
    }
    BX_TRACE_AS(func, "blobmsg_parse222\n\n");
    BX_TRACE_AS(func, "blobmsg_for_each_attr444\n\n");
    record.uiVsieLen = static_cast<uint32_t>(bx::vsie::store_numbers(
        record.aucVsie, sizeof record.aucVsie, rt[PRX_VSIE], [func](size_t k, uint8_t byte) {
            BX_TRACE_AS(func, "uiVsiedata:%d\n", static_cast<int>(k));
            BX_TRACE_AS(func, "VSIE:%d\n", byte);
        }));
}

/* The scalar members and the OUI bytes of entry n. Quirk: one counter
 * (`shared`) indexes both the OUI bytes and the records, and is not reset
 * between entries, so an entry's OUI bytes start at the previous entry's
 * record count (and are dropped from 3 on). */
void read_probe_head(const char *func, blob_attr *const (&el)[PRX_MAX], VsieProbeRxEntry &entry, uint32_t n, uint32_t &shared)
{
    const auto &policy = kVsieProberxPolicy;
    if (bx::present(policy, el, PRX_IDX)) {
        entry.uiIdx = bx::get_u32(el[PRX_IDX]);
        BX_TRACE_AS(func, "Idx%u:%u\n", n, entry.uiIdx);
    }
    if (bx::present(policy, el, PRX_SERVICENAME)) {
        bx::copy_text(entry.szServiceName, sizeof entry.szServiceName - 1, el[PRX_SERVICENAME]);
        BX_TRACE_AS(func, "Servicename%u:%s\n", n, bx::shown(entry.szServiceName).text);
    }
    if (bx::present(policy, el, PRX_BAND)) {
        entry.uiBand = static_cast<uint32_t>(bx::get_word(EnumBand, el[PRX_BAND]));
        BX_TRACE_AS(func, "Band%u:%u\n", n, entry.uiBand);
    }
    BX_TRACE_AS(func, "blobmsg_parse4\n\n");
    if (!bx::present(policy, el, PRX_OUI)) {
        BX_TRACE_AS(func, "No OUI\n");
        return;
    }
    BX_TRACE_AS(func, "blobmsg_for_each_attr2\n\n");
    if (shared < sizeof entry.aucOui) {
        shared += static_cast<uint32_t>(bx::vsie::store_numbers(
            entry.aucOui + shared, sizeof entry.aucOui - shared, el[PRX_OUI],
            [func, n](size_t, uint8_t byte) { BX_TRACE_AS(func, "Iedata%u:%d\n", n, byte); }));
    }
}

/* Entry n of the list, its records bounded by the entry's array. */
void read_probe_entry(const char *func, blob_attr *cur, const char *msg_end, VsieProbeRxEntry &entry, uint32_t n,
                      uint32_t &shared)
{
    const auto &policy = kVsieProberxPolicy;
    BX_TRACE_AS(func, "blobmsg_for_each_attr1\n\n");
    blob_attr *el[PRX_MAX];
    bx::parse_span(policy, el, cur, msg_end);
    BX_TRACE_AS(func, "blobmsg_parse3\n\n");
    read_probe_head(func, el, entry, n, shared);
    if (!bx::present(policy, el, PRX_RECORD)) {
        BX_TRACE_AS(func, "JTS_CheckBlobAttr break\n");
        entry.uiRecordCount = 0;
        shared = 0;
        return;
    }
    BX_TRACE_AS(func, "JTS_CheckBlobAttr\n");
    shared = 0;
    bx::for_each_elem(el[PRX_RECORD], [&](blob_attr *item) {
        /* Senders send at most eight records; more would be written past
         * the entry. */
        if (shared >= VSIE_PROBERX_RECORD_MAX)
            return false;
        read_probe_record(func, item, msg_end, el[PRX_BAND], entry.astRecord[shared++]);
        return true;
    });
    BX_TRACE_AS(func, "JTS_CheckBlobAttr end\n\n");
    entry.uiRecordCount = shared;
}

} // namespace

extern "C" {

/* Hand-written: one counter indexes both the OUI bytes and the records. */
BX_API int JTS_Vsie_Proberx_List(struct blob_attr *pstMsg, void *pvRecord)
{
    const auto &policy = kVsieProberxPolicy;
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *rec = static_cast<VsieProbeRxList *>(pvRecord);
    const char *func = __func__;
    blob_attr *tb[PRX_MAX];
    bx::parse(policy, tb, pstMsg);
    BX_TRACE("blobmsg_parse1\n\n");
    if (!bx::present(policy, tb, PRX_LIST)) {
        rec->uiCount = 0;
        return 0;
    }
    BX_TRACE("blobmsg_parse2\n\n");
    uint32_t n = 0;
    uint32_t shared = 0;
    /* Quirk: each record's "vsie" walk reuses this walk's remaining length,
     * so after such an entry that length has wrapped below zero and only
     * the three-entry limit ends the walk. The elements it then steps to
     * are still the list's own up to the list's end; past the end it would
     * read outside the list, so the walk keeps to the list's real bounds. */
    bx::for_each_elem(tb[PRX_LIST], [&](blob_attr *cur) {
        if (n >= kProbeListEntries) {
            BX_TRACE_AS(func, "NULL == cur\n\n");
            return false;
        }
        read_probe_entry(func, cur, bx::end_of(pstMsg), rec->astEntry[n], n, shared);
        ++n;
        return true;
    });
    /* The count is the entries read, whatever the caller had there. */
    rec->uiCount = n;
    return 0;
}

/* ---- Type 148 ---- */

/* Hand-written: the service name is sent from the very start of the record. */
BX_API int STJ_Vsie_Proberx_Flush(const void *pvRecord, struct blob_buf *pstBuf)
{
    if (pvRecord == nullptr || pstBuf == nullptr)
        return -1;
    /* Quirk: sent from the very start of the record, a bare service name,
     * whereas the received name lands after an entry's uiIdx. */
    bx::add_text(pstBuf, "servicename", static_cast<const VsieProbeRxFlush *>(pvRecord)->szServiceName);
    return 0;
}

/* Hand-written: the service name lands after an entry's index. */
BX_API int JTS_Vsie_Proberx_Flush(struct blob_attr *pstMsg, void *pvRecord)
{
    const auto &policy = kVsieProberxPolicy;
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *rec = static_cast<VsieProbeRxEntry *>(pvRecord);
    blob_attr *tb[PRX_MAX];
    bx::parse(policy, tb, pstMsg);
    if (!bx::present(policy, tb, PRX_SERVICENAME))
        return 0;
    bx::copy_text(rec->szServiceName, sizeof rec->szServiceName - 1, tb[PRX_SERVICENAME]);
    BX_TRACE("Servicename:%s\n", bx::shown(rec->szServiceName).text);
    return 0;
}

/* ---- Type 149 ---- */

/* Hand-written: one record inside a list, its OUI before its payload. */
BX_API int STJ_Vsie_Proberx_Record_Add(const void *pvRecord, struct blob_buf *pstBuf)
{
    if (pvRecord == nullptr || pstBuf == nullptr)
        return -1;
    const auto *rec = static_cast<const VsieProbeRxRecord *>(pvRecord);
    void *records = blobmsg_open_array(pstBuf, "record");
    void *record = open_entry(pstBuf);
    bx::add_text(pstBuf, "mac", rec->szMac);
    bx::add_word(pstBuf, "band", EnumBand, rec->uiBand);
    /* The OUI goes first, then uiVsieLen payload bytes. */
    void *vsie = blobmsg_open_array(pstBuf, "vsie");
    for (uint8_t byte : rec->aucOui)
        blobmsg_add_u32(pstBuf, nullptr, byte);
    for (size_t k = 0; k < at_most(rec->uiVsieLen, VSIE_PAYLOAD_MAX); ++k)
        blobmsg_add_u32(pstBuf, nullptr, rec->aucVsie[k]);
    blob_nest_end(pstBuf, vsie);
    blob_nest_end(pstBuf, record);
    blob_nest_end(pstBuf, records);
    return 0;
}

/* Hand-written: one record read from a list, its band from the entry. */
BX_API int JTS_Vsie_Proberx_Record_Add(struct blob_attr *pstMsg, void *pvRecord)
{
    const auto &policy = kVsieProberxPolicy;
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *rec = static_cast<VsieProbeRxRecord *>(pvRecord);
    const char *func = __func__;
    blob_attr *tb[PRX_MAX];
    bx::parse(policy, tb, pstMsg);
    if (!bx::present(policy, tb, PRX_RECORD)) {
        BX_TRACE("JTS_CheckBlobAttr failed\n");
        return 0;
    }
    /* Set once for the whole walk: the first three numbers of "vsie" are
     * the OUI, the rest payload, counted across elements. */
    uint32_t count_oui = 0;
    uint32_t count = 0;
    /* Every element is written into the same record. The element walk
     * steps on from where the element's "vsie" walk ended, with that walk's
     * remaining length less a whole attribute (below zero), or from no
     * position at all when the element has no "vsie": the next step would
     * read outside the element, so the walk ends after the first element.
     * Senders send exactly one. */
    bx::for_each_elem(tb[PRX_RECORD], [&](blob_attr *cur) {
        blob_attr *el[PRX_MAX];
        bx::parse_span(policy, el, cur, bx::end_of(pstMsg));  // NOLINT(clang-analyzer-core.CallAndMessage): the analyzer loses the lambda's captured reference
        if (bx::present(policy, el, PRX_MAC)) {
            /* The whole array: a 17-character MAC and its terminator. */
            bx::copy_text(rec->szMac, sizeof rec->szMac, el[PRX_MAC]);
            BX_TRACE_AS(func, "Mac:%s\n", bx::shown(rec->szMac).text);
        }
        if (bx::present(policy, el, PRX_BAND)) {
            rec->uiBand = static_cast<uint32_t>(bx::get_word(EnumBand, el[PRX_BAND]));
            BX_TRACE_AS(func, "Band:%u\n", rec->uiBand);
        }
        bx::for_each_elem(el[PRX_VSIE], [&](blob_attr *byte) {
            if (count_oui < sizeof rec->aucOui)
                rec->aucOui[count_oui++] = low_byte(byte);
            else
                rec->aucVsie[count++] = low_byte(byte);
            return count < sizeof rec->aucVsie;
        });
        /* Quirk: the length counts the OUI bytes too, although the sending
         * side puts the OUI before uiVsieLen payload bytes. */
        rec->uiVsieLen = count_oui + count;
        BX_TRACE_AS(func, "count:%u,count_oui:%u\n", count, count_oui);
        return false;
    });
    return 0;
}

/* ---- Type 150 ---- */

/* Hand-written: the element bytes go out as a list. */
BX_API int STJ_Vsie_Proberesp_Add(const void *pvRecord, struct blob_buf *pstBuf)
{
    if (pvRecord == nullptr || pstBuf == nullptr)
        return -1;
    /* No "idx", no "band". */
    emit_response(pstBuf, *static_cast<const VsieProbeRespEntry *>(pvRecord), false);
    return 0;
}

/* Hand-written: the element bytes come as a list. */
BX_API int JTS_Vsie_Proberesp_Add(struct blob_attr *pstMsg, void *pvRecord)
{
    const auto &policy = kVsieProberespPolicy;
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *rec = static_cast<VsieProbeRespEntry *>(pvRecord);
    const char *func = __func__;
    blob_attr *tb[PRESP_MAX];
    bx::parse(policy, tb, pstMsg);
    /* "idx" and "band" are not read. */
    if (bx::present(policy, tb, PRESP_MAC)) {
        bx::copy_text(rec->szMac, sizeof rec->szMac - 1, tb[PRESP_MAC]);
        BX_TRACE("Mac:%s\n", bx::shown(rec->szMac).text);
    }
    if (!bx::present(policy, tb, PRESP_IEDATA)) {
        BX_TRACE("No IEDATA\n");
        return 0;
    }
    rec->uiIedataLen = static_cast<uint32_t>(bx::vsie::store_numbers(
        rec->aucIedata, sizeof rec->aucIedata, tb[PRESP_IEDATA], [func](size_t, uint8_t byte) {
            BX_TRACE_AS(func, "Iedata:%x\n", byte);
        }));
    BX_TRACE("pstOut->uiIedataLen:%d\n", static_cast<int>(rec->uiIedataLen));
    return 0;
}

/* ---- Type 151 (sent by STJ_Vsie_Beacontx_Idx) ---- */

BX_RECEIVED_ROW(JTS_Vsie_Proberesp_Idx, bx::vsie::kIndexFields, ::bx::kNoMask)

/* ---- Type 152 ---- */

/* Hand-written: a list of entries, each with its element bytes. */
BX_API int STJ_Vsie_Proberesp_List(const void *pvRecord, struct blob_buf *pstBuf)
{
    if (pvRecord == nullptr || pstBuf == nullptr)
        return -1;
    const auto *rec = static_cast<const VsieProbeRespList *>(pvRecord);
    /* No count: the receiver counts the list. */
    void *list = blobmsg_open_array(pstBuf, "list");
    for (size_t n = 0; n < at_most(rec->uiCount, VSIE_PROBERESP_LIST_MAX); ++n) {
        void *table = open_entry(pstBuf);
        emit_response(pstBuf, rec->astEntry[n], true);
        blob_nest_end(pstBuf, table);
    }
    blob_nest_end(pstBuf, list);
    return 0;
}

/* Hand-written: a list of at most three entries, each parsed over its whole span. */
BX_API int JTS_Vsie_Proberesp_List(struct blob_attr *pstMsg, void *pvRecord)
{
    const auto &policy = kVsieProberespPolicy;
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *rec = static_cast<VsieProbeRespList *>(pvRecord);
    const char *func = __func__;
    blob_attr *tb[PRESP_MAX];
    bx::parse(policy, tb, pstMsg);
    if (!bx::present(policy, tb, PRESP_LIST)) {
        rec->uiCount = 0;
        return 0;
    }
    uint32_t n = 0;
    bx::for_each_elem(tb[PRESP_LIST], [&](blob_attr *cur) {
        if (n >= kProbeListEntries) {
            BX_TRACE_AS(func, "NULL == cur\n\n");
            return false;
        }
        VsieProbeRespEntry &entry = rec->astEntry[n];
        blob_attr *el[PRESP_MAX];
        bx::parse_span(policy, el, cur, bx::end_of(pstMsg));  // NOLINT(clang-analyzer-core.CallAndMessage): the analyzer loses the lambda's captured reference
        if (bx::present(policy, el, PRESP_IDX)) {
            entry.uiIdx = bx::get_u32(el[PRESP_IDX]);
            BX_TRACE_AS(func, "Idx%u:%u\n", n, entry.uiIdx);
        }
        if (bx::present(policy, el, PRESP_MAC)) {
            bx::copy_text(entry.szMac, sizeof entry.szMac - 1, el[PRESP_MAC]);
            BX_TRACE_AS(func, "Mac%u:%s\n", n, bx::shown(entry.szMac).text);
        }
        if (bx::present(policy, el, PRESP_BAND)) {
            entry.uiBand = static_cast<uint32_t>(bx::get_word(EnumBand, el[PRESP_BAND]));
            BX_TRACE_AS(func, "Band%u:%u\n", n, entry.uiBand);
        }
        if (bx::present(policy, el, PRESP_IEDATA)) {
            entry.uiIedataLen = static_cast<uint32_t>(bx::vsie::store_numbers(
                entry.aucIedata, sizeof entry.aucIedata, el[PRESP_IEDATA], [func, n](size_t, uint8_t byte) {
                    BX_TRACE_AS(func, "Iedata%u:%c\n", n, byte);
                }));
        }
        ++n;
        return true;
    });
    rec->uiCount = n;
    return 0;
}

} // extern "C"
