#include "controls/row_delegate.h"

#include <QPainter>
#include <algorithm>

#include "controls/ansi_qt.h"
#include "controls/painting.h"

CRowDelegate::CRowDelegate(QWidget* list, Look look, std::function<int()> rowHeight)
    : QStyledItemDelegate(list), list_(list), look_(std::move(look)), rowHeight_(std::move(rowHeight)) {}

void CRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const SColours colours = look_(index, (option.state & QStyle::State_Selected) != 0);
    painter->fillRect(option.rect, colours.back);
    QRectF area(option.rect);
    area.adjust(8, 0, -4, 0);
    area.setHeight(std::min(area.height(), QFontMetricsF(list_->font()).height() * 1.9));  // one line, always
    area.moveCenter(QPointF(area.center().x(), QRectF(option.rect).center().y()));
    MPainting::DrawCaption(*painter, area, ForDisplay(index.data().toString()).replace(u'\n', u' '), list_->font(),
                           colours.fore, colours.back, Qt::AlignLeft | Qt::AlignVCenter);
}

QSize CRowDelegate::sizeHint(const QStyleOptionViewItem& /*option*/, const QModelIndex& index) const {
    const QFontMetrics metrics(list_->font());
    const int width = metrics.horizontalAdvance(index.data().toString()) + 16;
    return QSize(width, std::max(rowHeight_(), metrics.height() + 6));
}
