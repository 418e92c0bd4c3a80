#pragma once

#include "extract/wave.h"

#include <vexa/vexa.h>

#include <boost/shared_ptr.hpp>

#include <cstdint>
#include <optional>

/// In what form an essence track leaves the file.
struct EssenceFormat {
    /// Of the file's name, with its dot.
    const char* extension = ".bin";
    /// Of sound that becomes a Wave file.
    std::optional<WaveFormat> wave;
    /// Whether that sound comes as AES3 elements of eight channels (SMPTE 331M), not as plain
    /// samples.
    bool isAES3 = false;
};

/// Knows the forms of essence tracks from the descriptors of header metadata.
class EssenceFormats {
public:
    void setPreface(boost::shared_ptr<const Preface> preface) { preface_ = std::move(preface); }

    /// Of the track whose elements have the key. Where metadata doesn't describe it, its elements
    /// stay as they are.
    EssenceFormat find(std::uint32_t bodySID, const KLVKey& key) const;

private:
    boost::shared_ptr<const FileDescriptor> findDescriptor(std::uint32_t bodySID,
                                                           const KLVKey& key) const;

    boost::shared_ptr<const Preface> preface_;
};
