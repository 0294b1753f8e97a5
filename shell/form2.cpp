// The main window: how it is built, loaded, asked to close and unloaded.
#include "form2.h"

#include <QAction>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QLayout>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QShortcut>
#include <iostream>

#include "app_icon.h"
#include "board_view.h"
#include "game_menu.h"
#include "help_window.h"
#include "solver_menu.h"

namespace vorn::shell {

Form2::Form2(std::filesystem::path folder, Prompts& prompts, Random& random, QWidget* parent)
    : QMainWindow(parent),
      folder_(std::move(folder)),
      prompts_(prompts),
      random_(random),
      settings_(folder_),
      store_(folder_) {
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
    view_ = new BoardView(this);
    setCentralWidget(view_);
    solver_ = new SolverMenu(*this);
    buildPlayAids();
    layout()->setSizeConstraint(QLayout::SetFixedSize);

    connect(menu_->ig1, &QAction::triggered, this, &Form2::ig1Click);
    connect(menu_->ig5, &QAction::triggered, this, &Form2::ig5Click);
    connect(menu_->ig2, &QAction::triggered, this, &Form2::ig2Click);
    connect(menu_->ig3, &QAction::triggered, this, &Form2::ig3Click);
    connect(menu_->ig7, &QAction::triggered, this, &Form2::ig7Click);
    connect(menu_->ig8, &QAction::triggered, this, &Form2::ig8Click);
    connect(menu_->leg1, &QAction::triggered, this, &Form2::leg1Click);
    connect(menu_->leg3, &QAction::triggered, this, &Form2::leg3Click);
    connect(menu_->vix, &QAction::triggered, this, &QWidget::close);
    // ig4 needs no handler: being checkable, it toggles its own check mark.

    // F1 anywhere in the window opens the help of the language in force.
    auto* f1 = new QShortcut(QKeySequence(Qt::Key_F1), this);
    f1->setObjectName(QStringLiteral("f1"));
    f1->setContext(Qt::WindowShortcut);
    connect(f1, &QShortcut::activated, this, &Form2::showHelp);

    connect(view_, &BoardView::cardClicked, this, &Form2::cardClick);
    connect(view_, &BoardView::pileClicked, this, &Form2::pileClick);
}

// Form_Load: the language, the store files, the board, in this order.
void Form2::formLoad() {
    if (settings_.readEnglish()) {
        // As the switch to English does, but without writing ini.txt.
        applyLanguage(Language::English);
        messeng();
    } else {
        // The Russian captions are those the menu was built with; they stay.
        helpFile_ = text(Text::HelpFile, Language::Russian);
        messrus();
    }
    languageAdditions();

    if (!store_.openAtStartup()) reportFileProblem(store_.errorText());

    board_ = Board::loaded();  // rezhim 1, vybor 1, start()
    syncFromBoard();
}

void Form2::syncFromBoard() { view_->sync(board_); }

Language Form2::language() const {
    return menu_->ig8->isChecked() ? Language::English : Language::Russian;
}

void Form2::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (centred_) return;
    centred_ = true;
    if (QScreen* s = screen()) {
        const QRect area = s->availableGeometry();
        const QSize size = frameGeometry().size();
        move(area.center() - QPoint(size.width() / 2, size.height() / 2));
    }
}

// Form_QueryUnload: every way of closing the window asks first; only Yes closes.
void Form2::closeEvent(QCloseEvent* event) {
    if (unloaded_) {
        event->accept();
        return;
    }
    const auto answer = prompts_.message(this, messvix_, zagol_, Prompts::Buttons::YesNo, Prompts::Icon::Question);
    if (answer != Prompts::Answer::Yes) {
        event->ignore();
        return;
    }
    formUnload();
    event->accept();
}

// Form_Unload: the language is written, the temporary files go, save.txt stays.
void Form2::formUnload() {
    unloaded_ = true;
    if (!settings_.write(menu_->ig8->isChecked())) reportFileProblem(settings_.errorText());
    store_.shutdown();
    if (!store_.errorText().empty()) reportFileProblem(store_.errorText());
    // The help window belongs to the game and goes with it.
    if (HelpWindow* help = HelpWindow::current()) help->close();
}

void Form2::reportFileProblem(const std::string& problem) const { std::cerr << "vorn: " << problem << '\n'; }

}  // namespace vorn::shell
