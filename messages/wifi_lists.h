/* Lists of the Wi-Fi messages (roaming queries and answers, neighbour scans,
 * channel scores, deassociation and the access list): how a received list
 * fills the fixed entries of a record, and how a record's entries go out.
 *
 * A received list never writes past the record: each walk is given the
 * number of entries it may fill, and the messages that set no bound of
 * their own pass the record's capacity. */
#ifndef BLOBXLATE_MESSAGES_WIFI_LISTS_H
#define BLOBXLATE_MESSAGES_WIFI_LISTS_H

#include <cstddef>
#include <cstdint>

#include "core/codec.h"

namespace bx::wifi {

/* Parses the members of a message (fields_of_msg) or of a list element
 * (fields_of_elem) against the keys of a field table, one slot per field. */
template <const auto &Table>
inline void fields_of_msg(blob_attr *(&tb)[Described<Table>::count], blob_attr *msg)
{
    blobmsg_parse(Described<Table>::policy.entries, static_cast<int>(Described<Table>::count), tb, blob_data(msg),
                  blob_len(msg));
}

/* Stores field `slot` when its attribute is there; an absent one is traced
 * (JTS_CheckBlobAttr) and leaves the field as it was. */
template <size_t N>
inline bool store_if_present(const char *func, const Field (&fields)[N], blob_attr *const (&tb)[N],
                             size_t slot, void *record)
{
    if (!JTS_CheckBlobAttr(fields[slot].key, tb[slot]))
        return false;
    store_field(func, fields[slot], tb[slot], record);
    return true;
}

/* One list element into one entry, every key optional. */
template <const auto &Table>
inline void store_entry(const char *func, blob_attr *elem, void *entry)
{
    read_area<Table>(func, blobmsg_data(elem), blobmsg_data_len(elem), entry);
}

/* Hands the elements of a received list to fill(elem, n) for entries
 * n = 0, 1, ... and stops once `limit` entries are filled or the list ends.
 * An element of another blobmsg type than the entries' cannot be read as an
 * entry: it is traced as "NULL == cur" and skipped without taking an entry.
 * Returns the number of entries filled. */
template <typename Fill>
inline uint32_t fill_entries(const char *func, blob_attr *list, int type, uint32_t limit, Fill fill)
{
    uint32_t filled = 0;
    if (limit == 0)
        return 0;
    for_each_elem(list, [&](blob_attr *cur) {
        if (blobmsg_type(cur) != type) {
            BX_TRACE_AS(func, "NULL == cur\n\n");
            return true;
        }
        fill(cur, filled);
        return ++filled < limit;
    });
    return filled;
}

/* Emits `count` entries as unnamed tables inside the array `key`;
 * emit(i) adds the members of entry i. */
template <typename Emit>
inline void add_tables(blob_buf *buf, const char *key, uint32_t count, Emit emit)
{
    void *list = blobmsg_open_array(buf, key);
    for (uint32_t i = 0; i < count; ++i) {
        void *entry = blobmsg_open_table(buf, nullptr);
        emit(i);
        blob_nest_end(buf, entry);
    }
    blob_nest_end(buf, list);
}

} // namespace bx::wifi

#endif
