// Helpers for building messages and reading what the converters emit.
#ifndef BLOBXLATE_TESTS_SUPPORT_H
#define BLOBXLATE_TESTS_SUPPORT_H

#include <cstring>
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

// A received message, written either as JSON text (starting with '{';
// integers that fit 32 bits travel as INT32, larger ones as INT64) or in the
// notation of typed(), which also says each member's blobmsg type. Texts in
// that notation run to the next double quote.
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

// A record inside a larger filled area: whatever a converter writes outside
// the record shows as a changed guard byte.
template <typename Rec>
struct Guarded {
    unsigned char before[64];
    Rec rec;
    unsigned char after[64];
    explicit Guarded(unsigned char rec_fill = 0)
    {
        std::memset(before, 0x5A, sizeof before);
        std::memset(after, 0x5A, sizeof after);
        std::memset(&rec, rec_fill, sizeof rec);
    }
    bool intact() const
    {
        for (size_t i = 0; i < sizeof before; ++i)
            if (before[i] != 0x5A || after[i] != 0x5A)
                return false;
        return true;
    }
};

// The row of `type` in a dispatch table, or null.
const MessageTransEntry *find_row(const MessageTransEntry *table, int count, int type);

} // namespace bxtest

// Trace assertions hold only where the trace can be captured.
#define BX_EXPECT_TRACE(received, text)                  \
    do {                                                 \
        if (::bxtest::trace_paths_private())             \
            EXPECT_EQ((received).trace, std::string(text)); \
    } while (0)

#endif
