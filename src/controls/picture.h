#pragma once

#include <QImage>
#include <QRectF>
#include <QSize>
#include <memory>
#include <string>
#include <string_view>

class QPainter;
class QSvgRenderer;
class CPicture;

/// A picture or nothing.
using PicturePtr = std::shared_ptr<const CPicture>;

/// A picture of pixels or of lines, drawn at any size with its proportions kept.
class CPicture {
  public:
    /// Reads a picture file. `path` is the platform's bytes. Errors: 53 no such file, 76 no such folder, 75 no
    /// permission or no file at all, 481 not a picture that can be read. A very large picture is read at a bounded
    /// size.
    static PicturePtr Load(const std::string& path);
    /// The picture that a document names by `text` in the code page, and its full path. A relative one starts at the
    /// application folder.
    static PicturePtr LoadDocumentPicture(std::string_view text) { return Load(DocumentPicturePath(text)); }
    static std::string DocumentPicturePath(std::string_view text);
    /// One of the program's own drawings, such as ":/gui_0.svg".
    static PicturePtr FromResource(const QString& name);

    explicit CPicture(QImage image);
    explicit CPicture(std::unique_ptr<QSvgRenderer> drawing);
    ~CPicture();

    /// Natural size in pixels at 96 dots per inch.
    QSize Size() const;
    /// Draws the picture into the middle of `area`, as large as fits. A picture of pixels isn't enlarged.
    void Paint(QPainter& painter, const QRectF& area) const;

  private:
    void PaintDrawing(QPainter& painter, const QRectF& target) const;

    QImage image_;
    std::unique_ptr<QSvgRenderer> drawing_;
    mutable QImage reduced_;  // image or drawing at the size at which it was painted last
};
