#include "controls/qt_platform.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <fstream>

#include "controls/print_job.h"

namespace {

// Runs `step` on the box or dialog that comes up.
template <class Window, class Step>
void WhileUp(Step step) {
    QTimer::singleShot(0, qApp, [step] {
        auto* window = qobject_cast<Window*>(QApplication::activeModalWidget());
        ASSERT_NE(window, nullptr);
        step(*window);
        if (window->isVisible()) static_cast<QDialog*>(window)->done(0);
    });
}

}  // namespace

TEST(QtPlatform, BoxesHaveTheirIconTheirButtonsAndTheirEscape) {
    struct {
        BoxKind kind;
        BoxButtons buttons;
        QMessageBox::Icon icon;
        int count;
        bool dismissible;
        Qt::Key key;
        BoxAnswer answer;
    } const cases[] = {
        {BoxKind::Plain, BoxButtons::Ok, QMessageBox::NoIcon, 1, false, Qt::Key_Return, BoxAnswer::Ok},
        {BoxKind::Critical, BoxButtons::Ok, QMessageBox::Critical, 1, false, Qt::Key_Return, BoxAnswer::Ok},
        {BoxKind::Warning, BoxButtons::OkCancel, QMessageBox::Warning, 2, true, Qt::Key_Escape, BoxAnswer::Cancel},
        {BoxKind::Question, BoxButtons::OkCancel, QMessageBox::Question, 2, true, Qt::Key_Return, BoxAnswer::Ok},
        {BoxKind::Question, BoxButtons::YesNo, QMessageBox::Question, 2, false, Qt::Key_Return, BoxAnswer::Yes},
        {BoxKind::Information, BoxButtons::YesNoCancel, QMessageBox::Information, 3, true, Qt::Key_Escape,
         BoxAnswer::Cancel},
    };
    CQtPlatform platform;
    for (const auto& test : cases) {
        WhileUp<QMessageBox>([&test](QMessageBox& box) {
            EXPECT_EQ(box.text(), QStringLiteral(u"<b>\u20AC</b>\nline"));
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.windowTitle(), QStringLiteral("VdTools2"));
            EXPECT_EQ(box.icon(), test.icon);
            EXPECT_EQ(box.buttons().size(), test.count);
            if (!test.dismissible) {
                QTest::keyClick(&box, Qt::Key_Escape);
                box.close();
                EXPECT_TRUE(box.isVisible());
            }
            QTest::keyClick(&box, test.key);
        });
        EXPECT_EQ(platform.ShowBox(test.kind, test.buttons, "<b>\xE2\x82\xAC</b>\r\nline"), test.answer);
    }
}

TEST(QtPlatform, LongBoxKeepsItsButtonsOnTheScreen) {
    CQtPlatform platform;
    std::string text = "Not found:";
    for (int i = 0; i < 3000; ++i)
        text += "\r\nItem " + std::to_string(i);
    WhileUp<QMessageBox>([](QMessageBox& box) {
        EXPECT_LT(box.height(), 600);
        box.done(QMessageBox::Ok);
    });
    EXPECT_EQ(platform.ShowBox(BoxKind::Warning, BoxButtons::Ok, text), BoxAnswer::Ok);
}

TEST(QtPlatform, BusyPointerStandsBackForABox) {
    CQtPlatform platform;
    platform.SetBusyPointer(true);
    WhileUp<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        box.done(QMessageBox::Ok);
    });
    platform.ShowBox(BoxKind::Plain, BoxButtons::Ok, "x");
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
    platform.SetBusyPointer(false);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST(QtPlatform, FileDialogTakesItsSettings) {
    const QTemporaryDir folder;
    const std::string root = folder.path().toStdString();
    std::ofstream(root + "/there.v2l");
    struct {
        bool save;
        std::uint32_t flags;
        std::string offered;
        const char* typed;
        bool accepted;
        std::string result;
    } const cases[] = {
        {false, CFileDialog::OverwritePrompt, "", "new", true, root + "/new.v2l"},  // a new name passes
        {false, CFileDialog::FileMustExist, "", "there.v2l", true, root + "/there.v2l"},
        {true, 0, "", "there.v2l", true, root + "/there.v2l"},  // asked about by the form, not by the dialog
        {true, 0, root + "/there.v2l", nullptr, true, root + "/there.v2l"},
        {true, 0, "a/b.html", nullptr, false, "a/b.html"},  // Cancel keeps the name
    };
    CQtPlatform platform;
    for (const auto& test : cases) {
        CFileDialog dialog;
        dialog.Filter = "Image Files (*.jpg;*.v2l))|*.jpg;*.V2L|";
        dialog.DefaultExt = "*.v2l";
        dialog.InitDir = test.offered.empty() || test.offered[0] != '/' ? root : "/";
        dialog.FileName = test.offered;
        dialog.Flags = test.flags;
        WhileUp<QFileDialog>([&](QFileDialog& window) {
            EXPECT_EQ(window.windowTitle(), QString::fromLatin1(test.save ? "Save As" : "Open"));
            EXPECT_EQ(window.nameFilters(), QStringList{QStringLiteral("Image Files (*.jpg *.V2L)")});
            EXPECT_EQ(window.directory().absolutePath(), folder.path());
            auto* field = window.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            ASSERT_NE(field, nullptr);
            EXPECT_EQ(field->text(), test.offered == "a/b.html" ? QStringLiteral("a/b.html")
                                     : test.offered.empty()     ? QString()
                                                                : QStringLiteral("there.v2l"));
            if (test.typed != nullptr) field->setText(QString::fromLatin1(test.typed));
            if (test.accepted) {
                QMetaObject::invokeMethod(&window, "accept");
            } else {
                window.reject();
            }
            EXPECT_FALSE(window.isVisible());
        });
        EXPECT_EQ(test.save ? platform.ShowSave(dialog) : platform.ShowOpen(dialog), test.accepted);
        EXPECT_EQ(dialog.FileName, test.result);
    }
}

