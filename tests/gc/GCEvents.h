#pragma once

#include "support/EventRecorder.h"
#include "support/KLVBytes.h"

#include <regex>

inline KLVKey essenceKey(int itemType) {
    return smpteKey({1, 2, 1, 0x0A, 0x0D, 1, 3, 1, itemType, 1, 1, 1});
}
inline KLVKey systemKey(int coding) {
    return smpteKey({2, coding, 1, 0x0B, 0x0D, 1, 3, 1, coding == 5 ? 4 : 0x14, 1, 1, 0});
}

/// Keeps the events of a Generic Container.
struct GCRecorder : Recording, EventRecorder {
    GCRecorder() : EventRecorder(static_cast<Recording&>(*this)) {}

    /// The lines as words, such as `{0 [ fixed 000102 form131 wants15:3 picture15:000102 ] }`:
    /// streams, edit units and slices in brackets.
    std::string words() const {
        static const std::pair<std::regex, const char*> shorter[] = {
            {std::regex("g startStream "), "{"}, {std::regex("g endStream\n"), "}\n"},
            {std::regex("startEditUnit"), "["},  {std::regex("endEditUnit"), "]"},
            {std::regex("startSlice"), "("},     {std::regex("endSlice"), ")"},
            {std::regex(" (..)010101 "), "$1:"}, {std::regex("e form "), "e form"},
            {std::regex("(^|\n)[a-z] "), " "},   {std::regex("\n"), " "},
        };
        std::string text = Recording::text();
        for (const auto& [pattern, words] : shorter) {
            text = std::regex_replace(text, pattern, words);
        }
        return text;
    }
};
