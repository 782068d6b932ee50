#include "controls/edit_list.h"

#include <QHeaderView>
#include <QLineEdit>

#include "controls/ansi_qt.h"

namespace {

// Letters look for a row; what can begin a number begins the editing.
bool BeginsNumber(const QString& typed) {
    return !typed.isEmpty() && QStringLiteral("0123456789+-.").contains(typed[0]);
}

}  // namespace

/// A double click whose first click has opened the editor is one on the row.
class QXEditList::CTagEditor : public QLineEdit {
  public:
    CTagEditor(QWidget* parent, QXEditList* list) : QLineEdit(parent), tags_(list) {}

  protected:
    // The first click leaves the text selected, so that a tag that is clicked once too often is still typed over.
    void mousePressEvent(QMouseEvent* event) override {
        if (std::exchange(pressed_, true)) QLineEdit::mousePressEvent(event);
    }
    void mouseDoubleClickEvent(QMouseEvent* event) override {
        if (pressed_ || event->button() != Qt::LeftButton) {
            QLineEdit::mouseDoubleClickEvent(event);
            return;
        }
        tags_->closeEditor(this, QAbstractItemDelegate::RevertModelCache);
        tags_->RaiseDoubleClick();
    }

  private:
    QXEditList* tags_;
    bool pressed_ = false;
};

/// Opens the editor over a tag and says when it has a new text.
class QXEditList::CTagDelegate : public CRowDelegate {
  public:
    CTagDelegate(QXEditList* list, Look look, std::function<int()> rowHeight)
        : CRowDelegate(list, std::move(look), std::move(rowHeight)), tags_(list) {}

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                          const QModelIndex& /*index*/) const override {
        auto editor = std::make_unique<CTagEditor>(parent, tags_);
        editor->setObjectName(QStringLiteral("tag"));
        editor->setAccessibleName(tags_->accessibleName());
        editor->setFrame(false);
        editor->setTextMargins(4, 0, 2, 0);
        editor->setFont(tags_->font());
        editor->setPalette(MPainting::FieldPalette(ToQColor(tags_->tagBackColor_), ToQColor(tags_->tagForeColor_),
                                                   ToQColor(tags_->Form().BackColor())));
        editor->setAutoFillBackground(true);
        return editor.release();  // the view's
    }

    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override {
        QString text = FromAnsi(ToAnsi(static_cast<QLineEdit*>(editor)->text()));
        text.remove(u'\0');
        if (text == index.data().toString()) return;
        model->setData(index, text);
        tags_->edited_ = index.row();
    }

    bool eventFilter(QObject* editor, QEvent* event) override {
        // A box or another window that comes up doesn't end the editing.
        if (event->type() == QEvent::FocusOut) {
            const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
            if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason) return false;
        }
        return CRowDelegate::eventFilter(editor, event);
    }

  private:
    QXEditList* tags_;
};

QXEditList::QXEditList(CForm* form, const char* name, std::optional<int> index) : CListControl(form, name, index) {
    setColumnCount(2);
    setHeaderHidden(true);
    header()->setMinimumSectionSize(10);
    header()->setStretchLastSection(true);
    header()->setSectionResizeMode(0, QHeaderView::Fixed);
    setIndentation(0);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed);
    setColumnWidth(0, 64);
    const auto look = [this](const QModelIndex& at, bool selected) {
        return selected || at.column() != 0 ? RowColours(selected)
                                            : SInk{ToQColor(tagForeColor_), ToQColor(tagBackColor_)};
    };
    const auto height = [this] { return rowHeight_ > 0 ? rowHeight_ : kRowHeight; };
    setItemDelegate(std::make_unique<CTagDelegate>(this, look, height).release());  // the list's, as its child
}

void QXEditList::AddItem(std::string_view tag, std::string_view text) {
    AddItem(tag, text, topLevelItemCount());
}

void QXEditList::AddItem(std::string_view tag, std::string_view text, int index) {
    if (index < 0 || index > topLevelItemCount()) throw CRuntimeError(ErrorNumber::InvalidCall);
    auto row = std::make_unique<QTreeWidgetItem>(QStringList{FromAnsi(tag), FromAnsi(text)});
    row->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsEditable | Qt::ItemNeverHasChildren);
    row->setToolTip(0, tagTip_);
    row->setData(0, Qt::AccessibleDescriptionRole, tagTip_);
    insertTopLevelItem(index, row.release());  // the list's
}

