#include "SafeFile.h"

#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace gallery {

SafeFile::SafeFile(const QString& path)
    : m_file(path)
{
    open(WriteOnly | Unbuffered);
    const QFileInfo info(path);
    if (!info.exists() || info.isFile())
        m_file.open(WriteOnly);
}

QString SafeFile::commit()
{
    const QFileInfo info(m_file.fileName());
    if (info.exists() && !info.isFile())
        return tr("This is not a regular file.");
    const QString error = storeAll();
    return error.isEmpty() ? QString() : tr("The file cannot be written: %1").arg(error);
}

/// Verifies what QSaveFile does not: it ignores the result of the synchronization with the disk, and a write that
/// stores only its first part on a full disk may succeed.
QString SafeFile::storeAll()
{
    if (!m_file.isOpen() || !m_file.flush() || m_file.error() != QFileDevice::NoError)
        return m_file.errorString();
#ifdef Q_OS_UNIX
    if (fsync(m_file.handle()) != 0)
        return qt_error_string();
#endif
    if (m_file.size() != m_written)
        return tr("there is not enough room for all of it.");
    return m_file.commit() ? QString() : m_file.errorString();
}

qint64 SafeFile::readData(char* /*data*/, qint64 /*size*/)
{
    return -1;
}

qint64 SafeFile::writeData(const char* data, qint64 size)
{
    m_written += size;
    if (m_file.isOpen())
        m_file.write(data, size);
    return size;
}

} // namespace gallery
