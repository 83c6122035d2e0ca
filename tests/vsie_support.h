// Helpers shared by the vendor-element tests.
#ifndef BLOBXLATE_TESTS_VSIE_SUPPORT_H
#define BLOBXLATE_TESTS_VSIE_SUPPORT_H

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "support.h"

namespace vsietest {

// A record followed by a guard that no converter may touch.
template <typename T>
struct Guarded {
    T rec{};
    unsigned char guard[64];
    Guarded() { std::memset(guard, 0xA5, sizeof guard); }
    bool intact() const { return std::all_of(guard, guard + sizeof guard, [](unsigned char b) { return b == 0xA5; }); }
};

// JSON text of an array of `count` numbers counting up from `from`.
inline std::string numbers(int from, int count)
{
    std::string out = "[";
    for (int i = 0; i < count; ++i)
        out += (i != 0 ? "," : "") + std::to_string(from + i);
    return out + "]";
}

// How many INT32 values a typed() wire form holds.
inline size_t count_i32(const std::string &typed)
{
    size_t n = 0;
    for (size_t at = typed.find("i32:"); at != std::string::npos; at = typed.find("i32:", at + 1))
        ++n;
    return n;
}

// The lines of a capture that are exactly `line`.
inline size_t count_line(const std::vector<std::string> &lines, const std::string &line)
{
    return static_cast<size_t>(std::count(lines.begin(), lines.end(), line));
}

// The texts of captured lines printed by `func` or by JTS_CheckBlobAttr. A
// line printed by any other function is kept whole, so that it shows.
inline std::vector<std::string> texts_from(const std::vector<std::string> &lines, const std::string &func)
{
    std::vector<std::string> texts;
    for (const std::string &line : lines) {
        std::string text = line;
        for (const std::string &prefix : {func + ": ", std::string("JTS_CheckBlobAttr: ")}) {
            if (line.rfind(prefix, 0) == 0) {
                text = line.substr(prefix.size());
                break;
            }
        }
        texts.push_back(text);
    }
    return texts;
}

} // namespace vsietest

#endif
