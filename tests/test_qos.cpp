// QoS switches and classification rules.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <arpa/inet.h>
#include <cstring>
#include <string>
#include <vector>

#include "support.h"

using bxtest::Msg;
using bxtest::TraceCapture;
using testing::ElementsAre;

namespace {

std::string repeat(char c, size_t n) { return std::string(n, c); }

// A JSON array of the numbers first, first+1, ... (count of them).
std::string numbers(unsigned first, unsigned count)
{
    std::string out = "[";
    for (unsigned i = 0; i < count; ++i)
        out += (i ? "," : "") + std::to_string(first + i);
    return out + "]";
}

// A list record followed by a guard that no converter may touch.
struct GuardedRuleList {
    QosClassRuleList list;
    unsigned char guard[512];
};

GuardedRuleList *new_guarded_list()
{
    auto *g = new GuardedRuleList;
    std::memset(g, 0, sizeof *g);
    std::memset(g->guard, 0xA5, sizeof g->guard);
    return g;
}

bool guard_intact(const GuardedRuleList &g)
{
    for (unsigned char b : g.guard)
        if (b != 0xA5)
            return false;
    return true;
}

// ---- The three switches ------------------------------------------------------

struct SwitchType {
    int type;
    const char *jts;
    int (*to_struct)(blob_attr *, void *);
};

const SwitchType kSwitches[] = {
    {MSG_QOS, "JTS_QoS", JTS_QoS},
    {MSG_DSCP, "JTS_Dscp", JTS_Dscp},
    {MSG_8021P, "JTS_8021p", JTS_8021p},
};

TEST(QosSwitch, EnableTravelsAsAWord)
{
    for (const SwitchType &s : kSwitches) {
        SCOPED_TRACE(s.type);
        QosSwitch rec{1};
        int ret = -2;
        EXPECT_EQ(bxtest::stj_typed(s.type, &rec, &ret), R"(enable=s"enable")");
        EXPECT_EQ(ret, 0);
        rec.uiEnable = 0;
        EXPECT_EQ(bxtest::stj_typed(s.type, &rec), R"(enable=s"disable")");
        rec.uiEnable = 7;  // no word for it
        EXPECT_EQ(bxtest::stj_typed(s.type, &rec), R"(enable=s"")");
    }
}

TEST(QosSwitch, OnlyEnableOrDisableIsTaken)
{
    BX_REQUIRE_TRACE_CAPTURE();
    struct Case {
        const char *json;
        int ret;
        uint32_t stored;
        std::vector<std::string> trace;  // {} means: fill in the converter's status line
    };
    for (const SwitchType &s : kSwitches) {
        SCOPED_TRACE(s.jts);
        const std::string status1 = std::string(s.jts) + ": status:1\n";
        const std::string status0 = std::string(s.jts) + ": status:0\n";
        const Case cases[] = {
            {R"({"enable": "enable"})", 0, 1, {status1}},
            {R"({"enable": "disable"})", 0, 0, {status0}},
            {R"({"enable": "on"})", -1, 42, {}},
            {R"({"enable": "Enable"})", -1, 42, {}},
            {R"({"enable": 1})", -1, 42, {"JTS_CheckBlobAttr: Illegal parameter: enable\n"}},
            {R"({})", -1, 42, {"JTS_CheckBlobAttr: Illegal parameter: enable\n"}},
        };
        for (const Case &c : cases) {
            SCOPED_TRACE(c.json);
            QosSwitch rec{42};
            Msg msg(c.json);
            TraceCapture cap;
            EXPECT_EQ(s.to_struct(msg, &rec), c.ret);
            EXPECT_EQ(rec.uiEnable, c.stored);
            EXPECT_EQ(cap.take(), c.trace);
        }
    }
}

// ---- Add ---------------------------------------------------------------------------

QosClassRule full_rule()
{
    QosClassRule r{};
    r.uiIndex = 9;
    std::strcpy(r.szName, "voip");
    r.uiPriority = 3;
    r.uiDscp = 46;
    r.uiVlan8021p = 5;
    r.auiProtocol[0] = 6;
    r.auiProtocol[1] = 17;
    std::strcpy(r.szSrcIp, "192.168.1.10");
    std::strcpy(r.szSrcMask, "255.255.255.0");
    r.uiSrcPort = 5060;
    std::strcpy(r.szSrcMac, "AA:BB:CC:DD:EE:01");
    std::strcpy(r.szDstIp, "10.0.0.1");
    std::strcpy(r.szDstMask, "255.0.0.0");
    r.uiDstPort = 5061;
    std::strcpy(r.szDstMac, "AA:BB:CC:DD:EE:02");
    return r;
}

TEST(QosAdd, SendsHeadProtocolsAndMacsOnly)
{
    QosClassRule r = full_rule();
    int ret = -2;
    EXPECT_EQ(bxtest::stj_typed(MSG_QOS_CLASSIFICATION_ADD, &r, &ret),
              R"(priority=i32:3 dscp=i32:46 vlan8021p=i32:5 name=s"voip" protocol=[i32:6 i32:17] )"
              R"(srcmac=s"AA:BB:CC:DD:EE:01" dstmac=s"AA:BB:CC:DD:EE:02")");
    EXPECT_EQ(ret, 0);
}

TEST(QosAdd, ProtocolsSendSlotZeroThenStopAtFirstZero)
{
    struct Case {
        std::vector<uint32_t> slots;
        const char *sent;
    };
    const Case cases[] = {
        {{0, 6, 0, 17}, "[i32:0 i32:6]"},
        {{6, 0, 17}, "[i32:6]"},
        {{}, "[i32:0]"},
        {{1, 2, 3, 4, 5, 6, 7, 8}, "[i32:1 i32:2 i32:3 i32:4 i32:5 i32:6 i32:7 i32:8]"},
    };
    for (const Case &c : cases) {
        QosClassRule r{};
        std::copy(c.slots.begin(), c.slots.end(), r.auiProtocol);
        std::string typed = bxtest::stj_typed(MSG_QOS_CLASSIFICATION_ADD, &r);
        EXPECT_THAT(typed, testing::HasSubstr(std::string(" protocol=") + c.sent + " srcmac=")) << c.sent;
    }
}

TEST(QosAdd, ReadsKeysThenProtocolsWithTheirOwnLabels)
{
    BX_REQUIRE_TRACE_CAPTURE();
    QosClassRule r{};
    Msg msg(R"({"protocol": [6, 17], "priority": 3, "dscp": 46, "vlan8021p": 5, "name": "voip",
               "srcmac": "AA:BB:CC:DD:EE:01", "dstmac": "AA:BB:CC:DD:EE:02", "srcip": "1.2.3.4"})");
    TraceCapture cap;
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_QOS_CLASSIFICATION_ADD, msg, &r), 0);
    auto lines = cap.take();
    ASSERT_EQ(lines.size(), 8u);
    EXPECT_EQ(lines[1], "JSON_TRANS_STRUCT: Json To Struct: [Qos_Classification] \n\n");
    EXPECT_THAT(std::vector<std::string>(lines.begin() + 2, lines.end()),
                ElementsAre("JTS_Qos_Classification_Add: Priority:3\n", "JTS_Qos_Classification_Add: Dscp:46\n",
                            "JTS_Qos_Classification_Add: Valn8021p:5\n", "JTS_Qos_Classification_Add: Name:voip\n",
                            "JTS_Qos_Classification_Add: SrcName:AA:BB:CC:DD:EE:01\n",
                            "JTS_Qos_Classification_Add: DstName:AA:BB:CC:DD:EE:02\n"));
    EXPECT_EQ(r.uiPriority, 3u);
    EXPECT_EQ(r.uiDscp, 46u);
    EXPECT_EQ(r.uiVlan8021p, 5u);
    EXPECT_STREQ(r.szName, "voip");
    EXPECT_THAT(r.auiProtocol, ElementsAre(6u, 17u, 0u, 0u, 0u, 0u, 0u, 0u));
    // The full MAC text fills all 17 bytes; the next field ends it.
    EXPECT_EQ(std::string(r.szSrcMac, sizeof r.szSrcMac), "AA:BB:CC:DD:EE:01");
    EXPECT_EQ(std::string(r.szDstMac, sizeof r.szDstMac), "AA:BB:CC:DD:EE:02");
    EXPECT_STREQ(r.szSrcIp, "");  // not a key of this message
}

