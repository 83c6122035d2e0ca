/* The public header must compile as C: the daemons that share the records
 * are C programs. The sizes a C compiler gives the records must be the ones
 * the library (C++) was built with. */
#include <stddef.h>

#include "blobxlate.h"

struct bxtest_c_size {
    const char *name;
    size_t size;
};

const struct bxtest_c_size bxtest_c_sizes[] = {
#define BX_RECORD(name) {#name, sizeof(name)},
#include "record_list.h"
#undef BX_RECORD
    {NULL, 0},
};

size_t bxtest_c_sizeof_MessageTransEntry(void) { return sizeof(MessageTransEntry); }
