/* Debug trace, switched on by the existence of a file.
 *
 * Every line is one "[function.line]: text" print. How often the switch file
 * is tested is chosen when the library is built (BLOBXLATE_TRACE):
 *   line  before every line, never cached, so a field engineer can touch or
 *         remove it while a daemon runs and see the effect at the next line;
 *   call  once per call of an exported function, on the call's first line,
 *         and that answer holds for every line of the call: the effect shows
 *         at the next message, and a conversion with the switch absent costs
 *         one test instead of one per field;
 *   off   the channel is compiled out.
 * By default the console is opened and closed for every line: no stream, no
 * state, nothing to lock. A daemon may route the lines to a sink of its own
 * instead. */
#ifndef BLOBXLATE_CORE_TRACE_H
#define BLOBXLATE_CORE_TRACE_H

namespace bx {

#ifndef BLOBXLATE_TRACE_OFF

/* True while the switch file exists: tested anew, or in the per-call mode
 * inside an exported call, the call's answer. */
bool trace_enabled();

/* Prints one line when trace_enabled(); silent when the console cannot be
 * opened. */
void trace(const char *func, int line, const char *fmt, ...) __attribute__((format(printf, 3, 4)));

#ifdef BLOBXLATE_TRACE_CALL

/* The per-call answer of this thread: depth of nested exported calls, and
 * whether the switch file was found by the outermost one (Unknown until its
 * first line). */
enum class Switch : unsigned char { Unknown, Off, On };
struct CallState {
    int depth;
    Switch answer;
};
constinit inline thread_local CallState t_call{0, Switch::Unknown};

/* Opens the trace scope of one exported call; the outermost scope forgets
 * its answer when it closes, so lines made outside any call (a converter
 * reached without a scope) test the switch each time. */
class CallScope {
public:
    CallScope() noexcept { ++t_call.depth; }
    ~CallScope()
    {
        if (--t_call.depth == 0)
            t_call.answer = Switch::Unknown;
    }
    CallScope(const CallScope &) = delete;
    CallScope &operator=(const CallScope &) = delete;
};

/* False only when this call already knows that the switch is off: the line
 * and its arguments are then skipped without leaving the caller. */
inline bool trace_may_print() { return t_call.answer != Switch::Off; }

#define BX_TRACE_CALL() ::bx::CallScope bx_trace_call_scope_

#else /* line */

inline bool trace_may_print() { return true; }

#define BX_TRACE_CALL() ((void)0)

#endif

#define BX_TRACE(...)                                           \
    do {                                                        \
        if (::bx::trace_may_print())                            \
            ::bx::trace(__func__, __LINE__, __VA_ARGS__);       \
    } while (0)
/* For shared helpers that trace on behalf of a converter. */
#define BX_TRACE_AS(func, ...)                                  \
    do {                                                        \
        if (::bx::trace_may_print())                            \
            ::bx::trace((func), __LINE__, __VA_ARGS__);         \
    } while (0)

#else /* production firmware: the channel is compiled out */

inline bool trace_enabled() { return false; }
inline bool trace_may_print() { return false; }
inline void trace_discard(const char *, ...) __attribute__((format(printf, 1, 2)));
inline void trace_discard(const char *, ...) {}

/* Arguments are still type-checked, and still count as used. */
#define BX_TRACE(...) do { if (false) ::bx::trace_discard(__VA_ARGS__); } while (0)
#define BX_TRACE_AS(func, ...) do { (void)(func); if (false) ::bx::trace_discard(__VA_ARGS__); } while (0)
#define BX_TRACE_CALL() ((void)0)

#endif

/* BX_TRACE_CALL() opens the trace scope of one call of an exported function
 * (an entry point, a converter, a PARATRANS_* function); every exported
 * function starts with it. Nested scopes (a converter called by the
 * dispatcher) share the outermost one's answer. */

} // namespace bx

#endif
