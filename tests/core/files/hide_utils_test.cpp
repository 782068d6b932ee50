#include "core/files/hide_utils.h"

#include "support/core_test.h"

using namespace MHideUtils;

namespace {

using HideUtilsTest = CoreTest;

TEST_F(HideUtilsTest, LinesComeBackFromOneHundredFiftyCharacters) {
    for (std::size_t i = 0; i < 20 * 149; ++i) {
        const std::string plain(i % 149, '"');
        const std::string line = EncodeLine(plain);
        EXPECT_EQ(line.size(), 150u);
        EXPECT_EQ(DecodeLine(line), plain);
    }
    for (int i = 0; i < 5000; ++i)
        ASSERT_GE(RandomPadChar(), 1);  // never nothing, never above 127 as the marker is
}

TEST_F(HideUtilsTest, MalformedLinesAreErrors) {
    EXPECT_EQ(ErrorOf([] { EncodeLine(std::string(149, 'a')); }), 5);
    EXPECT_EQ(ErrorOf([] { EncodeLine(std::string(40, '\x80')); }), 5);  // folded with a letter it leaves 8 bits
    const std::string line = EncodeLine(std::string(148, 'x'));
    EXPECT_EQ(DecodeLine(line.substr(0, 100)), std::string(99, 'x'));  // no second marker: all there is
}

TEST_F(HideUtilsTest, FilesAreDecodedLineByLine) {
    Save("v", EncodeLine("one") + "\r\n\r\n" + EncodeLine("") + "\r\n" + EncodeLine("last"));
    EXPECT_EQ(DecodeFile(folder_ / "v", folder_ / "t"), 0);
    EXPECT_EQ(ReadBytes(folder_ / "t"), "one\r\n\r\n\r\nlast\r\n");
    EXPECT_EQ(DecodeFile(folder_ / "none", folder_ / "t") + DecodeFile(folder_ / "v", folder_ / "none/t"), 1 + 2);
    Save("v", EncodeLine("one") + "\r\nab\tc\r\n");
    EXPECT_EQ(ErrorOf([&] { DecodeFile(folder_ / "v", folder_ / "t"); }), 5);
    // A short text fails when the file is closed, a long one before.
    for (std::string text = EncodeLine(std::string(100, 'x')) + "\r\n"; text.size() < 40'000; text += text) {
        const auto decode = [&, source = Save("v", text)] { return DecodeFile(source, folder_ / "t"); };
        EXPECT_EQ(OnFullDisk(decode), text.size() < 1500 ? 0 : 2) << text.size();
    }
}

}  // namespace
