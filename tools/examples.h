// Where the example messages are: examples/messages of the source tree for
// the program in its build tree, share/blobxlate/examples beside an
// installed one.
#ifndef BLOBXLATE_TOOLS_EXAMPLES_H
#define BLOBXLATE_TOOLS_EXAMPLES_H

#include <string>

namespace bxtool {

// The file of the example message of a type: typeNNN.json in the
// directory this program takes its examples from.
std::string example_path(int type);

} // namespace bxtool

#endif
