#include "shell/look/gui_handler.h"

#include <gtest/gtest.h>

#include "controls/choice_list.h"
#include "controls/edit_list.h"
#include "controls/frame.h"
#include "controls/img_button.h"
#include "controls/label.h"
#include "controls/list_box.h"
#include "controls/picture_box.h"
#include "controls/text_box.h"
#include "controls/text_edit.h"
#include "support/scripted_platform.h"

namespace {

struct FSkinned : CForm {
    FSkinned() : CForm("FSkinned") {}
    QXLabel lblName{this, "lblName"};
    QXLabel lblTip{this, "lblTip"};
    QXLabel lblSpecialDescr{this, "lblSpecialDescr", 0};
    QXLabel lblStat{this, "lblStat", 2};
    CListBox lstUnits{this, "lstUnits"};
    QXEditList lstSquad{this, "lstSquad"};
    QXTextEdit tedName{this, "tedName"};
    CTextBox tedNotice{this, "tedNotice"};
    QXFrame frmGroup{this, "frmGroup"};
    CControlArray<QXColorButton, 2> cmdMenu{this, "cmdMenu"};
    QXImgButton optUnit{this, "optUnit", 0};
    QXColorButton cmdExit{this, "cmdExit"};
    QXChoiceList cmbType{this, "cmbType"};
    CPictureBox imgMenuTop{this, "imgMenuTop"};
};

class GuiHandler : public testing::Test {
  protected:
    std::string Borders() {
        std::string borders;
        for (const QXColorButton* button :
             {&form.cmdMenu[0], &form.cmdMenu[1], static_cast<QXColorButton*>(&form.optUnit), &form.cmdExit}) {
            borders += std::to_string(button->BorderStyle());
        }
        return borders;
    }
    CScriptedPlatform platform;
    FSkinned form;
    CVDGuiHandler handler;
};

}  // namespace

TEST_F(GuiHandler, EachSkinSetsItsColoursAndFonts) {
    struct {
        int skin;
        const char* font;
        Colour form, label, tip, tipBack, descr, stat, fieldBack, fieldFore, frame, frameBorder;
        Colour back, fore, border, selectedFore, selected, disabled, closing, listBack, choiceButton;
    } const cases[] = {
        {1,        "MS Sans Serif", 0x000000, 0xffb0b0, 0xffb0b0, 0x600000, 0xc0ffff,
         0x00ff00, 0x606060,        0xffb0b0, 0x99ff55, 0xff8080, 0x600000, 0xffb0b0,
         0xff8080, 0x00ff00,        0xff8080, 0x000050, 0x21bdf7, 0x4989a1, 0xffb0b0},
        {2,        "Calligraphic", 0xb3d1db, 0x000070, 0x000070, 0xffffff, 0x606080,
         0x0000d0, 0xe5fafa,       0x000070, 0xd00000, 0x000000, 0xd3ffff, 0x000070,
         0x000000, 0x0000dd,       0x99ffff, 0x7575a0, 0x019dd7, 0xd3ffff, 0xd3ffff},
    };
    for (const auto& skin : cases) {
        form.cmdMenu[0].SetBorderStyle(1);
        form.tedName.SetTabStop(true);
        handler.SetSkin(form, skin.skin);
        SCOPED_TRACE(skin.font);
        EXPECT_EQ(form.BackColor(), skin.form);
        EXPECT_EQ(form.lblName.ForeColor(), skin.label);
        EXPECT_EQ(form.lblName.BackColor(), skin.form);
        EXPECT_EQ(form.lblTip.ForeColor(), skin.tip);
        EXPECT_EQ(form.lblTip.BackColor(), skin.tipBack);
        EXPECT_EQ(form.lblTip.FontSize(), 11);
        EXPECT_EQ(form.lblSpecialDescr.ForeColor(), skin.descr);
        EXPECT_EQ(form.lblSpecialDescr.FontSize(), 10);
        EXPECT_TRUE(form.lblSpecialDescr.WordWrap());
        EXPECT_EQ(form.lblStat.ForeColor(), skin.stat);
        EXPECT_TRUE(form.lblStat.FontBold());
        EXPECT_EQ(form.lblStat.FontSize(), 12);
        for (const IControl* field : std::initializer_list<IControl*>{&form.lstUnits, &form.lstSquad, &form.tedName,
                                                                      &form.tedNotice, &form.cmbType}) {
            EXPECT_EQ(field->BackColor(), skin.fieldBack) << field->Name();
            EXPECT_EQ(field->ForeColor(), skin.fieldFore) << field->Name();
            EXPECT_EQ(field->FontName(), skin.font) << field->Name();
        }
        EXPECT_EQ(form.lstSquad.TagBackColor(), skin.fieldBack);
        EXPECT_EQ(form.lstSquad.TagForeColor(), skin.fieldFore);
        EXPECT_EQ(form.frmGroup.ForeColor(), skin.frame);
        EXPECT_EQ(form.frmGroup.BorderColor(), skin.frameBorder);
        for (QXColorButton* button : {&form.cmdMenu[0], static_cast<QXColorButton*>(&form.optUnit), &form.cmdExit}) {
            EXPECT_EQ(button->BackColor(), skin.back);
            EXPECT_EQ(button->BorderStyle(), 0);
            EXPECT_EQ(button->BorderColor(), skin.border);
            EXPECT_EQ(button->ForeColor(), button == &form.cmdExit ? skin.closing : skin.fore);
            EXPECT_EQ(button->SelectedForeColor(), skin.selectedFore);
            EXPECT_EQ(button->SelectedColor(), skin.selected);
            EXPECT_EQ(button->DisabledBackColor(), skin.disabled);
            EXPECT_FALSE(button->TabStop());
        }
        EXPECT_EQ(form.cmbType.ListWindowBackColor(), skin.listBack);
        EXPECT_EQ(form.cmbType.ButtonColor(), skin.choiceButton);
        EXPECT_EQ(form.cmbType.PromptFontColor(), skin.fieldFore);
        EXPECT_FALSE(form.tedName.TabStop());
        EXPECT_TRUE(form.lstUnits.TabStop());
    }
}

