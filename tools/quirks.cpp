#include "quirks.h"

#include "blobxlate.h"
#include "catalogue.h"
#include "core/catalogue.h"
#include "description.h"

namespace bxtool {

namespace {

// The converter function of each type and direction, by its catalogue name.
struct Converters {
    int type;
    const char *to_json;
    const char *to_struct;
};

#define BX_ROW(position, name, converter) #converter
#define BX_NO_ROW nullptr
#define BX_LINE(type, sent, received, to_json, to_struct) Converters{type, to_json, to_struct},
constexpr Converters kConverters[] = {BX_CATALOGUE(BX_LINE)};
#undef BX_LINE
#undef BX_NO_ROW
#undef BX_ROW

const char *converter_of(int type, int direction)
{
    for (const Converters &c : kConverters)
        if (c.type == type)
            return direction == BLOBXLATE_TO_JSON ? c.to_json : c.to_struct;
    return nullptr;
}

struct Place {
    std::string head;  // type, direction and converter
    std::string text;  // what has been found so far
};

void add_line(Place &p, const std::string &path, const char *note)
{
    p.text += p.head + "\t" + path + "\t" + note + "\n";
}

void add_fields(Place &p, const BlobxlateFields *fields, const std::string &prefix)
{
    for (const BlobxlateField &f : fields_of(fields)) {
        const std::string path = prefix + (f.pcKey != nullptr ? f.pcKey : "");
        if (f.pcNote != nullptr)
            add_line(p, path.empty() ? "(value)" : path, f.pcNote);
        if (f.iIsList)
            add_fields(p, f.stList.pstEntry, path + "[]" + (f.stList.iTables ? "." : ""));
    }
}

} // namespace

std::string quirks_text()
{
    Place p;
    for (const MessageInfo &info : message_types()) {
        for (int direction : {BLOBXLATE_TO_STRUCT, BLOBXLATE_TO_JSON}) {
            const std::optional<BlobxlateMessage> msg = describe(direction, info.type);
            if (!msg)
                continue;
            p.head = std::to_string(info.type) + (direction == BLOBXLATE_TO_STRUCT ? "\tto-struct\t" : "\tto-json\t") +
                     converter_of(info.type, direction);
            if (msg->pcNote != nullptr)
                add_line(p, "-", msg->pcNote);
            add_fields(p, msg->pstFields, "");
        }
    }
    return p.text;
}

} // namespace bxtool
