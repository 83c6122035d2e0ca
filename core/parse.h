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
 *    a malformed one ends the parse with -1, the slots filled before it stay;
 *  - a plain (not extended) attribute is skipped;
 *  - an attribute fills every empty slot whose key is its name (same length,
 *    same bytes) and whose type is UNSPEC, its own, or CAST_INT64 for any
 *    integer: the first attribute of a name is kept, a policy that lists a
 *    key twice gets it in both slots;
 *  - blobmsg_parse keeps a key's length in a byte and then compares the
 *    whole key, so a key of 256 bytes or more never matches; a null key
 *    never does either.
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
 * that 0 ends a chain. Each chain runs in slot order. */
template <size_t N, size_t B = kKeyBuckets>
struct KeyIndex {
    static_assert(N < 255, "a key index numbers its slots in a byte");
    static_assert(B >= 1 && B <= kKeyBuckets && (B & (B - 1)) == 0, "a power of two of buckets");
    uint8_t head[B] = {};
    uint8_t next[N > 0 ? N : 1] = {};
    uint8_t len[N > 0 ? N : 1] = {};
};

/* The keys of a parse, slot by slot: a policy's, or those of a table's rows
 * (any type with has(i), name(i) and type(i)). */
struct PolicyKeys {
    const blobmsg_policy *policy;
    constexpr bool has(size_t i) const { return policy[i].name != nullptr; }
    constexpr const char *name(size_t i) const { return policy[i].name; }
    constexpr int type(size_t i) const { return policy[i].type; }
};

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
        ix.next[i] = ix.head[b];
        ix.head[b] = static_cast<uint8_t>(i + 1);
    }
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
    size_t buckets;
};
template <size_t N, size_t B>
constexpr KeyIndexRef ref(const KeyIndex<N, B> &ix)
{
    return {ix.head, ix.next, ix.len, B};
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

/* memcmp(a, b, n) == 0 for the short keys of a bucket, without a call:
 * eight bytes at a time, then four, then the rest one by one. */
inline bool same_bytes(const char *a, const char *b, size_t n)
{
    uint64_t x = 0;
    uint64_t y = 0;
    for (; n >= sizeof x; a += sizeof x, b += sizeof x, n -= sizeof x) {
        std::memcpy(&x, a, sizeof x);
        std::memcpy(&y, b, sizeof y);
        if (x != y)
            return false;
    }
    uint32_t u = 0;
    uint32_t v = 0;
    if (n >= sizeof u) {
        std::memcpy(&u, a, sizeof u);
        std::memcpy(&v, b, sizeof v);
        if (u != v)
            return false;
        a += sizeof u;
        b += sizeof u;
        n -= sizeof u;
    }
    for (size_t k = 0; k < n; ++k)
        if (a[k] != b[k])
            return false;
    return true;
}

/* The slots one checked, extended attribute fills. */
template <typename Keys>
inline void fill_slots(Keys keys, KeyIndexRef ix, blob_attr **tb, blob_attr *attr)
{
    const auto *hdr = static_cast<const blobmsg_hdr *>(blob_data(attr));
    const size_t namelen = blobmsg_namelen(hdr);
    if (namelen > kLongestKey)
        return;
    const char *name = reinterpret_cast<const char *>(hdr->name);
    for (unsigned s = ix.head[key_bucket(name, namelen, ix.buckets)]; s != 0; s = ix.next[s - 1]) {
        const size_t i = s - 1;
        if (ix.len[i] == namelen && tb[i] == nullptr && type_fits(keys.type(i), blob_id(attr)) &&
            same_bytes(keys.name(i), name, namelen))
            tb[i] = attr;
    }
}

/* blobmsg_parse(policy, count, tb, data, len) by the keys' index. */
template <typename Keys>
inline int parse_by_keys(Keys keys, KeyIndexRef ix, size_t count, blob_attr **tb, void *data, unsigned int len)
{
    if (count > 0)
        std::memset(tb, 0, count * sizeof *tb);
    if (data == nullptr || len == 0)
        return -EINVAL;
    blob_attr *attr;
    __blob_for_each_attr(attr, data, len) {
        if (!blobmsg_check_attr_len(attr, false, len))
            return -1;
        if (blob_is_extended(attr))
            fill_slots(keys, ix, tb, attr);
    }
    return 0;
}

inline int parse_indexed(const blobmsg_policy *policy, KeyIndexRef ix, size_t count, blob_attr **tb, void *data,
                         unsigned int len)
{
    return parse_by_keys(PolicyKeys{policy}, ix, count, tb, data, len);
}

/* The same for a policy known only at run time: indexed on the stack, in a
 * frame of its own rather than in each caller's. */
[[gnu::noinline]] inline int parse_keys(const blobmsg_policy *policy, size_t count, blob_attr **tb, void *data, unsigned int len)
{
    if (count > kMaxRunTimeKeys)
        return blobmsg_parse(policy, static_cast<int>(count), tb, data, len);
    const KeyIndex<kMaxRunTimeKeys> ix = index_keys<kMaxRunTimeKeys>(policy, count);
    return parse_indexed(policy, ref(ix), count, tb, data, len);
}

} // namespace BX_PARSE_NS
} // namespace bx

#endif
