#include "controls/list_box.h"

#include "controls/ansi_qt.h"
#include "core/files/ansi_text.h"

CListBox::CListBox(CForm* form, const char* name, std::optional<int> index) : CListControl(form, name, index) {
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setUniformItemSizes(true);
    const auto look = [this](const QModelIndex&, bool selected) { return RowColours(selected); };
    const auto height = [] { return kRowHeight; };
    setItemDelegate(std::make_unique<CRowDelegate>(this, look, height).release());  // the list's, as its child
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

void CListBox::MoveItem(int from, int to) {
    const std::string text = List(from);
    RemoveItem(from);
    AddItem(text, to);
    SetListIndex(to);
}

void CListBox::Clear() {
    clear();
}

std::string CListBox::List(int index) const {
    const QListWidgetItem* row = item(index);
    return row != nullptr ? ToAnsi(row->text()) : std::string();
}

QSize CListBox::sizeHint() const {
    return QSize(220, 200);
}

QSize CListBox::minimumSizeHint() const {
    return SmallestSize(120);
}
