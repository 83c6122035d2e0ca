// Messages broken the way a faulty or hostile peer could break them, for
// every type that has a JSON-to-struct converter. The starting point is the
// well-formed message each type's own struct-to-JSON converter builds from a
// record full of data (long texts, lists filled to their arrays); from it
// come messages cut short (inner lengths then run past the end), attributes
// retyped in place (wrong value sizes, arrays where tables are expected,
// tables where texts are expected) and an unterminated last string. Each
// conversion must answer 0 or -1 and write nothing past the record; in the
// sanitizer build any read outside the message is caught as well, since
// every message is allocated to exactly its length.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <endian.h>
#include <vector>

#include "core/parse.h"
#include "core/tables.h"
#include "records.h"
#include "support.h"

namespace {

constexpr size_t kGuard = 64;
constexpr uint8_t kGuardByte = 0xE7;
constexpr size_t kMaxVariants = 24;

// The payload of a well-formed message of the type.
std::vector<uint8_t> sample_payload(int type)
{
    size_t size = bxtest::record_size(type);
    std::vector<uint8_t> bytes(size, 0x31);
    bxtest::Record rec(type, bytes.data(), bytes.size());
    bxtest::Buf buf;
    STRUCT_TRANS_JSON(type, rec.get(), buf.get());
    auto *p = static_cast<uint8_t *>(blob_data(buf.head()));
    return std::vector<uint8_t>(p, p + blob_len(buf.head()));
}

// Offsets (in the payload) of every attribute header, outermost first.
void collect(blob_attr *first, size_t len, const uint8_t *base, std::vector<size_t> &out)
{
    blob_attr *cur;
    size_t rem = len;
    __blob_for_each_attr(cur, first, rem) {
        out.push_back(static_cast<size_t>(reinterpret_cast<uint8_t *>(cur) - base));
        int t = blobmsg_type(cur);
        if (t == BLOBMSG_TYPE_ARRAY || t == BLOBMSG_TYPE_TABLE)
            collect(static_cast<blob_attr *>(blobmsg_data(cur)), blobmsg_data_len(cur), base, out);
    }
}

// Converts the payload as a message of exactly its length into a record
// followed by guard bytes; checks the answer and the guard.
void convert(int type, const std::vector<uint8_t> &payload)
{
    size_t len = sizeof(blob_attr) + payload.size();
    auto *msg = static_cast<blob_attr *>(std::malloc(len));
    msg->id_len = htobe32(static_cast<uint32_t>(len));
    if (!payload.empty())
        std::memcpy(msg->data, payload.data(), payload.size());

    int ret;
    if (type == MSG_STA_LIST) {
        // The caller's array is the one with room to check.
        bxtest::Record rec(type);
        ret = JSON_TRANS_STRUCT(type, msg, rec.get());
    } else {
        size_t size = bxtest::record_size(type);
        std::vector<uint8_t> rec(size + kGuard, kGuardByte);
        std::memset(rec.data(), 0, size);
        ret = JSON_TRANS_STRUCT(type, msg, rec.data());
        for (size_t i = size; i < rec.size(); ++i)
            ASSERT_EQ(rec[i], kGuardByte) << "type " << type << " wrote past its record at +" << (i - size);
    }
    EXPECT_TRUE(ret == 0 || ret == -1) << "type " << type << " answered " << ret;
    std::free(msg);
}

TEST(Malformed, EveryTypeRefusesOrSurvivesBrokenMessages)
{
    int types = 0;
    for (int type = 0; type <= bx::kLastMessageType; ++type) {
        if (!bxtest::find_row(g_astJsonToStruct_Func, g_iJsonToStruct_FuncNum, type) || bxtest::record_size(type) == 0)
            continue;
        ++types;
        SCOPED_TRACE(type);
        std::vector<uint8_t> good = sample_payload(type);
        convert(type, good);

        // Cut short at evenly spread 4-byte boundaries.
        size_t step = std::max<size_t>(4, (good.size() / kMaxVariants + 3) & ~size_t{3});
        for (size_t cut = 4; cut < good.size(); cut += step)
            convert(type, std::vector<uint8_t>(good.begin(), good.begin() + static_cast<long>(cut)));

        // Each of the first attributes retyped in place.
        std::vector<size_t> offsets;
        collect(reinterpret_cast<blob_attr *>(good.data()), good.size(), good.data(), offsets);
        if (offsets.size() > kMaxVariants)
            offsets.resize(kMaxVariants);
        for (size_t at : offsets) {
            for (uint8_t t : {BLOBMSG_TYPE_ARRAY, BLOBMSG_TYPE_TABLE, BLOBMSG_TYPE_STRING, BLOBMSG_TYPE_INT32,
                              BLOBMSG_TYPE_INT64}) {
                std::vector<uint8_t> bad = good;
                bad[at] = static_cast<uint8_t>(0x80 | t);
                convert(type, bad);
            }
        }

        // The last byte, usually a string's terminator or padding, made text.
        if (good.size() >= sizeof(blob_attr)) {
            std::vector<uint8_t> bad = good;
            bad.at(good.size() - 1) = 'x';
            convert(type, bad);
        }
    }
    EXPECT_EQ(types, g_iJsonToStruct_FuncNum);
}


// The converters' one-pass parse fills each slot as blobmsg_parse does: a
// key listed twice fills both slots, CAST_INT64 takes any integer, a value
// of another type fills nothing, and the first of two same-named members
// is kept.
TEST(Parse, OnePassFillsWhatBlobmsgParseFills)
{
    const blobmsg_policy policy[] = {{"a", BLOBMSG_TYPE_INT32},
                                     {"b", BLOBMSG_TYPE_STRING},
                                     {"b", BLOBMSG_TYPE_STRING},
                                     {"c", BLOBMSG_CAST_INT64},
                                     {"d", BLOBMSG_TYPE_INT32}};
    constexpr size_t kSlots = sizeof policy / sizeof policy[0];
    for (const char *text : {R"(a=i32:1 b=s"x" c=i32:2 d=s"y")", R"(b=s"x" b=s"z" a=i32:1 c=i64:3 d=i32:4)",
                             R"(c=i8:1 a=s"x" a=i32:2 d=i32:4 d=i32:5)"}) {
        SCOPED_TRACE(text);
        bxtest::Msg msg(text);
        blob_attr *want[kSlots];
        blob_attr *got[kSlots];
        blobmsg_parse(policy, kSlots, want, blob_data(msg), blob_len(msg));
        bx::one_pass::parse_keys(policy, kSlots, got, blob_data(msg), blob_len(msg));
        for (size_t i = 0; i < kSlots; ++i)
            EXPECT_EQ(got[i], want[i]) << "slot " << i;
    }
}
} // namespace
