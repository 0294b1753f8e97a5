// Building the menu tree and relabelling it.
#include "game_menu.h"

#include <QAction>
#include <QActionGroup>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

#include "shell/choices.h"

namespace vorn::shell {

namespace {

QAction* item(QMenu* menu, const char* name, Text caption, const QKeySequence& shortcut = {}) {
    QAction* action = menu->addAction(text(caption, Language::Russian));
    action->setObjectName(QString::fromLatin1(name));
    action->setShortcut(shortcut);
    return action;
}

QAction* separator(QMenu* menu, const char* name) {
    QAction* action = menu->addSeparator();
    action->setObjectName(QString::fromLatin1(name));
    return action;
}

QMenu* submenu(QMenuBar* bar, const char* name, Text caption) {
    QMenu* menu = bar->addMenu(text(caption, Language::Russian));
    menu->setObjectName(QString::fromLatin1(name));
    menu->menuAction()->setObjectName(QString::fromLatin1(name));
    return menu;
}

struct GradeItem {
    const char* name;
    Text caption;
    int grade;  // -1: any
};
constexpr GradeItem kGradeItems[] = {{"gradeAny", Text::GradeAny, -1},          {"gradeEasy", Text::GradeEasy, 0},
                                     {"gradeMedium", Text::GradeMedium, 1},    {"gradeHard", Text::GradeHard, 2},
                                     {"gradeVeryHard", Text::GradeVeryHard, 3}, {"gradeExpert", Text::GradeExpert, 4}};

// A check item remembered between runs under its own name.
QAction* rememberedCheck(QMenu* menu, const char* name, Text caption, const char* key) {
    QAction* action = item(menu, name, caption);
    action->setCheckable(true);
    rememberCheck(action, key);
    return action;
}

}  // namespace

GameMenu::GameMenu(QMenuBar* bar) : QObject(bar) {
    setObjectName(QStringLiteral("menu"));
    igra = submenu(bar, "igra", Text::Igra);
    ig1 = item(igra, "ig1", Text::Ig1, QKeySequence(Qt::Key_F2));
    ig5 = item(igra, "ig5", Text::Ig5, QKeySequence(Qt::CTRL | Qt::Key_F2));
    ig5->setEnabled(false);
    line1 = separator(igra, "line1");
    ig2 = item(igra, "ig2", Text::Ig2Created, QKeySequence(Qt::Key_F3));
    ig2->setEnabled(false);
    ig3 = item(igra, "ig3", Text::Ig3, QKeySequence(Qt::Key_F4));
    line3 = separator(igra, "line3");
    ig7 = item(igra, "ig7", Text::Ig7, QKeySequence(Qt::CTRL | Qt::Key_R));
    ig7->setCheckable(true);
    ig7->setChecked(true);
    ig8 = item(igra, "ig8", Text::Ig8, QKeySequence(Qt::CTRL | Qt::Key_E));
    ig8->setCheckable(true);
    line2 = separator(igra, "line2");
    ig4 = item(igra, "ig4", Text::Ig4);
    ig4->setCheckable(true);

    line4 = separator(igra, "line4");
    undo = item(igra, "undo", Text::UndoMove, QKeySequence(Qt::CTRL | Qt::Key_Z));
    undo->setEnabled(false);
    redo = item(igra, "redo", Text::RedoMove, QKeySequence(Qt::CTRL | Qt::Key_Y));
    redo->setEnabled(false);
    line5 = separator(igra, "line5");
    hint = item(igra, "hint", Text::Hint, QKeySequence(Qt::Key_H));
    winnable = rememberedCheck(igra, "winnable", Text::Winnable, "winnableDealsOnly");
    winnableGrade = igra->addMenu(text(Text::WinnableGradeMenu, Language::Russian));
    winnableGrade->setObjectName(QStringLiteral("winnableGrade"));
    winnableGrade->menuAction()->setObjectName(QStringLiteral("winnableGrade"));
    grades = new QActionGroup(winnableGrade);
    const int chosen = choices().value(QStringLiteral("winnableGrade"), -1).toInt();
    for (const auto& [name, caption, grade] : kGradeItems) {
        QAction* action = item(winnableGrade, name, caption);
        action->setCheckable(true);
        action->setData(grade);
        action->setChecked(grade == chosen);
        grades->addAction(action);
    }
    if (!grades->checkedAction()) grades->actions().constFirst()->setChecked(true);
    // Choosing a grade deals winnable deals of it.
    connect(grades, &QActionGroup::triggered, this, [this](QAction* action) {
        choices().setValue(QStringLiteral("winnableGrade"), action->data().toInt());
        if (!winnable->isChecked()) winnable->trigger();
    });
    solution = item(igra, "solution", Text::Solution, QKeySequence(Qt::Key_D));
    showVerdict = rememberedCheck(igra, "showVerdict", Text::ShowVerdict, "showVerdict");
    backToWinnable = item(igra, "backToWinnable", Text::BackToWinnable, QKeySequence(Qt::CTRL | Qt::Key_B));
    backToWinnable->setEnabled(false);
    line6 = separator(igra, "line6");
    dealNumber = item(igra, "dealNumber", Text::DealNumberItem, QKeySequence(Qt::CTRL | Qt::Key_N));
    daily = item(igra, "daily", Text::DailyItem, QKeySequence(Qt::CTRL | Qt::Key_T));
    continueGame = item(igra, "continueGame", Text::ContinueItem, QKeySequence(Qt::CTRL | Qt::Key_L));
    continueGame->setEnabled(false);
    statistics = item(igra, "statistics", Text::StatisticsItem, QKeySequence(Qt::CTRL | Qt::Key_I));
    line7 = separator(igra, "line7");
    tableSize = igra->addMenu(text(Text::TableSize, Language::Russian));
    tableSize->setObjectName(QStringLiteral("tableSize"));
    tableSize->menuAction()->setObjectName(QStringLiteral("tableSize"));
    zoomIn = item(tableSize, "zoomIn", Text::ZoomIn);
    // Ctrl++ as well: the keypad's plus, and the layouts where + needs no Shift.
    zoomIn->setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_Equal), QKeySequence(Qt::CTRL | Qt::Key_Plus)});
    zoomOut = item(tableSize, "zoomOut", Text::ZoomOut, QKeySequence(Qt::CTRL | Qt::Key_Minus));
    actualSize = item(tableSize, "actualSize", Text::ActualSize, QKeySequence(Qt::CTRL | Qt::Key_0));
    scaleWithWindow = rememberedCheck(tableSize, "scaleWithWindow", Text::ScaleWithWindow, "scaleWithWindow");

    leg = submenu(bar, "leg", Text::Leg);
    // The caption only shows the key: F1 is handled by the window itself.
    leg1 = item(leg, "leg1", Text::Leg1Created);
    leg2 = separator(leg, "leg2");
    leg3 = item(leg, "leg3", Text::Leg3);

    vix = bar->addAction(text(Text::Vix, Language::Russian));
    vix->setObjectName(QStringLiteral("vix"));
}

