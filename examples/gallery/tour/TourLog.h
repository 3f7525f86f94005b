#pragma once

#include <QFile>
#include <QMutex>
#include <QString>
#include <QtGlobal>

namespace gallery {

/// The log of a tour. It writes lines to a file and to the standard output, and failures to the standard error output
/// instead. During its lifetime each warning of Qt's message logger is a failure of the tour. Only one log may exist at
/// a time; any thread may write to it.
class TourLog
{
public:
    /// Creates or overwrites the file `path`.
    explicit TourLog(const QString& path);
    ~TourLog();
    Q_DISABLE_COPY(TourLog)

    void write(const QString& line);
    /// Writes `what` as a failure and counts it.
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
