#include "roster/viewers/page_browser.h"

#include <sys/stat.h>

#include <QApplication>
#include <QPrinter>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextTable>
#include <filesystem>
#include <vector>

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

    void ShowPage(const std::string& content) {
        WriteBytes(folder_ / "page.html", content);
        browser_.Navigate("file:\\\\" + folder_ / "page.html");
    }
    std::string Text() { return browser_.toPlainText().trimmed().toStdString(); }
    int PixelsOf(const QColor& colour) {
        const QImage image = browser_.grab().toImage();
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                count += image.pixelColor(x, y) == colour;
        }
        return count;
    }

    CPageBrowser browser_{nullptr};
};

std::string Page(const std::string& content) {
    return "<HTML>\r\n<BODY BGCOLOR=\"black\" text=\"#B0B0FF\"> <FONT FACE=\"ARIAL\">\r\n\r\n" + content +
           "\r\n</FONT></BODY>\r\n</HTML>\r\n";
}

TEST_F(PageBrowserTest, TheBodyColoursTheWholeView) {
    struct {
        const char* body;
        QColor ground;
        QColor text;
    } const cases[] = {
        {"<BODY BGCOLOR=\"black\" text=\"#B0B0FF\">", QColor(0, 0, 0), QColor(0xB0, 0xB0, 0xFF)},
        {"<BODY BGCOLOR=\"#FFFFD3\" text=\"#700000\">", QColor(0xFF, 0xFF, 0xD3), QColor(0x70, 0, 0)},
        {"<body text=red bgcolor='nonsense'>", Qt::white, Qt::red},
    };
    for (const auto& c : cases) {
        ShowPage(std::string("<HTML>") + c.body + "<H1>||||</H1></BODY>");
        EXPECT_GT(PixelsOf(c.ground), 600 * 400 * 9 / 10) << c.body;
        EXPECT_GT(PixelsOf(c.text), 20) << c.body;
        EXPECT_EQ(browser_.grab().toImage().pixelColor(599, 399), c.ground) << c.body;
    }
}

TEST_F(PageBrowserTest, ReadsWindows1252) {
    ShowPage("caf\xE9 \x80 \x97 a&amp;b");
    EXPECT_EQ(Text(), "caf\u00E9 \u20AC \u2014 a&b");
}

