// Helpers shared by the tests of the device, control and carrier messages.
#ifndef BLOBXLATE_TESTS_SYSTEM_SUPPORT_H
#define BLOBXLATE_TESTS_SYSTEM_SUPPORT_H

#include <cstring>
#include <string>
#include <vector>

#include "support.h"

namespace bxtest {

// What one JSON_TRANS_STRUCT call did: its result and the converter's own
// trace lines ("function: text"), the dispatcher's lines left out.
struct Received {
    int ret = -2;
    std::vector<std::string> traces;
};

inline Received receive(int type, const char *json, void *record)
{
    Msg msg(json);
    TraceCapture cap;
    Received r;
    r.ret = JSON_TRANS_STRUCT(type, msg, record);
    for (std::string &line : cap.take()) {
        if (line.rfind("JSON_TRANS_STRUCT: ", 0) != 0)
            r.traces.push_back(std::move(line));
    }
    return r;
}

// The name text of the row of `type` in a table, or "" without a row.
inline std::string row_name(const MessageTransEntry *table, int count, int type)
{
    for (int i = 0; i < count; ++i)
        if (table[i].id == type)
            return table[i].name;
    return "";
}

// A record inside a larger filled area: whatever a converter writes outside
// the record shows as a changed guard byte.
template <typename Rec>
struct Guarded {
    static constexpr unsigned char kFill = 0x5A;
    unsigned char before[64];
    Rec rec;
    unsigned char after[64];

    explicit Guarded(unsigned char rec_fill = 0)
    {
        std::memset(before, kFill, sizeof before);
        std::memset(after, kFill, sizeof after);
        std::memset(&rec, rec_fill, sizeof rec);
    }
    bool guards_intact() const
    {
        for (size_t i = 0; i < sizeof before; ++i)
            if (before[i] != kFill || after[i] != kFill)
                return false;
        return true;
    }
    bool rec_all(unsigned char b) const
    {
        const auto *p = reinterpret_cast<const unsigned char *>(&rec);
        for (size_t i = 0; i < sizeof rec; ++i)
            if (p[i] != b)
                return false;
        return true;
    }
};

} // namespace bxtest

#endif