TEST(QosAdd, ProtocolWalkStopsAtZeroAfterSlotZeroAndAtEight)
{
    BX_REQUIRE_TRACE_CAPTURE();
    struct Case {
        std::string protocol;
        std::vector<uint32_t> stored;
    };
    const Case cases[] = {
        {"[0, 17]", {0, 17, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE}},
        {"[6, 0, 17]", {6, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE}},
        {numbers(1, 10), {1, 2, 3, 4, 5, 6, 7, 8}},
        {"[\"x\", 5]", {0x78000000, 5, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE}},  // elements read as numbers whatever they are
        {"[]", {0xEE, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE}},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.protocol);
        QosClassRule r{};
        std::fill(std::begin(r.auiProtocol), std::end(r.auiProtocol), 0xEEu);
        Msg msg(("{\"protocol\": " + c.protocol + "}").c_str());
        TraceCapture cap;
        EXPECT_EQ(JTS_Qos_Classification_Add(msg, &r), 0);
        EXPECT_THAT(r.auiProtocol, testing::ElementsAreArray(c.stored));
        // Absent keys are traced, the protocols are not.
        for (const std::string &line : cap.take())
            EXPECT_THAT(line, testing::StartsWith("JTS_CheckBlobAttr: Illegal parameter: "));
    }
    // Without "protocol" nothing says it is missing.
    QosClassRule r{};
    Msg msg(R"({"priority": 1, "dscp": 2, "vlan8021p": 3, "name": "n", "srcmac": "a", "dstmac": "b"})");
    TraceCapture cap;
    EXPECT_EQ(JTS_Qos_Classification_Add(msg, &r), 0);
    for (const std::string &line : cap.take())
        EXPECT_THAT(line, testing::Not(testing::HasSubstr("Illegal parameter")));
}

