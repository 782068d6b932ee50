#include "controls/message_box.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QRegularExpression>
#include <QTextDocument>
#include <QTextEdit>
#include <algorithm>
#include <cmath>
#include <memory>

namespace {

// Of a text that the toolkit's label would not hold well.
constexpr QSize kMost(460, 320);

bool NeedsBounds(const QString& text, const QFontMetrics& metrics) {
    constexpr int kMostLines = 18;
    constexpr int kMostCharacters = 2500;
    if (text.count(u'\n') >= kMostLines || text.size() >= kMostCharacters) return true;
    static const QRegularExpression blanks(QStringLiteral("\\s+"));
    const QStringList words = text.split(blanks);
    return std::any_of(words.begin(), words.end(),
                       [&](const QString& word) { return metrics.horizontalAdvance(word) > kMost.width(); });
}

std::unique_ptr<QTextEdit> BoundedText(const QString& text, QWidget* parent) {
    auto shown = std::make_unique<QTextEdit>(parent);
    shown->setReadOnly(true);
    shown->setTextInteractionFlags(Qt::TextSelectableByMouse);
    shown->setFocusPolicy(Qt::ClickFocus);
    shown->setFrameShape(QFrame::NoFrame);
    shown->viewport()->setAutoFillBackground(false);
    shown->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    shown->setPlainText(text);
    shown->document()->setDocumentMargin(0);
    // A copy measures the height: the field lays its own out anew, for the width that it has not got yet.
    const std::unique_ptr<QTextDocument> measured(shown->document()->clone());
    measured->setTextWidth(kMost.width());
    const int height = static_cast<int>(std::ceil(measured->size().height()));
    shown->setFixedSize(kMost.width(), std::min(height, kMost.height()));
    return shown;
}

}  // namespace

CMessageBox::CMessageBox(QWidget* owner, Icon icon, bool dismissible) : QMessageBox(owner), dismissible_(dismissible) {
    setTextFormat(Qt::PlainText);
    setIcon(icon);
}

void CMessageBox::SetText(const QString& text) {
    setText(text);
    auto* label = findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    auto* grid = qobject_cast<QGridLayout*>(layout());
    if (label == nullptr || grid == nullptr || !NeedsBounds(text, label->fontMetrics())) return;
    std::unique_ptr<QTextEdit> shown = BoundedText(text, this);
    const std::unique_ptr<QLayoutItem> former(grid->replaceWidget(label, shown.get()));
    label->hide();
    shown.release()->show();  // the box's, as its child
}

void CMessageBox::reject() {
    if (dismissible_) QMessageBox::reject();
}

void CMessageBox::closeEvent(QCloseEvent* event) {
    if (dismissible_) {
        QMessageBox::closeEvent(event);
    } else {
        event->ignore();
    }
}

void CMessageBox::keyPressEvent(QKeyEvent* event) {
    if (dismissible_ || event->key() != Qt::Key_Escape) QMessageBox::keyPressEvent(event);
}
