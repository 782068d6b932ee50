#include "controls/shape.h"

#include <QPainter>

#include "controls/painting.h"

CShape::CShape(CForm* form, const char* name, std::optional<int> index) : CControl(form, name, index) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void CShape::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    MPainting::DrawBorder(painter, rect(), ToQColor(borderColor_), borderWidth_);
}
