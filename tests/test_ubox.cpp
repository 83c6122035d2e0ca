// Tests of blob/blobmsg/blobmsg_json: wire bytes, growth, parsing,
// validation of malformed input and JSON rendering. They hold for the
// platform's libubox and the bundled one alike; the few limits only the
// bundled one keeps are marked BLOBXLATE_UBOX_BUNDLED.
//
// Malformed inputs are copied into heap blocks of exactly their size, so an
// out-of-bounds read shows up under AddressSanitizer.
#include <gtest/gtest.h>

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>
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

struct Buf {
	struct blob_buf b;
	Buf() { memset(&b, 0, sizeof(b)); EXPECT_EQ(blobmsg_buf_init(&b), 0); }
	~Buf() { blob_buf_free(&b); }
	Buf(const Buf &) = delete;
	Buf &operator=(const Buf &) = delete;
	// The members of the root, as on the wire.
	Bytes payload() const
	{
		const uint8_t *p = static_cast<const uint8_t *>(blob_data(b.head));
		return Bytes(p, p + blob_len(b.head));
	}
};

// An exactly-sized heap copy of some bytes.
struct Exact {
	std::unique_ptr<uint8_t[]> mem;
	size_t len;
	explicit Exact(const Bytes &bytes) : mem(new uint8_t[bytes.empty() ? 1 : bytes.size()]), len(bytes.size())
	{
		if (len)
			memcpy(mem.get(), bytes.data(), len);
	}
	struct blob_attr *attr() { return reinterpret_cast<struct blob_attr *>(mem.get()); }
};

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

TEST(UboxWire, ScalarAttributes)
{
	struct Case {
		const char *what;
		std::function<int(struct blob_buf *)> add;
		Bytes want;
	};
	const std::vector<Case> cases = {
		{"u32", [](struct blob_buf *b) { return blobmsg_add_u32(b, "a", 1); },
		 {0x85, 0, 0, 0x0c, 0, 1, 'a', 0, 0, 0, 0, 1}},
		{"u32 unnamed", [](struct blob_buf *b) { return blobmsg_add_u32(b, nullptr, 0xdeadbeef); },
		 {0x85, 0, 0, 0x0c, 0, 0, 0, 0, 0xde, 0xad, 0xbe, 0xef}},
		{"u16 padded", [](struct blob_buf *b) { return blobmsg_add_u16(b, "a", 0x1234); },
		 {0x86, 0, 0, 0x0a, 0, 1, 'a', 0, 0x12, 0x34, 0, 0}},
		{"u8 padded", [](struct blob_buf *b) { return blobmsg_add_u8(b, "a", 1); },
		 {0x87, 0, 0, 0x09, 0, 1, 'a', 0, 1, 0, 0, 0}},
		{"u64 high word first", [](struct blob_buf *b) { return blobmsg_add_u64(b, "q", 0x0102030405060708ULL); },
		 {0x84, 0, 0, 0x10, 0, 1, 'q', 0, 1, 2, 3, 4, 5, 6, 7, 8}},
		{"double bits", [](struct blob_buf *b) { return blobmsg_add_double(b, "d", 1.5); },
		 {0x88, 0, 0, 0x10, 0, 1, 'd', 0, 0x3f, 0xf8, 0, 0, 0, 0, 0, 0}},
		{"string with value padding", [](struct blob_buf *b) { return blobmsg_add_string(b, "s", "hello"); },
		 {0x83, 0, 0, 0x0e, 0, 1, 's', 0, 'h', 'e', 'l', 'l', 'o', 0, 0, 0}},
		{"name header padded to 8", [](struct blob_buf *b) { return blobmsg_add_string(b, "ab", "xyz"); },
		 {0x83, 0, 0, 0x10, 0, 2, 'a', 'b', 0, 0, 0, 0, 'x', 'y', 'z', 0}},
		{"name filling its header", [](struct blob_buf *b) { return blobmsg_add_u8(b, "abcde", 0); },
		 {0x87, 0, 0, 0x0d, 0, 5, 'a', 'b', 'c', 'd', 'e', 0, 0, 0, 0, 0}},
		{"null value", [](struct blob_buf *b) { return blobmsg_add_field(b, BLOBMSG_TYPE_UNSPEC, "n", nullptr, 0); },
		 {0x80, 0, 0, 0x08, 0, 1, 'n', 0}},
		{"plain blob_put", [](struct blob_buf *b) { return blob_put(b, 3, "xy", 2) ? 0 : -1; },
		 {0x03, 0, 0, 0x06, 'x', 'y', 0, 0}},
	};
	for (const auto &c : cases) {
		SCOPED_TRACE(c.what);
		Buf m;
		ASSERT_EQ(c.add(&m.b), 0);
		EXPECT_EQ(m.payload(), c.want);
		// Root: plain TABLE attribute whose length covers the padded member.
		EXPECT_EQ(be32_to_cpu(m.b.head->id_len), 0x02000000u | (4 + c.want.size()));
	}
}

TEST(UboxWire, RootAndReinit)
{
	struct blob_buf b;
	memset(&b, 0, sizeof(b));
	ASSERT_EQ(blob_buf_init(&b, 0), 0);
	EXPECT_EQ(be32_to_cpu(b.head->id_len), 0x00000004u);
	EXPECT_EQ(static_cast<void *>(b.head), b.buf);
	for (int i = 0; i < 100; i++)
		blobmsg_add_string(&b, "k", "some longer value to use memory");
	void *mem = b.buf;
	int len = b.buflen;
	// Reinit keeps the memory and starts an empty message of the new id.
	ASSERT_EQ(blob_buf_init(&b, BLOBMSG_TYPE_TABLE), 0);
	EXPECT_EQ(b.buf, mem);
	EXPECT_EQ(b.buflen, len);
	EXPECT_EQ(be32_to_cpu(b.head->id_len), 0x02000004u);
	blob_buf_free(&b);
	EXPECT_EQ(b.buf, nullptr);
	EXPECT_EQ(b.head, nullptr);
	EXPECT_EQ(b.buflen, 0);
}

