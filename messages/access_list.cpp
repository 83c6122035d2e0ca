/* Access lists and deassociation: push a set of stations off one radio, and
 * add, delete and list the stations of the Wi-Fi access list (whether the
 * list admits or refuses them is decided outside these messages). */
#include <cstddef>

#include "blobxlate.h"
#include "core/codec.h"

namespace {

using bx::Field;

/* An element of another blobmsg type than the list's cannot be an entry:
 * it is traced and skipped without taking one. */
constexpr const char *kNotAnEntry = "NULL == cur\n\n";

/* ---- 54: deassociation ------------------------------------------------------ */

/* The MACs go out as bare texts, as many as "count" says (never past the
 * 32 slots); coming in they fill up to the 32 slots, whatever the count
 * says, and the count stays as given. */
constexpr bx::FieldDef kDeassocMacSource[] = {BX_TEXT_ENTRY(32, "mac:%s")};
BX_PACKED(kDeassocMac);
constexpr bx::ListOf kDeassocMacs = BX_VALUES(WifiDeassocRec, aszMac, kDeassocMac,
    .count_at = offsetof(WifiDeassocRec, uiCount), .odd = kNotAnEntry);

/* The count is required and, read as a signed number, not negative: a
 * negative one refuses the message before the MACs are read. */
constexpr const char *kBadCount = "[count] is not valid.";
constexpr bx::FieldDef kDeassocSource[] = {
    BX_U32(WifiDeassocRec, uiCount, "count", "count:%u", .required = true, .absent = kBadCount,
        .range = {bx::Check::Before, 0, 0x7FFFFFFFu, kBadCount}),
    BX_WORD(WifiDeassocRec, eRadio, EnumBand, "radio", "radio:%d"),
    BX_U32(WifiDeassocRec, uiTime, "time", "time:%u"),
    BX_LIST(WifiDeassocRec, aszMac, "macs", kDeassocMacs, nullptr),
};
BX_PACKED(kDeassoc);

/* ---- 64, 65, 66: the access list -------------------------------------------------- */

/* One station; also each element of a list. */
enum { AE_INDEX, AE_NAME, AE_MAC };
constexpr bx::FieldDef kAccessEntrySource[] = {
    /* AE_INDEX */ BX_U32(WifiAccessEntryRec, uiIndex, "index", "index:%u"),
    /* AE_NAME */  BX_TEXT(WifiAccessEntryRec, szName, "name", "name:%s"),
    /* AE_MAC */   BX_TEXT(WifiAccessEntryRec, szMac, "mac", "mac:%s"),
};
BX_PACKED(kAccessEntry);

/* Adding needs the name and the MAC; what was stored before a missing one
 * stays. */
constexpr bx::FieldDef kAccessAddSource[] = {
    kAccessEntrySource[AE_INDEX],
    BX_TEXT(WifiAccessEntryRec, szName, "name", "name:%s", .required = true),
    BX_TEXT(WifiAccessEntryRec, szMac, "mac", "mac:%s", .required = true),
};
BX_PACKED(kAccessAdd);

/* Deleting names the station by its index alone. */
constexpr bx::FieldDef kAccessIndexSource[] = {
    BX_U32(WifiAccessEntryRec, uiIndex, "index", "index:%u", .required = true),
};
BX_PACKED(kAccessIndex);

/* Sent: as many entries as the caller's count says. Received: the list is
 * not held to "count", every element fills the next entry up to the
 * record's capacity. */
constexpr bx::ListOf kAccessList =
    BX_TABLES(WifiAccessListRec, astList, kAccessEntry, .count_at = offsetof(WifiAccessListRec, uiCount),
        .odd = kNotAnEntry);
constexpr bx::FieldDef kAccessListMsgSource[] = {
    BX_U32(WifiAccessListRec, uiCount, "count", "count:%u"),
    BX_LIST(WifiAccessListRec, astList, "list", kAccessList, nullptr),
};
BX_PACKED(kAccessListMsg);

} // namespace

extern "C" {

/* ---- 54 ---- */

BX_CONVERTERS(STJ_WifiStaDeassociation, JTS_WifiStaDeassociation, kDeassoc)

/* ---- 64 ---- */

BX_SENT_ROW(STJ_WifiBlackWhite_Add, kAccessEntry, ::bx::kNoMask)
BX_RECEIVED_ROW(JTS_WifiBlackWhite_Add, kAccessAdd, ::bx::kNoMask)

/* ---- 65 ---- */

BX_CONVERTERS(STJ_WifiBlackWhite_Delete, JTS_WifiBlackWhite_Delete, kAccessIndex)

/* ---- 66 ---- */

BX_CONVERTERS(STJ_WifiBlackWhite_List, JTS_WifiBlackWhite_List, kAccessListMsg)

} // extern "C"
