#include "controls/qt_platform.h"
#include "controls/print_job.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QTest>
#include <QTimer>
#include <array>
#include <filesystem>
#include <optional>

#include "support/core_test.h"

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

TEST(QtPlatform, BoxesHaveTheirIconTheirButtonsAndTheirEscape) {
    using enum BoxButtons;
    CQtPlatform platform;
    for (const auto& [kind, buttons, icon, count, answer] :
         {std::tuple(BoxKind::Plain, Ok, QMessageBox::NoIcon, 1, BoxAnswer::Ok),
          {BoxKind::Warning, OkCancel, QMessageBox::Warning, 2, BoxAnswer::Cancel},
          {BoxKind::Question, YesNo, QMessageBox::Question, 2, BoxAnswer::Yes},
          {BoxKind::Critical, YesNoCancel, QMessageBox::Critical, 3, BoxAnswer::Cancel}}) {
        WhileUp<QMessageBox>([icon = icon, count = count, answer = answer](QMessageBox& box) {
            EXPECT_EQ(box.text(), QStringLiteral(u"<b>\u20AC</b>\nline"));
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.icon(), icon);
            EXPECT_EQ(box.buttons().size(), count);
            QTest::keyClick(&box, Qt::Key_Escape);
            EXPECT_EQ(box.isVisible(), answer != BoxAnswer::Cancel);
            if (!box.isVisible()) return;
            box.close();
            EXPECT_TRUE(box.isVisible()) << "dismissed without a Cancel button";
            QTest::keyClick(&box, Qt::Key_Return);
        });
        EXPECT_EQ(platform.ShowBox(kind, buttons, "<b>\xE2\x82\xAC</b>\r\nline"), answer);
    }
}

TEST(QtPlatform, BoxOfALongTextOrWordStaysSmallAndTheBusyPointerStandsBack) {
    CQtPlatform platform;
    platform.SetBusyPointer(true);
    std::string list;
    for (int i = 0; i < 3000; ++i)
        list += "Item\n";
    for (const std::string& text : {list, std::string(254, 'W') + " already exists."}) {
        WhileUp<QMessageBox>([&](QMessageBox& box) {
            EXPECT_LT(std::max(box.width(), box.height()), 600) << text.substr(0, 20);
            EXPECT_EQ(box.text().toStdString(), text);
            EXPECT_EQ(QApplication::overrideCursor(), nullptr);
            box.done(QMessageBox::No);
        });
        EXPECT_EQ(platform.ShowBox(BoxKind::Question, BoxButtons::YesNo, text), BoxAnswer::No);
        EXPECT_NE(QApplication::overrideCursor(), nullptr);
    }
    platform.SetBusyPointer(false);
}

class FileDialog : public CoreTest {
  protected:
    FileDialog() {
        for (const std::string& name :
             {there_, std::string("best.v2l"), std::string("A.JPG"), std::string("plain"), std::string("best")})
            Save(name, "content");
        dialog_.Filter = "Image Files (*.jpg;*.v2l))|*.jpg;*.V2L|";
        dialog_.DefaultExt = "*.v2l";
        dialog_.InitDir = folder_.Path();
    }
    bool Show(bool save, const std::function<void(QFileDialog& window, QLineEdit& name)>& step) {
        WhileUp<QFileDialog>(
            [&](QFileDialog& window) { step(window, *window.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))); });
        return save ? qt_.ShowSave(dialog_) : qt_.ShowOpen(dialog_);
    }
    const std::string there_ = "<b>there.v2l";
    CQtPlatform qt_;
    CFileDialog dialog_;
};

