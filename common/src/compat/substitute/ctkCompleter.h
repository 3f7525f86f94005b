#pragma once

#include "common_ui_qt_export.h"

#include <QCompleter>

#include <memory>

/// A completer that can also offer the texts that contain the typed text anywhere, without a noticeable delay in lists
/// of a million texts. It replaces the class of the same name of the CTK widgets if those are not installed, and has
/// the members that the library needs. Include it as "compat/ctkCompleter.h".
///
///     auto* completer = new ctkCompleter(&names, edit);
///     completer->setModelFiltering(ctkCompleter::FilterContains);
///     completer->setCaseSensitivity(Qt::CaseInsensitive);
///     edit->setCompleter(completer);
///
/// In all other respects it behaves like QCompleter: with FilterStartsWith like any QCompleter, and with FilterContains
/// like a QCompleter with Qt::MatchContains, except that inline completion still completes prefixes. The library itself
/// searches lists of at least 1,000 rows if the completion mode is PopupCompletion. QCompleter filters shorter lists,
/// file systems, and all lists in the other completion modes.
///
/// Known traps, all with FilterContains:
/// - Through a pointer to QCompleter, model() returns a proxy model, setFilterMode() has no lasting effect,
///   setCompletionMode() takes full effect with the next prefix, and setModel() makes the search slow until a setter of
///   this class is called.
/// - Of a long list, each row that contains the text is offered, even if it cannot be selected. QCompleter omits rows
///   that cannot be selected.
/// - The completion model of a long list maps its indexes to the given model, but mapFromSource() finds no index of the
///   given model.
/// - splitPath() returns one empty string for a long list, because it has already removed the rows without the text. An
///   override that changes the parts must call QCompleter::splitPath(); QCompleter then filters the rows.
/// - A child object of the model caches the texts of a long list for the next completer of that model. If the model
///   creates its texts on demand, the cache uses memory as long as the model exists.
///
/// GUI thread only.
class COMMON_UI_QT_EXPORT ctkCompleter : public QCompleter
{
    Q_OBJECT

public:
    enum ModelFiltering {
        FilterStartsWith = 0, ///< offers what a plain QCompleter offers
        FilterContains = 1,   ///< offers every row that contains the typed text, in the order of the model
    };
    Q_ENUM(ModelFiltering)

    explicit ctkCompleter(QObject* parent = nullptr);
    explicit ctkCompleter(QAbstractItemModel* model, QObject* parent = nullptr);
    explicit ctkCompleter(const QStringList& list, QObject* parent = nullptr);
    ~ctkCompleter() override;

    ModelFiltering modelFiltering() const;
    /// Sets which texts are offered. The initial value is FilterStartsWith, with which filterMode() decides. Takes
    /// effect with the next completion prefix, like QCompleter::setFilterMode().
    ///
    /// With FilterContains, inline completion offers only texts that start with the typed text, because it appends the
    /// rest. If all completions are shown unfiltered, the first row that contains the typed text becomes the current
    /// one.
    void setModelFiltering(ModelFiltering filtering);

    /// Returns the same as model().
    QAbstractItemModel* sourceModel() const;

    // These functions hide those of QCompleter, which are not virtual.

    /// Returns the model that the caller has set, or null once it has been destroyed.
    QAbstractItemModel* model() const;
    /// Sets the model. The caller keeps ownership, but a model that is a child of the completer is deleted when it is
    /// replaced.
    void setModel(QAbstractItemModel* model);
    /// Returns Qt::MatchContains if FilterContains is set, and otherwise the mode of QCompleter.
    Qt::MatchFlags filterMode() const;
    /// Replaces FilterContains by FilterStartsWith if `mode` is not Qt::MatchContains.
    void setFilterMode(Qt::MatchFlags mode);
    /// Sets the completion mode, which takes full effect at once.
    void setCompletionMode(CompletionMode mode);

    /// Reduces a long list to the rows that contain the prefix if FilterContains is set. QCompleter calls this function
    /// with each new prefix.
    QStringList splitPath(const QString& path) const override;

private Q_SLOTS:
    void onCompletionsAboutToChange();
    void onCompletionsChanged();

private:
    void followCompletionModel();
    bool usesNarrowedSource() const;
    void replaceModel(QAbstractItemModel* model);
    void chooseSource();
    void completeFrom(QAbstractItemModel* model);
    bool applyFiltering();
    bool isPrefixDropped() const;
    bool narrow() const;

    struct COMMON_UI_QT_NO_EXPORT Impl;
    std::unique_ptr<Impl> m_impl;
};
