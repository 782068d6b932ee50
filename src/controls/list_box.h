#pragma once

#include <QListWidget>

#include "controls/list_control.h"

/// A list of texts of which one can be selected.
class CListBox : public CListControl<QListWidget> {
    Q_OBJECT
  public:
    CListBox(CForm* form, const char* name, std::optional<int> index = std::nullopt);

    /// A sorted box shows its entries in alphabetical order without regard to case. Set it while the box is empty.
    bool Sorted() const { return sorted_; }
    void SetSorted(bool sorted) { sorted_ = sorted; }

    void AddItem(std::string_view text);
    /// Inserts before the row `index`; a sorted box takes no index.
    void AddItem(std::string_view text, int index);
    void RemoveItem(int index);
    /// Moves a row of a box that isn't sorted, and selects it at its new place.
    void MoveItem(int from, int to);
    void Clear();
    /// A row's text; empty for an index outside.
    std::string List(int index) const;
    /// Text of the selected row; empty without one.
    std::string Text() const { return List(ListIndex()); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  private:
    bool sorted_ = false;
};
