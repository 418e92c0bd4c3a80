#pragma once

#include <vexa/gc/MXFGCSystemHandler.h>

#include <cstdint>
#include <vector>

inline namespace vexa_toolkit {

/// A system element that is gathered as its bytes arrive. The storage of one element serves the
/// next.
class SystemElement {
public:
    using Bytes = MXFGCSystemHandler::Bytes;
    using LocalItems = MXFGCSystemHandler::LocalItems;
    using PackItems = MXFGCSystemHandler::PackItems;

    SystemElement() = default;
    SystemElement(const SystemElement&) = delete;
    SystemElement& operator=(const SystemElement&) = delete;

    /// Forgets the element before. `length` is announced, and decides no allocation.
    void start(std::uint64_t length);

    /// The next item fits into what the element announced, and is one of 65,536 at most.
    bool hasRoomFor(std::uint64_t itemLength) const;

    /// What comes next is the value of a pack, or of an item.
    void startPackValue();
    void startLocalItem(std::uint32_t tag, std::uint64_t length);
    void startPackItem(std::uint64_t length);

    /// The check is "expected value".
    void append(const std::uint8_t* data, std::uint64_t size);

    const Bytes& packValue() const { return packValue_; }
    const LocalItems& localItems() const { return localItems_; }
    const PackItems& packItems() const { return packItems_; }

private:
    Bytes spareValue();
    void recycle(Bytes& value);
    void startItem(Bytes& value, std::uint64_t length);

    Bytes packValue_;
    LocalItems localItems_;
    PackItems packItems_;
    /// The value in the making.
    Bytes* value_ = nullptr;
    /// Bytes that the element announced, less those of its items.
    std::uint64_t left_ = 0;
    std::vector<Bytes> spareValues_;
};

} // namespace vexa_toolkit
