#include "ui/qt/dialogs/SaveFileMessageHandlerInterface.h"

namespace zelmar {

SaveFileMessageHandlerInterface::~SaveFileMessageHandlerInterface() = default;

} // namespace zelmar
