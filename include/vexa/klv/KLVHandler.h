#pragma once

#include <vexa/Export.h>
#include <vexa/klv/KLVKey.h>

#include <cstdint>

inline namespace vexa_toolkit {

class Locator;

/// Width of the tags of a local set (SMPTE 336M): 0 is 1 octet, 1 is 2 octets, 2 is 4 octets.
using TagType = std::uint32_t;

/// Width of an inner length: 0 is BER coded, 1 is 1 octet, 2 is 2 octets, 3 is 4 octets.
using LengthType = std::uint32_t;

/// The events of a KLV stream (SMPTE 336M), on which all the library stands: readers call them,
/// writers implement them, filters do both.
///
/// Events, with `form` for berLengthForm, which comes before an element whose length is coded in
/// another BER form than the last one:
///
///     stream    = setLocator startStream element* endStream
///     element   = form? (item | pack | wrapper | universal | local | variable) | label
///     item      = startIndividualItem value* endIndividualItem
///     pack      = startFixedLengthPack value* endFixedLengthPack
///     wrapper   = startWrapper value* endWrapper
///     label     = startLabel endLabel
///     universal = startUniversalSet element* endUniversalSet
///     local     = startLocalSet (form? startLocalItem value* endLocalItem)* endLocalSet
///     variable  = startVariableLengthPack
///                 (form? startVariableLengthItem value* endVariableLengthItem)*
///                 endVariableLengthPack
///
/// A stream that fails ends anywhere, with endStream(true).
///
/// A `length` is that of the value alone, in bytes.
///
/// A start event answers whether the content is wanted; false skips it. Where a start event has a
/// `buffer`, it points at a null pointer. A handler that answers true and stores there the address
/// of `length` bytes of its own gets the whole value in it, and one `value` call for it (of size
/// 0, too). A handler that leaves it null gets the value in order, in chunks of at most 65,536
/// bytes, and no call for an empty value.
class VEXA_EXPORT KLVHandler {
public:
    virtual ~KLVHandler();

    /// Says where to ask for positions. The locator lives until `endStream`.
    virtual void setLocator(const Locator* locator) = 0;

    /// `accurateLengths` says that every length in the events is exact when it is told.
    virtual void startStream(bool accurateLengths) = 0;

    /// `aborted` says that the parse stopped early or failed.
    virtual void endStream(bool aborted) = 0;

    /// From here on lengths are coded in this form: 1 for the short form, 81 to 88 hexadecimal for
    /// the long form of 1 to 8 subsequent octets.
    virtual void berLengthForm(std::uint8_t form) = 0;

    virtual bool startIndividualItem(const KLVKey& key, std::uint64_t length,
                                     std::uint8_t** buffer) = 0;
    virtual void endIndividualItem(const KLVKey& key) = 0;

    /// A bare key. The answer has no effect.
    virtual bool startLabel(const KLVKey& key) = 0;
    virtual void endLabel(const KLVKey& key) = 0;

    virtual bool startUniversalSet(const KLVKey& key, std::uint64_t length) = 0;
    virtual void endUniversalSet(const KLVKey& key) = 0;

    virtual bool startLocalSet(const KLVKey& key, std::uint64_t length, TagType tagType,
                               LengthType lengthType) = 0;
    virtual void endLocalSet(const KLVKey& key) = 0;
    virtual bool startLocalItem(std::uint32_t tag, std::uint64_t length, std::uint8_t** buffer) = 0;
    virtual void endLocalItem(std::uint32_t tag) = 0;

    virtual bool startFixedLengthPack(const KLVKey& key, std::uint64_t length,
                                      std::uint8_t** buffer) = 0;
    virtual void endFixedLengthPack(const KLVKey& key) = 0;

    virtual bool startVariableLengthPack(const KLVKey& key, std::uint64_t length,
                                         LengthType lengthType) = 0;
    virtual void endVariableLengthPack(const KLVKey& key) = 0;
    /// `buffer` still holds what the handler stored for the item before it in the same pack: a
    /// handler that wants an item must store an address, or null, anew.
    virtual bool startVariableLengthItem(std::uint64_t length, std::uint8_t** buffer) = 0;
    virtual void endVariableLengthItem() = 0;

    /// `simple` is true for byte 5 of the key = 01, false for 02.
    virtual bool startWrapper(const KLVKey& key, std::uint64_t length, bool simple,
                              std::uint8_t** buffer) = 0;
    virtual void endWrapper(const KLVKey& key) = 0;

    /// The present element's value, or the next piece of it: `size` bytes at `data`, which live for
    /// the call.
    virtual void value(const std::uint8_t* data, std::uint64_t size) = 0;
};

} // namespace vexa_toolkit
