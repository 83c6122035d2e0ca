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
#include "check.h"
#include "convert.h"
#include "examples.h"
#include "keys.h"
#include "kinds.h"
#include "quirks.h"
#include "schema.h"

namespace {

const char kUsage[] =
    "usage: blobxlate [--trace] TYPE [FILE]\n"
    "       blobxlate list [WORD]\n"
    "       blobxlate example TYPE\n"
    "       blobxlate words [KIND]\n"
    "       blobxlate schema [--sent] TYPE|all\n"
    "       blobxlate keys TYPE\n"
    "       blobxlate check TYPE [FILE]\n"
    "       blobxlate quirks\n"
    "       blobxlate --help | --version\n";

const char kHelp[] =
    "\n"
    "Converts one message, given as JSON text in FILE (standard input when FILE\n"
    "is absent or \"-\"), with JSON_TRANS_STRUCT into a zeroed record of message\n"
    "type TYPE and back with STRUCT_TRANS_JSON, the way a daemon receives and\n"
    "answers it, and prints both return codes and the message rebuilt from the\n"
    "record; what check finds in the message goes to standard error first.\n"
    "\n"
    "TYPE is a number or a name text of either dispatch table, in any case.\n"
    "\n"
    "  list [WORD]   one line per message type: number, name text in the\n"
    "                struct-to-JSON and in the JSON-to-struct table, record\n"
    "                (two when the directions differ: to JSON, to struct);\n"
    "                with WORD only the types whose name texts or records\n"
    "                contain it in any case (or, when none does, have a name\n"
    "                word it begins with: \"Sta\" for \"station\")\n"
    "  example TYPE  prints the example message of the type; for a type that\n"
    "                is only sent, what the library sends for a zeroed record\n"
    "  words [KIND]  one line per enumeration kind (or the one KIND, a number\n"
    "                or a name such as EnumWanMode or wanmode): its number,\n"
    "                its name and each number from 0 to 63 (each bit, for the\n"
    "                wireless standards) that goes out as a word of its own,\n"
    "                as word=number, the number being what the word reads\n"
    "                back as\n"
    "  schema TYPE   a JSON Schema (draft 2020-12) of the message the type's\n"
    "                JSON-to-struct converter reads: its keys, their JSON types,\n"
    "                words, text lengths, number bounds, required keys, list\n"
    "                lengths; with --sent, of what its struct-to-JSON converter\n"
    "                sends; \"all\": one object of every type's, by number\n"
    "  check TYPE [FILE]\n"
    "                converts nothing: one line per part of the message the\n"
    "                type's JSON-to-struct converter will ignore, cut, store\n"
    "                otherwise than sent, or refuse the message for, with its\n"
    "                path (stalist[3].txpackets) and what the converter does\n"
    "  keys TYPE     the type's keys as a Markdown table: blobmsg type, record\n"
    "                member, what the JSON-to-struct converter does without it\n"
    "                (Read) and when the struct-to-JSON one sends it (Sent),\n"
    "                words, text length or range, list capacity; the notes of\n"
    "                what a converter does beyond its columns follow\n"
    "  quirks        one line per place a converter departs from its columns,\n"
    "                tab-separated: type, direction (to-struct, to-json),\n"
    "                converter, key path (\"-\": the converter's own note) and\n"
    "                the note saying how\n"
    "  --trace       prints the conversion's trace lines on standard error\n"
    "  --help        this text\n"
    "  --version     the program's version\n"
    "\n"
    "Exit status: 0 when both directions returned 0, 1 when a converter\n"
    "failed, check found something or list found no type, 2 for bad usage, an unknown type or kind,\n"
    "a type without a JSON-to-struct converter, or input that is not one JSON\n"
    "object a message can hold.\n";

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

int list(const std::vector<bxtool::MessageInfo> &types)
{
    std::printf("%4s  %-30s  %-30s  %s\n", "TYPE", "STRUCT-TO-JSON", "JSON-TO-STRUCT", "RECORD");
    for (const bxtool::MessageInfo &info : types) {
        std::string record = info.to_json_record;
        if (record != info.to_struct_record)
            record += " / " + std::string(info.to_struct_record);
        std::printf("%4d  %-30s  %-30s  %s\n", info.type, quoted(info.to_json_name).c_str(),
                    quoted(info.to_struct_name).c_str(), record.c_str());
    }
    return 0;
}

int list_named_like(const std::string &word)
{
    const std::vector<bxtool::MessageInfo> types = bxtool::types_named_like(word);
    if (!types.empty())
        return list(types);
    std::fprintf(stderr, "blobxlate: no message type's name text or record contains \"%s\"\n", word.c_str());
    return 1;
}

void print_words(int kind)
{
    std::printf("%2d %s", kind, bxtool::kind_name(kind));
    if (bxtool::sends_decimal(kind))
        std::printf(" (numbers go out as decimal text)");
    for (const bxtool::KindWord &w : bxtool::sent_words(kind))
        std::printf(" \"%s\"=%d", w.word.c_str(), w.reads_as);
    std::printf("\n");
}

int words(const std::string *name)
{
    if (name == nullptr) {
        for (int kind = 0; kind < ENUM_KIND_COUNT; ++kind)
            print_words(kind);
        return 0;
    }
    const std::optional<int> kind = bxtool::find_kind(*name);
    if (!kind) {
        std::fprintf(stderr, "blobxlate: unknown enumeration kind \"%s\" (blobxlate words lists them)\n", name->c_str());
        return 2;
    }
    print_words(*kind);
    return 0;
}

int schema(const std::string &type, int direction)
{
    if (type == "all") {
        std::printf("%s", bxtool::all_schemas_text(direction).c_str());
        return 0;
    }
    std::string error;
    const auto info = bxtool::find_type(type, error);
    const std::string text = info ? bxtool::schema_text(*info, direction) : "";
    if (info && text.empty())
        error = "type " + std::to_string(info->type) + " has no " +
                (direction == BLOBXLATE_TO_JSON ? "struct-to-JSON" : "JSON-to-struct") + " converter";
    if (text.empty()) {
        std::fprintf(stderr, "blobxlate: %s\n", error.c_str());
        return 2;
    }
    std::printf("%s", text.c_str());
    return 0;
}

int example(const bxtool::MessageInfo &info)
{
    if (info.to_struct_name == nullptr)
        return bxtool::print_sent_for_zeroed(info);
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

// The commands that name a type: example, keys, check, and a conversion.
int typed_command(const std::vector<std::string> &args, bool trace)
{
    const std::string &command = args[0];
    const bool named = command == "example" || command == "keys" || command == "check";
    const size_t operands = args.size() - (named ? 1 : 0);  // the type and the file
    if (operands < 1 || operands > (command == "example" || command == "keys" ? 1u : 2u))
        return usage_error();
    std::string error;
    const auto info = bxtool::find_type(args[named ? 1 : 0], error);
    if (!info) {
        std::fprintf(stderr, "blobxlate: %s\n", error.c_str());
        return 2;
    }
    if (command == "keys") {
        std::printf("%s", bxtool::keys_text(*info).c_str());
        return 0;
    }
    if (command == "example")
        return example(*info);
    if (info->to_struct_name == nullptr) {
        std::fprintf(stderr, "blobxlate: type %d has no JSON-to-struct converter: the library only sends it "
                             "(blobxlate example %d shows what it sends)\n", info->type, info->type);
        return 2;
    }
    const char *path = operands == 2 ? args.back().c_str() : "-";
    if (command == "check")
        return bxtool::check(*info, path);
    std::optional<StderrTrace> stderr_trace;
    if (trace)
        stderr_trace.emplace();
    return bxtool::convert(*info, path);
}

} // namespace

int main(int argc, char **argv)
{
    bool trace = false;
    bool sent = false;
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
        else if (arg == "--sent")
            sent = true;
        else if (arg.size() > 1 && arg.compare(0, 2, "--") == 0)
            return usage_error();
        else
            args.push_back(arg);
    }
    const std::string command = args.empty() ? "" : args[0];
    const std::string *operand = args.size() == 2 ? &args[1] : nullptr;
    if (sent && command != "schema")
        return usage_error();
    if (command == "list" && args.size() <= 2)
        return operand != nullptr ? list_named_like(*operand) : list(bxtool::message_types());
    if (command == "words" && args.size() <= 2)
        return words(operand);
    if (command == "schema" && operand != nullptr)
        return schema(*operand, sent ? BLOBXLATE_TO_JSON : BLOBXLATE_TO_STRUCT);
    if (command == "quirks" && args.size() == 1) {
        std::printf("%s", bxtool::quirks_text().c_str());
        return 0;
    }
    if (args.empty() || command == "list" || command == "quirks" || command == "words" || command == "schema")
        return usage_error();
    return typed_command(args, trace);
}

