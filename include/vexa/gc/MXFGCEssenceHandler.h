#pragma once

#include <vexa/Export.h>
#include <vexa/klv/KLVKey.h>

#include <cstdint>

inline namespace vexa_toolkit {

/// The essence elements of a Generic Container (SMPTE 379M), each of them whole, unless the handler
/// is an MXFGCChunkedEssenceHandler, too, and takes a large one in pieces.
///
/// Events, with `element` for pictureElement, soundElement, dataElement or compoundElement, by the
/// item type in the key's byte 12:
///
///     stream = (essenceLengthForm? wantsEssence (element | chunked element?)?)*
///
/// An element that was wanted stays out if the stream breaks off inside it.
class VEXA_EXPORT MXFGCEssenceHandler {
public:
    virtual ~MXFGCEssenceHandler();

    /// Whether the element that follows is to be told; `length` is that of its value, in bytes.
    /// `*buffer` is null: a handler that stores there the address of `length` bytes of its own gets
    /// the value in these.
    virtual bool wantsEssence(const KLVKey& key, std::uint64_t length, std::uint8_t** buffer) = 0;

    /// The value of an element, or a piece of a chunked one, in `data` for the time of the call.
    ///
    /// `data` is null with a `length` that isn't 0 if a reader left an element out: one of more
    /// than 16,777,215 bytes that was wanted, but neither into a buffer nor in pieces. With a
    /// `length` of 0 it may be null.
    virtual void pictureElement(const KLVKey& key, const std::uint8_t* data,
                                std::uint64_t length) = 0;
    virtual void soundElement(const KLVKey& key, const std::uint8_t* data,
                              std::uint64_t length) = 0;
    virtual void dataElement(const KLVKey& key, const std::uint8_t* data, std::uint64_t length) = 0;
    virtual void compoundElement(const KLVKey& key, const std::uint8_t* data,
                                 std::uint64_t length) = 0;

    /// The first octet of the BER length of the elements that follow, as in
    /// KLVHandler::berLengthForm. To a writer, 80 hexadecimal leaves the choice for each element.
    virtual void essenceLengthForm(std::uint8_t form) = 0;
};

} // namespace vexa_toolkit
