// Reading through the public interface.

#include "io/ScratchDirectory.h"
#include "support/Testing.h"

#include <boost/iostreams/stream.hpp>

namespace {

/// A reader with the two handlers, on a stream.
struct Reading {
    boost::shared_ptr<TestStream> stream;
    boost::shared_ptr<VEXAReader> reader = createVEXAReader(stream);
    Recording recording;
    boost::shared_ptr<KeepingErrorHandler> errors = boost::make_shared<KeepingErrorHandler>();

    explicit Reading(const Bytes& bytes, TestStreamOptions options = {})
        : stream(boost::make_shared<TestStream>(bytes, options)) {
        reader->setStructureHandler(boost::make_shared<StructureRecorder>(recording));
        reader->setErrorHandler(errors);
    }

    /// The structure events of one run, and what it threw.
    std::string run() {
        recording = Recording();
        const std::string failure = failureOf([&] { reader->read(); });
        return recording.text() + failure;
    }
};

} // namespace

TEST(VEXAReader, ReadsAgainFromTheBeginning) {
    Reading reading(soundFile().bytes().bytes());
    const std::string events = reading.run();
    EXPECT_NE(std::string::npos, events.find("endStructure\n"));
    EXPECT_EQ("4C4A0001 input stream is not good()", reading.run());
    EXPECT_EQ("fatal 4C4A0001 input stream is not good()\n", reading.errors->text());
    reading.stream->clear();
    reading.stream->seekg(0);
    EXPECT_EQ(events, reading.run());
    // Null clears.
    reading.stream->clear();
    reading.stream->seekg(0);
    reading.reader->setStructureHandler(nullptr);
    reading.reader->setErrorHandler(nullptr);
    EXPECT_EQ("", reading.run());
    EXPECT_EQ("stream is present", failureOf([] { createVEXAReader(nullptr); }));
}

// Long elements of essence and many short ones: only heads are read.
TEST(VEXAReader, ReadsNoEssenceThatNobodyAskedFor) {
    FileBuilder file = soundFile();
    file.partitions[1].body = someItem(500000).raw(someItem(500000));
    for (int i = 0; i < 1000; ++i) {
        file.partitions[1].body.raw(someItem(1000));
    }
    Reading reading(file.layOut().bytes().bytes(), {true, 64});
    EXPECT_NE(std::string::npos, reading.run().find("randomIndex 0:0 1:178 0:2020376\n"));
    EXPECT_EQ("", reading.errors->text());
    constexpr std::uint64_t elements = 1012;
    EXPECT_LE(reading.stream->buffer().bytesRead(), elements * 64 + 1000);
    EXPECT_LE(reading.stream->buffer().seeks(), elements + 10);
}

/// A hole of 5 GiB lies in an element.
TEST(VEXAReader, ReadsBeyondTheNumbersOf32Bits) {
    constexpr std::uint64_t hole = 5368709120;
    FileBuilder file = soundFile();
    file.partitions[1].body = KLVBytes().key(someItemKey).length(hole, 0x88);
    file.partitions.insert(file.partitions.begin() + 2, FilePartition());
    file.hasRandomIndex = false;
    MXFRandomIndex table = file.layOut().randomIndex();
    const auto front = static_cast<std::ptrdiff_t>(table[2].byteOffset);
    for (const std::size_t behind : {2U, 3U}) {
        table[behind].byteOffset += hole;
        file.partitions[behind].pack.thisPartition = table[behind].byteOffset;
    }
    file.partitions[3].pack.previousPartition = table[2].byteOffset;
    for (FilePartition& partition : file.partitions) {
        partition.pack.footerPartition = table[3].byteOffset;
    }
    const std::string bytes = file.bytes().raw(randomIndexPack(table)).text();
    const ScratchDirectory scratch;
    const std::string path = scratch.fileWith("large", bytes.substr(0, table[2].byteOffset - hole));
    std::filesystem::resize_file(path, table[2].byteOffset);
    std::ofstream(path, std::ios::app) << bytes.substr(static_cast<std::size_t>(front));

    Recording recording;
    const auto reader =
        createVEXAReader(boost::make_shared<boost::iostreams::stream<vexa::file_source>>(path));
    reader->setStructureHandler(boost::make_shared<StructureRecorder>(recording));
    reader->setErrorHandler(boost::make_shared<KeepingErrorHandler>(recording));
    EXPECT_EQ("", failureOf([&] { reader->read(); }));
    EXPECT_EQ("startParse\nstartStructure\n"
              "startPartition header 4 this 0 packByteCount 128\nendPartition header\n"
              "startPartition body 4 this 178 packByteCount 128\nendPartition body\n"
              "startPartition body 4 this 5368709481 packByteCount 128\nendPartition body\n"
              "startPartition footer 4 this 5368709609 packByteCount 128\nendPartition footer\n"
              "randomIndex 0:0 1:178 0:5368709481 0:5368709609\nendStructure\nendParse\n",
              recording.text());
}
