#pragma once

#include <QFileDialog>
#include <QString>
#include <QStringList>
#include <QVector>

#include <string>

namespace gallery {

/// One way to use a file dialog: everything in which the pages of file dialogs differ.
struct FileDialogExample
{
    QString title;       ///< of the page and of the dialog
    QString description; ///< of the page
    QString buttonText;  ///< with a mnemonic
    QFileDialog::AcceptMode acceptMode = QFileDialog::AcceptOpen;
    QFileDialog::FileMode fileMode = QFileDialog::ExistingFile; ///< Directory lists directories only
    QStringList nameFilters;
    std::string helpTopic;
    std::string geometryKey;

    /// What the tour types, names in the current folder, and the filter that it picks before; -1 for none.
    QStringList tourNames;
    int tourFilter = -1;
};

QVector<FileDialogExample> fileDialogExamples();

} // namespace gallery
