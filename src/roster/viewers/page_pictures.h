#pragma once

#include <QHash>
#include <QObject>
#include <QTextObjectInterface>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>

#include "controls/picture.h"

class QTextDocument;
class QTextImageFormat;

/// How tall a page without sheets may be laid out, and all pictures of a page together, in pixels of the device. Where
/// the toolkit's layout reaches some eight million of them it never ends.
inline constexpr double kTallestLayout = 4'000'000;

/// Draws the pictures of pages, in their own size. They come from plain paths only, relative ones in the application
/// folder; each file is read once, whatever names the page has for it. Where their pixels are too many together, fewer
/// of each are kept; where they would be taller together than the layout counts, they are shown smaller. A picture that
/// can't be read shows its alternative text.
class CPagePictures : public QObject, public QTextObjectInterface {
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)
  public:
    /// Forgets the pictures read so far.
    void Clear();
    /// Reduces what is larger, in pixels at 96 dots per inch.
    void SetLargest(const QSizeF& size) { largest_ = size; }
    bool IsEmpty() const { return paths_.isEmpty(); }

    QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
    void drawObject(QPainter* painter, const QRectF& area, QTextDocument* document, int position,
                    const QTextFormat& format) override;

  private:
    void Index(const QTextDocument& document);
    PicturePtr Picture(const QTextDocument& document, const QTextImageFormat& format);

    // The layout can't count much further than a cell full of such pictures.
    static constexpr double kLongestSide = 20'000;

    QSizeF largest_{kLongestSide, kLongestSide};
    QHash<QString, std::string> paths_;                                    // by the names on the page
    std::unordered_map<std::string, std::optional<PicturePtr>> pictures_;  // by path; none until it is read
    std::int64_t pixelsLeft_ = 0;
    std::int64_t picturesLeft_ = 0;
    double tallest_ = kLongestSide;  // of each picture, for the sake of all that are shown
};
