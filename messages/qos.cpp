/* QoS classification: the QoS, DSCP and 802.1p switches, and the rules that
 * map matching traffic to a priority, a DSCP value and an 802.1p value.
 *
 * Each rule message reads the rule its own way, and the daemons on both
 * sides rely on it: the add and list messages carry the protocols as an
 * array of numbers, the set message carries "protocol" and the ports as
 * strings, and the copy bounds and trace labels differ from message to
 * message. Each message below therefore names its keys in a table of its
 * own. */
#include <algorithm>
#include <cstddef>
#include <cstring>

#include "core/codec.h"

namespace {

using bx::Field;

/* ---- Reading a rule ------------------------------------------------------- */

/* One key of a rule as one message reads it. */
struct RuleKey {
    size_t slot; /* policy slot */
    Field field;
};

#define RULE_NUM(slot, member, trace) RuleKey{slot, BX_U32(QosClassRule, member, nullptr, trace)}
#define RULE_TEXT(slot, member, trace) RuleKey{slot, BX_TEXT(QosClassRule, member, nullptr, trace)}
#define RULE_TEXT_WHOLE(slot, member, trace) RuleKey{slot, bx::whole(BX_TEXT(QosClassRule, member, nullptr, trace))}

/* Stores the present keys of `keys` into the rule, in table order, tracing
 * each absent key and each stored value. */
template <size_t P, size_t K>
void store_keys(const char *func, const blobmsg_policy (&policy)[P], blob_attr *const (&tb)[P],
                const RuleKey (&keys)[K], QosClassRule *rule)
{
    for (const RuleKey &k : keys) {
        if (bx::present(policy, tb, k.slot))
            bx::store_field(func, k.field, tb[k.slot], rule);
    }
}

/* The add message's protocols: slot 0 takes any value, a 0 in a later
 * position ends the used part (and is not stored). */
void read_protocols_to_first_zero(blob_attr *array, QosClassRule *rule)
{
    size_t slot = 0;
    bx::for_each_elem(array, [&](blob_attr *elem) {
        uint32_t v = bx::get_u32(elem);
        if (slot > 0 && v == 0)
            return false;
        rule->auiProtocol[slot++] = v;
        return slot < QOS_CLASS_PROTOCOL_NUM;
    });
}

/* ---- Writing a rule ----------------------------------------------------------- */

constexpr Field kIndex = BX_U32(QosClassRule, uiIndex, "index", nullptr);
constexpr Field kName = BX_TEXT(QosClassRule, szName, "name", nullptr);
constexpr Field kPriority = BX_U32(QosClassRule, uiPriority, "priority", nullptr);
constexpr Field kDscp = BX_U32(QosClassRule, uiDscp, "dscp", nullptr);
constexpr Field kVlan8021p = BX_U32(QosClassRule, uiVlan8021p, "vlan8021p", nullptr);
constexpr Field kSrcMac = BX_TEXT(QosClassRule, szSrcMac, "srcmac", nullptr);
constexpr Field kDstMac = BX_TEXT(QosClassRule, szDstMac, "dstmac", nullptr);

/* The members after "protocol" in the get and list messages. */
constexpr Field kAddresses[] = {
    BX_TEXT(QosClassRule, szSrcIp, "srcip", nullptr),
    BX_TEXT(QosClassRule, szSrcMask, "srcmask", nullptr),
    BX_U32(QosClassRule, uiSrcPort, "srcport", nullptr),
    kSrcMac,
    BX_TEXT(QosClassRule, szDstIp, "dstip", nullptr),
    BX_TEXT(QosClassRule, szDstMask, "dstmask", nullptr),
    BX_U32(QosClassRule, uiDstPort, "dstport", nullptr),
    kDstMac,
};

/* "protocol" as the add and list messages send it: slot 0 always, then the
 * later slots up to the first 0. */
void emit_protocols_to_first_zero(blob_buf *buf, const QosClassRule *rule)
{
    void *array = blobmsg_open_array(buf, "protocol");
    blobmsg_add_u32(buf, nullptr, rule->auiProtocol[0]);
    for (size_t i = 1; i < QOS_CLASS_PROTOCOL_NUM && rule->auiProtocol[i] != 0; ++i)
        blobmsg_add_u32(buf, nullptr, rule->auiProtocol[i]);
    blob_nest_end(buf, array);
}

/* ---- The three switches ------------------------------------------------------- */

constexpr Field kQosSwitch[] = {
    BX_WORD(QosSwitch, uiEnable, EnumSwitch, "enable", "status:%u"),
};

enum { SWITCH_ENABLE, SWITCH_MAX };
constexpr blobmsg_policy kQosSwitchPolicy[SWITCH_MAX] = {
    /* SWITCH_ENABLE */ {"enable", BLOBMSG_TYPE_STRING},
};

/* "enable" is required and must be "enable" or "disable". */
int jts_switch(const char *func, blob_attr *msg, void *record)
{
    if (msg == nullptr || record == nullptr)
        return -1;
    blob_attr *tb[SWITCH_MAX];
    bx::parse(kQosSwitchPolicy, tb, msg);
    if (!bx::present(kQosSwitchPolicy, tb, SWITCH_ENABLE))
        return -1;
    auto enable = static_cast<uint32_t>(bx::get_word(EnumSwitch, tb[SWITCH_ENABLE]));
    if (enable > 1)
        return -1;
    static_cast<QosSwitch *>(record)->uiEnable = enable;
    BX_TRACE_AS(func, "status:%u\n", enable);
    return 0;
}

/* ---- A rule's index (delete, and get from JSON) -------------------------------- */

/* A missing "index" is no failure: the record stays as it is. */
constexpr Field kQosClassIndex[] = {
    BX_U32(QosClassIndex, uiIndex, "index", "Index:%u"),
};

/* ---- Add ------------------------------------------------------------------------ */

enum { ADD_PRIORITY, ADD_DSCP, ADD_VLAN8021P, ADD_NAME, ADD_PROTOCOL, ADD_SRCMAC, ADD_DSTMAC, ADD_MAX };
constexpr blobmsg_policy kQosClassAddPolicy[ADD_MAX] = {
    /* ADD_PRIORITY  */ {"priority", BLOBMSG_TYPE_INT32},
    /* ADD_DSCP      */ {"dscp", BLOBMSG_TYPE_INT32},
    /* ADD_VLAN8021P */ {"vlan8021p", BLOBMSG_TYPE_INT32},
    /* ADD_NAME      */ {"name", BLOBMSG_TYPE_STRING},
    /* ADD_PROTOCOL  */ {"protocol", BLOBMSG_TYPE_ARRAY},
    /* ADD_SRCMAC    */ {"srcmac", BLOBMSG_TYPE_STRING},
    /* ADD_DSTMAC    */ {"dstmac", BLOBMSG_TYPE_STRING},
};

/* "protocol" is read after these, unchecked and untraced. */
constexpr RuleKey kAddKeys[] = {
    RULE_NUM(ADD_PRIORITY, uiPriority, "Priority:%u"),
    RULE_NUM(ADD_DSCP, uiDscp, "Dscp:%u"),
    RULE_NUM(ADD_VLAN8021P, uiVlan8021p, "Valn8021p:%u"),
    RULE_TEXT(ADD_NAME, szName, "Name:%s"),
    /* Quirk: the MAC texts may fill all 17 bytes; the next field ends them. */
    RULE_TEXT_WHOLE(ADD_SRCMAC, szSrcMac, "SrcName:%s"),
    RULE_TEXT_WHOLE(ADD_DSTMAC, szDstMac, "DstName:%s"),
};

constexpr Field kAddHead[] = {kPriority, kDscp, kVlan8021p, kName};

/* ---- Set ------------------------------------------------------------------------- */

/* The set message alone sends "protocol" and the ports as strings. */
enum {
    SET_PRIORITY, SET_DSCP, SET_VLAN8021P, SET_NAME, SET_PROTOCOL, SET_SRCIP, SET_SRCMASK,
    SET_SRCPORT, SET_SRCMAC, SET_DSTIP, SET_DSTMASK, SET_DSTPORT, SET_DSTMAC, SET_MAX
};
constexpr blobmsg_policy kQosClassSetPolicy[SET_MAX] = {
    /* SET_PRIORITY  */ {"priority", BLOBMSG_TYPE_INT32},
    /* SET_DSCP      */ {"dscp", BLOBMSG_TYPE_INT32},
    /* SET_VLAN8021P */ {"vlan8021p", BLOBMSG_TYPE_INT32},
    /* SET_NAME      */ {"name", BLOBMSG_TYPE_STRING},
    /* SET_PROTOCOL  */ {"protocol", BLOBMSG_TYPE_STRING},
    /* SET_SRCIP     */ {"srcip", BLOBMSG_TYPE_STRING},
    /* SET_SRCMASK   */ {"srcmask", BLOBMSG_TYPE_STRING},
    /* SET_SRCPORT   */ {"srcport", BLOBMSG_TYPE_STRING},
    /* SET_SRCMAC    */ {"srcmac", BLOBMSG_TYPE_STRING},
    /* SET_DSTIP     */ {"dstip", BLOBMSG_TYPE_STRING},
    /* SET_DSTMASK   */ {"dstmask", BLOBMSG_TYPE_STRING},
    /* SET_DSTPORT   */ {"dstport", BLOBMSG_TYPE_STRING},
    /* SET_DSTMAC    */ {"dstmac", BLOBMSG_TYPE_STRING},
};

constexpr RuleKey kSetHead[] = {
    RULE_NUM(SET_PRIORITY, uiPriority, "Priority:%u"),
    RULE_NUM(SET_DSCP, uiDscp, "Dscp:%u"),
    RULE_NUM(SET_VLAN8021P, uiVlan8021p, "Vlan8021p:%u"),
    RULE_TEXT(SET_NAME, szName, "Name:%s"),
};

/* Quirk: the ports arrive as strings and are read as numbers: the first
 * four bytes of the text, big-endian. Quirk: the MAC texts are cut at 16
 * characters like the addresses. */
constexpr RuleKey kSetTail[] = {
    RULE_TEXT(SET_SRCIP, szSrcIp, "SrcIp:%s"),
    RULE_TEXT(SET_SRCMASK, szSrcMask, "SrcMask:%s"),
    RULE_NUM(SET_SRCPORT, uiSrcPort, "srcport:%u"),
    RULE_TEXT(SET_SRCMAC, szSrcMac, "SrcMac:%s"),
    RULE_TEXT(SET_DSTIP, szDstIp, "DstIp:%s"),
    RULE_TEXT(SET_DSTMASK, szDstMask, "DstMask:%s"),
    RULE_NUM(SET_DSTPORT, uiDstPort, "DstPort:%u"),
    RULE_TEXT(SET_DSTMAC, szDstMac, "DstMac:%s"),
};

/* Quirk: the set message's "protocol" string is walked as if it held
 * attributes; the word of each goes to slot 0, overwriting the one before,
 * and the trace prints slot 1. The walk stays inside the string's value. */
void read_protocol_words(const char *func, blob_attr *text, QosClassRule *rule)
{
    bx::for_each_elem(text, [&](blob_attr *inner) {
        rule->auiProtocol[0] = static_cast<uint32_t>(bx::get_word(EnumProtocol, inner));
        BX_TRACE_AS(func, "protocol:%u\n", rule->auiProtocol[1]);
        return true;
    });
}

/* ---- List ------------------------------------------------------------------------- */

/* uiCount travels under "index". */
enum { LIST_INDEX, LIST_LIST, LIST_MAX };
constexpr blobmsg_policy kQosClassListPolicy[LIST_MAX] = {
    /* LIST_INDEX */ {"index", BLOBMSG_TYPE_INT32},
    /* LIST_LIST  */ {"list", BLOBMSG_TYPE_ARRAY},
};

enum {
    RULE_INDEX, RULE_NAME, RULE_PRIORITY, RULE_DSCP, RULE_VLAN8021P, RULE_PROTOCOL, RULE_SRCIP,
    RULE_SRCMASK, RULE_SRCPORT, RULE_SRCMAC, RULE_DSTIP, RULE_DSTMASK, RULE_DSTPORT, RULE_DSTMAC, RULE_MAX
};
constexpr blobmsg_policy kQosClassListArrayPolicy[RULE_MAX] = {
    /* RULE_INDEX     */ {"index", BLOBMSG_TYPE_INT32},
    /* RULE_NAME      */ {"name", BLOBMSG_TYPE_STRING},
    /* RULE_PRIORITY  */ {"priority", BLOBMSG_TYPE_INT32},
    /* RULE_DSCP      */ {"dscp", BLOBMSG_TYPE_INT32},
    /* RULE_VLAN8021P */ {"vlan8021p", BLOBMSG_TYPE_INT32},
    /* RULE_PROTOCOL  */ {"protocol", BLOBMSG_TYPE_ARRAY},
    /* RULE_SRCIP     */ {"srcip", BLOBMSG_TYPE_STRING},
    /* RULE_SRCMASK   */ {"srcmask", BLOBMSG_TYPE_STRING},
    /* RULE_SRCPORT   */ {"srcport", BLOBMSG_TYPE_INT32},
    /* RULE_SRCMAC    */ {"srcmac", BLOBMSG_TYPE_STRING},
    /* RULE_DSTIP     */ {"dstip", BLOBMSG_TYPE_STRING},
    /* RULE_DSTMASK   */ {"dstmask", BLOBMSG_TYPE_STRING},
    /* RULE_DSTPORT   */ {"dstport", BLOBMSG_TYPE_INT32},
    /* RULE_DSTMAC    */ {"dstmac", BLOBMSG_TYPE_STRING},
};

constexpr RuleKey kListHead[] = {
    RULE_NUM(RULE_INDEX, uiIndex, "idx:%u"),
    RULE_TEXT(RULE_NAME, szName, "name:%s"),
    RULE_NUM(RULE_PRIORITY, uiPriority, "priority:%u"),
    RULE_NUM(RULE_DSCP, uiDscp, "dscps:%u"),
    RULE_NUM(RULE_VLAN8021P, uiVlan8021p, "linktype:%u"),
};

/* Quirk: the source MAC, the destination mask and the destination MAC may
 * fill all 17 bytes (the source mask stops at 16). */
constexpr RuleKey kListTail[] = {
    RULE_TEXT(RULE_SRCIP, szSrcIp, "SrcIp:%s"),
    RULE_TEXT(RULE_SRCMASK, szSrcMask, "SrcMask:%s"),
    RULE_NUM(RULE_SRCPORT, uiSrcPort, "SrcPort:%d"),
    RULE_TEXT_WHOLE(RULE_SRCMAC, szSrcMac, "SrcMac:%s"),
    RULE_TEXT(RULE_DSTIP, szDstIp, "DstIp: %s"),
    RULE_TEXT_WHOLE(RULE_DSTMASK, szDstMask, "DstMask: %s"),
    RULE_NUM(RULE_DSTPORT, uiDstPort, "DstPort: %d"),
    RULE_TEXT_WHOLE(RULE_DSTMAC, szDstMac, "DstMac: %s"),
};

constexpr Field kListHeadOut[] = {kIndex, kName, kPriority, kDscp, kVlan8021p};

/* Every protocol element is stored, zeros included, up to the eight slots. */
void read_list_protocols(const char *func, blob_attr *array, QosClassRule *rule)
{
    int slot = 0;
    bx::for_each_elem(array, [&](blob_attr *elem) {
        if (slot >= QOS_CLASS_PROTOCOL_NUM) {
            BX_TRACE_AS(func, "Parse protocol failed\n");
            return false;
        }
        rule->auiProtocol[slot] = bx::get_u32(elem);
        ++slot;
        BX_TRACE_AS(func, "protocol[%d]: %d\n", slot, static_cast<int>(rule->auiProtocol[slot - 1]));
        return true;
    });
}

void read_list_rule(const char *func, blob_attr *elem, const char *msg_end, QosClassRule *rule)
{
    blob_attr *tb[RULE_MAX];
    bx::parse_span(kQosClassListArrayPolicy, tb, elem, msg_end);
    /* Quirk: the label is the one of the station list. */
    BX_TRACE_AS(func, "-t- blobmsg_parse: g_stStaList_Array_policy\n");
    store_keys(func, kQosClassListArrayPolicy, tb, kListHead, rule);
    if (bx::present(kQosClassListArrayPolicy, tb, RULE_PROTOCOL))
        read_list_protocols(func, tb[RULE_PROTOCOL], rule);
    store_keys(func, kQosClassListArrayPolicy, tb, kListTail, rule);
}

} // namespace

