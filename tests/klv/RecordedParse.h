#pragma once

#include "support/Testing.h"

using Configure = std::function<void(KLVRecorder&)>;

inline const TestStreamOptions aFile = {true, 4096};
inline const TestStreamOptions aPipe = {false, 7};

inline const Configure wanted = [](KLVRecorder&) {};
inline const Configure refused = [](KLVRecorder& recorder) { recorder.want(Wants::Nothing); };
inline const Configure buffered = [](KLVRecorder& recorder) { recorder.want(Wants::Buffered); };

/// What a handler and an error handler see of a parse; the last line is what it
/// throws.
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
    return comparable(recording.lines());
}

inline Lines record(const Bytes& bytes, const TestStreamOptions& options = aFile,
                    const Configure& configure = wanted) {
    TestStream in(bytes, options);
    return record(in, configure);
}

inline const KLVKey innerSetKey = smpteKey({2, 1, 1, 1, 0x7E, 0x13});
inline const KLVKey berLocalSetKey = smpteKey({2, 0x13, 1, 1, 0x7E, 8});

/// A stream that holds each form, with changes of the BER form between and
/// within elements.
inline Bytes everyForm() {
    const KLVBytes inner = KLVBytes().klv(someFixedPackKey, KLVBytes(), 1);
    const KLVBytes universal =
        KLVBytes().klv(someItemKey, KLVBytes{8, 9}, 1).key(someLabelKey).klv(innerSetKey, inner, 1);
    return KLVBytes()
        .klv(someItemKey, KLVBytes{0xA0, 0xA1, 0xA2}, 1)
        .key(someLabelKey)
        .klv(someUniversalSetKey, universal, 0x81)
        .klv(someLocalSetKey, KLVBytes{1, 2, 0, 3, 0, 1, 2, 0xFF, 0xFF, 0, 0}, 0x81)
        .klv(berLocalSetKey, KLVBytes{0, 1, 0x81, 1, 5, 0, 2, 0x83, 0, 0, 1, 6}, 0x81)
        .klv(someVariablePackKey, KLVBytes{1, 7, 0}, 0x83)
        .klv(someFixedPackKey, KLVBytes{3, 4}, 0x88)
        .klv(someWrapperKey, KLVBytes{5}, 0x88)
        .klv(smpteKey({3, 2, 1, 1, 0x7E, 9}), KLVBytes(), 1) // complex
        .klv(smpteKey({2, 0x7B, 1, 1, 0x7E, 10}), KLVBytes{0xF1, 2, 3, 4, 0, 0, 0, 1, 6}, 1)
        .fill(0, 1)
        .bytes();
}
