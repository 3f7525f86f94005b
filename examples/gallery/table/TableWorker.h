#pragma once

#include "TableFormat.h"

#include <QObject>
#include <QThreadPool>

#include <atomic>
#include <memory>

namespace gallery {

/// Loads and saves tables on a thread of its own, one after the other. Call its functions on the thread to which the
/// object belongs, which needs an event loop and on which all signals are emitted.
class TableWorker : public QObject
{
    Q_OBJECT

public:
    explicit TableWorker(QObject* parent = nullptr);
    /// Cancels a load, which takes milliseconds unless JSON is being parsed, and waits until all tables are saved.
    ~TableWorker() override;

    /// Starts loading and returns at once. Cancels a running load first.
    void load(const QString& path);
    /// Cancels a running load, which then emits no more signals.
    void cancelLoad();
    [[nodiscard]] bool isLoading() const { return m_load != nullptr; }

    /// Starts saving the current state of `document` and returns at once. Later edits are not saved.
    void save(const TableDocument& document, const QString& path, const TableFormat& format);
    [[nodiscard]] bool isSaving() const { return m_saves > 0; }

Q_SIGNALS:
    /// Emitted when the progress of a load, from 0 to 100, increases.
    void progressChanged(int percent);
    /// Emitted once for every load that was not cancelled, when isLoading() is already false.
    void loaded(const gallery::TableResult& result);
    /// Emitted once for each save(), in order. `error` is empty if the file is complete; otherwise the old file is
    /// unchanged.
    void saved(const QString& path, const QString& error);

private:
    QThreadPool m_pool;
    std::shared_ptr<std::atomic<bool>> m_load; ///< whether the current load is cancelled; null if there is none
    int m_saves = 0;
};

} // namespace gallery
