// The blobxlate program: a message in, the record, the message back out.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <sys/wait.h>

#include "support.h"

namespace {

struct ToolRun {
    int exit_code;
    std::string out;
};

ToolRun run_tool_args(const std::string &args, const std::string &input = "")
{
    std::string cmd = "printf '%s' '" + input + "' | " + BLOBXLATE_TOOL + " " + args + " 2>&1";
    FILE *p = popen(cmd.c_str(), "r");
    ToolRun r{-1, {}};
    if (p == nullptr)
        return r;
    char chunk[4096];
    size_t n;
    while ((n = std::fread(chunk, 1, sizeof chunk, p)) > 0)
        r.out.append(chunk, n);
    int status = pclose(p);
    r.exit_code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return r;
}

TEST(Tool, RefusesBadUsageWithOneLine)
{
    if (std::string(BLOBXLATE_TOOL).empty())
        GTEST_SKIP() << "blobxlate program not built";
    const struct {
        const char *args;
        const char *input;
        const char *message;
    } cases[] = {
        {"", "", "usage: blobxlate TYPE [FILE]\n"},
        {"1 2 3", "", "usage: blobxlate TYPE [FILE]\n"},
        {"x1", "{}", "blobxlate: message type must be a number: x1\n"},
        {"13", "{}", "blobxlate: unknown message type 13\n"},
        {"173", "{}", "blobxlate: unknown message type 173\n"},
        {"-1", "{}", "blobxlate: unknown message type -1\n"},
        {"0 /nonexistent/msg.json", "", "blobxlate: cannot open /nonexistent/msg.json: No such file or directory\n"},
        {"0", "[1, 2]", "blobxlate: - is not a JSON object\n"},
        {"0", "{\"espResult\": ", "blobxlate: - is not a JSON object\n"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.args);
        ToolRun r = run_tool_args(c.args, c.input);
        EXPECT_EQ(r.exit_code, 2);
        EXPECT_EQ(r.out, c.message);
    }
}

TEST(Tool, ReportsBothDirections)
{
    if (std::string(BLOBXLATE_TOOL).empty())
        GTEST_SKIP() << "blobxlate program not built";
    ToolRun ok = run_tool_args("0 -", "{\"espResult\": 7}");
    EXPECT_EQ(ok.exit_code, 0);
    EXPECT_EQ(ok.out, "JSON_TRANS_STRUCT: 0\nSTRUCT_TRANS_JSON: 0\n{\n\t\"espResult\": 7\n}\n");
    // A refused message: exit 1, the refusal's code, and the record as it stayed.
    ToolRun refused = run_tool_args("0", "{}");
    EXPECT_EQ(refused.exit_code, 1);
    EXPECT_EQ(refused.out, "JSON_TRANS_STRUCT: -1\nSTRUCT_TRANS_JSON: 0\n{\n\t\"espResult\": 0\n}\n");
}

} // namespace
