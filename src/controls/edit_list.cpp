#include "controls/edit_list.h"

#include <QHeaderView>
#include <QLineEdit>

#include "controls/ansi_qt.h"

/// Opens the editor over a tag and says when it has a new text.
class QXEditList::CTagDelegate : public CRowDelegate {
  public:
    CTagDelegate(QXEditList* list, Look look, std::function<int()> rowHeight)
        : CRowDelegate(list, std::move(look), std::move(rowHeight)), tags_(list) {}

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                          const QModelIndex& /*index*/) const override {
        auto editor = std::make_unique<QLineEdit>(parent);
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
    setEditTriggers(QAbstractItemView::SelectedClicked | QAbstractItemView::EditKeyPressed |
                    QAbstractItemView::AnyKeyPressed);
    setColumnWidth(0, 64);
    const auto look = [this](const QModelIndex& at, bool selected) {
        if (!selected && at.column() == 0)
            return CRowDelegate::SColours{ToQColor(tagBackColor_), ToQColor(tagForeColor_)};
        return RowColours(selected);
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

bool QXEditList::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    if (locked_ || !index.isValid()) return false;
    const QModelIndex tag = index.siblingAtColumn(0);
    if (trigger == QAbstractItemView::AnyKeyPressed) {
        // Letters look for a row; what can begin a number begins the editing.
        const QString typed =
            event != nullptr && event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(event)->text() : QString();
        if (typed.isEmpty() || !QStringLiteral("0123456789+-.").contains(typed[0])) return false;
    } else if (trigger == QAbstractItemView::SelectedClicked && index.column() != 0) {
        return false;
    }
    return QTreeWidget::edit(tag, trigger, event);
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
    return QSize(140, 3 * kRowHeight);
}
