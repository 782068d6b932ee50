#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <string_view>

#include "controls/form.h"
#include "controls/label.h"
#include "controls/picture_box.h"
#include "controls/shape.h"
#include "shell/look/gui_handler.h"

/// The window that stands on the screen while the data loads.
class FSplash : public CForm {
  public:
    FSplash();

    /// The progress line.
    const std::string& Prompt() const { return lblTip.Caption(); }
    void SetPrompt(std::string_view prompt) { lblTip.SetCaption(prompt); }

    /// Returns as soon as the splash is really on the screen, at the latest when `bound` is over.
    void WaitUntilShown(std::chrono::milliseconds bound);

  protected:
    void Form_Load() override;
    void Form_Resize() override;
    void Form_Unload() override { GuiHandler.reset(); }
    bool QueryUnload() override;
    void CloseRequest() override {}  // it goes when the data is loaded
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    std::unique_ptr<CVDGuiHandler> GuiHandler;
    bool painted_ = false;

    CPictureBox Image1{this, "Image1"};
    QXLabel lblVersion{this, "lblVersion"};
    QXLabel lblCopyright{this, "lblCopyright"};
    QXLabel lblTip{this, "lblTip"};
    CShape shpBorder{this, "shpBorder"};
};