TEST(QtPlatform, FileDialogObjectsInPlainText) {
    const QTemporaryDir folder;
    const QString root = folder.path();
    const QString there = QStringLiteral("<b>there.v2l");
    std::ofstream(root.toStdString() + "/<b>there.v2l");
    const auto noFolder = [&](const char* name) {
        return root + QLatin1String(name) +
               QStringLiteral("\nDirectory not found.\nPlease verify the correct directory name was given.");
    };
    const QString noFile =
        root + QStringLiteral("/new.v2l\nFile not found.\nPlease verify the correct file name was given.");
    const QString overwrite = there + QStringLiteral(" already exists.\nDo you want to replace it?");
    constexpr std::uint32_t kPath = CFileDialog::PathMustExist;
    constexpr std::uint32_t kFile = CFileDialog::FileMustExist;
    constexpr std::uint32_t kAsk = CFileDialog::OverwritePrompt;
    struct {
        bool save;
        std::uint32_t flags;
        QString typed;
        QString text;  // of the box; none without one
        Qt::Key key;
        bool accepted;
    } const cases[] = {
        {false, kPath, QStringLiteral("none/x"), noFolder("/none"), Qt::Key_Return, false},
        {true, kPath | kFile | kAsk, QStringLiteral("none/x"), noFolder("/none"), Qt::Key_Return, false},
        {true, kPath, QStringLiteral("new"), QString(), Qt::Key_Return, true},
        {true, 0, QStringLiteral("none/x"), QString(), Qt::Key_Return, true},
        {false, kFile, QStringLiteral("new"), noFile, Qt::Key_Return, false},
        {true, kFile | kAsk, QStringLiteral("new"), noFile, Qt::Key_Return, false},
        {true, kFile | kAsk, there, overwrite, Qt::Key_Return, false},  // No is the default
        {true, kAsk, there, overwrite, Qt::Key_Escape, false},
        {true, kAsk, there, overwrite, Qt::Key_unknown, true},
        {true, kAsk, QStringLiteral("new"), QString(), Qt::Key_Return, true},
        {false, kFile | kAsk, there, QString(), Qt::Key_Return, true},
        {true, kAsk, root, QString(), Qt::Key_Return, false},  // a folder is entered
    };
    CQtPlatform platform;
    for (const auto& test : cases) {
        CFileDialog dialog;
        dialog.DefaultExt = ".v2l";
        dialog.InitDir = root.toStdString();
        dialog.Flags = test.flags;
        QString told;
        WhileUp<QFileDialog>([&](QFileDialog& window) {
            window.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(test.typed);
            if (!test.text.isEmpty()) {
                WhileUp<QMessageBox>([&](QMessageBox& box) {
                    told = box.text();
                    EXPECT_EQ(box.textFormat(), Qt::PlainText);
                    if (test.accepted) {
                        box.button(QMessageBox::Yes)->click();
                    } else {
                        QTest::keyClick(&box, test.key);
                    }
                });
            }
            QMetaObject::invokeMethod(&window, "accept");
            EXPECT_EQ(window.isVisible(), !test.accepted);
        });
        EXPECT_EQ(test.save ? platform.ShowSave(dialog) : platform.ShowOpen(dialog), test.accepted);
        EXPECT_EQ(told, test.text) << test.typed.toStdString();
    }
}

TEST(QtPlatform, PrintsAfterTheDialogWasAcceptedAlone) {
    struct CJob : CPrintJob {
        void Print(QPrinter& /*printer*/) override { ++printed; }
        int printed = 0;
    } job;
    CQtPlatform platform;
    for (const bool accept : {false, true}) {
        WhileUp<QPrintDialog>([accept](QPrintDialog& dialog) {
            if (accept) dialog.printer()->setOutputFileName(QDir::homePath() + QStringLiteral("/page.pdf"));
            static_cast<QDialog&>(dialog).done(accept ? QDialog::Accepted : QDialog::Rejected);
        });
        EXPECT_EQ(platform.ShowPrint(job), accept);
        EXPECT_EQ(job.printed, accept ? 1 : 0);
    }
}

TEST(QtPlatform, SecondInstanceOfTheSameFolderIsSeenUntilTheFirstHasGone) {
    CQtPlatform second;
    {
        CQtPlatform first;
        EXPECT_FALSE(first.PreviousInstance());
        EXPECT_FALSE(first.PreviousInstance());
        EXPECT_TRUE(second.PreviousInstance());
    }
    EXPECT_FALSE(second.PreviousInstance());
}
