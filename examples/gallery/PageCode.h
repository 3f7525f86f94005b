#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace gallery {

/// Functions in a source file of the pages.
struct SourceFunctions
{
    QString file; ///< without its folder
    QStringList names;
};

/// The code that makes what is on a page: functions of the page, as they stand in its source, which is a resource of
/// the program. The code that is shown is therefore the code that runs.
class PageCode
{
public:
    /// Reads the code. Logs a warning for each file and function that does not exist.
    explicit PageCode(const std::vector<SourceFunctions>& functions);

    /// Returns the functions in the order of the constructor's argument, with an empty line between two of them.
    [[nodiscard]] QString text() const { return m_functions.join(QStringLiteral("\n\n")); }

    /// Returns the names of the library's classes and functions that the files include.
    [[nodiscard]] const QStringList& includedNames() const { return m_includedNames; }

private:
    QStringList m_functions;
    QStringList m_includedNames;
};

/// Returns the definition of a function at the beginning of a line, with its comment, or an empty text if `lines` has
/// none. The definition ends with the first line that is only a brace.
QString functionIn(const QStringList& lines, const QString& name);

} // namespace gallery
