// The items the solver's room adds to the Game menu.
#pragma once

#include <QAction>
#include <QKeySequence>
#include <QMenu>

#include "shell/texts.h"

namespace vorn::shell {

// An item named `name` with its Russian caption, as the window is created, put
// in front of `before` (at the end of the menu when there is none).
inline QAction* insertItem(QMenu* menu, QAction* before, const char* name, Text caption, const QKeySequence& key) {
    auto* action = new QAction(text(caption, Language::Russian), menu);
    action->setObjectName(QString::fromLatin1(name));
    action->setShortcut(key);
    menu->insertAction(before, action);
    return action;
}

}  // namespace vorn::shell
