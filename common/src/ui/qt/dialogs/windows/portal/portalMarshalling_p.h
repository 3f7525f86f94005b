#pragma once

#include "ui/qt/dialogs/windows/portal/portalTypes_p.h"

#include <QDBusArgument>

namespace zelmar::internal {

// The operators by which QtDBus reads and writes the portal's structures.

inline QDBusArgument& operator<<(QDBusArgument& out, const PortalFilterRule& rule)
{
    out.beginStructure();
    out << rule.kind << rule.text;
    out.endStructure();
    return out;
}

inline const QDBusArgument& operator>>(const QDBusArgument& in, PortalFilterRule& rule)
{
    in.beginStructure();
    in >> rule.kind >> rule.text;
    in.endStructure();
    return in;
}

inline QDBusArgument& operator<<(QDBusArgument& out, const PortalFilter& filter)
{
    out.beginStructure();
    out << filter.name << filter.rules;
    out.endStructure();
    return out;
}

inline const QDBusArgument& operator>>(const QDBusArgument& in, PortalFilter& filter)
{
    in.beginStructure();
    in >> filter.name >> filter.rules;
    in.endStructure();
    return in;
}

inline QDBusArgument& operator<<(QDBusArgument& out, const PortalPair& pair)
{
    out.beginStructure();
    out << pair.id << pair.text;
    out.endStructure();
    return out;
}

inline const QDBusArgument& operator>>(const QDBusArgument& in, PortalPair& pair)
{
    in.beginStructure();
    in >> pair.id >> pair.text;
    in.endStructure();
    return in;
}

inline QDBusArgument& operator<<(QDBusArgument& out, const PortalChoice& choice)
{
    out.beginStructure();
    out << choice.id << choice.label << choice.values << choice.initial;
    out.endStructure();
    return out;
}

inline const QDBusArgument& operator>>(const QDBusArgument& in, PortalChoice& choice)
{
    in.beginStructure();
    in >> choice.id >> choice.label >> choice.values >> choice.initial;
    in.endStructure();
    return in;
}

} // namespace zelmar::internal
