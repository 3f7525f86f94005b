#pragma once

#include <QString>
#include <QWidget>

class QPlainTextEdit;

namespace gallery {

/// A list of messages that stay until the user clears them, with the latest at the bottom. It is hidden while it is
/// empty.
class MessageArea : public QWidget
{
    Q_OBJECT

public:
    MessageArea();
    ~MessageArea() override;

    /// Appends a message in plain text.
    void add(const QString& message);
    void clear();
    /// Returns all messages, one per line.
    [[nodiscard]] QString text() const;

private:
    QPlainTextEdit* m_text;
};

} // namespace gallery
