/* The out-of-line pieces of the vendor-element converters (see
 * vsie_common.h): the element walk and the readers of one slot, shared by
 * every hand-written list converter of the family. */
#include "messages/vsie_common.h"

namespace bx::vsie {

/* The steps and tests of blobmsg_for_each_attr, then for_each_elem's own. */
blob_attr *Elems::next()
{
    bool first = list_ != nullptr;
    if (first) {
        cur_ = static_cast<blob_attr *>(blobmsg_data(list_));
        rem_ = blobmsg_data_len(list_);
        list_ = nullptr;
    }
    while (cur_ != nullptr) {
        if (!first) {
            rem_ -= blob_pad_len(cur_);
            cur_ = blob_next(cur_);
        }
        first = false;
        const bool fits = rem_ >= sizeof(blob_attr) && blob_pad_len(cur_) >= sizeof(blob_attr) &&
                          blob_pad_len(cur_) <= rem_;
        if (!fits || !name_header_inside(cur_))
            break;
        if (blobmsg_check_attr_len(cur_, false, rem_))
            return cur_;
    }
    cur_ = nullptr;
    return nullptr;
}

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
