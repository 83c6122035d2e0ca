// Vendor elements in probes: probe-receive entries, their station records and
// list, the flush message, and probe-response entries and their list.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "support.h"

using bxtest::Msg;
using bxtest::TraceCapture;
using testing::ElementsAre;
using testing::ElementsAreArray;

namespace {

// A record followed by a guard that no converter may touch.
template <typename T>
struct Guarded {
    T rec{};
    unsigned char guard[64];
    Guarded() { std::memset(guard, 0xA5, sizeof guard); }
    bool guard_intact() const
    {
        return std::all_of(std::begin(guard), std::end(guard), [](unsigned char b) { return b == 0xA5; });
    }
};

std::string numbers(int from, int count)
{
    std::string out = "[";
    for (int i = 0; i < count; ++i)
        out += (i != 0 ? "," : "") + std::to_string(from + i);
    return out + "]";
}

template <size_t N>
std::vector<int> bytes(const uint8_t (&a)[N], size_t n = N)
{
    return std::vector<int>(a, a + n);
}

size_t count_lines(const std::vector<std::string> &lines, const std::string &line)
{
    return static_cast<size_t>(std::count(lines.begin(), lines.end(), line));
}

TEST(VsieProberxAdd, BothWays)
{
    BX_REQUIRE_TRACE_CAPTURE();
    VsieProbeRxEntry e{};
    e.uiIdx = 3;
    std::strcpy(e.szServiceName, "svc");
    e.uiBand = 1;
    e.aucOui[1] = 80;
    e.aucOui[2] = 242;
    e.uiRecordCount = 1;
    EXPECT_EQ(bxtest::stj_typed(MSG_VSIE_PROBERX_ADD, &e), R"(servicename=s"svc" band=s"5G" oui=[i32:0 i32:80 i32:242])");
    e.uiBand = 7;
    EXPECT_THAT(bxtest::stj_typed(MSG_VSIE_PROBERX_ADD, &e), testing::HasSubstr(R"(band=s"" )"));

    VsieProbeRxEntry back{};
    back.uiIdx = 9;
    TraceCapture cap;
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_VSIE_PROBERX_ADD,
                                Msg(R"({"idx": 1, "servicename": "svc", "band": "6G", "oui": [0, 80, 242, 1]})"), &back),
              0);
    EXPECT_EQ(back.uiIdx, 9u);
    EXPECT_EQ(back.uiBand, 2u);  // no range check
    EXPECT_THAT(bytes(back.aucOui), ElementsAre(0, 80, 242));
    auto lines = cap.take();
    lines.erase(lines.begin(), lines.begin() + 2);
    EXPECT_THAT(lines, ElementsAre("JTS_Vsie_Proberx_Add: Servicename:svc\n", "JTS_Vsie_Proberx_Add: Band:2\n",
                                   "JTS_Vsie_Proberx_Add: OUI[0]:0\n", "JTS_Vsie_Proberx_Add: OUI[1]:80\n",
                                   "JTS_Vsie_Proberx_Add: OUI[2]:242\n"));
    // Short OUI, values cut to their low byte.
    VsieProbeRxEntry shorter{};
    EXPECT_EQ(JTS_Vsie_Proberx_Add(Msg(R"({"oui": [513, -1]})"), &shorter), 0);
    EXPECT_THAT(bytes(shorter.aucOui), ElementsAre(1, 255, 0));
}

