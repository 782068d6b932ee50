#include "roster/viewers/army_roster.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QApplication>
#include <QTextBrowser>
#include <filesystem>

#include "core/state/global.h"
#include "equipment/eq_list.h"
#include "roster/viewers/unit_viewer.h"
#include "support/core_test.h"
#include "support/form_driver.h"
#include "units/army_list.h"
#include "units/army_roster.h"
#include "units/mult_unit.h"

using namespace MFormDriver;

namespace {

class ViewersTest : public CoreTest {
  protected:
    ViewersTest() {
        MGlobal::Reset();
        platform_.ExpectBox(BoxKind::Critical, BoxButtons::Ok, "Cannot find support tables.");
        MGlobal::LoadWorkingFiles();
        MGlobal::SetSkinId(1);
    }
    ~ViewersTest() override {
        form_.Unload();
        platform_.Verify();
        MGlobal::Reset();
    }

    std::string Page() { return folder_ / "tmproster.html"; }
    void ShowRoster(const std::string& name = "Host") {
        roster_.SetName(name);
        form_.ShowArmyRoster(roster_);
        Show(form_);
    }
    void ExpectQuestion(const std::string& path, BoxAnswer answer) {
        platform_.ExpectBox(BoxKind::Question, BoxButtons::YesNo,
                            "File \"" + path + "\" already exists.\r\n\r\nOverwrite it?", answer);
    }
    static QColor PageColour(CForm& form) {
        const QWidget* page = Find(form, QStringLiteral("webRoster"));
        return form.grab().toImage().pixelColor(page->mapTo(&form, page->rect().bottomRight()) - QPoint(3, 3));
    }

