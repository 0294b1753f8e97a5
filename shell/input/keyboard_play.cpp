// The arrow keys, Space and Return on the card table.
#include "keyboard_play.h"

#include <QKeyEvent>
#include <algorithm>
#include <cstdlib>
#include <tuple>

#include "focus_ring.h"
#include "shell/game.h"

namespace vorn::shell {

namespace {

int level(const Reachable& r) { return 2 * (r.row - 1) + r.layer; }

bool sameThing(const Hit& a, const Hit& b) { return a == b; }

}  // namespace

KeyboardPlay::KeyboardPlay(QWidget* table, Game& game, ImageOf imageOf, ScaleOf scale)
    : QObject(table),
      view_(table),
      game_(game),
      widgetOf_(std::move(imageOf)),
      scale_(std::move(scale)),
      ring_(new FocusRing(table)) {
    setObjectName(QStringLiteral("keyboardPlay"));
    view_->setFocusPolicy(Qt::StrongFocus);
    view_->installEventFilter(this);
}

bool KeyboardPlay::eventFilter(QObject* watched, QEvent* event) {
    if (watched != view_ || event->type() != QEvent::KeyPress) return false;
    auto* key = static_cast<QKeyEvent*>(event);
    // Only the bare keys: every key with Ctrl, Alt or Shift, and every F-key,
    // goes on to the menus' shortcuts.
    if ((key->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return false;
    switch (key->key()) {
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Up:
        case Qt::Key_Down: arrow(key->key()); return true;
        case Qt::Key_Space:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (focused_.kind == Hit::Kind::Nothing) return false;
            game_.click(focused_);  // the table is redrawn and the ring follows
            return true;
        default: return false;
    }
}

void KeyboardPlay::arrow(int key) {
    const std::vector<Reachable> things = reachables(game_.board());
    if (things.empty()) return;
    const auto here = std::find_if(things.begin(), things.end(),
                                   [&](const Reachable& r) { return sameThing(r.hit, focused_); });
    if (here == things.end()) {
        // The first arrow: the selected card, else the first thing of the top row.
        const std::optional<Card> card = game_.selectedCard();
        const auto sel = std::find_if(things.begin(), things.end(), [&](const Reachable& r) {
            return card && game_.isSelected(*card) && sameThing(r.hit, {Hit::Kind::Card, *card, 0});
        });
        focusOn(sel != things.end() ? *sel : things.front());
        return;
    }
    const Reachable at = *here;
    const Reachable* best = nullptr;
    std::tuple<int, int, int> bestKey{};
    for (const Reachable& r : things) {
        std::tuple<int, int, int> k;
        switch (key) {
            case Qt::Key_Right:
                if (r.column <= at.column) continue;
                k = {std::abs(r.row - at.row), r.column - at.column, std::abs(r.layer - at.layer)};
                break;
            case Qt::Key_Left:
                if (r.column >= at.column) continue;
                k = {std::abs(r.row - at.row), at.column - r.column, std::abs(r.layer - at.layer)};
                break;
            case Qt::Key_Down:
                if (level(r) <= level(at)) continue;
                k = {level(r) - level(at), std::abs(r.column - at.column), r.column};
                break;
            default:  // Up
                if (level(r) >= level(at)) continue;
                k = {level(at) - level(r), std::abs(r.column - at.column), r.column};
                break;
        }
        if (!best || k < bestKey) {
            best = &r;
            bestKey = k;
        }
    }
    if (best) focusOn(*best);
}

void KeyboardPlay::focusOn(const Reachable& thing) {
    QWidget* widget = widgetOf_(thing.hit);
    if (!widget) return;
    focused_ = thing.hit;
    where_ = thing;
    QRect rect = widget->geometry();
    // A base card with a card in front on it shows only its strip: the ring
    // frames the strip, so it is never mistaken for the card in front.
    const Cell cell{static_cast<int8_t>(thing.row), static_cast<int8_t>(thing.column), false};
    if (thing.layer == 0 && thing.hit.kind == Hit::Kind::Card &&
        game_.board().contents()[static_cast<size_t>(cell.index())].stacked > 0)
        rect.setHeight(scale_().length(kStackOffset));
    ring_->frame(rect);
    // The keyboard focus goes with the ring: a screen reader is told about the
    // thing, its name and whether it is the selected card.
    widget->setFocus(Qt::OtherFocusReason);
}

void KeyboardPlay::follow() {
    if (focused_.kind == Hit::Kind::Nothing) return;
    const std::vector<Reachable> things = reachables(game_.board());
    if (things.empty()) return;
    // The same thing if it can still be reached; else what now lies in its cell
    // (the layer it was on first); else the nearest thing.
    const Reachable* best = nullptr;
    std::tuple<int, int, int> bestKey{};
    for (const Reachable& r : things) {
        const std::tuple<int, int, int> k =
            sameThing(r.hit, focused_)
                ? std::tuple<int, int, int>{-1, 0, 0}
                : std::tuple<int, int, int>{std::abs(r.row - where_.row) * 2 + std::abs(r.layer - where_.layer),
                                            std::abs(r.column - where_.column), 0};
        if (!best || k < bestKey) {
            best = &r;
            bestKey = k;
        }
    }
    focusOn(*best);
}

}  // namespace vorn::shell
