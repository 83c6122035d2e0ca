// Vendor elements in beacons: limits, beacon entries and their list, the
// index messages, and the dispatch rows of the whole vendor-element family.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "vsie_support.h"

using bxtest::Msg;
using bxtest::TraceCapture;
using testing::ElementsAre;
using vsietest::Guarded;
using vsietest::numbers;

namespace {

TEST(VsieDispatch, NameTextsAndTheSharedIndexConverter)
{
    BX_REQUIRE_TRACE_CAPTURE();
    const char *names[] = {"Vsie_Info", "Vsie_Beacontx_Add", "Vsie_Beacontx_Idx", "Vsie_Beacontx_List",
                           "Vsie_Beacontx_Set", "Vsie_Proberx_Add", "Vsie_Proberx_Idx", "Vsie_Proberx_List",
                           "Vsie_Proberx_Flush", "Vsie_Proberx_Record_Add", "Vsie_Proberesp_Add",
                           "Vsie_Proberesp_Idx", "Vsie_Proberesp_List"};
    alignas(8) static unsigned char rec[64 * 1024];
    for (int type = MSG_VSIE_INFO; type <= MSG_VSIE_PROBERESP_LIST; ++type) {
        SCOPED_TRACE(type);
        std::string name = names[type - MSG_VSIE_INFO];
        bxtest::Buf buf;
        TraceCapture cap;
        EXPECT_EQ(STRUCT_TRANS_JSON(type, rec, buf.get()), 0);
        EXPECT_EQ(JSON_TRANS_STRUCT(type, Msg("{}"), rec), 0);
        auto lines = cap.take();
        ASSERT_GE(lines.size(), 3u);
        EXPECT_EQ(lines[0], "STRUCT_TRANS_JSON: Struct To Json: [" + name + "] \n\n");
        EXPECT_EQ(lines[2], "JSON_TRANS_STRUCT: Json To Struct: [" + name + "] \n\n");
    }
    EXPECT_EQ(&STJ_Vsie_Proberx_Idx, &STJ_Vsie_Beacontx_Idx);
    EXPECT_EQ(&STJ_Vsie_Proberesp_Idx, &STJ_Vsie_Beacontx_Idx);
}

TEST(VsieInfo, BothWays)
{
    BX_REQUIRE_TRACE_CAPTURE();
    VsieInfo info{8, 4, 3, 0xFFFFFFFFu};
    EXPECT_EQ(bxtest::stj_typed(MSG_VSIE_INFO, &info),
              "maxbeacontxentry=i32:8 maxbeacontxconcurrent=i32:4 maxproberxentry=i32:3 maxproberespentry=i32:-1");
    VsieInfo back{0, 0, 0, 77};
    TraceCapture cap;
    EXPECT_EQ(JTS_Vsie_Info(Msg(R"({"maxproberxentry": 3, "maxbeacontxentry": 8, "maxbeacontxconcurrent": 4})"), &back), 0);
    EXPECT_THAT(vsietest::texts_from(cap.take(), "JTS_Vsie_Info"), ElementsAre("MaxBeacontxEntry:8\n", "MaxBeacontxConCurrent:4\n", "MaxProberxEntry:3\n",
                                              "Illegal parameter: maxproberespentry\n"));
    EXPECT_EQ(back.uiMaxBeaconTxConcurrent, 4u);
    EXPECT_EQ(back.uiMaxProbeRespEntry, 77u);
}

TEST(VsieBeacontxAdd, SendsEverythingButTheIndex)
{
    VsieBeaconTxEntry e{9, "svc", 1, 60, 3, {221, 5, 0, 99}};
    EXPECT_EQ(bxtest::stj_typed(MSG_VSIE_BEACONTX_ADD, &e),
              R"(servicename=s"svc" ssididx=i32:1 duration=i32:60 len=i32:3 iedata=[i32:221 i32:5 i32:0])");
    e.uiLen = 0;
    EXPECT_THAT(bxtest::stj_typed(MSG_VSIE_BEACONTX_ADD, &e), testing::EndsWith("len=i32:0 iedata=[]"));
    e.uiLen = 1000;  // sent as it is; the bytes stop at the record's slots
    EXPECT_EQ(vsietest::count_i32(bxtest::stj_typed(MSG_VSIE_BEACONTX_ADD, &e)), 3u + 256u);
}

TEST(VsieBeacontxAdd, ReceivedBytesStopAtTheLength)
{
    const struct {
        std::string json;
        uint32_t len_before, len_after;
        std::vector<uint32_t> slots;  // the first slots afterwards (0xEE: untouched)
    } cases[] = {
        {R"({"len": 3, "iedata": [221, 5, 0, 80, 242]})", 0, 3, {221, 5, 0, 0xEE}},
        // Without "len" the caller's length bounds the walk.
        {R"({"iedata": [221, 5, 0]})", 0, 0, {0xEE}},
        {R"({"iedata": [221, 5, 0]})", 2, 2, {221, 5, 0xEE}},
        {R"({"len": 4, "iedata": [7]})", 0, 4, {7, 0xEE}},
        // Elements of another type are read from their own bytes; a non-array is absent.
        {R"({"len": 2, "iedata": [-1, "A"]})", 0, 2, {0xFFFFFFFFu, 0x41000000u}},
        {R"({"len": 9, "iedata": 5})", 0, 9, {0xEE}},
        // A length from the sender never takes the walk past the slots.
        {R"({"len": 100000, "iedata": )" + numbers(1, 300) + "}", 0, 100000, {1, 2}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.json);
        Guarded<VsieBeaconTxEntry> g;
        g.rec.uiLen = c.len_before;
        std::fill(std::begin(g.rec.auiIeData), std::end(g.rec.auiIeData), 0xEEu);
        EXPECT_EQ(JSON_TRANS_STRUCT(MSG_VSIE_BEACONTX_ADD, Msg(c.json.c_str()), &g.rec), 0);
        EXPECT_EQ(g.rec.uiLen, c.len_after);
        for (size_t i = 0; i < c.slots.size(); ++i)
            EXPECT_EQ(g.rec.auiIeData[i], c.slots[i]) << "slot " << i;
        EXPECT_TRUE(g.intact());
    }
}

TEST(VsieBeacontxAdd, Traces)
{
    BX_REQUIRE_TRACE_CAPTURE();
    VsieBeaconTxEntry e{};
    TraceCapture cap;
    EXPECT_EQ(JTS_Vsie_Beacontx_Add(Msg(R"({"idx": 4, "servicename": "svc", "len": 2, "iedata": [65, 66]})"), &e), 0);
    EXPECT_THAT(cap.take(), ElementsAre("JTS_Vsie_Beacontx_Add: Servicename:svc\n",
                                        "JTS_CheckBlobAttr: Illegal parameter: ssididx\n",
                                        "JTS_CheckBlobAttr: Illegal parameter: duration\n", "JTS_Vsie_Beacontx_Add: Len:2\n",
                                        "JTS_Vsie_Beacontx_Add: Iedata:A\n", "JTS_Vsie_Beacontx_Add: Iedata:B\n"));
    EXPECT_EQ(e.uiIdx, 0u);  // not read
    EXPECT_EQ(JTS_Vsie_Beacontx_Add(Msg(R"({"duration": 30})"), &e), 0);
    EXPECT_EQ(e.uiDuration, 30u);
    EXPECT_THAT(vsietest::texts_from(cap.take(), "JTS_Vsie_Beacontx_Add"), testing::IsSupersetOf({"Illegal parameter: iedata\n", "No IEDATA\n"}));
}

TEST(VsieIndex, AllThreeIndexMessages)
{
    BX_REQUIRE_TRACE_CAPTURE();
    const std::pair<int, std::string> types[] = {{MSG_VSIE_BEACONTX_IDX, "JTS_Vsie_Beacontx_Idx"},
                                                 {MSG_VSIE_PROBERX_IDX, "JTS_Vsie_Proberx_Idx"},
                                                 {MSG_VSIE_PROBERESP_IDX, "JTS_Vsie_Proberesp_Idx"}};
    for (const auto &[type, func] : types) {
        SCOPED_TRACE(type);
        VsieIndex idx{7};
        EXPECT_EQ(bxtest::stj_typed(type, &idx), "idx=i32:7");
        TraceCapture cap;
        EXPECT_EQ(JSON_TRANS_STRUCT(type, Msg("{}"), &idx), 0);
        EXPECT_EQ(idx.uiIdx, 7u);
        EXPECT_EQ(cap.take().back(), "JTS_CheckBlobAttr: Illegal parameter: idx\n");
        EXPECT_EQ(JSON_TRANS_STRUCT(type, Msg(R"({"idx": 3})"), &idx), 0);
        EXPECT_EQ(idx.uiIdx, 3u);
        EXPECT_EQ(cap.take().back(), func + ": Idx:3\n");
    }
}

TEST(VsieBeacontxSet, EnableTravelsAsASwitchWordWithoutRangeCheck)
{
    BX_REQUIRE_TRACE_CAPTURE();
    for (auto [value, word] : {std::pair{1u, "enable"}, {0u, "disable"}, {5u, ""}}) {
        VsieBeaconTxSwitch sw{2, value};
        EXPECT_EQ(bxtest::stj_typed(MSG_VSIE_BEACONTX_SET, &sw), std::string("idx=i32:2 enable=s\"") + word + "\"");
    }
    VsieBeaconTxSwitch back{};
    TraceCapture cap;
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_VSIE_BEACONTX_SET, Msg(R"({"enable": "on", "idx": 4})"), &back), 0);
    EXPECT_EQ(back.uiIdx, 4u);
    EXPECT_EQ(back.uiEnable, 0xFFFFFFFFu);
    EXPECT_THAT(vsietest::texts_from(cap.take(), "JTS_Vsie_Beacontx_Set"), testing::IsSupersetOf({"Idx:4\n", "Enable:-1\n"}));
}

