// Growable attribute buffer.
//
// The buffer holds the root attribute at offset 0 and everything appended
// after it. buf->head is the innermost attribute that is open (the root, or a
// nest); new attributes go right after the end of head. While a nest is open
// its parent's length is stale; blob_nest_end fixes it.
//
// Nest cookies are offsets (see nest_cookie.h), so they survive reallocation.
#include <cerrno>
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <cstring>

extern "C" {
#include <libubox/blob.h>
}

#include "nest_cookie.h"

using ubox_internal::head_offset;

namespace {

constexpr size_t kHdr = sizeof(struct blob_attr);

size_t pad4(size_t len)
{
	return (len + BLOB_ATTR_ALIGN - 1) & ~static_cast<size_t>(BLOB_ATTR_ALIGN - 1);
}

char *base(struct blob_buf *buf)
{
	return static_cast<char *>(buf->buf);
}

// Default growth, as the platform's: what is asked rounded up to the next
// whole 256 bytes, the new part zeroed.
bool default_grow(struct blob_buf *buf, int minlen)
{
	if (minlen < 0)
		return false;
	size_t cur = buf->buflen > 0 ? static_cast<size_t>(buf->buflen) : 0;
	size_t delta = (static_cast<size_t>(minlen) / 256 + 1) * 256;
	if (cur + delta > static_cast<size_t>(INT_MAX))
		return false;
	void *p = realloc(buf->buf, cur + delta);
	if (!p)
		return false;  // the old block is still owned by buf
	memset(static_cast<char *>(p) + cur, 0, delta);
	buf->buf = p;
	buf->buflen = static_cast<int>(cur + delta);
	return true;
}

void write_header(struct blob_attr *attr, unsigned int id, size_t raw_len)
{
	uint32_t v = (static_cast<uint32_t>(id) << BLOB_ATTR_ID_SHIFT) & BLOB_ATTR_ID_MASK;
	v |= static_cast<uint32_t>(raw_len) & BLOB_ATTR_LEN_MASK;
	blob_store_be32(attr, v);
}

// Makes room for an attribute of raw length raw at offset off. Fails when any
// attribute length could no longer be expressed in 24 bits: every attribute
// lies inside [0, end of root), so bounding the padded end bounds them all.
struct blob_attr *reserve(struct blob_buf *buf, size_t off, size_t raw)
{
	if (raw > BLOB_ATTR_LEN_MASK || off > BLOB_ATTR_LEN_MASK)
		return nullptr;
	size_t end = off + pad4(raw);
	if (end > BLOB_ATTR_LEN_MASK)
		return nullptr;
	// The grow hook is asked for the unpadded end, as the platform asks; the
	// padding is then made sure of too, since it is written as well.
	const size_t wants[] = {off + raw, end};
	for (size_t want : wants) {
		size_t have = buf->buf && buf->buflen > 0 ? static_cast<size_t>(buf->buflen) : 0;
		if (want > have && !blob_buf_grow(buf, static_cast<int>(want - have)))
			return nullptr;
	}
	return reinterpret_cast<struct blob_attr *>(base(buf) + off);
}

size_t used_end(struct blob_buf *buf)
{
	return head_offset(buf) + blob_pad_len(buf->head);
}

} // namespace

