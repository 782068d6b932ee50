#include "controls/picture.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>
#include <cmath>
#include <cstdint>

#include "core/files/ansi_text.h"
#include "core/files/file_access.h"
#include "core/files/platform.h"
#include "core/files/runtime_error.h"

namespace {

constexpr std::int64_t kLargestFile = std::int64_t{64} << 20;
constexpr int kLargestSide = 4096;

}  // namespace

PicturePtr CPicture::Load(const std::string& path) {
    if (MFileAccess::StampOf(path).size > kLargestFile) throw CRuntimeError(ErrorNumber::InvalidPicture);
    const std::string content = MFileAccess::ReadWholeFile(path);
    QByteArray bytes = QByteArray::fromRawData(content.data(), static_cast<qsizetype>(content.size()));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    // Drawings may refer to other files, which a document's picture must not make us read.
    if (reader.format().startsWith("svg")) throw CRuntimeError(ErrorNumber::InvalidPicture);
    const QSize size = reader.size();
    if (size.width() > kLargestSide || size.height() > kLargestSide) {
        reader.setScaledSize(size.scaled(kLargestSide, kLargestSide, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
    }
    QImage image = reader.read();
    if (image.isNull()) throw CRuntimeError(ErrorNumber::InvalidPicture);
    image.setDevicePixelRatio(1);
    return std::make_shared<const CPicture>(std::move(image));
}

std::string CPicture::DocumentPicturePath(std::string_view text) {
    const std::string path = MAnsiText::ToUtf8(text);
    return !path.empty() && path[0] != '/' ? MPlatform::InApplicationFolder(path) : path;
}

PicturePtr CPicture::FromResource(const QString& name) {
    if (!QFile::exists(name)) throw CRuntimeError(ErrorNumber::FileNotFound);
    auto drawing = std::make_unique<QSvgRenderer>(name);
    if (!drawing->isValid()) throw CRuntimeError(ErrorNumber::InvalidPicture);
    return std::make_shared<const CPicture>(std::move(drawing));
}

CPicture::CPicture(QImage image) : image_(std::move(image)) {}
CPicture::CPicture(std::unique_ptr<QSvgRenderer> drawing) : drawing_(std::move(drawing)) {}
CPicture::~CPicture() = default;

QSize CPicture::Size() const {
    return drawing_ ? drawing_->defaultSize() : image_.size();
}

void CPicture::Paint(QPainter& painter, const QRectF& area) const {
    QSizeF size = QSizeF(Size()).scaled(area.size(), Qt::KeepAspectRatio);
    if (!drawing_) size = size.boundedTo(QSizeF(Size()));
    if (size.isEmpty()) return;
    QRectF target(QPointF(), size);
    target.moveCenter(area.center());
    if (drawing_) {
        PaintDrawing(painter, target);
        return;
    }
    // A large reduction is made beforehand, by areas: the painter alone would leave pixels out.
    const double ratio = painter.device()->devicePixelRatioF();
    const QSize pixels = (size * ratio).toSize().expandedTo(QSize(1, 1));
    if (pixels.width() < image_.width()) {
        if (reduced_.size() != pixels) {
            reduced_ = image_.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        }
        painter.drawImage(target, reduced_);
    } else {
        painter.save();
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(target, image_);
        painter.restore();
    }
}

// On the screen a drawing is kept as pixels: the same panel stands in several places, and is painted again and again.
void CPicture::PaintDrawing(QPainter& painter, const QRectF& target) const {
    constexpr int kMostPixels = 4'000'000;
    const double ratio = painter.device()->devicePixelRatioF();
    const QSize pixels = (target.size() * ratio).toSize();
    const bool onScreen = painter.paintEngine()->type() == QPaintEngine::Raster && !pixels.isEmpty() &&
                          qint64{pixels.width()} * pixels.height() <= kMostPixels;
    if (!onScreen) {
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        drawing_->render(&painter, target);
        painter.restore();
        return;
    }
    if (reduced_.size() != pixels) {
        reduced_ = QImage(pixels, QImage::Format_ARGB32_Premultiplied);
        reduced_.fill(Qt::transparent);
        QPainter onto(&reduced_);
        onto.setRenderHint(QPainter::Antialiasing);
        drawing_->render(&onto, QRectF(QPointF(), QSizeF(pixels)));
    }
    reduced_.setDevicePixelRatio(ratio);
    // On whole pixels of the device, so that it isn't blurred.
    painter.drawImage(QPointF(std::round(target.left() * ratio) / ratio, std::round(target.top() * ratio) / ratio),
                      reduced_);
}
