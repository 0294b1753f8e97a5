// Remembered choices.
#include "choices.h"

#include <QAction>

namespace vorn::shell {

QSettings choices() { return QSettings(QSettings::NativeFormat, QSettings::UserScope, "vorn", "vorn"); }

void rememberCheck(QAction* item, const char* key) {
    item->setChecked(choices().value(QLatin1String(key), false).toBool());
    QObject::connect(item, &QAction::toggled, item, [key](bool on) { choices().setValue(QLatin1String(key), on); });
}

}  // namespace vorn::shell
