// Every text the game shows, in both languages, lives in texts.cpp and nowhere else.
#pragma once

#include <QString>

namespace vorn::shell {

enum class Language { Russian, English };

enum class Text {
    // main window
    Title,          // "Тавирен v2.0" / "Vorn v2.0"
    Igra, Ig1, Ig5, Ig2, Ig3, Ig7, Ig8, Ig4, Leg, Leg1, Leg3, Vix,
    Ig2Created,     // Russian caption as the window is created ("Запомнить расклад")
    Leg1Created,    // Russian caption as created ("Как играть?     F1")
    HelpFile,       // "vorn.HLP" / "vorne.HLP"
    // message texts of the main window
    Zagol, Messvix, Messhod, Messnov, Messkart,
    // Save command
    SavePrompt, SaveEmptyName, SaveDone,
    // load dialog
    LoadTitle, Command1, Command2, Command4, Command5, LoadAtEnd, LoadAtStart, LoadNothing,
    // about windows
    AboutCaption, AboutTitleLine, AboutFreeWare, AboutSystems, AboutOk,
    // accessible names
    EmptyPlace,     // "пустое место" / "empty place"
    // texts of what the game adds to the two-click play: damaged files, help, the Save warning
    LayoutDamaged,  // a stored layout that cannot be laid out
    FileError,      // a file of the game's folder cannot be written
    SaveLostCharacters,  // a name with letters save.txt cannot hold ("%1" the letters)
    SelectedCard,   // accessible description of the selected card
    HelpMissing,    // the help window has no page for a topic ("%1" is the page)
    HelpContents,   // the help window's list of pages: "Содержание" / "Contents"
    HelpBack, HelpForward,  // its buttons that retrace the pages read
    // the solver's items and their boxes
    Hint,           // "Подсказка" / "Hint"
    Winnable,       // "Только выигрышные расклады" / "Winnable deals only"
    Solution,       // "Показать решение" / "Show solution"
    SolverLost,     // the position can no longer be won
    SolverUnknown,  // the solver could not decide within its limits
    SolverWon,      // all four kings are home already: nothing left to show
    // undo and redo, and what a screen reader is told
    UndoMove,       // "Отменить ход" / "Undo move"
    RedoMove,       // "Повторить ход" / "Redo move"
    CellSays,       // one cell after a move: "%1" row, "%2" column, "%3" what lies there
    CellEmpty,      // a cell with nothing on it and no place picture
    CellsJoin,      // between the cells of one announcement
    // the verdict's mark and its items
    ShowVerdict,    // "Показывать, можно ли выиграть" / "Show whether the deal can be won"
    BackToWinnable, // "Назад к выигрышной позиции" / "Back to the last winnable position"
    MarkWinnable, MarkLost, MarkUnknown,  // the mark's words
    VerdictWinnable, VerdictLost,         // the mark's sentences
    LostBy,         // "%1" the number of the move, "%2" the move
    MoveOnto,       // "%1" the card moved, "%2" the card it went onto
    MoveToPlace,    // "%1" the card moved to an empty pile place
    // deals by number
    DealNumberItem,    // "Расклад по номеру…" / "Deal number…"
    DealNumberPrompt,  // the box that asks for a number
    DealNumberBad,     // "%1" what was typed
    DealCalled,        // "%1" the deal's number, at the head of the mark's tooltip
    // grades and the deal of the day
    WinnableGradeMenu,  // "Сложность выигрышных раскладов" / "Grade of winnable deals"
    GradeAny,           // "Любая" / "Any grade"
    DailyItem,          // "Расклад дня" / "Deal of the day"
    // the game record
    ContinueItem,      // "Продолжить последнюю партию" / "Continue the last game"
    StatisticsItem,    // "Статистика…" / "Statistics…"
    ContinueFailed,    // the last game's moves cannot be played again
    RecordMovedAside,  // "%1" where the damaged record was kept
    RecordNewer,       // a record of a newer version: left alone
    RecordCannotWrite, // "%1" the record's file
    RecordStopped,     // writing failed during the run
    // the statistics window; a "Plural" text holds its forms split by "|" (see plural())
    StatsTitle,        // "Тавирен v2.0 - Статистика" / "Vorn v2.0 - Statistics"
    StatsNoRecord, StatsEmpty,  // no record this run; a record without games
    StatsPlayed, StatsWon, StatsStreak, StatsLongest, StatsWinnable, StatsWithoutHelp, StatsWithHelp,
    StatsAverageWon, StatsByGrade, StatsDaily, StatsDailyStreak,  // the captions
    GradeEasy, GradeMedium, GradeHard, GradeVeryHard, GradeExpert,
    StatsPercent,      // "%1 %"
    StatsOf,           // "%1 of %2": a PluralWon and a PluralGames or PluralWinnableDeals
    StatsStreaks,      // the winnable deals' streaks, "%1" now, "%2" the longest
    StatsNoneWon,      // no game won yet: no average
    StatsMovesTime,    // "%1" the moves, "%2" the time
    StatsSeconds, StatsMinutes, StatsHours,  // "%1 s", "%1 min %2 s", "%1 h %2 min"
    StatsDailyWon, StatsDailyNotWon,
    PluralWon, PluralGames, PluralWinnableDeals, PluralMoves, PluralDays,
    PluralLastGames,   // the chart's sentence, "%1" its number of games
    ChartSays,         // "%1" PluralLastGames, "%2" the win rate, "%3" the trend
    TrendRising, TrendFalling, TrendSteady,
    StatsReset, StatsExport, StatsClose,  // the buttons, with their mnemonics
    StatsResetAsk, StatsResetFailed,
    StatsExportTitle, StatsExportFilter,  // the file box
    // the table's size
    TableSize,         // "Размер стола" / "Table size"
    ZoomIn, ZoomOut, ActualSize, ScaleWithWindow,
};

QString text(Text id, Language lang);

// The form of a "Plural" text that fits n, with n (as the language writes
// numbers) in place of its "%1": Russian has three forms (1, 21 ...; 2-4, 22-24
// ...; 0, 5-20, 25 ...), English two (1; any other).
QString plural(Text id, long long n, Language lang);

// "туз червей", "2 пик", ... / "ace of hearts", "2 of spades", ...
QString cardName(int suit, int rank, Language lang);

}  // namespace vorn::shell
