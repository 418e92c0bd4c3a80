// A whole file through all handlers at once: the order of the events, that each handler sees the
// same whoever else is set, and that essence comes out byte for byte.

#include "support/FileBuilder.h"
#include "support/Recorder.h"
#include "support/TestStream.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <fstream>
#include <iomanip>
#include <map>
#include <sstream>

namespace {

using Bytes = KLVBytes::Bytes;
using Lines = std::vector<std::string>;

std::string numberOf(const KLVKey& key) {
    std::ostringstream number;
    number << std::hex << std::uppercase << std::setfill('0');
    for (std::size_t i = 12; i < KLVKey::size; ++i) {
        number << std::setw(2) << unsigned{key[i]};
    }
    return number.str();
}

std::string digestOf(const std::uint8_t* data, std::uint64_t size) {
    std::uint64_t digest = 14695981039346656037U; // FNV-1a
    for (std::uint64_t i = 0; i < size; ++i) {
        digest = (digest ^ data[i]) * 1099511628211U;
    }
    std::ostringstream text;
    text << std::hex << digest;
    return text.str();
}

/// Writes every event but those of the structure as a line; the first letter is the handler's.
class EventRecorder : public VEXAMetadataHandler,
                      public MXFIndexHandler,
                      public MXFGCStructureHandler,
                      public MXFGCEssenceHandler,
                      public MXFSDTICPSystemHandler,
                      public MXFQZProxySystemHandler {
public:
    explicit EventRecorder(Recording& recording) : recording_(recording) {}

    std::map<std::string, Bytes> essence;

    void startMetadata() override { add("m startMetadata"); }
    void endMetadata() override { add("m endMetadata"); }
    void model(const std::vector<boost::shared_ptr<MetadataRoot>>& roots) override {
        add("m model of " + std::to_string(roots.size()));
    }
    void xmlMetadata(const char*, std::size_t size) override {
        add("m xml " + std::to_string(size));
    }
    void startIndexTable() override { add("i startIndexTable"); }
    void endIndexTable() override { add("i endIndexTable"); }
    void indexTableSegment(const MXFIndexTableSegment& segment) override {
        add("i segment " + std::to_string(segment.indexStartPosition) + ' ' +
            std::to_string(segment.indexDuration));
    }
    void startStream(std::uint64_t kagSize) override {
        add("g startStream " + std::to_string(kagSize));
    }
    void endStream() override { add("g endStream"); }
    void startEditUnit() override { add("g startEditUnit"); }
    void endEditUnit() override { add("g endEditUnit"); }
    void startSlice() override { add("g startSlice"); }
    void endSlice() override { add("g endSlice"); }
    void startFixedElement(std::uint64_t) override { add("g startFixedElement"); }
    void endFixedElement() override { add("g endFixedElement"); }
    void startAlignedElement(std::uint64_t) override { add("g startAlignedElement"); }
    void endAlignedElement() override { add("g endAlignedElement"); }
    bool wantsEssence(const KLVKey& key, std::uint64_t length, std::uint8_t**) override {
        add("e wants " + numberOf(key) + ' ' + std::to_string(length));
        return true;
    }
    void pictureElement(const KLVKey& key, const std::uint8_t* data, std::uint64_t size) override {
        element("picture ", key, data, size);
    }
    void soundElement(const KLVKey& key, const std::uint8_t* data, std::uint64_t size) override {
        element("sound ", key, data, size);
    }
    void dataElement(const KLVKey& key, const std::uint8_t* data, std::uint64_t size) override {
        element("data ", key, data, size);
    }
    void compoundElement(const KLVKey& key, const std::uint8_t* data, std::uint64_t size) override {
        element("compound ", key, data, size);
    }
    void essenceLengthForm(std::uint8_t form) override { add("e form " + std::to_string(form)); }
    void systemMetadataPack(const MXFSDTICPSystemMetadata& pack) override {
        add("s pack " + std::to_string(pack.continuityCount) + ' ' +
            digestOf(pack.userStamp.data(), pack.userStamp.size()));
    }
    void packageMetadata(const Items& items) override { set("package", items); }
    void pictureMetadata(const Items& items) override { set("picture", items); }
    void soundMetadata(const Items& items) override { set("sound", items); }
    void dataMetadata(const Items& items) override { set("data", items); }
    void controlData(std::uint32_t tag, const std::vector<std::uint8_t>&) override {
        add("s control " + std::to_string(tag));
    }
    void proxySystemItem(std::uint32_t frames, const std::vector<MXFTimecode>&) override {
        add("p item " + std::to_string(frames));
    }

private:
    void add(const std::string& line) { recording_.add(line); }
    void set(const std::string& what, const Items& items) {
        add("s " + what + ' ' + std::to_string(items.size()));
    }
    void element(const std::string& kind, const KLVKey& key, const std::uint8_t* data,
                 std::uint64_t size) {
        add("e " + kind + numberOf(key) + ' ' + std::to_string(size) + ' ' + digestOf(data, size));
        Bytes& bytes = essence[numberOf(key)];
        bytes.insert(bytes.end(), data, data + size);
    }

    Recording& recording_;
};

/// One bit for each handler.
enum Handler : unsigned {
    Structure = 1,
    Metadata = 2,
    Index = 4,
    GCStructure = 8,
    System = 16,
    Proxy = 32,
    Essence = 64,
    Errors = 128,
    All = 255,
};

struct WholeRead {
    WholeRead(const Bytes& file, unsigned handlers, bool seekable = true) {
        const auto stream = boost::make_shared<TestStream>(file, TestStreamOptions{seekable});
        const auto reader = createVEXAReader(stream);
        if ((handlers & Structure) != 0) {
            reader->setStructureHandler(boost::make_shared<StructureRecorder>(recording));
        }
        if ((handlers & Metadata) != 0) {
            reader->setMetadataHandler(recorder);
        }
        if ((handlers & Index) != 0) {
            reader->setIndexHandler(recorder);
        }
        if ((handlers & GCStructure) != 0) {
            reader->setGCStructureHandler(recorder);
        }
        if ((handlers & System) != 0) {
            reader->setSDTICPSystemHandler(recorder);
        }
        if ((handlers & Proxy) != 0) {
            reader->setQZProxySystemHandler(recorder);
        }
        if ((handlers & Essence) != 0) {
            reader->setEssenceHandler(recorder);
        }
        if ((handlers & Errors) != 0) {
            reader->setErrorHandler(boost::make_shared<KeepingErrorHandler>());
        }
        try {
            reader->read();
        } catch (const klvutil::parse_error& error) {
            recording.add(std::string("ended by ") + error.what());
        }
    }

