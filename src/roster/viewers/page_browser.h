#pragma once

#include <QTextBrowser>
#include <string>

#include "roster/browser.h"
#include "roster/viewers/page_pictures.h"
#include "roster/viewers/page_text.h"

/// Shows one page from the disk in its own colours. It follows no link, and nothing reaches it from a network.
class CPageBrowser : public QTextBrowser, public IBrowser {
    Q_OBJECT
  public:
    explicit CPageBrowser(QWidget* parent);

    void Navigate(const std::string& address) override;
    void Refresh() override;
    void Print() override;

    QVariant loadResource(int type, const QUrl& name) override;

  protected:
    void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;

  private:
    void ShowPage();

    std::string address_;
    CPageText page_;
    CPagePictures pictures_;
};

/// Gives a document the markup of a page, in the font that pages are made for.
void FillDocument(QTextDocument& document, const CPageText& page);
