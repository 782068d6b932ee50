#include "controls/layout.h"

#include <memory>

namespace {

// Layouts belong to their widget, or to the layout that they are put into.
template <class Layout>
Layout* Make(QWidget* parent, int gap) {
    Layout* layout = std::make_unique<Layout>(parent).release();
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(gap);
    return layout;
}

}  // namespace

QVBoxLayout* MLayout::Column(QWidget* parent, int gap) {
    return Make<QVBoxLayout>(parent, gap);
}

QHBoxLayout* MLayout::Row(QWidget* parent, int gap) {
    return Make<QHBoxLayout>(parent, gap);
}

QGridLayout* MLayout::Grid(QWidget* parent, int gap) {
    return Make<QGridLayout>(parent, gap);
}

QHBoxLayout* MLayout::ButtonWithArrows(QXColorButton& button, QXColorButton& up, QXColorButton& down) {
    constexpr int kArrowWidth = 56;
    QHBoxLayout* row = Row();
    row->addWidget(&button, 1);
    for (QXColorButton* arrow : {&up, &down}) {
        arrow->setFixedWidth(kArrowWidth);
        arrow->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);  // as high as the button beside it
        row->addWidget(arrow);
    }
    return row;
}

void MLayout::TextInFrame(QXFrame& frame, QXLabel& text) {
    text.SetWordWrap(true);
    text.SetAlignment(Qt::AlignLeft | Qt::AlignTop);
    Row(&frame)->addWidget(&text, 1);
}
