#pragma once

#include <QPlainTextEdit>

#include "controls/control.h"

/// A notice of several lines that can be read, selected and copied, not changed.
class CTextBox : public CControl<QPlainTextEdit> {
    Q_OBJECT
  public:
    CTextBox(CForm* form, const char* name, std::optional<int> index = std::nullopt);
    bool NamedByLabel() const override { return true; }

    const std::string& Text() const { return text_; }
    void SetText(std::string_view text);

    /// What shows the whole text without a scroll bar, in the font as it is now.
    int HeightFor(int width) const;
    SInk Ink() const override;

  protected:
    void LookChanged() override;
    void paintEvent(QPaintEvent* event) override;

  private:
    std::string text_;
};
