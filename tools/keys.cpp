#include "keys.h"

#include <algorithm>
#include <cstdio>
#include <vector>

#include "description.h"
#include "kinds.h"

namespace bxtool {

namespace {

struct Row {
    std::string path, blob, member, read = "-", sent = "-", values, list;
};

struct Table {
    std::vector<Row> rows;
    std::vector<std::string> notes;
};

std::string code(const std::string &text) { return "`" + text + "`"; }

std::string read_presence(const BlobxlateField &f)
{
    if (f.iPresence == BLOBXLATE_REQUIRED)
        return "required (refused: " + std::to_string(f.iRefusedRet) + ")";
    return presence_name(f.iPresence);
}

std::string sent_presence(const BlobxlateField &f)
{
    if (!f.iSent)
        return "-";
    char mask[40];
    std::snprintf(mask, sizeof mask, "while the mask has 0x%x", f.uiSentIf);
    return f.uiSentIf != 0 ? mask : "always";
}

std::string words_text(const BlobxlateField &f, int direction)
{
    std::string text = code(kind_name(f.iEnumKind));
    if (sends_decimal(f.iEnumKind) && direction == BLOBXLATE_TO_JSON)
        return text + ": decimal numbers";
    const char *sep = ": ";
    for (const std::string &w : words_of(f, direction)) {
        text += sep + (w.empty() ? "\"\"" : w);
        sep = ", ";
    }
    return text;
}

std::string values_text(const BlobxlateField &f, int direction)
{
    if (f.iEnumKind >= 0)
        return words_text(f, direction);
    if (f.iBlobType == BLOBMSG_TYPE_STRING && !f.iIsList && f.szCType[0] == 'c')
        return "up to " + std::to_string(max_length(f, direction)) + " characters";
    if (f.iRangeCheck == BLOBXLATE_RANGE_NONE || direction == BLOBXLATE_TO_JSON)
        return "";
    return std::to_string(f.uiLowest) + ".." + std::to_string(f.uiHighest) +
           (f.iRangeCheck == BLOBXLATE_RANGE_BEFORE ? " (refused outside)" : " (stored, then refused outside)");
}

// The key whose member holds a list's count, found among its neighbours.
std::string count_key(const std::vector<BlobxlateField> &fields, int32_t at)
{
    for (const BlobxlateField &f : fields)
        if (f.pcMember != nullptr && static_cast<int32_t>(f.uiOffset) == at && f.pcKey != nullptr)
            return ", counted by " + code(f.pcKey);
    return at >= 0 ? ", counted by the record" : "";
}

std::string list_text(const BlobxlateField &f, const std::vector<BlobxlateField> &fields)
{
    if (!f.iIsList)
        return "";
    const BlobxlateList &l = f.stList;
    return (l.uiCapacity > 0 ? std::to_string(l.uiCapacity) : std::string("the caller's array")) +
           count_key(fields, l.iCountAt);
}

Row &row_for(Table &t, const std::string &path, const BlobxlateField &f)
{
    const std::string blob = blob_type_name(f.iBlobType);
    const std::string member = f.pcMember != nullptr ? code(f.pcMember) + " " + f.szCType : "";
    for (Row &r : t.rows)
        if (r.path == path && r.blob == blob && r.member == member)
            return r;
    t.rows.push_back(Row{path, blob, member, "-", "-", "", ""});
    return t.rows.back();
}

void add_fields(Table &t, const std::vector<BlobxlateField> &fields, const std::string &prefix, int direction)
{
    for (const BlobxlateField &f : fields) {
        const std::string path = prefix + (f.pcKey != nullptr ? f.pcKey : "");
        Row &r = row_for(t, path.empty() ? "(value)" : path, f);
        (direction == BLOBXLATE_TO_STRUCT ? r.read : r.sent) =
            direction == BLOBXLATE_TO_STRUCT ? read_presence(f) : sent_presence(f);
        if (r.values.empty() || direction == BLOBXLATE_TO_STRUCT)
            r.values = values_text(f, direction);
        r.list = list_text(f, fields);
        const std::string note = f.pcNote != nullptr ? "- " + code(path) + ": " + f.pcNote : "";
        if (!note.empty() && std::find(t.notes.begin(), t.notes.end(), note) == t.notes.end())
            t.notes.push_back(note);
        if (f.iIsList)
            add_fields(t, fields_of(f.stList.pstEntry), path + "[]" + (f.stList.iTables ? "." : ""), direction);
    }
}

// The keys the converter's policy parses that no field names: a
// hand-written converter's own, its note says what it does with them.
void add_policy_keys(Table &t, int type)
{
    int count = 0;
    const blobmsg_policy *policy = BLOBXLATE_Policy(type, &count);
    for (int i = 0; i < count; ++i) {
        const std::string path = policy[i].name;
        if (std::none_of(t.rows.begin(), t.rows.end(), [&](const Row &r) { return r.path == path; }))
            t.rows.push_back(Row{path, blob_type_name(policy[i].type), "", "parsed (see the note)", "-", "", ""});
    }
}

std::string escaped(const std::string &cell)
{
    std::string out;
    for (char c : cell)
        out += c == '|' ? std::string("\\|") : std::string(1, c);
    return out;
}

} // namespace

std::string keys_text(const MessageInfo &info)
{
    Table t;
    for (int direction : {BLOBXLATE_TO_STRUCT, BLOBXLATE_TO_JSON}) {
        if (const std::optional<BlobxlateMessage> msg = describe(direction, info.type)) {
            add_fields(t, fields_of(msg->pstFields), "", direction);
            if (direction == BLOBXLATE_TO_STRUCT)
                add_policy_keys(t, info.type);
            if (msg->pcNote != nullptr)
                t.notes.push_back(std::string("- ") + (direction == BLOBXLATE_TO_STRUCT ? "Received" : "Sent") +
                                  ": " + msg->pcNote);
        }
    }
    std::string text = "| Key | Blobmsg type | Member | Read | Sent | Words or range | List |\n"
                       "|---|---|---|---|---|---|---|\n";
    for (const Row &r : t.rows)
        text += "| " + code(r.path) + " | " + r.blob + " | " + escaped(r.member) + " | " + r.read + " | " + r.sent +
                " | " + escaped(r.values) + " | " + r.list + " |\n";
    if (!t.notes.empty())
        text += "\n";
    for (const std::string &note : t.notes)
        text += note + "\n";
    return text;
}

} // namespace bxtool
