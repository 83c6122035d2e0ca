// Captures the trace channel of the library under test.
//
// The test build points the switch file and the console at private paths.
// The console is made a FIFO that this object keeps open at both ends: the
// library opens it with "w" for every line, which on a regular file would
// keep only the last line, while the pipe keeps them all in order.
#ifndef BLOBXLATE_TESTS_TRACE_CAPTURE_H
#define BLOBXLATE_TESTS_TRACE_CAPTURE_H

#include <string>
#include <vector>

namespace bxtest {

// True when the build points the trace at private test paths (not the real
// console); trace assertions skip otherwise.
bool trace_paths_private();

class TraceCapture {
public:
    // on = true creates the switch file, so tracing starts at once.
    explicit TraceCapture(bool on = true);
    ~TraceCapture();
    TraceCapture(const TraceCapture &) = delete;
    TraceCapture &operator=(const TraceCapture &) = delete;

    void set_enabled(bool on);  // create or remove the switch file

    // Everything printed since the last take(), as raw bytes.
    std::string take_raw();

    // Everything printed since the last take(), one entry per print, as
    // "function: text" with the source line number left out and the text
    // kept verbatim (line ends included).
    std::vector<std::string> take();

    // The texts of take() only, without "function: ".
    std::vector<std::string> take_texts();

private:
    int fd_ = -1;
};

// Splits raw console output into "function: text" entries.
std::vector<std::string> split_trace(const std::string &raw);

} // namespace bxtest

// Skips the current test when the trace paths are the real ones.
#define BX_REQUIRE_TRACE_CAPTURE()                                                   \
    do {                                                                             \
        if (!::bxtest::trace_paths_private())                                        \
            GTEST_SKIP() << "configure with private BLOBXLATE_SWITCH_FILE/CONSOLE";  \
    } while (0)

#endif
