#include "shell/look/gui_handler.h"

#include <gtest/gtest.h>

#include "controls/choice_list.h"
#include "controls/color_button.h"
#include "controls/control_array.h"
#include "controls/edit_list.h"
#include "controls/frame.h"
#include "controls/label.h"
#include "support/scripted_platform.h"

TEST(GuiHandler, EachKindOfControlHasItsOwnColours) {
    CScriptedPlatform platform;
    CForm form{"FSkinned"};
    QXLabel lblName{&form, "lblName"};
    QXLabel lblTip{&form, "lblTip"};
    QXEditList lstSquad{&form, "lstSquad"};
    QXFrame frmGroup{&form, "frmGroup"};
    CControlArray<QXColorButton, 2> cmdMenu{&form, "cmdMenu"};
    QXColorButton cmdExit{&form, "cmdExit"};
    QXChoiceList cmbType{&form, "cmbType"};
    CVDGuiHandler handler;

    handler.SetSkin(form, 0);
    EXPECT_EQ(lblName.ForeColor(), 0xffb0b0u) << "Sci-Fi at first";
    handler.SetSkin(form, 2);
    const std::vector<Colour> fantasy = {form.BackColor(),           lblName.BackColor(),  lblName.ForeColor(),
                                         lblTip.BackColor(),         cmbType.BackColor(),  lstSquad.TagBackColor(),
                                         cmbType.PromptFontColor(),  frmGroup.ForeColor(), cmdMenu[1].BackColor(),
                                         cmdMenu[1].SelectedColor(), cmdExit.ForeColor()};
    EXPECT_EQ(fantasy, (std::vector<Colour>{0xb3d1db, 0xb3d1db, 0x70, 0xffffff, 0xe5fafa, 0xe5fafa, 0x70, 0xd00000,
                                            0xd3ffff, 0x99ffff, 0x19dd7}));
    form.SetBackColor(1);
    handler.SetSkin(form, 0);
    EXPECT_EQ(form.BackColor(), 0xb3d1dbu) << "the skin kept";
    handler.HighlightButton(cmdMenu[0]);
    handler.HighlightButton(cmdMenu[1]);
    EXPECT_EQ(cmdMenu[1].BorderStyle() - cmdMenu[0].BorderStyle(), 1) << "one at a time";
}
