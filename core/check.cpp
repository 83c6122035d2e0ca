/* The presence check every JSON-to-struct converter makes for each key of
 * its policy: an absent key is traced, optional or not, so the trace shows
 * every key a message lacked. */
#include "blobxlate.h"
#include "core/trace.h"

extern "C" BX_API int JTS_CheckBlobAttr(const char *pcKey, struct blob_attr *pstAttr)
{
    /* Called for every field: the scope is opened only when a line follows. */
    if (pstAttr != nullptr)
        return 1;
    BX_TRACE_CALL();
    BX_TRACE("Illegal parameter: %s\n", pcKey != nullptr ? pcKey : "");
    return 0;
}
