// The two languages of the main window, Русский (ig7) and English (ig8). A
// switch sets the check marks, the menu captions, the window title and the help
// file, writes ini.txt and takes the message texts of the language; then the
// rest of the window follows (screen-reader names, Qt's own button texts, the
// items the game added to the menu).
#pragma once

#include <QObject>
#include <QString>

#include "shell/texts.h"
#include "store/settings.h"

class QMainWindow;

namespace vorn::shell {

class GameMenu;

// The message texts of the main window: zagol is the title of its boxes,
// messvix the quit question, messhod "wrong move", messnov "choose New game",
// messkart "this card cannot be selected".
struct Messages {
    QString zagol, messvix, messhod, messnov, messkart;
};
// The messages of a language (what messrus and messeng fill in).
Messages messagesIn(Language lang);

class LanguageSwitch final : public QObject {
    Q_OBJECT
public:
    LanguageSwitch(QMainWindow& window, GameMenu& menu, store::Settings& settings);

    // At window load: the language ini.txt names, shown as a switch shows it,
    // except that ini.txt is not written and Russian captions stay as created.
    void load();
    // Русский or English, also when that language is in force already.
    void switchTo(Language lang);

    Language language() const;  // the check marks of ig7 / ig8
    const QString& helpFile() const { return helpFile_; }
    const Messages& messages() const { return messages_; }

signals:
    // The language in force has been shown (at load and at every switch).
    void switched(Language lang);

private:
    void show(Language lang);  // check marks, captions, title, help file

    QMainWindow& window_;
    GameMenu& menu_;
    store::Settings& settings_;
    QString helpFile_;
    Messages messages_;
};

}  // namespace vorn::shell
