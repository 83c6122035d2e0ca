// Vendor elements in probes: probe-receive entries, station records and their
// list, the flush message, probe-response entries and their list.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "vsie_support.h"

using bxtest::Msg;
using bxtest::TraceCapture;
using testing::ElementsAre;
using vsietest::Guarded;
using vsietest::numbers;

namespace {

template <size_t N>
std::vector<int> bytes(const uint8_t (&a)[N], size_t n = N)
{
    return std::vector<int>(a, a + n);
}

TEST(VsieProberxAdd, BothWays)
{
    BX_REQUIRE_TRACE_CAPTURE();
    VsieProbeRxEntry e{3, "svc", 1, {0, 80, 242}, 1, {}};
    EXPECT_EQ(bxtest::stj_typed(MSG_VSIE_PROBERX_ADD, &e), R"(servicename=s"svc" band=s"5G" oui=[i32:0 i32:80 i32:242])");
    VsieProbeRxEntry back{};
    back.uiIdx = 9;
    TraceCapture cap;
    EXPECT_EQ(JTS_Vsie_Proberx_Add(Msg(R"({"idx": 1, "servicename": "svc", "band": "6G", "oui": [0, 80, 242, 1]})"), &back), 0);
    EXPECT_EQ(back.uiIdx, 9u);   // not read
    EXPECT_EQ(back.uiBand, 2u);  // no range check
    EXPECT_THAT(bytes(back.aucOui), ElementsAre(0, 80, 242));
    EXPECT_THAT(vsietest::texts_from(cap.take(), "JTS_Vsie_Proberx_Add"), ElementsAre("Servicename:svc\n", "Band:2\n", "OUI[0]:0\n", "OUI[1]:80\n", "OUI[2]:242\n"));
    VsieProbeRxEntry shorter{};
    EXPECT_EQ(JTS_Vsie_Proberx_Add(Msg(R"({"oui": [513, -1]})"), &shorter), 0);
    EXPECT_THAT(bytes(shorter.aucOui), ElementsAre(1, 255, 0));
}

TEST(VsieProberxFlush, NameTravelsFromTheRecordStartButLandsAfterTheIndex)
{
    VsieProbeRxEntry e{};
    std::memcpy(&e.uiIdx, "abc", 4);
    std::strcpy(e.szServiceName, "other");
    EXPECT_EQ(bxtest::stj_typed(MSG_VSIE_PROBERX_FLUSH, &e), R"(servicename=s"abc")");
    VsieProbeRxFlush flush;
    std::memset(flush.szServiceName, 'n', sizeof flush.szServiceName);  // unterminated
    EXPECT_EQ(bxtest::stj_typed(MSG_VSIE_PROBERX_FLUSH, &flush), "servicename=s\"" + std::string(64, 'n') + "\"");

    VsieProbeRxEntry back{};
    back.uiIdx = 5;
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_VSIE_PROBERX_FLUSH, Msg((R"({"servicename": ")" + std::string(70, 'q') + "\"}").c_str()), &back), 0);
    EXPECT_EQ(back.uiIdx, 5u);
    EXPECT_EQ(std::string(back.szServiceName), std::string(63, 'q'));
    EXPECT_EQ(JTS_Vsie_Proberx_Flush(Msg(R"({"servicename": 1})"), &back), 0);
    EXPECT_EQ(std::string(back.szServiceName), std::string(63, 'q'));
}

TEST(VsieProberxRecordAdd, OuiComesFirstAndIsCountedInTheLength)
{
    BX_REQUIRE_TRACE_CAPTURE();
    VsieProbeRxRecord rec{};
    TraceCapture cap;
    EXPECT_EQ(JTS_Vsie_Proberx_Record_Add(
                  Msg(R"({"record": [{"mac": "00:11:22:33:44:55", "band": "5G", "vsie": [0, 80, 242, 4, 1, 2]}]})"), &rec),
              0);
    EXPECT_EQ(rec.uiBand, 1u);
    EXPECT_THAT(bytes(rec.aucOui), ElementsAre(0, 80, 242));
    EXPECT_THAT(bytes(rec.aucVsie, 4), ElementsAre(4, 1, 2, 0));
    EXPECT_EQ(rec.uiVsieLen, 6u);
    EXPECT_THAT(vsietest::texts_from(cap.take(), "JTS_Vsie_Proberx_Record_Add"), ElementsAre("Mac:00:11:22:33:44:55\n", "Band:1\n", "count:3,count_oui:3\n"));
    // Sent back: the OUI, then uiVsieLen payload bytes, three more than came in.
    EXPECT_EQ(bxtest::stj_typed(MSG_VSIE_PROBERX_RECORD_ADD, &rec),
              R"(record=[{mac=s"00:11:22:33:44:55" band=s"5G" vsie=[i32:0 i32:80 i32:242 i32:4 i32:1 i32:2 i32:0 i32:0 i32:0]}])");
}

