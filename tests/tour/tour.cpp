// The guided tour: drives the whole program as a player would, real windows, boxes and dialogs included, from an empty
// home to a saved roster page. It checks what it sees and leaves a picture of every form, in both skins, and the pages
// that it made.
//
// tour <folder for pictures and pages>

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>

#include "controls/ansi_qt.h"
#include "controls/qt_application.h"
#include "controls/qt_platform.h"
#include "core/state/global.h"
#include "shell/main_procedure.h"
#include "tour/guide.h"
#include "units/army_list.h"
#include "units/army_roster.h"

namespace {

using namespace Qt::StringLiterals;

// The real platform, at home in a folder of the tour's own.
class CTourPlatform : public CQtPlatform {
  public:
    CTourPlatform(std::string home, CGuide& guide) : home_(std::move(home)), guide_(guide) {}

    std::string ApplicationFolder() const override { return home_; }
    std::string ExecutableName() const override { return "vdtools2"; }
    void ProcessEvents() override {
        CQtPlatform::ProcessEvents();
        if (splashSeen_) return;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() != "FSplash"_L1 || !window->isVisible()) continue;
            guide_.Picture(*window, u"splash"_s);
            splashSeen_ = true;
        }
    }
    bool SplashSeen() const { return splashSeen_; }

  private:
    std::string home_;
    CGuide& guide_;
    bool splashSeen_ = false;
};

QByteArray Content(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// What an installation gives a new player: the support file and the sample army, with settings that name it.
bool FurnishHome(const QString& home) {
    const QDir sample(QStringLiteral(TOUR_SAMPLE));
    const QString data = home + u"/Data/"_s;
    bool done = QDir().mkpath(data) && QFile::copy(QStringLiteral(TOUR_SUPPORT_FILE), home + u"/SuppData.vdx"_s);
    for (const QString& name : sample.entryList(QDir::Files))
        done = done && QFile::copy(sample.filePath(name), data + name);
    QFile settings(home + u"/vdtools2.ini"_s);
    done = done && settings.open(QIODevice::WriteOnly);
    settings.write("[Files]\r\nEquipmentFile=" + QFile::encodeName(data + u"Harrow March.v2q"_s) +
                   "\r\nArmyListFile=" + QFile::encodeName(data + u"Harrow March.v2l"_s) +
                   "\r\nArmyRosterFile=" + QFile::encodeName(data + u"Harrow March.v2r"_s) + "\r\n");
    return done;
}

// Without a display the windows open on a screen as large as the one that they are made for, not on the toolkit's small
// one.
void ChooseScreen(const QString& folder) {
    if (qEnvironmentVariable("QT_QPA_PLATFORM") != "offscreen"_L1) return;
    const double scale = qEnvironmentVariable("QT_SCALE_FACTOR", u"1"_s).toDouble();
    QFile screen(folder + u"/screen.json"_s);
    if (!screen.open(QIODevice::WriteOnly)) return;
    screen.write(
        QStringLiteral("{\"screens\": [{\"name\": \"tour\", \"x\": 0, \"y\": 0, \"width\": %1, \"height\": %2}]}")
            .arg(int(1280 * scale))
            .arg(int(800 * scale))
            .toUtf8());
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(screen.fileName()));
}

class CTour {
  public:
    CTour(CGuide& guide, const QString& home, const QString& folder) : guide_(guide), home_(home), folder_(folder) {}

    void Plan() {
        LookAtTheConsole();
        ReadAbout(u"about_scifi"_s);
        PickAnArmy();
        ViewAUnit();
        ViewAndSaveTheRoster();
        MindThePicture();
        LeaveTheComposer();
        SwitchTheSkin();
        SeeTheOtherSkin();
        Leave();
    }

    // After the program has ended: what is on the disk.
    void CheckSavedRoster() {
        CArmyRoster roster;
        guide_.Check(roster.ReadInfo(ToPath(home_ + u"/Data/Harrow March.v2r"_s)), u"the saved roster can't be read"_s);
        guide_.CheckEqual(FromAnsi(roster.Name()), u"Ford Watch"_s, u"name of the saved roster"_s);
        guide_.CheckEqual(int(roster.ArmyUnits().Count()), 15, u"entries of the saved roster"_s);
    }