TEST(VsieBeacontxList, SendsCountAndEntries)
{
    static VsieBeaconTxList list;
    list.uiCount = 2;
    list.astEntry[0] = {1, "a", 2, 3, 1, {221}};
    list.astEntry[1] = {4, "b", 5, 6, 0, {}};
    EXPECT_EQ(bxtest::stj_typed(MSG_VSIE_BEACONTX_LIST, &list),
              R"(count=i32:2 list=[{idx=i32:1 servicename=s"a" ssididx=i32:2 duration=i32:3 len=i32:1 iedata=[i32:221]} )"
              R"({idx=i32:4 servicename=s"b" ssididx=i32:5 duration=i32:6 len=i32:0 iedata=[]}])");
    list.uiCount = 1000;  // sent as it is; the entries stop at the record's end
    std::string typed = bxtest::stj_typed(MSG_VSIE_BEACONTX_LIST, &list);
    EXPECT_THAT(typed, testing::StartsWith("count=i32:1000 "));
    EXPECT_EQ(std::count(typed.begin(), typed.end(), '{'), VSIE_BEACONTX_LIST_MAX);
}

TEST(VsieBeacontxList, WalkIsBoundedByCountAndTheTopLevelIedata)
{
    BX_REQUIRE_TRACE_CAPTURE();
    const std::string three = R"([{"idx": 1, "len": 1, "iedata": [65]}, {"idx": 2, "len": 1, "iedata": [66]},
                                  {"idx": 3, "len": 1, "iedata": [67]}])";
    const struct {
        std::string json;
        uint32_t count_before, count_after;
        std::vector<uint32_t> idx, first_byte;  // of entries 0 to 2
        size_t null_cur, no_iedata;
    } cases[] = {
        {R"({"count": 2, "iedata": [], "list": )" + three + "}", 0, 2, {1, 2, 0}, {65, 66, 0}, 1, 0},
        // Without a top-level "iedata" only the first entry's scalars are read.
        {R"({"count": 2, "list": )" + three + "}", 0, 2, {1, 0, 0}, {0, 0, 0}, 0, 1},
        // Without "count" the caller's count bounds the walk.
        {R"({"iedata": [1], "list": )" + three + "}", 1, 1, {1, 0, 0}, {65, 0, 0}, 2, 0},
        // An element without bytes still takes its place; a number takes an empty one.
        {R"({"count": 3, "iedata": [], "list": [{"idx": 1}, 5, {"idx": 3, "len": 1, "iedata": [67]}]})", 0, 3,
         {1, 0, 3}, {0, 0, 67}, 0, 0},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.json);
        static VsieBeaconTxList list;
        std::memset(&list, 0, sizeof list);
        list.uiCount = c.count_before;
        TraceCapture cap;
        EXPECT_EQ(JSON_TRANS_STRUCT(MSG_VSIE_BEACONTX_LIST, Msg(c.json.c_str()), &list), 0);
        EXPECT_EQ(list.uiCount, c.count_after);
        for (size_t n = 0; n < 3; ++n) {
            EXPECT_EQ(list.astEntry[n].uiIdx, c.idx[n]) << "entry " << n;
            EXPECT_EQ(list.astEntry[n].auiIeData[0], c.first_byte[n]) << "entry " << n;
        }
        auto lines = cap.take();
        EXPECT_EQ(vsietest::count_line(lines, "JTS_Vsie_Beacontx_List: NULL == cur\n\n"), c.null_cur);
        EXPECT_EQ(vsietest::count_line(lines, "JTS_Vsie_Beacontx_List: No IEDATA\n"), c.no_iedata);
    }
}

