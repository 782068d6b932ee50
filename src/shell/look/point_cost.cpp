#include "shell/look/point_cost.h"

#include "controls/layout.h"

void SetUpPointCost(QXFrame& frame, QXTextEdit& field) {
    frame.SetCaption("Point Cost");
    frame.setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    field.SetRoomFor("-1.23456789012345E-300");  // no cost is longer
    field.SetDataType(2);
    field.SetLocked(true);
    field.SetAlignment(Qt::AlignCenter);
    auto* column = MLayout::Column(&frame);
    column->addStretch(1);
    column->addWidget(&field);
    column->addStretch(1);
}
