// The main window: its menus and frame, the images on the board, the two
// languages, clicks and the boxes they bring, New game, Deal again, Save, Load,
// undo and redo, and the quit question. The rules of the game and the bytes of
// the files are the board's and the store's; here they only have to arrive.

#include "shell/app_icon.h"
#include "shell/choices.h"
#include "shell/window/language_switch.h"
#include "support/game.h"

namespace {

// Every menu item in order: each of the menu bar, followed by those of its
// menu, a submenu's items after its own.
QList<QAction*> menuActions(const Game& g) {
    QList<QAction*> all;
    std::function<void(const QList<QAction*>&)> walk = [&](const QList<QAction*>& items) {
        for (QAction* a : items) {
            all << a;
            if (a->menu()) walk(a->menu()->actions());
        }
    };
    walk(g.form->menuBar()->actions());
    return all;
}

// The texts of textsFollowTheLanguage: the menu captions and the title; the
// boxes, the input box and the windows of its scenario; Qt's Yes.
const QStringList kRussian{
    "Игра", "Новая игра", "Расклад заново", "Запомнить расклад", "Загрузить расклад", "Русский", "English", "Сообщения",
    "Отменить ход", "Повторить ход", "Подсказка", "Только выигрышные расклады", "Сложность выигрышных раскладов",
    "Любая", "Лёгкий", "Средний", "Трудный", "Очень трудный", "Эксперт", "Показать решение", "Показывать, можно ли выиграть", "Назад к выигрышной позиции", "Расклад по номеру…",
    "Расклад дня", "Продолжить последнюю партию", "Статистика…", "Размер стола", "Увеличить", "Уменьшить",
    "Обычный размер", "Масштабировать стол по окну", "Сервис",
    "Как играть?     F1", "О программе", "Выход", "Тавирен v2.0", "Выберите пункт меню [Новая игра]",
    "Неправильний ход.", "Эту карту нельзя выбрать.", "В названии есть знаки, которых нет в файле раскладов: é\n"
    "Вместо них будет записан знак «?». Сохранить так?\n(«Нет» — вернуться к названию и исправить его.)",
    "Вы не ввели название расклада", "Расклад сохранен", "Не удалось записать файл: ",
    "Этот расклад повреждён, его нельзя разложить.", "Выйти из программы ?", "Введите название расклада", "Form5",
    "Тавирен v2.0 - Загрузить расклад", "Form3", "Тавирен v2.0 - О программе", "&Да"};
const QStringList kEnglish{
    "Game", "New game", "Discard anew", "Save discard", "Load discard", "Russian", "English", "Messages",
    "Undo move", "Redo move", "Hint", "Winnable deals only", "Grade of winnable deals", "Any grade", "Easy",
    "Medium", "Hard", "Very hard", "Expert", "Show solution",
    "Show whether the deal can be won", "Back to the last winnable position", "Deal number…", "Deal of the day",
    "Continue the last game", "Statistics…", "Table size", "Zoom in", "Zoom out", "Actual size",
    "Scale the table with the window", "Servis", "How to play?", "About...", "Quit",
    "Vorn v2.0", "Select the menu item [New game].", "Wrong step.", "This card cannot be selected.",
    "The name has characters the layout file cannot hold: é\nEach will be stored as \"?\". Save it like this?\n"
    "(No: go back to the name and change it.)", "ERROR: name", "Save OK", "Could not write the file: ",
    "This layout is damaged and cannot be laid out.", "Quit ?", "Name", "Form5", "Vorn v2.0 - Load", "Form4",
    "Vorn v2.0 - About Vorn", "&Yes"};

}  // namespace

