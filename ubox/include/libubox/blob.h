/*
 * Binary attribute buffers: the wire form that blobmsg builds on.
 *
 * Every attribute is a 4-byte header (stored big-endian whatever the host:
 * bit 31 "extended", bits 24..30 id, bits 0..23 raw length including the
 * header) followed by its payload, padded with zero bytes to a multiple of 4.
 *
 * All multi-byte fields are read and written one byte at a time, so the
 * helpers below work on any host byte order and on unaligned data.
 *
 * This header deliberately has no extern "C" guard: C++ users include it
 * inside extern "C" { }, exactly as with the platform's own header. The
 * include guards are the platform's too, so a build sees only one of the two.
 */
#ifndef _BLOB_H__
#define _BLOB_H__

#include <errno.h>
#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "utils.h"

/* Nest cookies are buffer offsets plus this, so that none is null. */
#define BLOB_COOKIE 0x01234567

/* Types of plain (non-blobmsg) attributes, for blob_check_type and blob_parse. */
enum {
	BLOB_ATTR_UNSPEC,
	BLOB_ATTR_NESTED,
	BLOB_ATTR_BINARY,
	BLOB_ATTR_STRING,
	BLOB_ATTR_INT8,
	BLOB_ATTR_INT16,
	BLOB_ATTR_INT32,
	BLOB_ATTR_INT64,
	BLOB_ATTR_DOUBLE,
	BLOB_ATTR_LAST
};

#define BLOB_ATTR_ID_MASK  0x7f000000
#define BLOB_ATTR_ID_SHIFT 24
#define BLOB_ATTR_LEN_MASK 0x00ffffff
#define BLOB_ATTR_ALIGN    4
#define BLOB_ATTR_EXTENDED 0x80000000

struct blob_attr {
	uint32_t id_len;
	char data[];
} __packed;

/*
 * One entry per attribute id for blob_parse: the value type (BLOB_ATTR_*;
 * >= BLOB_ATTR_LAST: not checked), bounds on the raw length (0: none) and an
 * optional check of its own.
 */
struct blob_attr_info {
	unsigned int type;
	unsigned int minlen;
	unsigned int maxlen;
	bool (*validate)(const struct blob_attr_info *, struct blob_attr *);
};

struct blob_buf {
	struct blob_attr *head;
	bool (*grow)(struct blob_buf *buf, int minlen);
	int buflen;
	void *buf;
};

/* Byte-order helpers: explicit big-endian loads and stores. */
static inline uint16_t blob_load_be16(const void *p)
{
	const uint8_t *b = (const uint8_t *) p;
	return (uint16_t) (((unsigned int) b[0] << 8) | b[1]);
}

static inline uint32_t blob_load_be32(const void *p)
{
	const uint8_t *b = (const uint8_t *) p;
	return ((uint32_t) b[0] << 24) | ((uint32_t) b[1] << 16) |
	       ((uint32_t) b[2] << 8) | (uint32_t) b[3];
}

static inline uint64_t blob_load_be64(const void *p)
{
	const uint8_t *b = (const uint8_t *) p;
	return ((uint64_t) blob_load_be32(b) << 32) | blob_load_be32(b + 4);
}

static inline void blob_store_be16(void *p, uint16_t v)
{
	uint8_t *b = (uint8_t *) p;
	b[0] = (uint8_t) (v >> 8);
	b[1] = (uint8_t) v;
}

static inline void blob_store_be32(void *p, uint32_t v)
{
	uint8_t *b = (uint8_t *) p;
	b[0] = (uint8_t) (v >> 24);
	b[1] = (uint8_t) (v >> 16);
	b[2] = (uint8_t) (v >> 8);
	b[3] = (uint8_t) v;
}

static inline void blob_store_be64(void *p, uint64_t v)
{
	uint8_t *b = (uint8_t *) p;
	blob_store_be32(b, (uint32_t) (v >> 32));
	blob_store_be32(b + 4, (uint32_t) v);
}

static inline uint32_t blob_id_len(const struct blob_attr *attr)
{
	return blob_load_be32(attr);
}

/* Payload of the attribute (for blobmsg: the name header comes first). */
static inline void *blob_data(const struct blob_attr *attr)
{
	return (void *) attr->data;
}

static inline unsigned int blob_id(const struct blob_attr *attr)
{
	return (blob_id_len(attr) & BLOB_ATTR_ID_MASK) >> BLOB_ATTR_ID_SHIFT;
}

static inline bool blob_is_extended(const struct blob_attr *attr)
{
	return (blob_id_len(attr) & BLOB_ATTR_EXTENDED) != 0;
}

/* Length including the header, without padding. */
static inline size_t blob_raw_len(const struct blob_attr *attr)
{
	return blob_id_len(attr) & BLOB_ATTR_LEN_MASK;
}

/* Payload length. Only meaningful once the raw length is known to be >= 4. */
static inline size_t blob_len(const struct blob_attr *attr)
{
	return blob_raw_len(attr) - sizeof(struct blob_attr);
}

static inline size_t blob_pad_len(const struct blob_attr *attr)
{
	size_t len = blob_raw_len(attr);
	return (len + BLOB_ATTR_ALIGN - 1) & ~(size_t) (BLOB_ATTR_ALIGN - 1);
}

static inline struct blob_attr *blob_next(const struct blob_attr *attr)
{
	return (struct blob_attr *) ((char *) attr + blob_pad_len(attr));
}

/* Plain value getters: no type or length check. */
static inline uint8_t blob_get_u8(const struct blob_attr *attr)
{
	return *(const uint8_t *) attr->data;
}

