#include "ui/qt/dialogs/windows/builtin/ShellItem_p.h"

#include <QDir>
#include <QFileInfo>

using namespace zelmar::internal;

namespace {

/// Returns `path` with slashes as separators, or an empty string if the path does not exist. A backslash may be a
/// separator or part of a name. If several of these readings exist, prefers the one whose first names are shorter.
QString resolvedPath(const QString& path)
{
    QString resolved;
    QString name;
    for (const QString& part : path.mid(1).split(QLatin1Char('\\'))) {
        name += name.isEmpty() ? part : QLatin1Char('\\') + part;
        const QString candidate = resolved + QLatin1Char('/') + name;
        if (!QFileInfo::exists(candidate))
            continue;
        resolved = candidate;
        name.clear();
    }
    return name.isEmpty() ? QDir::cleanPath(resolved) : QString();
}

bool isAbsolute(const QString& path)
{
    return path.startsWith(QLatin1Char('/')) || path.startsWith(QLatin1Char('\\'));
}

} // namespace

HRESULT SHCreateItemFromParsingName(LPCWSTR path, IBindCtx* /*context*/, REFIID iid, void** item)
{
    if (!path || !item)
        return E_INVALIDARG;
    *item = nullptr;
    const QString text = QString::fromWCharArray(path);
    if (!isAbsolute(text))
        return E_INVALIDARG;
    const QString existing = resolvedPath(text);
    if (existing.isEmpty())
        return HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND);
    return makeShellItem(existing)->QueryInterface(iid, item);
}
