// Stand-ins for the fonts the windows ask for.
#include "fonts.h"

#include <QFont>
#include <QFontDatabase>
#include <QStringList>

namespace vorn::shell {

void useGameFonts() {
    static bool done = false;
    if (done) return;
    done = true;
    QFont::insertSubstitution(QStringLiteral("Arial"), QStringLiteral("Liberation Sans"));
    const bool dejaVu = QFontDatabase::families().contains(QStringLiteral("DejaVu Sans"));
    QFont::insertSubstitution(QStringLiteral("MS Sans Serif"),
                              dejaVu ? QStringLiteral("DejaVu Sans") : QStringLiteral("Liberation Sans"));
}

}  // namespace vorn::shell
