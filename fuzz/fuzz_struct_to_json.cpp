// Arbitrary record contents for every type: the first byte picks the type,
// the rest fills the record (of exactly its type's size). Callers promise
// that a list's count is within its array; the converters hold to the array
// whatever the count says, and the station list's capacity is kept at the
// array the record points to.
#include <cstdint>
#include <cstring>

#include "blobxlate.h"
#include "records.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 1)
        return 0;
    int type = data[0] % 173;
    bxtest::Record rec(type, data + 1, size - 1);
    if (!rec.valid())
        return 0;
    blob_buf buf{};
    blob_buf_init(&buf, 0);
    STRUCT_TRANS_JSON(type, rec.get(), &buf);
    // What was produced must read back in.
    bxtest::Record back(type);
    JSON_TRANS_STRUCT(type, buf.head, back.get());
    blob_buf_free(&buf);
    return 0;
}
