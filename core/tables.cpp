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
    /*   1 */ stj("HwInfo", MSG_HW_INFO, STJ_HwInfo),
    /*   2 */ stj("FwInfo", MSG_FW_INFO, STJ_FwInfo),
    /*   3 */ stj("ManuInfo", MSG_MANU_INFO, STJ_ManuInfo),
    /*   4 */ stj("ManageInfo", MSG_MANAGE_INFO, STJ_ManageInfo),
    /*   5 */ stj("FuncSupport", MSG_FUNC_SUPPORT, STJ_FuncSupport),
    /*   6 */ stj("CpuRate", MSG_CPU_RATE, STJ_CpuRate),
    /*   7 */ stj("MemRate", MSG_MEM_RATE, STJ_MemRate),
    /*   8 */ stj("FlashRate", MSG_FLASH_RATE, STJ_FlashRate),
    /*   9 */ stj("RunTimeInfo", MSG_RUN_TIME_INFO, STJ_RunTimeInfo),
    /*  10 */ stj("TcpOpenPort", MSG_TCP_OPEN_PORT, STJ_TcpOpenPort),
    /*  11 */ stj("UdpOpenPort", MSG_UDP_OPEN_PORT, STJ_UdpOpenPort),
    /*  12 */ stj("LedStatus", MSG_LED_STATUS, STJ_LedStatus),
    /*  13 */ stj("DualbandSyncStatus", MSG_DUALBAND_SYNC_STATUS, STJ_DualbandSyncStatus),
    /*  14 */ stj("Reboot", MSG_REBOOT, STJ_Reboot),
    /*  15 */ stj("Upgrade", MSG_UPGRADE, STJ_Upgrade),
    /*  16 */ stj("UpgradeStatus", MSG_UPGRADE_STATUS, STJ_UpgradeStatus),
    /*  17 */ stj("LedColour", MSG_LED_COLOUR, STJ_LedColour),
    /*  18 */ stj("LoginPassWord", MSG_LOGIN_PASSWORD, STJ_LoginPassWord),
    /*  19 */ stj("FireWall", MSG_FIRE_WALL, STJ_FireWall),
    /* 139 */ stj("StaStorageInfo", MSG_STA_STORAGE_INFO, STJ_StaStorageInfo),
    /* 140 */ stj("CustomInfo", MSG_CUSTOM_INFO, STJ_CustomInfo),
    /* 141 */ stj("CustomFactoryInfo", MSG_CUSTOM_FACTORY_INFO, STJ_CustomFactoryInfo),
    /* 142 */ stj("CTCCBasicInfo", MSG_CTCC_BASIC_INFO, STJ_CTCCBasicInfo),
    /* 143 */ stj("CTCCServerInfo", MSG_CTCC_SERVER_INFO, STJ_CTCCServerInfo),
    /* 144 */ stj("CTCCElinkStatus", MSG_CTCC_ELINK_STATUS, STJ_CTCCElinkStatus),
    /* 145 */ stj("CMCCBasicInfo", MSG_CMCC_BASIC_INFO, STJ_CMCCBasicInfo),
    /* 146 */ stj("CMCCCfgFileSync", MSG_CMCC_CFG_FILE_SYNC, STJ_CMCCCfgFileSync),
    /* 147 */ stj("sync time", MSG_SYNC_TIME, STJ_SyncTime),
    /* 148 */ stj("Telnet", MSG_TELNET, STJ_Telnet),
    /* 149 */ stj("Samba", MSG_SAMBA, STJ_Samba),
    /* 150 */ stj("Ftp", MSG_FTP, STJ_Ftp),
    /* 151 */ stj("FactoryFlag", MSG_FACTORY_FLAG, STJ_FactoryFlag),
    /* 152 */ stj("RouterName", MSG_ROUTER_NAME, STJ_RouterName),
    /* 153 */ stj("kernelcount", MSG_KERNELCOUNT, STJ_KernelCount),
    /* 154 */ stj("CTCCRouterPin", MSG_CTCC_ROUTER_PIN, STJ_CTCCRouterPin),
    /* 155 */ stj("Wan_TcpUdpConNum_get", MSG_WAN_TCP_UDP_CON_NUM_GET, STJ_WanTcpUdpConNum_Get),
    /* 156 */ stj("wifi get agent_uplink_info", MSG_WIFI_GET_AGENT_UPLINK_INFO, STJ_Agent_Uplink_Info_Get),
    /* 157 */ stj("Upgrade report", MSG_UPGRADE_REPORT, STJ_Upgrade_report),
    /* 158 */ stj("FileSync", MSG_FILE_SYNC, STJ_File_Save),
    /* 159 */ stj("Quickjoin", MSG_QUICKJOIN, STJ_Quickjoin),
    /* closing row */ stj(nullptr, bx::kClosingRowId, closing_row_to_json),
};
const int32_t g_iStructToJson_FuncNum =
    static_cast<int32_t>(sizeof g_astStructToJson_Func / sizeof g_astStructToJson_Func[0]) - 1;

