#include "controls/qt_platform.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QApplication>
#include <QCryptographicHash>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QScrollArea>
#include <QStandardPaths>
#include <QTreeView>
#include <QUrl>
#include <optional>

#include "controls/ansi_qt.h"
#include "controls/print_job.h"

namespace {

constexpr CAppVersion kVersion{2, 2, 0};
constexpr int kShellDone = 42;
constexpr int kShellNoProgram = 31;

QWidget* Owner() {
    QWidget* modal = QApplication::activeModalWidget();
    return modal != nullptr ? modal : QApplication::activeWindow();
}

/// A message box of plain text. Only a Cancel button lets Escape and the window's X dismiss it.
class CBox : public QMessageBox {
  public:
    CBox(QWidget* owner, bool dismissible) : QMessageBox(owner), dismissible_(dismissible) {}

    void reject() override {
        if (dismissible_) QMessageBox::reject();
    }

  protected:
    void closeEvent(QCloseEvent* event) override {
        if (dismissible_) {
            QMessageBox::closeEvent(event);
        } else {
            event->ignore();
        }
    }
    void keyPressEvent(QKeyEvent* event) override {
        if (dismissible_ || event->key() != Qt::Key_Escape) QMessageBox::keyPressEvent(event);
    }

  private:
    bool dismissible_;
};

// A text of many lines scrolls, so that the buttons stay on the screen.
void BoundHeight(QMessageBox& box, const QString& text) {
    constexpr int kMostLines = 18;
    constexpr int kMostCharacters = 2500;
    auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    if (label == nullptr || grid == nullptr) return;
    if (text.count(u'\n') < kMostLines && text.size() < kMostCharacters) return;
    auto area = std::make_unique<QScrollArea>(&box);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setMinimumSize(460, 320);
    const std::unique_ptr<QLayoutItem> former(grid->replaceWidget(label, area.get()));
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    area->setWidget(label);
    area.release()->show();  // the box's, as its child
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

// "Image Files (*.jpg;*.gif)|*.jpg;*.gif|" becomes {"Image Files (*.jpg *.gif)"}. What the display text says in
// parentheses is replaced by the patterns, for the toolkit takes them from there.
QStringList NameFilters(const std::string& filter) {
    const QStringList parts = FromUtf8(filter).split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString patterns = parts[i + 1].trimmed();
        if (patterns.isEmpty()) continue;
        patterns.replace(u';', u' ');
        QString label = parts[i];
        const qsizetype open = label.indexOf(u'(');
        if (open >= 0) label.truncate(open);
        filters << label.trimmed() + QStringLiteral(" (") + patterns.simplified() + QStringLiteral(")");
    }
    return filters;
}

// ".html" and "*.jpg" mean "html" and "jpg".
QString DefaultSuffix(const std::string& extension) {
    QString suffix = FromUtf8(extension);
    while (suffix.startsWith(u'*') || suffix.startsWith(u'.'))
        suffix.remove(0, 1);
    return suffix;
}

class CDialog : public QFileDialog {
  public:
    CDialog(QWidget* owner, std::uint32_t flags, bool save)
        : QFileDialog(owner),
          pathMustExist_((flags & CFileDialog::PathMustExist) != 0),
          fileMustExist_((flags & CFileDialog::FileMustExist) != 0),
          asksToOverwrite_(save && (flags & CFileDialog::OverwritePrompt) != 0) {
        setOption(DontUseNativeDialog);
        setOption(DontConfirmOverwrite);
        setAcceptMode(save ? AcceptSave : AcceptOpen);
        setFileMode(AnyFile);
        // Room for the columns, which the toolkit would cut off.
        resize(780, 480);
        if (auto* list = findChild<QTreeView*>(QStringLiteral("treeView"))) {
            int column = 0;
            for (const int width : {260, 90, 130, 160})
                list->header()->resizeSection(column++, width);
        }
    }

