#include "roster/viewers/army_roster.h"

#include <sys/stat.h>

#include <QTextBrowser>
#include <filesystem>
#include <optional>

#include "core/state/global.h"
#include "roster/viewers/unit_viewer.h"
#include "support/core_test.h"
#include "support/form_driver.h"
#include "units/army_roster.h"

using namespace MFormDriver;

namespace fs = std::filesystem;

namespace {

class ViewersTest : public CoreTest {
  protected:
    ViewersTest() {
        MGlobal::Reset();
        platform_.ExpectBox(BoxKind::Critical, BoxButtons::Ok, "Cannot find support tables.");
        MGlobal::LoadWorkingFiles();
    }
    ~ViewersTest() override {
        form_.Unload();
        MGlobal::Reset();
    }

    CArmyRoster roster_;
    FArmyRoster form_;
};

TEST_F(ViewersTest, SavingCopiesThePageOrNothing) {
    roster_.SetName("Ren\xE9/e");
    form_.ShowArmyRoster(roster_);
    Show(form_);
    const std::string page = folder_ / "tmproster.html";
    const std::string content = ReadBytes(page);
    for (const char* name : {"old.html", "locked.html"})
        Save(name, "mine");
    chmod((folder_ / "locked.html").c_str(), 0400);
    fs::create_directory(folder_ / "folder");
    fs::create_hard_link(page, folder_ / "hard.html");
    platform_.ExpectSave("", [&](const CFileDialog& dialog) {
        EXPECT_EQ(dialog.FileName + " in " + dialog.InitDir, "Ren\xC3\xA9/e.html in " + folder_ / "Data");
    });
    Click(form_, QStringLiteral("cmdSaveAs"));
    // With the answer to the question, where it is asked, and what the file holds then.
    const std::tuple<std::string, std::optional<BoxAnswer>, std::string> cases[] = {
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
    for (const auto& [path, overwrite, after] : cases) {
        platform_.ExpectSave(path);
        if (overwrite) {
            platform_.ExpectBox(BoxKind::Question, BoxButtons::YesNo,
                                "File \"" + path + "\" already exists.\r\n\r\nOverwrite it?", *overwrite);
        }
        Click(form_, QStringLiteral("cmdSaveAs"));
        platform_.Verify();
        EXPECT_EQ(fs::is_directory(path) ? "" : ReadBytes(path), after) << path;
    }
    EXPECT_EQ(fs::hard_link_count(page), 2u);

    platform_.ExpectSave(page);
    platform_.ExpectBox(BoxKind::Warning, BoxButtons::Ok, "File name not valid. Please choose a different file name.");
    platform_.ExpectSave(folder_ / "third.html", [&](const CFileDialog&) {
        fs::remove(page);
        fs::create_symlink(folder_ / "old.html", page);
    });
    Click(form_, QStringLiteral("cmdSaveAs"));
    EXPECT_FALSE(fs::exists(folder_ / "third.html"));
}

TEST_F(ViewersTest, TheUnitViewerTakesSummariesFromTheWorkingList) {
    CGenUnit unit;
    unit.NewUnit(CGenUnit::Single);
    unit.SetName("Ghost");
    unit.SetFullInfo(false);
    FUnitViewer viewer;
    viewer.ShowUnit(unit);
    Show(viewer);
    EXPECT_TRUE(viewer.findChild<QTextBrowser*>()->toPlainText().contains(QStringLiteral("Ghost DATA NOT FOUND")));
    Click(viewer, QStringLiteral("cmdExit"));
    EXPECT_FALSE(viewer.Visible());
}

}  // namespace
