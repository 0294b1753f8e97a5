// The real boxes: QMessageBox for the game's messages and the quit question,
// QInputDialog for the name of a layout, QDialog::exec for the modal windows,
// QFileDialog for the file of an export.
#include "prompts.h"

#include <QDialog>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>

namespace vorn::shell {

Prompts::Answer QtPrompts::message(QWidget* parent, const QString& text, const QString& title, Buttons buttons,
                                   Icon icon) {
    QMessageBox box(parent);
    box.setWindowTitle(title);
    box.setText(text);
    box.setIcon(icon == Icon::Question ? QMessageBox::Question : QMessageBox::NoIcon);
    if (buttons == Buttons::YesNo) {
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.setDefaultButton(QMessageBox::Yes);
        box.setEscapeButton(QMessageBox::No);
    } else {
        box.setStandardButtons(QMessageBox::Ok);
    }
    const int pressed = box.exec();
    if (buttons == Buttons::Ok) return Answer::Ok;
    return pressed == QMessageBox::Yes ? Answer::Yes : Answer::No;
}

QString QtPrompts::input(QWidget* parent, const QString& prompt, const QString& title, const QString& typed) {
    QInputDialog dialog(parent);
    dialog.setInputMode(QInputDialog::TextInput);
    dialog.setWindowTitle(title);
    dialog.setLabelText(prompt);
    dialog.setTextValue(typed);
    if (dialog.exec() != QDialog::Accepted) return {};
    return dialog.textValue();
}

void QtPrompts::exec(QDialog& dialog) { dialog.exec(); }

QString QtPrompts::saveFileName(QWidget* parent, const QString& title, const QString& suggested,
                                const QString& filter) {
    QFileDialog dialog(parent, title);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilter(filter);
    dialog.setDefaultSuffix(QFileInfo(suggested).suffix());
    dialog.selectFile(suggested);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    return dialog.selectedFiles().constFirst();
}

}  // namespace vorn::shell
