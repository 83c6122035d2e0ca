// The dispatch tables and entry points: the dispatchers reach exactly the
// rows the tables hold (which numbers have rows, and their name texts, are
// pinned by the message reference, see Reference.SaysWhatTheLibraryDoes),
// and the trace channel they report on.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

#include "core/tables.h"
#include "records.h"
#include "support.h"

using bxtest::find_row;

namespace {

// Each number reaches its own row's converter (the row BLOBXLATE_FindRow
// gives), named in the dispatcher's trace line; a number without a row
// returns 0 and touches nothing.
TEST(Catalogue, EveryNumberDispatchesOnlyToItsRow)
{
    bxtest::Msg empty("");
    std::vector<int> types = {INT_MIN, INT_MAX};
    for (int type = -3; type <= 174; ++type)
        types.push_back(type);
    // One pair of converters serves the WAN and the LAN MAC clone.
    EXPECT_EQ(BLOBXLATE_FindRow(BLOBXLATE_TO_JSON, MSG_CLONE_MAC)->converter.toJson,
              BLOBXLATE_FindRow(BLOBXLATE_TO_JSON, MSG_LAN_CLONE)->converter.toJson);
    for (int type : types) {
        SCOPED_TRACE(type);
        const MessageTransEntry *stj = find_row(g_astStructToJson_Func, g_iStructToJson_FuncNum, type);
        const MessageTransEntry *jts = find_row(g_astJsonToStruct_Func, g_iJsonToStruct_FuncNum, type);
        EXPECT_EQ(BLOBXLATE_FindRow(BLOBXLATE_TO_JSON, type), stj);
        EXPECT_EQ(BLOBXLATE_FindRow(BLOBXLATE_TO_STRUCT, type), jts);
        EXPECT_EQ(BLOBXLATE_FindRow(2, type), nullptr);
        alignas(16) static unsigned char rec[131072], direct[131072];
        std::memset(rec, 0, sizeof rec);
        bxtest::TraceCapture cap;
        bxtest::Buf buf, want;
        int ret = STRUCT_TRANS_JSON(type, rec, buf.get());
        std::string lines = cap.take_raw();
        EXPECT_EQ(ret, stj != nullptr ? stj->converter.toJson(rec, want.get()) : 0);
        EXPECT_EQ(buf.typed(), want.typed());
        if (stj != nullptr && bxtest::trace_paths_private()) {
            EXPECT_NE(lines.find(std::string("Struct To Json: [") + stj->name + "]"), std::string::npos) << lines;
        }
        if (stj == nullptr) {
            EXPECT_EQ(lines, "");
        }
        // Filled, so that any write shows; the station list's array stays null.
        std::memset(rec, type == MSG_STA_LIST ? 0 : 0xA5, sizeof rec);
        std::memcpy(direct, rec, sizeof rec);
        ret = JSON_TRANS_STRUCT(type, empty, rec);
        lines = cap.take_raw();
        EXPECT_EQ(ret, jts != nullptr ? jts->converter.toStruct(empty, direct) : 0);
        EXPECT_EQ(std::memcmp(rec, direct, sizeof rec), 0);
        if (jts != nullptr && bxtest::trace_paths_private()) {
            EXPECT_NE(lines.find(std::string("Json To Struct: [") + jts->name + "]"), std::string::npos) << lines;
        }
    }
}

// Null arguments are refused before anything is traced or written.
TEST(Catalogue, NullArgumentsAreRefusedByEveryConverter)
{
    bxtest::Msg msg("");
    bxtest::Buf buf;
    bxtest::TraceCapture cap;
    for (int type = 0; type <= bx::kLastMessageType; ++type) {
        bxtest::Record rec(type);
        SCOPED_TRACE(type);
        EXPECT_EQ(STRUCT_TRANS_JSON(type, nullptr, buf.get()), -1);
        EXPECT_EQ(STRUCT_TRANS_JSON(type, rec.get(), nullptr), -1);
        EXPECT_EQ(JSON_TRANS_STRUCT(type, nullptr, rec.get()), -1);
        EXPECT_EQ(JSON_TRANS_STRUCT(type, msg, nullptr), -1);
        if (const MessageTransEntry *row = find_row(g_astStructToJson_Func, g_iStructToJson_FuncNum, type)) {
            EXPECT_EQ(row->converter.toJson(nullptr, buf.get()), -1);
            EXPECT_EQ(row->converter.toJson(rec.get(), nullptr), -1);
        }
        if (const MessageTransEntry *row = find_row(g_astJsonToStruct_Func, g_iJsonToStruct_FuncNum, type)) {
            EXPECT_EQ(row->converter.toStruct(nullptr, rec.get()), -1);
            EXPECT_EQ(row->converter.toStruct(msg, nullptr), -1);
        }
    }
    EXPECT_EQ(buf.typed(), "");
    EXPECT_EQ(cap.take_raw(), "");
}

TEST(Trace, DispatcherRendersTheMessageAndReportsAFailedConverter)
{
    BX_REQUIRE_TRACE_CAPTURE();
    RetParam rec{42};
    bxtest::Msg msg("other=i32:1");
    bxtest::TraceCapture cap;
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_RET, msg, &rec), -1);
    EXPECT_EQ(rec.espResult, 42u);
    EXPECT_EQ(cap.take(), (std::vector<std::string>{"JSON_TRANS_STRUCT: DEBUG: JsonStr = {\n\t\"other\": 1\n}\n",
                                                    "JSON_TRANS_STRUCT: Json To Struct: [Ret] \n\n",
                                                    "JTS_CheckBlobAttr: Illegal parameter: espResult\n",
                                                    "JSON_TRANS_STRUCT: Trans failed.\n"}));
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_RET, bxtest::Msg("espResult=i32:7"), &rec), 0);
    EXPECT_EQ(cap.take().back(), "JTS_Ret: esp ret:7\n");
    EXPECT_EQ(JSON_TRANS_STRUCT(13, msg, &rec), 0);  // no row: only the rendering
    EXPECT_EQ(cap.take().size(), 1u);
}

// Without the switch file nothing is opened ("w" would create the console);
// the switch itself is tested before every line (see test_trace_modes.cpp).
TEST(Trace, NoSwitchFileNoConsole)
{
    BX_REQUIRE_TRACE_CAPTURE();
    unlink(BLOBXLATE_SWITCH_FILE);
    unlink(BLOBXLATE_CONSOLE);
    RetParam rec{};
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_RET, bxtest::Msg("x=i32:1"), &rec), -1);
    struct stat st;
    EXPECT_NE(stat(BLOBXLATE_CONSOLE, &st), 0);
}

} // namespace
