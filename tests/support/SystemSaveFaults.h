#pragma once

#include "SaveFaults.h"

/// Returns the faults that exist only on this operating system. Those that cannot be set up on this machine are
/// omitted; see whyFaultsAreMissing().
std::vector<SaveFault> systemSaveFaults();

/// Removes `folder`, if it exists, with everything that a fault has left in it.
void removeSaveFaults(const QString& folder);
