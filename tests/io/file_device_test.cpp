#include "io/ScratchDirectory.h"
#include "support/Testing.h"

#include <climits>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using std::ios_base;
using vexa::file_device;

constexpr auto in = ios_base::in;
constexpr auto out = ios_base::out;

/// The text of the failure that `action` ends in; the standard library appends ": " and its own.
std::string textOf(const std::function<void()>& action) {
    const std::string text = failureOf(action);
    return text.substr(0, text.find(": "));
}

/// The descriptor that the system gives out next.
int nextDescriptor() {
    const int descriptor = ::open("/dev/null", O_RDONLY);
    ::close(descriptor);
    return descriptor;
}

off_t systemPosition(int descriptor) {
    return ::lseek(descriptor, 0, SEEK_CUR);
}

std::string readFrom(file_device& device, long count) {
    std::string bytes(static_cast<std::size_t>(count), '\0');
    const long result = device.read(bytes.data(), count);
    bytes.resize(static_cast<std::size_t>(std::max(result, 0L)));
    return bytes;
}

class FileDevice : public ::testing::Test {
protected:
    ScratchDirectory scratch;
    std::string path = scratch.fileWith("file", "0123456789abcdefghij");
    char buffer[64] = {};
};

TEST_F(FileDevice, ClosedDeviceRefusesAllButOpenAndClose) {
    file_device closed(path, in);
    closed.close();
    for (file_device device : {file_device(), closed}) {
        EXPECT_FALSE(device.is_open());
        device.close();
        EXPECT_EQ(textOf([&] { device.read(buffer, 0); }), "not open");
        EXPECT_EQ(textOf([&] { device.seek(0, ios_base::beg); }), "not open");
        EXPECT_EQ(textOf([&] { device.truncate(); }), "not open");
        EXPECT_EQ(textOf([&] { device.hints(1, 1); }), "not open");
    }
}

TEST_F(FileDevice, FailedOpenKeepsTheFileBefore) {
    file_device device(path, in);
    EXPECT_EQ(readFrom(device, 5), "01234");
    const int next = nextDescriptor();
    const std::string missing = scratch.file("missing");
    const std::wstring surrogate = {L'a', static_cast<wchar_t>(0xD800)};
    EXPECT_EQ(textOf([&] { device.open(path, ios_base::binary, 0); }), "bad openmode");
    EXPECT_EQ(textOf([&] { device.open(surrogate, ios_base::openmode(), 0); }), "bad openmode");
    EXPECT_EQ(textOf([&] { device.open(missing, in, 0); }), "bad open");
    EXPECT_EQ(textOf([&] { device.open(missing, in | out, 0); }), "bad open");
    EXPECT_EQ(textOf([&] { device.open(surrogate, in, 0); }), "bad open");
    EXPECT_EQ(textOf([&] { device.open(path + '\0' + "x", in, 0); }), "bad open");
    EXPECT_EQ(textOf([&] { device.open(0, 10, missing, in, 0); }), "bad open");
#ifndef __APPLE__
    for (const ios_base::openmode mode : {in, out, in | out}) {
        EXPECT_EQ(textOf([&] { device.open(0, 10, path, mode, 0); }),
                  "bad partial offset/duration");
    }
    EXPECT_EQ(textOf([&] { device.open(0, 10, missing, out, 0); }), "bad partial offset/duration");
#endif
    try {
        device.open(missing, in, 0);
    } catch (const std::ios_base::failure& failure) {
        EXPECT_EQ(failure.code(), std::errc::no_such_file_or_directory);
    }
    EXPECT_FALSE(std::filesystem::exists(missing));
    EXPECT_EQ(nextDescriptor(), next) << "a failed open left a descriptor behind";
    EXPECT_EQ(readFrom(device, 5), "56789");
    EXPECT_EQ(bytesOf(path), "0123456789abcdefghij");
}

