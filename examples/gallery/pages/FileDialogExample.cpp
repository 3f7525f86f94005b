#include "FileDialogExample.h"

#include <QCoreApplication>

namespace gallery {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("gallery::FileDialogExample", text);
}

QStringList dataFilters()
{
    return {tr("Data files (*.dat)"), tr("Text files (*.txt)"), tr("All files (*)")};
}

FileDialogExample openOneFile()
{
    FileDialogExample example;
    example.title = tr("Open one file");
    example.description = tr("A dialog that takes one file that exists. A pattern typed as its name, such as run*.dat, "
                             "filters the list.");
    example.buttonText = tr("&Open a file…");
    example.nameFilters = dataFilters();
    example.helpTopic = "dialogs/open-one-file.html";
    example.geometryKey = "gallery/open-one-file";
    return example;
}

FileDialogExample openSeveralFiles()
{
    FileDialogExample example;
    example.title = tr("Open several files");
    example.description = tr("A dialog that takes any number of files of one folder.");
    example.buttonText = tr("&Open files…");
    example.fileMode = QFileDialog::ExistingFiles;
    example.nameFilters = dataFilters();
    example.helpTopic = "dialogs/open-several-files.html";
    example.geometryKey = "gallery/open-several-files";
    return example;
}

FileDialogExample saveAFile()
{
    FileDialogExample example;
    example.title = tr("Save a file");
    example.description = tr("A dialog that takes the name of a file to write, and asks before one is replaced. "
                             "This page writes no file.");
    example.buttonText = tr("&Save a file…");
    example.acceptMode = QFileDialog::AcceptSave;
    example.fileMode = QFileDialog::AnyFile;
    example.nameFilters = dataFilters();
    example.helpTopic = "dialogs/save-a-file.html";
    example.geometryKey = "gallery/save-a-file";
    return example;
}

FileDialogExample chooseADirectory()
{
    FileDialogExample example;
    example.title = tr("Choose a directory");
    example.description = tr("A dialog that takes a folder and lists nothing else.");
    example.buttonText = tr("&Choose a directory…");
    example.fileMode = QFileDialog::Directory;
    example.helpTopic = "dialogs/choose-a-directory.html";
    example.geometryKey = "gallery/choose-a-directory";
    return example;
}

} // namespace

QVector<FileDialogExample> fileDialogExamples()
{
    return {openOneFile(), openSeveralFiles(), saveAFile(), chooseADirectory()};
}

} // namespace gallery
