#include "controls/ansi_qt.h"

#include <gtest/gtest.h>

TEST(AnsiQt, AllByteValuesSurviveTheTrip) {
    std::string all;
    for (int code = 0; code < 256; ++code)
        all += static_cast<char>(code);
    EXPECT_EQ(FromAnsi(all).size(), 256);
    EXPECT_EQ(ToAnsi(FromAnsi(all)), all);
    EXPECT_EQ(FromAnsi("\x80\xFF"), QStringLiteral(u"\u20AC\u00FF"));
}

TEST(AnsiQt, CharactersThatTheCodePageLacksBecomeQuestionMarks) {
    EXPECT_EQ(ToAnsi(QStringLiteral(u"\u0141\u20ACx\U0001F600!")), "?\x80x?!");
}

TEST(AnsiQt, EveryPathSurvivesTheTrip) {
    const std::string paths[] = {
        "",
        "/home/a b/r\xC3\xA9sum\xC3\xA9.v2l",  // UTF-8
        "/old/\xE9\xFF.v2l",                   // Latin-1
        "\xEF\xBB\xBF/bom",
        "\xED\xA0\x80\xC0\xAF\xF5",       // a surrogate, an overlong form, too large
        "\xF0\x9F\x98\x80 end \xF0\x9F",  // a whole and a broken four-byte sequence
    };
    for (const std::string& path : paths)
        EXPECT_EQ(ToPath(FromPath(path)), path);
}

TEST(AnsiQt, ScreenShowsOneLineBreakForCrLfAndBlanksForControls) {
    EXPECT_EQ(ForDisplay(FromAnsi(std::string_view("a\r\nb\rc\0d\x1F\x81", 10))), QStringLiteral("a\nb\nc d  "));
}