  private:
    void LookAtTheConsole() {
        guide_.At(u"FConsole"_s, u"the console opens, and tells what a button is for"_s, [this](QWidget& console) {
            guide_.Hover(console, u"cmdArmyComposer"_s);
            guide_.CheckEqual(guide_.TextOf(console, u"lblTip"_s), u"Compose your army"_s, u"tip"_s);
            guide_.Picture(console, u"console_scifi"_s);
        });
    }

    void ReadAbout(const QString& picture) {
        guide_.At(u"FConsole"_s, u"the player reads about the program"_s,
                  [this](QWidget& console) { guide_.Click(console, u"cmdAbout"_s); });
        guide_.At(u"FAbout"_s, u"the information dialog"_s, [this, picture](QWidget& about) {
            guide_.Hover(about, u"cmdOK"_s);
            guide_.Picture(about, picture);
            guide_.Click(about, u"cmdOK"_s);
        });
    }

    void PickAnArmy() {
        guide_.At(u"FConsole"_s, u"opens the Army Composer"_s,
                  [this](QWidget& console) { guide_.Click(console, u"cmdArmyComposer"_s); });
        guide_.At(u"FArmyComposer"_s, u"finds the sample roster and its total"_s, [this](QWidget& composer) {
            guide_.CheckEqual(guide_.TextOf(composer, u"tedPointCost"_s), u"1269"_s, u"total of the sample roster"_s);
            guide_.CheckEqual(guide_.TextOf(composer, u"frmTarget"_s), u"Units in Army: 14"_s, u"caption"_s);
            guide_.ClickRow(composer, u"lstUnits"_s, u"Ash Drake and Rider"_s);
            guide_.ClickRow(composer, u"lstRosterUnits"_s, u"Coil Fusilier"_s);
            guide_.Picture(composer, u"army_composer_scifi"_s);
        });
        guide_.At(u"FArmyComposer"_s, u"adds a squad: 183.5 points more"_s, [this](QWidget& composer) {
            guide_.Choose(composer, u"cmbUnitType"_s, u"Squads"_s);
            guide_.DoubleClickRow(composer, u"lstUnits"_s, u"Hedge Fire"_s);
            guide_.CheckEqual(guide_.TextOf(composer, u"tedPointCost"_s), u"1452.5"_s, u"total with the squad"_s);
        });
        guide_.At(u"FArmyComposer"_s, u"adds a rider and takes him out again"_s, [this](QWidget& composer) {
            guide_.Choose(composer, u"cmbUnitType"_s, u"Flyers"_s);
            guide_.ClickRow(composer, u"lstUnits"_s, u"Skyhook Lancer"_s);
            guide_.Click(composer, u"cmdAddUnit"_s);
            guide_.CheckEqual(guide_.TextOf(composer, u"tedPointCost"_s), u"1503.5"_s, u"total with the rider"_s);
            guide_.ClickRow(composer, u"lstRosterUnits"_s, u"Skyhook Lancer"_s);
            guide_.Click(composer, u"cmdRemoveUnit"_s);
            guide_.CheckEqual(guide_.TextOf(composer, u"tedPointCost"_s), u"1452.5"_s, u"total without the rider"_s);
        });
        guide_.At(u"FArmyComposer"_s, u"puts the squad further up and names the army"_s, [this](QWidget& composer) {
            guide_.ClickRow(composer, u"lstRosterUnits"_s, u"Hedge Fire"_s);
            guide_.Click(composer, u"cmdUnitMoveUp"_s);
            guide_.CheckEqual(int(MGlobal::ArmyRoster().ArmyUnits().GetIndex("HEDGE FIRE")), 14,
                              u"place of the squad"_s);
            guide_.Type(composer, u"tedName"_s, u"Ford Watch"_s);
        });
        guide_.At(u"FArmyComposer"_s, u"brings the costs up to date"_s,
                  [this](QWidget& composer) { guide_.Click(composer, u"cmdMenu(1)"_s); });
        guide_.At(u"QMessageBox"_s, u"is told that it is done"_s, [this](QWidget& box) {
            guide_.Picture(box, u"update_costs_box"_s);
            guide_.Answer(box, u"OK"_s);
        });
        guide_.At(u"FArmyComposer"_s, u"finds the same total"_s, [this](QWidget& composer) {
            guide_.CheckEqual(guide_.TextOf(composer, u"tedPointCost"_s), u"1452.5"_s, u"total after the update"_s);
        });
    }

