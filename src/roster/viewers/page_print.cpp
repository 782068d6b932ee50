#include "roster/viewers/page_print.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QPrinter>
#include <QTextCursor>
#include <QTextTable>
#include <algorithm>
#include <utility>

#include "controls/colour.h"
#include "controls/fonts.h"
#include "controls/form.h"
#include "roster/viewers/page_document.h"

namespace {

constexpr double kMargin = 14;  // millimetres, at least
constexpr double kFooter = 8;   // millimetres at the foot of a sheet
constexpr double kScale = 0.8;  // a sheet is narrower than a window
constexpr double kSmallestScale = 0.4;
constexpr double kReadable = 7;

double Pixels(double millimetres, int dotsPerInch) {
    return millimetres / 25.4 * dotsPerInch;
}

bool IsBold(const QTextBlock& block) {
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        if (it.fragment().text().trimmed().isEmpty()) continue;
        if (it.fragment().charFormat().fontWeight() < QFont::Bold) return false;
    }
    return true;
}

// A squad's row is headed by its name, a roster's title by a larger one.
bool HeadsSquad(const QTextFrame& table) {
    constexpr int kSquadLevel = 3;
    for (auto it = table.begin(); !it.atEnd(); ++it) {
        const QTextBlock block = it.currentBlock();
        if (block.isValid() && !block.text().trimmed().isEmpty())
            return block.blockFormat().headingLevel() == kSquadLevel;
    }
    return false;
}

}  // namespace

void CPagePrint::Darken(QTextDocument& document) {
    QTextCursor cursor(&document);
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        std::vector<std::pair<int, QTextCharFormat>> changes;
        std::vector<int> lengths;
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            QTextCharFormat format = it.fragment().charFormat();
            if (!format.hasProperty(QTextFormat::ForegroundBrush) &&
                !format.hasProperty(QTextFormat::BackgroundBrush)) {
                continue;
            }
            const QColor colour = format.foreground().style() == Qt::NoBrush ? Qt::black : format.foreground().color();
            format.setForeground(ReadableOn(Qt::white, colour, kReadable));
            format.clearBackground();
            changes.emplace_back(it.fragment().position(), format);
            lengths.push_back(it.fragment().length());
        }
        for (std::size_t i = 0; i < changes.size(); ++i) {
            cursor.setPosition(changes[i].first);
            cursor.setPosition(changes[i].first + lengths[i], QTextCursor::KeepAnchor);
            cursor.setCharFormat(changes[i].second);
        }
    }
}

// At a printer's resolution the widths that the layout measures for itself are a little short, and a last word wraps
// for nothing. A last column of free width therefore takes what room there is.
void CPagePrint::Widen(QTextDocument& document) {
    for (QTextFrame* frame : document.rootFrame()->childFrames()) {
        auto* table = qobject_cast<QTextTable*>(frame);
        if (table == nullptr) continue;
        QTextTableFormat format = table->format();
        const QList<QTextLength> columns = format.columnWidthConstraints();
        if (columns.isEmpty() || columns.last().type() != QTextLength::VariableLength) continue;
        format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
        table->setFormat(format);
    }
}

std::vector<CPagePrint::SPart> CPagePrint::PartsOf(const QTextDocument& document) {
    const QAbstractTextDocumentLayout* layout = document.documentLayout();
    std::vector<SPart> parts;
    for (auto it = document.rootFrame()->begin(); !it.atEnd(); ++it) {
        SPart part;
        QRectF area;
        if (QTextFrame* frame = it.currentFrame()) {
            area = layout->frameBoundingRect(frame);
            part.first = document.findBlock(frame->firstPosition());
            part.last = document.findBlock(frame->lastPosition());
            part.squad = HeadsSquad(*frame);
        } else {
            area = layout->blockBoundingRect(it.currentBlock());
            part.first = part.last = it.currentBlock();
            part.empty = part.first.text().trimmed().isEmpty();
            part.rule = part.first.blockFormat().hasProperty(QTextFormat::BlockTrailingHorizontalRulerWidth);
        }
        part.top = area.top();
        part.bottom = area.bottom();
        part.heading = !part.empty;
        for (QTextBlock block = part.first; part.heading && block.isValid(); block = block.next()) {
            part.heading = IsBold(block);
            if (block == part.last) break;
        }
        parts.push_back(part);
    }
    return parts;
}

