// Vendor elements in beacons: limits, the beacon element entries and list,
// the index messages, and the dispatch rows of the whole vendor-element family.
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

namespace {

// A record followed by a guard that no converter may touch.
template <typename T>
struct Guarded {
    T rec{};
    unsigned char guard[64];
    Guarded() { std::memset(guard, 0xA5, sizeof guard); }
    bool guard_intact() const
    {
        for (unsigned char b : guard)
            if (b != 0xA5)
                return false;
        return true;
    }
};

std::string numbers(int from, int count)
{
    std::string out = "[";
    for (int i = 0; i < count; ++i)
        out += (i != 0 ? "," : "") + std::to_string(from + i);
    return out + "]";
}

TEST(VsieDispatch, EveryTypeTracesItsNameTextInBothDirections)
{
    BX_REQUIRE_TRACE_CAPTURE();
    const std::pair<int, const char *> rows[] = {
        {140, "Vsie_Info"},          {141, "Vsie_Beacontx_Add"},       {142, "Vsie_Beacontx_Idx"},
        {143, "Vsie_Beacontx_List"}, {144, "Vsie_Beacontx_Set"},       {145, "Vsie_Proberx_Add"},
        {146, "Vsie_Proberx_Idx"},   {147, "Vsie_Proberx_List"},       {148, "Vsie_Proberx_Flush"},
        {149, "Vsie_Proberx_Record_Add"}, {150, "Vsie_Proberesp_Add"}, {151, "Vsie_Proberesp_Idx"},
        {152, "Vsie_Proberesp_List"},
    };
    for (auto [type, name] : rows) {
        SCOPED_TRACE(type);
        static VsieProbeRxList rec;  // large enough for every record of the family
        std::memset(&rec, 0, sizeof rec);
        Msg msg("{}");
        bxtest::Buf buf;
        TraceCapture cap;
        EXPECT_EQ(STRUCT_TRANS_JSON(type, &rec, buf.get()), 0);
        EXPECT_EQ(JSON_TRANS_STRUCT(type, msg, &rec), 0);
        auto lines = cap.take();
        ASSERT_GE(lines.size(), 3u);
        EXPECT_EQ(lines[0], std::string("STRUCT_TRANS_JSON: Struct To Json: [") + name + "] \n\n");
        EXPECT_EQ(lines[2], std::string("JSON_TRANS_STRUCT: Json To Struct: [") + name + "] \n\n");
    }
}

TEST(VsieDispatch, OneConverterSendsEveryIndexMessage)
{
    const StructToJsonFunc *found[3] = {};
    for (int i = 0; i < g_iStructToJson_FuncNum; ++i) {
        const MessageTransEntry &row = g_astStructToJson_Func[i];
        if (row.id == MSG_VSIE_BEACONTX_IDX)
            found[0] = &row.converter.toJson;
        if (row.id == MSG_VSIE_PROBERX_IDX)
            found[1] = &row.converter.toJson;
        if (row.id == MSG_VSIE_PROBERESP_IDX)
            found[2] = &row.converter.toJson;
    }
    ASSERT_TRUE(found[0] && found[1] && found[2]);
    EXPECT_EQ(*found[1], *found[0]);
    EXPECT_EQ(*found[2], *found[0]);
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
    EXPECT_THAT(cap.take(), ElementsAre("JTS_Vsie_Info: MaxBeacontxEntry:8\n", "JTS_Vsie_Info: MaxBeacontxConCurrent:4\n",
                                        "JTS_Vsie_Info: MaxProberxEntry:3\n",
                                        "JTS_CheckBlobAttr: Illegal parameter: maxproberespentry\n"));
    EXPECT_EQ(back.uiMaxBeaconTxEntry, 8u);
    EXPECT_EQ(back.uiMaxProbeRespEntry, 77u);
}

TEST(VsieBeacontxAdd, SendsEverythingButTheIndex)
{
    Guarded<VsieBeaconTxEntry> g;
    VsieBeaconTxEntry &e = g.rec;
    e.uiIdx = 9;
    std::strcpy(e.szServiceName, "svc");
    e.uiSsidIdx = 1;
    e.uiDuration = 60;
    e.uiLen = 3;
    e.auiIeData[0] = 221;
    e.auiIeData[1] = 5;
    e.auiIeData[3] = 99;  // beyond uiLen
    EXPECT_EQ(bxtest::stj_typed(MSG_VSIE_BEACONTX_ADD, &e),
              R"(servicename=s"svc" ssididx=i32:1 duration=i32:60 len=i32:3 iedata=[i32:221 i32:5 i32:0])");
    e.uiLen = 0;
    EXPECT_THAT(bxtest::stj_typed(MSG_VSIE_BEACONTX_ADD, &e), testing::EndsWith("len=i32:0 iedata=[]"));
    // A full name without terminator is sent as the array holds it.
    std::memset(e.szServiceName, 'x', sizeof e.szServiceName);
    EXPECT_THAT(bxtest::stj_typed(MSG_VSIE_BEACONTX_ADD, &e),
                testing::StartsWith("servicename=s\"" + std::string(64, 'x') + "\" "));
    // A length past the slots sends the slots only.
    e.uiLen = 1000;
    std::string sent = "len=i32:1000 iedata=[";
    for (size_t i = 0; i < 256; ++i)
        sent += (i ? " i32:" : "i32:") + std::to_string(e.auiIeData[i]);
    EXPECT_THAT(bxtest::stj_typed(MSG_VSIE_BEACONTX_ADD, &e), testing::EndsWith(sent + "]"));
}

TEST(VsieBeacontxAdd, ReceivedBytesStopAtTheLength)
{
    struct Case {
        const char *json;
        uint32_t len_before;
        uint32_t len_after;
        std::vector<uint32_t> slots;  // the first slots after the call
    };
    const Case cases[] = {
        {R"({"len": 3, "iedata": [221, 5, 0, 80, 242]})", 0, 3, {221, 5, 0, 0xEE}},
        // Without "len" the caller's length bounds the walk.
        {R"({"iedata": [221, 5, 0]})", 0, 0, {0xEE, 0xEE}},
        {R"({"iedata": [221, 5, 0]})", 2, 2, {221, 5, 0xEE}},
        // Fewer numbers than the length leave the other slots as they were.
        {R"({"len": 4, "iedata": [7]})", 0, 4, {7, 0xEE}},
        // A number element of another type is read from its own bytes.
        {R"({"len": 2, "iedata": [-1, "A"]})", 0, 2, {0xFFFFFFFFu, 0x41000000u}},
        {R"({"len": 9, "iedata": 5})", 0, 9, {0xEE}},  // not an array: absent
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.json);
        VsieBeaconTxEntry e{};
        e.uiLen = c.len_before;
        for (uint32_t &slot : e.auiIeData)
            slot = 0xEE;
        EXPECT_EQ(JSON_TRANS_STRUCT(MSG_VSIE_BEACONTX_ADD, Msg(c.json), &e), 0);
        EXPECT_EQ(e.uiLen, c.len_after);
        for (size_t i = 0; i < c.slots.size(); ++i)
            EXPECT_EQ(e.auiIeData[i], c.slots[i]) << "slot " << i;
    }
}