static inline uint16_t blob_get_u16(const struct blob_attr *attr)
{
	return blob_load_be16(attr->data);
}

static inline uint32_t blob_get_u32(const struct blob_attr *attr)
{
	return blob_load_be32(attr->data);
}

static inline uint64_t blob_get_u64(const struct blob_attr *attr)
{
	return blob_load_be64(attr->data);
}

static inline int8_t blob_get_int8(const struct blob_attr *attr)
{
	return (int8_t) blob_get_u8(attr);
}

static inline int16_t blob_get_int16(const struct blob_attr *attr)
{
	return (int16_t) blob_get_u16(attr);
}

static inline int32_t blob_get_int32(const struct blob_attr *attr)
{
	return (int32_t) blob_get_u32(attr);
}

static inline int64_t blob_get_int64(const struct blob_attr *attr)
{
	return (int64_t) blob_get_u64(attr);
}

static inline const char *blob_get_string(const struct blob_attr *attr)
{
	return attr->data;
}

int blob_buf_init(struct blob_buf *buf, int id);
void blob_buf_free(struct blob_buf *buf);
bool blob_buf_grow(struct blob_buf *buf, int required);

void blob_fill_pad(struct blob_attr *attr);
void blob_set_raw_len(struct blob_attr *attr, unsigned int len);

struct blob_attr *blob_new(struct blob_buf *buf, int id, int payload);
struct blob_attr *blob_put(struct blob_buf *buf, int id, const void *ptr, unsigned int len);

struct blob_attr *blob_put_raw(struct blob_buf *buf, const void *ptr, unsigned int len);

void *blob_nest_start(struct blob_buf *buf, int id);
void blob_nest_end(struct blob_buf *buf, void *cookie);

/* Same padded length and same bytes (two nulls are equal). */
bool blob_attr_equal(const struct blob_attr *a1, const struct blob_attr *a2);
/* A malloc'd copy of the attribute with its padding. */
struct blob_attr *blob_memdup(const struct blob_attr *attr);

bool blob_check_type(const void *ptr, unsigned int len, int type);
/*
 * Fills data[id] with the last valid member of each id below max and
 * returns how many ids were found. blob_parse trusts attr's own length;
 * blob_parse_untrusted reads nothing past attr + attr_len.
 */
int blob_parse(struct blob_attr *attr, struct blob_attr **data,
	       const struct blob_attr_info *info, int max);
int blob_parse_untrusted(struct blob_attr *attr, size_t attr_len, struct blob_attr **data,
			 const struct blob_attr_info *info, int max);

static inline struct blob_attr *blob_put_string(struct blob_buf *buf, int id, const char *str)
{
	return blob_put(buf, id, str, (unsigned int) strlen(str) + 1);
}

static inline struct blob_attr *blob_put_u8(struct blob_buf *buf, int id, uint8_t val)
{
	return blob_put(buf, id, &val, sizeof(val));
}

static inline struct blob_attr *blob_put_u16(struct blob_buf *buf, int id, uint16_t val)
{
	uint8_t be[2];

	blob_store_be16(be, val);
	return blob_put(buf, id, be, sizeof(be));
}

static inline struct blob_attr *blob_put_u32(struct blob_buf *buf, int id, uint32_t val)
{
	uint8_t be[4];

	blob_store_be32(be, val);
	return blob_put(buf, id, be, sizeof(be));
}

static inline struct blob_attr *blob_put_u64(struct blob_buf *buf, int id, uint64_t val)
{
	uint8_t be[8];

	blob_store_be64(be, val);
	return blob_put(buf, id, be, sizeof(be));
}

#define blob_put_int8  blob_put_u8
#define blob_put_int16 blob_put_u16
#define blob_put_int32 blob_put_u32
#define blob_put_int64 blob_put_u64

/*
 * Walks a raw area of attributes; the caller sets rem to the area's length.
 * The walk goes on while a whole header is left and the current attribute's
 * padded length is at least a header and no more than what is left, so it
 * never steps outside the area. rem may be any integer type.
 */
#define __blob_for_each_attr(pos, attr, rem)                                   \
	for (pos = (struct blob_attr *) (attr);                                \
	     (rem) >= (int) sizeof(struct blob_attr) &&                        \
	     blob_pad_len(pos) >= sizeof(struct blob_attr) &&                  \
	     blob_pad_len(pos) <= (size_t) (rem);                              \
	     rem -= blob_pad_len(pos), pos = blob_next(pos))

/* Walks the payload of attr (the root of a message). */
#define blob_for_each_attr(pos, attr, rem)                                     \
	for (rem = (attr) ? blob_len(attr) : 0,                                \
	     pos = (struct blob_attr *) ((attr) ? blob_data(attr) : NULL);     \
	     (rem) >= (int) sizeof(struct blob_attr) &&                        \
	     blob_pad_len(pos) >= sizeof(struct blob_attr) &&                  \
	     blob_pad_len(pos) <= (size_t) (rem);                              \
	     rem -= blob_pad_len(pos), pos = blob_next(pos))

/* As blob_for_each_attr, and only while rem stays below attr_len. */
#define blob_for_each_attr_len(pos, attr, attr_len, rem)                       \
	for (rem = (attr) ? blob_len(attr) : 0,                                \
	     pos = (struct blob_attr *) ((attr) ? blob_data(attr) : NULL);     \
	     (rem) >= (int) sizeof(struct blob_attr) && (rem) < (attr_len) &&  \
	     blob_pad_len(pos) >= sizeof(struct blob_attr) &&                  \
	     blob_pad_len(pos) <= (size_t) (rem);                              \
	     rem -= blob_pad_len(pos), pos = blob_next(pos))

#endif