// ---- Delete and get by index --------------------------------------------------------

TEST(QosIndex, DeleteAndGetTakeAnOptionalIndex)
{
    BX_REQUIRE_TRACE_CAPTURE();
    struct Conv {
        int type;
        const char *name;
    };
    for (const Conv &c : {Conv{MSG_QOS_CLASSIFICATION_DELETE, "JTS_Qos_Classification_Delete"},
                          Conv{MSG_QOS_CLASSIFICATION_GET, "JTS_Qos_Classification_Get"}}) {
        SCOPED_TRACE(c.name);
        QosClassIndex rec{42};
        Msg empty("{}");
        TraceCapture cap;
        EXPECT_EQ(JSON_TRANS_STRUCT(c.type, empty, &rec), 0);
        EXPECT_EQ(rec.uiIndex, 42u);
        auto lines = cap.take();
        EXPECT_EQ(lines.back(), "JTS_CheckBlobAttr: Illegal parameter: index\n");

        Msg wrong(R"({"index": "3"})");
        EXPECT_EQ(JSON_TRANS_STRUCT(c.type, wrong, &rec), 0);
        EXPECT_EQ(rec.uiIndex, 42u);

        Msg msg(R"({"index": 3})");
        cap.take();
        EXPECT_EQ(JSON_TRANS_STRUCT(c.type, msg, &rec), 0);
        EXPECT_EQ(rec.uiIndex, 3u);
        EXPECT_EQ(cap.take().back(), std::string(c.name) + ": Index:3\n");
    }
    QosClassIndex idx{7};
    EXPECT_EQ(bxtest::stj_typed(MSG_QOS_CLASSIFICATION_DELETE, &idx), "index=i32:7");
}

// ---- Get and set to JSON ---------------------------------------------------------------

TEST(QosGet, SendsTheWholeRuleWithEightNamedProtocols)
{
    QosClassRule r = full_rule();
    const std::string expected =
        R"(priority=i32:3 dscp=i32:46 vlan8021p=i32:5 name=s"voip" )"
        R"(protocol=[i32:6 i32:17 i32:0 i32:0 i32:0 i32:0 i32:0 i32:0] )"
        R"(srcip=s"192.168.1.10" srcmask=s"255.255.255.0" srcport=i32:5060 srcmac=s"AA:BB:CC:DD:EE:01" )"
        R"(dstip=s"10.0.0.1" dstmask=s"255.0.0.0" dstport=i32:5061 dstmac=s"AA:BB:CC:DD:EE:02")";
    for (int type : {MSG_QOS_CLASSIFICATION_GET, MSG_QOS_CLASSIFICATION_SET}) {
        SCOPED_TRACE(type);
        bxtest::Buf buf;
        EXPECT_EQ(STRUCT_TRANS_JSON(type, &r, buf.get()), 0);
        EXPECT_EQ(buf.typed(), expected);
        // The array's elements carry the name "protocol".
        blob_attr *cur;
        size_t rem;
        std::vector<std::string> names;
        blob_for_each_attr(cur, buf.head(), rem) {
            if (std::strcmp(blobmsg_name(cur), "protocol") != 0)
                continue;
            blob_attr *elem;
            size_t erem;
            blobmsg_for_each_attr(elem, cur, erem) names.push_back(blobmsg_name(elem));
        }
        EXPECT_EQ(names, std::vector<std::string>(8, "protocol"));
    }
}

TEST(QosGet, TextsThatFillTheirArrayAreSentWithoutReadingPast)
{
    QosClassRule r{};
    std::memset(r.szSrcMac, 'M', sizeof r.szSrcMac);
    std::memset(r.szDstIp, 'I', sizeof r.szDstIp);
    std::string typed = bxtest::stj_typed(MSG_QOS_CLASSIFICATION_GET, &r);
    EXPECT_THAT(typed, testing::HasSubstr("srcmac=s\"" + repeat('M', 17) + "\" dstip=s\"" + repeat('I', 17) + "\""));
}

