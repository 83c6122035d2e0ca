#include "core/trace.h"

#include "blobxlate.h"

#ifndef BLOBXLATE_TRACE_OFF

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
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

namespace {

/* Most lines fit the stack buffer; a longer one (a whole message rendered as
 * JSON) is formatted again into a block of its own size, so that the sink
 * gets every line whole, as the console does. */
__attribute__((format(printf, 3, 0))) void to_sink(const char *func, int line, const char *fmt, va_list ap)
{
    char prefix[96];
    std::snprintf(prefix, sizeof prefix, "[%s.%d]: ", func, line);
    char text[256]; /* with the prefix, keeps the frame well under 512 bytes */
    va_list again;
    va_copy(again, ap);
    int n = std::vsnprintf(text, sizeof text, fmt, ap); // NOLINT(clang-analyzer-valist.Uninitialized): started by the caller
    char *whole = nullptr;
    if (n >= static_cast<int>(sizeof text)) {
        whole = static_cast<char *>(std::malloc(static_cast<size_t>(n) + 1));
        if (whole != nullptr)
            std::vsnprintf(whole, static_cast<size_t>(n) + 1, fmt, again);
    }
    va_end(again);
    g_sink(g_sink_context, prefix, whole != nullptr ? whole : text);
    std::free(whole);
}

__attribute__((format(printf, 3, 0))) void to_console(const char *func, int line, const char *fmt, va_list ap)
{
    FILE *console = std::fopen(BLOBXLATE_CONSOLE, "w");
    if (console == nullptr)
        return;
    /* The stream is fully buffered, so prefix and text leave in one write
     * when it is closed. */
    std::fprintf(console, "[%s.%d]: ", func, line);
    std::vfprintf(console, fmt, ap); // NOLINT(clang-analyzer-valist.Uninitialized): started by the caller
    std::fclose(console);
}

} // namespace

void trace(const char *func, int line, const char *fmt, ...)
{
    if (!trace_enabled())
        return;
    va_list ap;
    va_start(ap, fmt);
    if (g_sink != nullptr)
        to_sink(func, line, fmt, ap);
    else
        to_console(func, line, fmt, ap);
    va_end(ap);
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
