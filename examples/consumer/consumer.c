/* A program built against an installed blobxlate with nothing but what the
 * install gives it: pkg-config (scripts/consumer-test) or find_package (the
 * CMakeLists.txt beside it). It sends a WAN status record as a message,
 * receives it back and prints it as JSON text; it exits 0 when the address
 * and the link speed came back. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <blobxlate.h>
#include <libubox/blobmsg_json.h>

int main(void)
{
	struct blob_buf buf;
	WanStatusInfo sent, back;
	char *text;
	int ok;

	memset(&buf, 0, sizeof(buf));
	memset(&sent, 0, sizeof(sent));
	memset(&back, 0, sizeof(back));
	strcpy(sent.szIp, "100.64.12.7");
	sent.uiLinkSpeed = 1000;
	blob_buf_init(&buf, 0);
	ok = STRUCT_TRANS_JSON(MSG_WAN_STATUS, &sent, &buf) == 0 &&
	     JSON_TRANS_STRUCT(MSG_WAN_STATUS, buf.head, &back) == 0 &&
	     strcmp(back.szIp, sent.szIp) == 0 && back.uiLinkSpeed == sent.uiLinkSpeed;
	text = blobmsg_format_json(buf.head, true);
	printf("consumer: %s %s\n", ok ? "round trip whole:" : "round trip BROKEN:", text ? text : "(no JSON)");
	free(text);
	blob_buf_free(&buf);
	return ok && text ? 0 : 1;
}
