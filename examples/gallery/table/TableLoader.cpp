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
    m_current = std::make_shared<CancelFlag>(false);
    m_pool.start([this, path, cancelled = m_current] { run(path, cancelled); });
}

void TableLoader::cancel()
{
    if (m_current)
        *m_current = true;
    m_current.reset();
}

/// Runs on the pool's thread.
void TableLoader::run(const QString& path, const std::shared_ptr<CancelFlag>& cancelled)
{
    if (*cancelled)
        return;
    int shown = -1;
    const ProgressCallback progress = [&](int percent) {
        if (percent > shown) {
            shown = percent;
            report(cancelled, [this, percent] { Q_EMIT progressChanged(percent); });
        }
        return !*cancelled;
    };
    const TableResult result = readTable(path, progress);
    report(cancelled, [this, result] {
        m_current.reset();
        Q_EMIT finished(result);
    });
}

/// Runs on the pool's thread. Whether the load is still the current one is checked on the loader's thread, on which
/// load() and cancel() run.
template <typename Report>
void TableLoader::report(const std::shared_ptr<CancelFlag>& load, Report report)
{
    QMetaObject::invokeMethod(
        this,
        [this, load, report] {
            if (load == m_current)
                report();
        },
        Qt::QueuedConnection);
}

} // namespace gallery
