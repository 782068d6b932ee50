#include "roster/viewers/page_pictures.h"

#include <QAbstractTextDocumentLayout>
#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>
#include <QUrl>
#include <algorithm>

#include "controls/ansi_qt.h"
#include "core/files/mounts.h"
#include "core/files/platform.h"

namespace {

// Kept for all pictures of a page together, 128 MB.
constexpr std::int64_t kMostPixels = std::int64_t{32} << 20;
constexpr qsizetype kMostNames = 1000;

double ScaleOf(const QTextDocument& document) {
    const QPaintDevice* device = document.documentLayout()->paintDevice();
    return device != nullptr ? device->logicalDpiX() / 96.0 : 1;
}

int PicturesIn(const QTextDocument& document) {
    int count = 0;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            if (it.fragment().charFormat().isImageFormat()) count += it.fragment().length();
        }
    }
    return count;
}

std::string PathOf(const QString& name) {
    if (!name.startsWith(QStringLiteral("file:"), Qt::CaseInsensitive)) return ToPath(name);
    return ToPath(QUrl(name).toLocalFile());
}

}  // namespace

void CPagePictures::Clear() {
    paths_.clear();
    pictures_.clear();
}

// Looks which files the page names. They share the pixels that it may have: each takes at most an equal part of what
// those before it have left.
void CPagePictures::Index(const QTextDocument& document) {
    for (const QTextFormat& format : document.allFormats()) {
        const QString name = format.toImageFormat().name();
        if (!format.isImageFormat() || paths_.contains(name)) continue;
        if (paths_.size() >= kMostNames) break;
        const std::string path = PathOf(name);
        const std::string resolved =
            MMounts::Resolve(path.starts_with('/') ? path : MPlatform::InApplicationFolder(path));
        paths_.insert(name, resolved);
        pictures_.emplace(resolved, std::nullopt);
    }
    tallest_ = kTallestLayout / ScaleOf(document) / std::max(PicturesIn(document), 1);
    pixelsLeft_ = kMostPixels;
    picturesLeft_ = static_cast<std::int64_t>(pictures_.size());
}

PicturePtr CPagePictures::Picture(const QTextDocument& document, const QTextImageFormat& format) {
    if (IsEmpty()) Index(document);
    const auto path = paths_.constFind(format.name());
    if (path == paths_.constEnd()) return nullptr;
    std::optional<PicturePtr>& picture = pictures_[*path];
    if (!picture) {
        picture.emplace();
        try {
            picture = CPicture::Load(*path, pixelsLeft_ / picturesLeft_);
            pixelsLeft_ -= (*picture)->PixelCount();
        } catch (const std::exception&) {
            // Shown by its alternative text.
        }
        --picturesLeft_;
    }
    return *picture;
}

QSizeF CPagePictures::intrinsicSize(QTextDocument* document, int /*position*/, const QTextFormat& format) {
    const QTextImageFormat image = format.toImageFormat();
    const double scale = ScaleOf(*document);
    const PicturePtr picture = Picture(*document, image);
    if (!picture) {
        const QFontMetricsF metrics(image.font(), document->documentLayout()->paintDevice());
        const QString text = image.stringProperty(QTextFormat::ImageAltText);
        return {std::min(metrics.horizontalAdvance(text), largest_.width() * scale), metrics.height()};
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
    const QSizeF largest = largest_.boundedTo(QSizeF(kLongestSide, tallest_));
    if (size.width() > largest.width() || size.height() > largest.height()) size.scale(largest, Qt::KeepAspectRatio);
    return size * scale;
}

void CPagePictures::drawObject(QPainter* painter, const QRectF& area, QTextDocument* document, int /*position*/,
                               const QTextFormat& format) {
    const QTextImageFormat image = format.toImageFormat();
    if (const PicturePtr picture = Picture(*document, image)) {
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
