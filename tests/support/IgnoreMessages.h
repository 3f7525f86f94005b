#pragma once

#include <QRegularExpression>

/// Drops, while it lives, each message of Qt's logger that matches. For what the system says an unforeseeable number of
/// times; a message whose number is known is announced with QTest::ignoreMessage(). One at a time.
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
