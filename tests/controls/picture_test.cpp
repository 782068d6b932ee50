#include "controls/picture.h"

#include <sys/stat.h>

#include "support/core_test.h"

namespace {

using Picture = CoreTest;

TEST_F(Picture, WhatCannotBeReadHasItsErrorNumber) {
    Save("text.jpg", "no picture");
    Save("empty.png", "");
    Save("drawing.jpg", "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"4\" height=\"4\"/>");
    ASSERT_EQ(mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    using namespace std::string_literals;
    const std::pair<int, std::vector<std::string>> cases[] = {{53, {"none.png", "text.jpg\0x"s}},
                                                              {75, {"pipe", ""}},
                                                              {76, {"no/folder.png", "text.jpg/x.png"}},
                                                              {481, {"text.jpg", "empty.png", "drawing.jpg"}}};
    for (const auto& [error, names] : cases) {
        for (const std::string& name : names)
            EXPECT_EQ(ErrorOf([&] { CPicture::Load(folder_ / name); }), error) << name;
    }
}

TEST_F(Picture, DocumentPictureIsRelativeToTheApplicationFolder) {
    QImage image(40, 20, QImage::Format_RGB32);
    image.fill(Qt::red);
    EXPECT_TRUE(image.save(QString::fromStdString(folder_ / "\xC3\xA9.gif"), "BMP"));
    EXPECT_EQ(CPicture::LoadDocumentPicture("\xE9.gif")->Size(), QSize(40, 20));
    EXPECT_EQ(CPicture::LoadDocumentPicture(folder_ / "\xE9.gif")->Size(), QSize(40, 20));
}

}  // namespace
