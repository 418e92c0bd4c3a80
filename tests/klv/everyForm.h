#pragma once

#include "support/KLVBytes.h"

#include <vector>

// A stream that holds each form, with changes of the BER form between and within elements.

inline const KLVKey innerSetKey = smpteKey({2, 1, 1, 1, 0x7E, 0x13});
inline const KLVKey berLocalSetKey = smpteKey({2, 0x13, 1, 1, 0x7E, 8});
inline const KLVKey complexWrapperKey = smpteKey({3, 2, 1, 1, 0x7E, 9});
inline const KLVKey wideLocalSetKey = smpteKey({2, 0x7B, 1, 1, 0x7E, 0x0A});

inline KLVBytes universalSetValue() {
    const KLVBytes inner = KLVBytes().klv(someFixedPackKey, KLVBytes(), 1);
    return KLVBytes()
        .klv(someItemKey, KLVBytes{8, 9}, 1)
        .key(someLabelKey)
        .klv(innerSetKey, inner, 1);
}

inline std::vector<KLVBytes> everyForm() {
    const auto element = [](const KLVKey& key, int form, const KLVBytes& value) {
        return KLVBytes().klv(key, value, form);
    };
    return {
        element(someItemKey, 1, KLVBytes{0xA0, 0xA1, 0xA2}),
        KLVBytes().key(someLabelKey),
        element(someUniversalSetKey, 0x81, universalSetValue()),
        element(someLocalSetKey, 0x81, KLVBytes{1, 2, 0, 3, 0, 1, 2, 0xFF, 0xFF, 0, 0}),
        element(berLocalSetKey, 0x81, KLVBytes{0, 1, 0x81, 1, 5, 0, 2, 0x83, 0, 0, 1, 6}),
        element(someVariablePackKey, 0x83, KLVBytes{1, 7, 0}),
        element(someFixedPackKey, 0x88, KLVBytes{3, 4}),
        element(someWrapperKey, 0x88, KLVBytes{5}),
        element(complexWrapperKey, 1, KLVBytes()),
        element(wideLocalSetKey, 1, KLVBytes{0xF1, 0xF2, 0xF3, 0xF4, 0, 0, 0, 1, 6}),
        KLVBytes().fill(2, 1),
    };
}

inline KLVBytes together(const std::vector<KLVBytes>& parts) {
    KLVBytes all;
    for (const KLVBytes& part : parts) {
        all.raw(part);
    }
    return all;
}
