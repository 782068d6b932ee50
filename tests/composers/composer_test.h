#pragma once

#include <string>
#include <vector>

#include "controls/label.h"
#include "controls/list_box.h"
#include "controls/text_edit.h"
#include "core/state/global.h"
#include "support/core_test.h"
#include "support/form_driver.h"
#include "units/army_list.h"
#include "units/mult_unit.h"
#include "units/unit.h"

using Rows = std::vector<std::string>;

struct SEntry {
    const char* name;
    int type;
    const char* cost;  // points of one
    int quantity = 1;
};

// Summaries in the file form: their costs are what the file says.
inline std::string Document(const std::string& tag, const std::string& picture, bool keyed,
                            const std::vector<SEntry>& entries) {
    const std::string flag = keyed ? "1" : "0";
    std::string text = Lines({"[TOP]", "APPVERSION=2_2", "ENTRY=" + tag, "VERSION=0", "NAME=Host", "DESCR=Spring",
                              "PICTURE=" + picture, "[UNITLIST]", "ENTRY=#UL", "SORTED=" + flag, "INDEXED=" + flag,
                              "COUNT=" + std::to_string(entries.size())});
    int position = 0;
    for (const SEntry& entry : entries) {
        const std::string name = entry.name;
        const std::string cost = entry.cost;
        text +=
            Lines({"[UNITLIST_" + std::to_string(++position) + "]", "ENTRY=#U", "VERSION=2", "FULLINFO=0",
                   "NAME=" + name, "DESCR=About " + name, "KEY=", "TYPE=" + std::to_string(entry.type),
                   "CLASS=", "SUBCLASS=", "QUANTITY=" + std::to_string(entry.quantity), "POINTS=" + cost + "," + cost});
    }
    return text;
}

/// A form over an army list of five units and the squad Patrol.
template <class TForm>
class ComposerTest : public CoreTest {
  protected:
    explicit ComposerTest(MGlobal::Document document) : document_(document) {
        MGlobal::Reset();
        platform_.ExpectBox(BoxKind::Critical, BoxButtons::Ok, "Cannot find support tables.");
        MGlobal::LoadWorkingFiles();
        WriteBytes(folder_ / "list", Document("#ARMYLIST", "", true,
                                              {{"Archer", 0, "10.5"},
                                               {"Cart", 1, "40"},
                                               {"Drone", 2, "7.25"},
                                               {"Golem", 3, "30"},
                                               {"Ren\xE9", 0, "20"}}));
        EXPECT_TRUE(MGlobal::ArmyList().ReadInfo(folder_ / "list"));
        auto patrol = std::make_shared<CGenUnit>();
        patrol->NewUnit(CGenUnit::Squad);
        patrol->SetName("Patrol");
        for (const char* member : {"Archer", "Cart"}) {
            auto unit = std::make_shared<CGenUnit>();
            unit->Clone(MGlobal::ArmyList().ArmyUnits().Item(member));
            patrol->SquadUnit().Add(unit, "");
        }
        MGlobal::ArmyList().ArmyUnits().Add(patrol);
    }
    ~ComposerTest() override {
        form_.Unload();
        MFormDriver::VerifySteps();
        platform_.Verify();
        MGlobal::Reset();
    }

    void Expect(BoxKind kind, const std::string& text) { platform_.ExpectBox(kind, BoxButtons::Ok, text); }

    template <class TControl>
    TControl& Control(const char* name) {
        return MFormDriver::Get<TControl>(form_, name);
    }
    std::string Text(const char* name) { return Control<QXTextEdit>(name).Text(); }
    std::string Info(const char* name) { return Control<QXLabel>(name).Caption(); }
    bool Enabled(const char* name) { return MFormDriver::Find(form_, name)->isEnabled(); }
    bool Shown(const char* name) { return MFormDriver::Find(form_, name)->isVisible(); }
    Rows ListRows(const char* name) {
        Rows rows;
        for (int row = 0; row < Control<CListBox>(name).ListCount(); ++row)
            rows.push_back(Control<CListBox>(name).List(row));
        return rows;
    }
    bool Modified() const { return MGlobal::IsFileModified(document_); }
    // Closes the form; true when that marked the document as modified. The mark is taken away again.
    bool ClosingMarks() {
        MGlobal::SetFileModified(document_, false);
        MFormDriver::Click(form_, "cmdExit");
        EXPECT_FALSE(form_.Visible());
        const bool marked = Modified();
        MGlobal::SetFileModified(document_, false);
        return marked;
    }

    TForm form_;

  private:
    MGlobal::Document document_;
};
