#include "core/trace_log.h"

#include "blobxlate.h"

#include <cstring>
#include <syslog.h>

#ifdef BLOBXLATE_TRACE_ULOG
extern "C" {
#include <libubox/ulog.h>
}
#endif

namespace bx {

void log_lines(void *line_log, const char *prefix, const char *text)
{
    const auto *log = static_cast<const LineLog *>(line_log);
    while (*text != '\0') {
        const char *end = std::strchr(text, '\n');
        const size_t length = end != nullptr ? static_cast<size_t>(end - text) : std::strlen(text);
        /* The blank line after "Struct To Json: [...]" only spaces out the
         * console; in the log it would be an empty entry. */
        if (length > 0)
            log->write(log->context, prefix, text, static_cast<int>(length));
        text += length + (end != nullptr ? 1 : 0);
    }
}

} // namespace bx

#ifndef BLOBXLATE_TRACE_OFF

namespace {

#ifdef BLOBXLATE_TRACE_ULOG

/* ulog, so that a daemon that logs through it (to syslog, the kernel log or
 * its terminal) gets the trace on the same channels. */
void to_system_log(void *, const char *prefix, const char *line, int length)
{
    ulog(LOG_DEBUG, "%s%.*s\n", prefix, length, line);
}

void open_system_log(const char *ident) { ulog_open(ULOG_SYSLOG, LOG_DAEMON, ident); }

#else

void to_system_log(void *, const char *prefix, const char *line, int length)
{
    syslog(LOG_DEBUG, "%s%.*s", prefix, length, line);
}

void open_system_log(const char *ident) { openlog(ident, LOG_PID, LOG_DAEMON); }

#endif

bx::LineLog g_system_log{to_system_log, nullptr};

} // namespace

BX_API void BLOBXLATE_TraceToSyslog(const char *pcIdent)
{
    if (pcIdent != nullptr)
        open_system_log(pcIdent);
    BLOBXLATE_SetTraceSink(bx::log_lines, &g_system_log);
}

#else

BX_API void BLOBXLATE_TraceToSyslog(const char *pcIdent) { (void)pcIdent; }

#endif
