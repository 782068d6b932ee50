#pragma once

#include <QLineEdit>
#include <functional>

#include "controls/control.h"

/// A field of one line. What the user types or pastes loses line breaks and NUL, and characters that the code page
/// lacks become "?" at once; length limit and character filter bind the user alone, never a write by code.
/// What is too long shows its beginning again when the field is left. A locked field has no ground of its own.
class QXTextEdit : public CControl<QLineEdit> {
    Q_OBJECT
  public:
    QXTextEdit(CForm* form, const char* name, std::optional<int> index = std::nullopt);
    bool NamedByLabel() const override { return true; }

    /// ANSI text; in a path field the platform's bytes. A write raises a change only when the text differs; the cursor
    /// stays where it can. An error that the change's handler lets out is the writer's.
    std::string Text() const;
    void SetText(std::string_view text);

    /// The field holds a path: its text is the platform's bytes, not the code page's, shows its end where it is too
    /// long, and stands in the field's tip.
    void SetPathField(bool on) { pathField_ = on; }
    /// Never narrower than this text needs.
    void SetRoomFor(std::string_view text);
    /// 0 any text, 1 digits, 2 digits, point and minus.
    int DataType() const { return dataType_; }
    void SetDataType(int type) { dataType_ = type; }
    /// The only characters that pass; rules alone over the data type. Editing keys always pass. Empty: no filter.
    void SetAllowedKeys(std::string_view characters) { allowedKeys_ = characters; }
    /// Characters at most; 0 means no limit.
    int MaxLength() const { return maxLength_; }
    void SetMaxLength(int characters) { maxLength_ = characters; }
    bool Locked() const { return isReadOnly(); }
    void SetLocked(bool locked);
    Qt::Alignment Alignment() const { return alignment(); }
    void SetAlignment(Qt::Alignment alignment) { setAlignment(alignment); }
    /// The whole text is selected when the field is entered.
    bool AutoSelect() const { return autoSelect_; }
    void SetAutoSelect(bool on) { autoSelect_ = on; }

    /// The text has changed, by the user or by code.
    void OnChange(std::function<void()> handler) { change_ = std::move(handler); }
    /// The user left the field for another control of the form.
    void OnLeave(std::function<void()> handler) { leave_ = std::move(handler); }

    SInk Ink() const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void LookChanged() override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    int WidthFor(const QString& text) const;
    /// Brings that end of the text into sight which tells most.
    void ShowHome() { setCursorPosition(pathField_ ? static_cast<int>(text().size()) : 0); }
    bool Passes(QChar character) const;
    QString Clean(const QString& entered) const;
    void UserEdited();

    std::function<void()> change_;
    std::function<void()> leave_;
    std::string allowedKeys_;
    QString roomFor_;
    QString known_;
    int dataType_ = 0;
    int maxLength_ = 0;
    bool pathField_ = false;
    bool autoSelect_ = false;
    bool enteredByClick_ = false;
    bool swallowsMouse_ = false;
};
