// Helpers for building messages and reading what the converters emit.
#ifndef BLOBXLATE_TESTS_SUPPORT_H
#define BLOBXLATE_TESTS_SUPPORT_H

#include <string>

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
    std::string typed();  // see bxtest::typed()

private:
    blob_buf buf_{};
};

// The members of a table payload with their blobmsg types, in order, e.g.
//   mac=s"aa" count=i32:3 total=i64:5 on=i8:1 list=[i32:1 i32:2] t={a=s"x"}
// Keys, order, types and values are all there, so one string comparison
// pins the whole wire form.
std::string typed(blob_attr *table);

// A received message, written in the notation of typed(), which says each
// member's blobmsg type. Texts run to the next double quote.
class Msg {
public:
    explicit Msg(const char *text);
    blob_attr *get() { return buf_.head(); }
    operator blob_attr *() { return buf_.head(); }

private:
    Buf buf_;
};

// Runs STRUCT_TRANS_JSON into a fresh buffer; returns typed() of the result
// and stores the return code in *ret when given.
std::string stj_typed(int type, const void *record, int *ret = nullptr);

// What one JSON_TRANS_STRUCT call did: its result and the texts of the
// converter's own trace lines, run together (the dispatcher's lines left out).
struct Received {
    int ret = -2;
    std::string trace;
};
Received receive(int type, const char *msg, void *record);

// One message through both converters: received into a zeroed record of
// its type (exactly its size), then that record sent back.
struct Case {
    int type;
    const char *in;             // the message received
    const char *trace;          // the converter's trace texts, run together
    const char *out = nullptr;  // the message the record gives back; null: `in` again
    int ret = 0;                // what receiving answers
};
void expect_case(const Case &c);

// The row of `type` in a dispatch table, or null.
const MessageTransEntry *find_row(const MessageTransEntry *table, int count, int type);

} // namespace bxtest

#endif
