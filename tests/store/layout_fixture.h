// Shared pieces of the layout store tests.
#pragma once

#include <string>

#include "store/layout_store.h"
#include "store/temp_folder.h"

namespace vorn::store::testing {

// A layout string as a deal writes it: 48 values " n" joined by ",", 182 characters.
inline std::string dealtLayout(int step = 7) {
    std::string text;
    for (int i = 0; i < 48; ++i) {
        if (!text.empty()) text += ",";
        text += " " + std::to_string((i * step) % 48 + 1);
    }
    return text;
}

// A fresh folder with the store opened in it, as right after the game started.
class StoreTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(store.openAtStartup()) << store.errorText(); }
    std::string bytes(const char* name) const { return readBytes(folder / name); }

    TempFolder folder;
    LayoutStore store{folder.path()};
    const std::string raskl = dealtLayout();
};

}  // namespace vorn::store::testing
