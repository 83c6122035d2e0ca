/*
 * The helpers of the platform's libubox/utils.h that blob code relies on:
 * ARRAY_SIZE for policies, container_of, __packed, and the byte-order
 * conversions (the wire is big-endian whatever the host). The standard
 * headers are those the platform's header brings in, so daemon code that
 * leans on them builds the same against either library.
 */
#ifndef __LIBUBOX_UTILS_H
#define __LIBUBOX_UTILS_H

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/types.h>
#include <time.h>
#include <unistd.h>

#ifndef ARRAY_SIZE
#define ARRAY_SIZE(arr) (sizeof(arr) / sizeof((arr)[0]))
#endif

/* The platform has it in list.h; daemons built against this layer get it here. */
#ifndef container_of
#define container_of(ptr, type, member) \
	((type *) ((char *) (ptr) - offsetof(type, member)))
#endif

#ifndef __packed
#define __packed __attribute__((packed))
#endif

#define __constant_swap16(x) ((uint16_t) __builtin_bswap16((uint16_t) (x)))
#define __constant_swap32(x) ((uint32_t) __builtin_bswap32((uint32_t) (x)))
#define __constant_swap64(x) ((uint64_t) __builtin_bswap64((uint64_t) (x)))

#if __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
#define cpu_to_be16(x) __constant_swap16(x)
#define cpu_to_be32(x) __constant_swap32(x)
#define cpu_to_be64(x) __constant_swap64(x)
#define cpu_to_le16(x) (x)
#define cpu_to_le32(x) (x)
#define cpu_to_le64(x) (x)
#else
#define cpu_to_be16(x) (x)
#define cpu_to_be32(x) (x)
#define cpu_to_be64(x) (x)
#define cpu_to_le16(x) __constant_swap16(x)
#define cpu_to_le32(x) __constant_swap32(x)
#define cpu_to_le64(x) __constant_swap64(x)
#endif

/* Each conversion is its own inverse. */
#define be16_to_cpu(x) cpu_to_be16(x)
#define be32_to_cpu(x) cpu_to_be32(x)
#define be64_to_cpu(x) cpu_to_be64(x)
#define le16_to_cpu(x) cpu_to_le16(x)
#define le32_to_cpu(x) cpu_to_le32(x)
#define le64_to_cpu(x) cpu_to_le64(x)
#define const_cpu_to_be16(x) cpu_to_be16(x)
#define const_cpu_to_be32(x) cpu_to_be32(x)
#define const_cpu_to_be64(x) cpu_to_be64(x)
#define const_be16_to_cpu(x) cpu_to_be16(x)
#define const_be32_to_cpu(x) cpu_to_be32(x)
#define const_be64_to_cpu(x) cpu_to_be64(x)
#define const_cpu_to_le16(x) cpu_to_le16(x)
#define const_cpu_to_le32(x) cpu_to_le32(x)
#define const_cpu_to_le64(x) cpu_to_le64(x)
#define const_le16_to_cpu(x) cpu_to_le16(x)
#define const_le32_to_cpu(x) cpu_to_le32(x)
#define const_le64_to_cpu(x) cpu_to_le64(x)

#endif
