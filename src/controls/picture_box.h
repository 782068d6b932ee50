#pragma once

#include <QWidget>

#include "controls/control.h"
#include "controls/picture.h"

/// Shows a picture as large as fits, its proportions kept.
class CPictureBox : public CControl<QWidget> {
    Q_OBJECT
  public:
    CPictureBox(CForm* form, const char* name, std::optional<int> index = std::nullopt);
    bool NamedByLabel() const override { return true; }

    const PicturePtr& Picture() const { return picture_; }
    void SetPicture(PicturePtr picture);
    /// The size that the layout is asked for; otherwise that of the picture.
    void SetPreferredSize(const QSize& size);

    QSize sizeHint() const override;

  protected:
    void LookChanged() override { update(); }
    void paintEvent(QPaintEvent* event) override;

  private:
    PicturePtr picture_;
    QSize preferred_;
};
