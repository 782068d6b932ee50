#include "controls/qt_application.h"

#include <QMenu>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOptionSlider>
#include <QToolTip>
#include <algorithm>
#include <memory>

#include "controls/colour.h"
#include "controls/double_click.h"
#include "controls/file_dialog.h"
#include "controls/fonts.h"
#include "controls/form.h"

namespace {

QPixmap BoxIcon(QStyle::StandardPixmap which, int size);
QPixmap MoreIcon();

class CLookStyle : public QProxyStyle {
  public:
    CLookStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override {
        switch (hint) {
            case SH_ComboBox_Popup:  // a list below the control, not a menu over it
            case SH_ComboBox_AllowWheelScrolling:
            case SH_EtchDisabledText:
            case SH_DialogButtonBox_ButtonsHaveIcons:
            case SH_ItemView_ActivateItemOnSingleClick:
            case SH_UnderlineShortcut:
                return 0;
            default:
                return QProxyStyle::styleHint(hint, option, widget, result);
        }
    }

    QIcon standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const override {
        switch (which) {
            case SP_MessageBoxCritical:
            case SP_MessageBoxInformation:
            case SP_MessageBoxQuestion:
            case SP_MessageBoxWarning: {
                QIcon icon;
                for (const int size : {32, 64, 96})
                    icon.addPixmap(BoxIcon(which, size));
                return icon;
            }
            // A menu bar asks for it as it is made; the toolkit would load all of its picture plug-ins for it.
            case SP_ToolBarHorizontalExtensionButton:
                return MoreIcon();
            default:
                return QProxyStyle::standardIcon(which, option, widget);
        }
    }

    // What the toolkit makes on its own, too: context menus, and the file dialogs that its other dialogs open.
    void polish(QWidget* widget) override {
        QProxyStyle::polish(widget);
        if (auto* menu = qobject_cast<QMenu*>(widget)) CForm::ColourMenu(*menu);
        if (auto* dialog = qobject_cast<QFileDialog*>(widget)) dialog->setIconProvider(&fileKinds_);
    }
    using QProxyStyle::polish;

    // The toolkit's lines are darker than the menu, which can't be seen on a dark one.
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        if (element == PE_PanelMenu) {
            painter->fillRect(option->rect, option->palette.window());
        } else if (element == PE_FrameMenu) {
            painter->setPen(MenuLine(option->palette));
            painter->setBrush(Qt::NoBrush);
            painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
        } else {
            QProxyStyle::drawPrimitive(element, option, painter, widget);
        }
    }

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
        if (element != CE_MenuItem || !IsSeparator(option)) {
            QProxyStyle::drawControl(element, option, painter, widget);
            return;
        }
        const QRect& rect = option->rect;
        painter->fillRect(QRect(rect.left() + 8, rect.center().y(), rect.width() - 16, 1), MenuLine(option->palette));
    }

    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& content,
                           const QWidget* widget) const override {
        constexpr int kAroundLine = 7;
        QSize size = QProxyStyle::sizeFromContents(type, option, content, widget);
        if (IsSeparator(option)) size.setHeight(kAroundLine);
        return size;
    }

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
        if (metric == PM_ScrollBarExtent) return 13;
        if (metric == PM_MenuPanelWidth) return 1;
        return metric == PM_ScrollBarSliderMin ? 28 : QProxyStyle::pixelMetric(metric, option, widget);
    }

    // A scroll bar is a flat slider in a groove, without arrows.
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override {
        const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
        if (control != CC_ScrollBar || bar == nullptr)
            return QProxyStyle::subControlRect(control, option, part, widget);
        const bool upright = bar->orientation == Qt::Vertical;
        const int length = upright ? bar->rect.height() : bar->rect.width();
        const qint64 range = qint64{bar->maximum} - bar->minimum;
        const int least = std::min(length, proxy()->pixelMetric(PM_ScrollBarSliderMin, option, widget));
        const int slider =
            range <= 0
                ? length
                : std::clamp(static_cast<int>(length * qint64{bar->pageStep} / (range + bar->pageStep)), least, length);
        const int start =
            sliderPositionFromValue(bar->minimum, bar->maximum, bar->sliderPosition, length - slider, bar->upsideDown);
        const auto along = [&](int from, int to) {
            const QRect rect =
                upright ? QRect(0, from, bar->rect.width(), to - from) : QRect(from, 0, to - from, bar->rect.height());
            return visualRect(bar->direction, bar->rect, rect.translated(bar->rect.topLeft()));
        };
        switch (part) {
            case SC_ScrollBarSlider:
                return along(start, start + slider);
            case SC_ScrollBarSubPage:
                return along(0, start);
            case SC_ScrollBarAddPage:
                return along(start + slider, length);
            case SC_ScrollBarGroove:
                return bar->rect;
            default:
                return QRect();
        }
    }

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override {
        const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
        if (control != CC_ScrollBar || bar == nullptr) {
            QProxyStyle::drawComplexControl(control, option, painter, widget);
            return;
        }
        const QColor groove = bar->palette.color(QPalette::Window);
        const QColor text = bar->palette.color(QPalette::WindowText);
        const bool held = (bar->state & State_Sunken) != 0 && bar->activeSubControls == SC_ScrollBarSlider;
        painter->fillRect(bar->rect, groove);
        if (bar->maximum <= bar->minimum) return;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(Qt::NoPen);
        painter->setBrush(Mix(groove, text, held ? 0.7 : 0.45));
        painter->drawRoundedRect(
            QRectF(subControlRect(CC_ScrollBar, option, SC_ScrollBarSlider, widget)).adjusted(3, 2, -3, -2), 3, 3);
        painter->restore();
    }

  private:
    static bool IsSeparator(const QStyleOption* option) {
        const auto* entry = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
        return entry != nullptr && entry->menuItemType == QStyleOptionMenuItem::Separator;
    }
    static QColor MenuLine(const QPalette& palette) {
        return Mix(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.5);
    }

    CFileKinds fileKinds_;
};

