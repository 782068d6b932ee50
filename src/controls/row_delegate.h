#pragma once

#include <QStyledItemDelegate>
#include <functional>

/// Paints the rows of the lists.
class CRowDelegate : public QStyledItemDelegate {
  public:
    struct SColours {
        QColor back;
        QColor fore;
    };
    using Look = std::function<SColours(const QModelIndex& index, bool selected)>;

    /// `rowHeight` gives the least height of a row.
    CRowDelegate(QWidget* list, Look look, std::function<int()> rowHeight);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

  private:
    QWidget* list_;
    Look look_;
    std::function<int()> rowHeight_;
};