TEST(VsieBeacontxAdd, LengthFromTheSenderNeverWritesPastTheRecord)
{
    Guarded<VsieBeaconTxEntry> g;
    std::string json = R"({"len": 100000, "iedata": )" + numbers(1, 300) + "}";
    EXPECT_EQ(JTS_Vsie_Beacontx_Add(Msg(json.c_str()), &g.rec), 0);
    EXPECT_EQ(g.rec.auiIeData[255], 256u);
    EXPECT_TRUE(g.guard_intact());
}

TEST(VsieBeacontxAdd, TracesAndMissingBytes)
{
    BX_REQUIRE_TRACE_CAPTURE();
    VsieBeaconTxEntry e{};
    TraceCapture cap;
    EXPECT_EQ(JTS_Vsie_Beacontx_Add(Msg(R"({"idx": 4, "servicename": "svc", "len": 2, "iedata": [65, 66]})"), &e), 0);
    EXPECT_THAT(cap.take(), ElementsAre("JTS_Vsie_Beacontx_Add: Servicename:svc\n",
                                        "JTS_CheckBlobAttr: Illegal parameter: ssididx\n",
                                        "JTS_CheckBlobAttr: Illegal parameter: duration\n",
                                        "JTS_Vsie_Beacontx_Add: Len:2\n", "JTS_Vsie_Beacontx_Add: Iedata:A\n",
                                        "JTS_Vsie_Beacontx_Add: Iedata:B\n"));
    EXPECT_EQ(e.uiIdx, 0u);  // the index is not read

    VsieBeaconTxEntry f{};
    EXPECT_EQ(JTS_Vsie_Beacontx_Add(Msg(R"({"servicename": "svc", "ssididx": 2, "duration": 30, "len": 1})"), &f), 0);
    auto lines = cap.take();
    ASSERT_GE(lines.size(), 2u);
    EXPECT_EQ(lines[lines.size() - 2], "JTS_CheckBlobAttr: Illegal parameter: iedata\n");
    EXPECT_EQ(lines.back(), "JTS_Vsie_Beacontx_Add: No IEDATA\n");
    EXPECT_STREQ(f.szServiceName, "svc");
    EXPECT_EQ(f.uiDuration, 30u);
}

