#include "recording_prompts.h"

#include <QDialog>

namespace vorn::test {

Prompts::Answer RecordingPrompts::message(QWidget*, const QString& text, const QString& title, Buttons buttons,
                                          Icon icon) {
    boxes.append({text, title, buttons, icon});
    if (!answers.isEmpty()) return answers.takeFirst();
    return buttons == Buttons::YesNo ? Answer::No : Answer::Ok;
}

QString RecordingPrompts::input(QWidget*, const QString& prompt, const QString& title, const QString& typed) {
    asked.append({prompt, title, typed});
    return inputs.isEmpty() ? QString() : inputs.takeFirst();
}

void RecordingPrompts::exec(QDialog& dialog) {
    shown.append({dialog.objectName(), dialog.windowTitle()});
    if (!handlers.isEmpty()) handlers.takeFirst()(dialog);
}

void RecordingPrompts::forget() {
    boxes.clear();
    asked.clear();
    shown.clear();
}

QStringList RecordingPrompts::boxTexts() const {
    QStringList texts;
    for (const Box& b : boxes) texts.append(b.text);
    return texts;
}

}  // namespace vorn::test
