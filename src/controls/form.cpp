#include "controls/form.h"

#include <QAbstractButton>
#include <QAction>
#include <QCloseEvent>
#include <QEventLoop>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "controls/accessible.h"
#include "controls/ansi_qt.h"
#include "controls/control.h"
#include "core/files/platform.h"

namespace {

// Forms that run a loop of their own, the innermost last.
std::vector<CForm*>& Running() {
    static std::vector<CForm*> forms;
    return forms;
}

QString MenuText(std::string_view caption) {
    QString text = ForDisplay(FromAnsi(caption));
    return text.replace(u'&', QStringLiteral("&&"));
}

}  // namespace

CForm::CForm(const char* name) {
    MAccessible::Install();
    setObjectName(QString::fromLatin1(name));
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMaximizeButtonHint |
                   Qt::WindowCloseButtonHint);
    setAttribute(Qt::WA_QuitOnClose, false);
    setFocusPolicy(Qt::ClickFocus);
    setMouseTracking(true);
}

CForm::~CForm() {
    std::erase(Running(), this);
}

std::string CForm::Name() const {
    return objectName().toStdString();
}

void CForm::SetCaption(std::string_view caption) {
    caption_ = caption;
    // The marker that the toolkit looks for in a title is doubled, so that it shows as it stands.
    setWindowTitle(ForDisplay(FromAnsi(caption)).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]")));
}

void CForm::SetBackColor(Colour colour) {
    if (colour == backColor_) return;
    backColor_ = colour;
    if (menuBar_ != nullptr) ColourMenuBar();
    update();
}

void CForm::SetForeColor(Colour colour) {
    if (colour == foreColor_) return;
    foreColor_ = colour;
    if (menuBar_ != nullptr) ColourMenuBar();
}

IControl* CForm::FindControl(std::string_view name) const {
    const auto found = std::find_if(controls_.begin(), controls_.end(),
                                    [name](const IControl* control) { return control->Name() == name; });
    return found == controls_.end() ? nullptr : *found;
}

IControl* CForm::FindControl(std::string_view name, int index) const {
    const auto found = std::find_if(controls_.begin(), controls_.end(), [=](const IControl* control) {
        return control->Name() == name && control->HasIndex() && control->Index() == index;
    });
    return found == controls_.end() ? nullptr : *found;
}

void CForm::Load() {
    if (loaded_) return;
    loaded_ = true;
    try {
        Form_Load();
    } catch (...) {
        loaded_ = false;
        throw;
    }
}

void CForm::ShowModal(CForm* owner) {
    if (loop_ != nullptr) return;
    Load();
    CForm* opener = Running().empty() ? owner : Running().back();
    setWindowModality(Qt::ApplicationModal);
    Prepare(owner != nullptr ? owner : opener);
    RunLoop();
    if (opener != nullptr && opener != this && opener->Loaded() && opener->isVisible()) opener->Activate();
}

void CForm::ShowNonModal() {
    Load();
    setWindowModality(Qt::NonModal);
    Prepare(nullptr);
    const bool first = !isVisible();
    show();
    if (first) Activate();
}

void CForm::Run() {
    if (loop_ != nullptr) return;
    Load();
    if (!isVisible()) {
        setWindowModality(Qt::NonModal);
        setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint |
                       Qt::WindowCloseButtonHint);
        Prepare(nullptr);
    }
    RunLoop();
}

void CForm::Hide() {
    hide();
}

// Places the window over its owner, or in the middle of the screen, and within the screen.
void CForm::Prepare(CForm* owner) {
    if (!testAttribute(Qt::WA_Resized)) adjustSize();
    const bool above = owner != nullptr && owner != this && owner->isVisible();
    if (!placed_) {
        const QScreen* place = above ? owner->screen() : screen();
        const QRect room = place->availableGeometry();
        constexpr int kTitleBar = 32;
        resize(size().boundedTo(QSize(room.width(), room.height() - kTitleBar)));
        QRect frame(QPoint(), size());
        frame.moveCenter(above ? owner->geometry().center() : room.center());
        frame.moveLeft(std::clamp(frame.left(), room.left(), std::max(room.left(), room.right() + 1 - frame.width())));
        frame.moveTop(std::clamp(frame.top(), room.top() + std::min(kTitleBar, room.height() - frame.height()),
                                 std::max(room.top() + kTitleBar, room.bottom() + 1 - frame.height())));
        move(frame.topLeft() - QPoint(0, above ? 0 : kTitleBar / 2));
        placed_ = true;
    }
    winId();
    if (above && windowHandle() != nullptr) windowHandle()->setTransientParent(owner->windowHandle());
}

