#include "compat/substitute/ctkCompleter.h"

#include "compat/substitute/NarrowedSource_p.h"

#include <QSignalBlocker>

#include <utility>

using zelmar::internal::NarrowedSource;

namespace {

/// QCompleter asks the class of these for more than a list would have: paths, and whether a folder has been read.
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

    /// In place of the given model with FilterContains. The completion model's child, because QCompleter deletes a
    /// model that is its own child when another replaces it.
    NarrowedSource* source;
    ModelFiltering filtering = FilterStartsWith;
    Qt::MatchFlags filterMode = Qt::MatchStartsWith; ///< QCompleter's own, as it was before FilterContains

    // The completion model filters with what splitPath() has returned.

    bool isNarrowed = false;  ///< the last time, that was the empty text of a list that is narrowed
    bool isNarrowing = false; ///< and it is about to filter with that
    bool asksAgain = false;   ///< it has filtered with that, but for another question

    // What was set then. Where one of them is set anew, QCompleter forgets the prefix.

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

/// First of all who listens to the completion model, and so before the popup.
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
        return; // it has none of this kind
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
        setCurrentRow(row); // QCompleter keeps it
}

/// Returns whether QCompleter has another filter mode now.
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
    return isWithNarrowedSource() ? m_impl->source->source() : QCompleter::model();
}

void ctkCompleter::setModel(QAbstractItemModel* model)
{
    // Nothing replaces it.
    if (model && model == this->model() && model->QObject::parent() == this)
        return;
    const bool wasNarrowed = std::exchange(m_impl->isNarrowed, false);
    if (isWithNarrowedSource()) {
        // QCompleter deletes the model before, or takes the role of a file system back.
        completeFrom(this->model());
        m_impl->source->setSourceModel(nullptr);
    }
    QCompleter::setModel(model);
    chooseSource();
    if (wasNarrowed)
        setCompletionPrefix(completionPrefix());
}

bool ctkCompleter::isWithNarrowedSource() const
{
    return QCompleter::model() == m_impl->source;
}

void ctkCompleter::chooseSource()
{
    QAbstractItemModel* const given = model();
    const bool narrows = m_impl->filtering == FilterContains && given && !isFileSystem(*given);
    if (narrows == isWithNarrowedSource())
        return;
    if (narrows)
        m_impl->source->setSourceModel(given);
    completeFrom(narrows ? m_impl->source : given);
    if (!narrows)
        m_impl->source->setSourceModel(nullptr);
}

/// QCompleter's setModel() would also hide the popup, and delete the model before if that is its child.
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
    // The mode may have been set through a pointer to QCompleter.
    const_cast<ctkCompleter*>(this)->applyFiltering();
    if (!isWithNarrowedSource())
        return QCompleter::splitPath(path);
    if (completionMode() == PopupCompletion && !completionPrefix().isEmpty() && narrow())
        return {QString()};
    m_impl->isNarrowed = false;
    m_impl->source->showAll();
    return QCompleter::splitPath(path);
}

/// Returns false if QCompleter has to filter the rows.
bool ctkCompleter::narrow() const
{
    m_impl->isNarrowed = false; // what the source tells now is part of the answer
    if (!m_impl->source->narrow({completionPrefix(), caseSensitivity(), completionColumn(), completionRole()}))
        return false;
    m_impl->isNarrowed = true;
    m_impl->isNarrowing = true;
    m_impl->caseSensitivity = caseSensitivity();
    m_impl->sorting = modelSorting();
    return true;
}

/// Shows all rows to a completion model that is about to filter narrowed ones with anything but what narrow() had it
/// filter with: after a setter of QCompleter, or because an override of splitPath() has not called the one here.
void ctkCompleter::onCompletionsAboutToChange()
{
    if (!m_impl->isNarrowed || m_impl->source->isRefreshing() || std::exchange(m_impl->isNarrowing, false))
        return;
    m_impl->isNarrowed = false;
    m_impl->asksAgain = !isFilteredAnew();
    // The completion model looks at them next, and need not be told.
    const QSignalBlocker quiet(m_impl->source);
    m_impl->source->showAll();
}

/// Returns whether the completion model filters with no prefix, because a setter has had it made anew.
bool ctkCompleter::isFilteredAnew() const
{
    return caseSensitivity() != m_impl->caseSensitivity || modelSorting() != m_impl->sorting
           || QCompleter::filterMode() != Qt::MatchContains;
}

void ctkCompleter::onCompletionsChanged()
{
    if (std::exchange(m_impl->asksAgain, false))
        setCompletionPrefix(completionPrefix());
}
