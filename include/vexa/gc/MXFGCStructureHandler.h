#pragma once

#include <vexa/Export.h>

#include <cstdint>

inline namespace vexa_toolkit {

/// The events of a Generic Container's shape (SMPTE 379M): its edit units, which the standard calls
/// content packages, and what they consist of.
///
/// Events:
///
///     stream   = startStream editUnit* endStream
///     editUnit = startEditUnit slice* endEditUnit
///     slice    = startSlice (fixed | aligned)* endSlice
///     fixed    = startFixedElement endFixedElement
///     aligned  = startAlignedElement endAlignedElement
///
/// The elements themselves go to an MXFGCSystemHandler and an MXFGCEssenceHandler in between. A
/// reader tells streams and edit units only; an edit unit lacks its end if no element of the stream
/// has been valid so far.
class VEXA_EXPORT MXFGCStructureHandler {
public:
    virtual ~MXFGCStructureHandler();

    /// `kagSize` is the size of the KLV alignment grid in bytes (SMPTE 377M), 0 for none. A reader
    /// says 0.
    virtual void startStream(std::uint64_t kagSize) = 0;
    virtual void endStream() = 0;

    virtual void startEditUnit() = 0;
    virtual void endEditUnit() = 0;

    /// A slice begins with an edit unit, or behind an element whose size varies (SMPTE 377M, index
    /// table segment).
    virtual void startSlice() = 0;
    virtual void endSlice() = 0;

    /// What follows takes `length` bytes, with the fill behind it, which is none or at least 20
    /// bytes.
    virtual void startFixedElement(std::uint64_t length) = 0;
    virtual void endFixedElement() = 0;

    /// What follows takes a multiple of `alignment` bytes, with the fill behind it; 0 stands for
    /// the alignment grid.
    virtual void startAlignedElement(std::uint64_t alignment) = 0;
    virtual void endAlignedElement() = 0;
};

} // namespace vexa_toolkit
