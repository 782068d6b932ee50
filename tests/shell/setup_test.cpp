#include <QApplication>
#include <QTest>

#include "shell/setup_test.h"

#include <QAbstractItemView>

#include "shell/console.h"

namespace fs = std::filesystem;

using namespace MFormDriver;
using enum BoxAnswer;

namespace {

TEST_F(SetupTest, OpensAFileAfterAskingAboutTheModifiedDocument) {
    OpenOnSamples();
    SetModified(true);
    for (const auto& file : kWorkingFiles) {
        SCOPED_TRACE(file.kind);
        const std::string there = Save("there", file.sample);
        for (const std::string& name : {Save("other", "no document"), there}) {
            ExpectQuestion(file.title + " modified, save changes to file?", No);
            platform_.ExpectOpen(name);
            if (name != there) Expect(BoxKind::Warning, file.failureToRead);
            Click(file.select);
            ExpectPath(file, name);
            EXPECT_EQ(Holds(file, file.sampleEntry), name == there);
        }
    }
    EXPECT_EQ(Modified(), "012") << "the marks outlive the load";
}

TEST_F(SetupTest, CancelAndNoChangeNothingAndYesCreatesAFile) {
    OpenOnSamples();
    for (const auto& file : kWorkingFiles) {
        SCOPED_TRACE(file.kind);
        const std::string path = file.path();
        const std::string fresh = folder_ / ("fresh " + file.kind);
        platform_.ExpectOpen("/v1");
        platform_.ExpectSave("");
        Click(file.import);
        platform_.ExpectSave("");
        Click(file.saveAs);
        platform_.ExpectOpen("");
        Click(file.select);
        for (const BoxAnswer answer : {No, Yes}) {
            platform_.ExpectOpen(fresh);
            ExpectQuestion("File \"" + fresh + "\" does not exits. Do you wish to create a new " + file.kind + "?",
                           answer);
            Click(file.select);
            ExpectPath(file, answer == Yes ? fresh : path);
            EXPECT_EQ(fs::exists(fresh), answer == Yes);
            EXPECT_EQ(Holds(file, file.sampleEntry), answer == No);
        }
        EXPECT_EQ(ReadBytes(path), file.sample) << "the former file has changed";
    }
    EXPECT_EQ(Modified(), "");
    // The army list's path, whose file has gone, passes for a file in each group.
    fs::remove(MGlobal::ArmyListFile());
    platform_.ExpectOpen(MGlobal::ArmyListFile());
    Expect(BoxKind::Warning, kWorkingFiles[0].failureToRead);
    Click("cmdEqFileSelect");
}

TEST_F(SetupTest, SavesAllInOrderAndAsksForNamesThatLack) {
    SetModified(true);
    MGlobal::SetArmyListFile(folder_ / "none/a.v2l");
    Open();
    ExpectQuestion("Save all files?", No);
    Click("cmdSave");
    ExpectQuestion("Save all files?", Yes);
    platform_.ExpectSave(folder_ / "a.v2q");
    Expect(BoxKind::Warning, "Error while saving army list.");
    platform_.ExpectSave("");
    Click("cmdSave");
    EXPECT_TRUE(fs::exists(folder_ / "a.v2q"));
    EXPECT_EQ(Modified(), "01");
    EXPECT_TRUE(Find(*form_, "cmdEqFileSave")->isEnabled());
    auto& save = Get<QXColorButton>(*form_, "cmdArmyRosterFileSave");
    EXPECT_FALSE(save.Enabled()) << "it has no path";
    QTest::mouseMove(form_->windowHandle(), save.mapTo(form_.get(), save.rect().center()));
    QApplication::processEvents();
    EXPECT_EQ(Get<QXLabel>(*form_, "lblTip").Caption(), "Save data to file") << "disabled buttons have their tips too";
    EXPECT_EQ(save.BorderStyle(), 0) << "highlighted while disabled";
}

TEST_F(SetupTest, PathGetsItsExtensionWhenItsFieldIsLeftAndLoadAllDoesNothing) {
    MGlobal::SetEquipmentFile("/x/\xC3\xA9\xE9.V2Q");
    Open();
    Type(*form_, "tedEqFile", "z");  // it is locked
    Type(*form_, "tedArmyListFile", "z");
    Click("cmdLoad");
    ExpectPath(kWorkingFiles[0], "/x/\xC3\xA9\xE9.V2Q.v2q");
    auto& field = Get<QXTextEdit>(*form_, "tedEqFile");
    EXPECT_TRUE(field.text().startsWith(QStringLiteral(u"/x/\u00E9")));
    ExpectPath(kWorkingFiles[1], "");
    field.SetText("/" + std::string(200, 'W') + "/<b>/z.v2q");
    const int height = Find(*form_, "frmSupportFiles(2)")->height();
    form_->resize(form_->width(), form_->height() + 200);
    auto& tip = Get<QXLabel>(*form_, "lblTip");
    tip.SetCaption(std::string(300, 'W'));
    form_->grab();
    EXPECT_FALSE(tip.toolTip().isEmpty()) << "an elided text has no tip with the whole";
    EXPECT_EQ(field.cursorPositionAt({field.width(), 9}), field.text().size()) << "a long path shows its end";
    EXPECT_TRUE(field.toolTip().contains("&lt;b&gt;/z.v2q")) << field.toolTip().toStdString();
    EXPECT_EQ(Find(*form_, "frmSupportFiles(2)")->height(), height) << "height to spare goes below the frames";
}

TEST_F(SetupTest, OnlyOkStoresThePathsAndNothingUndoesThem) {
    const std::string settings = folder_ / "vdtools2.ini";
    const std::string chosen = folder_ / "b.v2l";
    Open();
    platform_.ExpectSave(chosen);
    Click("cmdArmyListFileSaveAs");
    SetModified(true);  // nobody asks
    Click("cmdCancel");
    EXPECT_FALSE(form_->Visible());
    EXPECT_EQ(MGlobal::ArmyListFile(), chosen);
    EXPECT_EQ(ReadBytes(settings), "");
    // A line break can't be stored; the other paths are tried all the same.
    MGlobal::SetArmyRosterFile("/r\n");
    MGlobal::SetEquipmentFile("/e\re");
    Open();
    Expect(BoxKind::Critical, "Error while saving defualt settings.");
    Click("cmdOK");
    EXPECT_FALSE(form_->Visible());
    EXPECT_EQ(ReadBytes(settings), Lines({"[Files]", "ArmyListFile=" + chosen}));
}

bool Shows(QWidget& control, const QColor& colour) {
    const QImage image = control.grab().toImage();
    for (int pixel = 0; pixel < image.width() * image.height(); ++pixel) {
        if (image.pixelColor(pixel % image.width(), pixel / image.width()) == colour) return true;
    }
    return false;
}

// All forms that the console opens, and itself.
TEST_F(SetupTest, TextsCanBeReadAndCostsAreWholeInBothSkins) {
    const auto check = [](CForm& form) {
        for (IControl* control : form.Controls()) {
            SCOPED_TRACE(form.Name() + "." + control->Name());
            auto* button = dynamic_cast<QXColorButton*>(control);
            for (const bool on : {false, true}) {
                if (button != nullptr) button->SetValue(on);
                EXPECT_GE(Contrast(control->Ink().text, control->Ink().ground), 4.5);
                if (button == nullptr || button->Caption().empty()) continue;
                button->SetFontSize(40);  // letters with pixels that are theirs alone, and room for them
                button->resize(600, 90);
                EXPECT_TRUE(Shows(*button, button->Ink().text)) << "is painted in another colour than it tells";
                button->SetFontSize(12);
            }
        }
        if (auto* cost = dynamic_cast<QXTextEdit*>(form.FindControl("tedPointCost"))) {
            form.resize(form.minimumSize());
            cost->SetText("-1.23456789012345E-300");
            form.grab();
            EXPECT_EQ(cost->cursorPositionAt({cost->width(), 9}) - cost->cursorPositionAt({0, 9}), 22) << form.Name();
            EXPECT_EQ(cost->Ink().ground == ToQColor(form.BackColor()), cost->Locked()) << "looks open, and is not";
            for (auto* list : form.findChildren<QAbstractItemView*>())
                EXPECT_TRUE(!list->isVisible() || list->height() >= list->minimumSizeHint().height()) << "squeezed";
        }
        form.Unload();
    };
    for (const int skin : {1, 2}) {
        MGlobal::SetSkinId(skin);
        FConsole console;
        console.ShowNonModal();
        for (const char* button : {"cmdFiles", "cmdArmyComposer", "cmdArmyList", "cmdSquadComposer", "cmdUnitMaker",
                                   "cmdWeaponMaker", "cmdAccessoryMaker", "cmdAbout"}) {
            WhileModal(check);
            MFormDriver::Click(console, button);
        }
        check(console);
    }
}

}  // namespace
