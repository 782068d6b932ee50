#include "core/files/number_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "core/files/ansi_text.h"
#include "core/files/file_format.h"
#include "core/files/int16.h"
#include "support/core_test.h"

using namespace MNumberText;

namespace {

TEST(NumberText, RealFieldsHaveFifteenDigitsAndAPoint) {
    const struct {
        double value;
        const char* text;
    } kCases[] = {
        {0, "0"},
        {-0.0, "0"},
        {-0.5, "-0.5"},
        {-0.25, "-0.25"},
        {100, "100"},
        {12.5, "12.5"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3, "0.333333333333333"},
        {2.0 / 3, "0.666666666666667"},
        {12.599210498948732, "12.5992104989487"},
        {0.0001, "0.0001"},
        {0.000015, "1.5E-05"},
        {-0.00001, "-1E-05"},
        {999999999999999, "999999999999999"},
        {999999999999999.9, "1E+15"},
        {1e15, "1E+15"},
        {1.25e100, "1.25E+100"},
    };
    for (const auto& c : kCases)
        EXPECT_EQ(MFileFormat::FormatRealField(c.value), c.text);
}

TEST(NumberText, SinglesHaveSevenDigits) {
    const struct {
        float value;
        const char* text;
    } kCases[] = {
        {0.1f, "0.1"},   {1.5f, "1.5"}, {1 / 3.0f, "0.3333333"}, {9999999, "9999999"}, {16777216, "1.677722E+07"},
        {1e7f, "1E+07"}, {-0.0f, "0"}};
    for (const auto& c : kCases)
        EXPECT_EQ(MFileFormat::FormatRealField(c.value), c.text);
}

TEST(NumberText, RealsAreReadByTheirBeginning) {
    const struct {
        const char* text;
        double value;
    } kCases[] = {{"12.5", 12.5}, {" \t-3x", -3}, {"+4", 4},  {".5", 0.5},     {"5.", 5},         {"1E2", 100},
                  {"1e-2,", .01}, {"1E", 1},      {"1E+", 1}, {"2 3", 2},      {"", 0},           {"abc", 0},
                  {".", 0},       {"-", 0},       {"--1", 0}, {"0x10", 0},     {"1E-999", 0},     {"0E999", 0},
                  {"inf", 0},     {"nan", 0},     {"1,5", 1}, {"0000012", 12}, {"0.0000E+500", 0}};
    for (const auto& c : kCases)
        EXPECT_EQ(ToReal(c.text), c.value) << c.text;
    for (const char* text : {"1E309", "-1E309", "0.001E999999999999999999"})
        EXPECT_EQ(ErrorOf([&] { ToReal(text); }), 6) << text;
}

TEST(NumberText, IntegersAreStrictAndRoundTiesToEven) {
    const struct {
        const char* text;
        int value;
        int error;
    } kCases[] = {{"0", 0, 0},       {"-32768", -32768, 0}, {"32767", 32767, 0},
                  {"32768", 0, 6},   {"-32769", 0, 6},      {"+7", 7, 0},
                  {" 7 ", 7, 0},     {"0.5", 0, 0},         {"1.5", 2, 0},
                  {"2.5", 2, 0},     {"-2.5", -2, 0},       {"32767.4", 32767, 0},
                  {"32767.5", 0, 6}, {"1E3", 1000, 0},      {"1E5", 0, 6},
                  {"", 0, 13},       {"x", 0, 13},          {"1x", 0, 13},
                  {"1 2", 0, 13},    {"-", 0, 13},          {"99999999999999999999", 0, 6},
                  {"1E999", 0, 6},   {"1E-999", 0, 0}};
    for (const auto& c : kCases) {
        int value = 0;
        EXPECT_EQ(ErrorOf([&] { value = ToInt16(c.text); }), c.error) << c.text;
        EXPECT_EQ(value, c.value) << c.text;
    }
    EXPECT_EQ(ToInt32("-2147483648"), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(ErrorOf([] { ToInt32("2147483648"); }), 6);
}

TEST(NumberText, SixteenBitStepsOverflow) {
    EXPECT_EQ((CInt16(6553) * 5).Value(), 32765);
    EXPECT_EQ(ErrorOf([] { (void)(CInt16(6554) * 5); }), 6);
    EXPECT_EQ(ErrorOf([] { (void)(CInt16(-32768) - 1); }), 6);
    EXPECT_EQ(ErrorOf([] { (void)(CInt16(32767) + 1); }), 6);
    EXPECT_EQ(ErrorOf([] { Finite(std::numeric_limits<double>::infinity()); }), 6);
    EXPECT_EQ(ErrorOf([] { Finite(std::nan("")); }), 5);
    EXPECT_EQ(ErrorOf([] { ToSingle(1e39); }), 6);
}

TEST(AnsiText, UpperCaseIsOneCharacterForOne) {
    // é ÿ š œ ž change; ß µ ƒ ÷ × stay
    EXPECT_EQ(MAnsiText::UpperCase("az\xE9\xFF\x9A\x9C\x9E\xDF\xB5\x83\xF7\xD7@["),
              "AZ\xC9\x9F\x8A\x8C\x8E\xDF\xB5\x83\xF7\xD7@[");
    EXPECT_TRUE(MAnsiText::EqualIgnoreCase("\xE9t\xE9", "\xC9T\xC9"));
    EXPECT_LT(MAnsiText::CompareIgnoreCase("ab", "ABC"), 0);
    EXPECT_GT(MAnsiText::CompareIgnoreCase("_", "a"), 0);     // by the codes of the upper-cased texts
    EXPECT_GT(MAnsiText::CompareIgnoreCase("\xE9", "z"), 0);  // É is 201
}

TEST(AnsiText, EveryCharacterSurvivesTheWayToUnicodeAndBack) {
    for (int code = 0; code < 256; ++code) {
        const char c = static_cast<char>(code);
        EXPECT_EQ(MAnsiText::FromUnicode(MAnsiText::ToUnicode(c)), c) << code;
    }
    EXPECT_EQ(MAnsiText::FromUnicode(0x4E2D), '?');
    EXPECT_EQ(MAnsiText::ToUtf8("a\xE9\x80\x9F"), "a\u00E9\u20AC\u0178");
}

}  // namespace
