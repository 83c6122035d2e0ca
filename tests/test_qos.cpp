// QoS switches and classification rules.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "support.h"

using bxtest::Msg;
using bxtest::TraceCapture;
using testing::ElementsAre;

namespace {

std::string chars(char c, size_t n) { return std::string(n, c); }

std::string numbers(unsigned first, unsigned count)
{
    std::string out = "[";
    for (unsigned i = 0; i < count; ++i)
        out += (i ? "," : "") + std::to_string(first + i);
    return out + "]";
}

// A "list" of n rules, numbered from 1.
std::string rules(unsigned n)
{
    std::string out = "[";
    for (unsigned i = 1; i <= n; ++i)
        out += (i > 1 ? "," : "") + ("{\"index\": " + std::to_string(i) + "}");
    return out + "]";
}

// A list record followed by a guard that no converter may touch.
struct GuardedRuleList {
    QosClassRuleList list;
    unsigned char guard[512];
    GuardedRuleList()
    {
        std::memset(static_cast<void *>(this), 0, sizeof *this);
        std::memset(guard, 0xA5, sizeof guard);
    }
    bool intact() const { return std::all_of(guard, guard + sizeof guard, [](unsigned char b) { return b == 0xA5; }); }
};

QosClassRule full_rule()
{
    QosClassRule r{9, "voip", 3, 46, 5, {6, 17}, "192.168.1.10", "255.255.255.0", 5060, "", "10.0.0.1", "255.0.0.0", 5061, ""};
    std::memcpy(r.szSrcMac, "AA:BB:CC:DD:EE:01", 17);  // a full MAC text fills the array
    std::memcpy(r.szDstMac, "AA:BB:CC:DD:EE:02", 17);
    return r;
}

TEST(QosSwitch, EnableIsAWordEitherWay)
{
    BX_REQUIRE_TRACE_CAPTURE();
    const std::pair<int, std::string> types[] = {{MSG_QOS, "JTS_QoS"}, {MSG_DSCP, "JTS_Dscp"}, {MSG_8021P, "JTS_8021p"}};
    struct Case {
        const char *json;
        int ret;
        uint32_t stored;
        const char *trace;  // after "<converter>: ", or a whole line when it starts with "JTS_"
    };
    const Case cases[] = {
        {R"({"enable": "enable"})", 0, 1, "status:1\n"},
        {R"({"enable": "disable"})", 0, 0, "status:0\n"},
        {R"({"enable": "on"})", -1, 42, nullptr},
        {R"({"enable": 1})", -1, 42, "JTS_CheckBlobAttr: Illegal parameter: enable\n"},
        {R"({})", -1, 42, "JTS_CheckBlobAttr: Illegal parameter: enable\n"},
    };
    for (const auto &[type, jts] : types) {
        SCOPED_TRACE(jts);
        for (uint32_t v : {1u, 0u, 7u}) {
            QosSwitch rec{v};
            EXPECT_EQ(bxtest::stj_typed(type, &rec), v == 1 ? R"(enable=s"enable")" : v == 0 ? R"(enable=s"disable")" : R"(enable=s"")");
        }
        for (const Case &c : cases) {
            SCOPED_TRACE(c.json);
            QosSwitch rec{42};
            Msg msg(c.json);
            TraceCapture cap;
            EXPECT_EQ(JSON_TRANS_STRUCT(type, msg, &rec), c.ret);
            EXPECT_EQ(rec.uiEnable, c.stored);
            auto lines = cap.take();
            lines.erase(lines.begin(), lines.begin() + 2);  // the dispatcher's
            std::vector<std::string> want;
            if (c.trace != nullptr)
                want.push_back(std::strncmp(c.trace, "JTS_", 4) == 0 ? c.trace : jts + ": " + c.trace);
            if (c.ret != 0)
                want.push_back("JSON_TRANS_STRUCT: Trans failed.\n");
            EXPECT_EQ(lines, want);
        }
    }
}

TEST(QosAdd, SendsHeadProtocolsToFirstZeroAndMacs)
{
    QosClassRule r = full_rule();
    EXPECT_EQ(bxtest::stj_typed(MSG_QOS_CLASSIFICATION_ADD, &r),
              R"(priority=i32:3 dscp=i32:46 vlan8021p=i32:5 name=s"voip" protocol=[i32:6 i32:17] )"
              R"(srcmac=s"AA:BB:CC:DD:EE:01" dstmac=s"AA:BB:CC:DD:EE:02")");
    const std::pair<std::vector<uint32_t>, std::string> protocols[] = {
        {{0, 6, 0, 17}, "[i32:0 i32:6]"},
        {{6, 0, 17}, "[i32:6]"},
        {{}, "[i32:0]"},
        {{1, 2, 3, 4, 5, 6, 7, 8}, "[i32:1 i32:2 i32:3 i32:4 i32:5 i32:6 i32:7 i32:8]"},
    };
    for (const auto &[slots, sent] : protocols) {
        QosClassRule p{};
        std::copy(slots.begin(), slots.end(), p.auiProtocol);
        EXPECT_THAT(bxtest::stj_typed(MSG_QOS_CLASSIFICATION_ADD, &p), testing::HasSubstr(" protocol=" + sent + " srcmac="));
    }
}

TEST(QosAdd, ReadsItsKeysWithTheirOwnLabelsAndBounds)
{
    BX_REQUIRE_TRACE_CAPTURE();
    QosClassRule r{};
    Msg msg(R"({"protocol": [6, 17], "priority": 3, "dscp": 46, "vlan8021p": 5, "name": "voip",
               "srcmac": "AA:BB:CC:DD:EE:01", "dstmac": "AA:BB:CC:DD:EE:02", "srcip": "1.2.3.4"})");
    TraceCapture cap;
    EXPECT_EQ(JTS_Qos_Classification_Add(msg, &r), 0);
    EXPECT_THAT(cap.take_texts(), ElementsAre("Priority:3\n", "Dscp:46\n", "Valn8021p:5\n", "Name:voip\n",
                                              "SrcName:AA:BB:CC:DD:EE:01\n", "DstName:AA:BB:CC:DD:EE:02\n"));
    QosClassRule want = full_rule();
    std::memcpy(want.auiProtocol, r.auiProtocol, sizeof want.auiProtocol);
    EXPECT_EQ(bxtest::stj_typed(MSG_QOS_CLASSIFICATION_ADD, &r), bxtest::stj_typed(MSG_QOS_CLASSIFICATION_ADD, &want));
    // The full MAC texts fill all 17 bytes; the addresses are no keys here.
    EXPECT_EQ(std::string(r.szSrcMac, 17), "AA:BB:CC:DD:EE:01");
    EXPECT_STREQ(r.szSrcIp, "");
}

