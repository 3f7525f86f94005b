#pragma once

#include "internal_export_p.h"

#include <QFileSystemModel>
#include <QObject>
#include <QPersistentModelIndex>
#include <QSet>

namespace zelmar::internal {

/// A tracker that knows whether a file system model still has to announce its root folder with directoryLoaded().
///
/// The model reads each folder once and caches it, so that a return to a folder may emit rootPathChanged() alone. When
/// the root changes, the model forgets that it has read the former root, but a view that still shows that folder may
/// make the model read it again at once. The model has no function that distinguishes these cases afterwards. The
/// tracker therefore follows its signals from the start.
class COMMON_UI_QT_INTERNAL_EXPORT FolderReadTracker : public QObject
{
public:
    /// Creates a tracker of `model`, which becomes its parent.
    explicit FolderReadTracker(QFileSystemModel& model);

    /// Returns true until the model has emitted directoryLoaded() for its current root folder. Returns false if that
    /// folder does not exist.
    bool rootIsBeingRead() const;

private:
    void onDirectoryLoaded(const QString& path);
    void onRootPathChanged(const QString& newPath);

    QFileSystemModel& m_model;
    QString m_root;
    /// The folders that were announced and have not been left since. They are stored as indexes, because a folder that
    /// is deleted and created again under the same path is read again.
    QSet<QPersistentModelIndex> m_announced;
};

} // namespace zelmar::internal
