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
        } else {
            area = layout->blockBoundingRect(it.currentBlock());
            part.first = part.last = it.currentBlock();
            part.empty = part.first.text().trimmed().isEmpty();
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

// Where a part is taller than a sheet, at least no line of it is cut.
double CPagePrint::CutBetweenLines(const QTextDocument& document, const std::vector<SPart>& parts,
                                   const SSheet& sheet) {
    const QAbstractTextDocumentLayout* layout = document.documentLayout();
    double cut = sheet.bottom;
    for (const SPart& part : parts) {
        if (part.bottom <= sheet.top || part.top >= sheet.bottom) continue;
        for (QTextBlock block = part.first; block.isValid(); block = block.next()) {
            const double top = layout->blockBoundingRect(block).top();
            for (int i = 0; i < block.layout()->lineCount(); ++i) {
                const QRectF line = block.layout()->lineAt(i).rect().translated(0, top);
                if (line.top() < sheet.bottom && line.bottom() > sheet.bottom) cut = std::min(cut, line.top());
            }
            if (block == part.last) break;
        }
    }
    return cut > sheet.top ? cut : sheet.bottom;
}

std::vector<CPagePrint::SSheet> CPagePrint::Paginate(const QTextDocument& document, double height) {
    const std::vector<SPart> parts = PartsOf(document);
    std::vector<SSheet> sheets;
    SSheet sheet{0, height};
    double candidate = 0;  // top of the last part at which a sheet may begin
    double content = 0;    // bottom of what stands before it
    double filled = 0;     // bottom of the last part that isn't empty
    bool keep = true;      // what stood last belongs to what follows
    for (const SPart& part : parts) {
        if (part.empty) continue;
        if (!keep) {
            candidate = part.top;
            content = filled;
        }
        while (part.bottom > sheet.top + height) {
            if (candidate > sheet.top) {
                sheets.push_back({sheet.top, content});
                sheet.top = candidate;
            } else {
                sheet.bottom = sheet.top + height;
                const double cut = CutBetweenLines(document, parts, sheet);
                sheets.push_back({sheet.top, cut});
                sheet.top = candidate = cut;
            }
        }
        filled = part.bottom;
        keep = part.heading;
    }
    sheets.push_back({sheet.top, std::max(filled, sheet.top)});
    return sheets;
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
    document.Fill(page_);
    document.setDocumentMargin(0);
    QTextCursor changes(&document);
    changes.beginEditBlock();  // laid out once, and not after each change
    Darken(document);
    Widen(document);
    changes.endEditBlock();
    double scale = kScale;
    document.setTextWidth(area.width() / scale);
    // A row that can't be made as narrow as the sheet is printed smaller.
    const double wanted = document.size().width();
    if (wanted > area.width() / scale) {
        scale = std::max(kSmallestScale, area.width() / wanted);
        document.setTextWidth(area.width() / scale);
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
