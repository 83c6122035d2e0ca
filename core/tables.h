#ifndef BLOBXLATE_CORE_TABLES_H
#define BLOBXLATE_CORE_TABLES_H

#include "blobxlate.h"
#include "core/catalogue.h"

namespace bx {

/* The message numbers run from 0 to the highest the catalogue names: a new
 * type's number widens the range by its catalogue line alone. */
constexpr int kFirstMessageType = 0;

#define BX_TYPE_OF(type, sent, received, to_json, to_struct) type,
consteval int highest_type()
{
    const int types[] = {BX_CATALOGUE(BX_TYPE_OF)};
    int highest = kFirstMessageType;
    for (int type : types)
        highest = type > highest ? type : highest;
    return highest;
}
#undef BX_TYPE_OF
constexpr int kLastMessageType = highest_type();

/* The id of the closing row of both tables: never a message type. */
constexpr int kClosingRowId = -1;

} // namespace bx

#endif
