#include "trace_capture.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <regex>
#include <sys/stat.h>
#include <unistd.h>

namespace bxtest {

bool trace_paths_private()
{
#ifdef BLOBXLATE_TRACE_OFF
    return false;  // the channel is compiled out: nothing to capture
#endif
    return std::strcmp(BLOBXLATE_CONSOLE, "/dev/console") != 0 &&
           std::strcmp(BLOBXLATE_SWITCH_FILE, "/tmp/debug_blobxlate") != 0;
}

TraceCapture::TraceCapture(bool on)
{
    if (!trace_paths_private())
        return;
    unlink(BLOBXLATE_CONSOLE);
    if (mkfifo(BLOBXLATE_CONSOLE, 0600) != 0) {
        std::perror("mkfifo " BLOBXLATE_CONSOLE);
        return;
    }
    // Both ends: writers never block on open and never see a closed pipe.
    fd_ = open(BLOBXLATE_CONSOLE, O_RDWR | O_NONBLOCK);
    if (fd_ >= 0)
        fcntl(fd_, F_SETPIPE_SZ, 1 << 20);
    set_enabled(on);
}

TraceCapture::~TraceCapture()
{
    if (!trace_paths_private())
        return;
    set_enabled(false);
    if (fd_ >= 0)
        close(fd_);
    unlink(BLOBXLATE_CONSOLE);
}

void TraceCapture::set_enabled(bool on)
{
    if (!on)
        unlink(BLOBXLATE_SWITCH_FILE);
    else if (FILE *f = std::fopen(BLOBXLATE_SWITCH_FILE, "w"))
        std::fclose(f);
}

std::string TraceCapture::take_raw()
{
    std::string out;
    if (fd_ < 0)
        return out;
    char buf[4096];
    for (ssize_t n; (n = read(fd_, buf, sizeof buf)) > 0 || (n < 0 && errno == EINTR);)
        out.append(buf, n > 0 ? static_cast<size_t>(n) : 0);
    return out;
}

std::vector<std::string> split_trace(const std::string &raw)
{
    static const std::regex prefix(R"(\[([A-Za-z_][A-Za-z_0-9]*)\.([0-9]+)\]: )");
    std::vector<std::string> out;
    std::vector<std::pair<size_t, std::smatch>> starts;
    for (auto it = std::sregex_iterator(raw.begin(), raw.end(), prefix); it != std::sregex_iterator(); ++it) {
        size_t pos = static_cast<size_t>(it->position(0));
        if (pos == 0 || raw[pos - 1] == '\n')
            starts.emplace_back(pos, *it);
    }
    for (size_t i = 0; i < starts.size(); ++i) {
        size_t text_begin = starts[i].first + static_cast<size_t>(starts[i].second.length(0));
        size_t text_end = i + 1 < starts.size() ? starts[i + 1].first : raw.size();
        out.push_back(starts[i].second.str(1) + ": " + raw.substr(text_begin, text_end - text_begin));
    }
    return out;
}

std::vector<std::string> TraceCapture::take() { return split_trace(take_raw()); }

std::vector<std::string> TraceCapture::take_texts()
{
    std::vector<std::string> out;
    for (const std::string &e : take())
        out.push_back(e.substr(e.find(": ") + 2));
    return out;
}

} // namespace bxtest
