#pragma once

#include <QRegularExpression>

/// A guard that drops every message of Qt's logger that matches a pattern during its lifetime. Use it for messages that
/// the system logs an unpredictable number of times; announce others with QTest::ignoreMessage(). Only one guard may
/// exist at a time.
class IgnoreMessages
{
public:
    explicit IgnoreMessages(const QString& pattern);
    ~IgnoreMessages();
    IgnoreMessages(const IgnoreMessages&) = delete;
    IgnoreMessages& operator=(const IgnoreMessages&) = delete;

private:
    static void handle(QtMsgType type, const QMessageLogContext& context, const QString& text);

    QtMessageHandler m_previous;
    QRegularExpression m_pattern;
    static IgnoreMessages* s_current;
};
