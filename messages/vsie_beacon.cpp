/* Vendor elements in beacons: the radio's limits for vendor elements, and
 * the elements that access points add to their beacons (add one, name one
 * by index, list all, switch one on or off).
 *
 * Beacon entries keep their element bytes one per 32-bit slot, as the radio
 * driver takes them; the bus carries one number per byte. */
#include "messages/vsie_common.h"

namespace {

using bx::Field;
using bx::at_most;

/* ---- Limits (type 140) ----------------------------------------------------- */

constexpr bx::FieldDef kInfoFieldsSource[] = {
    BX_U32(VsieInfo, uiMaxBeaconTxEntry, "maxbeacontxentry", "MaxBeacontxEntry:%u"),
    BX_U32(VsieInfo, uiMaxBeaconTxConcurrent, "maxbeacontxconcurrent", "MaxBeacontxConCurrent:%u"),
    BX_U32(VsieInfo, uiMaxProbeRxEntry, "maxproberxentry", "MaxProberxEntry:%u"),
    BX_U32(VsieInfo, uiMaxProbeRespEntry, "maxproberespentry", "MaxProbeRespEntry:%u"),
};
BX_PACKED(kInfoFields);

/* ---- Beacon entries (types 141 to 144) -------------------------------------- */

/* The element bytes, one per 32-bit slot, as many as uiLen says (the
 * "len" just stored, or the caller's); an element of any type is read as a
 * number. */
constexpr bx::FieldDef kIeByteSource[] = {BX_U32_ENTRY("Iedata:%c")};
BX_PACKED(kIeByte);
constexpr bx::ListOf kIeData = BX_VALUES(VsieBeaconTxEntry, auiIeData, kIeByte,
    .count_at = offsetof(VsieBeaconTxEntry, uiLen), .bound = bx::Bound::Count, .any_type = true);

/* An added entry has no index yet: "idx" is neither sent nor read. */
constexpr bx::FieldDef kAddFieldsSource[] = {
    BX_TEXT(VsieBeaconTxEntry, szServiceName, "servicename", "Servicename:%s"),
    BX_U32(VsieBeaconTxEntry, uiSsidIdx, "ssididx", "Ssididx:%u"),
    BX_U32(VsieBeaconTxEntry, uiDuration, "duration", "Duration:%u"),
    BX_U32(VsieBeaconTxEntry, uiLen, "len", "Len:%u"),
    BX_LIST(VsieBeaconTxEntry, auiIeData, "iedata", kIeData, nullptr, .absent = "No IEDATA"),
};
BX_PACKED(kAddFields);

/* A listed entry goes out with its index first. */
constexpr bx::FieldDef kListEntrySource[] = {
    BX_U32(VsieBeaconTxEntry, uiIdx, "idx", nullptr),
    kAddFieldsSource[0], kAddFieldsSource[1], kAddFieldsSource[2], kAddFieldsSource[3], kAddFieldsSource[4],
};
BX_PACKED(kListEntry);
constexpr bx::ListOf kEntries = BX_TABLES(VsieBeaconTxList, astEntry, kListEntry,
    .count_at = offsetof(VsieBeaconTxList, uiCount));
constexpr bx::FieldDef kListSentSource[] = {
    BX_COUNT(VsieBeaconTxList),
    BX_LIST(VsieBeaconTxList, astEntry, "list", kEntries, nullptr),
};
BX_PACKED(kListSent);
/* As received: "count" bounds the list, the elements past it skipped. */
constexpr bx::ListOf kEntriesRead =
    BX_TABLES(VsieBeaconTxList, astEntry, kListEntry, .count_at = offsetof(VsieBeaconTxList, uiCount),
              .bound = bx::Bound::Count, .surplus_skipped = true, .past_bound = "NULL == cur\n\n");
constexpr bx::FieldDef kListReceivedSource[] = {
    kListSentSource[0],
    BX_LIST(VsieBeaconTxList, astEntry, "list", kEntriesRead, nullptr),
};
BX_PACKED(kListReceived);

constexpr bx::FieldDef kSwitchFieldsSource[] = {
    BX_U32(VsieBeaconTxSwitch, uiIdx, "idx", "Idx:%u"),
    /* No range check: an unknown word stores -1. */
    BX_WORD(VsieBeaconTxSwitch, uiEnable, EnumSwitch, "enable", "Enable:%d"),
};
BX_PACKED(kSwitchFields);

/* The keys the list's converter reads, in the message and in each element. */
enum { BTX_IDX, BTX_SERVICENAME, BTX_SSIDIDX, BTX_DURATION, BTX_LEN, BTX_IEDATA, BTX_LIST, BTX_COUNT, BTX_MAX };

constexpr blobmsg_policy kListPolicy[BTX_MAX] = {
    /* BTX_IDX */         {"idx", BLOBMSG_TYPE_INT32},
    /* BTX_SERVICENAME */ {"servicename", BLOBMSG_TYPE_STRING},
    /* BTX_SSIDIDX */     {"ssididx", BLOBMSG_TYPE_INT32},
    /* BTX_DURATION */    {"duration", BLOBMSG_TYPE_INT32},
    /* BTX_LEN */         {"len", BLOBMSG_TYPE_INT32},
    /* BTX_IEDATA */      {"iedata", BLOBMSG_TYPE_ARRAY},
    /* BTX_LIST */        {"list", BLOBMSG_TYPE_ARRAY},
    /* BTX_COUNT */       {"count", BLOBMSG_TYPE_INT32},
};

/* The scalar members of a list entry, each traced with the entry's place. */
void read_list_scalars(const bx::vsie::Slots &s, VsieBeaconTxEntry &entry)
{
    bx::vsie::number_at(s, BTX_IDX, entry.uiIdx, "Idx");
    bx::vsie::text_at(s, BTX_SERVICENAME, entry.szServiceName, "Servicename");
    bx::vsie::number_at(s, BTX_SSIDIDX, entry.uiSsidIdx, "Ssididx");
    bx::vsie::number_at(s, BTX_DURATION, entry.uiDuration, "Duration");
    bx::vsie::number_at(s, BTX_LEN, entry.uiLen, "Len");
}

/* Stores the numbers of an "iedata" array, one per slot, until the entry
 * holds uiLen of them (elements of any type read as numbers). uiLen comes
 * from the sender: the slots end the walk as well, since the numbers past
 * them would land outside the entry. */
void read_iedata(const char *func, blob_attr *iedata, VsieBeaconTxEntry &entry, uint32_t n)
{
    const uint32_t limit = at_most(entry.uiLen, VSIE_IEDATA_MAX);
    bx::Elems elems(iedata);
    blob_attr *cur;
    for (uint32_t k = 0; k < limit && (cur = elems.next()) != nullptr; ++k) {
        entry.auiIeData[k] = bx::get_u32(cur);
        BX_TRACE_AS(func, "Iedata%u:%c\n", n, static_cast<int>(entry.auiIeData[k]));
    }
}

} // namespace

