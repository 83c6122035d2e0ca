// Tests of blob/blobmsg/blobmsg_json that pin what holds without the
// platform's library at hand: the wire bytes, and the limits where the
// bundled layer stays safe (marked BLOBXLATE_UBOX_BUNDLED; the platform's
// library lacks them). Parsing, checks, growth with open nests and JSON text
// in and out are compared against the platform's library by the
// differential fuzzer, and random bytes go through the fuzz targets. Malformed inputs sit in heap blocks of exactly their
// size, so an out-of-bounds read shows up under AddressSanitizer.
#include <gtest/gtest.h>

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

extern "C" {
#include <libubox/blob.h>
#include <libubox/blobmsg.h>
#include <libubox/blobmsg_json.h>

char *ubox_daemon_answer(const char *request);
}

namespace {

using Bytes = std::vector<uint8_t>;
using Build = std::function<void(struct blob_buf *)>;

struct Buf {
	struct blob_buf b;
	explicit Buf(const Build &build = nullptr)
	{
		memset(&b, 0, sizeof(b));
		EXPECT_EQ(blobmsg_buf_init(&b), 0);
		if (build)
			build(&b);
	}
	~Buf() { blob_buf_free(&b); }
	Buf(const Buf &) = delete;
	Buf &operator=(const Buf &) = delete;
	// The members of the root, as on the wire.
	Bytes payload() const
	{
		const uint8_t *p = static_cast<const uint8_t *>(blob_data(b.head));
		return Bytes(p, p + blob_len(b.head));
	}
	struct blob_attr *first() const { return static_cast<struct blob_attr *>(blob_data(b.head)); }
};

// The formatter's text (only the deep-nesting test uses it).
[[maybe_unused]] std::string json(struct blob_attr *attr, bool list, int indent = -1)
{
	char *s = blobmsg_format_json_with_cb(attr, list, nullptr, nullptr, indent);
	if (!s)
		return "<null>";
	std::string r(s);
	free(s);
	return r;
}

// ---------------------------------------------------------------- wire bytes

TEST(UboxWire, BuiltBytes)
{
	const struct {
		const char *what;
		Build build;
		Bytes want;
	} cases[] = {
		{"u64 high word first", [](struct blob_buf *b) { blobmsg_add_u64(b, "q", 0x0102030405060708ULL); },
		 {0x84, 0, 0, 0x10, 0, 1, 'q', 0, 1, 2, 3, 4, 5, 6, 7, 8}},
		{"string with value padding", [](struct blob_buf *b) { blobmsg_add_string(b, "s", "hello"); },
		 {0x83, 0, 0, 0x0e, 0, 1, 's', 0, 'h', 'e', 'l', 'l', 'o', 0, 0, 0}},
		{"name header padded to 8", [](struct blob_buf *b) { blobmsg_add_string(b, "ab", "xyz"); },
		 {0x83, 0, 0, 0x10, 0, 2, 'a', 'b', 0, 0, 0, 0, 'x', 'y', 'z', 0}},
		{"nests",
		 [](struct blob_buf *b) {
			 void *t = blobmsg_open_table(b, "t");
			 void *l = blobmsg_open_array(b, "l");
			 blobmsg_add_u32(b, nullptr, 0xdeadbeef);
			 blobmsg_close_array(b, l);
			 blobmsg_close_table(b, t);
			 blobmsg_close_array(b, blobmsg_open_array(b, "e"));
		 },
		 {0x82, 0, 0, 0x1c, 0, 1, 't', 0,                        // table "t", 28 bytes
		  0x81, 0, 0, 0x14, 0, 1, 'l', 0,                        //   array "l", 20 bytes
		  0x85, 0, 0, 0x0c, 0, 0, 0, 0, 0xde, 0xad, 0xbe, 0xef,  //     unnamed u32
		  0x81, 0, 0, 0x08, 0, 1, 'e', 0}},                      // empty array "e"
	};
	for (const auto &c : cases) {
		SCOPED_TRACE(c.what);
		Buf m(c.build);
		EXPECT_EQ(m.payload(), c.want);
		// Root: plain TABLE attribute whose length covers the padded members,
		// and head again once all nests are closed.
		EXPECT_EQ(be32_to_cpu(m.b.head->id_len), 0x02000000u | (4 + c.want.size()));
		EXPECT_EQ(m.b.head, m.b.buf);
	}
}

TEST(UboxWire, LengthLimit)
{
	Buf m;
	blobmsg_add_u8(&m.b, "a", 1);
	const Bytes before = m.payload();
	// Root header 4 + 12 + member header 4 + name header 4: the largest value
	// whose padded end still fits in 24 bits is 0xfffffc - 24.
	const unsigned int max = 0xfffffc - 24;
	std::vector<char> big(max + 1, 'x');
#ifdef BLOBXLATE_UBOX_BUNDLED
	EXPECT_EQ(blobmsg_add_field(&m.b, BLOBMSG_TYPE_UNSPEC, nullptr, big.data(), max + 1), -1);
	EXPECT_EQ(m.payload(), before);
#endif
	EXPECT_EQ(blobmsg_add_field(&m.b, BLOBMSG_TYPE_UNSPEC, nullptr, big.data(), max), 0);
	EXPECT_EQ(blob_raw_len(m.b.head), 0xfffffcu);
#ifdef BLOBXLATE_UBOX_BUNDLED
	// The platform's library would wrap the lengths to 0 and the 16-bit name length.
	EXPECT_EQ(blobmsg_add_u8(&m.b, "b", 1), -1);
	std::string longname(70000, 'n');
	Buf n;
	EXPECT_EQ(blobmsg_add_u8(&n.b, longname.c_str(), 1), -1);
#endif
}

// -------------------------------------------------------------------- JSON

#ifdef BLOBXLATE_UBOX_BUNDLED  // the platform's formatter recurses
TEST(UboxJson, DeepNestingIsNotRecursive)
{
	// Far deeper than any sane stack would allow recursion for.
	const int depth = 200000;
	Buf m;
	std::vector<void *> cookies;
	for (int i = 0; i < depth; i++)
		cookies.push_back(blobmsg_open_array(&m.b, "x"));
	blobmsg_add_u32(&m.b, nullptr, 1);
	for (auto it = cookies.rbegin(); it != cookies.rend(); ++it)
		blobmsg_close_array(&m.b, *it);
	// {"x": then the brackets around 1 (names inside arrays are not printed).
	std::string s = json(m.b.head, true);
	EXPECT_EQ(s.size(), static_cast<size_t>(5 + depth + 1 + depth + 1));
	EXPECT_EQ(s.substr(0, 6), "{\"x\":[");
	EXPECT_EQ(s.substr(s.size() - 4), "]]]}");
}
#endif

// Daemon code in C: the parse fills both "list" slots, the integer casts
// widen a negative INT32, the string buffer grows in place.
TEST(UboxApi, DaemonStyleHandler)
{
	char *s = ubox_daemon_answer("{\"name\":\"x\",\"count\":-2,\"list\":[\"a\",\"b\"]}");
	EXPECT_STREQ(s, "{\"hello\":\"x-42\",\"u\":4294967294,\"s\":-2,\"list\":[\"a\",\"b\"],\"same\":true,"
			"\"buf\":\"abcdef\",\"equal\":true}");
	free(s);
}

} // namespace
