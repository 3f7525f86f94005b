#pragma once

#include "RecordingShell.h"
#include "systemLimits.h"
#include "ui/qt/dialogs/ExtendedFileDialog.h"

#include <QMetaType>
#include <QTest>

#include <memory>
#include <vector>

/// The kinds of dialog behind the facades: the Qt-drawn dialog, and the native dialog over either the built-in or a
/// recording dialog object.
enum class DialogKind { QtDrawn, BuiltIn, Recording };
Q_DECLARE_METATYPE(DialogKind)

/// Returns the kinds that exist on this system.
inline std::vector<DialogKind> dialogKinds()
{
    if (systemLimits::nativeDialogIsTheSystems)
        return {DialogKind::QtDrawn, DialogKind::Recording};
    return {DialogKind::QtDrawn, DialogKind::BuiltIn, DialogKind::Recording};
}

inline const char* nameOf(DialogKind kind)
{
    const char* const names[] = {"drawn by Qt", "native, over the built-in object", "native, over a recording object"};
    return names[int(kind)];
}

/// Adds the column "kind" and a row for each kind.
inline void addDialogKindRows()
{
    QTest::addColumn<DialogKind>("kind");
    for (const DialogKind kind : dialogKinds())
        QTest::newRow(nameOf(kind)) << kind;
}

/// A guard that makes the facades use one kind of dialog during its lifetime.
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

    /// Returns the recording shell, or null for the other kinds.
    RecordingShell* shell() const { return m_shell.get(); }

private:
    const bool m_before;
    std::unique_ptr<RecordingShell> m_shell;
};
