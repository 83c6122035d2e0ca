#include "description.h"

#include <algorithm>
#include <cstring>

#include "kinds.h"

namespace bxtool {

namespace {

constexpr int64_t kInt32Min = INT32_MIN;
constexpr int64_t kInt32Max = INT32_MAX;

bool is_type(const BlobxlateField &f, const char *ctype) { return std::strcmp(f.szCType, ctype) == 0; }

} // namespace

std::vector<BlobxlateField> fields_of(const BlobxlateFields *fields)
{
    std::vector<BlobxlateField> out(static_cast<size_t>(BLOBXLATE_FieldCount(fields)));
    for (size_t i = 0; i < out.size(); ++i)
        BLOBXLATE_Field(fields, static_cast<int>(i), &out[i]);
    return out;
}

std::optional<BlobxlateMessage> describe(int direction, int type)
{
    BlobxlateMessage msg{};
    if (BLOBXLATE_Describe(direction, type, &msg) != 0)
        return std::nullopt;
    return msg;
}

Bounds bounds_of(const BlobxlateField &f, int direction)
{
    Bounds b{kInt32Min, kInt32Max};
    if (f.iBlobType == BLOBMSG_TYPE_INT64)
        b = {INT64_MIN, INT64_MAX};
    /* Members narrower than the number keep its low bytes. */
    if (is_type(f, "uint8_t"))
        b = {0, UINT8_MAX};
    else if (is_type(f, "uint16_t"))
        b = {0, UINT16_MAX};
    /* JSON text reaches an unsigned member as a number of its own sign; the
     * message prints every number signed. */
    else if (direction == BLOBXLATE_TO_STRUCT && f.szCType[0] == 'u')
        b.lowest = 0;
    if (f.iRangeCheck != BLOBXLATE_RANGE_NONE && direction == BLOBXLATE_TO_STRUCT) {
        b.lowest = std::max<int64_t>(b.lowest, f.uiLowest);
        b.highest = std::min<int64_t>(b.highest, f.uiHighest);
    }
    return b;
}

std::vector<std::string> words_of(const BlobxlateField &f, int direction)
{
    std::vector<std::string> words;
    const bool ranged = f.iRangeCheck != BLOBXLATE_RANGE_NONE;
    for (const KindWord &w : sent_words(f.iEnumKind)) {
        const bool kept = !ranged || (static_cast<uint32_t>(w.reads_as) >= f.uiLowest &&
                                      static_cast<uint32_t>(w.reads_as) <= f.uiHighest);
        if (direction == BLOBXLATE_TO_JSON || (w.reads_as == w.sent_for && kept))
            words.push_back(w.word);
    }
    if (direction == BLOBXLATE_TO_JSON && !sends_decimal(f.iEnumKind))
        words.push_back(fallback_word(f.iEnumKind));
    std::vector<std::string> once;
    for (const std::string &w : words)
        if (std::find(once.begin(), once.end(), w) == once.end())
            once.push_back(w);
    return once;
}

uint32_t max_length(const BlobxlateField &f, int direction)
{
    return direction == BLOBXLATE_TO_JSON || f.iWholeText ? f.uiSize : f.uiSize - 1;
}

const char *blob_type_name(int blob_type)
{
    switch (blob_type) {
    case BLOBMSG_TYPE_ARRAY: return "ARRAY";
    case BLOBMSG_TYPE_TABLE: return "TABLE";
    case BLOBMSG_TYPE_STRING: return "STRING";
    case BLOBMSG_TYPE_INT64: return "INT64";
    case BLOBMSG_TYPE_INT32: return "INT32";
    case BLOBMSG_TYPE_INT16: return "INT16";
    case BLOBMSG_TYPE_INT8: return "INT8";
    case BLOBMSG_TYPE_DOUBLE: return "DOUBLE";
    default: return "any";
    }
}

const char *presence_name(int presence)
{
    static const char *const names[] = {"optional", "required", "reported", "tested only", "listed only",
                                        "parsed only"};
    return presence >= 0 && presence < static_cast<int>(std::size(names)) ? names[presence] : "?";
}

} // namespace bxtool
