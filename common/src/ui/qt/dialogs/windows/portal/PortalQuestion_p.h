#pragma once

#include "ui/qt/dialogs/windows/portal/portalTypes_p.h"

#include <QList>
#include <QString>

namespace zelmar::internal {

/// A description of the dialog that a portal is asked to show.
struct PortalQuestion
{
    enum class Kind { OpenFile, SaveFile };

    Kind kind = Kind::OpenFile;
    QString parentWindow; ///< the portal's identifier of the parent window, or an empty text
    QString title;
    QString acceptLabel; ///< a mnemonic follows "_"; empty for the portal's own label
    bool several = false;
    bool folders = false;
    QList<PortalFilter> filters;
    int filter = 0; ///< the index of the selected filter; out of range if none is selected
    QString folder; ///< absolute; empty if the portal chooses
    QString name;   ///< the proposed name of a file to save, without a folder
    QList<PortalChoice> choices;
};

} // namespace zelmar::internal
