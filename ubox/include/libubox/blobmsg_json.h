/*
 * JSON <-> blobmsg conversion (json-c for parsing, own formatter for output).
 * Like the platform's header it only names json-c's object type; callers
 * that build objects include json-c themselves.
 *
 * No extern "C" guard on purpose; see blob.h.
 */
#ifndef __BLOBMSG_JSON_H
#define __BLOBMSG_JSON_H

struct json_object;

#include <stdbool.h>

#include "blobmsg.h"

bool blobmsg_add_object(struct blob_buf *b, struct json_object *obj);
bool blobmsg_add_json_element(struct blob_buf *b, const char *name, struct json_object *obj);
bool blobmsg_add_json_from_string(struct blob_buf *b, const char *str);
bool blobmsg_add_json_from_file(struct blob_buf *b, const char *file);

/*
 * Optional per-value hook for the formatter: called for every value that is
 * printed; a non-null result is written verbatim in place of the value.
 */
typedef const char *(*blobmsg_json_format_t)(void *priv, struct blob_attr *attr);

/*
 * Renders attr as JSON into a malloc'd string (NULL on failure). With list,
 * the members of attr are rendered as one object (as an array when attr is
 * an ARRAY member); otherwise attr as a member, its name first when it has
 * one. indent < 0: compact; indent >= 0: one member per line, tab-indented,
 * starting indent + 1 tabs deep.
 */
char *blobmsg_format_json_with_cb(struct blob_attr *attr, bool list,
				  blobmsg_json_format_t cb, void *priv, int indent);

static inline char *blobmsg_format_json(struct blob_attr *attr, bool list)
{
	return blobmsg_format_json_with_cb(attr, list, NULL, NULL, -1);
}

static inline char *blobmsg_format_json_indent(struct blob_attr *attr, bool list, int indent)
{
	return blobmsg_format_json_with_cb(attr, list, NULL, NULL, indent);
}

/* attr's value alone, without its name. */
char *blobmsg_format_json_value_with_cb(struct blob_attr *attr, blobmsg_json_format_t cb,
					void *priv, int indent);

static inline char *blobmsg_format_json_value(struct blob_attr *attr)
{
	return blobmsg_format_json_value_with_cb(attr, NULL, NULL, -1);
}

static inline char *blobmsg_format_json_value_indent(struct blob_attr *attr, int indent)
{
	return blobmsg_format_json_value_with_cb(attr, NULL, NULL, indent);
}

#endif
