#include "NumberDelegate.h"

#include "ui/qt/controls/QScientificSpinBox.h"

#include <QLineEdit>
#include <QLocale>
#include <QtNumeric>

#include <optional>
#include <utility>

using zelmar::ui::QScientificSpinBox;

namespace gallery {

namespace {

const int maxDecimals = 12;

/// A number field that shows the number of a cell as it is written there, and what the user has typed: a field that
/// loses the keyboard would replace it by the text of the nearest value.
class CellField : public QScientificSpinBox
{
public:
    explicit CellField(QWidget* parent)
        : QScientificSpinBox(parent)
    {
        setDecimals(maxDecimals);
        setFrame(false);
        setAutoFillBackground(true); // because the cell is drawn below
        connect(lineEdit(), &QLineEdit::textEdited, this,
                [this](const QString& text) { m_typedText = text.trimmed(); });
    }

    void setCellText(const QString& text)
    {
        const double value = QLocale::c().toDouble(text); // 0 if the cell is empty
        m_cellText = text;
        m_cellValue = qIsFinite(value) ? value : 0;
        m_typedText = text.trimmed();
        setValue(m_cellValue);
        lineEdit()->setText(text);
    }
    [[nodiscard]] const QString& cellText() const { return m_cellText; }
    /// Returns what the user has typed, or nothing if the user has stepped to another value since.
    [[nodiscard]] const std::optional<QString>& typedText() const { return m_typedText; }

    [[nodiscard]] QString textFromValue(double value) const override
    {
        return value == m_cellValue ? m_cellText : QScientificSpinBox::textFromValue(value);
    }

    void stepBy(int steps) override
    {
        QScientificSpinBox::stepBy(steps);
        m_typedText.reset();
        if (value() == m_cellValue)
            m_typedText = m_cellText.trimmed();
    }

protected:
    void focusOutEvent(QFocusEvent* event) override
    {
        QScientificSpinBox::focusOutEvent(event);
        if (m_typedText)
            lineEdit()->setText(*m_typedText);
    }

private:
    QString m_cellText;
    double m_cellValue = 0;
    std::optional<QString> m_typedText;
};

/// Returns whether other programs can read the text as a number.
bool isPlainNumber(const QString& text)
{
    QLocale plain = QLocale::c();
    plain.setNumberOptions(QLocale::RejectGroupSeparator);
    bool isNumber = false;
    plain.toDouble(text, &isNumber);
    return isNumber;
}

QString shortestText(double value)
{
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

/// Returns the text to store.
QString numberText(const CellField& field)
{
    if (!field.typedText()) // after steps, whose number may have more digits than are shown
        return shortestText(field.value());
    const QString& typed = *field.typedText();
    if (typed == field.cellText().trimmed())
        return field.cellText();
    return typed.isEmpty() || isPlainNumber(typed) ? typed : shortestText(field.valueFromText(typed));
}

} // namespace

NumberDelegate::NumberDelegate(IsNumber isNumber, NamesFor namesFor, QObject* parent)
    : NameDelegate(Entry::AnyText, std::move(namesFor), parent)
    , m_isNumber(std::move(isNumber))
{
}

NumberDelegate::~NumberDelegate() = default;

QWidget* NumberDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                      const QModelIndex& index) const
{
    if (!m_isNumber(index))
        return NameDelegate::createEditor(parent, option, index);
    auto* field = new CellField(parent);
    field->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
    return field;
}

void NumberDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    auto* field = dynamic_cast<CellField*>(editor);
    if (!field)
        return NameDelegate::setEditorData(editor, index);
    field->setCellText(index.data(Qt::EditRole).toString());
    field->selectAll();
}

void NumberDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const
{
    const auto* field = dynamic_cast<CellField*>(editor);
    if (!field) {
        NameDelegate::setModelData(editor, model, index);
    } else if (accepts(*field)) {
        model->setData(index, numberText(*field));
        Q_EMIT textTaken();
    }
}

QString NumberDelegate::refusedText(const QWidget& editor) const
{
    const auto* field = dynamic_cast<const CellField*>(&editor);
    if (!field)
        return NameDelegate::refusedText(editor);
    QString typed = field->typedText().value_or(QString());
    int cursor = 0;
    const bool isStored = typed.isEmpty() || typed == field->cellText().trimmed() || isPlainNumber(typed)
                          || field->validate(typed, cursor) == QValidator::Acceptable;
    return isStored ? QString() : typed;
}

} // namespace gallery
