// The load dialog, driven the way a player drives it: real clicks on its
// buttons, the close button, Escape and F1, with the store written byte for byte
// into a fresh folder and load.txt read back byte for byte.
#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <filesystem>

#include "support/recording_prompts.h"
#include "shell/dialogs/form5.h"
#include "shell/dialogs/help_window.h"
#include "store/codepage.h"

using namespace vorn::shell;

namespace {

// What a message box showed. The load dialog only ever shows OK boxes without an icon.
struct Seen {
    QString text;
    QString title;
    Prompts::Buttons buttons = Prompts::Buttons::Ok;
    Prompts::Icon icon = Prompts::Icon::None;
    friend bool operator==(const Seen&, const Seen&) = default;
};

char* toString(const Seen& s) {
    return QTest::toString(QString("\"%1\" / \"%2\" buttons %3 icon %4")
                               .arg(s.text, s.title)
                               .arg(int(s.buttons))
                               .arg(int(s.icon)));
}

QList<Seen> seen(const vorn::test::RecordingPrompts& prompts) {
    QList<Seen> out;
    for (const vorn::test::Box& b : prompts.boxes) out.append({b.text, b.title, b.buttons, b.icon});
    return out;
}

// Layout strings as a deal writes them: 48 place numbers, " n" joined by ",".
QByteArray layout(int variant) {
    QByteArray out;
    for (int i = 0; i < 48; ++i) {
        const int place = variant == 0 ? i + 1 : variant == 1 ? 48 - i : (i * 7) % 48 + 1;
        if (!out.isEmpty()) out += ',';
        out += ' ' + QByteArray::number(place);
    }
    return out;
}

// A record line as the Save command writes it, the name given as the bytes of
// the file or as UTF-8 text.
QByteArray record(const QByteArray& layoutString, const QByteArray& nameBytes) {
    return layoutString + ", " + nameBytes + ", \r\n";
}
QByteArray record(const QByteArray& layoutString, const char* nameUtf8) {
    return record(layoutString, QByteArray::fromStdString(vorn::store::toCp1251(nameUtf8)));
}

void writeBytes(const QString& path, const QByteArray& bytes) {
    QFile f(path);
    QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(f.write(bytes), bytes.size());
}

QByteArray readBytes(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<missing>");
}

// The dialog as the Load command opens it, shown on the screen.
struct Opened {
    Form5 form;
    Opened(const std::filesystem::path& folder, Prompts& prompts) : form(folder, prompts, nullptr) {
        form.show();
        if (!QTest::qWaitForWindowExposed(&form)) qWarning("the load dialog was not exposed");
    }
    QLineEdit* text1() { return form.findChild<QLineEdit*>("Text1"); }
    QPushButton* button(const char* name) {
        auto* b = form.findChild<QPushButton*>(name);
        if (!b) qFatal("no button %s", name);
        return b;
    }
    void click(const char* name) { QTest::mouseClick(button(name), Qt::LeftButton); }
    void step(const QString& what) {
        if (what == "close")
            form.close();
        else if (what == "escape")
            QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : &form, Qt::Key_Escape);
        else
            click(qPrintable(what));
    }
};

}  // namespace

class TestForm5 : public QObject {
    Q_OBJECT

private:
    QTemporaryDir dir_;
    vorn::test::RecordingPrompts prompts_;

    std::filesystem::path folder() const { return dir_.path().toStdString(); }
    void put(const char* name, const QByteArray& bytes) const { writeBytes(dir_.filePath(name), bytes); }
    QByteArray handOver() const { return readBytes(dir_.filePath("load.txt")); }

private slots:
    void init() {
        QVERIFY(dir_.isValid());
        for (const char* name : {"save.txt", "ini.txt", "load.txt"}) QFile::remove(dir_.filePath(name));
        prompts_.forget();
        put("save.txt", record(layout(0), "первый") + record(layout(1), "second") + record(layout(2), "третий"));
    }

    void pagesForwardAndStopsAtTheEnd() {
        Opened d(folder(), prompts_);
        QCOMPARE(d.form.posl(), 2);
        const QStringList names{"первый", "second", "третий"};
        for (int k = 0; k < 3; ++k) {
            d.click("Command1");
            QCOMPARE(d.text1()->text(), names[k]);
            QCOMPARE(d.form.tek(), k);
            QCOMPARE(d.form.zagruz(), QString::fromLatin1(layout(k)));
        }
        QVERIFY(prompts_.boxes.isEmpty());

        d.click("Command1");
        QCOMPARE(prompts_.boxes.size(), 1);
        QCOMPARE(seen(prompts_)[0], (Seen{"Достигнут конец файла", "Тавирен v2.0"}));
        QCOMPARE(d.text1()->text(), names[2]);
        QCOMPARE(d.form.tek(), 2);

        d.click("Command2");
        QCOMPARE(prompts_.boxes.size(), 1);
        QCOMPARE(d.text1()->text(), names[1]);
        QCOMPARE(d.form.zagruz(), QString::fromLatin1(layout(1)));
    }

