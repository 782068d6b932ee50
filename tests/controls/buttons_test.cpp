#include <gtest/gtest.h>

#include <QAccessible>

#include "controls/color_button.h"
#include "controls/control_array.h"
#include "controls/control_utils.h"
#include "controls/img_button.h"
#include "support/form_driver.h"
#include "support/scripted_platform.h"

namespace {

struct FButtons : CForm {
    FButtons() : CForm("FButtons") { resize(300, 300); }
    QXColorButton cmdGo{this, "cmdGo"};
    QXColorButton chkFlying{this, "chkFlying"};
    QXColorButton cmdSkin{this, "cmdSkin"};
    CControlArray<QXColorButton, 3> optFilter{this, "optFilter"};
    QXImgButton optOther{this, "optOther"};
};

}  // namespace

TEST(Buttons, ClickTogglesHoldsOrLeavesTheValue) {
    struct {
        const char* name;
        bool afterOne;
        bool afterTwo;
    } const cases[] = {
        {"cmdGo", false, false}, {"chkFlying", true, false}, {"cmdSkin", true, false}, {"optFilter(1)", true, true}};
    CScriptedPlatform platform;
    FButtons form;
    form.ShowNonModal();
    for (const auto& test : cases) {
        auto& button = MFormDriver::Get<QXColorButton>(form, QString::fromLatin1(test.name));
        int clicks = 0;
        button.OnClick([&] { ++clicks; });
        MFormDriver::Click(form, button.objectName());
        EXPECT_EQ(button.Value(), test.afterOne) << test.name;
        MFormDriver::Click(form, button.objectName());
        EXPECT_EQ(button.Value(), test.afterTwo) << test.name;
        EXPECT_EQ(clicks, 2) << test.name;
        button.SetValue(!button.Value());
        button.SetEnabled(false);
        MFormDriver::Click(form, button.objectName());
        EXPECT_EQ(clicks, 2) << test.name << ": neither code nor a click while disabled is a click";
    }
}

TEST(Buttons, ClearControlGroupSparesTheNamedElementAlone) {
    CScriptedPlatform platform;
    FButtons form;
    for (int i = 0; i < 3; ++i)
        form.optFilter[i].SetControlGroup("group");
    form.optOther.SetControlGroup("group");
    form.chkFlying.SetControlGroup("Group");
    const auto allOn = [&] {
        for (int i = 0; i < 3; ++i)
            form.optFilter[i].SetValue(true);
        for (QXColorButton* button : {static_cast<QXColorButton*>(&form.optOther), &form.chkFlying})
            button->SetValue(true);
    };
    const auto on = [&] {
        std::string values;
        for (int i = 0; i < 3; ++i)
            values += form.optFilter[i].Value() ? '1' : '0';
        return values + (form.optOther.Value() ? '1' : '0') + (form.chkFlying.Value() ? '1' : '0');
    };
    struct {
        const char* name;
        int index;
        const char* left;
    } const cases[] = {
        {"optFilter", 1, "01001"}, {"optFilter", 9, "00001"}, {"optOther", -1, "00011"}, {"optfilter", 1, "00001"}};
    for (const auto& test : cases) {
        allOn();
        MQXBaseGUIControlsUtils::ClearControlGroup(form, "group", test.name, test.index);
        EXPECT_EQ(on(), test.left) << test.name << test.index;
    }
    EXPECT_TRUE(MQXBaseGUIControlsUtils::HasIndex(form.optFilter[0]));
    EXPECT_FALSE(MQXBaseGUIControlsUtils::HasIndex(form.cmdGo));
    EXPECT_THROW(form.cmdGo.Index(), CRuntimeError);
    EXPECT_THROW(form.optFilter[3], CRuntimeError);
}

TEST(Buttons, ScreenReadersFindRoleNameAndState) {
    CScriptedPlatform platform;
    FButtons form;
    form.cmdGo.SetCaption("\xE8");
    form.cmdGo.SetFontName("Wingdings");
    form.chkFlying.SetCaption("Flyer");
    form.chkFlying.SetValue(true);
    form.optFilter[0].SetCaption("R&D");
    struct {
        QWidget* widget;
        const char* name;
        QAccessible::Role role;
        bool checked;
    } const cases[] = {{&form.cmdGo, "Next", QAccessible::Button, false},
                       {&form.chkFlying, "Flyer", QAccessible::CheckBox, true},
                       {&form.optFilter[0], "R&D", QAccessible::RadioButton, false}};
    for (const auto& test : cases) {
        const QAccessibleInterface* found = QAccessible::queryAccessibleInterface(test.widget);
        ASSERT_NE(found, nullptr);
        EXPECT_EQ(found->text(QAccessible::Name), QString::fromLatin1(test.name));
        EXPECT_EQ(found->role(), test.role) << test.name;
        EXPECT_EQ(found->state().checked, test.checked) << test.name;
    }
}

// The selected Sci-Fi caption, green on light blue, is outlined; without the outline no pixel would be dark.
TEST(Buttons, CaptionThatIsHardToReadGetsADarkOutline) {
    CScriptedPlatform platform;
    FButtons form;
    QXColorButton& button = form.optFilter[0];
    button.SetCaption("Automatic Fire");
    button.SetSelectedColor(0xff8080);
    button.SetSelectedForeColor(0x00ff00);
    button.SetValue(true);
    button.resize(160, 35);
    const QImage image = button.grab().toImage();
    int dark = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            dark += image.pixelColor(x, y).lightness() < 60 ? 1 : 0;
    }
    EXPECT_GT(dark, 100);
}
