// Nest cookies shared by blob_nest_start and blobmsg_open_nested.
//
// A cookie is the offset of the enclosing attribute in the buffer, not a
// pointer, so it stays valid when the memory moves on reallocation. It is
// biased, as the platform's, so that no valid cookie is null (null means
// "open failed").
#ifndef BLOBXLATE_UBOX_NEST_COOKIE_H
#define BLOBXLATE_UBOX_NEST_COOKIE_H

#include <cstddef>
#include <cstdint>

namespace ubox_internal {

constexpr uintptr_t kCookieBias = BLOB_COOKIE;

inline void *offset_to_cookie(size_t offset)
{
	return reinterpret_cast<void *>(static_cast<uintptr_t>(offset) + kCookieBias);
}

// False for null or foreign values.
inline bool cookie_to_offset(const void *cookie, size_t *offset)
{
	uintptr_t c = reinterpret_cast<uintptr_t>(cookie);
	if (c < kCookieBias)
		return false;
	*offset = static_cast<size_t>(c - kCookieBias);
	return true;
}

inline size_t head_offset(const struct blob_buf *buf)
{
	if (!buf->buf || !buf->head)
		return 0;
	return static_cast<size_t>(reinterpret_cast<const char *>(buf->head) -
				   static_cast<const char *>(buf->buf));
}

} // namespace ubox_internal

#endif
