/* The out-of-line pieces of the vendor-element converters (see
 * vsie_common.h): the readers of one slot, shared by every hand-written
 * list converter of the family. */
#include "messages/vsie_common.h"

namespace bx::vsie {

bool number_at(const Slots &s, size_t slot, blob_attr *value, bool band, uint32_t &dst, const char *label)
{
    if (!present(s, slot))
        return false;
    dst = band ? static_cast<uint32_t>(get_word(EnumBand, value)) : get_u32(value);
    BX_TRACE_AS(s.func, "%s%.*u:%u\n", label, s.digits, s.n, dst);
    return true;
}

bool text_at(const Slots &s, size_t slot, char *dst, size_t bound, size_t size, const char *label)
{
    if (!present(s, slot))
        return false;
    copy_text(dst, bound, s.tb[slot]);
    const int shown = static_cast<int>(strnlen(dst, size));
    BX_TRACE_AS(s.func, "%s%.*u:%.*s\n", label, s.digits, s.n, shown, dst);
    return true;
}

} // namespace bx::vsie
