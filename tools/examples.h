// Where the example messages are: examples/messages of the source tree for
// the program in its build tree, share/blobxlate/examples beside an
// installed one.
#ifndef BLOBXLATE_TOOLS_EXAMPLES_H
#define BLOBXLATE_TOOLS_EXAMPLES_H

#include <string>

namespace bxtool {

// The directory this program takes its example messages from.
std::string examples_dir();

// The example message of a type in that directory: typeNNN.json.
std::string example_path(int type);

} // namespace bxtool

#endif
