/* The two dispatch tables, built from the catalogue in row order. The row
 * order and the name texts are part of the interface (the name texts appear
 * in the dispatchers' trace lines). Both tables end with a closing row that
 * the dispatchers' inclusive scan may look at but never matches. */
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <type_traits>

#include "blobxlate.h"
#include "core/catalogue.h"
#include "core/tables.h"
#include "core/trace.h"

namespace {

int closing_row_to_json(const void *, struct blob_buf *) { return 0; }
int closing_row_to_struct(struct blob_attr *, void *) { return 0; }

/* A type without a row in one direction. */
struct NoRow {};

template <typename Fn>
struct Row {
    int16_t position; /* -1: no row in this direction */
    const char *name;
    Fn converter;

    constexpr Row(int16_t at, const char *text, Fn fn) : position(at), name(text), converter(fn) {}
    constexpr Row(NoRow) : position(-1), name(nullptr), converter(nullptr) {}
};

template <typename Fn>
constexpr Row<Fn> row(int16_t position, const char *name, Fn converter)
{
    return {position, name, converter};
}

struct Line {
    int32_t type;
    size_t record_size;
    Row<StructToJsonFunc> to_json;
    Row<JsonToStructFunc> to_struct;
};


#define BX_ROW(position, name, converter) row(position, name, converter)
#define BX_NO_ROW NoRow{}
/* A caller's record must hold the larger of the two. */
#define BX_LINE(type, sent, received, to_json, to_struct) \
    Line{type, sizeof(sent) > sizeof(received) ? sizeof(sent) : sizeof(received), to_json, to_struct},
constexpr Line kCatalogue[] = {BX_CATALOGUE(BX_LINE)};
#undef BX_LINE
#undef BX_NO_ROW
#undef BX_ROW

/* The rows of one direction: the catalogue lines with a position in it. */
template <typename Fn>
constexpr size_t rows_in(Row<Fn> Line::*side)
{
    size_t rows = 0;
    for (const Line &line : kCatalogue)
        rows += (line.*side).position >= 0 ? 1 : 0;
    return rows;
}
constexpr size_t kToJsonRows = rows_in(&Line::to_json);
constexpr size_t kToStructRows = rows_in(&Line::to_struct);

/* One catalogue line per type, each number inside the range. */
constexpr bool each_type_once()
{
    for (size_t i = 0; i < std::size(kCatalogue); ++i) {
        if (kCatalogue[i].type < bx::kFirstMessageType)
            return false;
        for (size_t j = i + 1; j < std::size(kCatalogue); ++j)
            if (kCatalogue[j].type == kCatalogue[i].type)
                return false;
    }
    return true;
}
static_assert(each_type_once(), "a message type with two catalogue lines, or a negative number");

template <typename Fn, size_t N>
struct Table {
    MessageTransEntry rows[N + 1];
};

/* The rows of one direction at their positions, then the closing row. */
template <typename Fn, size_t N>
constexpr Table<Fn, N> build(Row<Fn> Line::*side, Fn closing)
{
    Table<Fn, N> t{};
    for (const Line &line : kCatalogue) {
        const Row<Fn> &row = line.*side;
        if (row.position < 0)
            continue;
        MessageTransEntry &e = t.rows[row.position];
        e.name = row.name;
        e.id = line.type;
        if constexpr (std::is_same_v<Fn, StructToJsonFunc>)
            e.converter.toJson = row.converter;
        else
            e.converter.toStruct = row.converter;
    }
    t.rows[N] = MessageTransEntry{nullptr, bx::kClosingRowId, {}};
    if constexpr (std::is_same_v<Fn, StructToJsonFunc>)
        t.rows[N].converter.toJson = closing;
    else
        t.rows[N].converter.toStruct = closing;
    return t;
}

/* Every position of a table filled exactly once: no position used twice,
 * none left empty. */
template <typename Fn>
constexpr bool filled_once(Row<Fn> Line::*side, size_t rows)
{
    for (size_t position = 0; position < rows; ++position) {
        size_t uses = 0;
        for (const Line &line : kCatalogue)
            uses += (line.*side).position == static_cast<int16_t>(position) ? 1 : 0;
        if (uses != 1)
            return false;
    }
    size_t total = 0;
    for (const Line &line : kCatalogue)
        total += (line.*side).position >= 0 ? 1 : 0;
    return total == rows;
}
static_assert(filled_once(&Line::to_json, kToJsonRows), "struct-to-JSON positions");
static_assert(filled_once(&Line::to_struct, kToStructRows), "JSON-to-struct positions");

/* The record sizes by type, without the catalogue's pointers: a table the
 * loader relocates is a private copy in every process that loads the
 * library. */
struct RecordSizes {
    uint32_t size[bx::kLastMessageType + 1];
};
constexpr RecordSizes record_sizes()
{
    RecordSizes sizes{};
    for (const Line &line : kCatalogue) {
        if (line.type >= bx::kFirstMessageType && line.type <= bx::kLastMessageType)
            sizes.size[line.type] = static_cast<uint32_t>(line.record_size);
    }
    return sizes;
}
constexpr RecordSizes kRecordSizes = record_sizes();

/* Each type's row in each direction, by type: the row a scan of the
 * exported table would stop at (every type has one line and every row one
 * position), found without the scan. */
constexpr uint8_t kNoRow = 0xFF;
struct Positions {
    uint8_t at[2][bx::kLastMessageType + 1];
};
constexpr Positions positions()
{
    Positions p{};
    for (auto &direction : p.at)
        for (uint8_t &at : direction)
            at = kNoRow;  /* no line for the type */
    for (const Line &line : kCatalogue) {
        p.at[BLOBXLATE_TO_JSON][line.type] = line.to_json.position >= 0 ? static_cast<uint8_t>(line.to_json.position) : kNoRow;
        p.at[BLOBXLATE_TO_STRUCT][line.type] =
            line.to_struct.position >= 0 ? static_cast<uint8_t>(line.to_struct.position) : kNoRow;
    }
    return p;
}
static_assert(kToJsonRows < kNoRow && kToStructRows < kNoRow, "a row position fits a byte");
constexpr Positions kPositions = positions();

constexpr auto kToJson = build<StructToJsonFunc, kToJsonRows>(&Line::to_json, closing_row_to_json);
constexpr auto kToStruct = build<JsonToStructFunc, kToStructRows>(&Line::to_struct, closing_row_to_struct);

} // namespace

