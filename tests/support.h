// Helpers for building messages and reading what the converters emit.
#ifndef BLOBXLATE_TESTS_SUPPORT_H
#define BLOBXLATE_TESTS_SUPPORT_H

#include <string>
#include <vector>

#include "blobxlate.h"
#include "trace_capture.h"

namespace bxtest {

// A blob_buf initialised for a message, freed on destruction.
class Buf {
public:
    Buf();
    ~Buf();
    Buf(const Buf &) = delete;
    Buf &operator=(const Buf &) = delete;
    blob_buf *get() { return &buf_; }
    blob_attr *head() { return buf_.head; }
    // Compact JSON of the members added so far.
    std::string json();
    // Members with their blobmsg types, see typed().
    std::string typed();

private:
    blob_buf buf_{};
};

// A received message built from JSON text (the top level must be an object).
// Integers that fit 32 bits travel as INT32, larger ones as INT64.
class Msg {
public:
    explicit Msg(const char *json_text);
    blob_attr *get() { return buf_.head(); }
    operator blob_attr *() { return buf_.head(); }

private:
    Buf buf_;
};

// The members of a table payload with their blobmsg types, in order, e.g.
//   mac=s"aa" count=i32:3 total=i64:5 on=i8:1 list=[i32:1 i32:2] t={a=s"x"}
// Keys, order, types and values are all there, so one string comparison
// pins the whole wire form.
std::string typed(blob_attr *table);

// Runs STRUCT_TRANS_JSON into a fresh buffer; returns typed() of the result
// and stores the return code in *ret when given.
std::string stj_typed(int type, const void *record, int *ret = nullptr);
// The same, as compact JSON.
std::string stj_json(int type, const void *record, int *ret = nullptr);

// One message type's converters as the dispatch tables must hold them.
struct ConverterRow {
    int type;
    const char *stj_name, *jts_name;
    StructToJsonFunc stj;
    JsonToStructFunc jts;
};

// Checks that each type's rows carry its name texts and converters, and that
// each converter refuses null arguments (given a record large enough for it)
// without adding to a buffer.
void expect_converter_rows(const ConverterRow *rows, size_t count, void *record);
template <size_t N>
void expect_converter_rows(const ConverterRow (&rows)[N], void *record)
{
    expect_converter_rows(rows, N, record);
}

// Runs the blobxlate program on a message (JSON text) of the given type.
// Returns false when the program is not built (the test then skips).
struct ToolResult {
    int exit_code = -1;
    std::string out;  // standard output
};
bool run_tool(int type, const std::string &json_text, ToolResult &result);

} // namespace bxtest

#endif
