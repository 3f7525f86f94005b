#pragma once

#include "TableFormat.h"

#include <QObject>
#include <QThreadPool>

namespace gallery {

/// A saver that writes tables one after the other on a thread of its own. Call its functions on the thread to which the
/// saver belongs, which needs an event loop and on which the signal is emitted.
class TableSaver : public QObject
{
    Q_OBJECT

public:
    explicit TableSaver(QObject* parent = nullptr);
    /// Waits until all tables are saved.
    ~TableSaver() override;

    /// Starts saving the current state of `document` and returns at once. Later edits are not saved.
    void save(const TableDocument& document, const QString& path, const TableFormat& format);
    [[nodiscard]] bool isSaving() const { return m_pending > 0; }

Q_SIGNALS:
    /// Emitted once for each save(), in order. `error` is empty if the file is complete; otherwise the old file is
    /// unchanged.
    void finished(const QString& path, const QString& error);

private:
    QThreadPool m_pool;
    int m_pending = 0;
};

} // namespace gallery