extern "C" {

/* ---- Switches (121, 122, 123) --------------------------------------------------------- */

BX_SENT_ROW(STJ_QoS, kQosSwitch, ::bx::kNoMask)
/* Hand-written (the three switches): refused unless the word is 0 or 1, and nothing is stored then. */
BX_API int JTS_QoS(struct blob_attr *pstMsg, void *pvRecord) { return jts_switch(__func__, pstMsg, pvRecord); }
BX_SENT_ROW(STJ_Dscp, kQosSwitch, ::bx::kNoMask)
BX_API int JTS_Dscp(struct blob_attr *pstMsg, void *pvRecord) { return jts_switch(__func__, pstMsg, pvRecord); }
BX_SENT_ROW(STJ_8021p, kQosSwitch, ::bx::kNoMask)
BX_API int JTS_8021p(struct blob_attr *pstMsg, void *pvRecord) { return jts_switch(__func__, pstMsg, pvRecord); }

/* ---- Add (124) --------------------------------------------------------------------------- */

/* Hand-written: the protocols go out up to the first zero. */
/* Only the MAC addresses go with a new rule; the addresses, masks and ports
 * follow with the set message. */
BX_API int STJ_Qos_Classification_Add(const void *pvRecord, struct blob_buf *pstBuf)
{
    if (pvRecord == nullptr || pstBuf == nullptr)
        return -1;
    const auto *rule = static_cast<const QosClassRule *>(pvRecord);
    bx::stj_fields(rule, pstBuf, kAddHead);
    emit_protocols_to_first_zero(pstBuf, rule);
    bx::emit_field(kSrcMac, rule, pstBuf);
    bx::emit_field(kDstMac, rule, pstBuf);
    return 0;
}

/* Hand-written: the protocols are stored up to the first zero. */
BX_API int JTS_Qos_Classification_Add(struct blob_attr *pstMsg, void *pvRecord)
{
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *rule = static_cast<QosClassRule *>(pvRecord);
    blob_attr *tb[ADD_MAX];
    bx::parse(kQosClassAddPolicy, tb, pstMsg);
    store_keys(__func__, kQosClassAddPolicy, tb, kAddKeys, rule);
    read_protocols_to_first_zero(tb[ADD_PROTOCOL], rule);
    return 0;
}

/* ---- Delete (125) ---------------------------------------------------------------------------- */

BX_SENT_ROW(STJ_Qos_Classification_Delete, kQosClassIndex, ::bx::kNoMask)

BX_RECEIVED_ROW(JTS_Qos_Classification_Delete, kQosClassIndex, ::bx::kNoMask)

/* ---- List (126) --------------------------------------------------------------------------------- */

/* Hand-written: a list of rules under a count named "index". */
BX_API int STJ_Qos_Classification_List(const void *pvRecord, struct blob_buf *pstBuf)
{
    if (pvRecord == nullptr || pstBuf == nullptr)
        return -1;
    const auto *list = static_cast<const QosClassRuleList *>(pvRecord);
    blobmsg_add_u32(pstBuf, "index", list->uiCount);
    void *array = blobmsg_open_array(pstBuf, "list");
    /* uiCount comes from the caller; the record holds no more rules. */
    uint32_t count = std::min<uint32_t>(list->uiCount, QOS_CLASS_RULE_MAX);
    for (uint32_t i = 0; i < count; ++i) {
        const QosClassRule *rule = &list->astRule[i];
        void *table = blobmsg_open_table(pstBuf, nullptr);
        bx::stj_fields(rule, pstBuf, kListHeadOut);
        emit_protocols_to_first_zero(pstBuf, rule);
        bx::stj_fields(rule, pstBuf, kAddresses);
        blob_nest_end(pstBuf, table);
    }
    blob_nest_end(pstBuf, array);
    return 0;
}

/* Hand-written: a list of rules under a count named "index", each parsed over its whole span. */
BX_API int JTS_Qos_Classification_List(struct blob_attr *pstMsg, void *pvRecord)
{
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    const char *func = __func__;
    auto *list = static_cast<QosClassRuleList *>(pvRecord);
    blob_attr *tb[LIST_MAX];
    bx::parse(kQosClassListPolicy, tb, pstMsg);
    /* Without "index" the caller's uiCount bounds the walk. */
    if (bx::present(kQosClassListPolicy, tb, LIST_INDEX)) {
        list->uiCount = bx::get_u32(tb[LIST_INDEX]);
        BX_TRACE("uiCount:%u\n", list->uiCount);
    }
    if (!bx::present(kQosClassListPolicy, tb, LIST_LIST))
        return 0;
    const char *msg_end = bx::end_of(pstMsg);
    uint32_t stored = 0;
    bx::for_each_elem(tb[LIST_LIST], [&](blob_attr *elem) {
        BX_TRACE_AS(func, "-t- blobmsg_parse: -blobmsg_for_each_attr_1\n");
        /* A list longer than uiCount is cut there; uiCount comes from the
         * message, so the record's capacity bounds the walk as well. */
        if (stored >= list->uiCount || stored >= QOS_CLASS_RULE_MAX) {
            BX_TRACE_AS(func, "blobmsg parse failed\n");
            return false;
        }
        BX_TRACE_AS(func, "-t- blobmsg_parse: -blobmsg_for_each_attr_2\n");
        read_list_rule(func, elem, msg_end, &list->astRule[stored]);
        ++stored;
        return true;
    });
    return 0;
}

/* ---- Set (127) and get (128) ------------------------------------------------------------------ */

/* Hand-written: every protocol slot goes out, named, inside an array. */
/* The full rule, without its index. Quirk: the "protocol" array holds all
 * eight slots, zeros included, and its elements carry the name
 * "protocol". */
BX_API int STJ_Qos_Classification_Get(const void *pvRecord, struct blob_buf *pstBuf)
{
    if (pvRecord == nullptr || pstBuf == nullptr)
        return -1;
    const auto *rule = static_cast<const QosClassRule *>(pvRecord);
    bx::stj_fields(rule, pstBuf, kAddHead);
    void *array = blobmsg_open_array(pstBuf, "protocol");
    for (uint32_t protocol : rule->auiProtocol)
        blobmsg_add_u32(pstBuf, "protocol", protocol);
    blob_nest_end(pstBuf, array);
    bx::stj_fields(rule, pstBuf, kAddresses);
    return 0;
}

BX_RECEIVED_ROW(JTS_Qos_Classification_Get, kQosClassIndex, ::bx::kNoMask)

/* Hand-written: sent like the rule a get returns. */
BX_API int STJ_Qos_Classification_Set(const void *pvRecord, struct blob_buf *pstBuf)
{
    return STJ_Qos_Classification_Get(pvRecord, pstBuf);
}

/* Hand-written: the protocols come as words between two groups of fields. */
BX_API int JTS_Qos_Classification_Set(struct blob_attr *pstMsg, void *pvRecord)
{
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *rule = static_cast<QosClassRule *>(pvRecord);
    blob_attr *tb[SET_MAX];
    bx::parse(kQosClassSetPolicy, tb, pstMsg);
    store_keys(__func__, kQosClassSetPolicy, tb, kSetHead, rule);
    if (bx::present(kQosClassSetPolicy, tb, SET_PROTOCOL))
        read_protocol_words(__func__, tb[SET_PROTOCOL], rule);
    store_keys(__func__, kQosClassSetPolicy, tb, kSetTail, rule);
    return 0;
}

} // extern "C"
