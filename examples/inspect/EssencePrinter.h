#pragma once

#include "../support/ReportPrinter.h"

#include <vexa/vexa.h>

#include <boost/shared_ptr.hpp>

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <utility>

/// What is counted of one essence stream.
struct EssenceStream {
    struct Track {
        std::uint64_t elements = 0;
        std::uint64_t bytes = 0;
        /// First octets of BER lengths.
        std::set<std::uint8_t> lengthForms;
    };

    struct Element {
        KLVKey key;
        std::uint64_t length;
        std::uint8_t lengthForm;
        /// Of its value in the file; -1 where it isn't known.
        std::int64_t position;
    };

    /// Whole ones.
    std::uint64_t editUnits = 0;
    std::uint64_t smallestEditUnit = UINT64_MAX;
    std::uint64_t largestEditUnit = 0;
    std::map<KLVKey, Track> tracks;
    /// The number of the edit unit in which the read broke off, and the element.
    std::optional<std::uint64_t> brokenEditUnit;
    std::optional<Element> cutElement;

    std::uint64_t systemItems = 0;
    MXFSystemStamp firstUserStamp{};
    MXFSystemStamp lastUserStamp{};
    std::uint16_t lastContinuityCount = 0;
    std::uint64_t continuityBreaks = 0;
};

/// Counts the edit units, essence elements and system items of each essence stream, and prints the
/// sums at the end. Essence itself is left unread, so that an element counts once what follows it
/// shows that it was whole.
class EssencePrinter : public DullMXFGCStructureHandler,
                       public MXFGCEssenceHandler,
                       public MXFSDTICPSystemHandler {
public:
    /// The reports of the read tell where it is. `fileSize` in bytes, where it is known. With
    /// `eachEditUnit`, prints a line for each.
    EssencePrinter(boost::shared_ptr<const ReportPrinter> reports,
                   std::optional<std::uint64_t> fileSize, bool eachEditUnit)
        : reports_(std::move(reports)), fileSize_(fileSize), eachEditUnit_(eachEditUnit) {}

    /// Called at the end of each whole edit unit.
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
    bool isWhole(const EssenceStream::Element& element) const;
    void endElement();

    boost::shared_ptr<const ReportPrinter> reports_;
    std::optional<std::uint64_t> fileSize_;
    bool eachEditUnit_;
    std::function<void()> onEditUnit_ = [] {};
    std::uint32_t bodySID_ = 0;
    std::uint8_t lengthForm_ = 0;
    std::uint64_t editUnitBytes_ = 0;
    std::uint64_t editUnitElements_ = 0;
    std::optional<EssenceStream::Element> element_;
    std::map<std::uint32_t, EssenceStream> streams_;
};
