#include "controls/text_box.h"

#include <QPainter>
#include <QTextDocument>
#include <cmath>

#include "controls/ansi_qt.h"
#include "controls/painting.h"

namespace {

constexpr int kMargin = 8;

}  // namespace

CTextBox::CTextBox(CForm* form, const char* name, std::optional<int> index) : CControl(form, name, index) {
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setFrameShape(QFrame::NoFrame);
    setTabChangesFocus(true);
    document()->setDocumentMargin(kMargin);
    LookChanged();
}

void CTextBox::SetText(std::string_view text) {
    text_ = text;
    setPlainText(ForDisplay(FromAnsi(text)));
}

int CTextBox::HeightFor(int width) const {
    QTextDocument measured(toPlainText());
    measured.setDefaultFont(font());
    measured.setDocumentMargin(kMargin);
    measured.setTextWidth(width);
    // The scroll bar goes only where the lower margin is there twice.
    return static_cast<int>(std::ceil(measured.size().height())) + kMargin + 1;
}

SInk CTextBox::Ink() const {
    return {palette().color(QPalette::Text), palette().color(QPalette::Base)};
}

void CTextBox::LookChanged() {
    setFont(LookFont());
    setPalette(MPainting::FieldPalette(Back(), Fore(), ToQColor(Form().BackColor())));
}

void CTextBox::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(viewport());
        painter.fillRect(viewport()->rect(), palette().color(QPalette::Base));
    }
    QPlainTextEdit::paintEvent(event);
}
