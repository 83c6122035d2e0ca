#include "catalogue.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdlib>

#include "blobxlate.h"
#include "core/catalogue.h"
#include "core/tables.h"

namespace bxtool {

namespace {

constexpr int kFirstType = bx::kFirstMessageType;
constexpr int kLastType = bx::kLastMessageType;

// The record of each type, for each direction, from the library's catalogue.
struct RecordRow {
    int type;
    const char *to_json;
    size_t to_json_size;
    const char *to_struct;
    size_t to_struct_size;
};

#define BX_LINE(type, sent, received, to_json, to_struct) \
    RecordRow{type, #sent, sizeof(sent), #received, sizeof(received)},
constexpr RecordRow kRecords[] = {BX_CATALOGUE(BX_LINE)};
#undef BX_LINE

const char *row_name(const MessageTransEntry *table, int count, int type)
{
    for (int i = 0; i < count; ++i)
        if (table[i].id == type)
            return table[i].name;
    return nullptr;
}

std::optional<MessageInfo> info_of(int type)
{
    MessageInfo info{type, row_name(g_astStructToJson_Func, g_iStructToJson_FuncNum, type),
                     row_name(g_astJsonToStruct_Func, g_iJsonToStruct_FuncNum, type), "?", "?", 0};
    if (info.to_json_name == nullptr && info.to_struct_name == nullptr)
        return std::nullopt;
    for (const RecordRow &r : kRecords) {
        if (r.type == type) {
            info.to_json_record = r.to_json;
            info.to_struct_record = r.to_struct;
            info.record_size = std::max(r.to_json_size, r.to_struct_size);
        }
    }
    return info;
}

std::string lower(std::string s)
{
    std::transform(s.begin(), s.end(), s.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return s;
}

size_t edit_distance(const std::string &a, const std::string &b)
{
    std::vector<size_t> row(b.size() + 1);
    for (size_t j = 0; j <= b.size(); ++j)
        row[j] = j;
    for (size_t i = 1; i <= a.size(); ++i) {
        size_t diagonal = row[0];
        row[0] = i;
        for (size_t j = 1; j <= b.size(); ++j) {
            size_t above = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, diagonal + (a[i - 1] == b[j - 1] ? 0 : 1)});
            diagonal = above;
        }
    }
    return row[b.size()];
}

bool is_number(const std::string &text)
{
    size_t digits = text.find_first_not_of('-') == 1 ? 1 : 0;
    return text.size() > digits && text.find_first_not_of("0123456789", digits) == std::string::npos;
}

struct Candidate {
    size_t distance;
    int type;
    std::string name;
    bool operator<(const Candidate &o) const { return distance != o.distance ? distance < o.distance : type < o.type; }
};

// Names within a few edits of the text, or containing it.
std::string close_matches(const std::string &wanted, const std::vector<MessageInfo> &types)
{
    std::vector<Candidate> found;
    for (const MessageInfo &info : types) {
        for (const char *name : {info.to_json_name, info.to_struct_name}) {
            if (name == nullptr)
                continue;
            std::string key = lower(name);
            size_t d = key.find(wanted) != std::string::npos ? 0 : edit_distance(wanted, key);
            Candidate c{d, info.type, name};
            if (d <= std::max<size_t>(2, wanted.size() / 3) &&
                std::none_of(found.begin(), found.end(), [&](const Candidate &f) { return f.type == c.type && f.name == c.name; }))
                found.push_back(c);
        }
    }
    std::sort(found.begin(), found.end());
    std::string text;
    for (size_t i = 0; i < found.size() && i < 5; ++i)
        text += (i == 0 ? "" : ", ") + std::to_string(found[i].type) + " \"" + found[i].name + "\"";
    return text.empty() ? "none (blobxlate list shows them all)" : text;
}

// The names a type goes by: its name texts and records.
std::vector<std::string> names_of(const MessageInfo &info)
{
    std::vector<std::string> names{info.to_json_record, info.to_struct_record};
    for (const char *name : {info.to_json_name, info.to_struct_name})
        if (name != nullptr)
            names.emplace_back(name);
    return names;
}

// The words of a name: split at spaces, underscores and digits, and before
// each capital that follows a small letter ("StaListInfo": Sta List Info).
std::vector<std::string> name_words(const std::string &name)
{
    std::vector<std::string> words(1);
    for (size_t i = 0; i < name.size(); ++i) {
        const auto c = static_cast<unsigned char>(name[i]);
        const bool starts = std::isupper(c) && i > 0 && std::islower(static_cast<unsigned char>(name[i - 1]));
        if (!std::isalpha(c) || starts)
            words.emplace_back();
        if (std::isalpha(c))
            words.back() += static_cast<char>(std::tolower(c));
    }
    return words;
}

bool contains(const MessageInfo &info, const std::string &word)
{
    const std::vector<std::string> names = names_of(info);
    return std::any_of(names.begin(), names.end(), [&](const std::string &n) { return lower(n).find(word) != std::string::npos; });
}

// An abbreviation is three letters at least.
bool abbreviates(const MessageInfo &info, const std::string &word)
{
    for (const std::string &name : names_of(info))
        for (const std::string &w : name_words(name))
            if (w.size() >= 3 && word.compare(0, w.size(), w) == 0)
                return true;
    return false;
}

} // namespace

std::vector<MessageInfo> types_named_like(const std::string &word)
{
    const std::string wanted = lower(word);
    std::vector<MessageInfo> found;
    for (auto *test : {&contains, &abbreviates}) {
        for (const MessageInfo &info : message_types())
            if ((*test)(info, wanted))
                found.push_back(info);
        if (!found.empty())
            break;
    }
    return found;
}

std::vector<MessageInfo> message_types()
{
    std::vector<MessageInfo> types;
    for (int type = kFirstType; type <= kLastType; ++type)
        if (auto info = info_of(type))
            types.push_back(*info);
    return types;
}

std::optional<MessageInfo> find_type(const std::string &text, std::string &error)
{
    if (is_number(text)) {
        errno = 0;
        long type = std::strtol(text.c_str(), nullptr, 10);
        std::optional<MessageInfo> info;
        if (errno == 0 && type >= kFirstType && type <= kLastType)
            info = info_of(static_cast<int>(type));
        if (!info)
            error = "unknown message type " + text;
        return info;
    }
    const std::string wanted = lower(text);
    const std::vector<MessageInfo> types = message_types();
    std::vector<MessageInfo> named;
    for (const MessageInfo &info : types)
        if ((info.to_json_name != nullptr && lower(info.to_json_name) == wanted) ||
            (info.to_struct_name != nullptr && lower(info.to_struct_name) == wanted))
            named.push_back(info);
    if (named.size() == 1)
        return named.front();
    if (named.empty()) {
        error = "unknown message type \"" + text + "\"; close matches: " + close_matches(wanted, types);
        return std::nullopt;
    }
    error = "message type \"" + text + "\" names more than one type, give the number:";
    for (const MessageInfo &info : named)
        error += " " + std::to_string(info.type);
    return std::nullopt;
}

} // namespace bxtool