TEST_F(FileDialog, ObjectsInPlainTextOrGivesTheWholePath) {
    constexpr std::uint32_t kPath = CFileDialog::PathMustExist;
    constexpr std::uint32_t kFile = CFileDialog::FileMustExist;
    constexpr std::uint32_t kAsk = CFileDialog::OverwritePrompt;
    struct {
        bool save;
        std::uint32_t flags;
        std::string typed, objection, result;  // the first line of what is objected
    } const cases[] = {
        {true, kPath | kFile | kAsk, "none/x", folder_ / "none", ""},
        {false, kFile, "new", folder_ / "new.v2l", ""},
        {false, kAsk, there_, "", folder_ / there_},
        {false, 0, "my \"best.v2l\" army ", "", folder_ / "my \"best.v2l\" army .v2l"},
        {false, 0, "~Orks\\ 1.5%20", "", folder_ / "~Orks\\ 1.5%20.v2l"},
        {true, 0, "~/../a.jpg", "", QDir::homePath().toStdString() + "/../a.jpg"},
        {true, 0, "b.JPG", "", folder_ / "b.JPG.v2l"},
        {true, 0, "A.JPG", "", folder_ / "A.JPG"},  // it is there, and listed
        {true, 0, "plain", "", folder_ / "plain.v2l"},
        {false, 0, "plain", "", folder_ / "plain"},
        {false, 0, "best", "", folder_ / "best.v2l"},
        {true, 0, "none/", folder_ / "none", ""},
        {true, 0, std::string(252, 'x'), std::string(252, 'x') + ".v2l", ""},
        {true, 0, "", "", ""},
        {true, kFile | kAsk, there_, there_ + " already exists.", ""},  // answered by Return: No is the default
        {true, kAsk, there_, there_ + " already exists.", folder_ / there_},
        {true, kAsk, folder_.Path(), "", ""},  // a folder is entered
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.typed + test.objection);
        dialog_.FileName.clear();
        dialog_.Flags = test.flags;
        std::string told;
        Show(test.save, [&](QFileDialog& window, QLineEdit& name) {
            EXPECT_EQ(window.nameFilters(), QStringList{"Image Files (*.jpg *.V2L)"});
            name.clearFocus();  // where the toolkit would complete the name on its own
            name.setText("a");  // then the field tells of a change to nothing, too
            name.setText(QString::fromStdString(test.typed));
            if (!test.objection.empty()) {
                WhileUp<QMessageBox>([&](QMessageBox& box) {
                    told = box.text().section(u'\n', 0, 0).toStdString();
                    EXPECT_EQ(box.textFormat(), Qt::PlainText);
                    test.result.empty() ? QTest::keyClick(&box, Qt::Key_Return) : box.button(QMessageBox::Yes)->click();
                });
            }
            QMetaObject::invokeMethod(&window, "accept");
        });
        EXPECT_EQ(dialog_.FileName, test.result);
        EXPECT_EQ(told, test.objection);
    }
}

TEST_F(FileDialog, EntersAFolderThatIsChosenInTheListUnlessANameIsTypedAfterwards) {
    std::filesystem::create_directory(folder_ / "sub");
    for (const auto& [typed, result] : {std::pair("", "sub/old.v2l"), {"x", "x.v2l"}}) {
        dialog_.FileName = "old";
        Show(true, [typed = typed](QFileDialog& window, QLineEdit& name) {
            auto& view = *window.findChild<QAbstractItemView*>(QStringLiteral("treeView"));
            const auto first = [&view] { return view.model()->index(0, 0, view.rootIndex()); };
            ASSERT_TRUE(QTest::qWaitFor([&] { return first().data() == QStringLiteral("sub"); }));
            view.setCurrentIndex(first());
            QTest::keyClicks(&name, QString::fromLatin1(typed));
            for (int presses = 0; presses < 2 && window.isVisible(); ++presses)
                QMetaObject::invokeMethod(&window, "accept");
        });
        EXPECT_EQ(dialog_.FileName, folder_ / result) << "typed behind the choice of a folder: " << typed;
    }
}

TEST_F(FileDialog, OpensNoFileToTellItsType) {
    const int watch = inotify_init1(IN_NONBLOCK);
    ASSERT_GE(inotify_add_watch(watch, (folder_ / there_).c_str(), IN_OPEN), 0);
    Show(false, [](QFileDialog& window, QLineEdit& /*name*/) {
        auto& view = *window.findChild<QAbstractItemView*>(QStringLiteral("treeView"));
        const auto type = [&view](int row) {
            return view.model()->index(row, 2, view.rootIndex()).data().toString().toStdString();
        };
        (void)QTest::qWaitFor([&] { return type(2) == "v2l File"; });
        EXPECT_EQ(type(0) + type(1) + type(2), "v2l FileJPG Filev2l File");
    });
    std::array<char, 512> event{};
    EXPECT_LT(read(watch, event.data(), event.size()), 0) << "opened " << there_;
    close(watch);
}

TEST(QtPlatform, PrintsAfterTheDialogWasAcceptedAlone) {
    struct CJob : CPrintJob {
        void Print(QPrinter& /*printer*/) override { ++printed; }
        int printed = 0;
    } job;
    CQtPlatform platform;
    for (const bool accept : {false, true}) {
        WhileUp<QPrintDialog>([accept](QPrintDialog& dialog) { static_cast<QDialog&>(dialog).done(accept); });
        EXPECT_EQ(platform.ShowPrint(job), accept);
        EXPECT_EQ(job.printed, accept ? 1 : 0);
    }
}

TEST(QtPlatform, SecondInstanceOfTheSameFolderIsSeenUntilTheFirstHasGone) {
    CQtPlatform second;
    std::optional<CQtPlatform> first(std::in_place);
    EXPECT_FALSE(first->PreviousInstance() || first->PreviousInstance());
    EXPECT_TRUE(second.PreviousInstance());
    first.reset();
    EXPECT_FALSE(second.PreviousInstance());
}

}  // namespace
