#include "klv/streams.h"
#include "support/Testing.h"
#include "util/putback_streambuf.h"

#include <random>

namespace {

/// Random reads and putbacks to the end, held against a position in the bytes.
void readAtRandom(std::streambuf& buffer, const std::vector<std::uint8_t>& bytes, unsigned seed) {
    const std::string text(bytes.begin(), bytes.end());
    std::mt19937 random(seed);
    std::size_t position = 0, farthest = 0;
    while (position < text.size()) {
        const auto action = random() % 4;
        if (action <= 1) {
            ASSERT_EQ(buffer.sgetc(), bytes[position]);
            ASSERT_EQ(buffer.sbumpc(), bytes[position++]);
        } else if (action == 2) {
            std::string read(random() % 40, '\0');
            const std::streamsize wanted = static_cast<std::streamsize>(read.size());
            read.resize(static_cast<std::size_t>(buffer.sgetn(read.data(), wanted)));
            ASSERT_EQ(read, text.substr(position, static_cast<std::size_t>(wanted)));
            position += read.size();
        } else {
            for (auto n = random() % 20; n > 0; --n) {
                if (position > 0 && farthest - position < util::putback_streambuf::guaranteed) {
                    --position;
                    ASSERT_EQ(buffer.sputbackc(text[position]), bytes[position]);
                }
            }
        }
        farthest = std::max(farthest, position);
    }
    ASSERT_EQ(buffer.sgetc(), EOF);
}

/// The source puts nothing back itself where it brings a byte at a time.
TEST(PutbackStreambuf, BehavesLikeThePlainBytes) {
    std::vector<std::uint8_t> bytes(3000);
    std::generate(bytes.begin(), bytes.end(), std::mt19937(1));
    for (const std::size_t readSize : {1U, 5U, 64U, 4096U}) {
        for (unsigned seed = 1; seed <= 40; ++seed) {
            SCOPED_TRACE(testing::Message() << readSize << ' ' << seed);
            TestStream source(bytes, {false, readSize});
            {
                const util::putback_guard guard(source);
                readAtRandom(*source.rdbuf(), bytes, seed);
            }
            EXPECT_EQ(source.get(), EOF);
        }
    }
}

TEST(PutbackStreambuf, LeavesTheSourceWhereItsReaderStands) {
    const struct {
        int read;
        bool peek;
        int unget;
        std::size_t position;
    } cases[] = {{0, true, 0, 0}, {1, true, 0, 1}, {20, false, 1, 19}, {20, true, 16, 4}};
    const std::string text = "0123456789abcdefghijklmnopqrstuvwxyz";
    for (const auto& c : cases) {
        std::istringstream source(text); // takes everything back
        {
            const util::putback_guard guard(source);
            source.ignore(c.read);
            c.peek ? source.peek() : 0;
            for (int i = 0; i < c.unget; ++i) {
                source.unget();
            }
            EXPECT_TRUE(source.good());
        }
        EXPECT_EQ(std::string(std::istreambuf_iterator<char>(source), {}), text.substr(c.position));
    }
}

TEST(PutbackGuard, KeepsTheStateOfTheStream) {
    TestStream in(std::vector<std::uint8_t>(10), {true, 1, 8});
    std::streambuf* const source = in.rdbuf();
    {
        const util::putback_guard guard(in);
        EXPECT_FALSE(klvutil::isSeekable(in));
        char bytes[10];
        in.read(bytes, 10); // the source throws
        EXPECT_TRUE(in.bad());
        EXPECT_THROW(in.exceptions(std::ios_base::badbit), std::ios_base::failure);
    }
    EXPECT_EQ(in.rdbuf(), source);
    EXPECT_TRUE(in.bad());
}

} // namespace
