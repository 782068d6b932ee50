#pragma once

#include <QLabel>
#include <vector>

#include "controls/control.h"

/// A text on a form: plain text always. What it has no room for is elided, and then the whole stands in its tip.
class QXLabel : public CControl<QLabel> {
    Q_OBJECT
  public:
    QXLabel(CForm* form, const char* name, std::optional<int> index = std::nullopt);

    const std::string& Caption() const { return caption_; }
    std::string NamingCaption() const override { return caption_; }
    void SetCaption(std::string_view caption);
    bool WordWrap() const { return wordWrap(); }
    void SetWordWrap(bool on);
    Qt::Alignment Alignment() const { return alignment(); }
    void SetAlignment(Qt::Alignment alignment);
    /// Never narrower than the longest of these captions needs, in the font as it is now.
    void SetRoomFor(const std::vector<std::string_view>& captions);
    /// Blank pixels left and right of the text, and half of them above and below; 0 at first.
    void SetPadding(int pixels);

    SInk Ink() const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

  protected:
    void LookChanged() override;
    void paintEvent(QPaintEvent* event) override;

  private:
    QSize TextSize(const QString& text, int width) const;
    QString Shown() const;
    int WrapFlag() const { return wordWrap() ? Qt::TextWordWrap : 0; }
    QString Wrapped(const QString& text, int inner) const;

    std::string caption_;
    int padding_ = 0;
    bool aligned_ = false;
};