TEST_F(GuiHandler, SkinZeroAppliesTheSkinKeptAndAnUnknownOnePaintsNothing) {
    handler.SetSkin(form, 0);
    EXPECT_EQ(form.BackColor(), 0u);
    EXPECT_EQ(form.lblName.ForeColor(), 0xffb0b0u) << "Sci-Fi at first";
    handler.SetSkin(form, 2);
    form.SetBackColor(1);
    handler.SetSkin(form, 0);
    EXPECT_EQ(form.BackColor(), 0xb3d1dbu);
    form.SetBackColor(1);
    handler.SetSkin(form, 3);
    EXPECT_EQ(form.BackColor(), 1u);
    for (int index = 0; index < 10; ++index)
        EXPECT_EQ(handler.GUIImg(index), nullptr);
}

TEST_F(GuiHandler, HighlightStandsOnOneButtonAtATime) {
    handler.SetSkin(form, 1);
    struct {
        IControl* over;
        const char* borders;
    } const cases[] = {{&form.cmdMenu[0], "1000"},
                       {&form.cmdMenu[1], "0100"},
                       {&form.optUnit, "0010"},
                       {&form.cmdExit, "0001"},
                       {&form.frmGroup, "0000"}};
    for (const auto& test : cases) {
        handler.HighlightButton(*test.over);
        EXPECT_EQ(Borders(), test.borders);
    }
    form.cmdMenu[0].SetBorderStyle(1);
    form.cmdExit.SetBorderStyle(1);
    handler.UnhighlightButton(form.cmdMenu, 0);
    EXPECT_EQ(Borders(), "0001");
    handler.UnhighlightButton();
    EXPECT_EQ(Borders(), "0000");
}

TEST_F(GuiHandler, PicturesFollowTheSkin) {
    // Equal letters are the same picture, a dot is none; index 0 to 9.
    struct {
        int skin;
        const char* pictures;
    } const cases[] = {{1, ".abcdefgh."}, {2, ".aabb....."}};
    for (const auto& test : cases) {
        handler.SetSkin(form, test.skin);
        std::vector<PicturePtr> seen;
        std::string pictures;
        for (int index = 0; index < 10; ++index) {
            const PicturePtr picture = handler.GUIImg(index);
            if (!picture) {
                pictures += '.';
                continue;
            }
            const auto found = std::find(seen.begin(), seen.end(), picture);
            pictures += static_cast<char>('a' + (found - seen.begin()));
            if (found == seen.end()) seen.push_back(picture);
        }
        EXPECT_EQ(pictures, test.pictures);
    }
}

TEST_F(GuiHandler, TipIsTheCaptionOfTheTipLabelAndItsLackIsAnError) {
    handler.SetSkin(form, 1);
    handler.SetTip("Compose your army");
    EXPECT_EQ(form.lblTip.Caption(), "Compose your army");
    handler.ResetTip();
    EXPECT_EQ(form.lblTip.Caption(), "");
    CForm bare("FBare");
    handler.SetSkin(bare, 1);
    EXPECT_THROW(handler.SetTip("x"), CRuntimeError);
}