TEST(VsieProberxRecordAdd, OddMessages)
{
    BX_REQUIRE_TRACE_CAPTURE();
    // Only the first element is read: the walk cannot step on past it.
    VsieProbeRxRecord rec{};
    EXPECT_EQ(JTS_Vsie_Proberx_Record_Add(
                  Msg(R"({"record": [{"mac": "m1", "vsie": [1, 2, 3, 4]}, {"mac": "m2", "vsie": [5, 6, 7, 8]}]})"), &rec),
              0);
    EXPECT_STREQ(rec.szMac, "m1");
    EXPECT_EQ(rec.uiVsieLen, 4u);
    EXPECT_THAT(bytes(rec.aucVsie, 2), ElementsAre(4, 0));
    // No "record": nothing changes. An element without "vsie" still sets the length.
    TraceCapture cap;
    EXPECT_EQ(JTS_Vsie_Proberx_Record_Add(Msg(R"({"mac": "m"})"), &rec), 0);
    EXPECT_EQ(rec.uiVsieLen, 4u);
    EXPECT_THAT(vsietest::texts_from(cap.take(), "JTS_Vsie_Proberx_Record_Add"), ElementsAre("Illegal parameter: record\n", "JTS_CheckBlobAttr failed\n"));
    EXPECT_EQ(JTS_Vsie_Proberx_Record_Add(Msg(R"({"record": [{"mac": "m"}]})"), &rec), 0);
    EXPECT_EQ(rec.uiVsieLen, 0u);
    // A MAC fills the whole array; the payload stops at 255 bytes.
    Guarded<VsieProbeRxRecord> g;
    std::string json = R"({"record": [{"mac": "0123456789abcdefghij", "vsie": )" + numbers(0, 300) + "}]}";
    EXPECT_EQ(JTS_Vsie_Proberx_Record_Add(Msg(json.c_str()), &g.rec), 0);
    EXPECT_EQ(std::string(g.rec.szMac, 18), "0123456789abcdefgh");
    EXPECT_EQ(g.rec.uiVsieLen, 258u);
    EXPECT_EQ(g.rec.aucVsie[254], 1u);  // 257, low byte
    EXPECT_TRUE(g.intact());
    EXPECT_EQ(vsietest::count_i32(bxtest::stj_typed(MSG_VSIE_PROBERX_RECORD_ADD, &g.rec)), 3u + 255u);
}

TEST(VsieProberespAdd, BothWays)
{
    BX_REQUIRE_TRACE_CAPTURE();
    VsieProbeRespEntry e{2, "aa:bb", 1, 2, {221, 9}};
    EXPECT_EQ(bxtest::stj_typed(MSG_VSIE_PROBERESP_ADD, &e), R"(mac=s"aa:bb" iedata=[i32:221 i32:9])");
    const struct {
        std::string json;
        uint32_t len;
        std::vector<std::string> tail;  // last trace texts
    } cases[] = {
        {R"({"idx": 4, "band": "5G", "mac": "m", "iedata": [511, 10]})", 2,
         {"Iedata:ff\n", "Iedata:a\n", "pstOut->uiIedataLen:2\n"}},
        {R"({"mac": "m", "iedata": )" + numbers(0, 300) + "}", 256, {"pstOut->uiIedataLen:256\n"}},
        {R"({"mac": "m"})", 77, {"Illegal parameter: iedata\n", "No IEDATA\n"}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.json);
        Guarded<VsieProbeRespEntry> g;
        g.rec.uiIedataLen = 77;
        TraceCapture cap;
        EXPECT_EQ(JSON_TRANS_STRUCT(MSG_VSIE_PROBERESP_ADD, Msg(c.json.c_str()), &g.rec), 0);
        EXPECT_EQ(g.rec.uiIedataLen, c.len);
        EXPECT_EQ(g.rec.uiIdx + g.rec.uiBand, 0u);  // not read
        EXPECT_STREQ(g.rec.szMac, "m");
        EXPECT_TRUE(g.intact());
        auto texts = vsietest::texts_from(cap.take(), "JTS_Vsie_Proberesp_Add");
        ASSERT_GE(texts.size(), c.tail.size());
        EXPECT_EQ(std::vector<std::string>(texts.end() - static_cast<long>(c.tail.size()), texts.end()), c.tail);
    }
}

