#include <gtest/gtest.h>

#include <QAccessible>

#include "controls/color_button.h"
#include "controls/control_array.h"
#include "controls/control_utils.h"
#include "support/form_driver.h"
#include "support/scripted_platform.h"

namespace {

class Buttons : public testing::Test {
  protected:
    CScriptedPlatform platform;
    CForm form{"FButtons"};
    QXColorButton cmdGo{&form, "cmdGo"};
    QXColorButton chkFlying{&form, "chkFlying"};
    QXColorButton cmdSkin{&form, "cmdSkin"};
    CControlArray<QXColorButton, 3> optFilter{&form, "optFilter"};
};

TEST_F(Buttons, ClickTogglesHoldsOrLeavesTheValue) {
    form.ShowNonModal();
    for (const auto& [button, afterOne, afterTwo] : {std::tuple(&cmdGo, false, false),
                                                     {&chkFlying, true, false},
                                                     {&cmdSkin, true, false},
                                                     {&optFilter[1], true, true}}) {
        const QString name = button->objectName();
        SCOPED_TRACE(name.toStdString());
        int clicks = 0;
        button->OnClick([&] { ++clicks; });
        MFormDriver::Click(form, name);
        EXPECT_EQ(button->Value(), afterOne);
        MFormDriver::Click(form, name);
        EXPECT_EQ(button->Value(), afterTwo);
        EXPECT_EQ(clicks, 2);
        button->SetValue(!button->Value());
        button->SetEnabled(false);
        MFormDriver::Click(form, name);
        EXPECT_EQ(clicks, 2) << "neither code nor a click while disabled is a click";
    }
}

TEST_F(Buttons, ClearControlGroupSparesTheNamedElementAlone) {
    QXColorButton* const buttons[] = {&optFilter[0], &optFilter[1], &cmdSkin, &chkFlying};
    for (QXColorButton* button : buttons)
        button->SetControlGroup(button == &chkFlying ? "Group" : "group");
    for (const auto& [name, index, left] : {std::tuple("optFilter", 1, "0101"),
                                            {"optFilter", 9, "0001"},
                                            {"cmdSkin", -1, "0011"},
                                            {"optfilter", 1, "0001"}}) {
        for (QXColorButton* button : buttons)
            button->SetValue(true);
        MQXBaseGUIControlsUtils::ClearControlGroup(form, "group", name, index);
        std::string on;
        for (const QXColorButton* button : buttons)
            on += button->Value() ? '1' : '0';
        EXPECT_EQ(on, left) << name << index;
    }
    EXPECT_THROW(cmdGo.Index(), CRuntimeError);
    EXPECT_THROW(optFilter[3], CRuntimeError);
}

TEST_F(Buttons, ScreenReadersFindRoleNameAndState) {
    cmdGo.SetArrow("\xE8");
    chkFlying.SetCaption("Flyer");
    chkFlying.SetValue(true);
    optFilter[0].SetCaption("R&D");
    for (const auto& [widget, name, role, checked] : {std::tuple(&cmdGo, "Next", QAccessible::Button, false),
                                                      {&chkFlying, "Flyer", QAccessible::CheckBox, true},
                                                      {&optFilter[0], "R&D", QAccessible::RadioButton, false}}) {
        const QAccessibleInterface* found = QAccessible::queryAccessibleInterface(widget);
        EXPECT_EQ(found->text(QAccessible::Name).toStdString(), name);
        EXPECT_EQ(found->role(), role) << name;
        EXPECT_EQ(found->state().checked, checked) << name;
    }
}

// The selected Sci-Fi caption, green on light blue, is outlined; without the outline no pixel would be dark.
TEST_F(Buttons, CaptionThatIsHardToReadGetsADarkOutline) {
    QXColorButton& button = optFilter[0];
    button.SetCaption("Automatic Fire");
    button.SetSelectedColor(0xff8080);
    button.SetSelectedForeColor(0x00ff00);
    button.SetValue(true);
    button.resize(160, 35);
    const QImage image = button.grab().toImage();
    int dark = 0;
    for (int i = 0; i < 160 * 35; ++i)
        dark += image.pixelColor(i % 160, i / 160).lightness() < 60 ? 1 : 0;
    EXPECT_GT(dark, 100);
}

}  // namespace
