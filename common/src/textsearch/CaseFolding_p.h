#pragma once

#include "internal_export_p.h"

#include <Qt>

#include <vector>

namespace zelmar::internal {

/// A function object that folds a UTF-16 code unit for comparison: to its simple case folding if case is ignored, and
/// to itself otherwise. A surrogate is folded to itself.
class COMMON_UI_QT_INTERNAL_EXPORT CaseFolding
{
public:
    explicit CaseFolding(Qt::CaseSensitivity caseSensitivity);

    char16_t operator()(char16_t unit) const { return m_table ? m_table[unit] : unit; }

    /// Returns all code units that fold to the same code unit as `unit`: first the folded one, then the others in
    /// ascending order.
    std::vector<char16_t> equivalentsOf(char16_t unit) const;

private:
    const char16_t* m_table; ///< indexed by code unit; null if case is respected
};

} // namespace zelmar::internal