TEST(VsieIndex, AllThreeIndexMessages)
{
    BX_REQUIRE_TRACE_CAPTURE();
    const std::pair<int, const char *> types[] = {{MSG_VSIE_BEACONTX_IDX, "JTS_Vsie_Beacontx_Idx"},
                                                  {MSG_VSIE_PROBERX_IDX, "JTS_Vsie_Proberx_Idx"},
                                                  {MSG_VSIE_PROBERESP_IDX, "JTS_Vsie_Proberesp_Idx"}};
    for (auto [type, func] : types) {
        SCOPED_TRACE(type);
        VsieIndex idx{7};
        EXPECT_EQ(bxtest::stj_typed(type, &idx), "idx=i32:7");
        VsieIndex back{42};
        TraceCapture cap;
        EXPECT_EQ(JSON_TRANS_STRUCT(type, Msg("{}"), &back), 0);
        EXPECT_EQ(back.uiIdx, 42u);
        EXPECT_EQ(cap.take().back(), "JTS_CheckBlobAttr: Illegal parameter: idx\n");
        EXPECT_EQ(JSON_TRANS_STRUCT(type, Msg(R"({"idx": 3})"), &back), 0);
        EXPECT_EQ(back.uiIdx, 3u);
        EXPECT_EQ(cap.take().back(), std::string(func) + ": Idx:3\n");
    }
}

TEST(VsieBeacontxSet, EnableTravelsAsASwitchWord)
{
    BX_REQUIRE_TRACE_CAPTURE();
    VsieBeaconTxSwitch sw{2, 1};
    EXPECT_EQ(bxtest::stj_typed(MSG_VSIE_BEACONTX_SET, &sw), R"(idx=i32:2 enable=s"enable")");
    sw.uiEnable = 0;
    EXPECT_EQ(bxtest::stj_typed(MSG_VSIE_BEACONTX_SET, &sw), R"(idx=i32:2 enable=s"disable")");
    sw.uiEnable = 5;
    EXPECT_EQ(bxtest::stj_typed(MSG_VSIE_BEACONTX_SET, &sw), R"(idx=i32:2 enable=s"")");

    VsieBeaconTxSwitch back{};
    TraceCapture cap;
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_VSIE_BEACONTX_SET, Msg(R"({"enable": "on", "idx": 4})"), &back), 0);
    EXPECT_EQ(back.uiIdx, 4u);
    EXPECT_EQ(back.uiEnable, 0xFFFFFFFFu);  // no range check
    EXPECT_THAT(cap.take(), testing::IsSupersetOf({"JTS_Vsie_Beacontx_Set: Idx:4\n", "JTS_Vsie_Beacontx_Set: Enable:-1\n"}));
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_VSIE_BEACONTX_SET, Msg(R"({"enable": "disable"})"), &back), 0);
    EXPECT_EQ(back.uiEnable, 0u);
    EXPECT_EQ(back.uiIdx, 4u);
}

