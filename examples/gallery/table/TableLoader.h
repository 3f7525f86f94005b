#pragma once

#include "TableFormat.h"

#include <QObject>
#include <QThreadPool>

#include <atomic>
#include <memory>

namespace gallery {

/// Loads tables in a thread of its own. All members belong to the thread the loader lives in, which
/// needs an event loop; all signals come there.
class TableLoader : public QObject
{
    Q_OBJECT

public:
    explicit TableLoader(QObject* parent = nullptr);
    /// Stops a load and waits until its thread has noticed, which takes it milliseconds.
    ~TableLoader() override;

    /// Starts loading and returns at once. A load that is under way is cancelled first.
    void load(const QString& path);
    /// Nothing more is reported of the load under way, if any.
    void cancel();
    [[nodiscard]] bool isLoading() const { return m_current != nullptr; }

Q_SIGNALS:
    /// 0 to 100; only when the number grows.
    void progressChanged(int percent);
    /// Once for every load that was not cancelled. isLoading() is false by then.
    void finished(const gallery::TableResult& result);

private:
    using CancelFlag = std::atomic<bool>;

    void run(const QString& path, const std::shared_ptr<CancelFlag>& cancelled);
    template <typename Report>
    void report(const std::shared_ptr<CancelFlag>& load, Report report);

    QThreadPool m_pool;
    /// Of the load under way; a report from any other load is dropped.
    std::shared_ptr<CancelFlag> m_current;
};

} // namespace gallery
