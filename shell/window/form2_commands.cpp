// The menu commands of the main window and the two languages.
#include <QAction>
#include <QMenu>
#include <QStringList>

#include "shell/dialogs/about_window.h"
#include "shell/table/board_view.h"
#include "form2.h"
#include "shell/dialogs/form5.h"
#include "game_menu.h"
#include "shell/dialogs/help_window.h"
#include "shell/solver/solver_menu.h"
#include "store/codepage.h"

namespace vorn::shell {

namespace {
constexpr int kHelpTopic = 1010;
}

// New game: Save and Deal again become available for good, then the deal, then
// its layout goes to save1.txt. With Winnable deals only checked, the solver menu
// deals until a layout is proven winnable and then calls deal() itself.
void Form2::ig1Click() {
    solver_->stop();
    menu_->ig2->setEnabled(true);
    menu_->ig5->setEnabled(true);
    if (solver_->dealWinnable()) return;
    deal(random_);
}

// Every New game deal ends here.
void Form2::deal(Random& random) {
    board_.rasklad(random);
    forgetMoves();
    if (!store_.rewriteCurrentDeal(board_.raskl)) reportFileProblem(store_.errorText());
    syncFromBoard();
}

// Deal again: the current layout laid out once more.
void Form2::ig5Click() {
    solver_->stop();
    board_.rasklzan();
    forgetMoves();
    syncFromBoard();
}

// Save: asks for a name and appends the current layout under it to save.txt.
void Form2::ig2Click() {
    const Language lang = saveLanguage();
    const QString title = text(Text::Zagol, lang);
    auto box = [&](const QString& message) {
        prompts_.message(this, message, title, Prompts::Buttons::Ok, Prompts::Icon::None);
    };
    QString name;
    for (;;) {
        name = prompts_.input(this, text(Text::SavePrompt, lang), title, name);
        if (name.isEmpty()) {
            box(text(Text::SaveEmptyName, lang));
            return;
        }
        // save.txt holds Windows-1251: a letter it has no byte for is stored as
        // '?'. The player hears which ones first and may go back to the name.
        const std::vector<std::string> lost = store::outsideCp1251(name.toStdString());
        if (lost.empty()) break;
        QStringList shown;
        for (const std::string& c : lost) shown.append(QString::fromStdString(c));
        const auto answer = prompts_.message(this, text(Text::SaveLostCharacters, lang).arg(shown.join(QLatin1Char(' '))),
                                             title, Prompts::Buttons::YesNo, Prompts::Icon::Question);
        if (answer == Prompts::Answer::Yes) break;
    }
    if (!store_.appendRecord(board_.raskl, name.toStdString())) {
        // Never report a save that did not happen.
        box(text(Text::FileError, lang).arg(QString::fromStdString(store_.errorText())));
        return;
    }
    box(text(Text::SaveDone, lang));
}

// Load: the load dialog hands a layout back through load.txt; the board shows it.
void Form2::ig3Click() {
    solver_->stop();
    {
        Form5 dialog(folder_, prompts_, this, [this] { showHelp(); });
        prompts_.exec(dialog);
    }
    const Board before = board_;
    const LayoutProblem problem = board_.showLayout(store_.readHandOver());
    if (!(board_ == before)) forgetMoves();
    syncFromBoard();
    if (problem != LayoutProblem::None) say(text(Text::LayoutDamaged, language()));
}

// Русский: all six steps, also when Russian is already in force.
void Form2::ig7Click() {
    applyLanguage(Language::Russian);
    if (!settings_.write(menu_->ig8->isChecked())) reportFileProblem(settings_.errorText());
    messrus();
    languageAdditions();
}

// English: the same six steps the other way.
void Form2::ig8Click() {
    applyLanguage(Language::English);
    if (!settings_.write(menu_->ig8->isChecked())) reportFileProblem(settings_.errorText());
    messeng();
    languageAdditions();
}

// The first four steps of a switch: check marks, captions, title, help file.
void Form2::applyLanguage(Language lang) {
    const bool english = lang == Language::English;
    (english ? menu_->ig8 : menu_->ig7)->setChecked(true);
    (english ? menu_->ig7 : menu_->ig8)->setChecked(false);
    menu_->setCaptions(lang);
    setWindowTitle(text(Text::Title, lang));
    helpFile_ = text(Text::HelpFile, lang);
}

void Form2::messrus() {
    zagol_ = text(Text::Zagol, Language::Russian);
    messvix_ = text(Text::Messvix, Language::Russian);
    messhod_ = text(Text::Messhod, Language::Russian);
    messnov_ = text(Text::Messnov, Language::Russian);
    messkart_ = text(Text::Messkart, Language::Russian);
}

void Form2::messeng() {
    zagol_ = text(Text::Zagol, Language::English);
    messvix_ = text(Text::Messvix, Language::English);
    messhod_ = text(Text::Messhod, Language::English);
    messnov_ = text(Text::Messnov, Language::English);
    messkart_ = text(Text::Messkart, Language::English);
}

// Beyond the old game: screen-reader names and Qt's own button texts follow too.
void Form2::languageAdditions() {
    const Language lang = language();
    view_->setLanguage(lang);
    solver_->setCaptions(lang);
    playAidsLanguage(lang);
    qtTexts_.use(lang);
}

Language Form2::saveLanguage() const {
    return menu_->ig7->isChecked() ? Language::Russian : Language::English;
}

void Form2::leg1Click() { showHelp(); }

void Form2::showHelp() { HelpWindow::showTopic(helpFile_, kHelpTopic, this); }

// About: Form3 while Russian is checked, Form4 otherwise.
void Form2::leg3Click() {
    const Language lang = menu_->ig7->isChecked() ? Language::Russian : Language::English;
    AboutWindow about(lang, this, [this] { showHelp(); });
    prompts_.exec(about);
}

}  // namespace vorn::shell
