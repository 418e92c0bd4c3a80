#pragma once

#include "support/Recorder.h"

#include <vexa/metadata/MXFMetadataHandler.h>

/// Writes each metadata event as a line, such as `primer 3C0A=010115020000` or `set 2F @90
/// 0702=0102`. A set key is its byte 14; a property key its bytes from the eighth on, without zeros
/// at the end. A set whose byte 14 is 0 isn't wanted.
class MetadataRecorder : public MXFMetadataHandler {
public:
    explicit MetadataRecorder(Recording& recording, bool tellPositions = true)
        : recording_(recording), tellPositions_(tellPositions) {}

    void startMetadata() override { recording_.add("startMetadata"); }
    void endMetadata() override { recording_.add("endMetadata"); }
    void primer(const MXFPrimer& primer) override;
    bool wantsPrimedSet(const KLVKey& key) override;
    void primedSet(const MXFPrimedSet& set) override;

private:
    Recording& recording_;
    bool tellPositions_;
};
