// The dialogs: the load dialog Form5 opened by the Load command, the about
// windows Form3 and Form4, the help window and the statistics window.
#include <sstream>

#include "record/record.h"
#include "shell/devtools/dark_palette.h"
#include "shell/dialogs/results_chart.h"
#include "shell/dialogs/statistics_window.h"
#include "shell/game_style.h"
#include "support/game.h"

using vorn::shell::HelpWindow;
using vorn::shell::kHelpPages;
using vorn::shell::Language;
using vorn::shell::StatisticsWindow;

namespace {

// A layout string as a deal writes it: 48 place numbers " n" joined by ",".
QByteArray layout(int shift) {
    QByteArray out;
    for (int i = 0; i < 48; ++i) out += QByteArray(i ? "," : "") + ' ' + QByteArray::number((i + shift) % 48 + 1);
    return out;
}

void press(QDialog& d, const QString& button) { QTest::mouseClick(d.findChild<QPushButton*>(button), Qt::LeftButton); }

void clickRow(QListWidget* list, int row) {
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(row)).center());
}

// Shows a window and waits until it takes the keys.
void showActive(QDialog& d) {
    d.show();
    d.activateWindow();
    QTRY_COMPARE(QApplication::activeWindow(), &d);
}

// A game whose save.txt holds two records, the second written without the
// space after its layout, and a line that is no record. `steps` run on the
// load dialog, opened from the Game menu and active.
void load(const QByteArray& ini, const std::function<void(Game&, QDialog&)>& steps) {
    Game g({}, ini);
    g.write("save.txt", layout(0) + ", first, \r\n" + layout(1) + ",Xsecond, \r\nrubbish\r\n");
    g.prompts.handlers = {[&](QDialog& d) {
        d.setWindowModality(Qt::ApplicationModal);  // as exec() shows it
        showActive(d);
        steps(g, d);
    }};
    g.trigger("ig3");
    QVERIFY(g.prompts.handlers.isEmpty());
}

// A game record in a scratch state folder, holding five games that ended in
// this order: won; won with a hint; lost (its deal proven lost at the start);
// given up; won, the deal of the day. The statistics window shows it.
struct Games {
    Games() {
        struct Played {
            record::Result result;
            bool winnable;
            int hints, moves, seconds, grade;  // grade -1: none
        };
        const Played played[] = {{record::Result::Won, true, 0, 100, 120, 0},
                                 {record::Result::Won, true, 1, 60, 60, 0},
                                 {record::Result::Lost, false, 0, 30, 50, -1},
                                 {record::Result::GivenUp, true, 0, 20, 40, 4},
                                 {record::Result::Won, true, 0, 80, 300, 2}};
        const auto day = record::Clock::time_point(std::chrono::hours(24 * 19844));  // 2024-05-01
        for (int i = 0; i < 5; ++i) {
            const Played& p = played[i];
            const bool daily = i == 4;
            const record::GameId id = *record.begin({daily ? record::Start::Daily : record::Start::New, {}, {}, {},
                                                     daily ? std::optional(today) : std::nullopt,
                                                     p.winnable ? record::Verdict::Winnable : record::Verdict::Lost},
                                                    day + std::chrono::seconds(2 * i));
            record.update(id, {"", p.moves, 0, p.hints, 0, 0, 0});
            record.end(id, p.result, p.seconds * 1000, day + std::chrono::seconds(2 * i + 1));
            if (p.grade >= 0) record.setGrade(id, 0, p.grade, 1);
        }
    }
    shell::StatisticsSource source() {
        return {[this] { return record.summary(today, shell::WinRates::kWanted); }, [this] { return record.reset(); },
                [this](const std::filesystem::path& file) { return record.exportCsv(file); }};
    }

    QTemporaryDir state;
    const std::string today = "2024-05-01";
    record::Record record = std::move(record::Record::open(state.path().toStdString()).record.value());
    RecordingPrompts prompts;
};

