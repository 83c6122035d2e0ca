/*
 * blobxlate: translation between ubus blobmsg messages and the fixed-layout
 * management records shared by the router's daemons.
 *
 * This header compiles as C and as C++. The records are plain C structures:
 * the daemons share them by memory layout, so field order, types and array
 * sizes are part of the interface and must not change.
 */
#ifndef BLOBXLATE_H
#define BLOBXLATE_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* libubox's headers carry no C++ guards; keep them inside ours so that C and
 * C++ callers link against the same C symbols. */
#include <libubox/blobmsg.h>

#if defined(__GNUC__)
#define BX_API __attribute__((visibility("default")))
#else
#define BX_API
#endif

/* ------------------------------------------------------------------------ */
/* Message types                                                            */
/* ------------------------------------------------------------------------ */

/* A message type selects one row of each dispatch table. Numbers without a
 * row (13, 14, 51, 69, 82, 83, 95 to 97, 131, 133, 167) dispatch to nothing. */
typedef int32_t MessageType;

enum {
    MSG_RET                          = 0,
    MSG_HW_INFO                      = 1,
    MSG_FW_INFO                      = 2,
    MSG_MANU_INFO                    = 3,
    MSG_MANAGE_INFO                  = 4,
    MSG_FUNC_SUPPORT                 = 5,
    MSG_CPU_RATE                     = 6,
    MSG_MEM_RATE                     = 7,
    MSG_FLASH_RATE                   = 8,
    MSG_RUN_TIME_INFO                = 9,
    MSG_TCP_OPEN_PORT                = 10,
    MSG_UDP_OPEN_PORT                = 11,
    MSG_REBOOT                       = 12,
    MSG_UPGRADE                      = 15,
    MSG_LOGIN_PASSWORD               = 16,
    MSG_FIRE_WALL                    = 17,
    MSG_LED_STATUS                   = 18,
    MSG_UPGRADE_STATUS               = 19,
    MSG_LED_COLOUR                   = 20,
    MSG_DUALBAND_SYNC_STATUS         = 21,
    MSG_WAN_STATUS                   = 22,
    MSG_IPV6_ENABLE                  = 23,
    MSG_IPV6_INFO                    = 24,
    MSG_DHCP                         = 25,
    MSG_STATIC                       = 26,
    MSG_PPPOE                        = 27,
    MSG_BRIDGE_SWITCH                = 28,
    MSG_BRIDGE_STATUS                = 29,
    MSG_REPEATER_SET_INFO            = 30,
    MSG_REPEATER_STA_INFO            = 31,
    MSG_REPEATER_LIST                = 32,
    MSG_CLONE_MAC                    = 33,
    MSG_LAN                          = 34,
    MSG_LAN_CLONE                    = 35,
    MSG_DHCP_SERVER                  = 36,
    MSG_LAN_STATIC                   = 37,
    MSG_LAN_STATIC_LIST              = 38,
    MSG_LOCK_NET                     = 39,
    MSG_PING                         = 40,
    MSG_TRACE_ROUTE                  = 41,
    MSG_PING_RESULT                  = 42,
    MSG_TRACE_ROUTE_RESULT           = 43,
    MSG_UPLINK_SUPPORT               = 44,
    MSG_PORT_NUM                     = 45,
    MSG_PORT_STATUS                  = 46,
    MSG_PORT_TRAFFIC                 = 47,
    MSG_PORT_RATE                    = 48,
    MSG_PORT_MAC                     = 49,
    MSG_PORT_UP_DOWN                 = 50,
    MSG_WIFI_STATUS                  = 52,
    MSG_WIFI_OPT                     = 53,
    MSG_WIFI_DEASSOCIATION           = 54,
    MSG_WIFI_MESH                    = 55,
    MSG_WIFI_MESH_ROAMING            = 56,
    MSG_WIFI_BACKHAUL_BSS            = 57,
    MSG_WIFI_TOPO                    = 58,
    MSG_WIFI_LOCAL_MESH_EVENT        = 59,
    MSG_WIFI_TOPO_MAC                = 60,
    MSG_WIFI_TOPO_AP_MAP             = 61,
    MSG_WIFI_TOPO_CHANGE             = 62,
    MSG_WIFI_SELECT                  = 63,
    MSG_WIFI_BLACK_WHITE_ADD         = 64,
    MSG_WIFI_BLACK_WHITE_DELETE      = 65,
    MSG_WIFI_BLACK_WHITE_LIST        = 66,
    MSG_WIFI5_STATUS                 = 67,
    MSG_RADIO_BASIC                  = 68,
    MSG_AP_BASIC                     = 70,
    MSG_AP_ADVANCED                  = 71,
    MSG_AP_RATE_LIMIT                = 72,
    MSG_AP_ACCESS_MODE               = 73,
    MSG_AP_ACCESS_RULE               = 74,
    MSG_AP_ADD                       = 75,
    MSG_AP_DELETE                    = 76,
    MSG_SCAN_WLAN_NEIGHBOUR          = 77,
    MSG_WLAN_NEIGHBOUR               = 78,
    MSG_WPS_PBC                      = 79,
    MSG_CHANNEL_SCAN                 = 80,
    MSG_CHANNEL_SCORE                = 81,
    MSG_REBOOT_TIMER                 = 84,
    MSG_WIFI_TIMER_SET               = 85,
    MSG_WIFI_TIMER                   = 86,
    MSG_WIFI_TIMER_IDX               = 87,
    MSG_STA_LIST                     = 88,
    MSG_STA_INFO_BY_MAC              = 89,
    MSG_STA_WIFI_PWD_ERR             = 90,
    MSG_STA_TRAFFIC                  = 91,
    MSG_STA_NUM                      = 92,
    MSG_STA_NAME                     = 93,
    MSG_STA_MODEL                    = 94,
    MSG_STA_CTRL_STATUS              = 98,
    MSG_STA_CTRL_MODE                = 99,
    MSG_STA_CTRL_MODE_SWITCH         = 100,
    MSG_STA_CTRL_LIST                = 101,
    MSG_STA_BWLIST_GET               = 102,
    MSG_STA_CTRL_INTERNET            = 103,
    MSG_STA_CTRL_WIFI                = 104,
    MSG_STA_CTRL_WIFI_LIST           = 105,
    MSG_STA_CTRL_ITEM_ADD            = 106,
    MSG_STA_CTRL_INTERNET_TIME       = 107,
    MSG_RATELIMIT                    = 108,
    MSG_RATELIMIT_LIST               = 109,
    MSG_PERIOD_RATE_SET              = 110,
    MSG_PERIOD_RATE_GET              = 111,
    MSG_IPTV                         = 112,
    MSG_L2_ROAMING                   = 113,
    MSG_ROAMING                      = 114,
    MSG_ROAMING_AP_RSSI_QUERY        = 115,
    MSG_ROAMING_AP_RSSI_RSP          = 116,
    MSG_ROAMING_BSS_TRANS            = 117,
    MSG_ROAMING_REPORT               = 118,
    MSG_ROAMING_STOPDETECT           = 119,
    MSG_ROAMING_STA_RSSI             = 120,
    MSG_QOS                          = 121,
    MSG_DSCP                         = 122,
    MSG_8021P                        = 123,
    MSG_QOS_CLASSIFICATION_ADD       = 124,
    MSG_QOS_CLASSIFICATION_DELETE    = 125,
    MSG_QOS_CLASSIFICATION_LIST      = 126,
    MSG_QOS_CLASSIFICATION_SET       = 127,
    MSG_QOS_CLASSIFICATION_GET       = 128,
    MSG_STA_STORAGE_INFO             = 129,
    MSG_CUSTOM_INFO                  = 130,
    MSG_FILTER_URL_SWITCH            = 132,
    MSG_FILTER_URL_LIST              = 134,
    MSG_FILTER_URL                   = 135,
    MSG_FILTER_URL_REPLY             = 136,
    MSG_FILTER_DNS_LIST              = 137,
    MSG_FILTER_DNS                   = 138,
    MSG_FILTER_DNS_REPLY             = 139,
    MSG_VSIE_INFO                    = 140,
    MSG_VSIE_BEACONTX_ADD            = 141,
    MSG_VSIE_BEACONTX_IDX            = 142,
    MSG_VSIE_BEACONTX_LIST           = 143,
    MSG_VSIE_BEACONTX_SET            = 144,
    MSG_VSIE_PROBERX_ADD             = 145,
    MSG_VSIE_PROBERX_IDX             = 146,
    MSG_VSIE_PROBERX_LIST            = 147,
    MSG_VSIE_PROBERX_FLUSH           = 148,
    MSG_VSIE_PROBERX_RECORD_ADD      = 149,
    MSG_VSIE_PROBERESP_ADD           = 150,
    MSG_VSIE_PROBERESP_IDX           = 151,
    MSG_VSIE_PROBERESP_LIST          = 152,
    MSG_CTCC_BASIC_INFO              = 153,
    MSG_CTCC_SERVER_INFO             = 154,
    MSG_CTCC_ELINK_STATUS            = 155,
    MSG_CMCC_BASIC_INFO              = 156,
    MSG_TELNET                       = 157,
    MSG_SAMBA                        = 158,
    MSG_FTP                          = 159,
    MSG_ROUTER_NAME                  = 160,
    MSG_KERNELCOUNT                  = 161,
    MSG_CTCC_ROUTER_PIN              = 162,
    MSG_FACTORY_FLAG                 = 163,
    MSG_CMCC_CFG_FILE_SYNC           = 164,
    MSG_SYNC_TIME                    = 165,
    MSG_WAN_TCP_UDP_CON_NUM_GET      = 166,
    MSG_CUSTOM_FACTORY_INFO          = 168,
    MSG_WIFI_GET_AGENT_UPLINK_INFO   = 169,
    MSG_UPGRADE_REPORT               = 170,
    MSG_FILE_SYNC                    = 171,
    MSG_QUICKJOIN                    = 172,
};

/* ------------------------------------------------------------------------ */
/* Enumeration kinds: which word list PARATRANS_* translate with            */
/* ------------------------------------------------------------------------ */

typedef int32_t EnumKind;

enum {
    EnumSwitch        = 0,  /* "enable"=1 "disable"=0 */
    EnumPortType      = 1,
    EnumWanMode       = 2,
    EnumProgress      = 3,
    EnumSecurity      = 4,
    EnumLevel         = 5,
    EnumLinkState     = 6,
    EnumBoolean       = 7,
    EnumBand          = 8,  /* "2.4G"=0 "5G"=1 */
    EnumTxPower       = 9,
    EnumBandwidth     = 10,
    EnumStandard      = 11, /* bit set "11b/11g/..."; writes into the text */
    EnumAccessMedium  = 12,
    EnumDeviceOs      = 13,
    EnumDuplex        = 14,
    EnumListMode      = 15,
    EnumNone16        = 16, /* no words; numbers go out as decimal */
    EnumEditAction    = 17,
    EnumCarrier       = 18,
    EnumProvince      = 19,
    EnumPortRole      = 20,
    EnumMeshRole      = 21,
    EnumUpgradeMode   = 22,
    EnumAuthMode      = 23,
    EnumCipher        = 24,
    EnumUplinkMedium  = 25,
    EnumIsolation     = 26,
    EnumProtocol      = 27,
    EnumTiming        = 28,
    EnumConnected     = 29,
    EnumIpv6AddrMode  = 30,
    EnumIpv6PrefixMode = 31,
    EnumDnsReply      = 32,
    EnumFilterMode    = 33,
    EnumRunMode       = 34,
    EnumUpgradeState  = 35, /* number to text only */
    EnumLedColour     = 36, /* text to number only; numbers go out as decimal */
    EnumUpgradeReport = 37, /* number to text only */
    EnumListAction    = 38,
    ENUM_KIND_COUNT   = 39
};

/* ------------------------------------------------------------------------ */
/* Dispatch                                                                 */
/* ------------------------------------------------------------------------ */