TEST_F(FileDevice, ModeDecidesWhatTheSystemAllows) {
    file_device source(path, in | ios_base::binary);
    EXPECT_EQ(textOf([&] { source.write("x", 1); }), "bad write");
    EXPECT_EQ(textOf([&] { source.truncate(); }), "bad truncate");

    file_device both(path, in | out);
    EXPECT_EQ(both.write("XY", 2), 2);
    EXPECT_EQ(readFrom(both, 3), "234");
    EXPECT_EQ(bytesOf(path), "XY23456789abcdefghij");

    file_device appending(path, out | ios_base::app);
    EXPECT_EQ(appending.seek(0, ios_base::end), 20);
    EXPECT_EQ(appending.write("Z", 1), 1);
    EXPECT_EQ(bytesOf(path), "XY23456789abcdefghijZ");

    file_device sink(path, out);
    EXPECT_EQ(bytesOf(path), "");
    EXPECT_EQ(textOf([&] { sink.read(buffer, 1); }), "bad read");

    const mode_t forbidden = ::umask(02);
    const file_device fresh(scratch.file("fresh"), out);
    ::umask(forbidden);
    EXPECT_EQ(static_cast<int>(std::filesystem::status(scratch.file("fresh")).permissions()), 0664);
}

TEST_F(FileDevice, WidePathIsUtf8) {
    const std::wstring wide = {L'/', static_cast<wchar_t>(0xE9), static_cast<wchar_t>(0x65E5),
                               static_cast<wchar_t>(0x1F3AC)};
    const std::wstring directory(path.begin(), path.end() - 5);
    vexa::file_sink(directory + wide).write("wide", 4);
    EXPECT_EQ(bytesOf(scratch.file("\xC3\xA9\xE6\x97\xA5\xF0\x9F\x8E\xAC")), "wide");
    tessel::fam_source source(directory + wide, in, file_device::NoCache);
    EXPECT_EQ(readFrom(source, 10), "wide");
    EXPECT_EQ(source.hints(), file_device::NoCache);
    EXPECT_EQ(tessel::fam_source(path, in, file_device::SmallReads).hints(),
              file_device::SmallReads);
}

TEST_F(FileDevice, SystemSeeksOnlyWhenATransferNeedsIt) {
    const int descriptor = nextDescriptor();
    file_device device(path, in | out);
    EXPECT_EQ(device.seek(4, ios_base::beg), 4);
    EXPECT_EQ(device.read(buffer, 0), 0);
    EXPECT_EQ(systemPosition(descriptor), 0);
    EXPECT_EQ(readFrom(device, 3), "456");
    EXPECT_EQ(systemPosition(descriptor), 7);

    // Behind the device's back: it must go on from here, since it believes to stand right.
    ::lseek(descriptor, 10, SEEK_SET);
    EXPECT_EQ(readFrom(device, 2), "ab");
    ::lseek(descriptor, 15, SEEK_SET);
    EXPECT_EQ(device.write("W", 1), 1);
    EXPECT_EQ(device.seek(0, ios_base::cur), 10);
    EXPECT_EQ(bytesOf(path), "0123456789abcdeWghij");

    EXPECT_EQ(device.seek(-2, ios_base::cur), 8);
    EXPECT_EQ(readFrom(device, 2), "89");
    EXPECT_EQ(device.seek(-3, ios_base::end), 17);
    EXPECT_EQ(readFrom(device, 9), "hij");
    EXPECT_EQ(device.read(buffer, 1), -1);
    EXPECT_EQ(device.read(buffer, -1), -1);
    EXPECT_EQ(device.seek(0, ios_base::cur), 20);
    EXPECT_EQ(device.write(buffer, -1), 0);
}

TEST_F(FileDevice, PositionOutsideTheFileSystemsRangeIsRefused) {
    file_device device(path, in);
    const auto seek = [&](long offset, ios_base::seekdir way) {
        return textOf([&] { device.seek(offset, way); });
    };
    for (const long before : {-1L, LONG_MIN}) {
        EXPECT_EQ(seek(before, ios_base::beg), "bad seek");
        EXPECT_EQ(textOf([&] { device.read(buffer, 1); }), "bad seek");
    }
    EXPECT_EQ(seek(10, ios_base::beg), "");
    EXPECT_EQ(seek(LONG_MAX, ios_base::cur), "bad seek");
    EXPECT_EQ(seek(-21, ios_base::end), "bad seek");
    EXPECT_EQ(seek(20, ios_base::cur), "") << "the computed position stays for the next seek";
    EXPECT_EQ(readFrom(device, 1), "j");
    EXPECT_EQ(seek(1L << 40, ios_base::beg), "");
    EXPECT_EQ(device.read(buffer, 1), -1);
}

