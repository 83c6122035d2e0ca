/* Vendor elements in beacons: the radio's limits for vendor elements, and
 * the elements that access points add to their beacons (add one, name one
 * by index, list all, switch one on or off).
 *
 * Beacon entries keep their element bytes one per 32-bit slot, as the radio
 * driver takes them; the bus carries one number per byte. */
#include <iterator>
#include <string_view>

#include "messages/vsie_common.h"

namespace {

using bx::at_most;

/* ---- Limits (type 140) ----------------------------------------------------- */

constexpr bx::Field kInfoFields[] = {
    BX_U32(VsieInfo, uiMaxBeaconTxEntry, "maxbeacontxentry", "MaxBeacontxEntry:%u"),
    BX_U32(VsieInfo, uiMaxBeaconTxConcurrent, "maxbeacontxconcurrent", "MaxBeacontxConCurrent:%u"),
    BX_U32(VsieInfo, uiMaxProbeRxEntry, "maxproberxentry", "MaxProberxEntry:%u"),
    BX_U32(VsieInfo, uiMaxProbeRespEntry, "maxproberespentry", "MaxProbeRespEntry:%u"),
};

/* ---- Beacon entries (types 141 to 144) -------------------------------------- */

/* The beacon messages share one policy; each converter looks only at the
 * keys it needs. The index and switch messages read theirs through field
 * tables, which find the same attributes. */
enum {
    BTX_IDX,
    BTX_SERVICENAME,
    BTX_SSIDIDX,
    BTX_DURATION,
    BTX_LEN,
    BTX_IEDATA,
    BTX_LIST,
    BTX_COUNT,
    BTX_ENABLE,
    BTX_MAX
};

constexpr blobmsg_policy kVsieBeacontxPolicy[BTX_MAX] = {
    /* BTX_IDX */         {"idx", BLOBMSG_TYPE_INT32},
    /* BTX_SERVICENAME */ {"servicename", BLOBMSG_TYPE_STRING},
    /* BTX_SSIDIDX */     {"ssididx", BLOBMSG_TYPE_INT32},
    /* BTX_DURATION */    {"duration", BLOBMSG_TYPE_INT32},
    /* BTX_LEN */         {"len", BLOBMSG_TYPE_INT32},
    /* BTX_IEDATA */      {"iedata", BLOBMSG_TYPE_ARRAY},
    /* BTX_LIST */        {"list", BLOBMSG_TYPE_ARRAY},
    /* BTX_COUNT */       {"count", BLOBMSG_TYPE_INT32},
    /* BTX_ENABLE */      {"enable", BLOBMSG_TYPE_STRING},
};

/* The scalar members of an entry, in the order they are sent; field i is
 * policy slot i. */
constexpr bx::Field kEntryFields[] = {
    BX_U32(VsieBeaconTxEntry, uiIdx, "idx", nullptr),
    BX_TEXT(VsieBeaconTxEntry, szServiceName, "servicename", "Servicename:%s"),
    BX_U32(VsieBeaconTxEntry, uiSsidIdx, "ssididx", "Ssididx:%u"),
    BX_U32(VsieBeaconTxEntry, uiDuration, "duration", "Duration:%u"),
    BX_U32(VsieBeaconTxEntry, uiLen, "len", "Len:%u"),
};

constexpr bool entry_fields_follow_policy()
{
    for (size_t i = 0; i < std::size(kEntryFields); ++i) {
        if (std::string_view(kEntryFields[i].key) != kVsieBeacontxPolicy[i].name)
            return false;
    }
    return true;
}
static_assert(entry_fields_follow_policy());

constexpr bx::Field kSwitchFields[] = {
    BX_U32(VsieBeaconTxSwitch, uiIdx, "idx", "Idx:%u"),
    /* No range check: an unknown word stores -1. */
    BX_WORD(VsieBeaconTxSwitch, uiEnable, EnumSwitch, "enable", "Enable:%d"),
};

/* The members of an entry from field `first` on, then its element bytes. */
void emit_entry(blob_buf *buf, const VsieBeaconTxEntry &entry, size_t first)
{
    for (size_t i = first; i < std::size(kEntryFields); ++i)
        bx::emit_field(kEntryFields[i], &entry, buf);
    bx::vsie::add_bytes(buf, "iedata", entry.auiIeData, at_most(entry.uiLen, VSIE_IEDATA_MAX));
}

/* Stores the numbers of an "iedata" array, one per slot, until the entry
 * holds uiLen of them. uiLen comes from the sender: the slots end the walk
 * as well, since the numbers past them would land outside the entry. */
template <typename Stored>
void store_iedata(VsieBeaconTxEntry &entry, blob_attr *iedata, Stored stored)
{
    bx::vsie::store_numbers(entry.auiIeData, at_most(entry.uiLen, VSIE_IEDATA_MAX), iedata, stored);
}

/* The scalar members of list entry n, each traced with n. */
void read_list_scalars(const char *func, blob_attr *const (&el)[BTX_MAX], VsieBeaconTxEntry &entry, uint32_t n)
{
    const auto &policy = kVsieBeacontxPolicy;
    if (bx::present(policy, el, BTX_IDX)) {
        entry.uiIdx = bx::get_u32(el[BTX_IDX]);
        BX_TRACE_AS(func, "Idx%u:%u\n", n, entry.uiIdx);
    }
    if (bx::present(policy, el, BTX_SERVICENAME)) {
        bx::copy_text(entry.szServiceName, sizeof entry.szServiceName - 1, el[BTX_SERVICENAME]);
        BX_TRACE_AS(func, "Servicename%u:%s\n", n, bx::shown(entry.szServiceName).text);
    }
    if (bx::present(policy, el, BTX_SSIDIDX)) {
        entry.uiSsidIdx = bx::get_u32(el[BTX_SSIDIDX]);
        BX_TRACE_AS(func, "Ssididx%u:%u\n", n, entry.uiSsidIdx);
    }
    if (bx::present(policy, el, BTX_DURATION)) {
        entry.uiDuration = bx::get_u32(el[BTX_DURATION]);
        BX_TRACE_AS(func, "Duration%u:%u\n", n, entry.uiDuration);
    }
    if (bx::present(policy, el, BTX_LEN)) {
        entry.uiLen = bx::get_u32(el[BTX_LEN]);
        BX_TRACE_AS(func, "Len%u:%u\n", n, entry.uiLen);
    }
}

} // namespace