TEST_F(PageBrowserTest, WhatIsNoPageShowsNothing) {
    ASSERT_EQ(mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    for (const std::string& address :
         {std::string("about:blank"), "file:\\\\" + folder_ / "gone", "file:\\\\" + folder_.Path(),
          "file:\\\\" + folder_ / "pipe", std::string("file:\\\\/dev/zero"), std::string("http://localhost/")}) {
        ShowPage(Page("before"));
        ASSERT_EQ(Text(), "before");
        browser_.Navigate(address);
        EXPECT_EQ(Text(), "") << address;
    }
    ShowPage(Page("before"));
    std::filesystem::remove(folder_ / "page.html");
    browser_.Refresh();
    EXPECT_EQ(Text(), "");
}

TEST_F(PageBrowserTest, APageBeyondTheBoundIsNotLaidOut) {
    ShowPage("");
    std::filesystem::resize_file(folder_ / "page.html", kLargestPage + 1);
    browser_.Refresh();
    EXPECT_EQ(Text(), "This page is too large to be shown here.");
}

TEST_F(PageBrowserTest, FollowsNoLink) {
    WriteBytes(folder_ / "other.html", "elsewhere");
    const std::string link = "file://" + folder_ / "other.html";
    ShowPage(Page("<a href=\"" + link + "\">WWWWWWWWWWWWWWWWWW</a>"));
    QApplication::processEvents();
    const QPoint on(60, browser_.cursorRect().center().y());
    ASSERT_EQ(browser_.anchorAt(on).toStdString(), link);
    QTest::mouseClick(browser_.viewport(), Qt::LeftButton, Qt::NoModifier, on);
    for (const auto& [key, modifier] :
         {std::pair(Qt::Key_Tab, Qt::NoModifier), std::pair(Qt::Key_Return, Qt::NoModifier),
          std::pair(Qt::Key_Up, Qt::AltModifier), std::pair(Qt::Key_Left, Qt::AltModifier)}) {
        QTest::keyClick(&browser_, key, modifier);
    }
    EXPECT_EQ(Text(), "WWWWWWWWWWWWWWWWWW");
    EXPECT_FALSE(browser_.loadResource(QTextDocument::ImageResource, QUrl(QString::fromStdString(link))).isValid());
}

TEST_F(PageBrowserTest, PicturesComeFromPlainPaths) {
    std::filesystem::create_directory(folder_ / "Data");
    QImage red(40, 30, QImage::Format_RGB32);
    red.fill(Qt::red);
    for (const char* name : {"/Data/logo.png", "/50% #1.png"})
        ASSERT_TRUE(red.save(QString::fromStdString(folder_.Path() + name)));
    ASSERT_TRUE(red.scaled(4000, 3000).save(QString::fromStdString(folder_ / "photo.png")));
    struct {
        std::string source;
        int pixels;
    } const cases[] = {
        {"Data/logo.png", 40 * 30},
        {folder_ / "Data/logo.png", 40 * 30},
        {"file://" + folder_ / "Data/logo.png", 40 * 30},
        {"50% #1.png", 40 * 30},
        {"http://localhost/Data/logo.png", 0},
        {"Data/gone.png", 0},
        {"/dev/zero", 0},
        {"page.html", 0},
    };
    for (const auto& c : cases) {
        ShowPage(Page("<img src=\"" + c.source + "\" alt=\"army logo\">"));
        EXPECT_EQ(PixelsOf(Qt::red), c.pixels) << c.source;
    }
    ShowPage(Page("<img src=\"photo.png\">"));
    EXPECT_GT(PixelsOf(Qt::red), 300 * 200);
    EXPECT_EQ(browser_.horizontalScrollBar()->maximum(), 0);
}

// Other browsers draw a rule under a table across the page, and one empty line for one break between blocks.
TEST_F(PageBrowserTest, RulesAndBreaksAreThoseOfOtherBrowsers) {
    ShowPage(
        Page("<table><tr><td>A</td><td></td></tr></table>\r\n<HR><BR>\r\n<table><tr><td>B</td></tr></table>end<br>"
             "<p>C</p>"));
    std::string between;
    for (QTextBlock block = browser_.document()->begin(); block.isValid(); block = block.next()) {
        if (QTextCursor(block).currentTable() != nullptr) continue;
        if (block.blockFormat().hasProperty(QTextFormat::BlockTrailingHorizontalRulerWidth)) between += "rule ";
        if (block.text().isEmpty()) continue;
        const QString text = block.text().trimmed();
        between += text.isEmpty() ? "line " : text.toStdString() + " ";
    }
    EXPECT_EQ(between, "rule line end C ");
}

TEST_F(PageBrowserTest, HostileMarkupEndsInTime) {
    std::string tables;
    std::string bold;
    for (int i = 0; i < 20000; ++i) {
        tables += "<table><tr><td>";
        bold += "<b>x";
    }
    for (const std::string& content : {tables, bold, std::string("&#64976;&#65532;<table>&#64977;"), std::string("a<"),
                                       std::string("<table width=\"x>")}) {
        ShowPage(Page(content));
        browser_.grab();
    }
    ShowPage(Page("whole"));
    EXPECT_EQ(Text(), "whole");
}

// The colours and the number of pages of what was printed.
struct SPrinted {
    int pages = 0;
    std::vector<QColor> colours;
};

SPrinted ReadPdf(const std::string& path) {
    const QByteArray pdf = QByteArray::fromStdString(ReadBytes(path));
    SPrinted printed;
    printed.pages = static_cast<int>(pdf.count("/Type /Page\n"));
    static const QRegularExpression colour(QStringLiteral("([\\d.]+) ([\\d.]+) ([\\d.]+) (?:scn|SCN)\\b"));
    for (qsizetype at = pdf.indexOf("stream\n"); at >= 0; at = pdf.indexOf("stream\n", at + 1)) {
        const QByteArray packed = pdf.mid(at + 7, pdf.indexOf("endstream", at) - at - 7);
        const QByteArray text = qUncompress(QByteArray("\0\x10\0\0", 4) + packed);
        for (auto match = colour.globalMatch(QString::fromLatin1(text)); match.hasNext();) {
            const auto values = match.next();
            printed.colours.push_back(QColor::fromRgbF(values.captured(1).toFloat(), values.captured(2).toFloat(),
                                                       values.captured(3).toFloat()));
        }
    }
    return printed;
}

TEST_F(PageBrowserTest, PrintsDarkOnWhite) {
    std::string content = "<table><tr><td><FONT COLOR=\"#00FF00\"><b>INFANTRY</b></FONT></td></tr></table>";
    for (int i = 0; i < 60; ++i)
        content += "<table><tr><td width=250><b>Unit</b></td><td>12</td></tr></table><HR><BR>";
    ShowPage(Page(content));
    platform_.ExpectPrint(false);
    browser_.Print();
    platform_.ExpectPrint(true, [this](IPrintJob& job) {
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setPageSize(QPageSize(QPageSize::A4));
        printer.setOutputFileName(QString::fromStdString(folder_ / "out.pdf"));
        dynamic_cast<CPrintJob&>(job).Print(printer);
    });
    browser_.Print();
    const SPrinted printed = ReadPdf(folder_ / "out.pdf");
    EXPECT_GE(printed.pages, 3);
    EXPECT_LE(printed.pages, 5);
    int green = 0;
    int light = 0;
    for (const QColor& colour : printed.colours) {
        green += colour.green() > colour.red() + 40;
        light += colour != Qt::white && Contrast(Qt::white, colour) < 2;
    }
    EXPECT_GT(green, 0);
    EXPECT_EQ(light, 0);
}

}  // namespace