extern "C" {

/* ---- Type 140 ---- */

BX_CONVERTERS(STJ_Vsie_Info, JTS_Vsie_Info, kInfoFields)

/* ---- Type 141 ---- */

BX_CONVERTERS(STJ_Vsie_Beacontx_Add, JTS_Vsie_Beacontx_Add, kAddFields)

/* ---- Types 142, 146 and 151 ---- */

BX_CONVERTERS(STJ_Vsie_Beacontx_Idx, JTS_Vsie_Beacontx_Idx, bx::vsie::kIndexFields)

/* The probe index messages send the same one member. */
BX_API int STJ_Vsie_Proberx_Idx(const void *pvRecord, struct blob_buf *pstBuf)
    __attribute__((alias("STJ_Vsie_Beacontx_Idx")));
BX_API int STJ_Vsie_Proberesp_Idx(const void *pvRecord, struct blob_buf *pstBuf)
    __attribute__((alias("STJ_Vsie_Beacontx_Idx")));

/* ---- Type 143 ---- */

BX_SENT_ROW(STJ_Vsie_Beacontx_List, kListSent, ::bx::kNoMask)

BX_DESCRIBED(JTS_Vsie_Beacontx_List, kListReceived, kListPolicy, BTX_MAX, ::bx::kNoMask,
             "entries are read only while the message itself has an \"iedata\" array (any content), "
             "and entry traces carry the entry's index")

/* Hand-written: the outer message's "iedata" decides whether the walk goes on, and entry traces carry the index. */
BX_API int JTS_Vsie_Beacontx_List(struct blob_attr *pstMsg, void *pvRecord)
{
    const auto &policy = kListPolicy;
    if (pstMsg == nullptr || pvRecord == nullptr)
        return bx::refuse_null(pvRecord, BX_DESCRIPTION(JTS_Vsie_Beacontx_List));
    auto *rec = static_cast<VsieBeaconTxList *>(pvRecord);
    blob_attr *tb[BTX_MAX];
    bx::parse(policy, tb, pstMsg);
    /* Without "count" the caller's uiCount bounds the list. */
    if (bx::present(policy, tb, BTX_COUNT)) {
        rec->uiCount = bx::get_u32(tb[BTX_COUNT]);
        BX_TRACE("Count:%u\n", rec->uiCount);
    }
    if (!bx::present(policy, tb, BTX_LIST))
        return 0;
    uint32_t n = 0;
    bx::Elems elems(tb[BTX_LIST]);
    for (blob_attr *cur; (cur = elems.next()) != nullptr;) {
        /* Elements beyond the count are skipped one by one, each traced,
         * and the walk goes on. The count comes from the sender: the
         * record's entries bound it too. */
        if (n >= rec->uiCount || n >= VSIE_BEACONTX_LIST_MAX) {
            BX_TRACE("NULL == cur\n\n");
            continue;
        }
        VsieBeaconTxEntry &entry = rec->astEntry[n];
        blob_attr *el[BTX_MAX];
        bx::parse_span(policy, el, cur, bx::end_of(pstMsg));
        read_list_scalars(bx::vsie::entry_slots(__func__, policy, el, n), entry);
        /* Quirk: the test is of the whole message's "iedata", not the
         * element's. Without one the walk ends here with this entry's
         * scalars stored and n not advanced; senders that want the list
         * read put an "iedata" array (of any content) at the top level. */
        if (!bx::present(policy, tb, BTX_IEDATA)) {
            BX_TRACE("No IEDATA\n");
            break;
        }
        if (bx::present(policy, el, BTX_IEDATA))
            read_iedata(__func__, el[BTX_IEDATA], entry, n);
        ++n;
    }
    return 0;
}

/* ---- Type 144 ---- */

BX_CONVERTERS(STJ_Vsie_Beacontx_Set, JTS_Vsie_Beacontx_Set, kSwitchFields)

} // extern "C"
