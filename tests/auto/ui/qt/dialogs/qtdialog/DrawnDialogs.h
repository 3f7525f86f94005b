#pragma once

#include "platform/ApplicationSettings.h"
#include "ui/qt/dialogs/ExtendedFileDialog.h"
#include "ui/qt/dialogs/QExtendedFileDialog.h"

#include "DialogFolders.h"
#include "systemLimits.h"

#include <QTest>
#include <QWidget>

#include <memory>

/// The set-up of tests of what users see in the dialogs that Qt draws: an empty store of settings, a folder with the
/// file "old.dat" and the folder "folder", and a parent window.
struct DrawnDialogs
{
    DrawnDialogs()
    {
        using zelmar::ApplicationSettings;
        ApplicationSettings::getInstance().setStore(std::make_unique<ApplicationSettings::MemoryStore>());
        folders.addFile(QStringLiteral("old.dat"));
        folders.addFolder(QStringLiteral("folder"));
    }

    QString path(const QString& name = {}) const { return folders.path(name); }

    /// Adds the column "native" and a row for each kind of dialog of the facades.
    static void addKindRows()
    {
        QTest::addColumn<bool>("native");
        QTest::newRow("drawn by Qt") << false;
        if (!systemLimits::nativeDialogIsTheSystems)
            QTest::newRow("native, over the built-in object") << true;
    }

    /// Makes new facades use the kind of dialog in the current row.
    static void useKindOfRow()
    {
        QFETCH(bool, native);
        ExtendedFileDialog::setUseNativeFileDialog(native);
    }

    /// Returns a new dialog of the kind in the current row.
    std::unique_ptr<ExtendedFileDialog> make(QFileDialog::AcceptMode mode)
    {
        useKindOfRow();
        return std::make_unique<ExtendedFileDialog>(window, "Choose", path().toStdString(), "", "", mode);
    }

    std::unique_ptr<QExtendedFileDialog> makeQt(QFileDialog::AcceptMode mode)
    {
        return std::make_unique<QExtendedFileDialog>(window, "Choose", path().toStdString(), "", "", mode);
    }

    DialogFolders folders;
    QWidget window; ///< destroyed before the folders, with the dialogs that may keep them from being removed
};
