/*
 * A method handler written the way libubox daemons write them, in C, built
 * against whichever libubox the build uses: it must compile and answer alike
 * with both. test_ubox.cpp checks the answer.
 */
#include <libubox/blobmsg_json.h>

enum { REQ_NAME, REQ_COUNT, REQ_LIST, REQ_RAW, __REQ_MAX };

static const struct blobmsg_policy request_policy[__REQ_MAX] = {
	[REQ_NAME] = {.name = "name", .type = BLOBMSG_TYPE_STRING},
	[REQ_COUNT] = {.name = "count", .type = BLOBMSG_CAST_INT64},
	[REQ_LIST] = {.name = "list", .type = BLOBMSG_TYPE_ARRAY},
	[REQ_RAW] = {.name = "list", .type = BLOBMSG_TYPE_UNSPEC},
};

/* The reply to a JSON request, as JSON text (malloc'd), or NULL. */
char *ubox_daemon_answer(const char *request)
{
	struct blob_buf req = {0}, reply = {0};
	struct blob_attr *tb[__REQ_MAX], *cur, *copy;
	char *text;
	size_t rem;

	blob_buf_init(&req, 0);
	if (!blobmsg_add_json_from_string(&req, request) ||
	    blobmsg_parse(request_policy, ARRAY_SIZE(request_policy), tb, blob_data(req.head),
			  blob_len(req.head)) < 0) {
		blob_buf_free(&req);
		return NULL;
	}
	blobmsg_buf_init(&reply);
	if (tb[REQ_NAME])
		blobmsg_printf(&reply, "hello", "%s-%d", blobmsg_get_string(tb[REQ_NAME]), 42);
	if (tb[REQ_COUNT]) {
		blobmsg_add_u64(&reply, "u", blobmsg_cast_u64(tb[REQ_COUNT]));
		blobmsg_add_u64(&reply, "s", (uint64_t) blobmsg_cast_s64(tb[REQ_COUNT]));
	}
	if (tb[REQ_LIST] && blobmsg_check_attr_list(tb[REQ_LIST], BLOBMSG_TYPE_STRING)) {
		void *list = blobmsg_open_array(&reply, "list");
		blobmsg_for_each_attr(cur, tb[REQ_LIST], rem)
			blobmsg_add_blob(&reply, cur);
		blobmsg_close_array(&reply, list);
	}
	blobmsg_add_u8(&reply, "same", tb[REQ_RAW] == tb[REQ_LIST]);
	text = blobmsg_alloc_string_buffer(&reply, "buf", 2);
	strcpy(text, "ab");
	text = blobmsg_realloc_string_buffer(&reply, 6);
	strcat(text, "cdef");
	blobmsg_add_string_buffer(&reply);

	copy = blob_memdup(reply.head);
	blobmsg_add_u8(&reply, "equal", blob_attr_equal(copy, reply.head));
	free(copy);
	text = blobmsg_format_json(reply.head, true);
	blob_buf_free(&reply);
	blob_buf_free(&req);
	return text;
}
