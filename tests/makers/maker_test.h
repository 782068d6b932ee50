#pragma once

#include <QTest>
#include <algorithm>
#include <memory>
#include <sstream>
#include <string>

#include "controls/color_button.h"
#include "controls/label.h"
#include "controls/list_box.h"
#include "controls/text_edit.h"
#include "core/files/hide_utils.h"
#include "core/state/global.h"
#include "equipment/army_tables.h"
#include "support/core_test.h"
#include "support/form_driver.h"
#include "units/army_list.h"

inline const std::string kNew = "cmdMenu(0)", kAddToDb = "cmdMenu(1)", kModify = "cmdMenu(2)", kViewList = "cmdMenu(3)",
                         kDelete = "cmdMenu(4)", kSave = "cmdMenu(5)";

/// A rifle costs 4, a mortar 12.5, which the rules round to 12; of relics nothing is known. Infantry may carry rifles
/// and mortars, a vehicle mortars, both what any unit may; robots may carry nothing.
inline const std::string kRules =
    R"("#VD_VER",2,2;0,0,0;"#CU",0;"#CW",3;"Rifle";"Mortar";"Relic";"#CA",2;"Infantry";"Any Unit";)"
    R"("#CUW",3;"Infantry","Rifle";"Infantry","Mortar";"Vehicle","Mortar";)"
    R"("#CUA",2;"Infantry","Any Unit";"Vehicle","Any Unit";"#CWBaP",2;"Rifle","4";"Mortar","12.5";)"
    R"("#CWRan",0;"#CWPen",2;"Rifle","2","3","4";"Mortar","5","8","8";)";

inline const std::string kNoRules =
    R"("#VD_VER",2,2;0,0,0;"#CU",0;"#CW",0;"#CA",0;"#CUW",0;"#CUA",0;"#CWBaP",0;"#CWRan",0;"#CWPen",0;)";

/// A maker, driven by mouse and keys, over rule tables and empty documents. What a form will do at closing tells its
/// state from outside.
class MakerTest : public CoreTest {
  protected:
    MakerTest() { LoadTables(kRules, ';'); }
    ~MakerTest() override {
        form_.reset();
        MFormDriver::VerifySteps();
        platform_.Verify();
        MGlobal::Reset();
    }

    void LoadTables(const std::string& rules, char lineEnd) {
        MGlobal::Reset();
        std::string coded;
        std::istringstream lines(rules);
        for (std::string line; std::getline(lines, line, lineEnd);)
            coded += MHideUtils::EncodeLine(line.substr(0, line.find('\r'))) + "\r\n";
        Save("SuppData.vdx", coded);
        MGlobal::LoadWorkingFiles();
    }

