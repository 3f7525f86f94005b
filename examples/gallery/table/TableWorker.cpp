#include "TableWorker.h"

namespace gallery {

TableWorker::TableWorker(QObject* parent)
    : QObject(parent)
{
    // One thread works in order, so that the last table saved under a name is the one that stays.
    m_pool.setMaxThreadCount(1);
}

TableWorker::~TableWorker()
{
    cancelLoad();
    m_pool.waitForDone();
}

void TableWorker::load(const QString& path)
{
    cancelLoad();
    m_load = std::make_shared<std::atomic<bool>>(false);
    m_pool.start([this, path, cancelled = m_load] {
        // Only the worker's own thread, on which load() and cancelLoad() run, knows whether the load is still current.
        const auto emitLater = [&](const auto& emitSignal) {
            const auto emitIfCurrent = [this, cancelled, emitSignal] {
                if (cancelled == m_load)
                    emitSignal();
            };
            QMetaObject::invokeMethod(this, emitIfCurrent, Qt::QueuedConnection);
        };
        int shown = -1;
        const TableResult result = readTable(path, [&](int percent) {
            if (percent > shown)
                emitLater([this, percent] { Q_EMIT progressChanged(percent); });
            shown = percent;
            return !*cancelled;
        });
        emitLater([this, result] {
            m_load.reset();
            Q_EMIT loaded(result);
        });
    });
}

void TableWorker::cancelLoad()
{
    if (m_load)
        *m_load = true;
    m_load.reset();
}

void TableWorker::save(const TableDocument& document, const QString& path, const TableFormat& format)
{
    ++m_saves;
    m_pool.start([this, document, path, format] {
        const auto emitSaved = [this, path, error = writeTable(document, path, format)] {
            --m_saves;
            Q_EMIT saved(path, error);
        };
        QMetaObject::invokeMethod(this, emitSaved, Qt::QueuedConnection);
    });
}

} // namespace gallery
