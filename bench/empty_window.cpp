// The smallest Qt Widgets program with a main window: what the game's start-up is
// measured against. With VORN_QUIT_AFTER_SHOW=1 it quits as soon as its window has
// been shown, exactly as the game does under that switch.
#include <QApplication>
#include <QMainWindow>
#include <QTimer>

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QMainWindow window;
    window.setWindowTitle(QStringLiteral("empty"));
    window.resize(707, 526);
    window.show();
    // exit(), not quit(): Qt 6's quit() first asks every window to close.
    if (qEnvironmentVariable("VORN_QUIT_AFTER_SHOW") == QLatin1String("1"))
        QTimer::singleShot(0, &app, [] { QCoreApplication::exit(0); });
    return app.exec();
}
