#include "core/trace.h"

#include "blobxlate.h"

#ifndef BLOBXLATE_TRACE_OFF

#include <cstdarg>
#include <cstdio>
#include <unistd.h>

namespace bx {

namespace {

/* Set at start-up by the daemon (see the header), read without a lock. */
BlobxlateTraceSink g_sink = nullptr;
void *g_sink_context = nullptr;
const char *g_switch = BLOBXLATE_SWITCH_FILE;

bool switch_exists() { return access(g_switch, F_OK) == 0; }

} // namespace

#ifdef BLOBXLATE_TRACE_CALL

bool trace_enabled()
{
    if (t_call.depth == 0)
        return switch_exists();
    if (t_call.answer == Switch::Unknown)
        t_call.answer = switch_exists() ? Switch::On : Switch::Off;
    return t_call.answer == Switch::On;
}

#else

bool trace_enabled() { return switch_exists(); }

#endif

void trace(const char *func, int line, const char *fmt, ...)
{
    if (!trace_enabled())
        return;
    va_list ap;
    va_start(ap, fmt);
    if (g_sink != nullptr) {
        char prefix[96];
        char text[512];
        std::snprintf(prefix, sizeof prefix, "[%s.%d]: ", func, line);
        std::vsnprintf(text, sizeof text, fmt, ap); // NOLINT(clang-analyzer-valist.Uninitialized): va_start above
        va_end(ap);
        g_sink(g_sink_context, prefix, text);
        return;
    }
    FILE *console = std::fopen(BLOBXLATE_CONSOLE, "w");
    if (console == nullptr) {
        va_end(ap);
        return;
    }
    /* The stream is fully buffered, so prefix and text leave in one write
     * when it is closed. */
    std::fprintf(console, "[%s.%d]: ", func, line);
    std::vfprintf(console, fmt, ap); // NOLINT(clang-analyzer-valist.Uninitialized): va_start above
    va_end(ap);
    std::fclose(console);
}

} // namespace bx

BX_API void BLOBXLATE_SetTraceSink(BlobxlateTraceSink pfnSink, void *pvContext)
{
    bx::g_sink = pfnSink;
    bx::g_sink_context = pvContext;
}

BX_API void BLOBXLATE_SetTraceSwitch(const char *pcPath)
{
    bx::g_switch = pcPath != nullptr ? pcPath : BLOBXLATE_SWITCH_FILE;
}

#else

BX_API void BLOBXLATE_SetTraceSink(BlobxlateTraceSink pfnSink, void *pvContext)
{
    (void)pfnSink;
    (void)pvContext;
}

BX_API void BLOBXLATE_SetTraceSwitch(const char *pcPath) { (void)pcPath; }

#endif
