/* Timers, rate limits and IPTV: the scheduled reboot, the Wi-Fi on/off
 * tasks, per-client rate limits, the periodic traffic-rate sampling task
 * and its readings, and the IPTV VLANs.
 *
 * None of these messages bounds its hours, minutes, weeks or rates: the
 * daemons that act on them do. */
#include <algorithm>
#include <cstddef>
#include <cstring>
#include <iterator>

#include "core/codec.h"

namespace {

using bx::Field;

/* True when the first slots of a policy carry the keys and wire types of a
 * field table, in the same order (so slot i is field i). */
template <size_t P, size_t F>
constexpr bool slots_match(const blobmsg_policy (&policy)[P], const Field (&fields)[F])
{
    if (F > P)
        return false;
    for (size_t i = 0; i < F; ++i) {
        if (policy[i].type != bx::wire_type(fields[i].wire))
            return false;
        const char *a = policy[i].name;
        const char *b = fields[i].key;
        while (*a != 0 && *a == *b) {
            ++a;
            ++b;
        }
        if (*a != *b)
            return false;
    }
    return true;
}

/* Stores every present field whose slot the table covers, in order. */
template <size_t P, size_t F>
void store_present(const char *func, const blobmsg_policy (&policy)[P], blob_attr *const (&tb)[P],
                   const Field (&fields)[F], void *record)
{
    for (size_t i = 0; i < F; ++i) {
        if (bx::present(policy, tb, i))
            bx::store_field(func, fields[i], tb[i], record);
    }
}

/* One entry of a list as an unnamed table. */
template <size_t F>
void emit_table(blob_buf *buf, const void *entry, const Field (&fields)[F])
{
    void *table = blobmsg_open_table(buf, nullptr);
    bx::stj_fields(entry, buf, fields);
    blob_nest_end(buf, table);
}

/* ---- Reboot timer (84) ------------------------------------------------------- */

constexpr Field kRebootTimer[] = {
    BX_WORD(RebootTimer, uiStatus, EnumSwitch, "status", "reboot status:%d"),
    BX_U32(RebootTimer, uiHour, "hour", "reboot hour:%u"),
    BX_U32(RebootTimer, uiMinute, "minute", "reboot minute:%u"),
    BX_U32(RebootTimer, uiWeek, "week", "reboot week:%u"),
};

/* ---- Wi-Fi timer tasks (85, 86, 87) ------------------------------------------- */

/* One policy serves the set, the list, the index and each list element. */
enum {
    TIMER_TASKID, TIMER_STATUS, TIMER_ACTION, TIMER_TYPE, TIMER_STARTHOUR, TIMER_STARTMINUTE,
    TIMER_ENDHOUR, TIMER_ENDMINUTE, TIMER_WEEK, TIMER_COUNT, TIMER_LIST, TIMER_MAX
};
constexpr blobmsg_policy kWifiTimerPolicy[TIMER_MAX] = {
    /* TIMER_TASKID      */ {"taskid", BLOBMSG_TYPE_INT32},
    /* TIMER_STATUS      */ {"status", BLOBMSG_TYPE_STRING},
    /* TIMER_ACTION      */ {"action", BLOBMSG_TYPE_STRING},
    /* TIMER_TYPE        */ {"type", BLOBMSG_TYPE_STRING},
    /* TIMER_STARTHOUR   */ {"starthour", BLOBMSG_TYPE_INT32},
    /* TIMER_STARTMINUTE */ {"startminute", BLOBMSG_TYPE_INT32},
    /* TIMER_ENDHOUR     */ {"endhour", BLOBMSG_TYPE_INT32},
    /* TIMER_ENDMINUTE   */ {"endminute", BLOBMSG_TYPE_INT32},
    /* TIMER_WEEK        */ {"week", BLOBMSG_TYPE_INT32},
    /* TIMER_COUNT       */ {"count", BLOBMSG_TYPE_INT32},
    /* TIMER_LIST        */ {"timerlist", BLOBMSG_TYPE_ARRAY},
};

/* The task's members in record order; "action" is what the task does when
 * it fires, "type" whether it repeats. */
constexpr Field kTimerTask[] = {
    BX_U32(WifiTimerTask, uiTaskId, "taskid", nullptr),
    BX_WORD(WifiTimerTask, uiStatus, EnumSwitch, "status", nullptr),
    BX_WORD(WifiTimerTask, uiAction, EnumSwitch, "action", nullptr),
    BX_WORD(WifiTimerTask, uiType, EnumRunMode, "type", nullptr),
    BX_U32(WifiTimerTask, uiStartHour, "starthour", nullptr),
    BX_U32(WifiTimerTask, uiStartMinute, "startminute", nullptr),
    BX_U32(WifiTimerTask, uiEndHour, "endhour", nullptr),
    BX_U32(WifiTimerTask, uiEndMinute, "endminute", nullptr),
    BX_U32(WifiTimerTask, uiWeek, "week", nullptr),
};
static_assert(slots_match(kWifiTimerPolicy, kTimerTask));

/* What a task sent to be set says when a key is missing; "status" and
 * "type" may be left out. */
constexpr const char *kTimerTaskMissing[] = {
    /* taskid      */ "param task id error",
    /* status      */ nullptr,
    /* action      */ "param action error",
    /* type        */ nullptr,
    /* starthour   */ "param start hour error",
    /* startminute */ "param start minute error",
    /* endhour     */ "param end hour error",
    /* endminute   */ "param end minute error",
    /* week        */ "param week error",
};
static_assert(std::size(kTimerTaskMissing) == std::size(kTimerTask));

constexpr Field kTimerIdx[] = {
    BX_U32(WifiTimerIdx, uiTaskId, "taskid", "Idx: %u"),
};

/* ---- Rate limits (108, 109) ----------------------------------------------------- */

enum { RATE_ENABLE, RATE_MAC, RATE_IP, RATE_RX, RATE_TX, RATE_MAX };
constexpr blobmsg_policy g_stRateLimitList_Array_policy[RATE_MAX] = {
    /* RATE_ENABLE */ {"ratelimitenable", BLOBMSG_TYPE_STRING},
    /* RATE_MAC    */ {"mac", BLOBMSG_TYPE_STRING},
    /* RATE_IP     */ {"ip", BLOBMSG_TYPE_STRING},
    /* RATE_RX     */ {"rxratelimit", BLOBMSG_TYPE_INT32},
    /* RATE_TX     */ {"txratelimit", BLOBMSG_TYPE_INT32},
};

constexpr Field kRateLimit[] = {
    BX_WORD(RateLimitEntry, uiEnable, EnumSwitch, "ratelimitenable", nullptr),
    BX_TEXT(RateLimitEntry, szMac, "mac", nullptr),
    BX_TEXT(RateLimitEntry, szIp, "ip", nullptr),
    BX_U32(RateLimitEntry, uiRxRateLimit, "rxratelimit", nullptr),
    BX_U32(RateLimitEntry, uiTxRateLimit, "txratelimit", nullptr),
};
static_assert(slots_match(g_stRateLimitList_Array_policy, kRateLimit));

enum { RATES_COUNT, RATES_LIST, RATES_MAX };
constexpr blobmsg_policy kRateLimitListPolicy[RATES_MAX] = {
    /* RATES_COUNT */ {"count", BLOBMSG_TYPE_INT32},
    /* RATES_LIST  */ {"ratelimitlist", BLOBMSG_TYPE_ARRAY},
};

/* Stores the present members of one rate limit; each given rate sets its
 * flag bit. "ratelimitenable" is stored but sets no bit: a record filled
 * from a message goes back out without it unless the caller sets the bit. */
void store_rate_limit(const char *func, blob_attr *const (&tb)[RATE_MAX], RateLimitEntry *entry,
                      uint32_t rx_flag, uint32_t tx_flag)
{
    store_present(func, g_stRateLimitList_Array_policy, tb, kRateLimit, entry);
    if (tb[RATE_RX] != nullptr)
        entry->uiValidFlags |= rx_flag;
    if (tb[RATE_TX] != nullptr)
        entry->uiValidFlags |= tx_flag;
}

/* ---- Periodic rate sampling (110, 111) ------------------------------------------- */

constexpr Field kPeriodRateTask[] = {
    BX_WORD(PeriodRateTask, eTaskType, EnumPortRole, "tasktype", "eTaskType:%u"),
    BX_TEXT(PeriodRateTask, szTaskName, "taskname", "taskname:%s"),
    BX_U32(PeriodRateTask, uiReportInterval, "reportinterval", "reportinterval:%u"),
    BX_U32(PeriodRateTask, uiSampleInterval, "sampleinterval", "sampleinterval:%u"),
};

enum {
    PERIOD_TASKTYPE, PERIOD_TASKNAME, PERIOD_MAC, PERIOD_TXRATE_RT, PERIOD_RXRATE_RT,
    PERIOD_MAXRXRATE, PERIOD_MAXTXRATE, PERIOD_AVARXRATE, PERIOD_AVATXRATE, PERIOD_MAX
};
constexpr blobmsg_policy kPeriodRateReportPolicy[PERIOD_MAX] = {
    /* PERIOD_TASKTYPE  */ {"tasktype", BLOBMSG_TYPE_STRING},
    /* PERIOD_TASKNAME  */ {"taskname", BLOBMSG_TYPE_STRING},
    /* PERIOD_MAC       */ {"mac", BLOBMSG_TYPE_STRING},
    /* PERIOD_TXRATE_RT */ {"txrate_rt", BLOBMSG_TYPE_INT32},
    /* PERIOD_RXRATE_RT */ {"rxrate_rt", BLOBMSG_TYPE_INT32},
    /* PERIOD_MAXRXRATE */ {"maxrxrate", BLOBMSG_TYPE_INT32},
    /* PERIOD_MAXTXRATE */ {"maxtxrate", BLOBMSG_TYPE_INT32},
    /* PERIOD_AVARXRATE */ {"avarxrate", BLOBMSG_TYPE_INT32},
    /* PERIOD_AVATXRATE */ {"avatxrate", BLOBMSG_TYPE_INT32},
};

/* The real-time rates are traced by the converter itself, see there. */
constexpr Field kPeriodRateReport[] = {
    BX_WORD(PeriodRateReport, eTaskType, EnumPortRole, "tasktype", "period tasktype:%u"),
    BX_TEXT(PeriodRateReport, szTaskName, "taskname", "period taskname:%s"),
    BX_TEXT(PeriodRateReport, szMac, "mac", "period mac:%s"),
    BX_U32(PeriodRateReport, uiTxRateRt, "txrate_rt", nullptr),
    BX_U32(PeriodRateReport, uiRxRateRt, "rxrate_rt", nullptr),
    BX_U32(PeriodRateReport, uiMaxRxRate, "maxrxrate", "period maxrxrate:%u"),
    BX_U32(PeriodRateReport, uiMaxTxRate, "maxtxrate", "period maxtxrate:%u"),
    BX_U32(PeriodRateReport, uiAvaRxRate, "avarxrate", "period avarxrate:%u"),
    BX_U32(PeriodRateReport, uiAvaTxRate, "avatxrate", "period avatxrate:%u"),
};
static_assert(slots_match(kPeriodRateReportPolicy, kPeriodRateReport));

/* ---- IPTV (112) --------------------------------------------------------------------- */

/* One policy for the message and its VLAN elements. */
enum { IPTV_VLANID, IPTV_ETHPORTS, IPTV_PORTS2P4G, IPTV_PORTS5G, IPTV_STATUS, IPTV_VLANLIST, IPTV_MAX };
constexpr blobmsg_policy kIptvPolicy[IPTV_MAX] = {
    /* IPTV_VLANID    */ {"vlanid", BLOBMSG_TYPE_INT32},
    /* IPTV_ETHPORTS  */ {"ethports", BLOBMSG_TYPE_INT32},
    /* IPTV_PORTS2P4G */ {"ports2p4g", BLOBMSG_TYPE_INT32},
    /* IPTV_PORTS5G   */ {"ports5g", BLOBMSG_TYPE_INT32},
    /* IPTV_STATUS    */ {"status", BLOBMSG_TYPE_STRING},
    /* IPTV_VLANLIST  */ {"vlanlist", BLOBMSG_TYPE_ARRAY},
};

constexpr Field kIptvVlan[] = {
    BX_U32(IptvVlan, uiVlanId, "vlanid", "Vlanid:%u"),
    BX_U32(IptvVlan, uiEthPorts, "ethports", "ethPorts:%u"),
    BX_U32(IptvVlan, uiPorts2p4g, "ports2p4g", "2P4GPorts:%u"),
    BX_U32(IptvVlan, uiPorts5g, "ports5g", "5GPorts:%u"),
};
static_assert(slots_match(kIptvPolicy, kIptvVlan));

constexpr Field kIptvStatus = BX_WORD(IptvConfig, uiStatus, EnumSwitch, "status", "status:%d");

} // namespace

