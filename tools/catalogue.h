// The message types as the program knows them: the rows of the two
// exported dispatch tables and the record each direction works on.
#ifndef BLOBXLATE_TOOLS_CATALOGUE_H
#define BLOBXLATE_TOOLS_CATALOGUE_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace bxtool {

struct MessageInfo {
    int type;
    const char *to_json_name;     // null: no struct-to-JSON row
    const char *to_struct_name;   // null: no JSON-to-struct row
    const char *to_json_record;   // the record STRUCT_TRANS_JSON reads
    const char *to_struct_record; // the record JSON_TRANS_STRUCT fills
    size_t record_size;           // large enough for both
};

// Every type with a row in either table, by number.
std::vector<MessageInfo> message_types();

// The type that `text` names: its number, or a name text of either table in
// any case. For an unknown or ambiguous text: nothing, and `error` holds a
// one-line reason that lists close matches.
std::optional<MessageInfo> find_type(const std::string &text, std::string &error);

// The types whose name texts or records contain `word` in any case; when
// none does, those with a name word that `word` begins with, read as its
// abbreviation ("Sta" for "station").
std::vector<MessageInfo> types_named_like(const std::string &word);

} // namespace bxtool

#endif
