// JSON <-> blobmsg.
//
// Parsing is json-c's; the mapping onto blobmsg types is here. Output is our
// own formatter, which walks the message without recursion (an explicit stack
// of open containers), so a hostile message nested millions deep cannot
// exhaust the C stack, and validates every member against the bytes left in
// its container before touching it, stopping the container at the first
// member that does not check out.
#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

extern "C" {
#include <libubox/blobmsg_json.h>
}

namespace {

// malloc-based text buffer: the result is handed to C callers who free() it,
// and running out of memory must give NULL rather than abort.
class Text {
public:
	Text() = default;
	Text(const Text &) = delete;
	Text &operator=(const Text &) = delete;
	~Text() { free(buf_); }

	bool ok() const { return ok_; }

	void put(const char *s, size_t n)
	{
		if (!ok_ || !reserve(n))
			return;
		memcpy(buf_ + len_, s, n);
		len_ += n;
		buf_[len_] = '\0';
	}
	void put(const char *s) { put(s, strlen(s)); }
	void put(char c) { put(&c, 1); }
	void tabs(int n)
	{
		for (int i = 0; i < n; i++)
			put('\t');
	}

	// Hands the text over to the caller.
	char *release()
	{
		if (!ok_ || !reserve(0))
			return nullptr;
		char *r = buf_;
		buf_ = nullptr;
		return r;
	}

private:
	bool reserve(size_t n)
	{
		if (len_ + n + 1 <= cap_)
			return true;
		size_t cap = cap_ ? cap_ : 64;
		while (cap < len_ + n + 1)
			cap *= 2;
		char *p = static_cast<char *>(realloc(buf_, cap));
		if (!p) {
			ok_ = false;
			return false;
		}
		buf_ = p;
		cap_ = cap;
		if (len_ == 0)
			buf_[0] = '\0';
		return true;
	}

	char *buf_ = nullptr;
	size_t len_ = 0;
	size_t cap_ = 0;
	bool ok_ = true;
};

// An open ARRAY or TABLE: where the next member is and how many bytes of the
// container are left.
struct Frame {
	const struct blob_attr *pos;
	size_t rem;
	bool array;
	bool first;
};

class FrameStack {
public:
	FrameStack() = default;
	FrameStack(const FrameStack &) = delete;
	FrameStack &operator=(const FrameStack &) = delete;
	~FrameStack() { free(frames_); }

	bool push(const Frame &f)
	{
		if (size_ == cap_) {
			size_t cap = cap_ ? cap_ * 2 : 16;
			Frame *p = static_cast<Frame *>(realloc(frames_, cap * sizeof(Frame)));
			if (!p)
				return false;
			frames_ = p;
			cap_ = cap;
		}
		frames_[size_++] = f;
		return true;
	}
	void pop() { size_--; }
	bool empty() const { return size_ == 0; }
	size_t size() const { return size_; }
	Frame &top() { return frames_[size_ - 1]; }

private:
	Frame *frames_ = nullptr;
	size_t size_ = 0;
	size_t cap_ = 0;
};

void put_string(Text &out, const char *s, size_t max)
{
	static const char hex[] = "0123456789abcdef";
	out.put('"');
	for (size_t i = 0; i < max && s[i] != '\0'; i++) {
		unsigned char c = static_cast<unsigned char>(s[i]);
		switch (c) {
		case '"':
			out.put("\\\"", 2);
			break;
		case '\\':
			out.put("\\\\", 2);
			break;
		case '\n':
			out.put("\\n", 2);
			break;
		case '\t':
			out.put("\\t", 2);
			break;
		default:
			if (c < 0x20) {
				char esc[6] = {'\\', 'u', '0', '0', hex[c >> 4], hex[c & 15]};
				out.put(esc, sizeof(esc));
			} else {
				out.put(static_cast<char>(c));
			}
		}
	}
	out.put('"');
}

class Formatter {
public:
	Formatter(blobmsg_json_format_t cb, void *priv, int indent)
		: cb_(cb), priv_(priv), indent_(indent)
	{
	}

	// Renders the members of a container area as an object or array.
	bool open(const struct blob_attr *first, size_t rem, bool array)
	{
		out_.put(array ? '[' : '{');
		return stack_.push(Frame{first, rem, array, true});
	}

	// Renders a value that has already been validated; containers are opened
	// and their members rendered by run().
	bool value(struct blob_attr *attr)
	{
		if (cb_) {
			const char *s = cb_(priv_, attr);
			if (s) {
				out_.put(s);
				return true;
			}
		}
		const char *data = static_cast<const char *>(blobmsg_data(attr));
		size_t len = blobmsg_data_len(attr);
		char num[64];
		switch (blobmsg_type(attr)) {
		case BLOBMSG_TYPE_ARRAY:
		case BLOBMSG_TYPE_TABLE:
			return open(reinterpret_cast<const struct blob_attr *>(data), len,
				    blobmsg_type(attr) == BLOBMSG_TYPE_ARRAY);
		case BLOBMSG_TYPE_STRING:
			put_string(out_, data, len);
			break;
		case BLOBMSG_TYPE_INT8:
			out_.put(blobmsg_get_u8(attr) ? "true" : "false");
			break;
		case BLOBMSG_TYPE_INT16:
			snprintf(num, sizeof(num), "%d", static_cast<int>(static_cast<int16_t>(blobmsg_get_u16(attr))));
			out_.put(num);
			break;
		case BLOBMSG_TYPE_INT32:
			snprintf(num, sizeof(num), "%" PRId32, static_cast<int32_t>(blobmsg_get_u32(attr)));
			out_.put(num);
			break;
		case BLOBMSG_TYPE_INT64:
			snprintf(num, sizeof(num), "%" PRId64, static_cast<int64_t>(blobmsg_get_u64(attr)));
			out_.put(num);
			break;
		case BLOBMSG_TYPE_DOUBLE:
			snprintf(num, sizeof(num), "%lf", blobmsg_get_double(attr));
			out_.put(num);
			break;
		default:
			out_.put("null");
			break;
		}
		return true;
	}

