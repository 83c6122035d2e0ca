/* Parsing a message area in one walk.
 *
 * blobmsg_parse compares every attribute with every key of the policy. The
 * converters know their keys when they are compiled: a KeyIndex chains the
 * slots of a policy by a bucket of their key (its length, first and last
 * byte), so that an attribute meets only the keys of its own bucket. The
 * outcome is blobmsg_parse's in every case:
 *  - the slots are cleared first; a null area or a length of 0 is -EINVAL;
 *  - the area is walked like __blob_for_each_attr, and every attribute is
 *    checked with blobmsg_check_attr_len against what remains of the area:
 *    a malformed one ends the parse with -1, the slots filled before it stay
 *    (the usual named string or number is vouched for inline, see
 *    plainly_valid, and the layer's check is called for the rest);
 *  - a plain (not extended) attribute is skipped;
 *  - an attribute fills every empty slot whose key is its name (same length,
 *    same bytes) and whose type is UNSPEC, its own, or CAST_INT64 for any
 *    integer: the first attribute of a name is kept, a policy that lists a
 *    key twice gets it in both slots;
 *  - blobmsg_parse keeps a key's length in a byte and then compares the
 *    whole key, so a key of 256 bytes or more never matches; a null key
 *    never does either.
 * Senders keep the table's order, so each attribute first tries the slot
 * after the last one filled, and meets its bucket only when that one does
 * not take it.
 *
 * Only libubox's headers are needed, so that the differential fuzz target
 * can build this against the bundled layer and the platform's side by side
 * (each in its own inline namespace, BX_PARSE_NS). */
#ifndef BLOBXLATE_CORE_PARSE_H
#define BLOBXLATE_CORE_PARSE_H

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <endian.h>
#include <string>

extern "C" {
#include <libubox/blobmsg.h>
}

#ifndef BX_PARSE_NS
#define BX_PARSE_NS one_pass
#endif