TEST(UboxWire, NestedTableAndArray)
{
	Buf m;
	void *t = blobmsg_open_table(&m.b, "t");
	ASSERT_NE(t, nullptr);
	blobmsg_add_u8(&m.b, "x", 1);
	void *l = blobmsg_open_array(&m.b, "l");
	ASSERT_NE(l, nullptr);
	blobmsg_add_u32(&m.b, nullptr, 7);
	blobmsg_add_string(&m.b, nullptr, "z");
	blobmsg_close_array(&m.b, l);
	blobmsg_close_table(&m.b, t);
	blobmsg_add_u32(&m.b, "after", 2);
	void *e = blobmsg_open_array(&m.b, "e");
	blobmsg_close_array(&m.b, e);

	const Bytes want = {
		0x82, 0, 0, 0x34, 0, 1, 't', 0,                 // table "t", 52 bytes
		0x87, 0, 0, 0x09, 0, 1, 'x', 0, 1, 0, 0, 0,     //   "x": 1
		0x81, 0, 0, 0x20, 0, 1, 'l', 0,                 //   array "l", 32 bytes
		0x85, 0, 0, 0x0c, 0, 0, 0, 0, 0, 0, 0, 7,       //     7
		0x83, 0, 0, 0x0a, 0, 0, 0, 0, 'z', 0, 0, 0,     //     "z"
		0x85, 0, 0, 0x10, 0, 5, 'a', 'f', 't', 'e', 'r', 0, 0, 0, 0, 2,
		0x81, 0, 0, 0x08, 0, 1, 'e', 0,                 // empty array "e"
	};
	EXPECT_EQ(m.payload(), want);
	EXPECT_EQ(blob_raw_len(m.b.head), 4 + want.size());
	EXPECT_EQ(m.b.head, m.b.buf);  // the root is head again once all nests are closed
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

void check_grown_message(struct blob_attr *root, int n)
{
	// root { "outer": { "inner": [0..n-1], "s0".."s{n-1}": "v" }, "end": 1 }
	enum { OUTER, END };
	static const struct blobmsg_policy top[] = {{"outer", BLOBMSG_TYPE_TABLE}, {"end", BLOBMSG_TYPE_INT32}};
	struct blob_attr *tb[2];
	ASSERT_EQ(blobmsg_parse(top, 2, tb, blob_data(root), static_cast<unsigned int>(blob_len(root))), 0);
	ASSERT_NE(tb[OUTER], nullptr);
	ASSERT_NE(tb[END], nullptr);
	EXPECT_EQ(blobmsg_get_u32(tb[END]), 1u);
	EXPECT_EQ(blobmsg_check_array(tb[OUTER], BLOBMSG_TYPE_UNSPEC), 1 + n);

	struct blob_attr *pos;
	size_t rem;
	int strings = 0;
	blobmsg_for_each_attr(pos, tb[OUTER], rem) {
		if (blobmsg_type(pos) == BLOBMSG_TYPE_ARRAY) {
			EXPECT_STREQ(blobmsg_name(pos), "inner");
			ASSERT_EQ(blobmsg_check_array(pos, BLOBMSG_TYPE_INT32), n);
			struct blob_attr *el;
			size_t r2;
			uint32_t want = 0;
			blobmsg_for_each_attr(el, pos, r2) EXPECT_EQ(blobmsg_get_u32(el), want++);
			EXPECT_EQ(r2, 0u);
		} else {
			EXPECT_EQ(std::string(blobmsg_name(pos)), "s" + std::to_string(strings));
			EXPECT_STREQ(blobmsg_get_string(pos), "v");
			strings++;
		}
	}
	EXPECT_EQ(rem, 0u);
	EXPECT_EQ(strings, n);
}

TEST(UboxGrowth, OpenNestsSurviveReallocation)
{
	const int n = 3000;
	for (bool moving : {true, false}) {
		SCOPED_TRACE(moving ? "moving grow" : "default grow");
		struct blob_buf b;
		memset(&b, 0, sizeof(b));
		if (moving)
			b.grow = moving_grow;
		g_grow_calls = 0;
		ASSERT_EQ(blobmsg_buf_init(&b), 0);
		void *outer = blobmsg_open_table(&b, "outer");
		void *inner = blobmsg_open_array(&b, "inner");
		ASSERT_NE(outer, nullptr);
		ASSERT_NE(inner, nullptr);
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
		check_grown_message(b.head, n);
		blob_buf_free(&b);
	}
}

bool failing_grow(struct blob_buf *, int) { return false; }

TEST(UboxGrowth, GrowFailureIsReported)
{
	struct blob_buf b;
	memset(&b, 0, sizeof(b));
	b.grow = failing_grow;
	EXPECT_EQ(blob_buf_init(&b, 0), -ENOMEM);
	b.grow = nullptr;
	ASSERT_EQ(blob_buf_init(&b, 0), 0);
	b.grow = failing_grow;
	int rc = 0;
	while (rc == 0)
		rc = blobmsg_add_u32(&b, "a", 1);
	EXPECT_EQ(rc, -1);
	EXPECT_EQ(blobmsg_open_table(&b, "t"), nullptr);
	// What was added before the failure is intact.
	struct blob_attr *pos;
	size_t rem;
	int count = 0;
	blob_for_each_attr(pos, b.head, rem) {
		EXPECT_EQ(blobmsg_get_u32(pos), 1u);
		count++;
	}
	EXPECT_EQ(rem, 0u);
	EXPECT_GT(count, 0);
	blob_buf_free(&b);
}

// ------------------------------------------------------------------- parse

struct ParseCase {
	const char *what;
	std::function<void(struct blob_buf *)> build;
	std::vector<struct blobmsg_policy> policy;
	int rc;
	// Per slot: the u32 value expected, -1 for an empty slot, -2 for "set,
	// not an INT32 value".
	std::vector<long> slots;
};

TEST(UboxParse, PolicyMatching)
{
	const std::vector<ParseCase> cases = {
		{"first of two same-named attributes wins",
		 [](struct blob_buf *b) { blobmsg_add_u32(b, "a", 1); blobmsg_add_u32(b, "a", 2); },
		 {{"a", BLOBMSG_TYPE_INT32}}, 0, {1}},
		{"an attribute fills every empty slot of its name and type",
		 [](struct blob_buf *b) { blobmsg_add_u32(b, "a", 1); blobmsg_add_u32(b, "a", 2); },
		 {{"a", BLOBMSG_TYPE_UNSPEC}, {"a", BLOBMSG_TYPE_INT32}, {"a", BLOBMSG_TYPE_STRING}}, 0, {1, 1, -1}},
		{"type mismatch leaves the slot empty",
		 [](struct blob_buf *b) { blobmsg_add_string(b, "a", "1"); },
		 {{"a", BLOBMSG_TYPE_INT32}}, 0, {-1}},
		{"mismatch on one slot, match on a later one",
		 [](struct blob_buf *b) { blobmsg_add_u32(b, "a", 5); },
		 {{"a", BLOBMSG_TYPE_STRING}, {"a", BLOBMSG_TYPE_INT32}}, 0, {-1, 5}},
		{"names compare by length and bytes",
		 [](struct blob_buf *b) { blobmsg_add_u32(b, "ab", 1); blobmsg_add_u32(b, "a", 2); blobmsg_add_u32(b, "abc", 3); },
		 {{"ab", BLOBMSG_TYPE_INT32}, {"b", BLOBMSG_TYPE_INT32}, {"a", BLOBMSG_TYPE_INT32}}, 0, {1, -1, 2}},
		{"unnamed attributes match no named policy",
		 [](struct blob_buf *b) { blobmsg_add_u32(b, nullptr, 1); },
		 {{"a", BLOBMSG_TYPE_UNSPEC}, {nullptr, BLOBMSG_TYPE_UNSPEC}}, 0, {-1, -1}},
		{"CAST_INT64 takes every integer width",
		 [](struct blob_buf *b) {
			 blobmsg_add_u8(b, "i8", 1); blobmsg_add_u16(b, "i16", 2); blobmsg_add_u32(b, "i32", 3);
			 blobmsg_add_u64(b, "i64", 4); blobmsg_add_string(b, "s", "5"); blobmsg_add_double(b, "d", 6);
		 },
		 {{"i8", BLOBMSG_CAST_INT64}, {"i16", BLOBMSG_CAST_INT64}, {"i32", BLOBMSG_CAST_INT64},
		  {"i64", BLOBMSG_CAST_INT64}, {"s", BLOBMSG_CAST_INT64}, {"d", BLOBMSG_CAST_INT64}},
		 0, {-2, -2, 3, -2, -1, -1}},
		{"plain (non-extended) attributes are skipped",
		 [](struct blob_buf *b) {
			 const uint8_t looks_named[] = {0, 1, 'a', 0, 0, 0, 0, 9};
			 blob_put(b, BLOBMSG_TYPE_UNSPEC, looks_named, sizeof(looks_named));
			 blobmsg_add_u32(b, "a", 1);
		 },
		 {{"a", BLOBMSG_TYPE_UNSPEC}}, 0, {1}},
		{"order of the policy does not matter",
		 [](struct blob_buf *b) { blobmsg_add_u32(b, "x", 1); blobmsg_add_u32(b, "y", 2); },
		 {{"y", BLOBMSG_TYPE_INT32}, {"x", BLOBMSG_TYPE_INT32}}, 0, {2, 1}},
	};
	for (const auto &c : cases) {
		SCOPED_TRACE(c.what);
		Buf m;
		c.build(&m.b);
		std::vector<struct blob_attr *> tb(c.policy.size(), reinterpret_cast<struct blob_attr *>(1));
		EXPECT_EQ(blobmsg_parse(c.policy.data(), static_cast<int>(c.policy.size()), tb.data(),
					blob_data(m.b.head), static_cast<unsigned int>(blob_len(m.b.head))),
			  c.rc);
		for (size_t i = 0; i < c.slots.size(); i++) {
			SCOPED_TRACE(i);
			if (c.slots[i] == -1) {
				EXPECT_EQ(tb[i], nullptr);
			} else {
				ASSERT_NE(tb[i], nullptr);
				if (c.slots[i] >= 0) {
					EXPECT_EQ(blobmsg_get_u32(tb[i]), static_cast<uint32_t>(c.slots[i]));
				}
			}
		}
	}
}

TEST(UboxParse, InvalidAttributeStopsTheParse)
{
	Buf m;
	blobmsg_add_u32(&m.b, "a", 1);
	blobmsg_add_string(&m.b, "b", "xy");  // offset 12: 83 00 00 0b | 00 01 62 00 | 'x' 'y' 0 pad
	blobmsg_add_u32(&m.b, "c", 3);
	Bytes bytes = m.payload();
	static const struct blobmsg_policy pol[] = {
		{"a", BLOBMSG_TYPE_INT32}, {"b", BLOBMSG_TYPE_STRING}, {"c", BLOBMSG_TYPE_INT32}};

	struct Corruption {
		const char *what;
		size_t at;
		uint8_t value;
	};
	const std::vector<Corruption> cases = {
		{"string loses its NUL", 12 + 10, 'z'},
		{"type beyond DOUBLE", 12, 0x89},
		{"name header longer than the attribute", 12 + 5, 9},
		{"raw length below a header", 12 + 3, 2},
	};
	for (const auto &c : cases) {
		SCOPED_TRACE(c.what);
		Bytes bad = bytes;
		bad[c.at] = c.value;
		Exact e(bad);
		struct blob_attr *tb[3];
		EXPECT_EQ(blobmsg_parse(pol, 3, tb, e.mem.get(), static_cast<unsigned int>(e.len)), -1);
		ASSERT_NE(tb[0], nullptr);
		EXPECT_EQ(blobmsg_get_u32(tb[0]), 1u);
		EXPECT_EQ(tb[1], nullptr);
		EXPECT_EQ(tb[2], nullptr);
	}

	// A length running past the end ends the walk quietly (the next
	// attribute does not fit), keeping what was found.
	Bytes past = bytes;
	past[12 + 3] = 0x40;
	Exact e(past);
	struct blob_attr *tb[3];
	EXPECT_EQ(blobmsg_parse(pol, 3, tb, e.mem.get(), static_cast<unsigned int>(e.len)), 0);
	EXPECT_NE(tb[0], nullptr);
	EXPECT_EQ(tb[1], nullptr);
	EXPECT_EQ(tb[2], nullptr);
}

TEST(UboxParse, EmptyInputClearsSlots)
{
	static const struct blobmsg_policy pol[] = {{"a", BLOBMSG_TYPE_INT32}};
	struct blob_attr *tb[1] = {reinterpret_cast<struct blob_attr *>(1)};
	uint8_t dummy[4] = {};
	EXPECT_EQ(blobmsg_parse(pol, 1, tb, nullptr, 4), -EINVAL);
	EXPECT_EQ(tb[0], nullptr);
	tb[0] = reinterpret_cast<struct blob_attr *>(1);
	EXPECT_EQ(blobmsg_parse(pol, 1, tb, dummy, 0), -EINVAL);
	EXPECT_EQ(tb[0], nullptr);
}

TEST(UboxParse, ArrayByPosition)
{
	Buf m;
	void *a = blobmsg_open_array(&m.b, "l");
	blobmsg_add_u32(&m.b, nullptr, 10);
	blobmsg_add_string(&m.b, nullptr, "x");
	blobmsg_add_u32(&m.b, nullptr, 30);
	blobmsg_add_u32(&m.b, nullptr, 40);
	blobmsg_close_array(&m.b, a);
	struct blob_attr *arr = static_cast<struct blob_attr *>(blob_data(m.b.head));
	// A mismatching element is skipped and its slot waits for the next one.
	static const struct blobmsg_policy pol[] = {
		{nullptr, BLOBMSG_TYPE_INT32}, {nullptr, BLOBMSG_TYPE_INT32}, {nullptr, BLOBMSG_TYPE_UNSPEC}};
	struct blob_attr *tb[3];
	ASSERT_EQ(blobmsg_parse_array(pol, 3, tb, blobmsg_data(arr), static_cast<unsigned int>(blobmsg_data_len(arr))), 0);
	for (int i = 0; i < 3; i++) {
		ASSERT_NE(tb[i], nullptr);
		EXPECT_EQ(blobmsg_get_u32(tb[i]), (i == 0 ? 10u : i == 1 ? 30u : 40u));
	}
}

// Names of 256 bytes or more match nothing; positions skip elements of another
// type unchecked, CAST_INT64 takes none, and an empty area is no error.
TEST(UboxParse, NameLengthAndPositionEdges)
{
	for (size_t n : {255, 256, 300}) {
		SCOPED_TRACE(n);
		std::string name(n, 'k');
		Buf m;
		blobmsg_add_u32(&m.b, name.c_str(), 7);
		const struct blobmsg_policy pol[] = {{name.c_str(), BLOBMSG_TYPE_INT32}};
		struct blob_attr *tb[1];
		EXPECT_EQ(blobmsg_parse(pol, 1, tb, blob_data(m.b.head), blob_len(m.b.head)), 0);
		EXPECT_EQ(tb[0] != nullptr, n < 256);
	}
	Buf m;
	blobmsg_add_field(&m.b, BLOBMSG_TYPE_STRING, nullptr, "ab", 2);  // no NUL: invalid
	blobmsg_add_u32(&m.b, nullptr, 9);
	Bytes bytes = m.payload();
	Exact e(bytes);
	struct Case {
		int type;
		int rc;
		bool filled;
	} const cases[] = {{BLOBMSG_TYPE_INT32, 0, true}, {BLOBMSG_CAST_INT64, 0, false}, {BLOBMSG_TYPE_STRING, -1, false}};
	for (const auto &c : cases) {
		SCOPED_TRACE(c.type);
		const struct blobmsg_policy pol[] = {{nullptr, static_cast<enum blobmsg_type>(c.type)}};
		struct blob_attr *tb[1];
		EXPECT_EQ(blobmsg_parse_array(pol, 1, tb, e.mem.get(), static_cast<unsigned int>(e.len)), c.rc);
		EXPECT_EQ(tb[0] != nullptr, c.filled);
		tb[0] = e.attr();
		EXPECT_EQ(blobmsg_parse_array(pol, 1, tb, c.filled ? nullptr : e.mem.get(), 0), 0);
		EXPECT_EQ(tb[0], nullptr);
	}
}

// -------------------------------------------------------------- validation

TEST(UboxCheck, MalformedAttributes)
{
	struct Case {
		const char *what;
		Bytes bytes;
		bool name;
		bool ok;
		size_t len;  // 0: the size of bytes
	};
	const std::vector<Case> cases = {
		{"valid u32", {0x85, 0, 0, 0x0c, 0, 1, 'a', 0, 0, 0, 0, 1}, true, true, 0},
		{"length past the end", {0x85, 0, 0, 0x0c, 0, 1, 'a', 0, 0, 0, 0, 1}, false, false, 11},
		{"declared length past the buffer", {0x85, 0, 0, 0x10, 0, 1, 'a', 0, 0, 0, 0, 1}, false, false, 0},
		{"huge declared length", {0x85, 0xff, 0xff, 0xff, 0, 1, 'a', 0}, false, false, 0},
		{"truncated header", {0x85, 0, 0}, false, false, 0},
		{"raw length below a header", {0x80, 0, 0, 0x03}, false, false, 0},
		{"no room for the name length", {0x80, 0, 0, 0x05, 0}, false, false, 0},
		{"name header bigger than the attribute", {0x85, 0, 0, 0x0c, 0, 10, 'a', 'b', 'c', 'd', 'e', 'f'}, false, false, 0},
		{"name NUL would be just past the attribute", {0x80, 0, 0, 0x08, 0, 2, 'a', 'b'}, false, false, 0},
		{"name NUL would be in the padding", {0x80, 0, 0, 0x0a, 0, 3, 'a', 'b', 'c', 0}, false, false, 0},
		{"name length 0xffff", {0x80, 0, 0, 0x08, 0xff, 0xff, 'a', 0}, false, false, 0},
		{"name without its NUL", {0x85, 0, 0, 0x0c, 0, 1, 'a', 'b', 0, 0, 0, 1}, false, false, 0},
		{"empty name when names are required", {0x85, 0, 0, 0x0c, 0, 0, 0, 0, 0, 0, 0, 1}, true, false, 0},
		{"empty name in an array", {0x85, 0, 0, 0x0c, 0, 0, 0, 0, 0, 0, 0, 1}, false, true, 0},
		{"plain attribute where names are required", {0x05, 0, 0, 0x08, 0, 0, 0, 1}, true, false, 0},
		{"plain attribute", {0x05, 0, 0, 0x08, 0, 0, 0, 1}, false, true, 0},
		{"type 9", {0x89, 0, 0, 0x08, 0, 0, 0, 0}, false, false, 0},
		{"type 0x7f", {0xff, 0, 0, 0x08, 0, 0, 0, 0}, false, false, 0},
		{"string without NUL", {0x83, 0, 0, 0x0a, 0, 0, 0, 0, 'a', 'b'}, false, false, 0},
		{"empty string value", {0x83, 0, 0, 0x08, 0, 0, 0, 0}, false, false, 0},
		{"string with NUL", {0x83, 0, 0, 0x0a, 0, 0, 0, 0, 'a', 0}, false, true, 0},
		{"int8 of 2 bytes", {0x87, 0, 0, 0x0a, 0, 0, 0, 0, 1, 0}, false, false, 0},
		{"int16 of 4 bytes", {0x86, 0, 0, 0x0c, 0, 0, 0, 0, 1, 0, 0, 0}, false, false, 0},
		{"int32 of 3 bytes", {0x85, 0, 0, 0x0b, 0, 0, 0, 0, 0, 0, 1}, false, false, 0},
		{"int32 of 5 bytes", {0x85, 0, 0, 0x0d, 0, 0, 0, 0, 0, 0, 0, 0, 1}, false, false, 0},
		{"int64 of 4 bytes", {0x84, 0, 0, 0x0c, 0, 0, 0, 0, 0, 0, 0, 1}, false, false, 0},
		{"double of 4 bytes", {0x88, 0, 0, 0x0c, 0, 0, 0, 0, 0, 0, 0, 1}, false, false, 0},
		{"double of 12 bytes", {0x88, 0, 0, 0x14, 0, 0, 0, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}, false, true, 0},
		{"null without value", {0x80, 0, 0, 0x08, 0, 0, 0, 0}, false, true, 0},
		{"table contents are not looked into", {0x82, 0, 0, 0x0c, 0, 0, 0, 0, 0xff, 0xff, 0xff, 0xff}, false, true, 0},
	};
	for (const auto &c : cases) {
		SCOPED_TRACE(c.what);
		Exact e(c.bytes);
		size_t len = c.len ? c.len : e.len;
		EXPECT_EQ(blobmsg_check_attr_len(e.attr(), c.name, len), c.ok);
		if (len == e.len && e.len >= 4 && blob_raw_len(e.attr()) <= e.len) {
			EXPECT_EQ(blobmsg_check_attr(e.attr(), c.name), c.ok);
		}
	}
#ifdef BLOBXLATE_UBOX_BUNDLED
	EXPECT_FALSE(blobmsg_check_attr(nullptr, false));
#endif
}

TEST(UboxCheck, Arrays)
{
	struct Case {
		const char *what;
		std::function<void(struct blob_buf *)> build;
		int type;
		int want;
	};
	const std::vector<Case> cases = {
		{"array of ints", [](struct blob_buf *b) {
			 void *c = blobmsg_open_array(b, "x");
			 blobmsg_add_u32(b, nullptr, 1); blobmsg_add_u32(b, nullptr, 2); blobmsg_add_u32(b, nullptr, 3);
			 blobmsg_close_array(b, c);
		 }, BLOBMSG_TYPE_INT32, 3},
		{"array of ints, strings wanted", [](struct blob_buf *b) {
			 void *c = blobmsg_open_array(b, "x");
			 blobmsg_add_u32(b, nullptr, 1);
			 blobmsg_close_array(b, c);
		 }, BLOBMSG_TYPE_STRING, -1},
		{"mixed array, any type", [](struct blob_buf *b) {
			 void *c = blobmsg_open_array(b, "x");
			 blobmsg_add_u32(b, nullptr, 1); blobmsg_add_string(b, nullptr, "s");
			 blobmsg_close_array(b, c);
		 }, BLOBMSG_TYPE_UNSPEC, 2},
		{"empty array", [](struct blob_buf *b) { blobmsg_close_array(b, blobmsg_open_array(b, "x")); },
		 BLOBMSG_TYPE_INT32, 0},
		{"table members need names", [](struct blob_buf *b) {
			 void *c = blobmsg_open_table(b, "x");
			 blobmsg_add_u32(b, "a", 1); blobmsg_add_u32(b, nullptr, 2);
			 blobmsg_close_table(b, c);
		 }, BLOBMSG_TYPE_UNSPEC, -1},
		{"table", [](struct blob_buf *b) {
			 void *c = blobmsg_open_table(b, "x");
			 blobmsg_add_u32(b, "a", 1); blobmsg_add_string(b, "b", "2");
			 blobmsg_close_table(b, c);
		 }, BLOBMSG_TYPE_UNSPEC, 2},
		{"not a container", [](struct blob_buf *b) { blobmsg_add_u32(b, "x", 1); }, BLOBMSG_TYPE_UNSPEC, -1},
		{"element type beyond the last", [](struct blob_buf *b) {
			 void *c = blobmsg_open_array(b, "x");
			 blobmsg_add_u32(b, nullptr, 1);
			 blobmsg_close_array(b, c);
		 }, BLOBMSG_CAST_INT64, -1},
	};
	for (const auto &c : cases) {
		SCOPED_TRACE(c.what);
		Buf m;
		c.build(&m.b);
		EXPECT_EQ(blobmsg_check_array(static_cast<struct blob_attr *>(blob_data(m.b.head)), c.type), c.want);
	}

	// A broken element makes the whole array invalid.
	Buf m;
	void *c = blobmsg_open_array(&m.b, "x");
	blobmsg_add_u32(&m.b, nullptr, 1);
	blobmsg_add_string(&m.b, nullptr, "abc");
	blobmsg_close_array(&m.b, c);
	Bytes bytes = m.payload();
	bytes[8 + 12 + 11] = 'd';  // the string's NUL
	Exact e(bytes);
	EXPECT_EQ(blobmsg_check_array(e.attr(), BLOBMSG_TYPE_UNSPEC), -1);
}

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
		Exact e(bytes);
		struct blob_attr *a = e.attr();
		if (blobmsg_check_attr_len(a, false, e.len)) {
			const uint8_t *data = static_cast<const uint8_t *>(blobmsg_data(a));
			ASSERT_LE(data + blobmsg_data_len(a), e.mem.get() + e.len);
			ASSERT_GE(data, e.mem.get() + 4);
		}
		struct blob_attr *tb[2];
		blobmsg_parse(pol, 2, tb, e.mem.get(), static_cast<unsigned int>(e.len));
		blobmsg_parse_array(pol, 2, tb, e.mem.get(), static_cast<unsigned int>(e.len));
		if (e.len >= 4 && blob_raw_len(a) <= e.len) {
			blobmsg_check_array(a, BLOBMSG_TYPE_UNSPEC);
#ifdef BLOBXLATE_UBOX_BUNDLED  // the platform's formatter trusts the outer attribute
			free(blobmsg_format_json(a, true));
			free(blobmsg_format_json_indent(a, false, 0));
#endif
		}
	}
}

