#pragma once

#include "klv/DullKLVFilter.h"
#include "klv/berLength.h"

#include <cstdint>

inline namespace vexa_toolkit {

/// Ends stretches of output with a fill item, so that a stretch gets a certain size or what follows
/// it a certain alignment. Both are measured from the stretch's start. The fill item is coded in
/// the BER form of the last element that passed, and goes to the next handler.
///
/// Needs a locator before the first stretch; it keeps that to itself, until endStream.
class KLVFiller : public DullKLVFilter {
public:
    enum Mode : std::uint32_t {
        /// Align the next element to `alignment` bytes; 0 is no padding.
        Align = 0,
        /// Pad the stretch to `paddedLength` bytes.
        Pad = 1,
    };

    using DullKLVFilter::DullKLVFilter;
    ~KLVFiller() override;

    /// The check is "locator is present".
    virtual const Locator& getLocator() const;
    /// May change between stretches. A padded length must be a multiple of a non-zero alignment:
    /// the check is "padded length is multiple of alignment".
    virtual void setFill(std::uint32_t mode, std::uint64_t alignment, std::uint64_t paddedLength);
    virtual std::uint32_t getMode() const;
    virtual std::uint64_t getAlignment() const;
    virtual std::uint64_t getPaddedLength() const;

    /// A stretch begins at the present position, with the check "not in filled item".
    virtual void startFilledItem();
    /// The stretch ends, with the check "in filled item". A padded length that leaves a gap smaller
    /// than a fill item fails the check "achievable padded length".
    virtual void endFilledItem();

    void setLocator(const Locator* locator) override;
    void endStream(bool aborted) override;
    void berLengthForm(std::uint8_t form) override;

private:
    void pad(std::uint64_t written);
    void align(std::uint64_t written);
    std::uint64_t position() const;

    const Locator* locator_ = nullptr;
    std::uint8_t form_ = klvutil::noBERForm;
    std::uint32_t mode_ = Align;
    std::uint64_t alignment_ = 0;
    std::uint64_t paddedLength_ = 0;
    std::uint64_t startPosition_ = 0;
    bool inFilledItem_ = false;
};

} // namespace vexa_toolkit