    Recording recording;
    boost::shared_ptr<EventRecorder> recorder = boost::make_shared<EventRecorder>(recording);
};

/// What the whole read says of those handlers.
Lines linesOf(const Lines& all, unsigned handlers) {
    const std::map<char, unsigned> handlerOf = {{'m', Metadata}, {'i', Index}, {'g', GCStructure},
                                                {'s', System},   {'p', Proxy}, {'e', Essence}};
    Lines lines;
    for (const std::string& line : all) {
        const bool named = line[1] == ' ';
        const unsigned handler = named                         ? handlerOf.at(line[0])
                                 : line.rfind("ended", 0) == 0 ? unsigned{All}
                                                               : unsigned{Structure};
        if ((handlers & handler) != 0 || handler == All) {
            lines.push_back(line);
        }
    }
    return lines;
}

TEST(WholeRead, TellsTheSameAsBefore) {
    for (const std::string& name : testDataNames()) {
        SCOPED_TRACE(name);
        const Bytes file = testData(name);
        const WholeRead read(file, All);
        const std::string stem = name.substr(0, name.find('.'));
        std::ifstream golden(testDataPath("expected/events_" + stem + ".txt"));
        std::ostringstream expected;
        expected << golden.rdbuf();
        EXPECT_EQ(read.recording.text(), expected.str());
        EXPECT_EQ(WholeRead(file, All, false).recording.text(), expected.str());
    }
}

TEST(WholeRead, TellsEachHandlerTheSameWhoeverElseIsSet) {
    for (const std::string& name : testDataNames()) {
        const Bytes file = testData(name);
        const Lines all = WholeRead(file, All).recording.lines();
        const bool small = file.size() < 130000;
        for (unsigned handlers = 0; handlers < All; handlers += small ? 1 : 17) {
            EXPECT_EQ(WholeRead(file, handlers).recording.lines(), linesOf(all, handlers))
                << name << " with handlers " << handlers;
        }
    }
}

TEST(WholeRead, GivesTheEssenceThatLiesInTheFile) {
    const KLVKey essence = smpteKey({1, 2, 1, 1, 0x0D, 1, 3, 1});
    for (const std::string& name : testDataNames()) {
        const Bytes file = withoutRunIn(testData(name));
        std::map<std::string, Bytes> expected;
        for (const WalkedElement& element : walkKLV(file)) {
            KLVKey family = element.key;
            std::fill(family.bytes.begin() + 12, family.bytes.end(), std::uint8_t{0});
            if (family == essence) {
                Bytes& bytes = expected[numberOf(element.key)];
                bytes.insert(bytes.end(), file.begin() + static_cast<std::ptrdiff_t>(element.value),
                             file.begin() + static_cast<std::ptrdiff_t>(element.end));
            }
        }
        ASSERT_FALSE(expected.empty()) << name;
        EXPECT_EQ(WholeRead(file, Essence).recorder->essence, expected) << name;
    }
}

} // namespace
