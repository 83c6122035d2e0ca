// Device control and status: reboot, upgrade, password and the switches.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "system_support.h"

using bxtest::Guarded;
using bxtest::receive;
using testing::ElementsAre;
using testing::ElementsAreArray;

namespace {

TEST(DeviceControl, RecordsToTree)
{
    struct Case {
        int type;
        uint32_t words[2];
        const char *wire;
    };
    const Case cases[] = {
        // The reboot type goes out under "status".
        {MSG_REBOOT, {1, 0}, "status=s\"delay\""},
        {MSG_REBOOT, {0, 0}, "status=s\"now\""},
        {MSG_REBOOT, {5, 0}, "status=s\"\""},
        {MSG_FIRE_WALL, {1, 0}, "status=s\"enable\""},
        {MSG_LED_STATUS, {0, 0}, "status=s\"disable\""},
        {MSG_DUALBAND_SYNC_STATUS, {1, 0}, "status=s\"enable\""},
        {MSG_UPGRADE_STATUS, {3, 0}, "UpgradeStatus=s\"UPGRADE SUCCSESS\""},
        {MSG_UPGRADE_STATUS, {0, 0}, "UpgradeStatus=s\"NOMAL-NotUpgrade\""},
        // The colour goes out as its number, not as a word.
        {MSG_LED_COLOUR, {1, 2}, "status=s\"enable\" colour=s\"2\""},
        {MSG_LED_COLOUR, {0, 0xFFFFFFFFu}, "status=s\"disable\" colour=s\"-1\""},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.wire);
        int ret = -2;
        EXPECT_EQ(bxtest::stj_typed(c.type, c.words, &ret), c.wire);
        EXPECT_EQ(ret, 0);
    }

    UpgradeParam up{};
    std::strcpy(up.szDownUrl, "http://fw/img.bin");
    std::strcpy(up.szVersionUrl, "http://fw/ver");
    up.uiFileSize = 3000000000u;
    std::strcpy(up.szChkSum, "abc123");
    up.eRebootType = 1;
    EXPECT_EQ(bxtest::stj_typed(MSG_UPGRADE, &up),
              "downurl=s\"http://fw/img.bin\" versionurl=s\"http://fw/ver\" filesize=i32:-1294967296 "
              "chksum=s\"abc123\" reboottype=s\"delay\"");

    LoginPasswordParam pw{};
    std::strcpy(pw.szPassword, "s3cret");
    EXPECT_EQ(bxtest::stj_typed(MSG_LOGIN_PASSWORD, &pw), "password=s\"s3cret\"");
}

struct Incoming {
    int type;
    const char *json;
    uint32_t words[2];  // the record afterwards, from zero
    std::vector<std::string> traces;
};