class WindowTest : public QObject {
    Q_OBJECT
private slots:
    void menuTree() {
        Game g(deals({winnablePlace}));
        QStringList items;  // name, keys, and e enabled, c checkable, x checked, s a separator
        for (QAction* a : menuActions(g))
            items << a->objectName() + '|' + a->shortcut().toString() + '|' + (a->isEnabled() ? "e" : "") +
                         (a->isCheckable() ? "c" : "") + (a->isChecked() ? "x" : "") + (a->isSeparator() ? "s" : "");
        QCOMPARE(items, QStringList({"igra||e", "ig1|F2|e", "ig5|Ctrl+F2|", "line1||es", "ig2|F3|", "ig3|F4|e",
            "line3||es", "ig7|Ctrl+R|ecx", "ig8|Ctrl+E|ec", "line2||es", "ig4||ec", "line4||es", "undo|Ctrl+Z|",
            "redo|Ctrl+Y|", "line5||es", "hint|H|e", "winnable||ec", "winnableGrade||e", "gradeAny||ecx",
            "gradeEasy||ec", "gradeMedium||ec", "gradeHard||ec", "gradeVeryHard||ec", "gradeExpert||ec", "solution|D|e",
            "showVerdict||ec", "backToWinnable|Ctrl+B|", "line6||es", "dealNumber|Ctrl+N|e", "daily|Ctrl+T|e",
            "continueGame|Ctrl+L|", "statistics|Ctrl+I|e", "line7||es", "tableSize||e", "zoomIn|Ctrl+=|e",
            "zoomOut|Ctrl+-|e", "actualSize|Ctrl+0|", "scaleWithWindow||ec", "leg||e", "leg1||e", "leg2||es", "leg3||e",
            "vix||e"}));
        // Save and Deal again stay enabled for good after the first New game.
        for (const char* item : {"ig1", "ig5", "ig8", "ig4", "ig7"}) g.trigger(item);
        QVERIFY(g.action("ig2")->isEnabled() && g.action("ig5")->isEnabled());
    }

    void fixedWindowAndItsImages() {
        Game g;
        QWidget* view = g.form->centralWidget();
        QCOMPARE(view->geometry(), QRect(0, g.form->menuBar()->height(), 707, 526));
        QVERIFY(g.form->minimumSize() == QSize(707, view->y() + 526) && g.form->maximumSize() == g.form->minimumSize());
        QVERIFY(!g.form->windowIcon().isNull() && !(g.form->windowFlags() & Qt::WindowMaximizeButtonHint));
        QStringList kinds;  // pile places behind the frames, frames behind the cards
        for (const QObject* o : view->children()) kinds << o->objectName().section(QRegularExpression("\\d"), 0, 0);
        kinds.removeIf([](const QString& k) { return k != "Image" && k != "r" && k != "Im"; });
        QCOMPARE(kinds, QStringList(11, "Image") + QStringList(38, "r") + QStringList(52, "Im"));
        for (int i = 1; i <= 11; ++i)
            QCOMPARE(g.pile(i)->geometry(), QRect(pilePlace(i).left / 15, pilePlace(i).top / 15, 50, 75));
        for (const FramePlace& f : framePlaces())
            QCOMPARE(view->findChild<QWidget*>(QString("r%1_%2").arg(f.row).arg(f.k))->pos() * 15, QPoint(f.left, f.top));
        QCOMPARE(g.unlikeBoard(), QString());  // the starting picture
        // The icon drawn at build time is the SVG, pixel for pixel, at the sizes
        // a window hands its window manager, and has no other sizes.
        const QIcon ready = shell::gameIcon(), svg(":/icons/vorn.svg");
        for (int size : shell::kIconSizes) {
            auto picture = [size](const QIcon& i) { return i.pixmap(size).toImage().convertToFormat(QImage::Format_ARGB32); };
            QVERIFY(picture(svg).size() == QSize(size, size) && picture(svg).pixelColor(size / 2, size / 2).alpha() == 255);
            QCOMPARE(picture(ready), picture(svg));
        }
        QCOMPARE(ready.availableSizes().size(), qsizetype(std::size(shell::kIconSizes)));
    }

