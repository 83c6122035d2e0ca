// The key table of a message type, as Markdown: each key the converters
// read or send, with its blobmsg type, record member, presence, words or
// range and list capacity, from the library's description.
#ifndef BLOBXLATE_TOOLS_KEYS_H
#define BLOBXLATE_TOOLS_KEYS_H

#include <string>

#include "catalogue.h"

namespace bxtool {

// The table, then one line per note of a field or converter.
std::string keys_text(const MessageInfo &info);

} // namespace bxtool

#endif
