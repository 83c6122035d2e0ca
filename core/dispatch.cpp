/* The two entry points: find the message type's row and call its converter. */
#include <cstdlib>

#include "blobxlate.h"

extern "C" {
#include <libubox/blobmsg_json.h>
}
#include "core/trace.h"

extern "C" {

BX_API int STRUCT_TRANS_JSON(int iType, const void *pvRecord, struct blob_buf *pstBuf)
{
    BX_TRACE_CALL();
    if (pstBuf == nullptr || pvRecord == nullptr)
        return -1;
    const MessageTransEntry *row = BLOBXLATE_FindRow(BLOBXLATE_TO_JSON, iType);
    if (row == nullptr)
        return 0;
    BX_TRACE("Struct To Json: [%s] \n\n", row->name);
    int ret = row->converter.toJson(pvRecord, pstBuf);
    if (ret == 0)
        return 0;
    BX_TRACE("Trans failed.\n");
    return ret;
}

BX_API int JSON_TRANS_STRUCT(int iType, struct blob_attr *pstMsg, void *pvRecord)
{
    BX_TRACE_CALL();
    if (pvRecord == nullptr || pstMsg == nullptr)
        return -1;
    /* Rendering the message costs a walk and an allocation: only while the
     * switch file exists. */
    if (bx::trace_enabled()) {
        char *json = blobmsg_format_json_with_cb(pstMsg, true, nullptr, nullptr, 0);
        BX_TRACE("DEBUG: JsonStr = %s\n", json != nullptr ? json : "");
        std::free(json);
    }
    const MessageTransEntry *row = BLOBXLATE_FindRow(BLOBXLATE_TO_STRUCT, iType);
    if (row == nullptr)
        return 0;
    BX_TRACE("Json To Struct: [%s] \n\n", row->name);
    int ret = row->converter.toStruct(pstMsg, pvRecord);
    if (ret == 0)
        return 0;
    BX_TRACE("Trans failed.\n");
    return ret;
}

} // extern "C"
