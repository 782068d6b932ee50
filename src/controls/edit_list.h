#pragma once

#include <QTreeWidget>
#include <functional>

#include "controls/control.h"

/// Rows of two texts: a tag, which the user can edit in place, and the row's text.
class QXEditList : public CControl<QTreeWidget> {
    Q_OBJECT
  public:
    QXEditList(CForm* form, const char* name, std::optional<int> index = std::nullopt);
    bool NamedByLabel() const override { return true; }

    void AddItem(std::string_view tag, std::string_view text);
    /// Inserts before the row `index`.
    void AddItem(std::string_view tag, std::string_view text, int index);
    void RemoveItem(int index);
    void Clear();
    int ListCount() const { return topLevelItemCount(); }
    /// Texts of a row; empty for an index outside.
    std::string List(int index) const;
    std::string Tag(int index) const;
    /// The selected row or -1. Setting it raises no click.
    int ListIndex() const;
    void SetListIndex(int index);

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
    int RowHeight() const { return rowHeight_; }
    void SetRowHeight(int pixels) { Change(rowHeight_, pixels); }

    Colour TagBackColor() const { return tagBackColor_; }
    void SetTagBackColor(Colour colour) { Change(tagBackColor_, colour); }
    Colour TagForeColor() const { return tagForeColor_; }
    void SetTagForeColor(Colour colour) { Change(tagForeColor_, colour); }
    Colour SelectedColor() const { return selectedColor_; }
    void SetSelectedColor(Colour colour) { Change(selectedColor_, colour); }
    Colour SelectedForeColor() const { return selectedForeColor_; }
    void SetSelectedForeColor(Colour colour) { Change(selectedForeColor_, colour); }

    void OnClick(std::function<void()> handler) { click_ = std::move(handler); }
    void OnDblClick(std::function<void()> handler) { doubleClick_ = std::move(handler); }
    void OnEnter(std::function<void()> handler) { enter_ = std::move(handler); }
    /// The user has edited the tag of the row given; the editor has closed.
    void OnEdit(std::function<void(int)> handler) { edit_ = std::move(handler); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void LookChanged() override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    void changeEvent(QEvent* event) override;

  private:
    class CTagDelegate;

    std::function<void()> click_;
    std::function<void()> doubleClick_;
    std::function<void()> enter_;
    std::function<void(int)> edit_;
    int edited_ = -1;
    int rowHeight_ = 0;
    bool locked_ = false;
    bool pressed_ = false;
    Colour tagBackColor_ = 0xffffff;
    Colour tagForeColor_ = 0;
    Colour selectedColor_ = 0x800000;
    Colour selectedForeColor_ = 0xffffff;
};
