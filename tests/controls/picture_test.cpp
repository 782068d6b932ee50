#include "controls/picture.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QPainter>
#include <QTemporaryDir>
#include <fstream>

#include "core/files/runtime_error.h"
#include "support/scripted_platform.h"

namespace {

int ErrorOf(const std::string& path) {
    try {
        CPicture::Load(path);
        return 0;
    } catch (const CRuntimeError& error) {
        return error.Number();
    }
}

}  // namespace

TEST(Picture, WhatCannotBeReadHasItsErrorNumber) {
    const QTemporaryDir folder;
    const std::string root = folder.path().toStdString();
    std::ofstream(root + "/text.jpg") << "no picture";
    std::ofstream(root + "/empty.png");
    std::ofstream(root + "/drawing.jpg") << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"4\" height=\"4\"/>";
    QImage image(6, 4, QImage::Format_RGB32);
    image.fill(Qt::red);
    ASSERT_TRUE(image.save(folder.filePath(QStringLiteral("wrong_name.gif")), "BMP"));
    ASSERT_EQ(mkfifo((root + "/pipe").c_str(), 0600), 0);
    struct {
        const char* name;
        int error;
    } const cases[] = {
        {"/none.png", 53},  {"/no/folder.png", 76}, {"/text.jpg/x.png", 76}, {"/pipe", 75},        {"", 75},
        {"/text.jpg", 481}, {"/empty.png", 481},    {"/wrong_name.gif", 0},  {"/drawing.jpg", 481}};
    for (const auto& test : cases)
        EXPECT_EQ(ErrorOf(root + test.name), test.error) << test.name;
    EXPECT_EQ(ErrorOf(""), 53);
    EXPECT_EQ(ErrorOf(root + std::string("/wrong_name.gif\0x", 17)), 53);
}

TEST(Picture, DocumentPictureIsRelativeToTheApplicationFolder) {
    const QTemporaryDir folder;
    CScriptedPlatform platform;
    platform.Folder = folder.path().toStdString();
    QImage image(6, 4, QImage::Format_RGB32);
    image.fill(Qt::red);
    ASSERT_TRUE(image.save(folder.filePath(QStringLiteral(u"\u00E9.bmp"))));
    EXPECT_EQ(CPicture::LoadDocumentPicture("\xE9.bmp")->Size(), QSize(6, 4));
    EXPECT_EQ(CPicture::LoadDocumentPicture(platform.Folder + "/" + "\xE9.bmp")->Size(), QSize(6, 4));
}

TEST(Picture, KeepsProportionsAndIsNotEnlarged) {
    QImage red(40, 20, QImage::Format_RGB32);
    red.fill(Qt::red);
    const CPicture picture(red);
    struct {
        QRectF area;
        QRect painted;
    } const cases[] = {{QRectF(0, 0, 100, 100), QRect(30, 40, 40, 20)}, {QRectF(0, 0, 20, 100), QRect(0, 45, 20, 10)}};
    for (const auto& test : cases) {
        QImage canvas(100, 100, QImage::Format_RGB32);
        canvas.fill(Qt::white);
        QPainter painter(&canvas);
        picture.Paint(painter, test.area);
        painter.end();
        QRect found;
        for (int y = 0; y < 100; ++y) {
            for (int x = 0; x < 100; ++x) {
                if (canvas.pixelColor(x, y) == Qt::red) found |= QRect(x, y, 1, 1);
            }
        }
        EXPECT_EQ(found, test.painted);
    }
}