TEST(VsieBeacontxList, SendsCountAndEntries)
{
    static VsieBeaconTxList list;
    std::memset(&list, 0, sizeof list);
    list.uiCount = 2;
    list.astEntry[0] = {1, "a", 2, 3, 1, {221}};
    list.astEntry[1] = {4, "b", 5, 6, 0, {}};
    EXPECT_EQ(bxtest::stj_typed(MSG_VSIE_BEACONTX_LIST, &list),
              R"(count=i32:2 list=[{idx=i32:1 servicename=s"a" ssididx=i32:2 duration=i32:3 len=i32:1 iedata=[i32:221]} )"
              R"({idx=i32:4 servicename=s"b" ssididx=i32:5 duration=i32:6 len=i32:0 iedata=[]}])");
    list.uiCount = 0;
    EXPECT_EQ(bxtest::stj_typed(MSG_VSIE_BEACONTX_LIST, &list), "count=i32:0 list=[]");
    // The count is sent as it is; the entries stop at the record's end.
    list.uiCount = 1000;
    std::string typed = bxtest::stj_typed(MSG_VSIE_BEACONTX_LIST, &list);
    EXPECT_THAT(typed, testing::StartsWith("count=i32:1000 "));
    EXPECT_EQ(std::count(typed.begin(), typed.end(), '{'), VSIE_BEACONTX_LIST_MAX);
}

TEST(VsieBeacontxList, WalkIsBoundedByCountAndTheTopLevelIedata)
{
    BX_REQUIRE_TRACE_CAPTURE();
    const char *three = R"([{"idx": 1, "len": 1, "iedata": [65]}, {"idx": 2, "len": 1, "iedata": [66]},
                           {"idx": 3, "len": 1, "iedata": [67]}])";
    struct Case {
        std::string json;
        uint32_t count_before;
        uint32_t count_after;
        std::vector<uint32_t> idx;     // idx of entries 0..2 after the call
        std::vector<uint32_t> first;   // auiIeData[0] of entries 0..2
        size_t null_cur;               // "NULL == cur" traces
        bool no_iedata;
    };
    const Case cases[] = {
        {std::string(R"({"count": 2, "iedata": [], "list": )") + three + "}", 0, 2, {1, 2, 0}, {65, 66, 0}, 1, false},
        // Quirk: without a top-level "iedata" only the first entry's scalars are read.
        {std::string(R"({"count": 2, "list": )") + three + "}", 0, 2, {1, 0, 0}, {0, 0, 0}, 0, true},
        // Without "count" the caller's count bounds the walk.
        {std::string(R"({"iedata": [1], "list": )") + three + "}", 1, 1, {1, 0, 0}, {65, 0, 0}, 2, false},
        // An element without bytes still takes its place; a number takes an empty one.
        {R"({"count": 3, "iedata": [], "list": [{"idx": 1, "len": 1}, 5, {"idx": 3, "len": 1, "iedata": [67]}]})", 0, 3,
         {1, 0, 3}, {0, 0, 67}, 0, false},
        {R"({"count": 3, "iedata": []})", 0, 3, {0, 0, 0}, {0, 0, 0}, 0, false},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.json);
        static VsieBeaconTxList list;
        std::memset(&list, 0, sizeof list);
        list.uiCount = c.count_before;
        TraceCapture cap;
        EXPECT_EQ(JSON_TRANS_STRUCT(MSG_VSIE_BEACONTX_LIST, Msg(c.json.c_str()), &list), 0);
        EXPECT_EQ(list.uiCount, c.count_after);
        for (size_t n = 0; n < 3; ++n) {
            EXPECT_EQ(list.astEntry[n].uiIdx, c.idx[n]) << "entry " << n;
            EXPECT_EQ(list.astEntry[n].auiIeData[0], c.first[n]) << "entry " << n;
        }
        auto lines = cap.take();
        EXPECT_EQ(std::count(lines.begin(), lines.end(), "JTS_Vsie_Beacontx_List: NULL == cur\n\n"),
                  static_cast<long>(c.null_cur));
        EXPECT_EQ(std::count(lines.begin(), lines.end(), "JTS_Vsie_Beacontx_List: No IEDATA\n"), c.no_iedata ? 1 : 0);
    }
}

