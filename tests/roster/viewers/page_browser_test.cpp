#include "roster/viewers/page_browser.h"

#include <sys/resource.h>
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

auto Sheets(const QByteArray& pdf) {
    return pdf.count("/Type /Page\n");
}

TEST_F(PageBrowserTest, ShowsRegularFilesOfBoundedSize) {
    ASSERT_EQ(mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    std::filesystem::create_symlink("page.html", folder_ / "link");
    std::filesystem::resize_file(Save("large", ""), kLargestPage + 1);
    const std::pair<std::string, std::string> cases[] = {
        {"file:\\\\/dev/zero", ""},
        {"file:\\\\" + folder_ / "gone", ""},
        {"file:\\\\" + folder_.Path(), ""},
        {"file:\\\\" + folder_ / "pipe", ""},
        {"file:\\\\" + folder_ / "link", ""},
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
    ASSERT_TRUE(red.scaled(570, 10).save(QString::fromStdString(folder_ / "wide.png")));
    std::filesystem::create_symlink("logo.png", folder_ / "link");
    for (const auto& [source, pixels] : {std::pair("file://" + folder_ / "logo.png", 40 * 30),
                                         {"50% #1.png", 40 * 30},
                                         {"wide.png", 570 * 10},
                                         {"link", 40 * 30},
                                         {"http://localhost/50% #1.png", 0},
                                         {"/dev/zero", 0},
                                         {"page.html", 0}}) {
        ShowPage(Page("<img src=\"" + source + "\" alt=\"army logo\">"));
        EXPECT_EQ(PixelsOf(Qt::red), pixels) << source;
    }
}

// However many pictures a page has and by however many names, they keep their size and not all of their pixels.
TEST_F(PageBrowserTest, PicturesShareTheMemoryOfThePage) {
    const auto peak = [] {
        rusage usage{};
        getrusage(RUSAGE_SELF, &usage);
        return usage.ru_maxrss / 1024;
    };
    QImage red(3000, 3000, QImage::Format_RGB32);
    red.fill(Qt::red);
    ASSERT_TRUE(red.save(QString::fromStdString(folder_ / "large.png")));
    std::string content;
    for (int i = 0; i < 30; ++i) {
        const std::string copy = "copy" + std::to_string(i) + ".png";
        std::filesystem::create_hard_link(folder_ / "large.png", folder_ / copy);
        content += "<img src=\"" + copy + "\"><br>";
        content += "<img src=\"file://" + folder_ / "large.png?" + std::to_string(i) + "\"><br>";
    }
    const auto before = peak();
    ShowPage(Page(content));
    EXPECT_GT(PixelsOf(Qt::red), 500 * 300);
    EXPECT_LT(peak() - before, 500) << "MB";
    EXPECT_NEAR(browser_.document()->size().width(), 3000, 40);
    EXPECT_NEAR(browser_.document()->size().height(), 60 * 3000, 60 * 20);
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
    const auto pages = Sheets(pdf);
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

// A sheet takes some forty rows.
TEST_F(PageBrowserTest, PrintKeepsSquadsTogetherAndReducesPictures) {
    const std::string title = "<H1>Name</H1><H3>Descr</H3><BR><BR><H3>Total Cost: 1</H3><HR><BR>";
    const auto table = [](const std::string& cell) {
        return "<table border=\"0\"><tr><td width=\"250\">" + cell + "</td><td>10</td></tr></table>\r\n";
    };
    const auto rows = [&table](const std::string& cell, int count) {
        std::string text;
        for (int i = 0; i < count; ++i)
            text += table(cell);
        return text;
    };
    const auto squad = [&](int members) { return table("<H3>Squad</H3>") + rows("<b>Unit</b>", members); };
    const std::string end = "<HR><BR>\r\n";
    QImage large(2000, 3000, QImage::Format_RGB32);
    large.fill(Qt::red);
    ASSERT_TRUE(large.save(QString::fromStdString(folder_ / "large.png")));
    const std::tuple<const char*, std::string, int> cases[] = {
        {"rows alone fill their sheets", rows("<b>Unit</b>", 72), 2},
        {"no two squads fit", squad(23) + end + squad(23) + end + squad(23) + end, 3},
        {"a squad that fits alone leaves the title behind", title + squad(35) + end, 2},
        {"one too tall is torn where it must be", rows("<b>Unit</b>", 20) + end + squad(50) + end, 2},
        {"those inside of it are not", squad(20) + squad(23) + squad(23) + end, 3},
        {"a picture fits beside its title",
         "<table><tr><td width=400><H1>Name</H1></td><td><img src=\"large.png\"></td></tr></table>", 1},
        {"and on a sheet", "<img src=\"large.png\">", 1},
    };
    for (const auto& [what, content, sheets] : cases) {
        ShowPage(Page(content));
        PrintTo(folder_ / "out.pdf", QPrinter::HighResolution);
        EXPECT_EQ(Sheets(QByteArray::fromStdString(ReadBytes(folder_ / "out.pdf"))), sheets) << what;
    }
}

// On the screen and on paper: it ends at all, reads no device and waits for no pipe.
TEST_F(PageBrowserTest, HostileMarkupEndsInTime) {
    ASSERT_EQ(mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    const std::string pipe = "file://" + folder_ / "pipe";
    ASSERT_TRUE(QImage(1, 20'000, QImage::Format_Mono).save(QString::fromStdString(folder_ / "tall.png")));
    const std::string contents[] = {
        QStringLiteral("<table><tr><td>").repeated(2000).toStdString(),
        QStringLiteral("<b>x").repeated(20000).toStdString(), "&#64976;&#65532;<table>&#64977;", "a<",
        // Other ways to write the same tags.
        QStringLiteral("< table>< tr>< td>x").repeated(30).toStdString(),
        QStringLiteral("<&#116;able><&#116;r><'td'>x").repeated(30).toStdString(),
        QStringLiteral("<table><tr><td>x<!-- </table> -->").repeated(30).toStdString(),
        "<table>" + QStringLiteral("<tr><td colspan=20000 rowspan=20000>x").repeated(200).toStdString(),
        "<table><tr>" + QStringLiteral("<td>").repeated(400).append(QStringLiteral("<tr>").repeated(400)).toStdString(),
        "<table cellpadding=9999999 border=9999999><tr><td style=\"margin:9e9px;font-size:90000px\">x</table>",
        QStringLiteral("x").repeated(1'000'000).toStdString(), QStringLiteral("x<br>").repeated(40'000).toStdString(),
        QStringLiteral("<img src=\"tall.png\"><br>").repeated(450).toStdString(), "<table width=\"x>",
        "<table><tr><td colspan=99999999>x</table>",
        "<table background=\"" + pipe + "\"><tr><td style=\"background-image:url(" + pipe + ")\">x</table>",
        "<link rel=\"stylesheet\" href=\"" + pipe + "\"><style>@import url(\"" + pipe + "\");</style>",
        "<table>wh<tr>ol<td>e"};
    for (const std::string& content : contents) {
        ShowPage(Page(content));
        EXPECT_LT(browser_.document()->blockCount(), 30'000) << content.substr(0, 60);
        EXPECT_LT(browser_.document()->size().width(), 300'000) << content.substr(0, 60);
        browser_.grab();
        PrintTo(folder_ / "hostile.pdf", QPrinter::HighResolution);
    }
    EXPECT_EQ(Text(), "wh\n\nol\ne") << "text outside of cells";
}

}  // namespace
