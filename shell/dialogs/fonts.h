// The windows ask for the fonts "Arial" and "MS Sans Serif", which a Linux
// desktop seldom has; they are shown in the nearest fonts there are.
#pragma once

namespace vorn::shell {

// Arial -> Liberation Sans; MS Sans Serif -> DejaVu Sans (Liberation Sans when
// DejaVu is missing). Safe to call more than once.
void useGameFonts();

}  // namespace vorn::shell
