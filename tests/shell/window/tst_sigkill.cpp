// "Расклад сохранен" is a promise: once the player has seen it, the record is
// in save.txt. A child process runs the game, saves, and is killed with SIGKILL
// the moment the box appears; the record must be there, whole and on one line,
// and the next run of the game must find it.
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <thread>

#include "shell/window/form2.h"
#include "store/codepage.h"
#include "support/game.h"

using namespace vorn;
using namespace vorn::test;

namespace {

const char* const kChildFlag = "--saving-child";
const QString kTyped = QString::fromUtf8("Анна\nБорис");   // typed with a line break
const QString kStored = QString::fromUtf8("Анна Борис");   // as the record keeps it

// The child's boxes: the name is typed, and the game dies as "saved" appears.
class KillOnSaved final : public shell::Prompts {
public:
    Answer message(QWidget*, const QString& text, const QString&, Buttons, Icon) override {
        if (text == QString::fromUtf8("Расклад сохранен")) ::raise(SIGKILL);
        std::fprintf(stderr, "child: unexpected box: %s\n", qPrintable(text));
        std::_Exit(4);
    }
    QString input(QWidget*, const QString&, const QString&, const QString&) override { return kTyped; }
    void exec(QDialog&) override {}
};

// The child: start the game in the folder, New game, Save. It never returns
// normally: SIGKILL ends it inside the Save command.
int runSavingChild(int argc, char** argv, const char* folder) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    KillOnSaved prompts;
    ScriptedRandom random(dealScript(winnablePlace));
    shell::Form2 form(folder, prompts, random);
    form.show();
    form.findChild<QAction*>("ig1")->trigger();
    form.findChild<QAction*>("ig2")->trigger();
    std::fprintf(stderr, "child: the Save command ended without its box\n");
    return 3;
}

QByteArray dealtRaskl() {
    Board b = Board::loaded();
    ScriptedRandom random(dealScript(winnablePlace));
    b.rasklad(random);
    return QByteArray::fromStdString(b.raskl);
}

QByteArray fileBytes(const QTemporaryDir& dir, const char* name) {
    QFile f(dir.filePath(QString::fromLatin1(name)));
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<none>");
}

// Waits for the child; a child still alive after a minute is killed and reported.
int waitFor(pid_t child) {
    int status = 0;
    for (int waited = 0; waited < 600; ++waited) {
        const pid_t done = ::waitpid(child, &status, WNOHANG);
        if (done == child) return status;
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    ::kill(child, SIGKILL);
    ::waitpid(child, &status, 0);
    return -1;
}

}  // namespace

class SigkillTest : public QObject {
    Q_OBJECT
private slots:
    void recordSurvivesAKillRightAfterSaveOk();
};

void SigkillTest::recordSurvivesAKillRightAfterSaveOk() {
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QByteArray folder = dir.path().toLocal8Bit();
    const pid_t child = ::fork();
    QVERIFY(child >= 0);
    if (child == 0) {
        ::execl("/proc/self/exe", "tst_sigkill", kChildFlag, folder.constData(), static_cast<char*>(nullptr));
        std::_Exit(127);
    }
    const int status = waitFor(child);
    QVERIFY2(status != -1, "the saving child hung");
    QVERIFY2(WIFSIGNALED(status), qPrintable(QString("child exited with %1").arg(WEXITSTATUS(status))));
    QCOMPARE(WTERMSIG(status), SIGKILL);

    const QByteArray raskl = dealtRaskl();
    const QByteArray name = QByteArray::fromStdString(store::toCp1251(kStored.toStdString()));
    QCOMPARE(fileBytes(dir, "save.txt"), raskl + ", " + name + ", \r\n");
    QCOMPARE(fileBytes(dir, "save1.txt"), raskl + "\r\n");  // no shut-down ran

    // The next run finds the record and lays it out.
    RecordingPrompts prompts;
    ScriptedRandom random({});
    shell::Form2 form(dir.path().toStdString(), prompts, random);
    prompts.handlers.append([](QDialog& d) {
        d.show();
        QTest::mouseClick(d.findChild<QPushButton*>("Command1"), Qt::LeftButton);
        QCOMPARE(d.findChild<QLineEdit*>("Text1")->text(), kStored);
        QTest::mouseClick(d.findChild<QPushButton*>("Command4"), Qt::LeftButton);
    });
    form.findChild<QAction*>("ig3")->trigger();
    QCOMPARE(prompts.shown.size(), 1);
    QCOMPARE(QByteArray::fromStdString(form.board().raskl), raskl);
}

int main(int argc, char** argv) {
    if (argc == 3 && std::strcmp(argv[1], kChildFlag) == 0) return runSavingChild(argc, argv, argv[2]);
    QApplication app(argc, argv);
    SigkillTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_sigkill.moc"
