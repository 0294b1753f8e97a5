// Pressing, dragging and dropping a card.
#include "drag_play.h"

#include <QApplication>
#include <QGraphicsOpacityEffect>
#include <QLabel>
#include <QMouseEvent>

#include "shell/game.h"

namespace vorn::shell {

DragPlay::DragPlay(QWidget* table, Game& game, const std::vector<std::pair<QWidget*, Card>>& images, Face face,
                   ScaleOf scale)
    : QObject(table),
      view_(table),
      game_(game),
      face_(std::move(face)),
      scale_(std::move(scale)),
      floating_(new QLabel(table)) {
    setObjectName(QStringLiteral("dragPlay"));
    floating_->setObjectName(QStringLiteral("dragged"));
    floating_->setAttribute(Qt::WA_TransparentForMouseEvents);
    floating_->setAttribute(Qt::WA_TranslucentBackground);
    floating_->hide();
    for (const auto& [image, card] : images) {
        cards_.insert(image, card);
        image->installEventFilter(this);
    }
}

bool DragPlay::eventFilter(QObject* watched, QEvent* event) {
    const auto found = cards_.constFind(watched);
    if (found == cards_.constEnd()) return false;
    auto* card = static_cast<QWidget*>(watched);
    switch (event->type()) {
        // A press soon after a click arrives as a double-click: a card picked
        // up with a click and at once pressed again can be dragged all the same.
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick: {
            auto* mouse = static_cast<QMouseEvent*>(event);
            if (mouse->button() != Qt::LeftButton || dragging_) return false;
            pressed_ = card;
            pressedCard_ = *found;
            grab_ = mouse->position().toPoint();
            pressAt_ = card->mapTo(view_, grab_);
            return false;  // the card sees the press: a click stays a click
        }
        case QEvent::MouseMove: {
            auto* mouse = static_cast<QMouseEvent*>(event);
            if (pressed_ != card || !(mouse->buttons() & Qt::LeftButton)) return false;
            const QPoint at = card->mapTo(view_, mouse->position().toPoint());
            if (!dragging_ && (at - pressAt_).manhattanLength() >= QApplication::startDragDistance()) begin();
            if (dragging_) follow(at);
            return dragging_;
        }
        case QEvent::MouseButtonRelease: {
            auto* mouse = static_cast<QMouseEvent*>(event);
            if (mouse->button() != Qt::LeftButton || pressed_ != card) return false;
            if (!dragging_) {
                pressed_ = nullptr;
                return false;  // a plain click
            }
            const QPoint at = card->mapTo(view_, mouse->position().toPoint());
            end();
            drop(at);
            return true;
        }
        default: return false;
    }
}

void DragPlay::begin() {
    dragging_ = true;
    const TableScale scale = scale_();
    floating_->setFixedSize(scale.card());
    floating_->setPixmap(face_(pressedCard_, view_->devicePixelRatioF(), scale.zoom()));
    floating_->show();
    floating_->raise();
    auto* ghost = new QGraphicsOpacityEffect(pressed_);
    ghost->setOpacity(0.35);
    pressed_->setGraphicsEffect(ghost);
}

void DragPlay::follow(QPoint boardPixel) { floating_->move(boardPixel - grab_); }

void DragPlay::end() {
    dragging_ = false;
    floating_->hide();
    if (pressed_) pressed_->setGraphicsEffect(nullptr);
}

Hit DragPlay::targetAt(QPoint boardPixel, Card dragged) const {
    if (!QRect(QPoint(0, 0), view_->size()).contains(boardPixel)) return {};
    const QPoint twips = scale_().twips(boardPixel);
    const int x = twips.x(), y = twips.y();
    const Board& board = game_.board();
    const Spot from = board.spot(dragged);
    // Dropped back onto its own place: put back.
    if (x >= from.left && x < from.left + kCardWidth && y >= from.top && y < from.top + kCardHeight) return {};
    // The dragged card hangs above the table: whatever lies under it is hit.
    const Hit hit = board.hitAt(x, y, dragged);
    if (hit.kind == Hit::Kind::Pile && !board.pileVisible(hit.pile)) return {};
    return hit;
}

void DragPlay::drop(QPoint boardPixel) {
    if (!pressed_) return;
    const Card dragged = pressedCard_;
    pressed_ = nullptr;
    const Hit target = targetAt(boardPixel, dragged);
    if (target.kind == Hit::Kind::Nothing) {
        view_->update();
        return;
    }
    game_.play({dragged, target});
}

}  // namespace vorn::shell
