#pragma once

#include <QHash>
#include <QObject>
#include <QTextObjectInterface>

#include "controls/picture.h"

class QTextDocument;
class QTextImageFormat;

/// Draws the pictures of pages. They come from plain paths only, relative ones in the application folder; each is read
/// once. A picture that can't be read shows its alternative text.
class CPagePictures : public QObject, public QTextObjectInterface {
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)
  public:
    /// Forgets the pictures read so far.
    void Clear() { pictures_.clear(); }

    QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
    void drawObject(QPainter* painter, const QRectF& area, QTextDocument* document, int position,
                    const QTextFormat& format) override;

  private:
    PicturePtr Picture(const QTextImageFormat& format);

    QHash<QString, PicturePtr> pictures_;
};
