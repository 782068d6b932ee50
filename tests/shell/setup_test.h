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
    std::string stem;  // of the names of its controls
    std::string import;
    CDocument& (*document)();
    const std::string& (*path)();
    std::string title, kind;  // in the questions about a modified and about a new file
    std::string failureToRead;
    std::string sample, sampleEntry;

    std::string field = "ted" + stem;
    std::string select = "cmd" + stem + "Select";
    std::string saveAs = "cmd" + stem + "SaveAs";
};

inline const std::array<SWorkingFile, 3> kWorkingFiles = {
    SWorkingFile{"EqFile", "cmdImportEqFile", []() -> CDocument& { return MGlobal::ArmyTables(); },
                 &MGlobal::EquipmentFile, "Equipment List", "equipment list", "Error while reading equipment tables.",
                 kTables, "NAME=Laser"},
    SWorkingFile{"ArmyListFile", "cmdImportArmyList", []() -> CDocument& { return MGlobal::ArmyList(); },
                 &MGlobal::ArmyListFile, "Army List", "army list", "Error while reading army list.", kList,
                 "NAME=Squad"},
    SWorkingFile{"ArmyRosterFile", "cmdImportArmyRoster", []() -> CDocument& { return MGlobal::ArmyRoster(); },
                 &MGlobal::ArmyRosterFile, "Army Roster", "army roster", "Error while reading army roster.", kRoster,
                 "NAME=Guard"}};

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
        MGlobal::LoadWorkingFiles();
    }
    ~SetupTest() override {
        if (form_) form_->Unload();
        MGlobal::Reset();
    }

    void Open() {
        form_ = std::make_unique<FSetup>();
        MFormDriver::Show(*form_);
    }
    /// Opens on working files that hold the sample documents, loaded.
    void OpenOnSamples() {
        MGlobal::SetEquipmentFile(Save("a.v2q", kTables));
        MGlobal::SetArmyListFile(Save("a.v2l", kList));
        MGlobal::SetArmyRosterFile(Save("a.v2r", kRoster));
        MGlobal::LoadWorkingFiles();
        Open();
    }
    void Click(const std::string& control) { MFormDriver::Click(*form_, QString::fromStdString(control)); }
    void Expect(BoxKind kind, const std::string& text) { platform_.ExpectBox(kind, BoxButtons::Ok, text); }
    void ExpectQuestion(const std::string& text, BoxAnswer answer) {
        platform_.ExpectBox(BoxKind::Question, BoxButtons::YesNo, text, answer);
    }
    /// A merge meets an element that is there already.
    void ExpectClash(const std::string& text, BoxAnswer answer) {
        platform_.ExpectBox(BoxKind::Question, BoxButtons::YesNoCancel,
                            text + ", would you like to replace it?\r\n\"Cancel\" terminates the merge.", answer);
    }
    /// The file has that path, on the screen too.
    void ExpectPath(const SWorkingFile& file, const std::string& path) {
        EXPECT_EQ(file.path(), path);
        EXPECT_EQ(MFormDriver::Get<QXTextEdit>(*form_, QString::fromStdString(file.field)).Text(), path);
    }
    /// Whether the document holds the text, as its file would have it.
    bool Holds(const SWorkingFile& file, const std::string& part) {
        EXPECT_TRUE(file.document().WriteInfo(folder_ / "content"));
        return ReadBytes(folder_ / "content").find(part) != std::string::npos;
    }
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
