#include "io/ScratchDirectory.h"
#include "support/Testing.h"

#include <boost/iostreams/filter/aggregate.hpp>
#include <boost/iostreams/filtering_stream.hpp>
#include <boost/iostreams/stream.hpp>

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <limits>
#include <pthread.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

using boost::iostreams::stream;
using std::ios_base;
using vexa::file_device;
using vexa::file_sink;
using vexa::file_source;

static_assert(std::is_base_of<std::istream, stream<file_source>>::value, "");
static_assert(!std::is_base_of<std::ostream, stream<file_source>>::value, "");
static_assert(std::is_base_of<std::istream, stream<tessel::fam_source>>::value, "");
static_assert(std::is_base_of<std::ostream, stream<file_sink>>::value, "");
static_assert(!std::is_base_of<std::istream, stream<file_sink>>::value, "");
static_assert(std::is_base_of<std::iostream, stream<file_device>>::value, "");

class FileStream : public ::testing::Test {
protected:
    ScratchDirectory scratch;
    std::string path = scratch.file("file");
};

std::string readFrom(std::istream& in, std::size_t count) {
    std::string bytes(count, '\0');
    in.read(bytes.data(), static_cast<std::streamsize>(count));
    bytes.resize(static_cast<std::size_t>(in.gcount()));
    return bytes;
}

// Sizes on both sides of the buffer's, so that buffered and direct transfers take turns.
std::size_t someSize(std::mt19937& engine) {
    static const std::size_t limits[] = {1, 20, 4096, 65535, 65536, 65537, 200000};
    const std::size_t limit = limits[engine() % 7];
    return engine() % 2 == 0 ? limit : engine() % limit + 1;
}

TEST_F(FileStream, BehavesAsTheBytesInMemory) {
    for (const std::streamsize bufferSize : {-1, 0, 7, 1000}) {
        std::mt19937 engine(11);
        std::string model = randomBytes(700001);
        scratch.fileWith("file", model);
        stream<file_device> file(file_device(path, ios_base::in | ios_base::out), bufferSize);
        std::size_t position = 0;
        for (int i = 0; i < 2500; ++i) {
            SCOPED_TRACE("buffer " + std::to_string(bufferSize) + " step " + std::to_string(i));
            const std::size_t size = someSize(engine);
            // Long runs of reading alone, then others of both.
            switch (engine() % (i % 1000 < 500 ? 6 : 8)) {
            case 0:
                position = engine() % (model.size() + 1);
                if (engine() % 2 == 0) {
                    file.seekp(static_cast<std::streamoff>(position));
                } else {
                    file.seekg(static_cast<std::streamoff>(position) -
                                   static_cast<std::streamoff>(model.size()),
                               ios_base::end);
                }
                break;
            case 1:
                position = std::max(position, size) - size;
                file.seekg(static_cast<std::streamoff>(position) - file.tellg(), ios_base::cur);
                break;
            case 2:
                ASSERT_EQ(file.tellp(), static_cast<std::streamoff>(position));
                ASSERT_EQ(file.peek(), position < model.size()
                                           ? static_cast<unsigned char>(model[position])
                                           : std::istream::traits_type::eof());
                break;
            case 6:
            case 7: {
                const std::string bytes = randomBytes(size, static_cast<unsigned>(i));
                size == 1 ? file.put(bytes[0])
                          : file.write(bytes.data(), static_cast<std::streamsize>(size));
                ASSERT_TRUE(file.good());
                model.replace(position, size, bytes);
                position += size;
                break;
            }
            default:
                const std::string expected = model.substr(position, size);
                ASSERT_TRUE(readFrom(file, size) == expected);
                ASSERT_EQ(file.eof(), expected.size() < size);
                position += expected.size();
                file.clear();
                if (!expected.empty() && engine() % 2 == 0) {
                    ASSERT_TRUE(file.unget());
                    --position;
                }
            }
            file.clear();
        }
        file.close();
        EXPECT_TRUE(bytesOf(path) == model);
    }
}