    void textsFollowTheLanguage_data() {
        QTest::addColumn<QByteArray>("ini");
        QTest::addColumn<QString>("chosen");  // the language item chosen after start-up
        QTest::addColumn<QStringList>("texts");
        QStringList russianChosen = kRussian;  // two captions change only then
        russianChosen[3] = "Сохранить расклад";
        russianChosen[32] = "Как играть?";
        QTest::newRow("ini.txt 2") << QByteArray("2\r\n") << QString() << kRussian;
        QTest::newRow("ini.txt 1") << QByteArray("1\r\n") << QString() << kEnglish;
        QTest::newRow("Russian chosen again") << QByteArray() << "ig7" << russianChosen;
        QTest::newRow("English chosen") << QByteArray() << "ig8" << kEnglish;
    }
    void textsFollowTheLanguage() {
        QFETCH(QByteArray, ini);
        QFETCH(QString, chosen);
        QFETCH(QStringList, texts);
        Game g(deals({winnablePlace}), ini.isEmpty() ? std::nullopt : std::optional(ini));
        if (!chosen.isEmpty()) g.trigger(qPrintable(chosen));
        g.click({1, 5});  // before the first deal: shown whether or not Messages is on
        g.trigger("ig1");
        g.click({1, 4});  // refused without a word while Messages is off
        g.click({3, 1});
        g.trigger("ig4");
        g.click({1, 4});  // behind the 2 and 3 of hearts: a wrong move
        g.click({3, 1});  // an ace, nothing selected
        g.prompts.inputs = {"é", "", "x", "y"};
        g.trigger("ig2");  // a letter save.txt cannot hold; No, back to the name, which is then left empty
        g.trigger("ig2");
        QVERIFY(QFile::remove(g.path("save.txt")) && QDir(g.dir.path()).mkdir("save.txt"));
        g.trigger("ig2");  // cannot be written
        g.prompts.handlers = {[&g](QDialog& d) { d.reject(); g.write("load.txt", "damaged\r\n"); }};
        g.trigger("ig3");
        g.trigger("leg3");
        g.form->close();
        QStringList seen;
        for (QAction* a : menuActions(g))
            if (!a->isSeparator()) seen << a->text();
        seen << g.form->windowTitle();
        for (const QString& text : g.prompts.texts) seen << text.section(g.dir.path(), 0, 0);
        seen << g.prompts.asked[0].text;
        for (const Box& shown : g.prompts.shown) seen << shown.text << shown.title;
        QCOMPARE(seen << QCoreApplication::translate("QPlatformTheme", "&Yes"), texts);  // Qt's own buttons
        for (const Box& b : g.prompts.boxes + g.prompts.asked) QCOMPARE(b.title, g.form->windowTitle());
    }

    void menuKeys() {
        Game g(deals({winnablePlace, winnablePlace}));
        g.key(Qt::Key_F2, Qt::ControlModifier);  // Deal again is greyed before the first deal
        QCOMPARE(g.board().rezhim, 1);
        g.key(Qt::Key_F2);
        const Board dealt = g.board();
        QCOMPARE(g.file("save1.txt"), QByteArray::fromStdString(dealt.raskl + "\r\n"));
        g.play(winningMove(0));
        g.play(winningMove(1));
        const Board two = g.board();
        for (int i = 0; i < 2; ++i) g.key(Qt::Key_Z, Qt::ControlModifier);  // what undo restores: History's tests
        QVERIFY(g.board().kartleft == dealt.kartleft && g.unlikeBoard().isEmpty() && !g.action("undo")->isEnabled());
        for (int i = 0; i < 2; ++i) g.key(Qt::Key_Y, Qt::ControlModifier);
        QVERIFY(g.board().kartleft == two.kartleft && g.unlikeBoard().isEmpty() && !g.action("redo")->isEnabled());
        // A switch writes ini.txt, also for the language in force, and leaves the game alone.
        g.click(winningMove(2).card);
        const Board selected = g.board();
        g.key(Qt::Key_R, Qt::ControlModifier);
        QCOMPARE(g.file("ini.txt"), QByteArray("2\r\n"));
        g.key(Qt::Key_E, Qt::ControlModifier);
        QCOMPARE(g.file("ini.txt"), QByteArray("1\r\n"));
        QVERIFY(g.action("ig8")->isChecked() && !g.action("ig7")->isChecked() && g.board() == selected);
        g.key(Qt::Key_F2, Qt::ControlModifier);  // Deal again: the layout laid out anew, the moves forgotten
        QVERIFY(g.board().kartleft == dealt.kartleft && g.unlikeBoard().isEmpty() && !g.action("undo")->isEnabled());
        g.play(winningMove(0));
        g.key(Qt::Key_F2);  // New game forgets the moves too
        QVERIFY(!g.action("undo")->isEnabled());
        g.key(Qt::Key_F1);  // the help of the language in force
        QVERIFY(shell::HelpWindow::current() && shell::HelpWindow::current()->helpFile() == "vorne.HLP");
    }

