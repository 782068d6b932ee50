#pragma once

#include <QComboBox>
#include <functional>

#include "controls/control.h"

class QLabel;

/// A closed choice list: no typing. The prompt heads the opened list. The wheel changes nothing while it is closed.
class QXChoiceList : public CControl<QComboBox> {
    Q_OBJECT
  public:
    QXChoiceList(CForm* form, const char* name, std::optional<int> index = std::nullopt);
    bool NamedByLabel() const override { return true; }

    void AddItem(std::string_view text);
    void Clear();
    int ListCount() const { return count(); }
    /// An entry's text; empty for an index outside, -1 too.
    std::string List(int index) const;
    /// The chosen entry or -1. A write raises a change only when the text differs.
    int ListIndex() const { return currentIndex(); }
    void SetListIndex(int index);
    /// The text shown. A write selects the exact entry, else the one equal without case; otherwise the text shows all
    /// the same and the index is -1.
    std::string Text() const;
    void SetText(std::string_view text);

    const std::string& PromptText() const { return promptText_; }
    void SetPromptText(std::string_view text) { Change(promptText_, std::string(text)); }
    /// Width of the opened list in twips (1/1440 inch); 0 takes that of the control.
    int ListWidth() const { return listWidth_; }
    void SetListWidth(int twips) { listWidth_ = twips; }
    Colour ListWindowBackColor() const { return listWindowBackColor_; }
    void SetListWindowBackColor(Colour colour) { Change(listWindowBackColor_, colour); }
    Colour ButtonColor() const { return buttonColor_; }
    void SetButtonColor(Colour colour) { Change(buttonColor_, colour); }
    Colour PromptFontColor() const { return promptFontColor_; }
    void SetPromptFontColor(Colour colour) { Change(promptFontColor_, colour); }
    double PromptFontSize() const { return promptFontSize_; }
    void SetPromptFontSize(double size) { Change(promptFontSize_, size); }

    /// The user picked an entry (the same one counts), or code wrote another text.
    void OnChange(std::function<void()> handler) { change_ = std::move(handler); }

    void showPopup() override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void LookChanged() override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void Write(int index, const QString& text);
    void ShowText(const QString& text);

    std::function<void()> change_;
    std::string promptText_;
    QString text_;
    QLabel* prompt_ = nullptr;
    int listWidth_ = 0;
    Colour listWindowBackColor_ = 0xffffff;
    Colour buttonColor_ = 0xc0c0c0;
    Colour promptFontColor_ = 0;
    double promptFontSize_ = 12;
};