    void ViewAUnit() {
        guide_.At(u"FArmyComposer"_s, u"looks at a unit"_s, [this](QWidget& composer) {
            guide_.Choose(composer, u"cmbUnitType"_s, u"All"_s);
            guide_.ClickRow(composer, u"lstUnits"_s, u"Hedge Fire"_s);
            guide_.Click(composer, u"cmdShowSelUnit"_s);
        });
        guide_.At(u"FUnitViewer"_s, u"the unit viewer"_s, [this](QWidget& viewer) {
            guide_.Picture(viewer, u"unit_viewer_scifi"_s);
            guide_.Click(viewer, u"cmdExit"_s);
        });
    }

    void ViewAndSaveTheRoster() {
        guide_.At(u"FArmyComposer"_s, u"views the roster"_s,
                  [this](QWidget& composer) { guide_.Click(composer, u"cmdMenu(3)"_s); });
        guide_.At(u"FArmyRoster"_s, u"the roster page; saves it"_s, [this](QWidget& viewer) {
            guide_.CheckEqual(viewer.windowTitle(), u"Ford Watch"_s, u"caption of the roster window"_s);
            guide_.Picture(viewer, u"army_roster_scifi"_s);
            guide_.Click(viewer, u"cmdSaveAs"_s);
        });
        guide_.At(u"QFileDialog"_s, u"the save dialog offers the army's name"_s, [this](QWidget& dialog) {
            auto* name = dialog.findChild<QLineEdit*>();
            guide_.CheckEqual(QFileInfo(name->text()).fileName(), u"Ford Watch.html"_s, u"name offered"_s);
            guide_.Picture(dialog, u"save_dialog"_s);
            name->setText(folder_ + u"/ford_watch.html"_s);
            guide_.Answer(dialog, u"Save"_s);
        });
        guide_.At(u"FArmyRoster"_s, u"the saved page is the page shown"_s, [this](QWidget& viewer) {
            const QByteArray page = Content(folder_ + u"/ford_watch.html"_s);
            guide_.Check(page.contains("<H3>Total Cost: 1452.5</H3>"), u"the saved page lacks the total"_s);
            guide_.Check(page == Content(home_ + u"/tmproster.html"_s), u"the saved page is not the page shown"_s);
            guide_.Click(viewer, u"cmdExit"_s);
        });
    }

    void MindThePicture() {
        guide_.At(u"FArmyComposer"_s, u"clears the picture, and mistypes another"_s, [this](QWidget& composer) {
            guide_.Click(composer, u"cmdPictureFileClear"_s);
            guide_.CheckEqual(guide_.TextOf(composer, u"tedPictureFile"_s), QString(), u"picture cleared"_s);
            QTest::keyClicks(composer.findChild<QLineEdit*>(u"tedPictureFile"_s), u"x"_s);
        });
        guide_.At(u"QMessageBox"_s, u"is told that there is no such picture"_s, [this](QWidget& box) {
            guide_.Picture(box, u"picture_box"_s);
            guide_.Answer(box, u"OK"_s);
        });
        guide_.At(u"FArmyComposer"_s, u"selects the old one again"_s,
                  [this](QWidget& composer) { guide_.Click(composer, u"cmdPictureFileSelect"_s); });
        guide_.At(u"QFileDialog"_s, u"the picture dialog"_s, [this](QWidget& dialog) {
            dialog.findChild<QLineEdit*>()->setText(home_ + u"/Data/harrow_march.jpg"_s);
            guide_.Answer(dialog, u"Open"_s);
        });
    }