// The icons of the boxes, drawn so that they are sharp at every scale.
QPixmap BoxIcon(QStyle::StandardPixmap which, int size) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size / 32.0, size / 32.0);
    painter.setPen(Qt::NoPen);
    QColor mark = Qt::white;
    if (which == QStyle::SP_MessageBoxWarning) {
        painter.setBrush(QColor(0xf2, 0xb1, 0x1e));
        painter.setPen(QPen(QColor(0xf2, 0xb1, 0x1e), 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolygon(QPolygonF({{16, 4}, {29, 27}, {3, 27}}));
        painter.setPen(Qt::NoPen);
        mark = QColor(0x2a, 0x22, 0x08);
    } else {
        painter.setBrush(which == QStyle::SP_MessageBoxCritical ? QColor(0xc0, 0x2b, 0x2b) : QColor(0x2a, 0x5c, 0xaa));
        painter.drawEllipse(QRectF(1.5, 1.5, 29, 29));
    }
    QPen pen(mark, 3.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    if (which == QStyle::SP_MessageBoxCritical) {
        painter.drawLine(QPointF(11, 11), QPointF(21, 21));
        painter.drawLine(QPointF(21, 11), QPointF(11, 21));
        return pixmap;
    }
    QPointF dot(16, 23.6);
    if (which == QStyle::SP_MessageBoxQuestion) {
        QPainterPath hook(QPointF(11.6, 12.2));
        hook.cubicTo(11.8, 6.4, 20.6, 6.4, 20.6, 12);
        hook.cubicTo(20.6, 15.2, 16, 15, 16, 18.6);
        pen.setWidthF(2.9);
        painter.setPen(pen);
        painter.drawPath(hook);
        dot.setY(24);
    } else if (which == QStyle::SP_MessageBoxWarning) {
        painter.drawLine(QPointF(16, 12), QPointF(16, 18.6));
    } else {
        painter.drawLine(QPointF(16, 15), QPointF(16, 23));
        dot.setY(9);
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(mark);
    painter.drawEllipse(dot, 2.1, 2.1);
    return pixmap;
}

// The mark of a menu bar that is too narrow for its entries.
QPixmap MoreIcon() {
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0x80, 0x80, 0x80), 2));
    for (const double left : {3.5, 8.5})
        painter.drawPolyline(QPolygonF({{left, 4}, {left + 4, 8}, {left, 12}}));
    return pixmap;
}

// Attributes that must stand before the application does.
int& Prepared(int& argc) {
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
    QApplication::setDesktopSettingsAware(false);
    return argc;
}

}  // namespace

CQtApplication::CQtApplication(int& argc, char** argv) : QApplication(Prepared(argc), argv) {
    setQuitOnLastWindowClosed(false);
    installEventFilter(std::make_unique<CDoubleClickGuard>(this).release());  // the application's, as its child
    ApplyLook();
}

void CQtApplication::ApplyLook() {
    setStyle(std::make_unique<CLookStyle>().release());  // the application takes it
    QPalette palette;
    const QColor ink(0x1c, 0x1e, 0x24);
    const QColor paper(0xff, 0xff, 0xff);
    const QColor ground(0xee, 0xee, 0xf0);
    const QColor accent(0x2a, 0x4a, 0x8c);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, ink);
        if (role != QPalette::ToolTipText) palette.setColor(QPalette::Disabled, role, QColor(0x8a, 0x8c, 0x92));
    }
    palette.setColor(QPalette::Window, ground);
    palette.setColor(QPalette::Base, paper);
    palette.setColor(QPalette::AlternateBase, QColor(0xf6, 0xf6, 0xf8));
    palette.setColor(QPalette::Button, QColor(0xe4, 0xe4, 0xe8));
    palette.setColor(QPalette::ToolTipBase, QColor(0xff, 0xff, 0xe6));
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, paper);
    palette.setColor(QPalette::Link, accent);
    palette.setColor(QPalette::PlaceholderText, QColor(0x70, 0x72, 0x78));
    setPalette(palette);
    QToolTip::setPalette(palette);
    setFont(MFonts::Make(MFonts::Plain, 10, false));
}

bool CQtApplication::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        CForm::ReportError(CurrentRuntimeError());
        return true;
    }
}