extern "C" {

bool blob_buf_grow(struct blob_buf *buf, int required)
{
	if (required <= 0)
		return true;
	if (!buf->grow)
		return false;
	size_t off = head_offset(buf);
	size_t before = buf->buf && buf->buflen > 0 ? static_cast<size_t>(buf->buflen) : 0;
	if (before + static_cast<size_t>(required) > BLOB_ATTR_LEN_MASK)
		return false;
	if (!buf->grow(buf, required))
		return false;
	// A grow hook that reports success without the space would let us write
	// past the end; refuse it.
	if (!buf->buf || buf->buflen < 0 ||
	    static_cast<size_t>(buf->buflen) < before + static_cast<size_t>(required))
		return false;
	buf->head = reinterpret_cast<struct blob_attr *>(base(buf) + off);
	return true;
}

int blob_buf_init(struct blob_buf *buf, int id)
{
	if (!buf)
		return -EINVAL;
	if (!buf->grow)
		buf->grow = default_grow;
	buf->head = static_cast<struct blob_attr *>(buf->buf);
	struct blob_attr *root = reserve(buf, 0, kHdr);
	if (!root)
		return -ENOMEM;
	buf->head = root;
	write_header(root, static_cast<unsigned int>(id), kHdr);
	return 0;
}

void blob_buf_free(struct blob_buf *buf)
{
	if (!buf)
		return;
	free(buf->buf);
	buf->buf = nullptr;
	buf->head = nullptr;
	buf->buflen = 0;
}

void blob_fill_pad(struct blob_attr *attr)
{
	size_t raw = blob_raw_len(attr);
	size_t pad = blob_pad_len(attr);
	if (pad > raw)
		memset(reinterpret_cast<char *>(attr) + raw, 0, pad - raw);
}

void blob_set_raw_len(struct blob_attr *attr, unsigned int len)
{
	uint32_t v = blob_id_len(attr) & ~static_cast<uint32_t>(BLOB_ATTR_LEN_MASK);
	blob_store_be32(attr, v | (len & BLOB_ATTR_LEN_MASK));
}

struct blob_attr *blob_new(struct blob_buf *buf, int id, int payload)
{
	if (!buf || !buf->buf || !buf->head || payload < 0)
		return nullptr;
	size_t raw = kHdr + static_cast<size_t>(payload);
	size_t off = used_end(buf);
	struct blob_attr *attr = reserve(buf, off, raw);
	if (!attr)
		return nullptr;
	write_header(attr, static_cast<unsigned int>(id), raw);
	blob_fill_pad(attr);
	blob_set_raw_len(buf->head, static_cast<unsigned int>(blob_pad_len(buf->head) + pad4(raw)));
	return attr;
}

struct blob_attr *blob_put(struct blob_buf *buf, int id, const void *ptr, unsigned int len)
{
	if (len > BLOB_ATTR_LEN_MASK)
		return nullptr;
	struct blob_attr *attr = blob_new(buf, id, static_cast<int>(len));
	if (attr && len)
		memcpy(blob_data(attr), ptr, len);
	return attr;
}

struct blob_attr *blob_put_raw(struct blob_buf *buf, const void *ptr, unsigned int len)
{
	if (!buf || !buf->buf || !buf->head || !ptr || len < kHdr)
		return nullptr;
	size_t off = used_end(buf);
	struct blob_attr *attr = reserve(buf, off, len);
	if (!attr)
		return nullptr;
	write_header(attr, 0, len);
	blob_fill_pad(attr);
	// The enclosing length grows by the unpadded length, as on the platform.
	blob_set_raw_len(buf->head, static_cast<unsigned int>(blob_pad_len(buf->head) + len));
	memcpy(attr, ptr, len);
	return attr;
}

void *blob_nest_start(struct blob_buf *buf, int id)
{
	if (!buf || !buf->head)
		return nullptr;
	size_t parent = head_offset(buf);
	struct blob_attr *attr = blob_new(buf, id, 0);
	if (!attr)
		return nullptr;
	buf->head = attr;
	return ubox_internal::offset_to_cookie(parent);
}

void blob_nest_end(struct blob_buf *buf, void *cookie)
{
	size_t parent_off = 0;
	if (!buf || !buf->buf || !buf->head || !ubox_internal::cookie_to_offset(cookie, &parent_off))
		return;
	size_t nested_off = head_offset(buf);
	if (parent_off >= nested_off)
		return;  // not an enclosing attribute: a stale or foreign cookie
	// The parent counted the nest's header when it was opened; now its
	// payload too.
	struct blob_attr *parent = reinterpret_cast<struct blob_attr *>(base(buf) + parent_off);
	blob_set_raw_len(parent, static_cast<unsigned int>(blob_pad_len(parent) + blob_len(buf->head)));
	buf->head = parent;
}

bool blob_attr_equal(const struct blob_attr *a1, const struct blob_attr *a2)
{
	if (!a1 || !a2)
		return a1 == a2;
	return blob_pad_len(a1) == blob_pad_len(a2) && memcmp(a1, a2, blob_pad_len(a1)) == 0;
}

struct blob_attr *blob_memdup(const struct blob_attr *attr)
{
	void *copy = malloc(blob_pad_len(attr));
	if (copy)
		memcpy(copy, attr, blob_pad_len(attr));
	return static_cast<struct blob_attr *>(copy);
}

bool blob_check_type(const void *ptr, unsigned int len, int type)
{
	if (type < 0 || type >= BLOB_ATTR_LAST)
		return false;
	// Integers have their exact size; a string or double at least its size.
	switch (type) {
	case BLOB_ATTR_INT8:
		return len == 1;
	case BLOB_ATTR_INT16:
		return len == 2;
	case BLOB_ATTR_INT32:
		return len == 4;
	case BLOB_ATTR_INT64:
		return len == 8;
	case BLOB_ATTR_DOUBLE:
		return len >= 8;
	case BLOB_ATTR_STRING:
		return len >= 1 && static_cast<const char *>(ptr)[len - 1] == '\0';
	default:
		return true;
	}
}

} // extern "C"

namespace {

// One member for blob_parse: 1 when it fills an empty slot. A later valid
// member of the same id replaces an earlier one.
int parse_one(struct blob_attr *attr, size_t room, struct blob_attr **data,
	      const struct blob_attr_info *info, int max)
{
	if (room < kHdr)
		return 0;
	int id = static_cast<int>(blob_id(attr));
	size_t len = blob_raw_len(attr);
	if (id >= max || len < kHdr || len > room)
		return 0;
	if (info) {
		const struct blob_attr_info &want = info[id];
		if (want.type < BLOB_ATTR_LAST &&
		    !blob_check_type(blob_data(attr), static_cast<unsigned int>(blob_len(attr)),
				     static_cast<int>(want.type)))
			return 0;
		if ((want.minlen && len < want.minlen) || (want.maxlen && len > want.maxlen))
			return 0;
		if (want.validate && !want.validate(&want, attr))
			return 0;
	}
	int found = data[id] ? 0 : 1;
	data[id] = attr;
	return found;
}

int parse_members(struct blob_attr *attr, struct blob_attr **data,
		  const struct blob_attr_info *info, int max)
{
	if (max <= 0)
		return 0;
	memset(data, 0, static_cast<size_t>(max) * sizeof(*data));
	int found = 0;
	struct blob_attr *pos;
	size_t rem;
	blob_for_each_attr(pos, attr, rem)
		found += parse_one(pos, rem, data, info, max);
	return found;
}

} // namespace

extern "C" {

int blob_parse(struct blob_attr *attr, struct blob_attr **data,
	       const struct blob_attr_info *info, int max)
{
	return parse_members(attr, data, info, max);
}

int blob_parse_untrusted(struct blob_attr *attr, size_t attr_len, struct blob_attr **data,
			 const struct blob_attr_info *info, int max)
{
	if (!attr || attr_len < kHdr || blob_raw_len(attr) > attr_len)
		return 0;
	// A length below a header would make the payload length wrap: nothing
	// in it can be walked.
	if (blob_raw_len(attr) < kHdr) {
		if (max > 0)
			memset(data, 0, static_cast<size_t>(max) * sizeof(*data));
		return 0;
	}
	return parse_members(attr, data, info, max);
}

} // extern "C"
