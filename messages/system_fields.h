/* Shapes shared by the device, control and carrier messages. */
#ifndef BLOBXLATE_MESSAGES_SYSTEM_FIELDS_H
#define BLOBXLATE_MESSAGES_SYSTEM_FIELDS_H

#include <cstddef>

#include "core/codec.h"

namespace bx::sys {

/* A message of one field that must be there: without it the message is
 * refused (-1) after JTS_CheckBlobAttr's trace and, when given, the
 * message's own `refusal` line (which carries its line end). */
inline int jts_required(const char *func, blob_attr *msg, void *record, const Field &field,
                        const char *refusal = nullptr)
{
    if (msg == nullptr || record == nullptr)
        return -1;
    const blobmsg_policy policy[1] = {{field.key, wire_type(field.how)}};
    blob_attr *tb[1];
    parse(policy, tb, msg);
    if (!present(policy, tb, 0)) {
        if (refusal != nullptr)
            BX_TRACE_AS(func, "%s", refusal);
        return -1;
    }
    store_field(func, field, tb[0], record);
    return 0;
}

} // namespace bx::sys

#endif
