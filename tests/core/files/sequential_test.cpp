#include "core/files/sequential.h"

#include "core/files/file_format.h"
#include "support/core_test.h"

namespace {

class SequentialTest : public CoreTest {
  protected:
    CSequentialInput Input(const std::string& bytes) {
        WriteBytes(folder_ / "s", bytes);
        return CSequentialInput(folder_ / "s");
    }
};

TEST_F(SequentialTest, FieldsEndAtCommasAndLineEnds) {
    const struct {
        std::string bytes;
        std::vector<std::string> fields;
    } kCases[] = {
        {"\"a\",1\r\n\"b\"\r\n", {"a", "1", "b"}},
        {"a,b\nc\rd", {"a", "b", "c", "d"}},
        {"\"x,y\r\nz\",2", {"x,y\r\nz", "2"}},
        {"  \" a \"  ,\t b \r\n", {" a ", "b "}},
        {"\"a\"junk,b", {"a", "b"}},
        {"a\"b,c", {"a\"b", "c"}},
        {"\r\n\r\na", {"", "", "a"}},
        {",,a,", {"", "", "a"}},
        {"\"open,1\r\n2", {"open,1\r\n2"}},
        {"\"\"", {""}},
    };
    for (const auto& c : kCases) {
        CSequentialInput input = Input(c.bytes);
        for (const std::string& field : c.fields)
            EXPECT_EQ(input.ReadText(), field) << c.bytes;
        EXPECT_TRUE(input.AtEnd()) << c.bytes;
        EXPECT_EQ(ErrorOf([&] { input.ReadText(); }), 62) << c.bytes;
    }
}

TEST_F(SequentialTest, NumberFieldsAreTolerantButBounded) {
    CSequentialInput input = Input("x,\"12\",2.5,3.5,-1E2,,40000,70000,3E9,1E39,0.1\r\n");
    EXPECT_EQ(input.ReadInt16(), 0);
    EXPECT_EQ(input.ReadInt16(), 12);
    EXPECT_EQ(input.ReadInt16(), 2);
    EXPECT_EQ(input.ReadInt16(), 4);
    EXPECT_EQ(input.ReadReal(), -100);
    EXPECT_EQ(input.ReadInt32(), 0);
    EXPECT_EQ(ErrorOf([&] { input.ReadInt16(); }), 6);
    EXPECT_EQ(input.ReadInt32(), 70000);
    EXPECT_EQ(ErrorOf([&] { input.ReadInt32(); }), 6);
    EXPECT_EQ(ErrorOf([&] { input.ReadSingle(); }), 6);
    EXPECT_EQ(input.ReadSingle(), 0.1f);
}

TEST_F(SequentialTest, TagsAreFoundByReadingOn) {
    CSequentialInput input = Input("1,\"skip\",\"#p\",\"#P\",7\r\n");
    EXPECT_TRUE(input.SkipToTag("#P"));
    EXPECT_EQ(input.ReadInt16(), 7);
    EXPECT_FALSE(input.SkipToTag("#P"));
}

TEST_F(SequentialTest, VersionLineIsTwoNumbersBehindTheTag) {
    const std::int16_t number = MTextOutput::Open(folder_ / "v");
    EXPECT_TRUE(MFileFormat::WriteFileVersionV1(number));
    MTextOutput::Close(number);
    EXPECT_EQ(ReadBytes(folder_ / "v"), "\"#VD_VER\",2,2\r\n");
    std::int16_t major = 0;
    std::int16_t minor = 0;
    CSequentialInput good = Input("\"#VD_VER\",1,7\r\n");
    EXPECT_TRUE(MFileFormat::ReadFileVersionV1(good, major, minor));
    EXPECT_EQ(major * 10 + minor, 17);
    CSequentialInput bad = Input("\"#vd_ver\",1,7\r\n");
    EXPECT_FALSE(MFileFormat::ReadFileVersionV1(bad, major, minor));
    EXPECT_EQ(bad.ReadInt16(), 1);  // stands behind the first field
}

TEST_F(SequentialTest, FilesThatCannotBeOpenedTellWhy) {
    EXPECT_EQ(ErrorOf([&] { CSequentialInput(folder_ / "none"); }), 53);
    EXPECT_EQ(ErrorOf([&] { CSequentialInput(folder_ / "none/x"); }), 76);
    EXPECT_EQ(ErrorOf([&] { CSequentialInput(folder_.Path()); }), 75);
    EXPECT_EQ(ErrorOf([&] { MTextOutput::Open(folder_ / "none/x"); }), 76);
    EXPECT_EQ(ErrorOf([&] { MTextOutput::Open(folder_.Path()); }), 75);
    EXPECT_EQ(ErrorOf([] { MTextOutput::Print(7, "x"); }), 52);
}

}  // namespace
