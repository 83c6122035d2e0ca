// The blobxlate program: exit codes and output of each command, from the
// build tree and from an installed tree.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

#include "blobxlate.h"
#include "core/tables.h"

namespace {

namespace fs = std::filesystem;

struct ToolRun {
    int exit_code = -1;
    std::string out, err;
};

std::string file_text(const fs::path &path)
{
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

ToolRun run(const std::string &tool, const std::string &args, const std::string &input = "")
{
    const fs::path err = fs::temp_directory_path() / ("blobxlate-test-err-" + std::to_string(getpid()));
    std::string cmd = "printf '%s' '" + input + "' | " + tool + " " + args + " 2>" + err.string();
    ToolRun r;
    FILE *p = popen(cmd.c_str(), "r");
    char chunk[4096];
    for (size_t n; p != nullptr && (n = std::fread(chunk, 1, sizeof chunk, p)) > 0;)
        r.out.append(chunk, n);
    int status = p != nullptr ? pclose(p) : -1;
    r.exit_code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    r.err = file_text(err);
    fs::remove(err);
    return r;
}

#ifdef BLOBXLATE_TRACE_OFF
constexpr const char *kTraceLine = "blobxlate: this build has no trace";
#else
constexpr const char *kTraceLine = "]: Json To Struct: [Ret] \n";
#endif

class Tool : public ::testing::Test {
    void SetUp() override { if (std::string(BLOBXLATE_TOOL).empty()) GTEST_SKIP() << "blobxlate program not built"; }
};

TEST_F(Tool, ExitCodesAndOutput)
{
    const struct {
        const char *args, *input;
        int exit_code;
        const char *out, *err; // fragments; an empty err fragment: nothing on stderr
    } cases[] = {
        {"--help", "", 0, "usage: blobxlate [--trace] TYPE [FILE]\n", ""},
        {"--version", "", 0, "blobxlate " BLOBXLATE_VERSION "\n", ""},
        {"", "", 2, "", "usage: blobxlate"},
        {"--frobnicate 0", "{}", 2, "", "usage: blobxlate"},
        {"example", "", 2, "", "usage: blobxlate"},
        {"13", "{}", 2, "", "blobxlate: unknown message type 13\n"},
        {"-1", "{}", 2, "", "blobxlate: unknown message type -1\n"},
        {"stalist", "{}", 2, "", "names more than one type, give the number: 46 47 48 88\n"},
        {"WANSTATU", "{}", 2, "", "unknown message type \"WANSTATU\"; close matches: 22 \"WanStatus\"\n"},
        {"0 /nonexistent/msg.json", "", 2, "", "blobxlate: cannot open /nonexistent/msg.json: No such file or directory\n"},
        {"0", "[1, 2]", 2, "", "blobxlate: - is not a JSON object\n"},
        {"0", "{\"espResult\": 7} {}", 2, "", "blobxlate: - has more text after the JSON object, at byte 17\n"},
        {"0", "{\"espResult\": 7", 2, "", "blobxlate: - is not JSON: it ends early"},
        {"19 -", "{}", 2, "", "blobxlate: type 19 has no JSON-to-struct converter"},
        {"ret -", "{\"espResult\": 7}", 0, "JSON_TRANS_STRUCT: 0\nSTRUCT_TRANS_JSON: 0\n{\n\t\"espResult\": 7\n}\n", ""},
        {"0", "{}", 1, "JSON_TRANS_STRUCT: -1\nSTRUCT_TRANS_JSON: 0\n{\n\t\"espResult\": 0\n}\n",
         "blobxlate: espResult: a required key is missing: the message is refused (-1)\n"},
        {"check ret", "{\"espResult\": 7}", 0, "", ""},
        {"check ret - -", "{}", 2, "", "usage: blobxlate"},
        {"LED", "{\"status\": \"enable\"}", 0, "\t\"status\": \"enable\"\n", ""},
        {"--trace ret", "{\"espResult\": 7}", 0, "STRUCT_TRANS_JSON: 0\n", kTraceLine},
        {"list", "", 0, "\n  19  \"UpgradeStatus\"", ""},
        {"list", "", 0, " 128  \"Qos_Classification_Get\"        \"Qos_Classification_Get\"        QosClassRule / QosClassIndex\n", ""},
        {"list station", "", 0, "\n  88  \"StaList\"", ""},
        {"list WANSTATUS", "", 0, "TYPE  STRUCT-TO-JSON                  JSON-TO-STRUCT                  RECORD\n"
                                  "  22  \"WanStatus\"", ""},
        {"list zzz", "", 1, "", "blobxlate: no message type's name text or record contains \"zzz\"\n"},
        {"words wanmode", "", 0, " 2 EnumWanMode \"DHCP\"=1 \"PPPOE\"=2 \"STATIC\"=3 \"BRIDGE\"=4 \"REPEATER\"=5 \"any\"=6\n", ""},
        {"words boolean", "", 0, " 7 EnumBoolean \"false\"=0 \"true\"=1\n", ""},
        {"words 36", "", 0, "36 EnumLedColour (numbers go out as decimal text)\n", ""},
        {"words 39", "", 2, "", "blobxlate: unknown enumeration kind \"39\""},
        {"keys 40", "", 0, "| `host` | STRING | `szHost` char[64] | required (refused: -1) | always | up to 63 characters |  |\n"
                           "| `num` | INT32 | `uiNum` uint32_t | optional | while the mask has 0x2 | 0..65535 (refused outside) |  |\n", ""},
        {"quirks", "", 0, "\n134\tto-struct\tJTS_FilterUrl_Get\tlist[].urls\telements of any type read as texts, up to "
                          "the array's capacity\n", ""},
        {"quirks", "", 0, "\n88\tto-json\tSTJ_StaList\t-\tthe entries are read through pstListInfo", ""},
        {"quirks 1", "", 2, "", "usage: blobxlate"},
        {"schema --sent 119", "", 2, "", "blobxlate: type 119 has no struct-to-JSON converter\n"},
        {"--sent list", "", 2, "", "usage: blobxlate"},
        {"example 19", "", 0, "{\n\t\"UpgradeStatus\": \"NOMAL-NotUpgrade\"\n}\n", ""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.args);
        ToolRun r = run(BLOBXLATE_TOOL, c.args, c.input);
        EXPECT_EQ(r.exit_code, c.exit_code);
        EXPECT_NE(r.out.find(c.out), std::string::npos) << r.out;
        EXPECT_TRUE(*c.err == 0 ? r.err.empty() : r.err.find(c.err) != std::string::npos) << r.err;
    }
}

// Input a message cannot hold is refused with its size, before parsing.
TEST_F(Tool, RefusesAnInputTooLargeForAMessage)
{
    const fs::path big = fs::temp_directory_path() / ("blobxlate-test-big-" + std::to_string(getpid()));
    std::ofstream(big).close();
    fs::resize_file(big, 16u << 20);
    ToolRun r = run(BLOBXLATE_TOOL, "0 " + big.string());
    EXPECT_EQ(r.exit_code, 2);
    EXPECT_NE(r.err.find(" is 16777216 bytes, more than the 16777215 a message can hold\n"), std::string::npos) << r.err;
    // Each element of [1,1,...] takes 12 bytes as blobmsg: one more than fits.
    std::string ones(2 * 1398101, ',');
    for (size_t i = 0; i < ones.size(); i += 2)
        ones[i] = '1';
    std::ofstream(big, std::ios::trunc) << "{\"a\":[" << ones.substr(0, ones.size() - 1) << "]}";
    r = run(BLOBXLATE_TOOL, "0 " + big.string());
    fs::remove(big);
    EXPECT_EQ(r.exit_code, 2);
    EXPECT_NE(r.err.find(" is 2796209 bytes of JSON whose message takes 16777224 bytes, more than the 16777215"),
              std::string::npos) << r.err;
}

// One line per type with a row in either table, each with its record.
TEST_F(Tool, ListsEveryTypeWithARow)
{
    std::istringstream lines(run(BLOBXLATE_TOOL, "list").out);
    std::string line;
    std::getline(lines, line); // the column heads
    for (int type = 0; type <= bx::kLastMessageType; ++type) {
        if (!BLOBXLATE_FindRow(BLOBXLATE_TO_JSON, type) && !BLOBXLATE_FindRow(BLOBXLATE_TO_STRUCT, type))
            continue;
        ASSERT_TRUE(std::getline(lines, line));
        EXPECT_EQ(std::atoi(line.c_str()), type) << line;
        EXPECT_EQ(line.find('?'), std::string::npos) << line;
    }
    EXPECT_FALSE(std::getline(lines, line)) << line;
}

// Each example message, from the build tree and from an installed tree.
TEST_F(Tool, ShowsTheExamplesFromTheBuildAndTheInstalledTree)
{
    const fs::path prefix = fs::temp_directory_path() / ("blobxlate-test-prefix-" + std::to_string(getpid()));
    const std::string install = std::string(BLOBXLATE_CMAKE) + " --install " + BLOBXLATE_BUILD_TREE +
                                " --component tool --prefix " + prefix.string() + " >/dev/null";
    ASSERT_EQ(std::system(install.c_str()), 0);
    const std::string installed = std::string(BLOBXLATE_TOOL_EMULATOR) + (prefix / "bin/blobxlate").string();
    EXPECT_EQ(run(installed, "list").out, run(BLOBXLATE_TOOL, "list").out);
    for (const auto &entry : fs::directory_iterator(BLOBXLATE_EXAMPLES)) {
        const std::string type = entry.path().stem().string().substr(4); // typeNNN
        SCOPED_TRACE(type);
        for (const std::string &tool : {std::string(BLOBXLATE_TOOL), installed}) {
            ToolRun r = run(tool, "example " + type);
            EXPECT_EQ(r.exit_code, 0) << r.err;
            EXPECT_EQ(r.out, file_text(entry.path()));
        }
    }
    fs::remove_all(prefix);
}

} // namespace
