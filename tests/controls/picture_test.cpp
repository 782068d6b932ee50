#include "controls/picture.h"

#include <sys/stat.h>

#include <QPainter>

#include "support/core_test.h"

namespace {

class Picture : public CoreTest {
  protected:
    Picture() {
        image_.fill(Qt::red);
        EXPECT_TRUE(image_.save(QString::fromStdString(folder_ / "\xC3\xA9.gif"), "BMP"));
    }
    QImage image_{40, 20, QImage::Format_RGB32};
};

TEST_F(Picture, WhatCannotBeReadHasItsErrorNumber) {
    Save("text.jpg", "no picture");
    Save("empty.png", "");
    Save("drawing.jpg", "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"4\" height=\"4\"/>");
    ASSERT_EQ(mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    using namespace std::string_literals;
    const std::pair<int, std::vector<std::string>> cases[] = {{53, {"none.png", "\xC3\xA9.gif\0x"s}},
                                                              {75, {"pipe", ""}},
                                                              {76, {"no/folder.png", "text.jpg/x.png"}},
                                                              {481, {"text.jpg", "empty.png", "drawing.jpg"}}};
    for (const auto& [error, names] : cases) {
        for (const std::string& name : names)
            EXPECT_EQ(ErrorOf([&] { CPicture::Load(folder_ / name); }), error) << name;
    }
}

TEST_F(Picture, DocumentPictureIsRelativeToTheApplicationFolder) {
    EXPECT_EQ(CPicture::LoadDocumentPicture("\xE9.gif")->Size(), QSize(40, 20));
    EXPECT_EQ(CPicture::LoadDocumentPicture(folder_ / "\xE9.gif")->Size(), QSize(40, 20));
}

TEST_F(Picture, KeepsProportionsAndIsNotEnlarged) {
    const CPicture picture(image_);
    for (const auto& [width, painted] : {std::pair(100, QRect(30, 40, 40, 20)), {20, QRect(0, 45, 20, 10)}}) {
        QImage canvas(100, 100, QImage::Format_RGB32);
        canvas.fill(Qt::white);
        QPainter painter(&canvas);
        picture.Paint(painter, QRectF(0, 0, width, 100));
        painter.end();
        QRect found;
        for (int i = 0; i < 100 * 100; ++i) {
            if (canvas.pixelColor(i % 100, i / 100) == Qt::red) found |= QRect(i % 100, i / 100, 1, 1);
        }
        EXPECT_EQ(found, painted);
    }
}

}  // namespace