    void LeaveTheComposer() {
        guide_.At(u"FArmyComposer"_s, u"closes the composer"_s, [this](QWidget& composer) {
            guide_.CheckEqual(guide_.TextOf(composer, u"tedPictureFile"_s), home_ + u"/Data/harrow_march.jpg"_s,
                              u"picture"_s);
            guide_.Click(composer, u"cmdExit"_s);
        });
    }

    void SwitchTheSkin() {
        guide_.At(u"FConsole"_s, u"switches to the Fantasy skin"_s, [](QWidget&) { MGlobal::SetSkinId(2); });
        ReadAbout(u"about_fantasy"_s);
    }

    void SeeTheOtherSkin() {
        guide_.At(u"FConsole"_s, u"the console in the other skin"_s, [this](QWidget& console) {
            guide_.Hover(console, u"cmdArmyComposer"_s);
            guide_.Picture(console, u"console_fantasy"_s);
            guide_.Click(console, u"cmdArmyComposer"_s);
        });
        guide_.At(u"FArmyComposer"_s, u"the composer in the other skin"_s, [this](QWidget& composer) {
            guide_.ClickRow(composer, u"lstUnits"_s, u"Keep Crawler"_s);
            guide_.ClickRow(composer, u"lstRosterUnits"_s, u"Ash Drake and Rider"_s);
            guide_.Picture(composer, u"army_composer_fantasy"_s);
            guide_.Click(composer, u"cmdShowSelUnit"_s);
        });
        guide_.At(u"FUnitViewer"_s, u"the unit viewer in the other skin"_s, [this](QWidget& viewer) {
            guide_.Picture(viewer, u"unit_viewer_fantasy"_s);
            guide_.Click(viewer, u"cmdExit"_s);
        });
        guide_.At(u"FArmyComposer"_s, u"views the roster on parchment"_s,
                  [this](QWidget& composer) { guide_.Click(composer, u"cmdMenu(3)"_s); });
        guide_.At(u"FArmyRoster"_s, u"the roster page on parchment"_s, [this](QWidget& viewer) {
            guide_.Picture(viewer, u"army_roster_fantasy"_s);
            guide_.Click(viewer, u"cmdExit"_s);
        });
        guide_.At(u"FArmyComposer"_s, u"closes the composer"_s,
                  [this](QWidget& composer) { guide_.Click(composer, u"cmdExit"_s); });
    }

    void Leave() {
        guide_.At(u"FConsole"_s, u"quits"_s, [this](QWidget& console) { guide_.Click(console, u"cmdQuit"_s); });
        guide_.At(u"QMessageBox"_s, u"saves the roster on the way out"_s, [this](QWidget& box) {
            guide_.Picture(box, u"save_question"_s);
            guide_.Answer(box, u"Yes"_s);
        });
    }

    CGuide& guide_;
    QString home_;
    QString folder_;
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        QTextStream(stderr) << "usage: tour <folder for pictures and pages>\n";
        return 2;
    }
    const QString folder = QFileInfo(QFile::decodeName(argv[1])).absoluteFilePath();
    const QTemporaryDir home;
    if (!home.isValid() || !QDir().mkpath(folder) || !FurnishHome(home.path())) {
        QTextStream(stderr) << "The tour can't prepare its folders.\n";
        return 2;
    }
    ChooseScreen(home.path());
    CQtApplication application(argc, argv);
    QFile::remove(folder + u"/ford_watch.html"_s);

    CGuide guide(folder);
    CTourPlatform platform(ToPath(home.path()), guide);
    MPlatform::Install(&platform);
    CTour tour(guide, home.path(), folder);
    tour.Plan();
    guide.Start();
    const std::unique_ptr<CForm> console = MApp::Main();
    guide.Check(console != nullptr, u"the program didn't start"_s);
    console->Run();
    guide.Check(guide.Finished(), u"the program ended before the tour did"_s);
    guide.Check(platform.SplashSeen(), u"nobody saw the splash"_s);
    tour.CheckSavedRoster();
    QTextStream(stdout) << "The tour is done. Pictures and pages: " << folder << "\n";
    return 0;
}