TEST(VsieBeacontxList, ElementTracesCarryTheEntryNumber)
{
    BX_REQUIRE_TRACE_CAPTURE();
    static VsieBeaconTxList list;
    std::memset(&list, 0, sizeof list);
    TraceCapture cap;
    EXPECT_EQ(JTS_Vsie_Beacontx_List(
                  Msg(R"({"count": 1, "iedata": [], "list": [{"idx": 5, "servicename": "s", "ssididx": 6,
                          "duration": 7, "len": 1, "iedata": [65, 66]}]})"),
                  &list),
              0);
    EXPECT_THAT(cap.take(), ElementsAre("JTS_Vsie_Beacontx_List: Count:1\n", "JTS_Vsie_Beacontx_List: Idx0:5\n",
                                        "JTS_Vsie_Beacontx_List: Servicename0:s\n", "JTS_Vsie_Beacontx_List: Ssididx0:6\n",
                                        "JTS_Vsie_Beacontx_List: Duration0:7\n", "JTS_Vsie_Beacontx_List: Len0:1\n",
                                        "JTS_Vsie_Beacontx_List: Iedata0:A\n"));
}

TEST(VsieBeacontxList, CountFromTheSenderNeverWritesPastTheRecord)
{
    Guarded<VsieBeaconTxList> g;
    std::string json = R"({"count": 100, "iedata": [], "list": [)";
    for (int i = 0; i < 20; ++i)
        json += std::string(i ? "," : "") + R"({"idx": )" + std::to_string(i) + R"(, "len": 300, "iedata": )" +
                numbers(0, 300) + "}";
    json += "]}";
    EXPECT_EQ(JTS_Vsie_Beacontx_List(Msg(json.c_str()), &g.rec), 0);
    EXPECT_EQ(g.rec.uiCount, 100u);
    EXPECT_EQ(g.rec.astEntry[VSIE_BEACONTX_LIST_MAX - 1].uiIdx, VSIE_BEACONTX_LIST_MAX - 1u);
    EXPECT_EQ(g.rec.astEntry[0].auiIeData[255], 255u);
    EXPECT_TRUE(g.guard_intact());
}

TEST(VsieBeacontx, RoundTripThroughTheProgram)
{
    bxtest::ToolResult r;
    if (!bxtest::run_tool(MSG_VSIE_BEACONTX_LIST,
                          R"({"count": 1, "iedata": [], "list": [{"idx": 2, "servicename": "s", "ssididx": 0,
                              "duration": 9, "len": 2, "iedata": [221, 3, 4]}]})",
                          r))
        GTEST_SKIP() << "blobxlate program not built";
    EXPECT_EQ(r.exit_code, 0);
    EXPECT_EQ(r.out, "JSON_TRANS_STRUCT: 0\nSTRUCT_TRANS_JSON: 0\n"
                     "{\n\t\"count\": 1,\n\t\"list\": [\n\t\t{\n\t\t\t\"idx\": 2,\n\t\t\t\"servicename\": \"s\",\n"
                     "\t\t\t\"ssididx\": 0,\n\t\t\t\"duration\": 9,\n\t\t\t\"len\": 2,\n\t\t\t\"iedata\": [\n"
                     "\t\t\t\t221,\n\t\t\t\t3\n\t\t\t]\n\t\t}\n\t]\n}\n");
}

} // namespace
