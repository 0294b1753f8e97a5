// The game started in folders that hold damaged or odd files: it starts in
// Russian, pages through every line of a damaged store in the load dialog,
// refuses to load a line that cannot be laid out ("Нет расклада"), and never
// changes save.txt unless the player saves.
#include <QAction>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <filesystem>
#include <functional>
#include <memory>
#include <random>

#include "shell/window/language_switch.h"
#include "shell/window/form2.h"
#include "shell/dialogs/form5.h"
#include "store/codepage.h"
#include "support/game.h"

using namespace vorn;
using namespace vorn::test;

namespace {

const QString kRussianTitle = QString::fromUtf8("Тавирен v2.0");
const QString kNothingToLoad = QString::fromUtf8("Нет расклада");
const QString kAtEnd = QString::fromUtf8("Достигнут конец файла");
const QString kSaved = QString::fromUtf8("Расклад сохранен");

// A layout string as a deal writes it; its first field is " 1".
QByteArray layoutLine() {
    QByteArray out;
    for (int i = 0; i < 48; ++i) out += (i ? ", " : " ") + QByteArray::number((i * 7) % 48 + 1);
    return out;
}
const QByteArray kLayout = layoutLine();

QByteArray record(const QByteArray& name) { return kLayout + ", " + name + ", \r\n"; }
QByteArray withFirstField(const QByteArray& field) { return field + kLayout.mid(kLayout.indexOf(',')); }

// Bytes of every value but CR, LF and the comma.
QByteArray binary(int size, unsigned seed) {
    std::mt19937 rng(seed);
    QByteArray bytes;
    while (bytes.size() < size) {
        const char c = static_cast<char>(rng() & 0xFF);
        if (c != '\r' && c != '\n' && c != ',') bytes += c;
    }
    return bytes;
}

using Files = QList<QPair<QString, QByteArray>>;

// The main window started in a folder that already holds the given files and
// directories, with the boxes recorded and the winnable layout as its deal.
struct Started {
    QTemporaryDir dir;
    RecordingPrompts prompts;
    ScriptedRandom random{dealScript(winnablePlace)};
    std::unique_ptr<shell::Form2> form;

    explicit Started(const Files& files, const QStringList& dirs = {}, bool now = true) {
        for (const auto& [name, bytes] : files) put(name, bytes);
        for (const QString& name : dirs) QDir(dir.path()).mkdir(name);
        if (now) start();
    }
    void start() {
        form = std::make_unique<shell::Form2>(dir.path().toStdString(), prompts, random);
        form->show();
        if (!QTest::qWaitForWindowExposed(form.get())) qWarning("the main window was not shown");
    }
    void put(const QString& name, const QByteArray& bytes) const {
        QFile f(dir.filePath(name));
        if (!f.open(QIODevice::WriteOnly) || f.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(name));
    }
    QByteArray file(const char* name) const {
        QFile f(dir.filePath(QString::fromLatin1(name)));
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<none>");
    }
    bool isDirectory(const QString& name) const { return QFileInfo(dir.filePath(name)).isDir(); }
    void trigger(const char* name) const { form->findChild<QAction*>(QString::fromLatin1(name))->trigger(); }
    // The Load command, with the dialog driven by steps.
    void load(const std::function<void(shell::Form5&)>& steps) {
        prompts.handlers.append([steps](QDialog& d) {
            d.show();
            steps(static_cast<shell::Form5&>(d));
        });
        trigger("ig3");
    }
    void quit() {
        prompts.answers.append(Prompts::Answer::Yes);
        form->close();
    }
};

void press(shell::Form5& dialog, const char* button) {
    QTest::mouseClick(dialog.findChild<QPushButton*>(QString::fromLatin1(button)), Qt::LeftButton);
}
QString shownName(shell::Form5& dialog) { return dialog.findChild<QLineEdit*>("Text1")->text(); }

// Does this user's write get stopped by mode bits? Root's does not.
bool modeBitsProtect(const QString& folder) {
    QFile probe(folder + "/probe");
    const bool written = probe.open(QIODevice::WriteOnly);
    probe.remove();
    return !written;
}

}  // namespace

class BadInputTest : public QObject {
    Q_OBJECT
private slots:
    void damagedSettingsMeanRussian_data();
    void damagedSettingsMeanRussian();
    void damagedStoreIsPagedAndNeverHarmed_data();
    void damagedStoreIsPagedAndNeverHarmed();
    void hundredThousandRecordsOpenAndPage();
    void leftoversOfACrashAreEmptied();
    void directoriesInPlaceOfFiles_data();
    void directoriesInPlaceOfFiles();
    void readOnlyFilesAndFolder_data();
    void readOnlyFilesAndFolder();
    void nameWithLineBreaksStaysOneLine();
};

