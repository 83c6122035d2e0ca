/* The two dispatch tables. The row order and the name texts are part of the
 * interface (the name texts appear in the dispatchers' trace lines and
 * differ between the two tables for many types); each row carries its
 * position as a comment. Both tables end with a closing row that the
 * dispatchers' inclusive scan may look at but never matches. */
#include "blobxlate.h"
#include "core/tables.h"

namespace {

int closing_row_to_json(const void *, struct blob_buf *) { return 0; }
int closing_row_to_struct(struct blob_attr *, void *) { return 0; }

constexpr MessageTransEntry stj(const char *name, int32_t id, StructToJsonFunc fn)
{
    return {.name = name, .id = id, .converter = {.toJson = fn}};
}

constexpr MessageTransEntry jts(const char *name, int32_t id, JsonToStructFunc fn)
{
    return {.name = name, .id = id, .converter = {.toStruct = fn}};
}

} // namespace

extern "C" {

constinit const MessageTransEntry g_astStructToJson_Func[] = {
    /*   0 */ stj("Ret", MSG_RET, STJ_Ret),
    /* closing row */ stj(nullptr, bx::kClosingRowId, closing_row_to_json),
};
const int32_t g_iStructToJson_FuncNum =
    static_cast<int32_t>(sizeof g_astStructToJson_Func / sizeof g_astStructToJson_Func[0]) - 1;

constinit const MessageTransEntry g_astJsonToStruct_Func[] = {
    /*   0 */ jts("Ret", MSG_RET, JTS_Ret),
    /* closing row */ jts(nullptr, bx::kClosingRowId, closing_row_to_struct),
};
const int32_t g_iJsonToStruct_FuncNum =
    static_cast<int32_t>(sizeof g_astJsonToStruct_Func / sizeof g_astJsonToStruct_Func[0]) - 1;

} // extern "C"
