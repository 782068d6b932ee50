#include "core/files/number_text.h"

#include "core/files/ansi_text.h"
#include "core/files/file_format.h"
#include "core/files/int16.h"
#include "support/core_test.h"

using namespace MNumberText;

namespace {

TEST(NumberText, RealFieldsHaveAPointAndAsManyDigitsAsTheirTypeHolds) {
    std::string texts;
    for (const double value : {-0.0, 0.1 + 0.2, 2.0 / 3, -0.00001, 999999999999999.0, 999999999999999.9, 1e15})
        texts += MFileFormat::FormatRealField(value) + " ";
    EXPECT_EQ(texts, "0 0.3 0.666666666666667 -1E-05 999999999999999 1E+15 1E+15 ");
    EXPECT_EQ(MFileFormat::FormatRealField(16777216.0f), "1.677722E+07");
}

TEST(NumberText, RealsAreReadByTheirBeginning) {
    const std::pair<const char*, double> kCases[] = {{" \t-3x", -3}, {".5", 0.5}, {"1E+2", 100}, {"1e-2,", .01},
                                                     {"1E+", 1},     {"--1", 0},  {"0x10", 0},   {"inf", 0},
                                                     {"1,5", 1},     {"abc", 0},  {"1E-999", 0}, {"0E999", 0}};
    for (const auto& [text, value] : kCases)
        EXPECT_EQ(ToReal(text), value) << text;
    for (const char* text : {"1E309", "-1E309", "0.001E999999999999999999"})
        EXPECT_EQ(ErrorOf([&] { ToReal(text); }), 6) << text;
}

TEST(NumberText, IntegersAreStrictRoundTiesToEvenAndOverflow) {
    const std::pair<const char*, int> kNumbers[] = {{"-32768.4", -32768}, {"32767.4", 32767}, {" +7 ", 7},
                                                    {"0.5", 0},           {"-1.5", -2},       {"1E-999", 0}};
    for (const auto& [text, value] : kNumbers)
        EXPECT_EQ(ToInt16(text), value) << text;
    for (const char* text : {"32767.5", "32768", "-32769", "99999999999999999999", "1E999"})
        EXPECT_EQ(ErrorOf([&] { ToInt16(text); }), 6) << text;
    for (const char* text : {"", "x", "1x", "1 2", "-"})
        EXPECT_EQ(ErrorOf([&] { ToInt16(text); }), 13) << text;
    EXPECT_EQ(ErrorOf([] { ToInt32("2147483648"); }), 6);
    EXPECT_EQ(ErrorOf([] { (void)(CInt16(-32768) - 1); }), 6);
    EXPECT_EQ(ErrorOf([] { ToSingle(1e39); }), 6);
}

TEST(AnsiText, FoldsCaseAndGoesToUnicodeAndBackCharacterByCharacter) {
    // é ÿ š œ ž change; ß µ ƒ ÷ × stay
    EXPECT_EQ(MAnsiText::UpperCase("az\xE9\xFF\x9A\x9C\x9E\xDF\xB5\x83\xF7\xD7@["),
              "AZ\xC9\x9F\x8A\x8C\x8E\xDF\xB5\x83\xF7\xD7@[");
    EXPECT_LT(MAnsiText::CompareIgnoreCase("ab", "ABC"), 0);
    for (int code = 0; code < 256; ++code)
        EXPECT_EQ(MAnsiText::FromUnicode(MAnsiText::ToUnicode(static_cast<char>(code))), static_cast<char>(code));
    EXPECT_EQ(MAnsiText::ToUtf8("a\xE9\x80\x9F"), "a\u00E9\u20AC\u0178");
}

TEST(AnsiText, HashDiffersFromRunToRun) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");  // starts the program anew, whose environment is this one's
    const std::string hash = std::to_string(MAnsiText::HashIgnoreCase()("name"));
    ::setenv("HASH_OF_FIRST_RUN", hash.c_str(), 0);
    EXPECT_EXIT(std::_Exit(hash == ::getenv("HASH_OF_FIRST_RUN")), testing::ExitedWithCode(0), "") << "the same hash";
}

}  // namespace