void CForm::RunLoop() {
    QEventLoop loop;
    loop_ = &loop;
    Running().push_back(this);
    const bool first = !isVisible();
    show();
    raise();
    activateWindow();
    if (first) Activate();
    if (isVisible()) loop.exec();
    loop_ = nullptr;
    std::erase(Running(), this);
    if (isVisible()) hide();
}

void CForm::Activate() {
    Handle([this] { Form_Activate(); });
}

bool CForm::Unload() {
    if (!loaded_) return true;
    if (unloading_) return false;
    unloading_ = true;
    const auto guarded = [](const auto& step) {
        try {
            step();
            return true;
        } catch (...) {
            ReportError(CurrentRuntimeError());
            return false;
        }
    };
    const bool inert = std::exchange(inert_, false);  // the closing steps have their events and boxes as ever
    waiting_.reset();
    bool proceed = true;
    if (!guarded([&] { proceed = QueryUnload(); })) {
        proceed = true;
        guarded([&] { ClosingFailed(); });
    }
    if (proceed) {
        guarded([&] { Form_Unload(); });
        loaded_ = false;
        hide();
    }
    inert_ = inert && !proceed;
    unloading_ = false;
    return proceed;
}

void CForm::SetCloseButton(QAbstractButton& button) {
    closeButton_ = &button;
    connect(&button, &QAbstractButton::clicked, this, &QWidget::close);
}

void CForm::WaitForClosing() {
    // While handlers still run, so that what is being typed counts. No disabled field hands the keys on to another.
    setFocus();
    inert_ = true;
    const std::vector<QWidget*> disabled = DisableAllButClosing(*this);
    while (loaded_) {
        if (!waiting_) waiting_ = std::make_unique<CBusyPointer>();
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    inert_ = false;
    for (QWidget* widget : disabled)
        widget->setEnabled(true);
}

// Gives what it has disabled itself; the rest was so, or is by what lies around it.
std::vector<QWidget*> CForm::DisableAllButClosing(QWidget& around) {
    std::vector<QWidget*> disabled;
    for (QWidget* child : around.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (child == closeButton_ || child->isWindow() || !child->isEnabledTo(&around)) continue;
        if (closeButton_ != nullptr && child->isAncestorOf(closeButton_)) {
            const std::vector<QWidget*> inside = DisableAllButClosing(*child);
            disabled.insert(disabled.end(), inside.begin(), inside.end());
        } else {
            child->setEnabled(false);
            disabled.push_back(child);
        }
    }
    return disabled;
}

void CForm::Handle(const std::function<void()>& handler) {
    if (!inert_) Enter(handler);
}

void CForm::Enter(const std::function<void()>& handler) {
    if (!handler) return;
    if (depth_ == 0) MLastError::Forget();
    ++depth_;
    try {
        handler();
    } catch (...) {
        ReportError(CurrentRuntimeError());
    }
    --depth_;
}

void CForm::ReportError(const CRuntimeError& error) {
    MLastError::Remember(error);
    try {
        MPlatform::ShowCritical("Run-time error '" + std::to_string(error.Number()) + "':\r\n\r\n" + error.what());
    } catch (...) {
        qCritical("%s (%s)", error.what(), CurrentRuntimeError().what());
    }
}

void CForm::MouseMove(IControl* /*control*/) {}

void CForm::RefreshNames() {
    for (IControl* control : controls_) {
        if (!control->NamedByLabel()) continue;
        const IControl* naming = control->Label();
        if (naming == nullptr && control->Name().size() > 3) {
            const std::string label = "lbl" + control->Name().substr(3);
            naming = control->HasIndex() ? FindControl(label, control->Index()) : FindControl(label);
        }
        QString name;
        if (naming != nullptr) name = FromAnsi(naming->NamingCaption());
        for (QWidget* widget = control->Widget().parentWidget(); name.isEmpty() && widget != nullptr;
             widget = widget->parentWidget()) {
            const auto* around = dynamic_cast<const IControl*>(widget);
            if (around != nullptr) name = FromAnsi(around->NamingCaption());
        }
        name = ForDisplay(name).trimmed();
        if (name.endsWith(u':')) name.chop(1);
        if (control->Widget().accessibleName() != name) control->Widget().setAccessibleName(name);
    }
}

QMenuBar& CForm::MenuBar() {
    if (menuBar_ == nullptr) {
        menuBar_ = std::make_unique<QMenuBar>(this).release();  // the form's, as its child
        menuBar_->setNativeMenuBar(false);
        menuBar_->setFocusPolicy(Qt::NoFocus);
        ColourMenuBar();
    }
    return *menuBar_;
}

// `raised` is how far an opened menu stands out from the form under it.
QPalette CForm::MenuPalette(double raised) const {
    QPalette palette = QPalette();
    const QColor back = ToQColor(backColor_);
    const QColor fore = ReadableOn(back, ToQColor(foreColor_), 7);
    const QColor ground = Mix(back, Contrast(back, Qt::black) > 7 ? Qt::black : Qt::white, raised);
    palette.setColor(QPalette::Highlight, fore);
    palette.setColor(QPalette::HighlightedText, ground);
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button})
        palette.setColor(role, ground);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, fore);
        palette.setColor(QPalette::Disabled, role, Mix(fore, ground, 0.6));
    }
    return palette;
}

