#include "controls/layout.h"

#include <QEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <algorithm>
#include <memory>

#include "controls/painting.h"

namespace {

// Asks for the height of its text, and takes less. The layouts know no height that depends on the width and yet yields:
// they would rather crush the lists beside it.
class CTextScroll : public QScrollArea {
  public:
    CTextScroll(QXLabel& text, int room) : text_(text), room_(room) {
        setFrameShape(QFrame::NoFrame);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setFocusPolicy(Qt::NoFocus);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
        setWidgetResizable(true);
        setWidget(&text);
        text.setAutoFillBackground(false);
        viewport()->setAutoFillBackground(false);
    }

    QSize sizeHint() const override {
        return QSize(text_.sizeHint().width(), std::max(room_, text_.heightForWidth(width())));
    }
    QSize minimumSizeHint() const override {
        constexpr int kLines = 3;
        constexpr int kWidth = 160;  // a cost is still whole, and few words break
        const int height = kLines * text_.fontMetrics().lineSpacing();
        return QSize(kWidth + verticalScrollBar()->sizeHint().width(), std::min(height, sizeHint().height()));
    }

  protected:
    void resizeEvent(QResizeEvent* event) override {
        QScrollArea::resizeEvent(event);
        if (event->oldSize().width() != event->size().width()) updateGeometry();
    }
    // The text has changed.
    bool event(QEvent* event) override {
        if (event->type() == QEvent::LayoutRequest) {
            const QColor back = ToQColor(text_.BackColor());
            setPalette(MPainting::FieldPalette(back, ToQColor(text_.ForeColor()), back));
            verticalScrollBar()->setValue(0);
            updateGeometry();
        }
        return QScrollArea::event(event);
    }

  private:
    QXLabel& text_;
    int room_;
};

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

void MLayout::TextInFrame(QXFrame& frame, QXLabel& text, int room) {
    text.SetWordWrap(true);
    text.SetAlignment(Qt::AlignLeft | Qt::AlignTop);
    Row(&frame)->addWidget(std::make_unique<CTextScroll>(text, room).release(), 1);
}
