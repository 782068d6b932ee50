#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "controls/colour.h"
#include "core/files/runtime_error.h"

class CBusyPointer;
class IControl;
class QAbstractButton;
class QAction;
class QEventLoop;
class QMenu;
class QMenuBar;

/// A window of the program. Its controls are members under their own names; a form is made where it is used and
/// discarded when the caller is done with it.
///
/// Order of a form's life: constructor (controls, captions, layout, handlers), `Form_Load` once before the first show,
/// `Form_Activate` after the first show and after each form that it opened modally has gone, `QueryUnload` and
/// `Form_Unload` when it closes. Events enter through `Handle` alone.
class CForm : public QDialog {
    Q_OBJECT
  public:
    /// `name` is the form's object name, by which tests find it.
    explicit CForm(const char* name);
    ~CForm() override;

    std::string Name() const;
    /// Window title, ANSI.
    std::string Caption() const { return caption_; }
    void SetCaption(std::string_view caption);
    Colour BackColor() const { return backColor_; }
    void SetBackColor(Colour colour);
    /// Of the texts of its menus.
    Colour ForeColor() const { return foreColor_; }
    void SetForeColor(Colour colour);

    /// All controls of the form in the order in which they were made.
    const std::vector<IControl*>& Controls() const { return controls_; }
    /// The control of that name (and index); nothing when there is none.
    IControl* FindControl(std::string_view name) const;
    IControl* FindControl(std::string_view name, int index) const;

    /// Runs `Form_Load` unless the form is loaded. An error in it is the caller's; the form then isn't loaded.
    void Load();
    bool Loaded() const { return loaded_; }

    /// Loads, shows modally above `owner`, and returns when the form is hidden or unloaded.
    void ShowModal(CForm* owner = nullptr);
    /// Loads and shows without blocking.
    void ShowNonModal();
    /// The main window: loads, shows unless it is shown, and runs the program's events until the form has gone.
    void Run();
    /// Takes the form off the screen without closing it; its controls stay readable.
    void Hide();
    bool Visible() const { return isVisible(); }

    /// Runs the closing steps and takes the form off the screen; false when the form refused. An error in the closing
    /// steps is boxed, `ClosingFailed` is told, and the closing goes on.
    bool Unload();

    /// The one place where an event enters a handler. Forgets the last error, runs `handler`, and shows an error that
    /// it lets out as a critical box. Nothing is thrown.
    void Handle(const std::function<void()>& handler);

    /// The button closes the form as its X does, also while the form waits for just that.
    void SetCloseButton(QAbstractButton& button);
    /// For a walk without an end: idles until the form has been closed by its close button, X or Escape; a refusal lets
    /// it wait on. Meanwhile all else on the form is disabled, nothing else gets into its handlers, and the busy
    /// pointer shows, but for the questions of the closing steps.
    void WaitForClosing();

    /// The pointer is over `control`, or over the bare form or outside of it: nothing. Frames and labels are controls
    /// too, and so is what is disabled.
    virtual void MouseMove(IControl* control);

    /// Fields take the caption of their label, else of their frame, as the name by which a screen reader tells them.
    void RefreshNames();

    /// Menu of the form, made on first use; give it to the form's layout with `setMenuBar`.
    QMenuBar& MenuBar();
    /// A menu entry whose handler runs through `Handle`.
    QAction& AddMenuEntry(QMenu& menu, const char* name, std::string_view caption, std::function<void()> handler);

    /// Gives a menu the colours of the form that it belongs to; one of no form is left alone.
    static void ColourMenu(QMenu& menu);

    /// Shows the box of a run-time error that nobody handled.
    static void ReportError(const CRuntimeError& error);

  protected:
    virtual void Form_Load() {}
    virtual void Form_Activate() {}
    virtual void Form_Resize() {}
    /// The closing steps. False refuses the closing.
    virtual bool QueryUnload() { return true; }
    /// The closing steps were broken off by an error: set the modified flag here.
    virtual void ClosingFailed() {}
    virtual void Form_Unload() {}
    /// The window's X or Escape. A dialog with a Cancel button overrides this with what Cancel does.
    virtual void CloseRequest() { Unload(); }

    void closeEvent(QCloseEvent* event) override;
    void reject() override;
    void accept() override {}
    void resizeEvent(QResizeEvent* event) override;
    void setVisible(bool visible) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    friend class IControl;
    void Register(IControl* control);
    void Unregister(IControl* control);
    void Prepare(CForm* owner);
    void RunLoop();
    void Activate();
    void Enter(const std::function<void()>& handler);
    bool InHandler() const { return depth_ > 0 && !inert_; }
    void RouteMove(QWidget* widget, const QPointF& position);
    QPalette MenuPalette(double raised) const;
    void ColourMenuBar();
    std::vector<QWidget*> DisableAllButClosing(QWidget& around);

    std::vector<IControl*> controls_;
    std::string caption_;
    Colour backColor_ = 0xf0f0f0;
    Colour foreColor_ = 0;
    QMenuBar* menuBar_ = nullptr;
    QAbstractButton* closeButton_ = nullptr;
    QEventLoop* loop_ = nullptr;
    std::unique_ptr<CBusyPointer> waiting_;
    int depth_ = 0;
    bool loaded_ = false;
    bool unloading_ = false;
    bool inert_ = false;
    bool placed_ = false;
};

/// Shows the wait pointer for the length of a scope.
class CBusyPointer {
  public:
    CBusyPointer();
    ~CBusyPointer();
    CBusyPointer(const CBusyPointer&) = delete;
    CBusyPointer& operator=(const CBusyPointer&) = delete;
};
