/* URL and DNS filters: the global URL filter switch, the URL rules (black or
 * white lists of URLs for listed client MACs, on chosen weekdays and times
 * of day), the DNS rules (host names answered with a chosen action for one
 * client, on a schedule), their lists, and the replies that return the index
 * of a rule just set.
 *
 * Each rule kind has one policy that reads its set message, its list
 * message, every rule of the list and every period of a "timerange". The
 * set messages come from the web pages and check what a user may enter (the
 * DNS rule more than the URL rule); the lists come from the filter daemon
 * and are taken as they are, every key optional. */
#include <algorithm>
#include <cstddef>
#include <cstring>

#include "core/codec.h"

namespace {

using bx::add_text;
using bx::shown;

/* ---- Policies ------------------------------------------------------------ */

enum {
    URL_IDX, URL_ENABLE, URL_URLS, URL_NAME, URL_MACS, URL_MODE, URL_WEEKDAY,
    URL_STARTTIME, URL_ENDTIME, URL_TIMERANGE, URL_COUNT, URL_LIST, URL_MAX
};
constexpr blobmsg_policy kFilterUrlPolicy[URL_MAX] = {
    /* URL_IDX       */ {"idx", BLOBMSG_TYPE_INT32},
    /* URL_ENABLE    */ {"enable", BLOBMSG_TYPE_STRING},
    /* URL_URLS      */ {"urls", BLOBMSG_TYPE_ARRAY},
    /* URL_NAME      */ {"name", BLOBMSG_TYPE_STRING},
    /* URL_MACS      */ {"macs", BLOBMSG_TYPE_ARRAY},
    /* URL_MODE      */ {"mode", BLOBMSG_TYPE_STRING},
    /* URL_WEEKDAY   */ {"weekday", BLOBMSG_TYPE_INT32},
    /* URL_STARTTIME */ {"starttime", BLOBMSG_TYPE_INT32},
    /* URL_ENDTIME   */ {"endtime", BLOBMSG_TYPE_INT32},
    /* URL_TIMERANGE */ {"timerange", BLOBMSG_TYPE_ARRAY},
    /* URL_COUNT     */ {"count", BLOBMSG_TYPE_INT32},
    /* URL_LIST      */ {"list", BLOBMSG_TYPE_ARRAY},
};

/* The DNS rule names one client ("macs" is a single string) and adds an
 * action. */
enum {
    DNS_IDX, DNS_ENABLE, DNS_HOSTNAMES, DNS_NAME, DNS_MACS, DNS_ACTION, DNS_MODE, DNS_WEEKDAY,
    DNS_STARTTIME, DNS_ENDTIME, DNS_TIMERANGE, DNS_COUNT, DNS_LIST, DNS_MAX
};
constexpr blobmsg_policy kFilterDnsPolicy[DNS_MAX] = {
    /* DNS_IDX       */ {"idx", BLOBMSG_TYPE_INT32},
    /* DNS_ENABLE    */ {"enable", BLOBMSG_TYPE_STRING},
    /* DNS_HOSTNAMES */ {"hostnames", BLOBMSG_TYPE_ARRAY},
    /* DNS_NAME      */ {"name", BLOBMSG_TYPE_STRING},
    /* DNS_MACS      */ {"macs", BLOBMSG_TYPE_STRING},
    /* DNS_ACTION    */ {"action", BLOBMSG_TYPE_STRING},
    /* DNS_MODE      */ {"mode", BLOBMSG_TYPE_STRING},
    /* DNS_WEEKDAY   */ {"weekday", BLOBMSG_TYPE_INT32},
    /* DNS_STARTTIME */ {"starttime", BLOBMSG_TYPE_INT32},
    /* DNS_ENDTIME   */ {"endtime", BLOBMSG_TYPE_INT32},
    /* DNS_TIMERANGE */ {"timerange", BLOBMSG_TYPE_ARRAY},
    /* DNS_COUNT     */ {"count", BLOBMSG_TYPE_INT32},
    /* DNS_LIST      */ {"list", BLOBMSG_TYPE_ARRAY},
};

enum { SWITCH_STATUS, SWITCH_MAX };
constexpr blobmsg_policy kFilterSwitchPolicy[SWITCH_MAX] = {
    /* SWITCH_STATUS */ {"status", BLOBMSG_TYPE_STRING},
};

constexpr uint32_t kUnknownWord = static_cast<uint32_t>(-1);
constexpr uint32_t kSecondsPerDay = 86400;
constexpr uint32_t kDnsIdxMax = 16;
constexpr uint32_t kDnsWeekdayMax = 127;
constexpr size_t kTextBound = FILTER_TEXT_LEN - 1;

/* ---- Reading ---------------------------------------------------------------- */

/* Where a rule is read from: the converter the traces speak for, the end of
 * the message (no parse looks past it), and the rule's position in a list
 * (-1 for the rule of a set message). */
struct Source {
    const char *func;
    const char *msg_end;
    int rule;
};

void read_idx(const char *func, blob_attr *attr, uint32_t &idx)
{
    idx = bx::get_u32(attr);
    BX_TRACE_AS(func, "Idx:%u\n", idx);
}

/* Stores the word and returns it; the set messages refuse an unknown one. */
uint32_t read_enable(const char *func, blob_attr *attr, uint32_t &enable)
{
    enable = static_cast<uint32_t>(bx::get_word(EnumSwitch, attr));
    BX_TRACE_AS(func, "Enable:%u\n", enable);
    return enable;
}

void read_name(const char *func, blob_attr *attr, char (&name)[32])
{
    bx::copy_text(name, sizeof name - 1, attr);
    BX_TRACE_AS(func, "Name:%s\n", shown(name).text);
}

/* Quirk: unlike the DNS rule, a URL rule refuses an unknown mode word,
 * leaving the field as it was. */
bool read_url_mode(const char *func, blob_attr *attr, uint32_t &mode)
{
    int word = bx::get_word(EnumFilterMode, attr);
    if (word == -1) {
        BX_TRACE_AS(func, "Mode Error\n");
        return false;
    }
    mode = static_cast<uint32_t>(word);
    BX_TRACE_AS(func, "Mode:%u\n", mode);
    return true;
}

/* Copies the strings of an array into consecutive slots, at most 31
 * characters each; elements beyond the last slot are ignored. */
void read_texts(const Source &src, blob_attr *array, char (&slots)[FILTER_TEXT_NUM][FILTER_TEXT_LEN], const char *label)
{
    int slot = 0;
    bx::for_each_elem(array, [&](blob_attr *elem) {
        bx::copy_text(slots[slot], kTextBound, elem);
        if (src.rule < 0)
            BX_TRACE_AS(src.func, "%s%d:%s\n", label, slot, shown(slots[slot]).text);
        else
            BX_TRACE_AS(src.func, "List[%d]%s%d:%s\n", src.rule, label, slot, shown(slots[slot]).text);
        return ++slot < FILTER_TEXT_NUM;
    });
}

void trace_time(const Source &src, const char *label, int pair, uint32_t time)
{
    if (src.rule < 0)
        BX_TRACE_AS(src.func, "%s%d:%u\n", label, pair, time);
    else
        BX_TRACE_AS(src.func, "List[%d]%s%d:%u\n", src.rule, label, pair, time);
}

/* Reads at most three {"starttime", "endtime"} tables into the periods, in
 * order. The times are not checked for presence (senders give both); an
 * absent one reads as 0. With day_bound, a time beyond a day refuses the
 * message once its pair is stored; returns false then. */
template <size_t N>
bool read_times(const Source &src, const blobmsg_policy (&policy)[N], size_t start_slot, size_t end_slot,
                blob_attr *array, FilterTimeRange (&pairs)[FILTER_TIME_RANGE_NUM], bool day_bound)
{
    int i = 0;
    bool ok = true;
    bx::for_each_elem(array, [&](blob_attr *elem) {
        blob_attr *tb[N];
        bx::parse_span(policy, tb, elem, src.msg_end);
        FilterTimeRange &pair = pairs[i];
        pair.uiStartTime = bx::get_u32(tb[start_slot]);
        trace_time(src, "Starttime", i, pair.uiStartTime);
        pair.uiEndTime = bx::get_u32(tb[end_slot]);
        trace_time(src, "Endtime", i, pair.uiEndTime);
        if (day_bound && (pair.uiStartTime > kSecondsPerDay || pair.uiEndTime > kSecondsPerDay)) {
            BX_TRACE_AS(src.func, "err time\n");
            ok = false;
            return false;
        }
        return ++i < FILTER_TIME_RANGE_NUM;
    });
    return ok;
}

/* One rule of the URL list: every key optional, none range-checked, except
 * that an unknown mode refuses the whole list (returns false). */
bool read_url_list_rule(const Source &src, blob_attr *elem, FilterUrlRule &rule)
{
    const auto &policy = kFilterUrlPolicy;
    blob_attr *tb[URL_MAX];
    bx::parse_span(policy, tb, elem, src.msg_end);
    if (bx::present(policy, tb, URL_IDX))
        read_idx(src.func, tb[URL_IDX], rule.uiIdx);
    if (bx::present(policy, tb, URL_ENABLE))
        read_enable(src.func, tb[URL_ENABLE], rule.uiEnable);
    if (bx::present(policy, tb, URL_URLS))
        read_texts(src, tb[URL_URLS], rule.aszUrls, "Urls");
    if (bx::present(policy, tb, URL_NAME))
        read_name(src.func, tb[URL_NAME], rule.szName);
    if (bx::present(policy, tb, URL_MACS))
        read_texts(src, tb[URL_MACS], rule.aszMacs, "Macs");
    if (bx::present(policy, tb, URL_MODE) && !read_url_mode(src.func, tb[URL_MODE], rule.uiMode))
        return false;
    if (bx::present(policy, tb, URL_WEEKDAY)) {
        rule.uiWeekday = bx::get_u32(tb[URL_WEEKDAY]);
        BX_TRACE_AS(src.func, "Weekday:%d\n", static_cast<int>(rule.uiWeekday));
    }
    if (bx::present(policy, tb, URL_TIMERANGE))
        read_times(src, policy, URL_STARTTIME, URL_ENDTIME, tb[URL_TIMERANGE], rule.astTimeRange, false);
    return true;
}

/* One rule of the DNS list: every key optional, none checked; an unknown
 * word is stored as -1. */
bool read_dns_list_rule(const Source &src, blob_attr *elem, FilterDnsRule &rule)
{
    const auto &policy = kFilterDnsPolicy;
    blob_attr *tb[DNS_MAX];
    bx::parse_span(policy, tb, elem, src.msg_end);
    if (bx::present(policy, tb, DNS_IDX))
        read_idx(src.func, tb[DNS_IDX], rule.uiIdx);
    if (bx::present(policy, tb, DNS_ENABLE))
        read_enable(src.func, tb[DNS_ENABLE], rule.uiEnable);
    /* Quirk: the host names are traced with the URL list's label. */
    if (bx::present(policy, tb, DNS_HOSTNAMES))
        read_texts(src, tb[DNS_HOSTNAMES], rule.aszHostnames, "Urls");
    if (bx::present(policy, tb, DNS_NAME))
        read_name(src.func, tb[DNS_NAME], rule.szName);
    if (bx::present(policy, tb, DNS_MACS)) {
        bx::copy_text(rule.szMacs, sizeof rule.szMacs - 1, tb[DNS_MACS]);
        BX_TRACE_AS(src.func, "Macs:%s\n", shown(rule.szMacs).text);
    }
    if (bx::present(policy, tb, DNS_ACTION)) {
        rule.uiAction = static_cast<uint32_t>(bx::get_word(EnumDnsReply, tb[DNS_ACTION]));
        BX_TRACE_AS(src.func, "Action:%d\n", static_cast<int>(rule.uiAction));
    }
    if (bx::present(policy, tb, DNS_MODE)) {
        rule.uiMode = static_cast<uint32_t>(bx::get_word(EnumFilterMode, tb[DNS_MODE]));
        BX_TRACE_AS(src.func, "Mode:%d\n", static_cast<int>(rule.uiMode));
    }
    if (bx::present(policy, tb, DNS_WEEKDAY)) {
        rule.uiWeekday = bx::get_u32(tb[DNS_WEEKDAY]);
        BX_TRACE_AS(src.func, "Weekday:%d\n", static_cast<int>(rule.uiWeekday));
    }
    if (bx::present(policy, tb, DNS_TIMERANGE))
        read_times(src, policy, DNS_STARTTIME, DNS_ENDTIME, tb[DNS_TIMERANGE], rule.astTimeRange, false);
    return true;
}

/* The list messages: "count", which does not bound the walk, then the rules
 * of "list" in order into the record's 32 rules; further elements are
 * ignored. A rule that read_rule refuses ends the walk with -1, the rules
 * before it staying filled. */
template <size_t N, typename Rule, typename ReadRule>
int read_list(const char *func, const blobmsg_policy (&policy)[N], size_t count_slot, size_t list_slot,
              bool trace_full, blob_attr *msg, uint32_t &count, Rule (&rules)[FILTER_RULE_NUM], ReadRule read_rule)
{
    blob_attr *tb[N];
    bx::parse(policy, tb, msg);
    if (bx::present(policy, tb, count_slot)) {
        count = bx::get_u32(tb[count_slot]);
        BX_TRACE_AS(func, "count: %u\n", count);
    }
    if (!bx::present(policy, tb, list_slot))
        return 0;
    const char *msg_end = bx::end_of(msg);
    int n = 0;
    bool ok = true;
    bx::for_each_elem(tb[list_slot], [&](blob_attr *elem) {
        if (n >= FILTER_RULE_NUM) {
            /* Only the URL list says why it stops. */
            if (trace_full)
                BX_TRACE_AS(func, "NULL == cur idx = %d\n", n);
            return false;
        }
        ok = read_rule(Source{func, msg_end, n}, elem, rules[n]);
        ++n;
        return ok;
    });
    return ok ? 0 : -1;
}

/* The replies: a missing "idx" is no failure, the record stays as it is. */
template <size_t N>
int read_reply(const char *func, const blobmsg_policy (&policy)[N], size_t idx_slot, blob_attr *msg, void *record)
{
    if (msg == nullptr || record == nullptr)
        return -1;
    blob_attr *tb[N];
    bx::parse(policy, tb, msg);
    if (!bx::present(policy, tb, idx_slot))
        return 0;
    auto *reply = static_cast<FilterReply *>(record);
    reply->uiIdx = bx::get_u32(tb[idx_slot]);
    BX_TRACE_AS(func, "Idx:%d\n", static_cast<int>(reply->uiIdx));
    return 0;
}

/* ---- Writing ------------------------------------------------------------------ */

/* Unnamed strings from the first slot up to the first empty one. */
void add_texts(blob_buf *buf, const char *key, const char (&slots)[FILTER_TEXT_NUM][FILTER_TEXT_LEN])
{
    void *array = blobmsg_open_array(buf, key);
    for (const auto &slot : slots) {
        if (slot[0] == 0)
            break;
        add_text(buf, nullptr, slot);
    }
    blob_nest_end(buf, array);
}

/* "weekday" and "timerange" go out only for a rule with a schedule; the
 * periods end before the first one whose end time is 0. */
void add_schedule(blob_buf *buf, uint32_t weekday, const FilterTimeRange (&pairs)[FILTER_TIME_RANGE_NUM])
{
    if (weekday == 0)
        return;
    blobmsg_add_u32(buf, "weekday", weekday);
    void *array = blobmsg_open_array(buf, "timerange");
    for (const auto &pair : pairs) {
        if (pair.uiEndTime == 0)
            break;
        void *table = blobmsg_open_table(buf, nullptr);
        blobmsg_add_u32(buf, "starttime", pair.uiStartTime);
        blobmsg_add_u32(buf, "endtime", pair.uiEndTime);
        blob_nest_end(buf, table);
    }
    blob_nest_end(buf, array);
}

void add_rule(blob_buf *buf, const FilterUrlRule &rule)
{
    blobmsg_add_u32(buf, "idx", rule.uiIdx);
    bx::add_word(buf, "enable", EnumSwitch, rule.uiEnable);
    add_texts(buf, "urls", rule.aszUrls);
    add_text(buf, "name", rule.szName);
    add_texts(buf, "macs", rule.aszMacs);
    bx::add_word(buf, "mode", EnumFilterMode, rule.uiMode);
    add_schedule(buf, rule.uiWeekday, rule.astTimeRange);
}

void add_rule(blob_buf *buf, const FilterDnsRule &rule)
{
    blobmsg_add_u32(buf, "idx", rule.uiIdx);
    bx::add_word(buf, "enable", EnumSwitch, rule.uiEnable);
    add_texts(buf, "hostnames", rule.aszHostnames);
    add_text(buf, "name", rule.szName);
    add_text(buf, "macs", rule.szMacs);
    bx::add_word(buf, "action", EnumDnsReply, rule.uiAction);
    bx::add_word(buf, "mode", EnumFilterMode, rule.uiMode);
    add_schedule(buf, rule.uiWeekday, rule.astTimeRange);
}

template <typename Rule>
int write_rule(const void *record, blob_buf *buf)
{
    if (record == nullptr || buf == nullptr)
        return -1;
    add_rule(buf, *static_cast<const Rule *>(record));
    return 0;
}

template <typename List>
int write_list(const void *record, blob_buf *buf)
{
    if (record == nullptr || buf == nullptr)
        return -1;
    const auto *list = static_cast<const List *>(record);
    blobmsg_add_u32(buf, "count", list->uiCount);
    void *array = blobmsg_open_array(buf, "list");
    /* A count above the record's rules is the caller's error: never read
     * past the record. */
    uint32_t used = std::min<uint32_t>(list->uiCount, FILTER_RULE_NUM);
    for (uint32_t i = 0; i < used; ++i) {
        /* Quirk: rules with index 0 are not sent, yet "count" counts them. */
        if (list->astRule[i].uiIdx == 0)
            continue;
        void *table = blobmsg_open_table(buf, nullptr);
        add_rule(buf, list->astRule[i]);
        blob_nest_end(buf, table);
    }
    blob_nest_end(buf, array);
    return 0;
}

int write_reply(const void *record, blob_buf *buf)
{
    if (record == nullptr || buf == nullptr)
        return -1;
    blobmsg_add_u32(buf, "idx", static_cast<const FilterReply *>(record)->uiIdx);
    return 0;
}

/* The name is measured up to one byte past its array (the first byte of
 * szMacs, still inside the record). The copy stops at 31 characters, so
 * only a long name in a record the caller did not zero is refused. */
bool read_dns_name(const char *func, blob_attr *attr, FilterDnsRule *rule)
{
    read_name(func, attr, rule->szName);
    const char *name = reinterpret_cast<const char *>(rule) + offsetof(FilterDnsRule, szName);
    if (strnlen(name, sizeof rule->szName + 1) > sizeof rule->szName) {
        BX_TRACE_AS(func, "out nmd fsl\n");
        return false;
    }
    return true;
}

} // namespace

