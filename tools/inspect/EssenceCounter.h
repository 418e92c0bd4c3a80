#pragma once

#include "support/Reports.h"

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
    /// The number of the edit unit in which the read broke off, and the element that was cut short.
    std::optional<std::uint64_t> brokenEditUnit;
    std::optional<Element> cutElement;
    /// Of a pipe, what lies behind the last key that was read isn't known.
    bool isCutCertain = true;

    std::uint64_t systemItems = 0;
    MXFSystemStamp firstUserStamp{};
    MXFSystemStamp lastUserStamp{};
    std::uint16_t lastContinuityCount = 0;
    std::uint64_t continuityBreaks = 0;
};

/// By their bodySID.
using EssenceStreams = std::map<std::uint32_t, EssenceStream>;

struct EditUnit {
    std::uint64_t number = 0;
    std::uint32_t bodySID = 0;
    /// Of essence, and their values' bytes.
    std::uint64_t elements = 0;
    std::uint64_t bytes = 0;
};

/// Counts the edit units, essence elements and system items of each essence stream. Essence itself
/// is left unread, so that an element counts once what follows it shows that it was whole.
class EssenceCounter : public DullMXFGCStructureHandler,
                       public DullMXFGCEssenceHandler,
                       public DullMXFSDTICPSystemHandler {
public:
    using Receiver = std::function<void(const EditUnit&)>;

    /// The reports of the read tell where it is. `fileSize` in bytes, where it is known. Each whole
    /// edit unit is told at its end.
    EssenceCounter(boost::shared_ptr<const Reports> reports, std::optional<std::uint64_t> fileSize,
                   Receiver receiver)
        : reports_(std::move(reports)), fileSize_(fileSize), receiver_(std::move(receiver)) {}

    /// The stream that the elements from now on belong to.
    void setBodySID(std::uint32_t bodySID) { bodySID_ = bodySID; }
    const EssenceStreams& streams() const { return streams_; }

    void startEditUnit() override;
    void endEditUnit() override;

    bool wantsEssence(const KLVKey& key, std::uint64_t length, std::uint8_t** buffer) override;
    void essenceLengthForm(std::uint8_t form) override { lengthForm_ = form; }

    void systemMetadataPack(const MXFSDTICPSystemMetadata& pack) override;

private:
    EssenceStream& stream() { return streams_[bodySID_]; }
    bool isWhole(const EssenceStream::Element& element) const;
    void endElement();

    boost::shared_ptr<const Reports> reports_;
    std::optional<std::uint64_t> fileSize_;
    Receiver receiver_;
    std::uint32_t bodySID_ = 0;
    std::uint8_t lengthForm_ = 0;
    EditUnit editUnit_;
    std::optional<EssenceStream::Element> element_;
    EssenceStreams streams_;
};
