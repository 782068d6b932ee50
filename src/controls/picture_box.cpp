#include "controls/picture_box.h"

#include <QPainter>

CPictureBox::CPictureBox(CForm* form, const char* name, std::optional<int> index) : CControl(form, name, index) {}

void CPictureBox::SetPicture(PicturePtr picture) {
    if (picture == picture_) return;
    picture_ = std::move(picture);
    updateGeometry();
    update();
}

void CPictureBox::SetPreferredSize(const QSize& size) {
    preferred_ = size;
    updateGeometry();
}

QSize CPictureBox::sizeHint() const {
    if (preferred_.isValid()) return preferred_;
    return picture_ ? picture_->Size() : QSize(0, 0);
}

void CPictureBox::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    if (picture_) picture_->Paint(painter, QRectF(rect()));
}
