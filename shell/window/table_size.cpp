// Zooming the table and sizing the window around it.
#include "table_size.h"

#include <QAction>
#include <QEvent>
#include <QLayout>
#include <QMainWindow>
#include <QMenuBar>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <cmath>

#include "shell/choices.h"
#include "shell/table/board_view.h"

namespace vorn::shell {

namespace {

const QString kZoomKey = QStringLiteral("tableZoom");
const QString kSizeKey = QStringLiteral("windowSize");
const QString kMaximisedKey = QStringLiteral("windowMaximized");

// The title bar and borders of the common desktops, until the window has a
// frame of its own to measure.
constexpr QMargins kFrameGuess(4, 34, 4, 4);

bool same(qreal a, qreal b) { return std::abs(a - b) < 0.001; }

// A remembered zoom that is no step (a file edited by hand) is the actual size.
qreal rememberedZoom() {
    const qreal zoom = choices().value(kZoomKey, 1.0).toDouble();
    for (const qreal step : kZoomSteps)
        if (same(step, zoom)) return step;
    return 1.0;
}

bool roomy(Qt::WindowStates states) { return states & (Qt::WindowMaximized | Qt::WindowFullScreen); }

}  // namespace

TableSize::TableSize(QMainWindow& window, Items items) : QObject(&window), window_(window), items_(items) {
    scaling_ = items_.scaleWithWindow->isChecked();
    const qreal chosen = rememberedZoom();
    if (!scaling_) {
        zoom_ = std::min(chosen, largestZoom());
    } else {
        QSize size = choices().value(kSizeKey).toSize();
        if (!size.isValid()) size = windowFor(chosen);
        size = size.boundedTo(freeArea()).expandedTo(windowFor(kZoomSteps.front()));
        window_.resize(size);
        if (choices().value(kMaximisedKey, false).toBool()) window_.setWindowState(Qt::WindowMaximized);
        zoom_ = TableScale::fitting(size - QSize(0, window_.menuBar()->sizeHint().height()));
    }
    connect(items_.zoomIn, &QAction::triggered, this, [this] { step(+1); });
    connect(items_.zoomOut, &QAction::triggered, this, [this] { step(-1); });
    connect(items_.actualSize, &QAction::triggered, this, [this] { zoomTo(std::min(1.0, largestZoom())); });
    connect(items_.scaleWithWindow, &QAction::toggled, this, &TableSize::setScaling);
}

void TableSize::take(BoardView& view) {
    view_ = &view;
    roomy_ = roomy(window_.windowState());
    if (scaling_) view_->setFitting(true);
    connect(view_, &BoardView::rescaled, this, &TableSize::updateItems);
    window_.installEventFilter(this);
    applyConstraints();
    updateItems();
}

void TableSize::remember() const {
    if (!scaling_) return;
    choices().setValue(kSizeKey, roomy_ ? window_.normalGeometry().size() : window_.size());
    choices().setValue(kMaximisedKey, window_.isMaximized());
}

qreal TableSize::shownZoom() const { return view_->scale().zoom(); }

QSize TableSize::windowFor(qreal zoom) const {
    return TableScale(zoom, {}).table() + QSize(0, window_.menuBar()->sizeHint().height());
}

QSize TableSize::freeArea() const {
    const QScreen* screen = window_.screen();
    if (!screen) return windowFor(1.0);
    const bool framed = window_.isVisible() && window_.frameGeometry() != window_.geometry();
    const QRect frame = window_.frameGeometry(), inside = window_.geometry();
    const QMargins margins = framed ? QMargins(inside.left() - frame.left(), inside.top() - frame.top(),
                                               frame.right() - inside.right(), frame.bottom() - inside.bottom())
                                    : kFrameGuess;
    return screen->availableGeometry().size().shrunkBy(margins);
}

// The largest step the screen holds; in a fixed window the desktop made
// larger, the largest the window holds.
qreal TableSize::largestZoom() const {
    const bool inWindow = roomy_ && !scaling_ && view_;
    const QSize room = inWindow ? view_->size() : freeArea() - QSize(0, window_.menuBar()->sizeHint().height());
    for (auto step = kZoomSteps.rbegin(); step != kZoomSteps.rend(); ++step) {
        const QSize table = TableScale(*step, {}).table();
        if (table.width() <= room.width() && table.height() <= room.height()) return *step;
    }
    return kZoomSteps.front();
}

void TableSize::step(int direction) {
    const qreal now = shownZoom();
    if (direction > 0) {
        const auto next = std::find_if(kZoomSteps.begin(), kZoomSteps.end(), [&](qreal s) { return s > now + 0.001; });
        if (next != kZoomSteps.end() && *next <= largestZoom()) zoomTo(*next);
    } else {
        const auto next = std::find_if(kZoomSteps.rbegin(), kZoomSteps.rend(), [&](qreal s) { return s < now - 0.001; });
        if (next != kZoomSteps.rend()) zoomTo(*next);
    }
}

void TableSize::zoomTo(qreal zoom) {
    choices().setValue(kZoomKey, zoom);
    if (scaling_) {
        if (roomy_) return;  // the desktop decides the window's size
        window_.resize(windowFor(zoom));
    } else {
        zoom_ = zoom;
        view_->setZoom(zoom);
        applyConstraints();
    }
    keepOnScreen();
    updateItems();
}

// Scaling starts at the window's size as it is; the fixed table goes on at the
// largest step not above what the scaled one showed.
void TableSize::setScaling(bool on) {
    scaling_ = on;
    if (on) {
        view_->setFitting(true);
    } else {
        const qreal shown = shownZoom();
        const auto below = std::find_if(kZoomSteps.rbegin(), kZoomSteps.rend(), [&](qreal s) { return s <= shown + 0.001; });
        zoom_ = std::min(below != kZoomSteps.rend() ? *below : kZoomSteps.front(), largestZoom());
        choices().setValue(kZoomKey, zoom_);
        view_->setZoom(zoom_);
    }
    applyConstraints();
    keepOnScreen();
    updateItems();
}

// Maximised or full screen, or back to the window's own size.
void TableSize::roomyNow(bool roomy) {
    if (roomy == roomy_) return;
    roomy_ = roomy;
    applyConstraints();
    updateItems();
}

bool TableSize::eventFilter(QObject* watched, QEvent* event) {
    if (watched != &window_) return false;
    if (event->type() == QEvent::Show && !watchingStates_ && window_.windowHandle()) {
        // The window's own request (its decorations' maximise button) arrives
        // here before the desktop's answer: the window lets go of its fixed size
        // first, so it can take the size the desktop then gives it.
        watchingStates_ = true;
        connect(window_.windowHandle(), &QWindow::windowStateChanged, this, [this](Qt::WindowState state) {
            if (roomy(state)) roomyNow(true);
        });
    }
    // The desktop's answer: only now does the window go back to its fixed
    // size, once it has been given its own size back.
    if (event->type() == QEvent::WindowStateChange) roomyNow(roomy(window_.windowState()));
    return false;
}

void TableSize::applyConstraints() {
    Qt::WindowFlags flags = window_.windowFlags();
    flags.setFlag(Qt::WindowMaximizeButtonHint, scaling_);
    if (flags != window_.windowFlags()) {
        // A shown window keeps showing: only its platform window learns the new flags.
        if (QWindow* handle = window_.windowHandle()) {
            window_.overrideWindowFlags(flags);
            handle->setFlags(flags);
        } else {
            window_.setWindowFlags(flags);
        }
    }
    if (scaling_ || roomy_) {
        // Small enough for any screen: a size the desktop gives must be taken.
        view_->setMinimumSize(TableScale(kZoomSteps.front(), {}).table());
        view_->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        window_.layout()->setSizeConstraint(QLayout::SetDefaultConstraint);
        window_.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    } else {
        view_->setFixedSize(TableScale(zoom_, {}).table());
        window_.layout()->setSizeConstraint(QLayout::SetFixedSize);
    }
    if (window_.isVisible()) window_.layout()->activate();  // the new size at once, to keep it on screen
}

// A window grown by a zoom stays on the screen.
void TableSize::keepOnScreen() {
    const QScreen* screen = window_.screen();
    if (!window_.isVisible() || roomy_ || !screen) return;
    const QRect area = screen->availableGeometry();
    const QRect frame = window_.frameGeometry();
    QPoint at = frame.topLeft();
    at.setX(std::max(area.left(), std::min(at.x(), area.right() + 1 - frame.width())));
    at.setY(std::max(area.top(), std::min(at.y(), area.bottom() + 1 - frame.height())));
    if (at != frame.topLeft()) window_.move(at);
}

void TableSize::updateItems() {
    const bool desktopSized = scaling_ && roomy_;  // the zoom follows the desktop's size
    const qreal now = shownZoom(), top = largestZoom();
    items_.zoomIn->setEnabled(!desktopSized && now + 0.001 < top);
    items_.zoomOut->setEnabled(!desktopSized && now - 0.001 > kZoomSteps.front());
    items_.actualSize->setEnabled(!desktopSized && !same(now, std::min(1.0, top)));
}

}  // namespace vorn::shell