TEST(VsieProberespList, BothWays)
{
    BX_REQUIRE_TRACE_CAPTURE();
    VsieProbeRespList list{2, {{1, "m1", 0, 1, {65}}, {2, "m2", 1, 0, {}}}};
    EXPECT_EQ(bxtest::stj_typed(MSG_VSIE_PROBERESP_LIST, &list),
              R"(list=[{idx=i32:1 mac=s"m1" band=s"2.4G" iedata=[i32:65]} {idx=i32:2 mac=s"m2" band=s"5G" iedata=[]}])");
    VsieProbeRespList back{};
    TraceCapture cap;
    EXPECT_EQ(JTS_Vsie_Proberesp_List(Msg(R"({"list": [{"idx": 1, "mac": "m1", "band": "5G", "iedata": [65]},
                                                        {"idx": 2}, {"idx": 3}, {"idx": 4}, {"idx": 5}]})"),
                                      &back),
              0);
    EXPECT_EQ(back.uiCount, 3u);
    EXPECT_EQ(back.astEntry[2].uiIdx, 3u);
    EXPECT_EQ(back.astEntry[3].uiIdx, 0u);
    auto texts = vsietest::texts_from(cap.take(), "JTS_Vsie_Proberesp_List");
    EXPECT_THAT(std::vector<std::string>(texts.begin(), texts.begin() + 4),
                ElementsAre("Idx0:1\n", "Mac0:m1\n", "Band0:1\n", "Iedata0:A\n"));
    EXPECT_EQ(vsietest::count_line(texts, "NULL == cur\n\n"), 1u);
    EXPECT_EQ(JTS_Vsie_Proberesp_List(Msg(R"({"count": 3})"), &back), 0);
    EXPECT_EQ(back.uiCount, 0u);  // counted by the walk, also without a list
}

TEST(VsieProberxList, SendsEntriesWithTheirRecordsButNotTheirOui)
{
    static VsieProbeRxList list;
    list.uiCount = 1;
    list.astEntry[0] = {4, "s", 1, {1}, 2, {{0, "m1", 0, 2, {7}, {99}}, {0, "m2", 1, 0, {}, {}}}};
    EXPECT_EQ(bxtest::stj_typed(MSG_VSIE_PROBERX_LIST, &list),
              R"(list=[{idx=i32:4 servicename=s"s" band=s"5G" oui=[i32:1 i32:0 i32:0] record=[)"
              R"({mac=s"m1" band=s"2.4G" vsie=[i32:7 i32:0]} {mac=s"m2" band=s"5G" vsie=[]}]}])");
}

TEST(VsieProberxList, SharedCountersAndTheEntryBand)
{
    static VsieProbeRxList list;
    // Entry 0 has one record, so entry 1's OUI starts at index 1; entry 1
    // has three, so entry 2's OUI is not stored at all.
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_VSIE_PROBERX_LIST, Msg(R"({"list": [
        {"idx": 1, "band": "5G", "oui": [10, 11, 12], "record": [{"mac": "a", "band": "x", "vsie": [1, 2]}]},
        {"idx": 2, "band": "2.4G", "oui": [20, 21, 22],
         "record": [{"mac": "b", "band": "5G"}, {"mac": "c", "vsie": [3]}, {"mac": "d", "band": "5G"}]},
        {"idx": 3, "oui": [30, 31, 32]}, {"idx": 4, "oui": [40]}]})"), &list),
              0);
    EXPECT_EQ(list.uiCount, 3u);
    const VsieProbeRxEntry *e = list.astEntry;
    EXPECT_THAT(bytes(e[0].aucOui), ElementsAre(10, 11, 12));
    EXPECT_THAT(bytes(e[1].aucOui), ElementsAre(0, 20, 21));
    EXPECT_THAT(bytes(e[2].aucOui), ElementsAre(0, 0, 0));
    EXPECT_EQ(e[1].uiRecordCount, 3u);
    EXPECT_EQ(e[2].uiRecordCount, 0u);
    // A record that has a band gets the entry's.
    EXPECT_EQ(e[0].astRecord[0].uiBand, 1u);
    EXPECT_EQ(e[1].astRecord[0].uiBand, 0u);
    EXPECT_EQ(e[1].astRecord[1].uiVsieLen, 1u);
    EXPECT_STREQ(e[1].astRecord[2].szMac, "d");
    EXPECT_EQ(e[3].uiIdx, 0u);
}