TEST(VsieProberxFlush, NameTravelsFromTheRecordStartButLandsAfterTheIndex)
{
    // Sent: the text at the record's first byte, whatever record it is.
    VsieProbeRxEntry e{};
    std::memcpy(&e.uiIdx, "abc", 4);
    std::strcpy(e.szServiceName, "other");
    EXPECT_EQ(bxtest::stj_typed(MSG_VSIE_PROBERX_FLUSH, &e), R"(servicename=s"abc")");
    VsieProbeRxFlush flush{};
    std::memset(flush.szServiceName, 'n', sizeof flush.szServiceName);  // unterminated
    EXPECT_EQ(bxtest::stj_typed(MSG_VSIE_PROBERX_FLUSH, &flush), "servicename=s\"" + std::string(64, 'n') + "\"");

    // Received: into the entry's name, after uiIdx, 63 characters at most.
    VsieProbeRxEntry back{};
    back.uiIdx = 5;
    std::string name(70, 'q');
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_VSIE_PROBERX_FLUSH, Msg((R"({"servicename": ")" + name + "\"}").c_str()), &back), 0);
    EXPECT_EQ(back.uiIdx, 5u);
    EXPECT_EQ(std::string(back.szServiceName), std::string(63, 'q'));
    VsieProbeRxEntry untouched{};
    untouched.szServiceName[0] = 'x';
    EXPECT_EQ(JTS_Vsie_Proberx_Flush(Msg(R"({"servicename": 1})"), &untouched), 0);
    EXPECT_STREQ(untouched.szServiceName, "x");
}

TEST(VsieProberxRecordAdd, OuiComesFirstAndIsCountedInTheLength)
{
    BX_REQUIRE_TRACE_CAPTURE();
    VsieProbeRxRecord rec{};
    TraceCapture cap;
    EXPECT_EQ(JTS_Vsie_Proberx_Record_Add(
                  Msg(R"({"record": [{"mac": "00:11:22:33:44:55", "band": "5G", "vsie": [0, 80, 242, 4, 1, 2]}]})"), &rec),
              0);
    EXPECT_STREQ(rec.szMac, "00:11:22:33:44:55");
    EXPECT_EQ(rec.uiBand, 1u);
    EXPECT_THAT(bytes(rec.aucOui), ElementsAre(0, 80, 242));
    EXPECT_THAT(bytes(rec.aucVsie, 4), ElementsAre(4, 1, 2, 0));
    EXPECT_EQ(rec.uiVsieLen, 6u);
    EXPECT_THAT(cap.take(), ElementsAre("JTS_Vsie_Proberx_Record_Add: Mac:00:11:22:33:44:55\n",
                                        "JTS_Vsie_Proberx_Record_Add: Band:1\n",
                                        "JTS_Vsie_Proberx_Record_Add: count:3,count_oui:3\n"));
    // Sent back: the OUI, then uiVsieLen payload bytes, so three more than came in.
    EXPECT_EQ(bxtest::stj_typed(MSG_VSIE_PROBERX_RECORD_ADD, &rec),
              R"(record=[{mac=s"00:11:22:33:44:55" band=s"5G" vsie=[i32:0 i32:80 i32:242 i32:4 i32:1 i32:2 i32:0 i32:0 i32:0]}])");
}

