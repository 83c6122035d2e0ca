#include "schema.h"

#include <json-c/json.h>

#include "description.h"
#include "kinds.h"

namespace bxtool {

namespace {

// A JSON object built member by member, freed unless handed on.
class Obj {
public:
    // A new object, or `adopted` to be added to.
    explicit Obj(json_object *adopted = nullptr) : obj_(adopted != nullptr ? adopted : json_object_new_object()) {}
    ~Obj() { json_object_put(obj_); }
    Obj(const Obj &) = delete;
    Obj &operator=(const Obj &) = delete;
    Obj &set(const char *key, json_object *value)
    {
        json_object_object_add(obj_, key, value);
        return *this;
    }
    Obj &set(const char *key, const char *text) { return set(key, json_object_new_string(text)); }
    Obj &set(const char *key, int64_t n) { return set(key, json_object_new_int64(n)); }
    json_object *get() const { return obj_; }
    json_object *release()
    {
        json_object *o = obj_;
        obj_ = nullptr;
        return o;
    }

private:
    json_object *obj_;
};

json_object *object_schema(const std::vector<BlobxlateField> &fields, int direction, const char *note,
                           json_object *head = nullptr);

// A pattern for a set of words joined by "/" (the wireless standards).
std::string word_set_pattern(const std::vector<std::string> &words)
{
    std::string one;
    for (const std::string &w : words)
        one += (one.empty() ? "" : "|") + w;
    return "^((" + one + ")(/(" + one + "))*)?$";
}

void string_schema(Obj &s, const BlobxlateField &f, int direction)
{
    s.set("type", "string");
    if (f.iEnumKind < 0) {
        s.set("maxLength", static_cast<int64_t>(max_length(f, direction)));
        return;
    }
    if (sends_decimal(f.iEnumKind) && direction == BLOBXLATE_TO_JSON) {
        s.set("pattern", "^-?[0-9]+$");
        return;
    }
    const std::vector<std::string> words = words_of(f, direction);
    if (f.iEnumKind == EnumStandard) {
        s.set("pattern", word_set_pattern(words).c_str());
        return;
    }
    if (words.empty())
        return;
    json_object *list = json_object_new_array();
    for (const std::string &w : words)
        json_object_array_add(list, json_object_new_string(w.c_str()));
    s.set("enum", list);
}

void number_schema(Obj &s, const BlobxlateField &f, int direction)
{
    const Bounds b = bounds_of(f, direction);
    s.set("type", "integer").set("minimum", b.lowest).set("maximum", b.highest);
    /* JSON text gives no number a blobmsg type of its own: one that fits
     * 32 bits becomes INT32, and an INT64 key is then read as 0. */
    if (f.iBlobType == BLOBMSG_TYPE_INT64 && direction == BLOBXLATE_TO_STRUCT)
        s.set("description", "read as INT64 only: a value from -2147483648 to 2147483647 made into blobmsg from JSON "
                             "text is INT32 and read as 0; send it with blobmsg_add_u64");
}

void list_schema(Obj &s, const BlobxlateField &f, int direction)
{
    const BlobxlateList &l = f.stList;
    s.set("type", "array");
    if (l.uiCapacity > 0)
        s.set("maxItems", static_cast<int64_t>(l.uiCapacity));
    const std::vector<BlobxlateField> entry = fields_of(l.pstEntry);
    json_object *items = l.iTables ? object_schema(entry, direction, nullptr) : nullptr;
    if (!l.iTables && !entry.empty()) {
        Obj value;
        if (entry[0].iBlobType == BLOBMSG_TYPE_STRING)
            string_schema(value, entry[0], direction);
        else
            number_schema(value, entry[0], direction);
        items = value.release();
    }
    /* Elements of any type are read as entries: the entry's bounds hold,
     * not its type. */
    if (l.iAnyType && items != nullptr)
        json_object_object_del(items, "type");
    if (items != nullptr)
        s.set("items", items);
}

const char *json_type_of(int blob_type)
{
    switch (blob_type) {
    case BLOBMSG_TYPE_STRING: return "string";
    case BLOBMSG_TYPE_ARRAY: return "array";
    case BLOBMSG_TYPE_TABLE: return "object";
    case BLOBMSG_TYPE_DOUBLE: return "number";
    case BLOBMSG_TYPE_BOOL: return "boolean";
    default: return "integer";
    }
}

// A key the converter looks for but never reads: any value of its type.
bool never_read(const BlobxlateField &f, int direction)
{
    return direction == BLOBXLATE_TO_STRUCT && f.iPresence >= BLOBXLATE_TESTED_ONLY;
}

json_object *field_schema(const BlobxlateField &f, int direction)
{
    Obj s;
    const bool read = !never_read(f, direction);
    if (read && f.iIsList)
        list_schema(s, f, direction);
    else if (read && f.iBlobType == BLOBMSG_TYPE_STRING)
        string_schema(s, f, direction);
    else if (read && (f.iBlobType == BLOBMSG_TYPE_INT32 || f.iBlobType == BLOBMSG_TYPE_INT64))
        number_schema(s, f, direction);
    else if (f.iBlobType != BLOBMSG_TYPE_UNSPEC)  // any value of its type; UNSPEC: any value
        s.set("type", json_type_of(f.iBlobType));
    if (f.pcNote != nullptr)
        s.set("description", f.pcNote);
    return s.release();
}

// Whether the converter of `direction` reads (or sends) the key.
bool takes(const BlobxlateField &f, int direction)
{
    return f.pcKey != nullptr && (direction == BLOBXLATE_TO_STRUCT || f.iSent);
}

// A key the message must carry: received, one the converter refuses the
// message without; sent, one sent whatever the record holds.
bool must_carry(const BlobxlateField &f, int direction)
{
    if (direction == BLOBXLATE_TO_STRUCT)
        return f.iPresence == BLOBXLATE_REQUIRED;
    return f.uiSentIf == 0 && f.pcNote == nullptr && !(f.iIsList && f.stList.iToFirstEmpty);
}

// The schema of a table, added to the members of `head` when given.
json_object *object_schema(const std::vector<BlobxlateField> &fields, int direction, const char *note,
                           json_object *head)
{
    Obj s(head), properties;
    json_object *required = json_object_new_array();
    s.set("type", "object");
    if (note != nullptr)
        s.set("description", note);
    for (const BlobxlateField &f : fields) {
        if (!takes(f, direction) || json_object_object_get_ex(properties.get(), f.pcKey, nullptr))
            continue;  // the first row of a key is the one its slot is parsed with
        properties.set(f.pcKey, field_schema(f, direction));
        if (must_carry(f, direction))
            json_object_array_add(required, json_object_new_string(f.pcKey));
    }
    s.set("properties", properties.release());
    if (json_object_array_length(required) > 0)
        s.set("required", required);
    else
        json_object_put(required);
    s.set("additionalProperties", json_object_new_boolean(0));
    return s.release();
}

// The keys the library sends for a type but does not read back: a message
// it sent itself passes, the keys ignored.
void allow_sent_keys(json_object *schema, int type)
{
    const std::optional<BlobxlateMessage> sent = describe(BLOBXLATE_TO_JSON, type);
    json_object *properties = json_object_object_get(schema, "properties");
    for (const BlobxlateField &f : sent ? fields_of(sent->pstFields) : std::vector<BlobxlateField>{}) {
        if (!takes(f, BLOBXLATE_TO_JSON) || json_object_object_get_ex(properties, f.pcKey, nullptr))
            continue;
        json_object *key = field_schema(f, BLOBXLATE_TO_JSON);
        json_object_object_add(key, "description", json_object_new_string("sent by the library, ignored when received"));
        json_object_object_add(properties, f.pcKey, key);
    }
}

// The keys the converter's policy parses that no field names (a
// hand-written converter's own; its note says what they do).
void allow_policy_keys(json_object *schema, int type)
{
    json_object *properties = json_object_object_get(schema, "properties");
    int count = 0;
    const blobmsg_policy *policy = BLOBXLATE_Policy(type, &count);
    for (int i = 0; i < count; ++i) {
        if (json_object_object_get_ex(properties, policy[i].name, nullptr))
            continue;
        BlobxlateField f{};
        f.pcKey = policy[i].name;
        f.iBlobType = policy[i].type;
        f.iPresence = BLOBXLATE_PARSED_ONLY;
        json_object_object_add(properties, f.pcKey, field_schema(f, BLOBXLATE_TO_STRUCT));
    }
}

json_object *message_schema(const MessageInfo &info, const BlobxlateMessage &msg)
{
    const std::string title = std::to_string(info.type) + " \"" + msg.pcName + "\", " +
                              (msg.iDirection == BLOBXLATE_TO_STRUCT ? "as JSON_TRANS_STRUCT reads it"
                                                                     : "as STRUCT_TRANS_JSON sends it");
    Obj head;
    head.set("$schema", "https://json-schema.org/draft/2020-12/schema").set("title", title.c_str());
    json_object *s = object_schema(fields_of(msg.pstFields), msg.iDirection, msg.pcNote, head.release());
    if (msg.iDirection == BLOBXLATE_TO_STRUCT) {
        allow_policy_keys(s, info.type);
        allow_sent_keys(s, info.type);
    }
    return s;
}

std::string text_of(json_object *obj)
{
    std::string text = json_object_to_json_string_ext(obj, JSON_C_TO_STRING_PRETTY | JSON_C_TO_STRING_SPACED | JSON_C_TO_STRING_NOSLASHESCAPE);
    json_object_put(obj);
    return text + "\n";
}

} // namespace

std::string schema_text(const MessageInfo &info, int direction)
{
    const std::optional<BlobxlateMessage> msg = describe(direction, info.type);
    return msg ? text_of(message_schema(info, *msg)) : "";
}

std::string all_schemas_text(int direction)
{
    Obj all;
    for (const MessageInfo &info : message_types())
        if (const std::optional<BlobxlateMessage> msg = describe(direction, info.type))
            all.set(std::to_string(info.type).c_str(), message_schema(info, *msg));
    return text_of(all.release());
}

} // namespace bxtool
