#pragma once

#include <QWidget>

#include "controls/control.h"

/// A border around a group of controls, with its caption in a gap of the border. Without a caption the border is
/// closed. Lay the group out with a layout on the frame; the frame's own margins leave room for border and caption.
class QXFrame : public CControl<QWidget> {
    Q_OBJECT
  public:
    QXFrame(CForm* form, const char* name, std::optional<int> index = std::nullopt);
    ~QXFrame() override;

    const std::string& Caption() const { return caption_; }
    std::string NamingCaption() const override { return caption_; }
    void SetCaption(std::string_view caption);
    Colour BorderColor() const { return borderColor_; }
    void SetBorderColor(Colour colour) { Change(borderColor_, colour); }
    /// In pixels; 0 draws no border.
    int BorderWidth() const { return borderWidth_; }
    void SetBorderWidth(int width) { Change(borderWidth_, width); }
    /// A panel groups controls without showing: no border whatever its width, no margins. For menus.
    bool Panel() const { return panel_; }
    void SetPanel(bool on) { Change(panel_, on); }

    QSize minimumSizeHint() const override;

  protected:
    void LookChanged() override;
    void paintEvent(QPaintEvent* event) override;

  private:
    int CaptionHeight() const;
    void ApplyMargins();

    std::string caption_;
    Colour borderColor_ = 0;
    int borderWidth_ = 1;
    bool panel_ = false;
};
