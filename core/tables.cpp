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
    /*  20 */ stj("WifiSelect", MSG_WIFI_SELECT, STJ_WifiSelect),
    /*  21 */ stj("WifiStatus", MSG_WIFI_STATUS, STJ_WifiStatus),
    /*  22 */ stj("WifiOpt", MSG_WIFI_OPT, STJ_WifiOpt),
    /*  32 */ stj("Wifi5Status", MSG_WIFI5_STATUS, STJ_Wifi5Status),
    /*  33 */ stj("RadioBasic", MSG_RADIO_BASIC, STJ_RadioBasic),
    /*  34 */ stj("ApBasic", MSG_AP_BASIC, STJ_ApBasic),
    /*  35 */ stj("ApAdvanced", MSG_AP_ADVANCED, STJ_ApAdvanced),
    /*  36 */ stj("ApRateLimit", MSG_AP_RATE_LIMIT, STJ_ApRateLimit),
    /*  37 */ stj("ApAccessMode", MSG_AP_ACCESS_MODE, STJ_ApAccessMode),
    /*  38 */ stj("ApAccessRule", MSG_AP_ACCESS_RULE, STJ_ApAccessRule),
    /*  39 */ stj("ApAdd", MSG_AP_ADD, STJ_ApAdd),
    /*  40 */ stj("ApDelete", MSG_AP_DELETE, STJ_ApDelete),
    /* closing row */ stj(nullptr, bx::kClosingRowId, closing_row_to_json),
};
const int32_t g_iStructToJson_FuncNum =
    static_cast<int32_t>(sizeof g_astStructToJson_Func / sizeof g_astStructToJson_Func[0]) - 1;

constinit const MessageTransEntry g_astJsonToStruct_Func[] = {
    /*   0 */ jts("Ret", MSG_RET, JTS_Ret),
    /* 109 */ jts("WifiSelect", MSG_WIFI_SELECT, JTS_WifiRadio),
    /* 110 */ jts("WifiStatus", MSG_WIFI_STATUS, JTS_WifiStatus),
    /* 111 */ jts("WifiOpt", MSG_WIFI_OPT, JTS_WifiOpt),
    /* 120 */ jts("Wifi5Status", MSG_WIFI5_STATUS, JTS_Wifi5Status),
    /* 121 */ jts("RadioBasic", MSG_RADIO_BASIC, JTS_RadioBasic),
    /* 122 */ jts("ApBasic", MSG_AP_BASIC, JTS_ApBasic),
    /* 123 */ jts("ApAdvanced", MSG_AP_ADVANCED, JTS_ApAdvanced),
    /* 124 */ jts("ApRateLimit", MSG_AP_RATE_LIMIT, JTS_ApRateLimit),
    /* 125 */ jts("ApAccessMode", MSG_AP_ACCESS_MODE, JTS_ApAccessMode),
    /* 126 */ jts("ApAccessRule", MSG_AP_ACCESS_RULE, JTS_ApAccessRule),
    /* 127 */ jts("ApAdd", MSG_AP_ADD, JTS_ApAdd),
    /* 128 */ jts("ApDelete", MSG_AP_DELETE, JTS_ApDelete),
    /* closing row */ jts(nullptr, bx::kClosingRowId, closing_row_to_struct),
};
const int32_t g_iJsonToStruct_FuncNum =
    static_cast<int32_t>(sizeof g_astJsonToStruct_Func / sizeof g_astJsonToStruct_Func[0]) - 1;

} // extern "C"
