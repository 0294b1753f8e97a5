// Switching Qt's own texts with the game's language.
#include "qt_translation.h"

#include <QCoreApplication>
#include <QLibraryInfo>

namespace vorn::shell {

QtTranslation::~QtTranslation() {
    if (installed_ && QCoreApplication::instance()) QCoreApplication::removeTranslator(&russian_);
}

bool QtTranslation::use(Language lang) {
    if (!QCoreApplication::instance()) return false;
    if (lang == Language::English) {
        if (installed_) QCoreApplication::removeTranslator(&russian_);
        installed_ = false;
        return true;
    }
    if (!loaded_)
        loaded_ = russian_.load(QStringLiteral("qtbase_ru"), QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    if (!loaded_) return false;
    if (!installed_) installed_ = QCoreApplication::installTranslator(&russian_);
    return installed_;
}

}  // namespace vorn::shell
