#include "roster/viewers/page_browser.h"

#include <sys/stat.h>

#include <QPrinter>
#include <QRegularExpression>
#include <filesystem>

#include "controls/colour.h"
#include "controls/print_job.h"
#include "support/core_test.h"

namespace {

class PageBrowserTest : public CoreTest {
  protected:
    PageBrowserTest() {
        browser_.resize(600, 400);
        browser_.show();
    }

    void ShowPage(const std::string& content) { browser_.Navigate("file:\\\\" + Save("page.html", content)); }
    void PrintTo(const std::string& path, QPrinter::PrinterMode mode = QPrinter::ScreenResolution) {
        platform_.ExpectPrint(true, [&](IPrintJob& job) {
            QPrinter printer(mode);
            printer.setPageSize(QPageSize(QPageSize::A4));
            printer.setOutputFileName(QString::fromStdString(path));
            dynamic_cast<CPrintJob&>(job).Print(printer);
        });
        browser_.Print();
    }
    std::string Text() { return browser_.toPlainText().trimmed().toStdString(); }
    int PixelsOf(const QColor& colour) {
        const QImage image = browser_.grab().toImage();
        int count = 0;
        for (int at = 0; at < image.width() * image.height(); ++at)
            count += image.pixelColor(at % image.width(), at / image.width()) == colour;
        return count;
    }

    CPageBrowser browser_{nullptr};
};

std::string Page(const std::string& content) {
    return "<HTML>\r\n<BODY BGCOLOR=\"#FFFFD3\" text=\"#700000\"> <FONT FACE=\"ARIAL\">\r\n\r\n" + content +
           "\r\n</FONT></BODY>\r\n</HTML>\r\n";
}

TEST_F(PageBrowserTest, ShowsRegularFilesOfBoundedSize) {
    ASSERT_EQ(mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    std::filesystem::resize_file(Save("large", ""), kLargestPage + 1);
    const std::pair<std::string, std::string> cases[] = {
        {"file:\\\\/dev/zero", ""},
        {"file:\\\\" + folder_ / "gone", ""},
        {"file:\\\\" + folder_.Path(), ""},
        {"file:\\\\" + folder_ / "pipe", ""},
        {"file:\\\\" + folder_ / "large", "This page is too large to be shown here."},
    };
    for (const auto& [address, text] : cases) {
        ShowPage(Page("caf\xE9 \x80 a&amp;b"));
        ASSERT_EQ(Text(), "caf\u00E9 \u20AC a&b");
        EXPECT_GT(PixelsOf(QColor(0xFF, 0xFF, 0xD3)), 600 * 400 * 9 / 10);
        browser_.Navigate(address);
        EXPECT_EQ(Text(), text) << address;
    }
}

TEST_F(PageBrowserTest, PicturesComeFromPlainPaths) {
    QImage red(40, 30, QImage::Format_RGB32);
    red.fill(Qt::red);
    ASSERT_TRUE(red.save(QString::fromStdString(folder_ / "50% #1.png")));
    ASSERT_TRUE(red.save(QString::fromStdString(folder_ / "logo.png")));
    for (const auto& [source, pixels] : {std::pair("file://" + folder_ / "logo.png", 40 * 30),
                                         {"50% #1.png", 40 * 30},
                                         {"http://localhost/50% #1.png", 0},
                                         {"/dev/zero", 0},
                                         {"page.html", 0}}) {
        ShowPage(Page("<img src=\"" + source + "\" alt=\"army logo\">"));
        EXPECT_EQ(PixelsOf(Qt::red), pixels) << source;
    }
}

TEST_F(PageBrowserTest, PrintsDarkOnWhite) {
    std::string content = "<table><tr><td><FONT COLOR=\"#00FF00\"><b>INFANTRY</b></FONT></td></tr></table>";
    for (int i = 0; i < 60; ++i)
        content += "<table><tr><td width=250><b>Unit</b></td><td>12</td></tr></table><HR><BR>";
    ShowPage(Page(content));
    platform_.ExpectPrint(false);
    browser_.Print();
    PrintTo(folder_ / "out.pdf", QPrinter::HighResolution);
    const QByteArray pdf = QByteArray::fromStdString(ReadBytes(folder_ / "out.pdf"));
    const auto pages = pdf.count("/Type /Page\n");
    EXPECT_TRUE(pages >= 3 && pages <= 5) << pages;
    int green = 0;
    int light = 0;
    static const QRegularExpression colours(QStringLiteral("([\\d.]+) ([\\d.]+) ([\\d.]+) (?:scn|SCN)\\b"));
    for (qsizetype at = pdf.indexOf("stream\n"); at >= 0; at = pdf.indexOf("stream\n", at + 1)) {
        const QByteArray packed = pdf.mid(at + 7, pdf.indexOf("endstream", at) - at - 7);
        const QByteArray text = qUncompress(QByteArray("\0\x10\0\0", 4) + packed);
        for (auto match = colours.globalMatch(QString::fromLatin1(text)); match.hasNext();) {
            const auto v = match.next();
            const QColor colour =
                QColor::fromRgbF(v.captured(1).toFloat(), v.captured(2).toFloat(), v.captured(3).toFloat());
            green += colour.green() > colour.red() + 40;
            light += colour != Qt::white && Contrast(Qt::white, colour) < 2;
        }
    }
    EXPECT_GT(green, 0);
    EXPECT_EQ(light, 0);
}

// On the screen and on paper: it ends at all, reads no device and waits for no pipe.
TEST_F(PageBrowserTest, HostileMarkupEndsInTime) {
    ASSERT_EQ(mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    const std::string pipe = "file://" + folder_ / "pipe";
    const std::string contents[] = {
        QStringLiteral("<table><tr><td>").repeated(20000).toStdString(),
        QStringLiteral("<b>x").repeated(20000).toStdString(),
        "&#64976;&#65532;<table>&#64977;",
        "a<",
        "<table width=\"x>",
        "<table><tr><td colspan=99999999>x</table>",
        "<table background=\"" + pipe + "\"><tr><td style=\"background-image:url(" + pipe + ")\">x</table>",
        "<link rel=\"stylesheet\" href=\"" + pipe + "\"><style>@import url(\"" + pipe + "\");</style>",
        "whole"};
    for (const std::string& content : contents) {
        ShowPage(Page(content));
        browser_.grab();
        PrintTo(folder_ / "hostile.pdf");
    }
    EXPECT_EQ(Text(), "whole");
}

}  // namespace