void BadInputTest::damagedSettingsMeanRussian_data() {
    QTest::addColumn<QByteArray>("ini");
    QTest::addColumn<bool>("directory");
    QTest::addColumn<bool>("english");
    QTest::newRow("empty") << QByteArray() << false << false;
    QTest::newRow("binary") << binary(4096, 1) << false << false;
    QTest::newRow("NUL bytes") << QByteArray("1\0\r\n", 4) << false << false;
    QTest::newRow("1 MiB first line") << "1" + QByteArray(1 << 20, 'x') << false << false;
    QTest::newRow("UTF-8 byte order mark") << QByteArray("\xEF\xBB\xBF" "1\r\n") << false << false;
    QTest::newRow("a directory") << QByteArray() << true << false;
    QTest::newRow("1, then binary") << "1\r\n" + binary(4096, 2) << false << true;
}

void BadInputTest::damagedSettingsMeanRussian() {
    QFETCH(QByteArray, ini);
    QFETCH(bool, directory);
    QFETCH(bool, english);
    Started s(directory ? Files{} : Files{{"ini.txt", ini}}, directory ? QStringList{"ini.txt"} : QStringList{});
    QCOMPARE(s.form->language(), english ? shell::Language::English : shell::Language::Russian);
    QCOMPARE(s.form->windowTitle(), english ? QString("Vorn v2.0") : kRussianTitle);
    QCOMPARE(s.form->messages().zagol, english ? QString("Vorn v2.0") : kRussianTitle);
    s.load([](shell::Form5& d) { press(d, "Command5"); });
    QCOMPARE(s.prompts.shown.size(), 1);
    const QString dialogTitle = english ? "Vorn v2.0 - Load" : QString::fromUtf8("Тавирен v2.0 - Загрузить расклад");
    QCOMPARE(s.prompts.shown[0].title, dialogTitle);
    s.quit();
    if (directory)
        QVERIFY(s.isDirectory("ini.txt"));
    else
        QCOMPARE(s.file("ini.txt"), english ? QByteArray("1\r\n") : QByteArray("2\r\n"));
}

void BadInputTest::damagedStoreIsPagedAndNeverHarmed_data() {
    QTest::addColumn<QByteArray>("store");
    QTest::addColumn<int>("lines");
    QTest::addColumn<QList<int>>("loadable");  // the lines that lay out
    QTest::addColumn<QString>("firstName");    // shown for line 0 (null: not checked)
    QTest::addColumn<QByteArray>("loaded");    // the layout the last loadable line gives
    QTest::addColumn<QPoint>("twoOfHearts");   // where that layout puts the 2 of hearts
    using L = QList<int>;
    const QByteArray mib(1 << 20, 'x');
    const QPoint first(120, 120), corner(0, 0), none;
    QTest::newRow("empty") << QByteArray() << 0 << L{} << QString() << QByteArray() << none;
    QTest::newRow("binary") << binary(3000, 3) + "\r\n" + binary(3000, 4) + "\n" + binary(3000, 5) << 3 << L{}
                            << "" << QByteArray() << none;
    QTest::newRow("NUL bytes") << QByteArray(8, '\0') + "\r\n" + record("Anna") << 2 << L{1} << "" << kLayout << first;
    QTest::newRow("a 1 MiB line") << mib + "\r\n" + record("Anna") << 2 << L{1} << "" << kLayout << first;
    QTest::newRow("no comma") << QByteArray("no comma at all\r\n") << 1 << L{} << "" << QByteArray() << none;
    QTest::newRow("only commas") << QByteArray(300, ',') + "\r\n" << 1 << L{0} << "" << QByteArray(47, ',') << corner;
    QTest::newRow("48 commas") << kLayout + ", Anna\r\n" << 1 << L{0} << "Anna" << kLayout << first;
    QTest::newRow("under 47 commas") << kLayout.left(100) + ", Anna, \r\n" << 1 << L{} << "" << QByteArray() << none;
    QTest::newRow("comma after the 48th") << kLayout + ",, Anna, \r\n" << 1 << L{0} << "" << kLayout << first;
    QTest::newRow("CR-only line ends") << record("A").replace("\r\n", "\r") + record("B").replace("\r\n", "\r") << 2
                                       << L{0, 1} << "A" << kLayout << first;
    QTest::newRow("LF-only line ends") << record("A").replace("\r\n", "\n") + record("B").replace("\r\n", "\n") << 2
                                       << L{0, 1} << "A" << kLayout << first;
    QTest::newRow("no final line end") << record("A") + kLayout + ", B, " << 2 << L{0, 1} << "A" << kLayout << first;
    QTest::newRow("place above 48") << withFirstField(" 49") + ", A, \r\n" << 1 << L{0} << "A"
                                    << withFirstField(" 49") << corner;
    QTest::newRow("place above 16 bits") << withFirstField(" 70000") + ", A, \r\n" << 1 << L{} << "A" << QByteArray()
                                         << none;
    QTest::newRow("negative place") << withFirstField(" -5") + ", A, \r\n" << 1 << L{0} << "A" << withFirstField(" -5")
                                    << corner;
}

