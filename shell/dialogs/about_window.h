// The two about windows: Form3 (Russian) and Form4 (English). Fixed texts, two
// pictures and an OK button that closes the window. Form3 is also the sign that
// a game has been won.
#pragma once

#include <QDialog>
#include <functional>

#include "shell/texts.h"

namespace vorn::shell {

class AboutWindow : public QDialog {
    Q_OBJECT
public:
    // Russian builds Form3, English builds Form4 (the objectName says which).
    // F1 in the window calls help (the main window's help of the language in force).
    AboutWindow(Language lang, QWidget* owner, std::function<void()> help = {});

protected:
    bool event(QEvent* event) override;  // follows a change of the desktop's colour scheme

private:
    void followScheme();
};

}  // namespace vorn::shell
