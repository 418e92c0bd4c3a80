#pragma once

#include "support/Testing.h"

/// Recorders for everything that is told of a file, all writing to one recording.
struct FileRecorders {
    Recording recording;
    StructureRecorder structure{recording};
    KLVRecorder metadata{recording, "M"};
    KLVRecorder index{recording, "I"};
    KLVRecorder essence{recording, "E"};
    KeepingErrorHandler errors{recording};

    explicit FileRecorders(bool wanted = true) {
        for (KLVRecorder* section : {&metadata, &index, &essence}) {
            section->want(wanted ? Wants::Everything : Wants::Nothing);
        }
    }

    /// The events of a read, the failure in which they ended last.
    std::string read(std::istream& in, bool skipRunIn = true) {
        MXFReader reader;
        reader.setSkipRunIn(skipRunIn);
        reader.setStructureHandler(&structure);
        reader.setMetadataHandler(&metadata);
        reader.setIndexHandler(&index);
        reader.setEssenceHandler(&essence);
        reader.setErrorHandler(&errors);
        const std::string failure = failureOf([&] { reader.parse(in); });
        return recording.text() + failure;
    }
};
