#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

#include <string>

class QWidget;

namespace zelmar::internal {

/// The interface through which a save flow uses a file dialog of any kind.
class SaveDialogInterface
{
public:
    SaveDialogInterface() = default;
    virtual ~SaveDialogInterface() = default;
    Q_DISABLE_COPY(SaveDialogInterface)

    /// Returns an object that is destroyed together with this one, so that a QPointer to it tells whether the dialog
    /// still exists.
    const QObject& life() const { return m_life; }

    /// Shows the dialog and waits until it closes. Returns true if the user accepted it.
    virtual bool run() = 0;
    /// Makes a running run() return false.
    virtual void cancelRun() = 0;
    /// Returns false once an object has been destroyed that the flow needs to ask questions or to accept a name.
    virtual bool canGoOn() { return true; }
    /// Returns the parent of the question boxes, which may be null.
    virtual QWidget* questionParent() = 0;

    virtual QStringList selectedFiles() = 0;
    virtual QStringList nameFilters() const = 0;
    virtual QString selectedNameFilter() const = 0;

    /// Returns whether the latest run() has asked the user itself whether to replace the file `name` (UTF-8) in case it
    /// exists.
    virtual bool hasAskedToReplace(const std::string& /*name*/) const { return false; }

private:
    const QObject m_life;
};

} // namespace zelmar::internal