void CForm::ColourMenuBar() {
    menuBar_->setPalette(MenuPalette(0));
    // The bar hands its own palette down, so this comes after.
    for (QMenu* menu : menuBar_->findChildren<QMenu*>())
        ColourMenu(*menu);
}

void CForm::ColourMenu(QMenu& menu) {
    constexpr double kRaised = 0.15;
    QWidget* owner = menu.parentWidget();
    while (owner != nullptr && qobject_cast<QMenu*>(owner->window()) != nullptr)
        owner = owner->window()->parentWidget();
    const auto* form = owner != nullptr ? qobject_cast<const CForm*>(owner->window()) : nullptr;
    if (form != nullptr) menu.setPalette(form->MenuPalette(kRaised));
}

QAction& CForm::AddMenuEntry(QMenu& menu, const char* name, std::string_view caption, std::function<void()> handler) {
    QAction* entry = menu.addAction(MenuText(caption));
    entry->setObjectName(QString::fromLatin1(name));
    connect(entry, &QAction::triggered, this, [this, handler = std::move(handler)] { Handle(handler); });
    return *entry;
}

// While a handler of the form runs, it is busy with another window; only the desktop's end of the session asks then. It
// would work on after the closing steps, and what it does would be lost.
void CForm::closeEvent(QCloseEvent* event) {
    if (InHandler()) {
        event->ignore();
        return;
    }
    if (loaded_) Enter([this] { CloseRequest(); });
    event->setAccepted(!isVisible() || !loaded_);
}

void CForm::reject() {
    if (loaded_ && !InHandler()) Enter([this] { CloseRequest(); });
}

void CForm::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    if (loaded_) Handle([this] { Form_Resize(); });
}

void CForm::setVisible(bool visible) {
    if (visible) {
        RefreshNames();
        for (QWidget* widget : findChildren<QWidget*>()) {
            if (widget->window() != this) continue;
            widget->setMouseTracking(true);
            widget->installEventFilter(this);
        }
    }
    QDialog::setVisible(visible);
    if (!visible && loop_ != nullptr) loop_->quit();
}

bool CForm::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseMove && watched->isWidgetType()) {
        const auto* move = static_cast<QMouseEvent*>(event);
        if (move->buttons() == Qt::NoButton) RouteMove(static_cast<QWidget*>(watched), move->position());
    }
    return QDialog::eventFilter(watched, event);
}

bool CForm::event(QEvent* event) {
    if (event->type() == QEvent::MouseMove) {
        const auto* move = static_cast<QMouseEvent*>(event);
        if (move->buttons() == Qt::NoButton) RouteMove(this, move->position());
    }
    if (event->type() == QEvent::Leave && loaded_) Handle([this] { MouseMove(nullptr); });
    return QDialog::event(event);
}

void CForm::RouteMove(QWidget* widget, const QPointF& position) {
    if (!loaded_) return;
    QWidget* over = childAt(widget->mapTo(this, position.toPoint()));
    IControl* control = nullptr;
    for (; over != nullptr && over != this && control == nullptr; over = over->parentWidget())
        control = dynamic_cast<IControl*>(over);
    Handle([this, control] { MouseMove(control); });
}

void CForm::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), ToQColor(backColor_));
}

void CForm::Register(IControl* control) {
    controls_.push_back(control);
}

void CForm::Unregister(IControl* control) {
    std::erase(controls_, control);
}

namespace {
int busyScopes = 0;
}

CBusyPointer::CBusyPointer() {
    if (busyScopes++ == 0) MPlatform::Current().SetBusyPointer(true);
}

CBusyPointer::~CBusyPointer() {
    if (--busyScopes == 0) MPlatform::Current().SetBusyPointer(false);
}