    void previousFirstAndLoadWithNothingShown() {
        Opened d(folder(), prompts_);
        d.click("Command2");
        QCOMPARE(seen(prompts_), (QList<Seen>{{"Достигнуто начало файла", "Тавирен v2.0"}}));
        QCOMPARE(d.text1()->text(), QString());
        QCOMPARE(d.form.tek(), -1);

        d.click("Command4");
        QCOMPARE(prompts_.boxes.size(), 2);
        QCOMPARE(seen(prompts_)[1], (Seen{"Нет расклада", "Тавирен v2.0"}));
        QVERIFY(d.form.isVisible());
        QCOMPARE(handOver(), QByteArray());  // nothing until the dialog closes
    }

    // Every way of closing hands back what was shown, except Quit.
    void handsBackOnClose_data() {
        QTest::addColumn<QStringList>("steps");
        QTest::addColumn<QByteArray>("loadTxt");
        QTest::addColumn<int>("result");
        const QByteArray first = layout(0) + "\r\n";
        QTest::newRow("Next, Load") << QStringList{"Command1", "Command4"} << first << int(QDialog::Accepted);
        QTest::newRow("Next, close button") << QStringList{"Command1", "close"} << first << int(QDialog::Rejected);
        QTest::newRow("Next, Escape") << QStringList{"Command1", "escape"} << QByteArray("\r\n")
                                      << int(QDialog::Rejected);
        QTest::newRow("Next, Quit") << QStringList{"Command1", "Command5"} << QByteArray("\r\n")
                                    << int(QDialog::Rejected);
        QTest::newRow("Next x2, Previous, Next, Load") << QStringList{"Command1", "Command1", "Command2", "Command1",
                                                                      "Command4"}
                                                       << layout(1) + "\r\n" << int(QDialog::Accepted);
        QTest::newRow("close at once") << QStringList{"close"} << QByteArray("\r\n") << int(QDialog::Rejected);
    }
    void handsBackOnClose() {
        QFETCH(QStringList, steps);
        QFETCH(QByteArray, loadTxt);
        QFETCH(int, result);
        put("load.txt", "left over from an earlier run\r\n");
        Opened d(folder(), prompts_);
        QCOMPARE(handOver(), QByteArray());  // emptied as the dialog opens
        for (const QString& step : steps) d.step(step);
        QVERIFY(!d.form.isVisible());
        QCOMPARE(d.form.result(), result);
        QCOMPARE(handOver(), loadTxt);
        if (loadTxt.size() > 2) QCOMPARE(loadTxt.size(), 182 + 2);
        QVERIFY(prompts_.boxes.isEmpty());
    }

    void handsBackOnlyOnce() {
        Opened d(folder(), prompts_);
        d.click("Command1");
        d.click("Command4");
        put("load.txt", "read by the main window\r\n");
        static_cast<QDialog&>(d.form).reject();  // a second ending changes nothing
        QCOMPARE(handOver(), QByteArray("read by the main window\r\n"));
    }

    void showsNamesAsStored_data() {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QString>("name");
        QTest::newRow("comma in the name") << record(layout(0), "Мой, любимый") << QString("Мой");
        QTest::newRow("leading spaces") << record(layout(0), "   три пробела") << QString("   три пробела");
        QTest::newRow("trailing space") << record(layout(0), "end ") << QString("end ");
        QTest::newRow("no space after the layout") << layout(0) + ",name, \r\n" << QString("ame");
        QTest::newRow("CP1251 bytes") << layout(0) + ", \xcf\xe0\xf1\xfc\xff\xed\xf1, \r\n" << QString("Пасьянс");
        QTest::newRow("LF only") << layout(0) + ", unix, \n" << QString("unix");
        const QByteArray longName(120, 'x');
        QTest::newRow("longer than the box") << record(layout(0), longName) << QString(longName);
    }
    void showsNamesAsStored() {
        QFETCH(QByteArray, line);
        QFETCH(QString, name);
        put("save.txt", line);
        Opened d(folder(), prompts_);
        d.click("Command1");
        QCOMPARE(d.text1()->text(), name);
        QCOMPARE(d.text1()->cursorPosition(), 0);  // the start of the name is in view
        d.click("Command4");
        QCOMPARE(handOver(), layout(0) + "\r\n");
    }

