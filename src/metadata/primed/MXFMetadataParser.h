#pragma once

#include "metadata/primed/MXFPrimedSetParser.h"

#include <optional>

inline namespace vexa_toolkit {

class MXFMetadataHandler;

namespace metadata {
class PrimerTable;
}

/// Turns the KLV events of a partition's header metadata (SMPTE 377M) into a primer and sets.
///
/// Primers are compared with the tags that the standard fixes. One that can't be read, or is longer
/// than 4 MiB, is reported, and those take its place. Serves one region after another.
class MXFMetadataParser : public MXFPrimedSetParser {
public:
    /// Neither is owned.
    MXFMetadataParser(MXFMetadataHandler& handler, const metadata::PrimerTable& standardPrimer);
    ~MXFMetadataParser() override;

    const metadata::TagToKey& getPrimer() const override;
    bool wantsPrimedSet(const KLVKey& key) override;
    void primedSet(const MXFPrimedSet& set) override;

    /// The check is "before start".
    void startStream(bool accurateLengths) override;
    void endStream(bool aborted) override;
    void berLengthForm(std::uint8_t form) override;
    bool startLocalSet(const KLVKey& key, std::uint64_t length, TagType tagType,
                       LengthType lengthType) override;
    bool startFixedLengthPack(const KLVKey& key, std::uint64_t length,
                              std::uint8_t** buffer) override;
    void endFixedLengthPack(const KLVKey& key) override;
    void value(const std::uint8_t* data, std::uint64_t size) override;

private:
    MXFPrimer takePrimer();
    void compareWithStandard(const MXFPrimer& primer) const;
    void buildLookup(const MXFPrimer& primer);

    MXFMetadataHandler& handler_;
    const metadata::PrimerTable& standard_;
    /// The form of BER lengths last told, if no set began since then.
    std::optional<std::uint8_t> newForm_;
    std::vector<std::uint8_t> primerBuffer_;
    metadata::TagToKey tagToKey_;
};

} // namespace vexa_toolkit
