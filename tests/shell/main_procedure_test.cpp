#include "shell/main_procedure.h"

#include <QApplication>

#include "controls/label.h"
#include "core/files/hide_utils.h"
#include "core/state/global.h"
#include "equipment/army_tables.h"
#include "support/core_test.h"
#include "support/form_driver.h"
#include "units/army_list.h"
#include "units/army_roster.h"

namespace fs = std::filesystem;

namespace {

std::vector<CForm*> FormsOnScreen() {
    std::vector<CForm*> forms;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        auto* form = dynamic_cast<CForm*>(window);
        if (form != nullptr && form->Visible()) forms.push_back(form);
    }
    return forms;
}

class MainProcedure : public CoreTest {
  protected:
    MainProcedure() {
        MGlobal::Reset();
        platform_.OnProcessEvents = [this] {
            for (CForm* form : FormsOnScreen())
                seen_ += form->Name() + ": " + MFormDriver::Get<QXLabel>(*form, "lblTip").Caption();
        };
    }
    ~MainProcedure() override { MGlobal::Reset(); }

    void Scramble(std::initializer_list<const char*> lines) {
        std::string text;
        for (const char* line : lines)
            text += MHideUtils::EncodeLine(line) + "\r\n";
        WriteBytes(folder_ / "SuppData.vdx", text);
    }
    void MakeSupportFile() {
        Scramble({"\"#VD_VER\",2,2", "0,0,0", "\"#CU\",0", "\"#CW\",0", "\"#CA\",0", "\"#CUW\",0", "\"#CUA\",0",
                  "\"#CWBaP\",0", "\"#CWRan\",0", "\"#CWPen\",0"});
    }
    std::string seen_;  // what stood on the screen while the start let it be painted
};

TEST_F(MainProcedure, StartsWithTheMessagesOfItsStepsInOrder) {
    struct SCase {
        const char* name;
        std::function<void()> arrange;
        std::vector<std::pair<BoxKind, std::string>> boxes;
        bool goesOn = true;
        int dataFolder = 1;  // kind of the path afterwards
    };
    const std::string data = folder_ / "Data";
    const std::pair noTables(BoxKind::Critical, "Cannot find support tables.");
    const SCase cases[] = {
        {"another instance",
         [&] { platform_.Previous = true; },
         {{BoxKind::Warning, "VdTools2 is already running."}},
         false},
        {"first run", [&] { MakeSupportFile(); }, {}},
        {"a support file with other content",
         [&] { Scramble({"\"#VD_VER\",2,2"}); },
         {{BoxKind::Warning, "Error while reading support tables (62: Input past end of file)."},
          {BoxKind::Critical, "Error while reading support tables."}}},
        {"a corrupt support file",
         [&] { WriteBytes(folder_ / "SuppData.vdx", MHideUtils::EncodeLine("one") + "\r\n\x01\x02\r\n"); },
         {{BoxKind::Critical, "Run-time error '5':\r\n\r\nInvalid procedure call or argument"}},
         false},
        {"a file in the place of the folder",
         [&] { MakeSupportFile(), WriteBytes(data, ""); },
         {{BoxKind::Warning, "Attenzione, esiste un file con nome " + data +
                                 ". Questo file deve essere rimosso o rinominato perche' questo programma funzioni "
                                 "correttamente."}},
         true,
         -1},
        {"a folder that can't be made",
         [&] { MakeSupportFile(), fs::create_symlink("nowhere", data); },
         {{BoxKind::Critical, "Run-time error '75':\r\n\r\nPath/File access error"}},
         true,
         0},
        {"a plain copy that can't be written",
         [&] { MakeSupportFile(), fs::create_directory(folder_ / "SuppData.tmp"); },
         {{BoxKind::Critical,
           "Error while reading support tables (check disk space and file permission to the application directory)."}}},
        {"no application folder at all",
         [&] { platform_.Folder = folder_ / "a file/home", WriteBytes(folder_ / "a file", ""); },
         {{BoxKind::Critical, "Run-time error '76':\r\n\r\nPath not found"}, noTables},
         true,
         0},
        {"nothing but the settings",
         [&] {
             WriteBytes(folder_ / "vdtools2.ini", Lines({"[Files]", "EquipmentFile=/gone/a.v2q", "ArmyListFile=" + data,
                                                         "ArmyRosterFile=/gone/a.v2r"}));
         },
         {noTables,
          {BoxKind::Warning, "Error while reading equipment tables."},
          {BoxKind::Warning, "Error while reading army list."},
          {BoxKind::Warning, "Error while reading army roster."}}},
    };
    for (const SCase& one : cases) {
        SCOPED_TRACE(one.name);
        fs::remove_all(folder_.Path());
        fs::create_directory(folder_.Path());
        platform_.Folder = folder_.Path();
        platform_.Previous = false;
        MGlobal::Reset();
        seen_.clear();
        one.arrange();
        const std::string settings = ReadBytes(folder_ / "vdtools2.ini");
        for (const auto& [kind, text] : one.boxes)
            platform_.ExpectBox(kind, BoxButtons::Ok, text);

        const std::unique_ptr<CForm> console = MApp::Main();
        platform_.Verify();
        EXPECT_EQ(console != nullptr, one.goesOn);
        EXPECT_EQ(seen_, platform_.Previous ? "" : "FSplash: LOADING DATA");
        EXPECT_FALSE(fs::is_regular_file(folder_ / "SuppData.tmp")) << "the plain copy stayed behind";
        EXPECT_EQ(ReadBytes(folder_ / "vdtools2.ini"), settings) << "the settings are only read";
        EXPECT_EQ(FormsOnScreen(), console ? std::vector{console.get()} : std::vector<CForm*>());
        if (!console) continue;
        EXPECT_EQ(console->Name(), "FConsole");
        EXPECT_EQ(ErrorOf([] { MGlobal::ArmyTables(), MGlobal::ArmyList(), MGlobal::ArmyRoster(); }), 0);
        EXPECT_EQ(MGlobal::PathKind(MGlobal::DataFolder()), one.dataFolder);
        EXPECT_TRUE(console->Unload());
    }
}

}  // namespace
