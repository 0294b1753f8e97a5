// What assistive technology sees of the card table: every card and every pile
// place is a push button with its name ("7 of spades", "empty place") that can
// be pressed (a click) and focused (the keyboard's ring); a card is selectable,
// and the selected card has the state "selected".
#pragma once

namespace vorn::shell {

// Installs the accessible interfaces of the card images and the pile places;
// calling it again does nothing.
void installTableAccessibility();

}  // namespace vorn::shell