    void damagedLinesCannotBeLoaded_data() {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QString>("name");
        QTest::newRow("cut short") << layout(0).left(100) + ", short, \r\n" << QString();
        QTest::newRow("words") << QByteArray("hello, world, \r\n") << QString();
        QTest::newRow("number past 16 bits") << record(" 99999" + layout(0).mid(2), "big") << QString("big");
        QTest::newRow("empty line") << QByteArray("\r\n") << QString();
    }
    void damagedLinesCannotBeLoaded() {
        QFETCH(QByteArray, line);
        QFETCH(QString, name);
        put("save.txt", line + record(layout(2), "good"));
        Opened d(folder(), prompts_);
        QCOMPARE(d.form.posl(), 1);
        d.click("Command1");
        QCOMPARE(d.text1()->text(), name);
        d.click("Command4");
        QCOMPARE(seen(prompts_), (QList<Seen>{{"Нет расклада", "Тавирен v2.0"}}));
        QVERIFY(d.form.isVisible());
        d.form.close();  // the close button does not smuggle it out either
        QCOMPARE(handOver(), QByteArray("\r\n"));
    }

    void damagedLineDoesNotBlockTheNext() {
        put("save.txt", "rubbish\r\n" + record(layout(2), "good"));
        Opened d(folder(), prompts_);
        d.click("Command1");
        d.click("Command1");
        QCOMPARE(d.text1()->text(), QString("good"));
        d.click("Command4");
        QCOMPARE(handOver(), layout(2) + "\r\n");
    }

    void emptyOrMissingStore_data() {
        QTest::addColumn<bool>("exists");
        QTest::newRow("empty save.txt") << true;
        QTest::newRow("no save.txt") << false;
    }
    void emptyOrMissingStore() {
        QFETCH(bool, exists);
        QFile::remove(dir_.filePath("save.txt"));
        if (exists) put("save.txt", "");
        Opened d(folder(), prompts_);
        QCOMPARE(d.form.posl(), -1);
        for (const char* button : {"Command1", "Command2", "Command4"}) d.click(button);
        QCOMPARE(seen(prompts_), (QList<Seen>{{"Достигнут конец файла", "Тавирен v2.0"},
                                               {"Достигнуто начало файла", "Тавирен v2.0"},
                                               {"Нет расклада", "Тавирен v2.0"}}));
        QCOMPARE(d.form.tek(), -1);
        QCOMPARE(d.text1()->text(), QString());
        d.click("Command5");
        QCOMPARE(handOver(), QByteArray("\r\n"));
    }

    void languageFromIniTxt_data() {
        QTest::addColumn<QByteArray>("ini");
        QTest::addColumn<QStringList>("texts");  // title, 4 captions, top, bottom, error, box title
        const QStringList english{"Vorn v2.0 - Load", "Next", "Previous", "Load", "Quit",
                                  "This is top", "This is bottom", "ERROR", "Vorn v2.0"};
        const QStringList russian{"Тавирен v2.0 - Загрузить расклад", "Следующий", "Предыдущий", "Загрузить", "Выход",
                                  "Достигнут конец файла", "Достигнуто начало файла", "Нет расклада", "Тавирен v2.0"};
        QTest::newRow("1") << QByteArray("1\r\n") << english;
        QTest::newRow("2") << QByteArray("2\r\n") << russian;
        QTest::newRow("1 with a space") << QByteArray(" 1\r\n") << russian;
        QTest::newRow("no ini.txt") << QByteArray() << russian;
    }
    void languageFromIniTxt() {
        QFETCH(QByteArray, ini);
        QFETCH(QStringList, texts);
        if (!ini.isEmpty()) put("ini.txt", ini);
        put("save.txt", record(layout(0), "one"));
        Opened d(folder(), prompts_);
        QCOMPARE(d.form.windowTitle(), texts[0]);
        QCOMPARE(d.form.eng(), texts[1] == "Next");
        const char* names[] = {"Command1", "Command2", "Command4", "Command5"};
        for (int i = 0; i < 4; ++i) QCOMPARE(d.button(names[i])->text(), texts[i + 1]);
        d.click("Command4");  // nothing shown yet
        d.click("Command1");
        d.click("Command1");  // past the only record
        d.click("Command2");  // before it
        QCOMPARE(seen(prompts_), (QList<Seen>{{texts[7], texts[8]}, {texts[5], texts[8]}, {texts[6], texts[8]}}));
    }

