#include "compat/substitute/ctkCompleter.h"

#include "compat/substitute/NarrowedSource_p.h"

#include <QScopedValueRollback>
#include <QSignalBlocker>

#include <utility>

using zelmar::internal::NarrowedSource;

namespace {

/// Returns whether `model` shows a file system. QCompleter checks for these classes and handles their paths itself.
bool isFileSystem(const QAbstractItemModel& model)
{
    return model.inherits("QFileSystemModel") || model.inherits("QDirModel");
}

} // namespace

struct ctkCompleter::Impl
{
    explicit Impl(QAbstractItemModel* completionModel)
        : source(new NarrowedSource(completionModel))
    {
    }

    /// Takes the place of the caller's model while FilterContains is set. It is a child of the completion model,
    /// because QCompleter deletes a replaced model that is a child of the completer.
    NarrowedSource* source;
    ModelFiltering filtering = FilterStartsWith;
    Qt::MatchFlags filterMode = Qt::MatchStartsWith; ///< the mode of QCompleter before FilterContains was set

    // The completion model filters with the result of the latest splitPath().

    bool isNarrowed = false;      ///< the result was an empty string, because the source shows only matching rows
    bool isResultPending = false; ///< the completion model has not filtered with this result yet
    bool isSettingModel = false;  ///< setModel() is running
    bool setsPrefixAgain = false; ///< the prefix must be set again after the completion model has filtered

    // The settings of the latest search. QCompleter filters without a prefix when one of them changes.

    Qt::CaseSensitivity caseSensitivity = Qt::CaseSensitive;
    ModelSorting sorting = UnsortedModel;
};

ctkCompleter::ctkCompleter(QObject* parent)
    : QCompleter(parent)
    , m_impl(std::make_unique<Impl>(completionModel()))
{
    followCompletionModel();
}

ctkCompleter::ctkCompleter(QAbstractItemModel* model, QObject* parent)
    : QCompleter(model, parent)
    , m_impl(std::make_unique<Impl>(completionModel()))
{
    followCompletionModel();
}

ctkCompleter::ctkCompleter(const QStringList& list, QObject* parent)
    : QCompleter(list, parent)
    , m_impl(std::make_unique<Impl>(completionModel()))
{
    followCompletionModel();
}

/// Connects to the completion model. The constructors call this function, so that these slots run before the slots of
/// the popup.
void ctkCompleter::followCompletionModel()
{
    connect(completionModel(), &QAbstractItemModel::modelAboutToBeReset, this,
            &ctkCompleter::onCompletionsAboutToChange);
    connect(completionModel(), &QAbstractItemModel::modelReset, this, &ctkCompleter::onCompletionsChanged);
}

ctkCompleter::~ctkCompleter()
{
    disconnect(completionModel(), nullptr, this, nullptr);
}

// Filtering

ctkCompleter::ModelFiltering ctkCompleter::modelFiltering() const
{
    return m_impl->filtering;
}

void ctkCompleter::setModelFiltering(ModelFiltering filtering)
{
    if (filtering == m_impl->filtering)
        return;
    m_impl->filtering = filtering;
    if (filtering == FilterContains) {
        m_impl->filterMode = QCompleter::filterMode();
        applyFiltering();
    } else {
        QCompleter::setFilterMode(m_impl->filterMode);
    }
    chooseSource();
}

Qt::MatchFlags ctkCompleter::filterMode() const
{
    return m_impl->filtering == FilterContains ? Qt::MatchContains : QCompleter::filterMode();
}

void ctkCompleter::setFilterMode(Qt::MatchFlags mode)
{
    if (mode == filterMode())
        return;
    QCompleter::setFilterMode(mode);
    if (QCompleter::filterMode() != mode)
        return; // QCompleter does not support this mode
    m_impl->filtering = FilterStartsWith;
    chooseSource();
}

void ctkCompleter::setCompletionMode(CompletionMode mode)
{
    const int row = currentRow();
    QCompleter::setCompletionMode(mode);
    if (applyFiltering())
        setCompletionPrefix(completionPrefix());
    else if (row > 0 && row != currentRow())
        setCurrentRow(row); // QCompleter keeps the current row, too.
}

/// Sets the filter mode of QCompleter that FilterContains needs. Returns whether that changed it.
bool ctkCompleter::applyFiltering()
{
    const auto mode = completionMode() == InlineCompletion ? Qt::MatchStartsWith : Qt::MatchContains;
    if (m_impl->filtering != FilterContains || QCompleter::filterMode() == mode)
        return false;
    QCompleter::setFilterMode(mode);
    return true;
}

