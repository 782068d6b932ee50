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

  protected:
    QVariant loadResource(int type, const QUrl& name) override;

  private:
    CPagePictures pictures_;
};