QString labelText(QWidget& window, const char* name) {
    auto* label = window.findChild<QLabel*>(name);
    return label ? label->text() : QString("no %1").arg(name);
}

// WCAG contrast ratio of two colours, 1 to 21.
double contrast(QRgb a, QRgb b) {
    auto luminance = [](QRgb c) {
        auto lin = [](int v) { return v <= 10 ? v / 255.0 / 12.92 : std::pow((v / 255.0 + 0.055) / 1.055, 2.4); };
        return 0.2126 * lin(qRed(c)) + 0.7152 * lin(qGreen(c)) + 0.0722 * lin(qBlue(c));
    };
    const double la = luminance(a), lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

// The text in `area` of a picture against the background around it: its most
// frequent colour is the background, the pixel that stands out most the text.
double textContrast(const QImage& picture, const QRect& area) {
    QHash<QRgb, int> count;
    const QRect r = area & picture.rect();
    for (int y = r.top(); y <= r.bottom(); ++y)
        for (int x = r.left(); x <= r.right(); ++x) ++count[picture.pixel(x, y)];
    QRgb back = 0;
    for (auto it = count.cbegin(); it != count.cend(); ++it)
        if (it.value() > count.value(back)) back = it.key();
    double best = 1;
    for (auto it = count.cbegin(); it != count.cend(); ++it) best = std::max(best, contrast(it.key(), back));
    return best;
}

// What WCAG asks of a text in this font: 3 for large text, else 4.5.
double needed(const QFont& f) { return f.pointSizeF() >= 18 || (f.bold() && f.pointSizeF() >= 14) ? 3 : 4.5; }

// The first text of a window that is too faint to read, with its contrast; empty
// when all read well. Every paragraph of the help page, scrolled into view, and
// every entry of its contents list, or every label, button and field of a dialog.
QString faintText(QWidget& window) {
    const QString faint("%1: %2 < %3");
    if (auto* browser = window.findChild<QTextBrowser*>()) {
        for (QTextBlock b = browser->document()->begin(); b.isValid(); b = b.next()) {
            if (b.text().trimmed().isEmpty()) continue;
            const QRect r = browser->document()->documentLayout()->blockBoundingRect(b).toAlignedRect();
            browser->verticalScrollBar()->setValue(r.top());
            const double ratio = textContrast(browser->viewport()->grab().toImage(),
                                              r.translated(0, -browser->verticalScrollBar()->value()));
            const double need = needed(b.begin().fragment().charFormat().font());
            if (ratio < need) return faint.arg(b.text().left(30)).arg(ratio).arg(need);
        }
    }
    if (auto* list = window.findChild<QListWidget*>()) {
        // The entry of the page shown wears the desktop's own selection colours.
        const QImage picture = list->viewport()->grab().toImage();
        for (int row = 0; row < list->count(); ++row) {
            if (row == list->currentRow()) continue;
            const double ratio = textContrast(picture, list->visualItemRect(list->item(row)));
            const double need = needed(list->font());
            if (ratio < need) return faint.arg(list->item(row)->text()).arg(ratio).arg(need);
        }
        return {};
    }
    const QImage picture = window.grab().toImage();
    for (QWidget* w : window.findChildren<QWidget*>()) {
        auto* label = qobject_cast<QLabel*>(w);
        if (label ? label->text().isEmpty() : !qobject_cast<QAbstractButton*>(w) && !qobject_cast<QLineEdit*>(w))
            continue;
        const int frame = label ? 0 : 3;  // inside the frame of a button or field
        const QRect r(w->mapTo(&window, QPoint()), w->size());
        const double ratio = textContrast(picture, r.adjusted(frame, frame, -frame, -frame));
        if (ratio < needed(w->font())) return faint.arg(w->objectName()).arg(ratio).arg(needed(w->font()));
    }
    return {};
}

}  // namespace

