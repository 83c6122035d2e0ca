/* The public header must compile as C: the daemons that share the records
 * are C programs. These functions also let the tests compare the layout a C
 * compiler gives the records with the C++ one. */
#include <stddef.h>

#include "blobxlate.h"

size_t bxtest_c_sizeof_RetParam(void) { return sizeof(RetParam); }
size_t bxtest_c_sizeof_MessageTransEntry(void) { return sizeof(MessageTransEntry); }
