// Tests of blob/blobmsg/blobmsg_json that pin what a caller can trip over:
// wire bytes, growth with open nests, parsing with repeated and missing
// keys, JSON text in and out, and the limits where the bundled layer stays
// safe (marked BLOBXLATE_UBOX_BUNDLED; the platform's library lacks them).
// Everything else is compared against the platform's library by the
// differential fuzzer. Malformed inputs sit in heap blocks of exactly their
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

// Bytes are built to their exact size, so they sit in a heap block of exactly
// that size.
struct blob_attr *attr(Bytes &bytes) { return reinterpret_cast<struct blob_attr *>(bytes.data()); }

std::string json(struct blob_attr *attr, bool list, int indent = -1)
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

// ----------------------------------------------------------------- growth

// Grows by exactly what is asked (and the padding after it, which is written
// too) and always moves the block, so every open nest has to survive its
// memory moving.
int g_grow_calls;
bool moving_grow(struct blob_buf *buf, int minlen)
{
	g_grow_calls++;
	size_t n = (static_cast<size_t>(buf->buflen) + static_cast<size_t>(minlen) + 3) & ~size_t{3};
	void *p = malloc(n);
	if (!p)
		return false;
	if (buf->buf)
		memcpy(p, buf->buf, static_cast<size_t>(buf->buflen));
	free(buf->buf);
	buf->buf = p;
	buf->buflen = static_cast<int>(n);
	return true;
}

bool failing_grow(struct blob_buf *, int) { return false; }

// root { "outer": { "inner": [0..n-1], "s0".."s{n-1}": "v" }, "end": 1 },
// once with a grow that always moves and once with the default one.
TEST(UboxGrowth, OpenNestsSurviveReallocation)
{
	const int n = 3000;
	Bytes built[2];
	for (bool moving : {true, false}) {
		struct blob_buf b;
		memset(&b, 0, sizeof(b));
		b.grow = moving ? moving_grow : nullptr;
		g_grow_calls = 0;
		ASSERT_EQ(blobmsg_buf_init(&b), 0);
		void *outer = blobmsg_open_table(&b, "outer");
		void *inner = blobmsg_open_array(&b, "inner");
		for (int i = 0; i < n; i++)
			ASSERT_EQ(blobmsg_add_u32(&b, nullptr, static_cast<uint32_t>(i)), 0);
		blobmsg_close_array(&b, inner);
		for (int i = 0; i < n; i++)
			ASSERT_EQ(blobmsg_add_string(&b, ("s" + std::to_string(i)).c_str(), "v"), 0);
		blobmsg_close_table(&b, outer);
		blobmsg_add_u32(&b, "end", 1);
		if (moving) {
			EXPECT_GT(g_grow_calls, 2 * n);
		}
		auto *o = static_cast<struct blob_attr *>(blob_data(b.head));
		EXPECT_EQ(blobmsg_check_array(o, BLOBMSG_TYPE_UNSPEC), 1 + n);
		auto *in = static_cast<struct blob_attr *>(blobmsg_data(o));
		EXPECT_EQ(blobmsg_check_array(in, BLOBMSG_TYPE_INT32), n);
		EXPECT_EQ(blobmsg_get_u32(blob_next(o)), 1u);
		const uint8_t *p = static_cast<const uint8_t *>(b.buf);
		built[moving] = Bytes(p, p + blob_raw_len(b.head));
		blob_buf_free(&b);
	}
	EXPECT_EQ(built[0], built[1]);
}

TEST(UboxGrowth, GrowFailureIsReported)
{
	struct blob_buf b;
	memset(&b, 0, sizeof(b));
	b.grow = failing_grow;
	EXPECT_EQ(blob_buf_init(&b, 0), -ENOMEM);
	b.grow = nullptr;
	ASSERT_EQ(blob_buf_init(&b, 0), 0);
	b.grow = failing_grow;
	int rc = 0, count = -1;
	while (rc == 0) {
		rc = blobmsg_add_u32(&b, "a", 1);
		count++;
	}
	EXPECT_EQ(rc, -1);
	EXPECT_EQ(blobmsg_open_table(&b, "t"), nullptr);
	// What was added before the failure is intact.
	EXPECT_GT(count, 0);
	EXPECT_EQ(blob_len(b.head), 12u * static_cast<unsigned>(count));
	blob_buf_free(&b);
}

