// blobmsg: building named attributes, validating and parsing them.
//
// blobmsg_check_attr_len is what stands between a received message and the
// code that reads values out of it, so it reads nothing outside
// [attr, attr + len): the header only once 4 bytes are known to be there, the
// name length only once the payload is known to hold it, and so on.
#include <cerrno>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstring>

extern "C" {
#include <libubox/blobmsg.h>
}

#include "nest_cookie.h"

namespace {

constexpr size_t kHdr = sizeof(struct blob_attr);

struct blob_attr *blobmsg_new(struct blob_buf *buf, int type, const char *name,
			      size_t payload, void **data)
{
	if (!name)
		name = "";
	size_t namelen = strlen(name);
	if (namelen > UINT16_MAX || payload > BLOB_ATTR_LEN_MASK)
		return nullptr;
	size_t hdrlen = static_cast<size_t>(blobmsg_hdrlen(static_cast<unsigned int>(namelen)));
	if (hdrlen + payload > BLOB_ATTR_LEN_MASK)
		return nullptr;
	struct blob_attr *attr = blob_new(buf, type, static_cast<int>(hdrlen + payload));
	if (!attr)
		return nullptr;
	blob_store_be32(attr, blob_id_len(attr) | BLOB_ATTR_EXTENDED);
	char *hdr = static_cast<char *>(blob_data(attr));
	blob_store_be16(hdr, static_cast<uint16_t>(namelen));
	memcpy(hdr + 2, name, namelen);
	// The NUL and the padding after the name.
	memset(hdr + 2 + namelen, 0, hdrlen - 2 - namelen);
	*data = hdr + hdrlen;
	return attr;
}

bool value_fits(int type, const char *data, size_t len)
{
	switch (type) {
	case BLOBMSG_TYPE_STRING:
		return len >= 1 && data[len - 1] == '\0';
	case BLOBMSG_TYPE_INT8:
		return len == 1;
	case BLOBMSG_TYPE_INT16:
		return len == 2;
	case BLOBMSG_TYPE_INT32:
		return len == 4;
	case BLOBMSG_TYPE_INT64:
		return len == 8;
	case BLOBMSG_TYPE_DOUBLE:
		return len >= 8;  // only a floor, as on the platform
	default:
		// ARRAY, TABLE and UNSPEC: containers are checked member by member
		// by whoever walks them.
		return true;
	}
}

bool type_matches(int want, int have)
{
	if (want == BLOBMSG_TYPE_UNSPEC || want == have)
		return true;
	if (want == BLOBMSG_CAST_INT64)
		return have == BLOBMSG_TYPE_INT8 || have == BLOBMSG_TYPE_INT16 ||
		       have == BLOBMSG_TYPE_INT32 || have == BLOBMSG_TYPE_INT64;
	return false;
}

// Where the value of the string buffer being written (the attribute just
// after the open table or array) starts.
size_t pending_data_offset(struct blob_buf *buf)
{
	const struct blob_attr *attr = blob_next(buf->head);
	return static_cast<size_t>(static_cast<const char *>(blobmsg_data(attr)) -
				   static_cast<const char *>(buf->buf));
}

} // namespace

