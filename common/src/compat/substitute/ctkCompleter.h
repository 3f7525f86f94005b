#pragma once

#include "common_ui_qt_export.h"

#include <QCompleter>

namespace zelmar {
class ContainsFilterModel;
} // namespace zelmar

/// A completer that can also complete with what contains the typed text anywhere, and does so without a delay in lists
/// of a million texts. Stands in for the class of this name of the CTK widgets where those are not installed, with the
/// members that the library needs. Include it as "compat/ctkCompleter.h".
///
///     auto* completer = new ctkCompleter(&names, edit);
///     completer->setModelFiltering(ctkCompleter::FilterContains);
///     completer->setCaseSensitivity(Qt::CaseInsensitive);
///     edit->setCompleter(completer);
///
/// Known traps:
/// - It completes from flat lists: of a tree, from the top-level rows.
/// - model() is a list of its own. What it was given is sourceModel().
/// - setFilterMode() has no effect: setModelFiltering() decides.
/// - The texts are kept, as what the model has returned, in a child object of the model, for whoever completes from it
///   next. Texts that the model makes anew each time are so kept as long as the model lives.
///
/// GUI thread only.
class COMMON_UI_QT_EXPORT ctkCompleter : public QCompleter
{
    Q_OBJECT

public:
    enum ModelFiltering {
        FilterStartsWith = 0, ///< as QCompleter does without more ado
        FilterContains = 1,   ///< every row that contains the typed text, in the model's order
    };
    Q_ENUM(ModelFiltering)

    explicit ctkCompleter(QObject* parent = nullptr);
    explicit ctkCompleter(QAbstractItemModel* model, QObject* parent = nullptr);
    explicit ctkCompleter(const QStringList& list, QObject* parent = nullptr);
    ~ctkCompleter() override;

    ModelFiltering modelFiltering() const;
    /// FilterStartsWith at first. Takes effect with the next completion prefix.
    ///
    /// With FilterContains in a mode that completes within the line, only what starts with the typed text completes it:
    /// anything else would be put behind it. Where all completions are shown unfiltered, the first row that contains
    /// the text is the current one.
    void setModelFiltering(ModelFiltering filtering);

    QAbstractItemModel* sourceModel() const;
    /// In place of QCompleter's. The model is not taken over; one whose parent is the completer goes when it is
    /// replaced.
    void setModel(QAbstractItemModel* model);

    /// Where the completion list is filtered: QCompleter asks for it with each new prefix.
    QStringList splitPath(const QString& path) const override;

private:
    zelmar::ContainsFilterModel* m_filter;
    ModelFiltering m_filtering = FilterStartsWith;
};
