#pragma once

#include "gc/keys.h"
#include "util/check.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>

/// Where the value of one essence element after another is put together: in a buffer of somebody
/// else's, or in its own, which is kept for the elements that follow.
class EssenceBuffer {
public:
    /// Until the next use there is no room.
    void reset() { use(nullptr, 0); }

    void use(std::uint8_t* theirs, std::uint64_t length) {
        data_ = theirs;
        capacity_ = length;
        size_ = 0;
    }

    /// At most mxfgc::longestWholeElement bytes, so that an announced length allocates no more than
    /// 16 MiB. They aren't touched before they arrive.
    void useOwn(std::uint64_t length) {
        if (length > ownCapacity_) {
            const std::uint64_t doubled = std::min(2 * ownCapacity_, mxfgc::longestWholeElement);
            ownCapacity_ = 0;
            own_.reset();
            const std::uint64_t capacity = std::max(length, doubled);
            own_.reset(new std::uint8_t[capacity]);
            ownCapacity_ = capacity;
        }
        use(own_.get(), length);
    }

    /// Bytes that were put at the end of the data already are only counted. The check is "valid
    /// essence buffer size".
    void append(const std::uint8_t* data, std::uint64_t size) {
        util::check(size <= capacity_ - size_, "valid essence buffer size");
        if (data != data_ + size_) {
            std::copy_n(data, size, data_ + size_);
        }
        size_ += size;
    }

    std::uint8_t* data() const { return data_; }
    std::uint64_t size() const { return size_; }

private:
    std::uint8_t* data_ = nullptr;
    std::uint64_t capacity_ = 0;
    std::uint64_t size_ = 0;
    std::unique_ptr<std::uint8_t[]> own_;
    std::uint64_t ownCapacity_ = 0;
};