// Every line is shown in turn; Load is tried on each one that cannot be laid
// out, then the dialog is left. A second opening loads the last good line.
void BadInputTest::damagedStoreIsPagedAndNeverHarmed() {
    QFETCH(QByteArray, store);
    QFETCH(int, lines);
    QFETCH(QList<int>, loadable);
    QFETCH(QString, firstName);
    QFETCH(QByteArray, loaded);
    QFETCH(QPoint, twoOfHearts);
    Started s({{"save.txt", store}});
    s.trigger("ig1");
    const Board dealt = s.form->board();

    s.load([&](shell::Form5& d) {
        QCOMPARE(d.posl(), lines - 1);
        for (int k = 0; k < lines; ++k) {
            press(d, "Command1");
            QCOMPARE(d.tek(), k);
            if (k == 0 && !firstName.isNull()) QCOMPARE(shownName(d), firstName);
            if (loadable.contains(k)) continue;
            s.prompts.forget();
            press(d, "Command4");
            QCOMPARE(s.prompts.boxTexts(), QStringList{kNothingToLoad});
            QVERIFY(d.isVisible());
        }
        s.prompts.forget();
        press(d, "Command1");
        QCOMPARE(s.prompts.boxTexts(), QStringList{kAtEnd});
        press(d, "Command5");
    });
    QVERIFY(s.form->board() == dealt);
    QCOMPARE(s.file("save.txt"), store);

    if (!loadable.isEmpty()) {
        const int k = loadable.last();
        s.load([&](shell::Form5& d) {
            for (int i = 0; i <= k; ++i) press(d, "Command1");
            press(d, "Command4");
            QVERIFY(!d.isVisible());
        });
        const Board& b = s.form->board();
        QCOMPARE(QByteArray::fromStdString(b.raskl), loaded);
        QCOMPARE(QPoint(b.kartleft(1, 2), b.karttop(1, 2)), twoOfHearts);
        for (int16_t suit = 1; suit <= 4; ++suit) QVERIFY(b.spot({suit, 1}) == dealt.spot({suit, 1}));
    }
    s.quit();
    QCOMPARE(s.file("save.txt"), store);
}

void BadInputTest::hundredThousandRecordsOpenAndPage() {
    QByteArray store;
    store.reserve(100000 * 200);
    for (int i = 0; i < 100000; ++i) store += record("n" + QByteArray::number(i));
    Started s({{"save.txt", store}});
    s.load([](shell::Form5& d) {
        QCOMPARE(d.posl(), 99999);
        for (int i = 0; i < 3; ++i) press(d, "Command1");
        QCOMPARE(shownName(d), QString("n2"));
        press(d, "Command2");
        QCOMPARE(shownName(d), QString("n1"));
        press(d, "Command4");
    });
    QCOMPARE(QByteArray::fromStdString(s.form->board().raskl), kLayout);
    s.quit();
    QCOMPARE(s.file("save.txt"), store);
}

// A run that died leaves its hand-over and current-deal files behind, in any
// state; the next start empties them and Quit-from-the-dialog loads nothing.
void BadInputTest::leftoversOfACrashAreEmptied() {
    const QByteArray store = record("Anna");
    Started s({{"save.txt", store},
               {"load.txt", kLayout + "\r\n" + binary(1 << 20, 6)},
               {"save1.txt", binary(4096, 7)}});
    QCOMPARE(s.file("load.txt"), QByteArray());
    QCOMPARE(s.file("save1.txt"), QByteArray());
    const Board before = s.form->board();
    s.load([](shell::Form5& d) { press(d, "Command5"); });
    QVERIFY(s.form->board() == before);
    s.quit();
    QVERIFY(!QFile::exists(s.dir.filePath("load.txt")));
    QCOMPARE(s.file("save.txt"), store);
}

void BadInputTest::directoriesInPlaceOfFiles_data() {
    QTest::addColumn<QString>("name");
    QTest::newRow("load.txt") << "load.txt";
    QTest::newRow("save1.txt") << "save1.txt";
}

