#pragma once

#include <array>

#include "controls/form.h"
#include "controls/picture.h"

/// A form that is never shown: it stores the pictures of the skins. Each is read when it is first asked for.
class FGUIItems : public CForm {
    Q_OBJECT
  public:
    FGUIItems();

    /// Panel pictures, 0 to 5.
    PicturePtr imgGUI(int index);
    /// Unit pictures in the order of the unit types, 0 to 3.
    PicturePtr lstUnit(int index);

  private:
    std::array<PicturePtr, 6> gui_;
    std::array<PicturePtr, 4> units_;
};
