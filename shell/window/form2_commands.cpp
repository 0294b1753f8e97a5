// The menu commands of the main window.
#include <QAction>
#include <QMenu>
#include <QStringList>

#include "form2.h"
#include "game_menu.h"
#include "language_switch.h"
#include "shell/dialogs/about_window.h"
#include "shell/dialogs/form5.h"
#include "shell/dialogs/help_window.h"
#include "shell/dialogs/results_chart.h"
#include "shell/dialogs/statistics_window.h"
#include "shell/game.h"
#include "shell/solver/solver_menu.h"
#include "shell/solver/verdict_menu.h"
#include "shell/table/announcer.h"
#include "shell/table/board_view.h"
#include "store/codepage.h"

namespace vorn::shell {

namespace {
constexpr int kHelpTopic = 1010;
}

// New game: Save and Deal again become available for good, then the deal, then
// its layout goes to save1.txt. With Winnable deals only checked, the game
// deals once the solver has proven a layout winnable.
void Form2::ig1Click() {
    solver_->stop();
    menu_->ig2->setEnabled(true);
    menu_->ig5->setEnabled(true);
    game_->newGame();
}

// A deal by number is New game with a chosen number.
void Form2::dealNumbered(DealNumber number) {
    solver_->stop();
    menu_->ig2->setEnabled(true);
    menu_->ig5->setEnabled(true);
    game_->dealNumbered(number);
}

// The deal of the day is New game with the day's number, once it is found.
void Form2::dealDaily(Date date) {
    solver_->stop();
    menu_->ig2->setEnabled(true);
    menu_->ig5->setEnabled(true);
    game_->dealDaily(date);
}

// Deal number...: the box opens with the number of the deal in play, so it can
// be copied; a text that is no deal number is said so and changes nothing.
void Form2::askDealNumber() {
    const Language lang = language();
    const std::optional<DealNumber> now = game_->dealNumber();
    const QString typed = prompts_.input(this, text(Text::DealNumberPrompt, lang), messages().zagol,
                                         now ? QString::number(*now) : QString());
    if (typed.isEmpty()) return;  // cancelled
    const std::optional<DealNumber> number = parseDealNumber(typed.toStdString());
    if (!number) {
        say(text(Text::DealNumberBad, lang).arg(typed));
        return;
    }
    dealNumbered(*number);
}

// Continue the last game: made playable as New game makes a deal.
void Form2::continueLast() {
    solver_->stop();
    if (!game_->continueLast()) {
        say(text(Text::ContinueFailed, language()));
        return;
    }
    menu_->ig2->setEnabled(true);
    menu_->ig5->setEnabled(true);
}

// Statistics: the record's figures, from the games as they stand now.
void Form2::showStatistics() {
    StatisticsSource source;
    source.summary = [this]() -> std::optional<record::Summary> {
        record::Record* record = game_->record();
        if (!record) return std::nullopt;
        return record->summary(record::utcDate(record::Clock::now()), WinRates::kWanted);
    };
    source.reset = [this] {
        record::Record* record = game_->record();
        return record && record->reset(game_->gameInPlay());
    };
    source.exportTo = [this](const std::filesystem::path& file) {
        record::Record* record = game_->record();
        return record && record->exportCsv(file);
    };
    StatisticsWindow window(language(), std::move(source), prompts_, this);
    prompts_.exec(window);
    followRecord();
}

// Continue is there while an unfinished game other than the one in play is;
// a record that cannot be used is said once.
void Form2::followRecord() {
    menu_->continueGame->setEnabled(game_->canContinue());
    const std::optional<GameRecord::Problem> problem = game_->recordProblem();
    if (!problem) return;
    const Language lang = language();
    const QString where = QString::fromStdString(problem->where);
    switch (problem->kind) {
        case record::Opened::Problem::None: return;
        case record::Opened::Problem::MovedAside: say(text(Text::RecordMovedAside, lang).arg(where)); return;
        case record::Opened::Problem::Newer: say(text(Text::RecordNewer, lang)); return;
        case record::Opened::Problem::CannotWrite:
            say(problem->failed ? text(Text::RecordStopped, lang) : text(Text::RecordCannotWrite, lang).arg(where));
            return;
    }
}

// Deal again: the current layout laid out once more.
void Form2::ig5Click() {
    solver_->stop();
    game_->dealAgain();
}

// Save: asks for a name and appends the current layout under it to save.txt.
void Form2::ig2Click() {
    const Language lang = language();
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
    if (!game_->save(name.toStdString())) {
        // Never report a save that did not happen.
        box(text(Text::FileError, lang).arg(QString::fromStdString(game_->storeError())));
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
    if (game_->loadHandOver() != LayoutProblem::None) say(text(Text::LayoutDamaged, language()));
}

// The window's own additions follow a language switch: screen-reader names,
// the solver's boxes and mark, and Qt's own button texts (the menu relabels
// its added items itself).
void Form2::followLanguage(Language lang) {
    view_->setLanguage(lang);
    solver_->setLanguage(lang);
    verdict_->setLanguage(lang);
    announcer_->setLanguage(lang);
    qtTexts_.use(lang);
}

void Form2::leg1Click() { showHelp(); }

void Form2::showHelp() { HelpWindow::showTopic(helpFile(), kHelpTopic, this); }

// About: Form3 while Russian is in force, Form4 in English.
void Form2::leg3Click() {
    AboutWindow about(language(), this, [this] { showHelp(); });
    prompts_.exec(about);
}

}  // namespace vorn::shell
