#pragma once

#include <vexa/Export.h>
#include <vexa/klv/KLVKey.h>

#include <boost/optional.hpp>

#include <cstdint>

inline namespace vexa_toolkit {

/// What the key of an element of a Generic Container says of it (SMPTE 379M; of content packages,
/// SMPTE 326M and 385M).
///
///     bytes 0-11  the pattern of system or of essence elements
///     byte 12     item type
///     byte 13     count of elements in the item
///     byte 14     element type
///     byte 15     element number
class VEXA_EXPORT MXFGCElementKey {
public:
    enum Kind {
        System,
        Picture,
        Sound,
        Data,
        Compound,
    };

    /// None for any key that isn't the standard's: of elements under private keys, the handler's
    /// operation tells the kind.
    static boost::optional<Kind> kind(const KLVKey& key);
    /// "system", "picture", "sound", "data" or "compound".
    static const char* kindName(Kind kind);

    static bool isSystem(const KLVKey& key);
    /// True for essence of any item type.
    static bool isEssence(const KLVKey& key);
    static bool isPicture(const KLVKey& key);
    static bool isSound(const KLVKey& key);
    static bool isData(const KLVKey& key);
    static bool isCompound(const KLVKey& key);

    // These take any key for that of an element.

    /// The last four bytes, by which an essence track of the header metadata names its elements
    /// (SMPTE 377M, Track Number).
    static std::uint32_t trackNumber(const KLVKey& key);
    static std::uint8_t elementCount(const KLVKey& key);
    /// How the essence is wrapped, and of what coding it is.
    static std::uint8_t elementType(const KLVKey& key);
    /// Tells the elements of an item apart.
    static std::uint8_t elementNumber(const KLVKey& key);
};

} // namespace vexa_toolkit
