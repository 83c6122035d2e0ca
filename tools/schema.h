// JSON Schemas (draft 2020-12) of the messages, from the library's
// description of each converter.
#ifndef BLOBXLATE_TOOLS_SCHEMA_H
#define BLOBXLATE_TOOLS_SCHEMA_H

#include <string>

#include "catalogue.h"

namespace bxtool {

// The schema of the message the type's converter of `direction` reads
// (BLOBXLATE_TO_STRUCT) or sends (BLOBXLATE_TO_JSON), as indented JSON
// text; empty for a type without that converter.
std::string schema_text(const MessageInfo &info, int direction);

// The schemas of every type with a converter of `direction`, as one JSON
// object keyed by type number.
std::string all_schemas_text(int direction);

} // namespace bxtool

#endif
