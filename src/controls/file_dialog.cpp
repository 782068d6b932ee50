#include "controls/file_dialog.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>
#include <algorithm>
#include <climits>

#include "controls/ansi_qt.h"
#include "controls/message_box.h"
#include "core/files/file_access.h"

namespace {

// By the path's own bytes, which the toolkit's file classes don't keep where they are no UTF-8.
bool IsFolder(const QString& path) {
    return MFileAccess::KindOf(ToPath(path)) > 0;
}

bool IsFile(const QString& path) {
    return MFileAccess::KindOf(ToPath(path)) < 0;
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

// What a name may end in, the one that is added first; ".html" and "*.jpg" give ".html" and ".jpg". Nothing where none
// is to be added.
QStringList Extensions(const CFileDialog& settings) {
    QString patterns = FromUtf8(settings.DefaultExt);
    if (patterns.isEmpty()) return {};
    const QStringList filter = FromUtf8(settings.Filter).split(u'|');
    for (qsizetype i = 1; i < filter.size(); i += 2)
        patterns += u';' + filter[i];
    QStringList extensions;
    for (QString pattern : patterns.split(u';')) {
        pattern = pattern.trimmed();
        while (pattern.startsWith(u'*') || pattern.startsWith(u'.'))
            pattern.remove(0, 1);
        if (!pattern.isEmpty()) extensions << u'.' + pattern;
    }
    return extensions;
}

bool EndsInOneOf(const QStringList& extensions, const QString& path, Qt::CaseSensitivity sensitivity) {
    return std::any_of(extensions.begin(), extensions.end(),
                       [&](const QString& extension) { return path.endsWith(extension, sensitivity); });
}

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

CFileWindow::CFileWindow(QWidget* owner, const CFileDialog& settings, bool save)
    : QFileDialog(owner),
      save_(save),
      flags_(settings.Flags),
      extensions_(Extensions(settings)),
      nameField_(findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))),
      list_(findChild<QAbstractItemView*>(QStringLiteral("listView"))) {
    const QString title = ForDisplay(FromUtf8(settings.DialogTitle));
    setWindowTitle(!title.isEmpty() ? title : QString::fromLatin1(save ? "Save As" : "Open"));
    setAcceptMode(save ? AcceptSave : AcceptOpen);
    setFileMode(AnyFile);
    setNameFilters(NameFilters(settings.Filter));
    // Room for the columns, which the toolkit would cut off.
    resize(780, 480);
    if (auto* list = findChild<QTreeView*>(QStringLiteral("treeView"))) {
        int column = 0;
        for (const int width : {260, 90, 130, 160})
            list->header()->resizeSection(column++, width);
    }
    // The toolkit takes quotes in the text for the ends of several names, selects the files that it finds under them,
    // and writes these into the field.
    disconnect(nameField_, &QLineEdit::textChanged, this, nullptr);
    connect(nameField_, &QLineEdit::textEdited, list_, &QAbstractItemView::clearSelection);
    connect(nameField_, &QLineEdit::textChanged, this, [this](const QString& name) {
        const auto button = save_ ? QDialogButtonBox::Save : QDialogButtonBox::Open;
        findChild<QDialogButtonBox*>()->button(button)->setEnabled(!name.isEmpty());
    });
    OpenOn(settings);
}

void CFileWindow::OpenOn(const CFileDialog& settings) {
    QString name = FromPath(settings.FileName);
    QString folder = FromPath(settings.InitDir);
    if (name.startsWith(u'/')) {
        folder = QFileInfo(name).path();
        name = QFileInfo(name).fileName();
    }
    setDirectory(ExistingFolder(folder));
    // Into the field as it stands: the dialog would take a name with a separator for a place.
    nameField_->setText(name);
    nameField_->selectAll();
}

QString CFileWindow::InFolder(const QString& name) const {
    const QString folder = directory().absolutePath();
    return folder.endsWith(u'/') ? folder + name : folder + u'/' + name;
}