TEST_F(FileStream, LargeTransfersBypassTheBuffer) {
    const std::string bytes = randomBytes(3000000);
    file_sink sink(path);
    stream<file_sink> out(sink);
    out.write(bytes.data(), 20);
    out.write(bytes.data() + 20, static_cast<std::streamsize>(bytes.size()) - 20);
    EXPECT_TRUE(bytesOf(path) == bytes.substr(0, 45 * 65536))
        << "whole buffers go out, and only they";
    EXPECT_EQ(out.tellp(), 3000000);
    EXPECT_EQ(sink.seek(0, ios_base::cur), 45 * 65536) << "tellp has no need to write";
    out.flush();
    EXPECT_TRUE(bytesOf(path) == bytes);

    file_source source(path);
    stream<file_source> in(source);
    EXPECT_TRUE(readFrom(in, 20) == bytes.substr(0, 20));
    EXPECT_TRUE(readFrom(in, 500000) == bytes.substr(20, 500000));
    EXPECT_EQ(source.seek(0, ios_base::cur), 500020) << "more was read than asked for";
    EXPECT_TRUE(in.unget().unget().unget().unget());
    EXPECT_TRUE(readFrom(in, 100) == bytes.substr(500016, 100));
    const char other = static_cast<char>(~bytes[500115]);
    EXPECT_EQ(in.putback(other).get(), static_cast<unsigned char>(other));
    for (const std::streamoff skipped : {800000, 600000}) {
        in.seekg(skipped);
        EXPECT_TRUE(readFrom(in, 20) == bytes.substr(static_cast<std::size_t>(skipped), 20));
        EXPECT_LE(source.seek(0, ios_base::cur), skipped + 4096) << "much was read ahead";
    }
    std::size_t position = 600020;
    const auto readOn = [&](std::size_t count) {
        position += count;
        return readFrom(in, count) == bytes.substr(position - count, count);
    };
    const auto readAhead = [&] {
        return static_cast<std::size_t>(source.seek(0, ios_base::cur)) - position;
    };
    std::size_t most = 0;
    for (int i = 0; i < 200; ++i) {
        ASSERT_TRUE(readOn(5000));
        most = std::max(most, readAhead());
    }
    EXPECT_TRUE(most > 131072 && most <= 262144) << most;
    EXPECT_TRUE(readOn(400000));
    EXPECT_EQ(readAhead(), 0U);
    EXPECT_TRUE(readOn(20));
    EXPECT_EQ(readAhead(), 262144U - 20) << "small reads used more before";
    EXPECT_TRUE(readOn(400000));
    EXPECT_TRUE(readOn(20));
    EXPECT_EQ(readAhead(), 4096U - 20) << "small reads used 20 bytes before";
    EXPECT_TRUE(readOn(4090));
    EXPECT_EQ(readAhead(), 8192U - 14) << "each fill is twice the last";
    EXPECT_TRUE(readOn(60000));
    EXPECT_EQ(readAhead(), 0U) << "most of a buffer is left, and read directly";
}

TEST_F(FileStream, PipeIsReadWithoutPosition) {
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    const std::string bytes = randomBytes(60000);
    const int writer = ::open(path.c_str(), O_RDWR);
    ASSERT_EQ(::write(writer, bytes.data(), bytes.size()), 60000);
    stream<file_source> in(path);
    ::close(writer);
    EXPECT_EQ(in.tellg(), -1);
    EXPECT_TRUE(readFrom(in, 16) == bytes.substr(0, 16));
    EXPECT_EQ(in.tellg(), -1);
    EXPECT_TRUE(readFrom(in, 70000) == bytes.substr(16));
    EXPECT_TRUE(in.eof());
    in.clear();
    in.seekg(0);
    EXPECT_TRUE(in.fail());
    for (const auto way : {ios_base::beg, ios_base::cur, ios_base::end}) {
        EXPECT_THROW(in.component()->seek(0, way), ios_base::failure);
    }
}