/* A struct-to-JSON converter appends the record's members to the table or
 * array that is open in buf. A JSON-to-struct converter fills the record from
 * the members of msg. Both return 0 on success and -1 on a null argument or a
 * failed check. */
typedef int (*StructToJsonFunc)(const void *pvRecord, struct blob_buf *pstBuf);
typedef int (*JsonToStructFunc)(struct blob_attr *pstMsg, void *pvRecord);

/* One dispatch row. In g_astStructToJson_Func the converter is toJson, in
 * g_astJsonToStruct_Func it is toStruct. */
typedef struct MessageTransEntry {
    const char *name;
    int32_t id;
    union {
        StructToJsonFunc toJson;
        JsonToStructFunc toStruct;
    } converter;
} MessageTransEntry;

BX_API extern const MessageTransEntry g_astStructToJson_Func[];
BX_API extern const int32_t g_iStructToJson_FuncNum;
BX_API extern const MessageTransEntry g_astJsonToStruct_Func[];
BX_API extern const int32_t g_iJsonToStruct_FuncNum;

/* The two directions of the dispatch tables. */
enum BlobxlateDirection {
    BLOBXLATE_TO_JSON = 0,   /* g_astStructToJson_Func */
    BLOBXLATE_TO_STRUCT = 1, /* g_astJsonToStruct_Func */
};

/* The row of message type iType in the table of direction iDirection, found
 * the way the entry points find it; null for a type without a row there or
 * an unknown direction. */
BX_API const MessageTransEntry *BLOBXLATE_FindRow(int iDirection, int iType);

/* The size of the record that message type iType fills and reads (the
 * larger one where the two directions differ); 0 for a number without a
 * message. */
BX_API size_t BLOBXLATE_RecordSize(int iType);
/* Appends the members of the record of message type iType to the open table
 * or array of pstBuf. Returns -1 on a null record or buffer, 0 for a type
 * without a row, otherwise the converter's result. */
BX_API int STRUCT_TRANS_JSON(int iType, const void *pvRecord, struct blob_buf *pstBuf);

/* Fills the record of message type iType from the blobmsg table pstMsg. The
 * record must be zeroed by the caller and large enough for the type. Returns
 * -1 on a null record or message, 0 for a type without a row, otherwise the
 * converter's result (fields stored before a failure stay stored). */
BX_API int JSON_TRANS_STRUCT(int iType, struct blob_attr *pstMsg, void *pvRecord);

/* Word to number for one enumeration kind. pcText must not be null and must
 * be writable (EnumStandard cuts its last token off in place). */
BX_API int PARATRANS_String_To_Int(int iKind, char *pcText);

/* Number to word. Some kinds return a shared 64-character buffer that the
 * next call overwrites: not reentrant, callers serialise and copy at once. */
BX_API const char *PARATRANS_Int_To_String(int iKind, int iValue);

/* Presence check shared by the converters: 1 when pstAttr is non-null,
 * otherwise traces "Illegal parameter: <key>" and returns 0. */
BX_API int JTS_CheckBlobAttr(const char *pcKey, struct blob_attr *pstAttr);

/* Where trace lines go. By default each line is written to the console
 * device; a daemon that keeps its own log (syslog, a ring buffer) installs a
 * sink instead and receives every line whole as one call, on the thread
 * that converts: pcPrefix is "[function.line]: " and pcText the line itself,
 * with its line end; both are valid only during the call, and pvContext is
 * passed through. The switch file still decides whether lines are made at
 * all. A null sink restores the console. Set it once at start-up, before any
 * conversion runs: the library reads it without a lock. */
typedef void (*BlobxlateTraceSink)(void *pvContext, const char *pcPrefix, const char *pcText);
BX_API void BLOBXLATE_SetTraceSink(BlobxlateTraceSink pfnSink, void *pvContext);

/* The file whose existence switches the trace on; null restores the
 * built-in path. For tools and tests that want a trace of their own without
 * touching the machine-wide switch. Set it at start-up, like the sink. */
BX_API void BLOBXLATE_SetTraceSwitch(const char *pcPath);

/* Sends the trace to the system log: through libubox's ulog where the
 * library is built against the platform's libubox, through syslog with the
 * bundled one. Each line of a trace text becomes one entry at LOG_DEBUG with
 * the "[function.line]: " prefix, so the incoming message's JSON dump comes
 * out as one entry per line; empty lines are left out. pcIdent, the daemon's
 * name, opens the log (facility LOG_DAEMON) under that name; null leaves the
 * log as the daemon opened it. It installs a sink, so the sink's rules hold:
 * call it at start-up; the switch file still decides. */
BX_API void BLOBXLATE_TraceToSyslog(const char *pcIdent);

/* ------------------------------------------------------------------------ */
/* Records and converters, one section per message family                   */
/* ------------------------------------------------------------------------ */

/* Generic result reply (type 0). */
typedef struct RetParam {
    uint32_t espResult;
} RetParam;

