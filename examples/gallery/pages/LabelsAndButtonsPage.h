#pragma once

#include "GalleryPage.h"

#include <QVector>

#include <memory>
#include <vector>

class ElidedTextLabel;
class QCheckBox;
class QFormLayout;
class QGridLayout;
class QLabel;
class QLineEdit;
class QSplitter;
class QStyle;

namespace zelmar::ui {
class CorrectFontCommandLinkButton;
} // namespace zelmar::ui

namespace gallery {

/// A page with the eliding label at three fixed widths and at an adjustable one, and with the command link button in
/// three styles. The texts can be edited.
class LabelsAndButtonsPage : public GalleryPage
{
    Q_OBJECT

public:
    LabelsAndButtonsPage();
    ~LabelsAndButtonsPage() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addLabels(QFormLayout& form);
    void addButtons(QFormLayout& form);
    void addButton(QGridLayout& grid, const QString& styleName, std::unique_ptr<QStyle> style);
    QWidget* makeSplitter();
    void showText(const QString& text);
    void useOwnToolTip(bool on);
    void showToolTip();

    QLineEdit* m_text;
    QCheckBox* m_ownToolTip;
    QSplitter* m_splitter;
    QLabel* m_toolTip;
    QVector<ElidedTextLabel*> m_labels; ///< the last one is in the splitter
    QLineEdit* m_title;
    QLineEdit* m_description;
    QCheckBox* m_pressed;
    std::vector<std::unique_ptr<QStyle>> m_styles;
    QVector<zelmar::ui::CorrectFontCommandLinkButton*> m_buttons; ///< one for each style
};

} // namespace gallery
