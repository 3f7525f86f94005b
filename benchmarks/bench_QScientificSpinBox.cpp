// Compares keystrokes and texts of a QScientificSpinBox with those of a QDoubleSpinBox, and growDigitsIntoRange() with
// a walk through all candidates.

#include "Comparison.h"
#include "LiteralNumberRules.h"
#include "ui/qt/controls/QScientificSpinBox.h"
#include "ui/qt/controls/numbers/growDigitsIntoRange_p.h"

#include <QApplication>
#include <QStringList>

#include <limits>

using zelmar::internal::growDigitsIntoRange;

namespace {

/// Returns the texts that stand in the field after each key press. Successive texts differ, so that the shared
/// validation cache never helps.
QStringList typedTexts()
{
    const char* const finished[] = {"1234.5", "-0.000125", "99", "1,234,567.25", "7.5e3", "-12e-5", "3.14159265", "42"};
    QStringList texts;
    for (const char* text : finished) {
        for (int length = 1; length <= int(qstrlen(text)); ++length)
            texts += QString::fromLatin1(text, length);
    }
    return texts;
}

void validateAll(const QDoubleSpinBox& box, const QStringList& texts)
{
    for (int repetition = 0; repetition < 50; ++repetition) {
        for (const QString& text : texts) {
            QString copy = text;
            int position = copy.size();
            box.validate(copy, position);
        }
    }
}

void compareKeystrokes(const char* subject, double minimum, double maximum, const QString& suffix)
{
    zelmar::ui::QScientificSpinBox ours;
    QDoubleSpinBox peer;
    peer.setDecimals(8);
    for (QDoubleSpinBox* box : {static_cast<QDoubleSpinBox*>(&ours), &peer}) {
        box->setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
        box->setRange(minimum, maximum);
        box->setSuffix(suffix);
    }
    QStringList texts = typedTexts();
    for (QString& text : texts)
        text += suffix;
    compare(
        subject, 101, [&] { validateAll(ours, texts); }, [&] { validateAll(peer, texts); });
}

void compareTexts(const char* subject, const QVector<double>& values)
{
    const zelmar::ui::QScientificSpinBox ours;
    QDoubleSpinBox peer;
    peer.setDecimals(8);
    int length = 0;
    const auto show = [&](const QDoubleSpinBox& box) {
        for (int repetition = 0; repetition < 1000; ++repetition) {
            for (const double value : values)
                length += box.textFromValue(value).size();
        }
    };
    compare(
        subject, 101, [&] { show(ours); }, [&] { show(peer); });
    if (length == 0)
        std::printf("nothing was shown\n");
}

/// Measures the worst case: no candidate matches, and each is compared up to its last digit. The library's function is
/// repeated in order to be measurable.
void compareDigitTests()
{
    const int ourRepetitions = 1000;
    const qint64 number = 7777777777777777;
    const qint64 high = std::numeric_limits<qint64>::max();
    const qint64 low = 7777777777777778;
    qint64 sum = 0;
    const double ratio = compare(
        "worst text of the digit test, ours 1,000 times", 11,
        [&] {
            for (int repetition = 0; repetition < ourRepetitions; ++repetition)
                sum += growDigitsIntoRange(number, low + repetition, high).value_or(0) == number ? 1 : 0;
        },
        [&] {
            qint64 match = 0;
            sum += literal::digitTest(number, low, high, match) && match == number ? 1 : 0;
        });
    std::printf("the walk takes %.0f times as long\n", ourRepetitions / ratio);
    if (sum != qint64{12} * (ourRepetitions + 1))
        std::printf("not the expected answers\n");
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    compareKeystrokes("validate a keystroke, range -1e9 to 1e9", -1e9, 1e9, {});
    compareKeystrokes("validate a keystroke, suffix", -1e9, 1e9, QStringLiteral(" mm"));
    compareKeystrokes("validate a keystroke, range 100 to 5000", 100, 5000, {});
    compareTexts("textFromValue, plain numbers", {0, 1, -2.5, 1234.5678, 99999.125, 0.001});
    compareTexts("textFromValue, all magnitudes", {1e-300, 2.5e-7, 0.125, 123456.789, -9.75e12, 1e300});
    compareDigitTests();
    return 0;
}
