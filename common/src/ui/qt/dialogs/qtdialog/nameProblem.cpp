#include "ui/qt/dialogs/qtdialog/nameProblem_p.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace zelmar::internal {

namespace {

#ifdef Q_OS_UNIX
/// Returns the greatest length of a name in `folder` in bytes. Negative if the file system has no limit or `folder`
/// does not exist.
int longestNameIn(const QString& folder)
{
    return static_cast<int>(::pathconf(QFile::encodeName(folder).constData(), _PC_NAME_MAX));
}

int lengthOf(const QString& name)
{
    return QFile::encodeName(name).size();
}
#else
int longestNameIn(const QString& /*folder*/)
{
    return 255; // holds for every file system that Windows writes to
}

int lengthOf(const QString& name)
{
    return name.size();
}
#endif

/// Returns the topmost missing folder of the path of `folder`, which does not exist itself. This may be a drive, which
/// is its own parent, and which QFileInfo::isRoot() does not recognise if it is missing.
QFileInfo firstMissing(QFileInfo folder)
{
    for (QFileInfo above(folder.path()); !above.exists() && above.filePath() != folder.filePath();
         above.setFile(folder.path()))
        folder = above;
    return folder;
}

NameProblem problemOfFolder(const QFileInfo& folder)
{
    if (folder.isDir())
        return {};
    if (folder.exists())
        return {NameProblem::Kind::NotAFolder, folder.filePath()};
    const QFileInfo missing = firstMissing(folder);
    const QFileInfo above(missing.path());
    if (above.exists() && !above.isDir())
        return {NameProblem::Kind::NotAFolder, above.filePath()};
    return {NameProblem::Kind::MissingFolder, missing.filePath()};
}

QString tooLong(int limit)
{
#ifdef Q_OS_UNIX
    return QCoreApplication::translate("common_ui_qt", "The name is longer than the file system allows (%1 bytes).")
        .arg(limit);
#else
    return QCoreApplication::translate("common_ui_qt",
                                       "The name is longer than the file system allows (%1 characters).")
        .arg(limit);
#endif
}

} // namespace

NameProblem problemOfSavingTo(const QString& path)
{
    const QFileInfo file(path);
    const QFileInfo folder(file.path());
    NameProblem problem = problemOfFolder(folder);
    if (problem.kind != NameProblem::Kind::None)
        return problem;
    const int limit = longestNameIn(folder.filePath());
    if (limit >= 0 && lengthOf(file.fileName()) > limit)
        return {NameProblem::Kind::TooLong, QString(), limit};
    return {};
}

QString explanationOf(const NameProblem& problem)
{
    const QString folder = QDir::toNativeSeparators(problem.folder);
    switch (problem.kind) {
    case NameProblem::Kind::TooLong:
        return tooLong(problem.limit);
    case NameProblem::Kind::MissingFolder:
        return QCoreApplication::translate("common_ui_qt", "The folder %1 does not exist.").arg(folder);
    case NameProblem::Kind::NotAFolder:
        return QCoreApplication::translate("common_ui_qt", "%1 is not a folder.").arg(folder);
    case NameProblem::Kind::None:
        break;
    }
    return {};
}

} // namespace zelmar::internal
