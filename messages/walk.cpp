#include "messages/walk.h"

#include <cstring>

namespace bx::walk {

unsigned each_by(blob_attr *list, Step step, void *state)
{
    return for_each_elem(list, [step, state](blob_attr *elem) { return step(state, elem); });
}

void send_tables(const Field &f, const Link *links, const void *record, blob_buf *buf, size_t count, size_t at, Zero zero)
{
    const ListOf &entries = *f.list(links);
    const char *first = static_cast<const char *>(record) + f.offset;
    void *array = blobmsg_open_array(buf, f.key());
    for (size_t i = 0; i < count; ++i) {
        const char *entry = first + i * entries.stride;
        uint32_t member = 0;
        std::memcpy(&member, entry + at, sizeof member);
        if (member == 0 && zero == Zero::Ends)
            break;
        if (member == 0)
            continue;
        void *table = blobmsg_open_table(buf, nullptr);
        emit_fields(entries.entry(), entries.fields, entries.entry_links, entry, buf, kNoMask);
        blob_nest_end(buf, table);
    }
    blob_nest_end(buf, array);
}

} // namespace bx::walk