// ------------------------------------------------------------------- parse

// Slots hold the u32 expected, -1 for an empty slot. A case may first set
// one byte of the built area (at >= 0); the parse reads an exactly-sized copy.
TEST(UboxParse, PolicyMatching)
{
	const Build three = [](struct blob_buf *b) {
		blobmsg_add_u32(b, "a", 1);
		blobmsg_add_string(b, "b", "xy");  // offset 12: 83 00 00 0b | 00 01 62 00 | 'x' 'y' 0 pad
		blobmsg_add_u32(b, "c", 3);
	};
	const std::vector<struct blobmsg_policy> abc = {
		{"a", BLOBMSG_TYPE_INT32}, {"b", BLOBMSG_TYPE_STRING}, {"c", BLOBMSG_TYPE_INT32}};
	const struct {
		const char *what;
		Build build;
		std::vector<struct blobmsg_policy> policy;
		std::vector<long> slots;
		bool array = false;  // blobmsg_parse_array over the first member's elements
		int rc = 0, at = -1;
		uint8_t value = 0;
	} cases[] = {
		{"first of two same-named attributes wins",
		 [](struct blob_buf *b) { blobmsg_add_u32(b, "a", 1); blobmsg_add_u32(b, "a", 2); },
		 {{"a", BLOBMSG_TYPE_INT32}}, {1}},
		{"an attribute fills every empty slot of its name and type",
		 [](struct blob_buf *b) { blobmsg_add_u32(b, "a", 1); blobmsg_add_u32(b, "a", 2); },
		 {{"a", BLOBMSG_TYPE_UNSPEC}, {"a", BLOBMSG_TYPE_INT32}, {"a", BLOBMSG_TYPE_STRING}}, {1, 1, -1}},
		{"mismatch on one slot, match on a later one",
		 [](struct blob_buf *b) { blobmsg_add_u32(b, "a", 5); },
		 {{"a", BLOBMSG_TYPE_STRING}, {"a", BLOBMSG_TYPE_INT32}}, {-1, 5}},
		{"names compare by length and bytes",
		 [](struct blob_buf *b) { blobmsg_add_u32(b, "ab", 1); blobmsg_add_u32(b, "a", 2); blobmsg_add_u32(b, "abc", 3); },
		 {{"ab", BLOBMSG_TYPE_INT32}, {"b", BLOBMSG_TYPE_INT32}, {"a", BLOBMSG_TYPE_INT32}}, {1, -1, 2}},
		{"by position: a mismatching element is skipped and its slot waits for the next",
		 [](struct blob_buf *b) {
			 void *l = blobmsg_open_array(b, "l");
			 blobmsg_add_u32(b, nullptr, 10); blobmsg_add_string(b, nullptr, "x");
			 blobmsg_add_u32(b, nullptr, 30); blobmsg_add_u32(b, nullptr, 40);
			 blobmsg_close_array(b, l);
		 },
		 {{nullptr, BLOBMSG_TYPE_INT32}, {nullptr, BLOBMSG_TYPE_INT32}, {nullptr, BLOBMSG_TYPE_UNSPEC}}, {10, 30, 40}, true},
		// An invalid attribute ends the parse with -1, keeping what came before.
		{"string loses its NUL", three, abc, {1, -1, -1}, false, -1, 12 + 10, 'z'},
		{"type beyond DOUBLE", three, abc, {1, -1, -1}, false, -1, 12, 0x89},
		{"name header longer than the attribute", three, abc, {1, -1, -1}, false, -1, 12 + 5, 9},
		// A length running past the end ends it quietly: nothing more fits.
		{"length past the end", three, abc, {1, -1, -1}, false, 0, 12 + 3, 0x40},
	};
	for (const auto &c : cases) {
		SCOPED_TRACE(c.what);
		Buf m(c.build);
		const uint8_t *elems = static_cast<const uint8_t *>(blobmsg_data(m.first()));
		Bytes bytes = c.array ? Bytes(elems, elems + blobmsg_data_len(m.first())) : m.payload();
		if (c.at >= 0)
			bytes[static_cast<size_t>(c.at)] = c.value;
		std::vector<struct blob_attr *> tb(c.policy.size(), reinterpret_cast<struct blob_attr *>(1));
		EXPECT_EQ((c.array ? blobmsg_parse_array : blobmsg_parse)(c.policy.data(), static_cast<int>(c.policy.size()),
									  tb.data(), bytes.data(), static_cast<unsigned int>(bytes.size())),
			  c.rc);
		for (size_t i = 0; i < c.slots.size(); i++)
			EXPECT_EQ(tb[i] ? static_cast<long>(blobmsg_get_u32(tb[i])) : -1, c.slots[i]) << i;
	}
}

