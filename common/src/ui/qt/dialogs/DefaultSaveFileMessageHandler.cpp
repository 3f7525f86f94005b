#include "ui/qt/dialogs/DefaultSaveFileMessageHandler.h"

namespace zelmar {

DefaultSaveFileMessageHandler::DefaultSaveFileMessageHandler() = default;
DefaultSaveFileMessageHandler::DefaultSaveFileMessageHandler(const DefaultSaveFileMessageHandler&) = default;
DefaultSaveFileMessageHandler& DefaultSaveFileMessageHandler::operator=(const DefaultSaveFileMessageHandler&) = default;
DefaultSaveFileMessageHandler::~DefaultSaveFileMessageHandler() = default;

std::string DefaultSaveFileMessageHandler::filenameToCheck(const std::string& filename)
{
    m_filename = filename;
    return m_filename;
}

std::string DefaultSaveFileMessageHandler::okToOverwriteMessage() const
{
    return "File " + m_filename + " already exists. Do you want to replace it?";
}

std::string DefaultSaveFileMessageHandler::unableToOverwriteMessage() const
{
    return "Unable to save file " + m_filename
           + ", check access permissions for the file and the parent directory."
             " Do you want to try again and choose a different location?";
}

std::string DefaultSaveFileMessageHandler::systemAccessError(const std::string& error) const
{
    return "Unable to access file " + m_filename + ": " + error
           + ". Do you want to try again and choose a different location?";
}

} // namespace zelmar
