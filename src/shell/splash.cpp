#include "shell/splash.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
#include <QWindow>

#include "controls/layout.h"
#include "core/files/platform.h"
#include "core/state/global.h"
#include "shell/product.h"

FSplash::FSplash() : CForm("FSplash") {
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    lblCopyright.SetCaption(MProduct::Copyright);
    lblVersion.SetPadding(4);
    lblTip.SetPadding(10);
    lblTip.SetAlignment(Qt::AlignCenter);

    auto* facts = MLayout::Row();
    facts->addWidget(&lblVersion);
    facts->addStretch(1);
    facts->addWidget(&lblCopyright);
    auto* column = MLayout::WithFormMargins(MLayout::Column(this, MLayout::FrameGap));
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->addWidget(&Image1);
    column->addLayout(facts);
    column->addWidget(&lblTip);
}

void FSplash::Form_Load() {
    GuiHandler = std::make_unique<CVDGuiHandler>();
    GuiHandler->SetSkin(*this, MGlobal::SkinId());
    lblVersion.SetForeColor(0xFFFFFF);
    lblCopyright.SetFontSize(10);
    lblTip.SetForeColor(0x21BDF7);
    shpBorder.SetBorderColor(0xB0B0B0);
    SetCaption("About " + MPlatform::Current().Title());
    lblVersion.SetCaption(MProduct::VersionText());
    Image1.SetPicture(CPicture::FromResource(QStringLiteral(":/splash.svg")));
    Image1.setFixedSize(Image1.sizeHint());
    lblTip.setFixedHeight(lblTip.sizeHint().height() + MLayout::Gap);
    qApp->installEventFilter(this);
}

void FSplash::Form_Resize() {
    shpBorder.setGeometry(rect());
    shpBorder.raise();
}

bool FSplash::QueryUnload() {
    qApp->removeEventFilter(this);
    return true;
}

void FSplash::paintEvent(QPaintEvent* event) {
    CForm::paintEvent(event);
    painted_ = true;
}

// All widgets of the program pass here. A message that comes up meanwhile belongs above the splash, whether or not the
// splash is the active window.
bool FSplash::eventFilter(QObject* watched, QEvent* event) {
    if (!watched->isWidgetType()) return false;
    auto* widget = static_cast<QWidget*>(watched);
    if (widget->window() == this) return CForm::eventFilter(watched, event);
    if (event->type() == QEvent::Show && widget->isWindow() && widget->windowHandle() != nullptr && isVisible()) {
        widget->windowHandle()->setTransientParent(windowHandle());
    }
    return false;
}

void FSplash::WaitUntilShown(std::chrono::milliseconds bound) {
    QTimer over;
    over.setSingleShot(true);
    over.start(bound);
    while (!painted_ && over.isActive()) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
    }
}
