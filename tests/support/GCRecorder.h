#pragma once

#include "support/KLVBytes.h"
#include "support/Recorder.h"
#include "util/hex.h"

#include <vexa/gc/DullMXFGCStructureHandler.h>
#include <vexa/gc/MXFGCChunkedEssenceHandler.h>
#include <vexa/gc/MXFGCEssenceHandler.h>
#include <vexa/gc/MXFGCSystemHandler.h>

#include <algorithm>

inline KLVKey essenceKey(int itemType) {
    return smpteKey({1, 2, 1, 0x0A, 0x0D, 1, 3, 1, itemType, 1, 1, 1});
}
inline KLVKey systemKey(int coding) {
    return smpteKey({2, coding, 1, 0x0B, 0x0D, 1, 3, 1, coding == 5 ? 4 : 0x14, 1, 1, 0});
}

/// Writes the events of a Generic Container as words, such as `{0 [ pack:0102 form83 wants15:3
/// picture:000102 ] }`: streams, edit units and slices in brackets, and of a value the first bytes.
/// A value that lies in this recorder's own buffer has a * behind it.
struct GCRecorder : DullMXFGCStructureHandler, MXFGCSystemHandler, MXFGCEssenceHandler {
    using Data = const std::uint8_t*;
    using U64 = std::uint64_t;

    bool wanted = true;
    bool useBuffer = false;
    Recording recording;

    std::string words() const {
        std::string text = recording.text();
        std::replace(text.begin(), text.end(), '\n', ' ');
        return text;
    }

    void add(const std::string& word) { recording.add(word); }
    void startStream(U64 kagSize) override { add("{" + std::to_string(kagSize)); }
    void endStream() override { add("}"); }
    void startEditUnit() override { add("["); }
    void endEditUnit() override { add("]"); }
    void startSlice() override { add("("); }
    void endSlice() override { add(")"); }
    void startFixedElement(U64 length) override { add("fixed" + std::to_string(length)); }
    void endFixedElement() override { add("/fixed"); }
    void startAlignedElement(U64 grid) override { add("aligned" + std::to_string(grid)); }
    void endAlignedElement() override { add("/aligned"); }

    bool wantsSystem(const KLVKey&) override { return wanted; }
    void systemLocalSet(const KLVKey&, const LocalItems& items) override {
        std::string word = "set";
        for (const auto& [tag, bytes] : items) {
            word += ':' + std::to_string(tag) + '=' + hex(bytes.data(), bytes.size());
        }
        add(word);
    }
    void systemFixedLengthPack(const KLVKey&, const Bytes& bytes) override {
        add("pack:" + hex(bytes.data(), bytes.size()));
    }
    void systemVariableLengthPack(const KLVKey&, const PackItems& items) override {
        std::string word = "items";
        for (const Bytes& bytes : items) {
            word += ':' + hex(bytes.data(), bytes.size());
        }
        add(word);
    }

    bool wantsEssence(const KLVKey& key, U64 length, std::uint8_t** buffer) override {
        add("wants" + util::hexByte(key[12]) + ':' + std::to_string(length));
        if (useBuffer) {
            buffer_.resize(length + 1);
            *buffer = buffer_.data();
        }
        return wanted;
    }
    void pictureElement(const KLVKey&, Data d, U64 n) override { add("picture:" + hex(d, n)); }
    void soundElement(const KLVKey&, Data d, U64 n) override { add("sound:" + hex(d, n)); }
    void dataElement(const KLVKey&, Data d, U64 n) override { add("data:" + hex(d, n)); }
    void compoundElement(const KLVKey&, Data d, U64 n) override { add("compound:" + hex(d, n)); }
    void essenceLengthForm(std::uint8_t form) override { add("form" + util::hexByte(form)); }

private:
    std::string hex(Data data, U64 size) const {
        std::string text = data == nullptr && size > 0 ? "null" : "";
        for (U64 i = 0; data != nullptr && i < size && i < 4; ++i) {
            text += util::hexByte(data[i]);
        }
        return text + (size > 4 ? ".." + std::to_string(size) : "") +
               (useBuffer && data == buffer_.data() ? "*" : "");
    }

    Bytes buffer_;
};

/// Takes large elements in pieces.
struct ChunkedGCRecorder : GCRecorder, MXFGCChunkedEssenceHandler {
    bool wantsChunkedEssence(const KLVKey&, U64 length) override {
        add("chunks:" + std::to_string(length));
        return true;
    }
    void endChunkedEssence(const KLVKey&) override { add("/chunks"); }
};