// -------------------------------------------------------------- validation

// Random bytes through every reader: nothing may read outside the block
// (AddressSanitizer watches), and whatever passes the check keeps its value
// inside the block.
TEST(UboxCheck, RandomBytesStayInBounds)
{
	uint32_t seed = 12345;
	auto rnd = [&seed]() { seed = seed * 1103515245u + 12345u; return static_cast<uint8_t>(seed >> 16); };
	static const struct blobmsg_policy pol[] = {{"a", BLOBMSG_TYPE_UNSPEC}, {"", BLOBMSG_CAST_INT64}};
	for (int iter = 0; iter < 20000; iter++) {
		size_t n = 1 + rnd() % 40;
		Bytes bytes(n);
		for (auto &byte : bytes)
			byte = rnd();
		// Mostly plausible headers, so the deeper checks get exercised.
		if (n >= 4 && (iter & 1)) {
			bytes[0] = static_cast<uint8_t>(0x80 | (rnd() % 9));
			bytes[1] = bytes[2] = 0;
			bytes[3] = static_cast<uint8_t>(rnd() % (n + 4));
			if (n >= 6) bytes[4] = 0;
		}
		struct blob_attr *a = attr(bytes);
		const size_t len = bytes.size();
		if (blobmsg_check_attr_len(a, false, len)) {
			const uint8_t *data = static_cast<const uint8_t *>(blobmsg_data(a));
			ASSERT_LE(data + blobmsg_data_len(a), bytes.data() + len);
			ASSERT_GE(data, bytes.data() + 4);
		}
		struct blob_attr *tb[2];
		blobmsg_parse(pol, 2, tb, bytes.data(), static_cast<unsigned int>(len));
		blobmsg_parse_array(pol, 2, tb, bytes.data(), static_cast<unsigned int>(len));
		if (len >= 4 && blob_raw_len(a) <= len) {
			blobmsg_check_array(a, BLOBMSG_TYPE_UNSPEC);
#ifdef BLOBXLATE_UBOX_BUNDLED  // the platform's formatter trusts the outer attribute
			free(blobmsg_format_json(a, true));
			free(blobmsg_format_json_indent(a, false, 0));
#endif
		}
	}
#ifdef BLOBXLATE_UBOX_BUNDLED
	EXPECT_FALSE(blobmsg_check_attr(nullptr, false));
#endif
}

// -------------------------------------------------------------------- JSON

TEST(UboxJson, TextToAttributes)
{
	const struct {
		const char *text;  // the value of member "v"
		int type;
		Bytes value;
	} cases[] = {
		{"-2147483648", BLOBMSG_TYPE_INT32, {0x80, 0, 0, 0}},
		{"2147483648", BLOBMSG_TYPE_INT64, {0, 0, 0, 0, 0x80, 0, 0, 0}},
		{"true", BLOBMSG_TYPE_INT8, {1}},
		{"{\"x\":1}", BLOBMSG_TYPE_TABLE, {0x85, 0, 0, 0x0c, 0, 1, 'x', 0, 0, 0, 0, 1}},
		{"[1]", BLOBMSG_TYPE_ARRAY, {0x85, 0, 0, 0x0c, 0, 0, 0, 0, 0, 0, 0, 1}},
	};
	for (const auto &c : cases) {
		SCOPED_TRACE(c.text);
		Buf m;
		ASSERT_TRUE(blobmsg_add_json_from_string(&m.b, (std::string("{\"v\":") + c.text + "}").c_str()));
		struct blob_attr *v = m.first();
		EXPECT_STREQ(blobmsg_name(v), "v");
		EXPECT_EQ(blobmsg_type(v), c.type);
		const uint8_t *d = static_cast<const uint8_t *>(blobmsg_data(v));
		EXPECT_EQ(Bytes(d, d + blobmsg_data_len(v)), c.value);
	}
	// Only a JSON object is a message; a refused text adds nothing.
	for (const char *text : {"", "[1,2]", "{\"a\":", "42"}) {
		Buf m;
		EXPECT_FALSE(blobmsg_add_json_from_string(&m.b, text)) << text;
		EXPECT_EQ(blob_len(m.b.head), 0u) << text;
	}
#ifdef BLOBXLATE_UBOX_BUNDLED
	Buf m;
	EXPECT_FALSE(blobmsg_add_json_from_string(&m.b, nullptr));
#endif
}