/// Files of this process can't grow beyond `limit` while this lives.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t limit) : oldHandler_(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &old_);
        const rlimit lower = {limit, old_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &lower);
    }
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &old_);
        std::signal(SIGXFSZ, oldHandler_);
    }

private:
    void (*oldHandler_)(int);
    rlimit old_;
};

TEST_F(FileStream, FailedWritesAreReportedAndNothingElseIsLost) {
    const std::string bytes = randomBytes(200000);
    const auto small = static_cast<std::streamsize>(50000);
    {
        const FileSizeLimit limit(70000);
        stream<file_sink> direct(path);
        EXPECT_FALSE(direct.write(bytes.data(), 200000)) << "a short write";
        EXPECT_TRUE(direct.bad());
        EXPECT_TRUE(bytesOf(path) == bytes.substr(0, 70000));
    }
    stream<file_sink> seeking(path);
    file_sink closed(scratch.file("closing"));
    stream<file_sink> closing(closed);
    file_sink left(scratch.file("left"));
    auto leaving = std::make_unique<stream<file_sink>>(left);
    {
        const FileSizeLimit limit(30000);
        for (auto* out : {&seeking, &closing, leaving.get()}) {
            EXPECT_TRUE(out->write(bytes.data(), small));
        }
        EXPECT_FALSE(seeking.seekp(0)) << "what the seek had to write is lost";
        EXPECT_THROW(closing.close(), ios_base::failure);
        EXPECT_FALSE(closing.is_open() || closed.is_open());
    }
    seeking.clear();
    EXPECT_TRUE(seeking.flush()) << "the rest can be written when there is room again";
    EXPECT_TRUE(bytesOf(path) == bytes.substr(0, 50000));
    leaving.reset();
    EXPECT_TRUE(bytesOf(scratch.file("left")) == bytes.substr(0, 50000));
}

TEST_F(FileStream, RefusedSeeksChangeNothing) {
    stream<file_sink> out(path);
    out << "abc";
    EXPECT_FALSE(out.seekp(-10, ios_base::cur));
    out.clear();
    out << "def" << std::flush;
    EXPECT_TRUE(out);
    out.close();
    EXPECT_EQ(bytesOf(path), "abcdef");

    stream<file_source> in(path);
    EXPECT_EQ(in.get(), 'a');
    using Limits = std::numeric_limits<std::streamoff>;
    for (const std::streamoff offset : {std::streamoff(-10), Limits::min(), Limits::max()}) {
        EXPECT_FALSE(in.seekg(offset, ios_base::cur)) << offset;
        in.clear();
    }
    EXPECT_TRUE(in.seekg(2, ios_base::cur));
    EXPECT_EQ(in.get(), 'd');
}

TEST_F(FileStream, DeviceFailuresSetBadbit) {
    scratch.fileWith("file", "0123456789");
    file_source source(path);
    stream<file_source> in(source);
    in.seekg(3);
    EXPECT_EQ(in.get(), '3');
    source.close();
    EXPECT_EQ(readFrom(in, 6), "456789") << "what came before is lost";
    readFrom(in, 1);
    EXPECT_TRUE(in.bad());
}

TEST_F(FileStream, OpensClosesAndOpensAgain) {
    EXPECT_THROW(stream<file_source>{file_source()}, ios_base::failure);
    EXPECT_THROW(stream<file_source>{path}, ios_base::failure);
    scratch.fileWith("file", "0123");
    stream<file_source> in(path);
    EXPECT_THROW(in.open(file_source(path)), ios_base::failure);
    EXPECT_EQ(readFrom(in, 5), "0123");
    in.close();
    EXPECT_FALSE(in.is_open());
    in.clear();
    EXPECT_EQ(in.get(), std::istream::traits_type::eof());
    EXPECT_TRUE(in.bad());
    in.open(file_source(path));
    EXPECT_EQ(readFrom(in, 3), "012");

    file_sink sink(scratch.file("kept"));
    {
        stream<file_sink> out(sink);
        out.set_auto_close(false);
        out << "kept";
    }
    EXPECT_TRUE(sink.is_open());
    EXPECT_EQ(bytesOf(scratch.file("kept")), "kept");
    { stream<file_sink>(sink) << " and closed"; }
    EXPECT_FALSE(sink.is_open());
    EXPECT_EQ(bytesOf(scratch.file("kept")), "kept and closed");
}