// ---- Set from JSON ---------------------------------------------------------------------

TEST(QosSet, ReadsPortsFromStringsAndCutsTextsAtSixteen)
{
    BX_REQUIRE_TRACE_CAPTURE();
    QosClassRule r{};
    Msg msg(R"({"priority": 3, "dscp": 46, "vlan8021p": 5, "name": "voip", "srcip": "192.168.100.100x",
               "srcmask": "255.255.255.0", "srcport": "80", "srcmac": "AA:BB:CC:DD:EE:01",
               "dstip": "10.0.0.1", "dstmask": "255.0.0.0", "dstport": "ABCDEF", "dstmac": "AA:BB:CC:DD:EE:02"})");
    TraceCapture cap;
    EXPECT_EQ(JTS_Qos_Classification_Set(msg, &r), 0);
    EXPECT_EQ(r.uiPriority, 3u);
    EXPECT_EQ(r.uiDscp, 46u);
    EXPECT_EQ(r.uiVlan8021p, 5u);
    EXPECT_STREQ(r.szName, "voip");
    EXPECT_STREQ(r.szSrcIp, "192.168.100.100x");
    // The first four bytes of the text, big-endian: "80\0" and a zero.
    EXPECT_EQ(r.uiSrcPort, 0x38300000u);
    EXPECT_EQ(r.uiDstPort, 0x41424344u);
    EXPECT_STREQ(r.szSrcMac, "AA:BB:CC:DD:EE:0");
    EXPECT_STREQ(r.szDstMac, "AA:BB:CC:DD:EE:0");
    EXPECT_THAT(cap.take_texts(),
                ElementsAre("Priority:3\n", "Dscp:46\n", "Vlan8021p:5\n", "Name:voip\n",
                            "Illegal parameter: protocol\n", "SrcIp:192.168.100.100x\n", "SrcMask:255.255.255.0\n",
                            "srcport:942669824\n", "SrcMac:AA:BB:CC:DD:EE:0\n", "DstIp:10.0.0.1\n",
                            "DstMask:255.0.0.0\n", "DstPort:1094861636\n", "DstMac:AA:BB:CC:DD:EE:0\n"));
}

TEST(QosSet, NumbersWhereStringsAreExpectedCountAsAbsent)
{
    BX_REQUIRE_TRACE_CAPTURE();
    QosClassRule r{};
    r.uiSrcPort = 11;
    r.uiDstPort = 12;
    r.auiProtocol[0] = 13;
    Msg msg(R"({"srcport": 80, "dstport": 443, "protocol": [1]})");
    TraceCapture cap;
    EXPECT_EQ(JTS_Qos_Classification_Set(msg, &r), 0);
    EXPECT_EQ(r.uiSrcPort, 11u);
    EXPECT_EQ(r.uiDstPort, 12u);
    EXPECT_EQ(r.auiProtocol[0], 13u);
    auto texts = cap.take_texts();
    EXPECT_THAT(texts, testing::Contains("Illegal parameter: srcport\n"));
    EXPECT_THAT(texts, testing::Contains("Illegal parameter: dstport\n"));
    EXPECT_THAT(texts, testing::Contains("Illegal parameter: protocol\n"));
}

TEST(QosSet, ProtocolStringIsWalkedAsAttributes)
{
    BX_REQUIRE_TRACE_CAPTURE();
    // A plain word holds no attribute: nothing is stored.
    {
        QosClassRule r{};
        r.auiProtocol[0] = 13;
        Msg msg(R"({"protocol": "tcp"})");
        TraceCapture cap;
        EXPECT_EQ(JTS_Qos_Classification_Set(msg, &r), 0);
        EXPECT_EQ(r.auiProtocol[0], 13u);
        EXPECT_THAT(cap.take_texts(), testing::Not(testing::Contains(testing::StartsWith("protocol:"))));
    }
    // A string whose bytes are attributes: each word lands in slot 0, and
    // the trace prints slot 1.
    bxtest::Buf inner;
    blobmsg_add_string(inner.get(), nullptr, "tcp");
    blobmsg_add_string(inner.get(), nullptr, "udp");
    blobmsg_add_string(inner.get(), nullptr, "gre");
    bxtest::Buf outer;
    blobmsg_add_field(outer.get(), BLOBMSG_TYPE_STRING, "protocol", blob_data(inner.head()), blob_len(inner.head()));
    QosClassRule r{};
    r.auiProtocol[1] = 9;
    TraceCapture cap;
    EXPECT_EQ(JTS_Qos_Classification_Set(outer.head(), &r), 0);
    EXPECT_EQ(r.auiProtocol[0], 4u);  // "gre" is no known protocol
    EXPECT_EQ(r.auiProtocol[1], 9u);
    std::vector<std::string> protocol_lines;
    for (const std::string &line : cap.take())
        if (line.find("protocol:") != std::string::npos)
            protocol_lines.push_back(line);
    EXPECT_THAT(protocol_lines, ElementsAre("JTS_Qos_Classification_Set: protocol:9\n",
                                            "JTS_Qos_Classification_Set: protocol:9\n",
                                            "JTS_Qos_Classification_Set: protocol:9\n"));
}