	// Renders the members of every open container until all are closed.
	bool run()
	{
		while (!stack_.empty()) {
			Frame &f = stack_.top();
			const struct blob_attr *cur = f.pos;
			if (f.rem < sizeof(struct blob_attr) || blob_pad_len(cur) < sizeof(struct blob_attr) ||
			    blob_pad_len(cur) > f.rem || !blobmsg_check_attr_len(cur, false, f.rem)) {
				close(f);
				stack_.pop();
				continue;
			}
			f.rem -= blob_pad_len(cur);
			f.pos = blob_next(cur);
			bool array = f.array;
			if (!f.first)
				out_.put(',');
			f.first = false;
			// f may dangle after value() pushes a frame; nothing below uses it.
			if (pretty()) {
				out_.put('\n');
				out_.tabs(level());
			}
			if (!array) {
				const char *name = blobmsg_name(cur);
				size_t namelen = blob_is_extended(cur)
					? blobmsg_namelen(static_cast<const struct blobmsg_hdr *>(blob_data(cur)))
					: 0;
				put_string(out_, name, namelen);
				out_.put(pretty() ? ": " : ":");
			}
			if (!value(const_cast<struct blob_attr *>(cur)))
				return false;
		}
		return out_.ok();
	}

	char *release() { return out_.release(); }

private:
	bool pretty() const { return indent_ >= 0; }
	int level() const { return indent_ + static_cast<int>(stack_.size()); }

	void close(const Frame &f)
	{
		if (pretty() && !f.first) {
			out_.put('\n');
			out_.tabs(level() - 1);
		}
		out_.put(f.array ? ']' : '}');
	}

	blobmsg_json_format_t cb_;
	void *priv_;
	int indent_;
	Text out_;
	FrameStack stack_;
};

bool add_array(struct blob_buf *b, json_object *arr)
{
	size_t n = json_object_array_length(arr);
	for (size_t i = 0; i < n; i++) {
		if (!blobmsg_add_json_element(b, nullptr, json_object_array_get_idx(arr, i)))
			return false;
	}
	return true;
}

} // namespace

extern "C" {

bool blobmsg_add_json_element(struct blob_buf *b, const char *name, json_object *obj)
{
	switch (json_object_get_type(obj)) {
	case json_type_object: {
		void *c = blobmsg_open_table(b, name);
		if (!c)
			return false;
		bool ok = blobmsg_add_object(b, obj);
		blobmsg_close_table(b, c);
		return ok;
	}
	case json_type_array: {
		void *c = blobmsg_open_array(b, name);
		if (!c)
			return false;
		bool ok = add_array(b, obj);
		blobmsg_close_array(b, c);
		return ok;
	}
	case json_type_string:
		return blobmsg_add_string(b, name, json_object_get_string(obj)) == 0;
	case json_type_boolean:
		return blobmsg_add_u8(b, name, json_object_get_boolean(obj) ? 1 : 0) == 0;
	case json_type_int: {
		int64_t v = json_object_get_int64(obj);
		if (v >= INT32_MIN && v <= INT32_MAX)
			return blobmsg_add_u32(b, name, static_cast<uint32_t>(static_cast<int32_t>(v))) == 0;
		return blobmsg_add_u64(b, name, static_cast<uint64_t>(v)) == 0;
	}
	case json_type_double:
		return blobmsg_add_double(b, name, json_object_get_double(obj)) == 0;
	case json_type_null:
		return blobmsg_add_field(b, BLOBMSG_TYPE_UNSPEC, name, nullptr, 0) == 0;
	}
	return false;
}

bool blobmsg_add_object(struct blob_buf *b, json_object *obj)
{
	if (!b || !json_object_is_type(obj, json_type_object))
		return false;
	json_object_object_foreach(obj, key, val) {
		if (!blobmsg_add_json_element(b, key, val))
			return false;
	}
	return true;
}

bool blobmsg_add_json_from_string(struct blob_buf *b, const char *str)
{
	if (!b || !str)
		return false;
	json_object *obj = json_tokener_parse(str);
	if (!obj)
		return false;
	bool ok = json_object_is_type(obj, json_type_object) && blobmsg_add_object(b, obj);
	json_object_put(obj);
	return ok;
}

char *blobmsg_format_json_with_cb(struct blob_attr *attr, bool list,
				  blobmsg_json_format_t cb, void *priv, int indent)
{
	// The attribute itself can only be checked against its own length; its
	// members are checked against it as they are walked.
	if (!attr || !blobmsg_check_attr(attr, false))
		return nullptr;
	Formatter f(cb, priv, indent);
	if (list) {
		int type = blobmsg_type(attr);
		bool container = !blob_is_extended(attr) || type == BLOBMSG_TYPE_ARRAY ||
				 type == BLOBMSG_TYPE_TABLE;
		const struct blob_attr *first = static_cast<const struct blob_attr *>(blobmsg_data(attr));
		if (!f.open(first, container ? blobmsg_data_len(attr) : 0, false))
			return nullptr;
	} else if (!f.value(attr)) {
		return nullptr;
	}
	if (!f.run())
		return nullptr;
	return f.release();
}

} // extern "C"