std::vector<CPagePrint::SSheet> CPagePrint::LinesOf(const QTextDocument& document, const SPart& part) {
    const QAbstractTextDocumentLayout* layout = document.documentLayout();
    std::vector<SSheet> lines;
    for (QTextBlock block = part.first; block.isValid(); block = block.next()) {
        const double top = layout->blockBoundingRect(block).top();
        for (int i = 0; i < block.layout()->lineCount(); ++i) {
            const QRectF line = block.layout()->lineAt(i).rect().translated(0, top);
            lines.push_back({line.top(), line.bottom()});
        }
        if (block == part.last) break;
    }
    std::sort(lines.begin(), lines.end(), [](const SSheet& a, const SSheet& b) { return a.top < b.top; });
    return lines;
}

// Where a part is taller than a sheet, at least no line of it is cut.
double CPagePrint::CutBetweenLines(const std::vector<SSheet>& lines, const SSheet& sheet) {
    const auto topIs = [](const SSheet& line, double top) { return line.top < top; };
    auto line = std::lower_bound(lines.begin(), lines.end(), sheet.top, topIs);
    for (; line != lines.end() && line->top < sheet.bottom; ++line) {
        if (line->bottom > sheet.bottom) return line->top > sheet.top ? line->top : sheet.bottom;
    }
    return sheet.bottom;
}

// Settles which parts may stand first on a sheet: neither what belongs to a heading before it, nor a member of a squad
// that fits on one sheet. Of a squad too tall for that, the squads in it are kept together.
void CPagePrint::Group(std::vector<SPart>& parts, double height) {
    // By part, from behind: where the squad that it heads ends, and where the first squad in that one begins.
    std::vector<std::size_t> end(parts.size());
    std::vector<std::size_t> inner(parts.size());
    for (std::size_t i = parts.size(), rule = i, squad = i; i-- > 0;) {
        if (parts[i].rule) rule = squad = i;
        end[i] = rule;
        inner[i] = squad;
        if (parts[i].squad) squad = i;
    }
    const SPart* before = nullptr;
    const SPart* first = nullptr;  // of what the part before belongs to
    std::size_t together = 0;      // up to which part a squad is kept together
    for (std::size_t i = 0; i < parts.size(); ++i) {
        SPart& part = parts[i];
        if (part.empty) continue;
        part.begins = i >= together && (before == nullptr || !before->heading);
        if (part.begins) first = &part;
        if (part.squad && i >= together) {
            const auto fits = [&](const SPart& top, std::size_t behind) {
                return parts[behind - 1].bottom - top.top <= height;
            };
            together = fits(part, end[i]) ? end[i] : fits(part, inner[i]) ? inner[i] : i;
            // A title stays behind where it would not let the squad be whole.
            if (together > i && !fits(*first, together)) part.begins = true;
        }
        before = &part;
    }
}

std::vector<CPagePrint::SSheet> CPagePrint::Paginate(const QTextDocument& document, double height) {
    std::vector<SPart> parts = PartsOf(document);
    Group(parts, height);
    std::vector<SSheet> sheets;
    SSheet sheet{0, height};
    double candidate = 0;  // top of the last part at which a sheet may begin
    double content = 0;    // bottom of what stands before it
    double filled = 0;     // bottom of the last part that isn't empty
    for (const SPart& part : parts) {
        if (part.empty) continue;
        if (part.begins) {
            candidate = part.top;
            content = filled;
        }
        std::vector<SSheet> lines;
        while (part.bottom > sheet.top + height) {
            if (candidate > sheet.top) {
                sheets.push_back({sheet.top, content});
                sheet.top = candidate;
            } else {
                sheet.bottom = sheet.top + height;
                if (lines.empty()) lines = LinesOf(document, part);
                const double cut = CutBetweenLines(lines, sheet);
                sheets.push_back({sheet.top, cut});
                sheet.top = candidate = cut;
            }
        }
        filled = part.bottom;
    }
    sheets.push_back({sheet.top, std::max(filled, sheet.top)});
    return sheets;
}

// The pages of this layout are no sheets: the longest documents alone have a second one.
void CPagePrint::LayOut(QTextDocument& document, double width) {
    document.setPageSize(QSizeF(width, kTallestLayout));
}