constinit const MessageTransEntry g_astJsonToStruct_Func[] = {
    /*   0 */ jts("Ret", MSG_RET, JTS_Ret),
    /*   1 */ jts("HwInfo", MSG_HW_INFO, JTS_HwInfo),
    /*   2 */ jts("FwInfo", MSG_FW_INFO, JTS_FwInfo),
    /*   3 */ jts("ManuInfo", MSG_MANU_INFO, JTS_ManuInfo),
    /*   4 */ jts("ManageInfo", MSG_MANAGE_INFO, JTS_ManageInfo),
    /*   5 */ jts("FuncSupport", MSG_FUNC_SUPPORT, JTS_FuncSupport),
    /*   6 */ jts("CpuRate", MSG_CPU_RATE, JTS_CpuRate),
    /*   7 */ jts("MemRate", MSG_MEM_RATE, JTS_MemRate),
    /*   8 */ jts("FlashRate", MSG_FLASH_RATE, JTS_FlashRate),
    /*   9 */ jts("RunTimeInfo", MSG_RUN_TIME_INFO, JTS_RunTimeInfo),
    /*  10 */ jts("Reboot", MSG_REBOOT, JTS_Reboot),
    /*  11 */ jts("Upgrade", MSG_UPGRADE, JTS_Upgrade),
    /*  12 */ jts("LoginPassWord", MSG_LOGIN_PASSWORD, JTS_LoginPassWord),
    /*  13 */ jts("FireWall", MSG_FIRE_WALL, JTS_FireWall),
    /*  14 */ jts("Led", MSG_LED_STATUS, JTS_Led),
    /*  15 */ jts("Ledcolour", MSG_LED_COLOUR, JTS_Led_Colour),
    /*  16 */ jts("DualbandSync", MSG_DUALBAND_SYNC_STATUS, JTS_DualbandSync),
    /*  47 */ jts("tcpopenport", MSG_TCP_OPEN_PORT, JTS_TcpOpenPort),
    /*  48 */ jts("udpopenport", MSG_UDP_OPEN_PORT, JTS_UdpOpenPort),
    /*  88 */ jts("StaStorageInfo", MSG_STA_STORAGE_INFO, JTS_StaStorageInfo),
    /*  90 */ jts("CustomInfo", MSG_CUSTOM_INFO, JTS_CustomInfo),
    /*  91 */ jts("CustomFactoryInfo", MSG_CUSTOM_FACTORY_INFO, JTS_CustomFactoryInfo),
    /*  92 */ jts("CTCCBasicInfo", MSG_CTCC_BASIC_INFO, JTS_CTCCBasicInfo),
    /*  93 */ jts("CTCCServerInfo", MSG_CTCC_SERVER_INFO, JTS_CTCCServerInfo),
    /*  94 */ jts("CTCCElinkInfo", MSG_CTCC_ELINK_STATUS, JTS_CTCCElinkInfo),
    /*  95 */ jts("CMCCBasicInfo", MSG_CMCC_BASIC_INFO, JTS_CMCCBasicInfo),
    /* 145 */ jts("Telnet", MSG_TELNET, JTS_Telnet),
    /* 146 */ jts("Samba", MSG_SAMBA, JTS_Samba),
    /* 147 */ jts("Ftp", MSG_FTP, JTS_Ftp),
    /* 148 */ jts("RouterName", MSG_ROUTER_NAME, JTS_RouterName),
    /* 149 */ jts("kernelcount", MSG_KERNELCOUNT, JTS_KernelCount),
    /* 150 */ jts("CTCCRouterPin", MSG_CTCC_ROUTER_PIN, JTS_CTCCRouterPin),
    /* 151 */ jts("CMCCCfgFileSync", MSG_CMCC_CFG_FILE_SYNC, JTS_CMCCCfgFileSync),
    /* 152 */ jts("sync time", MSG_SYNC_TIME, JTS_SyncTime),
    /* 153 */ jts("Wan_TcpUdpConNum_get", MSG_WAN_TCP_UDP_CON_NUM_GET, JTS_WanTcpUdpConNum_Get),
    /* 154 */ jts("FactoryFlag", MSG_FACTORY_FLAG, JTS_FactoryFlag),
    /* 155 */ jts("wifi get agent_uplink_info", MSG_WIFI_GET_AGENT_UPLINK_INFO, JTS_Agent_Uplink_Info_Get),
    /* 156 */ jts("Upgrade report", MSG_UPGRADE_REPORT, JTS_Upgrade_report),
    /* 157 */ jts("FileSync", MSG_FILE_SYNC, JTS_File_Save),
    /* 158 */ jts("Quickjoin", MSG_QUICKJOIN, JTS_Quickjoin),
    /* closing row */ jts(nullptr, bx::kClosingRowId, closing_row_to_struct),
};
const int32_t g_iJsonToStruct_FuncNum =
    static_cast<int32_t>(sizeof g_astJsonToStruct_Func / sizeof g_astJsonToStruct_Func[0]) - 1;

} // extern "C"
