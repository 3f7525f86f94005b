#include "ui/qt/dialogs/TranslatedSaveFileMessageHandler.h"

#include <QCoreApplication>
#include <QString>

namespace zelmar {

std::string TranslatedSaveFileMessageHandler::filenameToCheck(const std::string& filename)
{
    m_filename = filename;
    return m_filename;
}

std::string TranslatedSaveFileMessageHandler::okToOverwriteMessage() const
{
    return QCoreApplication::translate("common_ui_qt", "File %1 already exists. Do you want to replace it?")
        .arg(QString::fromStdString(m_filename))
        .toStdString();
}

std::string TranslatedSaveFileMessageHandler::unableToOverwriteMessage() const
{
    return QCoreApplication::translate("common_ui_qt",
                                       "Unable to save file %1, check access permissions for the file and the parent "
                                       "directory. Do you want to try again and choose a different location?")
        .arg(QString::fromStdString(m_filename))
        .toStdString();
}

std::string TranslatedSaveFileMessageHandler::systemAccessError(const std::string& error) const
{
    return QCoreApplication::translate("common_ui_qt",
                                       "Unable to access file %1: %2. Do you want to try again and choose a different "
                                       "location?")
        .arg(QString::fromStdString(m_filename), QString::fromStdString(error))
        .toStdString();
}

} // namespace zelmar
