/* The list walk of core/codec.h, out of line: the quirks that walk a list
 * by hand share one copy of its loop and keep only their own step. */
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

} // namespace bx::walk

#endif
