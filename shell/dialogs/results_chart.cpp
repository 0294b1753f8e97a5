// Painted by hand: Qt Charts would add a large library and its start-up cost for one small line.
#include "results_chart.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

namespace vorn::shell {

namespace {

// Wins and games among won[from, to).
struct Share {
    long long wins = 0, games = 0;
};
Share share(const std::vector<bool>& won, std::ptrdiff_t from, std::ptrdiff_t to) {
    from = std::max<std::ptrdiff_t>(from, 0);
    Share s;
    for (std::ptrdiff_t i = from; i < to; ++i) s.wins += won[static_cast<size_t>(i)];
    s.games = std::max<std::ptrdiff_t>(to - from, 0);
    return s;
}

QColor blend(const QColor& a, const QColor& b, double towardsB) {
    const auto mix = [&](int x, int y) { return static_cast<int>(std::lround(x + (y - x) * towardsB)); };
    return QColor(mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue()));
}

}  // namespace

WinRates::WinRates(const std::vector<bool>& won) {
    const auto n = static_cast<std::ptrdiff_t>(won.size());
    const std::ptrdiff_t first = std::max<std::ptrdiff_t>(n - kShown, 0);
    const std::ptrdiff_t full = std::min<std::ptrdiff_t>(kWindow, n) - 1;  // the first game with a full share
    firstPoint = static_cast<size_t>(std::max<std::ptrdiff_t>(full - first, 0));
    for (std::ptrdiff_t i = first; i < n; ++i) {
        const Share s = share(won, i + 1 - kWindow, i + 1);
        shown.push_back(won[static_cast<size_t>(i)]);
        points.push_back(static_cast<double>(s.wins) / static_cast<double>(s.games));
    }
    const Share now = share(won, n - kWindow, n), before = share(won, n - 2 * kWindow, n - kWindow);
    lastGames = static_cast<int>(now.games);
    if (now.games > 0) lastPercent = static_cast<int>(std::lround(100.0 * now.wins / now.games));
    if (before.games > 0) {
        const long long rise = 100 * (now.wins * before.games - before.wins * now.games), step = 5 * now.games * before.games;
        trend = rise >= step ? 1 : rise <= -step ? -1 : 0;
    }
}

ResultsChart::ResultsChart(WinRates rates, QWidget* parent) : QWidget(parent), rates_(std::move(rates)) {
    setObjectName(QStringLiteral("chart"));
    setMinimumSize(240, 100);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize ResultsChart::sizeHint() const { return {420, 140}; }

// The share of wins as a line over a grid at 0, 50 and 100 %, labelled at the
// left; below, a mark for each game: a bar when it was won, a dash when not. Everything in the palette's text colour (the
// grid half-way to the face), so it reads under a light or a dark scheme alike.
void ResultsChart::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const QColor ink = palette().color(QPalette::WindowText);
    const QColor faint = blend(ink, palette().color(QPalette::Window), 0.6);
    const QFontMetrics metrics(font());
    const int left = metrics.horizontalAdvance(QStringLiteral("100\u00a0%")) + 8, top = metrics.height() / 2 + 1;
    const int markHeight = 7, bottom = height() - markHeight - 6, right = width() - 4;
    const auto yOf = [&](double rate) { return bottom - rate * (bottom - top); };

    for (const int percent : {0, 50, 100}) {
        const double y = yOf(percent / 100.0);
        p.setPen(QPen(faint, 1));
        p.drawLine(QPointF(left, y), QPointF(right, y));
        p.setPen(ink);
        p.drawText(QRectF(0, y - metrics.height() / 2.0, left - 6, metrics.height()), Qt::AlignRight | Qt::AlignVCenter,
                   QStringLiteral("%1\u00a0%").arg(percent));
    }
    const auto n = static_cast<int>(rates_.points.size());
    if (n == 0) return;
    const double step = static_cast<double>(right - left) / n;
    const auto xOf = [&](int i) { return left + (i + 0.5) * step; };

    const auto at = [&](int i) { return QPointF(xOf(i), yOf(rates_.points[static_cast<size_t>(i)])); };
    const int from = static_cast<int>(rates_.firstPoint);
    QPainterPath line(at(from));
    for (int i = from + 1; i < n; ++i) line.lineTo(at(i));
    p.setPen(QPen(ink, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    p.drawPath(line);
    if (from == n - 1) p.drawEllipse(at(from), 2, 2);

    const double mark = std::clamp(step * 0.6, 1.5, 7.0);
    for (int i = 0; i < n; ++i) {
        const int tall = rates_.shown[static_cast<size_t>(i)] ? markHeight : 2;
        p.fillRect(QRectF(xOf(i) - mark / 2, height() - 2 - tall, mark, tall), ink);
    }
}

}  // namespace vorn::shell
