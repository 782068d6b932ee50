#pragma once

#include <QWidget>

#include "controls/control.h"

/// A rectangle of which only the border shows. The mouse passes through it.
class CShape : public CControl<QWidget> {
    Q_OBJECT
  public:
    CShape(CForm* form, const char* name, std::optional<int> index = std::nullopt);

    Colour BorderColor() const { return borderColor_; }
    void SetBorderColor(Colour colour) { Change(borderColor_, colour); }
    int BorderWidth() const { return borderWidth_; }
    void SetBorderWidth(int width) { Change(borderWidth_, width); }

  protected:
    void LookChanged() override { update(); }
    void paintEvent(QPaintEvent* event) override;

  private:
    Colour borderColor_ = 0;
    int borderWidth_ = 1;
};