    // Deal number... deals the number typed as New game does; the box opens
    // with the number of the deal in play; what is no number is said so and
    // changes nothing.
    void dealNumberBox() {
        Game g;
        g.prompts.inputs = {"11982", "", "0"};
        g.key(Qt::Key_N, Qt::ControlModifier);
        const Board dealt = g.board();
        QCOMPARE(dealt.raskl.substr(0, 12), " 48, 17, 26,");  // deal 11982: its layout is pinned with the deal
        QCOMPARE(g.file("save1.txt"), QByteArray::fromStdString(dealt.raskl + "\r\n"));
        QVERIFY(g.action("ig2")->isEnabled() && g.action("ig5")->isEnabled());
        g.trigger("dealNumber");  // cancelled
        g.trigger("dealNumber");
        QCOMPARE(g.prompts.asked[1].typed, QString("11982"));
        QCOMPARE(g.prompts.texts, QStringList{"«0» — не номер расклада. Введите целое число от 1 до 4294967295."});
        QCOMPARE(g.board(), dealt);
        g.key(Qt::Key_I, Qt::ControlModifier);  // the statistics of the record, where the game in play is
        QVERIFY(g.prompts.shown.size() == 1 && g.prompts.shown[0].text == "statistics");
    }

    // Real clicks play the whole game, at 100 % and where the table at 150 %
    // shows its cards; the images follow every move, and the end shows the
    // Russian about window over the finished board, in English too.
    void wonGameShowsForm3_data() {
        QTest::addColumn<int>("zoom");
        QTest::newRow("100 %") << 100;
        QTest::newRow("150 %") << 150;
    }
    void wonGameShowsForm3() {
        QFETCH(int, zoom);
        Game g(deals({winnablePlace}), "1\r\n");
        g.trigger("ig1");
        g.zoomTo(zoom);
        g.prompts.handlers = {[&g](QDialog&) { QCOMPARE(g.unlikeBoard(), QString()); }};
        for (int i = 0; i < 48; ++i) {
            g.play(winningMove(i));
            QCOMPARE(g.unlikeBoard(), QString());
        }
        QCOMPARE(g.prompts.shown.size(), 1);
        QCOMPARE(g.prompts.shown[0].text + g.prompts.shown[0].title, QString("Form3Тавирен v2.0 - О программе"));
        g.trigger("undo");
        g.trigger("redo");  // the winning move played again wins again
        QVERIFY(g.prompts.shown.size() == 2 && g.prompts.boxes.isEmpty());
    }

