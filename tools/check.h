// What the JSON-to-struct converter will do with the parts of a message
// that a careful sender would not send, as BLOBXLATE_Check finds them.
#ifndef BLOBXLATE_TOOLS_CHECK_H
#define BLOBXLATE_TOOLS_CHECK_H

#include <cstdio>

#include "catalogue.h"

extern "C" {
#include <libubox/blobmsg.h>
}

namespace bxtool {

// Writes each finding as one line, "PATH: what the converter does",
// after `prefix`; returns the number of findings.
int print_findings(int type, blob_attr *msg, FILE *out, const char *prefix);

// Checks the message of `path` ("-": standard input) against the type's
// JSON-to-struct converter: exit status 0 when clean, 1 with findings
// (on stdout), 2 when the input cannot be read.
int check(const MessageInfo &info, const char *path);

} // namespace bxtool

#endif
