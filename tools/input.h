// A message given as JSON text, made into the blobmsg table a daemon would
// receive for it.
#ifndef BLOBXLATE_TOOLS_INPUT_H
#define BLOBXLATE_TOOLS_INPUT_H

extern "C" {
#include <libubox/blobmsg.h>
}

namespace bxtool {

struct BlobBuf {
    blob_buf buf{};
    BlobBuf() { blob_buf_init(&buf, 0); }
    ~BlobBuf() { blob_buf_free(&buf); }
    BlobBuf(const BlobBuf &) = delete;
    BlobBuf &operator=(const BlobBuf &) = delete;
};

// Reads the JSON object of `path` ("-": standard input) into msg, as
// blobmsg_add_json_from_string would. Returns false after saying why on
// stderr: a file that cannot be read, text that is not one JSON object (or
// has more text after it), or a message larger than a blob can hold.
bool read_message(const char *path, BlobBuf &msg);

} // namespace bxtool

#endif
