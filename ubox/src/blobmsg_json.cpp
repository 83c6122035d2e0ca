// JSON <-> blobmsg.
//
// Parsing is json-c's; the mapping onto blobmsg types is here. Output is our
// own formatter, which writes the platform's text byte for byte but walks the
// message without recursion (an explicit stack of open containers), so a
// hostile message nested millions deep cannot exhaust the C stack. A
// container's walk ends at the first member that does not fit in it; a member
// that fits but does not check out prints nothing (its comma stays).
#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <json-c/json.h>

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
	bool empty() const { return len_ == 0; }

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

// A JSON string of the bytes up to the first NUL or max.
void put_string(Text &out, const char *s, size_t max)
{
	static const char hex[] = "0123456789abcdef";
	out.put('"');
	for (size_t i = 0; i < max && s[i] != '\0'; i++) {
		unsigned char c = static_cast<unsigned char>(s[i]);
		const char *short_form = nullptr;
		switch (c) {
		case '\b': short_form = "\\b"; break;
		case '\n': short_form = "\\n"; break;
		case '\t': short_form = "\\t"; break;
		case '\r': short_form = "\\r"; break;
		case '"': short_form = "\\\""; break;
		case '\\': short_form = "\\\\"; break;
		default: break;
		}
		if (short_form) {
			out.put(short_form, 2);
		} else if (c < 0x20) {
			char esc[6] = {'\\', 'u', '0', '0', hex[c >> 4], hex[c & 15]};
			out.put(esc, sizeof(esc));
		} else {
			out.put(static_cast<char>(c));
		}
	}
	out.put('"');
}

// The name a member prints with. An extended attribute's is checked to be in
// place; a plain one has none, but its bytes are read as one anyway (as the
// platform does), here only as far as the attribute goes.
void name_of(const struct blob_attr *attr, const char **name, size_t *len)
{
	const char *data = static_cast<const char *>(blob_data(attr));
	*name = data + sizeof(struct blobmsg_hdr);
	if (blob_is_extended(attr))
		*len = blobmsg_namelen(static_cast<const struct blobmsg_hdr *>(blob_data(attr)));
	else
		*len = blob_len(attr) > sizeof(struct blobmsg_hdr) ? blob_len(attr) - sizeof(struct blobmsg_hdr) : 0;
}

class Formatter {
public:
	Formatter(blobmsg_json_format_t cb, void *priv, int indent)
		: cb_(cb), priv_(priv), pretty_(indent >= 0), level_(indent)
	{
	}

	// Opens an object or array over an area of members; run() renders them.
	bool open(const struct blob_attr *first, size_t rem, bool array)
	{
		out_.put(array ? '[' : '{');
		level_++;
		separator();
		return stack_.push(Frame{first, rem, array, true});
	}

	// One member: nothing when it does not check out, its name unless
	// without_name or empty, then its value (or the callback's text).
	bool element(struct blob_attr *attr, bool without_name)
	{
		if (!blobmsg_check_attr(attr, false))
			return true;
		const char *name;
		size_t namelen;
		name_of(attr, &name, &namelen);
		if (!without_name && namelen && name[0]) {
			put_string(out_, name, namelen);
			out_.put(pretty_ ? ": " : ":");
		}
		if (cb_) {
			const char *s = cb_(priv_, attr);
			if (s) {
				out_.put(s);
				return true;
			}
		}
		const char *data = static_cast<const char *>(blobmsg_data(attr));
		size_t len = blobmsg_data_len(attr);
		// The platform's buffer: the most negative doubles lose their last
		// decimal in it too.
		char num[317];
		switch (blobmsg_type(attr)) {
		case BLOBMSG_TYPE_ARRAY:
		case BLOBMSG_TYPE_TABLE:
			return open(reinterpret_cast<const struct blob_attr *>(data), len,
				    blobmsg_type(attr) == BLOBMSG_TYPE_ARRAY);
		case BLOBMSG_TYPE_STRING:
			put_string(out_, data, len);
			return true;
		case BLOBMSG_TYPE_INT8:
			snprintf(num, sizeof(num), "%s", blobmsg_get_u8(attr) ? "true" : "false");
			break;
		case BLOBMSG_TYPE_INT16:
			snprintf(num, sizeof(num), "%d", static_cast<int>(static_cast<int16_t>(blobmsg_get_u16(attr))));
			break;
		case BLOBMSG_TYPE_INT32:
			snprintf(num, sizeof(num), "%" PRId32, static_cast<int32_t>(blobmsg_get_u32(attr)));
			break;
		case BLOBMSG_TYPE_INT64:
			snprintf(num, sizeof(num), "%" PRId64, static_cast<int64_t>(blobmsg_get_u64(attr)));
			break;
		case BLOBMSG_TYPE_DOUBLE:
			// In full, as "%lf" gives it: 1e308 is 309 digits and ".000000".
			snprintf(num, sizeof(num), "%lf", blobmsg_get_double(attr));
			break;
		default:
			snprintf(num, sizeof(num), "null");
			break;
		}
		out_.put(num);
		return true;
	}

