/* Vendor elements in probes: entries that watch incoming probe requests for
 * elements with a given OUI and collect the stations that sent them, and
 * entries that add elements to the probe responses for one station.
 *
 * Unlike beacon entries, these keep their element bytes packed, one byte
 * each; the bus carries one number per byte. The index messages (types 146
 * and 151) are sent by the beacon index converter. */
#include <iterator>

#include "messages/vsie_common.h"

namespace {

/* The probe lists (147, 152) take three entries, whatever the record holds:
 * the fourth element ends the walk with "NULL == cur". */
constexpr uint32_t kProbeListEntries = 3;

using bx::Field;
using bx::Link;
using bx::at_most;
using bx::vsie::low_byte;

/* The probe-receive list and record messages (types 147 and 149), and every
 * element of their "list" and "record" arrays, are read against this policy
 * (the other probe-receive messages read theirs through field tables, which
 * find the same attributes). */
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

/* The same for the probe-response list (type 152) and its elements. */
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

/* ---- Probe-receive entries (types 145, 147 to 149) ---------------------------- */

/* Quirk (145): each OUI byte is traced with its place; elements of any
 * type are read as numbers. */
bx::Read read_oui(const bx::Reading &r, const Field &f, blob_attr *attr)
{
    if (!bx::vsie::found(r, f, attr))
        return bx::kGoOn;
    auto *oui = static_cast<uint8_t *>(r.record) + f.offset;
    const size_t limit = r.list(f)->capacity;
    bx::Elems elems(attr);
    blob_attr *cur;
    for (size_t k = 0; k < limit && (cur = elems.next()) != nullptr; ++k) {
        oui[k] = low_byte(cur);
        BX_TRACE_AS(r.func, "OUI[%d]:%d\n", static_cast<int>(k), oui[k]);
    }
    return bx::kGoOn;
}
constexpr bx::Quirk kOui{read_oui, nullptr, "elements of any type read as bytes, each traced with its place"};
constexpr bx::FieldDef kByteSource[] = {BX_U8_ENTRY(nullptr)};
BX_PACKED(kByte);
constexpr bx::ListOf kOuiBytes = BX_VALUES(VsieProbeRxEntry, aucOui, kByte);

/* An added entry has no index and no records yet. */
constexpr bx::FieldDef kRxAddSource[] = {
    BX_TEXT(VsieProbeRxEntry, szServiceName, "servicename", "Servicename:%s"),
    /* No range check: an unknown word stores 2. */
    BX_WORD(VsieProbeRxEntry, uiBand, EnumBand, "band", "Band:%u"),
    BX_LIST(VsieProbeRxEntry, aucOui, "oui", kOuiBytes, nullptr, .quirk = &kOui),
};
BX_PACKED(kRxAdd);

/* A listed station record as sent: uiVsieLen payload bytes, its OUI stays
 * behind (a received list is read by its own converter). */
constexpr bx::ListOf kPayload = BX_VALUES(VsieProbeRxRecord, aucVsie, kByte,
    .count_at = offsetof(VsieProbeRxRecord, uiVsieLen));
constexpr bx::FieldDef kRecordSentSource[] = {
    BX_TEXT(VsieProbeRxRecord, szMac, "mac", nullptr),
    BX_WORD(VsieProbeRxRecord, uiBand, EnumBand, "band", nullptr),
    BX_LIST(VsieProbeRxRecord, aucVsie, "vsie", kPayload, nullptr),
};
BX_PACKED(kRecordSent);
constexpr bx::ListOf kRecords =
    BX_TABLES(VsieProbeRxEntry, astRecord, kRecordSent, .count_at = offsetof(VsieProbeRxEntry, uiRecordCount));

/* No count: the receiver counts the list. */
constexpr bx::FieldDef kRxEntrySentSource[] = {
    BX_U32(VsieProbeRxEntry, uiIdx, "idx", nullptr),
    kRxAddSource[0], kRxAddSource[1], kRxAddSource[2],
    BX_LIST(VsieProbeRxEntry, astRecord, "record", kRecords, nullptr),
};
BX_PACKED(kRxEntrySent);
constexpr bx::ListOf kRxEntries =
    BX_TABLES(VsieProbeRxList, astEntry, kRxEntrySent, .count_at = offsetof(VsieProbeRxList, uiCount));
constexpr bx::FieldDef kRxListSentSource[] = {BX_LIST(VsieProbeRxList, astEntry, "list", kRxEntries, nullptr)};
BX_PACKED(kRxListSent);

/* Quirk (148): sent from the very start of the record, a bare service name,
 * whereas the received name lands after an entry's uiIdx. */
constexpr bx::FieldDef kFlushSource[] = {
    BX_TEXT(VsieProbeRxFlush, szServiceName, "servicename", nullptr, .way = bx::Way::Sent),
    BX_TEXT(VsieProbeRxEntry, szServiceName, "servicename", "Servicename:%s", .way = bx::Way::Received),
};
BX_PACKED(kFlush);

/* Quirk (149): "vsie" carries the OUI ahead of uiVsieLen payload bytes. */
void send_oui_and_payload(const Field &f, const Link *links, const void *record, blob_buf *buf)
{
    const auto &rec = *static_cast<const VsieProbeRxRecord *>(record);
    constexpr size_t oui = sizeof rec.aucOui;
    void *vsie = blobmsg_open_array(buf, f.key());
    for (size_t k = 0; k < oui + at_most(rec.uiVsieLen, VSIE_PAYLOAD_MAX); ++k)
        blobmsg_add_u32(buf, nullptr, k < oui ? rec.aucOui[k] : rec.aucVsie[k - oui]);
    blob_nest_end(buf, vsie);
}
constexpr bx::Quirk kOuiAndPayload{nullptr, send_oui_and_payload, "sent as the three OUI bytes followed by uiVsieLen payload bytes"};

/* An added station record goes out as the one element of a "record" list. */
constexpr bx::FieldDef kOneRecordSentSource[] = {
    kRecordSentSource[0], kRecordSentSource[1],
    BX_VSIE_BYTES(VsieProbeRxRecord, aucVsie, "vsie", kOuiAndPayload),
};
BX_PACKED(kOneRecordSent);
constexpr bx::ListOf kOneRecord = bx::entries_of(
    kOneRecordSent, bx::ListOf{.entry_rows = nullptr, .fields = bx::entry_fields(kOneRecordSent.size()), .tables = true, .stride = sizeof(VsieProbeRxRecord), .capacity = 1});
constexpr bx::FieldDef kRecordAddSentSource[] = {
    bx::FieldDef{.key = "record", .wire = bx::Wire::List, .size = sizeof(VsieProbeRxRecord), .list = &kOneRecord},
};
BX_PACKED(kRecordAddSent);

/* ---- Probe-response entries (types 150 and 152) ------------------------------ */

/* The element bytes of a response: the count is the bytes stored (elements
 * of any type read as numbers), traced once they are. */
constexpr bx::FieldDef kResponseByteSource[] = {BX_U8_ENTRY("Iedata:%x")};
BX_PACKED(kResponseByte);
constexpr bx::ListOf kResponseBytes = BX_VALUES(VsieProbeRespEntry, aucIedata, kResponseByte,
    .count_at = offsetof(VsieProbeRespEntry, uiIedataLen), .fills_count = true, .any_type = true);

/* An added entry: no "idx", no "band". */
constexpr bx::FieldDef kRespAddSource[] = {
    BX_TEXT(VsieProbeRespEntry, szMac, "mac", "Mac:%s"),
    BX_LIST(VsieProbeRespEntry, aucIedata, "iedata", kResponseBytes, "pstOut->uiIedataLen:%d", .absent = "No IEDATA"),
};
BX_PACKED(kRespAdd);

/* No count: the receiver counts the list. */
constexpr bx::FieldDef kRespEntrySentSource[] = {
    BX_U32(VsieProbeRespEntry, uiIdx, "idx", nullptr),
    kRespAddSource[0],
    BX_WORD(VsieProbeRespEntry, uiBand, EnumBand, "band", nullptr),
    kRespAddSource[1],
};
BX_PACKED(kRespEntrySent);
constexpr bx::ListOf kRespEntries =
    BX_TABLES(VsieProbeRespList, astEntry, kRespEntrySent, .count_at = offsetof(VsieProbeRespList, uiCount));
constexpr bx::FieldDef kRespListSentSource[] = {BX_LIST(VsieProbeRespList, astEntry, "list", kRespEntries, nullptr)};
BX_PACKED(kRespListSent);

/* The two lists as received: three entries at most, counted. */
constexpr bx::ListOf kRxEntriesRead = bx::vsie::read_at_most(kRxEntries, kProbeListEntries);
constexpr bx::FieldDef kRxListReceivedSource[] = {BX_LIST(VsieProbeRxList, astEntry, "list", kRxEntriesRead, nullptr)};
BX_PACKED(kRxListReceived);
constexpr bx::ListOf kRespEntriesRead = bx::vsie::read_at_most(kRespEntries, kProbeListEntries);
constexpr bx::FieldDef kRespListReceivedSource[] = {BX_LIST(VsieProbeRespList, astEntry, "list", kRespEntriesRead, nullptr)};
BX_PACKED(kRespListReceived);

} // namespace

