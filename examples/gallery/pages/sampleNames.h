#pragma once

#include <QStringList>

namespace gallery {

/// `count` names of signals, as a measurement would have them: in several languages, in both cases, each another one.
QStringList sampleNames(int count);

} // namespace gallery