TEST(VsieProberxRecordAdd, OddMessages)
{
    BX_REQUIRE_TRACE_CAPTURE();
    {
        // Only the first element is read; the walk cannot step past it.
        VsieProbeRxRecord rec{};
        EXPECT_EQ(JTS_Vsie_Proberx_Record_Add(
                      Msg(R"({"record": [{"mac": "m1", "vsie": [1, 2, 3, 4]}, {"mac": "m2", "vsie": [5, 6, 7, 8]}]})"), &rec),
                  0);
        EXPECT_STREQ(rec.szMac, "m1");
        EXPECT_EQ(rec.uiVsieLen, 4u);
        EXPECT_THAT(bytes(rec.aucVsie, 2), ElementsAre(4, 0));
    }
    {
        // A MAC fills the whole array; the payload stops at 255 bytes, the length counts the OUI.
        Guarded<VsieProbeRxRecord> g;
        std::string json = R"({"record": [{"mac": "0123456789abcdefghij", "vsie": )" + numbers(0, 300) + "}]}";
        EXPECT_EQ(JTS_Vsie_Proberx_Record_Add(Msg(json.c_str()), &g.rec), 0);
        EXPECT_EQ(std::string(g.rec.szMac, 18), "0123456789abcdefgh");
        EXPECT_EQ(g.rec.uiVsieLen, 258u);
        EXPECT_EQ(g.rec.aucVsie[254], 1u);  // number 257, low byte
        EXPECT_TRUE(g.guard_intact());
        std::string sent = bxtest::stj_typed(MSG_VSIE_PROBERX_RECORD_ADD, &g.rec);
        size_t sent_numbers = 0;
        for (size_t at = sent.find("i32:"); at != std::string::npos; at = sent.find("i32:", at + 1))
            ++sent_numbers;
        EXPECT_EQ(sent_numbers, 3u + 255u);
    }
    {
        VsieProbeRxRecord rec{};
        rec.uiVsieLen = 7;
        TraceCapture cap;
        EXPECT_EQ(JTS_Vsie_Proberx_Record_Add(Msg(R"({"mac": "m"})"), &rec), 0);
        EXPECT_EQ(rec.uiVsieLen, 7u);
        EXPECT_THAT(cap.take(), ElementsAre("JTS_CheckBlobAttr: Illegal parameter: record\n",
                                            "JTS_Vsie_Proberx_Record_Add: JTS_CheckBlobAttr failed\n"));
        // An element without "vsie" still sets the length.
        EXPECT_EQ(JTS_Vsie_Proberx_Record_Add(Msg(R"({"record": [{"mac": "m"}]})"), &rec), 0);
        EXPECT_EQ(rec.uiVsieLen, 0u);
        EXPECT_STREQ(rec.szMac, "m");
    }
}

TEST(VsieProberespAdd, BothWays)
{
    BX_REQUIRE_TRACE_CAPTURE();
    VsieProbeRespEntry e{};
    e.uiIdx = 2;
    std::strcpy(e.szMac, "aa:bb");
    e.uiBand = 1;
    e.uiIedataLen = 2;
    e.aucIedata[0] = 221;
    e.aucIedata[1] = 9;
    EXPECT_EQ(bxtest::stj_typed(MSG_VSIE_PROBERESP_ADD, &e), R"(mac=s"aa:bb" iedata=[i32:221 i32:9])");

    struct Case {
        const char *json;
        uint32_t len;
        std::vector<std::string> tail;  // last trace lines
    };
    std::string many = R"({"mac": "m", "iedata": )" + numbers(0, 300) + "}";
    const Case cases[] = {
        {R"({"idx": 4, "band": "5G", "mac": "m", "iedata": [511, 10]})", 2,
         {"JTS_Vsie_Proberesp_Add: Iedata:ff\n", "JTS_Vsie_Proberesp_Add: Iedata:a\n",
          "JTS_Vsie_Proberesp_Add: pstOut->uiIedataLen:2\n"}},
        {many.c_str(), 256, {"JTS_Vsie_Proberesp_Add: pstOut->uiIedataLen:256\n"}},
        {R"({"mac": "m"})", 77,
         {"JTS_CheckBlobAttr: Illegal parameter: iedata\n", "JTS_Vsie_Proberesp_Add: No IEDATA\n"}},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.json);
        Guarded<VsieProbeRespEntry> g;
        g.rec.uiIedataLen = 77;
        TraceCapture cap;
        EXPECT_EQ(JTS_Vsie_Proberesp_Add(Msg(c.json), &g.rec), 0);
        EXPECT_EQ(g.rec.uiIedataLen, c.len);
        EXPECT_EQ(g.rec.uiIdx, 0u);
        EXPECT_EQ(g.rec.uiBand, 0u);
        EXPECT_STREQ(g.rec.szMac, "m");
        EXPECT_TRUE(g.guard_intact());
        auto lines = cap.take();
        ASSERT_GE(lines.size(), c.tail.size());
        EXPECT_THAT(std::vector<std::string>(lines.end() - static_cast<long>(c.tail.size()), lines.end()),
                    ElementsAreArray(c.tail));
    }
}

