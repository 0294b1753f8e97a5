#include "game_style.h"

#include <QMenu>
#include <QPainter>
#include <QStyleOption>

namespace vorn::shell {

QIcon GameStyle::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const {
    if (icon == SP_ToolBarHorizontalExtensionButton || icon == SP_ToolBarVerticalExtensionButton) return {};
    return QProxyStyle::standardIcon(icon, option, widget);
}

void GameStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element != PE_IndicatorCheckBox || !qobject_cast<const QMenu*>(widget) ||
        baseStyle()->name().compare(QLatin1String("fusion"), Qt::CaseInsensitive) != 0)
        return;
    const QColor text = option->palette.text().color();
    const QColor base = option->palette.base().color();
    constexpr double kText = 0.55;  // 4.5:1 and more against white or near-black menus
    const QColor frame = QColor::fromRgbF(static_cast<float>(kText * text.redF() + (1 - kText) * base.redF()),
                                          static_cast<float>(kText * text.greenF() + (1 - kText) * base.greenF()),
                                          static_cast<float>(kText * text.blueF() + (1 - kText) * base.blueF()));
    // Fusion's own frame lies here: the box less a pixel, on half-pixel lines.
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, true);
    painter->translate(0.5, 0.5);
    painter->setPen(frame);
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    painter->restore();
}

}  // namespace vorn::shell