// ---- List --------------------------------------------------------------------------------

TEST(QosList, SendsCountUnderIndexAndEachRule)
{
    auto *g = new_guarded_list();
    g->list.uiCount = 2;
    g->list.astRule[0] = full_rule();
    g->list.astRule[1].uiIndex = 2;
    g->list.astRule[1].auiProtocol[1] = 17;  // slot 0 is 0: still sent, and ends nothing
    g->list.astRule[1].auiProtocol[3] = 6;
    g->list.astRule[2].uiIndex = 3;  // beyond the count
    EXPECT_EQ(bxtest::stj_typed(MSG_QOS_CLASSIFICATION_LIST, &g->list),
              R"(index=i32:2 list=[{index=i32:9 name=s"voip" priority=i32:3 dscp=i32:46 vlan8021p=i32:5 )"
              R"(protocol=[i32:6 i32:17] srcip=s"192.168.1.10" srcmask=s"255.255.255.0" srcport=i32:5060 )"
              R"(srcmac=s"AA:BB:CC:DD:EE:01" dstip=s"10.0.0.1" dstmask=s"255.0.0.0" dstport=i32:5061 )"
              R"(dstmac=s"AA:BB:CC:DD:EE:02"} {index=i32:2 name=s"" priority=i32:0 dscp=i32:0 vlan8021p=i32:0 )"
              R"(protocol=[i32:0 i32:17] srcip=s"" srcmask=s"" srcport=i32:0 srcmac=s"" dstip=s"" dstmask=s"" )"
              R"(dstport=i32:0 dstmac=s""}])");
    g->list.uiCount = 0;
    EXPECT_EQ(bxtest::stj_typed(MSG_QOS_CLASSIFICATION_LIST, &g->list), "index=i32:0 list=[]");
    delete g;
}

TEST(QosList, SendingNeverReadsPastTheRecordsRules)
{
    auto *g = new_guarded_list();
    g->list.uiCount = 1000;
    bxtest::Buf buf;
    EXPECT_EQ(STRUCT_TRANS_JSON(MSG_QOS_CLASSIFICATION_LIST, &g->list, buf.get()), 0);
    std::string typed = buf.typed();
    EXPECT_THAT(typed, testing::StartsWith("index=i32:1000 list=[{"));
    size_t tables = 0;
    for (size_t at = typed.find("{index="); at != std::string::npos; at = typed.find("{index=", at + 1))
        ++tables;
    EXPECT_EQ(tables, static_cast<size_t>(QOS_CLASS_RULE_MAX));
    delete g;
}

TEST(QosList, ReadsOneRuleWithItsLabelsAndBounds)
{
    BX_REQUIRE_TRACE_CAPTURE();
    auto *g = new_guarded_list();
    const std::string mac17 = "AA:BB:CC:DD:EE:01";
    const std::string text17 = repeat('x', 17);
    Msg msg(("{\"index\": 1, \"list\": [{\"index\": 4, \"name\": \"" + repeat('n', 40) +
             "\", \"priority\": 3, \"dscp\": 46, \"vlan8021p\": 5, \"protocol\": [6, 0], "
             "\"srcip\": \"" + text17 + "\", \"srcmask\": \"" + text17 + "\", \"srcport\": 80, "
             "\"srcmac\": \"" + mac17 + "\", \"dstip\": \"" + text17 + "\", \"dstmask\": \"" + text17 +
             "\", \"dstport\": -1, \"dstmac\": \"" + mac17 + "\"}]}").c_str());
    TraceCapture cap;
    EXPECT_EQ(JTS_Qos_Classification_List(msg, &g->list), 0);
    const QosClassRule &r = g->list.astRule[0];
    EXPECT_EQ(g->list.uiCount, 1u);
    EXPECT_EQ(r.uiIndex, 4u);
    EXPECT_EQ(std::string(r.szName), repeat('n', 32));
    EXPECT_THAT(r.auiProtocol, ElementsAre(6u, 0u, 0u, 0u, 0u, 0u, 0u, 0u));
    // Source address and mask and the destination address stop at 16; the
    // source MAC and the destination mask and MAC take all 17 bytes.
    EXPECT_EQ(std::string(r.szSrcIp), repeat('x', 16));
    EXPECT_EQ(std::string(r.szSrcMask), repeat('x', 16));
    EXPECT_EQ(std::string(r.szSrcMac, 17), mac17);
    EXPECT_EQ(std::string(r.szDstIp), repeat('x', 16));
    EXPECT_EQ(std::string(r.szDstMask, 17), text17);
    EXPECT_EQ(std::string(r.szDstMac, 17), mac17);
    EXPECT_EQ(r.uiSrcPort, 80u);
    EXPECT_EQ(r.uiDstPort, 0xFFFFFFFFu);
    EXPECT_THAT(cap.take_texts(),
                ElementsAre("uiCount:1\n", "-t- blobmsg_parse: -blobmsg_for_each_attr_1\n",
                            "-t- blobmsg_parse: -blobmsg_for_each_attr_2\n",
                            "-t- blobmsg_parse: g_stStaList_Array_policy\n", "idx:4\n", "name:" + repeat('n', 32) + "\n",
                            "priority:3\n", "dscps:46\n", "linktype:5\n", "protocol[1]: 6\n", "protocol[2]: 0\n",
                            "SrcIp:" + repeat('x', 16) + "\n", "SrcMask:" + repeat('x', 16) + "\n", "SrcPort:80\n",
                            "SrcMac:" + mac17 + "\n", "DstIp: " + repeat('x', 16) + "\n", "DstMask: " + text17 + "\n",
                            "DstPort: -1\n", "DstMac: " + mac17 + "\n"));
    EXPECT_TRUE(guard_intact(*g));
    delete g;
}