extern "C" {

/* ---- URL filter switch (132) ------------------------------------------------------ */

/* Hand-written: the switch goes out under another key than it comes in. */
/* Quirk: the switch goes out under "idx" but comes in under "status". */
BX_API int STJ_FilterUrl_Switch(const void *pvRecord, struct blob_buf *pstBuf)
{
    if (pvRecord == nullptr || pstBuf == nullptr)
        return -1;
    bx::add_word(pstBuf, "idx", EnumSwitch, static_cast<const FilterSwitch *>(pvRecord)->uiStatus);
    return 0;
}

/* Hand-written: an unknown word is refused after it has been stored. */
BX_API int JTS_FilterUrl_Switch(struct blob_attr *pstMsg, void *pvRecord)
{
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *rec = static_cast<FilterSwitch *>(pvRecord);
    blob_attr *tb[SWITCH_MAX];
    bx::parse(kFilterSwitchPolicy, tb, pstMsg);
    if (!bx::present(kFilterSwitchPolicy, tb, SWITCH_STATUS))
        return -1;
    /* Quirk: an unknown word is refused after it has been stored. */
    rec->uiStatus = static_cast<uint32_t>(bx::get_word(EnumSwitch, tb[SWITCH_STATUS]));
    BX_TRACE("Status:%d\n", static_cast<int>(rec->uiStatus));
    return rec->uiStatus == kUnknownWord ? -1 : 0;
}

/* ---- URL rules (135) and their list (134) ------------------------------------------ */

/* Hand-written: a rule carries its time periods as a list. */
BX_API int STJ_FilterUrl_Set(const void *pvRecord, struct blob_buf *pstBuf)
{
    return write_rule<FilterUrlRule>(pvRecord, pstBuf);
}

/* Hand-written: a rule carries its time periods as a list, each checked as it is read. */
BX_API int JTS_FilterUrl_Set(struct blob_attr *pstMsg, void *pvRecord)
{
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *rule = static_cast<FilterUrlRule *>(pvRecord);
    const auto &policy = kFilterUrlPolicy;
    blob_attr *tb[URL_MAX];
    bx::parse(policy, tb, pstMsg);
    const Source src{__func__, bx::end_of(pstMsg), -1};

    if (bx::present(policy, tb, URL_IDX))
        read_idx(__func__, tb[URL_IDX], rule->uiIdx);
    if (!bx::present(policy, tb, URL_ENABLE))
        return -1;
    /* Quirk: an unknown word is refused after it has been stored. */
    if (read_enable(__func__, tb[URL_ENABLE], rule->uiEnable) == kUnknownWord)
        return -1;
    if (bx::present(policy, tb, URL_URLS))
        read_texts(src, tb[URL_URLS], rule->aszUrls, "Urls");
    if (bx::present(policy, tb, URL_NAME))
        read_name(__func__, tb[URL_NAME], rule->szName);
    if (bx::present(policy, tb, URL_MACS))
        read_texts(src, tb[URL_MACS], rule->aszMacs, "Macs");
    if (!bx::present(policy, tb, URL_MODE) || !read_url_mode(__func__, tb[URL_MODE], rule->uiMode))
        return -1;
    /* Any day mask is taken. */
    if (bx::present(policy, tb, URL_WEEKDAY)) {
        rule->uiWeekday = bx::get_u32(tb[URL_WEEKDAY]);
        BX_TRACE("Weekday:%u\n", rule->uiWeekday);
    }
    if (!bx::present(policy, tb, URL_TIMERANGE))
        return 0;
    read_times(src, policy, URL_STARTTIME, URL_ENDTIME, tb[URL_TIMERANGE], rule->astTimeRange, false);
    return 0;
}

/* Hand-written: a counted list of rules, each with its time periods. */
BX_API int STJ_FilterUrl_List(const void *pvRecord, struct blob_buf *pstBuf)
{
    return write_list<FilterUrlList>(pvRecord, pstBuf);
}

/* Hand-written: a counted list of rules, each with its time periods. */
BX_API int JTS_FilterUrl_Get(struct blob_attr *pstMsg, void *pvRecord)
{
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *list = static_cast<FilterUrlList *>(pvRecord);
    return read_list(__func__, kFilterUrlPolicy, URL_COUNT, URL_LIST, true, pstMsg, list->uiCount, list->astRule,
                     read_url_list_rule);
}

/* ---- DNS rules (138) and their list (137) ------------------------------------------- */

/* Hand-written: a rule carries its time periods as a list. */
BX_API int STJ_FilterDns_Set(const void *pvRecord, struct blob_buf *pstBuf)
{
    return write_rule<FilterDnsRule>(pvRecord, pstBuf);
}

/* Hand-written: a rule carries its time periods as a list, each checked as it is read. */
/* Each range test runs after its value has been stored: a refused rule
 * keeps what was read up to and including the bad value. */
BX_API int JTS_FilterDns_Set(struct blob_attr *pstMsg, void *pvRecord)
{
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *rule = static_cast<FilterDnsRule *>(pvRecord);
    const auto &policy = kFilterDnsPolicy;
    blob_attr *tb[DNS_MAX];
    bx::parse(policy, tb, pstMsg);
    const Source src{__func__, bx::end_of(pstMsg), -1};

    if (bx::present(policy, tb, DNS_IDX)) {
        read_idx(__func__, tb[DNS_IDX], rule->uiIdx);
        if (rule->uiIdx > kDnsIdxMax)
            return -1;
    }
    if (!bx::present(policy, tb, DNS_ENABLE))
        return -1;
    if (read_enable(__func__, tb[DNS_ENABLE], rule->uiEnable) == kUnknownWord)
        return -1;
    if (bx::present(policy, tb, DNS_HOSTNAMES))
        read_texts(src, tb[DNS_HOSTNAMES], rule->aszHostnames, "Host Name");
    if (bx::present(policy, tb, DNS_NAME) && !read_dns_name(__func__, tb[DNS_NAME], rule))
        return -1;
    /* Quirk: the one MAC text may fill all 32 bytes, leaving no terminator. */
    if (bx::present(policy, tb, DNS_MACS)) {
        bx::copy_text(rule->szMacs, sizeof rule->szMacs, tb[DNS_MACS]);
        BX_TRACE("Mac:%s\n", shown(rule->szMacs).text);
    }
    if (!bx::present(policy, tb, DNS_ACTION))
        return -1;
    rule->uiAction = static_cast<uint32_t>(bx::get_word(EnumDnsReply, tb[DNS_ACTION]));
    BX_TRACE("Action:%u\n", rule->uiAction);
    if (!bx::present(policy, tb, DNS_MODE))
        return -1;
    /* Quirk: an unknown mode word is stored as -1 and accepted. */
    rule->uiMode = static_cast<uint32_t>(bx::get_word(EnumFilterMode, tb[DNS_MODE]));
    BX_TRACE("Mode:%u\n", rule->uiMode);
    if (!bx::present(policy, tb, DNS_WEEKDAY))
        return -1;
    rule->uiWeekday = bx::get_u32(tb[DNS_WEEKDAY]);
    BX_TRACE("Weekday:%u\n", rule->uiWeekday);
    if (rule->uiWeekday > kDnsWeekdayMax)
        return -1;
    if (!bx::present(policy, tb, DNS_TIMERANGE))
        return 0;
    return read_times(src, policy, DNS_STARTTIME, DNS_ENDTIME, tb[DNS_TIMERANGE], rule->astTimeRange, true) ? 0 : -1;
}

/* Hand-written: a counted list of rules, each with its time periods. */
BX_API int STJ_FilterDns_List(const void *pvRecord, struct blob_buf *pstBuf)
{
    return write_list<FilterDnsList>(pvRecord, pstBuf);
}

/* Hand-written: a counted list of rules, each with its time periods. */
BX_API int JTS_FilterDns_Get(struct blob_attr *pstMsg, void *pvRecord)
{
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *list = static_cast<FilterDnsList *>(pvRecord);
    return read_list(__func__, kFilterDnsPolicy, DNS_COUNT, DNS_LIST, false, pstMsg, list->uiCount, list->astRule,
                     read_dns_list_rule);
}

/* ---- Replies with the index of a rule just set (136, 139) ------------------------------ */

/* Hand-written: the reply carries the rule's index and its result word. */
BX_API int STJ_FilterUrl_Reply(const void *pvRecord, struct blob_buf *pstBuf) { return write_reply(pvRecord, pstBuf); }

/* Hand-written: the reply carries the rule's index and its result word. */
BX_API int JTS_FilterUrl_Set_Reply(struct blob_attr *pstMsg, void *pvRecord)
{
    return read_reply(__func__, kFilterUrlPolicy, URL_IDX, pstMsg, pvRecord);
}

/* Hand-written: the reply carries the rule's index and its result word. */
BX_API int STJ_FilterDns_Reply(const void *pvRecord, struct blob_buf *pstBuf) { return write_reply(pvRecord, pstBuf); }

/* Hand-written: the reply carries the rule's index and its result word. */
BX_API int JTS_FilterDns_Set_Reply(struct blob_attr *pstMsg, void *pvRecord)
{
    return read_reply(__func__, kFilterDnsPolicy, DNS_IDX, pstMsg, pvRecord);
}

} // extern "C"