extern "C" {

int blobmsg_add_field(struct blob_buf *buf, int type, const char *name,
		      const void *data, unsigned int len)
{
	void *dst = nullptr;
	if (!blobmsg_new(buf, type, name, len, &dst))
		return -1;
	if (len)
		memcpy(dst, data, len);
	return 0;
}

void *blobmsg_open_nested(struct blob_buf *buf, const char *name, bool array)
{
	if (!buf || !buf->buf || !buf->head)
		return nullptr;
	size_t parent = ubox_internal::head_offset(buf);
	void *data = nullptr;
	struct blob_attr *nest = blobmsg_new(buf, array ? BLOBMSG_TYPE_ARRAY : BLOBMSG_TYPE_TABLE,
					     name, 0, &data);
	if (!nest)
		return nullptr;
	// While open, the parent counts only the nest's 4-byte header; closing
	// adds the nest's payload, name header included.
	struct blob_attr *head = buf->head;
	blob_set_raw_len(head, static_cast<unsigned int>(blob_pad_len(head) - (blob_pad_len(nest) - kHdr)));
	buf->head = nest;
	return ubox_internal::offset_to_cookie(parent);
}

bool blobmsg_check_attr_len(const struct blob_attr *attr, bool name, size_t len)
{
	if (!attr || len < kHdr)
		return false;
	size_t raw = blob_raw_len(attr);
	if (raw < kHdr || raw > len)
		return false;
	int type = blobmsg_type(attr);
	if (type > BLOBMSG_TYPE_LAST)
		return false;
	const char *data = static_cast<const char *>(blob_data(attr));
	size_t data_len = raw - kHdr;
	if (blob_is_extended(attr)) {
		if (data_len < sizeof(struct blobmsg_hdr))
			return false;
		size_t namelen = blob_load_be16(data);
		size_t hdrlen = static_cast<size_t>(blobmsg_hdrlen(static_cast<unsigned int>(namelen)));
		if (hdrlen > data_len)
			return false;
		if (name && namelen == 0)
			return false;
		// 2 + namelen + 1 <= hdrlen <= data_len: the NUL is inside.
		if (data[sizeof(struct blobmsg_hdr) + namelen] != '\0')
			return false;
		data += hdrlen;
		data_len -= hdrlen;
	} else if (name) {
		return false;
	}
	return value_fits(type, data, data_len);
}

bool blobmsg_check_attr(const struct blob_attr *attr, bool name)
{
	if (!attr)
		return false;
	return blobmsg_check_attr_len(attr, name, blob_raw_len(attr));
}

int blobmsg_check_array_len(const struct blob_attr *attr, int type, size_t len)
{
	if (type > BLOBMSG_TYPE_LAST || !blobmsg_check_attr_len(attr, false, len))
		return -1;
	int id = blobmsg_type(attr);
	if (id != BLOBMSG_TYPE_ARRAY && id != BLOBMSG_TYPE_TABLE)
		return -1;
	bool named = id == BLOBMSG_TYPE_TABLE;
	int count = 0;
	const struct blob_attr *pos;
	size_t rem;
	blobmsg_for_each_attr(pos, attr, rem) {
		if (!blobmsg_check_attr_len(pos, named, rem))
			return -1;
		if (type != BLOBMSG_TYPE_UNSPEC && blobmsg_type(pos) != type)
			return -1;
		count++;
	}
	return count;
}

int blobmsg_check_array(const struct blob_attr *attr, int type)
{
	if (!attr)
		return -1;
	return blobmsg_check_array_len(attr, type, blob_raw_len(attr));
}

bool blobmsg_check_attr_list(const struct blob_attr *attr, int type)
{
	return blobmsg_check_array(attr, type) >= 0;
}

bool blobmsg_check_attr_list_len(const struct blob_attr *attr, int type, size_t len)
{
	return blobmsg_check_array_len(attr, type, len) >= 0;
}

int blobmsg_parse(const struct blobmsg_policy *policy, int policy_len,
		  struct blob_attr **tb, void *data, unsigned int len)
{
	if (policy_len > 0)
		memset(tb, 0, static_cast<size_t>(policy_len) * sizeof(*tb));
	if (!data || !len)
		return -EINVAL;

	struct blob_attr *pos;
	unsigned int rem = len;
	__blob_for_each_attr(pos, data, rem) {
		if (!blobmsg_check_attr_len(pos, false, rem))
			return -1;
		if (!blob_is_extended(pos))
			continue;
		const struct blobmsg_hdr *hdr = static_cast<const struct blobmsg_hdr *>(blob_data(pos));
		size_t namelen = blobmsg_namelen(hdr);
		int type = blobmsg_type(pos);
		for (int i = 0; i < policy_len; i++) {
			if (tb[i] || !policy[i].name)
				continue;
			if (!type_matches(policy[i].type, type))
				continue;
			// Names of 256 bytes or more never match: the platform keeps a
			// policy name's length in 8 bits.
			size_t want = strlen(policy[i].name);
			if (want > UINT8_MAX || want != namelen ||
			    memcmp(policy[i].name, hdr->name, namelen) != 0)
				continue;
			tb[i] = pos;  // and every other empty slot of that name and type
		}
	}
	return 0;
}

int blobmsg_parse_array(const struct blobmsg_policy *policy, int policy_len,
			struct blob_attr **tb, void *data, unsigned int len)
{
	if (policy_len <= 0)
		return 0;  // no slot to fill; the platform would read policy[0]
	memset(tb, 0, static_cast<size_t>(policy_len) * sizeof(*tb));
	if (!data)
		return 0;

	// Elements fill the slots in order. One whose type is not exactly the
	// current slot's (CAST_INT64 matches nothing here) is skipped unchecked
	// and the slot waits for the next element.
	struct blob_attr *pos;
	unsigned int rem = len;
	int i = 0;
	__blob_for_each_attr(pos, data, rem) {
		if (policy[i].type != BLOBMSG_TYPE_UNSPEC &&
		    blobmsg_type(pos) != static_cast<int>(policy[i].type))
			continue;
		if (!blobmsg_check_attr_len(pos, false, rem))
			return -1;
		tb[i++] = pos;
		if (i == policy_len)
			break;
	}
	return 0;
}

// A string whose length is not known yet: the attribute is written after
// the open table or array without being counted in it, so that it can
// still grow; blobmsg_add_string_buffer counts it once the text is in.
void *blobmsg_alloc_string_buffer(struct blob_buf *buf, const char *name, unsigned int maxlen)
{
	void *data = nullptr;
	struct blob_attr *attr = blobmsg_new(buf, BLOBMSG_TYPE_STRING, name, size_t{maxlen} + 1, &data);
	if (!attr)
		return nullptr;
	blob_set_raw_len(buf->head, static_cast<unsigned int>(blob_pad_len(buf->head) - blob_pad_len(attr)));
	blob_set_raw_len(attr, static_cast<unsigned int>(blob_raw_len(attr) - maxlen - 1));
	return data;
}

// Room for maxlen bytes and the NUL after the pending string's name header.
void *blobmsg_realloc_string_buffer(struct blob_buf *buf, unsigned int maxlen)
{
	size_t data_off = pending_data_offset(buf);
	size_t want = data_off + ((size_t{maxlen} + 1 + 3) & ~size_t{3});  // its padding is written too
	size_t have = static_cast<size_t>(buf->buflen);
	if (want > have && !blob_buf_grow(buf, static_cast<int>(want - have)))
		return nullptr;
	return static_cast<char *>(buf->buf) + data_off;
}

void blobmsg_add_string_buffer(struct blob_buf *buf)
{
	size_t data_off = pending_data_offset(buf);
	size_t room = static_cast<size_t>(buf->buflen) - data_off;
	const char *text = static_cast<const char *>(buf->buf) + data_off;
	size_t len = strnlen(text, room) + 1;
	struct blob_attr *attr = blob_next(buf->head);
	size_t raw = blob_raw_len(attr) + len;
	// A text that overran its room (no NUL, or padding past the end) is
	// dropped rather than counted with bytes outside the buffer.
	if (len > room || data_off - blob_raw_len(attr) + ((raw + 3) & ~size_t{3}) > static_cast<size_t>(buf->buflen))
		return;
	blob_set_raw_len(attr, static_cast<unsigned int>(raw));
	blob_fill_pad(attr);
	blob_set_raw_len(buf->head, static_cast<unsigned int>(blob_raw_len(buf->head) + blob_pad_len(attr)));
}

int blobmsg_vprintf(struct blob_buf *buf, const char *name, const char *format, va_list arg)
{
	va_list measure;
	va_copy(measure, arg);
	char c;
	int len = vsnprintf(&c, sizeof(c), format, measure); // NOLINT(clang-analyzer-valist.Uninitialized): va_copy above
	va_end(measure);
	if (len < 0)
		return -1;
	char *text = static_cast<char *>(blobmsg_alloc_string_buffer(buf, name, static_cast<unsigned int>(len)));
	if (!text)
		return -1;
	int ret = vsnprintf(text, static_cast<size_t>(len) + 1, format, arg); // NOLINT(clang-analyzer-valist.Uninitialized): started by the caller
	if (ret < 0)
		return -1;
	blobmsg_add_string_buffer(buf);
	return ret;
}

int blobmsg_printf(struct blob_buf *buf, const char *name, const char *format, ...)
{
	va_list ap;
	va_start(ap, format);
	int ret = blobmsg_vprintf(buf, name, format, ap);
	va_end(ap);
	return ret;
}

} // extern "C"