TEST(QosList, TheCountBoundsTheWalk)
{
    BX_REQUIRE_TRACE_CAPTURE();
    struct Case {
        const char *what;
        std::string json;
        uint32_t count_before;
        uint32_t count_after;
        unsigned filled;
        bool cut;  // "blobmsg parse failed" written
    };
    const std::string three = R"([{"index": 1}, {"index": 2}, {"index": 3}])";
    const Case cases[] = {
        {"index below the list", R"({"index": 2, "list": )" + three + "}", 0, 2, 2, true},
        {"index equal to the list", R"({"index": 3, "list": )" + three + "}", 0, 3, 3, false},
        {"no index, zeroed record", R"({"list": )" + three + "}", 0, 0, 0, true},
        {"no index, caller's count", R"({"list": )" + three + "}", 1, 1, 1, true},
        {"no list", R"({"index": 3})", 0, 3, 0, false},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        auto *g = new_guarded_list();
        g->list.uiCount = c.count_before;
        Msg msg(c.json.c_str());
        TraceCapture cap;
        EXPECT_EQ(JTS_Qos_Classification_List(msg, &g->list), 0);
        EXPECT_EQ(g->list.uiCount, c.count_after);
        for (unsigned i = 0; i < 4; ++i)
            EXPECT_EQ(g->list.astRule[i].uiIndex, i < c.filled ? i + 1 : 0u) << i;
        auto texts = cap.take_texts();
        EXPECT_EQ(std::count(texts.begin(), texts.end(), "blobmsg parse failed\n"), c.cut ? 1 : 0);
        delete g;
    }
}

TEST(QosList, ProtocolWalkKeepsEightAndTheRestOfTheRule)
{
    BX_REQUIRE_TRACE_CAPTURE();
    auto *g = new_guarded_list();
    Msg msg(("{\"index\": 1, \"list\": [{\"protocol\": " + numbers(1, 9) + ", \"srcip\": \"1.2.3.4\"}]}").c_str());
    TraceCapture cap;
    EXPECT_EQ(JTS_Qos_Classification_List(msg, &g->list), 0);
    EXPECT_THAT(g->list.astRule[0].auiProtocol, ElementsAre(1u, 2u, 3u, 4u, 5u, 6u, 7u, 8u));
    EXPECT_STREQ(g->list.astRule[0].szSrcIp, "1.2.3.4");
    auto texts = cap.take_texts();
    auto failed = std::find(texts.begin(), texts.end(), "Parse protocol failed\n");
    ASSERT_NE(failed, texts.end());
    EXPECT_EQ(failed[-1], "protocol[8]: 8\n");
    EXPECT_TRUE(std::find(failed, texts.end(), "SrcIp:1.2.3.4\n") != texts.end());
    delete g;
}

TEST(QosList, TheRecordsCapacityBoundsALongList)
{
    auto *g = new_guarded_list();
    std::string json = R"({"index": 1000, "list": [)";
    for (int i = 1; i <= QOS_CLASS_RULE_MAX + 5; ++i)
        json += (i > 1 ? "," : "") + ("{\"index\": " + std::to_string(i) + ", \"name\": \"" + repeat('n', 40) + "\"}");
    json += "]}";
    Msg msg(json.c_str());
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_QOS_CLASSIFICATION_LIST, msg, &g->list), 0);
    EXPECT_EQ(g->list.uiCount, 1000u);
    EXPECT_EQ(g->list.astRule[QOS_CLASS_RULE_MAX - 1].uiIndex, static_cast<uint32_t>(QOS_CLASS_RULE_MAX));
    EXPECT_TRUE(guard_intact(*g));
    delete g;
}