class DialogsTest : public QObject {
    Q_OBJECT
private slots:
    void form5_data() {
        QTest::addColumn<QByteArray>("ini");
        QTest::addColumn<QStringList>("texts");  // the title, the four buttons, the names shown, F1's help, the boxes
        QTest::newRow("Russian") << QByteArray("2\r\n")
                                 << QStringList{"Тавирен v2.0 - Загрузить расклад", "Следующий", "Предыдущий",
                                                "Загрузить", "Выход", "first", "second", "second", "vorn.HLP", "Нет расклада",
                                                "Достигнуто начало файла", "Нет расклада", "Достигнут конец файла"};
        QTest::newRow("English") << QByteArray("1\r\n")
                                 << QStringList{"Vorn v2.0 - Load", "Next", "Previous", "Load", "Quit", "first",
                                                "second", "second", "vorne.HLP", "ERROR", "This is bottom", "ERROR", "This is top"};
    }
    // Next and Previous page through the records and say where they stop;
    // Load refuses while no layout is shown. F1 opens help over it. One fixed
    // size and font; Tab goes through the controls in order.
    void form5() {
        QFETCH(QByteArray, ini);
        QFETCH(QStringList, texts);
        load(ini, [&](Game& g, QDialog& d) {
            QStringList seen{d.windowTitle()};
            for (auto b : {"Command1", "Command2", "Command4", "Command5"}) seen << d.findChild<QPushButton*>(b)->text();
            auto* name = d.findChild<QLineEdit*>("Text1");
            for (auto b : {"Command4", "Command2", "Command1", "Command1", "Command1", "Command4", "Command1", "Command2"}) {
                press(d, b);
                if (!name->text().isEmpty()) seen << name->text();
            }
            QVERIFY(d.size() == QSize(418, 143) && d.minimumSize() == d.maximumSize());
            QVERIFY(name->font().bold() && name->font().pointSizeF() == 9.75 && name->font().family() == "MS Sans Serif");
            name->setFocus();
            QStringList order;
            for (int i = 0; i < 5; ++i) {
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
                order << QApplication::focusWidget()->objectName();
            }
            QCOMPARE(order, QStringList({"Command1", "Command2", "Command4", "Command5", "Text1"}));
            // The dialog is modal, yet F1 opens the help of the game's language,
            // which takes keys at once and closes with Escape.
            QTest::keyClick(d.windowHandle(), Qt::Key_F1);
            QPointer<HelpWindow> help = HelpWindow::current();
            QTRY_COMPARE(QApplication::activeWindow(), help.data());
            seen << help->helpFile();
            QTest::keyClick(help->windowHandle(), Qt::Key_Escape);
            QTRY_VERIFY(!help && d.isVisible());
            QCOMPARE(seen << g.prompts.texts, texts);
            for (const Box& b : g.prompts.boxes) QCOMPARE(b.title, d.windowTitle().section(" - ", 0, 0));
            press(d, "Command5");
        });
    }

    // However the dialog ends, load.txt gets the layout shown or an empty line;
    // while it is open it holds no bytes at all.
    void form5HandsOver_data() {
        QTest::addColumn<QStringList>("steps");
        QTest::addColumn<QByteArray>("handed");
        QTest::newRow("Load") << QStringList{"Command1", "Command4"} << layout(0) + "\r\n";
        QTest::newRow("close button") << QStringList{"Command1", "Command1", "close"} << layout(1) + "\r\n";
        QTest::newRow("close button, no record") << QStringList{"Command1", "Command1", "Command1", "close"}
                                                 << QByteArray("\r\n");
        QTest::newRow("Quit") << QStringList{"Command1", "Command5"} << QByteArray("\r\n");
        QTest::newRow("Escape acts as Quit") << QStringList{"Command1", "Escape"} << QByteArray("\r\n");
    }
    void form5HandsOver() {
        QFETCH(QStringList, steps);
        QFETCH(QByteArray, handed);
        load("2\r\n", [&](Game& g, QDialog& d) {
            QVERIFY(g.exists("load.txt") && g.file("load.txt").isEmpty());
            for (const QString& step : steps) {
                if (step == "close") d.close();
                else if (step == "Escape") QTest::keyClick(d.windowHandle(), Qt::Key_Escape);
                else press(d, step);
            }
            QVERIFY(!d.isVisible());
            QCOMPARE(g.file("load.txt"), handed);
        });
    }

