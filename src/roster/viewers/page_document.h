#pragma once

#include <QTextDocument>

#include "roster/viewers/page_pictures.h"
#include "roster/viewers/page_text.h"

/// The markup of a page laid out, in the font that pages are made for. Nothing is read for it but its pictures.
class CPageDocument : public QTextDocument {
    Q_OBJECT
  public:
    explicit CPageDocument(QObject* parent = nullptr);

    void Fill(const CPageText& page);
    bool HasPictures() const { return !pictures_.IsEmpty(); }
    /// Reduces the pictures that are larger, in pixels at 96 dots per inch.
    void SetLargestPicture(const QSizeF& size);

  protected:
    QVariant loadResource(int type, const QUrl& name) override;

  private:
    CPagePictures pictures_;
};
