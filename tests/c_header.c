/* The public header must compile as C: the daemons that share the records
 * are C programs. The sizes a C compiler gives the records must be the ones
 * the library (C++) was built with. */
#include <stddef.h>

#include "blobxlate.h"

struct bxtest_c_size {
    const char *name;
    size_t size;
};

/* Only the names: the pinned numbers are compared on the C++ side. */
#define BX_C_RECORD(name, ...) {#name, sizeof(name)},
#define BX_RECORD(...) BX_C_RECORD(__VA_ARGS__, _)
const struct bxtest_c_size bxtest_c_sizes[] = {
#include "record_list.h"
    {NULL, 0},
};
#undef BX_RECORD

size_t bxtest_c_sizeof_MessageTransEntry(void) { return sizeof(MessageTransEntry); }
