#pragma once

#include <QTest>
#include <QTextBrowser>
#include <algorithm>
#include <memory>
#include <sstream>
#include <string>

#include "controls/choice_list.h"
#include "controls/color_button.h"
#include "controls/label.h"
#include "controls/list_box.h"
#include "controls/text_edit.h"
#include "core/files/hide_utils.h"
#include "core/state/global.h"
#include "equipment/army_tables.h"
#include "support/core_test.h"
#include "support/form_driver.h"

inline const std::string kNew = "cmdMenu(0)", kAddToDb = "cmdMenu(1)", kModify = "cmdMenu(2)", kViewList = "cmdMenu(3)",
                         kDelete = "cmdMenu(4)", kSave = "cmdMenu(5)";

/// A maker, driven by mouse and keys, over rule tables and empty documents. What a form will do at closing tells its
/// state from outside.
class MakerTest : public CoreTest {
  protected:
    MakerTest() { LoadTables(true); }
    ~MakerTest() override {
        form_.reset();
        MFormDriver::VerifySteps();
        platform_.Verify();
        MGlobal::Reset();
    }

    /// A rifle costs 4, a mortar 12.5, which the rules round to 12; of relics nothing is known.
    void LoadTables(bool classes) {
        MGlobal::Reset();
        const char* none =
            "'#VD_VER',2,2;0,0,0;'#CU',0;'#CW',0;'#CA',0;'#CUW',0;'#CUA',0;'#CWBaP',0;'#CWRan',0;'#CWPen',0;";
        const char* some =
            "'#VD_VER',2,2;0,0,0;'#CU',0;'#CW',3;'Rifle';'Mortar';'Relic';'#CA',2;'Infantry';'Any Unit';"
            "'#CUW',0;'#CUA',0;'#CWBaP',2;'Rifle','4';'Mortar','12.5';'#CWRan',0;"
            "'#CWPen',2;'Rifle','2','3','4';'Mortar','5','8','8';";
        std::string coded;
        std::istringstream lines(classes ? some : none);
        for (std::string line; std::getline(lines, line, ';'); coded += MHideUtils::EncodeLine(line) + "\r\n")
            std::replace(line.begin(), line.end(), '\'', '"');
        Save("SuppData.vdx", coded);
        MGlobal::LoadWorkingFiles();
    }

