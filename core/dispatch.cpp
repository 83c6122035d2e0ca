/* The two entry points: find the message type's row and call its converter. */
#include <cstdlib>

#include "blobxlate.h"

extern "C" {
#include <libubox/blobmsg_json.h>
}
#include "core/codec.h"
#include "core/tables.h"

namespace {

/* Every row of a table is examined, and the closing row after the last one
 * as well: the scan bound is inclusive. The closing row's id is outside the
 * message numbers and types outside them are turned away first, so it never
 * matches. */
const MessageTransEntry *find_row(const MessageTransEntry *table, int32_t count, int type)
{
    if (type < bx::kFirstMessageType || type > bx::kLastMessageType)
        return nullptr;
    for (int32_t i = 0; i <= count; ++i) {
        if (table[i].id == type)
            return &table[i];
    }
    return nullptr;
}

} // namespace

extern "C" {

BX_API int STRUCT_TRANS_JSON(int iType, const void *pvRecord, struct blob_buf *pstBuf)
{
    BX_TRACE_CALL();
    if (pstBuf == nullptr || pvRecord == nullptr)
        return -1;
    const MessageTransEntry *row = find_row(g_astStructToJson_Func, g_iStructToJson_FuncNum, iType);
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
    const MessageTransEntry *row = find_row(g_astJsonToStruct_Func, g_iJsonToStruct_FuncNum, iType);
    if (row == nullptr)
        return 0;
    BX_TRACE("Json To Struct: [%s] \n\n", row->name);
    int ret = row->converter.toStruct(pstMsg, pvRecord);
    if (ret == 0)
        return 0;
    BX_TRACE("Trans failed.\n");
    return ret;
}

BX_API int JTS_CheckBlobAttr(const char *pcKey, struct blob_attr *pstAttr)
{
    /* Called for every field: the scope is opened only when a line follows. */
    if (pstAttr != nullptr)
        return 1;
    BX_TRACE_CALL();
    BX_TRACE("Illegal parameter: %s\n", pcKey != nullptr ? pcKey : "");
    return 0;
}

/* ---- The generic result reply (type 0) ---------------------------------- */

BX_API int STJ_Ret(const void *pvRecord, struct blob_buf *pstBuf)
{
    BX_TRACE_CALL();
    if (pvRecord == nullptr || pstBuf == nullptr)
        return -1;
    const auto *rec = static_cast<const RetParam *>(pvRecord);
    blobmsg_add_u32(pstBuf, "espResult", rec->espResult);
    return 0;
}

BX_API int JTS_Ret(struct blob_attr *pstMsg, void *pvRecord)
{
    BX_TRACE_CALL();
    enum { RET_RESULT, RET_MAX };
    static const blobmsg_policy policy[RET_MAX] = {
        /* RET_RESULT */ {"espResult", BLOBMSG_TYPE_INT32},
    };
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    auto *rec = static_cast<RetParam *>(pvRecord);
    blob_attr *tb[RET_MAX];
    bx::parse(policy, tb, pstMsg);
    if (!bx::present(policy, tb, RET_RESULT))
        return -1;
    rec->espResult = blobmsg_get_u32(tb[RET_RESULT]);
    BX_TRACE("esp ret:%d\n", static_cast<int>(rec->espResult));
    return 0;
}

} // extern "C"
