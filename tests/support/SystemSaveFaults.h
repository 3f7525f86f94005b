#pragma once

#include "SaveFaults.h"

/// The faults that only this system knows. Those that cannot be set up on this machine are left out:
/// whyFaultsAreMissing().
std::vector<SaveFault> systemSaveFaults();

/// Removes `folder`, which need not be there, with whatever a fault has left in it.
void removeSaveFaults(const QString& folder);