/// Writes nothing before it is closed.
class ReverseFilter : public boost::iostreams::aggregate_filter<char> {
    void do_filter(const vector_type& from, vector_type& to) override {
        to.assign(from.rbegin(), from.rend());
    }
};

TEST_F(FileStream, EndsAChain) {
    boost::iostreams::filtering_ostream out;
    file_sink sink(path);
    out.push(ReverseFilter());
    out.push(sink);
    out << "abc";
    out.reset();
    EXPECT_FALSE(sink.is_open());
    EXPECT_EQ(bytesOf(path), "cba");

    boost::iostreams::filtering_istream in;
    in.push(ReverseFilter());
    in.push(file_source(path));
    ASSERT_NE(in.component<file_source>(1), nullptr);
    EXPECT_EQ(readFrom(in, 4), "abc");
}

/// A thread that reads a file from a pipe, which gets the first `size` bytes of it until the thread
/// waits for more.
class PipeReader {
public:
    PipeReader(const std::string& pipe, const std::vector<std::uint8_t>& bytes, std::size_t size)
        : path_(pipe) {
        ::pthread_create(&thread_, nullptr, &run, this);
        file_ = ::open(path_.c_str(), O_WRONLY);
        write(bytes.data(), size);
        for (int unread = 1; unread != 0;) {
            ::ioctl(file_, FIONREAD, &unread);
            ::usleep(2000);
        }
    }
    ~PipeReader() { ::close(file_); }

    pthread_t thread() const { return thread_; }
    void write(const std::uint8_t* data, std::size_t size) {
        EXPECT_EQ(::write(file_, data, size), static_cast<ssize_t>(size));
    }
    void* end() {
        ::close(std::exchange(file_, -1));
        return join();
    }
    void* join() {
        void* result = nullptr;
        ::pthread_join(thread_, &result);
        return result;
    }

    std::string failure = "not read";

private:
    static void* run(void* self) {
        auto& reader = *static_cast<PipeReader*>(self);
        reader.failure = failureOf([&] {
            const auto in = boost::make_shared<stream<file_source>>(file_source(reader.path_));
            createVEXAReader(in, VEXAValidationMode::Off)->read();
        });
        return nullptr;
    }

    std::string path_;
    pthread_t thread_;
    int file_ = -1;
};

TEST_F(FileStream, ReaderThatWaitsForAPipeOutlivesASignalAndCanBeCancelled) {
    struct sigaction action = {}, before = {};
    action.sa_handler = [](int) {};
    ::sigaction(SIGUSR1, &action, &before);
    ::signal(SIGPIPE, SIG_IGN);
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    const auto bytes = testData("d10_30_625.mxf");
    // Before the first byte, within keys and packs, behind a pack, and within what is skipped.
    for (const std::size_t size : {0U, 5U, 11U, 14U, 18U, 100U, 124U, 140U, 3000U, 70000U}) {
        SCOPED_TRACE(size);
        {
            PipeReader cancelled(path, bytes, size);
            ::pthread_cancel(cancelled.thread());
            EXPECT_EQ(cancelled.join(), PTHREAD_CANCELED);
        }
        PipeReader interrupted(path, bytes, size);
        ::pthread_kill(interrupted.thread(), SIGUSR1);
        ::usleep(2000);
        interrupted.write(bytes.data() + size, bytes.size() - size);
        EXPECT_EQ(interrupted.end(), nullptr);
        EXPECT_EQ(interrupted.failure, "");
    }
    ::signal(SIGPIPE, SIG_DFL);
    ::sigaction(SIGUSR1, &before, nullptr);
}

} // namespace
