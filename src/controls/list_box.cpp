#include "controls/list_box.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "controls/ansi_qt.h"
#include "controls/painting.h"
#include "controls/row_delegate.h"
#include "core/files/ansi_text.h"
#include "core/files/runtime_error.h"

CListBox::CListBox(CForm* form, const char* name, std::optional<int> index) : CControl(form, name, index) {
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setUniformItemSizes(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setFocusPolicy(Qt::StrongFocus);
    setTabKeyNavigation(false);
    const auto look = [this](const QModelIndex&, bool selected) {
        if (selected) return CRowDelegate::SColours{ToQColor(selectedColor_), ToQColor(selectedForeColor_)};
        return CRowDelegate::SColours{palette().color(QPalette::Base), palette().color(QPalette::Text)};
    };
    setItemDelegate(
        std::make_unique<CRowDelegate>(this, look, [] { return 25; }).release());  // the list's, as its child
    LookChanged();
}

void CListBox::AddItem(std::string_view text) {
    if (!sorted_) {
        addItem(FromAnsi(text));
        return;
    }
    int low = 0;
    int high = count();
    while (low < high) {
        const int middle = (low + high) / 2;
        if (MAnsiText::CompareIgnoreCase(List(middle), text) <= 0) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    insertItem(low, FromAnsi(text));
}

void CListBox::AddItem(std::string_view text, int index) {
    if (index < 0 || index > count()) throw CRuntimeError(ErrorNumber::InvalidCall);
    insertItem(index, FromAnsi(text));
}

void CListBox::RemoveItem(int index) {
    if (index < 0 || index >= count()) throw CRuntimeError(ErrorNumber::InvalidCall);
    const bool selected = index == ListIndex();
    const std::unique_ptr<QListWidgetItem> item(takeItem(index));
    if (selected) clearSelection();  // the selection doesn't pass to a neighbour
}

void CListBox::Clear() {
    clear();
}

std::string CListBox::List(int index) const {
    const QListWidgetItem* row = item(index);
    return row != nullptr ? ToAnsi(row->text()) : std::string();
}

int CListBox::ListIndex() const {
    const QModelIndexList rows = selectionModel()->selectedIndexes();
    return rows.isEmpty() ? -1 : rows.first().row();
}

void CListBox::SetListIndex(int index) {
    if (index < -1 || index >= count()) throw CRuntimeError(ErrorNumber::InvalidCall);
    if (index == -1) {
        setCurrentRow(-1, QItemSelectionModel::Clear);
    } else {
        setCurrentRow(index, QItemSelectionModel::ClearAndSelect);
    }
}

QItemSelectionModel::SelectionFlags CListBox::selectionCommand(const QModelIndex& index,
                                                               const QEvent* /*event*/) const {
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

void CListBox::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (ListIndex() >= 0 && !event->isAutoRepeat()) RaiseByUser(enter_);
        event->accept();
        return;
    }
    const int before = ListIndex();
    QListWidget::keyPressEvent(event);
    const int now = ListIndex();
    if (now >= 0 && (now != before || event->key() == Qt::Key_Space)) RaiseByUser(click_);
}

void CListBox::mousePressEvent(QMouseEvent* event) {
    pressed_ = event->button() == Qt::LeftButton && indexAt(event->position().toPoint()).isValid();
    if (event->button() == Qt::LeftButton) QListWidget::mousePressEvent(event);
}

void CListBox::mouseReleaseEvent(QMouseEvent* event) {
    QListWidget::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && std::exchange(pressed_, false) && ListIndex() >= 0) RaiseByUser(click_);
}

void CListBox::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const int row = indexAt(event->position().toPoint()).row();
    if (row < 0 || row != ListIndex()) {  // two clicks on different rows are two clicks
        mousePressEvent(event);
        return;
    }
    pressed_ = false;
    RaiseByUser(doubleClick_);
}

void CListBox::LookChanged() {
    setFont(LookFont());
    setPalette(MPainting::FieldPalette(Back(), Fore(), ToQColor(Form().BackColor())));
    viewport()->update();
}

void CListBox::changeEvent(QEvent* event) {
    QListWidget::changeEvent(event);
    if (event->type() == QEvent::EnabledChange) viewport()->update();
}

void CListBox::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(viewport());
        painter.fillRect(viewport()->rect(), palette().color(QPalette::Base));
    }
    QListWidget::paintEvent(event);
    if (hasFocus()) {
        QPainter painter(viewport());
        MPainting::DrawBorder(painter, viewport()->rect(), Mix(Fore(), Back(), 0.25), 1);
    }
}

QSize CListBox::sizeHint() const {
    return QSize(220, 200);
}

QSize CListBox::minimumSizeHint() const {
    return QSize(120, 3 * 25);
}