TEST(VsieProberespList, BothWays)
{
    BX_REQUIRE_TRACE_CAPTURE();
    VsieProbeRespList list{};
    list.uiCount = 2;
    list.astEntry[0] = {1, "m1", 0, 1, {65}};
    list.astEntry[1] = {2, "m2", 1, 0, {}};
    EXPECT_EQ(bxtest::stj_typed(MSG_VSIE_PROBERESP_LIST, &list),
              R"(list=[{idx=i32:1 mac=s"m1" band=s"2.4G" iedata=[i32:65]} {idx=i32:2 mac=s"m2" band=s"5G" iedata=[]}])");
    list.uiCount = 0;
    EXPECT_EQ(bxtest::stj_typed(MSG_VSIE_PROBERESP_LIST, &list), "list=[]");

    VsieProbeRespList back{};
    back.uiCount = 9;
    TraceCapture cap;
    EXPECT_EQ(JTS_Vsie_Proberesp_List(Msg(R"({"count": 5, "list": [{"idx": 1, "mac": "m1", "band": "5G", "iedata": [65]},
                                          {"idx": 2}, {"idx": 3}, {"idx": 4}, {"idx": 5}]})"),
                                      &back),
              0);
    EXPECT_EQ(back.uiCount, 3u);
    EXPECT_EQ(back.astEntry[2].uiIdx, 3u);
    EXPECT_EQ(back.astEntry[3].uiIdx, 0u);
    EXPECT_EQ(back.astEntry[0].uiIedataLen, 1u);
    auto lines = cap.take();
    EXPECT_THAT(std::vector<std::string>(lines.begin(), lines.begin() + 4),
                ElementsAre("JTS_Vsie_Proberesp_List: Idx0:1\n", "JTS_Vsie_Proberesp_List: Mac0:m1\n",
                            "JTS_Vsie_Proberesp_List: Band0:1\n", "JTS_Vsie_Proberesp_List: Iedata0:A\n"));
    EXPECT_EQ(count_lines(lines, "JTS_Vsie_Proberesp_List: NULL == cur\n\n"), 1u);
    EXPECT_EQ(JTS_Vsie_Proberesp_List(Msg(R"({"idx": 1})"), &back), 0);
    EXPECT_EQ(back.uiCount, 0u);  // the list sets the count, also when absent
}

TEST(VsieProberxList, SendsEntriesWithTheirRecords)
{
    static VsieProbeRxList list;
    std::memset(&list, 0, sizeof list);
    list.uiCount = 1;
    VsieProbeRxEntry &e = list.astEntry[0];
    e.uiIdx = 4;
    std::strcpy(e.szServiceName, "s");
    e.uiBand = 1;
    e.aucOui[0] = 1;
    e.uiRecordCount = 2;
    std::strcpy(e.astRecord[0].szMac, "m1");
    e.astRecord[0].uiVsieLen = 2;
    e.astRecord[0].aucVsie[0] = 7;
    e.astRecord[0].aucOui[0] = 99;  // not sent in a list
    std::strcpy(e.astRecord[1].szMac, "m2");
    e.astRecord[1].uiBand = 1;
    EXPECT_EQ(bxtest::stj_typed(MSG_VSIE_PROBERX_LIST, &list),
              R"(list=[{idx=i32:4 servicename=s"s" band=s"5G" oui=[i32:1 i32:0 i32:0] record=[)"
              R"({mac=s"m1" band=s"2.4G" vsie=[i32:7 i32:0]} {mac=s"m2" band=s"5G" vsie=[]}]}])");
}

