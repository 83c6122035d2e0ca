// Writes seed inputs for the fuzz targets: for every type, the message its
// struct-to-JSON converter builds from a record whose bytes are all `fill`
// (full texts, large counts held to their arrays), and the record itself.
//   fuzz_make_seeds OUTDIR   -> OUTDIR/fuzz_json_to_struct/, OUTDIR/fuzz_struct_to_json/
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "blobxlate.h"
#include "records.h"

namespace {

void write_file(const std::string &path, const std::vector<uint8_t> &bytes)
{
    FILE *f = std::fopen(path.c_str(), "wb");
    if (f == nullptr)
        return;
    std::fwrite(bytes.data(), 1, bytes.size(), f);
    std::fclose(f);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: fuzz_make_seeds OUTDIR\n");
        return 2;
    }
    std::string out = argv[1];
    for (int type = 0; type <= 172; ++type) {
        size_t size = bxtest::record_size(type);
        if (size == 0)
            continue;
        for (uint8_t fill : {uint8_t{0x00}, uint8_t{0x02}, uint8_t{0x31}}) {
            std::vector<uint8_t> bytes(size, fill);
            bxtest::Record rec(type, bytes.data(), bytes.size());
            blob_buf buf{};
            blob_buf_init(&buf, 0);
            STRUCT_TRANS_JSON(type, rec.get(), &buf);
            std::vector<uint8_t> msg{static_cast<uint8_t>(type)};
            auto *p = static_cast<uint8_t *>(blob_data(buf.head));
            msg.insert(msg.end(), p, p + blob_len(buf.head));
            char name[64];
            std::snprintf(name, sizeof name, "/type%03d-%02x", type, fill);
            write_file(out + "/fuzz_json_to_struct" + name, msg);
            bytes.insert(bytes.begin(), static_cast<uint8_t>(type));
            write_file(out + "/fuzz_struct_to_json" + name, bytes);
            blob_buf_free(&buf);
        }
    }
    return 0;
}
