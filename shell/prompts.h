// Message boxes, the input box and modal windows all go through this one
// interface: the game uses real Qt boxes, tests plug in a recorder that answers
// from a script and remembers what was shown.
#pragma once

#include <QString>

class QDialog;
class QWidget;

namespace vorn::shell {

class Prompts {
public:
    enum class Buttons { Ok, YesNo };
    enum class Icon { None, Question };
    enum class Answer { Ok, Yes, No };

    virtual ~Prompts() = default;

    // A modal message box; returns the button pressed.
    virtual Answer message(QWidget* parent, const QString& text, const QString& title, Buttons buttons,
                           Icon icon) = 0;
    // A modal input box that starts with `typed` (empty the first time it is
    // asked); returns the text typed, or an empty text when cancelled.
    virtual QString input(QWidget* parent, const QString& prompt, const QString& title, const QString& typed) = 0;
    // Runs a modal window (the about windows, the load dialog) until it closes.
    virtual void exec(QDialog& dialog) = 0;
    // A modal file box that asks for a file to write, starting at `suggested`
    // and showing the files of `filter` ("CSV files (*.csv)"); returns the
    // file chosen, or an empty text when cancelled.
    virtual QString saveFileName(QWidget* parent, const QString& title, const QString& suggested,
                                 const QString& filter) = 0;
};

// The real thing: QMessageBox, QInputDialog, QDialog::exec and QFileDialog.
class QtPrompts final : public Prompts {
public:
    Answer message(QWidget* parent, const QString& text, const QString& title, Buttons buttons,
                   Icon icon) override;
    QString input(QWidget* parent, const QString& prompt, const QString& title, const QString& typed) override;
    void exec(QDialog& dialog) override;
    QString saveFileName(QWidget* parent, const QString& title, const QString& suggested,
                         const QString& filter) override;
};

// Answers every box at once (Yes to a question) and runs no modal window: for
// the developer tools and benchmarks, which show nothing but what they measure.
class SilentPrompts final : public Prompts {
public:
    Answer message(QWidget*, const QString&, const QString&, Buttons buttons, Icon) override {
        return buttons == Buttons::YesNo ? Answer::Yes : Answer::Ok;
    }
    QString input(QWidget*, const QString&, const QString&, const QString&) override { return {}; }
    void exec(QDialog&) override {}
    QString saveFileName(QWidget*, const QString&, const QString&, const QString&) override { return {}; }
};

}  // namespace vorn::shell
