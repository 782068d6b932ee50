#include "controls/ansi_qt.h"

#include <gtest/gtest.h>

TEST(AnsiQt, AllByteValuesSurviveTheTripAndOtherCharactersBecomeQuestionMarks) {
    std::string all;
    for (int code = 0; code < 256; ++code)
        all += static_cast<char>(code);
    EXPECT_EQ(ToAnsi(FromAnsi(all)), all);
    EXPECT_EQ(ToAnsi(QStringLiteral(u"\u0141\u20ACx\U0001F600!")), "?\x80x?!");
}

TEST(AnsiQt, EveryPathSurvivesTheTrip) {
    // UTF-8 and Latin-1; a mark of order, a surrogate, an overlong form, too large; a whole and a broken sequence.
    for (const char* path : {"", "/home/a b/r\xC3\xA9sum\xC3\xA9.v2l", "/old/\xE9\xFF.v2l",
                             "\xEF\xBB\xBF/\xED\xA0\x80\xC0\xAF\xF5", "\xF0\x9F\x98\x80 end \xF0\x9F"})
        EXPECT_EQ(ToPath(FromPath(path)), path);
}

TEST(AnsiQt, ScreenShowsOneLineBreakForCrLfAndBlanksForControls) {
    EXPECT_EQ(ForDisplay(FromAnsi(std::string_view("a\r\nb\rc\0d\x1F\x81", 10))), QStringLiteral("a\nb\nc d  "));
}