extern "C" {

/* ---- Reboot timer (84) ------------------------------------------------------------------ */

BX_FIELD_CONVERTERS(STJ_RebootTimer, JTS_RebootTimer, kRebootTimer)

/* ---- Wi-Fi timer tasks (85, 86, 87) ------------------------------------------------------ */

BX_SENT_ROW(STJ_WifiTimer_Set, kTimerTask, ::bx::kNoMask)

/* Hand-written: every key is required, each refused with a text of its own. */
/* A task to be set needs every key but "status" and "type". The keys are
 * taken in record order: a missing one ends the conversion, and the keys
 * before it stay stored. */
BX_API int JTS_WifiTimer_Set(struct blob_attr *pstMsg, void *pvRecord)
{
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    blob_attr *tb[TIMER_MAX];
    bx::parse(kWifiTimerPolicy, tb, pstMsg);
    for (size_t i = 0; i < std::size(kTimerTask); ++i) {
        if (kTimerTaskMissing[i] == nullptr) {
            if (!bx::present(kWifiTimerPolicy, tb, i))
                continue;
        } else if (tb[i] == nullptr) {
            BX_TRACE("%s\n", kTimerTaskMissing[i]);
            return -1;
        }
        bx::store_field(__func__, kTimerTask[i], tb[i], pvRecord);
    }
    return 0;
}

/* Hand-written: a counted list of timer tasks. */
BX_API int STJ_WifiTimer_List(const void *pvRecord, struct blob_buf *pstBuf)
{
    if (pvRecord == nullptr || pstBuf == nullptr)
        return -1;
    const auto *list = static_cast<const WifiTimerList *>(pvRecord);
    blobmsg_add_u32(pstBuf, "count", list->uiCount);
    void *array = blobmsg_open_array(pstBuf, "timerlist");
    /* uiCount comes from the caller; the record holds no more tasks. */
    uint32_t count = std::min<uint32_t>(list->uiCount, WIFI_TIMER_TASK_MAX);
    for (uint32_t i = 0; i < count; ++i)
        emit_table(pstBuf, &list->astTask[i], kTimerTask);
    blob_nest_end(pstBuf, array);
    return 0;
}

/* Hand-written: a counted list of timer tasks, held to the record's entries. */
/* "count" does not bound the list: every element fills the next task, up
 * to the tasks the record holds. */
BX_API int JTS_WifiTimer_Get(struct blob_attr *pstMsg, void *pvRecord)
{
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    const char *func = __func__;
    auto *list = static_cast<WifiTimerList *>(pvRecord);
    blob_attr *tb[TIMER_MAX];
    bx::parse(kWifiTimerPolicy, tb, pstMsg);
    if (bx::present(kWifiTimerPolicy, tb, TIMER_COUNT)) {
        list->uiCount = bx::get_u32(tb[TIMER_COUNT]);
        BX_TRACE("count: %u\n", list->uiCount);
    }
    if (!bx::present(kWifiTimerPolicy, tb, TIMER_LIST))
        return 0;
    size_t stored = 0;
    bx::for_each_elem(tb[TIMER_LIST], [&](blob_attr *elem) {
        if (stored >= WIFI_TIMER_TASK_MAX)
            return false;
        blob_attr *etb[TIMER_MAX];
        bx::parse_elem(kWifiTimerPolicy, etb, elem);
        store_present(func, kWifiTimerPolicy, etb, kTimerTask, &list->astTask[stored++]);
        return true;
    });
    return 0;
}

BX_FIELD_CONVERTERS(STJ_WifiTimer_Idx, JTS_WifiTimer_Idx, kTimerIdx)

/* ---- Rate limits (108, 109) -------------------------------------------------------------------- */

/* Hand-written: the members go out by the entry's validity flags, the switch as 0 or 1. */
/* The switch and the two rates go out only when their flag bit says they
 * were given. */
BX_API int STJ_Ratelimit(const void *pvRecord, struct blob_buf *pstBuf)
{
    if (pvRecord == nullptr || pstBuf == nullptr)
        return -1;
    const auto *entry = static_cast<const RateLimitEntry *>(pvRecord);
    if (entry->uiValidFlags & RATE_LIMIT_VALID_ENABLE)
        bx::add_word(pstBuf, "ratelimitenable", EnumSwitch, entry->uiEnable != 0);
    bx::emit_field(kRateLimit[RATE_MAC], entry, pstBuf);
    bx::emit_field(kRateLimit[RATE_IP], entry, pstBuf);
    if (entry->uiValidFlags & RATE_LIMIT_VALID_RX)
        bx::emit_field(kRateLimit[RATE_RX], entry, pstBuf);
    if (entry->uiValidFlags & RATE_LIMIT_VALID_TX)
        bx::emit_field(kRateLimit[RATE_TX], entry, pstBuf);
    return 0;
}

/* Hand-written: the validity flags are set by which limits came. */
BX_API int JTS_Ratelimit(struct blob_attr *pstMsg, void *pvRecord)
{
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    blob_attr *tb[RATE_MAX];
    bx::parse(g_stRateLimitList_Array_policy, tb, pstMsg);
    store_rate_limit(__func__, tb, static_cast<RateLimitEntry *>(pvRecord), RATE_LIMIT_VALID_RX,
                     RATE_LIMIT_VALID_TX);
    return 0;
}

/* Hand-written: a counted list of rate limits, each with all its members. */
/* Every entry of the list carries all five members, whatever its flags. */
BX_API int STJ_RatelimitList(const void *pvRecord, struct blob_buf *pstBuf)
{
    if (pvRecord == nullptr || pstBuf == nullptr)
        return -1;
    const auto *list = static_cast<const RateLimitList *>(pvRecord);
    blobmsg_add_u32(pstBuf, "count", list->uiCount);
    void *array = blobmsg_open_array(pstBuf, "ratelimitlist");
    /* uiCount comes from the caller; the record holds no more entries. */
    uint32_t count = std::min<uint32_t>(list->uiCount, RATE_LIMIT_LIST_MAX);
    for (uint32_t i = 0; i < count; ++i)
        emit_table(pstBuf, &list->astEntry[i], kRateLimit);
    blob_nest_end(pstBuf, array);
    return 0;
}

/* Hand-written: a counted list of rate limits, held to the record's entries. */
/* "count" is stored but does not bound the walk; the record's 32 entries
 * do. */
BX_API int JTS_RatelimitList(struct blob_attr *pstMsg, void *pvRecord)
{
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    const char *func = __func__;
    auto *list = static_cast<RateLimitList *>(pvRecord);
    blob_attr *tb[RATES_MAX];
    bx::parse(kRateLimitListPolicy, tb, pstMsg);
    if (bx::present(kRateLimitListPolicy, tb, RATES_COUNT)) {
        list->uiCount = bx::get_u32(tb[RATES_COUNT]);
        BX_TRACE("input uiCount: %d\n", static_cast<int>(list->uiCount));
    }
    if (!bx::present(kRateLimitListPolicy, tb, RATES_LIST))
        return 0;
    size_t stored = 0;
    bx::for_each_elem(tb[RATES_LIST], [&](blob_attr *elem) {
        if (stored >= RATE_LIMIT_LIST_MAX) {
            BX_TRACE_AS(func, "blobmsg parse failed\n");
            return false;
        }
        blob_attr *etb[RATE_MAX];
        bx::parse_elem(g_stRateLimitList_Array_policy, etb, elem);
        /* Quirk: in a list both rates mark the rx limit as given; the tx
         * bit is never set. */
        store_rate_limit(func, etb, &list->astEntry[stored++], RATE_LIMIT_VALID_RX, RATE_LIMIT_VALID_RX);
        return true;
    });
    return 0;
}

/* ---- Periodic rate sampling (110, 111) ---------------------------------------------------------- */

BX_FIELD_CONVERTERS(STJ_PeriodRate_Set, JTS_PeriodRate_Set, kPeriodRateTask)

BX_SENT_ROW(STJ_PeriodRate_Get, kPeriodRateReport, ::bx::kNoMask)

/* Hand-written: each real-time rate is traced with the other one's value. */
BX_API int JTS_PeriodRate_Get(struct blob_attr *pstMsg, void *pvRecord)
{
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *report = static_cast<PeriodRateReport *>(pvRecord);
    blob_attr *tb[PERIOD_MAX];
    bx::parse(kPeriodRateReportPolicy, tb, pstMsg);
    for (size_t i = 0; i < PERIOD_MAX; ++i) {
        if (!bx::present(kPeriodRateReportPolicy, tb, i))
            continue;
        bx::store_field(__func__, kPeriodRateReport[i], tb[i], report);
        /* Quirk: each real-time rate is traced with the other one's value. */
        if (i == PERIOD_TXRATE_RT)
            BX_TRACE("period txrate_rt:%u\n", report->uiRxRateRt);
        else if (i == PERIOD_RXRATE_RT)
            BX_TRACE("period rxrate_rt:%u\n", report->uiTxRateRt);
    }
    return 0;
}

/* ---- IPTV (112) ------------------------------------------------------------------------------------- */

/* Hand-written: only the VLAN slots with an id go out. */
/* A VLAN slot whose id is 0 is unused and not sent. */
BX_API int STJ_IPTV(const void *pvRecord, struct blob_buf *pstBuf)
{
    if (pvRecord == nullptr || pstBuf == nullptr)
        return -1;
    const auto *iptv = static_cast<const IptvConfig *>(pvRecord);
    bx::emit_field(kIptvStatus, iptv, pstBuf);
    void *array = blobmsg_open_array(pstBuf, "vlanlist");
    for (const IptvVlan &vlan : iptv->astVlan) {
        if (vlan.uiVlanId != 0)
            emit_table(pstBuf, &vlan, kIptvVlan);
    }
    blob_nest_end(pstBuf, array);
    return 0;
}

/* Hand-written: the VLAN list fills two slots and stops at a third. */
BX_API int JTS_IPTV(struct blob_attr *pstMsg, void *pvRecord)
{
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    const char *func = __func__;
    auto *iptv = static_cast<IptvConfig *>(pvRecord);
    blob_attr *tb[IPTV_MAX];
    bx::parse(kIptvPolicy, tb, pstMsg);
    if (bx::present(kIptvPolicy, tb, IPTV_STATUS))
        bx::store_field(func, kIptvStatus, tb[IPTV_STATUS], iptv);
    if (tb[IPTV_VLANLIST] == nullptr) {
        BX_TRACE("No Vlan Task\n");
        return 0;
    }
    size_t stored = 0;
    bx::for_each_elem(tb[IPTV_VLANLIST], [&](blob_attr *elem) {
        /* The record has two VLAN slots: a third element ends the walk. */
        if (stored >= IPTV_VLAN_NUM) {
            BX_TRACE_AS(func, "NULL == cur\n\n");
            return false;
        }
        blob_attr *etb[IPTV_MAX];
        bx::parse_elem(kIptvPolicy, etb, elem);
        store_present(func, kIptvPolicy, etb, kIptvVlan, &iptv->astVlan[stored++]);
        return true;
    });
    return 0;
}

} // extern "C"