// -------------------------------------------------------------------- JSON

TEST(UboxJson, CompactExample)
{
	const char *text = "{\"a\":1,\"b\":-1,\"c\":4294967295,\"d\":\"x\",\"e\":[1,2],\"f\":true,\"g\":1.5,\"h\":null}";
	Buf m;
	ASSERT_TRUE(blobmsg_add_json_from_string(&m.b, text));
	EXPECT_EQ(json(m.b.head, true),
		  "{\"a\":1,\"b\":-1,\"c\":4294967295,\"d\":\"x\",\"e\":[1,2],\"f\":true,\"g\":1.500000,\"h\":null}");
}

TEST(UboxJson, TypeMapping)
{
	struct Case {
		const char *text;  // the value of member "v"
		int type;
		Bytes value;
	};
	const std::vector<Case> cases = {
		{"1", BLOBMSG_TYPE_INT32, {0, 0, 0, 1}},
		{"-1", BLOBMSG_TYPE_INT32, {0xff, 0xff, 0xff, 0xff}},
		{"2147483647", BLOBMSG_TYPE_INT32, {0x7f, 0xff, 0xff, 0xff}},
		{"-2147483648", BLOBMSG_TYPE_INT32, {0x80, 0, 0, 0}},
		{"2147483648", BLOBMSG_TYPE_INT64, {0, 0, 0, 0, 0x80, 0, 0, 0}},
		{"-2147483649", BLOBMSG_TYPE_INT64, {0xff, 0xff, 0xff, 0xff, 0x7f, 0xff, 0xff, 0xff}},
		{"true", BLOBMSG_TYPE_INT8, {1}},
		{"false", BLOBMSG_TYPE_INT8, {0}},
		{"0.25", BLOBMSG_TYPE_DOUBLE, {0x3f, 0xd0, 0, 0, 0, 0, 0, 0}},
		{"\"hi\"", BLOBMSG_TYPE_STRING, {'h', 'i', 0}},
		{"null", BLOBMSG_TYPE_UNSPEC, {}},
		{"{\"x\":1}", BLOBMSG_TYPE_TABLE, {0x85, 0, 0, 0x0c, 0, 1, 'x', 0, 0, 0, 0, 1}},
		{"[1]", BLOBMSG_TYPE_ARRAY, {0x85, 0, 0, 0x0c, 0, 0, 0, 0, 0, 0, 0, 1}},
		{"[]", BLOBMSG_TYPE_ARRAY, {}},
	};
	for (const auto &c : cases) {
		SCOPED_TRACE(c.text);
		Buf m;
		ASSERT_TRUE(blobmsg_add_json_from_string(&m.b, (std::string("{\"v\":") + c.text + "}").c_str()));
		struct blob_attr *v = static_cast<struct blob_attr *>(blob_data(m.b.head));
		ASSERT_TRUE(blobmsg_check_attr(v, true));
		EXPECT_STREQ(blobmsg_name(v), "v");
		EXPECT_EQ(blobmsg_type(v), c.type);
		const uint8_t *d = static_cast<const uint8_t *>(blobmsg_data(v));
		EXPECT_EQ(Bytes(d, d + blobmsg_data_len(v)), c.value);
	}
}

