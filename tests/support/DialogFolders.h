#pragma once

#include <QString>
#include <QTemporaryDir>

/// Temporary folders and files for one test of a file dialog. The destructor removes them. Other users may read them.
class DialogFolders
{
public:
    DialogFolders();
    ~DialogFolders();
    DialogFolders(const DialogFolders&) = delete;
    DialogFolders& operator=(const DialogFolders&) = delete;

    /// Returns the absolute path of `name`, which is relative to the temporary folder.
    QString path(const QString& name = {}) const;

    /// Removes or restores the right of all users, including the owner, to add and remove entries of the folder `name`.
    /// This does not restrict the superuser.
    void setReadOnly(const QString& name, bool on) const;

    /// Creates the file `name` with `contents`, and its folder. Returns the absolute path of the file.
    QString addFile(const QString& name, const QByteArray& contents = {}) const;

    /// Creates the folder `name` with `files` empty files. Returns the absolute path of the folder.
    QString addFolder(const QString& name, int files = 0) const;

private:
    QTemporaryDir m_root;
};
