#include "ui/qt/controls/QtSignalConnectionCollection.h"

#include <QObject>

namespace zelmar::ui {

QtSignalConnectionCollection::QtSignalConnectionCollection()
    : m_connections(std::make_unique<std::vector<QMetaObject::Connection>>())
{
}

QtSignalConnectionCollection::~QtSignalConnectionCollection()
{
    for (const QMetaObject::Connection& connection : *m_connections)
        QObject::disconnect(connection);
}

void QtSignalConnectionCollection::add(const QMetaObject::Connection& connection)
{
    m_connections->push_back(connection);
}

} // namespace zelmar::ui
