#include "core/files/sequential.h"

#include <sys/stat.h>

#include "core/files/file_format.h"
#include "support/core_test.h"

namespace {

using SequentialTest = CoreTest;

TEST_F(SequentialTest, FieldsEndAtCommasAndLineEnds) {
    const std::pair<std::string, std::vector<std::string>> kCases[] = {
        {"a,b\nc\rd", {"a", "b", "c", "d"}},      {"\"x,y\r\nz\",2\r\n", {"x,y z", "2"}},
        {"\"a\"junk,a\"b,c", {"a", "a\"b", "c"}}, {"  \" a \"  ,\t b \r\n", {" a ", "b "}},
        {"\r\n\r\n,,a,", {"", "", "", "", "a"}},  {"\"open,1\r\n2", {"open,1 2"}}};
    for (const auto& [bytes, fields] : kCases) {
        CSequentialInput input(Save("s", bytes));
        for (const std::string& field : fields)
            EXPECT_EQ(input.ReadText(), field) << bytes;
        EXPECT_EQ(ErrorOf([&] { input.ReadText(); }), 62) << bytes;
    }
}

TEST_F(SequentialTest, NumberFieldsAreTolerantButBounded) {
    CSequentialInput input(Save("s", "x,\"12\",2.5,,40000,70000,3E9,1E39,0.1,\"#p\",\"#P\",7\r\n"));
    for (const int value : {0, 12, 2, 0})
        EXPECT_EQ(input.ReadInt16(), value);
    EXPECT_EQ(ErrorOf([&] { input.ReadInt16(); }), 6);
    EXPECT_EQ(input.ReadInt32(), 70000);
    EXPECT_EQ(ErrorOf([&] { input.ReadInt32(); }), 6);
    EXPECT_EQ(ErrorOf([&] { input.ReadSingle(); }), 6);
    EXPECT_EQ(input.ReadSingle(), 0.1f);
    EXPECT_TRUE(input.SkipToTag("#P"));
    EXPECT_EQ(input.ReadInt16(), 7);
    EXPECT_FALSE(input.SkipToTag("#P"));
}

TEST_F(SequentialTest, OutputTakesThePlaceOfALinkAndLeavesWhatItLeadsTo) {
    const std::string army = Save("army", "work");
    std::filesystem::create_hard_link(army, folder_ / "hard");
    std::filesystem::create_symlink(army, folder_ / "soft");
    for (const std::string name : {"hard", "soft", "soft"}) {
        const std::int16_t number = MTextOutput::Open(folder_ / name);
        MTextOutput::Print(number, "page");
        MTextOutput::Close(number);
        EXPECT_EQ(ReadBytes(folder_ / name), "page\r\n") << name;
    }
    EXPECT_EQ(ReadBytes(army), "work");
}

TEST_F(SequentialTest, FilesThatCannotBeOpenedTellWhy) {
    ASSERT_EQ(::mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    for (const auto& [path, error] :
         {std::pair(folder_ / "none", 53), {folder_ / "none/x", 76}, {folder_.Path(), 75}, {folder_ / "pipe", 75}}) {
        EXPECT_EQ(ErrorOf([&from = path] { (void)CSequentialInput{from}; }), error) << path;
        EXPECT_EQ(ErrorOf([&to = path] { MTextOutput::Open(to); }), error == 53 ? 0 : error) << path;
    }
}

}  // namespace
