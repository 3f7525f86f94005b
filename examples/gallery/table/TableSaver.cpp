#include "TableSaver.h"

namespace gallery {

TableSaver::TableSaver(QObject* parent)
    : QObject(parent)
{
    // One thread saves in order, so that the last table saved under a name is the one that stays.
    m_pool.setMaxThreadCount(1);
}

TableSaver::~TableSaver()
{
    m_pool.waitForDone();
}

void TableSaver::save(const TableDocument& document, const QString& path, const TableFormat& format)
{
    ++m_pending;
    m_pool.start([this, document, path, format] {
        const QString error = writeTable(document, path, format);
        QMetaObject::invokeMethod(
            this,
            [this, path, error] {
                --m_pending;
                Q_EMIT finished(path, error);
            },
            Qt::QueuedConnection);
    });
}

} // namespace gallery
