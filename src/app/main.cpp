#include <QIcon>
#include <QPainter>
#include <csignal>

#include "controls/picture.h"
#include "controls/qt_application.h"
#include "controls/qt_platform.h"
#include "shell/main_procedure.h"

namespace {

// As pixels: the toolkit would load a plug-in for the drawing, and draw it for each window anew before it shows.
QIcon ProgramIcon() {
    const PicturePtr drawing = CPicture::FromResource(QStringLiteral(":/icon.svg"));
    QIcon icon;
    for (const int size : {16, 32, 64}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        drawing->Paint(painter, pixmap.rect());
        icon.addPixmap(pixmap);
    }
    return icon;
}

}  // namespace

int main(int argc, char** argv) {
    // The toolkit warns on the standard error. Where whoever read that has gone, a warning would end the program.
    std::signal(SIGPIPE, [](int) {});
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    CQtApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("VdTools2"));
    QGuiApplication::setDesktopFileName(QStringLiteral("vdtools2"));
    QApplication::setWindowIcon(ProgramIcon());

    CQtPlatform platform;
    MPlatform::Install(&platform);
    const std::unique_ptr<CForm> console = MApp::Main();
    if (console == nullptr) return 1;
    console->Run();
    return 0;
}