    static CEqList& Weapons() { return MGlobal::ArmyTables().ArmyWeapons(); }
    static CEqList& Accessories() { return MGlobal::ArmyTables().ArmyAccessories(); }
    static CUnitList& Units() { return MGlobal::ArmyList().ArmyUnits(); }
    static CEqItem& Add(CEqList& list, CEqItem::Kind kind, const std::string& name) {
        auto item = std::make_shared<CEqItem>();
        item->NewItem(kind);
        item->SetName(name);
        EXPECT_NE(list.Add(item), 0);
        return *item;
    }
    /// A rifle that does nothing special.
    static CWeapon& AddWeapon(const std::string& name, const std::string& descr = "") {
        CWeapon& weapon = *Add(Weapons(), CEqItem::Weapon, name).AsWeapon();
        weapon.SetDescr(descr);
        weapon.SetWeaponClass("Rifle");
        weapon.SetPenMultiplier(1);
        weapon.SetBaseCost(4);
        weapon.SetPen(2);
        return weapon;
    }
    static CGenUnit& AddUnit(const std::string& name, CGenUnit::Kind kind = CGenUnit::Single) {
        auto unit = std::make_shared<CGenUnit>();
        unit->NewUnit(kind);
        unit->SetName(name);
        Units().Add(unit);
        return *unit;
    }
    template <class TForm>
    void Open() {
        form_ = std::make_unique<TForm>();
        MFormDriver::Show(*form_);
    }
    /// Actions, without blanks in them: "cmdExit" clicks, "tedName=x" types over the text of a field, "cmbX=1" picks
    /// the entry of a list, "lstX#1" clicks its row, and "lstX##1" double clicks it.
    static void Do(CForm& form, const std::string& actions) {
        std::istringstream words(actions);
        for (std::string action; words >> action;) {
            const std::size_t sign = std::min(action.find_first_of("=#"), action.size());
            const QString control = QString::fromStdString(action.substr(0, sign));
            const std::string text = action.substr(action.find_last_of("=#") + 1);
            if (action.find('#') != std::string::npos) {
                MFormDriver::ClickRow(form, control, std::stoi(text), action.find("##") != std::string::npos);
            } else if (action.starts_with("cmb")) {
                MFormDriver::Choose(form, control, std::stoi(text));
            } else {
                MFormDriver::Click(form, control);
                if (sign == action.size()) continue;
                auto& field = MFormDriver::Get<QXTextEdit>(form, control);
                field.selectAll();
                if (text.empty()) QTest::keyClick(&field, Qt::Key_Delete);
                QTest::keyClicks(&field, QString::fromStdString(text));
            }
        }
    }
    void Do(const std::string& actions) { Do(*form_, actions); }
    template <class TControl = QWidget>
    TControl& Control(const std::string& name) {
        return MFormDriver::Get<TControl>(*form_, QString::fromStdString(name));
    }
    std::string Text(const std::string& field) { return Control<QXTextEdit>(field).Text(); }
    std::string Label(const std::string& label) { return Control<QXLabel>(label).Caption(); }
    /// Indexes of the buttons of an array that are on.
    std::string Lit(const std::string& array) {
        std::string lit;
        for (const IControl* control : form_->Controls()) {
            if (control->Name() == array && dynamic_cast<const QXColorButton*>(control)->Value())
                lit += std::to_string(control->Index());
        }
        return lit;
    }
    /// The rows of a list, the selected one with a star.
    static std::string Items(CForm& form, const char* name) {
        std::string items;
        const auto& list = MFormDriver::Get<CListBox>(form, name);
        for (int row = 0; row < list.ListCount(); ++row)
            items += list.List(row) + (row == list.ListIndex() ? "* " : " ");
        return items;
    }
    std::string Items(const char* name) { return Items(*form_, name); }
    /// Walks by N(ext) and P(revious); the names that come up.
    std::string Walk(const std::string& steps) {
        std::string names;
        for (const char step : steps) {
            Do(step == 'N' ? "cmdNext" : "cmdPrev");
            names += Text("tedName") + " ";
        }
        return names;
    }

    /// Questions about storing, in their order: A(dd), U(pdate), O(verwrite), each of `name`, R(ename from `old`), and
    /// what they are answered: + or -.
    void Ask(const std::string& questions, const std::string& name, const std::string& old = "") {
        const std::string exists = "\"" + name + "\" already exists in the list,\r\ndo you wish to ";
        for (std::size_t at = 0; at < questions.size(); at += 2) {
            const char kind = questions[at];
            Question(kind == 'A'   ? "Add \"" + name + "\" to the list?"
                     : kind == 'R' ? "Rename \"" + old + "\" as \"" + name + "\"?"
                                   : exists + (kind == 'U' ? "update it?" : "overwrite it?"),
                     questions[at + 1] == '+');
        }
    }
    void Expect(BoxKind kind, const std::string& text) { platform_.ExpectBox(kind, BoxButtons::Ok, text); }
    void WarnWithCancel(const std::string& text, BoxAnswer answer) {
        platform_.ExpectBox(BoxKind::Warning, BoxButtons::OkCancel, text, answer);
    }
    void Question(const std::string& text, bool yes = true) {
        platform_.ExpectBox(BoxKind::Question, BoxButtons::YesNo, text, yes ? BoxAnswer::Yes : BoxAnswer::No);
    }
    /// The selector that comes next: its row, -1 for none, then a button.
    static void InSelector(int row, const char* button) {
        MFormDriver::WhileModal([=](CForm& selector) {
            if (row >= 0) MFormDriver::ClickRow(selector, "lstItems", row);
            MFormDriver::Click(selector, button);
        });
    }
    void TakeRow(int row) {
        InSelector(row, "cmdOK");
        Do(kModify);
        MFormDriver::Show(*form_);  // active again
    }

    /// Indexes of the documents that are marked as modified. Takes the marks away.
    static std::string TakeMarks() {
        std::string indexes;
        for (std::int16_t index = 0; index < 3; ++index) {
            if (MGlobal::IsFileModified(index)) indexes += std::to_string(index);
            MGlobal::SetFileModified(index, false);
        }
        return indexes;
    }
    /// Closes the form, past the boxes that are expected, and looks which document that marks.
    void ExpectClosing(const std::string& marked) {
        TakeMarks();
        Do("cmdExit");
        EXPECT_FALSE(form_->Visible());
        EXPECT_EQ(TakeMarks(), marked) << "documents that the closing marks as modified";
        platform_.Verify();
    }

    std::unique_ptr<CForm> form_;
};
