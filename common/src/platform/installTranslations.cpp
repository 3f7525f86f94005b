#include "platform/installTranslations.h"

#include <QCoreApplication>
#include <QString>
#include <QTranslator>

#include <memory>

namespace zelmar {

namespace {

constexpr const char* translatorName = "common_ui_qt translator";

/// Uninstalls the translator of the former call, if there is one. Qt does that when a translator is destroyed.
void removeFormerTranslator()
{
    delete QCoreApplication::instance()->findChild<QTranslator*>(QLatin1String(translatorName),
                                                                 Qt::FindDirectChildrenOnly);
}

} // namespace

bool installTranslations(const QLocale& locale)
{
    removeFormerTranslator();
    if (locale.language() == QLocale::English || locale.language() == QLocale::C)
        return true;
    auto translator = std::make_unique<QTranslator>();
    translator->setObjectName(QLatin1String(translatorName));
    if (!translator->load(locale, QStringLiteral("common_ui_qt"), QStringLiteral("_"),
                          QStringLiteral(":/common_ui_qt/translations")))
        return false;
    translator->setParent(QCoreApplication::instance());
    return QCoreApplication::installTranslator(translator.release());
}

} // namespace zelmar
