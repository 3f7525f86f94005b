#pragma once

#include "DialogDriver.h"
#include "FileDialogActions.h"
#include "OrdinaryUser.h"
#include "SaveFaults.h"

#include <functional>

/// How the name of a fault is chosen in a flow's dialog.
using ChooseName = std::function<void(DialogDriver& driver, const QString& name)>;

/// By keyboard, in a dialog drawn by Qt.
inline void chooseByKeyboard(DialogDriver& driver, const QString& name)
{
    driver.onDialog<QFileDialog>("accept", [name](QFileDialog& dialog) { acceptName(dialog, name); });
}

/// Sets the fault at `fault` in saveFaults() up in `folder`, and runs a flow of the class `Flow` over `window` on it as
/// an ordinary user. What is not as it is to be; empty when all is.
template <typename Flow>
QString problemOfSaveFault(int fault, const QString& folder, QWidget* window, const ChooseName& choose)
{
    SaveFaultTrial trial(saveFaults()[std::size_t(fault)], folder);
    bool launched = false;
    {
        const OrdinaryUser user;
        if (!user.isOrdinary())
            return QStringLiteral("still the superuser");
        Flow flow(window, "Save", trial.folder().toStdString(), "", "Data files (*.dat)", "", trial.makeHandler());
        DialogDriver driver;
        choose(driver, trial.chosenName());
        trial.addAnswers(driver);
        launched = flow.launch();
        if (!driver.finished())
            return driver.problem();
    }
    return trial.problem(launched);
}
