// Where the converters depart from their columns: every quirk's note with
// the places it serves, for the quirk index (scripts/make-reference).
#ifndef BLOBXLATE_TOOLS_QUIRKS_H
#define BLOBXLATE_TOOLS_QUIRKS_H

#include <string>

namespace bxtool {

// One line per place a note applies, in type order, tab-separated:
// type, direction ("to-struct" or "to-json"), converter, key path
// ("-" for a hand-written converter's own note) and the note.
std::string quirks_text();

} // namespace bxtool

#endif
