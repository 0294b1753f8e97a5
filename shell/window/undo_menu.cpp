// Building the undo and redo items.
#include "undo_menu.h"

#include <QAction>
#include <QMenu>

#include "board/history.h"

namespace vorn::shell {

UndoMenu::UndoMenu(QMenu* igra) : QObject(igra) {
    setObjectName(QStringLiteral("undoMenu"));
    // line4 opens the block of added items; whoever comes first puts it there.
    for (QAction* action : igra->actions())
        if (action->objectName() == QLatin1String("line4")) line4 = action;
    if (!line4) {
        line4 = igra->addSeparator();
        line4->setObjectName(QStringLiteral("line4"));
    }
    auto item = [igra](const char* name, Text caption, const QKeySequence& key) {
        QAction* action = igra->addAction(text(caption, Language::Russian));
        action->setObjectName(QString::fromLatin1(name));
        action->setShortcut(key);
        action->setEnabled(false);
        return action;
    };
    undo = item("undo", Text::UndoMove, QKeySequence(Qt::CTRL | Qt::Key_Z));
    redo = item("redo", Text::RedoMove, QKeySequence(Qt::CTRL | Qt::Key_Y));
}

void UndoMenu::setCaptions(Language lang) {
    undo->setText(text(Text::UndoMove, lang));
    redo->setText(text(Text::RedoMove, lang));
}

void UndoMenu::update(const History& history) {
    undo->setEnabled(history.canUndo());
    redo->setEnabled(history.canRedo());
}

}  // namespace vorn::shell
