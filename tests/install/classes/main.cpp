#include "compat/QxtLabel.h"

int main()
{
    return QxtLabel::fromInstalledLibrary() ? 0 : 1;
}
