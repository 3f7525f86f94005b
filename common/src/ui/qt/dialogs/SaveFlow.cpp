#include "ui/qt/dialogs/SaveFlow_p.h"

#include "ui/qt/dialogs/SaveFileMessageHandlerInterface.h"

#include <QPointer>
#include <QScopeGuard>

#include <utility>

SaveFlow::SaveFlow(const std::string& caption, std::unique_ptr<zelmar::SaveFileMessageHandlerInterface> messageHandler)
    : m_caption(caption)
    , m_messageHandler(std::move(messageHandler))
{
}

SaveFlow::~SaveFlow() = default;

bool SaveFlow::launch()
{
    if (m_launched)
        return false;
    m_launched = true;
    const auto launchEnds = qScopeGuard([this, alive = QPointer<const QObject>(&life())] {
        if (alive)
            m_launched = false;
    });
    return SaveLoop(*this, *m_messageHandler, m_caption, m_selectedFileName).run();
}

int SaveFlow::selectedWriter() const
{
    return nameFilters().indexOf(selectedNameFilter());
}

QStringList fromUtf8(const std::vector<std::string>& texts)
{
    QStringList converted;
    for (const std::string& text : texts)
        converted += QString::fromStdString(text);
    return converted;
}