TEST(QosAdd, ProtocolWalkStopsAtZeroAfterSlotZeroAndAtEight)
{
    BX_REQUIRE_TRACE_CAPTURE();
    const uint32_t kept = 0xEE;
    const std::pair<std::string, std::vector<uint32_t>> cases[] = {
        {R"({"protocol": [0, 17]})", {0, 17, kept, kept, kept, kept, kept, kept}},
        {R"({"protocol": [6, 0, 17]})", {6, kept, kept, kept, kept, kept, kept, kept}},
        {R"({"protocol": )" + numbers(1, 10) + "}", {1, 2, 3, 4, 5, 6, 7, 8}},
        {R"({"protocol": ["x", 5]})", {0x78000000, 5, kept, kept, kept, kept, kept, kept}},  // read as numbers
        {R"({})", {kept, kept, kept, kept, kept, kept, kept, kept}},
    };
    for (const auto &[json, stored] : cases) {
        SCOPED_TRACE(json);
        QosClassRule r{};
        std::fill(std::begin(r.auiProtocol), std::end(r.auiProtocol), kept);
        Msg msg(json.c_str());
        TraceCapture cap;
        EXPECT_EQ(JTS_Qos_Classification_Add(msg, &r), 0);
        EXPECT_THAT(r.auiProtocol, testing::ElementsAreArray(stored));
        // Neither the protocols nor their absence are traced.
        for (const std::string &line : cap.take())
            EXPECT_THAT(line, testing::Not(testing::HasSubstr("protocol")));
    }
}

TEST(QosIndex, DeleteAndGetTakeAnOptionalIndex)
{
    BX_REQUIRE_TRACE_CAPTURE();
    for (const auto &[type, jts] : {std::pair{MSG_QOS_CLASSIFICATION_DELETE, "JTS_Qos_Classification_Delete"},
                                    std::pair{MSG_QOS_CLASSIFICATION_GET, "JTS_Qos_Classification_Get"}}) {
        SCOPED_TRACE(jts);
        QosClassIndex rec{42};
        TraceCapture cap;
        for (const char *json : {"{}", R"({"index": "3"})"}) {
            EXPECT_EQ(JSON_TRANS_STRUCT(type, Msg(json), &rec), 0);
            EXPECT_EQ(rec.uiIndex, 42u);
            EXPECT_EQ(cap.take().back(), "JTS_CheckBlobAttr: Illegal parameter: index\n");
        }
        EXPECT_EQ(JSON_TRANS_STRUCT(type, Msg(R"({"index": 3})"), &rec), 0);
        EXPECT_EQ(rec.uiIndex, 3u);
        EXPECT_EQ(cap.take().back(), std::string(jts) + ": Index:3\n");
    }
    QosClassIndex idx{7};
    EXPECT_EQ(bxtest::stj_typed(MSG_QOS_CLASSIFICATION_DELETE, &idx), "index=i32:7");
}