/* The exported arrays are plain C arrays: their rows are copied in from the
 * tables built above, position by position, at compile time. */
#define BX_ROWS_TEN(F, at) F(at + 0) F(at + 1) F(at + 2) F(at + 3) F(at + 4) \
    F(at + 5) F(at + 6) F(at + 7) F(at + 8) F(at + 9)
#define BX_ROWS_160(F) BX_ROWS_TEN(F, 0) BX_ROWS_TEN(F, 10) BX_ROWS_TEN(F, 20) BX_ROWS_TEN(F, 30) \
    BX_ROWS_TEN(F, 40) BX_ROWS_TEN(F, 50) BX_ROWS_TEN(F, 60) BX_ROWS_TEN(F, 70) BX_ROWS_TEN(F, 80) \
    BX_ROWS_TEN(F, 90) BX_ROWS_TEN(F, 100) BX_ROWS_TEN(F, 110) BX_ROWS_TEN(F, 120) BX_ROWS_TEN(F, 130) \
    BX_ROWS_TEN(F, 140) BX_ROWS_TEN(F, 150)
#define BX_TO_JSON(i) kToJson.rows[i],
#define BX_TO_STRUCT(i) kToStruct.rows[i],

extern "C" {

constinit const MessageTransEntry g_astStructToJson_Func[] = {BX_ROWS_160(BX_TO_JSON) kToJson.rows[160]};
const int32_t g_iStructToJson_FuncNum =
    static_cast<int32_t>(sizeof g_astStructToJson_Func / sizeof g_astStructToJson_Func[0]) - 1;

/* One row fewer: the 160th entry is the closing row. */
constinit const MessageTransEntry g_astJsonToStruct_Func[] = {BX_ROWS_160(BX_TO_STRUCT)};
const int32_t g_iJsonToStruct_FuncNum =
    static_cast<int32_t>(sizeof g_astJsonToStruct_Func / sizeof g_astJsonToStruct_Func[0]) - 1;

/* A catalogue line that adds a row to a table needs one more row copied
 * into the exported array above (BX_ROWS_160 and the row after it). */
static_assert(sizeof g_astStructToJson_Func / sizeof g_astStructToJson_Func[0] == kToJsonRows + 1,
              "g_astStructToJson_Func copies a row count other than the catalogue's");
static_assert(sizeof g_astJsonToStruct_Func / sizeof g_astJsonToStruct_Func[0] == kToStructRows + 1,
              "g_astJsonToStruct_Func copies a row count other than the catalogue's");

/* The row whose id is the type, as a scan of the table would find it: the
 * closing row's id is outside the message numbers and types outside them
 * are turned away first, so it is never the answer. */
BX_API const MessageTransEntry *BLOBXLATE_FindRow(int iDirection, int iType)
{
    BX_TRACE_CALL();
    if (iType < bx::kFirstMessageType || iType > bx::kLastMessageType)
        return nullptr;
    const MessageTransEntry *table = iDirection == BLOBXLATE_TO_JSON     ? g_astStructToJson_Func
                                   : iDirection == BLOBXLATE_TO_STRUCT ? g_astJsonToStruct_Func
                                                                       : nullptr;
    if (table == nullptr)
        return nullptr;
    const uint8_t at = kPositions.at[iDirection][iType];
    return at != kNoRow ? &table[at] : nullptr;
}

BX_API size_t BLOBXLATE_RecordSize(int iType)
{
    BX_TRACE_CALL();
    if (iType < bx::kFirstMessageType || iType > bx::kLastMessageType)
        return 0;
    return kRecordSizes.size[iType];
}

} // extern "C"
