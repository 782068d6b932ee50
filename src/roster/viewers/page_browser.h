#pragma once

#include <QTextBrowser>
#include <string>

#include "roster/browser.h"
#include "roster/viewers/page_document.h"
#include "roster/viewers/page_text.h"

/// Shows one page from the disk in its own colours. It follows no link, and nothing reaches it from a network.
class CPageBrowser : public QTextBrowser, public IBrowser {
    Q_OBJECT
  public:
    explicit CPageBrowser(QWidget* parent);

    void Navigate(const std::string& address) override;
    void Refresh() override;
    void Print() override;

  private:
    void ShowPage();

    std::string address_;
    CPageText page_;
    CPageDocument* document_;
};
