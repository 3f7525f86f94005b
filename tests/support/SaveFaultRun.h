#pragma once

#include "DialogDriver.h"
#include "FileDialogActions.h"
#include "OrdinaryUser.h"
#include "SaveFaults.h"

#include <functional>

/// Defines how a test chooses the name of a fault in the dialog of a save flow.
using ChooseName = std::function<void(DialogDriver& driver, const QString& name)>;

/// Chooses the name by keyboard in a Qt-drawn dialog.
inline void chooseByKeyboard(DialogDriver& driver, const QString& name)
{
    driver.onDialog<QFileDialog>("accept", [name](QFileDialog& dialog) { acceptName(dialog, name); });
}

/// Sets up the fault with the index `fault` in saveFaults() in `folder` and runs a save flow of the class `Flow` over
/// `window` as an ordinary user. Returns a description of the difference from the expected result, or an empty text.
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
