#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <utility>

#include "tour/guide.h"

/// A part of the tour: lays its steps into the guide's queue. `home` is the folder of the program on tour, `folder`
/// takes the pictures and pages.
class CChapter {
  public:
    CChapter(CGuide& guide, QString home, QString folder)
        : guide_(guide), home_(std::move(home)), folder_(std::move(folder)) {}

  protected:
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
