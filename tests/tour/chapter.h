#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <utility>

#include "tour/guide.h"

/// The commands in the menu panel of every maker.
namespace MMakerMenu {
inline const QString New = QStringLiteral("cmdMenu(0)");
inline const QString AddToDb = QStringLiteral("cmdMenu(1)");
inline const QString Modify = QStringLiteral("cmdMenu(2)");
inline const QString ViewList = QStringLiteral("cmdMenu(3)");
inline const QString Delete = QStringLiteral("cmdMenu(4)");
inline const QString SaveChanges = QStringLiteral("cmdMenu(5)");
}  // namespace MMakerMenu

/// A part of the tour: lays its steps into the guide's queue. `home` is the folder of the program on tour, `folder`
/// takes the pictures and pages.
class CChapter {
  public:
    CChapter(CGuide& guide, QString home, QString folder)
        : guide_(guide), home_(std::move(home)), folder_(std::move(folder)) {}

  protected:
    /// From the console through a button that bears this tip.
    void Enter(const QString& button, const QString& tip) {
        guide_.At(QStringLiteral("FConsole"), QStringLiteral("wants to ") + tip.toLower(),
                  [this, button, tip](QWidget& console) {
                      guide_.Hover(console, button);
                      guide_.CheckEqual(guide_.TextOf(console, QStringLiteral("lblTip")), tip, QStringLiteral("tip"));
                      guide_.Click(console, button);
                  });
    }
    void Leave(const QString& form) {
        guide_.At(form, QStringLiteral("closes the form"),
                  [this](QWidget& window) { guide_.Click(window, QStringLiteral("cmdExit")); });
    }
    static QString AddQuestion(const QString& key) { return QStringLiteral("Add \"%1\" to the list?").arg(key); }

    /// Path of a file among the player's own.
    QString DataFile(const QString& name) const { return home_ + QStringLiteral("/Data/") + name; }
    static QByteArray Content(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    CGuide& guide_;
    QString home_;
    QString folder_;
};