TEST_F(FileDevice, EndOfAFileOnlyWrittenIsWhatTheDeviceWrote) {
    file_device sink(path, out);
    sink.write("abcdef", 6);
    std::ofstream(path, std::ios::app) << "foreign";
    EXPECT_EQ(sink.seek(0, ios_base::end), 6);
    sink.seek(2, ios_base::beg);
    sink.write("X", 1);
    EXPECT_EQ(sink.seek(0, ios_base::end), 6);
    sink.seek(4, ios_base::beg);
    sink.truncate();
    EXPECT_EQ(bytesOf(path), "abXd");
    EXPECT_EQ(sink.seek(0, ios_base::end), 6);

    file_device both(path, in | out);
    EXPECT_EQ(both.seek(0, ios_base::end), 4);
    both.seek(3, ios_base::cur);
    both.truncate();
    EXPECT_EQ(bytesOf(path), std::string("abXd\0\0\0", 7));
}

TEST_F(FileDevice, HintsLimitReadsAndOnlyOpenOnesChange) {
    const std::string large = scratch.file("large");
    std::ofstream(large).close();
    std::filesystem::resize_file(large, 0x2000000 + 100);
    file_device device(large, in,
                       file_device::PartialRange | file_device::NoCache | file_device::ReadAhead |
                           file_device::NoReadAhead);
    std::vector<char> bytes(0x2000000 + 100);
    const auto read = [&] { return device.read(bytes.data(), static_cast<long>(bytes.size())); };

    EXPECT_EQ(device.hints(), 0x0E);
    EXPECT_EQ(read(), 0x2000000);
    EXPECT_EQ(device.hints(1, 1), 0x0E);
    device.seek(0, ios_base::beg);
    EXPECT_EQ(read(), 512);
    EXPECT_EQ(device.read(bytes.data(), 100), 100);
    EXPECT_EQ(device.hints(0, 1), 0x0F);
    EXPECT_EQ(device.read(bytes.data(), 1000), 1000);

    EXPECT_EQ(device.hints(0xFF, 0xFF), 0x0E);
    EXPECT_EQ(device.hints(0x12300), 0x0F);
    EXPECT_EQ(device.hints(0, 0x300), 0x1230E);
    EXPECT_EQ(device.hints(), 0x1200E);
    EXPECT_EQ(device.optimal_buffer_size(), 65536);
    EXPECT_EQ(device.alignment(), 0);
}

TEST_F(FileDevice, CopiesShareFileAndPositionUntilOneOpensAnother) {
    file_device device(path, in);
    file_device copy = device;
    EXPECT_EQ(readFrom(device, 4), "0123");
    EXPECT_EQ(readFrom(copy, 4), "4567");
    copy.open(scratch.fileWith("other", "other"), in, 0);
    EXPECT_EQ(readFrom(copy, 4), "othe");
    EXPECT_EQ(readFrom(device, 4), "89ab");

    const int next = nextDescriptor();
    file_device second(path, in);
    file_device secondCopy = second;
    second.close();
    EXPECT_FALSE(second.is_open());
    EXPECT_FALSE(secondCopy.is_open());
    EXPECT_EQ(nextDescriptor(), next);
    { const file_device forgotten(path, in); }
    EXPECT_EQ(nextDescriptor(), next);
}

TEST_F(FileDevice, LostDescriptorIsReportedOnce) {
    const int descriptor = nextDescriptor();
    file_device device(path, in);
    ::close(descriptor);
    EXPECT_EQ(textOf([&] { device.read(buffer, 1); }), "bad read");
    EXPECT_EQ(textOf([&] { device.seek(0, ios_base::end); }), "bad seek");
    EXPECT_EQ(textOf([&] { device.close(); }), "bad close");
    EXPECT_FALSE(device.is_open());

    // The number may be someone else's by now: nothing may close it a second time.
    const int other = ::open(path.c_str(), O_RDONLY);
    ASSERT_EQ(other, descriptor);
    device = file_device();
    EXPECT_NE(::fcntl(other, F_GETFD), -1);
    ::close(other);
}

} // namespace
