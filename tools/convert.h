// One message through the library: into its record and back out.
#ifndef BLOBXLATE_TOOLS_CONVERT_H
#define BLOBXLATE_TOOLS_CONVERT_H

#include "catalogue.h"

namespace bxtool {

// Reads the message from `path` ("-": standard input), converts it with
// JSON_TRANS_STRUCT into a zeroed record of the type (after printing what
// BLOBXLATE_Check finds in it on stderr) and back with
// STRUCT_TRANS_JSON, and prints both return codes and the message rebuilt
// from the record. Returns the exit status: 0 when both directions returned
// 0, 1 when a converter failed, 2 when the input cannot be read or is not a
// JSON object.
int convert(const MessageInfo &info, const char *path);

// Prints what STRUCT_TRANS_JSON sends for a zeroed record of the type, as
// a JSON object; 0, or 1 when the converter failed.
int print_sent_for_zeroed(const MessageInfo &info);

} // namespace bxtool

#endif