    CArmyRoster roster_;
    CEqList weapons_;
    FArmyRoster form_;
};

TEST_F(ViewersTest, EachPageHasItsCaptionAndOffersItsFileName) {
    CArmyList list;
    list.SetName("Ren\xE9/e");
    roster_.SetName("Host");
    CArmyRoster nameless;
    struct {
        std::function<void(FArmyRoster&)> show;
        std::string caption;
        std::string fileName;
    } const cases[] = {
        {[&](FArmyRoster& form) { form.ShowArmyRoster(roster_); }, "Host", "Host.html"},
        {[&](FArmyRoster& form) { form.ShowArmyRoster(nameless); }, "", ".html"},
        {[&](FArmyRoster& form) { form.ShowArmyList(list); }, "Ren\xE9/e", "Ren\xC3\xA9/e.html"},
        {[&](FArmyRoster& form) { form.ShowWeaponList(weapons_, ""); }, "Army Weapons", "Weapons of .html"},
        {[&](FArmyRoster& form) { form.ShowAccessoryList(weapons_, "X"); }, "Army Accessories",
         "Accessories of X.html"},
    };
    for (const auto& c : cases) {
        FArmyRoster form;
        c.show(form);
        Show(form);
        EXPECT_EQ(form.Caption(), c.caption);
        EXPECT_EQ(form.windowTitle().trimmed().isEmpty(), c.caption.empty());
        platform_.ExpectSave("", [&](const CFileDialog& dialog) {
            EXPECT_EQ(dialog.FileName, c.fileName);
            EXPECT_EQ(dialog.Filter, "VD Army Report (*.html)|*.html|");
            EXPECT_EQ(dialog.DefaultExt, ".html");
            EXPECT_EQ(dialog.InitDir, folder_ / "Data");
            EXPECT_EQ(dialog.Flags, 0u);
        });
        Click(form, QStringLiteral("cmdSaveAs"));
        form.Unload();
    }
}

TEST_F(ViewersTest, SavingCopiesThePage) {
    ShowRoster();
    const std::string page = ReadBytes(Page());
    const std::string target = folder_ / "saved.html";
    platform_.ExpectSave(target);
    Click(form_, QStringLiteral("cmdSaveAs"));
    EXPECT_EQ(ReadBytes(target), page);

    WriteBytes(target, "old");
    platform_.ExpectSave(target);
    ExpectQuestion(target, BoxAnswer::No);
    Click(form_, QStringLiteral("cmdSaveAs"));
    EXPECT_EQ(ReadBytes(target), "old");
    platform_.ExpectSave(target);
    ExpectQuestion(target, BoxAnswer::Yes);
    Click(form_, QStringLiteral("cmdSaveAs"));
    EXPECT_EQ(ReadBytes(target), page);
}

TEST_F(ViewersTest, TheTemporaryPageIsNoTarget) {
    ShowRoster();
    const std::string page = ReadBytes(Page());
    for (int i = 0; i < 2; ++i) {
        platform_.ExpectSave(Page());
        platform_.ExpectBox(BoxKind::Warning, BoxButtons::Ok,
                            "File name not valid. Please choose a different file name.");
    }
    platform_.ExpectSave(folder_ / "third.html", [this](const CFileDialog& dialog) {
        EXPECT_EQ(dialog.FileName, Page()) << "the dialog keeps its last choice";
    });
    Click(form_, QStringLiteral("cmdSaveAs"));
    EXPECT_EQ(ReadBytes(folder_ / "third.html"), page);

    // Another way to write the path gets past the comparison; the page is not copied onto itself.
    ASSERT_EQ(symlink(Page().c_str(), (folder_ / "link.html").c_str()), 0);
    for (const std::string& other : {folder_.Path() + "//tmproster.html", folder_ / "link.html"}) {
        platform_.ExpectSave(other);
        ExpectQuestion(other, BoxAnswer::Yes);
        Click(form_, QStringLiteral("cmdSaveAs"));
        EXPECT_EQ(ReadBytes(Page()), page) << other;
    }
}

TEST_F(ViewersTest, AFailedCopyIsSilent) {
    ShowRoster();
    std::filesystem::create_directory(folder_ / "folder");
    WriteBytes(folder_ / "locked.html", "mine");
    chmod((folder_ / "locked.html").c_str(), 0400);
    for (const char* name : {"folder", "locked.html"}) {
        platform_.ExpectSave(folder_ / name);
        ExpectQuestion(folder_ / name, BoxAnswer::Yes);
        Click(form_, QStringLiteral("cmdSaveAs"));
    }
    EXPECT_EQ(ReadBytes(folder_ / "locked.html"), "mine");
    platform_.ExpectSave(folder_ / "gone/page.html");
    Click(form_, QStringLiteral("cmdSaveAs"));
    std::filesystem::remove(Page());
    platform_.ExpectSave(folder_ / "new.html");
    Click(form_, QStringLiteral("cmdSaveAs"));
    EXPECT_FALSE(std::filesystem::exists(folder_ / "new.html"));
    EXPECT_TRUE(form_.Visible());
}

TEST_F(ViewersTest, ThePageThatCannotBeWrittenIsTheCallersError) {
    std::filesystem::create_directory(Page());
    EXPECT_EQ(ErrorOf([this] { form_.ShowArmyRoster(roster_); }), 75);
}

TEST_F(ViewersTest, ThePageGrowsWithTheWindow) {
    ShowRoster();
    const auto at = [this](const char* name) { return Find(form_, QString::fromLatin1(name))->geometry(); };
    const QRect page = at("rosArmy");
    const QRect exit = at("cmdExit");
    const QRect print = at("cmdPrint");
    const QSize before = form_.size();
    for (const QSize change : {QSize(60, 50), QSize(-120, -90)}) {
        form_.resize(before + change);
        QApplication::processEvents();
        EXPECT_EQ(at("rosArmy"), QRect(page.topLeft(), page.size() + change));
        EXPECT_EQ(at("webRoster"), QRect(QPoint(), page.size() + change));
        EXPECT_EQ(at("cmdExit"), exit.translated(change.width(), change.height()));
        EXPECT_EQ(at("cmdPrint"), print.translated(0, change.height()));
    }
}

TEST_F(ViewersTest, PrintsByThePlatform) {
    ShowRoster();
    bool asked = false;
    platform_.ExpectPrint(true, [&](IPrintJob&) { asked = true; });
    Click(form_, QStringLiteral("cmdPrint"));
    EXPECT_TRUE(asked);
    Click(form_, QStringLiteral("cmdExit"));
    EXPECT_FALSE(form_.Visible());
}

TEST_F(ViewersTest, TheRosterTakesTheSkinAndTheUnitViewerStaysDark) {
    CGenUnit unit;
    unit.NewUnit(CGenUnit::Single);
    unit.SetName("Ghost");
    unit.SetDescr("told");
    unit.SetFullInfo(false);
    for (const std::int32_t skin : {1, 2}) {
        MGlobal::SetSkinId(skin);
        FArmyRoster roster;
        roster.ShowArmyRoster(roster_);
        Show(roster);
        EXPECT_EQ(PageColour(roster), skin == 2 ? QColor(0xFF, 0xFF, 0xD3) : QColor(0, 0, 0));
        roster.Unload();

        FUnitViewer viewer;
        viewer.ShowUnit(unit);
        Show(viewer);
        EXPECT_EQ(PageColour(viewer), QColor(0, 0, 0));
        EXPECT_EQ(viewer.minimumSize(), viewer.maximumSize());
        const QString text = viewer.findChild<QTextBrowser*>()->toPlainText();
        EXPECT_TRUE(text.contains(QStringLiteral("Ghost DATA NOT FOUND"))) << "resolved against the working list";
        EXPECT_FALSE(text.contains(QStringLiteral("told")));
        Click(viewer, QStringLiteral("cmdExit"));
        EXPECT_FALSE(viewer.Visible());
    }
}

TEST_F(ViewersTest, HoverDrawsABorderAroundOneButton) {
    ShowRoster();
    const auto borders = [this] {
        std::string names;
        for (const char* name : {"cmdSaveAs", "cmdPrint", "cmdExit"}) {
            if (Get<QXColorButton>(form_, QString::fromLatin1(name)).BorderStyle() == 1) names += name;
        }
        return names;
    };
    for (const char* name : {"cmdPrint", "cmdExit"}) {
        Hover(form_, QString::fromLatin1(name));
        EXPECT_EQ(borders(), name);
    }
    Hover(form_, QStringLiteral("rosArmy"));
    EXPECT_EQ(borders(), "");
}

TEST_F(ViewersTest, StoredPropertiesOfTheControl) {
    CForm form("FForm");
    CRosterView view(&form, "rosArmy");
    EXPECT_EQ(view.property("Skin"), 0);
    EXPECT_EQ(view.property("Enabled"), true);
    EXPECT_EQ(view.property("BorderStyle"), 0);
    EXPECT_EQ(view.property("ArmyList").value<const CArmyList*>(), nullptr);
    view.setProperty("BorderStyle", 1);
    view.setProperty("Enabled", false);
    EXPECT_NE(view.frameShape(), QFrame::NoFrame);
    EXPECT_FALSE(view.Enabled());
    EXPECT_TRUE(view.isEnabled()) << "only reported";
    EXPECT_FALSE(view.LoadFile(Page(), 0));
    EXPECT_FALSE(view.SaveFile(Page(), 0));
    EXPECT_FALSE(std::filesystem::exists(Page()));
}

}  // namespace
