#include "sampleNames.h"

namespace gallery {

QStringList sampleNames(int count)
{
    const QStringList places =
        QString::fromUtf8("Inlet Outlet Kühlwasser Öldruck Débit Réservoir Насос Клапан Θερμοκρασία Left Right Upper "
                          "Lower Cabin Gearbox Rotor Stator Bearing Tank Filter")
            .split(QLatin1Char(' '));
    const QStringList quantities = {"pressure", "temperature", "flow", "level", "speed", "torque", "voltage"};
    QStringList names;
    names.reserve(count);
    for (int i = 0; i < count; ++i) {
        // The place varies fastest, so that even a short list contains all of them.
        const QString& place = places.at(i % places.size());
        const QString& quantity = quantities.at(i / places.size() % quantities.size());
        const int number = i / (places.size() * quantities.size()) + 1;
        names += i % 3 == 0 ? QStringLiteral("%1 %2 %3").arg(place, quantity).arg(number)
                            : QStringLiteral("%1_%2_%3").arg(quantity.toUpper(), place).arg(number);
    }
    return names;
}

} // namespace gallery
