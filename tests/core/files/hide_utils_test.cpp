#include "core/files/hide_utils.h"

#include <set>

#include "support/core_test.h"

using namespace MHideUtils;

namespace {

using HideUtilsTest = CoreTest;

TEST_F(HideUtilsTest, LinesComeBackFromOneHundredFiftyCharacters) {
    for (const std::size_t length : {0u, 80u, 147u, 148u}) {
        std::set<std::string> scrambled;
        const std::string plain(length, '"');
        for (int i = 0; i < 50; ++i) {
            const std::string& line = *scrambled.insert(EncodeLine(plain)).first;
            EXPECT_EQ(line.size(), 150u);
            EXPECT_EQ(line.find_first_of("\r\n"), std::string::npos);
            EXPECT_EQ(DecodeLine(line), plain);
        }
        EXPECT_EQ(scrambled.size() == 1, length == 148) << length;  // without padding there is nothing random
    }
    for (int i = 0; i < 5000; ++i)
        ASSERT_GE(RandomPadChar(), 1);  // never nothing, never above 127 as the marker is
}

TEST_F(HideUtilsTest, MalformedLinesAreErrors) {
    EXPECT_EQ(ErrorOf([] { EncodeLine(std::string(149, 'a')); }), 5);
    EXPECT_EQ(ErrorOf([] { EncodeLine(std::string(40, '\x80')); }), 5);  // folded with a letter it leaves 8 bits
    EXPECT_EQ(DecodeLine(std::string(150, ' ')), "");                    // no marker
    const std::string line = EncodeLine(std::string(148, 'x'));
    EXPECT_EQ(DecodeLine(line.substr(0, 100)), std::string(99, 'x'));  // no second marker: all there is
    EXPECT_EQ(DecodeLine(line + "\x01garbage"), std::string(148, 'x'));
}

TEST_F(HideUtilsTest, FilesAreDecodedLineByLine) {
    Save("v", EncodeLine("one") + "\r\n\r\n" + EncodeLine("") + "\r\n" + EncodeLine("last"));
    EXPECT_EQ(DecodeFile(folder_ / "v", folder_ / "t"), 0);
    EXPECT_EQ(ReadBytes(folder_ / "t"), "one\r\n\r\n\r\nlast\r\n");
    EXPECT_EQ(DecodeFile(folder_ / "none", folder_ / "t"), 1);
    EXPECT_EQ(DecodeFile(folder_ / "v", folder_ / "none/t"), 2);
    Save("v", EncodeLine("one") + "\r\nab\tc\r\n");
    EXPECT_EQ(ErrorOf([&] { DecodeFile(folder_ / "v", folder_ / "t"); }), 5);
}

}  // namespace