TEST(UboxJson, RejectedInput)
{
	for (const char *text : {"", "[1,2]", "\"s\"", "{\"a\":", "{a:1", "42"}) {
		SCOPED_TRACE(text);
		Buf m;
		EXPECT_FALSE(blobmsg_add_json_from_string(&m.b, text));
		EXPECT_EQ(blob_len(m.b.head), 0u);
	}
#ifdef BLOBXLATE_UBOX_BUNDLED
	Buf m;
	EXPECT_FALSE(blobmsg_add_json_from_string(&m.b, nullptr));
#endif
}

TEST(UboxJson, Indented)
{
	Buf m;
	ASSERT_TRUE(blobmsg_add_json_from_string(&m.b, "{\"a\":1,\"t\":{\"x\":\"y\",\"l\":[1,false]},\"e\":{},\"z\":[]}"));
	EXPECT_EQ(json(m.b.head, true, 0),
		  "{\n"
		  "\t\"a\": 1,\n"
		  "\t\"t\": {\n"
		  "\t\t\"x\": \"y\",\n"
		  "\t\t\"l\": [\n"
		  "\t\t\t1,\n"
		  "\t\t\tfalse\n"
		  "\t\t]\n"
		  "\t},\n"
		  "\t\"e\": {\n"  // an empty container still gets its lines
		  "\t\t\n"
		  "\t},\n"
		  "\t\"z\": [\n"
		  "\t\t\n"
		  "\t]\n"
		  "}");
	// A starting indent of 2 puts two more tabs after every line break.
	std::string deeper;
	for (char c : json(m.b.head, true, 0))
		deeper += c == '\n' ? "\n\t\t" : std::string(1, c);
	EXPECT_EQ(json(m.b.head, true, 2), deeper);
	EXPECT_EQ(json(m.b.head, true), "{\"a\":1,\"t\":{\"x\":\"y\",\"l\":[1,false]},\"e\":{},\"z\":[]}");
	// Not as a list: a member renders with its name, or as its value alone.
	struct blob_attr *t = blob_next(static_cast<struct blob_attr *>(blob_data(m.b.head)));
	EXPECT_EQ(json(t, false), "\"t\":{\"x\":\"y\",\"l\":[1,false]}");
	char *value = blobmsg_format_json_value(t);
	EXPECT_STREQ(value, "{\"x\":\"y\",\"l\":[1,false]}");
	free(value);
	// An array member as a list renders as an array.
	EXPECT_EQ(json(blob_next(static_cast<struct blob_attr *>(blobmsg_data(t))), true), "[1,false]");
}

