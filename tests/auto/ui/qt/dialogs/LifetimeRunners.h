#pragma once

#include "ui/qt/dialogs/ExtendedFileDialog.h"
#include "ui/qt/dialogs/QExtendedFileDialog.h"
#include "ui/qt/dialogs/SaveFileDialog.h"
#include "ui/qt/dialogs/SaveFileMessageHandlerInterface.h"
#include "ui/qt/dialogs/windows/ExtendedWinFileDialog.h"

#include <boost/filesystem/exception.hpp>

#include <QPointer>
#include <QString>

#include <functional>
#include <memory>
#include <string>
#include <utility>

// The objects that the lifetime tests run and delete.

/// The interface of an object that runs a dialog and may be deleted while it runs.
class Runner
{
public:
    Runner() = default;
    Runner(const Runner&) = delete;
    Runner& operator=(const Runner&) = delete;
    virtual ~Runner() = default;
    /// Runs the dialog, and returns true if the user accepted it.
    virtual bool run() = 0;
    /// Deletes the dialog of a flow. Has no effect on any other runner.
    virtual void deleteDialog() {}
    /// Returns the native dialog, so that a test can add controls. Null for any other runner.
    virtual ExtendedWinFileDialog* nativeDialog() { return nullptr; }
};

inline const char* const helpTopic = "topic.html";
inline const char* const filters = "Data (*.dat);;Tables (*.csv)";

class FacadeRunner : public Runner
{
public:
    FacadeRunner(QWidget& parent, const QString& folder)
        : m_dialog(parent, "Title", folder.toStdString(), filters, helpTopic, QFileDialog::AcceptSave)
    {
        m_dialog.setFileMode(QFileDialog::AnyFile);
    }
    bool run() override { return m_dialog.exec() == QDialog::Accepted; }

private:
    ExtendedFileDialog m_dialog;
};

/// A runner of a Qt-drawn dialog that its parent may delete, too.
class DrawnRunner : public Runner
{
public:
    DrawnRunner(QWidget& parent, const QString& folder)
        : m_dialog(
            new QExtendedFileDialog(parent, "Title", folder.toStdString(), filters, helpTopic, QFileDialog::AcceptSave))
    {
    }
    ~DrawnRunner() override { delete m_dialog; }
    bool run() override { return m_dialog->exec() == QDialog::Accepted; }

private:
    const QPointer<QExtendedFileDialog> m_dialog;
};

class NativeRunner : public Runner
{
public:
    NativeRunner(QWidget& parent, const QString& folder)
        : m_dialog(parent, "Title", folder.toStdString(), filters, helpTopic, QFileDialog::AcceptSave, true)
    {
        m_dialog.addAcceptButtonOption("Save", 1);
        m_dialog.addAcceptButtonOption("Save a copy", 2);
    }
    bool run() override { return m_dialog.exec() == QDialog::Accepted; }
    ExtendedWinFileDialog* nativeDialog() override { return &m_dialog; }

private:
    ExtendedWinFileDialog m_dialog;
};

using Handler = std::unique_ptr<zelmar::SaveFileMessageHandlerInterface>;

class FlowFacadeRunner : public Runner
{
public:
    FlowFacadeRunner(QWidget* parent, const QString& folder, Handler handler)
        : m_flow(parent, "Title", folder.toStdString(), "", filters, helpTopic, std::move(handler))
    {
    }
    bool run() override { return m_flow.launch(); }

private:
    SaveFileDialog m_flow;
};

/// A runner of a flow that gives access to its dialog, as a derived class may.
template <typename Flow>
class FlowRunner : public Runner, private Flow
{
public:
    FlowRunner(QWidget* parent, const QString& folder, Handler handler)
        : Flow(parent, "Title", folder.toStdString(), "", filters, helpTopic, std::move(handler))
    {
    }
    bool run() override { return this->launch(); }
    void deleteDialog() override { delete this->dialog(); }
};

/// A message handler that reports each call to a listener, which may delete the handler.
class TellingHandler : public zelmar::SaveFileMessageHandlerInterface
{
public:
    using Listener = std::function<void(const QString&)>;

    TellingHandler(Listener listener, bool fails)
        : m_listener(std::move(listener))
        , m_fails(fails)
    {
    }

    std::string filenameToCheck(const std::string& filename) override
    {
        tell("filenameToCheck");
        return filename; // The argument must still be valid.
    }
    std::string okToOverwriteMessage() const override
    {
        const bool fails = m_fails;
        tell("okToOverwriteMessage");
        if (fails)
            throw boost::filesystem::filesystem_error("played", boost::system::error_code());
        return "overwrite?";
    }
    std::string unableToOverwriteMessage() const override
    {
        tell("unableToOverwriteMessage");
        return "unable?";
    }
    std::string systemAccessError(const std::string& error) const override
    {
        tell("systemAccessError");
        return "error: " + error;
    }

private:
    void tell(const QString& call) const
    {
        const Listener listener = m_listener; // The listener may delete this object.
        listener(call);
    }

    const Listener m_listener;
    const bool m_fails;
};
