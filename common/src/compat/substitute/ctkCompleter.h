#pragma once

#include "common_ui_qt_export.h"

#include <QCompleter>

#include <memory>

/// A completer that can also complete with what contains the typed text anywhere, and does so without a delay in lists
/// of a million texts. Stands in for the class of this name of the CTK widgets where those are not installed, with the
/// members that the library needs. Include it as "compat/ctkCompleter.h".
///
///     auto* completer = new ctkCompleter(&names, edit);
///     completer->setModelFiltering(ctkCompleter::FilterContains);
///     completer->setCaseSensitivity(Qt::CaseInsensitive);
///     edit->setCompleter(completer);
///
/// It behaves as QCompleter in everything else: with FilterStartsWith as any QCompleter, with FilterContains as one
/// with Qt::MatchContains, except that completion within the line still completes prefixes. The library itself searches
/// lists of at least 1,000 rows. QCompleter filters all other models: shorter lists, paths of a file system, and in the
/// modes that do not filter a popup.
///
/// Known traps, all with FilterContains:
/// - Through a pointer to QCompleter, model() is a proxy model of the given one, setFilterMode() has no lasting effect,
///   setCompletionMode() is complete with the next prefix only, and setModel() takes the speed away until a setter of
///   this class is called.
/// - A long list offers each row that contains the text, also one that cannot be selected, which QCompleter leaves out.
/// - The completion model of a long list maps its indexes to the given model, but does not find an index of the given
///   model (mapFromSource()).
/// - splitPath() of a long list is one empty text: its rows are narrowed already. An override that changes the parts
///   calls QCompleter::splitPath(), and QCompleter then filters.
/// - The texts of a long list are kept, as what the model has returned, in a child object of the model, for whoever
///   completes from it next. Texts that the model makes anew each time are so kept as long as the model lives.
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
    /// FilterStartsWith at first, with which filterMode() decides. Takes effect with the next completion prefix, as
    /// QCompleter's setFilterMode() does.
    ///
    /// With FilterContains in a mode that completes within the line, only what starts with the typed text completes it:
    /// anything else would be put behind it. Where all completions are shown unfiltered, the first row that contains
    /// the text is the current one.
    void setModelFiltering(ModelFiltering filtering);

    /// Returns the same as model().
    QAbstractItemModel* sourceModel() const;

    // In place of QCompleter's functions of these names, which are not virtual.

    /// Returns the model that was given, null after it was destroyed.
    QAbstractItemModel* model() const;
    /// Does not take the model over. One whose parent is the completer is deleted when another replaces it.
    void setModel(QAbstractItemModel* model);
    /// Returns Qt::MatchContains with FilterContains.
    Qt::MatchFlags filterMode() const;
    /// Ends FilterContains if `mode` is another one.
    void setFilterMode(Qt::MatchFlags mode);
    void setCompletionMode(CompletionMode mode);

    /// Narrows a long list with FilterContains: QCompleter asks for the parts with each new prefix.
    QStringList splitPath(const QString& path) const override;

private Q_SLOTS:
    void onCompletionsAboutToChange();
    void onCompletionsChanged();

private:
    void followCompletionModel();
    bool isWithNarrowedSource() const;
    void chooseSource();
    void completeFrom(QAbstractItemModel* model);
    bool applyFiltering();
    bool isFilteredAnew() const;
    bool narrow() const;

    struct COMMON_UI_QT_NO_EXPORT Impl;
    std::unique_ptr<Impl> m_impl;
};