TEST(UboxJson, ValuesBuiltDirectly)
{
	struct Case {
		const char *what;
		std::function<void(struct blob_buf *)> add;
		const char *want;
	};
	const std::vector<Case> cases = {
		{"int16 is signed", [](struct blob_buf *b) { blobmsg_add_u16(b, "v", 0xfffe); }, "{\"v\":-2}"},
		{"int32 is signed", [](struct blob_buf *b) { blobmsg_add_u32(b, "v", 0x80000000u); }, "{\"v\":-2147483648}"},
		{"int64 is signed", [](struct blob_buf *b) { blobmsg_add_u64(b, "v", 0x8000000000000000ULL); },
		 "{\"v\":-9223372036854775808}"},
		{"int8 non-zero is true", [](struct blob_buf *b) { blobmsg_add_u8(b, "v", 2); }, "{\"v\":true}"},
		{"double six decimals", [](struct blob_buf *b) { blobmsg_add_double(b, "v", -0.1); }, "{\"v\":-0.100000}"},
		{"escapes", [](struct blob_buf *b) { blobmsg_add_string(b, "q\"", "a\"b\\c\nd\te\x01\x1f\r\x7f\xc3\xa9"); },
		 "{\"q\\\"\":\"a\\\"b\\\\c\\nd\\te\\u0001\\u001f\\r\x7f\xc3\xa9\"}"},
		{"string with a NUL inside ends there", [](struct blob_buf *b) { blobmsg_add_field(b, BLOBMSG_TYPE_STRING, "v", "ab\0cd", 6); },
		 "{\"v\":\"ab\"}"},
		{"unspec with bytes is null", [](struct blob_buf *b) { blobmsg_add_field(b, BLOBMSG_TYPE_UNSPEC, "v", "abcd", 4); },
		 "{\"v\":null}"},
		{"empty message", [](struct blob_buf *) {}, "{}"},
	};
	for (const auto &c : cases) {
		SCOPED_TRACE(c.what);
		Buf m;
		c.add(&m.b);
		EXPECT_EQ(json(m.b.head, true), c.want);
	}
}

