/*
 * A ubus daemon that answers with blobxlate.
 *
 * It registers the object "blobxlate" with one method per message type that
 * converts in both directions, named "t" and the type number ("t22" for the
 * WAN status). A call's arguments are taken as a message of that type: they
 * are converted into the type's record, the way a daemon receives an order,
 * and the record is converted back into the reply, the way it answers.
 *
 *   ubus_daemon [-s SOCKET]
 *   ubus call blobxlate t22 '{"workmode":"DHCP","linkstatus":"enable"}'
 *
 * A message the converter turns down is answered with "Invalid argument".
 */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

#include <libubox/uloop.h>
#include <libubus.h>

#include "blobxlate.h"

enum {
	RECORD_BYTES = 128 * 1024, /* larger than any record */
	STATION_CAPACITY = 64      /* entries offered to the station list */
};

/* One call at a time (uloop runs the handlers in turn), so the record and
 * the reply buffer are shared by all methods. */
static unsigned char g_record[RECORD_BYTES] __attribute__((aligned(16)));
static StaEntry g_stations[STATION_CAPACITY];
static struct blob_buf g_reply;

static int has_row(const MessageTransEntry *table, int count, int type)
{
	for (int i = 0; i < count; i++) {
		if (table[i].id == type)
			return 1;
	}
	return 0;
}

/* The entries the station list message fills: one per element of its
 * "stalist" array, up to the capacity offered. */
static unsigned stations_in(struct blob_attr *msg)
{
	static const struct blobmsg_policy policy[] = {{"stalist", BLOBMSG_TYPE_ARRAY}};
	struct blob_attr *list = NULL;
	struct blob_attr *cur;
	size_t rem;
	unsigned n = 0;

	blobmsg_parse(policy, 1, &list, blob_data(msg), blob_len(msg));
	blobmsg_for_each_attr(cur, list, rem) {
		if (n == STATION_CAPACITY)
			break;
		n++;
	}
	return n;
}

/* The record to convert into: zeroed, and for the station list pointing at
 * our array of entries. */
static void *fresh_record(int type)
{
	StaListInfo *list = (StaListInfo *) g_record;

	memset(g_record, 0, sizeof(g_record));
	if (type == MSG_STA_LIST) {
		memset(g_stations, 0, sizeof(g_stations));
		list->uiStaNumofEsps = STATION_CAPACITY;
		list->pstListInfo = g_stations;
	}
	return g_record;
}

static int convert(struct ubus_context *ctx, struct ubus_object *obj, struct ubus_request_data *req,
		   const char *method, struct blob_attr *msg)
{
	int type = atoi(method + 1);
	void *record = fresh_record(type);

	(void) obj;
	if (JSON_TRANS_STRUCT(type, msg, record) != 0)
		return UBUS_STATUS_INVALID_ARGUMENT;
	if (type == MSG_STA_LIST)
		((StaListInfo *) record)->uiStaNumofEsps = stations_in(msg);

	blob_buf_init(&g_reply, 0);
	if (STRUCT_TRANS_JSON(type, record, &g_reply) != 0)
		return UBUS_STATUS_UNKNOWN_ERROR;
	return ubus_send_reply(ctx, req, g_reply.head);
}

/* One method per type with a row in both dispatch tables; its arguments
 * are the policy the type's JSON-to-struct converter parses with, so that
 * `ubus -v list` shows them. */
static int make_methods(struct ubus_method **methods)
{
	struct ubus_method *m = calloc((size_t) g_iJsonToStruct_FuncNum, sizeof(*m));
	int n = 0;

	if (!m)
		return -1;
	for (int i = 0; i < g_iJsonToStruct_FuncNum; i++) {
		int type = g_astJsonToStruct_Func[i].id;
		char *name = malloc(8);

		if (!has_row(g_astStructToJson_Func, g_iStructToJson_FuncNum, type))
			continue;
		if (!name)
			return -1;
		snprintf(name, 8, "t%d", type);
		m[n].name = name;
		m[n].handler = convert;
		m[n].policy = BLOBXLATE_Policy(type, &m[n].n_policy);
		n++;
	}
	*methods = m;
	return n;
}

int main(int argc, char **argv)
{
	static struct ubus_object_type object_type = {.name = "blobxlate"};
	static struct ubus_object object = {.name = "blobxlate", .type = &object_type};
	const char *socket_path = NULL;
	struct ubus_method *methods = NULL;
	struct ubus_context *ctx;
	int n, opt, ret;

	while ((opt = getopt(argc, argv, "s:")) != -1) {
		if (opt != 's') {
			fprintf(stderr, "usage: %s [-s SOCKET]\n", argv[0]);
			return 2;
		}
		socket_path = optarg;
	}

	n = make_methods(&methods);
	if (n < 0) {
		fprintf(stderr, "out of memory\n");
		return 1;
	}
	object_type.methods = object.methods = methods;
	object_type.n_methods = object.n_methods = n;

	uloop_init();
	ctx = ubus_connect(socket_path);
	if (!ctx) {
		fprintf(stderr, "cannot connect to ubus\n");
		return 1;
	}
	ubus_add_uloop(ctx);
	ret = ubus_add_object(ctx, &object);
	if (ret != 0) {
		fprintf(stderr, "cannot register blobxlate: %s\n", ubus_strerror(ret));
		return 1;
	}
	printf("blobxlate: %d methods\n", n);
	fflush(stdout);
	uloop_run();

	ubus_free(ctx);
	uloop_done();
	blob_buf_free(&g_reply);
	return 0;
}
