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

/* ==== END DEVICE_INFO ==== */


/* ==== Device control and status (types 12, 15 to 21) ==== BEGIN DEVICE_CONTROL */

/* ==== END DEVICE_CONTROL ==== */


/* ==== Carrier and service messages (types 129, 130, 153 to 172) ==== BEGIN CARRIER */

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


/* ==== Radios and access points (types 52, 53, 63, 67, 68, 70 to 81) ==== BEGIN RADIO_AP */

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
#ifndef BX_HAVE_WIFI_RADIO_REC
#define BX_HAVE_WIFI_RADIO_REC
typedef struct WifiRadioRec {
    uint32_t eRadio;
} WifiRadioRec;
#endif

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

/* ==== END ROAMING ==== */


/* ==== Neighbour scan, WPS and channel scoring ==== BEGIN NEIGHBOUR */

/* ==== END NEIGHBOUR ==== */


/* ==== Access lists and deassociation (types 54, 64 to 66) ==== BEGIN ACCESS_LIST */

/* ==== END ACCESS_LIST ==== */


/* ==== QoS classification (types 121 to 128) ==== BEGIN QOS */

/* ==== END QOS ==== */


/* ==== Timers, rate limits and IPTV (types 84 to 87, 108 to 112) ==== BEGIN TIMERS */

/* ==== END TIMERS ==== */


/* ==== URL and DNS filters (types 132 to 139) ==== BEGIN FILTERS */

/* ==== END FILTERS ==== */


/* ==== Vendor-specific information elements (types 140 to 152) ==== BEGIN VSIE */

/* ==== END VSIE ==== */


#ifdef __cplusplus
}
#endif

#endif /* BLOBXLATE_H */
