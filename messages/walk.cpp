#include "messages/walk.h"

namespace bx::walk {

unsigned each_by(blob_attr *list, Step step, void *state)
{
    return for_each_elem(list, [step, state](blob_attr *elem) { return step(state, elem); });
}

} // namespace bx::walk