    // Texts of the language in force, F1 for its help, OK closes.
    void aboutWindows() {
        const QStringList texts[] = {{"Тавирен v2.0", "и работает в среде WINDOWS 9X/Me/NT/2000/XP", "vorn.HLP"},
                                     {"Vorn v2.0", "and works under the control of 9X/Me/NT/2000/XP", "vorne.HLP"}};
        for (const bool english : {false, true}) {  // Label2, Label6, the help file of F1
            Game g({}, english ? "1\r\n" : "2\r\n");
            g.prompts.handlers = {[&](QDialog& d) {
                showActive(d);
                QTest::keyClick(d.windowHandle(), Qt::Key_F1);
                QCOMPARE(QStringList({d.findChild<QLabel*>("Label2")->text(), d.findChild<QLabel*>("Label6")->text(),
                                      HelpWindow::current() ? HelpWindow::current()->helpFile() : ""}), texts[english]);
                press(d, "Command1");
                QVERIFY(d.isModal() && !d.isVisible() && d.result() == QDialog::Accepted);
            }};
            g.trigger("leg3");
            QVERIFY(g.prompts.handlers.isEmpty());
        }
    }

    // One window for every call; a page per help file and topic, titled by the
    // page, or a text that says which page is missing. Escape closes it.
    void helpWindow_data() {
        QTest::addColumn<QString>("file");
        QTest::addColumn<int>("topic");
        QTest::addColumn<QString>("title");
        QTest::newRow("Russian") << "vorn.HLP" << 1010 << "Тавирен v2.0 - Как играть";
        QTest::newRow("English") << "vorne.HLP" << 1010 << "Vorn v2.0 - How to play";
        QTest::newRow("no such topic") << "vorne.HLP" << 42 << "Help page not found: vorne.HLP#42";
        QTest::newRow("no such file") << "x.HLP" << 1010 << "Страница справки не найдена: x.HLP#1010";
    }
    void helpWindow() {
        QFETCH(QString, file);
        QFETCH(int, topic);
        QFETCH(QString, title);
        QPointer<HelpWindow> help = HelpWindow::showTopic(file, topic);
        QCOMPARE(help->windowTitle(), title);
        QVERIFY(title.contains("#") ? help->pageText() == title : help->pageText().size() > 500);
        QCOMPARE(HelpWindow::showTopic("vorn.HLP", 1010), help.data());
        QTRY_COMPARE(QApplication::activeWindow(), help.data());
        QTest::keyClick(help->windowHandle(), Qt::Key_Escape);
        QTRY_VERIFY(!help && !HelpWindow::current());
    }

