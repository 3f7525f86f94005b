#include "ui/qt/dialogs/qtdialog/addDefaultSidebarPlaces_p.h"

#include <boost/filesystem/operations.hpp>

#include <QFileDialog>
#include <QUrl>

namespace zelmar::internal {

void addDefaultSidebarPlaces(QFileDialog& dialog, const StandardLocations& locations)
{
    try {
        QList<QUrl> urls = dialog.sidebarUrls();
        for (const auto place :
             {QStandardPaths::DesktopLocation, QStandardPaths::DocumentsLocation, QStandardPaths::HomeLocation}) {
            const QStringList folders = locations(place);
            if (!folders.isEmpty())
                urls.append(QUrl::fromLocalFile(folders.first()));
        }
        dialog.setSidebarUrls(urls);
    } catch (const boost::filesystem::filesystem_error& error) {
        qDebug("Unable to add default storage locations to sidebar: %s", error.what());
    }
}

} // namespace zelmar::internal