// Full path of the name in the field. The home folder at the head of a path is the one thing in it that isn't literal.
QString CFileWindow::Typed() const {
    const QString name = nameField_->text();
    if (name.isEmpty() || name.startsWith(u'/')) return name;
    const bool atHome = name.startsWith(QStringLiteral("~/")) && !IsFolder(InFolder(QStringLiteral("~")));
    return atHome ? QDir::homePath() + name.mid(1) : InFolder(name);
}

// A file that is there can be opened under its own name, whatever that ends in, and saved to where it is listed: the
// filter doesn't mind the case.
QString CFileWindow::WithExtension(const QString& path) const {
    if (extensions_.isEmpty() || EndsInOneOf(extensions_, path, Qt::CaseSensitive)) return path;
    const QString extended = path + extensions_.front();
    const bool choosable = !save_ || EndsInOneOf(extensions_, path, Qt::CaseInsensitive);
    return choosable && IsFile(path) && !IsFile(extended) ? path : extended;
}

QString CFileWindow::ObjectionTo(const QString& path) const {
    const QString folder = QFileInfo(path).path();
    const QString name = QFileInfo(path).fileName();
    const bool placeAlone = nameField_->text().endsWith(u'/');
    if (placeAlone || ((flags_ & CFileDialog::PathMustExist) != 0 && !IsFolder(folder)))
        return folder + QStringLiteral("\nDirectory not found.\nPlease verify the correct directory name was given.");
    if ((flags_ & CFileDialog::FileMustExist) != 0 && !IsFile(path))
        return path + QStringLiteral("\nFile not found.\nPlease verify the correct file name was given.");
    if (ToPath(name).size() > NAME_MAX) return name + QStringLiteral("\nThe file name is too long.");
    return {};
}

// A folder that was chosen in the list since a name was typed; the button then says "Open", whatever it says else.
QString CFileWindow::ChosenFolder() const {
    const QModelIndexList rows = list_->selectionModel()->selectedRows();
    const QString path = rows.isEmpty() ? QString() : rows.first().data(QFileSystemModel::FilePathRole).toString();
    return IsFolder(path) ? path : QString();
}

void CFileWindow::accept() {
    if (const QString folder = ChosenFolder(); !folder.isEmpty()) {
        setDirectory(folder);
        return;
    }
    const QString typed = Typed();
    if (typed.isEmpty()) return;
    const QString path = WithExtension(typed);
    for (const QString& place : {typed, path}) {
        if (!IsFolder(place)) continue;
        setDirectory(place);
        nameField_->clear();
        return;
    }
    const QString objection = ObjectionTo(path);
    if (!objection.isEmpty()) {
        ShowBox(objection, QMessageBox::Ok);
        return;
    }
    if (save_ && (flags_ & CFileDialog::OverwritePrompt) != 0 && IsFile(path)) {
        const QString question =
            QFileInfo(path).fileName() + QStringLiteral(" already exists.\nDo you want to replace it?");
        if (ShowBox(question, QMessageBox::Yes | QMessageBox::No) != QMessageBox::Yes) return;
    }
    chosen_ = path;
    QDialog::accept();
}

// The toolkit's words, but its own boxes would take a name for rich text.
QMessageBox::StandardButton CFileWindow::ShowBox(const QString& text, QMessageBox::StandardButtons buttons) {
    CMessageBox box(this, QMessageBox::Warning, true);
    box.setWindowTitle(windowTitle());
    box.setStandardButtons(buttons);
    box.setDefaultButton(QMessageBox::No);
    box.SetText(ForDisplay(text));
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

QString CFileKinds::type(const QFileInfo& file) const {
    if (file.isDir()) return QStringLiteral("Folder");
    const QString extension = file.suffix();
    return extension.isEmpty() ? QStringLiteral("File") : extension + QStringLiteral(" File");
}
