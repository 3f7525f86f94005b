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
enum class DialogBackend { QtDrawn, BuiltIn, Recording };
Q_DECLARE_METATYPE(DialogBackend)

/// Returns the kinds that exist on this system.
inline std::vector<DialogBackend> dialogBackends()
{
    if (systemLimits::nativeDialogIsTheSystems)
        return {DialogBackend::QtDrawn, DialogBackend::Recording};
    return {DialogBackend::QtDrawn, DialogBackend::BuiltIn, DialogBackend::Recording};
}

inline const char* nameOf(DialogBackend kind)
{
    const char* const names[] = {"drawn by Qt", "native, over the built-in object", "native, over a recording object"};
    return names[int(kind)];
}

/// Adds the column "kind" and a row for each kind.
inline void addDialogBackendRows()
{
    QTest::addColumn<DialogBackend>("kind");
    for (const DialogBackend kind : dialogBackends())
        QTest::newRow(nameOf(kind)) << kind;
}

/// A guard that makes the facades use one kind of dialog during its lifetime.
class DialogBackendSwitch
{
public:
    explicit DialogBackendSwitch(DialogBackend kind)
        : m_before(ExtendedFileDialog::useNativeFileDialog())
    {
        ExtendedFileDialog::setUseNativeFileDialog(kind != DialogBackend::QtDrawn);
        if (kind == DialogBackend::Recording)
            m_shell = std::make_unique<RecordingShell>();
    }
    ~DialogBackendSwitch() { ExtendedFileDialog::setUseNativeFileDialog(m_before); }
    DialogBackendSwitch(const DialogBackendSwitch&) = delete;
    DialogBackendSwitch& operator=(const DialogBackendSwitch&) = delete;

    /// Returns the recording shell, or null for the other kinds.
    RecordingShell* shell() const { return m_shell.get(); }

private:
    const bool m_before;
    std::unique_ptr<RecordingShell> m_shell;
};
