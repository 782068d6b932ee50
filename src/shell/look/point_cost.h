#pragma once

#include "controls/frame.h"
#include "controls/text_edit.h"

/// Caption, look and layout of the frame in which a form shows what something costs; the field has room for every
/// double. It takes no keys, until the form unlocks it.
void SetUpPointCost(QXFrame& frame, QXTextEdit& field);