TEST(VsieBeacontxList, ElementTracesCarryTheEntryNumber)
{
    BX_REQUIRE_TRACE_CAPTURE();
    static VsieBeaconTxList list;
    TraceCapture cap;
    EXPECT_EQ(JTS_Vsie_Beacontx_List(Msg(R"({"count": 1, "iedata": [], "list": [{"idx": 5, "servicename": "s",
                                             "ssididx": 6, "duration": 7, "len": 1, "iedata": [65, 66]}]})"),
                                     &list),
              0);
    EXPECT_THAT(vsietest::texts_from(cap.take(), "JTS_Vsie_Beacontx_List"), ElementsAre("Count:1\n", "Idx0:5\n", "Servicename0:s\n", "Ssididx0:6\n",
                                              "Duration0:7\n", "Len0:1\n", "Iedata0:A\n"));
}

TEST(VsieBeacontxList, CountFromTheSenderNeverWritesPastTheRecord)
{
    static Guarded<VsieBeaconTxList> g;
    std::string json = R"({"count": 100, "iedata": [], "list": [)";
    for (int i = 0; i < 20; ++i)
        json += (i ? R"(,{"idx": )" : R"({"idx": )") + std::to_string(i) + R"(, "len": 300, "iedata": )" + numbers(0, 300) + "}";
    EXPECT_EQ(JTS_Vsie_Beacontx_List(Msg((json + "]}").c_str()), &g.rec), 0);
    EXPECT_EQ(g.rec.uiCount, 100u);
    EXPECT_EQ(g.rec.astEntry[VSIE_BEACONTX_LIST_MAX - 1].uiIdx, VSIE_BEACONTX_LIST_MAX - 1u);
    EXPECT_EQ(g.rec.astEntry[0].auiIeData[255], 255u);
    EXPECT_TRUE(g.intact());
}

TEST(VsieBeacontxList, RoundTripThroughTheProgram)
{
    bxtest::ToolResult r;
    if (!bxtest::run_tool(MSG_VSIE_BEACONTX_LIST, R"({"count": 1, "iedata": [], "list": [{"idx": 2, "servicename": "s",
                                                      "ssididx": 0, "duration": 9, "len": 2, "iedata": [221, 3, 4]}]})",
                          r))
        GTEST_SKIP() << "blobxlate program not built";
    EXPECT_EQ(r.exit_code, 0);
    EXPECT_EQ(r.out, "JSON_TRANS_STRUCT: 0\nSTRUCT_TRANS_JSON: 0\n{\n\t\"count\": 1,\n\t\"list\": [\n\t\t{\n"
                     "\t\t\t\"idx\": 2,\n\t\t\t\"servicename\": \"s\",\n\t\t\t\"ssididx\": 0,\n\t\t\t\"duration\": 9,\n"
                     "\t\t\t\"len\": 2,\n\t\t\t\"iedata\": [\n\t\t\t\t221,\n\t\t\t\t3\n\t\t\t]\n\t\t}\n\t]\n}\n");
}

} // namespace
