// One record line of save.txt as the load dialog reads it: the layout string,
// ", ", the name, ", ". The 48th comma ends the layout, the 49th ends the name.
#pragma once

#include <string>
#include <string_view>

namespace vorn::store {

struct RecordView {
    std::string name;    // what the dialog shows in its text box
    std::string layout;  // what Load hands back (the record's layout part)
    int commas = 0;      // commas found, at most 49
};

// A record written by the Save command has at least 49 commas: the name is the
// text from the second character after the 48th comma up to the 49th comma, and
// the layout the text before the 48th. A shorter line is read as far as it goes:
// with 48 commas the name runs to the end of the line; with fewer the whole line
// is the layout and the name is empty.
RecordView parseRecord(std::string_view line);

}  // namespace vorn::store
