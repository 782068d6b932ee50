#include "roster/viewers/army_roster.h"

#include <sys/stat.h>

#include <QApplication>
#include <QTextBrowser>
#include <filesystem>
#include <optional>

#include "core/state/global.h"
#include "equipment/eq_list.h"
#include "roster/viewers/unit_viewer.h"
#include "support/core_test.h"
#include "support/form_driver.h"
#include "units/army_list.h"
#include "units/army_roster.h"
#include "units/mult_unit.h"

using namespace MFormDriver;

namespace fs = std::filesystem;

namespace {

class ViewersTest : public CoreTest {
  protected:
    ViewersTest() {
        MGlobal::Reset();
        platform_.ExpectBox(BoxKind::Critical, BoxButtons::Ok, "Cannot find support tables.");
        MGlobal::LoadWorkingFiles();
        MGlobal::SetSkinId(2);
    }
    ~ViewersTest() override {
        form_.Unload();
        platform_.Verify();
        MGlobal::Reset();
    }

    void ShowRoster() {
        form_.ShowArmyRoster(roster_);
        Show(form_);
    }
    static QColor PageColour(CForm& form) {
        const QWidget* page = Find(form, QStringLiteral("webRoster"));
        return form.grab().toImage().pixelColor(page->mapTo(&form, page->rect().bottomRight()) - QPoint(3, 3));
    }

    CArmyRoster roster_;
    FArmyRoster form_;
};

TEST_F(ViewersTest, EachPageHasItsCaptionAndOffersItsFileName) {
    CArmyList list;
    list.SetName("Ren\xE9/e");
    const struct {
        std::function<void(FArmyRoster&)> show;
        std::string caption;
        std::string fileName;
    } cases[] = {
        {[&](FArmyRoster& form) { form.ShowArmyRoster(roster_); }, "", ".html"},
        {[&](FArmyRoster& form) { form.ShowArmyList(list); }, "Ren\xE9/e", "Ren\xC3\xA9/e.html"},
        {[&](FArmyRoster& form) { form.ShowWeaponList({}, ""); }, "Army Weapons", "Weapons of .html"},
        {[&](FArmyRoster& form) { form.ShowAccessoryList({}, "X"); }, "Army Accessories", "Accessories of X.html"},
    };
    for (const auto& c : cases) {
        FArmyRoster form;
        c.show(form);
        Show(form);
        EXPECT_EQ(form.Caption(), c.caption);
        EXPECT_EQ(form.windowTitle().trimmed().isEmpty(), c.caption.empty());
        platform_.ExpectSave("", [&](const CFileDialog& dialog) {
            EXPECT_EQ(dialog.FileName + " in " + dialog.InitDir, c.fileName + " in " + folder_ / "Data");
        });
        Click(form, QStringLiteral("cmdSaveAs"));
        form.Unload();
    }
}

TEST_F(ViewersTest, SavingCopiesThePageOrNothing) {
    ShowRoster();
    const std::string page = folder_ / "tmproster.html";
    const std::string content = ReadBytes(page);
    for (const char* name : {"old.html", "locked.html"})
        Save(name, "mine");
    chmod((folder_ / "locked.html").c_str(), 0400);
    fs::create_directory(folder_ / "folder");
    fs::create_hard_link(page, folder_ / "hard.html");
    const struct {
        std::string path;
        std::optional<BoxAnswer> overwrite;  // the answer, where it is asked
        std::string after;
    } cases[] = {
        {folder_ / "new.html", {}, content},
        {folder_ / "old.html", BoxAnswer::No, "mine"},
        {folder_ / "old.html", BoxAnswer::Yes, content},
        {folder_ / "locked.html", BoxAnswer::Yes, "mine"},
        {folder_ / "folder", BoxAnswer::Yes, ""},
        {folder_ / "gone/page.html", {}, ""},
        // The page isn't copied onto itself, however its path is written.
        {folder_.Path() + "//tmproster.html", BoxAnswer::Yes, content},
        {folder_ / "hard.html", BoxAnswer::Yes, content},
    };
    for (const auto& c : cases) {
        platform_.ExpectSave(c.path);
        if (c.overwrite) {
            platform_.ExpectBox(BoxKind::Question, BoxButtons::YesNo,
                                "File \"" + c.path + "\" already exists.\r\n\r\nOverwrite it?", *c.overwrite);
        }
        Click(form_, QStringLiteral("cmdSaveAs"));
        platform_.Verify();
        EXPECT_EQ(fs::is_directory(c.path) ? "" : ReadBytes(c.path), c.after) << c.path;
    }
    EXPECT_EQ(fs::hard_link_count(page), 2u);

    platform_.ExpectSave(page);
    platform_.ExpectBox(BoxKind::Warning, BoxButtons::Ok, "File name not valid. Please choose a different file name.");
    platform_.ExpectSave(folder_ / "third.html", [&](const CFileDialog&) { fs::remove(page); });
    Click(form_, QStringLiteral("cmdSaveAs"));
    EXPECT_FALSE(fs::exists(folder_ / "third.html"));
    fs::create_directory(page);
    EXPECT_EQ(ErrorOf([this] { form_.ShowArmyRoster(roster_); }), 75) << "making a page is not silent";
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

TEST_F(ViewersTest, TheRosterTakesTheSkinAndPrintsAndTheUnitViewerStaysDark) {
    ShowRoster();
    EXPECT_EQ(PageColour(form_), QColor(0xFF, 0xFF, 0xD3));
    platform_.ExpectPrint(true);
    Click(form_, QStringLiteral("cmdPrint"));
    Hover(form_, QStringLiteral("cmdPrint"));
    EXPECT_EQ(Get<QXColorButton>(form_, QStringLiteral("cmdPrint")).BorderStyle(), 1);

    CGenUnit unit;
    unit.NewUnit(CGenUnit::Single);
    unit.SetName("Ghost");
    unit.SetFullInfo(false);
    FUnitViewer viewer;
    viewer.ShowUnit(unit);
    Show(viewer);
    EXPECT_EQ(PageColour(viewer), QColor(0, 0, 0));
    EXPECT_TRUE(viewer.findChild<QTextBrowser*>()->toPlainText().contains(QStringLiteral("Ghost DATA NOT FOUND")))
        << "resolved against the working list";
    Click(viewer, QStringLiteral("cmdExit"));
    EXPECT_FALSE(viewer.Visible());
}

}  // namespace