TEST(QosGet, SendsTheWholeRuleWithEightNamedProtocols)
{
    QosClassRule r = full_rule();
    for (int type : {MSG_QOS_CLASSIFICATION_GET, MSG_QOS_CLASSIFICATION_SET}) {
        bxtest::Buf buf;
        EXPECT_EQ(STRUCT_TRANS_JSON(type, &r, buf.get()), 0);
        EXPECT_EQ(buf.typed(), R"(priority=i32:3 dscp=i32:46 vlan8021p=i32:5 name=s"voip" )"
                               R"(protocol=[i32:6 i32:17 i32:0 i32:0 i32:0 i32:0 i32:0 i32:0] )"
                               R"(srcip=s"192.168.1.10" srcmask=s"255.255.255.0" srcport=i32:5060 )"
                               R"(srcmac=s"AA:BB:CC:DD:EE:01" dstip=s"10.0.0.1" dstmask=s"255.0.0.0" dstport=i32:5061 )"
                               R"(dstmac=s"AA:BB:CC:DD:EE:02")");
        blob_attr *cur, *elem;
        size_t rem, erem;
        std::vector<std::string> names;
        blob_for_each_attr(cur, buf.head(), rem) {
            if (blobmsg_type(cur) == BLOBMSG_TYPE_ARRAY)
                blobmsg_for_each_attr(elem, cur, erem) names.push_back(blobmsg_name(elem));
        }
        EXPECT_EQ(names, std::vector<std::string>(8, "protocol")) << type;
    }
}

TEST(QosSet, PortsAreStringsReadAsNumbersAndTextsStopAtSixteen)
{
    BX_REQUIRE_TRACE_CAPTURE();
    QosClassRule r{};
    Msg msg(R"({"priority": 3, "dscp": 46, "vlan8021p": 5, "name": "voip", "srcip": "192.168.100.100x",
               "srcmask": "255.255.255.0", "srcport": "80", "srcmac": "AA:BB:CC:DD:EE:01",
               "dstip": "10.0.0.1", "dstmask": "255.0.0.0", "dstport": "ABCDEF", "dstmac": "AA:BB:CC:DD:EE:02"})");
    TraceCapture cap;
    EXPECT_EQ(JTS_Qos_Classification_Set(msg, &r), 0);
    // The ports are the first four bytes of the text, big-endian.
    EXPECT_EQ(r.uiSrcPort, 0x38300000u);
    EXPECT_EQ(r.uiDstPort, 0x41424344u);
    EXPECT_STREQ(r.szSrcMac, "AA:BB:CC:DD:EE:0");
    EXPECT_THAT(cap.take_texts(),
                ElementsAre("Priority:3\n", "Dscp:46\n", "Vlan8021p:5\n", "Name:voip\n", "Illegal parameter: protocol\n",
                            "SrcIp:192.168.100.100x\n", "SrcMask:255.255.255.0\n", "srcport:942669824\n",
                            "SrcMac:AA:BB:CC:DD:EE:0\n", "DstIp:10.0.0.1\n", "DstMask:255.0.0.0\n",
                            "DstPort:1094861636\n", "DstMac:AA:BB:CC:DD:EE:0\n"));
    // Numbers where strings are expected count as absent.
    QosClassRule kept{};
    kept.uiSrcPort = 11;
    kept.auiProtocol[0] = 13;
    EXPECT_EQ(JTS_Qos_Classification_Set(Msg(R"({"srcport": 80, "protocol": [1]})"), &kept), 0);
    EXPECT_EQ(kept.uiSrcPort, 11u);
    EXPECT_EQ(kept.auiProtocol[0], 13u);
    EXPECT_THAT(cap.take_texts(), testing::IsSupersetOf({"Illegal parameter: srcport\n", "Illegal parameter: protocol\n"}));
}

