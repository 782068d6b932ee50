#include "controls/row_delegate.h"

#include <QPainter>
#include <algorithm>

#include "controls/ansi_qt.h"
#include "controls/painting.h"

CRowDelegate::CRowDelegate(QWidget* list, Look look, std::function<int()> rowHeight)
    : QStyledItemDelegate(list), list_(list), look_(std::move(look)), rowHeight_(std::move(rowHeight)) {}

void CRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const SInk ink = look_(index, (option.state & QStyle::State_Selected) != 0);
    painter->fillRect(option.rect, ink.ground);
    MPainting::DrawCaption(*painter, option.rect.adjusted(8, 0, -4, 0), ForDisplay(index.data().toString()),
                           list_->font(), ink.text, ink.ground, Qt::AlignLeft | Qt::AlignVCenter, 1);
}

QSize CRowDelegate::sizeHint(const QStyleOptionViewItem& /*option*/, const QModelIndex& index) const {
    const QFontMetrics metrics(list_->font());
    const int width = metrics.horizontalAdvance(index.data().toString()) + 16;
    return QSize(width, std::max(rowHeight_(), metrics.height() + 6));
}