    static CEqList& Weapons() { return MGlobal::ArmyTables().ArmyWeapons(); }
    static CEqList& Accessories() { return MGlobal::ArmyTables().ArmyAccessories(); }
    /// Files a new record; a key of its own hides it from those who look for its name.
    static CEqItem& Add(CEqList& list, CEqItem::Kind kind, const std::string& name, std::string key = "") {
        auto item = std::make_shared<CEqItem>();
        item->NewItem(kind);
        item->SetName(name);
        EXPECT_NE(list.Add(item, key), 0);
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
    /// Names and descriptions in the order of the list, each filed under its own name.
    static std::string Rows(const CEqList& list) {
        std::string rows;
        for (const CEqItem& item : list) {
            rows += item.Name() + ":" + item.Descr() + " ";
            EXPECT_TRUE(list.Exists(item.Name()) && item.Key() == MAnsiText::UpperCase(item.Name()));
        }
        return rows;
    }

    template <class TForm>
    TForm& Open() {
        form_ = std::make_unique<TForm>();
        MFormDriver::Show(*form_);
        return static_cast<TForm&>(*form_);
    }
    /// "cmdExit" clicks, "tedName=x" types over the text of a field, "cmbX=1" picks the entry of a list.
    void Do(const std::string& action) {
        const std::size_t sign = action.find('=');
        const QString control = QString::fromStdString(action.substr(0, sign));
        const std::string text = sign == std::string::npos ? "" : action.substr(sign + 1);
        if (action.starts_with("cmb")) {
            MFormDriver::Choose(*form_, control, std::stoi(text));
            return;
        }
        MFormDriver::Click(*form_, control);
        if (sign == std::string::npos) return;
        auto& field = MFormDriver::Get<QXTextEdit>(*form_, control);
        field.selectAll();
        if (text.empty()) QTest::keyClick(&field, Qt::Key_Delete);
        QTest::keyClicks(&field, QString::fromStdString(text));
    }
    template <class TControl>
    TControl& Control(const std::string& name) {
        return MFormDriver::Get<TControl>(*form_, QString::fromStdString(name));
    }
    QXColorButton& Button(const std::string& name) { return Control<QXColorButton>(name); }
    std::string Text(const char* field) { return Control<QXTextEdit>(field).Text(); }
    std::string Label(const char* label) { return Control<QXLabel>(label).Caption(); }
    std::string Choice(const char* list) { return Control<QXChoiceList>(list).Text(); }
    /// Indexes of the buttons of an array that are on.
    std::string Lit(const std::string& array) {
        std::string lit;
        for (const IControl* control : form_->Controls()) {
            if (control->Name() == array && dynamic_cast<const QXColorButton*>(control)->Value())
                lit += std::to_string(control->Index());
        }
        return lit;
    }
    /// Questions about storing, in their order: A(dd), U(pdate), O(verwrite), each of `name`, R(ename from `old`), and
    /// what they are answered: + or -.
    void Ask(const std::string& questions, const std::string& name, const std::string& old = "") {
        const std::string exists = "\"" + name + "\" already exists in the list,\r\ndo you wish to ";
        for (std::size_t at = 0; at < questions.size(); at += 2) {
            const char kind = questions[at];
            platform_.ExpectBox(BoxKind::Question, BoxButtons::YesNo,
                                kind == 'A'   ? "Add \"" + name + "\" to the list?"
                                : kind == 'R' ? "Rename \"" + old + "\" as \"" + name + "\"?"
                                              : exists + (kind == 'U' ? "update it?" : "overwrite it?"),
                                questions[at + 1] == '+' ? BoxAnswer::Yes : BoxAnswer::No);
        }
    }
    void Expect(BoxKind kind, const std::string& text) { platform_.ExpectBox(kind, BoxButtons::Ok, text); }
    void WarnWithCancel(const std::string& text, BoxAnswer answer) {
        platform_.ExpectBox(BoxKind::Warning, BoxButtons::OkCancel, text, answer);
    }
    /// The selector that comes next: its row, -1 for none, then a button; its texts where they are told.
    static void InSelector(int row, const char* button, const std::string& texts = "") {
        MFormDriver::WhileModal([=](CForm& selector) {
            const std::string shown = MFormDriver::Get<QXLabel>(selector, "lblPrompt").Caption() + "/" +
                                      MFormDriver::Get<QXColorButton>(selector, "cmdOK").Caption() + "/" +
                                      MFormDriver::Get<QXColorButton>(selector, "cmdCancel").Caption();
            EXPECT_EQ(shown, texts.empty() ? shown : texts);
            if (row >= 0) MFormDriver::ClickRow(selector, "lstItems", row);
            MFormDriver::Click(selector, button);
        });
    }
    void TakeRow(int row) {
        InSelector(row, "cmdOK");
        Do(kModify);
        MFormDriver::Show(*form_);  // active again
    }
    /// View List shows a page that has `text`.
    void ExpectPage(const QString& text) {
        MFormDriver::WhileModal([=](CForm& viewer) {
            EXPECT_TRUE(viewer.findChild<QTextBrowser*>()->toPlainText().contains(text));
            MFormDriver::CloseWindow(viewer);
        });
        Do(kViewList);
    }

    /// Indexes of the documents that are marked as modified.
    static std::string Modified() {
        std::string indexes;
        for (std::int16_t index = 0; index < 3; ++index)
            indexes += MGlobal::IsFileModified(index) ? std::to_string(index) : "";
        return indexes;
    }
    /// Closes the form, past the boxes that are expected, and looks which document that marks.
    void ExpectClosing(const std::string& marked) {
        for (std::int16_t index = 0; index < 3; ++index)
            MGlobal::SetFileModified(index, false);
        Do("cmdExit");
        EXPECT_FALSE(form_->Visible());
        EXPECT_EQ(Modified(), marked);
        platform_.Verify();
    }

    std::unique_ptr<CForm> form_;
};
