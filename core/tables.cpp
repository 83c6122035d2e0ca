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
    /*  46 */ stj("QoS", MSG_QOS, STJ_QoS),
    /*  47 */ stj("Dscp", MSG_DSCP, STJ_Dscp),
    /*  48 */ stj("8021p", MSG_8021P, STJ_8021p),
    /*  49 */ stj("Qos_Classification_Add", MSG_QOS_CLASSIFICATION_ADD, STJ_Qos_Classification_Add),
    /*  50 */ stj("Qos_Classification_Delete", MSG_QOS_CLASSIFICATION_DELETE, STJ_Qos_Classification_Delete),
    /*  51 */ stj("Qos_Classification_Set", MSG_QOS_CLASSIFICATION_SET, STJ_Qos_Classification_Set),
    /*  52 */ stj("Qos_Classification_Get", MSG_QOS_CLASSIFICATION_GET, STJ_Qos_Classification_Get),
    /*  53 */ stj("Qos_Classification_List", MSG_QOS_CLASSIFICATION_LIST, STJ_Qos_Classification_List),
    /*  54 */ stj("RebootTimer", MSG_REBOOT_TIMER, STJ_RebootTimer),
    /*  55 */ stj("WifiTimer", MSG_WIFI_TIMER, STJ_WifiTimer_List),
    /*  56 */ stj("WifiTimerset", MSG_WIFI_TIMER_SET, STJ_WifiTimer_Set),
    /*  57 */ stj("WifiTimerIdx", MSG_WIFI_TIMER_IDX, STJ_WifiTimer_Idx),
    /*  58 */ stj("Ratelimit", MSG_RATELIMIT, STJ_Ratelimit),
    /*  59 */ stj("RatelimitList", MSG_RATELIMIT_LIST, STJ_RatelimitList),
    /*  60 */ stj("PeriodRateSet", MSG_PERIOD_RATE_SET, STJ_PeriodRate_Set),
    /*  61 */ stj("PeriodRateGet", MSG_PERIOD_RATE_GET, STJ_PeriodRate_Get),
    /*  62 */ stj("Iptv", MSG_IPTV, STJ_IPTV),
    /* closing row */ stj(nullptr, bx::kClosingRowId, closing_row_to_json),
};
const int32_t g_iStructToJson_FuncNum =
    static_cast<int32_t>(sizeof g_astStructToJson_Func / sizeof g_astStructToJson_Func[0]) - 1;

constinit const MessageTransEntry g_astJsonToStruct_Func[] = {
    /*   0 */ jts("Ret", MSG_RET, JTS_Ret),
    /*  17 */ jts("RebootTimer", MSG_REBOOT_TIMER, JTS_RebootTimer),
    /*  18 */ jts("WifiTimer", MSG_WIFI_TIMER_SET, JTS_WifiTimer_Set),
    /*  19 */ jts("WifiTimer", MSG_WIFI_TIMER, JTS_WifiTimer_Get),
    /*  20 */ jts("WifiTimerIdx", MSG_WIFI_TIMER_IDX, JTS_WifiTimer_Idx),
    /*  21 */ jts("Ratelimit", MSG_RATELIMIT, JTS_Ratelimit),
    /*  22 */ jts("RatelimitList", MSG_RATELIMIT_LIST, JTS_RatelimitList),
    /*  23 */ jts("PeriodRateSet", MSG_PERIOD_RATE_SET, JTS_PeriodRate_Set),
    /*  24 */ jts("PeriodRateGet", MSG_PERIOD_RATE_GET, JTS_PeriodRate_Get),
    /*  25 */ jts("Iptv", MSG_IPTV, JTS_IPTV),
    /* 134 */ jts("QoS", MSG_QOS, JTS_QoS),
    /* 135 */ jts("Dscp", MSG_DSCP, JTS_Dscp),
    /* 136 */ jts("8021p", MSG_8021P, JTS_8021p),
    /* 137 */ jts("Qos_Classification", MSG_QOS_CLASSIFICATION_ADD, JTS_Qos_Classification_Add),
    /* 138 */ jts("Qos_Classification_Delete", MSG_QOS_CLASSIFICATION_DELETE, JTS_Qos_Classification_Delete),
    /* 139 */ jts("Qos_Classification_List", MSG_QOS_CLASSIFICATION_LIST, JTS_Qos_Classification_List),
    /* 140 */ jts("Qos_Classification_Set", MSG_QOS_CLASSIFICATION_SET, JTS_Qos_Classification_Set),
    /* 141 */ jts("Qos_Classification_Get", MSG_QOS_CLASSIFICATION_GET, JTS_Qos_Classification_Get),
    /* closing row */ jts(nullptr, bx::kClosingRowId, closing_row_to_struct),
};
const int32_t g_iJsonToStruct_FuncNum =
    static_cast<int32_t>(sizeof g_astJsonToStruct_Func / sizeof g_astJsonToStruct_Func[0]) - 1;

} // extern "C"
