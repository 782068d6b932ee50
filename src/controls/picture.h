#pragma once

#include <QImage>
#include <QRectF>
#include <QSize>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class QPainter;
class QSvgRenderer;
class CPicture;

/// A picture or nothing.
using PicturePtr = std::shared_ptr<const CPicture>;

/// A picture of pixels or of lines, drawn at any size with its proportions kept.
class CPicture {
  public:
    /// Reads a picture file. `path` is the platform's bytes. Errors: 53 no such file, 76 no such folder, 75 no
    /// permission or no file at all, 481 not a picture that can be read. Of a picture with more pixels than
    /// `mostPixels` fewer are kept; its size stays its own.
    static PicturePtr Load(const std::string& path, std::int64_t mostPixels = kMostPixels);
    /// The picture that a document names by `text` in the code page, and its full path. A relative one starts at the
    /// application folder.
    static PicturePtr LoadDocumentPicture(std::string_view text) { return Load(DocumentPicturePath(text)); }
    static std::string DocumentPicturePath(std::string_view text);
    /// One of the program's own drawings, such as ":/gui_0.svg".
    static PicturePtr FromResource(const QString& name);

    /// Pixels that are kept, in a size of the picture's own.
    CPicture(QImage image, QSize size);
    explicit CPicture(std::unique_ptr<QSvgRenderer> drawing);
    ~CPicture();

    /// Natural size in pixels at 96 dots per inch.
    QSize Size() const;
    /// How many pixels are kept; 0 for a drawing.
    std::int64_t PixelCount() const { return std::int64_t{image_.width()} * image_.height(); }
    /// Draws the picture into the middle of `area`, as large as fits. A picture of pixels isn't enlarged.
    void Paint(QPainter& painter, const QRectF& area) const;

  private:
    static constexpr std::int64_t kMostPixels = std::int64_t{4096} * 4096;

    void PaintDrawing(QPainter& painter, const QRectF& target) const;
    const QImage& LevelFor(const QSize& pixels) const;

    QImage image_;
    QSize size_;
    mutable std::vector<QImage> levels_;  // the image at half, a quarter and so on of its size
    std::unique_ptr<QSvgRenderer> drawing_;
    mutable QImage reduced_;  // image or drawing at the size at which it was painted last
};
