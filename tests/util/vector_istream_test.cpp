#include "util/vector_istream.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

TEST(VectorStreambuf, SeeksWithinTheVectorAndRefusesToLeaveIt) {
    const std::vector<std::uint8_t> bytes{10, 11, 0xFF, 13};
    constexpr std::streamoff far = std::numeric_limits<std::streamoff>::max();
    const struct {
        std::streamoff offset;
        std::ios_base::seekdir way;
        int position;
    } cases[] = {
        {4, std::ios_base::beg, 4},    {5, std::ios_base::beg, -1},    {-1, std::ios_base::beg, -1},
        {-2, std::ios_base::cur, 0},   {-3, std::ios_base::cur, -1},   {2, std::ios_base::cur, 4},
        {far, std::ios_base::cur, -1}, {-far, std::ios_base::cur, -1}, {-4, std::ios_base::end, 0},
        {-5, std::ios_base::end, -1},  {1, std::ios_base::end, -1},
    };
    for (const auto& c : cases) {
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

} // namespace
