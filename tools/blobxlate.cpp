// blobxlate: converts one message given as JSON text into its record and
// back, the way a daemon receives and answers it, and prints the result;
// lists the message types and shows an example message of each.
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <unistd.h>
#include <vector>

#include "blobxlate.h"
#include "catalogue.h"
#include "convert.h"
#include "examples.h"

namespace {

const char kUsage[] =
    "usage: blobxlate [--trace] TYPE [FILE]\n"
    "       blobxlate list\n"
    "       blobxlate example TYPE\n"
    "       blobxlate words\n"
    "       blobxlate --help | --version\n";

const char kHelp[] =
    "\n"
    "Converts one message, given as JSON text in FILE (standard input when FILE\n"
    "is absent or \"-\"), with JSON_TRANS_STRUCT into a zeroed record of message\n"
    "type TYPE and back with STRUCT_TRANS_JSON, the way a daemon receives and\n"
    "answers it, and prints both return codes and the message rebuilt from the\n"
    "record.\n"
    "\n"
    "TYPE is a number or a name text of either dispatch table, in any case.\n"
    "\n"
    "  list          one line per message type: number, name text in the\n"
    "                struct-to-JSON and in the JSON-to-struct table, record\n"
    "                (two when the directions differ: to JSON, to struct)\n"
    "  example TYPE  prints the example message of the type\n"
    "  words         one line per enumeration kind: each number from 0 to 63\n"
    "                (each bit, for the wireless standards) that goes out as a\n"
    "                word of its own, as word=number, the number being what\n"
    "                the word reads back as\n"
    "  --trace       prints the conversion's trace lines on standard error\n"
    "  --help        this text\n"
    "  --version     the program's version\n"
    "\n"
    "Exit status: 0 when both directions returned 0, 1 when a converter\n"
    "failed, 2 for bad usage, an unknown type or unreadable input.\n";

int usage_error()
{
    std::fprintf(stderr, "%sblobxlate --help explains them\n", kUsage);
    return 2;
}

// The trace of this run on standard error: the switch is a private file
// that exists while the program runs, the sink writes each line to stderr.
// The machine-wide switch file and console stay untouched.
class StderrTrace {
public:
    StderrTrace()
    {
#ifdef BLOBXLATE_TRACE_OFF
        std::fprintf(stderr, "blobxlate: this build has no trace (BLOBXLATE_TRACE=off)\n");
#else
        const char *tmp = std::getenv("TMPDIR");
        path_ = std::string(tmp != nullptr && *tmp != 0 ? tmp : "/tmp") + "/blobxlate-trace-XXXXXX";
        int fd = mkstemp(path_.data());
        if (fd < 0) {
            std::perror("blobxlate: cannot create the trace switch");
            path_.clear();
            return;
        }
        close(fd);
        BLOBXLATE_SetTraceSink(&to_stderr, nullptr);
        BLOBXLATE_SetTraceSwitch(path_.c_str());
#endif
    }
    ~StderrTrace()
    {
        if (path_.empty())
            return;
        BLOBXLATE_SetTraceSwitch(nullptr);
        BLOBXLATE_SetTraceSink(nullptr, nullptr);
        unlink(path_.c_str());
    }
    StderrTrace(const StderrTrace &) = delete;
    StderrTrace &operator=(const StderrTrace &) = delete;

private:
    static void to_stderr(void *, const char *prefix, const char *text) { std::fprintf(stderr, "%s%s", prefix, text); }
    std::string path_;
};

std::string quoted(const char *name) { return name != nullptr ? "\"" + std::string(name) + "\"" : "(no row)"; }

int list()
{
    std::printf("%4s  %-30s  %-30s  %s\n", "TYPE", "STRUCT-TO-JSON", "JSON-TO-STRUCT", "RECORD");
    for (const bxtool::MessageInfo &info : bxtool::message_types()) {
        std::string record = info.to_json_record;
        if (record != info.to_struct_record)
            record += " / " + std::string(info.to_struct_record);
        std::printf("%4d  %-30s  %-30s  %s\n", info.type, quoted(info.to_json_name).c_str(),
                    quoted(info.to_struct_name).c_str(), record.c_str());
    }
    return 0;
}

// The words a kind sends for 0..63, each with the number it reads back as;
// numbers that go out as the kind's fallback text are left out.
int words()
{
    for (int kind = 0; kind < ENUM_KIND_COUNT; ++kind) {
        std::string fallback = PARATRANS_Int_To_String(kind, 100000);
        std::printf("%2d", kind);
        if (fallback == "100000")
            std::printf(" (numbers go out as decimal text)");
        /* The wireless standards are a bit set: one word a bit. */
        const bool bits = kind == EnumStandard;
        for (int n = bits ? 1 : 0; n < 64 && fallback != "100000"; n = bits ? n * 2 : n + 1) {
            std::string word = PARATRANS_Int_To_String(kind, n);
            if (word == fallback || word.empty())
                continue;
            std::string text = word;  // the lookup may cut its text in place
            std::printf(" \"%s\"=%d", word.c_str(), PARATRANS_String_To_Int(kind, &text[0]));
        }
        std::printf("\n");
    }
    return 0;
}

int example(const bxtool::MessageInfo &info)
{
    const std::string path = bxtool::example_path(info.type);
    FILE *in = std::fopen(path.c_str(), "r");
    if (in == nullptr) {
        std::fprintf(stderr, "blobxlate: no example message of type %d (%s)\n", info.type, path.c_str());
        return 2;
    }
    char chunk[4096];
    size_t n;
    while ((n = std::fread(chunk, 1, sizeof chunk, in)) > 0)
        std::fwrite(chunk, 1, n, stdout);
    std::fclose(in);
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    bool trace = false;
    std::vector<std::string> args;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--help") {
            std::printf("%s%s", kUsage, kHelp);
            return 0;
        }
        if (arg == "--version") {
            std::printf("blobxlate %s\n", BLOBXLATE_VERSION);
            return 0;
        }
        if (arg == "--trace")
            trace = true;
        else if (arg.size() > 1 && arg.compare(0, 2, "--") == 0)
            return usage_error();
        else
            args.push_back(arg);
    }
    const std::string command = args.empty() ? "" : args[0];
    if (command == "list" && args.size() == 1)
        return list();
    if (command == "words" && args.size() == 1)
        return words();
    const bool is_example = command == "example";
    if (args.empty() || args.size() > 2 || command == "list" || command == "words" || (is_example && args.size() != 2))
        return usage_error();

    std::string error;
    const auto info = bxtool::find_type(args[is_example ? 1 : 0], error);
    if (!info) {
        std::fprintf(stderr, "blobxlate: %s\n", error.c_str());
        return 2;
    }
    if (is_example)
        return example(*info);
    std::optional<StderrTrace> stderr_trace;
    if (trace)
        stderr_trace.emplace();
    return bxtool::convert(*info, args.size() == 2 ? args[1].c_str() : "-");
}
