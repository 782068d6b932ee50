#pragma once

#include <QApplication>

/// The toolkit's application object: one look on every desktop, and a last net for errors, so that none crosses the
/// event loop.
class CQtApplication : public QApplication {
    Q_OBJECT
  public:
    /// `argc` must outlive the application.
    CQtApplication(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;

    /// Style, palette and font of boxes and dialogs.
    static void ApplyLook();
};
