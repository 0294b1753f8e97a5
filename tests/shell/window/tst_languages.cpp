// The two languages: what start-up applies, the switch both ways, ini.txt, and
// everything that follows the language in force (boxes, help, about, Qt's own
// buttons, names for screen readers).
#include <QAbstractButton>
#include <QAction>
#include <QFile>
#include <QLibraryInfo>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QTest>

#include "shell/table/card_image.h"
#include "shell/dialogs/help_window.h"
#include "shell/window/language_switch.h"
#include "shell/table/pile_image.h"
#include "support/game.h"

using namespace vorn;
using namespace vorn::test;

namespace {

// Captions of igra, leg, vix, ig1, ig5, ig2, ig3, ig7, ig8, ig4, leg1, leg3.
QStringList captions(const Game& g) {
    QStringList out;
    out << g.form->findChild<QMenu*>("igra")->title() << g.form->findChild<QMenu*>("leg")->title();
    for (const char* name : {"vix", "ig1", "ig5", "ig2", "ig3", "ig7", "ig8", "ig4", "leg1", "leg3"})
        out << g.action(name)->text();
    return out;
}

const QStringList kRussianCreated = {"Игра",       "Сервис",  "Выход",   "Новая игра",
                                     "Расклад заново", "Запомнить расклад", "Загрузить расклад", "Русский",
                                     "English",    "Сообщения", "Как играть?     F1", "О программе"};
const QStringList kRussianSwitched = {"Игра",       "Сервис",  "Выход",   "Новая игра",
                                      "Расклад заново", "Сохранить расклад", "Загрузить расклад", "Русский",
                                      "English",    "Сообщения", "Как играть?", "О программе"};
const QStringList kEnglish = {"Game",         "Servis",   "Quit",     "New game", "Discard anew", "Save discard",
                              "Load discard", "Russian",  "English",  "Messages", "How to play?", "About..."};

QStringList messageTexts(const Game& g) {
    const shell::Messages& m = g.form->messages();
    return {m.zagol, m.messvix, m.messhod, m.messnov, m.messkart};
}

QString yesText() {
    QMessageBox box;
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    return box.button(QMessageBox::Yes)->text().remove(QLatin1Char('&')) + QLatin1Char('/') +
           box.button(QMessageBox::No)->text().remove(QLatin1Char('&'));
}

}  // namespace

class LanguagesTest : public QObject {
    Q_OBJECT
private slots:
    void russianStart_data();
    void russianStart();
    void englishStartWritesNothing();
    void switchBothWaysAndBack();
    void choosingTheCheckedItemRunsEveryStep();
    void switchLeavesTheGameAlone();
    void boxesFollowTheLanguage();
    void aboutFollowsTheLanguage();
    void helpFollowsTheLanguage();
    void qtButtonsFollowTheLanguage();
    void accessibleNames();
};

void LanguagesTest::russianStart_data() {
    QTest::addColumn<QByteArray>("ini");
    QTest::addColumn<bool>("present");
    QTest::newRow("no file") << QByteArray() << false;
    QTest::newRow("2") << QByteArray("2\r\n") << true;
    QTest::newRow("1 with a space") << QByteArray(" 1\r\n") << true;
    QTest::newRow("English spelt out") << QByteArray("English\r\n") << true;
    QTest::newRow("empty") << QByteArray("") << true;
}

void LanguagesTest::russianStart() {
    QFETCH(QByteArray, ini);
    QFETCH(bool, present);
    Game g({}, present ? std::optional<QByteArray>(ini) : std::nullopt);
    QCOMPARE(captions(g), kRussianCreated);
    QVERIFY(g.action("ig7")->isChecked());
    QVERIFY(!g.action("ig8")->isChecked());
    QCOMPARE(g.form->language(), shell::Language::Russian);
    QCOMPARE(g.form->windowTitle(), QString::fromUtf8("Тавирен v2.0"));
    QCOMPARE(g.form->helpFile(), QString("vorn.HLP"));
    QCOMPARE(messageTexts(g), QStringList({"Тавирен v2.0", "Выйти из программы ?", "Неправильний ход.",
                                           "Выберите пункт меню [Новая игра]", "Эту карту нельзя выбрать."}));
    QCOMPARE(g.exists("ini.txt"), present);
    QCOMPARE(g.file("ini.txt"), ini);
}

