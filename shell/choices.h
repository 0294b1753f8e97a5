// The program's own choices, remembered between runs where the desktop keeps
// such things ($XDG_CONFIG_HOME/vorn/vorn.conf), never in ini.txt: the check
// marks of the additions' items and the table's size.
#pragma once

#include <QSettings>

class QAction;

namespace vorn::shell {

QSettings choices();

// A check item remembered under `key`: it starts as it was left, off at the
// very first start.
void rememberCheck(QAction* item, const char* key);

}  // namespace vorn::shell
