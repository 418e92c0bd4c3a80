#pragma once

#include "support/Recorder.h"

#include <vexa/metadata/MXFMetadataHandler.h>
#include <vexa/metadata/MXFMetadataModelHandler.h>
#include <vexa/metadata/MetadataRoot.h>

/// Such as `set 2F 0702=0102`: byte 14 of the set's key, and of the properties' keys the bytes from
/// the eighth on, without zeros at the end.
std::string lineOf(const MXFPrimedSet& set);

/// Writes each metadata event as a line, such as `primer 3C0A=010115020000` or `set 2F @90
/// 0702=0102`, keeps the sets, and passes all events on where there is a handler. Without one, a
/// set whose byte 14 is 0 isn't wanted.
class MetadataRecorder : public MXFMetadataHandler {
public:
    explicit MetadataRecorder(Recording& recording, MXFMetadataHandler* next = nullptr)
        : recording_(recording), next_(next) {}

    std::vector<MXFPrimedSet> sets;

    void startMetadata() override;
    void endMetadata() override;
    void primer(const MXFPrimer& primer) override;
    bool wantsPrimedSet(const KLVKey& key) override;
    void primedSet(const MXFPrimedSet& set) override;

private:
    Recording& recording_;
    MXFMetadataHandler* next_;
};

/// Keeps a model and writes each model event as a line, such as `model 0F.01(09.02 0F.03()) 09.04`:
/// byte 14 of the set key, the last byte of the instance UID, what the object owns.
class ModelRecorder : public MXFMetadataModelHandler {
public:
    explicit ModelRecorder(Recording& recording) : recording_(recording) {}

    std::vector<boost::shared_ptr<MetadataRoot>> roots;

    void startMetadata() override { recording_.add("startMetadata"); }
    void endMetadata() override { recording_.add("endMetadata"); }
    void model(const std::vector<boost::shared_ptr<MetadataRoot>>& model) override;

private:
    Recording& recording_;
};
