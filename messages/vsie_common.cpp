/* The out-of-line pieces of the vendor-element converters (see
 * vsie_common.h): the element walk and the readers of one slot, shared by
 * every hand-written list converter of the family. */
#include "messages/vsie_common.h"

namespace bx::vsie {

Elems::Elems(blob_attr *list)
    : cur_(list != nullptr ? static_cast<blob_attr *>(blobmsg_data(list)) : nullptr),
      rem_(list != nullptr ? blobmsg_data_len(list) : 0)
{
}

/* The steps and tests of blobmsg_for_each_attr, then for_each_elem's own. */
blob_attr *Elems::next()
{
    for (;;) {
        if (started_) {
            rem_ -= blob_pad_len(cur_);
            cur_ = blob_next(cur_);
        }
        started_ = true;
        const bool fits = rem_ >= sizeof(blob_attr) && blob_pad_len(cur_) >= sizeof(blob_attr) &&
                          blob_pad_len(cur_) <= rem_;
        if (!fits || !name_header_inside(cur_)) {
            rem_ = 0;
            started_ = false;
            return nullptr;
        }
        if (blobmsg_check_attr_len(cur_, false, rem_))
            return cur_;
    }
}

bool number_at(const Slots &s, size_t slot, uint32_t &dst, const char *label)
{
    if (!present(s, slot))
        return false;
    dst = get_u32(s.tb[slot]);
    if (s.indexed)
        BX_TRACE_AS(s.func, "%s%u:%u\n", label, s.n, dst);
    else
        BX_TRACE_AS(s.func, "%s:%u\n", label, dst);
    return true;
}

bool band_at(const Slots &s, size_t slot, blob_attr *word, uint32_t &dst, const char *label)
{
    if (!present(s, slot))
        return false;
    dst = static_cast<uint32_t>(get_word(EnumBand, word));
    if (s.indexed)
        BX_TRACE_AS(s.func, "%s%u:%u\n", label, s.n, dst);
    else
        BX_TRACE_AS(s.func, "%s:%u\n", label, dst);
    return true;
}

bool text_at(const Slots &s, size_t slot, char *dst, size_t bound, size_t size, const char *label)
{
    if (!present(s, slot))
        return false;
    copy_text(dst, bound, s.tb[slot]);
    const int shown = static_cast<int>(strnlen(dst, size));
    if (s.indexed)
        BX_TRACE_AS(s.func, "%s%u:%.*s\n", label, s.n, shown, dst);
    else
        BX_TRACE_AS(s.func, "%s:%.*s\n", label, shown, dst);
    return true;
}

} // namespace bx::vsie
