#pragma once

#include "internal_export.h"

#include <QFileSystemModel>
#include <QObject>
#include <QPersistentModelIndex>
#include <QSet>

/// Tells whether a file system model still has to announce, with directoryLoaded(), a folder that it made its root.
///
/// The model reads each folder once and then keeps it, so a return to a folder may be announced with
/// rootPathChanged() alone. Worse, leaving a folder makes the model forget that it was read, but a view that still
/// shows it may have it read again at once. Nothing in the model's interface tells the cases apart afterwards, so
/// they are followed from the start.
class COMMON_UI_QT_INTERNAL_EXPORT FolderReadTracker : public QObject
{
    Q_OBJECT

public:
    /// Follows `model`, which becomes the parent.
    explicit FolderReadTracker(QFileSystemModel& model);

    /// True until the model has announced the folder that is its root now.
    bool rootIsBeingRead() const;

private Q_SLOTS:
    void onDirectoryLoaded(const QString& path);
    void onRootPathChanged(const QString& newPath);

private:
    QFileSystemModel& m_model;
    QString m_root;
    /// Folders that were announced and not left since. Indexes and not paths: a folder that is deleted and made again
    /// is another one, and has to be read.
    QSet<QPersistentModelIndex> m_announced;
};
