#include "roster/viewers/page_document.h"

#include <QAbstractTextDocumentLayout>
#include <QTextOption>

#include "controls/fonts.h"

namespace {

constexpr double kFontSize = 12;

}  // namespace

CPageDocument::CPageDocument(QObject* parent) : QTextDocument(parent) {
    QFont font = MFonts::Make(MFonts::Plain, kFontSize, false);
    // Pages name the font that this machine may have under another name.
    QFont::insertSubstitution(QStringLiteral("Arial"), font.family());
    setUndoRedoEnabled(false);
    setDefaultFont(font);
    setDocumentMargin(8);
    QTextOption option = defaultTextOption();
    option.setWrapMode(QTextOption::WordWrap);
    setDefaultTextOption(option);
    documentLayout()->registerHandler(QTextFormat::ImageObject, &pictures_);
}

void CPageDocument::Fill(const CPageText& page) {
    pictures_.Clear();
    setHtml(page.html);
}

void CPageDocument::SetLargestPicture(const QSizeF& size) {
    pictures_.SetLargest(size);
    markContentsDirty(0, characterCount());
}

// The toolkit itself would read style sheets and background pictures from any local file, pipes and devices too.
QVariant CPageDocument::loadResource(int /*type*/, const QUrl& /*name*/) {
    return {};
}
