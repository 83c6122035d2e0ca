// blobmsg: building named attributes, validating and parsing them.
//
// blobmsg_check_attr_len is what stands between a received message and the
// code that reads values out of it, so it reads nothing outside
// [attr, attr + len): the header only once 4 bytes are known to be there, the
// name length only once the payload is known to hold it, and so on.
#include <cerrno>
#include <cstdint>
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
	case BLOBMSG_TYPE_DOUBLE:
		return len == 8;
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
	// Members go after the name header; blob_nest_end sets the parent's
	// length from where the nest ends.
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
	if (!blobmsg_check_attr_len(attr, false, len))
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
			if (strlen(policy[i].name) != namelen ||
			    memcmp(policy[i].name, hdr->name, namelen) != 0)
				continue;
			tb[i] = pos;
			break;
		}
	}
	return 0;
}

int blobmsg_parse_array(const struct blobmsg_policy *policy, int policy_len,
			struct blob_attr **tb, void *data, unsigned int len)
{
	if (policy_len > 0)
		memset(tb, 0, static_cast<size_t>(policy_len) * sizeof(*tb));
	if (!data || !len)
		return -EINVAL;

	// Elements are matched by position: the i-th element goes to tb[i] when
	// its type suits policy[i]; otherwise tb[i] stays null.
	struct blob_attr *pos;
	unsigned int rem = len;
	int i = 0;
	__blob_for_each_attr(pos, data, rem) {
		if (i >= policy_len)
			break;
		if (!blobmsg_check_attr_len(pos, false, rem))
			return -1;
		if (type_matches(policy[i].type, blobmsg_type(pos)))
			tb[i] = pos;
		i++;
	}
	return 0;
}

} // extern "C"
