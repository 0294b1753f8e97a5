// A dark desktop palette, light text on dark faces and fields: what the
// screenshot tool and the tests put the windows under to see that every text
// stays readable.
#pragma once

#include <QColor>
#include <QPalette>

namespace vorn::shell {

inline QPalette darkPalette() {
    const QColor text(0xe6, 0xe6, 0xe6), face(0x2b, 0x2b, 0x2b);
    QPalette p(text, QColor(0x35, 0x35, 0x35), QColor(0x50, 0x50, 0x50), QColor(0x18, 0x18, 0x18), face, text,
               Qt::white, QColor(0x1e, 0x1e, 0x1e), face);
    p.setColor(QPalette::ButtonText, text);
    return p;
}

}  // namespace vorn::shell
