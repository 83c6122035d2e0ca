/* QoS classification: the QoS, DSCP and 802.1p switches, and the rules that
 * map matching traffic to a priority, a DSCP value and an 802.1p value.
 *
 * Each rule message reads the rule its own way, and the daemons on both
 * sides rely on it: the add and list messages carry the protocols as an
 * array of numbers, the set message carries "protocol" and the ports as
 * strings, and the copy bounds and trace labels differ from message to
 * message. Each message below therefore names its keys in a table of its
 * own. */
#include <cstddef>
#include <cstdint>

#include "core/codec.h"
#include "messages/walk.h"

namespace {

using bx::Field;
using bx::Link;
using bx::Read;
using bx::Reading;

/* ---- The three switches ------------------------------------------------------- */

/* Quirk: a word other than "enable" or "disable" is refused, untraced, before it is stored. */
Read read_on_or_off(const Reading &r, const Field &f, blob_attr *attr)
{
    if (attr != nullptr && static_cast<uint32_t>(bx::get_word(f.word_list, attr)) > 1)
        return {true, -1};
    return bx::read_slot(r, f, attr);
}
constexpr bx::Quirk kOnOrOff{read_on_or_off, nullptr, "a word other than \"enable\" or \"disable\" refuses the message (-1) before it is stored"};

/* "enable" is required and must be "enable" or "disable". */
constexpr bx::FieldDef kQosSwitchSource[] = {
    BX_WORD(QosSwitch, uiEnable, EnumSwitch, "enable", "status:%u", .required = true, .quirk = &kOnOrOff),
};
BX_PACKED(kQosSwitch);

/* ---- A rule's index (delete, and get from JSON) -------------------------------- */

/* A missing "index" is no failure: the record stays as it is. */
constexpr bx::FieldDef kQosClassIndexSource[] = {
    BX_U32(QosClassIndex, uiIndex, "index", "Index:%u"),
};
BX_PACKED(kQosClassIndex);

/* ---- The protocols of the add and list messages -------------------------------- */

/* "protocol" as the add and list messages send it: slot 0 always, then the
 * later slots up to the first 0. */
void send_protocols_to_first_zero(const Field &f, const Link *links, const void *record, blob_buf *buf)
{
    const auto *rule = static_cast<const QosClassRule *>(record);
    void *array = blobmsg_open_array(buf, f.key());
    blobmsg_add_u32(buf, nullptr, rule->auiProtocol[0]);
    for (size_t i = 1; i < QOS_CLASS_PROTOCOL_NUM && rule->auiProtocol[i] != 0; ++i)
        blobmsg_add_u32(buf, nullptr, rule->auiProtocol[i]);
    blob_nest_end(buf, array);
}

/* Quirk: "protocol" is read unchecked, any element as a number; a 0 after slot 0 ends it, unstored. */
Read read_protocols_to_first_zero(const Reading &r, const Field &, blob_attr *attr)
{
    auto *rule = static_cast<QosClassRule *>(r.record);
    size_t slot = 0;
    bx::walk::each(attr, [&](blob_attr *elem) {
        const uint32_t value = bx::get_u32(elem);
        if (slot > 0 && value == 0)
            return false;
        rule->auiProtocol[slot++] = value;
        return slot < QOS_CLASS_PROTOCOL_NUM;
    });
    return bx::kGoOn;
}
constexpr bx::Quirk kAddProtocols{read_protocols_to_first_zero, send_protocols_to_first_zero, "elements of any type read as numbers, untested; a 0 after the first ends them; sent up to the first 0 after the first"};

/* Quirk: every protocol element is stored, zeros and any type included; a ninth ends them, traced. */
Read read_every_protocol(const Reading &r, const Field &f, blob_attr *attr)
{
    if (!JTS_CheckBlobAttr(f.key(), attr))
        return bx::kGoOn;
    auto *rule = static_cast<QosClassRule *>(r.record);
    int slot = 0;
    bx::walk::each(attr, [&](blob_attr *elem) {
        if (slot >= QOS_CLASS_PROTOCOL_NUM) {
            BX_TRACE_AS(r.func, "Parse protocol failed\n");
            return false;
        }
        rule->auiProtocol[slot++] = bx::get_u32(elem);
        BX_TRACE_AS(r.func, "protocol[%d]: %d\n", slot, static_cast<int>(rule->auiProtocol[slot - 1]));
        return true;
    });
    return bx::kGoOn;
}
constexpr bx::Quirk kListedProtocols{read_every_protocol, send_protocols_to_first_zero, "every element stored as a number, zeros and any type included; a ninth ends them; sent up to the first 0 after the first"};

constexpr bx::FieldDef kProtocolSource[] = {BX_U32_ENTRY(nullptr)};
BX_PACKED(kProtocol);
constexpr bx::ListOf kProtocols = BX_VALUES(QosClassRule, auiProtocol, kProtocol);
#define RULE_PROTOCOLS(q, way_) BX_LIST(QosClassRule, auiProtocol, "protocol", kProtocols, nullptr, .way = way_, .quirk = &(q))

/* ---- Add (124) ------------------------------------------------------------------------ */

/* Quirk: the MAC texts may fill all 17 bytes; the next field ends them.
 * "protocol" goes out before the MAC addresses but is read after the other
 * keys. Only the MAC addresses go with a new rule; the addresses, masks
 * and ports follow with the set message. */
constexpr bx::FieldDef kAddSource[] = {
    BX_U32(QosClassRule, uiPriority, "priority", "Priority:%u"),
    BX_U32(QosClassRule, uiDscp, "dscp", "Dscp:%u"),
    BX_U32(QosClassRule, uiVlan8021p, "vlan8021p", "Valn8021p:%u"),
    BX_TEXT(QosClassRule, szName, "name", "Name:%s"),
    RULE_PROTOCOLS(kAddProtocols, bx::Way::Sent),
    BX_TEXT(QosClassRule, szSrcMac, "srcmac", "SrcName:%s", .whole = true),
    BX_TEXT(QosClassRule, szDstMac, "dstmac", "DstName:%s", .whole = true),
    RULE_PROTOCOLS(kAddProtocols, bx::Way::Received),
};
BX_PACKED(kAdd);

/* ---- Set (127) and get (128) ------------------------------------------------------------ */

/* Quirk: all eight protocol slots go out, zeros included, each element named "protocol". */
constexpr bx::FieldDef kNamedProtocolSource[] = {bx::FieldDef{.key = "protocol", .wire = bx::Wire::U32, .size = 4}};
BX_PACKED(kNamedProtocol);
constexpr bx::ListOf kNamedProtocols = BX_VALUES(QosClassRule, auiProtocol, kNamedProtocol);

/* The full rule, without its index. */
constexpr bx::FieldDef kRuleSource[] = {
    BX_U32(QosClassRule, uiPriority, "priority", nullptr),
    BX_U32(QosClassRule, uiDscp, "dscp", nullptr),
    BX_U32(QosClassRule, uiVlan8021p, "vlan8021p", nullptr),
    BX_TEXT(QosClassRule, szName, "name", nullptr),
    BX_LIST(QosClassRule, auiProtocol, "protocol", kNamedProtocols, nullptr),
    BX_TEXT(QosClassRule, szSrcIp, "srcip", nullptr),
    BX_TEXT(QosClassRule, szSrcMask, "srcmask", nullptr),
    BX_U32(QosClassRule, uiSrcPort, "srcport", nullptr),
    BX_TEXT(QosClassRule, szSrcMac, "srcmac", nullptr),
    BX_TEXT(QosClassRule, szDstIp, "dstip", nullptr),
    BX_TEXT(QosClassRule, szDstMask, "dstmask", nullptr),
    BX_U32(QosClassRule, uiDstPort, "dstport", nullptr),
    BX_TEXT(QosClassRule, szDstMac, "dstmac", nullptr),
};
BX_PACKED(kRule);

/* Quirk: the "protocol" string is walked as attributes: each word overwrites slot 0, traced as slot 1. */
Read read_protocol_words(const Reading &r, const Field &f, blob_attr *attr)
{
    if (!JTS_CheckBlobAttr(f.key(), attr))
        return bx::kGoOn;
    auto *rule = static_cast<QosClassRule *>(r.record);
    bx::walk::each(attr, [&](blob_attr *inner) {
        rule->auiProtocol[0] = static_cast<uint32_t>(bx::get_word(f.word_list, inner));
        BX_TRACE_AS(r.func, "protocol:%u\n", rule->auiProtocol[1]);
        return true;
    });
    return bx::kGoOn;
}
constexpr bx::Quirk kProtocolWords{read_protocol_words, nullptr, "a STRING of words walked as attributes: each word overwrites slot 0"};

/* Quirk: the ports arrive as strings read as numbers: the text's first four bytes, big-endian. */
Read read_port_text(const Reading &r, const Field &f, blob_attr *attr)
{
    return bx::read_slot_as(r, f, bx::Wire::U32, attr);
}
constexpr bx::Quirk kPortText{read_port_text, nullptr, "a STRING whose first four bytes are read as a big-endian number"};
#define SET_PORT(m, key_, trace_)                                                                     \
    bx::FieldDef{.key = key_, .wire = bx::Wire::Text, .offset = BX_FIELD_AT(QosClassRule, m), .size = 4, \
                 .trace = trace_, .shape = bx::trace_shape(trace_), .quirk = &kPortText}

/* The set message alone sends "protocol" and the ports as strings. Quirk:
 * the MAC texts are cut at 16 characters like the addresses. */
constexpr bx::FieldDef kSetReceivedSource[] = {
    BX_U32(QosClassRule, uiPriority, "priority", "Priority:%u"),
    BX_U32(QosClassRule, uiDscp, "dscp", "Dscp:%u"),
    BX_U32(QosClassRule, uiVlan8021p, "vlan8021p", "Vlan8021p:%u"),
    BX_TEXT(QosClassRule, szName, "name", "Name:%s"),
    BX_WORD(QosClassRule, auiProtocol[0], EnumProtocol, "protocol", nullptr, .quirk = &kProtocolWords),
    BX_TEXT(QosClassRule, szSrcIp, "srcip", "SrcIp:%s"),
    BX_TEXT(QosClassRule, szSrcMask, "srcmask", "SrcMask:%s"),
    SET_PORT(uiSrcPort, "srcport", "srcport:%u"),
    BX_TEXT(QosClassRule, szSrcMac, "srcmac", "SrcMac:%s"),
    BX_TEXT(QosClassRule, szDstIp, "dstip", "DstIp:%s"),
    BX_TEXT(QosClassRule, szDstMask, "dstmask", "DstMask:%s"),
    SET_PORT(uiDstPort, "dstport", "DstPort:%u"),
    BX_TEXT(QosClassRule, szDstMac, "dstmac", "DstMac:%s"),
};
BX_PACKED(kSetReceived);

/* ---- List (126) ------------------------------------------------------------------------- */

/* A listed rule, index first. Quirk: the source MAC, the destination mask
 * and the destination MAC may fill all 17 bytes (the source mask stops at
 * 16). */
constexpr bx::FieldDef kListedRuleSource[] = {
    BX_U32(QosClassRule, uiIndex, "index", "idx:%u"),
    BX_TEXT(QosClassRule, szName, "name", "name:%s"),
    BX_U32(QosClassRule, uiPriority, "priority", "priority:%u"),
    BX_U32(QosClassRule, uiDscp, "dscp", "dscps:%u"),
    BX_U32(QosClassRule, uiVlan8021p, "vlan8021p", "linktype:%u"),
    RULE_PROTOCOLS(kListedProtocols, bx::Way::Both),
    BX_TEXT(QosClassRule, szSrcIp, "srcip", "SrcIp:%s"),
    BX_TEXT(QosClassRule, szSrcMask, "srcmask", "SrcMask:%s"),
    BX_U32(QosClassRule, uiSrcPort, "srcport", "SrcPort:%d"),
    BX_TEXT(QosClassRule, szSrcMac, "srcmac", "SrcMac:%s", .whole = true),
    BX_TEXT(QosClassRule, szDstIp, "dstip", "DstIp: %s"),
    BX_TEXT(QosClassRule, szDstMask, "dstmask", "DstMask: %s", .whole = true),
    BX_U32(QosClassRule, uiDstPort, "dstport", "DstPort: %d"),
    BX_TEXT(QosClassRule, szDstMac, "dstmac", "DstMac: %s", .whole = true),
};
BX_PACKED(kListedRule);

/* Quirk: every element is taken for a rule whatever its type, parsed over
 * its whole span, and the walk traces its progress around the test of
 * uiCount (labels kept from the station list). A list longer than uiCount
 * is cut there; uiCount comes from the message, so the record's capacity
 * bounds the walk as well. */
Read read_rules(const Reading &r, const Field &f, blob_attr *attr)
{
    if (!JTS_CheckBlobAttr(f.key(), attr))
        return bx::kGoOn;
    const bx::ListOf &l = *r.list(f);
    auto *list = static_cast<QosClassRuleList *>(r.record);
    uint32_t stored = 0;
    bx::walk::each(attr, [&](blob_attr *elem) {
        BX_TRACE_AS(r.func, "-t- blobmsg_parse: -blobmsg_for_each_attr_1\n");
        if (stored >= bx::at_most(list->uiCount, l.capacity)) {
            BX_TRACE_AS(r.func, "blobmsg parse failed\n");
            return false;
        }
        BX_TRACE_AS(r.func, "-t- blobmsg_parse: -blobmsg_for_each_attr_2\n");
        blob_attr *tb[bx::kMaxEntryFields];
        bx::parse_span(l, tb, elem, r.msg_end);
        BX_TRACE_AS(r.func, "-t- blobmsg_parse: g_stStaList_Array_policy\n");
        bx::read_fields(Reading{r.func, &list->astRule[stored++], nullptr, r.msg_end, tb, l.entry_links}, l.entry(), l.fields);
        return true;
    });
    return bx::kGoOn;
}
constexpr bx::Quirk kRules{read_rules, nullptr, "elements of any type read as rules, parsed over their whole span; bounded by \"count\" (as stored) and the array"};

/* uiCount travels under "index"; without it the caller's uiCount bounds the
 * received list. */
constexpr bx::ListOf kListedRules =
    BX_TABLES(QosClassRuleList, astRule, kListedRule, .count_at = offsetof(QosClassRuleList, uiCount));
constexpr bx::FieldDef kRuleListSource[] = {
    BX_U32(QosClassRuleList, uiCount, "index", "uiCount:%u"),
    BX_LIST(QosClassRuleList, astRule, "list", kListedRules, nullptr, .quirk = &kRules),
};
BX_PACKED(kRuleList);

} // namespace

extern "C" {

BX_CONVERTERS(STJ_QoS, JTS_QoS, kQosSwitch)
BX_CONVERTERS(STJ_Dscp, JTS_Dscp, kQosSwitch)
BX_CONVERTERS(STJ_8021p, JTS_8021p, kQosSwitch)
BX_CONVERTERS(STJ_Qos_Classification_Add, JTS_Qos_Classification_Add, kAdd)
BX_CONVERTERS(STJ_Qos_Classification_Delete, JTS_Qos_Classification_Delete, kQosClassIndex)
BX_CONVERTERS(STJ_Qos_Classification_List, JTS_Qos_Classification_List, kRuleList)
BX_SENT_ROW(STJ_Qos_Classification_Set, kRule, ::bx::kNoMask)
BX_RECEIVED_ROW(JTS_Qos_Classification_Set, kSetReceived, ::bx::kNoMask)
BX_SENT_ROW(STJ_Qos_Classification_Get, kRule, ::bx::kNoMask)
BX_RECEIVED_ROW(JTS_Qos_Classification_Get, kQosClassIndex, ::bx::kNoMask)

} // extern "C"
