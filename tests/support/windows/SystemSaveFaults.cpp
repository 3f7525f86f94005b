#include "SystemSaveFaults.h"

#include "SaveFaultPlaces.h"

#include <QDir>
#include <QDirIterator>

#include <memory>

#include <windows.h>

namespace {

/// Opens `path` exclusively until `holder` is destroyed, like a program that denies sharing.
QString hold(const QString& path, std::shared_ptr<void>& holder)
{
    const std::wstring name = QDir::toNativeSeparators(path).toStdWString();
    HANDLE file = CreateFileW(name.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    checkFault(file != INVALID_HANDLE_VALUE, "hold");
    holder.reset(file, &CloseHandle);
    return path;
}

/// The resources that a fault holds until its folder is removed.
std::shared_ptr<void>& heldFile()
{
    static std::shared_ptr<void> file;
    return file;
}

QString driveThatIsNotThere()
{
    for (char letter = 'Z'; letter >= 'A'; --letter) {
        QString root = QLatin1Char(letter) + QStringLiteral(":/");
        if (!QDir(root).exists())
            return root;
    }
    qFatal("Cannot set up a fault: every drive is there");
}

} // namespace

std::vector<SaveFault> systemSaveFaults()
{
    return {
        {"file that another program keeps to itself",
         [](const QString& f) { return hold(addFile(at(f, "old.dat")), heldFile()); },
         {"overwrite", "unable"},
         false},
        {"drive that is not there",
         [](const QString&) { return driveThatIsNotThere() + QStringLiteral("new.dat"); },
         {"unable"},
         false},
    };
}

QString whyFaultsAreMissing()
{
    return {};
}

void removeSaveFaults(const QString& folder)
{
    heldFile().reset();
    if (!QDir(folder).exists())
        return;
    setAccess(folder, Access::Everything);
    QDirIterator entries(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    while (entries.hasNext())
        setAccess(entries.next(), Access::Everything);
    QDir(folder).removeRecursively();
}
