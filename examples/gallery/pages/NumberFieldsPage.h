#pragma once

#include "GalleryPage.h"

#include <boost/signals2/connection.hpp>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;

namespace zelmar::ui {
class IntegralSpinBox;
class QScientificSpinBox;
} // namespace zelmar::ui

namespace gallery {

/// A page with the two number fields, their settings, and the state and value of the text while it is typed.
class NumberFieldsPage : public GalleryPage
{
    Q_OBJECT

public:
    NumberFieldsPage();
    ~NumberFieldsPage() override;

private:
    void addSettings(QFormLayout& form);
    void connectSettings();
    void applyRange();
    void takeStepsOver(bool on);
    void showState();
    void showValue();

    QLineEdit& typedText() const;

    zelmar::ui::QScientificSpinBox* m_number;
    zelmar::ui::IntegralSpinBox* m_integer;
    QLabel* m_state;
    QLabel* m_value;
    QComboBox* m_range;
    zelmar::ui::IntegralSpinBox* m_digits;
    QLineEdit* m_prefix;
    QLineEdit* m_suffix;
    QCheckBox* m_ownSteps;
    boost::signals2::scoped_connection m_takenOver[4];
};

} // namespace gallery
