/* The description of each converter, inside the library: what the checker
 * and the policies read. */
#ifndef BLOBXLATE_CORE_DESCRIBE_H
#define BLOBXLATE_CORE_DESCRIBE_H

#include "blobxlate.h"
#include "core/codec.h"

namespace bx {

/* The converter of a type in a direction (BLOBXLATE_TO_JSON or
 * BLOBXLATE_TO_STRUCT); its fields are null when there is none. */
Converter converter_of(int direction, int type);

/* The policy of a table converter, built from its rows on first request
 * (null when it would not fit the room kept for them). */
const blobmsg_policy *built_policy(int type, const Converter &c);

/* The table behind a handle of the public API. */
const ListOf *table_of(const BlobxlateFields *fields);

} // namespace bx

#endif
