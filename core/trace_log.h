/* The trace sent to the system log: one log entry per line of a trace text.
 *
 * A trace text may span several lines (the incoming message rendered as
 * indented JSON) and ends with one or two line ends. The console takes such
 * a text as it comes; a system log makes one entry of each write and shows a
 * line end inside an entry as an escape, so the text is cut at its line ends
 * first and each line goes out with the trace prefix. */
#ifndef BLOBXLATE_CORE_TRACE_LOG_H
#define BLOBXLATE_CORE_TRACE_LOG_H

namespace bx {

/* Receives one line of a trace text: the prefix, and `length` characters of
 * the line without its line end. */
using LineWriter = void (*)(void *context, const char *prefix, const char *line, int length);

struct LineLog {
    LineWriter write;
    void *context;
};

/* A trace sink (BLOBXLATE_SetTraceSink) whose context is a LineLog: calls
 * its writer once per non-empty line of the text. */
void log_lines(void *line_log, const char *prefix, const char *text);

} // namespace bx

#endif
