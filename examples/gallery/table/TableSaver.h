#pragma once

#include "TableFormat.h"

#include <QObject>
#include <QThreadPool>

namespace gallery {

/// Saves tables in a thread of its own, one after the other. All members belong to the thread the saver lives in, which
/// needs an event loop; the signal comes there.
class TableSaver : public QObject
{
    Q_OBJECT

public:
    explicit TableSaver(QObject* parent = nullptr);
    /// Waits until everything is saved.
    ~TableSaver() override;

    /// Starts saving `document` as it is now, and returns at once: what is edited afterwards is not saved.
    void save(const TableDocument& document, const QString& path, const TableFormat& format);
    [[nodiscard]] bool isSaving() const { return m_pending > 0; }

Q_SIGNALS:
    /// Once for each save(), in order. `error` is empty when the file is complete; otherwise the old file is still
    /// there.
    void finished(const QString& path, const QString& error);

private:
    QThreadPool m_pool;
    int m_pending = 0;
};

} // namespace gallery
