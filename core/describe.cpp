/* The description API: each converter's table, read row by row into the
 * public structs. The rows stay internal; a handle to a table is the list
 * it is an entry of (a message's table is the one entry of its record). */
#include <cstdio>
#include <cstring>
#include <mutex>

#include "blobxlate.h"
#include "core/catalogue.h"
#include "core/codec.h"
#include "core/describe.h"
#include "core/tables.h"

/* Every converter the catalogue names has a description of the same name. */
#define BX_ROW(position, name, converter) Converter converter();
#define BX_NO_ROW
#define BX_LINE(type, sent, received, to_json, to_struct) to_json to_struct
namespace bx::described {
BX_CATALOGUE(BX_LINE)
} // namespace bx::described
#undef BX_LINE
#undef BX_NO_ROW
#undef BX_ROW

namespace bx {

namespace {

const BlobxlateFields *handle(const ListOf *list)
{
    return static_cast<const BlobxlateFields *>(static_cast<const void *>(list));
}

int presence(const Field &f)
{
    if (!f.tested)
        return BLOBXLATE_PARSED_ONLY;
    if (!f.stored)
        return f.sent ? BLOBXLATE_TESTED_ONLY : BLOBXLATE_LISTED_ONLY;
    if (f.required)
        return BLOBXLATE_REQUIRED;
    return f.refusal() != nullptr ? BLOBXLATE_REPORTED : BLOBXLATE_OPTIONAL;
}

const char *scalar_ctype(Wire wire)
{
    switch (wire) {
    case Wire::U32:
    case Wire::Word:
        return "uint32_t";
    case Wire::S32:
        return "int32_t";
    case Wire::U64:
        return "uint64_t";
    case Wire::U8:
        return "uint8_t";
    case Wire::Text:
    case Wire::List:
        break;
    }
    return "";
}

/* The C type of a text or number member as its row converts it. */
void value_ctype(const Field &f, char (&out)[16])
{
    if (f.wire == Wire::Text)
        std::snprintf(out, sizeof out, "char[%u]", static_cast<unsigned>(f.size));
    else
        std::snprintf(out, sizeof out, "%s", scalar_ctype(f.wire));
}

/* The C type of a member: a list's is its entry's, times its capacity. */
void ctype_of(const Field &f, char (&out)[24])
{
    char entry[16] = "struct";
    if (f.wire != Wire::List) {
        value_ctype(f, entry);
        std::snprintf(out, sizeof out, "%s", entry);
        return;
    }
    if (f.list == nullptr) {  /* packed element bytes read and sent by a quirk */
        std::snprintf(out, sizeof out, "uint8_t[%u]", static_cast<unsigned>(f.size));
        return;
    }
    const ListOf &l = *f.list;
    if (!l.tables)
        value_ctype(l.entry()[0], entry);
    if (l.capacity == 0)
        std::snprintf(out, sizeof out, "%s *", entry);
    else
        std::snprintf(out, sizeof out, "%s[%u]", entry, static_cast<unsigned>(l.capacity));
}

BlobxlateList list_of(const ListOf &l)
{
    return BlobxlateList{handle(&l), l.tables ? 1 : 0, l.capacity, l.stride, l.count_at, static_cast<int>(l.bound),
                         l.fills_count ? 1 : 0, l.any_type ? 1 : 0, l.surplus_skipped ? 1 : 0,
                         l.to_first_empty ? 1 : 0};
}

void describe_field(const Field &f, BlobxlateField &out)
{
    out = BlobxlateField{};
    out.pcKey = f.key();
    out.iBlobType = wire_type(f.wire);
    out.pcMember = f.member();
    out.uiOffset = f.offset;
    out.uiSize = f.list != nullptr ? static_cast<uint32_t>(f.list->stride) * f.list->capacity : f.size;
    ctype_of(f, out.szCType);
    out.iPresence = presence(f);
    out.iRefusedRet = f.refused_ret;
    out.pcRefusal = f.refusal();
    out.iSent = f.sent ? 1 : 0;
    out.iWholeText = f.whole ? 1 : 0;
    out.uiMaskBit = f.mask_bit;
    out.uiSentIf = f.sent_if;
    out.iRangeCheck = static_cast<int>(f.check);
    out.uiLowest = f.lowest;
    out.uiHighest = f.highest;
    out.pcOutOfRange = f.out_of_range();
    out.iEnumKind = f.word_list;
    out.iIsList = f.list != nullptr ? 1 : 0;
    if (f.list != nullptr)
        out.stList = list_of(*f.list);
    out.pcNote = f.quirk != nullptr ? f.quirk->note : nullptr;
}

} // namespace

/* A switch rather than a table of pointers: the code reaches each
 * description without a relocated copy of the catalogue. */
#define BX_ROW(position, name, converter) described::converter()
#define BX_NO_ROW Converter{}
#define BX_LINE(type, sent, received, to_json, to_struct) \
    case type:                                           \
        return direction == BLOBXLATE_TO_JSON ? to_json : to_struct;
namespace {
Converter described_of(int direction, int type)
{
    switch (type) {
        BX_CATALOGUE(BX_LINE)
    default:
        return Converter{};
    }
}
} // namespace
#undef BX_LINE
#undef BX_NO_ROW
#undef BX_ROW

/* The policies of table converters, built from their rows when first asked
 * for: the library stores none (its parse reads the rows). Each is built
 * once, under a lock, and never changes after. */
constexpr size_t kPolicyRoom = 2048;

const blobmsg_policy *built_policy(int type, const Converter &c)
{
    static std::mutex lock;
    static blobmsg_policy entries[kPolicyRoom];
    static size_t used;
    static uint16_t start[kLastMessageType + 1];  /* start + 1; 0: not built yet */
    if (type < kFirstMessageType || type > kLastMessageType)
        return nullptr;
    const std::lock_guard<std::mutex> hold(lock);
    if (start[type] == 0) {
        if (used + c.policy_count > kPolicyRoom)
            return nullptr;
        for (size_t i = 0; i < c.policy_count; ++i)
            entries[used + i] = blobmsg_policy{c.fields->row(i).key(), wire_type(c.fields->row(i).wire)};
        start[type] = static_cast<uint16_t>(used + 1);
        used += c.policy_count;
    }
    return &entries[start[type] - 1];
}

Converter converter_of(int direction, int type)
{
    if (direction != BLOBXLATE_TO_JSON && direction != BLOBXLATE_TO_STRUCT)
        return Converter{};
    return described_of(direction, type);
}

const ListOf *table_of(const BlobxlateFields *fields)
{
    return static_cast<const ListOf *>(static_cast<const void *>(fields));
}

} // namespace bx