// A rule is parsed over its whole payload length, so a list element with a
// long name sees the member that follows it as one of its own.
TEST(QosList, RuleParseReachesAsFarAsTheNameHeaderPastTheElement)
{
    bxtest::Buf buf;
    blobmsg_add_u32(buf.get(), "index", 1);
    void *list = blobmsg_open_array(buf.get(), "list");
    void *rule = blobmsg_open_table(buf.get(), "twelve-chars");  // name header of 16 bytes
    blobmsg_add_string(buf.get(), "name", "a");
    blob_nest_end(buf.get(), rule);
    blobmsg_add_u32(buf.get(), "dscp", 46);  // 16 bytes: inside the span
    blob_nest_end(buf.get(), list);
    auto *g = new_guarded_list();
    EXPECT_EQ(JTS_Qos_Classification_List(buf.head(), &g->list), 0);
    EXPECT_STREQ(g->list.astRule[0].szName, "a");
    EXPECT_EQ(g->list.astRule[0].uiDscp, 46u);
    delete g;
}

// The last rule of a message that ends with the list: the span past it is
// cut at the message's end (the sanitizer build sees any read beyond).
TEST(QosList, RuleParseNeverLeavesTheMessage)
{
    bxtest::Buf buf;
    blobmsg_add_u32(buf.get(), "index", 2);
    void *list = blobmsg_open_array(buf.get(), "list");
    void *rule = blobmsg_open_table(buf.get(), nullptr);
    blobmsg_add_u32(buf.get(), "dscp", 1);
    blob_nest_end(buf.get(), rule);
    rule = blobmsg_open_table(buf.get(), "a-long-name-for-an-element");
    blobmsg_add_u32(buf.get(), "dscp", 2);
    blob_nest_end(buf.get(), rule);
    blob_nest_end(buf.get(), list);
    // The message alone, in memory of exactly its size.
    std::vector<char> exact(static_cast<const char *>(static_cast<void *>(buf.head())),
                            static_cast<const char *>(static_cast<void *>(buf.head())) + blob_raw_len(buf.head()));
    auto *g = new_guarded_list();
    EXPECT_EQ(JTS_Qos_Classification_List(reinterpret_cast<blob_attr *>(exact.data()), &g->list), 0);
    EXPECT_EQ(g->list.astRule[0].uiDscp, 1u);
    EXPECT_EQ(g->list.astRule[1].uiDscp, 2u);
    delete g;
}

TEST(QosList, MalformedElementsEndTheWalk)
{
    // An element whose length runs past the list is never looked into.
    bxtest::Buf buf;
    blobmsg_add_u32(buf.get(), "index", 5);
    void *list = blobmsg_open_array(buf.get(), "list");
    void *rule = blobmsg_open_table(buf.get(), nullptr);
    blobmsg_add_u32(buf.get(), "dscp", 1);
    blob_nest_end(buf.get(), rule);
    rule = blobmsg_open_table(buf.get(), nullptr);
    blobmsg_add_u32(buf.get(), "dscp", 2);
    blob_nest_end(buf.get(), rule);
    blob_nest_end(buf.get(), list);
    // Corrupt the second element's length to reach beyond the list.
    blob_attr *list_attr = nullptr;
    blob_attr *cur;
    size_t rem;
    blob_for_each_attr(cur, buf.head(), rem) list_attr = cur;
    blob_attr *second = nullptr;
    int i = 0;
    blobmsg_for_each_attr(cur, list_attr, rem) if (i++ == 1) second = cur;
    ASSERT_NE(second, nullptr);
    second->id_len = htonl((ntohl(second->id_len) & 0xFF000000u) | 0x00FFFF00u);
    auto *g = new_guarded_list();
    EXPECT_EQ(JTS_Qos_Classification_List(buf.head(), &g->list), 0);
    EXPECT_EQ(g->list.astRule[0].uiDscp, 1u);
    EXPECT_EQ(g->list.astRule[1].uiDscp, 0u);
    delete g;
}

// ---- Dispatch rows and the command-line program -------------------------------------------

