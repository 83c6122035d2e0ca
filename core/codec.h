/* Building blocks shared by the message converters.
 *
 * A converter reads like the description of its message: an enum of policy
 * slots, the policy array they index, and either a field table (for the
 * regular messages, handled by stj_fields/jts_fields) or a short function
 * that walks the slots in order and says where the message is irregular.
 *
 * Everything here reads only inside the message it is given: attributes
 * found by blobmsg_parse have been validated against the message, and the
 * readers below re-check the rest (list elements, untyped slots) before they
 * look into a value. */
#ifndef BLOBXLATE_CORE_CODEC_H
#define BLOBXLATE_CORE_CODEC_H

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "blobxlate.h"
#include "core/trace.h"

namespace bx {

/* ---- Parsing ------------------------------------------------------------ */

/* Parses the members of msg (its raw blob payload: converters get the
 * message table itself) against policy into tb, one slot per policy entry. */
template <size_t N>
inline int parse(const blobmsg_policy (&policy)[N], blob_attr *(&tb)[N], blob_attr *msg)
{
    for (blob_attr *&slot : tb)  /* blobmsg_parse clears them too; this says so to the reader */
        slot = nullptr;
    return blobmsg_parse(policy, static_cast<int>(N), tb, blob_data(msg), blob_len(msg));
}

/* Parses a list element (a table inside an array) by its value. */
template <size_t N>
inline int parse_elem(const blobmsg_policy (&policy)[N], blob_attr *(&tb)[N], blob_attr *elem)
{
    for (blob_attr *&slot : tb)
        slot = nullptr;
    return blobmsg_parse(policy, static_cast<int>(N), tb, blobmsg_data(elem), blobmsg_data_len(elem));
}

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
inline int get_word(int kind, blob_attr *attr) { return PARATRANS_String_To_Int(kind, get_text(attr)); }

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

/* Calls fn(elem) for each element of an ARRAY or TABLE attribute, in order,
 * the way blobmsg_for_each_attr walks it; fn returns false to stop. An
 * element that is not a well-formed attribute inside the list (bad name
 * header, wrong value size) ends the walk, so no element ever points outside
 * the message. Returns the number of elements visited. */
template <typename Fn>
inline unsigned for_each_elem(blob_attr *list, Fn fn)
{
    if (list == nullptr)
        return 0;
    unsigned visited = 0;
    blob_attr *cur;
    size_t rem;
    blobmsg_for_each_attr(cur, list, rem) {
        if (!blobmsg_check_attr_len(cur, false, rem))
            break;
        ++visited;
        if (!fn(cur))
            break;
    }
    return visited;
}

/* ---- Writing values -------------------------------------------------------- */

inline int add_word(blob_buf *buf, const char *key, int kind, uint32_t value)
{
    return blobmsg_add_string(buf, key, PARATRANS_Int_To_String(kind, static_cast<int>(value)));
}

/* A text array of the record as a STRING member (a null key adds an array
 * element), never read past the array. */
template <size_t N>
inline int add_text(blob_buf *buf, const char *key, const char (&text)[N])
{
    return blobmsg_add_string(buf, key, shown(text).text);
}

/* ---- Traces whose format comes from a table --------------------------------- */

/* Traces `fmt` and a line end with one value, passing the value with the
 * width that the format's conversion asks for (%s, %d/%u, %ld/%lu,
 * %lld/%llu, %p). Table trace texts therefore carry no line end. */
void trace_value(const char *func, int line, const char *fmt, const char *text, uint64_t number);

/* ---- Field tables for the regular messages ------------------------------------ */

enum class Kind : uint8_t {
    Text,  /* char[size], STRING, copied with bound size-1 */
    U32,   /* uint32_t, INT32 */
    S32,   /* int32_t, INT32 (emitted with blobmsg_add_u32 like any number) */
    U64,   /* uint64_t, INT64 */
    Word,  /* uint32_t enumeration number, STRING word of `kind` */
};

struct Field {
    const char *key;
    Kind how;
    uint16_t offset;
    uint16_t size;
    int8_t kind;        /* enumeration kind of a Word */
    const char *trace;  /* trace after storing (no line end), or nullptr */
};

#define BX_FIELD_SIZE(Rec, member) static_cast<uint16_t>(sizeof(static_cast<Rec *>(nullptr)->member))
#define BX_TEXT(Rec, member, key, trace) \
    ::bx::Field{key, ::bx::Kind::Text, static_cast<uint16_t>(offsetof(Rec, member)), BX_FIELD_SIZE(Rec, member), -1, trace}
#define BX_U32(Rec, member, key, trace) \
    ::bx::Field{key, ::bx::Kind::U32, static_cast<uint16_t>(offsetof(Rec, member)), 4, -1, trace}
#define BX_S32(Rec, member, key, trace) \
    ::bx::Field{key, ::bx::Kind::S32, static_cast<uint16_t>(offsetof(Rec, member)), 4, -1, trace}
#define BX_U64(Rec, member, key, trace) \
    ::bx::Field{key, ::bx::Kind::U64, static_cast<uint16_t>(offsetof(Rec, member)), 8, -1, trace}
#define BX_WORD(Rec, member, enumkind, key, trace) \
    ::bx::Field{key, ::bx::Kind::Word, static_cast<uint16_t>(offsetof(Rec, member)), 4, enumkind, trace}

/* The most fields one table may hold (the policy is built on the stack). */
constexpr size_t kMaxFields = 48;

/* Emits every field in table order. Returns -1 on a null argument, else 0. */
int stj_fields(const void *record, blob_buf *buf, const Field *fields, size_t count);
template <size_t N>
inline int stj_fields(const void *record, blob_buf *buf, const Field (&fields)[N])
{
    static_assert(N <= kMaxFields, "field table too long");
    return stj_fields(record, buf, fields, N);
}

/* Parses the message against the table's keys and stores every present
 * field in table order, tracing each absent key (JTS_CheckBlobAttr) and each
 * stored value (the field's trace, on behalf of `func`). Every key is
 * optional. Returns -1 on a null argument, else 0. */
int jts_fields(const char *func, blob_attr *msg, void *record, const Field *fields, size_t count);
template <size_t N>
inline int jts_fields(const char *func, blob_attr *msg, void *record, const Field (&fields)[N])
{
    static_assert(N <= kMaxFields, "field table too long");
    return jts_fields(func, msg, record, fields, N);
}

/* Stores every present field of a table whose attributes were parsed into
 * tb (tb[i] belongs to fields[i]); an absent one is traced by
 * JTS_CheckBlobAttr and left as the caller set it. */
/* Stores one present attribute as field f of the record and traces it. */
void store_field(const char *func, const Field &f, blob_attr *attr, void *record);

inline void store_present(const char *func, const Field *fields, size_t count, blob_attr *const *tb, void *record)
{
    for (size_t i = 0; i < count; ++i) {
        if (JTS_CheckBlobAttr(fields[i].key, tb[i]))
            store_field(func, fields[i], tb[i], record);
    }
}
/* Emits field f of the record. */
void emit_field(const Field &f, const void *record, blob_buf *buf);

/* ---- Lists of field-table records held in a fixed array ------------------- */

/* Emits `count` entries (never more than the array holds) as a named array
 * of unnamed tables, each with the entry's fields in table order. */
void stj_list(blob_buf *buf, const char *key, const void *first, size_t stride, uint32_t count, size_t capacity,
              const Field *fields, size_t nfields);
template <typename Entry, size_t Cap, size_t N>
inline void stj_list(blob_buf *buf, const char *key, const Entry (&entries)[Cap], uint32_t count,
                     const Field (&fields)[N])
{
    static_assert(N <= kMaxFields, "field table too long");
    stj_list(buf, key, entries, sizeof(Entry), count, Cap, fields, N);
}

/* Fills consecutive entries from the tables of a list attribute (every key
 * optional, traced as in jts_fields) and returns how many it filled. Stops at
 * the array's capacity; elements that are not tables are skipped. */
uint32_t jts_list(const char *func, blob_attr *list, void *first, size_t stride, size_t capacity,
                  const Field *fields, size_t nfields);
template <typename Entry, size_t Cap, size_t N>
inline uint32_t jts_list(const char *func, blob_attr *list, Entry (&entries)[Cap], const Field (&fields)[N])
{
    static_assert(N <= kMaxFields, "field table too long");
    return jts_list(func, list, entries, sizeof(Entry), Cap, fields, N);
}

/* A counted list: "count" then the entries under `key`. On the way in the
 * record's count becomes the number of entries filled, whatever "count"
 * said, so it can never exceed the array. */
template <typename Rec, typename Entry, size_t Cap, size_t N>
inline int stj_counted_list(const Rec *rec, blob_buf *buf, const char *key, const Entry (&list)[Cap],
                            const Field (&fields)[N])
{
    blobmsg_add_u32(buf, "count", rec->uiCount);
    stj_list(buf, key, list, rec->uiCount, fields);
    return 0;
}

template <typename Rec, typename Entry, size_t Cap, size_t N>
inline int jts_counted_list(const char *func, blob_attr *msg, Rec *rec, const char *key, Entry (&list)[Cap],
                            const Field (&fields)[N])
{
    enum { LIST_ENTRIES, LIST_MAX };
    const blobmsg_policy policy[LIST_MAX] = {
        /* LIST_ENTRIES */ {key, BLOBMSG_TYPE_ARRAY},
    };
    blob_attr *tb[LIST_MAX];
    parse(policy, tb, msg);
    if (!present(policy, tb, LIST_ENTRIES))
        return 0;
    rec->uiCount = jts_list(func, tb[LIST_ENTRIES], list, fields);
    BX_TRACE_AS(func, "count:%u\n", rec->uiCount);
    return 0;
}

/* Defines a message's two converters from one field table. */
#define BX_FIELD_CONVERTERS(stj_name, jts_name, table)                              \
    BX_API int stj_name(const void *pvRecord, struct blob_buf *pstBuf)               \
    {                                                                                \
        return ::bx::stj_fields(pvRecord, pstBuf, table);                           \
    }                                                                                \
    BX_API int jts_name(struct blob_attr *pstMsg, void *pvRecord)                    \
    {                                                                                \
        return ::bx::jts_fields(__func__, pstMsg, pvRecord, table);                 \
    }

/* Defines a counted list message's two converters: "count" and `key`
 * holding the tables of rec->member. */
#define BX_LIST_CONVERTERS(stj_name, jts_name, Rec, member, key, fields)                  \
    BX_API int stj_name(const void *pvRecord, struct blob_buf *pstBuf)                   \
    {                                                                                    \
        if (pvRecord == nullptr || pstBuf == nullptr)                                    \
            return -1;                                                                   \
        const auto *rec = static_cast<const Rec *>(pvRecord);                            \
        return ::bx::stj_counted_list(rec, pstBuf, key, rec->member, fields);            \
    }                                                                                    \
    BX_API int jts_name(struct blob_attr *pstMsg, void *pvRecord)                        \
    {                                                                                    \
        if (pstMsg == nullptr || pvRecord == nullptr)                                    \
            return -1;                                                                   \
        auto *rec = static_cast<Rec *>(pvRecord);                                        \
        return ::bx::jts_counted_list(__func__, pstMsg, rec, key, rec->member, fields);  \
    }

/* The blobmsg type a field travels as. */
constexpr enum blobmsg_type wire_type(Kind how)
{
    return how == Kind::U64 ? BLOBMSG_TYPE_INT64
         : (how == Kind::U32 || how == Kind::S32) ? BLOBMSG_TYPE_INT32
         : BLOBMSG_TYPE_STRING;
}

/* The key policy of a field table, built at compile time, in table order,
 * for converters that parse once and then walk the slots themselves. */
template <size_t N>
struct FieldPolicy {
    blobmsg_policy entries[N];
};

template <size_t N>
constexpr FieldPolicy<N> policy_of(const Field (&fields)[N])
{
    FieldPolicy<N> out{};
    for (size_t i = 0; i < N; ++i)
        out.entries[i] = blobmsg_policy{fields[i].key, wire_type(fields[i].how)};
    return out;
}

} // namespace bx

#endif