extern "C" {

/* ---- Type 145 ---- */

BX_CONVERTERS(STJ_Vsie_Proberx_Add, JTS_Vsie_Proberx_Add, kRxAdd)

/* ---- Type 146 (sent by STJ_Vsie_Beacontx_Idx) ---- */

BX_RECEIVED_ROW(JTS_Vsie_Proberx_Idx, bx::vsie::kIndexFields, ::bx::kNoMask)

/* ---- Type 147 ---- */

BX_SENT_ROW(STJ_Vsie_Proberx_List, kRxListSent, ::bx::kNoMask)

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
    const bx::vsie::Slots s = bx::vsie::own_slots(func, policy, rt);
    bx::vsie::text_at(s, PRX_MAC, record.szMac, "Mac");
    bx::vsie::band_at(s, PRX_BAND, entry_band, record.uiBand, "Band");
    BX_TRACE_AS(func, "blobmsg_parse222\n\n");
    BX_TRACE_AS(func, "blobmsg_for_each_attr444\n\n");
    /* Elements of any type are read as numbers. */
    bx::Elems elems(rt[PRX_VSIE]);
    blob_attr *cur;
    uint32_t k = 0;
    for (; k < sizeof record.aucVsie && (cur = elems.next()) != nullptr; ++k) {
        record.aucVsie[k] = low_byte(cur);
        BX_TRACE_AS(func, "uiVsiedata:%d\n", static_cast<int>(k));
        BX_TRACE_AS(func, "VSIE:%d\n", record.aucVsie[k]);
    }
    record.uiVsieLen = k;
}

