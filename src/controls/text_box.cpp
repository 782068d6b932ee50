#include "controls/text_box.h"

#include <QPainter>

#include "controls/ansi_qt.h"
#include "controls/painting.h"

CTextBox::CTextBox(CForm* form, const char* name, std::optional<int> index) : CControl(form, name, index) {
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setFrameShape(QFrame::NoFrame);
    setTabChangesFocus(true);
    document()->setDocumentMargin(8);
    LookChanged();
}

void CTextBox::SetText(std::string_view text) {
    text_ = text;
    setPlainText(ForDisplay(FromAnsi(text)));
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
