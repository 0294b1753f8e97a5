// Every text of the game in both languages. The Russian ones are what the
// windows are created with; the English ones are laid over them by the switch.
#include "texts.h"

#include <QLocale>
#include <QStringList>
#include <algorithm>
#include <array>

namespace vorn::shell {

namespace {

struct Entry {
    Text id;
    const char* russian;
    const char* english;
};

// clang-format off
constexpr std::array kTexts{
    Entry{Text::Title,          "Тавирен v2.0", "Vorn v2.0"},
    Entry{Text::Igra,           "Игра", "Game"},
    Entry{Text::Ig1,            "Новая игра", "New game"},
    Entry{Text::Ig5,            "Расклад заново", "Discard anew"},
    Entry{Text::Ig2,            "Сохранить расклад", "Save discard"},
    Entry{Text::Ig3,            "Загрузить расклад", "Load discard"},
    Entry{Text::Ig7,            "Русский", "Russian"},
    Entry{Text::Ig8,            "English", "English"},
    Entry{Text::Ig4,            "Сообщения", "Messages"},
    Entry{Text::Leg,            "Сервис", "Servis"},
    Entry{Text::Leg1,           "Как играть?", "How to play?"},
    Entry{Text::Leg3,           "О программе", "About..."},
    Entry{Text::Vix,            "Выход", "Quit"},
    Entry{Text::Ig2Created,     "Запомнить расклад", "Save discard"},
    Entry{Text::Leg1Created,    "Как играть?     F1", "How to play?"},
    Entry{Text::HelpFile,       "vorn.HLP", "vorne.HLP"},

    Entry{Text::Zagol,          "Тавирен v2.0", "Vorn v2.0"},
    Entry{Text::Messvix,        "Выйти из программы ?", "Quit ?"},
    Entry{Text::Messhod,        "Неправильний ход.", "Wrong step."},
    Entry{Text::Messnov,        "Выберите пункт меню [Новая игра]", "Select the menu item [New game]."},
    Entry{Text::Messkart,       "Эту карту нельзя выбрать.", "This card cannot be selected."},

    Entry{Text::SavePrompt,     "Введите название расклада", "Name"},
    Entry{Text::SaveEmptyName,  "Вы не ввели название расклада", "ERROR: name"},
    Entry{Text::SaveDone,       "Расклад сохранен", "Save OK"},

    Entry{Text::LoadTitle,      "Тавирен v2.0 - Загрузить расклад", "Vorn v2.0 - Load"},
    Entry{Text::Command1,       "Следующий", "Next"},
    Entry{Text::Command2,       "Предыдущий", "Previous"},
    Entry{Text::Command4,       "Загрузить", "Load"},
    Entry{Text::Command5,       "Выход", "Quit"},
    Entry{Text::LoadAtEnd,      "Достигнут конец файла", "This is top"},
    Entry{Text::LoadAtStart,    "Достигнуто начало файла", "This is bottom"},
    Entry{Text::LoadNothing,    "Нет расклада", "ERROR"},

    Entry{Text::AboutCaption,   "Тавирен v2.0 - О программе", "Vorn v2.0 - About Vorn"},
    Entry{Text::AboutTitleLine, "Тавирен v2.0", "Vorn v2.0"},
    Entry{Text::AboutFreeWare,  "FreeWare", "FreeWare"},
    Entry{Text::AboutSystems,   "и работает в среде WINDOWS 9X/Me/NT/2000/XP",
                                "and works under the control of 9X/Me/NT/2000/XP"},
    Entry{Text::AboutOk,        "OK", "OK"},

    Entry{Text::EmptyPlace,     "пустое место", "empty place"},

    Entry{Text::LayoutDamaged,  "Этот расклад повреждён, его нельзя разложить.",
                                "This layout is damaged and cannot be laid out."},
    Entry{Text::SaveLostCharacters,
                                "В названии есть знаки, которых нет в файле раскладов: %1\n"
                                "Вместо них будет записан знак «?». Сохранить так?\n"
                                "(«Нет» — вернуться к названию и исправить его.)",
                                "The name has characters the layout file cannot hold: %1\n"
                                "Each will be stored as \"?\". Save it like this?\n"
                                "(No: go back to the name and change it.)"},
    Entry{Text::FileError,      "Не удалось записать файл: %1", "Could not write the file: %1"},
    Entry{Text::SelectedCard,   "выбрана", "selected"},
    Entry{Text::HelpMissing,    "Страница справки не найдена: %1", "Help page not found: %1"},
    Entry{Text::HelpContents,   "Содержание", "Contents"},
    Entry{Text::HelpBack,       "Назад", "Back"},
    Entry{Text::HelpForward,    "Вперёд", "Forward"},

    Entry{Text::Hint,           "Подсказка", "Hint"},
    Entry{Text::Winnable,       "Только выигрышные расклады", "Winnable deals only"},
    Entry{Text::Solution,       "Показать решение", "Show solution"},
    Entry{Text::SolverLost,     "Этот расклад уже не выиграть.", "This deal can no longer be won."},
    Entry{Text::SolverUnknown,  "Не удалось выяснить, можно ли ещё выиграть этот расклад.",
                                "Could not find out whether this deal can still be won."},
    Entry{Text::SolverWon,      "Все четыре короля уже дома.", "All four kings are home already."},

    Entry{Text::UndoMove,       "Отменить ход", "Undo move"},
    Entry{Text::RedoMove,       "Повторить ход", "Redo move"},
    Entry{Text::CellSays,       "ряд %1, столбец %2: %3", "row %1, column %2: %3"},
    Entry{Text::CellEmpty,      "пусто", "empty"},
    Entry{Text::CellsJoin,      "; ", "; "},

    Entry{Text::ShowVerdict,    "Показывать, можно ли выиграть", "Show whether the deal can be won"},
    Entry{Text::BackToWinnable, "Назад к выигрышной позиции", "Back to the last winnable position"},
    Entry{Text::MarkWinnable,   "выигрышный", "winnable"},
    Entry{Text::MarkLost,       "проигран", "lost"},
    Entry{Text::MarkUnknown,    "?", "?"},
    Entry{Text::VerdictWinnable, "Этот расклад ещё можно выиграть.", "The deal can still be won."},
    Entry{Text::VerdictLost,    "Этот расклад уже не выиграть.", "The deal can no longer be won."},
    Entry{Text::LostBy,         "Проигран ходом %1: %2.", "Lost by move %1: %2."},
    Entry{Text::MoveOnto,       "%1 на %2", "%1 onto the %2"},
    Entry{Text::MoveToPlace,    "%1 на пустое место", "%1 onto an empty place"},

    Entry{Text::DealNumberItem, "Расклад по номеру…", "Deal number…"},
    Entry{Text::DealNumberPrompt, "Номер расклада, от 1 до 4294967295:", "Deal number, from 1 to 4294967295:"},
    Entry{Text::DealNumberBad,  "«%1» — не номер расклада. Введите целое число от 1 до 4294967295.",
                                "\"%1\" is not a deal number. Type a whole number from 1 to 4294967295."},
    Entry{Text::DealCalled,     "Расклад %1", "Deal %1"},

    Entry{Text::WinnableGradeMenu, "Сложность выигрышных раскладов", "Grade of winnable deals"},
    Entry{Text::GradeAny,       "Любая", "Any grade"},
    Entry{Text::DailyItem,      "Расклад дня", "Deal of the day"},
    Entry{Text::ContinueItem,   "Продолжить последнюю партию", "Continue the last game"},
    Entry{Text::StatisticsItem, "Статистика…", "Statistics…"},
    Entry{Text::ContinueFailed, "Последнюю партию нельзя продолжить: её ходы не удалось повторить.",
                                "The last game cannot be continued: its moves could not be played again."},
    Entry{Text::RecordMovedAside,
                                "Файл с записью ваших партий был повреждён. Он сохранён как %1, а запись начата заново.",
                                "The record of your games was damaged. It has been kept as %1, and a new record begins."},
    Entry{Text::RecordNewer,    "Запись ваших партий сделана более новой версией игры и оставлена как есть. "
                                "В этот раз партии не записываются.",
                                "The record of your games was written by a newer version of Vorn and is left as it is. "
                                "Games are not recorded this time."},
    Entry{Text::RecordCannotWrite,
                                "Записывать партии нельзя: не удаётся писать в %1. Игра идёт без записи.",
                                "Your games cannot be recorded: %1 cannot be written. The game plays on without a record."},
    Entry{Text::RecordStopped,  "Запись партий прервана: диск полон или недоступен для записи. Игра идёт без записи.",
                                "Recording your games stopped: the disk is full or cannot be written. "
                                "The game plays on without a record."},

    Entry{Text::StatsTitle,     "Тавирен v2.0 - Статистика", "Vorn v2.0 - Statistics"},
    Entry{Text::StatsNoRecord,  "В этот раз партии не записываются, поэтому статистики нет.",
                                "Games are not recorded this time, so there are no statistics."},
    Entry{Text::StatsEmpty,     "Ни одной партии ещё не записано.", "No games recorded yet."},
    Entry{Text::StatsPlayed,    "Сыграно партий", "Games played"},
    Entry{Text::StatsWon,       "Выиграно партий", "Games won"},
    Entry{Text::StatsStreak,    "Серия побед сейчас", "Current winning streak"},
    Entry{Text::StatsLongest,   "Самая длинная серия", "Longest winning streak"},
    Entry{Text::StatsWinnable,  "Выигрышные расклады", "Winnable deals"},
    Entry{Text::StatsWithoutHelp, "Без помощи", "Without help"},
    Entry{Text::StatsWithHelp,  "С подсказкой, решением или «Назад»", "With a hint, Show solution or Back"},
    Entry{Text::StatsAverageWon, "Выигранная партия в среднем", "Average won game"},
    Entry{Text::StatsByGrade,   "Победы по сложности расклада", "Games won by the deal's grade"},
    Entry{Text::StatsDaily,     "Расклад дня", "Deal of the day"},
    Entry{Text::StatsDailyStreak, "Серия дней с победой", "Days won in a row"},
    Entry{Text::GradeEasy,      "Лёгкий", "Easy"},
    Entry{Text::GradeMedium,    "Средний", "Medium"},
    Entry{Text::GradeHard,      "Трудный", "Hard"},
    Entry{Text::GradeVeryHard,  "Очень трудный", "Very hard"},
    Entry{Text::GradeExpert,    "Эксперт", "Expert"},
    Entry{Text::StatsPercent,   "%1\u00a0%", "%1\u00a0%"},
    Entry{Text::StatsOf,        "%1 из %2", "%1 of %2"},
    Entry{Text::StatsStreaks,   "серия сейчас %1, самая длинная %2", "streak now %1, longest %2"},
    Entry{Text::StatsNoneWon,   "побед ещё нет", "no game won yet"},
    Entry{Text::StatsMovesTime, "%1 за %2", "%1 in %2"},
    Entry{Text::StatsSeconds,   "%1 с", "%1 s"},
    Entry{Text::StatsMinutes,   "%1 мин %2 с", "%1 min %2 s"},
    Entry{Text::StatsHours,     "%1 ч %2 мин", "%1 h %2 min"},
    Entry{Text::StatsDailyWon,  "сегодняшний выигран", "today's is won"},
    Entry{Text::StatsDailyNotWon, "сегодняшний ещё не выигран", "today's is not won yet"},
    Entry{Text::PluralWon,      "%1 победа|%1 победы|%1 побед", "won %1|won %1"},
    Entry{Text::PluralGames,    "%1 партии|%1 партий|%1 партий", "%1 game|%1 games"},
    Entry{Text::PluralWinnableDeals, "%1 выигрышного расклада|%1 выигрышных раскладов|%1 выигрышных раскладов",
                                "%1 winnable deal|%1 winnable deals"},
    Entry{Text::PluralMoves,    "%1 ход|%1 хода|%1 ходов", "%1 move|%1 moves"},
    Entry{Text::PluralDays,     "%1 день|%1 дня|%1 дней", "%1 day|%1 days"},
    Entry{Text::PluralLastGames, "последней %1 партии|последних %1 партиях|последних %1 партиях",
                                "last %1 game|last %1 games"},
    Entry{Text::ChartSays,      "Доля побед в %1: %2, %3", "Win rate over the %1: %2, %3"},
    Entry{Text::TrendRising,    "растёт", "rising"},
    Entry{Text::TrendFalling,   "падает", "falling"},
    Entry{Text::TrendSteady,    "без перемен", "steady"},
    Entry{Text::StatsReset,     "С&бросить…", "&Reset…"},
    Entry{Text::StatsExport,    "&Экспорт…", "&Export…"},
    Entry{Text::StatsClose,     "&Закрыть", "&Close"},
    Entry{Text::StatsResetAsk,  "Забыть все записанные партии? Партия, которая сейчас идёт, останется в записи.",
                                "Forget every recorded game? The game in play stays recorded."},
    Entry{Text::StatsResetFailed, "Не удалось очистить запись партий.", "The record of games could not be reset."},
    Entry{Text::StatsExportTitle, "Экспорт партий в CSV", "Export the games as CSV"},
    Entry{Text::StatsExportFilter, "Файлы CSV (*.csv)", "CSV files (*.csv)"},

    Entry{Text::TableSize,      "Размер стола", "Table size"},
    Entry{Text::ZoomIn,         "Увеличить", "Zoom in"},
    Entry{Text::ZoomOut,        "Уменьшить", "Zoom out"},
    Entry{Text::ActualSize,     "Обычный размер", "Actual size"},
    Entry{Text::ScaleWithWindow, "Масштабировать стол по окну", "Scale the table with the window"},
};
// clang-format on

constexpr std::array<const char*, 14> kRanksRu{
    "", "туз", "2", "3", "4", "5", "6", "7", "8", "9", "10", "валет", "дама", "король"};
constexpr std::array<const char*, 14> kRanksEn{
    "", "ace", "2", "3", "4", "5", "6", "7", "8", "9", "10", "jack", "queen", "king"};
constexpr std::array<const char*, 5> kSuitsRu{"", "червей", "пик", "бубен", "треф"};
constexpr std::array<const char*, 5> kSuitsEn{"", "hearts", "spades", "diamonds", "clubs"};

}  // namespace

QString text(Text id, Language lang) {
    for (const Entry& e : kTexts)
        if (e.id == id) return QString::fromUtf8(lang == Language::English ? e.english : e.russian);
    return {};
}

QString plural(Text id, long long n, Language lang) {
    const QStringList forms = text(id, lang).split(QLatin1Char('|'));
    qsizetype form = n == 1 ? 0 : 1;
    if (lang == Language::Russian) {
        const long long units = n % 10, tens = n % 100 / 10;
        form = tens == 1 || units == 0 || units >= 5 ? 2 : units == 1 ? 0 : 1;
    }
    const QLocale locale(lang == Language::English ? QLocale::English : QLocale::Russian);
    return forms.value(std::min(form, forms.size() - 1)).arg(locale.toString(n));
}

QString cardName(int suit, int rank, Language lang) {
    if (suit < 1 || suit > 4 || rank < 1 || rank > 13) return {};
    const auto s = static_cast<size_t>(suit);
    const auto r = static_cast<size_t>(rank);
    if (lang == Language::English)
        return QStringLiteral("%1 of %2").arg(QString::fromUtf8(kRanksEn[r]), QString::fromUtf8(kSuitsEn[s]));
    return QStringLiteral("%1 %2").arg(QString::fromUtf8(kRanksRu[r]), QString::fromUtf8(kSuitsRu[s]));
}

}  // namespace vorn::shell