/* The scalar members and the OUI bytes of an entry. Quirk: one counter
 * (`shared`) indexes both the OUI bytes and the records, and is not reset
 * between entries, so an entry's OUI bytes start at the previous entry's
 * record count (and are dropped from 3 on). */
void read_probe_head(const bx::vsie::Slots &s, VsieProbeRxEntry &entry, uint32_t &shared)
{
    bx::vsie::number_at(s, PRX_IDX, entry.uiIdx, "Idx");
    bx::vsie::text_at(s, PRX_SERVICENAME, entry.szServiceName, "Servicename");
    bx::vsie::band_at(s, PRX_BAND, s.tb[PRX_BAND], entry.uiBand, "Band");
    BX_TRACE_AS(s.func, "blobmsg_parse4\n\n");
    if (!bx::vsie::present(s, PRX_OUI)) {
        BX_TRACE_AS(s.func, "No OUI\n");
        return;
    }
    BX_TRACE_AS(s.func, "blobmsg_for_each_attr2\n\n");
    bx::Elems elems(s.tb[PRX_OUI]);
    blob_attr *cur;
    while (shared < sizeof entry.aucOui && (cur = elems.next()) != nullptr) {
        entry.aucOui[shared] = low_byte(cur);
        BX_TRACE_AS(s.func, "Iedata%u:%d\n", s.n, entry.aucOui[shared]);
        ++shared;  /* never inside the trace: a build without it skips its arguments */
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
    read_probe_head(bx::vsie::entry_slots(func, policy, el, n), entry, shared);
    shared = 0;
    if (!bx::present(policy, el, PRX_RECORD)) {
        BX_TRACE_AS(func, "JTS_CheckBlobAttr break\n");
        entry.uiRecordCount = 0;
        return;
    }
    BX_TRACE_AS(func, "JTS_CheckBlobAttr\n");
    /* Senders send at most eight records; more would be written past the
     * entry. */
    bx::Elems items(el[PRX_RECORD]);
    blob_attr *item;
    while (shared < VSIE_PROBERX_RECORD_MAX && (item = items.next()) != nullptr)
        read_probe_record(func, item, msg_end, el[PRX_BAND], entry.astRecord[shared++]);
    BX_TRACE_AS(func, "JTS_CheckBlobAttr end\n\n");
    entry.uiRecordCount = shared;
}

/* Entry n of the response list. */
void read_response_entry(const bx::vsie::Slots &s, VsieProbeRespEntry &entry)
{
    bx::vsie::number_at(s, PRESP_IDX, entry.uiIdx, "Idx");
    bx::vsie::text_at(s, PRESP_MAC, entry.szMac, "Mac");
    bx::vsie::band_at(s, PRESP_BAND, s.tb[PRESP_BAND], entry.uiBand, "Band");
    if (!bx::vsie::present(s, PRESP_IEDATA))
        return;
    /* Elements of any type are read as numbers. */
    bx::Elems elems(s.tb[PRESP_IEDATA]);
    blob_attr *cur;
    uint32_t k = 0;
    for (; k < sizeof entry.aucIedata && (cur = elems.next()) != nullptr; ++k) {
        entry.aucIedata[k] = low_byte(cur);
        BX_TRACE_AS(s.func, "Iedata%u:%c\n", s.n, entry.aucIedata[k]);
    }
    entry.uiIedataLen = k;
}

} // namespace

