#include "compat/substitute/ctkCompleter.h"

#include "compat/filter/ContainsFilterModel.h"

#include <QStringListModel>

using zelmar::ContainsFilterModel;

ctkCompleter::ctkCompleter(QObject* parent)
    : QCompleter(parent)
    , m_filter(new ContainsFilterModel(this))
{
    QCompleter::setModel(m_filter);
}

ctkCompleter::ctkCompleter(QAbstractItemModel* model, QObject* parent)
    : ctkCompleter(parent)
{
    setModel(model);
}

ctkCompleter::ctkCompleter(const QStringList& list, QObject* parent)
    : ctkCompleter(parent)
{
    setModel(new QStringListModel(list, this));
}

ctkCompleter::~ctkCompleter() = default;

ctkCompleter::ModelFiltering ctkCompleter::modelFiltering() const
{
    return m_filtering;
}

void ctkCompleter::setModelFiltering(ModelFiltering filtering)
{
    m_filtering = filtering;
}

QAbstractItemModel* ctkCompleter::sourceModel() const
{
    return m_filter->sourceModel();
}

void ctkCompleter::setModel(QAbstractItemModel* model)
{
    QAbstractItemModel* const previous = sourceModel();
    if (model == previous)
        return;
    m_filter->setSourceModel(model);
    if (previous && previous->QObject::parent() == this)
        delete previous;
    setCompletionPrefix(completionPrefix());
}

QStringList ctkCompleter::splitPath(const QString& path) const
{
    const bool contains = m_filtering == FilterContains && completionMode() != InlineCompletion;
    const bool filters = contains && completionMode() == PopupCompletion;
    m_filter->setTextColumn(completionColumn(), completionRole());
    m_filter->setContainedText(filters ? path : QString(), caseSensitivity());
    // Decided here because the mode and the filtering may be set in any order. It is what QCompleter does with a path
    // that it is given; where the rows are filtered already, it is given none, and has nothing to look through.
    const_cast<ctkCompleter*>(this)->setFilterMode(contains ? Qt::MatchContains : Qt::MatchStartsWith);
    return {filters ? QString() : path};
}
