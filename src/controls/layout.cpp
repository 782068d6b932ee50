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