extern "C" {

BX_API int BLOBXLATE_Describe(int iDirection, int iType, BlobxlateMessage *pstOut)
{
    const bx::Converter c = bx::converter_of(iDirection, iType);
    const MessageTransEntry *row = BLOBXLATE_FindRow(iDirection, iType);
    if (c.fields == nullptr || row == nullptr || pstOut == nullptr)
        return -1;
    *pstOut = BlobxlateMessage{iType, iDirection, row->name, bx::handle(c.fields), c.mask_at, c.note};
    return 0;
}

BX_API int BLOBXLATE_FieldCount(const BlobxlateFields *pstFields)
{
    return pstFields != nullptr ? bx::table_of(pstFields)->fields : 0;
}

BX_API int BLOBXLATE_Field(const BlobxlateFields *pstFields, int iIndex, BlobxlateField *pstOut)
{
    if (pstFields == nullptr || pstOut == nullptr || iIndex < 0 || iIndex >= BLOBXLATE_FieldCount(pstFields))
        return -1;
    bx::describe_field(bx::table_of(pstFields)->row(static_cast<size_t>(iIndex)), *pstOut);
    return 0;
}

BX_API const struct blobmsg_policy *BLOBXLATE_Policy(int iType, int *piCount)
{
    const bx::Converter c = bx::converter_of(BLOBXLATE_TO_STRUCT, iType);
    const blobmsg_policy *policy = c.fields == nullptr || c.policy_count == 0 ? nullptr
                                 : c.policy != nullptr                        ? c.policy
                                                                              : bx::built_policy(iType, c);
    if (piCount != nullptr)
        *piCount = policy != nullptr ? c.policy_count : 0;
    return policy;
}

} // extern "C"
