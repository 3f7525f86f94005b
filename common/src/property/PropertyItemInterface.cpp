#include "property/PropertyItemInterface.h"

namespace zelmar {

void PropertyItemInterface::signalPropertyChangedConnected() const
{
}

PropertyItemInterface::~PropertyItemInterface() = default;

} // namespace zelmar