TEST(UboxJson, AttributesToText)
{
	const struct {
		const char *what;
		Build add;
		const char *want;
		int indent = -1;
	} cases[] = {
		{"int64 is signed", [](struct blob_buf *b) { blobmsg_add_u64(b, "v", 0x8000000000000000ULL); },
		 "{\"v\":-9223372036854775808}"},
		{"int8 non-zero is true", [](struct blob_buf *b) { blobmsg_add_u8(b, "v", 2); }, "{\"v\":true}"},
		{"double six decimals", [](struct blob_buf *b) { blobmsg_add_double(b, "v", -0.1); }, "{\"v\":-0.100000}"},
		{"escapes", [](struct blob_buf *b) { blobmsg_add_string(b, "q\"", "a\"b\\c\nd\te\x01\x1f\r\x7f\xc3\xa9"); },
		 "{\"q\\\"\":\"a\\\"b\\\\c\\nd\\te\\u0001\\u001f\\r\x7f\xc3\xa9\"}"},
		{"string with a NUL inside ends there", [](struct blob_buf *b) { blobmsg_add_field(b, BLOBMSG_TYPE_STRING, "v", "ab\0cd", 6); },
		 "{\"v\":\"ab\"}"},
		{"empty message", [](struct blob_buf *) {}, "{}"},
		{"indented; an empty container still gets its lines",
		 [](struct blob_buf *b) { blobmsg_add_json_from_string(b, "{\"t\":{\"l\":[1,false]},\"e\":{}}"); },
		 "{\n\t\"t\": {\n\t\t\"l\": [\n\t\t\t1,\n\t\t\tfalse\n\t\t]\n\t},\n\t\"e\": {\n\t\t\n\t}\n}", 0},
	};
	for (const auto &c : cases) {
		SCOPED_TRACE(c.what);
		Buf m(c.add);
		EXPECT_EQ(json(m.b.head, true, c.indent), c.want);
	}
}

TEST(UboxJson, StopsAtInvalidMembers)
{
	Buf m;
	ASSERT_TRUE(blobmsg_add_json_from_string(&m.b, "{\"t\":{\"a\":1,\"b\":\"xy\",\"c\":3},\"after\":2}"));
	Bytes root(static_cast<uint8_t *>(m.b.buf), static_cast<uint8_t *>(m.b.buf) + blob_raw_len(m.b.head));
	// Root header 4, table "t" header 8, member "a" 12, then "b": the
	// string's NUL is at 4 + 8 + 12 + 10.
	const struct {
		const char *what;
		size_t at;
		uint8_t value;
		const char *want;
	} cases[] = {
		{"unterminated string", 4 + 8 + 12 + 10, 'z', "{\"t\":{\"a\":1,,\"c\":3},\"after\":2}"},
		{"member length past its table", 4 + 8 + 12 + 3, 0x7c, "{\"t\":{\"a\":1},\"after\":2}"},
		{"table length past the message", 4 + 3, 0xf0, "{}"},
		{"root claims 2 bytes", 3, 0x02, "<null>"},
	};
	for (const auto &c : cases) {
		SCOPED_TRACE(c.what);
		Bytes bad = root;
		bad[c.at] = c.value;
		EXPECT_EQ(json(attr(bad), true), c.want);
	}
#ifdef BLOBXLATE_UBOX_BUNDLED
	EXPECT_EQ(json(nullptr, true), "<null>");
#endif
}

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
