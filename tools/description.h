// The library's description of each converter, as the program reads it:
// the fields of a message or of a list's entry, in the converter's order.
#ifndef BLOBXLATE_TOOLS_DESCRIPTION_H
#define BLOBXLATE_TOOLS_DESCRIPTION_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "blobxlate.h"

namespace bxtool {

std::vector<BlobxlateField> fields_of(const BlobxlateFields *fields);

// The converter of the type in the direction, or nothing.
std::optional<BlobxlateMessage> describe(int direction, int type);

// The lowest and highest number a field takes as a JSON number: its C
// type's, as the JSON text reaches it (received) or as the message prints
// it (sent), within the message's own range check.
struct Bounds {
    int64_t lowest;
    int64_t highest;
};
Bounds bounds_of(const BlobxlateField &f, int direction);

// The words a field of an enumeration kind takes: received, those that
// read back as the number they are sent for (within the range check);
// sent, every word sent and the kind's fallback text.
std::vector<std::string> words_of(const BlobxlateField &f, int direction);

// The longest text a STRING field takes: received, what its slot keeps
// (its size less the terminator, unless copied whole); sent, its size.
uint32_t max_length(const BlobxlateField &f, int direction);

const char *blob_type_name(int blob_type);
const char *presence_name(int presence);

} // namespace bxtool

#endif
