// The bundled libubox against the platform's, in one process.
//
// This file is compiled twice. Each compilation puts the code below into a
// namespace of its own (UBOX_DIFF_SIDE) and sees one library's headers:
//   real_side    : the platform's libubox headers, linked to its libraries;
//   bundled_side : ubox/include, with every symbol of the bundled layer renamed
//                  by a generated header, so both libraries live side by side.
// A side runs the same calls on the same input and writes down everything it
// observes as lines of text, one tag word first. The real side's compilation
// also holds the entry point, which compares the two texts; the first line
// that differs is printed and the run traps.
//
// Every blobmsg_parse is also run through the converters' one-pass parse
// (core/parse.h) on the same side, which must fill the same slots.
// The tags: parse, parse_array, empty_parse, empty_parse_array (policies from
// the input), check, check_array, name, data, value, walk (checks, accessors
// and walks of every member), from_string, add_element (JSON text in), build
// (blob_buf with nests open), json, json_indent, json_hook, json_value (JSON
// text out), cast, copy (blob_memdup, blob_attr_equal, blobmsg_add_blob),
// blob_parse (plain attributes against a table from the input).
// BLOBXLATE_DIFF_SKIP=tag,tag leaves out lines of the named tags, to look for
// further differences while one is known and being fixed. Seeds that reach
// the usual corners are written by ubox_diff_seeds.py.
#include <cinttypes>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include <fuzzer/FuzzedDataProvider.h>
#include <json-c/json.h>

extern "C" {
#include <libubox/blobmsg_json.h>
}

#ifndef UBOX_DIFF_SIDE
#error "UBOX_DIFF_SIDE must name the side being compiled"
#endif

// The converters' one-pass parse, built against this side's libubox.
#define BX_PARSE_NS UBOX_DIFF_SIDE
#include "core/parse.h"

// What both sides offer, and what the entry point calls.
namespace real_side {
std::string run(const uint8_t *data, size_t size, bool format);
bool format_is_safe(const uint8_t *data, size_t size);
} // namespace real_side
namespace bundled_side {
std::string run(const uint8_t *data, size_t size, bool format);
} // namespace bundled_side

