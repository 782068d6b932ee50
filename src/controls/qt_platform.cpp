#include "controls/qt_platform.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QApplication>
#include <QCryptographicHash>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QPrintDialog>
#include <QPrinter>
#include <QUrl>
#include <optional>

#include "controls/ansi_qt.h"
#include "controls/file_dialog.h"
#include "controls/message_box.h"
#include "controls/print_job.h"

namespace {

constexpr CAppVersion kVersion{VDTOOLS2_VERSION};
constexpr int kShellDone = 42;
constexpr int kShellNoProgram = 31;

QWidget* Owner() {
    QWidget* modal = QApplication::activeModalWidget();
    return modal != nullptr ? modal : QApplication::activeWindow();
}

QMessageBox::Icon IconOf(BoxKind kind) {
    switch (kind) {
        case BoxKind::Critical:
            return QMessageBox::Critical;
        case BoxKind::Warning:
            return QMessageBox::Warning;
        case BoxKind::Question:
            return QMessageBox::Question;
        case BoxKind::Information:
            return QMessageBox::Information;
        case BoxKind::Plain:
            break;
    }
    return QMessageBox::NoIcon;
}

std::vector<QMessageBox::StandardButton> ButtonsOf(BoxButtons buttons) {
    switch (buttons) {
        case BoxButtons::OkCancel:
            return {QMessageBox::Ok, QMessageBox::Cancel};
        case BoxButtons::YesNo:
            return {QMessageBox::Yes, QMessageBox::No};
        case BoxButtons::YesNoCancel:
            return {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel};
        case BoxButtons::Ok:
            break;
    }
    return {QMessageBox::Ok};
}

}  // namespace

CQtPlatform::CQtPlatform() = default;

CQtPlatform::~CQtPlatform() {
    if (lock_ >= 0) close(lock_);
}

BoxAnswer CQtPlatform::ShowBox(BoxKind kind, BoxButtons buttons, const std::string& text) {
    const bool wasBusy = busy_;
    SetBusyPointer(false);
    const bool cancel = buttons == BoxButtons::OkCancel || buttons == BoxButtons::YesNoCancel;
    CMessageBox box(Owner(), IconOf(kind), cancel);
    box.setWindowTitle(FromUtf8(Title()));
    box.SetText(ForDisplay(FromUtf8(text)));
    if (!cancel) {
        box.setWindowFlags((box.windowFlags() | Qt::CustomizeWindowHint | Qt::WindowTitleHint) &
                           ~(Qt::WindowCloseButtonHint | Qt::WindowSystemMenuHint));
    }
    const std::vector<QMessageBox::StandardButton> offered = ButtonsOf(buttons);
    for (const QMessageBox::StandardButton button : offered)
        box.addButton(button);
    box.setDefaultButton(offered.front());
    if (cancel) box.setEscapeButton(QMessageBox::Cancel);
    const int answer = box.exec();
    SetBusyPointer(wasBusy);
    if (answer == QMessageBox::Yes) return BoxAnswer::Yes;
    if (answer == QMessageBox::No) return BoxAnswer::No;
    return answer == QMessageBox::Ok ? BoxAnswer::Ok : BoxAnswer::Cancel;
}

bool CQtPlatform::ShowOpen(CFileDialog& dialog) {
    return ShowFileDialog(dialog, false);
}

bool CQtPlatform::ShowSave(CFileDialog& dialog) {
    return ShowFileDialog(dialog, true);
}

bool CQtPlatform::ShowFileDialog(CFileDialog& dialog, bool save) {
    const bool wasBusy = busy_;
    SetBusyPointer(false);
    CFileWindow window(Owner(), dialog, save);
    const bool accepted = window.exec() == QDialog::Accepted;
    if (accepted) dialog.FileName = ToPath(window.Chosen());
    SetBusyPointer(wasBusy);
    return accepted;
}

bool CQtPlatform::ShowPrint(IPrintJob& job) {
    auto* printable = dynamic_cast<CPrintJob*>(&job);
    if (printable == nullptr) return false;
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, Owner());
    if (dialog.exec() != QDialog::Accepted) return false;
    printable->Print(printer);
    return true;
}

int CQtPlatform::ShellExecute(const std::string& /*verb*/, const std::string& file, const std::string& /*parameters*/,
                              const std::string& /*folder*/, int /*showMode*/) {
    const bool address = file.find("://") != std::string::npos || file.rfind("mailto:", 0) == 0;
    const QUrl url = address ? QUrl(FromUtf8(file)) : QUrl::fromLocalFile(FromPath(file));
    return url.isValid() && QDesktopServices::openUrl(url) ? kShellDone : kShellNoProgram;
}

std::string CQtPlatform::ApplicationFolder() const {
    return ToPath(QCoreApplication::applicationDirPath());
}

std::string CQtPlatform::ExecutableName() const {
    return ToPath(QFileInfo(QCoreApplication::applicationFilePath()).completeBaseName());
}

std::string CQtPlatform::Title() const {
    return "VdTools2";
}

CAppVersion CQtPlatform::Version() const {
    return kVersion;
}

// The lock is on the application folder itself: it needs no right to write, and it goes with the process however that
// ends. Where folders can't be locked, a file in the temporary folder that is named after it stands in.
bool CQtPlatform::PreviousInstance() {
    if (lock_ >= 0) return false;
    const std::string folder = ApplicationFolder();
    const auto held = [this](int descriptor) -> std::optional<bool> {
        if (descriptor < 0) return std::nullopt;
        if (flock(descriptor, LOCK_EX | LOCK_NB) == 0) {
            lock_ = descriptor;
            return false;
        }
        const bool taken = errno == EWOULDBLOCK;
        close(descriptor);
        return taken ? std::optional<bool>(true) : std::nullopt;
    };
    if (const auto answer = held(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))) return *answer;
    const QByteArray key =
        QCryptographicHash::hash(QByteArray::fromStdString(folder), QCryptographicHash::Sha1).toHex();
    const std::string file =
        ToPath(QDir::tempPath()) + "/vdtools2-" + std::to_string(getuid()) + "-" + key.toStdString() + ".lock";
    return held(open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600)).value_or(false);
}

void CQtPlatform::ProcessEvents() {
    QCoreApplication::processEvents();
}

void CQtPlatform::SetBusyPointer(bool busy) {
    if (busy == busy_) return;
    busy_ = busy;
    if (busy) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QApplication::restoreOverrideCursor();
    }
}
