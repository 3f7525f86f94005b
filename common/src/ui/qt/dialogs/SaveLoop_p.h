#pragma once

#include "internal_export_p.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>

#include <string>

class QWidget;

namespace zelmar {
class SaveFileMessageHandlerInterface;
}

/// The interface through which the save loop uses a file dialog.
class COMMON_UI_QT_INTERNAL_EXPORT SaveLoopDialog
{
public:
    SaveLoopDialog() = default;
    virtual ~SaveLoopDialog();
    Q_DISABLE_COPY(SaveLoopDialog)

    /// Returns an object that is destroyed together with this one. Its signal QObject::destroyed() tells the loop that
    /// the dialog is gone.
    const QObject& life() const { return m_life; }
    /// Returns false once an object is gone that the flow needs for asking questions or accepting a name.
    virtual bool canGoOn() const { return true; }

    /// Shows the dialog and waits until it closes. Returns true if the user accepted it.
    virtual bool run() = 0;
    virtual QStringList selectedFiles() const = 0;
    virtual QString selectedNameFilter() const = 0;
    /// Returns the parent of the question boxes, which may be null.
    virtual QWidget* questionParent() const = 0;

private:
    const QObject m_life;
};

/// A loop that shows a dialog of any kind until the user has chosen a name that may be written, or gives up. Each round
/// takes the first selected file, appends the default extension, asks before an existing file is replaced, and checks
/// that the file can be written.
///
/// Every function that the loop calls may delete the dialog, and with it the handler, the caption and the selected file
/// name. The loop then closes an open question and ends without a name. It also ends without a name when the dialog
/// cannot go on, and when the application quits.
class COMMON_UI_QT_INTERNAL_EXPORT SaveLoop
{
public:
    /// Keeps references to all arguments. `caption` (UTF-8) is the title of the questions. `selectedFileName` (UTF-8)
    /// is set to the name with its extension each time that the user accepts the dialog, before any question.
    SaveLoop(SaveLoopDialog& dialog, zelmar::SaveFileMessageHandlerInterface& handler, const std::string& caption,
             std::string& selectedFileName);

    /// Returns true if the user accepted a name that may be written, and answered the question about overwriting, if
    /// there was one, with Yes.
    bool run();

private:
    /// The result of one round. Again means that the dialog has to be shown once more.
    enum class Outcome { Accepted, GivenUp, Again };

    Outcome runOnce();
    /// The answer to one question. None means that the question was closed because its parent or the flow was
    /// destroyed, or because the application quits.
    enum class Answer { Yes, No, None };

    Outcome check(const std::string& name);
    Outcome examine(const std::string& name, const std::string& nameToCheck);
    Outcome againIfYes(const std::string& question) const;
    Answer ask(const std::string& question) const;
    bool isThere() const;

    const QPointer<const QObject> m_life; ///< the life() of the dialog; if null, the references below are dangling
    SaveLoopDialog& m_dialog;
    zelmar::SaveFileMessageHandlerInterface& m_handler;
    const std::string& m_caption;
    std::string& m_selectedFileName;
};
