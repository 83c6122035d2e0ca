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
    /*  70 */ stj("WanStatus", MSG_WAN_STATUS, STJ_WanStatus),
    /*  71 */ stj("IPv6Info", MSG_IPV6_INFO, STJ_IPv6Info),
    /*  72 */ stj("IPv6Enable", MSG_IPV6_ENABLE, STJ_IPv6Enable),
    /*  73 */ stj("Dhcp", MSG_DHCP, STJ_Dhcp),
    /*  74 */ stj("Static", MSG_STATIC, STJ_Static),
    /*  75 */ stj("Pppoe", MSG_PPPOE, STJ_Pppoe),
    /*  88 */ stj("Ping", MSG_PING, STJ_Ping),
    /*  89 */ stj("TraceRoute", MSG_TRACE_ROUTE, STJ_TraceRoute),
    /*  90 */ stj("Ping_Result", MSG_PING_RESULT, STJ_Ping_Result),
    /*  91 */ stj("TraceRoute_Result", MSG_TRACE_ROUTE_RESULT, STJ_TraceRoute_Result),
    /*  92 */ stj("UplinkSupport", MSG_UPLINK_SUPPORT, STJ_UplinkSupport),
    /* closing row */ stj(nullptr, bx::kClosingRowId, closing_row_to_json),
};
const int32_t g_iStructToJson_FuncNum =
    static_cast<int32_t>(sizeof g_astStructToJson_Func / sizeof g_astStructToJson_Func[0]) - 1;

constinit const MessageTransEntry g_astJsonToStruct_Func[] = {
    /*   0 */ jts("Ret", MSG_RET, JTS_Ret),
    /*  49 */ jts("WanStatus", MSG_WAN_STATUS, JTS_WanStatus),
    /*  50 */ jts("IPv6Info", MSG_IPV6_INFO, JTS_IPv6Info),
    /*  51 */ jts("IPv6Enable", MSG_IPV6_ENABLE, JTS_IPv6Enable),
    /*  52 */ jts("Dhcp", MSG_DHCP, JTS_Dhcp),
    /*  53 */ jts("Static", MSG_STATIC, JTS_Static),
    /*  54 */ jts("Pppoe", MSG_PPPOE, JTS_Pppoe),
    /*  67 */ jts("Ping", MSG_PING, JTS_Ping),
    /*  68 */ jts("TraceRoute", MSG_TRACE_ROUTE, JTS_TraceRoute),
    /*  69 */ jts("PingResult", MSG_PING_RESULT, JTS_PingResult),
    /*  70 */ jts("TraceRouteResult", MSG_TRACE_ROUTE_RESULT, JTS_TraceRouteResult),
    /*  71 */ jts("UplinkSupport", MSG_UPLINK_SUPPORT, JTS_UplinkSupport),
    /* closing row */ jts(nullptr, bx::kClosingRowId, closing_row_to_struct),
};
const int32_t g_iJsonToStruct_FuncNum =
    static_cast<int32_t>(sizeof g_astJsonToStruct_Func / sizeof g_astJsonToStruct_Func[0]) - 1;

} // extern "C"
