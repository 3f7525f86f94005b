#pragma once

#include "common_ui_qt_export.h"

#include <QLocale>

namespace zelmar {

/// Shows the texts of the library in the language of `locale` from now on. Returns false and shows English texts if the
/// library has no translation into that language. It has German, French, Spanish, Polish, Japanese and Simplified
/// Chinese ones. They are part of the library, so that no file has to be found at run time.
///
///     QApplication application(argc, argv);
///     zelmar::installTranslations();
///
/// Texts that are on the screen already stay as they are. The translation stays installed until the function is called
/// again or the application object is destroyed, which owns it. A translator that the application installs later
/// takes precedence; the context of the library's texts is "common_ui_qt". Does not translate the texts of Qt itself
/// (the files qtbase_*.qm), nor those of DefaultSaveFileMessageHandler; see TranslatedSaveFileMessageHandler.
///
/// GUI thread only, with a running QCoreApplication.
COMMON_UI_QT_EXPORT bool installTranslations(const QLocale& locale = QLocale());

} // namespace zelmar
