#include "textsearch/CaseFolding_p.h"

#include <QChar>

namespace zelmar::internal {

namespace {

struct Foldings
{
    Foldings()
    {
        for (uint unit = 0; unit < table.size(); ++unit) {
            table[unit] = char16_t(QChar::toCaseFolded(unit));
            if (table[unit] != unit)
                changed.push_back(char16_t(unit));
        }
    }

    std::vector<char16_t> table = std::vector<char16_t>(0x10000); ///< indexed by code unit
    std::vector<char16_t> changed;                                ///< code units that do not fold to themselves
};

const Foldings& foldings()
{
    static const Foldings foldings;
    return foldings;
}

} // namespace

CaseFolding::CaseFolding(Qt::CaseSensitivity caseSensitivity)
    : m_table(caseSensitivity == Qt::CaseInsensitive ? foldings().table.data() : nullptr)
{
}

std::vector<char16_t> CaseFolding::equivalentsOf(char16_t unit) const
{
    std::vector<char16_t> equivalents = {(*this)(unit)};
    if (m_table) {
        for (const char16_t other : foldings().changed) {
            if (m_table[other] == equivalents.front())
                equivalents.push_back(other);
        }
    }
    return equivalents;
}

} // namespace zelmar::internal
