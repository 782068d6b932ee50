// The guided tour: drives the whole program as a player would, real windows, boxes and dialogs included, from an empty
// home to a saved roster page. It checks what it sees and leaves a picture of every form, in both skins, and the pages
// that it made.
//
// tour <folder for pictures and pages>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

#include "controls/ansi_qt.h"
#include "controls/qt_application.h"
#include "controls/qt_platform.h"
#include "shell/main_procedure.h"
#include "tour/tour.h"

namespace {

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
            if (window->objectName() != "FSplash" || !window->isVisible()) continue;
            guide_.Picture(*window, "splash");
            splashSeen_ = true;
        }
    }
    bool SplashSeen() const { return splashSeen_; }

  private:
    std::string home_;
    CGuide& guide_;
    bool splashSeen_ = false;
};

// What an installation gives a new player: the support file and the sample army, with settings that name it. He has
// brought an army of the previous release along.
bool FurnishHome(const QString& home) {
    const QString data = home + "/Data/";
    bool copied = QDir().mkpath(data) && QFile::copy(TOUR_SUPPORT_FILE, home + "/SuppData.vdx");
    for (const char* folder : {TOUR_SAMPLE, TOUR_FORMER_SAMPLE}) {
        for (const QString& name : QDir(folder).entryList(QDir::Files))
            copied = copied && QFile::copy(QDir(folder).filePath(name), data + name);
    }
    QFile settings(home + "/vdtools2.ini");
    if (!copied || !settings.open(QIODevice::WriteOnly)) return false;
    settings.write("[Files]\r\nEquipmentFile=" + QFile::encodeName(data + "Harrow March.v2q") +
                   "\r\nArmyListFile=" + QFile::encodeName(data + "Harrow March.v2l") +
                   "\r\nArmyRosterFile=" + QFile::encodeName(data + "Harrow March.v2r") + "\r\n");
    return true;
}

// Without a display the windows open on a screen as large as the one that they are made for, not on the toolkit's small
// one.
void ChooseScreen(const QString& folder) {
    if (qEnvironmentVariable("QT_QPA_PLATFORM") != "offscreen") return;
    const double scale = qEnvironmentVariable("QT_SCALE_FACTOR", "1").toDouble();
    QFile screen(folder + "/screen.json");
    if (!screen.open(QIODevice::WriteOnly)) return;
    screen.write(QString("{\"screens\": [{\"name\": \"tour\", \"x\": 0, \"y\": 0, \"width\": %1, \"height\": %2}]}")
                     .arg(int(1280 * scale))
                     .arg(int(800 * scale))
                     .toUtf8());
    qputenv("QT_LOGGING_RULES", "default.warning=false");  // what a screen that nobody sees can't do is no news
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(screen.fileName()));
}

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
    for (const char* page : {"/ford_watch.html", "/ford_watch.pdf"})
        QFile::remove(folder + page);

    CGuide guide(folder);
    CTourPlatform platform(ToPath(home.path()), guide);
    MPlatform::Install(&platform);
    CTour tour(guide, home.path(), folder);
    tour.Write();
    guide.Start();
    const std::unique_ptr<CForm> form = MApp::Main();
    guide.Check(form != nullptr, "the program didn't start");
    form->Run();
    guide.Check(guide.Finished(), "the program ended before the tour did");
    guide.Check(platform.SplashSeen(), "nobody saw the splash");
    tour.CheckTheEnd();
    QTextStream(stdout) << "The tour is done. Pictures and pages: " << folder << "\n";
    return 0;
}
