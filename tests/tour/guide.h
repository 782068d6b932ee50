#pragma once

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QObject>
#include <QString>
#include <QWidget>
#include <deque>
#include <functional>

/// Leads through the program while its own modal loops run: steps wait in a queue, and each runs as soon as the window
/// that it is for is on top. A step that waits in vain, or that sees what it shouldn't, ends the tour with a message.
class CGuide : public QObject {
    Q_OBJECT
  public:
    using Action = std::function<void(QWidget& window)>;

    explicit CGuide(const QString& pictureFolder);

    /// `window` is the object name of a form, or the class of one of the toolkit's dialogs.
    void At(const QString& window, const QString& step, Action action);
    /// A message box that has to hold this text: a picture of it if that has a name, then the button.
    void AtBox(const QString& step, const QString& text, const QString& button, const QString& picture = {});
    /// A file dialog that has to bear this title: types a name, without folder, and leaves by the button.
    void AtFileDialog(const QString& step, const QString& title, const QString& name, const QString& button,
                      const QString& picture = {});
    void Start() { LookAgain(); }
    bool Finished() const { return steps_.empty(); }

    /// Fails the tour unless `holds`.
    void Check(bool holds, const QString& what);
    template <class T>
    void CheckEqual(const T& seen, const T& expected, const QString& what) {
        Check(seen == expected,
              QStringLiteral("%1: saw \"%2\", expected \"%3\"").arg(what, Text(seen), Text(expected)));
    }

    /// Saves a picture of a window under a running number.
    void Picture(QWidget& window, const QString& name);

    // What a player does. The control must be there, visible and enabled.
    void Click(QWidget& window, const QString& control);
    void DoubleClickRow(QWidget& window, const QString& list, const QString& row);
    void ClickRow(QWidget& window, const QString& list, const QString& row);
    /// Types over the first column of a row.
    void TypeTag(QWidget& window, const QString& list, const QString& row, const QString& tag);
    void Choose(QWidget& window, const QString& choiceList, const QString& entry);
    void Type(QWidget& window, const QString& field, const QString& text);
    void Hover(QWidget& window, const QString& control);
    /// Clicks a button of a box or dialog by its text, mnemonics aside.
    void Answer(QWidget& window, const QString& button);

    QString TextOf(QWidget& window, const QString& control);

  private:
    struct SStep {
        QString window;
        QString name;
        Action action;
    };

    static QString Text(const QString& text) { return text; }
    static QString Text(int number) { return QString::number(number); }

    void LookAgain();
    void RunNextStep();
    void Pause();
    [[noreturn]] void Fail(const QString& what);
    QWidget& Control(QWidget& window, const QString& name);
    QAbstractItemView& Rows(QWidget& window, const QString& list);

    std::deque<SStep> steps_;
    QString pictureFolder_;
    int pictures_ = 0;
    int waited_ = 0;
    bool pausing_ = false;
};
