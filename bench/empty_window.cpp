// The smallest Qt Widgets program with a main window: what the game's start-up is
// measured against (bench/startup.sh times both from outside).
#include <QApplication>
#include <QMainWindow>

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QMainWindow window;
    window.setWindowTitle(QStringLiteral("empty"));
    window.resize(707, 526);
    window.show();
    return app.exec();
}
