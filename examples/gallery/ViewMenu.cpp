#include "ViewMenu.h"

#include "darkPalette.h"

#include "platform/installTranslations.h"

#include <QActionGroup>
#include <QApplication>
#include <QSettings>
#include <QStyle>

namespace gallery {

namespace {

const char darkKey[] = "view/dark";
const char rightToLeftKey[] = "view/rightToLeft";
const char languageKey[] = "view/language";
const char scaleKey[] = "view/scalePercent";

const char scaleVariable[] = "QT_SCALE_FACTOR";

struct Language
{
    const char* code;
    const char* name; ///< in the language itself
};

const Language languages[] = {
    {"en", "&English"}, {"de", "&Deutsch"},    {"fr", "&Français"},    {"es", "E&spañol"},
    {"pl", "&Polski"},  {"ja", "日本語 (&J)"}, {"zh_CN", "中文 (&C)"},
};

struct Scale
{
    int percent;
    const char* text;
};

const Scale scales[] = {{100, "&100 %"}, {150, "1&50 %"}, {200, "&200 %"}};

QVariant setting(const char* key)
{
    return QSettings().value(QLatin1String(key));
}

/// Returns `palette` with each brush set explicitly, so that none falls back to the application's dark palette.
QPalette withOwnBrushes(QPalette palette)
{
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        for (int role = 0; role < QPalette::NColorRoles; ++role)
            palette.setBrush(group, QPalette::ColorRole(role), palette.brush(group, QPalette::ColorRole(role)));
    }
    return palette;
}

/// Stores the value whenever the user triggers the action, and not when the program changes its state.
void keepChoices(QAction* action, const char* key, const QVariant& value)
{
    QObject::connect(action, &QAction::triggered, action, [key, value](bool on) {
        QSettings().setValue(QLatin1String(key), value.isValid() ? value : QVariant(on));
    });
}

} // namespace

ViewMenu::ViewMenu(QWidget* parent)
    : QMenu(tr("&View"), parent)
    , m_dark(addAction(tr("&Dark colours")))
    , m_rightToLeft(addAction(tr("&Right to left")))
    , m_languages(new QMenu(tr("&Language of the library's texts"), this))
    , m_usualDirection(QApplication::layoutDirection())
{
    m_dark->setCheckable(true);
    connect(m_dark, &QAction::toggled, this, &ViewMenu::setDark);
    keepChoices(m_dark, darkKey, {});
    m_rightToLeft->setCheckable(true);
    connect(m_rightToLeft, &QAction::toggled, this, &ViewMenu::setRightToLeft);
    keepChoices(m_rightToLeft, rightToLeftKey, {});
    addLanguages();
    addScales();
}

ViewMenu::~ViewMenu() = default;

void ViewMenu::addLanguages()
{
    addMenu(m_languages);
    auto* group = new QActionGroup(this);
    for (const Language& language : languages) {
        QAction* action = group->addAction(m_languages->addAction(QString::fromUtf8(language.name)));
        const QString code = QString::fromLatin1(language.code);
        action->setCheckable(true);
        action->setData(code);
        action->setChecked(language.code == languages[0].code);
        connect(action, &QAction::toggled, this, [this, code](bool on) {
            if (on)
                setLanguage(QLocale(code));
        });
        keepChoices(action, languageKey, code);
    }
}

void ViewMenu::addScales()
{
    QMenu* menu = addMenu(tr("&Scale from the next start on"));
    auto* group = new QActionGroup(this);
    const int chosen = setting(scaleKey).toInt();
    for (const Scale& scale : scales) {
        QAction* action = group->addAction(menu->addAction(tr(scale.text)));
        action->setCheckable(true);
        action->setChecked(scale.percent == qMax(chosen, scales[0].percent));
        keepChoices(action, scaleKey, scale.percent);
    }
}

void ViewMenu::restore()
{
    m_dark->setChecked(setting(darkKey).toBool());
    m_rightToLeft->setChecked(setting(rightToLeftKey).toBool());
    const QString code = setting(languageKey).toString();
    const auto actions = m_languages->actions();
    for (QAction* action : actions)
        if (action->data() == code)
            action->setChecked(true);
}

void ViewMenu::useDarkColours()
{
    m_dark->setChecked(true);
}

void ViewMenu::setDark(bool on)
{
    if (on) {
        m_lightStyle = QApplication::style()->objectName();
        m_lightPalette = withOwnBrushes(QApplication::palette());
        QApplication::setStyle(
            QStringLiteral("Fusion")); // Other styles do not draw everything in the palette's colours.
        QApplication::setPalette(darkPalette());
    } else {
        QApplication::setStyle(m_lightStyle);
        QApplication::setPalette(m_lightPalette);
    }
}

void ViewMenu::setRightToLeft(bool on)
{
    QApplication::setLayoutDirection(on ? Qt::RightToLeft : m_usualDirection);
}

void ViewMenu::setLanguage(const QLocale& locale)
{
    const Qt::LayoutDirection direction = QApplication::layoutDirection();
    zelmar::installTranslations(locale);
    QApplication::setLayoutDirection(direction); // which Qt 5 sets to that of its own translation
}

void useChosenScale()
{
    const int percent = setting(scaleKey).toInt();
    if (percent > 0 && !qEnvironmentVariableIsSet(scaleVariable))
        qputenv(scaleVariable, QByteArray::number(percent / 100.0));
}

} // namespace gallery
