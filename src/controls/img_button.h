#pragma once

#include "controls/color_button.h"

/// A flat button that may bear a picture beside its caption.
class QXImgButton : public QXColorButton {
    Q_OBJECT
  public:
    using QXColorButton::QXColorButton;

    const PicturePtr& Picture() const { return picture_; }
    void SetPicture(PicturePtr picture) { Change(picture_, std::move(picture)); }

  protected:
    PicturePtr Image() const override { return picture_; }

  private:
    PicturePtr picture_;
};
