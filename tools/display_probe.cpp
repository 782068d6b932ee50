// Succeeds where the desktop's display lets a program open a window. Where it refuses, the toolkit ends the process.

#include <QGuiApplication>

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    return 0;
}
