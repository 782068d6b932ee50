#pragma once

#include <QFileDialog>
#include <QFileIconProvider>
#include <QMessageBox>
#include <cstdint>

#include "core/files/platform.h"

class QAbstractItemView;
class QLineEdit;

/// The toolkit's file dialog with this program's rules for names: what is typed is one name, taken as it stands.
class CFileWindow : public QFileDialog {
  public:
    CFileWindow(QWidget* owner, const CFileDialog& settings, bool save);

    /// Full path of what was accepted.
    const QString& Chosen() const { return chosen_; }

  protected:
    void accept() override;

  private:
    void OpenOn(const CFileDialog& settings);
    QString InFolder(const QString& name) const;
    QString ChosenFolder() const;
    QString Typed() const;
    QString WithExtension(const QString& path) const;
    /// Why the path can't be chosen; nothing where it can.
    QString ObjectionTo(const QString& path) const;
    QMessageBox::StandardButton ShowBox(const QString& text, QMessageBox::StandardButtons buttons);

    bool save_;
    std::uint32_t flags_;
    QStringList extensions_;
    QLineEdit* nameField_;
    QAbstractItemView* list_;
    QString chosen_;
};

/// Type and icon of a file by its name alone. The toolkit's own would read the content, and some files that lie about,
/// of the system and of devices, are never done with being read.
class CFileKinds : public QFileIconProvider {
  public:
    using QFileIconProvider::icon;
    QIcon icon(const QFileInfo& file) const override { return icon(file.isDir() ? Folder : File); }
    QString type(const QFileInfo& file) const override;
};
