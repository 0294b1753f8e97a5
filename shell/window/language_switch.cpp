// Switching the window between Russian and English.
#include "language_switch.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <iostream>

#include "game_menu.h"

namespace vorn::shell {

Messages messagesIn(Language lang) {
    return {text(Text::Zagol, lang), text(Text::Messvix, lang), text(Text::Messhod, lang),
            text(Text::Messnov, lang), text(Text::Messkart, lang)};
}

LanguageSwitch::LanguageSwitch(QMainWindow& window, GameMenu& menu, store::Settings& settings)
    : QObject(&window), window_(window), menu_(menu), settings_(settings) {
    setObjectName(QStringLiteral("languageSwitch"));
}

void LanguageSwitch::load() {
    const Language lang = settings_.readEnglish() ? Language::English : Language::Russian;
    // The window is created with the Russian captions; they are not set again.
    if (lang == Language::English)
        show(lang);
    else
        helpFile_ = text(Text::HelpFile, lang);
    messages_ = messagesIn(lang);
    emit switched(lang);
}

void LanguageSwitch::switchTo(Language lang) {
    show(lang);
    // A folder that cannot be written costs the remembered language, not the game.
    if (!settings_.write(lang == Language::English)) std::cerr << "vorn: " << settings_.errorText() << '\n';
    messages_ = messagesIn(lang);
    emit switched(lang);
}

void LanguageSwitch::show(Language lang) {
    const bool english = lang == Language::English;
    (english ? menu_.ig8 : menu_.ig7)->setChecked(true);
    (english ? menu_.ig7 : menu_.ig8)->setChecked(false);
    menu_.setCaptions(lang);
    window_.setWindowTitle(text(Text::Title, lang));
    helpFile_ = text(Text::HelpFile, lang);
}

Language LanguageSwitch::language() const {
    return menu_.ig8->isChecked() ? Language::English : Language::Russian;
}

}  // namespace vorn::shell
