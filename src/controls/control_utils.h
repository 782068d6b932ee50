#pragma once

#include <string_view>

class CForm;
class IControl;

namespace MQXBaseGUIControlsUtils {

/// True for an element of a control array.
bool HasIndex(const IControl& control);

/// Sets off every button of the form in `group` but the control `name` (`index` counts only for elements of arrays).
/// Names are compared exactly. Raises no click.
void ClearControlGroup(const CForm& form, std::string_view group, std::string_view name, int index = -1);

}  // namespace MQXBaseGUIControlsUtils
