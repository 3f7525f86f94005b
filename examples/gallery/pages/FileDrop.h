#pragma once

#include <QObject>
#include <QString>

namespace gallery {

/// Accepts a local file that is dropped on a window. Refuses several files, folders, and everything else, which the
/// user sees by the cursor.
class FileDrop : public QObject
{
    Q_OBJECT

public:
    explicit FileDrop(QObject* parent);
    ~FileDrop() override;

    /// Starts or ends accepting files for `window`.
    void setActive(QWidget& window, bool isActive);

    bool eventFilter(QObject* window, QEvent* event) override;

Q_SIGNALS:
    /// Emitted after the drop, so that a slot may run dialogs, for which the other program would have to wait.
    void dropped(const QString& path);
};

} // namespace gallery
