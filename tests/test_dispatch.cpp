// The entry points, the dispatch tables and the trace channel.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

#include "support.h"


using bxtest::Msg;
using bxtest::TraceCapture;
using testing::ElementsAre;

namespace {

bool console_exists()
{
    struct stat st;
    return stat(BLOBXLATE_CONSOLE, &st) == 0;
}

TEST(Ret, RecordToTreeCarriesOneUnsignedMember)
{
    RetParam rec{7};
    int ret = -2;
    EXPECT_EQ(bxtest::stj_typed(MSG_RET, &rec, &ret), "espResult=i32:7");
    EXPECT_EQ(ret, 0);
    rec.espResult = 0xFFFFFFFFu;  // travels as the same 32 bits
    EXPECT_EQ(bxtest::stj_typed(MSG_RET, &rec), "espResult=i32:-1");
}

TEST(Ret, TreeToRecord)
{
    BX_REQUIRE_TRACE_CAPTURE();
    RetParam rec{};
    Msg msg(R"({"espResult": 7})");
    TraceCapture cap;
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_RET, msg, &rec), 0);
    EXPECT_EQ(rec.espResult, 7u);
    auto lines = cap.take();
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[0], "JSON_TRANS_STRUCT: DEBUG: JsonStr = {\n\t\"espResult\": 7\n}\n");
    EXPECT_EQ(lines[1], "JSON_TRANS_STRUCT: Json To Struct: [Ret] \n\n");
    EXPECT_EQ(lines[2], "JTS_Ret: esp ret:7\n");
}

TEST(Ret, MissingResultFailsWithTrace)
{
    BX_REQUIRE_TRACE_CAPTURE();
    RetParam rec{42};
    Msg msg(R"({"other": 1})");
    TraceCapture cap;
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_RET, msg, &rec), -1);
    EXPECT_EQ(rec.espResult, 42u);
    auto lines = cap.take();
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[2], "JTS_CheckBlobAttr: Illegal parameter: espResult\n");
    EXPECT_EQ(lines[3], "JSON_TRANS_STRUCT: Trans failed.\n");
}

TEST(Ret, WrongTypeCountsAsAbsent)
{
    RetParam rec{42};
    Msg msg(R"({"espResult": "7"})");
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_RET, msg, &rec), -1);
    EXPECT_EQ(rec.espResult, 42u);
}

TEST(Dispatch, NullArgumentsFailBeforeAnyTrace)
{
    BX_REQUIRE_TRACE_CAPTURE();
    RetParam rec{1};
    Msg msg(R"({"espResult": 7})");
    bxtest::Buf buf;
    TraceCapture cap;
    EXPECT_EQ(STRUCT_TRANS_JSON(MSG_RET, nullptr, buf.get()), -1);
    EXPECT_EQ(STRUCT_TRANS_JSON(MSG_RET, &rec, nullptr), -1);
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_RET, nullptr, &rec), -1);
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_RET, msg, nullptr), -1);
    EXPECT_EQ(STJ_Ret(nullptr, buf.get()), -1);
    EXPECT_EQ(JTS_Ret(msg, nullptr), -1);
    EXPECT_TRUE(cap.take().empty());
    EXPECT_EQ(buf.typed(), "");
}

TEST(Dispatch, TypesWithoutRowDoNothing)
{
    BX_REQUIRE_TRACE_CAPTURE();
    const int types[] = {13, 14, 51, 69, 82, 83, 95, 96, 97, 131, 133, 167, 173, 174, -1, -2147483647 - 1, 2147483647};
    Msg msg(R"({"espResult": 7})");
    for (int type : types) {
        SCOPED_TRACE(type);
        unsigned char rec[256];
        std::memset(rec, 0xA5, sizeof rec);
        bxtest::Buf buf;
        TraceCapture cap;
        EXPECT_EQ(STRUCT_TRANS_JSON(type, rec, buf.get()), 0);
        EXPECT_EQ(buf.typed(), "");
        EXPECT_TRUE(cap.take().empty());
        EXPECT_EQ(JSON_TRANS_STRUCT(type, msg, rec), 0);
        // Only the rendering of the message is traced.
        auto lines = cap.take();
        ASSERT_EQ(lines.size(), 1u);
        EXPECT_THAT(lines[0], testing::StartsWith("JSON_TRANS_STRUCT: DEBUG: JsonStr = "));
        for (unsigned char b : rec)
            ASSERT_EQ(b, 0xA5);
    }
}

