/* The list walk of core/codec.h, out of line: the quirks that walk a list
 * by hand share one copy of its loop and keep only their own step. And the
 * one loop of the quirks that send a list's tables leaving some out. */
#ifndef BLOBXLATE_MESSAGES_WALK_H
#define BLOBXLATE_MESSAGES_WALK_H

#include "core/codec.h"

namespace bx::walk {

/* One element's step: false ends the walk. */
using Step = bool (*)(void *state, blob_attr *elem);

/* bx::for_each_elem, the step called through a pointer. */
unsigned each_by(blob_attr *list, Step step, void *state);

/* bx::for_each_elem(list, fn), the loop shared. */
template <typename Fn>
inline unsigned each(blob_attr *list, Fn fn)
{
    return each_by(list, [](void *state, blob_attr *elem) { return (*static_cast<Fn *>(state))(elem); }, &fn);
}

/* What ends or thins out a sent list: an entry whose 32-bit member at byte
 * `at` is 0 ends the list (Zero::Ends) or is left out (Zero::Skipped). */
enum class Zero : uint8_t { Ends, Skipped };

/* Sends list field f as an array of its first `count` tables, by a zero
 * member as `zero` says. */
void send_tables(const Field &f, const Link *links, const void *record, blob_buf *buf, size_t count, size_t at, Zero zero);

} // namespace bx::walk

#endif
