/* The two dispatch tables. The row order and the name texts are part of the
 * interface (the name texts appear in the dispatchers' trace lines and
 * differ between the two tables for many types); each row carries its
 * position as a comment. Both tables end with a closing row that the
 * dispatchers' inclusive scan may look at but never matches. */
#include "blobxlate.h"
#include "core/tables.h"

namespace {

int closing_row_to_json(const void *, struct blob_buf *) { return 0; }
int closing_row_to_struct(struct blob_attr *, void *) { return 0; }

constexpr MessageTransEntry stj(const char *name, int32_t id, StructToJsonFunc fn)
{
    return {.name = name, .id = id, .converter = {.toJson = fn}};
}

constexpr MessageTransEntry jts(const char *name, int32_t id, JsonToStructFunc fn)
{
    return {.name = name, .id = id, .converter = {.toStruct = fn}};
}

} // namespace

extern "C" {

constinit const MessageTransEntry g_astStructToJson_Func[] = {
    /*   0 */ stj("Ret", MSG_RET, STJ_Ret),
    /*  93 */ stj("FilterUrl", MSG_FILTER_URL_SWITCH, STJ_FilterUrl_Switch),
    /*  94 */ stj("FilterUrl", MSG_FILTER_URL, STJ_FilterUrl_Set),
    /*  95 */ stj("FilterDns", MSG_FILTER_DNS, STJ_FilterDns_Set),
    /*  96 */ stj("FilterUrl_Reply", MSG_FILTER_URL_REPLY, STJ_FilterUrl_Reply),
    /*  97 */ stj("FilterDns_Reply", MSG_FILTER_DNS_REPLY, STJ_FilterDns_Reply),
    /*  98 */ stj("FilterUrl_List", MSG_FILTER_URL_LIST, STJ_FilterUrl_List),
    /*  99 */ stj("FilterDns_List", MSG_FILTER_DNS_LIST, STJ_FilterDns_List),
    /* closing row */ stj(nullptr, bx::kClosingRowId, closing_row_to_json),
};
const int32_t g_iStructToJson_FuncNum =
    static_cast<int32_t>(sizeof g_astStructToJson_Func / sizeof g_astStructToJson_Func[0]) - 1;

constinit const MessageTransEntry g_astJsonToStruct_Func[] = {
    /*   0 */ jts("Ret", MSG_RET, JTS_Ret),
    /*  34 */ jts("FilterUrl", MSG_FILTER_URL_SWITCH, JTS_FilterUrl_Switch),
    /*  35 */ jts("FilterUrl", MSG_FILTER_URL_LIST, JTS_FilterUrl_Get),
    /*  36 */ jts("FilterUrl", MSG_FILTER_URL, JTS_FilterUrl_Set),
    /*  37 */ jts("FilterUrlReply", MSG_FILTER_URL_REPLY, JTS_FilterUrl_Set_Reply),
    /*  38 */ jts("FilterDns", MSG_FILTER_DNS_LIST, JTS_FilterDns_Get),
    /*  39 */ jts("FilterDns", MSG_FILTER_DNS, JTS_FilterDns_Set),
    /*  40 */ jts("FilterDnsReply", MSG_FILTER_DNS_REPLY, JTS_FilterDns_Set_Reply),
    /* closing row */ jts(nullptr, bx::kClosingRowId, closing_row_to_struct),
};
const int32_t g_iJsonToStruct_FuncNum =
    static_cast<int32_t>(sizeof g_astJsonToStruct_Func / sizeof g_astJsonToStruct_Func[0]) - 1;

} // extern "C"