TEST(QosRows, EachTypeReachesItsConverters)
{
    struct Row {
        int type;
        const char *stj_name;
        StructToJsonFunc stj;
        const char *jts_name;
        JsonToStructFunc jts;
    };
    const Row rows[] = {
        {MSG_QOS, "QoS", STJ_QoS, "QoS", JTS_QoS},
        {MSG_DSCP, "Dscp", STJ_Dscp, "Dscp", JTS_Dscp},
        {MSG_8021P, "8021p", STJ_8021p, "8021p", JTS_8021p},
        {MSG_QOS_CLASSIFICATION_ADD, "Qos_Classification_Add", STJ_Qos_Classification_Add, "Qos_Classification",
         JTS_Qos_Classification_Add},
        {MSG_QOS_CLASSIFICATION_DELETE, "Qos_Classification_Delete", STJ_Qos_Classification_Delete,
         "Qos_Classification_Delete", JTS_Qos_Classification_Delete},
        {MSG_QOS_CLASSIFICATION_LIST, "Qos_Classification_List", STJ_Qos_Classification_List,
         "Qos_Classification_List", JTS_Qos_Classification_List},
        {MSG_QOS_CLASSIFICATION_SET, "Qos_Classification_Set", STJ_Qos_Classification_Set, "Qos_Classification_Set",
         JTS_Qos_Classification_Set},
        {MSG_QOS_CLASSIFICATION_GET, "Qos_Classification_Get", STJ_Qos_Classification_Get, "Qos_Classification_Get",
         JTS_Qos_Classification_Get},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.type);
        const MessageTransEntry *stj = nullptr;
        const MessageTransEntry *jts = nullptr;
        for (int i = 0; i < g_iStructToJson_FuncNum; ++i)
            if (g_astStructToJson_Func[i].id == row.type)
                stj = &g_astStructToJson_Func[i];
        for (int i = 0; i < g_iJsonToStruct_FuncNum; ++i)
            if (g_astJsonToStruct_Func[i].id == row.type)
                jts = &g_astJsonToStruct_Func[i];
        ASSERT_NE(stj, nullptr);
        ASSERT_NE(jts, nullptr);
        EXPECT_STREQ(stj->name, row.stj_name);
        EXPECT_EQ(stj->converter.toJson, row.stj);
        EXPECT_STREQ(jts->name, row.jts_name);
        EXPECT_EQ(jts->converter.toStruct, row.jts);
    }
}

TEST(QosRows, NullArgumentsFail)
{
    QosClassRuleList rec{};
    Msg msg("{}");
    bxtest::Buf buf;
    for (int type = MSG_QOS; type <= MSG_QOS_CLASSIFICATION_GET; ++type) {
        SCOPED_TRACE(type);
        const MessageTransEntry *stj = nullptr;
        const MessageTransEntry *jts = nullptr;
        for (int i = 0; i < g_iStructToJson_FuncNum; ++i)
            if (g_astStructToJson_Func[i].id == type)
                stj = &g_astStructToJson_Func[i];
        for (int i = 0; i < g_iJsonToStruct_FuncNum; ++i)
            if (g_astJsonToStruct_Func[i].id == type)
                jts = &g_astJsonToStruct_Func[i];
        ASSERT_TRUE(stj && jts);
        EXPECT_EQ(stj->converter.toJson(nullptr, buf.get()), -1);
        EXPECT_EQ(stj->converter.toJson(&rec, nullptr), -1);
        EXPECT_EQ(jts->converter.toStruct(nullptr, &rec), -1);
        EXPECT_EQ(jts->converter.toStruct(msg, nullptr), -1);
    }
    EXPECT_EQ(buf.typed(), "");
}

TEST(QosTool, RoundTrips)
{
    bxtest::ToolResult res;
    if (!bxtest::run_tool(MSG_DSCP, R"({"enable": "enable"})", res))
        GTEST_SKIP() << "blobxlate program not built";
    EXPECT_EQ(res.exit_code, 0);
    EXPECT_EQ(res.out, "JSON_TRANS_STRUCT: 0\nSTRUCT_TRANS_JSON: 0\n{\n\t\"enable\": \"enable\"\n}\n");

    ASSERT_TRUE(bxtest::run_tool(MSG_QOS_CLASSIFICATION_ADD,
                                 R"({"name": "game", "priority": 1, "protocol": [17, 0, 6], "srcip": "1.1.1.1"})", res));
    EXPECT_EQ(res.exit_code, 0);
    EXPECT_EQ(res.out, "JSON_TRANS_STRUCT: 0\nSTRUCT_TRANS_JSON: 0\n{\n\t\"priority\": 1,\n\t\"dscp\": 0,\n"
                       "\t\"vlan8021p\": 0,\n\t\"name\": \"game\",\n\t\"protocol\": [\n\t\t17\n\t],\n"
                       "\t\"srcmac\": \"\",\n\t\"dstmac\": \"\"\n}\n");

    ASSERT_TRUE(bxtest::run_tool(MSG_QOS, R"({"enable": "yes"})", res));
    EXPECT_EQ(res.exit_code, 1);
}

} // namespace
