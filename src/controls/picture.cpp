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

// Sizes that are `most` pixels at most, the proportions kept.
QSize Within(const QSize& size, std::int64_t most) {
    const double pixels = double{1} * size.width() * size.height();
    if (pixels <= static_cast<double>(most)) return size;
    return (QSizeF(size) * std::sqrt(static_cast<double>(most) / pixels)).toSize().expandedTo(QSize(1, 1));
}

// A smaller image, made by areas. Colours of a palette can't be mixed, so it is made in true colours, in bands: of a
// large image in black and white they take 32 times its memory.
QImage Reduced(const QImage& image, const QSize& size) {
    constexpr std::int64_t kBand = 4'000'000;  // pixels
    const auto format = image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
    const std::int64_t pixels = std::int64_t{image.width()} * image.height();
    const int bands = static_cast<int>(std::clamp<std::int64_t>(pixels / kBand, 1, size.height()));
    QImage result(size, format);
    if (result.isNull()) throw CRuntimeError(ErrorNumber::OutOfMemory);
    QPainter painter(&result);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    const auto edge = [bands](int height, int band) { return static_cast<int>(std::int64_t{height} * band / bands); };
    for (int i = 0; i < bands; ++i) {
        const int from = edge(image.height(), i);
        const int to = edge(size.height(), i);
        const QImage band = image.copy(0, from, image.width(), edge(image.height(), i + 1) - from);
        painter.drawImage(0, to,
                          band.convertToFormat(format).scaled(size.width(), edge(size.height(), i + 1) - to,
                                                              Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    }
    return result;
}

}  // namespace

PicturePtr CPicture::Load(const std::string& path, std::int64_t mostPixels) {
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
    mostPixels = std::clamp<std::int64_t>(mostPixels, 1, kMostPixels);
    QSize size = reader.size();
    // This format alone is decoded at a smaller size, the others whole and then reduced by the toolkit's rougher ways.
    const bool reduces = reader.format() == "jpeg" && size.isValid() && size != Within(size, mostPixels);
    if (reduces) reader.setScaledSize(Within(size, mostPixels));
    QImage image = reader.read();
    if (image.isNull()) throw CRuntimeError(ErrorNumber::InvalidPicture);
    image.setDevicePixelRatio(1);
    if (!reduces)
        size = image.size();
    else if (reader.transformation().testFlag(QImageIOHandler::TransformationRotate90))
        size.transpose();
    if (const QSize kept = Within(image.size(), mostPixels); kept != image.size()) image = Reduced(image, kept);
    return std::make_shared<const CPicture>(std::move(image), size);
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

CPicture::CPicture(QImage image, QSize size) : image_(std::move(image)), size_(size) {}
CPicture::CPicture(std::unique_ptr<QSvgRenderer> drawing) : drawing_(std::move(drawing)) {}
CPicture::~CPicture() = default;

QSize CPicture::Size() const {
    return drawing_ ? drawing_->defaultSize() : size_;
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
    const QSize pixels = painter.deviceTransform().mapRect(target).size().toSize().expandedTo(QSize(1, 1));
    if (pixels.width() < image_.width() && pixels.height() <= image_.height()) {
        if (reduced_.size() != pixels) reduced_ = Reduced(LevelFor(pixels), pixels);
        painter.drawImage(target, reduced_);
    } else {
        painter.save();
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(target, image_);
        painter.restore();
    }
}

// The smallest level that has enough pixels, so that a page with one large picture in many sizes isn't slow.
const QImage& CPicture::LevelFor(const QSize& pixels) const {
    const QImage* level = &image_;
    for (std::size_t i = 0; level->width() / 2 >= pixels.width() && level->height() / 2 >= pixels.height(); ++i) {
        if (i == levels_.size()) levels_.push_back(Reduced(*level, level->size() / 2));
        level = &levels_[i];
    }
    return *level;
}

// On the screen a drawing is kept as pixels: the same panel stands in several places, and is painted again and again.
void CPicture::PaintDrawing(QPainter& painter, const QRectF& target) const {
    constexpr int kMostKept = 4'000'000;
    const double ratio = painter.device()->devicePixelRatioF();
    const QSize pixels = (target.size() * ratio).toSize();
    const bool onScreen = painter.paintEngine()->type() == QPaintEngine::Raster && !pixels.isEmpty() &&
                          qint64{pixels.width()} * pixels.height() <= kMostKept;
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
