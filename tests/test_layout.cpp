// The records are shared with C daemons by memory layout: their sizes and
// the offsets that padding decides are part of the interface, and a change
// to any of them must be deliberate. record_list.h pins them; a C compiler
// must agree with the C++ one that built the library.
#include <gtest/gtest.h>

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "blobxlate.h"

extern "C" {
struct bxtest_c_size {
    const char *name;
    size_t size;
};
extern const struct bxtest_c_size bxtest_c_sizes[];
size_t bxtest_c_sizeof_MessageTransEntry(void);
}

namespace {

struct Pin {
    const char *field;
    size_t actual, expected;
};

struct Layout {
    size_t size, expected;
    std::vector<Pin> fields;
};

const std::map<std::string, Layout> &layouts()
{
#define F(field, n) Pin{#field, offsetof(R, field), n}
#define BX_RECORD(name, size, ...)                                   \
    {#name, [] {                                                     \
         using R [[maybe_unused]] = name;                            \
         return Layout{sizeof(name), size, std::vector<Pin>{__VA_ARGS__}}; \
     }()},
    static const std::map<std::string, Layout> all = {
#include "record_list.h"
    };
#undef BX_RECORD
#undef F
    return all;
}

TEST(Layout, RecordSizesAndOffsetsArePinned)
{
    ASSERT_TRUE(sizeof(void *) == 8 || sizeof(void *) == 4) << "no layout pinned for this pointer width";
    for (const auto &[record, l] : layouts()) {
        EXPECT_EQ(l.size, l.expected) << "sizeof " << record;
        for (const Pin &f : l.fields)
            EXPECT_EQ(f.actual, f.expected) << record << "." << f.field;
    }
}

TEST(Layout, CAndCxxAgree)
{
    size_t seen = 0;
    for (const bxtest_c_size *s = bxtest_c_sizes; s->name != nullptr; ++s, ++seen) {
        auto it = layouts().find(s->name);
        ASSERT_NE(it, layouts().end()) << s->name;
        EXPECT_EQ(s->size, it->second.size) << s->name;
    }
    EXPECT_EQ(seen, layouts().size());
    EXPECT_EQ(bxtest_c_sizeof_MessageTransEntry(), sizeof(MessageTransEntry));
}

} // namespace