TEST(UboxJson, RoundTripKeepsBytes)
{
	const char *text =
		"{\"s\":\"x\\\"y\",\"n\":-7,\"big\":-9000000000,\"d\":2.5,\"b\":false,\"z\":null,"
		"\"t\":{\"a\":[{\"k\":1},[2,3],\"w\"],\"e\":{}},\"huge\":1.7e308,\"low\":-1.7e308}";
	Buf first;
	ASSERT_TRUE(blobmsg_add_json_from_string(&first.b, text));
	for (int indent : {-1, 0, 3}) {
		SCOPED_TRACE(indent);
		std::string out = json(first.b.head, true, indent);
		Buf second;
		ASSERT_TRUE(blobmsg_add_json_from_string(&second.b, out.c_str())) << out;
		EXPECT_EQ(second.payload(), first.payload());
	}
}

const char *upper_strings(void *priv, struct blob_attr *attr)
{
	++*static_cast<int *>(priv);
	return blobmsg_type(attr) == BLOBMSG_TYPE_STRING ? "\"S\"" : nullptr;
}

TEST(UboxJson, FormatCallback)
{
	Buf m;
	ASSERT_TRUE(blobmsg_add_json_from_string(&m.b, "{\"a\":\"x\",\"b\":[\"y\",1]}"));
	int calls = 0;
	char *s = blobmsg_format_json_with_cb(m.b.head, true, upper_strings, &calls, -1);
	ASSERT_NE(s, nullptr);
	EXPECT_STREQ(s, "{\"a\":\"S\",\"b\":[\"S\",1]}");
	EXPECT_EQ(calls, 4);
	free(s);
}