// Models

QAbstractItemModel* ctkCompleter::sourceModel() const
{
    return model();
}

QAbstractItemModel* ctkCompleter::model() const
{
    return usesNarrowedSource() ? m_impl->source->source() : QCompleter::model();
}

void ctkCompleter::setModel(QAbstractItemModel* model)
{
    // QCompleter would delete the model, because it is a child of the completer.
    if (model && model == this->model() && model->QObject::parent() == this)
        return;
    const bool wasNarrowed = std::exchange(m_impl->isNarrowed, false);
    replaceModel(model);
    chooseSource();
    if (wasNarrowed)
        setCompletionPrefix(completionPrefix());
}

void ctkCompleter::replaceModel(QAbstractItemModel* model)
{
    const QScopedValueRollback<bool> settingModel(m_impl->isSettingModel, true);
    if (usesNarrowedSource()) {
        // QCompleter expects its former model: it deletes a child of the completer, and resets the completion role
        // that it has set for a file system.
        completeFrom(this->model());
        m_impl->source->setSourceModel(nullptr);
    }
    QCompleter::setModel(model);
}

bool ctkCompleter::usesNarrowedSource() const
{
    return QCompleter::model() == m_impl->source;
}

void ctkCompleter::chooseSource()
{
    QAbstractItemModel* const given = model();
    const bool narrows = m_impl->filtering == FilterContains && given && !isFileSystem(*given);
    if (narrows == usesNarrowedSource())
        return;
    if (narrows)
        m_impl->source->setSourceModel(given);
    completeFrom(narrows ? m_impl->source : given);
    if (!narrows)
        m_impl->source->setSourceModel(nullptr);
}

/// Makes QCompleter complete from `model`. QCompleter::setModel() would also hide the popup, and delete the former
/// model if that is a child of the completer.
void ctkCompleter::completeFrom(QAbstractItemModel* model)
{
    const int row = currentRow();
    qobject_cast<QAbstractProxyModel*>(completionModel())->setSourceModel(model);
    if (row > 0)
        setCurrentRow(row);
}

// Narrowing

QStringList ctkCompleter::splitPath(const QString& path) const
{
    // The caller may have set the completion mode through a pointer to QCompleter.
    const_cast<ctkCompleter*>(this)->applyFiltering();
    if (!usesNarrowedSource())
        return QCompleter::splitPath(path);
    if (completionMode() == PopupCompletion && !completionPrefix().isEmpty() && narrow())
        return {QString()};
    m_impl->isNarrowed = false;
    m_impl->source->showAll();
    return QCompleter::splitPath(path);
}

/// Makes the source show only the rows that contain the prefix. Returns false if it shows all rows, which QCompleter
/// then has to filter.
bool ctkCompleter::narrow() const
{
    m_impl->isNarrowed = false; // onCompletionsAboutToChange() must ignore the signals of the source
    if (!m_impl->source->narrow({completionPrefix(), caseSensitivity(), completionColumn(), completionRole()}))
        return false;
    m_impl->isNarrowed = true;
    m_impl->isResultPending = true;
    m_impl->caseSensitivity = caseSensitivity();
    m_impl->sorting = modelSorting();
    return true;
}

/// Makes the source show all rows again if the completion model is about to filter, but not with the result of
/// splitPath(). This happens when a setter of QCompleter is called, or when an override of splitPath() does not call
/// this one.
void ctkCompleter::onCompletionsAboutToChange()
{
    if (!m_impl->isNarrowed || m_impl->source->isRefreshing() || std::exchange(m_impl->isResultPending, false))
        return;
    m_impl->isNarrowed = false;
    m_impl->setsPrefixAgain = !isPrefixDropped();
    // The completion model reads the rows next and needs no signal.
    const QSignalBlocker quiet(m_impl->source);
    m_impl->source->showAll();
}

/// Returns whether the completion model is about to filter without a prefix, because a setter of QCompleter was called.
bool ctkCompleter::isPrefixDropped() const
{
    return caseSensitivity() != m_impl->caseSensitivity || modelSorting() != m_impl->sorting
           || QCompleter::filterMode() != Qt::MatchContains;
}

void ctkCompleter::onCompletionsChanged()
{
    // Qt 6's combo box replaces the model through a pointer to QCompleter.
    if (!m_impl->isSettingModel && !usesNarrowedSource())
        chooseSource();
    if (std::exchange(m_impl->setsPrefixAgain, false))
        setCompletionPrefix(completionPrefix());
}
