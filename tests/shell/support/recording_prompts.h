// A stand-in for the game's message boxes, input box and modal windows: it
// answers from a script and remembers everything it was asked to show.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>

#include "shell/prompts.h"

namespace vorn::test {

using shell::Prompts;

struct Box {
    QString text;
    QString title;
    Prompts::Buttons buttons;
    Prompts::Icon icon;
};

struct Asked {
    QString prompt;
    QString title;
    QString typed;  // what the box started with
};

struct Shown {
    QString objectName;
    QString title;
};

class RecordingPrompts final : public Prompts {
public:
    // Scripted replies, used from the front. Without one, a message box answers
    // OK (or No to a question), the input box is cancelled, and a modal window is
    // only recorded.
    QList<Answer> answers;
    QStringList inputs;
    QList<std::function<void(QDialog&)>> handlers;

    // What was shown, in order.
    QList<Box> boxes;
    QList<Asked> asked;
    QList<Shown> shown;

    Answer message(QWidget* parent, const QString& text, const QString& title, Buttons buttons,
                   Icon icon) override;
    QString input(QWidget* parent, const QString& prompt, const QString& title, const QString& typed) override;
    void exec(QDialog& dialog) override;

    // Forgets what was shown (the scripts stay).
    void forget();
    // The texts of the boxes shown, in order.
    QStringList boxTexts() const;
};

}  // namespace vorn::test
