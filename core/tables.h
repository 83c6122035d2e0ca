#ifndef BLOBXLATE_CORE_TABLES_H
#define BLOBXLATE_CORE_TABLES_H

namespace bx {

constexpr int kFirstMessageType = 0;
constexpr int kLastMessageType = 172;

/* The id of the closing row of both tables: never a message type. */
constexpr int kClosingRowId = -1;

} // namespace bx

#endif
