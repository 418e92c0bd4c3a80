#pragma once

#include <vexa/Export.h>
#include <vexa/klv/MXFUID.h>

#include <cstdint>
#include <string>

inline namespace vexa_toolkit {

namespace klvutil {

/// How bad what is reported is: the operations of ErrorHandler.
enum class Severity {
    /// The data is usable.
    Warning,
    /// The file is wrong; parsing goes on.
    Error,
    /// Parsing can't go on.
    FatalError,
};

/// The first four bytes of the code of a report. The upper half names the area: 4C4A stream,
/// 4C4B KLV, 4C4C MXF structure, sets and index tables, 4C4D Generic Container, 4C4E SDTI-CP
/// system items, 4C4F metadata model, 4C51 proxy system items.
enum class ErrorCode : std::uint32_t {
    /// The stream failed, or ended inside an element.
    StreamFailure = 0x4C4A0001,

    /// A key that isn't a SMPTE key, or whose KLV coding isn't known.
    InvalidKey = 0x4C4B0001,
    InvalidBERLength = 0x4C4B0002,
    /// The items of a set or pack don't add up to its length.
    IncorrectLength = 0x4C4B0003,
    UnexpectedFillItemKeyVersion = 0x4C4B0004,

    /// An element outside all partitions.
    UnexpectedElement = 0x4C4C0001,
    InvalidRunIn = 0x4C4C0002,
    /// Partitions and random index don't form a file.
    InvalidStructure = 0x4C4C0003,
    UnalignedHeaderByteCount = 0x4C4C0004,
    UnalignedIndexByteCount = 0x4C4C0005,
    InvalidRandomIndex = 0x4C4C0006,
    /// A length of a local set or of its items is coded in another form than the usual one.
    NonStandardLengthForm = 0x4C4C0007,
    /// The properties of an index table segment contradict each other.
    InconsistentIndexSegment = 0x4C4C0008,
    AdjacentFillItems = 0x4C4C000A,
    /// An element crosses the end of a section that its partition pack announces.
    IncorrectByteCount = 0x4C4C0101,
    InvalidPartitionPack = 0x4C4C0102,
    InvalidPartitionOrder = 0x4C4C0103,
    IncorrectThisPartition = 0x4C4C0104,
    IncorrectPreviousPartition = 0x4C4C0105,
    IncorrectFooterPartition = 0x4C4C0106,
    InconsistentIndexSID = 0x4C4C0107,
    InconsistentBodySID = 0x4C4C0108,
    IncompatibleVersion = 0x4C4C0201,
    /// An MXF version earlier or later than those that the library implements.
    UnimplementedVersion = 0x4C4C0202,
    InvalidPrimer = 0x4C4C0301,
    /// The primer gives a standard tag another key.
    NonStandardPrimerKey = 0x4C4C0302,
    /// The primer gives a standard key another tag.
    NonStandardPrimerTag = 0x4C4C0303,
    /// The primer gives a tag two keys.
    InconsistentPrimerKey = 0x4C4C0304,
    /// The primer gives a key two tags.
    InconsistentPrimerTag = 0x4C4C0305,
    RepeatedProperty = 0x4C4C0401,
    TagMissingInPrimer = 0x4C4C0402,
    MissingIndexProperty = 0x4C4C0403,
    InvalidIndexProperty = 0x4C4C0404,

    /// An element of a KLV coding, or with a key, that has no place in a Generic Container.
    InvalidGCElement = 0x4C4D0001,
    /// A length in the body is coded in other than 4 or 8 octets.
    NonStandardBERLengthForm = 0x4C4D0002,
    /// A system element where edit units begin with essence, or essence of two kinds without a
    /// system element.
    UnexpectedGCElement = 0x4C4D0003,
    UnsupportedGCElementLength = 0x4C4D0004,

    /// An element that isn't part of an SDTI-CP system item.
    InvalidSDTICPElement = 0x4C4E0001,
    /// A system metadata pack can't be decoded, or is missing before what belongs to it.
    InvalidSystemMetadata = 0x4C4E0002,
    /// A metadata set comes a second time in its system item.
    RepeatedSystemMetadataSet = 0x4C4E0003,
    /// Control data isn't there as the pack announces it, or isn't one item.
    InconsistentControlData = 0x4C4E0004,
    /// The key of a metadata set announces another number of items.
    IncorrectBlockCount = 0x4C4E0005,

    /// A set of a class that the metadata factory doesn't know.
    UnrecognizedMetadata = 0x4C4F0001,
    MissingProperty = 0x4C4F0002,
    InvalidProperty = 0x4C4F0003,
    DuplicateInstanceUID = 0x4C4F0004,
    /// A strong reference to an object that another one owns.
    ObjectAlreadyOwned = 0x4C4F0005,
    InvalidReference = 0x4C4F0006,
    /// A strong reference from a set to one that stands before it.
    BackwardReference = 0x4C4F0007,
    UnreferencedObjects = 0x4C4F0008,
    DanglingReferences = 0x4C4F0009,
    /// The first set that nothing referred to turned out to be owned.
    FirstObjectNotRoot = 0x4C4F000A,

    /// An element that isn't a proxy system item.
    InvalidProxySystemElement = 0x4C510001,
    RepeatedProxySystemProperty = 0x4C510002,
    UnrecognizedProxySystemProperty = 0x4C510003,
    MissingProxySystemProperty = 0x4C510004,
    /// An item of a proxy system item can't be decoded, or contradicts the other item.
    InvalidProxySystemProperty = 0x4C510005,
};

/// The whole code, as an ErrorHandler and parse_error carry it.
constexpr MXFUID toUID(ErrorCode code) {
    return MXFUID::fromFields(static_cast<std::uint32_t>(code), 0x95D8, 0x11E1,
                              {0xBB, 0xB2, 0x10, 0x9A, 0xDD, 0x4A, 0xC6, 0x8C});
}

/// The code by name, for a switch. A UID that is no code of this library gives a value that no
/// enumerator has, or one whose toUID() differs from it.
constexpr ErrorCode toErrorCode(const MXFUID& uid) {
    return static_cast<ErrorCode>(std::uint32_t{uid[0]} << 24 | std::uint32_t{uid[1]} << 16 |
                                  std::uint32_t{uid[2]} << 8 | std::uint32_t{uid[3]});
}

/// The name of the code, such as "InvalidPartitionPack"; empty for a UID that is no code of this
/// library.
VEXA_EXPORT std::string codeName(const MXFUID& code);

/// "warning", "error" or "fatal error".
VEXA_EXPORT std::string severityName(Severity severity);

} // namespace klvutil

} // namespace vexa_toolkit