void LanguagesTest::englishStartWritesNothing() {
    Game g({}, QByteArray("1\nsecond line"));
    QCOMPARE(captions(g), kEnglish);
    QVERIFY(g.action("ig8")->isChecked());
    QVERIFY(!g.action("ig7")->isChecked());
    QCOMPARE(g.form->windowTitle(), QString("Vorn v2.0"));
    QCOMPARE(g.form->helpFile(), QString("vorne.HLP"));
    QCOMPARE(messageTexts(g), QStringList({"Vorn v2.0", "Quit ?", "Wrong step.", "Select the menu item [New game].",
                                           "This card cannot be selected."}));
    QCOMPARE(g.file("ini.txt"), QByteArray("1\nsecond line"));
}

void LanguagesTest::switchBothWaysAndBack() {
    Game g;
    g.action("ig8")->trigger();
    QCOMPARE(captions(g), kEnglish);
    QCOMPARE(g.form->windowTitle(), QString("Vorn v2.0"));
    QCOMPARE(g.form->helpFile(), QString("vorne.HLP"));
    QCOMPARE(g.form->messages().messhod, QString("Wrong step."));
    QCOMPARE(g.file("ini.txt"), QByteArray("1\r\n"));  // at once, not only at the end
    QVERIFY(g.action("ig8")->isChecked() && !g.action("ig7")->isChecked());

    g.action("ig7")->trigger();
    QCOMPARE(captions(g), kRussianSwitched);
    QCOMPARE(g.form->windowTitle(), QString::fromUtf8("Тавирен v2.0"));
    QCOMPARE(g.form->helpFile(), QString("vorn.HLP"));
    QCOMPARE(g.form->messages().messnov, QString::fromUtf8("Выберите пункт меню [Новая игра]"));
    QCOMPARE(g.file("ini.txt"), QByteArray("2\r\n"));
    QVERIFY(g.action("ig7")->isChecked() && !g.action("ig8")->isChecked());

    g.action("ig8")->trigger();
    QCOMPARE(captions(g), kEnglish);
    QCOMPARE(g.file("ini.txt"), QByteArray("1\r\n"));
}

void LanguagesTest::choosingTheCheckedItemRunsEveryStep() {
    Game g;
    QVERIFY(!g.exists("ini.txt"));
    g.action("ig7")->trigger();
    QVERIFY(g.action("ig7")->isChecked());  // stays checked
    QVERIFY(!g.action("ig8")->isChecked());
    QCOMPARE(captions(g), kRussianSwitched);
    QCOMPARE(g.file("ini.txt"), QByteArray("2\r\n"));

    Game e({}, QByteArray("1\r\n"));
    e.writeFile("ini.txt", "junk");
    e.action("ig8")->trigger();
    QVERIFY(e.action("ig8")->isChecked());
    QVERIFY(!e.action("ig7")->isChecked());
    QCOMPARE(e.file("ini.txt"), QByteArray("1\r\n"));
}

void LanguagesTest::switchLeavesTheGameAlone() {
    Game g(dealScript(winnablePlace));
    g.newGame();
    g.action("ig4")->trigger();
    g.clickCard(1, 2);
    const Board before = g.board();
    g.action("ig8")->trigger();
    g.action("ig7")->trigger();
    QVERIFY(g.board() == before);
    QVERIFY(g.action("ig4")->isChecked());
    QVERIFY(g.action("ig2")->isEnabled() && g.action("ig5")->isEnabled());
    QVERIFY(g.card(1, 2)->selected());
}

void LanguagesTest::boxesFollowTheLanguage() {
    Game g;
    g.action("ig4")->trigger();
    g.clickCard(1, 5);  // no deal yet
    g.clickPile(9);     // nothing selected
    g.action("ig8")->trigger();
    g.clickCard(1, 5);
    g.clickCard(2, 1);  // an ace with nothing selected
    g.prompts.answers = {Prompts::Answer::No};
    g.form->close();
    QCOMPARE(g.prompts.boxTexts(),
             QStringList({"Выберите пункт меню [Новая игра]", "Неправильний ход.", "Select the menu item [New game].",
                          "This card cannot be selected.", "Quit ?"}));
    const QStringList titles{"Тавирен v2.0", "Тавирен v2.0", "Vorn v2.0", "Vorn v2.0", "Vorn v2.0"};
    for (int i = 0; i < g.prompts.boxes.size(); ++i) {
        QCOMPARE(g.prompts.boxes[i].title, titles[i]);
        if (i < 4) QCOMPARE(g.prompts.boxes[i].buttons, Prompts::Buttons::Ok);
        if (i < 4) QCOMPARE(g.prompts.boxes[i].icon, Prompts::Icon::None);
    }
}