TEST(QosSet, ProtocolStringIsWalkedAsAttributes)
{
    BX_REQUIRE_TRACE_CAPTURE();
    // A plain word holds no attribute: nothing is stored.
    QosClassRule plain{};
    plain.auiProtocol[0] = 13;
    EXPECT_EQ(JTS_Qos_Classification_Set(Msg(R"({"protocol": "tcp"})"), &plain), 0);
    EXPECT_EQ(plain.auiProtocol[0], 13u);
    // A string whose bytes are attributes: each word lands in slot 0 and the
    // trace prints slot 1.
    bxtest::Buf inner, outer;
    for (const char *word : {"tcp", "udp", "gre"})
        blobmsg_add_string(inner.get(), nullptr, word);
    blobmsg_add_field(outer.get(), BLOBMSG_TYPE_STRING, "protocol", blob_data(inner.head()), blob_len(inner.head()));
    QosClassRule r{};
    r.auiProtocol[1] = 9;
    TraceCapture cap;
    EXPECT_EQ(JTS_Qos_Classification_Set(outer.head(), &r), 0);
    EXPECT_EQ(r.auiProtocol[0], 4u);  // "gre" is no known protocol
    auto texts = cap.take_texts();
    EXPECT_EQ(std::count(texts.begin(), texts.end(), "protocol:9\n"), 3);
}

TEST(QosList, SendsCountUnderIndexAndTheCountedRules)
{
    auto g = std::make_unique<GuardedRuleList>();
    g->list.uiCount = 2;
    g->list.astRule[0] = full_rule();
    g->list.astRule[1].uiIndex = 2;
    g->list.astRule[1].auiProtocol[1] = 17;  // slot 0 is sent even when 0
    g->list.astRule[1].auiProtocol[3] = 6;
    g->list.astRule[2].uiIndex = 3;
    EXPECT_EQ(bxtest::stj_typed(MSG_QOS_CLASSIFICATION_LIST, &g->list),
              R"(index=i32:2 list=[{index=i32:9 name=s"voip" priority=i32:3 dscp=i32:46 vlan8021p=i32:5 )"
              R"(protocol=[i32:6 i32:17] srcip=s"192.168.1.10" srcmask=s"255.255.255.0" srcport=i32:5060 )"
              R"(srcmac=s"AA:BB:CC:DD:EE:01" dstip=s"10.0.0.1" dstmask=s"255.0.0.0" dstport=i32:5061 )"
              R"(dstmac=s"AA:BB:CC:DD:EE:02"} {index=i32:2 name=s"" priority=i32:0 dscp=i32:0 vlan8021p=i32:0 )"
              R"(protocol=[i32:0 i32:17] srcip=s"" srcmask=s"" srcport=i32:0 srcmac=s"" dstip=s"" dstmask=s"" )"
              R"(dstport=i32:0 dstmac=s""}])");
    // A count beyond the record sends the rules the record holds.
    g->list.uiCount = 1000;
    std::string typed = bxtest::stj_typed(MSG_QOS_CLASSIFICATION_LIST, &g->list);
    EXPECT_THAT(typed, testing::StartsWith("index=i32:1000 list=[{"));
    EXPECT_EQ(std::count(typed.begin(), typed.end(), '{'), QOS_CLASS_RULE_MAX);
}

TEST(QosList, ReadsARuleWithItsLabelsAndBounds)
{
    BX_REQUIRE_TRACE_CAPTURE();
    auto g = std::make_unique<GuardedRuleList>();
    const std::string mac = "AA:BB:CC:DD:EE:01", x17 = chars('x', 17), x16 = chars('x', 16);
    Msg msg(("{\"index\": 1, \"list\": [{\"index\": 4, \"name\": \"" + chars('n', 40) +
             "\", \"priority\": 3, \"dscp\": 46, \"vlan8021p\": 5, \"protocol\": [6, 0], \"srcip\": \"" + x17 +
             "\", \"srcmask\": \"" + x17 + "\", \"srcport\": 80, \"srcmac\": \"" + mac + "\", \"dstip\": \"" + x17 +
             "\", \"dstmask\": \"" + x17 + "\", \"dstport\": -1, \"dstmac\": \"" + mac + "\"}]}").c_str());
    TraceCapture cap;
    EXPECT_EQ(JTS_Qos_Classification_List(msg, &g->list), 0);
    const QosClassRule &r = g->list.astRule[0];
    EXPECT_THAT(r.auiProtocol, ElementsAre(6u, 0u, 0u, 0u, 0u, 0u, 0u, 0u));
    // The source MAC and the destination mask and MAC take all 17 bytes.
    EXPECT_EQ(std::string(r.szDstMask, 17), x17);
    EXPECT_EQ(std::string(r.szDstMac, 17), mac);
    EXPECT_EQ(r.uiDstPort, 0xFFFFFFFFu);
    EXPECT_THAT(cap.take_texts(),
                ElementsAre("uiCount:1\n", "-t- blobmsg_parse: -blobmsg_for_each_attr_1\n",
                            "-t- blobmsg_parse: -blobmsg_for_each_attr_2\n", "-t- blobmsg_parse: g_stStaList_Array_policy\n",
                            "idx:4\n", "name:" + chars('n', 32) + "\n", "priority:3\n", "dscps:46\n", "linktype:5\n",
                            "protocol[1]: 6\n", "protocol[2]: 0\n", "SrcIp:" + x16 + "\n", "SrcMask:" + x16 + "\n",
                            "SrcPort:80\n", "SrcMac:" + mac + "\n", "DstIp: " + x16 + "\n", "DstMask: " + x17 + "\n",
                            "DstPort: -1\n", "DstMac: " + mac + "\n"));
    EXPECT_TRUE(g->intact());
}

