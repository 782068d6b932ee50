// The main program of tests that show windows: offscreen, fixed locale and resolution, a home folder of its own.

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "controls/qt_application.h"

int main(int argc, char** argv) {
    const QTemporaryDir home;
    qputenv("HOME", home.path().toUtf8());
    qputenv("XDG_RUNTIME_DIR", home.path().toUtf8());
    for (const char* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "QT_SCALE_FACTOR"})
        qunsetenv(name);
    qputenv("LC_ALL", "C.UTF-8");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_FONT_DPI", "96");
    qputenv("QT_LOGGING_RULES", "*.warning=false");
    testing::InitGoogleTest(&argc, argv);
    CQtApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
