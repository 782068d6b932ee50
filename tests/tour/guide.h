#pragma once

#include <QDeadlineTimer>
#include <QDebug>
#include <QObject>
#include <QString>
#include <QWidget>
#include <deque>
#include <functional>

/// Plays the tour's script. The chapters write it down beforehand, act by act; it is played while the program's own
/// modal loops run, each act as soon as the window that it is for is on top and the loop of whatever the act before
/// closed has come back. An act that waits in vain, or that sees what it shouldn't, ends the tour with a message.
class CGuide : public QObject {
    Q_OBJECT
  public:
    using Act = std::function<void(QWidget& window)>;

    explicit CGuide(QString pictureFolder) : pictureFolder_(std::move(pictureFolder)) {}

    /// What the player does in the acts that follow: shown as they begin, and beside a failure.
    void Tell(const QString& tale) { tale_ = tale; }
    /// `window` is the object name of a form, or the class of one of the toolkit's dialogs; without one whatever is on
    /// top will do.
    void Add(const QString& window, const QString& name, Act act);
    void Start();
    bool Finished() const { return acts_.empty(); }

    // For the acts, as they are played.
    void Check(bool holds, const QString& what);
    template <class T>
    void CheckEqual(const QString& what, const T& seen, const T& expected) {
        QString message;
        QDebug(&message).noquote().nospace() << what << " shows " << seen << ", expected " << expected;
        Check(seen == expected, message);
    }
    /// Lets the window work for a while, or until something holds, without going on in the script.
    void Pause(const std::function<bool()>& until = {});
    /// Saves a picture of a window under a running number.
    void Picture(QWidget& window, const QString& name);

  private:
    struct SAct {
        QString tale;
        QString window;
        QString name;
        Act play;
    };

    void LookAgain();
    void PlayNext();

    std::deque<SAct> acts_;
    QString pictureFolder_;
    QString tale_;  // heads the acts now written down
    QString told_;  // heads the act now played
    QString last_;  // the last thing that the player did
    QDeadlineTimer patience_;
    int pictures_ = 0;
    bool pausing_ = false;
    bool newRound_ = true;  // of events, since the last act: before it a loop that the act has ended may still run
};
