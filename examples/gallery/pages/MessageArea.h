#pragma once

#include <QString>
#include <QWidget>

class QPlainTextEdit;

namespace gallery {

/// Messages that stay until the user has them cleared, the last one at the bottom. Hidden while there is
/// none.
class MessageArea : public QWidget
{
    Q_OBJECT

public:
    MessageArea();
    ~MessageArea() override;

    /// Plain text.
    void add(const QString& message);
    void clear();
    /// All messages, one a line.
    [[nodiscard]] QString text() const;

private:
    QPlainTextEdit* m_text;
};

} // namespace gallery
