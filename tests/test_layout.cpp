// The records are shared with C daemons by memory layout: their sizes and
// the offsets that padding decides are part of the interface, and a change
// to any of them must be deliberate. record_list.h pins them; a C compiler
// must agree with the C++ one that built the library.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>

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

void pin(const char *field, size_t actual, size_t expected) { EXPECT_EQ(actual, expected) << field; }

TEST(Layout, PinnedAndTheSameInCAndCxx)
{
    ASSERT_TRUE(sizeof(void *) == 8 || sizeof(void *) == 4) << "no layout pinned for this pointer width";
    const bxtest_c_size *c = bxtest_c_sizes;
#define F(field, n) pin(#field, offsetof(R, field), n)
#define BX_RECORD(Rec, Size, ...)                            \
    {                                                        \
        using R [[maybe_unused]] = Rec;                      \
        SCOPED_TRACE(#Rec);                                  \
        EXPECT_EQ(sizeof(Rec), static_cast<size_t>(Size));  \
        ASSERT_STREQ(c->name, #Rec);                         \
        EXPECT_EQ(c->size, sizeof(Rec));                     \
        ++c;                                                 \
        __VA_OPT__(__VA_ARGS__;)                             \
    }
#include "record_list.h"
#undef BX_RECORD
#undef F
    EXPECT_EQ(c->name, nullptr);
    EXPECT_EQ(bxtest_c_sizeof_MessageTransEntry(), sizeof(MessageTransEntry));
}

} // namespace
