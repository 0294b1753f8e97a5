// Accessible interfaces of the card table's images.
#include "table_accessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include "card_image.h"
#include "pile_image.h"

namespace vorn::shell {

namespace {

class TableImageAccessible final : public QAccessibleWidget {
public:
    explicit TableImageAccessible(BoardImage* image) : QAccessibleWidget(image, QAccessible::Button) {}

    QAccessible::State state() const override {
        QAccessible::State st = QAccessibleWidget::state();
        st.focusable = true;  // the keyboard's ring can reach it
        if (const auto* card = qobject_cast<const CardImage*>(widget())) {
            st.selectable = true;
            st.selected = card->selected();
        }
        return st;
    }

    QStringList actionNames() const override {
        return QStringList(pressAction()) + QAccessibleWidget::actionNames();
    }

    void doAction(const QString& name) override {
        if (name == pressAction()) {
            emit static_cast<BoardImage*>(widget())->clicked();
            return;
        }
        QAccessibleWidget::doAction(name);
    }
};

QAccessibleInterface* tableImageFactory(const QString&, QObject* object) {
    if (auto* card = qobject_cast<CardImage*>(object)) return new TableImageAccessible(card);
    if (auto* pile = qobject_cast<PileImage*>(object)) return new TableImageAccessible(pile);
    return nullptr;
}

}  // namespace

void installTableAccessibility() {
    static const bool installed = [] {
        QAccessible::installFactory(tableImageFactory);
        return true;
    }();
    (void)installed;
}

}  // namespace vorn::shell
