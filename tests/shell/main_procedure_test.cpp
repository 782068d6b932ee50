#include "shell/main_procedure.h"

#include "core/files/hide_utils.h"
#include "core/state/global.h"
#include "support/core_test.h"

namespace fs = std::filesystem;

namespace {

using MainProcedure = CoreTest;

TEST_F(MainProcedure, StartsWithTheMessagesOfItsStepsInOrder) {
    struct SCase {
        const char* name;
        std::function<void()> arrange;
        std::vector<std::pair<BoxKind, std::string>> boxes;
        bool goesOn = true;
    };
    const std::string data = folder_ / "Data";
    const std::pair noTables(BoxKind::Critical, "Cannot find support tables.");
    const SCase cases[] = {
        {"another instance",
         [&] { platform_.Previous = true; },
         {{BoxKind::Warning, "VdTools2 is already running."}},
         false},
        {"a corrupt support file",
         [&] { Save("SuppData.vdx", MHideUtils::EncodeLine("one") + "\r\n\x01\x02\r\n"); },
         {{BoxKind::Critical, "Run-time error '5':\r\n\r\nInvalid procedure call or argument"}},
         false},
        {"a folder that can't be made",
         [&] { fs::create_symlink("nowhere", data); },
         {{BoxKind::Critical, "Run-time error '75':\r\n\r\nPath/File access error"}, noTables}},
        {"nothing but the settings",
         [&] {
             Save("vdtools2.ini", Lines({"[Files]", "EquipmentFile=/gone/a.v2q", "ArmyListFile=" + data}));
         },
         {noTables,
          {BoxKind::Warning, "Error while reading equipment tables."},
          {BoxKind::Warning, "Error while reading army list."}}},
    };
    for (const SCase& one : cases) {
        SCOPED_TRACE(one.name);
        fs::remove_all(folder_.Path());
        fs::create_directory(folder_.Path());
        platform_.Previous = false;
        MGlobal::Reset();
        one.arrange();
        const std::string settings = ReadBytes(folder_ / "vdtools2.ini");
        for (const auto& [kind, text] : one.boxes)
            platform_.ExpectBox(kind, BoxButtons::Ok, text);

        const std::unique_ptr<CForm> console = MApp::Main();
        platform_.Verify();
        EXPECT_EQ(console != nullptr, one.goesOn);
        EXPECT_FALSE(fs::exists(folder_ / "SuppData.tmp")) << "the plain copy stayed behind";
        EXPECT_EQ(ReadBytes(folder_ / "vdtools2.ini"), settings) << "the settings are only read";
        EXPECT_TRUE(!console || (console->Visible() && console->Unload()));
    }
    MGlobal::Reset();
}

}  // namespace
