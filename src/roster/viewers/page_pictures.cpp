#include "roster/viewers/page_pictures.h"

#include <QAbstractTextDocumentLayout>
#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPainter>
#include <QTextDocument>
#include <QUrl>
#include <algorithm>

#include "controls/ansi_qt.h"
#include "core/files/platform.h"

namespace {

// In pixels at 96 dots per inch. A photograph as the camera made it must not push the units off the page.
constexpr QSizeF kLargestPicture(480, 400);

double ScaleOf(const QTextDocument& document) {
    const QPaintDevice* device = document.documentLayout()->paintDevice();
    return device != nullptr ? device->logicalDpiX() / 96.0 : 1;
}

std::string PathOf(const QString& name) {
    if (!name.startsWith(QStringLiteral("file:"), Qt::CaseInsensitive)) return ToPath(name);
    return ToPath(QUrl(name).toLocalFile());
}

}  // namespace

PicturePtr CPagePictures::Picture(const QTextImageFormat& format) {
    const QString name = format.name();
    const auto known = pictures_.constFind(name);
    if (known != pictures_.constEnd()) return *known;
    PicturePtr picture;
    try {
        const std::string path = PathOf(name);
        picture = CPicture::Load(path.starts_with('/') ? path : MPlatform::InApplicationFolder(path));
    } catch (const std::exception&) {
        // Shown by its alternative text.
    }
    pictures_.insert(name, picture);
    return picture;
}

QSizeF CPagePictures::intrinsicSize(QTextDocument* document, int /*position*/, const QTextFormat& format) {
    const QTextImageFormat image = format.toImageFormat();
    const double scale = ScaleOf(*document);
    const PicturePtr picture = Picture(image);
    if (!picture) {
        const QFontMetricsF metrics(image.font(), document->documentLayout()->paintDevice());
        const QString text = image.stringProperty(QTextFormat::ImageAltText);
        return {std::min(metrics.horizontalAdvance(text), kLargestPicture.width() * scale), metrics.height()};
    }
    QSizeF size = picture->Size();
    const bool hasWidth = image.width() > 0;
    const bool hasHeight = image.height() > 0;
    if (hasWidth && hasHeight) {
        size = QSizeF(image.width(), image.height());
    } else if (hasWidth) {
        size *= image.width() / size.width();
    } else if (hasHeight) {
        size *= image.height() / size.height();
    }
    if (size.width() > kLargestPicture.width() || size.height() > kLargestPicture.height()) {
        size.scale(kLargestPicture, Qt::KeepAspectRatio);
    }
    return size * scale;
}

void CPagePictures::drawObject(QPainter* painter, const QRectF& area, QTextDocument* document, int /*position*/,
                               const QTextFormat& format) {
    const QTextImageFormat image = format.toImageFormat();
    if (const PicturePtr picture = Picture(image)) {
        // Drawn in its own pixels: a printer's are much smaller.
        const double scale = ScaleOf(*document);
        painter->save();
        painter->translate(area.topLeft());
        painter->scale(scale, scale);
        picture->Paint(*painter, QRectF(QPointF(), area.size() / scale));
        painter->restore();
    } else {
        painter->save();
        painter->setFont(image.font());
        painter->drawText(area, Qt::AlignCenter, image.stringProperty(QTextFormat::ImageAltText));
        painter->restore();
    }
}
