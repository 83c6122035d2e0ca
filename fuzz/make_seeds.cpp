// Writes seed inputs for the fuzz targets: for every type, the message its
// struct-to-JSON converter builds from a record whose bytes are all `fill`
// (full texts, large counts held to their arrays), and the record itself.
// Given a folder of example messages (typeNNN.json), each one as well, with
// the record it converts into.
//   fuzz_make_seeds OUTDIR [EXAMPLES]
//     -> OUTDIR/fuzz_json_to_struct/, OUTDIR/fuzz_struct_to_json/
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" {
#include <libubox/blobmsg_json.h>
}

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

// One example message: its payload behind the type byte, and the record
// it converts into.
void example_seeds(const std::string &out, const std::filesystem::path &file)
{
    int type = -1;
    if (std::sscanf(file.filename().c_str(), "type%3d.json", &type) != 1 || bxtest::record_size(type) == 0)
        return;
    std::ifstream in(file);
    std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    blob_buf buf{};
    blob_buf_init(&buf, 0);
    if (blobmsg_add_json_from_string(&buf, text.c_str())) {
        std::vector<uint8_t> msg{static_cast<uint8_t>(type)};
        auto *p = static_cast<uint8_t *>(blob_data(buf.head));
        msg.insert(msg.end(), p, p + blob_len(buf.head));
        std::string name = "/example-" + file.stem().string();
        write_file(out + "/fuzz_json_to_struct" + name, msg);
        bxtest::Record rec(type);
        JSON_TRANS_STRUCT(type, buf.head, rec.get());
        auto *r = static_cast<uint8_t *>(rec.get());
        std::vector<uint8_t> bytes{static_cast<uint8_t>(type)};
        bytes.insert(bytes.end(), r, r + bxtest::record_size(type));
        write_file(out + "/fuzz_struct_to_json" + name, bytes);
    }
    blob_buf_free(&buf);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2 && argc != 3) {
        std::fprintf(stderr, "usage: fuzz_make_seeds OUTDIR [EXAMPLES]\n");
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
    if (argc == 3)
        for (const auto &entry : std::filesystem::directory_iterator(argv[2]))
            example_seeds(out, entry.path());
    return 0;
}
