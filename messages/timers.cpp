/* Timers, rate limits and IPTV: the scheduled reboot, the Wi-Fi on/off
 * tasks, per-client rate limits, the periodic traffic-rate sampling task
 * and its readings, and the IPTV VLANs.
 *
 * None of these messages bounds its hours, minutes, weeks or rates: the
 * daemons that act on them do. */
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "core/codec.h"
#include "messages/walk.h"

namespace {

using bx::Field;
using bx::Link;
using bx::Read;
using bx::Reading;

/* ---- Lists ---------------------------------------------------------------- */

/* These daemons parse every element of a list by the entry's policy,
 * whatever its blobmsg type: an element of another type fills its entry
 * with nothing (each key traced as missing) and still takes it up
 * (.any_type). */

/* ---- Reboot timer (84) ------------------------------------------------------- */

constexpr bx::FieldDef kRebootTimerSource[] = {
    BX_WORD(RebootTimer, uiStatus, EnumSwitch, "status", "reboot status:%d"),
    BX_U32(RebootTimer, uiHour, "hour", "reboot hour:%u"),
    BX_U32(RebootTimer, uiMinute, "minute", "reboot minute:%u"),
    BX_U32(RebootTimer, uiWeek, "week", "reboot week:%u"),
};
BX_PACKED(kRebootTimer);

/* ---- Wi-Fi timer tasks (85, 86, 87) ------------------------------------------- */

/* The task's members in record order; "action" is what the task does when
 * it fires, "type" whether it repeats. One policy serves the set, the list
 * and each list element, so "count" and "timerlist" are parsed in each. */
constexpr bx::FieldDef kTimerTaskSource[] = {
    BX_U32(WifiTimerTask, uiTaskId, "taskid", nullptr),
    BX_WORD(WifiTimerTask, uiStatus, EnumSwitch, "status", nullptr),
    BX_WORD(WifiTimerTask, uiAction, EnumSwitch, "action", nullptr),
    BX_WORD(WifiTimerTask, uiType, EnumRunMode, "type", nullptr),
    BX_U32(WifiTimerTask, uiStartHour, "starthour", nullptr),
    BX_U32(WifiTimerTask, uiStartMinute, "startminute", nullptr),
    BX_U32(WifiTimerTask, uiEndHour, "endhour", nullptr),
    BX_U32(WifiTimerTask, uiEndMinute, "endminute", nullptr),
    BX_U32(WifiTimerTask, uiWeek, "week", nullptr),
    BX_KEY("count", bx::Wire::U32),
    BX_KEY("timerlist", bx::Wire::List),
};
BX_PACKED(kTimerTask);

/* Quirk: a task to be set names a missing key by its own text alone, not by the presence check. */
Read read_required_quietly(const Reading &r, const Field &f, blob_attr *attr)
{
    if (attr != nullptr)
        return bx::read_slot(r, f, attr);
    BX_TRACE_AS(r.func, "%s\n", f.refusal());
    return {true, f.refused_ret()};
}
constexpr bx::Quirk kRequiredQuietly{read_required_quietly, nullptr, "absence is traced with the refusal text alone, not by the presence check"};
constexpr bx::FieldDef set_required(bx::FieldDef f, const char *refusal)
{
    f.required = true;
    f.absent = refusal;
    f.quirk = &kRequiredQuietly;
    return f;
}

/* A task to be set needs every key but "status" and "type". The keys are
 * taken in record order: a missing one ends the conversion, and the keys
 * before it stay stored. */
constexpr bx::FieldDef kTimerTaskSetSource[] = {
    set_required(kTimerTaskSource[0], "param task id error"),
    kTimerTaskSource[1],
    set_required(kTimerTaskSource[2], "param action error"),
    kTimerTaskSource[3],
    set_required(kTimerTaskSource[4], "param start hour error"),
    set_required(kTimerTaskSource[5], "param start minute error"),
    set_required(kTimerTaskSource[6], "param end hour error"),
    set_required(kTimerTaskSource[7], "param end minute error"),
    set_required(kTimerTaskSource[8], "param week error"),
    kTimerTaskSource[9],
    kTimerTaskSource[10],
};
BX_PACKED(kTimerTaskSet);

/* The lists parse an entry's keys at their own top level too (the daemons'
 * slots), and read none of them there. */
constexpr bx::FieldDef parsed(bx::FieldDef f)
{
    f.use = bx::Use::Parsed;
    return f;
}

/* "count" does not bound the received list: every element fills the next
 * task, up to the tasks the record holds. */
constexpr bx::ListOf kTimerTasks =
    BX_TABLES(WifiTimerList, astTask, kTimerTask, .count_at = offsetof(WifiTimerList, uiCount), .any_type = true);
constexpr bx::FieldDef kWifiTimerListSource[] = {
    parsed(kTimerTaskSource[0]),
    parsed(kTimerTaskSource[1]),
    parsed(kTimerTaskSource[2]),
    parsed(kTimerTaskSource[3]),
    parsed(kTimerTaskSource[4]),
    parsed(kTimerTaskSource[5]),
    parsed(kTimerTaskSource[6]),
    parsed(kTimerTaskSource[7]),
    parsed(kTimerTaskSource[8]),
    BX_U32(WifiTimerList, uiCount, "count", "count: %u"),
    BX_LIST(WifiTimerList, astTask, "timerlist", kTimerTasks, nullptr),
};
BX_PACKED(kWifiTimerList);

constexpr bx::FieldDef kTimerIdxSource[] = {
    BX_U32(WifiTimerIdx, uiTaskId, "taskid", "Idx: %u"),
};
BX_PACKED(kTimerIdx);

/* ---- Rate limits (108, 109) ----------------------------------------------------- */

/* Quirk: the switch goes out as the word of 0 or 1, whatever else the record holds. */
void send_switch_as_bool(const Field &f, const Link *links, const void *record, blob_buf *buf)
{
    uint32_t value = 0;
    std::memcpy(&value, static_cast<const uint8_t *>(record) + f.offset, sizeof value);
    bx::add_word(buf, f.key(), f.word_list, value != 0);
}
constexpr bx::Quirk kSwitchAsBool{nullptr, send_switch_as_bool, "sent as the word of 0 or 1 (any non-zero value sends 1)"};

/* The switch and the two rates go out only when their flag bit says they
 * were given; each rate received sets its bit. "ratelimitenable" is stored
 * but sets no bit: a record filled from a message goes back out without it
 * unless the caller sets the bit. */
constexpr bx::FieldDef kRateLimitSource[] = {
    BX_WORD(RateLimitEntry, uiEnable, EnumSwitch, "ratelimitenable", nullptr, .bit = 0,
        .sent_if = RATE_LIMIT_VALID_ENABLE, .quirk = &kSwitchAsBool),
    BX_TEXT(RateLimitEntry, szMac, "mac", nullptr),
    BX_TEXT(RateLimitEntry, szIp, "ip", nullptr),
    BX_U32(RateLimitEntry, uiRxRateLimit, "rxratelimit", nullptr, .bit = RATE_LIMIT_VALID_RX),
    BX_U32(RateLimitEntry, uiTxRateLimit, "txratelimit", nullptr, .bit = RATE_LIMIT_VALID_TX),
};
BX_PACKED(kRateLimit);

/* Quirk: in a list both rates mark the rx limit as given; the tx bit is
 * never set. */
Read read_marking_rx(const Reading &r, const Field &f, blob_attr *attr)
{
    const Read done = bx::read_slot(r, f, attr);
    if (attr != nullptr)
        static_cast<RateLimitEntry *>(r.record)->uiValidFlags |= RATE_LIMIT_VALID_RX;
    return done;
}
constexpr bx::Quirk kMarkingRx{read_marking_rx, nullptr, "storing it sets the rx validity bit (the tx bit is never set)"};

/* Every entry of the list carries all five members, whatever its flags. */
constexpr bx::FieldDef kRateLimitEntrySource[] = {
    BX_WORD(RateLimitEntry, uiEnable, EnumSwitch, "ratelimitenable", nullptr),
    kRateLimitSource[1],
    kRateLimitSource[2],
    BX_U32(RateLimitEntry, uiRxRateLimit, "rxratelimit", nullptr, .quirk = &kMarkingRx),
    BX_U32(RateLimitEntry, uiTxRateLimit, "txratelimit", nullptr, .quirk = &kMarkingRx),
};
BX_PACKED(kRateLimitEntry);

/* "count" is stored but does not bound the walk; the record's 32 entries
 * do. */
constexpr bx::ListOf kRateLimits = BX_TABLES(RateLimitList, astEntry, kRateLimitEntry,
    .count_at = offsetof(RateLimitList, uiCount), .any_type = true, .past_bound = "blobmsg parse failed\n");
constexpr bx::FieldDef kRateLimitListSource[] = {
    BX_U32(RateLimitList, uiCount, "count", "input uiCount: %d"),
    BX_LIST(RateLimitList, astEntry, "ratelimitlist", kRateLimits, nullptr),
};
BX_PACKED(kRateLimitList);

/* ---- Periodic rate sampling (110, 111) ------------------------------------------- */

constexpr bx::FieldDef kPeriodRateTaskSource[] = {
    BX_WORD(PeriodRateTask, eTaskType, EnumPortRole, "tasktype", "eTaskType:%u"),
    BX_TEXT(PeriodRateTask, szTaskName, "taskname", "taskname:%s"),
    BX_U32(PeriodRateTask, uiReportInterval, "reportinterval", "reportinterval:%u"),
    BX_U32(PeriodRateTask, uiSampleInterval, "sampleinterval", "sampleinterval:%u"),
};
BX_PACKED(kPeriodRateTask);

/* Quirk: each real-time rate is traced with the other one's value. */
Read read_rate_traced_crossed(const Reading &r, const Field &f, blob_attr *attr)
{
    const Read done = bx::test_slot(r, f, attr);
    if (attr == nullptr)
        return done;
    const uint32_t value = bx::get_u32(attr);  /* stored untraced */
    std::memcpy(static_cast<uint8_t *>(r.record) + f.offset, &value, sizeof value);
    if (r.mask != nullptr)
        *r.mask |= f.mask_bit();
    const auto *report = static_cast<const PeriodRateReport *>(r.record);
    const bool tx = f.offset == offsetof(PeriodRateReport, uiTxRateRt);
    bx::trace_field(r.func, f, nullptr, 0, tx ? report->uiRxRateRt : report->uiTxRateRt);
    return done;
}
constexpr bx::Quirk kRateTracedCrossed{read_rate_traced_crossed, nullptr, "traced with the other rate's value"};

constexpr bx::FieldDef kPeriodRateReportSource[] = {
    BX_WORD(PeriodRateReport, eTaskType, EnumPortRole, "tasktype", "period tasktype:%u"),
    BX_TEXT(PeriodRateReport, szTaskName, "taskname", "period taskname:%s"),
    BX_TEXT(PeriodRateReport, szMac, "mac", "period mac:%s"),
    BX_U32(PeriodRateReport, uiTxRateRt, "txrate_rt", "period txrate_rt:%u", .quirk = &kRateTracedCrossed),
    BX_U32(PeriodRateReport, uiRxRateRt, "rxrate_rt", "period rxrate_rt:%u", .quirk = &kRateTracedCrossed),
    BX_U32(PeriodRateReport, uiMaxRxRate, "maxrxrate", "period maxrxrate:%u"),
    BX_U32(PeriodRateReport, uiMaxTxRate, "maxtxrate", "period maxtxrate:%u"),
    BX_U32(PeriodRateReport, uiAvaRxRate, "avarxrate", "period avarxrate:%u"),
    BX_U32(PeriodRateReport, uiAvaTxRate, "avatxrate", "period avatxrate:%u"),
};
BX_PACKED(kPeriodRateReport);

/* ---- IPTV (112) --------------------------------------------------------------------- */

/* One policy for the message and its VLAN elements. */
constexpr bx::FieldDef kIptvVlanSource[] = {
    BX_U32(IptvVlan, uiVlanId, "vlanid", "Vlanid:%u"),
    BX_U32(IptvVlan, uiEthPorts, "ethports", "ethPorts:%u"),
    BX_U32(IptvVlan, uiPorts2p4g, "ports2p4g", "2P4GPorts:%u"),
    BX_U32(IptvVlan, uiPorts5g, "ports5g", "5GPorts:%u"),
    BX_KEY("status", bx::Wire::Word),
    BX_KEY("vlanlist", bx::Wire::List),
};
BX_PACKED(kIptvVlan);

/* Quirk: a VLAN slot whose id is 0 is unused and skipped; the next one is still sent. */
void send_used_vlans(const Field &f, const Link *links, const void *record, blob_buf *buf)
{
    bx::walk::send_tables(f, links, record, buf, IPTV_VLAN_NUM, offsetof(IptvVlan, uiVlanId), bx::walk::Zero::Skipped);
}

/* Quirk: a message without VLANs says so in a line of its own, not by the presence check. */
Read read_vlans(const Reading &r, const Field &f, blob_attr *attr)
{
    if (attr != nullptr)
        return bx::read_slot(r, f, attr);
    BX_TRACE_AS(r.func, "No Vlan Task\n");
    return bx::kGoOn;
}
constexpr bx::Quirk kVlans{read_vlans, send_used_vlans, "absence traced as \"No Vlan Task\"; a VLAN with id 0 is not sent"};

/* The record has two VLAN slots: a third element ends the walk. */
constexpr bx::ListOf kIptvVlans =
    BX_TABLES(IptvConfig, astVlan, kIptvVlan, .any_type = true, .past_bound = "NULL == cur\n\n");
constexpr bx::FieldDef kIptvSource[] = {
    parsed(kIptvVlanSource[0]),
    parsed(kIptvVlanSource[1]),
    parsed(kIptvVlanSource[2]),
    parsed(kIptvVlanSource[3]),
    BX_WORD(IptvConfig, uiStatus, EnumSwitch, "status", "status:%d"),
    BX_LIST(IptvConfig, astVlan, "vlanlist", kIptvVlans, nullptr, .quirk = &kVlans),
};
BX_PACKED(kIptv);

} // namespace

extern "C" {

BX_CONVERTERS(STJ_RebootTimer, JTS_RebootTimer, kRebootTimer)
BX_SENT_ROW(STJ_WifiTimer_Set, kTimerTask, ::bx::kNoMask)
BX_RECEIVED_ROW(JTS_WifiTimer_Set, kTimerTaskSet, ::bx::kNoMask)
BX_CONVERTERS(STJ_WifiTimer_List, JTS_WifiTimer_Get, kWifiTimerList)
BX_CONVERTERS(STJ_WifiTimer_Idx, JTS_WifiTimer_Idx, kTimerIdx)
BX_CONVERTERS(STJ_Ratelimit, JTS_Ratelimit, kRateLimit, offsetof(RateLimitEntry, uiValidFlags))
BX_CONVERTERS(STJ_RatelimitList, JTS_RatelimitList, kRateLimitList)
BX_CONVERTERS(STJ_PeriodRate_Set, JTS_PeriodRate_Set, kPeriodRateTask)
BX_CONVERTERS(STJ_PeriodRate_Get, JTS_PeriodRate_Get, kPeriodRateReport)
BX_CONVERTERS(STJ_IPTV, JTS_IPTV, kIptv)

} // extern "C"
