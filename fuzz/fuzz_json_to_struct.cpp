// Arbitrary bytes as the members of a received message, for every type:
// the first byte picks the type, the rest is the message's payload. The
// record has exactly its type's size.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <endian.h>

#include "blobxlate.h"
#include "records.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 1 || size > 0xfffff)
        return 0;
    int type = data[0] % 173;
    bxtest::Record rec(type);
    if (!rec.valid())
        return 0;
    size_t len = sizeof(blob_attr) + size - 1;
    auto *msg = static_cast<blob_attr *>(std::malloc(len));
    msg->id_len = htobe32(static_cast<uint32_t>(len));
    std::memcpy(msg->data, data + 1, size - 1);
    JSON_TRANS_STRUCT(type, msg, rec.get());
    std::free(msg);
    return 0;
}