TEST(VsieProberxList, SharedCountersAndTheEntryBand)
{
    static VsieProbeRxList list;
    std::memset(&list, 0, sizeof list);
    list.uiCount = 8;
    // Entry 0 has one record, so entry 1's OUI starts at index 1; entry 1 has
    // three, so entry 2's OUI is not stored at all.
    const char *json = R"({"list": [
        {"idx": 1, "band": "5G", "oui": [10, 11, 12], "record": [{"mac": "a", "band": "x", "vsie": [1, 2]}]},
        {"idx": 2, "band": "2.4G", "oui": [20, 21, 22],
         "record": [{"mac": "b", "band": "5G"}, {"mac": "c", "vsie": [3]}, {"mac": "d", "band": "5G"}]},
        {"idx": 3, "oui": [30, 31, 32]},
        {"idx": 4, "oui": [40]}]})";
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_VSIE_PROBERX_LIST, Msg(json), &list), 0);
    EXPECT_EQ(list.uiCount, 3u);
    const VsieProbeRxEntry *e = list.astEntry;
    EXPECT_THAT(bytes(e[0].aucOui), ElementsAre(10, 11, 12));
    EXPECT_THAT(bytes(e[1].aucOui), ElementsAre(0, 20, 21));
    EXPECT_THAT(bytes(e[2].aucOui), ElementsAre(0, 0, 0));
    EXPECT_EQ(e[0].uiRecordCount, 1u);
    EXPECT_EQ(e[1].uiRecordCount, 3u);
    EXPECT_EQ(e[2].uiRecordCount, 0u);
    // A record's band, when it has one, is the entry's word.
    EXPECT_EQ(e[0].astRecord[0].uiBand, 1u);
    EXPECT_EQ(e[1].astRecord[0].uiBand, 0u);
    EXPECT_EQ(e[1].astRecord[2].uiBand, 0u);
    EXPECT_EQ(e[0].astRecord[0].uiVsieLen, 2u);
    EXPECT_EQ(e[1].astRecord[1].uiVsieLen, 1u);
    EXPECT_EQ(e[1].astRecord[1].aucVsie[0], 3u);
    EXPECT_STREQ(e[1].astRecord[2].szMac, "d");
    EXPECT_EQ(list.astEntry[3].uiIdx, 0u);
}

TEST(VsieProberxList, WalksStayInsideTheListAndTheRecord)
{
    {
        // Records carrying "vsie" in a list shorter than three: stored, and nothing past the list is read.
        static VsieProbeRxList list;
        std::memset(&list, 0, sizeof list);
        EXPECT_EQ(JTS_Vsie_Proberx_List(Msg(R"({"list": [{"idx": 1, "record": [{"vsie": [1]}]},
                                                          {"idx": 2, "record": [{"vsie": [2]}]}], "idx": 9})"),
                                        &list),
                  0);
        EXPECT_EQ(list.uiCount, 2u);
        EXPECT_EQ(list.astEntry[1].astRecord[0].aucVsie[0], 2u);
        EXPECT_EQ(list.astEntry[2].uiIdx, 0u);
    }
    {
        // More than eight records and 255 payload bytes stop at the arrays' ends.
        static Guarded<VsieProbeRxList> g;
        std::memset(&g.rec, 0, sizeof g.rec);
        std::string records;
        for (int r = 0; r < 10; ++r)
            records += std::string(r ? "," : "") + R"({"mac": "m)" + std::to_string(r) + R"(", "vsie": )" + numbers(0, 300) + "}";
        std::string json = R"({"list": [{"record": [)" + records + "]}]}";
        EXPECT_EQ(JTS_Vsie_Proberx_List(Msg(json.c_str()), &g.rec), 0);
        const VsieProbeRxEntry &e = g.rec.astEntry[0];
        EXPECT_EQ(e.uiRecordCount, 8u);
        EXPECT_STREQ(e.astRecord[7].szMac, "m7");
        EXPECT_EQ(e.astRecord[7].uiVsieLen, 255u);
        EXPECT_EQ(e.astRecord[7].aucVsie[254], 254u);
        EXPECT_TRUE(g.guard_intact());
    }
}