namespace UBOX_DIFF_SIDE {
namespace {

constexpr int kMaxPolicy = 8;
constexpr int kMaxDepth = 24;
constexpr size_t kMaxName = 300;
constexpr size_t kMaxMessage = 1 << 16;
constexpr int kMaxBuildOps = 96;

__attribute__((format(printf, 2, 3))) void note(std::string &out, const char *fmt, ...)
{
	char line[512];
	va_list ap;
	va_start(ap, fmt);
	vsnprintf(line, sizeof line, fmt, ap);
	va_end(ap);
	out += line;
	out += '\n';
}

void note_text(std::string &out, const char *tag, const char *text)
{
	out += tag;
	out += text ? " \"" : " (null)";
	// One line per note: line breaks and tabs are shown escaped.
	for (const char *c = text; c && *c; c++) {
		if (*c == '\n')
			out += "\\n";
		else if (*c == '\t')
			out += "\\t";
		else
			out += *c;
	}
	if (text)
		out += '"';
	out += '\n';
}

void note_bytes(std::string &out, const char *tag, const void *p, size_t len)
{
	static const char hex[] = "0123456789abcdef";
	out += tag;
	out += ' ';
	const auto *b = static_cast<const uint8_t *>(p);
	for (size_t i = 0; i < len; i++) {
		out += hex[b[i] >> 4];
		out += hex[b[i] & 15];
	}
	out += '\n';
}

void note_buffer(std::string &out, const char *tag, const blob_buf &b)
{
	note(out, "%s head at root %d", tag, b.head == b.buf);
	if (b.head)
		note_bytes(out, tag, b.head, blob_raw_len(b.head));
}

// The input, read the same way by both sides.
struct Input {
	std::string names[kMaxPolicy];
	bool named[kMaxPolicy];
	blobmsg_policy policy[kMaxPolicy];
	int policy_len;
	int check_type;    // element type handed to blobmsg_check_array
	int cb_type;       // values of this type are replaced by the format hook
	int indent;
	std::string message;
	std::string json;
	std::string ops;
};

void read_input(FuzzedDataProvider &in, Input &v)
{
	v.policy_len = in.ConsumeIntegralInRange(1, kMaxPolicy);
	for (int i = 0; i < v.policy_len; i++) {
		v.named[i] = in.ConsumeIntegralInRange(0, 15) != 0;
		v.names[i] = in.ConsumeRandomLengthString(kMaxName);
		v.policy[i].type = static_cast<enum blobmsg_type>(in.ConsumeIntegralInRange(0, static_cast<int>(BLOBMSG_CAST_INT64)));
		v.policy[i].name = v.named[i] ? v.names[i].c_str() : nullptr;
	}
	v.check_type = in.ConsumeIntegralInRange(0, static_cast<int>(BLOBMSG_CAST_INT64));
	v.cb_type = in.ConsumeIntegralInRange(0, 15);
	v.indent = in.ConsumeIntegralInRange(0, 20);
	v.message = in.ConsumeRandomLengthString(kMaxMessage);
	v.json = in.ConsumeRandomLengthString(kMaxMessage);
	v.ops = in.ConsumeRemainingBytesAsString();
}

// The message as a daemon holds it: a root attribute (id 0, not extended)
// whose payload is the bytes that arrived.
struct Message {
	blob_attr *root = nullptr;
	explicit Message(const std::string &bytes)
	{
		root = static_cast<blob_attr *>(calloc(1, sizeof(blob_attr) + bytes.size() + 4));
		uint32_t len = static_cast<uint32_t>(sizeof(blob_attr) + bytes.size());
		uint8_t *h = reinterpret_cast<uint8_t *>(root);
		h[0] = 0;
		h[1] = static_cast<uint8_t>(len >> 16);
		h[2] = static_cast<uint8_t>(len >> 8);
		h[3] = static_cast<uint8_t>(len);
		memcpy(root->data, bytes.data(), bytes.size());
	}
	~Message() { free(root); }
	Message(const Message &) = delete;
	Message &operator=(const Message &) = delete;
};

long offset_of(const blob_attr *base, const void *p)
{
	return p ? static_cast<long>(static_cast<const char *>(p) - reinterpret_cast<const char *>(base)) : -1;
}

bool is_container(const blob_attr *a)
{
	return blobmsg_type(a) == BLOBMSG_TYPE_ARRAY || blobmsg_type(a) == BLOBMSG_TYPE_TABLE;
}

// --- Checks, accessors and walks ---------------------------------------------

void note_value(std::string &out, blob_attr *a)
{
	switch (blobmsg_type(a)) {
	case BLOBMSG_TYPE_STRING:
		note_text(out, "value", blobmsg_get_string(a));
		break;
	case BLOBMSG_TYPE_INT8:
		note(out, "value u8 %u bool %d", blobmsg_get_u8(a), blobmsg_get_bool(a));
		break;
	case BLOBMSG_TYPE_INT16:
		note(out, "value u16 %u", blobmsg_get_u16(a));
		break;
	case BLOBMSG_TYPE_INT32:
		note(out, "value u32 %" PRIu32, blobmsg_get_u32(a));
		break;
	case BLOBMSG_TYPE_INT64:
		note(out, "value u64 %" PRIu64, blobmsg_get_u64(a));
		break;
	case BLOBMSG_TYPE_DOUBLE: {
		double d = blobmsg_get_double(a);
		note_bytes(out, "value double", &d, sizeof d);
		break;
	}
	default:
		break;
	}
}

// The converters' parse must fill the slots blobmsg_parse fills and return
// what it returns, on this side's libubox; a difference traps at once.
void one_pass_as_parse(const Input &in, blob_attr *const *tb, int ret, void *data, size_t len)
{
	blob_attr *mine[kMaxPolicy];
	int mine_ret = bx::parse_keys(in.policy, static_cast<size_t>(in.policy_len), mine, data,
				      static_cast<unsigned int>(len));
	bool same = mine_ret == ret;
	for (int i = 0; i < in.policy_len; i++)
		same = same && mine[i] == tb[i];
	if (same)
		return;
	fprintf(stderr, "one-pass parse differs from blobmsg_parse: ret %d, blobmsg_parse %d\n", mine_ret, ret);
	for (int i = 0; i < in.policy_len; i++)
		fprintf(stderr, "  slot %d: %p, blobmsg_parse %p\n", i, static_cast<void *>(mine[i]),
			static_cast<void *>(tb[i]));
	__builtin_trap();
}

// Lines of blobmsg_parse are tagged tag, those of blobmsg_parse_array tag_array.
void parse_area(std::string &out, const char *tag, const Input &in, const blob_attr *base, void *data,
		size_t len)
{
	blob_attr *tb[kMaxPolicy];
	int ret = blobmsg_parse(in.policy, in.policy_len, tb, data, static_cast<unsigned int>(len));
	one_pass_as_parse(in, tb, ret, data, len);
	note(out, "%s at %ld len %zu ret %d", tag, offset_of(base, data), len, ret);
	for (int i = 0; i < in.policy_len; i++)
		note(out, "%s slot %d -> %ld", tag, i, offset_of(base, tb[i]));
	ret = blobmsg_parse_array(in.policy, in.policy_len, tb, data, static_cast<unsigned int>(len));
	note(out, "%s_array at %ld ret %d", tag, offset_of(base, data), ret);
	for (int i = 0; i < in.policy_len; i++)
		note(out, "%s_array slot %d -> %ld", tag, i, offset_of(base, tb[i]));
}

// One member of a container, rem bytes of which are left from pos on.
void visit(std::string &out, const Input &in, const blob_attr *base, blob_attr *pos, size_t rem, int depth);

void walk_members(std::string &out, const Input &in, const blob_attr *base, blob_attr *attr, int depth)
{
	blob_attr *pos;
	size_t rem;
	int count = 0;
	blobmsg_for_each_attr(pos, attr, rem) {
		visit(out, in, base, pos, rem, depth);
		count++;
	}
	note(out, "walk %ld members %d rest %zu", offset_of(base, attr), count, rem);
	unsigned int urem;
	int ucount = 0;
	blobmsg_for_each_attr(pos, attr, urem)
		ucount++;
	note(out, "walk %ld unsigned members %d rest %u", offset_of(base, attr), ucount, urem);
}

void visit(std::string &out, const Input &in, const blob_attr *base, blob_attr *pos, size_t rem, int depth)
{
	bool valid = blobmsg_check_attr_len(pos, false, rem);
	note(out, "check %ld id %u ext %d raw %zu pad %zu len %d named %d own %d", offset_of(base, pos),
	     blob_id(pos), blob_is_extended(pos), blob_raw_len(pos), blob_pad_len(pos), valid,
	     blobmsg_check_attr_len(pos, true, rem), blobmsg_check_attr(pos, false));
	note(out, "check_array %ld any %d typed %d len %d list %d %d", offset_of(base, pos),
	     blobmsg_check_array(pos, BLOBMSG_TYPE_UNSPEC), blobmsg_check_array(pos, in.check_type),
	     blobmsg_check_array_len(pos, in.check_type, rem), blobmsg_check_attr_list(pos, in.check_type),
	     blobmsg_check_attr_list_len(pos, in.check_type, rem));
	if (!valid)
		return;
	if (blob_is_extended(pos))
		note_text(out, "name", blobmsg_name(pos));
	note(out, "data %ld len %zu", offset_of(base, blobmsg_data(pos)), blobmsg_data_len(pos));
	note_value(out, pos);
	note(out, "cast %" PRIu64 " %" PRId64, blobmsg_cast_u64(pos), blobmsg_cast_s64(pos));
	blob_attr *dup = blob_memdup(pos);
	note(out, "copy equal %d %d", blob_attr_equal(pos, dup), blob_attr_equal(pos, base));
	free(dup);
	if (!is_container(pos) || depth >= kMaxDepth)
		return;
	if (blobmsg_data_len(pos) > 0) {
		parse_area(out, "parse", in, base, blobmsg_data(pos), blobmsg_data_len(pos));
		blob_attr *tb[kMaxPolicy];
		note(out, "parse attr ret %d", blobmsg_parse_attr(in.policy, in.policy_len, tb, pos));
	}
	walk_members(out, in, base, pos, depth + 1);
}

void check_message(std::string &out, const Input &in, const Message &m)
{
	blob_attr *pos;
	size_t rem;
	int count = 0;
	// Empty areas apart, so that their tag can be left out on its own.
	if (blob_len(m.root) > 0)
		parse_area(out, "parse", in, m.root, blob_data(m.root), blob_len(m.root));
	parse_area(out, "empty_parse", in, m.root, nullptr, 0);
	parse_area(out, "empty_parse", in, m.root, blob_data(m.root), 0);
	blob_for_each_attr(pos, m.root, rem) {
		visit(out, in, m.root, pos, rem, 0);
		count++;
	}
	note(out, "walk root members %d rest %zu", count, rem);
	rem = blob_len(m.root);
	count = 0;
	__blob_for_each_attr(pos, blob_data(m.root), rem)
		count++;
	note(out, "walk raw members %d rest %zu", count, rem);

	// The members as plain attributes, ids below kMaxPolicy * 2.
	blob_attr_info info[kMaxPolicy * 2] = {};
	for (int i = 0; i < kMaxPolicy * 2; i++) {
		const std::string &n = in.names[i % kMaxPolicy];
		info[i].type = n.empty() ? BLOB_ATTR_LAST : static_cast<uint8_t>(n[0]) % (BLOB_ATTR_LAST + 1);
		info[i].minlen = n.size() > 1 ? static_cast<uint8_t>(n[1]) % 24 : 0;
		info[i].maxlen = n.size() > 2 ? static_cast<uint8_t>(n[2]) % 64 : 0;
	}
	blob_attr *data[kMaxPolicy * 2];
	note(out, "blob_parse found %d", blob_parse(m.root, data, info, kMaxPolicy * 2));
	for (int i = 0; i < kMaxPolicy * 2; i++)
		note(out, "blob_parse slot %d -> %ld", i, offset_of(m.root, data[i]));
	note(out, "blob_parse untrusted found %d",
	     blob_parse_untrusted(m.root, blob_raw_len(m.root), data, info, kMaxPolicy * 2));
	for (int i = 0; i < kMaxPolicy * 2; i++)
		note(out, "blob_parse slot %d -> %ld", i, offset_of(m.root, data[i]));

	// Valid named members copied into a message of their own.
	blob_buf b{};
	blob_buf_init(&b, 0);
	blob_for_each_attr(pos, m.root, rem) {
		if (blob_is_extended(pos) && blobmsg_check_attr_len(pos, false, rem))
			note(out, "copy add %d", blobmsg_add_blob(&b, pos));
	}
	note_buffer(out, "copy", b);
	blob_buf_free(&b);
}

// --- JSON text ------------------------------------------------------------------

const char *replace_value(void *priv, blob_attr *attr)
{
	return blobmsg_type(attr) == *static_cast<const int *>(priv) ? "\"hooked\"" : nullptr;
}

// Lines tagged json (compact), json_indent and json_hook (with a format hook).
void format_one(std::string &out, const char *what, const Input &in, blob_attr *attr, bool list)
{
	std::string tag = std::string("json ") + what;
	char *text = blobmsg_format_json(attr, list);
	note_text(out, tag.c_str(), text);
	free(text);
	tag = std::string("json_indent ") + what;
	text = blobmsg_format_json_indent(attr, list, in.indent);
	note_text(out, tag.c_str(), text);
	free(text);
	text = blobmsg_format_json_indent(attr, list, 0);
	note_text(out, tag.c_str(), text);
	free(text);
	tag = std::string("json_hook ") + what;
	int hook_type = in.cb_type;
	text = blobmsg_format_json_with_cb(attr, list, replace_value, &hook_type, -1);
	note_text(out, tag.c_str(), text);
	free(text);
}

// The root as a list, and every valid member of it both ways.
void format_message(std::string &out, const Input &in, blob_attr *root)
{
	format_one(out, "root", in, root, true);
	blob_attr *pos;
	size_t rem;
	blob_for_each_attr(pos, root, rem) {
		if (!blob_is_extended(pos) || !blobmsg_check_attr_len(pos, false, rem))
			continue;
		format_one(out, "member", in, pos, false);
		char *text = blobmsg_format_json_value(pos);
		note_text(out, "json_value", text);
		free(text);
		if (is_container(pos))
			format_one(out, "list", in, pos, true);
	}
}

void from_text(std::string &out, const Input &in)
{
	blob_buf b{};
	blob_buf_init(&b, 0);
	bool ok = blobmsg_add_json_from_string(&b, in.json.c_str());
	note(out, "from_string ok %d", ok);
	note_buffer(out, "from_string", b);
	if (ok)
		format_one(out, "from_string", in, b.head, true);

	// Any JSON value, not only an object, as one named element.
	json_object *value = json_tokener_parse(in.json.c_str());
	blob_buf_init(&b, 0);
	ok = value && blobmsg_add_json_element(&b, "v", value);
	note(out, "add_element ok %d", ok);
	note_buffer(out, "add_element", b);
	json_object_put(value);
	blob_buf_free(&b);
}

// --- Building with nests open -------------------------------------------------

struct Builder {
	blob_buf b{};
	void *cookies[kMaxBuildOps];
	int open = 0;
	FuzzedDataProvider &in;
	std::string &out;
	std::string name;

