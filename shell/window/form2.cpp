// The main window: how it is built, loaded, asked to close and unloaded.
#include "form2.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QShortcut>
#include <QTimer>
#include <iostream>

#include "game_menu.h"
#include "language_switch.h"
#include "table_size.h"
#include "shell/app_icon.h"
#include "shell/dialogs/help_window.h"
#include "shell/game.h"
#include "shell/solver/solver_menu.h"
#include "shell/solver/verdict_menu.h"
#include "shell/table/board_view.h"

namespace vorn::shell {

Form2::Form2(std::filesystem::path folder, Prompts& prompts, DealSource& deals, QWidget* parent)
    : QMainWindow(parent),
      folder_(std::move(folder)),
      prompts_(prompts),
      settings_(folder_),
      game_(new Game(folder_, deals, this)) {
    if (const std::optional<std::filesystem::path> state = record::stateFolder()) game_->placeRecord(*state);
    buildWindow();
    formLoad();
}

Form2::~Form2() = default;

void Form2::buildWindow() {
    setObjectName(QStringLiteral("Form2"));
    setWindowTitle(text(Text::Title, Language::Russian));
    // The program's icon comes from the application (main.cpp sets it); only a
    // window made without one (as in the tests) takes its own. An icon of its
    // own would be handed to the window manager twice as the window is made.
    if (QGuiApplication::windowIcon().isNull()) setWindowIcon(gameIcon());
    // A fixed single border: minimize and close, no maximize, no resizing.
    setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint | Qt::MSWindowsFixedSizeDialogHint);

    // The menu bar stays in the window on every desktop, so the board always
    // lies right below it.
    menuBar()->setNativeMenuBar(false);
    menu_ = new GameMenu(menuBar());
    languages_ = new LanguageSwitch(*this, *menu_, settings_);
    sizes_ = new TableSize(*this, {menu_->zoomIn, menu_->zoomOut, menu_->actualSize, menu_->scaleWithWindow});
    view_ = new BoardView(sizes_->startZoom(), this);
    setCentralWidget(view_);
    solver_ = new SolverMenu(*game_, this, view_, [this] { return view_->scale(); },
                             {menu_->hint, menu_->winnable, menu_->grades, menu_->solution},
                             [this](const QString& message) { say(message); });
    verdict_ = new VerdictMenu(*game_, this, menuBar(), menu_->showVerdict, menu_->backToWinnable);
    buildPlayAids();
    sizes_->take(*view_);  // the window's size and frame follow the table's

    connect(menu_->ig1, &QAction::triggered, this, &Form2::ig1Click);
    connect(menu_->ig5, &QAction::triggered, this, &Form2::ig5Click);
    connect(menu_->ig2, &QAction::triggered, this, &Form2::ig2Click);
    connect(menu_->ig3, &QAction::triggered, this, &Form2::ig3Click);
    connect(menu_->ig7, &QAction::triggered, this, [this] { languages_->switchTo(Language::Russian); });
    connect(menu_->ig8, &QAction::triggered, this, [this] { languages_->switchTo(Language::English); });
    connect(languages_, &LanguageSwitch::switched, this, &Form2::followLanguage);
    connect(menu_->leg1, &QAction::triggered, this, &Form2::leg1Click);
    connect(menu_->leg3, &QAction::triggered, this, &Form2::leg3Click);
    connect(menu_->vix, &QAction::triggered, this, &QWidget::close);
    connect(menu_->dealNumber, &QAction::triggered, this, &Form2::askDealNumber);
    connect(menu_->daily, &QAction::triggered, this, [this] { dealDaily(todayUtc()); });
    connect(menu_->continueGame, &QAction::triggered, this, &Form2::continueLast);
    connect(menu_->statistics, &QAction::triggered, this, &Form2::showStatistics);
    connect(game_, &Game::recordChanged, this, &Form2::followRecord);
    connect(game_, &Game::recordTrouble, this, &Form2::followRecord);
    // ig4 toggles its own check mark; the game reads it before each refusal.
    connect(menu_->ig4, &QAction::toggled, game_, &Game::setMessagesShown);

    // F1 anywhere in the window opens the help of the language in force.
    auto* f1 = new QShortcut(QKeySequence(Qt::Key_F1), this);
    f1->setObjectName(QStringLiteral("f1"));
    f1->setContext(Qt::WindowShortcut);
    connect(f1, &QShortcut::activated, this, &Form2::showHelp);

    connect(view_, &BoardView::clicked, game_, &Game::click);
}

// Loading: the language, the store files, the board, in this order.
void Form2::formLoad() {
    languages_->load();
    if (!game_->openStore()) reportFileProblem(game_->storeError());
    syncFromBoard();  // rezhim 1, vybor 1, the starting picture
}

Language Form2::language() const { return languages_->language(); }
const QString& Form2::helpFile() const { return languages_->helpFile(); }
const Messages& Form2::messages() const { return languages_->messages(); }

void Form2::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (centred_) return;
    centred_ = true;
    // The record opens on a thread of its own once the first frame is out;
    // its items follow when it is open.
    QTimer::singleShot(0, game_, &Game::openRecord);
    if (QScreen* s = screen()) {
        const QRect area = s->availableGeometry();
        const QSize size = frameGeometry().size();
        move(area.center() - QPoint(size.width() / 2, size.height() / 2));
    }
}

// Every way of closing the window asks first; only Yes closes it.
void Form2::closeEvent(QCloseEvent* event) {
    if (unloaded_) {
        event->accept();
        return;
    }
    const auto answer = prompts_.message(this, messages().messvix, messages().zagol, Prompts::Buttons::YesNo,
                                         Prompts::Icon::Question);
    if (answer != Prompts::Answer::Yes) {
        event->ignore();
        return;
    }
    formUnload();
    event->accept();
}

// Esc on each open box and dialog, from the top one down; then the unloading
// that Yes to the quit question starts, and every event loop is told to end.
// What the code that opened a box does once it returns opens nothing more: a box
// opened now returns at once, as nothing was chosen in it.
void Form2::endSession() {
    while (QWidget* box = QApplication::activeModalWidget()) {
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(box, &escape);
        if (QApplication::activeModalWidget() == box) box->close();
        if (QApplication::activeModalWidget() == box) break;  // one that will not go stays
    }
    if (!unloaded_) formUnload();
    QCoreApplication::exit(0);
}

// Unloading: the language is written, the temporary files go, save.txt stays.
void Form2::formUnload() {
    unloaded_ = true;
    game_->leave();
    sizes_->remember();
    if (!settings_.write(language() == Language::English)) reportFileProblem(settings_.errorText());
    game_->closeStore();
    if (!game_->storeError().empty()) reportFileProblem(game_->storeError());
    // The help window belongs to the game and goes with it.
    if (HelpWindow* help = HelpWindow::current()) help->close();
}

void Form2::reportFileProblem(const std::string& problem) const { std::cerr << "vorn: " << problem << '\n'; }

}  // namespace vorn::shell
