#pragma once

#include <QList>
#include <QMetaType>
#include <QString>

namespace zelmar::internal {

// The structures of the portal's interface FileChooser, which PortalRequest sends and receives.

/// The D-Bus structure (us): a rule by which a filter accepts names.
struct PortalFilterRule
{
    static constexpr uint globPattern = 0;

    uint kind = globPattern;
    QString text;

    friend bool operator==(const PortalFilterRule& left, const PortalFilterRule& right)
    {
        return left.kind == right.kind && left.text == right.text;
    }
};

/// The D-Bus structure (sa(us)): a named filter.
struct PortalFilter
{
    QString name;
    QList<PortalFilterRule> rules;

    friend bool operator==(const PortalFilter& left, const PortalFilter& right)
    {
        return left.name == right.name && left.rules == right.rules;
    }
};

/// The D-Bus structure (ss): a value of a choice and its label in a question, or a choice and its value in an answer.
struct PortalPair
{
    QString id;
    QString text;

    friend bool operator==(const PortalPair& left, const PortalPair& right)
    {
        return left.id == right.id && left.text == right.text;
    }
};

/// The D-Bus structure (ssa(ss)s): a check box, which has no values, or a combo box.
struct PortalChoice
{
    QString id;
    QString label;
    QList<PortalPair> values;
    QString initial; ///< the id of the initial value; "true" or "false" for a check box

    friend bool operator==(const PortalChoice& left, const PortalChoice& right)
    {
        return left.id == right.id && left.label == right.label && left.values == right.values
               && left.initial == right.initial;
    }
};

} // namespace zelmar::internal

Q_DECLARE_METATYPE(zelmar::internal::PortalFilterRule)
Q_DECLARE_METATYPE(zelmar::internal::PortalFilter)
Q_DECLARE_METATYPE(zelmar::internal::PortalPair)
Q_DECLARE_METATYPE(zelmar::internal::PortalChoice)