void GameMenu::setCaptions(Language lang) {
    igra->setTitle(text(Text::Igra, lang));
    leg->setTitle(text(Text::Leg, lang));
    vix->setText(text(Text::Vix, lang));
    ig1->setText(text(Text::Ig1, lang));
    ig2->setText(text(Text::Ig2, lang));
    ig3->setText(text(Text::Ig3, lang));
    ig5->setText(text(Text::Ig5, lang));
    ig7->setText(text(Text::Ig7, lang));
    ig4->setText(text(Text::Ig4, lang));
    leg1->setText(text(Text::Leg1, lang));
    leg3->setText(text(Text::Leg3, lang));

    const std::pair<QAction*, Text> added[] = {
        {undo, Text::UndoMove},       {redo, Text::RedoMove},
        {hint, Text::Hint},           {winnable, Text::Winnable},
        {solution, Text::Solution},   {showVerdict, Text::ShowVerdict},
        {backToWinnable, Text::BackToWinnable}, {dealNumber, Text::DealNumberItem},
        {daily, Text::DailyItem},               {continueGame, Text::ContinueItem},
        {statistics, Text::StatisticsItem},
        {tableSize->menuAction(), Text::TableSize}, {zoomIn, Text::ZoomIn},
        {zoomOut, Text::ZoomOut},     {actualSize, Text::ActualSize},
        {scaleWithWindow, Text::ScaleWithWindow},
    };
    for (const auto& [action, caption] : added) action->setText(text(caption, lang));
    winnableGrade->setTitle(text(Text::WinnableGradeMenu, lang));
    for (QAction* action : grades->actions()) {
        const int grade = action->data().toInt();
        action->setText(text(kGradeItems[static_cast<size_t>(grade + 1)].caption, lang));
    }
}

}  // namespace vorn::shell
