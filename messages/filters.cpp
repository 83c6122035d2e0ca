/* URL and DNS filters: the global URL filter switch, the URL rules (black or
 * white lists of URLs for listed client MACs, on chosen weekdays and times
 * of day), the DNS rules (host names answered with a chosen action for one
 * client, on a schedule), their lists, and the replies that return the index
 * of a rule just set.
 *
 * Each rule kind has one policy that reads its set message, its list
 * message, every rule of the list and every period of a "timerange": every
 * table of a kind lists all its keys, in the policy's order, parsing those
 * it does not read. The set messages come from the web pages and check what
 * a user may enter (the DNS rule more than the URL rule); the lists come
 * from the filter daemon and are taken as they are, every key optional. */
#include <cstddef>
#include <cstring>

#include "core/codec.h"
#include "messages/walk.h"

namespace {

using bx::Field;
using bx::Link;
using bx::Quirk;
using bx::Read;
using bx::Reading;
using bx::Wire;

/* ---- Shared pieces ------------------------------------------------------------ */

/* An enumeration word its list does not know is stored as -1, traced, and
 * then refuses the message. */
constexpr bx::Range kKnownWord{bx::Check::After, 0, 0x7FFFFFFFu};

/* The keys of the two policies, in groups, for the tables that only parse them. */
#define URL_RULE_KEYS                                                                                 \
    BX_KEY("enable", Wire::Text), BX_KEY("urls", Wire::List), BX_KEY("name", Wire::Text),     \
        BX_KEY("macs", Wire::List), BX_KEY("mode", Wire::Text), BX_KEY("weekday", Wire::U32)
#define DNS_RULE_KEYS                                                                                     \
    BX_KEY("enable", Wire::Text), BX_KEY("hostnames", Wire::List), BX_KEY("name", Wire::Text),    \
        BX_KEY("macs", Wire::Text), BX_KEY("action", Wire::Text), BX_KEY("mode", Wire::Text), \
        BX_KEY("weekday", Wire::U32)
#define PERIOD_KEYS BX_KEY("starttime", Wire::U32), BX_KEY("endtime", Wire::U32)
#define LIST_KEYS BX_KEY("count", Wire::U32), BX_KEY("list", Wire::List)

constexpr uint32_t kSecondsPerDay = 86400;

/* Rule n of a list message being read: the walks inside it trace n. Only
 * read_rules reads the rows that carry the listed walks, and always with
 * one of these. */
struct ListedRule : Reading {
    int n;
};

/* The position a walk's traces carry: -1 for the rule of a set message. */
template <bool Listed>
int position(const Reading &r)
{
    if constexpr (Listed)
        return static_cast<const ListedRule &>(r).n;
    else
        return -1;
}

/* A rule's texts: 32 slots of 31 characters, sent up to the first empty one. */
constexpr bx::FieldDef kTextSource[] = {BX_TEXT_ENTRY(FILTER_TEXT_LEN, nullptr)};
BX_PACKED(kText);
constexpr bx::ListOf kTexts = BX_VALUES(FilterUrlRule, aszUrls, kText, .to_first_empty = true);

constexpr char kUrlsLabel[] = "Urls";
constexpr char kMacsLabel[] = "Macs";
constexpr char kHostLabel[] = "Host Name";

/* Quirk: every element is read as a text, whatever its type, and traced
 * with its slot (and in a list, the rule's position; -1: none). */
[[gnu::noinline]] Read read_texts(const Reading &r, const Field &f, blob_attr *attr, const char *label, int rule)
{
    if (!JTS_CheckBlobAttr(f.key(), attr))
        return bx::kGoOn;
    const bx::ListOf &l = *r.list(f);
    const size_t size = l.entry()[0].size;
    char *first = static_cast<char *>(r.record) + f.offset;
    int slot = 0;
    bx::walk::each(attr, [&](blob_attr *elem) {
        char *text = first + slot * l.stride;
        bx::copy_text(text, size - 1, elem);
        const int len = static_cast<int>(strnlen(text, size));
        if (rule < 0)
            BX_TRACE_AS(r.func, "%s%d:%.*s\n", label, slot, len, text);
        else
            BX_TRACE_AS(r.func, "List[%d]%s%d:%.*s\n", rule, label, slot, len, text);
        return ++slot < l.capacity;
    });
    return bx::kGoOn;
}

/* read_texts with a label, in a set message or a list. */
template <const char *Label, bool Listed>
Read read_texts_as(const Reading &r, const Field &f, blob_attr *attr)
{
    return read_texts(r, f, attr, Label, position<Listed>(r));
}

void trace_time(const char *func, int rule, const char *label, int pair, uint32_t time)
{
    if (rule < 0)
        BX_TRACE_AS(func, "%s%d:%u\n", label, pair, time);
    else
        BX_TRACE_AS(func, "List[%d]%s%d:%u\n", rule, label, pair, time);
}

/* The slot of the first row at or after `from` that a period's table
 * stores: the rule's other keys are only parsed, so the first is the start
 * time and the next the end time. */
size_t stored_slot(const bx::ListOf &l, size_t from)
{
    while (from < l.fields && !l.entry()[from].stored)
        ++from;
    return from;
}

/* Quirk: at most three periods, each parsed with the rule's whole policy
 * whatever its type; the times are not tested for presence (senders give
 * both) and an absent one stores 0. With day_bound a time beyond a day
 * refuses the rule once its pair is stored. */
[[gnu::noinline]] Read read_periods(const Reading &r, const Field &f, blob_attr *attr, int rule, bool day_bound)
{
    if (!JTS_CheckBlobAttr(f.key(), attr))
        return bx::kGoOn;
    const bx::ListOf &l = *r.list(f);
    const size_t start = stored_slot(l, 0);
    const size_t end = stored_slot(l, start + 1);
    auto *pairs = reinterpret_cast<FilterTimeRange *>(static_cast<char *>(r.record) + f.offset);
    int i = 0;
    Read done = bx::kGoOn;
    bx::walk::each(attr, [&](blob_attr *elem) {
        blob_attr *tb[bx::kMaxEntryFields];
        bx::parse_span(l, tb, elem, r.msg_end);
        FilterTimeRange &pair = pairs[i];
        pair.uiStartTime = bx::get_u32(tb[start]);
        trace_time(r.func, rule, "Starttime", i, pair.uiStartTime);
        pair.uiEndTime = bx::get_u32(tb[end]);
        trace_time(r.func, rule, "Endtime", i, pair.uiEndTime);
        if (day_bound && (pair.uiStartTime > kSecondsPerDay || pair.uiEndTime > kSecondsPerDay)) {
            BX_TRACE_AS(r.func, "err time\n");
            done = {true, -1};
            return false;
        }
        return ++i < l.capacity;
    });
    return done;
}

/* read_periods in a set message or a list, with or without the day bound. */
template <bool Listed, bool DayBound>
Read read_periods_as(const Reading &r, const Field &f, blob_attr *attr)
{
    return read_periods(r, f, attr, position<Listed>(r), DayBound);
}

/* Quirk: a rule without days goes out without "weekday"... */
void send_weekday(const Field &f, const Link *links, const void *record, blob_buf *buf)
{
    uint32_t weekday = 0;
    std::memcpy(&weekday, static_cast<const char *>(record) + f.offset, sizeof weekday);
    if (weekday != 0)
        bx::emit_field(f, links, record, buf);
}

/* ... and without "timerange"; the periods end before the first one whose
 * end time is 0. Both rules keep their days just before their periods. */
static_assert(offsetof(FilterUrlRule, uiWeekday) + 4 == offsetof(FilterUrlRule, astTimeRange));
static_assert(offsetof(FilterDnsRule, uiWeekday) + 4 == offsetof(FilterDnsRule, astTimeRange));
void send_periods(const Field &f, const Link *links, const void *record, blob_buf *buf)
{
    uint32_t weekday = 0;
    std::memcpy(&weekday, static_cast<const char *>(record) + f.offset - sizeof weekday, sizeof weekday);
    if (weekday != 0)
        bx::walk::send_tables(f, links, record, buf, f.list(links)->capacity, offsetof(FilterTimeRange, uiEndTime),
                              bx::walk::Zero::Ends);
}

/* The list's own line (if any) for an element past its rules. */
void trace_past_bound(const char *func, const char *text, int filled)
{
    if (text == nullptr)
        return;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"
    BX_TRACE_AS(func, text, filled);
#pragma GCC diagnostic pop
}

/* Quirk: every element of "list" is read as a rule whatever its type, the
 * rule's walks tracing its position; past the record's rules the walk ends. */
Read read_rules(const Reading &r, const Field &f, blob_attr *attr)
{
    if (!JTS_CheckBlobAttr(f.key(), attr))
        return bx::kGoOn;
    const bx::ListOf &l = *r.list(f);
    auto *first = static_cast<uint8_t *>(r.record) + f.offset;
    int n = 0;
    Read done = bx::kGoOn;
    bx::walk::each(attr, [&](blob_attr *elem) {
        if (n >= l.capacity) {
            trace_past_bound(r.func, l.past_bound, n);
            return false;
        }
        blob_attr *tb[bx::kMaxEntryFields];
        bx::parse_span(l, tb, elem, r.msg_end);
        const ListedRule rule{{r.func, first + n * l.stride, nullptr, r.msg_end, tb, l.entry_links}, n};
        done = bx::read_fields(rule, l.entry(), l.fields);
        ++n;
        return !done.refused;
    });
    return done;
}

/* Quirk: a rule with index 0 is not sent, though "count" counts it. Both
 * lists start with their count and both rules with their index. */
static_assert(offsetof(FilterUrlList, uiCount) == 0 && offsetof(FilterDnsList, uiCount) == 0);
static_assert(offsetof(FilterUrlRule, uiIdx) == 0 && offsetof(FilterDnsRule, uiIdx) == 0);
void send_rules(const Field &f, const Link *links, const void *record, blob_buf *buf)
{
    uint32_t count = 0;
    std::memcpy(&count, record, sizeof count);
    /* A count above the record's rules is the caller's error: never read
     * past the record. */
    bx::walk::send_tables(f, links, record, buf, bx::at_most(count, f.list(links)->capacity), 0, bx::walk::Zero::Skipped);
}

constexpr Quirk kWeekday{nullptr, send_weekday, "not sent while 0"};

/* ---- URL rules ------------------------------------------------------------------- */

/* A period: parsed with the whole URL policy, only its times read. */
constexpr bx::FieldDef kUrlPeriodSource[] = {
    BX_KEY("idx", Wire::U32), URL_RULE_KEYS,
    BX_U32(FilterTimeRange, uiStartTime, "starttime", nullptr),
    BX_U32(FilterTimeRange, uiEndTime, "endtime", nullptr),
    BX_KEY("timerange", Wire::List), LIST_KEYS,
};
BX_PACKED(kUrlPeriod);
constexpr bx::ListOf kUrlPeriods = BX_TABLES(FilterUrlRule, astTimeRange, kUrlPeriod, .spans = true);

/* Quirk: unlike the DNS rule, a URL rule refuses an unknown mode word,
 * leaving the field as it was. */
Read read_url_mode(const Reading &r, const Field &f, blob_attr *attr)
{
    if (attr != nullptr && bx::get_word(EnumFilterMode, attr) == -1) {
        BX_TRACE_AS(r.func, "Mode Error\n");
        return {true, -1};
    }
    return bx::read_slot(r, f, attr);
}

constexpr Quirk kUrlMode{read_url_mode, nullptr, "an unknown word refuses the message (-1) before it is stored"};
constexpr Quirk kUrls{read_texts_as<kUrlsLabel, false>, nullptr, "elements of any type read as texts, up to the array's capacity"};
constexpr Quirk kUrlMacs{read_texts_as<kMacsLabel, false>, nullptr, "elements of any type read as texts, up to the array's capacity"};
constexpr Quirk kUrlTimes{read_periods_as<false, false>, send_periods, "at most three periods, elements of any type, their times stored untested (absent: 0); not sent while \"weekday\" is 0, sent up to the first end time 0"};
constexpr Quirk kListedUrls{read_texts_as<kUrlsLabel, true>, nullptr, "elements of any type read as texts, up to the array's capacity"};
constexpr Quirk kListedUrlMacs{read_texts_as<kMacsLabel, true>, nullptr, "elements of any type read as texts, up to the array's capacity"};
constexpr Quirk kListedUrlTimes{read_periods_as<true, false>, send_periods, "at most three periods, elements of any type, their times stored untested (absent: 0); not sent while \"weekday\" is 0, sent up to the first end time 0"};

/* The set message (135): "enable" and "mode" required, any day mask taken. */
constexpr bx::FieldDef kUrlRuleSource[] = {
    BX_U32(FilterUrlRule, uiIdx, "idx", "Idx:%u"),
    BX_WORD(FilterUrlRule, uiEnable, EnumSwitch, "enable", "Enable:%u", .required = true, .range = kKnownWord),
    BX_LIST(FilterUrlRule, aszUrls, "urls", kTexts, nullptr, .quirk = &kUrls),
    BX_TEXT(FilterUrlRule, szName, "name", "Name:%s"),
    BX_LIST(FilterUrlRule, aszMacs, "macs", kTexts, nullptr, .quirk = &kUrlMacs),
    BX_WORD(FilterUrlRule, uiMode, EnumFilterMode, "mode", "Mode:%u", .required = true, .quirk = &kUrlMode),
    BX_U32(FilterUrlRule, uiWeekday, "weekday", "Weekday:%u", .quirk = &kWeekday),
    PERIOD_KEYS,
    BX_LIST(FilterUrlRule, astTimeRange, "timerange", kUrlPeriods, nullptr, .quirk = &kUrlTimes),
    LIST_KEYS,
};
BX_PACKED(kUrlRule);

/* A rule of the list (134): every key optional; only an unknown mode refuses. */
constexpr bx::FieldDef kListedUrlRuleSource[] = {
    BX_U32(FilterUrlRule, uiIdx, "idx", "Idx:%u"),
    BX_WORD(FilterUrlRule, uiEnable, EnumSwitch, "enable", "Enable:%u"),
    BX_LIST(FilterUrlRule, aszUrls, "urls", kTexts, nullptr, .quirk = &kListedUrls),
    BX_TEXT(FilterUrlRule, szName, "name", "Name:%s"),
    BX_LIST(FilterUrlRule, aszMacs, "macs", kTexts, nullptr, .quirk = &kListedUrlMacs),
    BX_WORD(FilterUrlRule, uiMode, EnumFilterMode, "mode", "Mode:%d", .quirk = &kUrlMode),
    BX_U32(FilterUrlRule, uiWeekday, "weekday", "Weekday:%d", .quirk = &kWeekday),
    PERIOD_KEYS,
    BX_LIST(FilterUrlRule, astTimeRange, "timerange", kUrlPeriods, nullptr, .quirk = &kListedUrlTimes),
    LIST_KEYS,
};
BX_PACKED(kListedUrlRule);

/* The list (134): "count" does not bound the walk; at most 32 rules. */
constexpr bx::ListOf kUrlRules =
    BX_TABLES(FilterUrlList, astRule, kListedUrlRule, .spans = true, .past_bound = "NULL == cur idx = %d\n");
constexpr Quirk kUrlRuleList{read_rules, send_rules, "elements of any type read as rules, parsed over their whole span; \"count\" does not bound the walk; rules with index 0 are not sent"};
constexpr bx::FieldDef kUrlListSource[] = {
    BX_KEY("idx", Wire::U32), URL_RULE_KEYS, PERIOD_KEYS, BX_KEY("timerange", Wire::List),
    BX_U32(FilterUrlList, uiCount, "count", "count: %u"),
    BX_LIST(FilterUrlList, astRule, "list", kUrlRules, nullptr, .quirk = &kUrlRuleList),
};
BX_PACKED(kUrlList);

/* The reply (136): a missing "idx" is no failure, the record stays as it is. */
constexpr bx::FieldDef kUrlReplySource[] = {
    BX_U32(FilterReply, uiIdx, "idx", "Idx:%d"),
    URL_RULE_KEYS, PERIOD_KEYS, BX_KEY("timerange", Wire::List), LIST_KEYS,
};
BX_PACKED(kUrlReply);

/* ---- DNS rules ---------------------------------------------------------------------- */

/* A period: parsed with the whole DNS policy, only its times read. */
constexpr bx::FieldDef kDnsPeriodSource[] = {
    BX_KEY("idx", Wire::U32), DNS_RULE_KEYS,
    BX_U32(FilterTimeRange, uiStartTime, "starttime", nullptr),
    BX_U32(FilterTimeRange, uiEndTime, "endtime", nullptr),
    BX_KEY("timerange", Wire::List), LIST_KEYS,
};
BX_PACKED(kDnsPeriod);
constexpr bx::ListOf kDnsPeriods = BX_TABLES(FilterDnsRule, astTimeRange, kDnsPeriod, .spans = true);

/* Quirk: the name is measured up to one byte past its array (the first byte
 * of szMacs, still inside the record). The copy stops at 31 characters, so
 * only a long name in a record the caller did not zero is refused. */
Read read_dns_name(const Reading &r, const Field &f, blob_attr *attr)
{
    const Read done = bx::read_slot(r, f, attr);
    const char *name = static_cast<const char *>(r.record) + f.offset;
    if (attr != nullptr && strnlen(name, f.size + 1u) > f.size) {
        BX_TRACE_AS(r.func, "out nmd fsl\n");
        return {true, -1};
    }
    return done;
}

constexpr Quirk kDnsName{read_dns_name, nullptr, "a name longer than 31 characters refuses the message (-1) only in a record the caller did not zero"};
constexpr Quirk kHostnames{read_texts_as<kHostLabel, false>, nullptr, "elements of any type read as texts, up to the array's capacity"};
constexpr Quirk kDnsTimes{read_periods_as<false, true>, send_periods, "at most three periods, elements of any type, their times stored untested (absent: 0); a time above 86400 refuses the message once its pair is stored; not sent while \"weekday\" is 0, sent up to the first end time 0"};
/* Quirk: in the list the host names are traced with the URL list's label. */
constexpr Quirk kListedHostnames{read_texts_as<kUrlsLabel, true>, nullptr, "elements of any type read as texts, up to the array's capacity"};
constexpr Quirk kListedDnsTimes{read_periods_as<true, false>, send_periods, "at most three periods, elements of any type, their times stored untested (absent: 0); not sent while \"weekday\" is 0, sent up to the first end time 0"};

/* The set message (138): each range test runs after its value has been
 * stored, so a refused rule keeps what was read up to the bad value. */
constexpr bx::FieldDef kDnsRuleSource[] = {
    BX_U32(FilterDnsRule, uiIdx, "idx", "Idx:%u", .range = {bx::Check::After, 0, 16}),
    BX_WORD(FilterDnsRule, uiEnable, EnumSwitch, "enable", "Enable:%u", .required = true, .range = kKnownWord),
    BX_LIST(FilterDnsRule, aszHostnames, "hostnames", kTexts, nullptr, .quirk = &kHostnames),
    BX_TEXT(FilterDnsRule, szName, "name", "Name:%s", .quirk = &kDnsName),
    /* Quirk: the one MAC text may fill all 32 bytes, leaving no terminator. */
    BX_TEXT(FilterDnsRule, szMacs, "macs", "Mac:%s", .whole = true),
    BX_WORD(FilterDnsRule, uiAction, EnumDnsReply, "action", "Action:%u", .required = true),
    /* Quirk: an unknown mode word is stored as -1 and accepted. */
    BX_WORD(FilterDnsRule, uiMode, EnumFilterMode, "mode", "Mode:%u", .required = true),
    BX_U32(FilterDnsRule, uiWeekday, "weekday", "Weekday:%u", .required = true, .range = {bx::Check::After, 0, 127},
        .quirk = &kWeekday),
    PERIOD_KEYS,
    BX_LIST(FilterDnsRule, astTimeRange, "timerange", kDnsPeriods, nullptr, .quirk = &kDnsTimes),
    LIST_KEYS,
};
BX_PACKED(kDnsRule);

/* A rule of the list (137): every key optional, none checked. */
constexpr bx::FieldDef kListedDnsRuleSource[] = {
    BX_U32(FilterDnsRule, uiIdx, "idx", "Idx:%u"),
    BX_WORD(FilterDnsRule, uiEnable, EnumSwitch, "enable", "Enable:%u"),
    BX_LIST(FilterDnsRule, aszHostnames, "hostnames", kTexts, nullptr, .quirk = &kListedHostnames),
    BX_TEXT(FilterDnsRule, szName, "name", "Name:%s"),
    BX_TEXT(FilterDnsRule, szMacs, "macs", "Macs:%s"),
    BX_WORD(FilterDnsRule, uiAction, EnumDnsReply, "action", "Action:%d"),
    BX_WORD(FilterDnsRule, uiMode, EnumFilterMode, "mode", "Mode:%d"),
    BX_U32(FilterDnsRule, uiWeekday, "weekday", "Weekday:%d", .quirk = &kWeekday),
    PERIOD_KEYS,
    BX_LIST(FilterDnsRule, astTimeRange, "timerange", kDnsPeriods, nullptr, .quirk = &kListedDnsTimes),
    LIST_KEYS,
};
BX_PACKED(kListedDnsRule);

/* The list (137): as the URL list, without a word on stopping. */
constexpr bx::ListOf kDnsRules = BX_TABLES(FilterDnsList, astRule, kListedDnsRule, .spans = true);
constexpr Quirk kDnsRuleList{read_rules, send_rules, "elements of any type read as rules, parsed over their whole span; \"count\" does not bound the walk; rules with index 0 are not sent"};
constexpr bx::FieldDef kDnsListSource[] = {
    BX_KEY("idx", Wire::U32), DNS_RULE_KEYS, PERIOD_KEYS, BX_KEY("timerange", Wire::List),
    BX_U32(FilterDnsList, uiCount, "count", "count: %u"),
    BX_LIST(FilterDnsList, astRule, "list", kDnsRules, nullptr, .quirk = &kDnsRuleList),
};
BX_PACKED(kDnsList);

/* The reply (139), as the URL reply. */
constexpr bx::FieldDef kDnsReplySource[] = {
    BX_U32(FilterReply, uiIdx, "idx", "Idx:%d"),
    DNS_RULE_KEYS, PERIOD_KEYS, BX_KEY("timerange", Wire::List), LIST_KEYS,
};
BX_PACKED(kDnsReply);

/* ---- The URL filter switch (132) ------------------------------------------------------ */

/* Quirk: the switch goes out under "idx" but comes in under "status", where
 * an unknown word is refused after it has been stored. */
constexpr bx::FieldDef kSwitchSource[] = {
    BX_WORD(FilterSwitch, uiStatus, EnumSwitch, "idx", nullptr, .way = bx::Way::Sent),
    BX_WORD(FilterSwitch, uiStatus, EnumSwitch, "status", "Status:%d", .required = true, .way = bx::Way::Received,
        .range = kKnownWord),
};
BX_PACKED(kSwitch);

#undef URL_RULE_KEYS
#undef DNS_RULE_KEYS
#undef PERIOD_KEYS
#undef LIST_KEYS

} // namespace

extern "C" {

BX_CONVERTERS(STJ_FilterUrl_Switch, JTS_FilterUrl_Switch, kSwitch)

BX_CONVERTERS(STJ_FilterUrl_Set, JTS_FilterUrl_Set, kUrlRule)
BX_CONVERTERS(STJ_FilterUrl_List, JTS_FilterUrl_Get, kUrlList)
BX_CONVERTERS(STJ_FilterUrl_Reply, JTS_FilterUrl_Set_Reply, kUrlReply)

BX_CONVERTERS(STJ_FilterDns_Set, JTS_FilterDns_Set, kDnsRule)
BX_CONVERTERS(STJ_FilterDns_List, JTS_FilterDns_Get, kDnsList)
BX_CONVERTERS(STJ_FilterDns_Reply, JTS_FilterDns_Set_Reply, kDnsReply)

} // extern "C"