TEST(UboxJson, StopsAtInvalidMembers)
{
	Buf m;
	ASSERT_TRUE(blobmsg_add_json_from_string(&m.b, "{\"t\":{\"a\":1,\"b\":\"xy\",\"c\":3},\"after\":2}"));
	Bytes root(static_cast<uint8_t *>(m.b.buf), static_cast<uint8_t *>(m.b.buf) + blob_raw_len(m.b.head));
	// Root header 4, table "t" header 8, member "a" 12, then "b": the
	// string's NUL is at 4 + 8 + 12 + 10.
	struct Case {
		const char *what;
		size_t at;
		uint8_t value;
		const char *want;
	};
	const std::vector<Case> cases = {
		{"unterminated string", 4 + 8 + 12 + 10, 'z', "{\"t\":{\"a\":1,,\"c\":3},\"after\":2}"},
		{"member length past its table", 4 + 8 + 12 + 3, 0x7c, "{\"t\":{\"a\":1},\"after\":2}"},
		{"table length past the message", 4 + 3, 0xf0, "{}"},
		{"bad name length on the first member", 4 + 8 + 5, 0x40, "{\"t\":{,\"b\":\"xy\",\"c\":3},\"after\":2}"},
	};
	for (const auto &c : cases) {
		SCOPED_TRACE(c.what);
		Bytes bad = root;
		bad[c.at] = c.value;
		Exact e(bad);
		EXPECT_EQ(json(e.attr(), true), c.want);
	}
	Bytes shortened = root;
	shortened[3] = 0x02;  // root claims 2 bytes
	Exact e(shortened);
	EXPECT_EQ(json(e.attr(), true), "<null>");
#ifdef BLOBXLATE_UBOX_BUNDLED
	EXPECT_EQ(json(nullptr, true), "<null>");
#endif
}

