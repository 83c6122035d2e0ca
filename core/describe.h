/* The description of each converter, inside the library: what the checker
 * and the policies read. */
#ifndef BLOBXLATE_CORE_DESCRIBE_H
#define BLOBXLATE_CORE_DESCRIBE_H

#include "blobxlate.h"
#include "core/codec.h"

namespace bx {

/* The converter of a type in a direction (BLOBXLATE_TO_JSON or
 * BLOBXLATE_TO_STRUCT), or nullptr. */
const Converter *converter_of(int direction, int type);

/* The table behind a handle of the public API. */
const ListOf *table_of(const BlobxlateFields *fields);

} // namespace bx

#endif
