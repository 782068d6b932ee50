// The guided tour: drives the whole program as a player would, real windows, boxes and dialogs included, from an empty
// home to a saved roster page. It checks what it sees and leaves a picture of every form, in both skins, and the pages
// that it made.
//
// tour <folder for pictures and pages>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>
#include <algorithm>

#include "controls/ansi_qt.h"
#include "controls/qt_application.h"
#include "controls/qt_platform.h"
#include "shell/main_procedure.h"
#include "tour/composer_chapter.h"
#include "tour/maker_chapter.h"
#include "tour/setup_chapter.h"
#include "tour/squad_chapter.h"
#include "tour/unit_chapter.h"

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

bool CopyAll(const QString& from, const QString& to) {
    const QDir folder(from);
    const QStringList names = folder.entryList(QDir::Files);
    return !names.isEmpty() && std::all_of(names.begin(), names.end(), [&](const QString& name) {
        return QFile::copy(folder.filePath(name), to + name);
    });
}

// What an installation gives a new player: the support file and the sample army, with settings that name it. He has
// brought an army of the previous release along.
bool FurnishHome(const QString& home) {
    const QString data = home + u"/Data/"_s;
    const bool copied = QDir().mkpath(data) &&
                        QFile::copy(QStringLiteral(TOUR_SUPPORT_FILE), home + u"/SuppData.vdx"_s) &&
                        CopyAll(QStringLiteral(TOUR_SAMPLE), data) && CopyAll(QStringLiteral(TOUR_FORMER_SAMPLE), data);
    QFile settings(home + u"/vdtools2.ini"_s);
    if (!copied || !settings.open(QIODevice::WriteOnly)) return false;
    settings.write("[Files]\r\nEquipmentFile=" + QFile::encodeName(data + u"Harrow March.v2q"_s) +
                   "\r\nArmyListFile=" + QFile::encodeName(data + u"Harrow March.v2l"_s) +
                   "\r\nArmyRosterFile=" + QFile::encodeName(data + u"Harrow March.v2r"_s) + "\r\n");
    return true;
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

/// The console itself, and the information dialog behind it.
class CConsoleChapter : public CChapter {
  public:
    using CChapter::CChapter;

    void LookAtTheConsole(const QString& picture) {
        guide_.At(u"FConsole"_s, u"the console opens, and tells what a button is for"_s,
                  [this, picture](QWidget& console) {
                      guide_.Hover(console, u"cmdArmyComposer"_s);
                      guide_.CheckEqual(guide_.TextOf(console, u"lblTip"_s), u"Compose your army"_s, u"tip"_s);
                      guide_.Picture(console, picture);
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

    void Leave() {
        guide_.At(u"FConsole"_s, u"quits"_s, [this](QWidget& console) { guide_.Click(console, u"cmdQuit"_s); });
        guide_.At(u"QMessageBox"_s, u"saves the roster on the way out"_s, [this](QWidget& box) {
            guide_.Picture(box, u"save_question"_s);
            guide_.Answer(box, u"Yes"_s);
        });
    }
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
    for (const QString& page : {u"/ford_watch.html"_s, u"/ford_watch.pdf"_s})
        QFile::remove(folder + page);

    CGuide guide(folder);
    CTourPlatform platform(ToPath(home.path()), guide);
    MPlatform::Install(&platform);
    CConsoleChapter console(guide, home.path(), folder);
    CSetupChapter setup(guide, home.path(), folder);
    CComposerChapter composer(guide, home.path(), folder);
    CMakerChapter maker(guide, home.path(), folder);
    CUnitChapter unit(guide, home.path(), folder);
    CSquadChapter squad(guide, home.path(), folder);
    console.LookAtTheConsole(u"console_scifi"_s);
    console.ReadAbout(u"about_scifi"_s);
    setup.StartAnArmyList();
    setup.ImportTheFormerRelease();
    setup.MergeTwoArmies();
    setup.OpenTheWrongFiles();
    maker.DesignAWeapon();
    maker.DesignAnAccessory();
    unit.DesignAnOfficer();
    unit.DesignAVehicle();
    unit.DesignARobotFlyer();
    unit.WalkAndSave();
    squad.SeeTheSampleSquads();
    composer.PickAnArmy();
    composer.ViewAUnit();
    composer.ViewAndSaveTheRoster();
    composer.MindThePicture();
    composer.LeaveTheComposer();
    setup.SwitchTheSkin();
    console.ReadAbout(u"about_fantasy"_s);
    console.LookAtTheConsole(u"console_fantasy"_s);
    maker.SeeTheOtherSkin();
    unit.SeeTheOtherSkin();
    composer.SeeTheOtherSkin();
    squad.ComposeAPatrol();
    squad.SendItToTheArmy();
    squad.ChangeAWeapon();
    squad.UpdateTheList();
    squad.PrintTheRoster();
    console.Leave();
    guide.Start();
    const std::unique_ptr<CForm> form = MApp::Main();
    guide.Check(form != nullptr, u"the program didn't start"_s);
    form->Run();
    guide.Check(guide.Finished(), u"the program ended before the tour did"_s);
    guide.Check(platform.SplashSeen(), u"nobody saw the splash"_s);
    composer.CheckSavedRoster();
    QTextStream(stdout) << "The tour is done. Pictures and pages: " << folder << "\n";
    return 0;
}
