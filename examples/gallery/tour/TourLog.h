#pragma once

#include <QFile>
#include <QMutex>
#include <QString>
#include <QtGlobal>

namespace gallery {

/// What a tour has to tell: lines in a file and on the standard output; what went wrong on the error output
/// instead. While it lives, each warning of Qt's message logger is a failure of the tour. One at a time; any
/// thread may write.
class TourLog
{
public:
    /// Writes the file `path` anew.
    explicit TourLog(const QString& path);
    ~TourLog();
    Q_DISABLE_COPY(TourLog)

    void write(const QString& line);
    /// Writes `what` as a failure.
    void fail(const QString& what);
    [[nodiscard]] int failureCount() const;

private:
    static void handleMessage(QtMsgType type, const QMessageLogContext& context, const QString& text);
    void writeTo(FILE* stream, const QString& line);

    mutable QMutex m_mutex;
    QFile m_file;
    int m_failureCount = 0;
    QtMessageHandler m_previousHandler = nullptr;
    static TourLog* s_current;
};

} // namespace gallery
