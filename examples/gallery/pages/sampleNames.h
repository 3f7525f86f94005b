#pragma once

#include <QStringList>

namespace gallery {

/// Returns `count` distinct names of signals of a measurement, in several languages and in upper and lower case.
QStringList sampleNames(int count);

} // namespace gallery