#ifdef BLOBXLATE_UBOX_BUNDLED  // the platform's formatter recurses
TEST(UboxJson, DeepNestingIsNotRecursive)
{
	// Far deeper than any sane stack would allow recursion for.
	const int depth = 200000;
	struct blob_buf b;
	memset(&b, 0, sizeof(b));
	ASSERT_EQ(blobmsg_buf_init(&b), 0);
	std::vector<void *> cookies;
	for (int i = 0; i < depth; i++)
		cookies.push_back(blobmsg_open_array(&b, "x"));
	blobmsg_add_u32(&b, nullptr, 1);
	while (!cookies.empty()) {
		blobmsg_close_array(&b, cookies.back());
		cookies.pop_back();
	}
	char *s = blobmsg_format_json(b.head, true);
	ASSERT_NE(s, nullptr);
	size_t len = strlen(s);
	// {"x": then the brackets around 1 (names inside arrays are not printed).
	EXPECT_EQ(len, static_cast<size_t>(5 + depth + 1 + depth + 1));
	EXPECT_EQ(std::string(s, 6), "{\"x\":[");
	EXPECT_EQ(std::string(s + len - 4), "]]]}");
	free(s);
	blob_buf_free(&b);
}
#endif

// Daemon code in C: the parse fills both "list" slots, the integer casts
// widen a negative INT32, the string buffer grows in place, blob_parse keeps
// the valid members of a plain blob.
TEST(UboxApi, DaemonStyleHandler)
{
	char *s = ubox_daemon_answer("{\"name\":\"x\",\"count\":-2,\"list\":[\"a\",\"b\"]}");
	EXPECT_STREQ(s, "{\"hello\":\"x-42\",\"u\":4294967294,\"s\":-2,\"list\":[\"a\",\"b\"],\"same\":true,"
			"\"buf\":\"abcdef\",\"found\":2,\"equal\":true}");
	free(s);
}

} // namespace
