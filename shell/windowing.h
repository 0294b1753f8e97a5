// Whether Qt can open the game's window at all, worked out before Qt starts its
// windowing: when it cannot, Qt would abort with a page of plug-in messages, and
// the game says why in one line instead.
#pragma once

#include <string>

namespace vorn::shell {

// The line (ending in a newline) that tells why no window can be opened, or an
// empty string when Qt may try. Qt tries its windowing plug-ins in turn: the one
// named by -platform or QT_QPA_PLATFORM, or else Wayland first when
// WAYLAND_DISPLAY is set or XDG_SESSION_TYPE is "wayland", then X11. X11 needs
// DISPLAY; Wayland needs Qt's Wayland plug-in (Debian's qt6-wayland) in one of
// the folders Qt looks in. Any other plug-in is left for Qt to judge.
std::string windowingProblem(int argc, char** argv);

}  // namespace vorn::shell
