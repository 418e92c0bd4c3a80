#include "gc/GCEvents.h"
#include "gc/MXFGCMuxer.h"
#include "gc/MXFGCSplitter.h"
#include "klv/Fault.h"
#include "support/AllocationCount.h"
#include "support/Testing.h"

namespace {

const KLVKey noEssenceKey = essenceKey(0x14);
const KLVKey noSystemKey = smpteKey({2, 5, 1, 1, 0x0D, 1, 3, 1, 0x15});

/// Elements by letters. Those that have a key here have one byte; the others are system elements, 4
/// to 8 such as lie, a label, fill, and a sound element whose length is one octet.
KLVBytes elements(const std::string& letters) {
    const std::map<char, KLVKey> keys = {
        {'p', essenceKey(0x15)}, {'s', essenceKey(0x16)}, {'d', essenceKey(0x17)},
        {'c', essenceKey(0x18)}, {'P', essenceKey(5)},    {'S', essenceKey(6)},
        {'D', essenceKey(7)},    {'e', noEssenceKey},     {'y', noSystemKey},
        {'i', someItemKey},      {'w', someWrapperKey},   {'u', someUniversalSetKey},
    };
    const auto klv = [](int coding, const KLVBytes& value, std::uint64_t length) {
        return KLVBytes().key(systemKey(coding)).length(length, 0x87).raw(value);
    };
    const std::map<char, KLVBytes> others = {
        {'1', KLVBytes().klv(systemKey(5), KLVBytes{1, 2})},
        {'2', klv(0x53, KLVBytes{1, 2, 0, 3, 7, 8, 9, 0xFF, 0xFE, 0, 0}, 11)},
        {'3', klv(0x24, KLVBytes{0, 1, 6}, 3)},
        {'4', klv(0x53, KLVBytes{1, 2, 0, 3, 7, 8, 9, 1, 2, 0, 10}.counting(10), 12)},
        {'5', klv(4, KLVBytes().length(UINT64_MAX, 0x88), 99)},
        {'6', klv(5, KLVBytes{1}, 0x1000000)},
        {'7', klv(5, KLVBytes{1}, 0xFFFFFF)},
        {'8', klv(0x24, KLVBytes().raw(Bytes(65537)), 65537)},
        {'l', KLVBytes().key(someLabelKey)},
        {'f', KLVBytes().fill(3)},
        {'_', KLVBytes().klv(essenceKey(0x16), KLVBytes{3}, 1)},
    };
    KLVBytes bytes;
    for (const char letter : letters) {
        const auto key = keys.find(letter);
        key != keys.end() ? bytes.klv(key->second, KLVBytes{9}) : bytes.raw(others.at(letter));
    }
    return bytes;
}

template <class Splitter = MXFGCSplitter> struct Split : GCRecorder {
    KeepingErrorHandler errors{*this};
    Splitter splitter{this, this, this};

    Split() { splitter.setErrorHandler(&errors); }
    std::string run(const KLVBytes& bytes) {
        TestStream in(bytes.bytes());
        const std::string failure = failureOf([&] { GenericKLVReader(splitter).parse(in); });
        return words() + failure;
    }
};

std::string error(const std::string& codeAndText, const KLVKey& key) {
    return " error 4C4D000" + codeAndText + " - " + klvutil::describe(key);
}

struct WideSplitter : MXFGCSplitter {
    using MXFGCSplitter::MXFGCSplitter;
    bool isEssenceElement(const KLVKey&) override { return true; }
    bool isCompoundElement(const KLVKey& key) override { return key == someItemKey; }
    bool allowsMixedEssence() override { return true; }
};

TEST(MXFGCSplitter, FindsEditUnitsAndElements) {
    const std::string p = " wants15:1 picture15:09";
    const std::string s = " wants16:1 sound16:09";
    const std::string late = error("3 unexpected GC essence element", essenceKey(0x16));
    const std::string lateSystem = error("3 unexpected GC system element", systemKey(5));
    const std::string noItem = error("1 invalid GC essence element", someItemKey);
    const std::string warning = " warning 4C4D0002 non-standard BER length form - 0x";
    const std::string no = "1 invalid GC element", noSystem = "1 invalid GC system element";
    const std::string unread = " ] } 4C4A0001 unsuccessful read()";
    const std::pair<const char*, std::string> rows[] = {
        {"fpfp", " [ form131" + p + " ] [" + p + " ] } "},
        {"12sPf1D", " [ fixed 0102 set 258=070809 65534= form131" + s +
                        " wants05:1 picture05:09 ] [ fixed 0102 wants07:1 data07:09 ] } "},
        {"1Sdc", " [ fixed 0102 form131 wants06:1 sound06:09 wants17:1 data17:09 wants18:1 "
                 "compound18:09 ] } "},
        {"1s3__", " [ fixed 0102 form131" + s + " items::06" + warning +
                      "01 form1 wants16:1 sound16:03 wants16:1 sound16:03 ] } "},
        {"psps", " [ form131" + p + late + s + " ] [" + p + s + " ] } "},
        {"sp", " [ form131" + s + error("3 unexpected GC essence element", essenceKey(0x15)) + p +
                   " ] } "},
        {"p1p", " [ form131" + p + lateSystem + " fixed 0102 ] [" + p + " ] } "},
        {"ps1p", " [ form131" + p + late + s + " fixed 0102 ] [" + p + " ] } "},
        {"iip", " [" + noItem + " [" + noItem + " form131" + p + " ] } "},
        {"i", " [" + noItem + " } "},
        {"1ey1", " [ fixed 0102" + error("1 invalid GC essence element", noEssenceKey) +
                     error(noSystem, noSystemKey) + " ] [ fixed 0102 ] } "},
        {"lu1w", error(no, someLabelKey) + error(no, someUniversalSetKey) + " [ fixed 0102" +
                     error(no, someWrapperKey) + " ] } "},
        {"4", " [" + error(noSystem, systemKey(0x53)) + " ] } 4C4B0003 incorrect local set length"},
        {"5", " [" + warning + "88" + error(noSystem, systemKey(4)) +
                  " ] } 4C4A0001 unsuccessful seekg()"},
        {"6", " [" + error(noSystem, systemKey(5)) + unread},
        {"7", " [" + unread},
        {"8", " [" + error(noSystem, systemKey(0x24)) + " ] } "}};
    for (const auto& [letters, events] : rows) {
        EXPECT_EQ("{0" + events, Split<>().run(elements(letters))) << letters;
    }
    EXPECT_EQ((Split<WideSplitter>().run(elements("pi"))),
              "{0 [ form131" + p + " wants 00000000 1 compound 00000000 09 ] } ");
    Split<> unheard;
    unheard.wanted = false;
    unheard.run(elements("123s"));
    unheard.splitter.setSystemHandler(nullptr);
    unheard.splitter.setEssenceHandler(nullptr);
    EXPECT_EQ(unheard.run(elements("p1s")),
              "{0 [ form131 wants16:1 ] } {0 [" + lateSystem + " ] } ");
}

TEST(MXFGCSplitter, PutsEssenceTogetherOrPassesItInPieces) {
    const std::string unread = "] } 4C4A0001 unsuccessful read()";
    const auto picture = [](std::size_t size) {
        const KLVBytes bytes = KLVBytes().counting(size);
        return "picture15:" + valueText(bytes.bytes().data(), size);
    };
    std::string pieces = "chunks 16777216 ";
    for (int i = 0; i < 256; ++i) {
        pieces += picture(65536) + ' ';
    }
    enum To { Own, Theirs, Chunks, Nobody };
    const struct {
        std::uint64_t announced, size;
        To to;
        std::string events;
    } rows[] = {
        {0, 0, Own, "picture15: ] } "},
        {0, 0, Theirs, "picture15:* ] } "},
        {0xFFFFFF, 0xFFFFFF, Chunks, picture(0xFFFFFF) + " ] } "},
        {0xFFFFFF, 5, Own, unread},
        {0x1000000, 0x1000000, Own,
         "error 4C4D0004 unsupported GC essence element length - "
         "0x1000000 picture15:16777216 null ] } "},
        {0x1000000, 0x1000000, Theirs, picture(0x1000000) + "* ] } "},
        {0x1000000, 0x1000000, Chunks, pieces + "chunked ] } "},
        {0x1000000, 0x1000000, Nobody, "] } "},
        {1ULL << 40, 65541, Chunks, "chunks 1099511627776 " + picture(65536) + ' ' + unread},
    };
    for (const auto& row : rows) {
        const KLVBytes head = KLVBytes().key(essenceKey(0x15)).length(row.announced, 0x87);
        const KLVBytes bytes = KLVBytes(head).counting(row.size);
        Split<> whole;
        whole.largestBuffer = row.to == Theirs ? row.announced + 1 : 0;
        whole.chunked = row.to == Chunks;
        whole.wanted = row.to != Nobody;
        EXPECT_EQ("{0 [ form135 wants15:" + std::to_string(row.announced) + ' ' + row.events,
                  whole.run(bytes));
    }
}

TEST(MXFGCSplitter, ChecksTheOrderOfEvents) {
    const KLVKey key = essenceKey(0x15), packKey = systemKey(5);
    const Bytes bytes = {1, 2};
    Split<> split;
    split.chunked = true;
    MXFGCSplitter& to = split.splitter;
    std::uint8_t* buffer = nullptr;
    const auto start = [&](std::uint64_t size) { to.startIndividualItem(key, size, &buffer); };
    expectFailures({
        {"has accurate lengths", [&] { to.startStream(false); }},
        {"expected individual item", [&] { start(1); }},
        {"before start", [&] { to.startStream(true), to.startStream(true); }},
        {"expected value", [&] { to.value(bytes.data(), 1); }},
        {"", [&] { start(3); }},
        {"valid GC essence element key", [&] { to.endIndividualItem(noEssenceKey); }},
        // One byte is in its place already, two have to be copied, one is too many.
        {"", [&] { *buffer = 9, to.value(buffer, 1), to.value(bytes.data(), 2); }},
        {"valid essence buffer size", [&] { to.value(bytes.data(), 1); }},
        {"", [&] { to.endIndividualItem(key), start(0x1000000), to.setEssenceHandler(nullptr); }},
        {"has chunked essence handler", [&] { to.endIndividualItem(key); }},
        {"", [&] { to.setEssenceHandler(&split), start(0x1000000), to.endIndividualItem(key); }},
        {"", [&] { start(1), to.value(bytes.data(), 1), to.endIndividualItem(key); }},
        {"", [&] { to.startFixedLengthPack(packKey, 1, &buffer), to.setSystemHandler(nullptr); }},
        {"", [&] { to.endFixedLengthPack(packKey); }},
    });
    const std::string chunks = "] [ wants15:16777216 chunks 16777216 ";
    EXPECT_EQ(split.words(), "{0 [ wants15:3 picture15:090102 " + chunks + chunks +
                                 "chunked ] [ wants15:1 picture15:01" +
                                 error("3 unexpected GC system element", packKey) + ' ');
}

TEST(MXFGCSplitter, EndsItsStreamWhenAHandlerFailsAndBeginsAnew) {
    Split<> split;
    split.interfere(8, [] { throw std::runtime_error("refused"); });
    const std::string first = split.run(elements("ps"));
    EXPECT_EQ(first.substr(first.rfind("sound")), "sound16:09 } refused");
    EXPECT_EQ(split.run(elements("ss")).substr(first.size() - 7),
              "{0 [ form131 wants16:1 sound16:09 ] [ wants16:1 sound16:09 ] } ");
}

/// Without it a file would decide an allocation; with no growth, each read pays for one.
TEST(MXFGCSplitter, GrowsItsBufferOnceAPartHasComeAndALentOneForTheNextRun) {
    EssenceBuffer buffer;
    const Bytes part(65536);
    const auto hasRoom = [&buffer] {
        buffer.useOwn(mxfgc::longestWholeElement);
        return buffer.whole() != nullptr;
    };
    EXPECT_FALSE(hasRoom());
    buffer.append(part.data(), part.size());
    EXPECT_FALSE(hasRoom());
    const KLVBytes bytes = KLVBytes().klv(essenceKey(0x15), KLVBytes().counting(300000));
    for (const std::uint64_t allocations : {1U, 0U}) {
        struct : DullMXFGCEssenceHandler {
            bool wantsEssence(const KLVKey&, std::uint64_t, std::uint8_t**) override {
                return true;
            }
            void pictureElement(const KLVKey&, const std::uint8_t* data, std::uint64_t) override {
                last = data[299999];
            }
            std::uint8_t last = 0;
        } handler;
        MXFGCSplitter splitter(nullptr, nullptr, &handler);
        splitter.setEssenceBuffer(buffer);
        TestStream in(bytes.bytes());
        const std::uint64_t before = allocationCount();
        GenericKLVReader(splitter).parse(in);
        EXPECT_LE(allocationCount() - before, allocations); // no growth bit by bit
        EXPECT_EQ(handler.last, static_cast<std::uint8_t>(299999));
    }
    EXPECT_FALSE(hasRoom());
}

TEST(MXFGCElementKey, TellsWhatAKeySays) {
    const KLVKey key = smpteKey({1, 2, 1, 9, 0x0D, 1, 3, 1, 0x18, 2, 3, 4});
    EXPECT_TRUE(MXFGCElementKey::kind(key) == MXFGCElementKey::Compound);
    EXPECT_EQ(MXFGCElementKey::trackNumber(key), 0x18020304U);
    EXPECT_EQ(MXFGCElementKey::elementCount(key), 2);
    EXPECT_EQ(MXFGCElementKey::elementType(key), 3);
    EXPECT_EQ(MXFGCElementKey::elementNumber(key), 4);
    for (const KLVKey& other : {smpteKey({1, 2, 1, 1, 0x0D, 1, 3, 1, 0x14}), // a system item's type
                                smpteKey({2, 5, 1, 1, 0x0D, 1, 3, 1, 0x15}), // a picture item's
                                smpteKey({1, 2, 1, 1, 0x0E, 1, 3, 1, 0x15})}) {
        EXPECT_FALSE(MXFGCElementKey::kind(other));
    }
}

} // namespace
