#pragma once

#include "DialogBackend.h"
#include "DialogDriver.h"
#include "DialogFolders.h"
#include "IgnoreMessages.h"
#include "LifetimeRunners.h"

#include <QMetaType>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <memory>
#include <vector>

/// The objects that are destroyed, in this order.
struct Victims
{
    const char* name;
    bool runnerFirst;
    bool parent;
    bool runnerLast;
    bool dialog;
    bool application;
};

inline const Victims runnerOnly{"it goes", true, false, false, false, false};
inline const Victims parentOnly{"its parent goes", false, true, false, false, false};
inline const Victims runnerAndParent{"it goes, then its parent", true, true, false, false, false};
inline const Victims parentAndRunner{"its parent goes, then it", false, true, true, false, false};
inline const Victims dialogOnly{"its dialog goes", false, false, false, true, false};
inline const Victims dialogAndRunner{"its dialog goes, then it", false, false, true, true, false};
inline const Victims application{"the application quits", false, false, false, false, true};
Q_DECLARE_METATYPE(const Victims*)

enum class RunnerKind { Facade, Dialog, FlowFacade, Flow };
Q_DECLARE_METATYPE(RunnerKind)

const char* nameOf(RunnerKind runner);

/// Adds the columns "kind", "runner" and "victims".
void addLifetimeColumns();

/// Returns the classes of the visible dialogs and menus.
QStringList shownDialogs();

/// The base class of the tests that destroy objects at various moments of a run, for each kind of dialog. In every case
/// the window has to close, the run has to return as cancelled, and no deleted object may be accessed, which the
/// address sanitizer checks.
class LifetimeTest : public QObject
{
    Q_OBJECT

protected:
    /// Makes the runner that the row of the test describes.
    void makeRunnerOfTheRow();
    void makeRunner();
    /// Destroys the victims.
    void strike();
    void runAndCompare();

    /// Makes the user accept `name`.
    void choose(const QString& name);
    void onOpenDialog(std::function<void(QFileDialog&)> act);

    DialogBackend m_kind = DialogBackend::QtDrawn;
    RunnerKind m_runnerKind = RunnerKind::Facade;
    const Victims* m_victims = nullptr;
    TellingHandler::Listener m_handlerListener;
    bool m_examiningFails = false;

    std::unique_ptr<DialogFolders> m_folders;
    std::unique_ptr<DialogBackendSwitch> m_switch;
    std::unique_ptr<DialogDriver> m_driver;
    std::unique_ptr<QWidget> m_parent;
    std::unique_ptr<Runner> m_runner;
    QStringList m_shownAfterwards;
    int m_strikes = 0;

protected Q_SLOTS:
    void init();
    void cleanup();

private:
    bool runIt();

    std::unique_ptr<IgnoreMessages> m_unavoidable;
};
