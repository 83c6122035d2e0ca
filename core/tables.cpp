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
    /* 100 */ stj("Vsie_Info", MSG_VSIE_INFO, STJ_Vsie_Info),
    /* 101 */ stj("Vsie_Beacontx_Add", MSG_VSIE_BEACONTX_ADD, STJ_Vsie_Beacontx_Add),
    /* 102 */ stj("Vsie_Beacontx_Set", MSG_VSIE_BEACONTX_SET, STJ_Vsie_Beacontx_Set),
    /* 103 */ stj("Vsie_Beacontx_Idx", MSG_VSIE_BEACONTX_IDX, STJ_Vsie_Beacontx_Idx),
    /* 104 */ stj("Vsie_Beacontx_List", MSG_VSIE_BEACONTX_LIST, STJ_Vsie_Beacontx_List),
    /* 105 */ stj("Vsie_Proberx_Add", MSG_VSIE_PROBERX_ADD, STJ_Vsie_Proberx_Add),
    /* 106 */ stj("Vsie_Proberx_Flush", MSG_VSIE_PROBERX_FLUSH, STJ_Vsie_Proberx_Flush),
    /* 107 */ stj("Vsie_Proberx_Idx", MSG_VSIE_PROBERX_IDX, STJ_Vsie_Beacontx_Idx),
    /* 108 */ stj("Vsie_Proberx_List", MSG_VSIE_PROBERX_LIST, STJ_Vsie_Proberx_List),
    /* 109 */ stj("Vsie_Proberx_Record_Add", MSG_VSIE_PROBERX_RECORD_ADD, STJ_Vsie_Proberx_Record_Add),
    /* 110 */ stj("Vsie_Proberesp_Add", MSG_VSIE_PROBERESP_ADD, STJ_Vsie_Proberesp_Add),
    /* 111 */ stj("Vsie_Proberesp_Idx", MSG_VSIE_PROBERESP_IDX, STJ_Vsie_Beacontx_Idx),
    /* 112 */ stj("Vsie_Proberesp_List", MSG_VSIE_PROBERESP_LIST, STJ_Vsie_Proberesp_List),
    /* closing row */ stj(nullptr, bx::kClosingRowId, closing_row_to_json),
};
const int32_t g_iStructToJson_FuncNum =
    static_cast<int32_t>(sizeof g_astStructToJson_Func / sizeof g_astStructToJson_Func[0]) - 1;

constinit const MessageTransEntry g_astJsonToStruct_Func[] = {
    /*   0 */ jts("Ret", MSG_RET, JTS_Ret),
    /*  96 */ jts("Vsie_Info", MSG_VSIE_INFO, JTS_Vsie_Info),
    /*  97 */ jts("Vsie_Beacontx_Add", MSG_VSIE_BEACONTX_ADD, JTS_Vsie_Beacontx_Add),
    /*  98 */ jts("Vsie_Beacontx_Set", MSG_VSIE_BEACONTX_SET, JTS_Vsie_Beacontx_Set),
    /*  99 */ jts("Vsie_Beacontx_Idx", MSG_VSIE_BEACONTX_IDX, JTS_Vsie_Beacontx_Idx),
    /* 100 */ jts("Vsie_Beacontx_List", MSG_VSIE_BEACONTX_LIST, JTS_Vsie_Beacontx_List),
    /* 101 */ jts("Vsie_Proberx_Add", MSG_VSIE_PROBERX_ADD, JTS_Vsie_Proberx_Add),
    /* 102 */ jts("Vsie_Proberx_Flush", MSG_VSIE_PROBERX_FLUSH, JTS_Vsie_Proberx_Flush),
    /* 103 */ jts("Vsie_Proberx_Idx", MSG_VSIE_PROBERX_IDX, JTS_Vsie_Proberx_Idx),
    /* 104 */ jts("Vsie_Proberx_List", MSG_VSIE_PROBERX_LIST, JTS_Vsie_Proberx_List),
    /* 105 */ jts("Vsie_Proberx_Record_Add", MSG_VSIE_PROBERX_RECORD_ADD, JTS_Vsie_Proberx_Record_Add),
    /* 106 */ jts("Vsie_Proberesp_Add", MSG_VSIE_PROBERESP_ADD, JTS_Vsie_Proberesp_Add),
    /* 107 */ jts("Vsie_Proberesp_Idx", MSG_VSIE_PROBERESP_IDX, JTS_Vsie_Proberesp_Idx),
    /* 108 */ jts("Vsie_Proberesp_List", MSG_VSIE_PROBERESP_LIST, JTS_Vsie_Proberesp_List),
    /* closing row */ jts(nullptr, bx::kClosingRowId, closing_row_to_struct),
};
const int32_t g_iJsonToStruct_FuncNum =
    static_cast<int32_t>(sizeof g_astJsonToStruct_Func / sizeof g_astJsonToStruct_Func[0]) - 1;

} // extern "C"
