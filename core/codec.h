/* Building blocks shared by the message converters.
 *
 * A message is described by a table of Fields: each row says where a member
 * lives in the record, how it travels, and the rules the message keeps for
 * it (required, validity bit, range, keys only listed). A regular message
 * is its table and a BX_CONVERTERS line; an irregular one keeps a short
 * function that says where it departs from its table.
 *
 * Everything here reads only inside the message it is given: attributes
 * found by a parse (core/parse.h) have been validated against the message, and the
 * readers below re-check the rest (list elements, untyped slots) before they
 * look into a value. */
#ifndef BLOBXLATE_CORE_CODEC_H
#define BLOBXLATE_CORE_CODEC_H

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>

#include "blobxlate.h"
#include "core/parse.h"
#include "core/trace.h"

namespace bx {

struct Field;
struct ListOf;
struct Quirk;

/* What a row points at: its list's entries and its quirk. Rows keep an
 * index into their table's links (see Packed), not pointers, so that no
 * row is relocated when the library is loaded: the table's few links are. */
struct Link {
    const ListOf *list;
    const Quirk *quirk;
};

/* ---- Parsing ------------------------------------------------------------ */

/* Parses the members of msg (its raw blob payload: converters get the
 * message table itself) against policy into tb, one slot per policy entry,
 * as blobmsg_parse does (see core/parse.h). */
template <size_t N>
inline int parse(const blobmsg_policy (&policy)[N], blob_attr *(&tb)[N], blob_attr *msg)
{
    return parse_keys(policy, N, tb, blob_data(msg), blob_len(msg));  /* clears tb first */
}

/* Parses a list element (a table inside an array) by its value. */
template <size_t N>
inline int parse_elem(const blobmsg_policy (&policy)[N], blob_attr *(&tb)[N], blob_attr *elem)
{
    return parse_keys(policy, N, tb, blobmsg_data(elem), static_cast<unsigned>(blobmsg_data_len(elem)));
}

/* The same by a field table's rows and its key index, built at compile
 * time into the table (see Packed below). */
template <size_t N, size_t P, const auto &S>
struct Packed;
template <size_t N, size_t P, const auto &S>
inline int parse_elem(const Packed<N, P, S> &table, blob_attr *(&tb)[N], blob_attr *elem);

/* JTS_CheckBlobAttr for slot `slot`, with the policy's own key. */
template <size_t N>
inline bool present(const blobmsg_policy (&policy)[N], blob_attr *const (&tb)[N], size_t slot)
{
    return JTS_CheckBlobAttr(policy[slot].name, tb[slot]) != 0;
}

/* ---- Reading values ------------------------------------------------------ */

/* The value bytes of an attribute that may hold up to `want` bytes: readers
 * take what the attribute really has and treat the rest as zero, so an
 * element of the wrong type is read as a number without leaving the
 * message. */
uint32_t get_u32(const blob_attr *attr);
uint64_t get_u64(const blob_attr *attr);
inline int32_t get_s32(const blob_attr *attr) { return static_cast<int32_t>(get_u32(attr)); }

/* The attribute's text when its value is a terminated string, else "". */
char *get_text(blob_attr *attr);

/* strncpy of the attribute's text into dst, at most `bound` characters, no
 * terminator added at the bound: callers pass zeroed records and bound is
 * the array size minus one (or the whole size where a message says so). */
void copy_text(char *dst, size_t bound, blob_attr *attr);

/* The number of an enumeration word. */
inline int get_word(int word_list, blob_attr *attr) { return PARATRANS_String_To_Int(word_list, get_text(attr)); }

/* A count from a record or a message, held to the array it counts. */
constexpr uint32_t at_most(uint32_t count, size_t capacity)
{
    return count < capacity ? count : static_cast<uint32_t>(capacity);
}

/* A text array with a terminator after its last byte, for traces and
 * members: a text that fills its whole array has none of its own. */
template <size_t N>
struct Shown {
    char text[N + 1];
};
template <size_t N>
inline Shown<N> shown(const char (&field)[N])
{
    Shown<N> s{};
    std::memcpy(s.text, field, strnlen(field, N));
    return s;
}

/* ---- Walking lists -------------------------------------------------------- */

/* True when the element's name header lies inside the element, so that its
 * value can be found without leaving it. */
bool name_header_inside(const blob_attr *elem);

/* The one list walk: the elements of an ARRAY or TABLE attribute one at a
 * time, in order, the way blobmsg_for_each_attr walks them. The walk ends
 * at an element whose padded length is below an attribute header or beyond
 * what remains, and at an element whose name header would leave it. An
 * element whose value is malformed (a text without terminator, a number of
 * the wrong size) reads as nothing: it is skipped and the walk goes on.
 * Out of line, so that each walk is a call rather than a copy of the loop. */
class Elems {
public:
    explicit Elems(blob_attr *list) : list_(list) {}
    /* The next element; nullptr once the walk is over, and ever after. */
    blob_attr *next();

private:
    blob_attr *list_;          /* the list, until the first step */
    blob_attr *cur_ = nullptr; /* the element last handed out; nullptr once over */
    size_t rem_ = 0;           /* the list's bytes from cur_ on */
};

/* Calls fn(elem) for each element Elems hands out, until fn returns false
 * (the message's own bound, or the record's capacity). Returns the number
 * of elements handed to fn. */
template <typename Fn>
inline unsigned for_each_elem(blob_attr *list, Fn fn)
{
    unsigned visited = 0;
    Elems elems(list);
    for (blob_attr *elem = elems.next(); elem != nullptr; elem = elems.next()) {
        ++visited;
        if (!fn(elem))
            break;
    }
    return visited;
}

/* The end of a message's payload. */
inline const char *end_of(blob_attr *msg) { return static_cast<const char *>(blob_data(msg)) + blob_len(msg); }

/* Parses one list element the way these daemons always have: from the
 * element's value over its whole payload length, name header included, so
 * the span reaches as many bytes past the element as its name header holds:
 * into the next element or, past the last one, into whatever follows the
 * list in the message. The span is cut at the end of the message (msg_end,
 * see end_of) so that the parse never leaves it. */
void parse_span(const blobmsg_policy *policy, size_t count, blob_attr **tb, blob_attr *elem, const char *msg_end);
void parse_span(const ListOf &table, blob_attr **tb, blob_attr *elem, const char *msg_end);
template <size_t N>
inline void parse_span(const blobmsg_policy (&policy)[N], blob_attr *(&tb)[N], blob_attr *elem, const char *msg_end)
{
    parse_span(policy, N, tb, elem, msg_end);
}

/* ---- Writing values -------------------------------------------------------- */

inline int add_word(blob_buf *buf, const char *key, int word_list, uint32_t value)
{
    return blobmsg_add_string(buf, key, PARATRANS_Int_To_String(word_list, static_cast<int>(value)));
}

/* ---- Field tables ------------------------------------------------------------- */

/* The shape a field travels in. */
enum class Wire : uint8_t {
    Text,  /* char[size], STRING, copied with bound size-1 */
    U32,   /* uint32_t, INT32 */
    S32,   /* int32_t, INT32 (emitted with blobmsg_add_u32 like any number) */
    U64,   /* uint64_t, INT64 */
    Word,  /* uint32_t enumeration number, STRING word of the field's word list */
    U8,    /* uint8_t, INT32 (a byte of an element's data, stored as the number's low byte) */
    List,  /* entries of an array in the record, ARRAY (see ListOf) */
};

/* How the one value of a table trace text is passed to the print: fixed
 * when the table is compiled, from the text's conversion. */
enum class TraceArg : uint8_t { None, Text, Int, Long, LongLong, Pointer };

struct TraceShape {
    TraceArg arg;
    uint8_t at;  /* index of the conversion letter in the text */
};

void text_trace_with_flags();  /* never defined: stops the compile */
constexpr TraceShape trace_shape(const char *fmt)
{
    if (fmt == nullptr)
        return {TraceArg::None, 0};
    size_t i = 0;
    while (fmt[i] != 0 && !(fmt[i] == '%' && fmt[i + 1] != '%'))
        i += fmt[i] == '%' ? 2 : 1;
    if (fmt[i] == 0)
        return {TraceArg::None, 0};
    ++i;
    while (fmt[i] == '-' || fmt[i] == '+' || fmt[i] == ' ' || fmt[i] == '#' || fmt[i] == '.' ||
           (fmt[i] >= '0' && fmt[i] <= '9'))
        ++i;
    int longs = 0;
    for (; fmt[i] == 'l'; ++i)
        ++longs;
    const auto at = static_cast<uint8_t>(i);
    /* A text is printed with the length its array holds: a plain %s. */
    if (fmt[i] == 's' && fmt[i - 1] != '%')
        text_trace_with_flags();
    if (fmt[i] == 's')
        return {TraceArg::Text, at};
    if (fmt[i] == 'p')
        return {TraceArg::Pointer, at};
    return {longs >= 2 ? TraceArg::LongLong : longs == 1 ? TraceArg::Long : TraceArg::Int, at};
}

/* When a ranged value is tested. */
enum class Check : uint8_t {
    None,
    Before,  /* a value outside the range is refused and never stored */
    After,   /* stored and traced first, then refused: the record keeps it */
};

/* Whether a received member is read. */
enum class Use : uint8_t {
    Read,    /* tested, stored, traced and sent */
    Tested,  /* tested (a missing one is reported or refused), never read; still sent */
    Listed,  /* the same, never sent: only the message's key list has it */
    Parsed,  /* parsed into its slot, nothing more: the slots keep the order the daemons have always parsed */
};

/* The direction a row of a message's one table serves, where the sent and
 * the received forms differ. */
enum class Way : uint8_t {
    Both,
    Sent,      /* only sent: a receiver neither parses nor reads it */
    Received,  /* only received: never sent */
};

/* The direction whose rows a view toward `way` (Sent or Received) leaves out. */
constexpr Way other_way(Way way) { return way == Way::Sent ? Way::Received : Way::Sent; }

/* A number's accepted values and when they are tested. */
struct Range {
    Check when = Check::None;
    uint32_t lowest = 0;
    uint32_t highest = 0;
    const char *refusal = nullptr;  /* trace of a value outside lowest..highest (result -1), if any */
};

/* sent_if's default: the member's own validity bit. */
constexpr uint32_t kOwnBit = 0xFFFFFFFFu;

/* One member of a message as a table is written: designated columns whose
 * defaults say "optional, read, always sent, any value", so that a regular
 * member is its BX_* line alone and a rule is the column named after it,
 * written after the line's own arguments in this order:
 *     BX_U32(Rec, uiNum, "num", "Num:%d", .required = true, .absent = kNoNum)
 * This form exists only while compiling: BX_PACKED turns a table of them
 * into the rows the library keeps (Field, below). */
struct FieldDef {  /* NOLINT(clang-analyzer-optin.performance.Padding): never stored, its columns in writing order */
    /* What the member is. */
    const char *key = nullptr;
    Wire wire = Wire::U32;
    int8_t word_list = -1;  /* EnumKind of a Word, else -1 */
    uint16_t offset = 0;
    uint16_t size = 0;
    const char *trace = nullptr;   /* trace after storing (no line end), or nullptr */
    TraceShape shape{};            /* how trace's value is passed */
    const char *member = nullptr;  /* the record member's name, for the description */
    bool whole = false;            /* a text copied with its array's whole size: one that fills it keeps no terminator */
    const ListOf *list = nullptr;  /* a List's entries and how they are walked */
    /* Its presence. */
    bool required = false;         /* a message without it is refused (result `ret`) */
    const char *absent = nullptr;  /* traced when it is missing: the refusal, or a report that lets the message go on */
    int8_t ret = -1;
    uint32_t bit = 0;              /* validity bit set in the record's mask once stored */
    uint32_t sent_if = kOwnBit;    /* sent only while the mask has one of these (0: always) */
    /* Its direction, use, check, and where it departs from these columns. */
    Way way = Way::Both;
    Use use = Use::Read;
    Range range{};
    const Quirk *quirk = nullptr;
};

/* One member of a message as the library keeps it: FieldDef's columns, with
 * each text an offset from the row itself into its table's text pool, which
 * follows the rows (see Packed), and its list and quirk an index into the
 * table's links. A row holds no pointer, so the loader relocates nothing in
 * it and its pages stay shared between the processes that load the library. Rows live only inside their table: a
 * copy would lose its texts, so a row cannot be copied. */
/* The columns most rows leave at their defaults: a row that sets any of
 * them keeps them in its table's pool (see Field::rules_at). The texts are
 * offsets from the row, as in the row itself. */
struct Rules {
    uint32_t mask_bit = 0;
    uint32_t sent_if = 0;
    uint32_t lowest = 0;
    uint32_t highest = 0;
    uint16_t refusal_at = 0;
    uint16_t out_of_range_at = 0;
    Check check = Check::None;
    int8_t refused_ret = -1;
    uint8_t spare[2] = {};  /* no padding: the record is copied into the pool byte by byte */
};

struct Field {
    uint16_t key_at = 0;    /* each text: 0 when there is none */
    uint16_t trace_at = 0;
    uint16_t member_at = 0;
    uint16_t rules_at = 0;  /* the row's Rules in the pool, 0: every one at its default */
    uint16_t offset = 0;
    uint16_t size = 0;
    Wire wire = Wire::U32;
    int8_t word_list = -1;
    TraceShape shape{};
    bool sent : 1 = true;
    bool whole : 1 = false;
    bool tested : 1 = true;
    bool stored : 1 = true;
    bool required : 1 = false;
    Way way : 2 = Way::Both;
    uint8_t link = 0;  /* 1 + the index of the row's list and quirk among its table's links; 0: none */

