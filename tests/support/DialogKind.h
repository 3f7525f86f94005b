#pragma once

#include "RecordingShell.h"
#include "systemLimits.h"
#include "ui/qt/dialogs/ExtendedFileDialog.h"

#include <QMetaType>
#include <QTest>

#include <memory>

/// The kinds of dialog behind the facades: the Qt-drawn one, and the native one over the dialog object that is built in
/// or over a recording one.
enum class DialogKind { QtDrawn, BuiltIn, Recording };
Q_DECLARE_METATYPE(DialogKind)

/// Adds a row with the column "kind" for each of them.
inline void addDialogKindRows()
{
    QTest::addColumn<DialogKind>("kind");
    QTest::newRow("drawn by Qt") << DialogKind::QtDrawn;
    if (!systemLimits::nativeDialogIsTheSystems)
        QTest::newRow("native, over the built-in object") << DialogKind::BuiltIn;
    QTest::newRow("native, over a recording object") << DialogKind::Recording;
}

/// Makes facades be of one kind while it is there.
class DialogKindSwitch
{
public:
    explicit DialogKindSwitch(DialogKind kind)
        : m_before(ExtendedFileDialog::useNativeFileDialog())
    {
        ExtendedFileDialog::setUseNativeFileDialog(kind != DialogKind::QtDrawn);
        if (kind == DialogKind::Recording)
            m_shell = std::make_unique<RecordingShell>();
    }
    ~DialogKindSwitch() { ExtendedFileDialog::setUseNativeFileDialog(m_before); }
    DialogKindSwitch(const DialogKindSwitch&) = delete;
    DialogKindSwitch& operator=(const DialogKindSwitch&) = delete;

    /// Null for the other kinds.
    RecordingShell* shell() const { return m_shell.get(); }

private:
    const bool m_before;
    std::unique_ptr<RecordingShell> m_shell;
};
