/* The generic result reply (type 0): one unsigned result code. */
#include "blobxlate.h"
#include "core/codec.h"

namespace {

constexpr bx::FieldDef kRetSource[] = {
    /* Without its one member the reply says nothing: refused. */
    BX_U32(RetParam, espResult, "espResult", "esp ret:%d", .required = true),
};
BX_PACKED(kRet);

} // namespace

extern "C" {

BX_CONVERTERS(STJ_Ret, JTS_Ret, kRet)

} // extern "C"
