#pragma once

#include <QString>
#include <QTemporaryDir>

namespace gallery {

/// A temporary environment for a tour: configuration, cache and data folders that Qt and the library use instead of the
/// user's, and a folder with files that the dialogs show. This folder becomes the current folder, in which file dialogs
/// start. The language is English. Create the object before the application object; its destructor removes the folders.
class TourHome
{
public:
    TourHome();

private:
    void makeDocuments() const;

    QTemporaryDir m_folder;
    QString m_home; ///< a subfolder whose name is legible in a dialog
};

} // namespace gallery
