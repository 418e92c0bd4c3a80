// Reading through the public interface.

#include "io/ScratchDirectory.h"
#include "support/Failures.h"
#include "support/FileBuilder.h"
#include "support/Recorder.h"
#include "support/TestStream.h"

#include <boost/iostreams/stream.hpp>
#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using Bytes = KLVBytes::Bytes;

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

/// The structure events that a file must give, up to its end, from its bytes alone.
std::string eventsOf(const Bytes& bytes, std::size_t runIn) {
    const std::vector<WalkedElement> elements = walkKLV(bytes, runIn);
    const char* const kinds[] = {"header", "body", "footer"};
    std::string events = runIn == 0 ? "" : "runIn " + std::to_string(runIn) + '\n';
    std::string end;
    events += "startStructure\n";
    for (std::size_t i = 0; i < elements.size(); ++i) {
        const WalkedElement& element = elements[i];
        if (element.key == randomIndexKey) {
            events += std::exchange(end, "") + "randomIndex";
            for (std::size_t entry = element.value; entry + 12 < element.end; entry += 12) {
                events += ' ' + std::to_string(numberAt(bytes, entry, 4)) + ':' +
                          std::to_string(numberAt(bytes, entry + 4, 8));
            }
            events += '\n';
        } else if (element.key[12] == 1 && element.key[4] == 2 && element.key[5] == 5 &&
                   element.key[13] >= 2 && element.key[13] <= 4) {
            const std::string kind = kinds[element.key[13] - 2];
            const bool hasFill = elements.at(i + 1).key[8] == 3;
            events += end + "startPartition " + kind + ' ' + std::to_string(element.key[14]) +
                      " this " + std::to_string(element.offset - runIn) + " packByteCount " +
                      std::to_string(elements[hasFill ? i + 1 : i].end - element.offset) + '\n';
            end = "endPartition " + kind + '\n';
        }
    }
    return events + end;
}

} // namespace

TEST(VEXAReader, ReadsFilesByOtherWriters) {
    const std::string pattern = " generalized operational pattern with run-in\n";
    for (const std::string& name : testDataNames()) {
        const bool truncated = name == "longgop_25p_truncated.mxf";
        const bool hasRunIn = name == "longgop_25p_run_in.mxf";
        const Bytes bytes = testData(name);
        const std::string events = eventsOf(bytes, hasRunIn ? 1006 : 0) + "endStructure";
        for (const bool seekable : {true, false}) {
            // A seek leads to where the last element should end, and only shows there.
            const std::string failure = seekable ? "unsuccessful read()" : "unsuccessful ignore()";
            const std::string place = seekable ? "@455444 " : "@451604 ";
            Reading reading(bytes, {seekable});
            EXPECT_EQ(events + (truncated ? " aborted\n4C4A0001 " + failure : "\n"), reading.run())
                << name;
            EXPECT_EQ(truncated  ? "fatal 4C4A0001 " + place + failure + '\n'
                      : hasRunIn ? "error 4C4C0002 @1518" + pattern + "error 4C4C0002 @8686" +
                                       pattern + "error 4C4C0002 @755694" + pattern
                                 : "",
                      reading.errors->text())
                << name;
        }
    }
    EXPECT_EQ(9U, testDataNames().size());
}

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

TEST(VEXAReader, LetsAHandlersExceptionOut) {
    Reading reading(soundFile().bytes().bytes());
    reading.recording.interfere(3, [] { throw std::out_of_range("handler"); });
    EXPECT_EQ("handler", failureOf([&] { reading.reader->read(); }));
    EXPECT_EQ("startStructure\nstartPartition header 4 this 0 packByteCount 128\n"
              "endPartition header\nendPartition body\nendStructure aborted\n",
              reading.recording.text());
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

TEST(VEXAToolkit, TellsWhatItIs) {
    const MXFProductVersion version = getVEXAToolkitVersion();
    EXPECT_EQ(4, version.majorVersion);
    EXPECT_EQ(11, version.minorVersion);
    EXPECT_EQ(0, version.patchVersion);
    EXPECT_EQ(121, version.buildVersion);
    EXPECT_EQ(1, version.releaseVersion);
    EXPECT_EQ(L"Orvo MXF Toolset (MacOS X)", getVEXAPlatform());
}
