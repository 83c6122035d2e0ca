/* Shapes shared by the device, control and carrier messages. */
#ifndef BLOBXLATE_MESSAGES_SYSTEM_FIELDS_H
#define BLOBXLATE_MESSAGES_SYSTEM_FIELDS_H

#include <cstddef>

#include "core/codec.h"

namespace bx::sys {

/* Stores every present field of `fields`, whose attributes a caller has
 * already parsed into tb (tb[i] belongs to fields[i]); each absent one is
 * traced by JTS_CheckBlobAttr and left as the caller set it. */
inline void store_present(const char *func, const Field *fields, size_t count, blob_attr *const *tb, void *record)
{
    for (size_t i = 0; i < count; ++i) {
        if (JTS_CheckBlobAttr(fields[i].key, tb[i]))
            store_field(func, fields[i], tb[i], record);
    }
}

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
