/* The description API: each converter's table, read row by row into the
 * public structs. The rows stay internal; a handle to a table is the list
 * it is an entry of (a message's table is the one entry of its record). */
#include <cstdio>
#include <cstring>
#include <mutex>

#include "blobxlate.h"
#include "core/codec.h"
#include "core/describe.h"
#include "core/tables.h"

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
void ctype_of(const Field &f, const ListOf *list, char (&out)[24])
{
    char entry[16] = "struct";
    if (f.wire != Wire::List) {
        value_ctype(f, entry);
        std::snprintf(out, sizeof out, "%s", entry);
        return;
    }
    if (list == nullptr) {  /* packed element bytes read and sent by a quirk */
        std::snprintf(out, sizeof out, "uint8_t[%u]", static_cast<unsigned>(f.size));
        return;
    }
    const ListOf &l = *list;
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

void describe_field(const Field &f, const Link *links, BlobxlateField &out)
{
    const ListOf *list = f.list(links);
    const Quirk *quirk = f.quirk(links);
    out = BlobxlateField{};
    out.pcKey = f.key();
    out.iBlobType = wire_type(f.wire);
    out.pcMember = f.member();
    out.uiOffset = f.offset;
    out.uiSize = list != nullptr ? static_cast<uint32_t>(list->stride) * list->capacity : f.size;
    ctype_of(f, list, out.szCType);
    out.iPresence = presence(f);
    out.iRefusedRet = f.refused_ret();
    out.pcRefusal = f.refusal();
    out.iSent = f.sent ? 1 : 0;
    out.iWholeText = f.whole ? 1 : 0;
    out.uiMaskBit = f.mask_bit();
    out.uiSentIf = f.sent_if();
    out.iRangeCheck = static_cast<int>(f.check());
    out.uiLowest = f.lowest();
    out.uiHighest = f.highest();
    out.pcOutOfRange = f.out_of_range();
    out.iEnumKind = f.word_list;
    out.iIsList = list != nullptr ? 1 : 0;
    if (list != nullptr)
        out.stList = list_of(*list);
    out.pcNote = quirk != nullptr ? quirk->note : nullptr;
}

} // namespace

namespace {

/* The query a converter answers (see refuse_null): the library's own, so
 * that no caller can pass it; one question at a time. */
std::mutex query_lock;
Converter query;

/* A converter's table as the handle of its fields: the table's own list of
 * one entry, with the links its rows point through (which the table itself
 * cannot hold without being relocated). Made on the first question and
 * never changed after. */
ListOf tops[2][kLastMessageType + 1];

/* Table `table` as one direction sees it: only the rows of its way. */
ListOf toward(Way way, const Table &table, const Link *links)
{
    ListOf top{.entry_rows = table.rows(), .fields = 0, .tables = true, .way = way, .stride = 0, .capacity = 1,
               .index_at = table.index_at, .entry_links = links};
    const Way skipped = other_way(way);
    for (uint8_t i = 0; i < table.fields; ++i)
        top.fields = static_cast<uint8_t>(top.fields + (top.entry_rows[i].way != skipped ? 1 : 0));
    return top;
}

Converter described_of(int direction, int type)
{
    const MessageTransEntry *row = BLOBXLATE_FindRow(direction, type);
    if (row == nullptr || type < kFirstMessageType || type > kLastMessageType)
        return Converter{};
    const std::lock_guard<std::mutex> hold(query_lock);
    query = Converter{};
    if (direction == BLOBXLATE_TO_JSON)
        row->converter.toJson(&query, nullptr);
    else
        row->converter.toStruct(nullptr, &query);
    if (query.table == nullptr)
        return query;
    ListOf &top = tops[direction][type];
    if (top.entry_rows == nullptr)
        top = toward(direction == BLOBXLATE_TO_JSON ? Way::Sent : Way::Received, *query.table, query.links);
    query.fields = &top;
    if (direction == BLOBXLATE_TO_STRUCT && query.policy == nullptr && query.policy_count != 0)
        query.policy_count = top.fields;  /* the keys the parse looks for */
    return query;
}

} // namespace

bool asked(const void *record) { return record == &query; }

int answer(const Converter &c)
{
    query = c;
    return -1;
}

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
    const bx::ListOf &table = *bx::table_of(pstFields);
    bx::describe_field(table.row(static_cast<size_t>(iIndex)), table.entry_links, *pstOut);
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