TEST(DeviceControl, TreeToRecord)
{
    BX_REQUIRE_TRACE_CAPTURE();
    const Incoming cases[] = {
        {MSG_REBOOT, R"({"reboottype": "delay"})", {1, 0}, {"JTS_Reboot: reboot type:1\n"}},
        // Unknown words store the kind's fallback and still succeed.
        {MSG_REBOOT, R"({"reboottype": "later"})", {0xFFFFFFFFu, 0}, {"JTS_Reboot: reboot type:-1\n"}},
        {MSG_FIRE_WALL, R"({"status": "enable"})", {1, 0}, {"JTS_FireWall: status:1\n"}},
        {MSG_FIRE_WALL, R"({"status": "Enable"})", {0xFFFFFFFFu, 0}, {"JTS_FireWall: status:-1\n"}},
        {MSG_LED_STATUS, R"({"status": "disable"})", {0, 0}, {"JTS_Led: led status:0\n"}},
        {MSG_DUALBAND_SYNC_STATUS, R"({"status": "enable"})", {1, 0},
         {"JTS_DualbandSync: dualbandsync status:1\n"}},
        {MSG_LED_COLOUR, R"({"status": "enable", "colour": "orangefast"})", {1, 4},
         {"JTS_Led_Colour: JTS_Led_Colour()\n", "JTS_Led_Colour: ledcolour status:1\n",
          "JTS_Led_Colour: ledcolour colour: 4\n"}},
        // What the sender emits ("2") is not a colour word for the receiver.
        {MSG_LED_COLOUR, R"({"status": "disable", "colour": "2"})", {0, 0xFFFFFFFFu},
         {"JTS_Led_Colour: JTS_Led_Colour()\n", "JTS_Led_Colour: ledcolour status:0\n",
          "JTS_Led_Colour: ledcolour colour: -1\n"}},
        {MSG_LED_COLOUR, R"({"status": "enable"})", {1, 0},
         {"JTS_Led_Colour: JTS_Led_Colour()\n", "JTS_Led_Colour: ledcolour status:1\n",
          "JTS_CheckBlobAttr: Illegal parameter: colour\n"}},
    };
    for (const Incoming &c : cases) {
        SCOPED_TRACE(c.json);
        uint32_t rec[2] = {};
        auto r = receive(c.type, c.json, rec);
        EXPECT_EQ(r.ret, 0);
        EXPECT_EQ(rec[0], c.words[0]);
        EXPECT_EQ(rec[1], c.words[1]);
        EXPECT_THAT(r.traces, ElementsAreArray(c.traces));
    }
}

TEST(DeviceControl, UpgradeTracesTheRebootTypeAsFileSize)
{
    BX_REQUIRE_TRACE_CAPTURE();
    UpgradeParam rec{};
    auto r = receive(MSG_UPGRADE, R"({"downurl": "http://fw/img.bin", "versionurl": "http://fw/ver",
        "filesize": 4096, "chksum": "abc123", "reboottype": "delay"})",
                     &rec);
    EXPECT_EQ(r.ret, 0);
    EXPECT_STREQ(rec.szDownUrl, "http://fw/img.bin");
    EXPECT_STREQ(rec.szVersionUrl, "http://fw/ver");
    EXPECT_EQ(rec.uiFileSize, 4096u);
    EXPECT_STREQ(rec.szChkSum, "abc123");
    EXPECT_EQ(rec.eRebootType, 1u);
    EXPECT_THAT(r.traces, ElementsAre("JTS_Upgrade: down url:http://fw/img.bin\n",
                                      "JTS_Upgrade: version url:http://fw/ver\n", "JTS_Upgrade: file size:4096\n",
                                      "JTS_Upgrade: chksum:abc123\n", "JTS_Upgrade: file size:1\n"));
}