BX_API int STJ_Ret(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Ret(struct blob_attr *pstMsg, void *pvRecord);

/* ==== Device and firmware information (types 1 to 11) ==== BEGIN DEVICE_INFO */

/* Hardware description (type 1). The two rate lists are short on purpose:
 * receivers store up to four LAN rates and two WAN rates, and the extra ones
 * land in the fields that follow (uiWanPortsMax, the head of szSysType);
 * daemons rely on that layout, so keep the field order as it is. */
typedef struct HwInfoParam {
    char szVendor[16];
    char szModel[32];
    char szVersion[32];
    char szDescriptionUrl[64];
    char szCpuModel[32];
    uint32_t uiFlashSize;
    uint32_t uiRamSize;
    uint32_t uiLanPortsMax;
    uint32_t auiLanMaxRate[3];
    uint32_t uiWanPortsMax;
    uint32_t auiWanMaxRate[1];
    char szSysType[16];
    char szSysVersion[32];
    char szDescription[32];
    uint32_t uiCpuCores;
    char szCpuSupplier[16];
    uint32_t uiCpuMainFrequency;
    char szMemoryProvider[16];
    uint32_t ui24gMode;
    uint32_t ui24gMaxBw;
    uint32_t ui5gMode;
    uint32_t ui5gMaxBw;
    uint32_t ui24gMaxRate;
    uint32_t ui5gMaxRate;
} HwInfoParam;

/* Firmware versions and compile time (type 2). uiReserved travels in
 * neither direction. szRealVersion is sized like the other version texts
 * (32). */
typedef struct FwInfoParam {
    char szFwVersion[32];
    char szBootVersion[32];
    char szNewFwVersion[32];
    uint32_t uiYear;
    uint32_t uiMon;
    uint32_t uiDay;
    uint32_t uiHour;
    uint32_t uiMin;
    uint32_t uiSec;
    uint32_t uiWeek;
    uint32_t uiReserved;
    char szRealVersion[32];
} FwInfoParam;

/* Manufacturing data (type 3). */
typedef struct ManuInfoParam {
    char szMac[32];
    char szSn[32];
    char szProductName[32];
} ManuInfoParam;

/* Management address (type 4). */
typedef struct ManageInfoParam {
    char szIp[16];
    char szDomainName[64];
    char szCurIp[16];
} ManageInfoParam;

/* Supported functions (type 5): EnumSwitch numbers, "enable"/"disable" on
 * the bus. The field names follow the receivers' trace texts. */
typedef struct FuncSupportParam {
    uint32_t eSupportWifi;
    uint32_t eSupportDualBand;
    uint32_t eSupportUsb;
    uint32_t eSupportVpn;
    uint32_t eSupportIPv6;
    uint32_t eSupportPrivMesh;
    uint32_t eSupportPortBlind;
    uint32_t eSupportEasyMesh;
} FuncSupportParam;

/* Processor load and temperature (type 6). */
typedef struct CpuRateParam {
    uint32_t uiCpuRate;
    uint32_t uiCpuTemperature;
} CpuRateParam;

/* Memory load (type 7). */
typedef struct MemRateParam {
    uint32_t uiRamRate;
} MemRateParam;

/* Flash size and load (type 8). */
typedef struct FlashRateParam {
    uint32_t uiRwFlashSize;
    uint32_t uiFlashUsageRate;
} FlashRateParam;

/* Run time, clock and login history (type 9). eGetType is an
 * EnumUpgradeMode number ("manual"/"online"). */
typedef struct RunTimeInfoParam {
    uint32_t uiLoginTimes;
    char szLoginLastTime[32];
    char szApLastOnlineTime[32];
    uint32_t uiOnlineTime;
    uint32_t uiYear;
    uint32_t uiMonth;
    uint32_t uiDate;
    uint32_t uiHour;
    uint32_t uiMinute;
    uint32_t uiSecond;
    uint32_t uiWeek;
    uint32_t eGetType;
} RunTimeInfoParam;

/* Open TCP or UDP ports (types 10 and 11); a zero entry ends the list. */
#define OPEN_PORT_MAX 32
typedef struct OpenPortParam {
    uint32_t auiPorts[OPEN_PORT_MAX];
} OpenPortParam;

BX_API int STJ_HwInfo(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_HwInfo(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_FwInfo(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_FwInfo(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_ManuInfo(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_ManuInfo(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_ManageInfo(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_ManageInfo(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_FuncSupport(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_FuncSupport(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_CpuRate(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_CpuRate(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_MemRate(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_MemRate(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_FlashRate(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_FlashRate(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_RunTimeInfo(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_RunTimeInfo(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_TcpOpenPort(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_TcpOpenPort(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_UdpOpenPort(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_UdpOpenPort(struct blob_attr *pstMsg, void *pvRecord);

/* ==== END DEVICE_INFO ==== */


/* ==== Device control and status (types 12, 15 to 21) ==== BEGIN DEVICE_CONTROL */

/* Reboot order (type 12): eRebootType is an EnumTiming number
 * ("now"/"delay"). */
typedef struct RebootParam {
    uint32_t eRebootType;
} RebootParam;

/* Firmware upgrade order (type 15). */
typedef struct UpgradeParam {
    char szDownUrl[256];
    char szVersionUrl[128];
    uint32_t uiFileSize;
    char szChkSum[64];
    uint32_t eRebootType;   /* EnumTiming */
} UpgradeParam;

/* Login password (type 16). */
typedef struct LoginPasswordParam {
    char szPassword[256];
} LoginPasswordParam;

/* One on/off switch, EnumSwitch (types 17 firewall, 18 LED, 21 dual-band
 * synchronisation). */
typedef struct SwitchStatusParam {
    uint32_t eStatus;
} SwitchStatusParam;

/* Upgrade progress (type 19), EnumUpgradeState; sent only. */
typedef struct UpgradeStatusParam {
    uint32_t eUpgradeStatus;
} UpgradeStatusParam;

/* LED switch and colour (type 20): eStatus EnumSwitch, eColour
 * EnumLedColour. */
typedef struct LedColourParam {
    uint32_t eStatus;
    uint32_t eColour;
} LedColourParam;

BX_API int STJ_Reboot(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Reboot(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Upgrade(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Upgrade(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_LoginPassWord(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_LoginPassWord(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_FireWall(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_FireWall(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_LedStatus(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Led(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_UpgradeStatus(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int STJ_LedColour(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Led_Colour(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_DualbandSyncStatus(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_DualbandSync(struct blob_attr *pstMsg, void *pvRecord);

/* ==== END DEVICE_CONTROL ==== */


/* ==== Carrier and service messages (types 129, 130, 153 to 172) ==== BEGIN CARRIER */

/* Station storage permission (type 129): eAllow is an EnumBoolean number. */
typedef struct StaStorageInfoParam {
    char szMac[32];
    uint32_t eAllow;
} StaStorageInfoParam;

/* Carrier and province selection (type 130): eOperate EnumCarrier,
 * eDistrict EnumProvince. */
typedef struct CustomInfoParam {
    uint32_t eOperate;
    uint32_t eDistrict;
} CustomInfoParam;

/* CTCC basic device data (type 153): eElinkLink is an EnumSwitch number. */
typedef struct CTCCBasicInfoParam {
    char szCtei[16];
    char szElinkSn[35];
    char szIfVersion[16];
    uint32_t eElinkLink;
} CTCCBasicInfoParam;

/* CTCC platform servers (type 154). uiValidMask has one bit per member that
 * holds a value: CTCC_SERVER_* below. The texts may fill their whole array
 * (65 characters, no terminator). */
#define CTCC_SERVER_BACKUP_MAX 16
#define CTCC_SERVER_TEXT_SIZE 65
enum {
    CTCC_SERVER_BSSADDR  = 1,
    CTCC_SERVER_ABIADDR  = 2,
    CTCC_SERVER_DEVTOKEN = 4,
    CTCC_SERVER_DEVID    = 8,
    CTCC_SERVER_BACKUP   = 16,
};
typedef struct CTCCServerInfoParam {
    char szBssAddr[CTCC_SERVER_TEXT_SIZE];
    char szAbiAddr[CTCC_SERVER_TEXT_SIZE];
    char szDevToken[CTCC_SERVER_TEXT_SIZE];
    char szDevId[CTCC_SERVER_TEXT_SIZE];
    char aszBackup[CTCC_SERVER_BACKUP_MAX][CTCC_SERVER_TEXT_SIZE];
    uint32_t uiValidMask;
} CTCCServerInfoParam;

/* CTCC e-link state (type 155), EnumSwitch. */
typedef struct CTCCElinkStatusParam {
    uint32_t eStatus;
} CTCCElinkStatusParam;

/* CMCC basic device data (type 156). */
typedef struct CMCCBasicInfoParam {
    char szDeviceType[32];
    char szProductToken[32];
    char szDeviceVendor[8];
    char szDeviceModel[8];
    char szDeviceSn[32];
    char szCmei[16];
    char szDeviceKey[256];
    char szProvCode[8];
    char szDmAppKey[16];
    char szDmPwd[64];
} CMCCBasicInfoParam;

/* A login service switch with its account (types 157 Telnet, 158 Samba,
 * 159 FTP): eSwitch is an EnumSwitch number. */
typedef struct ServiceAccessParam {
    uint32_t eSwitch;
    char szUser[16];
    char szPwd[16];
} ServiceAccessParam;

/* Router display name (type 160). */
typedef struct RouterNameParam {
    char szRouterName[32];
} RouterNameParam;

/* Kernel counter (type 161). */
typedef struct KernelCountParam {
    uint32_t uiCount;
} KernelCountParam;

/* CTCC router PIN (type 162). */
typedef struct CTCCRouterPinParam {
    char szPin[16];
} CTCCRouterPinParam;

/* Factory mode flag (type 163), EnumSwitch. */
typedef struct FactoryFlagParam {
    uint32_t eStatus;
} FactoryFlagParam;

/* CMCC configuration file to synchronise (type 164). */
typedef struct CMCCCfgFileSyncParam {
    char szCfgFile[32];
} CMCCCfgFileSyncParam;

/* Time synchronisation (type 165). */
typedef struct SyncTimeParam {
    uint32_t uiTime;
} SyncTimeParam;

/* Number of TCP/UDP connections of one WAN (type 166). */
typedef struct WanTcpUdpConNumParam {
    uint32_t uiWanIndex;
    uint32_t uiNumber;
} WanTcpUdpConNumParam;

/* Factory random password (type 168): exactly 8 characters. */
typedef struct CustomFactoryInfoParam {
    char szRandPassword[16];
} CustomFactoryInfoParam;

/* A mesh agent's uplink (type 169): eType is an EnumUplinkMedium number. */
typedef struct AgentUplinkInfoParam {
    uint32_t eType;
    char szSsid[32];
    int32_t iRssi;
    int32_t iNoise;
    uint32_t uiUpRate;
    uint32_t uiDownRate;
} AgentUplinkInfoParam;

/* Result of an upgrade (type 170): uiStatus 1 success, 0 failure. */
typedef struct UpgradeReportParam {
    uint32_t uiStatus;
    uint32_t uiErrCode;
} UpgradeReportParam;

/* A file to copy (type 171). */
typedef struct FileSyncParam {
    char szSrcFile[64];
    char szDestFile[64];
} FileSyncParam;

/* Quick-join switch (type 172), EnumSwitch. */
typedef struct QuickjoinParam {
    uint32_t eStatus;
} QuickjoinParam;

BX_API int STJ_StaStorageInfo(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_StaStorageInfo(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_CustomInfo(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_CustomInfo(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_CTCCBasicInfo(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_CTCCBasicInfo(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_CTCCServerInfo(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_CTCCServerInfo(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_CTCCElinkStatus(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_CTCCElinkInfo(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_CMCCBasicInfo(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_CMCCBasicInfo(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Telnet(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Telnet(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Samba(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Samba(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Ftp(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Ftp(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_RouterName(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_RouterName(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_KernelCount(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_KernelCount(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_CTCCRouterPin(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_CTCCRouterPin(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_FactoryFlag(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_FactoryFlag(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_CMCCCfgFileSync(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_CMCCCfgFileSync(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_SyncTime(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_SyncTime(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_WanTcpUdpConNum_Get(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_WanTcpUdpConNum_Get(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_CustomFactoryInfo(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_CustomFactoryInfo(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Agent_Uplink_Info_Get(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Agent_Uplink_Info_Get(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Upgrade_report(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Upgrade_report(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_File_Save(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_File_Save(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Quickjoin(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Quickjoin(struct blob_attr *pstMsg, void *pvRecord);

/* ==== END CARRIER ==== */


/* ==== WAN status, IPv6 and addressing modes (types 22 to 27) ==== BEGIN WAN */

/* WAN status report (type 22). eWorkMode travels as an EnumWanMode word,
 * eLinkStatus as an EnumSwitch word; the units of uiDhcpRt and uiLinkSpeed
 * are the WAN daemon's and pass through unchanged. */
typedef struct WanStatusInfo {
    uint32_t eWorkMode;
    uint32_t eLinkStatus;
    char szIp[16];
    char szSubMask[16];
    char szGwIp[16];
    char szGwMac[32];
    char szDnsMaster[16];
    char szDnsSlave[16];
    uint32_t uiDhcpRt;
    char szMac[32];
    uint32_t uiConNum;
    uint32_t uiPortId;
    uint32_t uiLinkSpeed;
} WanStatusInfo;

/* IPv6 switch (type 23): an EnumSwitch word. */
typedef struct Ipv6Switch {
    uint32_t uiEnable;
} Ipv6Switch;

/* IPv6 status report (type 24). The lifetimes are the daemon's numbers. */
typedef struct Ipv6Info {
    uint32_t uiEnable;        /* EnumSwitch */
    uint32_t uiConnectStatus; /* EnumConnected */
    char szIpAddr[64];
    char szPrefix[64];
    uint32_t uiPrefixLen;
    char szGateway[64];
    char szDns1[64];
    char szDns2[64];
    uint32_t uiIpAddrOrigin;  /* EnumIpv6AddrMode */
    uint32_t uiPdFlag;        /* EnumBoolean */
    uint32_t uiPrefixOrigin;  /* EnumIpv6PrefixMode */
    uint32_t uiPrefixPlTime;
    uint32_t uiPrefixVlTime;
    uint32_t uiDsLite;        /* EnumBoolean */
} Ipv6Info;

/* DHCP access configuration (type 25). */
typedef struct WanDhcpConfig {
    uint32_t uiMtu;
} WanDhcpConfig;

/* Validity bits of uiCapaFlag in the static and PPPoE configurations: one
 * numbering for both (the MTU is 0x20 in each; 0x10 is unused). Received
 * fields set their bit; only fields whose bit is set are sent, except the
 * last one of each record, which is sent whenever any of the low 16 bits is
 * set. */
enum {
    WAN_CAPA_IP            = 0x001,
    WAN_CAPA_SUBMASK       = 0x002,
    WAN_CAPA_DNS_MASTER    = 0x004,
    WAN_CAPA_DNS_SLAVE     = 0x008,
    WAN_CAPA_MTU           = 0x020,
    WAN_CAPA_GW_IP         = 0x040,
    WAN_CAPA_PPPOE_USER    = 0x080,
    WAN_CAPA_PPPOE_PWD     = 0x100,
    WAN_CAPA_PPPOE_SERVER  = 0x200,
    WAN_CAPA_PPPOE_SERVICE = 0x400
};

/* Static address configuration (type 26). */
typedef struct WanStaticConfig {
    char szIp[16];
    char szSubMask[16];
    char szGwIp[16];
    uint32_t uiMtu;
    char szDnsMaster[16];
    char szDnsSlave[16];
    uint32_t uiCapaFlag;
} WanStaticConfig;

/* PPPoE configuration (type 27). The four texts are received over their
 * whole 33 bytes: a value of 33 characters or more leaves no terminator, so
 * read them as at most 33 characters. */
typedef struct WanPppoeConfig {
    char szUser[33];
    char szPwd[33];
    char szServer[33];
    char szService[33];
    uint32_t uiMtu;
    uint32_t uiCapaFlag;
} WanPppoeConfig;

BX_API int STJ_WanStatus(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_WanStatus(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_IPv6Enable(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_IPv6Enable(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_IPv6Info(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_IPv6Info(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Dhcp(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Dhcp(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Static(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Static(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Pppoe(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Pppoe(struct blob_attr *pstMsg, void *pvRecord);

/* ==== END WAN ==== */


/* ==== Bridge, repeater, MAC clone, LAN, DHCP server, static leases, lock-net (types 28 to 39) ==== BEGIN LAN */

/* These messages were designed here; docs/designed-messages.md gives their
 * wire forms. Switches travel as "enable"/"disable". List messages hold at
 * most the array's size of entries; on the way in the count is the number of
 * entries filled. */

/* BridgeSwitch (28): bridge mode on or off. LockNet (39) has the same record. */
typedef struct BridgeSwitchParam {
    uint32_t eStatus;              /* "status", EnumSwitch */
} BridgeSwitchParam;

/* BridgeStatus (29) */
typedef struct BridgeStatusParam {
    uint32_t eStatus;              /* "status", EnumSwitch */
    uint32_t eLinkStatus;          /* "linkstatus", EnumLinkState ("up"/"down") */
    char szIp[16];                 /* "ip" */
} BridgeStatusParam;

/* Repeater_SetInfo (30): the upstream network the repeater joins. */
typedef struct RepeaterSetParam {
    uint32_t eRadio;               /* "radio", EnumBand */
    char szSsid[32];               /* "ssid" */
    char szBssid[32];              /* "bssid" */
    uint32_t eSecurity;            /* "security", EnumSecurity */
    char szPassword[64];           /* "password" */
} RepeaterSetParam;

/* Repeater_StaInfo (31): the repeater's own uplink. */
typedef struct RepeaterStaInfoParam {
    uint32_t eRadio;               /* "radio", EnumBand */
    char szSsid[32];               /* "ssid" */
    char szBssid[32];              /* "bssid" */
    int32_t iRssi;                 /* "rssi" */
    uint32_t eConnected;           /* "status", EnumConnected ("Connected"/"Unconnected") */
} RepeaterStaInfoParam;

#define REPEATER_LIST_MAX 32
/* One upstream network seen by the repeater. */
typedef struct RepeaterApEntry {
    char szSsid[32];               /* "ssid" */
    char szBssid[32];              /* "bssid" */
    uint32_t uiChannel;            /* "channel" */
    int32_t iRssi;                 /* "rssi" */
    uint32_t eSecurity;            /* "security", EnumSecurity */
} RepeaterApEntry;

/* Repeater_List (32): "count", then "list" of tables. */
typedef struct RepeaterListParam {
    uint32_t uiCount;
    RepeaterApEntry astList[REPEATER_LIST_MAX];
} RepeaterListParam;

/* CloneMac (33) and LanClone (35): one converter pair serves both. */
typedef struct MacCloneParam {
    uint32_t eStatus;              /* "status", EnumSwitch */
    char szMac[32];                /* "mac" */
} MacCloneParam;

/* Lan (34) */
typedef struct LanParam {
    char szIp[16];                 /* "ip" */
    char szMask[16];               /* "mask" */
} LanParam;

/* DhcpServer (36) */
typedef struct DhcpServerParam {
    uint32_t eStatus;              /* "status", EnumSwitch */
    char szStartIp[16];            /* "startip" */
    char szEndIp[16];              /* "endip" */
    uint32_t uiLeaseTime;          /* "leasetime", seconds */
} DhcpServerParam;

/* LanStatic (37): add, change or remove one static lease. */
typedef struct LanStaticParam {
    uint32_t eAction;              /* "action", EnumListAction */
    char szMac[32];                /* "mac" */
    char szIp[16];                 /* "ip" */
    char szHostName[64];           /* "hostname" */
} LanStaticParam;

#define LAN_STATIC_LIST_MAX 32
typedef struct LanStaticEntry {
    char szMac[32];                /* "mac" */
    char szIp[16];                 /* "ip" */
    char szHostName[64];           /* "hostname" */
} LanStaticEntry;

/* LanStatic List (38): "count", then "list" of tables. */
typedef struct LanStaticListParam {
    uint32_t uiCount;
    LanStaticEntry astList[LAN_STATIC_LIST_MAX];
} LanStaticListParam;

/* LockNet (39): BridgeSwitchParam's layout. */
typedef BridgeSwitchParam LockNetParam;

BX_API int STJ_BridgeSwitch(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_BridgeSet(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_BridgeStatus(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_BridgeGet(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Repeater_SetInfo(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_RepeaterSet(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Repeater_StaInfo(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_RepeaterGet(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Repeater_List(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_RepeaterList(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_CloneMac(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_MacClone(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Lan(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Lan(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_DhcpServer(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_DhcpServer(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_LanStatic(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_LanStatic(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_LanStatic_List(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_LanStatic_List(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_LockNet(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_LockNet(struct blob_attr *pstMsg, void *pvRecord);

/* ==== END LAN ==== */


/* ==== Diagnostics: ping and traceroute (types 40 to 44) ==== BEGIN DIAGNOSTICS */

/* Validity bits of uiCapaFlag in the ping and traceroute requests. Received
 * numbers set their bit; only numbers whose bit is set are sent, except the
 * ping's uiBlockSize, which is sent whenever any of the low 16 bits is set.
 * The host, the ping's szPingTime and uiPingNum, and the traceroute's
 * uiResultType have no bit and are always sent. */
enum {
    DIAG_CAPA_PING_NUM   = 0x02,
    DIAG_CAPA_TIMEOUT    = 0x04,
    DIAG_CAPA_BLOCKSIZE  = 0x08,
    DIAG_CAPA_NUMOFTRIES = 0x10,
    DIAG_CAPA_MAXHOP     = 0x20
};

/* Ping request (type 40). Received numbers are refused outside 0..65535
 * (uiBlockSize 1..65535); szHost is required. */
typedef struct PingRequest {
    char szHost[64];
    uint32_t uiNum;
    uint32_t uiTimeout;
    uint32_t uiBlockSize;
    char szPingTime[64];
    uint32_t uiPingNum;
    uint32_t uiCapaFlag;
} PingRequest;

/* Traceroute request (type 41). szHost and uiResultType (0 or 1) are
 * required; the numbers are refused outside 0..65535 (uiBlockSize and
 * uiMaxHop 1..65535). */
typedef struct TraceRouteRequest {
    char szHost[64];
    uint32_t uiNumOfTries;
    uint32_t uiTimeout;
    uint32_t uiBlockSize;
    uint32_t uiMaxHop;
    uint32_t uiResultType;
    uint32_t uiCapaFlag;
} TraceRouteRequest;

/* Ping result (type 42); "recivedcount" is the key's spelling on the bus. */
typedef struct PingResult {
    uint32_t uiRecivedCount;
    uint32_t uiLossCount;
    uint32_t uiPacketsLoss;
    uint32_t uiAvg;
    uint32_t uiMin;
    uint32_t uiMax;
    uint32_t uiTimeTotal;
    uint32_t uiPacketCount;
    uint32_t uiPacketSize;
    char szPingUrl[64];
    char szHost[64];
    uint32_t uiTimeout;
    uint32_t uiPingNum;
} PingResult;

/* Traceroute result (type 43): the whole output as one text. */
typedef struct TraceRouteResult {
    char szResult[1024];
} TraceRouteResult;

/* Uplink modes the device supports (type 44), each an EnumSwitch word. */
typedef struct UplinkSupport {
    uint32_t uiDhcp;
    uint32_t uiStatic;
    uint32_t uiPppoe;
    uint32_t uiBridge;
    uint32_t uiRepeater;
} UplinkSupport;

BX_API int STJ_Ping(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Ping(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_TraceRoute(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_TraceRoute(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Ping_Result(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_PingResult(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_TraceRoute_Result(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_TraceRouteResult(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_UplinkSupport(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_UplinkSupport(struct blob_attr *pstMsg, void *pvRecord);

/* ==== END DIAGNOSTICS ==== */


/* ==== Ethernet ports (types 45 to 50) ==== BEGIN PORTS */

/* Every per-port record starts with the port's type (EnumPortType word
 * "type") and its number within that type ("index"). */

/* Number of slots of PortNum.auiWanIndex: the devices have at most a few
 * WAN ports, eight keeps the record symmetric with the LAN list. */
#define PORT_WAN_INDEX_MAX 8

/* LAN and WAN port counts and numbers (type 45). */
typedef struct PortNum {
    uint32_t uiLanNum;
    uint32_t auiLanIndex[8];
    uint32_t uiWanNum;
    uint32_t auiWanIndex[PORT_WAN_INDEX_MAX];
} PortNum;

/* One port's link state (type 46). */
typedef struct PortStatus {
    uint32_t eType;        /* EnumPortType */
    uint32_t uiIndex;
    uint32_t eLinkStatus;  /* EnumLinkState */
    uint32_t eDuplex;      /* EnumDuplex */
    uint32_t uiNegRate;
} PortStatus;

/* One port's traffic counters (type 47). */
typedef struct PortTraffic {
    uint32_t eType;
    uint32_t uiIndex;
    uint64_t ulTxBytes;
    uint64_t ulRxBytes;
    uint64_t ulTxPackets;
    uint64_t ulRxPackets;
    uint64_t ulTxErrors;
    uint64_t ulRxErrors;
    uint64_t ulTxDrops;
    uint64_t ulRxDrops;
} PortTraffic;

/* One port's rates (type 48). */
typedef struct PortRate {
    uint32_t eType;
    uint32_t uiIndex;
    uint32_t uiRxRate;
    uint32_t uiTxRate;
} PortRate;

/* One port's MAC address (type 49): a colon-separated text of 17 characters. */
typedef struct PortMac {
    uint32_t eType;
    uint32_t uiIndex;
    char szMac[18];
} PortMac;

/* One port's up/down switch and address (type 50). */
typedef struct PortUpDown {
    uint32_t eType;
    uint32_t uiIndex;
    uint32_t uiActive;
    char szPortIp[16];
} PortUpDown;

BX_API int STJ_PortNum(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_PortNum(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_PortStatus(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_PortStatus(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_PortTraffic(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_PortTraffic(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_PortRate(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_PortRate(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_PortMAC(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_PortMAC(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_PortUpDown(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_PortUpDown(struct blob_attr *pstMsg, void *pvRecord);

/* ==== END PORTS ==== */


/* ==== Station list and details (types 88 to 94) ==== BEGIN STATIONS */

/* One client station: an element of the station list (type 88) and the
 * whole record of the lookup by MAC address (type 89). The u64 counters keep
 * their historical "ui" names. */
typedef struct StaEntry {
    char szMac[32];
    char szHostName[64];
    char szName[64];
    char szIp[16];
    uint32_t eLinkType;        /* EnumAccessMedium */
    uint32_t uiPort;
    char szSsid[32];
    uint32_t bIsOnline;        /* EnumBoolean */
    int32_t iOnlineTime;
    uint32_t uiOnOffTimestamp;
    char szVmac[32];
    char szIpv6[64];
    char szUpMac[32];
    uint32_t eType;            /* EnumDeviceOs */
    char szBrand[32];
    char szModel[32];
    uint32_t uiRxRate;
    uint32_t uiTxRate;
    int32_t iRssi;
    int32_t iWeakRssi;
    uint32_t uiRxNegRate;
    uint32_t uiTxNegRate;
    uint32_t eDuplex;          /* EnumDuplex */
    uint32_t bAllowStorage;    /* EnumBoolean */
    uint32_t bAllowInternet;   /* EnumBoolean */
    uint32_t bAllowWifi;       /* EnumBoolean */
    uint32_t bFromWifi6;       /* EnumBoolean */
    uint32_t eMacStatus;       /* a plain number */
    uint64_t uiRxBytes;
    uint64_t uiTxBytes;
    uint64_t uiRxPackets;
    uint64_t uiTxPackets;
    uint64_t uiTxRetryPackets;
    uint64_t uiRxRetryPackets;
    uint64_t uiTxFailedPackets;
    uint64_t uiRxFailedPackets;
    uint64_t uiTxDiscard;
} StaEntry;

/* The station list (type 88). pstListInfo is the caller's array; on the way
 * in uiStaNumofEsps is its capacity in entries. JTS_StaList never writes the
 * count back: callers learn the number of stations from the message's own
 * "count", or by zeroing the array and looking for filled szMac fields. */
typedef struct StaListInfo {
    uint32_t uiStaNumofEsps;
    StaEntry *pstListInfo;
} StaListInfo;

/* A wrong-Wi-Fi-password report (type 90). */
typedef struct StaMac {
    char szMac[32];
} StaMac;

/* One station's traffic counters (type 91); 32-bit, unlike StaEntry's. */
typedef struct StaTraffic {
    char szMac[32];
    uint32_t uiTxBytes;
    uint32_t uiRxBytes;
    uint32_t uiTxPackets;
    uint32_t uiRxPackets;
    uint32_t uiTxErrors;
    uint32_t uiRxErrors;
} StaTraffic;

/* Station counts (type 92). */
typedef struct StaNum {
    uint32_t uiCountAll;
    uint32_t uiCountOnline;
    uint32_t uiCountWired;
    uint32_t uiCount2p4g;
    uint32_t uiCount5g;
} StaNum;

/* A station's display name (type 93). */
typedef struct StaName {
    char szMac[32];
    char szName[64];
} StaName;

/* A station's brand and model (type 94); uiFlag says which texts are valid. */
#define STA_MODEL_BRAND_VALID 0x01u
#define STA_MODEL_MODEL_VALID 0x02u
typedef struct StaModel {
    char szMac[32];
    char szBrand[32];
    char szModel[32];
    uint32_t uiFlag;
} StaModel;

BX_API int STJ_StaList(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_StaList(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_StaInfoByMac(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_StaInfoByMac(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_StaWifiPwdErr(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_WifiPwdErr(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_StaTraffic(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_StaTraffic(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_StaNum(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_StaNum(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_StaName(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_StaName(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_StaModel(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_StaModel(struct blob_attr *pstMsg, void *pvRecord);

/* ==== END STATIONS ==== */


/* ==== Station access control (types 98 to 107) ==== BEGIN STA_CTRL */

/* Station access control: which stations may use the Internet and the
 * Wi-Fi. Modes travel as EnumListMode words ("WHITE"/"BLACK"). */

/* StaCtrlStatus (98): access control on or off. */
typedef struct StaCtrlStatusParam {
    uint32_t eStatus;              /* "status", EnumSwitch */
} StaCtrlStatusParam;

/* StaCtrlMode (99) and StaBWListGet (102, the mode whose list is asked for). */
typedef struct StaCtrlModeParam {
    uint32_t eMode;                /* "mode", EnumListMode */
} StaCtrlModeParam;

/* StaCtrlModeSwitch (100): one mode's list on or off. */
typedef struct StaCtrlModeSwitchParam {
    uint32_t eMode;                /* "mode", EnumListMode */
    uint32_t eStatus;              /* "status", EnumSwitch */
} StaCtrlModeSwitchParam;

#define STA_CTRL_LIST_MAX 32
typedef struct StaCtrlEntry {
    char szMac[32];                /* "mac" */
    char szName[64];               /* "name" */
    uint32_t eMode;                /* "mode", EnumListMode */
} StaCtrlEntry;

/* StaCtrlList (101): "count", then "list" of tables. */
typedef struct StaCtrlListParam {
    uint32_t uiCount;
    StaCtrlEntry astList[STA_CTRL_LIST_MAX];
} StaCtrlListParam;

/* StaCtrlInternet (103) and StaCtrlWifi (104): one station allowed or not. */
typedef struct StaCtrlAllowParam {
    char szMac[32];                /* "mac" */
    uint32_t bAllow;               /* "allow", EnumBoolean ("true"/"false") */
} StaCtrlAllowParam;

/* StaCtrlWifi list (105): "count", then "list" of {"mac", "allow"}. */
typedef struct StaCtrlWifiListParam {
    uint32_t uiCount;
    StaCtrlAllowParam astList[STA_CTRL_LIST_MAX];
} StaCtrlWifiListParam;

/* StaCtrlItemAdd (106): add, change or remove one station of a list. */
typedef struct StaCtrlItemParam {
    uint32_t eAction;              /* "action", EnumListAction */
    uint32_t eMode;                /* "mode", EnumListMode */
    char szMac[32];                /* "mac" */
    char szName[64];               /* "name" */
} StaCtrlItemParam;

/* StaCtrlInternetTime (107): when a station may use the Internet. */
typedef struct StaCtrlInternetTimeParam {
    char szMac[32];                /* "mac" */
    char szStartTime[16];          /* "starttime", "HH:MM" */
    char szEndTime[16];            /* "endtime", "HH:MM" */
    uint32_t uiWeekMask;           /* "week", bit 0 Monday .. bit 6 Sunday */
} StaCtrlInternetTimeParam;

BX_API int STJ_StaCtrlStatus(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_StaCtrlStatus(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_StaCtrlMode(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_StaCtrlMode(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_StaCtrlModeSwitch(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_StaCtrlModeSwitch(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_StaCtrlList(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_StaCtrlList(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_StaBWListGet(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_StaCtrBlackList(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_StaCtrlInternet(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_StaCtrlInternet(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_StaCtrlWifi(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_StaCtrlWifi(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_StaCtrlWifi_List(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_StaCtrlWifi_List(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_StaCtrlItemAdd(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_StaCtrlItemAdd(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_StaCtrlInternetTime(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_StaCtrlInternetTime(struct blob_attr *pstMsg, void *pvRecord);

/* ==== END STA_CTRL ==== */


/* ==== Radios and access points (types 52, 53, 63, 67, 68, 70 to 76) ==== BEGIN RADIO_AP */

/* Wi-Fi records begin with the radio, eRadio, which travels as an EnumBand
 * word under "radio" ("2.4G"=0, "5G"=1); an access point is then named by its
 * index within that radio. */

/* Presence mask of the radio and access-point settings (field capaflag).
 * Receiving sets the bit of every optional setting the message carried and
 * never clears one; sending emits a setting only when its bit is set. The
 * bits are shared by the whole family, each record uses its own subset. */
#define WIFI_CAPA_STATUS        0x1u    /* RadioBasicRec, ApBasicRec */
#define WIFI_CAPA_SSID          0x2u    /* ApBasicRec */
#define WIFI_CAPA_KEY           0x4u    /* ApBasicRec */
#define WIFI_CAPA_AUTH          0x8u    /* ApBasicRec */
#define WIFI_CAPA_ENCRYPT       0x10u   /* ApBasicRec */
#define WIFI_CAPA_HIDE          0x20u   /* ApBasicRec */
#define WIFI_CAPA_BANDWIDTH     0x40u   /* RadioBasicRec */
#define WIFI_CAPA_STANDARD      0x80u   /* RadioBasicRec */
#define WIFI_CAPA_ACCESSMAX     0x100u  /* ApAdvancedRec */
#define WIFI_CAPA_WMMENABLE     0x200u  /* ApAdvancedRec */
#define WIFI_CAPA_USBANDWIDTH   0x400u  /* ApRateLimitRec */
#define WIFI_CAPA_DSBANDWIDTH   0x800u  /* ApRateLimitRec */
#define WIFI_CAPA_TXPOWER       0x1000u /* RadioBasicRec */
#define WIFI_CAPA_CHANNEL       0x2000u /* RadioBasicRec */

/* Wi-Fi on or off, for the whole set (type 52) or the 5 GHz radio (type 67):
 * "switch", an EnumSwitch word. */
typedef struct WifiSwitchRec {
    uint32_t uiSwitch;
} WifiSwitchRec;

/* One radio (type 53). The neighbour scan and channel scan requests carry
 * the same record; whichever section comes first defines it. */
typedef struct WifiRadioRec {
    uint32_t eRadio;            /* "radio", band word */
} WifiRadioRec;

/* Selection of a radio and one of its access points (type 63): "radio", "ap". */
typedef struct WifiSelectRec {
    uint32_t eRadio;
    uint32_t uiApIndex;
} WifiSelectRec;

/* Basic settings of one radio (type 68). The ui*Real* fields, uiApCount,
 * uiLoad and uiNoiseLevel report the radio's state and carry no mask bit. */
typedef struct RadioBasicRec {
    uint32_t eRadio;
    uint32_t uiStatus;         /* "status", EnumSwitch */
    uint32_t uiTxPower;        /* "txpower", EnumTxPower */
    uint32_t uiChannel;        /* "channel" */
    uint32_t uiRealChannel;    /* "realchannel": the channel in use */
    uint32_t uiBandwidth;      /* "bandwidth", EnumBandwidth */
    uint32_t uiStandard;       /* "standard", EnumStandard bit set */
    uint32_t uiRealBandwidth;  /* "realbandwidth", EnumBandwidth: the bandwidth in use */
    uint32_t uiApCount;        /* "apcount" */
    uint32_t uiLoad;           /* "load" */
    uint32_t uiNoiseLevel;     /* "noiselevel" */
    uint32_t capaflag;         /* WIFI_CAPA_STATUS, _TXPOWER, _CHANNEL, _BANDWIDTH, _STANDARD */
} RadioBasicRec;

/* Basic settings of one access point (type 70). uiValidTime and uiRestTime
 * (the access point's validity and rest times, "ValidTime" and "RestTime")
 * are carried for the daemons but never converted: they sit here, two
 * unsigned 32-bit numbers before the mask. */
typedef struct ApBasicRec {
    uint32_t eRadio;
    uint32_t uiApIndex;        /* "apindex" */
    uint32_t uiStatus;         /* "status", EnumSwitch */
    char szSsid[32];           /* "ssid" */
    char szInitalSsid[32];     /* "initalssid": the factory network name */
    char szBssid[32];          /* "bssid" */
    uint32_t uiAuth;           /* "auth", EnumAuthMode */
    uint32_t uiEncrypt;        /* "encrypt", EnumCipher */
    char szKey[64];            /* "key": the passphrase */
    uint32_t uiHide;           /* "hide", EnumSwitch: hidden network name */
    uint32_t uiValidTime;
    uint32_t uiRestTime;
    uint32_t capaflag;         /* WIFI_CAPA_STATUS, _SSID, _KEY, _AUTH, _ENCRYPT, _HIDE */
} ApBasicRec;

/* Advanced settings of one access point (type 71). */
typedef struct ApAdvancedRec {
    uint32_t eRadio;
    uint32_t uiApIndex;
    uint32_t uiAccessMax;      /* "accessmax": the station limit */
    uint32_t uiWmmEnable;      /* "wmmenable", EnumSwitch */
    uint32_t capaflag;         /* WIFI_CAPA_ACCESSMAX, _WMMENABLE */
    char szRegulatoryDomain[8]; /* "regulatorydomain" */
} ApAdvancedRec;

/* Rate limits of one access point (type 72). */
typedef struct ApRateLimitRec {
    uint32_t eRadio;
    uint32_t uiApIndex;
    uint32_t uiUsBandWidth;    /* "usbandwidth": upstream limit */
    uint32_t uiDsBandWidth;    /* "dsbandwidth": downstream limit */
    uint32_t capaflag;         /* WIFI_CAPA_USBANDWIDTH, _DSBANDWIDTH */
} ApRateLimitRec;

/* Access mode of one access point (type 73). */
typedef struct ApAccessModeRec {
    uint32_t eRadio;
    uint32_t uiApIndex;
    uint32_t uiAccessMode;     /* "accessmode" */
} ApAccessModeRec;

/* Entries an access rule holds. A received "iplist" fills at most this many,
 * whatever "count" says; a record sent with a larger uiCount sends this many. */
#define AP_ACCESS_IP_MAX 32

typedef struct ApAccessIpRec {
    char szIp[16];             /* "ip" */
    uint32_t uiPort;           /* "port" */
} ApAccessIpRec;

/* Access rule of one access point (type 74). */
typedef struct ApAccessRuleRec {
    uint32_t eRadio;
    uint32_t uiApIndex;
    uint32_t uiAccessRule;     /* "accessrule", EnumIsolation; 3 when none was received */
    uint32_t uiCount;          /* "count": entries of astIpList that are sent */
    ApAccessIpRec astIpList[AP_ACCESS_IP_MAX]; /* "iplist" */
} ApAccessRuleRec;

/* Creation (type 75) and deletion (type 76) of an access point. */
typedef struct ApIndexRec {
    uint32_t eRadio;
    uint32_t uiApIndex;        /* "apindex" */
} ApIndexRec;

BX_API int STJ_WifiStatus(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_WifiStatus(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_WifiOpt(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_WifiOpt(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_WifiSelect(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_WifiRadio(struct blob_attr *pstMsg, void *pvRecord); /* type 63, WifiSelectRec */
BX_API int STJ_Wifi5Status(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Wifi5Status(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_RadioBasic(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_RadioBasic(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_ApBasic(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_ApBasic(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_ApAdvanced(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_ApAdvanced(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_ApRateLimit(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_ApRateLimit(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_ApAccessMode(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_ApAccessMode(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_ApAccessRule(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_ApAccessRule(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_ApAdd(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_ApAdd(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_ApDelete(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_ApDelete(struct blob_attr *pstMsg, void *pvRecord);

/* ==== END RADIO_AP ==== */


/* ==== Mesh role, backhaul and topology (types 55 to 62) ==== BEGIN MESH */

/* Mesh role, backhaul and topology. */

/* WifiMesh (55): the device's mesh role. */
typedef struct MeshRoleParam {
    uint32_t eRole;                /* "role", EnumMeshRole */
} MeshRoleParam;

/* WifiMeshRoaming (56): steering of stations between mesh nodes. */
typedef struct MeshRoamingParam {
    uint32_t eStatus;              /* "status", EnumSwitch */
    int32_t iRssiThreshold;        /* "thresholdrssi", dBm */
} MeshRoamingParam;

/* WifiBackhaulbss (57): the hidden network the nodes link over. */
typedef struct BackhaulBssParam {
    uint32_t eRadio;               /* "radio", EnumBand */
    char szSsid[32];               /* "ssid" */
    char szPassword[64];           /* "password" */
    uint32_t eAuthMode;            /* "authmode", EnumAuthMode */
    uint32_t eCipher;              /* "cipher", EnumCipher */
} BackhaulBssParam;

#define WIFI_TOPO_MAX 32
typedef struct TopoNodeEntry {
    char szMac[32];                /* "mac" */
    char szParentMac[32];          /* "parentmac", empty for the controller */
    uint32_t eRole;                /* "role", EnumMeshRole */
    uint32_t eUplink;              /* "uplink", EnumUplinkMedium */
    int32_t iRssi;                 /* "rssi", of a wireless uplink */
    char szIp[16];                 /* "ip" */
} TopoNodeEntry;

/* WifiTopo (58): "count", then "topo" of node tables. */
typedef struct WifiTopoParam {
    uint32_t uiCount;
    TopoNodeEntry astNode[WIFI_TOPO_MAX];
} WifiTopoParam;

/* WifiLocalMesh_Event (59, sent only): a node joined or left. */
typedef struct LocalMeshEventParam {
    char szMac[32];                /* "mac" */
    uint32_t eAction;              /* "action", EnumListAction ("add"/"delete"/"modify") */
} LocalMeshEventParam;

/* WifiTopoMac (60): "count", then "maclist", an array of MAC texts. */
typedef struct TopoApMacParam {
    uint32_t uiCount;
    char aszMac[WIFI_TOPO_MAX][32];
} TopoApMacParam;

/* WifiTopoAp_Map (61): the BSSIDs a node serves on each band. */
typedef struct TopoApMapParam {
    char szMac[32];                /* "mac" */
    char szBssid2g[32];            /* "bssid2g" */
    char szBssid5g[32];            /* "bssid5g" */
} TopoApMapParam;

/* WifiTopoChange (62): the topology changed at one node. LocalMeshEventParam's layout. */
typedef LocalMeshEventParam TopoChangeParam;

BX_API int STJ_WifiMesh(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_WifiMesh(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_WifiMeshRoaming(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_WifiMeshRoaming(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_WifiBackhaulbss(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_WifiBackhaulbss(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_WifiTopo(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_WifiTopo(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_WifiLocalMesh_Event(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int STJ_WifiTopoMac(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_WifiTopoMac(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_WifiTopoAp_Map(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_WifiTopoAp_Map(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_WifiTopoChange(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_WifiTopoChange(struct blob_attr *pstMsg, void *pvRecord);

/* ==== END MESH ==== */


/* ==== Roaming (types 113 to 120) ==== BEGIN ROAMING */

/* Layer-2 roaming settings (type 113). */
typedef struct L2RoamingRec {
    uint32_t uiStatus;      /* "status", switch word */
    int32_t iLowRssi2p4g;   /* "lowrssi2p4g", weak-signal threshold on 2.4 GHz */
    int32_t iLowRssi5g;     /* "lowrssi5g" */
} L2RoamingRec;

/* Bits of RoamingRec.uiRoamFlag: which settings the message carries. */
#define BX_ROAM_ENABLE           0x01u
#define BX_ROAM_THRESHOLD_RSSI   0x02u
#define BX_ROAM_REPORT_INTERVAL  0x04u
#define BX_ROAM_START_TIME       0x08u
#define BX_ROAM_START_RSSI       0x10u
#define BX_ROAM_LOW_RSSI_PERIOD  0x20u
#define BX_ROAM_THRESHOLD_RSSI5G 0x40u

/* Assisted roaming settings (type 114). */
typedef struct RoamingRec {
    uint32_t uiEnable;          /* "enable", a number */
    int32_t iThresholdRssi;     /* "thresholdrssi" */
    uint32_t uiReportInterval;  /* "reportinterval" */
    uint32_t uiStartTime;       /* "starttime" */
    int32_t iStartRssi;         /* "startrssi" */
    uint32_t uiLowRssiPeriod;   /* "lowrssiperiod" */
    int32_t iThresholdRssi5g;   /* "thresholdrssi5g" */
    uint32_t uiRoamFlag;        /* BX_ROAM_* presence mask, never on the bus */
} RoamingRec;

/* Access points per signal-strength query or answer (types 115, 116). */
#define BX_ROAMING_AP_MAX 32

/* The query, answer and BSS transition messages write MACs as 12 bare
 * hexadecimal digits; only 12 characters are kept on the way in. */
typedef struct RoamingApInfoRec {
    char szBssid[16];           /* "bssid", 12 characters kept */
    uint32_t uiChannel;         /* "channel" */
} RoamingApInfoRec;

/* Which access points should measure a station (type 115). */
typedef struct RoamingApQueryRec {
    uint32_t uiCount;           /* "count" */
    char szMac[16];             /* "mac", the station, 12 characters kept */
    RoamingApInfoRec astApInfo[BX_ROAMING_AP_MAX];  /* "apinfo" */
} RoamingApQueryRec;

typedef struct RoamingApRssiRec {
    char szBssid[16];           /* "bssid", 12 characters kept */
    int32_t iRssi;              /* "rssi" */
} RoamingApRssiRec;

/* What the access points heard (type 116). */
typedef struct RoamingApRspRec {
    uint32_t uiCount;           /* "count" */
    RoamingApRssiRec astApRssi[BX_ROAMING_AP_MAX];  /* "aprssi" */
} RoamingApRspRec;

/* Steer a station to another access point (type 117). */
typedef struct RoamingBssTransRec {
    char szSta[13];             /* "sta" */
    char szBssid[13];           /* "bssid" */
    uint32_t uiChannel;         /* "channel" */
} RoamingBssTransRec;

/* A station's roaming report (type 118); MACs in the 17-character colon form. */
typedef struct RoamingReportRec {
    char szMac[18];             /* "mac" */
    uint32_t eRadio;            /* "radio", band word */
    int32_t iRssi;              /* "rssi" */
    uint32_t uiConnectTime;     /* "connecttime" */
    uint32_t uiRxRate;          /* "rxRate" */
    uint32_t uiTxRate;          /* "txRate" */
    uint32_t uiChannel;         /* "channel" */
    char szBssid[18];           /* "bssid" */
    uint16_t usSupport11k;      /* "support11k", "true"/"false" */
    uint16_t usSupport11v;      /* "support11v", "true"/"false" */
} RoamingReportRec;

/* Stop watching a station (type 119, received only). */
typedef struct RoamingStopDetectRec {
    char szMac[18];             /* "mac" */
    uint32_t uiStopDetectTime;  /* "stopdetecttime" */
} RoamingStopDetectRec;

/* A station's weak-signal report (type 120). */
typedef struct RoamingStaRssiRec {
    char szMac[18];             /* "mac", taken whole: all 18 bytes may be text */
    int32_t iRssi;              /* "rssi" */
    uint32_t eRadio;            /* "radio", band word */
} RoamingStaRssiRec;

BX_API int STJ_L2_Roaming(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_L2_Roaming(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Roaming(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Roaming(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Roaming_APQuery(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Roaming_APQuery(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Roaming_APRsp(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Roaming_APRsp(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Roaming_BssTrans(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Roaming_BssTrans(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Roaming_Report(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Roaming_Report(struct blob_attr *pstMsg, void *pvRecord);
BX_API int JTS_Roaming_StopDetect(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Roaming_StaRssi(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Roaming_StaRssi(struct blob_attr *pstMsg, void *pvRecord);

/* ==== END ROAMING ==== */


/* ==== Neighbour scan, WPS and channel scoring (types 77 to 81) ==== BEGIN NEIGHBOUR */

/* The scan and channel-scan orders (77, 80) carry the radio alone:
 * WifiRadioRec, declared with the radios (type 53 uses it too). */

/* Start or stop WPS push-button pairing (type 79). */
typedef struct WpsPbcRec {
    uint32_t eRadio;            /* "radio", band word */
    uint32_t uiStatus;          /* "status", switch word */
} WpsPbcRec;

/* Capacity of astNeighbour (chosen here): the walk of a received list stops
 * at the record's count and never goes past this. */
#define BX_WLAN_NEIGHBOUR_MAX 64

typedef struct WlanNeighbourEntryRec {
    char szSsid[33];            /* "ssid", up to 32 characters */
    char szBssid[32];           /* "bssid" */
    uint32_t uiChannel;         /* "channel" */
    int32_t iRssi;              /* "rssi" */
    uint32_t uiStandard;        /* "standard", "11b/11g/..." bit set */
    uint32_t eBandWidth;        /* "bandwidth", a plain number */
    uint32_t eAuth;             /* "authmode", authentication word */
    uint32_t eEncryptType;      /* "encrypttype" in, "encryttype" out */
} WlanNeighbourEntryRec;

/* The networks a scan found (type 78). */
typedef struct WlanNeighbourRec {
    uint32_t eRadio;            /* "radio" */
    uint32_t uiCount;           /* "count" */
    WlanNeighbourEntryRec astNeighbour[BX_WLAN_NEIGHBOUR_MAX];  /* "neighbourlist" */
} WlanNeighbourRec;

/* Capacity of astScore (chosen here): every channel of both bands fits; a
 * received list is cut here. */
#define BX_CHANNEL_SCORE_MAX 64

typedef struct ChannelScoreEntryRec {
    uint32_t uiChannel;         /* "channel" */
    uint32_t uiScore;           /* "score" */
} ChannelScoreEntryRec;

/* Each channel's score after a channel scan (type 81). */
typedef struct ChannelScoreRec {
    uint32_t eRadio;            /* "radio" */
    uint32_t uiCount;           /* "count" */
    ChannelScoreEntryRec astScore[BX_CHANNEL_SCORE_MAX];  /* "scorelist" */
} ChannelScoreRec;

BX_API int STJ_ScanWlanNeighbour(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_ScanWlanNeighbour(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_WlanNeighbour(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_WlanNeighbour(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_WpsPbc(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_WpsPbc(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_ChannelScan(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_ChannelScan(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_ChannelScore(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_ChannelScore(struct blob_attr *pstMsg, void *pvRecord);

/* ==== END NEIGHBOUR ==== */


/* ==== Access lists and deassociation (types 54, 64 to 66) ==== BEGIN ACCESS_LIST */

#define BX_WIFI_DEASSOC_MAC_MAX 32

/* Push stations off one radio (type 54). */
typedef struct WifiDeassocRec {
    uint32_t uiCount;           /* "count", MACs in aszMac */
    uint32_t eRadio;            /* "radio", band word */
    uint32_t uiTime;            /* "time" */
    char aszMac[BX_WIFI_DEASSOC_MAC_MAX][32];  /* "macs" */
} WifiDeassocRec;

/* One access-list station (types 64 and 65; 65 uses the index only). */
typedef struct WifiAccessEntryRec {
    uint32_t uiIndex;           /* "index" */
    char szName[64];            /* "name" */
    char szMac[32];             /* "mac" */
} WifiAccessEntryRec;

/* Capacity of astList (chosen here): a received list is cut here. */
#define BX_WIFI_ACCESS_LIST_MAX 64

/* The whole access list (type 66). */
typedef struct WifiAccessListRec {
    uint32_t uiCount;           /* "count" */
    WifiAccessEntryRec astList[BX_WIFI_ACCESS_LIST_MAX];  /* "list" */
} WifiAccessListRec;

BX_API int STJ_WifiStaDeassociation(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_WifiStaDeassociation(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_WifiBlackWhite_Add(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_WifiBlackWhite_Add(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_WifiBlackWhite_Delete(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_WifiBlackWhite_Delete(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_WifiBlackWhite_List(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_WifiBlackWhite_List(struct blob_attr *pstMsg, void *pvRecord);

/* ==== END ACCESS_LIST ==== */


/* ==== QoS classification (types 121 to 128) ==== BEGIN QOS */

/* The QoS, DSCP and 802.1p switches (121, 122, 123): "enable" travels as the
 * word "enable" or "disable". */
typedef struct QosSwitch {
    uint32_t uiEnable;
} QosSwitch;

/* A rule's index: delete (125) both ways, get (128) from JSON. */
typedef struct QosClassIndex {
    uint32_t uiIndex;
} QosClassIndex;

/* Protocol slots of one rule: a 0 in slot 1 or later ends the used part. */
#define QOS_CLASS_PROTOCOL_NUM 8

/* One classification rule (add 124, set 127, get 128 to JSON, list 126). */
typedef struct QosClassRule {
    uint32_t uiIndex;
    char szName[33];
    uint32_t uiPriority;
    uint32_t uiDscp;
    uint32_t uiVlan8021p;
    uint32_t auiProtocol[QOS_CLASS_PROTOCOL_NUM];
    char szSrcIp[17];
    char szSrcMask[17];
    uint32_t uiSrcPort;
    char szSrcMac[17];
    char szDstIp[17];
    char szDstMask[17];
    uint32_t uiDstPort;
    char szDstMac[17];
} QosClassRule;

/* Rules a list record holds. The converters walk uiCount rules but never
 * more than this many, in either direction. */
#define QOS_CLASS_RULE_MAX 32

/* The rule list (126); uiCount travels under the key "index". */
typedef struct QosClassRuleList {
    uint32_t uiCount;
    QosClassRule astRule[QOS_CLASS_RULE_MAX];
} QosClassRuleList;

BX_API int STJ_QoS(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_QoS(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Dscp(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Dscp(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_8021p(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_8021p(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Qos_Classification_Add(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Qos_Classification_Add(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Qos_Classification_Delete(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Qos_Classification_Delete(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Qos_Classification_List(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Qos_Classification_List(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Qos_Classification_Set(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Qos_Classification_Set(struct blob_attr *pstMsg, void *pvRecord);
/* To JSON from a QosClassRule, from JSON into a QosClassIndex. */
BX_API int STJ_Qos_Classification_Get(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Qos_Classification_Get(struct blob_attr *pstMsg, void *pvRecord);

/* ==== END QOS ==== */


/* ==== Timers, rate limits and IPTV (types 84 to 87, 108 to 112) ==== BEGIN TIMERS */

/* Scheduled reboot (84); uiStatus travels as "enable"/"disable". */
typedef struct RebootTimer {
    uint32_t uiStatus;
    uint32_t uiHour;
    uint32_t uiMinute;
    uint32_t uiWeek;
} RebootTimer;

/* One Wi-Fi on/off task (85, and the element of 86). uiStatus and uiAction
 * travel as "enable"/"disable", uiType as "continuous"/"instant". */
typedef struct WifiTimerTask {
    uint32_t uiTaskId;
    uint32_t uiStatus;
    uint32_t uiAction;
    uint32_t uiType;
    uint32_t uiStartHour;
    uint32_t uiStartMinute;
    uint32_t uiEndHour;
    uint32_t uiEndMinute;
    uint32_t uiWeek;
} WifiTimerTask;

/* Tasks a timer list record holds; the converters never walk more. */
#define WIFI_TIMER_TASK_MAX 32

typedef struct WifiTimerList {
    uint32_t uiCount;
    WifiTimerTask astTask[WIFI_TIMER_TASK_MAX];
} WifiTimerList;

typedef struct WifiTimerIdx {
    uint32_t uiTaskId;
} WifiTimerIdx;

/* uiValidFlags: which of the optional members a rate limit carries. */
#define RATE_LIMIT_VALID_TX     0x1u
#define RATE_LIMIT_VALID_RX     0x2u
#define RATE_LIMIT_VALID_ENABLE 0x4u

/* One client's rate limit (108, and the element of 109). */
typedef struct RateLimitEntry {
    uint32_t uiEnable;
    char szMac[32];
    char szIp[32];
    uint32_t uiRxRateLimit;
    uint32_t uiTxRateLimit;
    uint32_t uiValidFlags;
} RateLimitEntry;

#define RATE_LIMIT_LIST_MAX 32

typedef struct RateLimitList {
    uint32_t uiCount;
    RateLimitEntry astEntry[RATE_LIMIT_LIST_MAX];
} RateLimitList;

/* The periodic traffic-rate sampling task (110); eTaskType travels as
 * "UPLINK"/"USER". */
typedef struct PeriodRateTask {
    uint32_t eTaskType;
    char szTaskName[33];
    uint32_t uiReportInterval;
    uint32_t uiSampleInterval;
} PeriodRateTask;

/* One reading of the sampling task (111). */
typedef struct PeriodRateReport {
    uint32_t eTaskType;
    char szTaskName[33];
    char szMac[32];
    uint32_t uiTxRateRt;
    uint32_t uiRxRateRt;
    uint32_t uiMaxRxRate;
    uint32_t uiMaxTxRate;
    uint32_t uiAvaRxRate;
    uint32_t uiAvaTxRate;
} PeriodRateReport;

/* One IPTV VLAN; a slot whose uiVlanId is 0 is unused. */
typedef struct IptvVlan {
    uint32_t uiVlanId;
    uint32_t uiEthPorts;
    uint32_t uiPorts2p4g;
    uint32_t uiPorts5g;
} IptvVlan;

#define IPTV_VLAN_NUM 2

/* IPTV settings (112); uiStatus travels as "enable"/"disable". */
typedef struct IptvConfig {
    uint32_t uiStatus;
    IptvVlan astVlan[IPTV_VLAN_NUM];
} IptvConfig;

BX_API int STJ_RebootTimer(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_RebootTimer(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_WifiTimer_Set(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_WifiTimer_Set(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_WifiTimer_List(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_WifiTimer_Get(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_WifiTimer_Idx(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_WifiTimer_Idx(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Ratelimit(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Ratelimit(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_RatelimitList(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_RatelimitList(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_PeriodRate_Set(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_PeriodRate_Set(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_PeriodRate_Get(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_PeriodRate_Get(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_IPTV(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_IPTV(struct blob_attr *pstMsg, void *pvRecord);

/* ==== END TIMERS ==== */


/* ==== URL and DNS filters (types 132 to 139) ==== BEGIN FILTERS */

/* Lists of texts in a rule: 32 slots of 32 bytes, at most 31 characters
 * each; the first empty slot ends the used part. */
#define FILTER_TEXT_NUM 32
#define FILTER_TEXT_LEN 32
/* Active periods of a rule; a pair whose uiEndTime is 0 ends the used part. */
#define FILTER_TIME_RANGE_NUM 3
/* Rules a list record holds; the converters never walk more. */
#define FILTER_RULE_NUM 32

/* One active period, in seconds since midnight. */
typedef struct FilterTimeRange {
    uint32_t uiStartTime;
    uint32_t uiEndTime;
} FilterTimeRange;

/* A URL filter rule (135, and the element of 134). uiEnable travels as
 * "enable"/"disable", uiMode as "Black"/"White". uiWeekday 0 means no
 * schedule: the rule then goes out without "weekday" and "timerange". */
typedef struct FilterUrlRule {
    uint32_t uiIdx;
    uint32_t uiEnable;
    char aszUrls[FILTER_TEXT_NUM][FILTER_TEXT_LEN];
    char szName[32];
    char aszMacs[FILTER_TEXT_NUM][FILTER_TEXT_LEN];
    uint32_t uiMode;
    uint32_t uiWeekday;
    FilterTimeRange astTimeRange[FILTER_TIME_RANGE_NUM];
} FilterUrlRule;

/* A DNS filter rule (138, and the element of 137): one client MAC text, and
 * uiAction as "Ignore"/"LanIp"/"NameError". */
typedef struct FilterDnsRule {
    uint32_t uiIdx;
    uint32_t uiEnable;
    char aszHostnames[FILTER_TEXT_NUM][FILTER_TEXT_LEN];
    char szName[32];
    char szMacs[32];
    uint32_t uiAction;
    uint32_t uiMode;
    uint32_t uiWeekday;
    FilterTimeRange astTimeRange[FILTER_TIME_RANGE_NUM];
} FilterDnsRule;

/* The rule lists (134, 137). Rules whose uiIdx is 0 are not sent, though
 * "count" still counts them. */
typedef struct FilterUrlList {
    uint32_t uiCount;
    FilterUrlRule astRule[FILTER_RULE_NUM];
} FilterUrlList;

typedef struct FilterDnsList {
    uint32_t uiCount;
    FilterDnsRule astRule[FILTER_RULE_NUM];
} FilterDnsList;

/* The global URL filter switch (132): "enable"/"disable", sent under "idx"
 * and received under "status". */
typedef struct FilterSwitch {
    uint32_t uiStatus;
} FilterSwitch;

/* The index of a rule just set (136, 139). */
typedef struct FilterReply {
    uint32_t uiIdx;
} FilterReply;

BX_API int STJ_FilterUrl_Switch(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_FilterUrl_Switch(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_FilterUrl_List(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_FilterUrl_Get(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_FilterUrl_Set(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_FilterUrl_Set(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_FilterUrl_Reply(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_FilterUrl_Set_Reply(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_FilterDns_List(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_FilterDns_Get(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_FilterDns_Set(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_FilterDns_Set(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_FilterDns_Reply(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_FilterDns_Set_Reply(struct blob_attr *pstMsg, void *pvRecord);

/* ==== END FILTERS ==== */


/* ==== Vendor-specific information elements (types 140 to 152) ==== BEGIN VSIE */

/* Vendor-specific information elements: raw 802.11 element bytes that a
 * service asks the radios to add to beacons and probe responses, or to look
 * for in incoming probe requests. Element bytes travel as arrays of numbers,
 * one number per byte. Bands are EnumBand words ("2.4G", "5G"). */

/* Element bytes one entry can hold. */
#define VSIE_IEDATA_MAX          256
/* Payload bytes (after the OUI) of one observed probe element. */
#define VSIE_PAYLOAD_MAX         255
/* Stations one probe-receive entry collects. */
#define VSIE_PROBERX_RECORD_MAX  8
/* Capacities of the list records. The converters that build a message trust
 * uiCount up to these; the ones that read a probe list fill at most three
 * entries. Chosen here: 16 beacon entries, 8 entries per probe list. */
#define VSIE_BEACONTX_LIST_MAX   16
#define VSIE_PROBERX_LIST_MAX    8
#define VSIE_PROBERESP_LIST_MAX  8

/* Type 140: the radio's limits for vendor elements. */
typedef struct VsieInfo {
    uint32_t uiMaxBeaconTxEntry;      /* "maxbeacontxentry" */
    uint32_t uiMaxBeaconTxConcurrent; /* "maxbeacontxconcurrent" */
    uint32_t uiMaxProbeRxEntry;       /* "maxproberxentry" */
    uint32_t uiMaxProbeRespEntry;     /* "maxproberespentry" */
} VsieInfo;

/* Type 141, and one entry of the beacon list (143). The element bytes are
 * kept one per 32-bit slot, in transmission order; uiLen counts them and must
 * stay at or below VSIE_IEDATA_MAX. */
typedef struct VsieBeaconTxEntry {
    uint32_t uiIdx;              /* "idx" */
    char szServiceName[64];      /* "servicename" */
    uint32_t uiSsidIdx;          /* "ssididx" */
    uint32_t uiDuration;         /* "duration", in the callers' unit */
    uint32_t uiLen;              /* "len" */
    uint32_t auiIeData[VSIE_IEDATA_MAX]; /* "iedata" */
} VsieBeaconTxEntry;

/* Type 143. */
typedef struct VsieBeaconTxList {
    uint32_t uiCount;            /* "count" */
    VsieBeaconTxEntry astEntry[VSIE_BEACONTX_LIST_MAX]; /* "list" */
} VsieBeaconTxList;

/* Types 142, 146 and 151: one entry named by its index. */
typedef struct VsieIndex {
    uint32_t uiIdx;              /* "idx" */
} VsieIndex;

/* Type 144: switch one beacon element on or off. */
typedef struct VsieBeaconTxSwitch {
    uint32_t uiIdx;              /* "idx" */
    uint32_t uiEnable;           /* "enable", EnumSwitch word */
} VsieBeaconTxSwitch;

/* Type 149, and one station record of a probe-receive entry. Element bytes
 * are packed, one byte each. */
typedef struct VsieProbeRxRecord {
    uint32_t uiRecIdx;           /* not carried on the bus */
    char szMac[18];              /* "mac" */
    uint32_t uiBand;             /* "band", EnumBand word */
    uint32_t uiVsieLen;          /* payload bytes (type 149 received: OUI included) */
    uint8_t aucVsie[VSIE_PAYLOAD_MAX]; /* "vsie" */
    uint8_t aucOui[3];           /* leading three "vsie" numbers of type 149 */
} VsieProbeRxRecord;

/* Type 145, and one entry of the probe-receive list (147). Received by type
 * 148 as well, which fills only szServiceName. */
typedef struct VsieProbeRxEntry {
    uint32_t uiIdx;              /* "idx" */
    char szServiceName[64];      /* "servicename" */
    uint32_t uiBand;             /* "band", EnumBand word */
    uint8_t aucOui[3];           /* "oui" */
    uint32_t uiRecordCount;      /* length of "record" */
    VsieProbeRxRecord astRecord[VSIE_PROBERX_RECORD_MAX]; /* "record" */
} VsieProbeRxEntry;

/* Type 147. */
typedef struct VsieProbeRxList {
    uint32_t uiCount;
    VsieProbeRxEntry astEntry[VSIE_PROBERX_LIST_MAX]; /* "list" */
} VsieProbeRxList;

/* Type 148 as sent: the bare service name at the very start of the record.
 * As received, the name goes to the szServiceName of a VsieProbeRxEntry,
 * after its uiIdx. */
typedef struct VsieProbeRxFlush {
    char szServiceName[64];      /* "servicename" */
} VsieProbeRxFlush;

/* Type 150, and one entry of the probe-response list (152). */
typedef struct VsieProbeRespEntry {
    uint32_t uiIdx;              /* "idx" */
    char szMac[18];              /* "mac" */
    uint32_t uiBand;             /* "band", EnumBand word */
    uint32_t uiIedataLen;        /* bytes in aucIedata */
    uint8_t aucIedata[VSIE_IEDATA_MAX]; /* "iedata" */
} VsieProbeRespEntry;

/* Type 152. */
typedef struct VsieProbeRespList {
    uint32_t uiCount;
    VsieProbeRespEntry astEntry[VSIE_PROBERESP_LIST_MAX]; /* "list" */
} VsieProbeRespList;

BX_API int STJ_Vsie_Info(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Vsie_Info(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Vsie_Beacontx_Add(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Vsie_Beacontx_Add(struct blob_attr *pstMsg, void *pvRecord);
/* One converter sends the index of types 142, 146 and 151; the other two
 * names are aliases of it. */
BX_API int STJ_Vsie_Beacontx_Idx(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Vsie_Beacontx_Idx(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Vsie_Beacontx_List(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Vsie_Beacontx_List(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Vsie_Beacontx_Set(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Vsie_Beacontx_Set(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Vsie_Proberx_Add(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Vsie_Proberx_Add(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Vsie_Proberx_Idx(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Vsie_Proberx_Idx(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Vsie_Proberx_List(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Vsie_Proberx_List(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Vsie_Proberx_Flush(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Vsie_Proberx_Flush(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Vsie_Proberx_Record_Add(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Vsie_Proberx_Record_Add(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Vsie_Proberesp_Add(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Vsie_Proberesp_Add(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Vsie_Proberesp_Idx(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Vsie_Proberesp_Idx(struct blob_attr *pstMsg, void *pvRecord);
BX_API int STJ_Vsie_Proberesp_List(const void *pvRecord, struct blob_buf *pstBuf);
BX_API int JTS_Vsie_Proberesp_List(struct blob_attr *pstMsg, void *pvRecord);

/* ==== END VSIE ==== */


/* ------------------------------------------------------------------------ */
/* What each message is                                                     */
/* ------------------------------------------------------------------------ */

/* A read-only description of each converter, read from the very tables the
 * converters run on: a daemon takes its ubus policy from it, a web page or a
 * cloud agent its keys, types, words and limits. Nothing here converts. */

/* The fields of a message, or of one entry of a list: opaque, read through
 * BLOBXLATE_FieldCount and BLOBXLATE_Field. */
typedef struct BlobxlateFields BlobxlateFields;

/* What a JSON-to-struct converter does with a key (a struct-to-JSON
 * converter sends every field with iSent, see uiSentIf). */
enum BlobxlatePresence {
    BLOBXLATE_OPTIONAL = 0,    /* read when present; when absent the member stays as it was */
    BLOBXLATE_REQUIRED = 1,    /* absent: pcRefusal traced (if any), the converter returns iRefusedRet */
    BLOBXLATE_REPORTED = 2,    /* optional, but its absence is traced with pcRefusal */
    BLOBXLATE_TESTED_ONLY = 3, /* looked for (its absence traced), never read; sent */
    BLOBXLATE_LISTED_ONLY = 4, /* looked for, never read, never sent */
    BLOBXLATE_PARSED_ONLY = 5, /* parsed by the policy only: never tested, read or sent */
};

/* When a value's range uiLowest..uiHighest is tested (unsigned, so a
 * range from 1 refuses 0). */
enum BlobxlateRangeCheck {
    BLOBXLATE_RANGE_NONE = 0,
    BLOBXLATE_RANGE_BEFORE = 1, /* outside: refused (-1), never stored */
    BLOBXLATE_RANGE_AFTER = 2,  /* stored and traced first, then refused (-1) */
};

/* What bounds a received list besides the record's capacity. */
enum BlobxlateListBound {
    BLOBXLATE_BOUND_CAPACITY = 0,    /* the record's array only */
    BLOBXLATE_BOUND_COUNT = 1,       /* also the count already in the record (iCountAt) */
    BLOBXLATE_BOUND_COUNT_AFTER = 2, /* that count, tested after each entry: one entry at least */
};

/* A list's shape: an array of uiCapacity entries, uiStride bytes apart,
 * starting at the field's offset. */
typedef struct BlobxlateList {
    const BlobxlateFields *pstEntry; /* an entry's fields; a bare value is one field without key at offset 0 */
    int iTables;                     /* 1: elements are tables; 0: bare values */
    uint32_t uiCapacity;             /* entries the record holds; 0: the caller's array (see the note) */
    uint32_t uiStride;
    int32_t iCountAt;                /* byte offset of the record's uint32_t count of entries, -1: none */
    int iBound;                      /* enum BlobxlateListBound */
    int iFillsCount;                 /* 1: a received list sets the count to the entries filled */
    int iAnyType;                    /* 1: elements of any blobmsg type are read as entries */
    int iSurplusSkipped;             /* 1: elements past the bound are skipped, the walk goes on */
    int iToFirstEmpty;               /* 1: sent up to the first entry whose first field is zero */
} BlobxlateList;

/* One field, in the order the converter tests (or sends) it. */
typedef struct BlobxlateField {
    const char *pcKey;       /* null: the value of a bare list entry */
    int iBlobType;           /* BLOBMSG_TYPE_* the key travels as (and is parsed with) */
    const char *pcMember;    /* the record member, null for a key without one */
    uint32_t uiOffset;       /* byte offset of the member in the record (or list entry) */
    uint32_t uiSize;         /* bytes of the member (a list: its whole array) */
    char szCType[24];        /* the member's C type as converted: "char[33]", "uint32_t", "struct[16]" */
    int iPresence;           /* enum BlobxlatePresence */
    int iRefusedRet;         /* BLOBXLATE_REQUIRED: the converter's result without it */
    const char *pcRefusal;   /* REQUIRED or REPORTED: the trace line of its absence, or null */
    int iSent;               /* 1: the struct-to-JSON converter sends it */
    int iWholeText;          /* 1: a text copied with its array's whole size (may lack a terminator) */
    uint32_t uiMaskBit;      /* set in the record's mask once stored, 0: none */
    uint32_t uiSentIf;       /* sent only while the mask has one of these bits, 0: always */
    int iRangeCheck;         /* enum BlobxlateRangeCheck */
    uint32_t uiLowest;
    uint32_t uiHighest;
    const char *pcOutOfRange; /* trace line of a value outside the range, or null */
    int iEnumKind;           /* the EnumKind of a word, -1: not a word */
    int iIsList;             /* 1: stList describes the list */
    BlobxlateList stList;
    const char *pcNote;      /* where the converter departs from these columns, or null */
} BlobxlateField;

/* One converter: the fields of its message. */
typedef struct BlobxlateMessage {
    int iType;
    int iDirection;                 /* BLOBXLATE_TO_JSON or BLOBXLATE_TO_STRUCT */
    const char *pcName;             /* the row's name text */
    const BlobxlateFields *pstFields;
    int32_t iMaskAt;                /* byte offset of the record's uint32_t validity mask, -1: none */
    const char *pcNote;             /* how a hand-written converter departs from its fields, or null */
} BlobxlateMessage;

/* The converter of message type iType in direction iDirection: 0 and
 * *pstOut filled, or -1 (no such converter, or a null pstOut). */
BX_API int BLOBXLATE_Describe(int iDirection, int iType, BlobxlateMessage *pstOut);

/* The number of fields of pstFields (0 for null). */
BX_API int BLOBXLATE_FieldCount(const BlobxlateFields *pstFields);

/* Field iIndex of pstFields: 0 and *pstOut filled, or -1 (index outside,
 * null argument). */
BX_API int BLOBXLATE_Field(const BlobxlateFields *pstFields, int iIndex, BlobxlateField *pstOut);

/* The top-level policy the JSON-to-struct converter of message type iType
 * parses its message with, ready for a ubus method (UBUS_METHOD with it and
 * *piCount); null and a count of 0 for a type without that converter.
 * piCount may be null. */
BX_API const struct blobmsg_policy *BLOBXLATE_Policy(int iType, int *piCount);

/* What BLOBXLATE_Check finds: each says what the JSON-to-struct converter
 * will do with that part of the message. */
enum BlobxlateFindingKind {
    BLOBXLATE_FINDING_UNKNOWN_KEY = 1,  /* a key the message does not have: ignored */
    BLOBXLATE_FINDING_NOT_READ = 2,     /* a key the converter parses but never reads: ignored */
    BLOBXLATE_FINDING_DUPLICATE = 3,    /* a key given twice: the first is read */
    BLOBXLATE_FINDING_MISSING = 4,      /* a required key missing: the message is refused */
    BLOBXLATE_FINDING_WRONG_TYPE = 5,   /* another blobmsg type: ignored (an element: skipped or read as a number) */
    BLOBXLATE_FINDING_SEND_AS_U64 = 6,  /* INT32 where INT64 is read: ignored; send it with blobmsg_add_u64 */
    BLOBXLATE_FINDING_UNKNOWN_WORD = 7, /* no word of its list: stored as llNumber */
    BLOBXLATE_FINDING_OUT_OF_RANGE = 8, /* outside the message's range: refused */
    BLOBXLATE_FINDING_TEXT_CUT = 9,     /* longer than its member: cut */
    BLOBXLATE_FINDING_LIST_CUT = 10,    /* more elements than are read: the rest dropped */
    BLOBXLATE_FINDING_MALFORMED = 11,   /* a malformed attribute: it and what follows are not read */
};

/* One finding. The texts are valid only during the callback. */
typedef struct BlobxlateFinding {
    const char *pcPath;  /* where: "stalist[3].txpackets", "oui[4]" */
    const char *pcKey;   /* the key, null for a list element or a malformed attribute */
    int iKind;           /* enum BlobxlateFindingKind */
    const char *pcText;  /* what the converter does with it, one line without line end */
    int iHasNumber;      /* 1: llNumber is the number stored or tested */
    int64_t llNumber;
} BlobxlateFinding;

typedef void (*BlobxlateFindingFunc)(void *pvContext, const BlobxlateFinding *pstFinding);

/* Reads pstMsg the way the JSON-to-struct converter of iType reads it and
 * calls pfnReport (may be null) for each problem, converting nothing.
 * Returns the number of findings, or -1 for a null message or a type
 * without a JSON-to-struct converter. A hand-written converter (its
 * description's pcNote) is checked against its fields as described. */
BX_API int BLOBXLATE_Check(int iType, struct blob_attr *pstMsg, BlobxlateFindingFunc pfnReport, void *pvContext);

#ifdef __cplusplus
}
#endif

#endif /* BLOBXLATE_H */
