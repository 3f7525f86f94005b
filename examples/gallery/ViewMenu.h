#pragma once

#include <QLocale>
#include <QMenu>
#include <QPalette>

namespace gallery {

/// A menu with settings for the look of the whole program: dark colours, the direction of the layout, the language of
/// the library's texts and, from the next start on, the scale. The choices are stored in the settings. A choice that is
/// switched back looks as before.
class ViewMenu : public QMenu
{
    Q_OBJECT

public:
    /// Changes nothing yet.
    explicit ViewMenu(QWidget* parent = nullptr);
    ~ViewMenu() override;

    /// Applies the stored choices.
    void restore();

    /// Uses dark colours for this run of the program.
    void useDarkColours();

private:
    void addScales();
    void addLanguages();
    void setDark(bool on);
    void setRightToLeft(bool on);
    void setLanguage(const QLocale& locale);

    QAction* m_dark;
    QAction* m_rightToLeft;
    QMenu* m_languages;
    QString m_lightStyle;
    QPalette m_lightPalette;
    Qt::LayoutDirection m_usualDirection;
};

/// Makes Qt scale the program as the user has chosen in an earlier run, unless the environment says otherwise. Call it
/// before the application object is created, with the names of the settings already set.
void useChosenScale();

} // namespace gallery
