#pragma once

// Includes the two kinds of dialog behind the facades. Of all headers outside windows/, only this one knows the native
// kind.
#include "ui/qt/dialogs/ExtendedFileDialog.h"
#include "ui/qt/dialogs/QExtendedFileDialog.h"
#include "ui/qt/dialogs/SaveFileQtDialog.h"
#include "ui/qt/dialogs/windows/ExtendedWinFileDialog.h"
#include "ui/qt/dialogs/windows/SaveFileWinDialog.h"

#include <memory>
#include <utility>

namespace zelmar::internal {

/// Creates the object of the kind that the process-wide switch selects. Both kinds take the same arguments.
template <typename Native, typename Drawn, typename... Arguments>
void createKind(std::unique_ptr<Native>& native, std::unique_ptr<Drawn>& drawn, Arguments&&... arguments)
{
    if (ExtendedFileDialog::useNativeFileDialog())
        native = std::make_unique<Native>(std::forward<Arguments>(arguments)...);
    else
        drawn = std::make_unique<Drawn>(std::forward<Arguments>(arguments)...);
}

/// Calls `function` with the object of the kind that was created, and returns the result. Both kinds have functions of
/// the same names.
template <typename Native, typename Drawn, typename Function>
auto callKind(const std::unique_ptr<Native>& native, const std::unique_ptr<Drawn>& drawn, const Function& function)
{
    return native ? function(*native) : function(*drawn);
}

} // namespace zelmar::internal