    // The contents list names every page of the help file shown, titled by the
    // page without the game's name; a click shows the page, every link leads to
    // a page of the same file, and Back and Forward retrace the pages read.
    void helpPages() {
        for (const auto& [file, prefix] :
             {std::pair("vorn.HLP", "Тавирен v2.0 - "), std::pair("vorne.HLP", "Vorn v2.0 - ")}) {
            QPointer<HelpWindow> help = HelpWindow::showTopic(file, 1010);
            auto* contents = help->findChild<QListWidget*>("helpContents");
            auto* browser = help->findChild<QTextBrowser*>("helpText");
            QCOMPARE(contents->count(), int(kHelpPages.size()));
            QTextCursor link;
            for (int row = 0; row < contents->count(); ++row) {
                clickRow(contents, row);
                QCOMPARE(help->topic(), kHelpPages[size_t(row)]);
                QCOMPARE(help->windowTitle(), prefix + contents->item(row)->text());
                for (QTextBlock b = browser->document()->begin(); b.isValid(); b = b.next())
                    for (auto f = b.begin(); !f.atEnd(); ++f) {
                        const QString href = f.fragment().charFormat().anchorHref();
                        if (href.isEmpty()) continue;
                        QVERIFY2(QFile::exists(':' + browser->source().resolved(href).path()), qPrintable(href));
                        link = QTextCursor(browser->document());
                        link.setPosition(f.fragment().position() + 1);
                    }
            }
            // The last page's last link, Back, Forward (Alt+Right), and F1's page.
            QTRY_COMPARE(QApplication::activeWindow(), help.data());
            browser->setTextCursor(link);
            browser->ensureCursorVisible();
            QTest::mouseClick(browser->viewport(), Qt::LeftButton, {}, browser->cursorRect(link).center());
            const int linked = help->topic();
            QVERIFY(linked != kHelpPages.back());
            QCOMPARE(help->windowTitle(), prefix + contents->currentItem()->text());
            QTest::mouseClick(help->findChild<QToolButton*>("helpBack"), Qt::LeftButton);
            QCOMPARE(help->topic(), kHelpPages.back());
            QTest::keyClick(contents, Qt::Key_Right, Qt::AltModifier);
            QCOMPARE(help->topic(), linked);
            QCOMPARE(HelpWindow::showTopic(file, 1010)->topic(), 1010);
            delete help;
        }
    }

    // The first time, the help window opens with its whole frame on the screen,
    // even near a window that lies partly off it. Opened from a modal window, it
    // stays where it is, never hidden for a moment, when that window closes.
    void helpWindowPlace() {
        QWidget owner;
        owner.setGeometry(-300, -200, 200, 100);
        owner.show();
        QPointer<HelpWindow> help = HelpWindow::showTopic("vorne.HLP", 1010, &owner);
        QVERIFY(help->screen()->availableGeometry().contains(help->frameGeometry()));
        QDialog modal;
        modal.setWindowModality(Qt::ApplicationModal);
        modal.show();
        QCOMPARE(HelpWindow::showTopic("vorne.HLP", 1010), help.data());
        help->move(40, 30);
        QWindow* native = help->windowHandle();
        QSignalSpy unmapped(native, &QWindow::visibleChanged);  // a window shown anew is placed anew
        modal.close();
        QVERIFY(help->isVisible() && help->windowHandle() == native && unmapped.isEmpty());
        QCOMPARE(help->pos(), QPoint(40, 30));
        delete help;
    }

    // The figures of a small record in words, in both languages; a grade without
    // games is left out.
    void statistics_data() {
        QTest::addColumn<bool>("english");
        QTest::addColumn<QStringList>("texts");  // the title; played, won, winnable, with help, average, Expert, daily, chart
        QTest::newRow("Russian") << false << QStringList{
            "Тавирен v2.0 - Статистика", "5", "3 (60\u00a0%)",
            "3 победы из 4 выигрышных раскладов (75\u00a0%)\nсерия сейчас 1, самая длинная 2",
            "1 победа из 1 партии (100\u00a0%)", "80 ходов за 2 мин 40 с", "0 побед из 1 партии (0\u00a0%)",
            "сегодняшний выигран", "1 день", "Доля побед в последних 5 партиях: 60\u00a0%, без перемен"};
        QTest::newRow("English") << true << QStringList{
            "Vorn v2.0 - Statistics", "5", "3 (60\u00a0%)", "won 3 of 4 winnable deals (75\u00a0%)\nstreak now 1, longest 2",
            "won 1 of 1 game (100\u00a0%)", "80 moves in 2 min 40 s", "won 0 of 1 game (0\u00a0%)", "today's is won",
            "1 day", "Win rate over the last 5 games: 60\u00a0%, steady"};
    }
    void statistics() {
        QFETCH(bool, english);
        QFETCH(QStringList, texts);
        Games games;
        StatisticsWindow w(english ? Language::English : Language::Russian, games.source(), games.prompts);
        QStringList seen{w.windowTitle()};
        for (auto name : {"played", "won", "winnable", "withHelp", "averageWon", "grade4", "daily", "dailyStreak", "chartSays"})
            seen << labelText(w, name);
        QCOMPARE(seen, texts);
        QVERIFY(!w.findChild<QLabel*>("grade1"));
        QCOMPARE(w.findChild<QWidget*>("chart")->accessibleName(), texts.last());
    }

