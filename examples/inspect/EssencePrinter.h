#pragma once

#include <vexa/vexa.h>

#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>

/// What is counted of one essence stream.
struct EssenceStream {
    struct Track {
        std::string kind;
        std::uint64_t elements = 0;
        std::uint64_t bytes = 0;
        /// First octets of BER lengths.
        std::set<std::uint8_t> lengthForms;
    };

    std::uint64_t editUnits = 0;
    std::uint64_t smallestEditUnit = UINT64_MAX;
    std::uint64_t largestEditUnit = 0;
    /// By the key's digits.
    std::map<std::string, Track> tracks;

    std::uint64_t systemItems = 0;
    MXFSystemStamp firstUserStamp{};
    MXFSystemStamp lastUserStamp{};
    std::uint16_t lastContinuityCount = 0;
    std::uint64_t continuityBreaks = 0;
};

/// Counts the edit units, essence elements and system items of each essence stream, and prints the
/// sums at the end. Essence itself is left unread.
class EssencePrinter : public DullMXFGCStructureHandler,
                       public MXFGCEssenceHandler,
                       public MXFSDTICPSystemHandler {
public:
    /// With `eachEditUnit`, prints a line for each.
    explicit EssencePrinter(bool eachEditUnit) : eachEditUnit_(eachEditUnit) {}

    /// Called at the end of each edit unit.
    void onEditUnit(std::function<void()> call) { onEditUnit_ = std::move(call); }

    /// The stream that the elements from now on belong to.
    void setBodySID(std::uint32_t bodySID) { bodySID_ = bodySID; }
    void print() const;

    void startEditUnit() override;
    void endEditUnit() override;

    bool wantsEssence(const KLVKey& key, std::uint64_t length, std::uint8_t** buffer) override;
    void pictureElement(const KLVKey&, const std::uint8_t*, std::uint64_t) override {}
    void soundElement(const KLVKey&, const std::uint8_t*, std::uint64_t) override {}
    void dataElement(const KLVKey&, const std::uint8_t*, std::uint64_t) override {}
    void compoundElement(const KLVKey&, const std::uint8_t*, std::uint64_t) override {}
    void essenceLengthForm(std::uint8_t form) override { lengthForm_ = form; }

    void systemMetadataPack(const MXFSDTICPSystemMetadata& pack) override;
    void packageMetadata(const Items&) override {}
    void pictureMetadata(const Items&) override {}
    void soundMetadata(const Items&) override {}
    void dataMetadata(const Items&) override {}
    void controlData(std::uint32_t, const std::vector<std::uint8_t>&) override {}

private:
    EssenceStream& stream() { return streams_[bodySID_]; }

    bool eachEditUnit_;
    std::function<void()> onEditUnit_ = [] {};
    std::uint32_t bodySID_ = 0;
    std::uint8_t lengthForm_ = 0;
    std::uint64_t editUnitBytes_ = 0;
    std::uint64_t editUnitElements_ = 0;
    std::map<std::uint32_t, EssenceStream> streams_;
};