TEST(QosList, TheCountAndTheRecordBoundTheWalk)
{
    BX_REQUIRE_TRACE_CAPTURE();
    struct Case {
        const char *what;
        std::string json;
        uint32_t count_before, count_after;
        unsigned filled;
        bool cut;  // "blobmsg parse failed" written
    };
    const std::string three = rules(3);
    const Case cases[] = {
        {"index below the list", R"({"index": 2, "list": )" + three + "}", 0, 2, 2, true},
        {"index equal to the list", R"({"index": 3, "list": )" + three + "}", 0, 3, 3, false},
        {"no index, zeroed record", R"({"list": )" + three + "}", 0, 0, 0, true},
        {"no index, caller's count", R"({"list": )" + three + "}", 1, 1, 1, true},
        {"no list", R"({"index": 3})", 0, 3, 0, false},
        {"beyond the record", R"({"index": 1000, "list": )" + rules(QOS_CLASS_RULE_MAX + 5) + "}", 0, 1000,
         QOS_CLASS_RULE_MAX, true},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        auto g = std::make_unique<GuardedRuleList>();
        g->list.uiCount = c.count_before;
        TraceCapture cap;
        EXPECT_EQ(JTS_Qos_Classification_List(Msg(c.json.c_str()), &g->list), 0);
        EXPECT_EQ(g->list.uiCount, c.count_after);
        for (unsigned i = 0; i <= c.filled && i < QOS_CLASS_RULE_MAX; ++i)
            EXPECT_EQ(g->list.astRule[i].uiIndex, i < c.filled ? i + 1 : 0u) << i;
        auto texts = cap.take_texts();
        EXPECT_EQ(std::count(texts.begin(), texts.end(), "blobmsg parse failed\n"), c.cut ? 1 : 0);
        EXPECT_EQ(std::count(texts.begin(), texts.end(), "-t- blobmsg_parse: -blobmsg_for_each_attr_2\n"), c.filled);
        EXPECT_TRUE(g->intact());
    }
}

TEST(QosList, ProtocolWalkKeepsEightAndTheRestOfTheRule)
{
    BX_REQUIRE_TRACE_CAPTURE();
    auto g = std::make_unique<GuardedRuleList>();
    Msg msg(("{\"index\": 1, \"list\": [{\"protocol\": " + numbers(1, 9) + ", \"srcip\": \"1.2.3.4\"}]}").c_str());
    TraceCapture cap;
    EXPECT_EQ(JTS_Qos_Classification_List(msg, &g->list), 0);
    EXPECT_THAT(g->list.astRule[0].auiProtocol, ElementsAre(1u, 2u, 3u, 4u, 5u, 6u, 7u, 8u));
    EXPECT_STREQ(g->list.astRule[0].szSrcIp, "1.2.3.4");
    auto texts = cap.take_texts();
    auto failed = std::find(texts.begin(), texts.end(), "Parse protocol failed\n");
    ASSERT_NE(failed, texts.end());
    EXPECT_EQ(failed[-1], "protocol[8]: 8\n");
    EXPECT_EQ(failed[1], "SrcIp:1.2.3.4\n");
}

