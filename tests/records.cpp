#include "records.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "blobxlate.h"

namespace bxtest {

// The library's own answer: the larger record where the two directions of a
// type differ. The layout test pins each record's size independently.
size_t record_size(int type) { return BLOBXLATE_RecordSize(type); }

Record::Record(int type, const uint8_t *bytes, size_t len)
{
    size_t size = record_size(type);
    if (size == 0)
        return;
    data_ = std::calloc(1, size);
    if (bytes != nullptr)
        std::memcpy(data_, bytes, std::min(len, size));
    if (type == MSG_STA_LIST) {
        // The caller's array and its capacity in entries.
        auto *list = static_cast<StaListInfo *>(data_);
        list->uiStaNumofEsps %= kStationCapacity + 1;
        stations_ = std::calloc(kStationCapacity, sizeof(StaEntry));
        list->pstListInfo = static_cast<StaEntry *>(stations_);
    }
}

Record::~Record()
{
    std::free(data_);
    std::free(stations_);
}

} // namespace bxtest