    QLineEdit* NameField() { return findChild<QLineEdit*>(QStringLiteral("fileNameEdit")); }

  protected:
    void accept() override {
        const QFileInfo file(selectedFiles().value(0));
        if (pathMustExist_ && !file.dir().exists()) {
            Tell(file.path(), "Directory not found.\nPlease verify the correct directory name was given.");
        } else if (fileMustExist_ && !file.exists()) {
            Tell(file.filePath(), "File not found.\nPlease verify the correct file name was given.");
        } else if (!asksToOverwrite_ || !file.exists() || file.isDir() || MayOverwrite(file)) {
            QFileDialog::accept();
        }
    }

  private:
    // The toolkit's words, but its own boxes would take a name for rich text.
    int ShowBox(const QString& text, QMessageBox::StandardButtons buttons) {
        QMessageBox box(QMessageBox::Warning, windowTitle(), QString(), buttons, this);
        box.setTextFormat(Qt::PlainText);
        box.setText(text);
        box.setDefaultButton(QMessageBox::No);
        return box.exec();
    }
    void Tell(const QString& name, const char* reason) {
        ShowBox(name + u'\n' + QLatin1String(reason), QMessageBox::Ok);
    }
    bool MayOverwrite(const QFileInfo& file) {
        const QString question = file.fileName() + QStringLiteral(" already exists.\nDo you want to replace it?");
        return ShowBox(question, QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
    }

    bool pathMustExist_;
    bool fileMustExist_;
    bool asksToOverwrite_;
};

// The nearest folder that is there, from `path` upwards.
QString ExistingFolder(const QString& path) {
    QDir folder(path.isEmpty() ? QCoreApplication::applicationDirPath() : path);
    while (!folder.exists()) {
        const QString parent = QFileInfo(folder.absolutePath()).path();
        if (parent == folder.absolutePath()) break;
        folder.setPath(parent);
    }
    return folder.absolutePath();
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
    CBox box(Owner(), cancel);
    const QString shown = ForDisplay(FromUtf8(text));
    box.setWindowTitle(FromUtf8(Title()));
    box.setTextFormat(Qt::PlainText);
    box.setText(shown);
    box.setIcon(IconOf(kind));
    if (!cancel) {
        box.setWindowFlags((box.windowFlags() | Qt::CustomizeWindowHint | Qt::WindowTitleHint) &
                           ~(Qt::WindowCloseButtonHint | Qt::WindowSystemMenuHint));
    }
    const std::vector<QMessageBox::StandardButton> offered = ButtonsOf(buttons);
    for (const QMessageBox::StandardButton button : offered)
        box.addButton(button);
    box.setDefaultButton(offered.front());
    if (cancel) box.setEscapeButton(QMessageBox::Cancel);
    BoundHeight(box, shown);
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
    CDialog window(Owner(), dialog.Flags, save);
    const QString title = ForDisplay(FromUtf8(dialog.DialogTitle));
    window.setWindowTitle(!title.isEmpty() ? title : QString::fromLatin1(save ? "Save As" : "Open"));
    window.setNameFilters(NameFilters(dialog.Filter));
    window.setDefaultSuffix(DefaultSuffix(dialog.DefaultExt));

    QString name = ForDisplay(FromPath(dialog.FileName)).replace(u'\n', u' ');
    QString folder = FromPath(dialog.InitDir);
    if (QDir::isAbsolutePath(name)) {
        folder = QFileInfo(name).path();
        name = QFileInfo(name).fileName();
    }
    window.setDirectory(ExistingFolder(folder));
    // Into the field as it stands: the dialog would take a name with a separator for a place.
    if (QLineEdit* field = window.NameField()) {
        field->setText(name);
        field->selectAll();
    }

    const bool accepted = window.exec() == QDialog::Accepted && !window.selectedFiles().isEmpty();
    if (accepted) dialog.FileName = ToPath(QDir::toNativeSeparators(window.selectedFiles().first()));
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
