#pragma once

#include <sys/stat.h>

#include <array>

#include "core/files/hide_utils.h"
#include "core/state/app.h"
#include "core/state/global.h"
#include "equipment/army_tables.h"
#include "shell/setup.h"
#include "support/core_test.h"
#include "support/form_driver.h"
#include "support/sample_documents.h"
#include "units/army_list.h"
#include "units/army_roster.h"

/// One of the three groups, as a player knows it.
struct SWorkingFile {
    std::string stem, shortStem;  // of the names of its controls
    std::string update, merge;
    MGlobal::Document index;
    CDocument& (*document)();
    const std::string& (*path)();
    char letter;  // the last one of its extensions
    std::string label, importLabel;
    std::string kind;  // in the question about a new file
    std::string readFailure, saveFailure, importReadFailure, importSaveFailure;
    std::string sample, sampleV1, sampleEntry;

    std::string field = "ted" + stem;
    std::string select = "cmd" + stem + "Select";
    std::string save = "cmd" + stem + "Save";
    std::string saveAs = "cmd" + stem + "SaveAs";
    std::string import = "cmdImport" + shortStem;
    std::string extension = std::string(".v2") + letter;
    std::string importExtension = std::string(".vd") + letter;
    std::array<std::string, 6> buttons = {select, save, saveAs, import, update, merge};
};

inline const std::string kReadingTables = "Error while reading equipment tables.";
inline const std::string kReadingList = "Error while reading army list.";
inline const std::string kSavingList = "Error while saving army list.";
inline const std::string kSavingRoster = "Error while saving army roster.";

inline const std::array<SWorkingFile, 3> kWorkingFiles = {
    SWorkingFile{"EqFile", "EqFile", "cmdRecalculateEquipmentList", "cmdEqFileMerge", MGlobal::EquipmentDocument,
                 []() -> CDocument& { return MGlobal::ArmyTables(); }, &MGlobal::EquipmentFile, 'q',
                 "VD Equipment Files", "V1 VD Equipment Files", "equipment list", kReadingTables,
                 "Error while writing equipment tables.", kReadingTables, "Error while saving equipment list.", kTables,
                 kTablesV1, "NAME=Laser"},
    SWorkingFile{"ArmyListFile", "ArmyList", "cmdRecalculateArmyList", "cmdArmyListMerge", MGlobal::ArmyListDocument,
                 []() -> CDocument& { return MGlobal::ArmyList(); }, &MGlobal::ArmyListFile, 'l', "VD Army List",
                 "V1 VD Army List", "army list", kReadingList, kSavingList, kReadingList, kSavingList, kList, kListV1,
                 "NAME=Squad"},
    SWorkingFile{"ArmyRosterFile", "ArmyRoster", "cmdRecalculateArmyRoster", "", MGlobal::ArmyRosterDocument,
                 []() -> CDocument& { return MGlobal::ArmyRoster(); }, &MGlobal::ArmyRosterFile, 'r', "VD Army List",
                 "V1 VD Army Roster", "army roster", "Error while reading army roster.", kSavingRoster, kReadingList,
                 kSavingRoster, kRoster, kRosterV1, "NAME=Guard"}};

/// The program just started, with rule tables and empty documents.
class SetupTest : public CoreTest {
  protected:
    SetupTest() {
        MGlobal::Reset();
        MApp::CreateProfile();
        std::string tables;
        for (const char* line : {"\"#VD_VER\",2,2", "0,0,0", "\"#CU\",0", "\"#CW\",0", "\"#CA\",0", "\"#CUW\",0",
                                 "\"#CUA\",0", "\"#CWBaP\",1", "\"Rifle\",\"12\"", "\"#CWRan\",0", "\"#CWPen\",0"})
            tables += MHideUtils::EncodeLine(line) + "\r\n";
        Save("SuppData.vdx", tables);
        MGlobal::ReadWorkingFileNames();
        MGlobal::CheckDataFolder();
        MGlobal::LoadWorkingFiles();
    }
    ~SetupTest() override {
        if (form_) form_->Unload();
        platform_.Verify();
        MGlobal::Reset();
    }

    void Open() {
        form_ = std::make_unique<FSetup>();
        form_->ShowNonModal();
    }
    // Opens on working files that hold the sample documents, loaded.
    void OpenOnSamples() {
        MGlobal::SetEquipmentFile(Save("a.v2q", kTables));
        MGlobal::SetArmyListFile(Save("a.v2l", kList));
        MGlobal::SetArmyRosterFile(Save("a.v2r", kRoster));
        MGlobal::LoadWorkingFiles();
        Open();
    }
    void Click(const std::string& control) { MFormDriver::Click(*form_, QString::fromStdString(control)); }
    bool Enabled(const std::string& control) {
        return MFormDriver::Find(*form_, QString::fromStdString(control))->isEnabled();
    }
    QXTextEdit& Field(const std::string& field) {
        return MFormDriver::Get<QXTextEdit>(*form_, QString::fromStdString(field));
    }
    std::string Text(const std::string& field) { return Field(field).Text(); }
    void Expect(BoxKind kind, const std::string& text) { platform_.ExpectBox(kind, BoxButtons::Ok, text); }
    void ExpectQuestion(const std::string& text, BoxAnswer answer) {
        platform_.ExpectBox(BoxKind::Question, BoxButtons::YesNo, text, answer);
    }
    /// What a document holds, as its file would have it.
    std::string Content(CDocument& document) {
        EXPECT_TRUE(document.WriteInfo(folder_ / "content"));
        return ReadBytes(folder_ / "content");
    }
    static bool Holds(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }
    /// Indexes of the documents that are marked as modified.
    static std::string Modified() {
        std::string indexes;
        for (std::int16_t index = 0; index < 3; ++index) {
            if (MGlobal::IsFileModified(index)) indexes += std::to_string(index);
        }
        return indexes;
    }
    static void SetModified(bool modified) {
        for (std::int16_t index = 0; index < 3; ++index)
            MGlobal::SetFileModified(index, modified);
    }

    std::unique_ptr<FSetup> form_;
};

/// Lets a test look on, or break something, as a box comes up.
class CBoxPlatform : public CScriptedPlatform {
  public:
    explicit CBoxPlatform(std::function<void(BoxButtons)> before) : before_(std::move(before)) {}
    BoxAnswer ShowBox(BoxKind kind, BoxButtons buttons, const std::string& text) override {
        before_(buttons);
        return CScriptedPlatform::ShowBox(kind, buttons, text);
    }

  private:
    std::function<void(BoxButtons)> before_;
};
