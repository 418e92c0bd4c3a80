#pragma once

#include "klv/berLength.h"
#include "klv/gathering.h"
#include "util/check.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <utility>

inline namespace vexa_toolkit {

namespace mxfgc {

/// A system element, or an essence element without a buffer, that is longer isn't gathered.
constexpr std::uint64_t longestWholeElement = klvutil::longestInDefaultForm;

} // namespace mxfgc

/// Where the value of one essence element after another is put together: in a buffer of somebody
/// else's, or in its own, which is kept for the elements that follow. Its own grows when the first
/// part of an element has come: an announced length alone allocates little.
class EssenceBuffer {
public:
    /// Until the next use there is no room.
    void reset() { use(nullptr, 0); }

    void use(std::uint8_t* theirs, std::uint64_t length) {
        data_ = theirs;
        length_ = length;
        size_ = 0;
        isOwn_ = false;
    }

    void useOwn(std::uint64_t length) {
        size_ = 0;
        reserveOwn(std::min(length, klvutil::firstReserve));
        use(own_.get(), length);
        isOwn_ = true;
    }

    /// Where the whole value may be put from its first byte on; null where it must come in pieces,
    /// as there is no room for it yet.
    std::uint8_t* whole() const { return isOwn_ && length_ > ownCapacity_ ? nullptr : data_; }

    /// Bytes that were put at the end of the data already are only counted. The check is "valid
    /// essence buffer size".
    void append(const std::uint8_t* data, std::uint64_t size) {
        util::check(size <= length_ - size_, "valid essence buffer size");
        if (isOwn_) {
            reserveOwn(size_ == 0 ? size : length_);
            data_ = own_.get();
        }
        if (data != data_ + size_) {
            std::copy_n(data, size, data_ + size_);
        }
        size_ += size;
    }

    std::uint8_t* data() const { return data_; }
    std::uint64_t size() const { return size_; }

private:
    void reserveOwn(std::uint64_t capacity) {
        if (capacity > ownCapacity_) {
            const std::uint64_t larger =
                std::max(capacity, std::min(2 * ownCapacity_, mxfgc::longestWholeElement));
            std::unique_ptr<std::uint8_t[]> bytes(new std::uint8_t[larger]);
            std::copy_n(own_.get(), size_, bytes.get());
            own_ = std::move(bytes);
            ownCapacity_ = larger;
        }
    }

    std::uint8_t* data_ = nullptr;
    /// Of the element.
    std::uint64_t length_ = 0;
    std::uint64_t size_ = 0;
    bool isOwn_ = false;
    std::unique_ptr<std::uint8_t[]> own_;
    std::uint64_t ownCapacity_ = 0;
};

} // namespace vexa_toolkit