    // The keys step the zoom as far as the screen (1920 x 1200) holds the fixed
    // window, which takes the table's size and keeps the board. The zoom is
    // remembered; one the screen cannot hold opens at the largest that fits,
    // without a word. Maximised by the desktop, the fixed window shows the
    // table in its middle, and is its own size again after.
    void zoomSteps() {
        Game g(deals({winnablePlace}));
        g.trigger("ig1");
        g.play(winningMove(0));
        const Board played = g.board();
        auto shown = [&] { return qRound(g.scale().zoom() * 100); };
        QList<int> steps;
        for (Qt::Key k : {Qt::Key_Equal, Qt::Key_Equal, Qt::Key_Plus, Qt::Key_Equal, Qt::Key_Equal, Qt::Key_Equal}) {
            g.key(k, Qt::ControlModifier);
            steps << shown();
        }
        QCOMPARE(steps, QList<int>({110, 125, 150, 175, 200, 200}));
        QWidget* view = g.form->centralWidget();
        QVERIFY(!g.action("zoomIn")->isEnabled() && view->size() == QSize(1414, 1052));
        QVERIFY(g.form->minimumSize() == g.form->maximumSize() && g.form->size() == QSize(1414, view->y() + 1052));
        QVERIFY(g.board() == played && g.unlikeBoard().isEmpty());
        g.key(Qt::Key_0, Qt::ControlModifier);
        QVERIFY(shown() == 100 && !g.action("actualSize")->isEnabled());
        g.key(Qt::Key_Minus, Qt::ControlModifier);
        g.start();
        QCOMPARE(shown(), 90);
        shell::choices().setValue("tableZoom", 3.0);
        g.start();
        QVERIFY(shown() == 200 && g.prompts.texts.isEmpty());
        g.key(Qt::Key_0, Qt::ControlModifier);
        view = g.form->centralWidget();
        g.form->windowHandle()->setWindowStates(Qt::WindowMaximized);
        QTRY_VERIFY(view->width() > 707 && view->height() > 526);
        QCOMPARE(g.scale().origin(), QPoint((view->width() - 707) / 2, (view->height() - 526) / 2));
        QVERIFY(g.unlikeBoard().isEmpty() && !(g.form->windowFlags() & Qt::WindowMaximizeButtonHint));
        g.form->windowHandle()->setWindowStates(Qt::WindowNoState);
        QTRY_COMPARE(view->size(), QSize(707, 526));
        QVERIFY(g.form->minimumSize() == g.form->maximumSize() && g.scale().origin().isNull());
    }

    // Scaling with the window, the table fills it at the largest zoom that fits,
    // centred, and plays there; the zoom keys size the window. The choice and
    // the window's size are remembered; unchecked, the window is fixed again at
    // the step below what was shown.
    void scaleWithWindow() {
        Game g(deals({winnablePlace}));
        g.trigger("ig1");
        g.trigger("scaleWithWindow");
        QVERIFY(g.form->maximumWidth() == QWIDGETSIZE_MAX && (g.form->windowFlags() & Qt::WindowMaximizeButtonHint));
        QWidget* view = g.form->centralWidget();
        g.form->resize(1200, 700);
        QTRY_COMPARE(view->width(), 1200);
        const QSize table = g.scale().table(), larger = shell::TableScale(g.scale().zoom() + 0.01, {}).table();
        QVERIFY(table.width() <= 1200 && table.height() <= view->height());
        QVERIFY(larger.width() > 1200 || larger.height() > view->height());
        QCOMPARE(g.scale().origin(), QPoint((1200 - table.width()) / 2, (view->height() - table.height()) / 2));
        g.play(winningMove(0));
        QVERIFY(g.action("undo")->isEnabled() && g.unlikeBoard().isEmpty());
        g.key(Qt::Key_0, Qt::ControlModifier);
        QTRY_COMPARE(view->size(), QSize(707, 526));
        g.form->resize(1100, 700);
        QTRY_COMPARE(view->width(), 1100);
        const QSize size = g.form->size();
        g.prompts.answers = {Answer::Yes};
        g.form->close();
        g.start();
        QVERIFY(g.action("scaleWithWindow")->isChecked() && g.form->size() == size);
        view = g.form->centralWidget();
        const int before = qRound(g.scale().zoom() * 100);
        g.trigger("scaleWithWindow");
        QVERIFY(before > 125 && before < 150 && qRound(g.scale().zoom() * 100) == 125);
        QVERIFY(g.form->minimumSize() == g.form->maximumSize() && view->size() == QSize(884, 658));
    }

