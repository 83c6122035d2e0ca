#include "core/trace.h"

#ifndef BLOBXLATE_TRACE_OFF

#include <cstdarg>
#include <cstdio>
#include <unistd.h>

namespace bx {

bool trace_enabled() { return access(BLOBXLATE_SWITCH_FILE, F_OK) == 0; }

void trace(const char *func, int line, const char *fmt, ...)
{
    if (!trace_enabled())
        return;
    FILE *console = std::fopen(BLOBXLATE_CONSOLE, "w");
    if (console == nullptr)
        return;
    /* The stream is fully buffered, so prefix and text leave in one write
     * when it is closed. */
    std::fprintf(console, "[%s.%d]: ", func, line);
    va_list ap;
    va_start(ap, fmt);
    std::vfprintf(console, fmt, ap); // NOLINT(clang-analyzer-valist.Uninitialized): va_start above
    va_end(ap);
    std::fclose(console);
}

} // namespace bx

#endif