	Builder(FuzzedDataProvider &src, std::string &o) : in(src), out(o) { blob_buf_init(&b, 0); }
	~Builder() { blob_buf_free(&b); }
	Builder(const Builder &) = delete;
	Builder &operator=(const Builder &) = delete;

	const char *next_name()
	{
		name = in.ConsumeRandomLengthString(kMaxName);
		return in.ConsumeBool() ? name.c_str() : nullptr;
	}

	void nest(void *cookie)
	{
		note(out, "build open %d", cookie != nullptr);
		if (cookie)
			cookies[open++] = cookie;
	}

	void step()
	{
		int ret = 0;
		switch (in.ConsumeIntegralInRange(0, 14)) {
		case 0:
			nest(blobmsg_open_table(&b, next_name()));
			return;
		case 1:
			nest(blobmsg_open_array(&b, next_name()));
			return;
		case 2:
			nest(blob_nest_start(&b, in.ConsumeIntegralInRange(0, 127)));
			return;
		case 3:
			if (open > 0)
				blob_nest_end(&b, cookies[--open]);
			return;
		case 4: {
			const char *n = next_name();
			std::string s = in.ConsumeRandomLengthString(1024);
			ret = blobmsg_add_string(&b, n, s.c_str());
			break;
		}
		case 5: {
			// A long value, to make the buffer grow while nests are open.
			const char *n = next_name();
			std::string s(in.ConsumeIntegralInRange<size_t>(1, 8) * 1021, 'g');
			ret = blobmsg_add_string(&b, n, s.c_str());
			break;
		}
		case 6:
			ret = blobmsg_add_u8(&b, next_name(), in.ConsumeIntegral<uint8_t>());
			break;
		case 7:
			ret = blobmsg_add_u16(&b, next_name(), in.ConsumeIntegral<uint16_t>());
			break;
		case 8:
			ret = blobmsg_add_u32(&b, next_name(), in.ConsumeIntegral<uint32_t>());
			break;
		case 9:
			ret = blobmsg_add_u64(&b, next_name(), in.ConsumeIntegral<uint64_t>());
			break;
		case 10:
			ret = blobmsg_add_double(&b, next_name(), in.ConsumeFloatingPoint<double>());
			break;
		case 11: {
			const char *n = next_name();
			int type = in.ConsumeIntegralInRange(0, 127);
			std::string v = in.ConsumeRandomLengthString(64);
			ret = blobmsg_add_field(&b, type, n, v.data(), static_cast<unsigned int>(v.size()));
			break;
		}
		case 12: {
			int id = in.ConsumeIntegralInRange(0, 127);
			std::string v = in.ConsumeRandomLengthString(64);
			ret = blob_put(&b, id, v.data(), static_cast<unsigned int>(v.size())) ? 0 : -1;
			break;
		}
		case 13: {
			// A string written in place, perhaps made room for again.
			const char *n = next_name();
			std::string s = in.ConsumeRandomLengthString(200);
			auto room = static_cast<unsigned int>(in.ConsumeIntegralInRange<size_t>(0, 64));
			char *text = static_cast<char *>(blobmsg_alloc_string_buffer(&b, n, room));
			note(out, "build string buffer %d", text != nullptr);
			if (!text)
				return;
			snprintf(text, room + 1, "%s", s.c_str());
			if (in.ConsumeBool()) {
				room += static_cast<unsigned int>(s.size());
				text = static_cast<char *>(blobmsg_realloc_string_buffer(&b, room));
				note(out, "build string buffer again %d", text != nullptr);
				if (!text)
					return;
				snprintf(text, room + 1, "%s%s", s.c_str(), s.c_str());
			}
			blobmsg_add_string_buffer(&b);
			return;
		}
		default:
			ret = blob_buf_init(&b, in.ConsumeIntegralInRange(0, 127));
			open = 0;
			break;
		}
		note(out, "build ret %d", ret);
	}