    void save() {
        Game g(deals({winnablePlace}));
        g.trigger("ig1");
        const QByteArray layout = QByteArray::fromStdString(g.board().raskl);
        g.play(winningMove(0));  // the layout is stored as dealt
        g.trigger("ig2");           // cancelled
        QVERIFY(g.exists("save.txt") && g.file("save.txt").isEmpty());
        // No: back to the name as typed, then a name that can be stored; Yes: "?" is stored.
        g.prompts.inputs = {"Café 日本", "Cafe", "é"};
        g.prompts.answers = {Answer::No, Answer::Yes};
        g.trigger("ig2");
        g.trigger("ig2");
        QCOMPARE(g.prompts.asked[2].typed, QString("Café 日本"));
        QVERIFY(g.prompts.texts[1].contains(": é 日 本\n") && g.prompts.boxes[1].buttons == Prompts::Buttons::YesNo);
        QCOMPARE(g.prompts.texts.count("Расклад сохранен"), 2);
        QCOMPARE(g.file("save.txt"), layout + ", Cafe, \r\n" + layout + ", ?, \r\n");
    }

    void load() {
        Game g(deals({winnablePlace, [](int suit, int rank) { return 49 - winnablePlace(suit, rank); }}));
        g.trigger("ig1");
        const Board first = g.board();
        g.prompts.inputs = {"first"};
        g.trigger("ig2");
        g.trigger("ig1");
        g.play(winningMove(0));
        QVERIFY(g.action("undo")->isEnabled());
        g.prompts.handlers = {[](QDialog& d) {
            d.show();
            for (auto b : {"Command1", "Command4"}) QTest::mouseClick(d.findChild<QPushButton*>(b), Qt::LeftButton);
        }};
        g.trigger("ig3");
        QVERIFY(g.board().raskl == first.raskl && g.board().kartleft == first.kartleft);
        QVERIFY(g.unlikeBoard().isEmpty() && !g.action("undo")->isEnabled());
    }

    void quitQuestion() {
        Game g(deals({winnablePlace}), "1");
        g.trigger("ig1");
        g.click({1, 2});
        const Board before = g.board();
        QVERIFY(!g.form->close());  // the close button, answered No
        QVERIFY(g.form->isVisible() && g.board() == before && g.exists("save1.txt") && g.exists("load.txt"));
        QCOMPARE(g.file("ini.txt"), QByteArray("1"));  // start-up reads it and never writes it
        g.prompts.answers = {Answer::Yes};
        g.trigger("vix");  // the Quit command on the menu bar
        const Box& quit = g.prompts.boxes.last();
        QVERIFY(g.prompts.boxes.size() == 2 && quit.buttons == Prompts::Buttons::YesNo && quit.icon == Prompts::Icon::Question);
        QVERIFY(!g.form->isVisible() && !g.exists("save1.txt") && !g.exists("load.txt") && g.exists("save.txt"));
        QCOMPARE(g.file("ini.txt"), QByteArray("1\r\n"));
    }

    // A state folder that cannot be written: the game plays on without a
    // record and says so once, in the language in force; Continue stays greyed.
    void withoutARecord() {
        Game g({}, "1\r\n");
        g.write("state", "a file where the folder should be");
        qputenv("XDG_STATE_HOME", g.path("state").toUtf8());
        g.start();
        QTRY_COMPARE(g.prompts.texts.size(), 1);
        QVERIFY(g.prompts.texts[0].startsWith("Your games cannot be recorded: "));
        g.prompts.inputs = {"8"};
        g.trigger("dealNumber");
        g.trigger("ig5");
        QVERIFY(g.prompts.texts.size() == 1 && !g.action("continueGame")->isEnabled());
        QCOMPARE(g.board().raskl.substr(0, 8), " 24, 45,");  // deal 8, played all the same
    }
};

QTEST_MAIN(WindowTest)
#include "tst_window.moc"
