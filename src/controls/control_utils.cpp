#include "controls/control_utils.h"

#include "controls/color_button.h"
#include "controls/form.h"

namespace MQXBaseGUIControlsUtils {

bool HasIndex(const IControl& control) {
    return control.HasIndex();
}

void ClearControlGroup(const CForm& form, std::string_view group, std::string_view name, int index) {
    for (IControl* control : form.Controls()) {
        auto* button = dynamic_cast<QXColorButton*>(control);
        if (button == nullptr || button->ControlGroup() != group) continue;
        const bool spared = button->Name() == name && (!button->HasIndex() || button->Index() == index);
        if (!spared) button->SetValue(false);
    }
}

}  // namespace MQXBaseGUIControlsUtils