TEST(Dispatch, TablesEndWithAClosingRowThatNeverMatches)
{
    EXPECT_EQ(g_astStructToJson_Func[0].id, MSG_RET);
    EXPECT_STREQ(g_astStructToJson_Func[0].name, "Ret");
    EXPECT_EQ(g_astJsonToStruct_Func[0].id, MSG_RET);
    const MessageTransEntry &stj_end = g_astStructToJson_Func[g_iStructToJson_FuncNum];
    const MessageTransEntry &jts_end = g_astJsonToStruct_Func[g_iJsonToStruct_FuncNum];
    EXPECT_TRUE(stj_end.id < 0 || stj_end.id > 172);
    EXPECT_TRUE(jts_end.id < 0 || jts_end.id > 172);
    // Dispatching the closing row's own id does nothing.
    RetParam rec{3};
    bxtest::Buf buf;
    EXPECT_EQ(STRUCT_TRANS_JSON(stj_end.id, &rec, buf.get()), 0);
    EXPECT_EQ(buf.typed(), "");
}

TEST(Dispatch, EveryRowIdIsUniqueAndInRange)
{
    const std::pair<const MessageTransEntry *, int> tables[] = {{g_astStructToJson_Func, g_iStructToJson_FuncNum},
                                                                {g_astJsonToStruct_Func, g_iJsonToStruct_FuncNum}};
    for (const auto &[table, count] : tables) {
        for (int i = 0; i < count; ++i) {
            SCOPED_TRACE(i);
            EXPECT_GE(table[i].id, 0);
            EXPECT_LE(table[i].id, 172);
            EXPECT_NE(table[i].name, nullptr);
            for (int j = 0; j < i; ++j)
                EXPECT_NE(table[i].id, table[j].id);
        }
    }
}

TEST(Trace, CheckBlobAttr)
{
    BX_REQUIRE_TRACE_CAPTURE();
    TraceCapture cap;
    EXPECT_EQ(JTS_CheckBlobAttr(nullptr, nullptr), 0);
    EXPECT_EQ(JTS_CheckBlobAttr("mac", nullptr), 0);
    Msg msg(R"({"a": 1})");
    EXPECT_EQ(JTS_CheckBlobAttr("a", msg.get()), 1);
    EXPECT_THAT(cap.take(), ElementsAre("JTS_CheckBlobAttr: Illegal parameter: \n",
                                        "JTS_CheckBlobAttr: Illegal parameter: mac\n"));
}

TEST(Trace, LinePrefixCarriesFunctionAndLineNumber)
{
    BX_REQUIRE_TRACE_CAPTURE();
    TraceCapture cap;
    JTS_CheckBlobAttr("k", nullptr);
    std::string raw = cap.take_raw();
    EXPECT_THAT(raw, testing::MatchesRegex(R"(\[JTS_CheckBlobAttr\.[0-9]+\]: Illegal parameter: k
)"));
}

TEST(Trace, NothingIsOpenedWithoutTheSwitchFile)
{
    BX_REQUIRE_TRACE_CAPTURE();
    unlink(BLOBXLATE_SWITCH_FILE);
    unlink(BLOBXLATE_CONSOLE);
    RetParam rec{};
    Msg msg(R"({"x": 1})");
    bxtest::Buf buf;
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_RET, msg, &rec), -1);
    EXPECT_EQ(STRUCT_TRANS_JSON(MSG_RET, &rec, buf.get()), 0);
    EXPECT_EQ(JTS_CheckBlobAttr("x", nullptr), 0);
    // "w" would have created the console file.
    EXPECT_FALSE(console_exists());
}

TEST(Trace, SwitchFileIsTestedBeforeEveryLine)
{
    BX_REQUIRE_TRACE_CAPTURE();
    TraceCapture cap(false);
    JTS_CheckBlobAttr("one", nullptr);
    cap.set_enabled(true);
    JTS_CheckBlobAttr("two", nullptr);
    cap.set_enabled(false);
    JTS_CheckBlobAttr("three", nullptr);
    EXPECT_THAT(cap.take_texts(), ElementsAre("Illegal parameter: two\n"));
}

TEST(Trace, FailedConverterIsReportedByTheDispatcher)
{
    BX_REQUIRE_TRACE_CAPTURE();
    RetParam rec{};
    Msg msg(R"({})");
    TraceCapture cap;
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_RET, msg, &rec), -1);
    EXPECT_THAT(cap.take(), ElementsAre("JSON_TRANS_STRUCT: DEBUG: JsonStr = {\n\t\n}\n",
                                        "JSON_TRANS_STRUCT: Json To Struct: [Ret] \n\n",
                                        "JTS_CheckBlobAttr: Illegal parameter: espResult\n",
                                        "JSON_TRANS_STRUCT: Trans failed.\n"));
    bxtest::Buf buf;
    rec.espResult = 5;
    EXPECT_EQ(STRUCT_TRANS_JSON(MSG_RET, &rec, buf.get()), 0);
    EXPECT_THAT(cap.take(), ElementsAre("STRUCT_TRANS_JSON: Struct To Json: [Ret] \n\n"));
}

} // namespace
