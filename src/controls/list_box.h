#pragma once

#include <QListWidget>
#include <functional>

#include "controls/control.h"

/// A list of texts of which one can be selected.
class CListBox : public CControl<QListWidget> {
    Q_OBJECT
  public:
    CListBox(CForm* form, const char* name, std::optional<int> index = std::nullopt);
    bool NamedByLabel() const override { return true; }

    /// A sorted box shows its entries in alphabetical order without regard to case. Set it while the box is empty.
    bool Sorted() const { return sorted_; }
    void SetSorted(bool sorted) { sorted_ = sorted; }

    void AddItem(std::string_view text);
    /// Inserts before the row `index`; a sorted box takes no index.
    void AddItem(std::string_view text, int index);
    void RemoveItem(int index);
    void Clear();
    int ListCount() const { return count(); }
    /// A row's text; empty for an index outside.
    std::string List(int index) const;
    /// The selected row or -1. Setting it raises no click.
    int ListIndex() const;
    void SetListIndex(int index);
    /// Text of the selected row; empty without one.
    std::string Text() const { return List(ListIndex()); }

    Colour SelectedColor() const { return selectedColor_; }
    void SetSelectedColor(Colour colour) { Change(selectedColor_, colour); }
    Colour SelectedForeColor() const { return selectedForeColor_; }
    void SetSelectedForeColor(Colour colour) { Change(selectedForeColor_, colour); }

    /// The user chose a row, by mouse or keys; choosing the selected row again counts.
    void OnClick(std::function<void()> handler) { click_ = std::move(handler); }
    void OnDblClick(std::function<void()> handler) { doubleClick_ = std::move(handler); }
    /// The Enter key, with a row selected.
    void OnEnter(std::function<void()> handler) { enter_ = std::move(handler); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void LookChanged() override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;

  private:
    std::function<void()> click_;
    std::function<void()> doubleClick_;
    std::function<void()> enter_;
    bool sorted_ = false;
    bool pressed_ = false;
    Colour selectedColor_ = 0x800000;
    Colour selectedForeColor_ = 0xffffff;
};
