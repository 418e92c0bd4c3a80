// Reading through the public interface.

#include "support/Failures.h"
#include "support/FileBuilder.h"
#include "support/Recorder.h"
#include "support/TestStream.h"

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
    boost::shared_ptr<KeepingErrorHandler> errors =
        boost::make_shared<KeepingErrorHandler>(recording);

    explicit Reading(const Bytes& bytes, TestStreamOptions options = {})
        : stream(boost::make_shared<TestStream>(bytes, options)) {
        reader->setStructureHandler(boost::make_shared<StructureRecorder>(recording));
        reader->setErrorHandler(errors);
    }

    /// The events of one run, and what it threw.
    std::string run() {
        recording = Recording();
        const std::string failure = failureOf([&] { reader->read(); });
        if (!failure.empty()) {
            recording.add("thrown " + failure);
        }
        return recording.text();
    }
};

/// The structure events that a file must give, from its bytes alone.
std::string eventsOf(const Bytes& bytes, std::size_t runIn) {
    const std::vector<WalkedElement> elements = walkKLV(bytes, runIn);
    const char* const kinds[] = {"header", "body", "footer"};
    std::string events = runIn == 0 ? "" : "runIn " + std::to_string(runIn) + '\n';
    std::string end;
    events += "startParse\nstartStructure\n";
    for (std::size_t i = 0; i < elements.size(); ++i) {
        const WalkedElement& element = elements[i];
        if (element.key == randomIndexKey) {
            events += end + "randomIndex";
            end.clear();
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

std::string withoutReports(const std::string& events) {
    std::string rest;
    for (std::size_t at = 0; at < events.size();) {
        const std::size_t end = events.find('\n', at) + 1;
        const std::string line = events.substr(at, end - at);
        rest += line.find(" 4C4") == std::string::npos ? line : "";
        at = end;
    }
    return rest;
}

} // namespace

TEST(VEXAReader, ReadsFilesByOtherWriters) {
    const char* const runInReports =
        "error 4C4C0002 @1518 generalized operational pattern with run-in\n"
        "error 4C4C0002 @8686 generalized operational pattern with run-in\n"
        "error 4C4C0002 @755694 generalized operational pattern with run-in\n";
    const struct {
        const char* name;
        std::size_t runIn;
        const char* reports;
    } rows[] = {
        {"avc_longgop_50p.mxf", 0, ""},
        {"d10_30_625.mxf", 0, ""},
        {"longgop_25p_2ch.mxf", 0, ""},
        {"longgop_25p_run_in.mxf", 1006, runInReports},
        {"longgop_25p_second_writer.mxf", 0, ""},
        {"longgop_2997_dropframe.mxf", 0, ""},
        {"uncompressed_second_writer.mxf", 0, ""},
        {"vc3_720p25_clip_wrapped.mxf", 0, ""},
    };
    EXPECT_EQ(testDataNames().size(), std::size(rows) + 1) << "all but the truncated one";
    for (const auto& row : rows) {
        const Bytes bytes = testData(row.name);
        const std::string expected = eventsOf(bytes, row.runIn) + "endStructure\nendParse\n";
        ASSERT_EQ(bytes.size(), walkKLV(bytes, row.runIn).back().end) << row.name;
        for (const bool seekable : {true, false}) {
            TestStreamOptions options;
            options.seekable = seekable;
            Reading reading(bytes, options);
            EXPECT_EQ(expected, withoutReports(reading.run())) << row.name;
            EXPECT_EQ(row.reports, reading.errors->text()) << row.name;
        }
        EXPECT_NE(std::string::npos, expected.find("startPartition footer"));
    }
}

TEST(VEXAReader, ReportsTheEndOfATruncatedFile) {
    const Bytes bytes = testData("longgop_25p_truncated.mxf");
    for (const bool seekable : {true, false}) {
        TestStreamOptions options;
        options.seekable = seekable;
        Reading reading(bytes, options);
        const std::string events = reading.run();
        EXPECT_EQ(eventsOf(bytes, 0) + "endStructure aborted\nendParse\n", withoutReports(events));
        // A seek leads to where the last element should end, and only shows there.
        EXPECT_EQ(seekable ? "fatal 4C4A0001 @455444 unsuccessful read()\n"
                           : "fatal 4C4A0001 @451604 unsuccessful ignore()\n",
                  reading.errors->text());
        EXPECT_NE(std::string::npos, events.find("\nthrown 4C4A0001 unsuccessful "));
    }
}

TEST(VEXAReader, StreamsThatSeekAndStreamsThatDoNotTellTheSame) {
    FileBuilder file = soundFile();
    file.runIn.counting(200).raw({6, 6, 0x0E, 0x2B});
    file.partitions[1].pack.previousPartition = 3;
    file.hasRandomIndex = false;
    const std::string expected =
        "runIn 204\nstartParse\nstartStructure\n"
        "startPartition header 4 this 0 packByteCount 128\nendPartition header\n"
        "warning 4C4C0105 @510 incorrect previousPartition\n"
        "startPartition body 4 this 178 packByteCount 128\nendPartition body\n"
        "startPartition footer 4 this 386 packByteCount 128\nendPartition footer\n"
        "endStructure\nendParse\n";
    for (const bool seekable : {true, false}) {
        for (const std::size_t readSize : {1U, 7U, 11U, 128U, 4096U}) {
            TestStreamOptions options;
            options.seekable = seekable;
            options.readSize = readSize;
            EXPECT_EQ(expected, Reading(file.bytes().bytes(), options).run()) << readSize;
        }
    }
}

TEST(VEXAReader, ReadsAgainFromTheBeginning) {
    FileBuilder file = soundFile();
    file.runIn.counting(10);
    Reading reading(file.bytes().bytes());
    const std::string events = reading.run();
    EXPECT_NE(std::string::npos, events.find("endStructure\nendParse\n"));
    EXPECT_EQ("fatal 4C4A0001 input stream is not good()\n"
              "thrown 4C4A0001 input stream is not good()\n",
              reading.run());
    reading.stream->clear();
    reading.stream->seekg(0);
    EXPECT_EQ(events, reading.run());

    // Null clears; the stream is read to its end all the same.
    reading.stream->clear();
    reading.stream->seekg(0);
    reading.reader->setStructureHandler(nullptr);
    reading.reader->setErrorHandler(nullptr);
    EXPECT_EQ("", reading.run());
    EXPECT_TRUE(reading.stream->eof());
    EXPECT_EQ("stream is present", failureOf([] { createVEXAReader(nullptr); }));
}

TEST(VEXAReader, LetsAHandlersExceptionOut) {
    struct Thrower : DullMXFStructureHandler {
        void startPartition(const KLVKey& key, const MXFPartitionPack&, std::uint64_t) override {
            if (MXFPartitionKey::isBody(key)) {
                throw std::out_of_range("handler");
            }
        }
        void endStructure(bool aborted) override { wasAborted = aborted; }
        bool wasAborted = false;
    };
    const auto thrower = boost::make_shared<Thrower>();
    Reading reading(soundFile().bytes().bytes());
    reading.reader->setStructureHandler(thrower);
    EXPECT_EQ("startParse\nendParse\nthrown handler\n", reading.run());
    EXPECT_TRUE(thrower->wasAborted);
}

// Long elements of essence and many short ones: only heads are read.
TEST(VEXAReader, ReadsNoEssenceThatNobodyAskedFor) {
    FileBuilder file = soundFile();
    file.partitions[1].body = someItem(500000).raw(someItem(500000));
    for (int i = 0; i < 1000; ++i) {
        file.partitions[1].body.raw(someItem(1000));
    }
    const Bytes bytes = file.layOut().bytes().bytes();
    TestStreamOptions options;
    options.readSize = 64;
    Reading reading(bytes, options);
    EXPECT_NE(std::string::npos, reading.run().find("randomIndex 0:0 1:178 0:2020376\n"));
    EXPECT_EQ("", reading.errors->text());
    const std::uint64_t elements = walkKLV(bytes).size();
    EXPECT_EQ(1012U, elements);
    EXPECT_LE(reading.stream->buffer().bytesRead(), elements * options.readSize + 1000);
    EXPECT_LE(reading.stream->buffer().seeks(), elements + 10);
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