extern "C" {

/* ---- Type 140 ---- */

BX_FIELD_CONVERTERS(STJ_Vsie_Info, JTS_Vsie_Info, kInfoFields)

/* ---- Type 141 ---- */

/* Hand-written: the element bytes go out as a list of uiLen numbers. */
BX_API int STJ_Vsie_Beacontx_Add(const void *pvRecord, struct blob_buf *pstBuf)
{
    if (pvRecord == nullptr || pstBuf == nullptr)
        return -1;
    /* An added entry has no index yet: "idx" is not sent. */
    emit_entry(pstBuf, *static_cast<const VsieBeaconTxEntry *>(pvRecord), BTX_SERVICENAME);
    return 0;
}

/* Hand-written: the element bytes are a list bounded by the "len" just read. */
BX_API int JTS_Vsie_Beacontx_Add(struct blob_attr *pstMsg, void *pvRecord)
{
    const auto &policy = kVsieBeacontxPolicy;
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *rec = static_cast<VsieBeaconTxEntry *>(pvRecord);
    blob_attr *tb[BTX_MAX];
    bx::parse(policy, tb, pstMsg);
    /* "idx" is not read. */
    for (size_t slot = BTX_SERVICENAME; slot <= BTX_LEN; ++slot) {
        if (bx::present(policy, tb, slot))
            bx::store_field(__func__, kEntryFields[slot], tb[slot], rec);
    }
    if (!bx::present(policy, tb, BTX_IEDATA)) {
        BX_TRACE("No IEDATA\n");
        return 0;
    }
    /* Bounded by the "len" just stored, or by the caller's uiLen when the
     * message had none. */
    const char *func = __func__;
    store_iedata(*rec, tb[BTX_IEDATA], [func](size_t, uint32_t value) {
        BX_TRACE_AS(func, "Iedata:%c\n", static_cast<int>(value));
    });
    return 0;
}

/* ---- Types 142, 146 and 151 ---- */

BX_FIELD_CONVERTERS(STJ_Vsie_Beacontx_Idx, JTS_Vsie_Beacontx_Idx, bx::vsie::kIndexFields)

/* The probe index messages send the same one member. */
BX_API int STJ_Vsie_Proberx_Idx(const void *pvRecord, struct blob_buf *pstBuf)
    __attribute__((alias("STJ_Vsie_Beacontx_Idx")));
BX_API int STJ_Vsie_Proberesp_Idx(const void *pvRecord, struct blob_buf *pstBuf)
    __attribute__((alias("STJ_Vsie_Beacontx_Idx")));

/* ---- Type 143 ---- */

/* Hand-written: a list of entries, each with its element bytes. */
BX_API int STJ_Vsie_Beacontx_List(const void *pvRecord, struct blob_buf *pstBuf)
{
    if (pvRecord == nullptr || pstBuf == nullptr)
        return -1;
    const auto *rec = static_cast<const VsieBeaconTxList *>(pvRecord);
    blobmsg_add_u32(pstBuf, "count", rec->uiCount);
    void *list = blobmsg_open_array(pstBuf, "list");
    for (size_t n = 0; n < at_most(rec->uiCount, VSIE_BEACONTX_LIST_MAX); ++n) {
        void *entry = blobmsg_open_table(pstBuf, nullptr);
        emit_entry(pstBuf, rec->astEntry[n], BTX_IDX);
        blob_nest_end(pstBuf, entry);
    }
    blob_nest_end(pstBuf, list);
    return 0;
}

/* Hand-written: each element is parsed over its whole span, and the outer message decides whether its bytes are read. */
BX_API int JTS_Vsie_Beacontx_List(struct blob_attr *pstMsg, void *pvRecord)
{
    const auto &policy = kVsieBeacontxPolicy;
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *rec = static_cast<VsieBeaconTxList *>(pvRecord);
    const char *func = __func__;
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
    bx::for_each_elem(tb[BTX_LIST], [&](blob_attr *cur) {
        /* Elements beyond the count are skipped one by one, each traced,
         * and the walk goes on. The count comes from the sender: the
         * record's entries bound it too. */
        if (n >= rec->uiCount || n >= VSIE_BEACONTX_LIST_MAX) {
            BX_TRACE_AS(func, "NULL == cur\n\n");
            return true;
        }
        VsieBeaconTxEntry &entry = rec->astEntry[n];
        blob_attr *el[BTX_MAX];
        bx::parse_span(policy, el, cur, bx::end_of(pstMsg));  // NOLINT(clang-analyzer-core.CallAndMessage): the analyzer loses the lambda's captured reference
        read_list_scalars(func, el, entry, n);
        /* Quirk: the test is of the whole message's "iedata", not the
         * element's. Without one the walk ends here with this entry's
         * scalars stored and n not advanced; senders that want the list
         * read put an "iedata" array (of any content) at the top level. */
        if (!bx::present(policy, tb, BTX_IEDATA)) {
            BX_TRACE_AS(func, "No IEDATA\n");
            return false;
        }
        if (bx::present(policy, el, BTX_IEDATA)) {
            store_iedata(entry, el[BTX_IEDATA], [func, n](size_t, uint32_t value) {
                BX_TRACE_AS(func, "Iedata%u:%c\n", n, static_cast<int>(value));
            });
        }
        ++n;
        return true;
    });
    return 0;
}

/* ---- Type 144 ---- */

BX_FIELD_CONVERTERS(STJ_Vsie_Beacontx_Set, JTS_Vsie_Beacontx_Set, kSwitchFields)

} // extern "C"
