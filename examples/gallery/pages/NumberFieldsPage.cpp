#include "NumberFieldsPage.h"

#include "ui/qt/controls/IntegralSpinBox.h"
#include "ui/qt/controls/QScientificSpinBox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QVBoxLayout>

#include <cfloat>

using zelmar::ui::IntegralSpinBox;
using zelmar::ui::QScientificSpinBox;

namespace gallery {

namespace {

struct Range
{
    const char* name;
    double minimum;
    double maximum;
};

const Range ranges[] = {
    {QT_TRANSLATE_NOOP("gallery::NumberFieldsPage", "Any double"), -DBL_MAX, DBL_MAX},
    {QT_TRANSLATE_NOOP("gallery::NumberFieldsPage", "0 to 1"), 0, 1},
    {QT_TRANSLATE_NOOP("gallery::NumberFieldsPage", "100 to 5000"), 100, 5000},
    {QT_TRANSLATE_NOOP("gallery::NumberFieldsPage", "-2000 to -0.5"), -2000, -0.5},
    {QT_TRANSLATE_NOOP("gallery::NumberFieldsPage", "1E+20 to 2E+20"), 1e20, 2e20},
};

QString stateName(QValidator::State state)
{
    if (state == QValidator::Acceptable)
        return NumberFieldsPage::tr("Acceptable: a number in the range");
    if (state == QValidator::Intermediate)
        return NumberFieldsPage::tr("Intermediate: may become one; until then the value stays");
    return NumberFieldsPage::tr("Invalid: not a number in the range");
}

} // namespace

NumberFieldsPage::NumberFieldsPage()
    : GalleryPage(tr("Number fields"),
                  tr("A field for any double, with a precision of its own, and one for integers. Steps with the "
                     "arrows, the page keys and the wheel can be taken over by the application."))
    , m_number(new QScientificSpinBox)
    , m_integer(new IntegralSpinBox(nullptr))
    , m_state(new QLabel)
    , m_value(new QLabel)
    , m_range(new QComboBox)
    , m_digits(new IntegralSpinBox(nullptr))
    , m_prefix(new QLineEdit)
    , m_suffix(new QLineEdit)
    , m_ownSteps(new QCheckBox(tr("Steps are taken &over: up is ten times as much, or twice; down the reverse")))
{
    auto* form = new QFormLayout;
    form->addRow(tr("&Double"), m_number);
    form->addRow(tr("Its text is"), m_state);
    form->addRow(tr("Its value is"), m_value);
    form->addRow(tr("&Integer"), m_integer);
    addSettings(*form);
    contents().addLayout(form);
    contents().addStretch();
    connectSettings();
    m_number->setValue(1.0 / 3);
    showState();
    showValue();
}

NumberFieldsPage::~NumberFieldsPage() = default;

void NumberFieldsPage::addSettings(QFormLayout& form)
{
    m_integer->setRange(0, 1000000);
    m_integer->setValue(5);
    m_digits->setRange(1, 12);
    m_digits->setValue(m_number->decimals());
    for (const Range& range : ranges)
        m_range->addItem(tr(range.name));
    m_state->setTextFormat(Qt::PlainText);
    m_value->setTextFormat(Qt::PlainText);
    m_value->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);

    form.addRow(tr("&Range"), m_range);
    form.addRow(tr("Digi&ts shown"), m_digits);
    form.addRow(tr("Prefi&x"), m_prefix);
    form.addRow(tr("&Suffix"), m_suffix);
    form.addRow(m_ownSteps);
}

void NumberFieldsPage::connectSettings()
{
    connect(&typedText(), &QLineEdit::textChanged, this, &NumberFieldsPage::showState);
    // The spin box blocks the signals of its line edit while it writes its own text.
    connect(m_number, &QDoubleSpinBox::editingFinished, this, &NumberFieldsPage::showState);
    connect(m_number, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, &NumberFieldsPage::showState);
    connect(m_number, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, &NumberFieldsPage::showValue);
    connect(m_range, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &NumberFieldsPage::applyRange);
    connect(m_digits, QOverload<int>::of(&QSpinBox::valueChanged), m_number, &QScientificSpinBox::setDecimals);
    connect(m_prefix, &QLineEdit::textChanged, m_number, &QDoubleSpinBox::setPrefix);
    connect(m_suffix, &QLineEdit::textChanged, m_number, &QDoubleSpinBox::setSuffix);
    connect(m_ownSteps, &QCheckBox::toggled, this, &NumberFieldsPage::takeStepsOver);
}

QLineEdit& NumberFieldsPage::typedText() const
{
    return *m_number->findChild<QLineEdit*>();
}

void NumberFieldsPage::applyRange()
{
    const Range& range = ranges[m_range->currentIndex()];
    m_number->setRange(range.minimum, range.maximum);
    showState();
}

void NumberFieldsPage::takeStepsOver(bool on)
{
    for (boost::signals2::scoped_connection& connection : m_takenOver)
        connection.disconnect();
    if (!on)
        return;
    // A step begins at the number that is shown, which may not be the value yet.
    const auto shown = [](auto* field) {
        field->interpretText();
        return field->value();
    };
    m_takenOver[0] = m_number->signalIncrement.connect([=] { m_number->setValue(shown(m_number) * 10); });
    m_takenOver[1] = m_number->signalDecrement.connect([=] { m_number->setValue(shown(m_number) / 10); });
    m_takenOver[2] = m_integer->signalIncrement.connect([=] { m_integer->setValue(shown(m_integer) * 2); });
    m_takenOver[3] = m_integer->signalDecrement.connect([=] { m_integer->setValue(shown(m_integer) / 2); });
}

void NumberFieldsPage::showState()
{
    QString text = typedText().text();
    int position = typedText().cursorPosition();
    m_state->setText(stateName(m_number->validate(text, position)));
}

void NumberFieldsPage::showValue()
{
    m_value->setText(QString::number(m_number->value(), 'g', QLocale::FloatingPointShortest));
}

} // namespace gallery
