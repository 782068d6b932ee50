#include "shell/look/gui_handler.h"

#include <gtest/gtest.h>

#include "controls/choice_list.h"
#include "controls/color_button.h"
#include "controls/control_array.h"
#include "controls/edit_list.h"
#include "controls/frame.h"
#include "controls/label.h"
#include "controls/list_box.h"
#include "controls/text_box.h"
#include "controls/text_edit.h"
#include "support/scripted_platform.h"

namespace {

class GuiHandler : public testing::Test {
  protected:
    CScriptedPlatform platform;
    CForm form{"FSkinned"};
    QXLabel lblName{&form, "lblName"};
    QXLabel lblTip{&form, "lblTip"};
    QXLabel lblSpecialDescr{&form, "lblSpecialDescr", 0};
    QXLabel lblStat{&form, "lblStat", 2};
    CListBox lstUnits{&form, "lstUnits"};
    QXEditList lstSquad{&form, "lstSquad"};
    QXTextEdit tedName{&form, "tedName"};
    CTextBox tedNotice{&form, "tedNotice"};
    QXFrame frmGroup{&form, "frmGroup"};
    CControlArray<QXColorButton, 2> cmdMenu{&form, "cmdMenu"};
    QXColorButton cmdExit{&form, "cmdExit"};
    QXChoiceList cmbType{&form, "cmbType"};
    CVDGuiHandler handler;
};

TEST_F(GuiHandler, EachKindOfControlHasItsOwnColours) {
    QXColorButton& button = cmdMenu[1];
    button.SetBorderStyle(1);
    tedName.SetTabStop(true);
    handler.SetSkin(form, 2);
    EXPECT_EQ(lblTip.FontSize(), 11);
    EXPECT_TRUE(lblSpecialDescr.WordWrap() && lblStat.FontBold() && lstUnits.TabStop());
    EXPECT_FALSE(button.TabStop() || tedName.TabStop() || button.BorderStyle() == 1);
    for (const IControl* field :
         std::initializer_list<IControl*>{&lstUnits, &lstSquad, &tedName, &tedNotice, &cmbType}) {
        EXPECT_EQ(field->BackColor(), 0xe5fafau) << field->Name();
        EXPECT_EQ(field->FontName(), "Calligraphic") << field->Name();
    }
    const std::vector<Colour> fantasy = {
        form.BackColor(),           lblName.BackColor(),         lblName.ForeColor(),
        lblTip.BackColor(),         lblSpecialDescr.ForeColor(), lblStat.ForeColor(),
        lstSquad.TagBackColor(),    cmbType.PromptFontColor(),   frmGroup.ForeColor(),
        frmGroup.BorderColor(),     button.BackColor(),          button.SelectedColor(),
        button.SelectedForeColor(), button.DisabledBackColor(),  cmdExit.ForeColor()};
    EXPECT_EQ(fantasy, (std::vector<Colour>{0xb3d1db, 0xb3d1db, 0x70, 0xffffff, 0x606080, 0xd0, 0xe5fafa, 0x70,
                                            0xd00000, 0, 0xd3ffff, 0x99ffff, 0xdd, 0x7575a0, 0x19dd7}));
    handler.SetSkin(form, 1);
    const std::vector<Colour> sciFi = {form.BackColor(), button.ForeColor(), frmGroup.BorderColor(),
                                       cmbType.ListWindowBackColor(), cmbType.ButtonColor()};
    EXPECT_EQ(sciFi, (std::vector<Colour>{0, 0xffb0b0, 0xff8080, 0x4989a1, 0xffb0b0}));
}

TEST_F(GuiHandler, SkinZeroAppliesTheSkinKeptAndAnUnknownOnePaintsNothing) {
    handler.SetSkin(form, 0);
    EXPECT_EQ(lblName.ForeColor(), 0xffb0b0u) << "Sci-Fi at first";
    handler.SetSkin(form, 2);
    for (const int skin : {0, 3}) {
        form.SetBackColor(1);
        handler.SetSkin(form, skin);
        EXPECT_EQ(form.BackColor(), skin == 0 ? 0xb3d1dbu : 1u);
    }
    EXPECT_EQ(handler.GUIImg(1), nullptr);
}

TEST_F(GuiHandler, HighlightStandsOnOneButtonAtATime) {
    handler.SetSkin(form, 1);
    const auto borders = [this] {
        return 100 * cmdMenu[0].BorderStyle() + 10 * cmdMenu[1].BorderStyle() + cmdExit.BorderStyle();
    };
    for (const auto& [over, expected] :
         {std::pair<IControl*, int>(&cmdMenu[0], 100), {&cmdMenu[1], 10}, {&cmdExit, 1}, {&frmGroup, 0}}) {
        handler.HighlightButton(*over);
        EXPECT_EQ(borders(), expected);
    }
    cmdMenu[0].SetBorderStyle(1);
    cmdExit.SetBorderStyle(1);
    handler.UnhighlightButton(cmdMenu, 0);
    EXPECT_EQ(borders(), 1);
}

TEST_F(GuiHandler, PicturesFollowTheSkin) {
    // Equal letters are the same picture, a dot is none; index 0 to 9.
    for (const auto& [skin, expected] : {std::pair(1, ".abcdefgh."), {2, ".aabb....."}}) {
        handler.SetSkin(form, skin);
        std::vector<PicturePtr> seen;
        std::string pictures;
        for (int index = 0; index < 10; ++index) {
            const PicturePtr picture = handler.GUIImg(index);
            const auto found = std::find(seen.begin(), seen.end(), picture);
            pictures += picture ? static_cast<char>('a' + (found - seen.begin())) : '.';
            if (picture && found == seen.end()) seen.push_back(picture);
        }
        EXPECT_EQ(pictures, expected);
    }
}

TEST_F(GuiHandler, LackOfATipLabelIsAnError) {
    CForm bare("FBare");
    handler.SetSkin(bare, 1);
    EXPECT_THROW(handler.SetTip("x"), CRuntimeError);
}

}  // namespace
