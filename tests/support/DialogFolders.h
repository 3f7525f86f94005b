#pragma once

#include <QString>
#include <QTemporaryDir>

/// Folders and files for one test of a file dialog, gone with the object. Other users may read them.
class DialogFolders
{
public:
    DialogFolders();
    ~DialogFolders();
    DialogFolders(const DialogFolders&) = delete;
    DialogFolders& operator=(const DialogFolders&) = delete;

    /// The absolute path of `name`, a path below the folder that holds everything.
    QString path(const QString& name = {}) const;

    /// Takes from everybody, the owner included, the right to add and remove entries of the folder `name`, or gives it
    /// back. The superuser is not stopped by it.
    void setReadOnly(const QString& name, bool on) const;

    /// Makes the file `name`, and its folder, with `contents`; returns its absolute path.
    QString addFile(const QString& name, const QByteArray& contents = {}) const;

    /// Makes the folder `name` with `files` empty files; returns its absolute path.
    QString addFolder(const QString& name, int files = 0) const;

private:
    QTemporaryDir m_root;
};