TEST(VsieProberxList, TracesEveryStep)
{
    BX_REQUIRE_TRACE_CAPTURE();
    static VsieProbeRxList list;
    std::memset(&list, 0, sizeof list);
    TraceCapture cap;
    EXPECT_EQ(JTS_Vsie_Proberx_List(
                  Msg(R"({"list": [{"idx": 7, "servicename": "s", "band": "5G", "oui": [5],
                          "record": [{"mac": "m", "band": "2.4G", "vsie": [9]}]}, {"idx": 8}]})"),
                  &list),
              0);
    std::vector<std::string> texts;
    for (const std::string &line : cap.take()) {
        ASSERT_THAT(line, testing::AnyOf(testing::StartsWith("JTS_Vsie_Proberx_List: "),
                                         testing::StartsWith("JTS_CheckBlobAttr: ")));
        texts.push_back(line.substr(line.find(": ") + 2));
    }
    EXPECT_THAT(texts, ElementsAre("blobmsg_parse1\n\n", "blobmsg_parse2\n\n", "blobmsg_for_each_attr1\n\n",
                                   "blobmsg_parse3\n\n", "Idx0:7\n", "Servicename0:s\n", "Band0:1\n",
                                   "blobmsg_parse4\n\n", "blobmsg_for_each_attr2\n\n", "Iedata0:5\n",
                                   "JTS_CheckBlobAttr\n", "blobmsg_for_each_attr333\n\n", "blobmsg_parse111\n\n",
                                   "Mac:m\n", "Band:1\n", "blobmsg_parse222\n\n", "blobmsg_for_each_attr444\n\n",
                                   "uiVsiedata:0\n", "VSIE:9\n", "JTS_CheckBlobAttr end\n\n",
                                   // second entry: only "idx"
                                   "blobmsg_for_each_attr1\n\n", "blobmsg_parse3\n\n", "Idx1:8\n",
                                   "Illegal parameter: servicename\n", "Illegal parameter: band\n",
                                   "blobmsg_parse4\n\n", "Illegal parameter: oui\n", "No OUI\n",
                                   "Illegal parameter: record\n", "JTS_CheckBlobAttr break\n"));
}

TEST(VsieProbe, RoundTripThroughTheProgram)
{
    bxtest::ToolResult r;
    if (!bxtest::run_tool(MSG_VSIE_PROBERESP_ADD, R"({"mac": "aa", "iedata": [221, 300]})", r))
        GTEST_SKIP() << "blobxlate program not built";
    EXPECT_EQ(r.exit_code, 0);
    EXPECT_EQ(r.out, "JSON_TRANS_STRUCT: 0\nSTRUCT_TRANS_JSON: 0\n"
                     "{\n\t\"mac\": \"aa\",\n\t\"iedata\": [\n\t\t221,\n\t\t44\n\t]\n}\n");
    ASSERT_TRUE(bxtest::run_tool(MSG_VSIE_PROBERX_RECORD_ADD, R"({"record": [{"mac": "m", "band": "5G", "vsie": [0, 80, 242, 4]}]})", r));
    EXPECT_EQ(r.exit_code, 0);
    EXPECT_EQ(r.out, "JSON_TRANS_STRUCT: 0\nSTRUCT_TRANS_JSON: 0\n"
                     "{\n\t\"record\": [\n\t\t{\n\t\t\t\"mac\": \"m\",\n\t\t\t\"band\": \"5G\",\n\t\t\t\"vsie\": [\n"
                     "\t\t\t\t0,\n\t\t\t\t80,\n\t\t\t\t242,\n\t\t\t\t4,\n\t\t\t\t0,\n\t\t\t\t0,\n\t\t\t\t0\n"
                     "\t\t\t]\n\t\t}\n\t]\n}\n");
}

} // namespace
