#include "ui/qt/dialogs/qtdialog/FolderReadTracker_p.h"

namespace zelmar::internal {

FolderReadTracker::FolderReadTracker(QFileSystemModel& model)
    : QObject(&model)
    , m_model(model)
    , m_root(model.rootPath())
{
    connect(&model, &QFileSystemModel::directoryLoaded, this, &FolderReadTracker::onDirectoryLoaded);
    connect(&model, &QFileSystemModel::rootPathChanged, this, &FolderReadTracker::onRootPathChanged);
}

bool FolderReadTracker::rootIsBeingRead() const
{
    const QModelIndex root = m_model.index(m_model.rootPath());
    return root.isValid() && !m_announced.contains(root);
}

void FolderReadTracker::onDirectoryLoaded(const QString& path)
{
    const QModelIndex folder = m_model.index(path);
    // If more rows can be fetched, the dialog has left the folder before the signal was delivered, and the model will
    // read the folder again when the dialog enters it.
    if (folder.isValid() && !m_model.canFetchMore(folder))
        m_announced.insert(folder);
}

void FolderReadTracker::onRootPathChanged(const QString& newPath)
{
    m_announced.remove(m_model.index(m_root));
    m_root = newPath;
}

} // namespace zelmar::internal