TEST(DeviceControl, UpgradeWithOnlyTheAddress)
{
    BX_REQUIRE_TRACE_CAPTURE();
    UpgradeParam rec{};
    rec.uiFileSize = 7;
    rec.eRebootType = 1;
    auto r = receive(MSG_UPGRADE, R"({"downurl": "http://fw/img.bin", "filesize": "4096"})", &rec);
    EXPECT_EQ(r.ret, 0);
    EXPECT_STREQ(rec.szDownUrl, "http://fw/img.bin");
    EXPECT_EQ(rec.uiFileSize, 7u);  // a text is not a file size
    EXPECT_EQ(rec.eRebootType, 1u);
    EXPECT_THAT(r.traces, ElementsAre("JTS_Upgrade: down url:http://fw/img.bin\n",
                                      "JTS_CheckBlobAttr: Illegal parameter: versionurl\n",
                                      "JTS_CheckBlobAttr: Illegal parameter: filesize\n",
                                      "JTS_CheckBlobAttr: Illegal parameter: chksum\n",
                                      "JTS_CheckBlobAttr: Illegal parameter: reboottype\n"));
}

TEST(DeviceControl, MissingKeys)
{
    BX_REQUIRE_TRACE_CAPTURE();
    struct Case {
        int type;
        const char *json;
        int ret;
        std::vector<std::string> traces;
    };
    const Case cases[] = {
        // Sent as "status", but received only as "reboottype".
        {MSG_REBOOT, R"({"status": "delay"})", 0, {"JTS_CheckBlobAttr: Illegal parameter: reboottype\n"}},
        {MSG_LOGIN_PASSWORD, "{}", -1, {"JTS_CheckBlobAttr: Illegal parameter: password\n"}},
        {MSG_FIRE_WALL, R"({"status": 1})", -1, {"JTS_CheckBlobAttr: Illegal parameter: status\n"}},
        {MSG_LED_STATUS, "{}", -1, {"JTS_CheckBlobAttr: Illegal parameter: status\n"}},
        {MSG_DUALBAND_SYNC_STATUS, "{}", -1, {"JTS_CheckBlobAttr: Illegal parameter: status\n"}},
        {MSG_LED_COLOUR, "{}", 0,
         {"JTS_Led_Colour: JTS_Led_Colour()\n", "JTS_CheckBlobAttr: Illegal parameter: status\n",
          "JTS_CheckBlobAttr: Illegal parameter: colour\n"}},
        // Sent only: no receiving row, nothing done.
        {MSG_UPGRADE_STATUS, R"({"UpgradeStatus": "FLASHING"})", 0, {}},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.json);
        Guarded<LoginPasswordParam> g(0x5A);
        auto r = receive(c.type, c.json, &g.rec);
        EXPECT_EQ(r.ret, c.ret);
        EXPECT_TRUE(g.rec_all(0x5A));
        EXPECT_TRUE(g.guards_intact());
        EXPECT_THAT(r.traces, ElementsAreArray(c.traces));
    }
}

TEST(DeviceControl, PasswordIsCutAtItsArray)
{
    std::string json = R"({"password": ")" + std::string(300, 'p') + "\"}";
    Guarded<LoginPasswordParam> g(0x5A);
    bxtest::Msg msg(json.c_str());
    // Without tracing: the trace of an unterminated text would read on past
    // the record, which is why callers pass zeroed records.
    EXPECT_EQ(JSON_TRANS_STRUCT(MSG_LOGIN_PASSWORD, msg, &g.rec), 0);
    EXPECT_EQ(std::string(g.rec.szPassword, 255), std::string(255, 'p'));
    EXPECT_EQ(g.rec.szPassword[255], 0x5A);
    EXPECT_TRUE(g.guards_intact());
}

TEST(DeviceControl, RowsCarryTheirNameTexts)
{
    struct Row {
        int type;
        const char *to_json;
        const char *to_struct;
    };
    const Row rows[] = {
        {MSG_REBOOT, "Reboot", "Reboot"},
        {MSG_UPGRADE, "Upgrade", "Upgrade"},
        {MSG_LOGIN_PASSWORD, "LoginPassWord", "LoginPassWord"},
        {MSG_FIRE_WALL, "FireWall", "FireWall"},
        {MSG_LED_STATUS, "LedStatus", "Led"},
        {MSG_UPGRADE_STATUS, "UpgradeStatus", ""},
        {MSG_LED_COLOUR, "LedColour", "Ledcolour"},
        {MSG_DUALBAND_SYNC_STATUS, "DualbandSyncStatus", "DualbandSync"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.type);
        EXPECT_EQ(bxtest::row_name(g_astStructToJson_Func, g_iStructToJson_FuncNum, row.type), row.to_json);
        EXPECT_EQ(bxtest::row_name(g_astJsonToStruct_Func, g_iJsonToStruct_FuncNum, row.type), row.to_struct);
    }
}

TEST(DeviceControl, ToolRoundTripShowsTheRebootKeyAsymmetry)
{
    bxtest::ToolResult res;
    if (!bxtest::run_tool(MSG_REBOOT, R"({"reboottype": "delay"})", res))
        GTEST_SKIP() << "blobxlate program not built";
    EXPECT_EQ(res.exit_code, 0);
    EXPECT_EQ(res.out, "JSON_TRANS_STRUCT: 0\nSTRUCT_TRANS_JSON: 0\n{\n\t\"status\": \"delay\"\n}\n");
}

} // namespace
