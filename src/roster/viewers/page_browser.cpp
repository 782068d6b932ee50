#include "roster/viewers/page_browser.h"

#include <QScrollBar>
#include <memory>
#include <string_view>

#include "controls/painting.h"
#include "core/files/platform.h"
#include "roster/viewers/page_print.h"

namespace {

constexpr std::string_view kFilePrefix = "file:\\\\";

}  // namespace

CPageBrowser::CPageBrowser(QWidget* parent)
    : QTextBrowser(parent), document_(std::make_unique<CPageDocument>(this).release()) {  // its child
    setDocument(document_);
    setWordWrapMode(QTextOption::WordWrap);
    setFrameShape(QFrame::NoFrame);
    setOpenLinks(false);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    setFocusPolicy(Qt::StrongFocus);
    setAcceptDrops(false);
    setAccessibleName(QStringLiteral("Page"));
    ShowPage();
}

void CPageBrowser::Navigate(const std::string& address) {
    address_ = address;
    Refresh();
    verticalScrollBar()->setValue(0);
    horizontalScrollBar()->setValue(0);
}

void CPageBrowser::Refresh() {
    const int top = verticalScrollBar()->value();
    page_ = address_.starts_with(kFilePrefix) ? ReadPageFile(address_.substr(kFilePrefix.size())) : CPageText();
    ShowPage();
    verticalScrollBar()->setValue(top);
}

void CPageBrowser::ShowPage() {
    QPalette colours = MPainting::FieldPalette(page_.background, page_.text, page_.background);
    colours.setColor(QPalette::Link, page_.text);
    colours.setColor(QPalette::LinkVisited, page_.text);
    setPalette(colours);
    document_->Fill(page_);
    // Back from where filling left the cursor: a view keeps it in sight, for which all of a long page is laid out.
    moveCursor(QTextCursor::Start);
}

void CPageBrowser::Print() {
    CPagePrint job(page_);
    MPlatform::Current().ShowPrint(job);
}
