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

// Default growth: at least what is asked, and at least half again the current
// size, so that building a large message costs a logarithmic number of copies.
bool default_grow(struct blob_buf *buf, int minlen)
{
	if (minlen <= 0)
		return true;
	size_t cur = buf->buflen > 0 ? static_cast<size_t>(buf->buflen) : 0;
	size_t delta = static_cast<size_t>(minlen);
	if (delta < cur / 2)
		delta = cur / 2;
	size_t want = (cur + delta + 255) & ~static_cast<size_t>(255);
	if (want > static_cast<size_t>(INT_MAX))
		want = static_cast<size_t>(INT_MAX);
	if (want < cur + static_cast<size_t>(minlen))
		return false;
	void *p = realloc(buf->buf, want);
	if (!p)
		return false;  // the old block is still owned by buf
	buf->buf = p;
	buf->buflen = static_cast<int>(want);
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
	size_t have = buf->buflen > 0 ? static_cast<size_t>(buf->buflen) : 0;
	if (!buf->buf)
		have = 0;
	if (end > have && !blob_buf_grow(buf, static_cast<int>(end - have)))
		return nullptr;
	return reinterpret_cast<struct blob_attr *>(base(buf) + off);
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
	if (before + static_cast<size_t>(required) > static_cast<size_t>(INT_MAX))
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
	size_t off = head_offset(buf) + blob_pad_len(buf->head);
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
	// The nest is the last thing in its parent, so the parent ends where the
	// nest ends, whatever was counted for it while it was open.
	struct blob_attr *parent = reinterpret_cast<struct blob_attr *>(base(buf) + parent_off);
	size_t end = nested_off + blob_pad_len(buf->head);
	blob_set_raw_len(parent, static_cast<unsigned int>(end - parent_off));
	buf->head = parent;
}

} // extern "C"
