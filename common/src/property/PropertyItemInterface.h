#pragma once

#include "common_ui_qt_export.h"

namespace zelmar {

/// The common base class of all properties, by which properties of different value types can be held.
class COMMON_UI_QT_EXPORT PropertyItemInterface
{
public:
    PropertyItemInterface() = default;
    PropertyItemInterface(const PropertyItemInterface&) = delete;
    PropertyItemInterface& operator=(const PropertyItemInterface&) = delete;

private:
    /// Does nothing. A hook for properties that want to know when they are first observed; the library neither calls
    /// nor overrides it. It precedes the destructor because the order of the virtual functions is fixed.
    ///
    /// Kept for existing callers, see docs/compatibility.md: property-changed-connected-hook.
    virtual void signalPropertyChangedConnected() const;

public:
    virtual ~PropertyItemInterface();
};

} // namespace zelmar
