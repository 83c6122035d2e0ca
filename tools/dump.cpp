// blobxlate_dump: every converter over messages derived from the examples,
// and over records of patterned bytes, printed so that two builds can be
// compared with diff. A change that leaves the converters as they were
// leaves this output byte for byte as it was.
//
//   blobxlate_dump [EXAMPLES_DIR] > dump.txt
//
// Per case: the converter's result, the record's bytes that are not zero
// (received) or the sent tree's bytes (sent), and the trace lines with
// their line numbers masked.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

extern "C" {
#include <libubox/blobmsg_json.h>
}

#include "blobxlate.h"
#include "../core/catalogue.h"

namespace {

struct Type {
    int id;
    size_t size;
};

#define BX_LINE(type, sent, received, to_json, to_struct) \
    Type{type, sizeof(sent) > sizeof(received) ? sizeof(sent) : sizeof(received)},
const Type kTypes[] = {BX_CATALOGUE(BX_LINE)};
#undef BX_LINE

constexpr size_t kRecordRoom = 1 << 17;  // every record, and room to see a write past one
constexpr unsigned kStations = 64;

std::string g_trace;

// Where addresses a trace line prints may point: shown as offsets.
struct Area {
    const char *name;
    uintptr_t from;
    size_t len;
};
std::vector<Area> g_areas;

std::string addresses_masked(const char *text)
{
    std::string out;
    while (const char *hex = std::strstr(text, "0x")) {
        out.append(text, hex);
        char *end = nullptr;
        const uintptr_t v = std::strtoull(hex, &end, 16);
        const char *stop = end;
        std::string shown(hex, stop);
        for (const Area &a : g_areas)
            if (v >= a.from && v - a.from < a.len)
                shown = std::string(a.name) + "+" + std::to_string(v - a.from);
        out += shown;
        text = end;
    }
    return out + text;
}

// Trace lines with "[function.NNN]: " reduced to "[function]: ".
void sink(void *, const char *prefix, const char *text_in)
{
    const std::string text = addresses_masked(text_in);
    std::string p(prefix);
    const size_t dot = p.rfind('.');
    const size_t close = p.rfind(']');
    if (dot != std::string::npos && close != std::string::npos && dot < close)
        p.erase(dot, close - dot);
    g_trace += "  t " + p + text;
    if (g_trace.back() != '\n')
        g_trace += "\n";
}

void print_hex(const char *label, const uint8_t *p, size_t n)
{
    std::printf("  %s", label);
    for (size_t i = 0; i < n; ++i)
        std::printf("%s%02x", i % 32 == 0 ? "\n    " : "", p[i]);
    std::printf("\n");
}

// The runs of bytes that are not zero, each with its offset.
void print_nonzero(const uint8_t *p, size_t n)
{
    size_t i = 0;
    while (i < n) {
        while (i < n && p[i] == 0)
            ++i;
        if (i == n)
            break;
        size_t end = i;
        while (end < n && (p[end] != 0 || (end + 8 < n && std::memcmp(p + end, "\0\0\0\0\0\0\0\0", 8) != 0)))
            ++end;
        char label[32];
        std::snprintf(label, sizeof label, "rec@%zu:", i);
        print_hex(label, p + i, end - i);
        i = end;
    }
}

// ---- Messages derived from an example ---------------------------------------

enum class Act { None, Drop, Retype, LongText, LongList, OddElem, RepeatBefore, RepeatAfter, Malformed };

struct Edit {
    std::vector<int> at;  // child indices from the root down to the attribute edited
    Act act = Act::None;
    int arg = 0;
};

const char *name_of(blob_attr *a) { return blob_is_extended(a) ? blobmsg_name(a) : ""; }

bool nested(blob_attr *a) { return blobmsg_type(a) == BLOBMSG_TYPE_TABLE || blobmsg_type(a) == BLOBMSG_TYPE_ARRAY; }

// Another value of the given blobmsg type under the same name (type 9: a
// text without terminator).
void add_typed(blob_buf *b, const char *name, int type, int variant)
{
    switch (type) {
    case BLOBMSG_TYPE_UNSPEC: blobmsg_add_field(b, 0, name, "\x01\x02\x03", 3); break;
    case BLOBMSG_TYPE_ARRAY: {
        void *c = blobmsg_open_array(b, name);
        if (variant != 0)
            blobmsg_add_u32(b, nullptr, 1);
        blob_nest_end(b, c);
        break;
    }
    case BLOBMSG_TYPE_TABLE: {
        void *c = blobmsg_open_table(b, name);
        if (variant != 0)
            blobmsg_add_u32(b, "x", 1);
        blob_nest_end(b, c);
        break;
    }
    case BLOBMSG_TYPE_STRING: blobmsg_add_string(b, name, variant != 0 ? "zz" : "7"); break;
    case BLOBMSG_TYPE_INT64: blobmsg_add_u64(b, name, variant != 0 ? 0x1234567890ull : 7); break;
    case BLOBMSG_TYPE_INT32: blobmsg_add_u32(b, name, variant != 0 ? 0xfffffff0u : 7); break;
    case BLOBMSG_TYPE_INT16: blobmsg_add_u16(b, name, 7); break;
    case BLOBMSG_TYPE_INT8: blobmsg_add_u8(b, name, 1); break;
    case BLOBMSG_TYPE_DOUBLE: blobmsg_add_double(b, name, 7.5); break;
    default: blobmsg_add_field(b, BLOBMSG_TYPE_STRING, name, "abcd", 4); break;
    }
}

void copy_children(blob_buf *b, blob_attr *parent, std::vector<int> &path, const Edit &e);

void copy_nested(blob_buf *b, blob_attr *a, std::vector<int> &path, const Edit &e)
{
    void *c = blobmsg_open_nested(b, name_of(a), blobmsg_type(a) == BLOBMSG_TYPE_ARRAY);
    copy_children(b, a, path, e);
    blob_nest_end(b, c);
}

void add_long_list(blob_buf *b, blob_attr *a, int n)
{
    void *c = blobmsg_open_nested(b, name_of(a), blobmsg_type(a) == BLOBMSG_TYPE_ARRAY);
    blob_attr *first = nested(a) && blobmsg_data_len(a) >= 4 ? static_cast<blob_attr *>(blobmsg_data(a)) : nullptr;
    for (int i = 0; i < n; ++i) {
        if (first != nullptr)
            blobmsg_add_blob(b, first);
        else
            blobmsg_add_u32(b, nullptr, static_cast<uint32_t>(i));
    }
    blob_nest_end(b, c);
}

void add_odd_elem(blob_buf *b, blob_attr *a, int type)
{
    void *c = blobmsg_open_nested(b, name_of(a), blobmsg_type(a) == BLOBMSG_TYPE_ARRAY);
    std::vector<int> none;
    copy_children(b, a, none, Edit{});
    add_typed(b, blobmsg_type(a) == BLOBMSG_TYPE_ARRAY ? nullptr : "odd", type, 1);
    copy_children(b, a, none, Edit{});
    blob_nest_end(b, c);
}

void apply(blob_buf *b, blob_attr *a, const Edit &e)
{
    std::string text;
    switch (e.act) {
    case Act::Drop: return;
    case Act::Retype: add_typed(b, name_of(a), e.arg, 0); return;
    case Act::LongText:
        for (int i = 0; i < e.arg; ++i)
            text += static_cast<char>('a' + i % 26);
        blobmsg_add_string(b, name_of(a), text.c_str());
        return;
    case Act::LongList: add_long_list(b, a, e.arg); return;
    case Act::OddElem: add_odd_elem(b, a, e.arg); return;
    case Act::RepeatBefore: add_typed(b, name_of(a), blobmsg_type(a), 1); blobmsg_add_blob(b, a); return;
    case Act::RepeatAfter: blobmsg_add_blob(b, a); add_typed(b, name_of(a), blobmsg_type(a), 1); return;
    case Act::Malformed: blobmsg_add_field(b, BLOBMSG_TYPE_INT32, name_of(a), "ab", 2); blobmsg_add_blob(b, a); return;
    case Act::None: blobmsg_add_blob(b, a); return;
    }
}

bool prefix_of(const std::vector<int> &path, const std::vector<int> &at)
{
    return path.size() < at.size() && std::equal(path.begin(), path.end(), at.begin());
}

void copy_children(blob_buf *b, blob_attr *parent, std::vector<int> &path, const Edit &e)
{
    blob_attr *cur;
    size_t rem;
    int i = 0;
    blobmsg_for_each_attr(cur, parent, rem) {
        path.push_back(i++);
        if (path == e.at)
            apply(b, cur, e);
        else if (nested(cur) && prefix_of(path, e.at))
            copy_nested(b, cur, path, e);
        else
            blobmsg_add_blob(b, cur);
        path.pop_back();
    }
}

struct Case {
    std::string what;
    std::vector<uint8_t> msg;  // the message's root attribute
};

std::vector<uint8_t> build(blob_attr *root, const Edit &e)
{
    blob_buf b{};
    blob_buf_init(&b, 0);
    std::vector<int> path;
    blob_attr *cur;
    size_t rem;
    int i = 0;
    // The root is not extended: walk its payload as the converters do.
    rem = blob_len(root);
    __blob_for_each_attr(cur, blob_data(root), rem) {
        path.assign(1, i++);
        if (path == e.at)
            apply(&b, cur, e);
        else if (nested(cur) && prefix_of(path, e.at))
            copy_nested(&b, cur, path, e);
        else
            blobmsg_add_blob(&b, cur);
    }
    const auto *p = reinterpret_cast<const uint8_t *>(b.head);
    std::vector<uint8_t> out(p, p + blob_pad_len(b.head));
    blob_buf_free(&b);
    return out;
}

std::string where(const std::vector<int> &at)
{
    std::string s;
    for (int i : at)
        s += "/" + std::to_string(i);
    return s;
}

// The edits of one attribute at `at`.
void edits_of(blob_attr *a, const std::vector<int> &at, std::vector<Edit> &out)
{
    out.push_back({at, Act::Drop, 0});
    for (int t = 0; t <= 9; ++t)
        out.push_back({at, Act::Retype, t});
    out.push_back({at, Act::RepeatBefore, 0});
    out.push_back({at, Act::RepeatAfter, 0});
    out.push_back({at, Act::Malformed, 0});
    if (blobmsg_type(a) == BLOBMSG_TYPE_STRING) {
        for (int n : {15, 31, 63, 200, 1500})
            out.push_back({at, Act::LongText, n});
    }
    if (nested(a)) {
        for (int n : {3, 10, 70, 300})
            out.push_back({at, Act::LongList, n});
        for (int t = 0; t <= 9; ++t)
            out.push_back({at, Act::OddElem, t});
    }
}

// Every edit of the top-level attributes and of the first element of each
// list (and that element's members).
std::vector<Edit> edits_for(blob_attr *root)
{
    std::vector<Edit> out;
    blob_attr *cur;
    size_t rem;
    int i = 0;
    rem = blob_len(root);
    __blob_for_each_attr(cur, blob_data(root), rem) {
        const std::vector<int> at{i++};
        edits_of(cur, at, out);
        if (!nested(cur) || blobmsg_data_len(cur) < 4)
            continue;
        auto *first = static_cast<blob_attr *>(blobmsg_data(cur));
        edits_of(first, {at[0], 0}, out);
        blob_attr *m;
        size_t mrem;
        int k = 0;
        if (nested(first))
            blobmsg_for_each_attr(m, first, mrem) edits_of(m, {at[0], 0, k++}, out);
    }
    return out;
}

const char *act_name(Act a)
{
    static const char *const names[] = {"as-is", "drop", "retype", "long-text", "long-list",
                                        "odd-elem", "repeat-before", "repeat-after", "malformed-before"};
    return names[static_cast<int>(a)];
}

std::vector<Case> cases_for(blob_attr *root)
{
    std::vector<Case> out;
    out.push_back({"example", build(root, Edit{})});
    for (const Edit &e : edits_for(root))
        out.push_back({where(e.at) + " " + act_name(e.act) + " " + std::to_string(e.arg), build(root, e)});
    return out;
}

// ---- Running the converters ---------------------------------------------------

std::vector<uint8_t> g_record(kRecordRoom);
std::vector<StaEntry> g_stations(kStations);

void received(int type, const Case &c, unsigned capacity)
{
    std::fill(g_record.begin(), g_record.end(), 0);
    std::fill(g_stations.begin(), g_stations.end(), StaEntry{});
    auto *list = reinterpret_cast<StaListInfo *>(g_record.data());
    if (type == MSG_STA_LIST) {
        list->uiStaNumofEsps = capacity;
        list->pstListInfo = g_stations.data();
    }
    std::vector<uint8_t> msg = c.msg;
    g_areas = {{"msg", reinterpret_cast<uintptr_t>(msg.data()), msg.size()},
               {"stations", reinterpret_cast<uintptr_t>(g_stations.data()), kStations * sizeof(StaEntry)},
               {"rec", reinterpret_cast<uintptr_t>(g_record.data()), g_record.size()}};
    g_trace.clear();
    const int ret = JSON_TRANS_STRUCT(type, reinterpret_cast<blob_attr *>(msg.data()), g_record.data());
    std::printf("jts %d %s: %d\n", type, c.what.c_str(), ret);
    if (type == MSG_STA_LIST) {
        std::printf("  count %u, list %s\n", list->uiStaNumofEsps, list->pstListInfo == g_stations.data() ? "kept" : "moved");
        list->pstListInfo = nullptr;
        print_nonzero(reinterpret_cast<const uint8_t *>(g_stations.data()), kStations * sizeof(StaEntry));
    }
    print_nonzero(g_record.data(), g_record.size());
    if (type == MSG_STA_LIST)
        list->pstListInfo = g_stations.data();
    if (std::memcmp(msg.data(), c.msg.data(), msg.size()) != 0)
        std::printf("  message changed\n");
    std::fputs(g_trace.c_str(), stdout);
}

void sent(int type, const char *what)
{
    blob_buf b{};
    blob_buf_init(&b, 0);
    g_areas = {{"stations", reinterpret_cast<uintptr_t>(g_stations.data()), kStations * sizeof(StaEntry)},
               {"rec", reinterpret_cast<uintptr_t>(g_record.data()), g_record.size()}};
    g_trace.clear();
    const int ret = STRUCT_TRANS_JSON(type, g_record.data(), &b);
    std::printf("stj %d %s: %d\n", type, what, ret);
    print_hex("tree:", reinterpret_cast<const uint8_t *>(b.head), blob_raw_len(b.head));
    std::fputs(g_trace.c_str(), stdout);
    blob_buf_free(&b);
}

// Records of patterned bytes; the station list's entries live beside its
// record, with the count set to a few of them or to all.
void sent_patterns(int type)
{
    const std::vector<std::pair<const char *, std::function<uint8_t(size_t)>>> patterns = {
        {"zeros", [](size_t) { return uint8_t{0}; }},
        {"ones", [](size_t) { return uint8_t{0xff}; }},
        {"counting", [](size_t i) { return static_cast<uint8_t>(i * 7 + 1); }},
        {"small", [](size_t i) { return static_cast<uint8_t>(i % 4 == 0 ? i / 4 % 5 : 0); }},
        {"letters", [](size_t i) { return static_cast<uint8_t>(i % 13 == 12 ? 0 : 'a' + i % 26); }},
    };
    for (const auto &[name, byte] : patterns) {
        for (size_t i = 0; i < g_record.size(); ++i)
            g_record[i] = byte(i);
        for (size_t i = 0; i < kStations * sizeof(StaEntry); ++i)
            reinterpret_cast<uint8_t *>(g_stations.data())[i] = byte(i + 5);
        if (type == MSG_STA_LIST) {
            auto *list = reinterpret_cast<StaListInfo *>(g_record.data());
            list->pstListInfo = g_stations.data();
            list->uiStaNumofEsps = g_record[0] % 2 == 0 ? 3 : kStations;
        }
        sent(type, name);
    }
}

bool read_file(const std::string &path, std::string &out)
{
    std::ifstream in(path);
    if (!in)
        return false;
    std::stringstream s;
    s << in.rdbuf();
    out = s.str();
    return true;
}

void dump_type(const std::string &dir, int type)
{
    char name[32];
    std::snprintf(name, sizeof name, "/type%03d.json", type);
    std::string text;
    blob_buf b{};
    blob_buf_init(&b, 0);
    if (read_file(dir + name, text) && !blobmsg_add_json_from_string(&b, text.c_str()))
        std::printf("type %d: example is not JSON\n", type);
    std::vector<Case> cases = cases_for(b.head);
    cases.push_back({"empty", std::vector<uint8_t>{0, 0, 0, 4}});
    for (const Case &c : cases) {
        received(type, c, kStations);
        sent(type, ("back from " + c.what).c_str());
    }
    received(type, cases[0], 2);
    sent_patterns(type);
    blob_buf_free(&b);
}

} // namespace

int main(int argc, char **argv)
{
    std::string dir = argc > 1 ? argv[1] : std::string(__FILE__).substr(0, std::string(__FILE__).rfind('/')) + "/../examples/messages";
    BLOBXLATE_SetTraceSink(sink, nullptr);
    BLOBXLATE_SetTraceSwitch("/");  // exists everywhere: the trace is on
    for (const Type &t : kTypes) {
        if (t.size > kRecordRoom)
            std::printf("type %d: record of %zu bytes does not fit\n", t.id, t.size);
        else
            dump_type(dir, t.id);
    }
    return 0;
}
