// The game's style: the desktop's own, with two changes made through a proxy.
#pragma once

#include <QProxyStyle>

namespace vorn::shell {

class GameStyle final : public QProxyStyle {
public:
    // Without the icon of the menu bar's overflow button: the bar is made with
    // that button, and loading its icon files wakes Qt's icon engine plug-ins,
    // some 5 ms of start-up; the game's menus never overflow the bar, so the
    // button never shows.
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override;

    // Fusion frames the check box of a menu item in the window's colour made
    // darker; under a dark palette that is the colour of the menu itself, and an
    // unticked box cannot be seen. Its frame is drawn again here in a colour
    // between the menu's text and its base, which reads on light and dark menus.
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

}  // namespace vorn::shell
