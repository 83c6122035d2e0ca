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
    /* 116 */ stj("PortNum", MSG_PORT_NUM, STJ_PortNum),
    /* 117 */ stj("StaList", MSG_PORT_STATUS, STJ_PortStatus),
    /* 118 */ stj("StaList", MSG_PORT_TRAFFIC, STJ_PortTraffic),
    /* 119 */ stj("StaList", MSG_PORT_RATE, STJ_PortRate),
    /* 120 */ stj("PortMAC", MSG_PORT_MAC, STJ_PortMAC),
    /* 121 */ stj("PortUpDown", MSG_PORT_UP_DOWN, STJ_PortUpDown),
    /* 122 */ stj("StaList", MSG_STA_LIST, STJ_StaList),
    /* 123 */ stj("StaInfoByMac", MSG_STA_INFO_BY_MAC, STJ_StaInfoByMac),
    /* 124 */ stj("StaWifiPwdErr", MSG_STA_WIFI_PWD_ERR, STJ_StaWifiPwdErr),
    /* 125 */ stj("StaTraffic", MSG_STA_TRAFFIC, STJ_StaTraffic),
    /* 126 */ stj("StaNum", MSG_STA_NUM, STJ_StaNum),
    /* 127 */ stj("StaName", MSG_STA_NAME, STJ_StaName),
    /* 128 */ stj("StaModel", MSG_STA_MODEL, STJ_StaModel),
    /* closing row */ stj(nullptr, bx::kClosingRowId, closing_row_to_json),
};
const int32_t g_iStructToJson_FuncNum =
    static_cast<int32_t>(sizeof g_astStructToJson_Func / sizeof g_astStructToJson_Func[0]) - 1;

constinit const MessageTransEntry g_astJsonToStruct_Func[] = {
    /*   0 */ jts("Ret", MSG_RET, JTS_Ret),
    /*  41 */ jts("PortNum", MSG_PORT_NUM, JTS_PortNum),
    /*  42 */ jts("PortStatus", MSG_PORT_STATUS, JTS_PortStatus),
    /*  43 */ jts("PortTraffic", MSG_PORT_TRAFFIC, JTS_PortTraffic),
    /*  44 */ jts("PortRate", MSG_PORT_RATE, JTS_PortRate),
    /*  45 */ jts("PortMAC", MSG_PORT_MAC, JTS_PortMAC),
    /*  46 */ jts("PortUpDown", MSG_PORT_UP_DOWN, JTS_PortUpDown),
    /*  72 */ jts("StaList", MSG_STA_LIST, JTS_StaList),
    /*  73 */ jts("StaInfoByMac", MSG_STA_INFO_BY_MAC, JTS_StaInfoByMac),
    /*  74 */ jts("StaWifiPwdErr", MSG_STA_WIFI_PWD_ERR, JTS_WifiPwdErr),
    /*  75 */ jts("StaTraffic", MSG_STA_TRAFFIC, JTS_StaTraffic),
    /*  76 */ jts("StaNum", MSG_STA_NUM, JTS_StaNum),
    /*  77 */ jts("StaName", MSG_STA_NAME, JTS_StaName),
    /*  89 */ jts("StaModel", MSG_STA_MODEL, JTS_StaModel),
    /* closing row */ jts(nullptr, bx::kClosingRowId, closing_row_to_struct),
};
const int32_t g_iJsonToStruct_FuncNum =
    static_cast<int32_t>(sizeof g_astJsonToStruct_Func / sizeof g_astJsonToStruct_Func[0]) - 1;

} // extern "C"
