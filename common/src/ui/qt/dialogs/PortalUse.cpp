#include "ui/qt/dialogs/PortalUse.h"

namespace zelmar::ui {

namespace {

PortalUse& currentUse()
{
    static PortalUse use = PortalUse::Automatic;
    return use;
}

} // namespace

void setPortalUse(PortalUse use)
{
    currentUse() = use;
}

PortalUse portalUse()
{
    return currentUse();
}

} // namespace zelmar::ui
