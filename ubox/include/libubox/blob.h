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
 * inside extern "C" { }, exactly as with the platform's own header.
 */
#ifndef LIBUBOX_BLOB_H
#define LIBUBOX_BLOB_H

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#define BLOB_ATTR_ID_MASK  0x7f000000
#define BLOB_ATTR_ID_SHIFT 24
#define BLOB_ATTR_LEN_MASK 0x00ffffff
#define BLOB_ATTR_ALIGN    4
#define BLOB_ATTR_EXTENDED 0x80000000

struct blob_attr {
	uint32_t id_len;
	char data[];
} __attribute__((packed));

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

int blob_buf_init(struct blob_buf *buf, int id);
void blob_buf_free(struct blob_buf *buf);
bool blob_buf_grow(struct blob_buf *buf, int required);

void blob_fill_pad(struct blob_attr *attr);
void blob_set_raw_len(struct blob_attr *attr, unsigned int len);

struct blob_attr *blob_new(struct blob_buf *buf, int id, int payload);
struct blob_attr *blob_put(struct blob_buf *buf, int id, const void *ptr, unsigned int len);

void *blob_nest_start(struct blob_buf *buf, int id);
void blob_nest_end(struct blob_buf *buf, void *cookie);

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

#endif
