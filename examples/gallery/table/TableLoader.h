#pragma once

#include "TableFormat.h"

#include <QObject>
#include <QThreadPool>

#include <atomic>
#include <memory>

namespace gallery {

/// A loader of tables with a thread of its own. Call its functions on the thread to which the loader belongs, which
/// needs an event loop and on which all signals are emitted.
class TableLoader : public QObject
{
    Q_OBJECT

public:
    explicit TableLoader(QObject* parent = nullptr);
    /// Cancels a load and waits for its thread, which takes milliseconds unless JSON is being parsed.
    ~TableLoader() override;

    /// Starts loading and returns at once. Cancels a running load first.
    void load(const QString& path);
    /// Cancels a running load, which then emits no more signals.
    void cancel();
    [[nodiscard]] bool isLoading() const { return m_current != nullptr; }

Q_SIGNALS:
    /// Emitted when the progress, from 0 to 100, increases.
    void progressChanged(int percent);
    /// Emitted once for every load that was not cancelled, when isLoading() is already false.
    void finished(const gallery::TableResult& result);

private:
    QThreadPool m_pool;
    /// Whether the running load is cancelled. Reports of other loads are dropped.
    std::shared_ptr<std::atomic<bool>> m_current;
};

} // namespace gallery
