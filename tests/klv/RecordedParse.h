#pragma once

#include "klv/GenericKLVReader.h"
#include "support/Failures.h"
#include "support/KLVBytes.h"
#include "support/Recorder.h"
#include "support/TestStream.h"

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

using Bytes = KLVBytes::Bytes;
using Lines = std::vector<std::string>;
using Configure = std::function<void(KLVRecorder&)>;

inline const TestStreamOptions aFile = {true, 4096};
inline const TestStreamOptions aPipe = {false, 7};

inline const Configure wanted = [](KLVRecorder&) {};
inline const Configure refused = [](KLVRecorder& recorder) { recorder.setWanted(false); };
inline const Configure buffered = [](KLVRecorder& recorder) { recorder.useBuffer(true); };

/// The lines, without positions where these mean nothing: at a form, where the trackers differ, and
/// at the end of a stream that failed.
inline Lines comparable(const Recording& recording) {
    Lines lines = recording.lines();
    for (std::string& line : lines) {
        if (line.rfind("form", 0) == 0 || line.rfind("endStream aborted", 0) == 0) {
            line.resize(std::min(line.find(" @"), line.size()));
        }
    }
    return lines;
}

inline std::string joined(const Lines& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += line + '\n';
    }
    return text;
}

/// What a handler and an error handler see of a parse; the last line is what it throws.
inline Lines record(std::istream& in, const Configure& configure = wanted,
                    std::streamoff stopAt = -1, std::uint64_t origin = 0) {
    Recording recording;
    KLVRecorder recorder(recording);
    configure(recorder);
    KeepingErrorHandler errors(recording);
    GenericKLVReader reader(recorder);
    reader.setErrorHandler(&errors);
    reader.setOrigin(origin);
    const std::string failure = failureOf([&] { reader.parse(in, stopAt); });
    if (!failure.empty()) {
        recording.add("thrown " + failure);
    }
    return comparable(recording);
}

inline Lines record(const KLVBytes& bytes, const TestStreamOptions& options = aFile,
                    const Configure& configure = wanted) {
    TestStream in(bytes.bytes(), options);
    return record(in, configure);
}
