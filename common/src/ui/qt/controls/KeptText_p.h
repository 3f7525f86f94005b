#pragma once

#include <QLineEdit>
#include <QPointer>
#include <QString>

namespace zelmar::internal {

/// Keeps the text and the cursor position of a line edit in its scope: the destructor restores both, and the line edit
/// emits no signals meanwhile. The line edit may be destroyed earlier.
class KeptText
{
public:
    explicit KeptText(QLineEdit& edit)
        : m_edit(&edit)
        , m_wereSignalsBlocked(edit.blockSignals(true))
        , m_text(edit.text())
        , m_cursorPosition(edit.cursorPosition())
    {
    }
    ~KeptText()
    {
        if (!m_edit)
            return;
        if (m_edit->text() != m_text) {
            m_edit->setText(m_text);
            m_edit->setCursorPosition(m_cursorPosition);
        }
        m_edit->blockSignals(m_wereSignalsBlocked);
    }
    KeptText(const KeptText&) = delete;
    KeptText& operator=(const KeptText&) = delete;

private:
    QPointer<QLineEdit> m_edit;
    bool m_wereSignalsBlocked;
    QString m_text;
    int m_cursorPosition;
};

} // namespace zelmar::internal
