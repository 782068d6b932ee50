#pragma once

#include <QMessageBox>

/// A message box of plain text. Only a Cancel button lets Escape and the window's X dismiss it.
class CMessageBox : public QMessageBox {
  public:
    CMessageBox(QWidget* owner, Icon icon, bool dismissible);

    /// What `text()` gives, too. A long text scrolls, so that the buttons stay on the screen, and what has no blanks to
    /// break at breaks where the line ends.
    void SetText(const QString& text);
    void reject() override;

  protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    bool dismissible_;
};