    // The chart's line: each point the share of wins among the 20 games up to
    // it, from the first point whose share is full; the trend sets the last 20
    // games against the 20 before them.
    void winRates() {
        const std::pair<QString, QString> cases[] = {
            // results (W: won), then the games shown, the first point and its rate, the last per cent, the trend
            {QString("L").repeated(20) + QString("W").repeated(20), "40 19 0 100 1"},
            {QString("W").repeated(20) + QString("L").repeated(20), "40 19 1 0 -1"},
            {QString("WL").repeated(60).left(119), "100 0 0.5 50 0"},
        };
        for (const auto& [results, expected] : cases) {
            std::vector<bool> won;
            for (const QChar c : results) won.push_back(c == 'W');
            const shell::WinRates r(won);
            QCOMPARE(QString("%1 %2 %3 %4 %5").arg(r.shown.size()).arg(r.firstPoint)
                         .arg(r.points.at(r.firstPoint), 0, 'g', 2).arg(r.lastPercent).arg(r.trend), expected);
        }
    }

    // Reset asks first: No keeps every game; Yes (here by its mnemonic)
    // forgets them, and the window says there are none.
    void statisticsReset() {
        Games games;
        games.prompts.answers = {Answer::No, Answer::Yes};
        StatisticsWindow w(Language::English, games.source(), games.prompts);
        showActive(w);
        press(w, "reset");
        QCOMPARE(labelText(w, "played"), "5");
        QTest::keyClick(w.windowHandle(), Qt::Key_R, Qt::AltModifier);
        QTRY_COMPARE(labelText(w, "message"), "No games recorded yet.");  // a mnemonic clicks after a moment
        QCOMPARE(games.record.summary(games.today)->all.played, 0);
        QCOMPARE(games.prompts.boxes.size(), 2);
        for (const Box& b : games.prompts.boxes)
            QVERIFY(b.text == "Forget every recorded game? The game in play stays recorded." && b.title == "Vorn v2.0" &&
                    b.buttons == Prompts::Buttons::YesNo && b.icon == Prompts::Icon::Question);
    }

    // Export writes the record's own CSV into the file chosen; a file that
    // cannot be written says so. Escape closes the window.
    void statisticsExport() {
        Games games;
        QTemporaryDir out;
        games.prompts.files = {out.filePath("games.csv"), out.filePath("no-such-folder/games.csv")};
        StatisticsWindow w(Language::Russian, games.source(), games.prompts);
        showActive(w);
        press(w, "export");
        std::ostringstream csv;
        QVERIFY(games.record.exportCsv(csv));
        QFile written(out.filePath("games.csv"));
        QVERIFY(written.open(QIODevice::ReadOnly));
        QCOMPARE(written.readAll().toStdString(), csv.str());
        press(w, "export");
        QCOMPARE(games.prompts.texts, QStringList{"Не удалось записать файл: " + out.filePath("no-such-folder/games.csv")});
        QTest::keyClick(w.windowHandle(), Qt::Key_Escape);
        QVERIFY(!w.isVisible());
    }