TEST(VsieProberxList, WalksStayInsideTheListAndTheRecord)
{
    // Records carrying "vsie" in a list of two: both stored, nothing read past the list.
    static Guarded<VsieProbeRxList> g;
    EXPECT_EQ(JTS_Vsie_Proberx_List(Msg(R"({"list": [{"idx": 1, "record": [{"vsie": [1]}]},
                                                      {"idx": 2, "record": [{"vsie": [2]}]}], "idx": 9})"),
                                    &g.rec),
              0);
    EXPECT_EQ(g.rec.uiCount, 2u);
    EXPECT_EQ(g.rec.astEntry[1].astRecord[0].aucVsie[0], 2u);
    // More than eight records and 255 payload bytes stop at the arrays' ends.
    std::string records;
    for (int r = 0; r < 10; ++r)
        records += (r ? R"(,{"mac": "m)" : R"({"mac": "m)") + std::to_string(r) + R"(", "vsie": )" + numbers(0, 300) + "}";
    EXPECT_EQ(JTS_Vsie_Proberx_List(Msg((R"({"list": [{"record": [)" + records + "]}]}").c_str()), &g.rec), 0);
    const VsieProbeRxEntry &e = g.rec.astEntry[0];
    EXPECT_EQ(e.uiRecordCount, 8u);
    EXPECT_STREQ(e.astRecord[7].szMac, "m7");
    EXPECT_EQ(e.astRecord[7].uiVsieLen, 255u);
    EXPECT_TRUE(g.intact());
}

TEST(VsieProberxList, TracesEveryStep)
{
    BX_REQUIRE_TRACE_CAPTURE();
    static VsieProbeRxList list;
    TraceCapture cap;
    EXPECT_EQ(JTS_Vsie_Proberx_List(Msg(R"({"list": [{"idx": 7, "servicename": "s", "band": "5G", "oui": [5],
                                             "record": [{"mac": "m", "band": "2.4G", "vsie": [9]}]}, {"idx": 8}]})"),
                                    &list),
              0);
    EXPECT_THAT(vsietest::texts_from(cap.take(), "JTS_Vsie_Proberx_List"),
                ElementsAre("blobmsg_parse1\n\n", "blobmsg_parse2\n\n", "blobmsg_for_each_attr1\n\n", "blobmsg_parse3\n\n",
                            "Idx0:7\n", "Servicename0:s\n", "Band0:1\n", "blobmsg_parse4\n\n",
                            "blobmsg_for_each_attr2\n\n", "Iedata0:5\n", "JTS_CheckBlobAttr\n",
                            "blobmsg_for_each_attr333\n\n", "blobmsg_parse111\n\n", "Mac:m\n", "Band:1\n",
                            "blobmsg_parse222\n\n", "blobmsg_for_each_attr444\n\n", "uiVsiedata:0\n", "VSIE:9\n",
                            "JTS_CheckBlobAttr end\n\n",
                            // the second entry has only "idx"
                            "blobmsg_for_each_attr1\n\n", "blobmsg_parse3\n\n", "Idx1:8\n",
                            "Illegal parameter: servicename\n", "Illegal parameter: band\n", "blobmsg_parse4\n\n",
                            "Illegal parameter: oui\n", "No OUI\n", "Illegal parameter: record\n",
                            "JTS_CheckBlobAttr break\n"));
}

TEST(VsieProbe, RoundTripsThroughTheProgram)
{
    bxtest::ToolResult r;
    if (!bxtest::run_tool(MSG_VSIE_PROBERESP_ADD, R"({"mac": "aa", "iedata": [221, 300]})", r))
        GTEST_SKIP() << "blobxlate program not built";
    EXPECT_EQ(r.exit_code, 0);
    EXPECT_EQ(r.out, "JSON_TRANS_STRUCT: 0\nSTRUCT_TRANS_JSON: 0\n{\n\t\"mac\": \"aa\",\n\t\"iedata\": [\n\t\t221,\n\t\t44\n\t]\n}\n");
    ASSERT_TRUE(bxtest::run_tool(MSG_VSIE_PROBERX_RECORD_ADD, R"({"record": [{"mac": "m", "vsie": [0, 80, 242, 4]}]})", r));
    EXPECT_EQ(r.exit_code, 0);
    EXPECT_EQ(r.out, "JSON_TRANS_STRUCT: 0\nSTRUCT_TRANS_JSON: 0\n{\n\t\"record\": [\n\t\t{\n\t\t\t\"mac\": \"m\",\n"
                     "\t\t\t\"band\": \"2.4G\",\n\t\t\t\"vsie\": [\n\t\t\t\t0,\n\t\t\t\t80,\n\t\t\t\t242,\n\t\t\t\t4,\n"
                     "\t\t\t\t0,\n\t\t\t\t0,\n\t\t\t\t0\n\t\t\t]\n\t\t}\n\t]\n}\n");
}

} // namespace
