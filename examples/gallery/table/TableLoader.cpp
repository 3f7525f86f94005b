#include "TableLoader.h"

namespace gallery {

TableLoader::TableLoader(QObject* parent)
    : QObject(parent)
{
    // A second load waits in the queue until the first one has noticed its cancellation.
    m_pool.setMaxThreadCount(1);
}

TableLoader::~TableLoader()
{
    cancel();
    m_pool.waitForDone();
}

void TableLoader::load(const QString& path)
{
    cancel();
    m_current = std::make_shared<std::atomic<bool>>(false);
    m_pool.start([this, path, cancelled = m_current] {
        // Only the loader's thread, on which load() and cancel() run, knows whether the load is still the current one.
        const auto emitLater = [&](const auto& emitSignal) {
            const auto emitIfCurrent = [this, cancelled, emitSignal] {
                if (cancelled == m_current)
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
            m_current.reset();
            Q_EMIT finished(result);
        });
    });
}

void TableLoader::cancel()
{
    if (m_current)
        *m_current = true;
    m_current.reset();
}

} // namespace gallery