// Start-up, New game, Save, Load and Quit all go on; the directory stays.
void BadInputTest::directoriesInPlaceOfFiles() {
    QFETCH(QString, name);
    Started s({{"save.txt", record("Anna")}}, {name});
    s.trigger("ig1");
    QCOMPARE(s.form->board().rezhim, int16_t{2});
    const Board dealt = s.form->board();
    s.prompts.inputs = {"Bob"};
    s.trigger("ig2");
    QCOMPARE(s.prompts.boxTexts(), QStringList{kSaved});
    const QByteArray saved = record("Anna") + QByteArray::fromStdString(dealt.raskl) + ", Bob, \r\n";
    QCOMPARE(s.file("save.txt"), saved);

    s.load([](shell::Form5& d) {
        press(d, "Command1");
        press(d, "Command4");
    });
    if (name == "load.txt")
        QVERIFY(s.form->board() == dealt);  // nothing came back: the board stays
    else
        QCOMPARE(QByteArray::fromStdString(s.form->board().raskl), kLayout);
    s.quit();
    QVERIFY(s.isDirectory(name));
    QCOMPARE(s.file("save.txt"), saved);
}

void BadInputTest::readOnlyFilesAndFolder_data() {
    QTest::addColumn<QString>("name");  // empty: the whole folder
    QTest::newRow("load.txt") << "load.txt";
    QTest::newRow("save1.txt") << "save1.txt";
    QTest::newRow("the folder") << "";
}

// Gives the owner back every right on a path when the test ends, however it ends.
struct Writable {
    QString path;
    ~Writable() { QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner); }
};

void BadInputTest::readOnlyFilesAndFolder() {
    QFETCH(QString, name);
    {
        QTemporaryDir probe;
        Writable back{probe.path()};
        QFile::setPermissions(probe.path(), QFile::ReadOwner | QFile::ExeOwner);
        if (!modeBitsProtect(probe.path())) QSKIP("running as root: mode bits do not stop writes");
    }
    const bool folder = name.isEmpty();
    const QByteArray store = record("Anna");
    Started s({{"save.txt", store}, {"ini.txt", "1\r\n"}}, {}, false);
    Writable back{s.dir.path()};
    if (folder) {
        QFile::setPermissions(s.dir.filePath("save.txt"), QFile::ReadOwner);
        QFile::setPermissions(s.dir.path(), QFile::ReadOwner | QFile::ExeOwner);
    } else {
        s.put(name, "stale\r\n");
        QFile::setPermissions(s.dir.filePath(name), QFile::ReadOwner);
    }
    s.start();
    QCOMPARE(s.form->language(), shell::Language::English);
    s.trigger("ig1");
    const QByteArray raskl = QByteArray::fromStdString(s.form->board().raskl);
    s.prompts.inputs = {"Bob"};
    s.trigger("ig2");
    QCOMPARE(s.prompts.boxes.size(), 1);
    if (folder)  // never "Save OK" when nothing was written
        QVERIFY2(s.prompts.boxes[0].text.startsWith("Could not write the file"),
                 qPrintable(s.prompts.boxes[0].text));
    else
        QCOMPARE(s.prompts.boxes[0].text, QString("Save OK"));
    s.load([](shell::Form5& d) {
        press(d, "Command1");
        press(d, "Command4");
    });
    // Without a writable load.txt nothing comes back, and the board stays.
    QCOMPARE(QByteArray::fromStdString(s.form->board().raskl), folder || name == "load.txt" ? raskl : kLayout);
    s.quit();
    QCOMPARE(s.file("save.txt"), folder ? store : store + raskl + ", Bob, \r\n");
}

void BadInputTest::nameWithLineBreaksStaysOneLine() {
    Started s({});
    s.trigger("ig1");
    s.prompts.inputs = {QString::fromUtf8("Анна\nи\r\nБорис\t!")};
    s.trigger("ig2");
    QCOMPARE(s.prompts.boxTexts(), QStringList{kSaved});
    const QString stored = QString::fromUtf8("Анна и Борис !");
    QCOMPARE(s.file("save.txt"), QByteArray::fromStdString(s.form->board().raskl) + ", " +
                                     QByteArray::fromStdString(store::toCp1251(stored.toStdString())) + ", \r\n");
    s.load([&](shell::Form5& d) {
        QCOMPARE(d.posl(), 0);
        press(d, "Command1");
        QCOMPARE(shownName(d), stored);
        press(d, "Command5");
    });
}

QTEST_MAIN(BadInputTest)
#include "tst_bad_input.moc"
