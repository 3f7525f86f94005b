#pragma once

#include "internal_export_p.h"

#include <QFileSystemModel>
#include <QObject>
#include <QPersistentModelIndex>
#include <QSet>

namespace zelmar::internal {

/// A tracker that knows whether a file system model has yet to announce its root folder with directoryLoaded().
///
/// The model reads each folder once and caches it, so that it may emit only rootPathChanged() when the user returns to
/// a folder. When the root changes, the model forgets that it has read the former root, but a view that still shows
/// that folder may make the model read it again at once. No function of the model tells these cases apart afterwards.
/// The tracker therefore records the model's signals from the start.
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
