#pragma once

#include <QStyledItemDelegate>
#include <functional>

#include "controls/colour.h"

/// Paints the rows of the lists.
class CRowDelegate : public QStyledItemDelegate {
  public:
    using Look = std::function<SInk(const QModelIndex& index, bool selected)>;

    /// `rowHeight` gives the least height of a row.
    CRowDelegate(QWidget* list, Look look, std::function<int()> rowHeight);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

  private:
    QWidget* list_;
    Look look_;
    std::function<int()> rowHeight_;
};