	// Renders the members of every open container until all are closed.
	bool run()
	{
		while (!stack_.empty()) {
			Frame &f = stack_.top();
			const struct blob_attr *cur = f.pos;
			if (f.rem < sizeof(struct blob_attr) || blob_pad_len(cur) < sizeof(struct blob_attr) ||
			    blob_pad_len(cur) > f.rem) {
				bool array = f.array;
				stack_.pop();
				level_--;
				separator();
				out_.put(array ? ']' : '}');
				continue;
			}
			f.rem -= blob_pad_len(cur);
			f.pos = blob_next(cur);
			bool array = f.array;
			if (!f.first) {
				out_.put(',');
				separator();
			}
			f.first = false;
			// f may dangle after element() pushes a frame; nothing below uses it.
			if (!element(const_cast<struct blob_attr *>(cur), array))
				return false;
		}
		return out_.ok();
	}

	bool empty() const { return out_.empty(); }
	char *release() { return out_.release(); }

private:
	// A new line and one tab per level, at most 16.
	void separator()
	{
		if (!pretty_)
			return;
		out_.put('\n');
		out_.tabs(level_ < 0 ? 0 : (level_ > 16 ? 16 : level_));
	}

	blobmsg_json_format_t cb_;
	void *priv_;
	bool pretty_;
	int level_;
	Text out_;
	FrameStack stack_;
};

// attr as a member (or only its value) of no container.
char *format_element(struct blob_attr *attr, bool without_name, blobmsg_json_format_t cb,
		     void *priv, int indent)
{
	if (!attr || blob_raw_len(attr) < sizeof(struct blob_attr))
		return nullptr;
	Formatter f(cb, priv, indent);
	if (!f.element(attr, without_name) || !f.run())
		return nullptr;
	// Nothing printed for an attribute with no payload: no text at all.
	if (f.empty() && blob_len(attr) == 0)
		return nullptr;
	return f.release();
}

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
	// A value that does not fit in the buffer is left out and the rest goes
	// on, as on the platform; only a failed nest fails the whole.
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
		blobmsg_add_string(b, name, json_object_get_string(obj));
		return true;
	case json_type_boolean:
		blobmsg_add_u8(b, name, json_object_get_boolean(obj) ? 1 : 0);
		return true;
	case json_type_int: {
		int64_t v = json_object_get_int64(obj);
		if (v >= INT32_MIN && v <= INT32_MAX)
			blobmsg_add_u32(b, name, static_cast<uint32_t>(static_cast<int32_t>(v)));
		else
			blobmsg_add_u64(b, name, static_cast<uint64_t>(v));
		return true;
	}
	case json_type_double:
		blobmsg_add_double(b, name, json_object_get_double(obj));
		return true;
	case json_type_null:
		blobmsg_add_field(b, BLOBMSG_TYPE_UNSPEC, name, nullptr, 0);
		return true;
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

} // extern "C"

namespace {

// Adds the members of a parsed top-level object, and drops the object.
bool add_parsed(struct blob_buf *b, json_object *obj)
{
	if (!obj)
		return false;
	bool ok = json_object_is_type(obj, json_type_object) && blobmsg_add_object(b, obj);
	json_object_put(obj);
	return ok;
}

} // namespace

extern "C" {

bool blobmsg_add_json_from_string(struct blob_buf *b, const char *str)
{
	return b && str && add_parsed(b, json_tokener_parse(str));
}

bool blobmsg_add_json_from_file(struct blob_buf *b, const char *file)
{
	return b && file && add_parsed(b, json_object_from_file(file));
}

char *blobmsg_format_json_with_cb(struct blob_attr *attr, bool list,
				  blobmsg_json_format_t cb, void *priv, int indent)
{
	if (!list)
		return format_element(attr, false, cb, priv, indent);
	// The members of attr, whatever its type, as far as its own length
	// goes; an extended attribute's name header must be in it.
	if (!attr || blob_raw_len(attr) < sizeof(struct blob_attr))
		return nullptr;
	if (blob_is_extended(attr) &&
	    (blob_len(attr) < sizeof(struct blobmsg_hdr) ||
	     static_cast<size_t>(blobmsg_hdrlen(blobmsg_namelen(static_cast<const struct blobmsg_hdr *>(blob_data(attr))))) >
		     blob_len(attr)))
		return nullptr;
	bool array = blob_is_extended(attr) && blobmsg_type(attr) == BLOBMSG_TYPE_ARRAY;
	Formatter f(cb, priv, indent);
	if (!f.open(static_cast<const struct blob_attr *>(blobmsg_data(attr)), blobmsg_data_len(attr), array) ||
	    !f.run())
		return nullptr;
	return f.release();
}

char *blobmsg_format_json_value_with_cb(struct blob_attr *attr, blobmsg_json_format_t cb,
					void *priv, int indent)
{
	return format_element(attr, true, cb, priv, indent);
}

} // extern "C"