	void finish()
	{
		while (open > 0)
			blob_nest_end(&b, cookies[--open]);
		note_buffer(out, "build", b);
	}
};

// --- Which messages the platform's formatter can take -----------------------
//
// The platform's formatter recurses once per nesting level, and it reads the
// name of every member of an object even when the member carries none (not
// extended). Messages that would make it run off the stack or past the
// message are left out of the JSON comparison.
bool safe_area(const blob_attr *first, size_t rem, bool object, int depth)
{
	if (depth > kMaxDepth)
		return false;
	const blob_attr *pos;
	__blob_for_each_attr(pos, first, rem) {
		if (!blobmsg_check_attr(pos, false))
			continue;
		if (object && !blob_is_extended(pos))
			return false;
		if (is_container(pos) &&
		    !safe_area(static_cast<const blob_attr *>(blobmsg_data(pos)), blobmsg_data_len(pos),
			       blobmsg_type(pos) == BLOBMSG_TYPE_TABLE, depth + 1))
			return false;
	}
	return true;
}

bool safe_message(const blob_attr *root)
{
	return safe_area(static_cast<const blob_attr *>(blob_data(root)), blob_len(root), true, 0);
}

} // namespace

std::string run(const uint8_t *data, size_t size, bool format)
{
	FuzzedDataProvider src(data, size);
	Input in;
	read_input(src, in);
	std::string out;
	Message m(in.message);
	check_message(out, in, m);
	if (format)
		format_message(out, in, m.root);
	from_text(out, in);

	FuzzedDataProvider ops(reinterpret_cast<const uint8_t *>(in.ops.data()), in.ops.size());
	Builder build(ops, out);
	for (int i = 0; i < kMaxBuildOps && ops.remaining_bytes() > 0; i++)
		build.step();
	build.finish();
	if (safe_message(build.b.head))
		format_one(out, "build", in, build.b.head, true);
	return out;
}

bool format_is_safe(const uint8_t *data, size_t size)
{
	FuzzedDataProvider src(data, size);
	Input in;
	read_input(src, in);
	Message m(in.message);
	return safe_message(m.root);
}

} // namespace UBOX_DIFF_SIDE

