/* Shapes shared by the device, control and carrier messages. */
#ifndef BLOBXLATE_MESSAGES_SYSTEM_FIELDS_H
#define BLOBXLATE_MESSAGES_SYSTEM_FIELDS_H

#include <cstddef>

#include "core/codec.h"

namespace bx::sys {

/* A message of one field that must be there: without it the message is
 * refused (-1) after JTS_CheckBlobAttr's trace and, when given, the
 * message's own `refusal` line (which carries its line end). */
template <const auto &Table>
inline int jts_required(const char *func, blob_attr *msg, void *record, const char *refusal = nullptr)
{
    static_assert(Described<Table>::count == 1, "a message of one field");
    if (msg == nullptr || record == nullptr)
        return -1;
    blob_attr *tb[1];
    blobmsg_parse(Described<Table>::policy.entries, 1, tb, blob_data(msg), blob_len(msg));
    if (!JTS_CheckBlobAttr(Table[0].key, tb[0])) {
        if (refusal != nullptr)
            BX_TRACE_AS(func, "%s", refusal);
        return -1;
    }
    store_field(func, Table[0], tb[0], record);
    return 0;
}

} // namespace bx::sys

#endif