namespace bx {
inline namespace BX_PARSE_NS {

/* The most buckets an index has; a table's index has about two per key
 * (see buckets_for), a policy given at run time the most. */
constexpr size_t kKeyBuckets = 64;
/* The longest key that can match (see above). */
constexpr size_t kLongestKey = 255;
/* The most keys a policy given at run time is indexed for on the stack;
 * a longer one is left to blobmsg_parse itself. */
constexpr size_t kMaxRunTimeKeys = 64;

/* A key's bucket among `buckets` (a power of two). */
constexpr unsigned key_bucket(const char *name, size_t len, size_t buckets = kKeyBuckets)
{
    const unsigned first = len > 0 ? static_cast<unsigned char>(name[0]) : 0u;
    const unsigned last = len > 0 ? static_cast<unsigned char>(name[len - 1]) : 0u;
    return (static_cast<unsigned>(len) * 7u + first + last * 3u) & static_cast<unsigned>(buckets - 1);
}

/* The buckets of an index of `keys` keys: a power of two, about two per
 * key, from 8 to kKeyBuckets. */
constexpr size_t buckets_for(size_t keys)
{
    size_t b = 8;
    while (b < 2 * keys && b < kKeyBuckets)
        b *= 2;
    return b;
}

/* The slots of a policy by key bucket; slot numbers are stored plus one so
 * that 0 ends a chain. Each chain runs in slot order. `alone` marks a slot
 * whose key no other slot has: the attribute that fills it fills nothing
 * else. */
template <size_t N, size_t B = kKeyBuckets>
struct KeyIndex {
    static_assert(N < 255, "a key index numbers its slots in a byte");
    static_assert(B >= 1 && B <= kKeyBuckets && (B & (B - 1)) == 0, "a power of two of buckets");
    uint8_t head[B] = {};
    uint8_t next[N > 0 ? N : 1] = {};
    uint8_t len[N > 0 ? N : 1] = {};
    uint8_t alone[N > 0 ? N : 1] = {};
};

/* The keys of a parse, slot by slot: a policy's, or those of a table's rows
 * (any type with has(i), name(i) and type(i)). */
struct PolicyKeys {
    const blobmsg_policy *policy;
    constexpr bool has(size_t i) const { return policy[i].name != nullptr; }
    constexpr const char *name(size_t i) const { return policy[i].name; }
    constexpr int type(size_t i) const { return policy[i].type; }
};

constexpr bool same_key(const char *a, const char *b, size_t len)
{
    for (size_t k = 0; k < len; ++k)
        if (a[k] != b[k])
            return false;
    return true;
}

/* Unmarks the indexed slots whose key another slot has: a key's twins
 * share its bucket, so each slot is compared with those after it in its
 * chain. */
template <size_t N, size_t B, typename Keys>
constexpr void unmark_twins(KeyIndex<N, B> &ix, Keys keys, size_t count)
{
    for (size_t i = 0; i < count; ++i)
        for (unsigned t = ix.next[i]; t != 0; t = ix.next[t - 1])
            if (ix.len[t - 1] == ix.len[i] && same_key(keys.name(t - 1), keys.name(i), ix.len[i]))
                ix.alone[i] = ix.alone[t - 1] = 0;
}

template <size_t N, size_t B = kKeyBuckets, typename Keys>
constexpr KeyIndex<N, B> index_keys(Keys keys, size_t count)
{
    KeyIndex<N, B> ix{};
    for (size_t i = count; i-- > 0;) {
        if (!keys.has(i))
            continue;
        const char *key = keys.name(i);
        const size_t len = std::char_traits<char>::length(key);
        if (len > kLongestKey)
            continue;
        const unsigned b = key_bucket(key, len, B);
        ix.len[i] = static_cast<uint8_t>(len);
        ix.alone[i] = 1;
        ix.next[i] = ix.head[b];
        ix.head[b] = static_cast<uint8_t>(i + 1);
    }
    unmark_twins(ix, keys, count);
    return ix;
}

template <size_t N>
constexpr KeyIndex<N> index_keys(const blobmsg_policy *policy, size_t count)
{
    return index_keys<N>(PolicyKeys{policy}, count);
}

template <size_t N>
constexpr KeyIndex<N> index_keys(const blobmsg_policy (&policy)[N])
{
    return index_keys<N>(PolicyKeys{policy}, N);
}

/* What a parse reads of an index, whatever its size. */
struct KeyIndexRef {
    const uint8_t *head;
    const uint8_t *next;
    const uint8_t *len;
    const uint8_t *alone;
    size_t buckets;
};
template <size_t N, size_t B>
constexpr KeyIndexRef ref(const KeyIndex<N, B> &ix)
{
    return {ix.head, ix.next, ix.len, ix.alone, B};
}

/* The same for an index of `keys` slots stored as a KeyIndex at `ix`. */
inline KeyIndexRef ref_at(const uint8_t *ix, size_t keys)
{
    const size_t buckets = buckets_for(keys);
    const size_t slots = keys > 0 ? keys : 1;
    return {ix, ix + buckets, ix + buckets + slots, ix + buckets + 2 * slots, buckets};
}

/* blobmsg_parse's type filter: UNSPEC takes any type, CAST_INT64 any
 * integer, any other type only itself. */
inline bool type_fits(int want, unsigned id)
{
    if (want == BLOBMSG_TYPE_UNSPEC)
        return true;
    if (want == BLOBMSG_CAST_INT64)
        return id == BLOBMSG_TYPE_INT64 || id == BLOBMSG_TYPE_INT32 || id == BLOBMSG_TYPE_INT16 ||
               id == BLOBMSG_TYPE_INT8;
    return id == static_cast<unsigned>(want);
}

template <typename T>
inline T load_as(const char *p)
{
    T v;
    std::memcpy(&v, p, sizeof v);
    return v;
}

/* memcmp(a, b, n) == 0 for the short keys of a bucket, without a call: a
 * key is compared as two loads that overlap in its middle, or eight bytes
 * at a time and the last eight. Nothing outside the n bytes is read. */
inline bool same_bytes(const char *a, const char *b, size_t n)
{
    if (n >= 8) {
        for (size_t k = 0; k + 8 < n; k += 8)
            if (load_as<uint64_t>(a + k) != load_as<uint64_t>(b + k))
                return false;
        return load_as<uint64_t>(a + n - 8) == load_as<uint64_t>(b + n - 8);
    }
    if (n >= 4)
        return load_as<uint32_t>(a) == load_as<uint32_t>(b) && load_as<uint32_t>(a + n - 4) == load_as<uint32_t>(b + n - 4);
    if (n >= 2)
        return load_as<uint16_t>(a) == load_as<uint16_t>(b) && load_as<uint16_t>(a + n - 2) == load_as<uint16_t>(b + n - 2);
    return n == 0 || a[0] == b[0];
}

/* A member's id and length word in host order. */
inline uint32_t id_len_of(const blob_attr *attr)
{
    uint32_t v;
    std::memcpy(&v, &attr->id_len, sizeof v);
    return be32toh(v);
}

constexpr unsigned id_of(uint32_t id_len) { return (id_len & BLOB_ATTR_ID_MASK) >> BLOB_ATTR_ID_SHIFT; }

/* True for the members that every libubox's blobmsg_check_attr_len(attr,
 * false, rem) accepts: a named STRING, INT32 or INT64 that lies inside
 * `rem`, whose name ends in its terminator inside its header and whose value
 * has the type's size (a STRING: ends in its terminator). Whatever this
 * does not vouch for is left to the layer's own check, so the outcome of a
 * parse never depends on it, only the cost of the usual message. */
inline bool plainly_valid(const blob_attr *attr, uint32_t id_len, size_t rem)
{
    const size_t raw = id_len & BLOB_ATTR_LEN_MASK;
    if ((id_len & BLOB_ATTR_EXTENDED) == 0 || raw > rem || raw < sizeof(blob_attr) + sizeof(blobmsg_hdr))
        return false;
    const auto *data = static_cast<const char *>(blob_data(attr));
    const size_t namelen = blobmsg_namelen(static_cast<const blobmsg_hdr *>(blob_data(attr)));
    const size_t hdrlen = static_cast<size_t>(blobmsg_hdrlen(static_cast<unsigned>(namelen)));
    const size_t data_len = raw - sizeof(blob_attr);
    if (hdrlen > data_len || data[sizeof(blobmsg_hdr) + namelen] != '\0')
        return false;
    switch (id_of(id_len)) {
    case BLOBMSG_TYPE_STRING:
        return data_len > hdrlen && data[data_len - 1] == '\0';
    case BLOBMSG_TYPE_INT32:
        return data_len - hdrlen == 4;
    case BLOBMSG_TYPE_INT64:
        return data_len - hdrlen == 8;
    default:
        return false;
    }
}

/* Slot i, when it is empty and takes an attribute of type `id` named `name`. */
template <typename Keys>
inline bool takes(Keys keys, KeyIndexRef ix, blob_attr *const *tb, size_t i, unsigned id, const char *name,
                  size_t namelen)
{
    return ix.len[i] == namelen && tb[i] == nullptr && type_fits(keys.type(i), id) &&
           same_bytes(keys.name(i), name, namelen);
}

/* The slots one checked, extended attribute of type `id` fills. Senders
 * keep the table's order, so the slot after the last one filled (`hint`) is
 * tried first: when it takes the attribute and no other slot has its key,
 * it is the only one. Returns the hint for the next attribute. */
template <typename Keys>
inline size_t fill_slots(Keys keys, KeyIndexRef ix, size_t count, blob_attr **tb, blob_attr *attr, unsigned id,
                         size_t hint)
{
    const auto *hdr = static_cast<const blobmsg_hdr *>(blob_data(attr));
    const size_t namelen = blobmsg_namelen(hdr);
    if (namelen > kLongestKey)
        return hint;
    const char *name = reinterpret_cast<const char *>(hdr->name);
    if (hint < count && ix.alone[hint] != 0 && takes(keys, ix, tb, hint, id, name, namelen)) {
        tb[hint] = attr;
        return hint + 1;
    }
    for (unsigned s = ix.head[key_bucket(name, namelen, ix.buckets)]; s != 0; s = ix.next[s - 1])
        if (takes(keys, ix, tb, s - 1, id, name, namelen)) {
            tb[s - 1] = attr;
            hint = s;
        }
    return hint;
}

/* blobmsg_parse(policy, count, tb, data, len) by the keys' index. The walk
 * is __blob_for_each_attr's, with each member's header word read once. */
template <typename Keys>
inline int parse_by_keys(Keys keys, KeyIndexRef ix, size_t count, blob_attr **tb, void *data, unsigned int len)
{
    if (count > 0)
        std::memset(tb, 0, count * sizeof *tb);
    if (data == nullptr || len == 0)
        return -EINVAL;
    auto *attr = static_cast<blob_attr *>(data);
    size_t rem = len;
    size_t hint = 0;
    while (rem >= sizeof(blob_attr)) {
        const uint32_t id_len = id_len_of(attr);
        const size_t pad = ((id_len & BLOB_ATTR_LEN_MASK) + BLOB_ATTR_ALIGN - 1) & ~size_t{BLOB_ATTR_ALIGN - 1};
        if (pad < sizeof(blob_attr) || pad > rem)
            break;
        if (!plainly_valid(attr, id_len, rem) && !blobmsg_check_attr_len(attr, false, rem))
            return -1;
        if ((id_len & BLOB_ATTR_EXTENDED) != 0)
            hint = fill_slots(keys, ix, count, tb, attr, id_of(id_len), hint);
        rem -= pad;
        attr = reinterpret_cast<blob_attr *>(reinterpret_cast<char *>(attr) + pad);
    }
    return 0;
}

inline int parse_indexed(const blobmsg_policy *policy, KeyIndexRef ix, size_t count, blob_attr **tb, void *data,
                         unsigned int len)
{
    return parse_by_keys(PolicyKeys{policy}, ix, count, tb, data, len);
}

/* The same for a policy known only at run time: indexed on the stack, in a
 * frame of its own rather than in each caller's, and in one copy for the
 * whole library (GCC would otherwise clone it into each file that calls it). */
#if defined(__GNUC__) && !defined(__clang__)
[[gnu::noipa]]
#else
[[gnu::noinline]]
#endif
inline int parse_keys(const blobmsg_policy *policy, size_t count, blob_attr **tb, void *data, unsigned int len)
{
    if (count > kMaxRunTimeKeys)
        return blobmsg_parse(policy, static_cast<int>(count), tb, data, len);
    const KeyIndex<kMaxRunTimeKeys> ix = index_keys<kMaxRunTimeKeys>(policy, count);
    return parse_indexed(policy, ref(ix), count, tb, data, len);
}

} // namespace BX_PARSE_NS
} // namespace bx

#endif