    void controlsSitWhereTheyBelong() {
        Opened d(folder(), prompts_);
        QCOMPARE(d.form.size(), QSize(418, 143));
        QCOMPARE(d.form.minimumSize(), d.form.maximumSize());
        const Qt::WindowFlags flags = d.form.windowFlags();
        QVERIFY(flags & Qt::WindowCloseButtonHint);
        QVERIFY(!(flags & Qt::WindowMinimizeButtonHint));
        QVERIFY(!(flags & Qt::WindowMaximizeButtonHint));
        QCOMPARE(d.text1()->geometry(), QRect(16, 8, 385, 25));
        QCOMPARE(d.button("Command1")->geometry(), QRect(16, 48, 121, 33));
        QCOMPARE(d.button("Command2")->geometry(), QRect(16, 96, 121, 33));
        QCOMPARE(d.button("Command4")->geometry(), QRect(280, 48, 121, 33));
        QCOMPARE(d.button("Command5")->geometry(), QRect(280, 96, 121, 33));
        const QFont font = d.button("Command4")->font();
        QVERIFY(font.bold());
        QCOMPARE(font.pointSizeF(), 9.75);
        QCOMPARE(d.text1()->font(), font);
        QCOMPARE(font.family(), QString("MS Sans Serif"));
    }

    void tabGoesThroughTheControlsInOrder() {
        Opened d(folder(), prompts_);
        d.text1()->setFocus();
        QCOMPARE(QApplication::focusWidget(), d.text1());
        for (const char* name : {"Command1", "Command2", "Command4", "Command5"}) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QCOMPARE(QApplication::focusWidget(), d.button(name));
        }
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), d.text1());
    }

    void f1CallsHelp() {
        int calls = 0;
        Form5 form(folder(), prompts_, nullptr, [&calls] { ++calls; });
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);  // pressed in the text box
        QCOMPARE(calls, 1);
        QVERIFY(form.isVisible());
    }

    // Without a main window around it, F1 opens the help of the dialog's own language.
    void f1OpensTheHelpOfItsLanguage_data() {
        QTest::addColumn<QByteArray>("ini");
        QTest::addColumn<QString>("helpFile");
        QTest::addColumn<QString>("title");
        QTest::newRow("English") << QByteArray("1\r\n") << QString("vorne.HLP") << QString("Vorn v2.0 - How to play");
        QTest::newRow("Russian") << QByteArray("2\r\n") << QString("vorn.HLP")
                                 << QString("Тавирен v2.0 - Как играть");
    }
    void f1OpensTheHelpOfItsLanguage() {
        QFETCH(QByteArray, ini);
        QFETCH(QString, helpFile);
        QFETCH(QString, title);
        put("ini.txt", ini);
        Opened d(folder(), prompts_);
        QTest::keyClick(d.text1(), Qt::Key_F1);
        HelpWindow* help = HelpWindow::current();
        QVERIFY(help);
        QCOMPARE(help->helpFile(), helpFile);
        QCOMPARE(help->topic(), 1010);
        QCOMPARE(help->windowTitle(), title);
        help->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    // The dialog is modal, yet the help it opens takes keys at once (a window the
    // dialog blocked would not), closes with Escape and outlives the dialog.
    void helpOverTheModalDialog() {
        Form5 form(folder(), prompts_, nullptr);
        form.setWindowModality(Qt::ApplicationModal);
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        QTest::keyClick(form.windowHandle(), Qt::Key_F1);
        QPointer<HelpWindow> help = HelpWindow::current();
        QVERIFY(help && QTest::qWaitForWindowExposed(help));
        QTest::keyClick(help->windowHandle(), Qt::Key_Escape);
        QTRY_VERIFY(!help || !help->isVisible());
        QVERIFY(form.isVisible());

        QTest::keyClick(form.windowHandle(), Qt::Key_F1);
        help = HelpWindow::current();
        QVERIFY(help && QTest::qWaitForWindowExposed(help));
        form.close();
        QVERIFY(help && help->isVisible());
        QCOMPARE(help->parentWidget(), nullptr);
        delete help;
    }

    void centredOnItsOwner() {
        QWidget owner;
        owner.setGeometry(100, 80, 707, 526);
        owner.show();
        QVERIFY(QTest::qWaitForWindowExposed(&owner));
        Form5 form(folder(), prompts_, &owner);
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
        const QPoint delta = form.frameGeometry().center() - owner.frameGeometry().center();
        QVERIFY2(delta.manhattanLength() <= 2, qPrintable(QString("off by %1,%2").arg(delta.x()).arg(delta.y())));
    }

    void keepsEveryLineOfABigStore() {
        QByteArray bytes;
        constexpr int kLines = 100000;
        for (int i = 0; i < kLines; ++i) bytes += record(layout(i % 3), QByteArray::number(i));
        put("save.txt", bytes);
        Opened d(folder(), prompts_);
        QCOMPARE(d.form.posl(), kLines - 1);
        d.click("Command1");
        QCOMPARE(d.text1()->text(), QString("0"));
        d.click("Command1");
        QCOMPARE(d.text1()->text(), QString("1"));
    }
};

QTEST_MAIN(TestForm5)
#include "tst_form5.moc"
