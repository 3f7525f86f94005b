#include "ui/qt/controls/CopyHandlerAbstract.h"

#include <QKeyEvent>
#include <QKeySequence>

namespace zelmar::ui {

namespace {

bool isCopyKeyPress(QEvent& event)
{
    return event.type() == QEvent::KeyPress && static_cast<QKeyEvent&>(event).matches(QKeySequence::Copy);
}

} // namespace

CopyHandlerAbstract::CopyHandlerAbstract(QObject& watched)
    : QObject(&watched)
    , m_watched(&watched)
{
    m_watched->installEventFilter(this);
}

CopyHandlerAbstract::~CopyHandlerAbstract()
{
    m_watched->removeEventFilter(this);
}

bool CopyHandlerAbstract::eventFilter(QObject* /*watched*/, QEvent* event)
{
    // Compatibility: copy-filter-ignores-watched
    if (!isCopyKeyPress(*event))
        return false;
    copyToClipboard(); // may delete this object
    return true;
}

} // namespace zelmar::ui
