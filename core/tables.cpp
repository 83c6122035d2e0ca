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
    /*  23 */ stj("WifiDeassociation", MSG_WIFI_DEASSOCIATION, STJ_WifiStaDeassociation),
    /*  41 */ stj("ScanWlanNeighbour", MSG_SCAN_WLAN_NEIGHBOUR, STJ_ScanWlanNeighbour),
    /*  42 */ stj("WlanNeighbour", MSG_WLAN_NEIGHBOUR, STJ_WlanNeighbour),
    /*  43 */ stj("WpsPbc", MSG_WPS_PBC, STJ_WpsPbc),
    /*  44 */ stj("ChannelScan", MSG_CHANNEL_SCAN, STJ_ChannelScan),
    /*  45 */ stj("ChannelScore", MSG_CHANNEL_SCORE, STJ_ChannelScore),
    /*  63 */ stj("L2Roaming", MSG_L2_ROAMING, STJ_L2_Roaming),
    /*  64 */ stj("Roaming", MSG_ROAMING, STJ_Roaming),
    /*  65 */ stj("Roaming AP Rssi Query", MSG_ROAMING_AP_RSSI_QUERY, STJ_Roaming_APQuery),
    /*  66 */ stj("Roaming AP Rssi RSP", MSG_ROAMING_AP_RSSI_RSP, STJ_Roaming_APRsp),
    /*  67 */ stj("Roaming BSS Trans", MSG_ROAMING_BSS_TRANS, STJ_Roaming_BssTrans),
    /*  68 */ stj("Roaming Sta Rssi", MSG_ROAMING_STA_RSSI, STJ_Roaming_StaRssi),
    /*  69 */ stj("Roaming report", MSG_ROAMING_REPORT, STJ_Roaming_Report),
    /* 113 */ stj("wifi balckwihite add", MSG_WIFI_BLACK_WHITE_ADD, STJ_WifiBlackWhite_Add),
    /* 114 */ stj("wifi balckwihite delete", MSG_WIFI_BLACK_WHITE_DELETE, STJ_WifiBlackWhite_Delete),
    /* 115 */ stj("wifi balckwihite list", MSG_WIFI_BLACK_WHITE_LIST, STJ_WifiBlackWhite_List),
    /* closing row */ stj(nullptr, bx::kClosingRowId, closing_row_to_json),
};
const int32_t g_iStructToJson_FuncNum =
    static_cast<int32_t>(sizeof g_astStructToJson_Func / sizeof g_astStructToJson_Func[0]) - 1;

constinit const MessageTransEntry g_astJsonToStruct_Func[] = {
    /*   0 */ jts("Ret", MSG_RET, JTS_Ret),
    /*  26 */ jts("L2Roaming", MSG_L2_ROAMING, JTS_L2_Roaming),
    /*  27 */ jts("Roaming", MSG_ROAMING, JTS_Roaming),
    /*  28 */ jts("Roaming AP Rssi Query", MSG_ROAMING_AP_RSSI_QUERY, JTS_Roaming_APQuery),
    /*  29 */ jts("Roaming AP Rssi RSP", MSG_ROAMING_AP_RSSI_RSP, JTS_Roaming_APRsp),
    /*  30 */ jts("Roaming BSS Trans", MSG_ROAMING_BSS_TRANS, JTS_Roaming_BssTrans),
    /*  31 */ jts("Roaming report", MSG_ROAMING_REPORT, JTS_Roaming_Report),
    /*  32 */ jts("Roaming sta Rssi", MSG_ROAMING_STA_RSSI, JTS_Roaming_StaRssi),
    /*  33 */ jts("Roaming Stopdetect", MSG_ROAMING_STOPDETECT, JTS_Roaming_StopDetect),
    /* 112 */ jts("WifiDeassociation", MSG_WIFI_DEASSOCIATION, JTS_WifiStaDeassociation),
    /* 129 */ jts("ScanWlanNeighbour", MSG_SCAN_WLAN_NEIGHBOUR, JTS_ScanWlanNeighbour),
    /* 130 */ jts("WlanNeighbour", MSG_WLAN_NEIGHBOUR, JTS_WlanNeighbour),
    /* 131 */ jts("WpsPbc", MSG_WPS_PBC, JTS_WpsPbc),
    /* 132 */ jts("Channel scan", MSG_CHANNEL_SCAN, JTS_ChannelScan),
    /* 133 */ jts("ChannelScore", MSG_CHANNEL_SCORE, JTS_ChannelScore),
    /* 142 */ jts("wifi balckwihite add", MSG_WIFI_BLACK_WHITE_ADD, JTS_WifiBlackWhite_Add),
    /* 143 */ jts("wifi balckwihite delete", MSG_WIFI_BLACK_WHITE_DELETE, JTS_WifiBlackWhite_Delete),
    /* 144 */ jts("wifi balckwihite list", MSG_WIFI_BLACK_WHITE_LIST, JTS_WifiBlackWhite_List),
    /* closing row */ jts(nullptr, bx::kClosingRowId, closing_row_to_struct),
};
const int32_t g_iJsonToStruct_FuncNum =
    static_cast<int32_t>(sizeof g_astJsonToStruct_Func / sizeof g_astJsonToStruct_Func[0]) - 1;

} // extern "C"