    constexpr Field() = default;
    Field(const Field &) = delete;
    Field &operator=(const Field &) = delete;

    const char *key() const { return text_at(key_at); }
    const char *trace() const { return text_at(trace_at); }
    const char *member() const { return text_at(member_at); }
    Rules rules() const
    {
        Rules r;
        if (rules_at != 0)
            std::memcpy(&r, reinterpret_cast<const char *>(this) + rules_at, sizeof r);
        return r;
    }
    uint32_t mask_bit() const { return rules().mask_bit; }
    uint32_t sent_if() const { return rules().sent_if; }
    uint32_t lowest() const { return rules().lowest; }
    uint32_t highest() const { return rules().highest; }
    Check check() const { return rules().check; }
    int8_t refused_ret() const { return rules().refused_ret; }
    const char *refusal() const { return text_at(rules().refusal_at); }
    const char *out_of_range() const { return text_at(rules().out_of_range_at); }
    /* The row's list and quirk, from the links of the table it is in. */
    const ListOf *list(const Link *links) const;
    const Quirk *quirk(const Link *links) const;

private:
    const char *text_at(uint16_t at) const
    {
        return at == 0 ? nullptr : reinterpret_cast<const char *>(this) + at;
    }
};

/* Offsets and sizes of members are 16-bit columns: one that does not fit
 * stops the compile rather than wrap. */
void member_beyond_16_bits();  /* never defined: stops the compile */
consteval uint16_t fits16(size_t n)
{
    if (n > 0xFFFFu)
        member_beyond_16_bits();
    return static_cast<uint16_t>(n);
}
#define BX_FIELD_SIZE(Rec, member) ::bx::fits16(sizeof(static_cast<Rec *>(nullptr)->member))
#define BX_FIELD_AT(Rec, member) ::bx::fits16(offsetof(Rec, member))

/* The row of member m of record Rec, travelling as wire_ under key_, with
 * the trace trace_ once stored; more columns may follow. */
#define BX_MEMBER(Rec, m, wire_, words_, size_, key_, trace_, ...)                                         \
    ::bx::FieldDef{.key = key_, .wire = wire_, .word_list = words_, .offset = BX_FIELD_AT(Rec, m), .size = size_, \
                   .trace = trace_, .shape = ::bx::trace_shape(trace_), .member = #m, __VA_ARGS__}
#define BX_TEXT(Rec, m, key_, trace_, ...) \
    BX_MEMBER(Rec, m, ::bx::Wire::Text, -1, BX_FIELD_SIZE(Rec, m), key_, trace_, __VA_ARGS__)
#define BX_U32(Rec, m, key_, trace_, ...) BX_MEMBER(Rec, m, ::bx::Wire::U32, -1, 4, key_, trace_, __VA_ARGS__)
#define BX_S32(Rec, m, key_, trace_, ...) BX_MEMBER(Rec, m, ::bx::Wire::S32, -1, 4, key_, trace_, __VA_ARGS__)
#define BX_U64(Rec, m, key_, trace_, ...) BX_MEMBER(Rec, m, ::bx::Wire::U64, -1, 8, key_, trace_, __VA_ARGS__)
#define BX_WORD(Rec, m, words_, key_, trace_, ...) BX_MEMBER(Rec, m, ::bx::Wire::Word, words_, 4, key_, trace_, __VA_ARGS__)

/* A key the message parses that the record has no member for. */
#define BX_KEY(key_, wire_) ::bx::FieldDef{.key = key_, .wire = wire_, .use = ::bx::Use::Parsed}

/* The validity bits of the settings, in a mask whose high bits say other
 * things: the reported state of a configuration goes out whenever any
 * setting was asked about. */
constexpr uint32_t kAnyLowBit = 0xFFFFu;

/* ---- Lists held in a fixed array of the record ----------------------------- */

/* How far a received list may fill the record's array. */
enum class Bound : uint8_t {
    Capacity,    /* the array's capacity */
    Count,       /* also the count already stored in the record (the message's own) */
    CountAfter,  /* the same count, tested only after each store: one entry at least */
};

/* The entries of a List field: what an entry is, where the record counts
 * them, and how the walk of a received list ends. Elements are walked by
 * for_each_elem: a malformed one reads as nothing. */
struct ListOf {
    const Field *entry_rows;       /* an entry's fields (see entry()) */
    uint8_t fields;                /* rows in entry */
    bool tables : 1;               /* elements are tables; else bare values of entry[0] */
    Way way : 2 = Way::Both;       /* a message's table as one direction sees it (see ListOf::row) */
    uint16_t stride;               /* bytes between entries in the record */
    uint16_t capacity;             /* entries the record's array holds */
    int16_t count_at = -1;         /* byte offset of the record's u32 count of entries, -1: none */
    Bound bound : 2 = Bound::Capacity;
    bool fills_count : 1 = false;      /* the count becomes the number of entries filled */
    bool spans : 1 = false;            /* table elements parsed over their whole span (see parse_span) */
    bool to_first_empty : 1 = false;   /* sent up to the first empty entry (first field zero) */
    bool surplus_skipped : 1 = false;  /* an element past the bound is skipped and the walk goes on */
    bool any_type : 1 = false;         /* elements read as entries whatever their blobmsg type */
    uint16_t index_at = 0;             /* the entry's key index, as an offset from its first row (tables) */
    const char *past_bound = nullptr;  /* trace of an element past the bound, with the entries filled */
    const char *odd = nullptr;         /* trace of an element of another type (skipped) */
    const Link *entry_links = nullptr; /* the links of the entry's rows (see Link) */

    /* An entry's fields; a bare value has one, at offset 0, without key. */
    const Field *entry() const { return entry_rows; }

    /* Field i of the `fields` this list's direction sees. */
    const Field &row(size_t i) const;

};

/* A message's table as its converters hand it over: the head of a Packed
 * table, which its rows follow. One address says it all, so a converter is
 * a jump with its arguments (see BX_CONVERTERS). */
struct Table {
    uint16_t index_at;  /* the key index, as an offset from the first row */
    uint8_t fields;     /* rows */

    const Field *rows() const { return reinterpret_cast<const Field *>(this + 1); }
};

/* The most rows an entry table may have: a received entry's slots live on
 * the stack. */
constexpr size_t kMaxEntryFields = 24;
void entry_table_longer_than_kMaxEntryFields();  /* never defined: stops the compile */
consteval uint8_t entry_fields(size_t count)
{
    if (count > kMaxEntryFields)
        entry_table_longer_than_kMaxEntryFields();
    return static_cast<uint8_t>(count);
}

#define BX_ENTRIES(Rec, member) \
    ::bx::fits16(sizeof(static_cast<Rec *>(nullptr)->member) / sizeof(static_cast<Rec *>(nullptr)->member[0]))
#define BX_ENTRY_SIZE(Rec, member) ::bx::fits16(sizeof(static_cast<Rec *>(nullptr)->member[0]))

/* Rec::m as a list of tables, each entry read and sent by table Entry, or
 * of bare values, each entry the one field of Entry; ListOf's columns may
 * follow, in their order:
 *     BX_TABLES(Rec, astRule, kRule, .count_at = offsetof(Rec, uiCount), .bound = bx::Bound::Count) */
#define BX_TABLES(Rec, m, Entry, ...)                                                                          \
    ::bx::entries_of(Entry, ::bx::ListOf{.entry_rows = nullptr, .fields = ::bx::entry_fields((Entry).size()), .tables = true,         \
                                         .stride = BX_ENTRY_SIZE(Rec, m), .capacity = BX_ENTRIES(Rec, m), __VA_ARGS__})
#define BX_VALUES(Rec, m, Entry, ...)                                                                     \
    ::bx::entries_of(Entry, ::bx::ListOf{.entry_rows = nullptr, .fields = 1, .tables = false, .stride = BX_ENTRY_SIZE(Rec, m), \
                                         .capacity = BX_ENTRIES(Rec, m), __VA_ARGS__})

/* The entry of a list of bare texts of `size_` bytes, of numbers, or of
 * bytes. */
#define BX_ENTRY(wire_, size_, trace_, ...) \
    ::bx::FieldDef{.wire = wire_, .size = size_, .trace = trace_, .shape = ::bx::trace_shape(trace_), __VA_ARGS__}
#define BX_TEXT_ENTRY(size_, trace_, ...) BX_ENTRY(::bx::Wire::Text, ::bx::fits16(size_), trace_, __VA_ARGS__)
#define BX_U32_ENTRY(trace_, ...) BX_ENTRY(::bx::Wire::U32, 4, trace_, __VA_ARGS__)
#define BX_U8_ENTRY(trace_, ...) BX_ENTRY(::bx::Wire::U8, 1, trace_, __VA_ARGS__)

/* Rec::m sent and received as the list key_; trace_ (or nullptr) follows a
 * received list with the number of entries filled. The row's size stays 0:
 * the list's entries and capacity say how far it reaches. */
#define BX_LIST(Rec, m, key_, list_, trace_, ...) \
    BX_MEMBER(Rec, m, ::bx::Wire::List, -1, 0, key_, trace_, .list = &(list_), __VA_ARGS__)

/* The counted lists: "count" goes out as the record's uiCount and the
 * entries follow, as many as it says; a received list fills from its
 * first entry, uiCount becomes the number filled ("count:%u") and an
 * element past the array ends the walk with a trace. */
constexpr const char *kListFull = "list full, %u entries kept\n";
#define BX_COUNTED_TABLES(Rec, m, Entry) \
    BX_TABLES(Rec, m, Entry, .count_at = offsetof(Rec, uiCount), .fills_count = true, .past_bound = ::bx::kListFull)
#define BX_COUNT(Rec, ...) BX_U32(Rec, uiCount, "count", nullptr, __VA_ARGS__)
#define BX_COUNTED_LIST(Rec, member, key, list) BX_LIST(Rec, member, key, list, "count:%u")

/* ---- Packed tables ------------------------------------------------------------ */

constexpr size_t text_length(const char *text)
{
    size_t n = 0;
    while (text[n] != 0)
        ++n;
    return n;
}

/* A row whose Rules are not all at their defaults. */
/* The mask bits that make a row sent: its own bit unless it says others. */
constexpr uint32_t sent_if_of(const FieldDef &f) { return f.sent_if == kOwnBit ? f.bit : f.sent_if; }

constexpr bool has_rules(const FieldDef &f)
{
    return f.bit != 0 || sent_if_of(f) != 0 || f.range.lowest != 0 || f.range.highest != 0 || f.absent != nullptr ||
           f.range.refusal != nullptr || f.range.when != Check::None || f.ret != -1;
}

/* True when `text` ends `longer` (or is it): its bytes are already in a
 * pool that holds `longer`. */
constexpr bool ends(const char *longer, const char *text)
{
    const size_t n = text_length(text);
    const size_t m = text_length(longer);
    if (n > m)
        return false;
    for (size_t k = 0; k < n; ++k)
        if (longer[m - n + k] != text[k])
            return false;
    return true;
}

/* The texts of row f in the order its table's pool takes them. */
struct RowTexts {
    const char *texts[5];
};
constexpr RowTexts texts_of(const FieldDef &f) { return {{f.key, f.trace, f.member, f.absent, f.range.refusal}}; }

/* True when text `t` of row `row` ends a text of an earlier row or an
 * earlier text of the same row: the pool keeps it once (a member named
 * after its key, a trace text repeated from row to row). */
template <typename Source>
constexpr bool pooled_before(const Source &src, size_t row, size_t t)
{
    const char *text = texts_of(src[row]).texts[t];
    for (size_t i = 0; i <= row; ++i)
        for (size_t k = 0; k < (i < row ? 5u : t); ++k)
            if (const char *earlier = texts_of(src[i]).texts[k]; earlier != nullptr && ends(earlier, text))
                return true;
    return false;
}

/* The bytes a table's texts and rules take in its pool, terminators
 * included, each text once. */
template <typename Source>
constexpr size_t pool_bytes(const Source &src)
{
    size_t n = 0;
    for (size_t row = 0; row < std::size(src); ++row) {
        for (size_t t = 0; t < 5; ++t) {
            const char *text = texts_of(src[row]).texts[t];
            n += text != nullptr && !pooled_before(src, row, t) ? text_length(text) + 1 : 0;
        }
        n += has_rules(src[row]) ? sizeof(Rules) : 0;
    }
    return n > 0 ? n : 1;
}

/* A row's quirk, which must carry its note (see Quirk). */
consteval const Quirk *noted(const Quirk *quirk);

void table_beyond_16_bit_offsets();  /* never defined: stops the compile */

/* The distinct lists and quirks of a table's source rows, in row order. */
template <size_t N>
struct LinkSet {
    Link links[N > 0 ? N : 1] = {};
    size_t count = 0;

    /* Row f's link: 1 + the index of its pair, 0 for none. */
    constexpr uint8_t slot(const FieldDef &f) const
    {
        for (size_t k = 0; k < count; ++k)
            if (links[k].list == f.list && links[k].quirk == f.quirk)
                return static_cast<uint8_t>(k + 1);
        return 0;
    }
};

template <const auto &Source>
consteval auto collect_links()
{
    LinkSet<std::size(Source)> set{};
    for (const FieldDef &f : Source)
        if ((f.list != nullptr || f.quirk != nullptr) && set.slot(f) == 0)
            set.links[set.count++] = Link{f.list, f.quirk};
    return set;
}
template <const auto &Source>
inline constexpr auto kLinkSet = collect_links<Source>();

/* A table's links as stored: only the pairs its rows use. */
template <size_t L>
struct Links {
    Link links[L];
};
template <const auto &Source>
consteval Links<kLinkSet<Source>.count> stored_links()
{
    Links<kLinkSet<Source>.count> out{};
    for (size_t k = 0; k < kLinkSet<Source>.count; ++k)
        out.links[k] = kLinkSet<Source>.links[k];
    return out;
}
template <const auto &Source>
inline constexpr auto kLinks = stored_links<Source>();

/* A table as the library keeps it: its head, its rows, then the pool of
 * their texts and the key index. Built at compile time from the table's
 * source rows (FieldDef); only this object is stored. */
template <size_t N, size_t P, const auto &Source>
struct Packed {
    /* What a converter hands over: one address, no pointer stored. */
    Table head{};
    Field rows[N];
    char pool[P] = {};
    /* The rows' keys by bucket: a parse finds each attribute's slot without
     * a policy (see core/parse.h). */
    KeyIndex<N, buckets_for(N)> index{};

    consteval Packed()
    {
        static_assert(N <= 0xFFu, "a table has at most 255 rows");
        static_assert(offsetof(Packed, rows) == sizeof(Table), "the rows follow the head");
        size_t used = 0;
        for (size_t i = 0; i < N; ++i)
            pack_row(rows[i], Source[i], i, used);
        index = index_keys<N, buckets_for(N)>(Keys{this}, N);
        head = Table{index_offset(), static_cast<uint8_t>(N)};
    }

    /* Where the key index lies from the first row. */
    static constexpr uint16_t index_offset() { return static_cast<uint16_t>(offsetof(Packed, index) - offsetof(Packed, rows)); }

    /* True when a row has a list or a quirk. */
    static constexpr bool has_links() { return kLinkSet<Source>.count != 0; }

    /* The lists and quirks the rows point at (see Field::link), or nullptr
     * for a table without any. */
    static constexpr const Link *links()
    {
        if constexpr (!has_links())
            return nullptr;
        else
            return kLinks<Source>.links;
    }

    constexpr operator const Field *() const { return rows; }  /* NOLINT(google-explicit-constructor) */
    constexpr const Field *begin() const { return rows; }
    constexpr const Field *end() const { return rows + N; }
    static constexpr size_t size() { return N; }

    /* Row i's key as a constant, for the key index built at compile time. */
    constexpr const char *key_text(size_t i) const { return pool + (rows[i].key_at - (N - i) * sizeof(Field)); }

private:
    /* The table's keys while it is compiled, read from its pool. */
    struct Keys {
        const Packed *table;
        constexpr bool has(size_t i) const { return table->rows[i].key_at != 0 && table->rows[i].way != Way::Sent; }
        constexpr const char *name(size_t i) const { return table->key_text(i); }
    };

    /* A text's offset from row i: the pool follows the last row. A text
     * whose bytes the pool already holds (see pooled_before) is not added. */
    consteval uint16_t add_text(const char *text, size_t i, size_t &used)
    {
        if (text == nullptr)
            return 0;
        const size_t n = text_length(text) + 1;
        size_t found = 0;
        while (found + n <= used && !same_text(pool + found, text, n))
            ++found;
        if (found + n > used) {  /* not in the pool yet */
            found = used;
            for (size_t k = 0; k < n; ++k)
                pool[used++] = text[k];
        }
        const size_t at = (N - i) * sizeof(Field) + found;
        if (at > 0xFFFFu)
            table_beyond_16_bit_offsets();
        return static_cast<uint16_t>(at);
    }

    static constexpr bool same_text(const char *at, const char *text, size_t n)
    {
        for (size_t k = 0; k < n; ++k)
            if (at[k] != text[k])
                return false;
        return true;
    }

    struct RuleBytes {
        char bytes[sizeof(Rules)];
    };
    /* A row's Rules as they lie in memory, copied into the pool. */
    consteval uint16_t add_bytes(const RuleBytes &r, size_t i, size_t &used)
    {
        const size_t at = (N - i) * sizeof(Field) + used;
        if (at > 0xFFFFu)
            table_beyond_16_bit_offsets();
        for (char byte : r.bytes)
            pool[used++] = byte;
        return static_cast<uint16_t>(at);
    }

    consteval void pack_row(Field &row, const FieldDef &f, size_t i, size_t &used)
    {
        row.key_at = add_text(f.key, i, used);
        row.trace_at = add_text(f.trace, i, used);
        row.member_at = add_text(f.member, i, used);
        if (has_rules(f)) {
            Rules r{f.bit, sent_if_of(f), f.range.lowest, f.range.highest};
            r.refusal_at = add_text(f.absent, i, used);
            r.out_of_range_at = add_text(f.range.refusal, i, used);
            r.check = f.range.when;
            r.refused_ret = f.ret;
            row.rules_at = add_bytes(std::bit_cast<RuleBytes>(r), i, used);
        }
        row.wire = f.wire;
        row.word_list = f.word_list;
        row.offset = f.offset;
        row.size = f.size;
        row.shape = f.shape;
        row.sent = f.use == Use::Read || f.use == Use::Tested;
        row.whole = f.whole;
        row.tested = f.use != Use::Parsed;
        row.stored = f.use == Use::Read;
        row.required = f.required;
        row.way = f.way;
        row.link = kLinkSet<Source>.slot(f);
        (void)noted(f.quirk);  /* every quirk says why */
    }
};

template <const auto &Source>
inline constexpr Packed<std::size(Source), pool_bytes(Source), Source> kPacked{};

/* Defines table `name` from its source rows `name##Source`:
 *     constexpr bx::FieldDef kThingSource[] = {BX_U32(...), ...};
 *     BX_PACKED(kThing);
 */
#define BX_PACKED(name) constexpr const auto &name = ::bx::kPacked<name##Source>

/* List l (its shape as BX_TABLES or BX_VALUES writes it) with the entries
 * of table `entry`: their rows, key index and links. */
template <size_t N, size_t P, const auto &S>
constexpr ListOf entries_of(const Packed<N, P, S> &entry, ListOf l)
{
    l.entry_rows = entry.rows;
    l.index_at = l.tables ? Packed<N, P, S>::index_offset() : 0;
    l.entry_links = Packed<N, P, S>::links();
    return l;
}

/* Traces field f's `trace` and a line end with one value. */
void trace_field(const char *func, const Field &f, const char *text, size_t text_len, uint64_t number);

/* The blobmsg type a field travels as, by Wire: one load where a parse
 * compares every attribute's type with its slot's. */
inline constexpr enum blobmsg_type kWireTypes[] = {
    BLOBMSG_TYPE_STRING,  /* Text */
    BLOBMSG_TYPE_INT32,   /* U32 */
    BLOBMSG_TYPE_INT32,   /* S32 */
    BLOBMSG_TYPE_INT64,   /* U64 */
    BLOBMSG_TYPE_STRING,  /* Word */
    BLOBMSG_TYPE_INT32,   /* U8 */
    BLOBMSG_TYPE_ARRAY,   /* List */
};
static_assert(std::size(kWireTypes) == static_cast<size_t>(Wire::List) + 1, "a type for every Wire");
constexpr enum blobmsg_type wire_type(Wire wire) { return kWireTypes[static_cast<uint8_t>(wire)]; }

/* A table's rows as the keys of a parse: no policy is stored. */
struct RowKeys {
    const Field *rows;
    bool has(size_t i) const { return rows[i].key() != nullptr && rows[i].way != Way::Sent; }
    const char *name(size_t i) const { return rows[i].key(); }
    int type(size_t i) const { return wire_type(rows[i].wire); }
};

/* Parses an area by rows and the key index that lies index_at bytes from
 * the first one (a list's entry, or a message's table). */
int parse_rows(const Field *rows, size_t count, uint16_t index_at, blob_attr **tb, void *data, unsigned int len);
inline int parse_table(const ListOf &table, blob_attr **tb, void *data, unsigned int len)
{
    return parse_rows(table.entry(), table.fields, table.index_at, tb, data, len);
}

/* Parses a whole message by a table. */
template <size_t N, size_t P, const auto &S>
inline int parse_msg(const Packed<N, P, S> &table, blob_attr *(&tb)[N], blob_attr *msg)
{
    return parse_rows(table.rows, N, table.index_offset(), tb, blob_data(msg), blob_len(msg));
}

/* JTS_CheckBlobAttr for slot `slot`, with its row's key. */
template <size_t N, size_t P, const auto &S>
inline bool present(const Packed<N, P, S> &table, blob_attr *const (&tb)[N], size_t slot)
{
    return JTS_CheckBlobAttr(table.rows[slot].key(), tb[slot]) != 0;
}

template <size_t N, size_t P, const auto &S>
inline int parse_elem(const Packed<N, P, S> &table, blob_attr *(&tb)[N], blob_attr *elem)
{
    return parse_rows(table.rows, N, table.index_offset(), tb, blobmsg_data(elem), static_cast<unsigned>(blobmsg_data_len(elem)));
}

/* No record's mask (see jts_fields). */
constexpr int kNoMask = -1;

/* Emits every field in table order; a flagged one only while the record's
 * mask (at byte offset mask_at, kNoMask: none) has one of its bits. */
void emit_fields(const Field *fields, size_t count, const Link *links, const void *record, blob_buf *buf, int mask_at);

/* The end of reading a table: `refused` when a rule of a field refused the
 * message, and then the converter's result. */
struct Read {
    bool refused;
    int ret;
};

/* The slot is done with and reading goes on with the next one. */
inline constexpr Read kGoOn{false, 0};

/* What reading a slot knows besides the slot itself. */
struct Reading {
    const char *func;      /* whose name the traces carry */
    void *record;          /* the record (or list entry) being filled */
    uint32_t *mask;        /* its validity mask, or nullptr */
    const char *msg_end;   /* the end of the whole message: element spans stop there */
    blob_attr *const *tb;  /* the slots of the area, in table order */
    const Link *links;     /* the links of the area's table (see Link) */

    /* Row f's list and quirk. */
    const ListOf *list(const Field &f) const { return f.list(links); }
};

/* Where a member departs from the columns: a small function of its
 * family's, in place of the columns' reading (read) or sending (send). */
struct Quirk {
    Read (*read)(const Reading &r, const Field &f, blob_attr *attr);
    void (*send)(const Field &f, const Link *links, const void *record, blob_buf *buf);
    const char *note = nullptr;  /* one line: what it reads or sends that the row does not say */
};

inline const ListOf *Field::list(const Link *links) const { return link != 0 ? links[link - 1].list : nullptr; }
inline const Quirk *Field::quirk(const Link *links) const { return link != 0 ? links[link - 1].quirk : nullptr; }

void quirk_without_note();  /* never defined: stops the compile */
consteval const Quirk *noted(const Quirk *quirk)
{
    if (quirk != nullptr && quirk->note == nullptr)
        quirk_without_note();
    return quirk;
}

/* One slot by its field's columns: tests it (JTS_CheckBlobAttr), stores and
 * traces it, sets its mask bit; a refusal ends the message. */
Read read_slot(const Reading &r, const Field &f, blob_attr *attr);

/* The same, the value read as `wire` travels rather than as the row says. */
Read read_slot_as(const Reading &r, const Field &f, Wire wire, blob_attr *attr);

/* Only the slot's presence test and its report: a refusal when a required
 * one is missing. */
Read test_slot(const Reading &r, const Field &f, blob_attr *attr);

/* Every slot in table order (a quirk's own reading where the row has one),
 * stopping at the first refusal. */
Read read_fields(const Reading &r, const Field *fields, size_t count);
Read read_fields(const char *func, const Field *fields, size_t count, const Link *links, blob_attr *const *tb, void *record,
                 int mask_at);

/* Emits field f of the record. */
void emit_field(const Field &f, const Link *links, const void *record, blob_buf *buf);

/* Stores one present attribute as field f of the record and traces it. */
void store_field(const char *func, const Field &f, blob_attr *attr, void *record);
void store_as(const char *func, const Field &f, Wire wire, blob_attr *attr, void *record);

/* A text array of the record as a STRING member (a null key adds an array
 * element), never read past the array. */
int add_text(blob_buf *buf, const char *key, const char *text, size_t size);
template <size_t N>
inline int add_text(blob_buf *buf, const char *key, const char (&text)[N])
{
    return add_text(buf, key, text, N);
}

/* The struct-to-JSON converter of a table: -1 on a null argument, else 0;
 * without a record's mask and with the mask at byte offset mask_at. */
int stj_table(const void *record, blob_buf *buf, const Table &table, const Link *links);
int stj_table(const void *record, blob_buf *buf, const Table &table, const Link *links, int mask_at);
template <int MaskAt, size_t N, size_t P, const auto &S>
inline int stj_fields(const void *record, blob_buf *buf, const Packed<N, P, S> &table)
{
    if constexpr (MaskAt == kNoMask)
        return stj_table(record, buf, table.head, table.links());
    else
        return stj_table(record, buf, table.head, table.links(), MaskAt);
}

/* The most rows of a table that a JSON-to-struct converter reads: their
 * slots live on the stack of jts_table. */
constexpr size_t kMaxTableFields = 40;

/* The JSON-to-struct converter of a table: -1 on a null argument, the
 * refusal's result, else 0; func names the converter in traces. The
 * message and the record come first, where the converter received them:
 * a converter is a jump. */
int jts_table(blob_attr *msg, void *record, const Table &table, const char *func);  /* no links, no mask */
int jts_table(blob_attr *msg, void *record, const Table &table, const Link *links, const char *func);
int jts_table(blob_attr *msg, void *record, const Table &table, const Link *links, const char *func, int mask_at);
template <int MaskAt, size_t N, size_t P, const auto &S>
inline int jts_fields(const char *func, const Packed<N, P, S> &table, blob_attr *msg, void *record)
{
    static_assert(N <= kMaxTableFields, "a message's table has at most kMaxTableFields rows");
    if constexpr (MaskAt != kNoMask)
        return jts_table(msg, record, table.head, table.links(), func, MaskAt);
    else if constexpr (Packed<N, P, S>::has_links())
        return jts_table(msg, record, table.head, table.links(), func);
    else
        return jts_table(msg, record, table.head, func);
}

/* ---- What a converter reads or sends ---------------------------------------- */

/* Each converter is described by the table it runs on, for the description
 * API (core/describe.cpp): the table's head, the policy a JSON-to-struct
 * converter parses the message with, the record's mask, and, for a
 * hand-written converter, how it departs from the table. */
struct Converter {
    const Table *table;            /* nullptr: no converter */
    const Link *links;             /* its rows' links */
    const blobmsg_policy *policy;  /* a hand-written converter's own policy; nullptr: the table's keys */
    uint16_t policy_count;         /* 0 for a struct-to-JSON converter */
    int32_t mask_at;               /* byte offset of the record's mask, or kNoMask */
    const char *note;              /* how a hand-written converter departs from its table, or nullptr */
    const ListOf *fields;          /* described: the table as one direction sees it (see converter_of) */
};

/* A converter says what it is when asked, through its refusal of a null
 * argument: called with the library's query in place of its record (and a
 * null message or buffer), it fills the query and refuses as ever. No
 * caller can name the query, so to every caller a converter only refuses;
 * the description API asks each converter through its dispatch row, and
 * the library keeps no relocated list of descriptions. */
bool asked(const void *record);
int answer(const Converter &c);  /* fills the query; -1 */
inline int refuse_null(const void *record, const Converter &c) { return asked(record) ? answer(c) : -1; }

/* The description a hand-written converter answers with (see refuse_null):
 * its table, its own policy or nullptr, the policy's length, the record's
 * mask and how it departs from the table; built in code, so that nothing
 * in it is relocated. */
#define BX_DESCRIPTION(converter) bx_description_of_##converter()
#define BX_DESCRIBED(converter, table, policy, policy_count, mask_at, note) \
    constexpr ::bx::Converter BX_DESCRIPTION(converter)                   \
    {                                                                      \
        return ::bx::Converter{&(table).head, (table).links(), policy, policy_count, mask_at, note, nullptr}; \
    }

/* The record's mask: none, or at byte offset `at`. */
constexpr int mask_at() { return kNoMask; }
constexpr int mask_at(size_t at) { return static_cast<int>(at); }

/* Defines a message's two converters from its one table, with the byte
 * offset of the record's mask when it has one:
 *     BX_CONVERTERS(STJ_Ping, JTS_Ping, kPing, offsetof(PingRequest, uiCapaFlag))
 * Rows of one direction (.way) are skipped by the other. */
#define BX_CONVERTERS(stj_name, jts_name, table, ...)          \
    BX_SENT_ROW(stj_name, table, ::bx::mask_at(__VA_ARGS__)) \
    BX_RECEIVED_ROW(jts_name, table, ::bx::mask_at(__VA_ARGS__))

/* One direction of a message whose other converter says more than a table
 * does: the struct-to-JSON converter of a table (mask_at: the byte offset
 * of the record's mask, or kNoMask)... */
#define BX_SENT_ROW(stj_name, sent, mask_at)                                                \
    BX_API int stj_name(const void *pvRecord, struct blob_buf *pstBuf)                     \
    {                                                                                      \
        BX_TRACE_CALL();                                                                   \
        return ::bx::stj_fields<mask_at>(pvRecord, pstBuf, sent);                          \
    }

/* ... and the JSON-to-struct converter of a table. */
#define BX_RECEIVED_ROW(jts_name, received, mask_at)                                        \
    BX_API int jts_name(struct blob_attr *pstMsg, void *pvRecord)                          \
    {                                                                                      \
        BX_TRACE_CALL();                                                                   \
        return ::bx::jts_fields<mask_at>(__func__, received, pstMsg, pvRecord);            \
    }

} // namespace bx

#endif