extern "C" {

BX_DESCRIBED(JTS_Vsie_Proberx_List, kRxListReceived, kVsieProberxPolicy, PRX_MAX, ::bx::kNoMask,
             "one counter places both the OUI bytes and the records, so an entry's OUI starts at the "
             "previous entry's record count; a record's \"band\" stores its entry's word")

/* Hand-written: one counter indexes both the OUI bytes and the records, and entry traces carry the entry's index. */
BX_API int JTS_Vsie_Proberx_List(struct blob_attr *pstMsg, void *pvRecord)
{
    const auto &policy = kVsieProberxPolicy;
    if (pstMsg == nullptr || pvRecord == nullptr)
        return bx::refuse_null(pvRecord, BX_DESCRIPTION(JTS_Vsie_Proberx_List));
    auto *rec = static_cast<VsieProbeRxList *>(pvRecord);
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
    bx::Elems elems(tb[PRX_LIST]);
    for (blob_attr *cur; (cur = elems.next()) != nullptr; ++n) {
        if (n >= kProbeListEntries) {
            BX_TRACE("NULL == cur\n\n");
            break;
        }
        read_probe_entry(__func__, cur, bx::end_of(pstMsg), rec->astEntry[n], n, shared);
    }
    /* The count is the entries read, whatever the caller had there. */
    rec->uiCount = n;
    return 0;
}

/* ---- Type 148 ---- */

BX_CONVERTERS(STJ_Vsie_Proberx_Flush, JTS_Vsie_Proberx_Flush, kFlush)

/* ---- Type 149 ---- */

BX_SENT_ROW(STJ_Vsie_Proberx_Record_Add, kRecordAddSent, ::bx::kNoMask)

BX_DESCRIBED(JTS_Vsie_Proberx_Record_Add, kRecordAddSent, kVsieProberxPolicy, PRX_MAX, ::bx::kNoMask,
             "only the first \"record\" element, of any type, is read into the record itself; \"mac\" is copied "
             "with the whole array; \"vsie\" fills the OUI then the payload, uiVsieLen counting both")

/* Hand-written: the first "record" element, of whatever type, fills the record, its "vsie" split by counters. */
BX_API int JTS_Vsie_Proberx_Record_Add(struct blob_attr *pstMsg, void *pvRecord)
{
    const auto &policy = kVsieProberxPolicy;
    if (pstMsg == nullptr || pvRecord == nullptr)
        return bx::refuse_null(pvRecord, BX_DESCRIPTION(JTS_Vsie_Proberx_Record_Add));
    auto *rec = static_cast<VsieProbeRxRecord *>(pvRecord);
    blob_attr *tb[PRX_MAX];
    bx::parse(policy, tb, pstMsg);
    if (!bx::present(policy, tb, PRX_RECORD)) {
        BX_TRACE("JTS_CheckBlobAttr failed\n");
        return 0;
    }
    /* Only the first element is read. The element walk would step on from
     * where the element's "vsie" walk ended, with that walk's remaining
     * length less a whole attribute (below zero), or from no position at
     * all when the element has no "vsie": the next step would read outside
     * the element, so the walk ends after the first element. Senders send
     * exactly one. */
    bx::Elems elems(tb[PRX_RECORD]);
    blob_attr *cur = elems.next();
    if (cur == nullptr)
        return 0;
    blob_attr *el[PRX_MAX];
    bx::parse_span(policy, el, cur, bx::end_of(pstMsg));
    const bx::vsie::Slots s = bx::vsie::own_slots(__func__, policy, el);
    /* The whole array: a 17-character MAC and its terminator. */
    bx::vsie::text_at(s, PRX_MAC, rec->szMac, sizeof rec->szMac, sizeof rec->szMac, "Mac");
    bx::vsie::band_at(s, PRX_BAND, el[PRX_BAND], rec->uiBand, "Band");
    /* The first three numbers of "vsie" are the OUI, the rest payload. */
    uint32_t count_oui = 0;
    uint32_t count = 0;
    bx::Elems bytes(el[PRX_VSIE]);
    for (blob_attr *byte; count < sizeof rec->aucVsie && (byte = bytes.next()) != nullptr;) {
        if (count_oui < sizeof rec->aucOui)
            rec->aucOui[count_oui++] = low_byte(byte);
        else
            rec->aucVsie[count++] = low_byte(byte);
    }
    /* Quirk: the length counts the OUI bytes too, although the sending
     * side puts the OUI before uiVsieLen payload bytes. */
    rec->uiVsieLen = count_oui + count;
    BX_TRACE("count:%u,count_oui:%u\n", count, count_oui);
    return 0;
}

/* ---- Type 150 ---- */

BX_CONVERTERS(STJ_Vsie_Proberesp_Add, JTS_Vsie_Proberesp_Add, kRespAdd)

/* ---- Type 151 (sent by STJ_Vsie_Beacontx_Idx) ---- */

BX_RECEIVED_ROW(JTS_Vsie_Proberesp_Idx, bx::vsie::kIndexFields, ::bx::kNoMask)

/* ---- Type 152 ---- */

BX_SENT_ROW(STJ_Vsie_Proberesp_List, kRespListSent, ::bx::kNoMask)

BX_DESCRIBED(JTS_Vsie_Proberesp_List, kRespListReceived, kVsieProberespPolicy, PRESP_MAX, ::bx::kNoMask,
             "uiCount is 0 without \"list\"; \"iedata\" elements of any type are read as bytes, "
             "and entry traces carry the entry's index")

/* Hand-written: at most three entries, each traced with its index; the count is overwritten, 0 without "list". */
BX_API int JTS_Vsie_Proberesp_List(struct blob_attr *pstMsg, void *pvRecord)
{
    const auto &policy = kVsieProberespPolicy;
    if (pstMsg == nullptr || pvRecord == nullptr)
        return bx::refuse_null(pvRecord, BX_DESCRIPTION(JTS_Vsie_Proberesp_List));
    auto *rec = static_cast<VsieProbeRespList *>(pvRecord);
    blob_attr *tb[PRESP_MAX];
    bx::parse(policy, tb, pstMsg);
    if (!bx::present(policy, tb, PRESP_LIST)) {
        rec->uiCount = 0;
        return 0;
    }
    uint32_t n = 0;
    bx::Elems elems(tb[PRESP_LIST]);
    for (blob_attr *cur; (cur = elems.next()) != nullptr; ++n) {
        if (n >= kProbeListEntries) {
            BX_TRACE("NULL == cur\n\n");
            break;
        }
        blob_attr *el[PRESP_MAX];
        bx::parse_span(policy, el, cur, bx::end_of(pstMsg));
        read_response_entry(bx::vsie::entry_slots(__func__, policy, el, n), rec->astEntry[n]);
    }
    rec->uiCount = n;
    return 0;
}

} // extern "C"
