/* Debug trace, switched on by the existence of a file.
 *
 * Every line is one "[function.line]: text" print. The switch file is tested
 * before every line and never cached, so a field engineer can touch or remove
 * it while a daemon runs and see the effect at the next line. By default the
 * console is opened and closed for every line: no stream, no state, nothing
 * to lock. A daemon may route the lines to a sink of its own instead. */
#ifndef BLOBXLATE_CORE_TRACE_H
#define BLOBXLATE_CORE_TRACE_H

namespace bx {

#ifndef BLOBXLATE_TRACE_OFF

/* True while the switch file exists (tested anew on every call). */
bool trace_enabled();

/* Prints one line when the switch file exists; silent when the console
 * cannot be opened. */
void trace(const char *func, int line, const char *fmt, ...) __attribute__((format(printf, 3, 4)));

#define BX_TRACE(...) ::bx::trace(__func__, __LINE__, __VA_ARGS__)
/* For shared helpers that trace on behalf of a converter. */
#define BX_TRACE_AS(func, ...) ::bx::trace((func), __LINE__, __VA_ARGS__)

#else /* production firmware: the channel is compiled out */

inline bool trace_enabled() { return false; }
inline void trace_discard(const char *, ...) __attribute__((format(printf, 1, 2)));
inline void trace_discard(const char *, ...) {}

/* Arguments are still type-checked, and still count as used. */
#define BX_TRACE(...) do { if (false) ::bx::trace_discard(__VA_ARGS__); } while (0)
#define BX_TRACE_AS(func, ...) do { (void)(func); if (false) ::bx::trace_discard(__VA_ARGS__); } while (0)

#endif

/* Opens the trace scope of one call of an exported function (an entry
 * point, a converter, a PARATRANS_* function). Every exported function
 * starts with it; in the per-call trace mode the switch file is tested once
 * per outermost scope. Nested scopes (a converter called by the dispatcher)
 * share the outer one's answer. */
#define BX_TRACE_CALL() ((void)0)

} // namespace bx

#endif
