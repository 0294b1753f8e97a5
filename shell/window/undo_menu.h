// The two items that take moves back and play them again: "Отменить ход" /
// "Undo move" (Ctrl+Z) and "Повторить ход" / "Redo move" (Ctrl+Y), the last
// items of the Game menu, after the separator line4. Each is enabled only while
// there is something to undo or redo.
#pragma once

#include <QObject>

#include "shell/texts.h"

class QAction;
class QMenu;

namespace vorn {
class History;
}

namespace vorn::shell {

class UndoMenu final : public QObject {
    Q_OBJECT
public:
    explicit UndoMenu(QMenu* igra);

    void setCaptions(Language lang);
    // Enables the items as the history allows.
    void update(const History& history);

    QAction* line4 = nullptr;
    QAction* undo = nullptr;
    QAction* redo = nullptr;
};

}  // namespace vorn::shell
