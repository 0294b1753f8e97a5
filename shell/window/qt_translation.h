// Qt's own texts (the Yes and No of the quit question, the buttons of the input
// box) follow the game's language: Russian installs Qt's Russian catalogue,
// English removes it again.
#pragma once

#include <QTranslator>

#include "shell/texts.h"

namespace vorn::shell {

class QtTranslation final {
public:
    QtTranslation() = default;
    ~QtTranslation();
    QtTranslation(const QtTranslation&) = delete;
    QtTranslation& operator=(const QtTranslation&) = delete;

    // Returns false when Qt's Russian catalogue is not installed on the machine
    // (Qt then keeps its English texts).
    bool use(Language lang);

private:
    QTranslator russian_;
    bool loaded_ = false;
    bool installed_ = false;
};

}  // namespace vorn::shell
