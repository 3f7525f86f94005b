#pragma once

#include "common_ui_qt_export.h"

namespace zelmar {

/// The base of every observable value, whatever its type: something to hold values of several types by.
class COMMON_UI_QT_EXPORT PropertyItemInterface
{
public:
    PropertyItemInterface() = default;
    PropertyItemInterface(const PropertyItemInterface&) = delete;
    PropertyItemInterface& operator=(const PropertyItemInterface&) = delete;

private:
    /// For a value that wants to know when it is first observed. Nothing here calls or overrides it.
    virtual void signalPropertyChangedConnected() const; // first of all: the order of virtual functions is fixed

public:
    virtual ~PropertyItemInterface();
};

} // namespace zelmar
