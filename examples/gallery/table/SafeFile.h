#pragma once

#include <QIODevice>
#include <QSaveFile>

namespace gallery {

/// A device that replaces a file as a whole. Until commit() succeeds the old file stays as it is, even if the disk is
/// full or the process or the machine stops. The new file has the permissions of the old one. A symbolic link stays,
/// and its target is replaced.
class SafeFile : public QIODevice
{
    Q_OBJECT

public:
    /// Opens the device for writing. commit() reports all errors.
    explicit SafeFile(const QString& path);

    /// Replaces the file. Returns the error text, or an empty text. Without this call the new file is discarded.
    QString commit();

    [[nodiscard]] bool isSequential() const override { return true; }

protected:
    qint64 readData(char* data, qint64 size) override;
    qint64 writeData(const char* data, qint64 size) override;

private:
    [[nodiscard]] QString storeAll();

    QSaveFile m_file;
    qint64 m_written = 0;
};

} // namespace gallery
