#include "controls/picture.h"

#include <sys/stat.h>

#include <QPainter>

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

// Of pixels black and white by turns nothing but grey remains, whatever the image keeps its pixels in.
TEST_F(Picture, ReducedByMixingPixelsAndOfItsOwnSizeStill) {
    for (const QImage::Format format : {QImage::Format_Mono, QImage::Format_Indexed8, QImage::Format_RGB32}) {
        QImage image(400, 300, QImage::Format_RGB32);
        for (int at = 0; at < 400 * 300; ++at)
            image.setPixel(at % 400, at / 400, (at % 400 + at / 400) % 2 != 0 ? 0xFFFFFFFF : 0xFF000000);
        ASSERT_TRUE(image.convertToFormat(format).save(QString::fromStdString(folder_ / "hatch.png")));
        for (const std::int64_t most : {400 * 300, 20 * 15}) {
            const PicturePtr picture = CPicture::Load(folder_ / "hatch.png", most);
            EXPECT_EQ(picture->Size(), QSize(400, 300));
            EXPECT_EQ(picture->PixelCount(), most);
            QImage shown(20, 15, QImage::Format_RGB32);
            QPainter painter(&shown);
            picture->Paint(painter, shown.rect());
            for (int at = 0; at < 20 * 15; ++at)
                ASSERT_NEAR(qGray(shown.pixel(at % 20, at / 20)), 127, 8) << format << " " << at;
        }
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
