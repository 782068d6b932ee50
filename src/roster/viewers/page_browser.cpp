#include "roster/viewers/page_browser.h"

#include <QScrollBar>
#include <QTextOption>
#include <string_view>

#include "controls/fonts.h"
#include "controls/painting.h"
#include "core/files/platform.h"
#include "roster/viewers/page_print.h"

namespace {

constexpr std::string_view kFilePrefix = "file:\\\\";
constexpr double kFontSize = 12;

}  // namespace

void FillDocument(QTextDocument& document, const CPageText& page) {
    QFont font = MFonts::Make(MFonts::Plain, kFontSize, false);
    // Pages name the font that this machine may have under another name.
    QFont::insertSubstitution(QStringLiteral("Arial"), font.family());
    document.setUndoRedoEnabled(false);
    document.setDefaultFont(font);
    document.setDocumentMargin(8);
    QTextOption option = document.defaultTextOption();
    option.setWrapMode(QTextOption::WordWrap);
    document.setDefaultTextOption(option);
    document.setHtml(page.html);
}

CPageBrowser::CPageBrowser(QWidget* parent) : QTextBrowser(parent) {
    setFrameShape(QFrame::NoFrame);
    setOpenLinks(false);
    setOpenExternalLinks(false);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    setFocusPolicy(Qt::StrongFocus);
    setAcceptDrops(false);
    setWordWrapMode(QTextOption::WordWrap);
    setAccessibleName(QStringLiteral("Page"));
    pictures_.Serve(*document());
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
    pictures_.Clear();
    ShowPage();
    verticalScrollBar()->setValue(top);
}

void CPageBrowser::ShowPage() {
    QPalette colours = MPainting::FieldPalette(page_.background, page_.text, page_.background);
    colours.setColor(QPalette::Link, page_.text);
    colours.setColor(QPalette::LinkVisited, page_.text);
    setPalette(colours);
    FillDocument(*document(), page_);
    // Back from where filling left the cursor: a view keeps it in sight, for which all of a long page is laid out.
    moveCursor(QTextCursor::Start);
}

void CPageBrowser::Print() {
    CPagePrint job(page_);
    MPlatform::Current().ShowPrint(job);
}

QVariant CPageBrowser::loadResource(int /*type*/, const QUrl& /*name*/) {
    return {};
}

void CPageBrowser::doSetSource(const QUrl& /*name*/, QTextDocument::ResourceType /*type*/) {}
