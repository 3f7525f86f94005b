#pragma once

#include <QFileDialog>
#include <QString>
#include <QStringList>
#include <QVector>

#include <string>

namespace gallery {

/// An example of the use of a file dialog, with everything in which the pages of file dialogs differ.
struct FileDialogExample
{
    QString title;       ///< the title of the page and of the dialog
    QString description; ///< the description of the page
    QString buttonText;  ///< the text of the button with a mnemonic
    QFileDialog::AcceptMode acceptMode = QFileDialog::AcceptOpen;
    QFileDialog::FileMode fileMode = QFileDialog::ExistingFile; ///< Directory shows only directories
    QStringList nameFilters;
    std::string helpTopic;
    std::string geometryKey;
};

QVector<FileDialogExample> fileDialogExamples();

} // namespace gallery
