#include "util/byte_vector_device.h"
#include "util/vector_istream.h"

#include <boost/iostreams/stream.hpp>
#include <gtest/gtest.h>
#include <limits>

namespace {

TEST(VectorStreambuf, SeeksWithinTheVectorAndRefusesToLeaveIt) {
    const std::vector<std::uint8_t> bytes{10, 11, 0xFF, 13};
    constexpr std::streamoff far = std::numeric_limits<std::streamoff>::max();
    struct Case {
        std::streamoff offset;
        std::ios_base::seekdir way;
        int position;
    };
    const Case cases[] = {
        {0, std::ios_base::beg, 0},    {4, std::ios_base::beg, 4},
        {5, std::ios_base::beg, -1},   {-1, std::ios_base::beg, -1},
        {-2, std::ios_base::cur, 0},   {-3, std::ios_base::cur, -1},
        {2, std::ios_base::cur, 4},    {3, std::ios_base::cur, -1},
        {far, std::ios_base::cur, -1}, {-far, std::ios_base::cur, -1},
        {-4, std::ios_base::end, 0},   {-5, std::ios_base::end, -1},
        {1, std::ios_base::end, -1},   {far, std::ios_base::end, -1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.offset << " from " << c.way);
        util::vector_streambuf buffer(bytes);
        buffer.pubseekpos(2);
        EXPECT_EQ(buffer.pubseekoff(c.offset, c.way, std::ios_base::in),
                  std::streampos(c.position));
        const int present = c.position == -1 ? 2 : c.position;
        EXPECT_EQ(buffer.sgetc(), present == 4 ? EOF : bytes[static_cast<std::size_t>(present)]);
        EXPECT_EQ(buffer.pubseekoff(0, c.way, std::ios_base::out), std::streampos(-1));
    }
    const std::vector<std::uint8_t> none;
    util::vector_streambuf empty(none);
    EXPECT_EQ(empty.sgetc(), EOF);
    EXPECT_EQ(empty.pubseekoff(0, std::ios_base::cur), std::streampos(-1));
    EXPECT_EQ(empty.pubseekpos(0), std::streampos(-1));
}

TEST(VectorIstream, ReadsInPlaceAndOnAgainAfterItsEnd) {
    std::vector<std::uint8_t> bytes{1, 2};
    util::vector_istream in(bytes);
    bytes[1] = 9;
    EXPECT_EQ(in.get(), 1);
    EXPECT_EQ(in.get(), 9);
    EXPECT_EQ(in.tellg(), std::streampos(2));
    EXPECT_EQ(in.get(), EOF);
    in.clear();
    in.seekg(0);
    EXPECT_EQ(in.get(), 1);
}

TEST(ByteVectorDevice, AppendsToWhatTheVectorHolds) {
    std::vector<std::uint8_t> bytes{1};
    boost::iostreams::stream<util::byte_vector_device> out(bytes);
    out.put('\x80').write("\0\xFF", 2);
    out.flush();
    EXPECT_EQ(bytes, (std::vector<std::uint8_t>{1, 0x80, 0, 0xFF}));
}

} // namespace
