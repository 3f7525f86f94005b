#pragma once

#include "internal_export_p.h"

#include <QDBusConnection>

#include <optional>

namespace zelmar::internal {

/// Returns a connection to the session bus, or nothing if there is none. The process keeps the connection, and makes
/// another one when it is lost. Never starts a bus.
COMMON_UI_QT_INTERNAL_EXPORT std::optional<QDBusConnection> portalBus();

} // namespace zelmar::internal