// Lays the page out in the width of a sheet, with the pictures reduced until they leave it room for the rest of their
// rows.
void CPagePrint::FitPictures(CPageDocument& document, const QSizeF& room) {
    const double dot = document.documentLayout()->paintDevice()->logicalDpiX() / 96.0;
    constexpr int kMostTries = 4;
    constexpr double kRow = 0.95;  // of a sheet, the rest being the room around a cell
    QSizeF largest(room.width() / dot, room.height() / dot * kRow);
    LayOut(document, room.width());
    if (!document.HasPictures()) return;
    document.SetLargestPicture(largest);
    for (int i = 0; i < kMostTries && document.size().width() > room.width(); ++i) {
        const double excess = (document.size().width() - room.width()) / dot;
        largest.setWidth(std::max(largest.width() - excess, room.width() / dot / 4));
        document.SetLargestPicture(largest);
    }
}

QString CPagePrint::TitleOf(const QTextDocument& document) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 1) return block.text().simplified();
    }
    return {};
}

void CPagePrint::Print(QPrinter& printer) {
    const CBusyPointer busy;
    const QRectF printable = printer.pageLayout().paintRectPixels(printer.resolution());
    printer.setFullPage(true);
    const QRectF paper = printer.paperRect(QPrinter::DevicePixel);
    const double margin = Pixels(kMargin, printer.logicalDpiX());
    const QRectF area = paper.adjusted(margin, margin, -margin, -margin).intersected(printable);
    const double footer = Pixels(kFooter, printer.logicalDpiY());
    if (area.width() < margin || area.height() < 2 * footer) return;

    CPageDocument document;
    document.documentLayout()->setPaintDevice(&printer);
    document.SetLargestPicture(QSizeF(area.width(), area.height()) / kScale * 96 / printer.logicalDpiX());
    document.Fill(page_);
    document.setDocumentMargin(0);
    QTextCursor changes(&document);
    changes.beginEditBlock();  // laid out once, and not after each change
    Darken(document);
    Widen(document);
    changes.endEditBlock();
    double scale = kScale;
    FitPictures(document, QSizeF(area.width(), area.height() - footer) / scale);
    // A row that can't be made as narrow as the sheet is printed smaller.
    const double wanted = document.size().width();
    if (wanted > area.width() / scale) {
        scale = std::max(kSmallestScale, area.width() / wanted);
        LayOut(document, area.width() / scale);
    }

    const std::vector<SSheet> sheets = Paginate(document, (area.height() - footer) / scale);
    std::vector<std::size_t> order;
    const QPageRanges ranges = printer.pageRanges();
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        if (ranges.isEmpty() || ranges.contains(static_cast<int>(i) + 1)) order.push_back(i);
    }
    if (printer.pageOrder() == QPrinter::LastPageFirst) std::reverse(order.begin(), order.end());

    const QString title = TitleOf(document);
    printer.setDocName(title);
    QPainter painter(&printer);
    if (!painter.isActive()) return;
    const QFont small(MFonts::Make(MFonts::Plain, 8, false), &printer);
    const QFontMetricsF metrics(small, &printer);
    bool first = true;
    for (const std::size_t number : order) {
        if (!first) printer.newPage();
        first = false;
        const SSheet& sheet = sheets[number];
        painter.save();
        painter.translate(area.topLeft());
        painter.scale(scale, scale);
        painter.translate(0, -sheet.top);
        QAbstractTextDocumentLayout::PaintContext context;
        context.palette = QPalette(Qt::black, Qt::white, Qt::gray, Qt::gray, Qt::gray, Qt::black, Qt::white);
        context.clip = QRectF(0, sheet.top, area.width() / scale, sheet.bottom - sheet.top);
        painter.setClipRect(context.clip);
        document.documentLayout()->draw(&painter, context);
        painter.restore();

        painter.setFont(small);
        painter.setPen(QColor(0x40, 0x40, 0x40));
        const QRectF foot(area.left(), area.bottom() - metrics.height(), area.width(), metrics.height());
        const QString page = QStringLiteral("%1 / %2").arg(number + 1).arg(sheets.size());
        const double room = foot.width() - metrics.horizontalAdvance(page) - margin;
        painter.drawText(foot, Qt::AlignLeft, metrics.elidedText(title, Qt::ElideRight, room));
        painter.drawText(foot, Qt::AlignRight, page);
    }
}