#ifdef UBOX_DIFF_MAIN
namespace {

// Drops the lines whose tag word is listed in BLOBXLATE_DIFF_SKIP.
std::string without_skipped(const std::string &text)
{
	static const char *skip = getenv("BLOBXLATE_DIFF_SKIP");
	if (!skip || !*skip)
		return text;
	std::string kept;
	size_t at = 0;
	while (at < text.size()) {
		size_t end = text.find('\n', at);
		std::string line = text.substr(at, end - at + 1);
		std::string tag = "," + line.substr(0, line.find_first_of(" \n")) + ",";
		if (("," + std::string(skip) + ",").find(tag) == std::string::npos)
			kept += line;
		at = end + 1;
	}
	return kept;
}

void report(const std::string &real, const std::string &bundled)
{
	size_t line_start = 0;
	size_t i = 0;
	while (i < real.size() && i < bundled.size() && real[i] == bundled[i]) {
		if (real[i] == '\n')
			line_start = i + 1;
		i++;
	}
	auto line_at = [line_start](const std::string &s) {
		return s.substr(line_start, s.find('\n', line_start) - line_start);
	};
	fprintf(stderr, "ubox difference\n  real:    %s\n  bundled: %s\n", line_at(real).c_str(),
		line_at(bundled).c_str());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
	bool format = real_side::format_is_safe(data, size);
	std::string real = without_skipped(real_side::run(data, size, format));
	std::string bundled = without_skipped(bundled_side::run(data, size, format));
	if (real != bundled) {
		report(real, bundled);
		__builtin_trap();
	}
	return 0;
}
#endif