void QXEditList::RemoveItem(int index) {
    if (index < 0 || index >= topLevelItemCount()) throw CRuntimeError(ErrorNumber::InvalidCall);
    const bool selected = index == ListIndex();
    const std::unique_ptr<QTreeWidgetItem> row(takeTopLevelItem(index));
    if (selected) clearSelection();
}

void QXEditList::MoveItem(int from, int to) {
    const std::string tag = Tag(from);
    const std::string text = List(from);
    RemoveItem(from);
    AddItem(tag, text, to);
    SetListIndex(to);
}

void QXEditList::Clear() {
    clear();
}

std::string QXEditList::List(int index) const {
    const QTreeWidgetItem* row = topLevelItem(index);
    return row != nullptr ? ToAnsi(row->text(1)) : std::string();
}

std::string QXEditList::Tag(int index) const {
    const QTreeWidgetItem* row = topLevelItem(index);
    return row != nullptr ? ToAnsi(row->text(0)) : std::string();
}

void QXEditList::SetTag(int index, std::string_view tag) {
    QTreeWidgetItem* row = topLevelItem(index);
    if (row == nullptr) throw CRuntimeError(ErrorNumber::InvalidCall);
    row->setText(0, FromAnsi(tag));
}

void QXEditList::SetTagToolTipText(std::string_view text) {
    tagTip_ = FromAnsi(text);
}

// The editor is that of the selected row, whatever cell is asked for.
bool QXEditList::edit(const QModelIndex& /*index*/, EditTrigger trigger, QEvent* event) {
    const QModelIndex tag = model()->index(ListIndex(), 0);
    if (locked_ || !tag.isValid() || Editing()) return false;
    const bool composed = event != nullptr && event->type() == QEvent::InputMethod;
    if (trigger == QAbstractItemView::AnyKeyPressed) {
        QString typed;
        if (composed) {
            typed = static_cast<QInputMethodEvent*>(event)->commitString();
        } else if (event != nullptr && event->type() == QEvent::KeyPress) {
            typed = static_cast<QKeyEvent*>(event)->text();
        }
        if (!BeginsNumber(typed)) return false;
    } else if (trigger != QAbstractItemView::EditKeyPressed) {
        return false;
    }
    ShowRow(tag.row());
    if (!QTreeWidget::edit(tag, trigger, event)) return false;
    // Of what can begin the editing, the toolkit hands keys alone on to the editor.
    auto* editor = findChild<QLineEdit*>(QStringLiteral("tag"));
    if (composed && editor != nullptr) QCoreApplication::sendEvent(editor, event);
    return true;
}

void QXEditList::mousePressEvent(QMouseEvent* event) {
    const QModelIndex cell = indexAt(event->position().toPoint());
    tagPressed_ = cell.isValid() && cell == model()->index(ListIndex(), 0);
    CListControl::mousePressEvent(event);
}

// A click on the selected row's tag opens its editor at once. The toolkit would first wait for a double click, and keys
// that come meanwhile would go astray.
void QXEditList::mouseReleaseEvent(QMouseEvent* event) {
    const QModelIndex cell = indexAt(event->position().toPoint());
    const bool tagClicked = event->button() == Qt::LeftButton && std::exchange(tagPressed_, false) && cell.isValid() &&
                            cell == model()->index(ListIndex(), 0);
    CListControl::mouseReleaseEvent(event);
    if (tagClicked) edit(currentIndex(), QAbstractItemView::EditKeyPressed, nullptr);
}

// Looks among the texts, wherever the last click was. What begins a number belongs to an editor.
void QXEditList::keyboardSearch(const QString& search) {
    if (BeginsNumber(search)) return;
    const QModelIndex from = currentIndex().isValid() ? currentIndex() : model()->index(ListCount() - 1, 0);
    selectionModel()->setCurrentIndex(from.siblingAtColumn(1), QItemSelectionModel::NoUpdate);
    QTreeWidget::keyboardSearch(search);
}

void QXEditList::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint /*hint*/) {
    QTreeWidget::closeEditor(editor, QAbstractItemDelegate::NoHint);
    const int row = std::exchange(edited_, -1);
    if (row >= 0 && edit_) {
        RaiseByUser([edit = edit_, row] { edit(row); });
    }
}

void QXEditList::EndEditing() {
    if (!Editing()) return;
    if (auto* editor = findChild<QLineEdit*>(QStringLiteral("tag"))) {
        commitData(editor);
        closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
}

QSize QXEditList::sizeHint() const {
    return QSize(240, 200);
}

QSize QXEditList::minimumSizeHint() const {
    return SmallestSize(140);
}