void LanguagesTest::aboutFollowsTheLanguage() {
    Game g;
    g.action("leg3")->trigger();
    g.action("ig8")->trigger();
    g.action("leg3")->trigger();
    g.action("ig7")->trigger();
    g.action("leg3")->trigger();
    QCOMPARE(g.prompts.shown.size(), 3);
    QCOMPARE(g.prompts.shown[0].objectName, QString("Form3"));
    QCOMPARE(g.prompts.shown[0].title, QString::fromUtf8("Тавирен v2.0 - О программе"));
    QCOMPARE(g.prompts.shown[1].objectName, QString("Form4"));
    QCOMPARE(g.prompts.shown[1].title, QString("Vorn v2.0 - About Vorn"));
    QCOMPARE(g.prompts.shown[2].objectName, QString("Form3"));
}

void LanguagesTest::helpFollowsTheLanguage() {
    Game g;
    QVERIFY(shell::HelpWindow::current() == nullptr);
    g.action("leg1")->trigger();
    shell::HelpWindow* help = shell::HelpWindow::current();
    QVERIFY(help);
    QCOMPARE(help->objectName(), QString("help"));
    QCOMPARE(help->helpFile(), QString("vorn.HLP"));
    QCOMPARE(help->topic(), 1010);
    help->close();
    QTRY_VERIFY(shell::HelpWindow::current() == nullptr);

    g.action("ig8")->trigger();
    g.form->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(g.form.get()));
    QTest::keyClick(g.form.get(), Qt::Key_F1);
    help = shell::HelpWindow::current();
    QVERIFY(help);
    QCOMPARE(help->helpFile(), QString("vorne.HLP"));
    QCOMPARE(help->topic(), 1010);
    // F1 from a card image (the key goes to the window, wherever the focus is).
    g.action("ig7")->trigger();
    g.form->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(g.form.get()));
    QTest::keyClick(g.card(2, 5), Qt::Key_F1);
    QCOMPARE(shell::HelpWindow::current(), help);  // still the one window
    QCOMPARE(help->helpFile(), QString("vorn.HLP"));
}

void LanguagesTest::qtButtonsFollowTheLanguage() {
    if (!QFile::exists(QLibraryInfo::path(QLibraryInfo::TranslationsPath) + "/qtbase_ru.qm"))
        QSKIP("Qt's Russian catalogue (qt6-translations-l10n) is not installed");
    {
        Game g;
        QCOMPARE(yesText(), QString::fromUtf8("Да/Нет"));
        g.action("ig8")->trigger();
        QCOMPARE(yesText(), QString("Yes/No"));
        g.action("ig7")->trigger();
        QCOMPARE(yesText(), QString::fromUtf8("Да/Нет"));
    }
    {
        Game e({}, QByteArray("1\r\n"));
        QCOMPARE(yesText(), QString("Yes/No"));
    }
    QCOMPARE(yesText(), QString("Yes/No"));  // a closed window takes its catalogue along
}

void LanguagesTest::accessibleNames() {
    Game g(dealScript(winnablePlace));
    QCOMPARE(g.card(1, 1)->accessibleName(), QString::fromUtf8("туз червей"));
    QCOMPARE(g.card(4, 12)->accessibleName(), QString::fromUtf8("дама треф"));
    QCOMPARE(g.card(3, 10)->accessibleName(), QString::fromUtf8("10 бубен"));
    QCOMPARE(g.pile(9)->accessibleName(), QString::fromUtf8("пустое место"));
    g.newGame();
    g.clickCard(1, 2);
    QCOMPARE(g.card(1, 2)->accessibleDescription(), QString::fromUtf8("выбрана"));
    QCOMPARE(g.card(1, 3)->accessibleDescription(), QString());
    g.action("ig8")->trigger();
    QCOMPARE(g.card(1, 1)->accessibleName(), QString("ace of hearts"));
    QCOMPARE(g.card(2, 11)->accessibleName(), QString("jack of spades"));
    QCOMPARE(g.pile(3)->accessibleName(), QString("empty place"));
    QCOMPARE(g.card(1, 2)->accessibleDescription(), QString("selected"));
    g.action("ig7")->trigger();
    QCOMPARE(g.card(2, 13)->accessibleName(), QString::fromUtf8("король пик"));
}

QTEST_MAIN(LanguagesTest)
#include "tst_languages.moc"
