#pragma once

#include <QTreeWidget>

#include "controls/list_control.h"

/// Rows of two texts: a tag, which the user can edit in place, and the row's text. A click on the selected row's tag,
/// F2 or the first key of a number opens the editor.
class QXEditList : public CListControl<QTreeWidget> {
    Q_OBJECT
  public:
    QXEditList(CForm* form, const char* name, std::optional<int> index = std::nullopt);

    void AddItem(std::string_view tag, std::string_view text);
    /// Inserts before the row `index`.
    void AddItem(std::string_view tag, std::string_view text, int index);
    void RemoveItem(int index);
    /// Moves a row, and selects it at its new place.
    void MoveItem(int from, int to);
    void Clear();
    /// Texts of a row; empty for an index outside.
    std::string List(int index) const;
    std::string Tag(int index) const;
    /// Raises no edit.
    void SetTag(int index, std::string_view tag);
    /// The tip over the tags of the rows that are added from now on.
    void SetTagToolTipText(std::string_view text);

    /// In pixels.
    int TagColumnWidth() const { return columnWidth(0); }
    void SetTagColumnWidth(int pixels) { setColumnWidth(0, pixels); }
    bool ShowTags() const { return !isColumnHidden(0); }
    void SetShowTags(bool on) { setColumnHidden(0, !on); }
    /// A locked list lets no tag be edited.
    bool Locked() const { return locked_; }
    void SetLocked(bool locked) { locked_ = locked; }
    /// The editor of a tag is open.
    bool Editing() const { return state() == QAbstractItemView::EditingState; }
    /// Takes what the open editor holds, as when it is left.
    void EndEditing();
    int RowHeight() const { return rowHeight_; }
    void SetRowHeight(int pixels) { Change(rowHeight_, pixels); }

    Colour TagBackColor() const { return tagBackColor_; }
    void SetTagBackColor(Colour colour) { Change(tagBackColor_, colour); }
    Colour TagForeColor() const { return tagForeColor_; }
    void SetTagForeColor(Colour colour) { Change(tagForeColor_, colour); }
    /// The user has edited the tag of the row given; the editor has closed.
    void OnEdit(std::function<void(int)> handler) { edit_ = std::move(handler); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    void keyboardSearch(const QString& search) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    class CTagDelegate;
    class CTagEditor;

    std::function<void(int)> edit_;
    int edited_ = -1;
    int rowHeight_ = 0;
    bool locked_ = false;
    bool tagPressed_ = false;
    QString tagTip_;
    Colour tagBackColor_ = 0xffffff;
    Colour tagForeColor_ = 0;
};
