#pragma once

#include <QString>
#include <QTemporaryDir>

namespace gallery {

/// A home of its own for a tour, gone with the object: configuration, cache and data folders in which Qt and
/// the library write instead of the user's, and a folder with files for the dialogs to show. That one becomes
/// the current folder, where file dialogs start. The language is English. Make it before the application
/// object.
class TourHome
{
public:
    TourHome();

private:
    void makeDocuments() const;

    QTemporaryDir m_folder;
    QString m_home; ///< a folder in it, whose name can be read in a dialog
};

} // namespace gallery