    // Without a record this run the window says so in one line, and Reset and
    // Export are off.
    void statisticsWithoutRecord() {
        RecordingPrompts prompts;
        StatisticsWindow w(Language::English, {[] { return std::optional<record::Summary>(); }, {}, {}}, prompts);
        QCOMPARE(labelText(w, "message"), "Games are not recorded this time, so there are no statistics.");
        QVERIFY(!w.findChild<QPushButton*>("reset")->isEnabled() && !w.findChild<QPushButton*>("export")->isEnabled());
    }

    // Under a dark desktop palette, whether dark from the start or turned dark
    // while the window is open, every text reads well against the background
    // around it, measured on the drawn pixels.
    void darkPalette_data() {
        QTest::addColumn<QByteArray>("ini");
        QTest::addColumn<QString>("opens");  // F1, or the menu item
        QTest::addColumn<bool>("whileOpen");
        QTest::newRow("help, Russian") << QByteArray("2\r\n") << "F1" << false;
        QTest::newRow("help, English") << QByteArray("1\r\n") << "F1" << true;
        QTest::newRow("Form3") << QByteArray("2\r\n") << "leg3" << false;
        QTest::newRow("Form4") << QByteArray("1\r\n") << "leg3" << true;
        QTest::newRow("Form5") << QByteArray("1\r\n") << "ig3" << false;
        QTest::newRow("statistics, Russian") << QByteArray("2\r\n") << "statistics" << false;
        QTest::newRow("statistics, English") << QByteArray("1\r\n") << "statistics" << true;
    }
    void darkPalette() {
        QFETCH(QByteArray, ini);
        QFETCH(QString, opens);
        QFETCH(bool, whileOpen);
        struct Restore {
            QPalette light = QApplication::palette();
            ~Restore() { QApplication::setPalette(light); }
        } restore;
        if (!whileOpen) QApplication::setPalette(shell::darkPalette());
        auto check = [&](QWidget& window) {
            window.show();
            if (whileOpen) QApplication::setPalette(shell::darkPalette());
            QCoreApplication::processEvents();  // a new palette reaches the windows through the event loop
            QCOMPARE(faintText(window), QString());
        };
        if (opens == "statistics") {
            Games games;
            StatisticsWindow w(ini == "1\r\n" ? Language::English : Language::Russian, games.source(), games.prompts);
            return check(w);
        }
        Game g({}, ini);
        g.write("save.txt", layout(0) + ", first, \r\n");
        g.prompts.handlers = {[&](QDialog& d) {
            if (opens == "ig3") press(d, "Command1");  // Next: a name in the field
            check(d);
        }};
        if (opens == "F1") {  // every page of the help, chosen in its contents
            g.key(Qt::Key_F1);
            QVERIFY(HelpWindow::current());
            auto* contents = HelpWindow::current()->findChild<QListWidget*>();
            for (int row = contents->count() - 1; row >= 0; --row) {
                clickRow(contents, row);
                check(*HelpWindow::current());
            }
        } else {
            g.trigger(qPrintable(opens));
            QVERIFY(g.prompts.handlers.isEmpty());
        }
    }

    // In the game's style the check box of an unticked menu item stands out from
    // the menu around it by 3:1 (what WCAG asks of a control's outline), under
    // the light and the dark palette.
    void menuCheckBox_data() {
        QTest::addColumn<bool>("dark");
        QTest::newRow("light") << false;
        QTest::newRow("dark") << true;
    }
    void menuCheckBox() {
        QFETCH(bool, dark);
        shell::GameStyle style;
        QMenu menu;
        menu.setStyle(&style);
        if (dark) menu.setPalette(shell::darkPalette());
        QAction* item = menu.addAction(QStringLiteral("Messages"));
        item->setCheckable(true);
        menu.popup(QPoint());
        const QRect row = menu.actionGeometry(item);
        const double ratio = textContrast(menu.grab().toImage(), QRect(row.topLeft(), QSize(row.height(), row.height())));
        QVERIFY2(ratio >= 3, qPrintable(QString::number(ratio)));
    }
};

QTEST_MAIN(DialogsTest)
#include "tst_dialogs.moc"
