#include <gtest/gtest.h>

#include <QAccessible>

#include "controls/color_button.h"
#include "controls/control_array.h"
#include "support/form_driver.h"
#include "support/scripted_platform.h"

TEST(Buttons, ClickTogglesHoldsOrLeavesTheValue) {
    CScriptedPlatform platform;
    CForm form{"FButtons"};
    QXColorButton cmdGo{&form, "cmdGo"};
    QXColorButton chkFlying{&form, "chkFlying"};
    QXColorButton cmdSkin{&form, "cmdSkin"};
    CControlArray<QXColorButton, 3> optFilter{&form, "optFilter"};
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
        button->SetToolTipText("1 < 2");
        const QString description = QAccessible::queryAccessibleInterface(button)->text(QAccessible::Description);
        EXPECT_EQ(description.toStdString(), "1 < 2");
        button->SetValue(!button->Value());
        button->SetEnabled(false);
        MFormDriver::Click(form, name);
        EXPECT_EQ(clicks, 2) << "neither code nor a click while disabled is a click";
    }
}
