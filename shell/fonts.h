// The windows name the fonts of the old game ("Arial", "MS Sans Serif"); on this
// system they are shown in the nearest fonts there are.
#pragma once

namespace vorn::shell {

// Arial -> Liberation Sans; MS Sans Serif -> DejaVu Sans (Liberation Sans when
// DejaVu is missing). Safe to call more than once.
void useGameFonts();

}  // namespace vorn::shell
