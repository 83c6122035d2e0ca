// The size of each message type's record, and a record the way a caller
// hands it in: exactly that size (so that a sanitizer sees any access past
// it), with the station list's caller-owned array attached.
#ifndef BLOBXLATE_TESTS_RECORDS_H
#define BLOBXLATE_TESTS_RECORDS_H

#include <cstddef>
#include <cstdint>

namespace bxtest {

// 0 for numbers without a record.
size_t record_size(int type);

// Entries of the station list's array in the records made here.
constexpr uint32_t kStationCapacity = 8;

class Record {
public:
    // A zeroed record of the type, or with `bytes` copied over its start.
    explicit Record(int type, const uint8_t *bytes = nullptr, size_t len = 0);
    ~Record();
    Record(const Record &) = delete;
    Record &operator=(const Record &) = delete;
    void *get() { return data_; }
    bool valid() const { return data_ != nullptr; }

private:
    void *data_ = nullptr;
    void *stations_ = nullptr;
};

} // namespace bxtest

#endif