// A rule is parsed over its whole payload length, so an element with a long
// name sees the member after it as its own; the span ends with the message.
TEST(QosList, RuleParseSpanReachesPastTheElementButNotPastTheMessage)
{
    bxtest::Buf buf;
    blobmsg_add_u32(buf.get(), "index", 3);
    void *list = blobmsg_open_array(buf.get(), "list");
    void *rule = blobmsg_open_table(buf.get(), "twelve-chars");  // a 16-byte name header
    blobmsg_add_string(buf.get(), "name", "a");
    blob_nest_end(buf.get(), rule);
    blobmsg_add_u32(buf.get(), "dscp", 46);  // 16 bytes: inside the span
    rule = blobmsg_open_table(buf.get(), "a-name-that-runs-past-the-message");
    blobmsg_add_u32(buf.get(), "dscp", 2);
    blob_nest_end(buf.get(), rule);
    blob_nest_end(buf.get(), list);
    // The message alone, in memory of exactly its size (the sanitizer build
    // sees any read beyond).
    const char *raw = reinterpret_cast<const char *>(buf.head());
    std::vector<char> exact(raw, raw + blob_raw_len(buf.head()));
    auto g = std::make_unique<GuardedRuleList>();
    EXPECT_EQ(JTS_Qos_Classification_List(reinterpret_cast<blob_attr *>(exact.data()), &g->list), 0);
    EXPECT_STREQ(g->list.astRule[0].szName, "a");
    EXPECT_EQ(g->list.astRule[0].uiDscp, 46u);
    EXPECT_EQ(g->list.astRule[1].uiDscp, 0u);  // the number, taken as a rule of its own
    EXPECT_EQ(g->list.astRule[2].uiDscp, 2u);
}

TEST(QosRows, EachTypeReachesItsConverters)
{
    const bxtest::ConverterRow rows[] = {
        {MSG_QOS, "QoS", "QoS", STJ_QoS, JTS_QoS},
        {MSG_DSCP, "Dscp", "Dscp", STJ_Dscp, JTS_Dscp},
        {MSG_8021P, "8021p", "8021p", STJ_8021p, JTS_8021p},
        {MSG_QOS_CLASSIFICATION_ADD, "Qos_Classification_Add", "Qos_Classification", STJ_Qos_Classification_Add,
         JTS_Qos_Classification_Add},
        {MSG_QOS_CLASSIFICATION_DELETE, "Qos_Classification_Delete", "Qos_Classification_Delete",
         STJ_Qos_Classification_Delete, JTS_Qos_Classification_Delete},
        {MSG_QOS_CLASSIFICATION_LIST, "Qos_Classification_List", "Qos_Classification_List", STJ_Qos_Classification_List,
         JTS_Qos_Classification_List},
        {MSG_QOS_CLASSIFICATION_SET, "Qos_Classification_Set", "Qos_Classification_Set", STJ_Qos_Classification_Set,
         JTS_Qos_Classification_Set},
        {MSG_QOS_CLASSIFICATION_GET, "Qos_Classification_Get", "Qos_Classification_Get", STJ_Qos_Classification_Get,
         JTS_Qos_Classification_Get},
    };
    QosClassRuleList rec{};
    bxtest::expect_converter_rows(rows, &rec);
}

TEST(QosTool, RoundTrips)
{
    bxtest::ToolResult res;
    if (!bxtest::run_tool(MSG_DSCP, R"({"enable": "enable"})", res))
        GTEST_SKIP() << "blobxlate program not built";
    EXPECT_EQ(res.exit_code, 0);
    EXPECT_EQ(res.out, "JSON_TRANS_STRUCT: 0\nSTRUCT_TRANS_JSON: 0\n{\n\t\"enable\": \"enable\"\n}\n");
    ASSERT_TRUE(bxtest::run_tool(MSG_QOS_CLASSIFICATION_ADD, R"({"name": "game", "priority": 1, "protocol": [17, 0, 6]})", res));
    EXPECT_EQ(res.exit_code, 0);
    EXPECT_EQ(res.out, "JSON_TRANS_STRUCT: 0\nSTRUCT_TRANS_JSON: 0\n{\n\t\"priority\": 1,\n\t\"dscp\": 0,\n"
                       "\t\"vlan8021p\": 0,\n\t\"name\": \"game\",\n\t\"protocol\": [\n\t\t17\n\t],\n"
                       "\t\"srcmac\": \"\",\n\t\"dstmac\": \"\"\n}\n");
    ASSERT_TRUE(bxtest::run_tool(MSG_QOS, R"({"enable": "yes"})", res));
    EXPECT_EQ(res.exit_code, 1);
}

} // namespace
