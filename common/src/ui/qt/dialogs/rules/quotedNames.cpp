#include "ui/qt/dialogs/rules/quotedNames.h"

std::string quotedNames(const std::vector<std::string>& names)
{
    std::string quoted;
    for (const std::string& name : names)
        if (!name.empty())
            quoted += '"' + name + "\" ";
    return quoted;
}
