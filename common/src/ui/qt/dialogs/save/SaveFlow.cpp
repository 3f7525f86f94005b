#include "ui/qt/dialogs/save/SaveFlow_p.h"

#include "ui/qt/dialogs/save/SaveRound_p.h"

#include <QScopeGuard>

#include <optional>
#include <utility>

namespace zelmar::internal {

SaveFlow::SaveFlow(SaveDialogInterface& dialog, const std::string& caption,
                   std::unique_ptr<SaveFileMessageHandlerInterface> messageHandler)
    : m_dialog(&dialog)
    , m_dialogLife(&dialog.life())
    , m_caption(caption)
    , m_messageHandler(std::move(messageHandler))
{
}

SaveFlow::~SaveFlow()
{
    if (dialog() && m_launched)
        m_dialog->cancelRun();
}

bool SaveFlow::launch()
{
    if (m_launched || !dialog())
        return false;
    m_launched = true;
    const auto launchEnds = qScopeGuard([this, alive = QPointer<const QObject>(&m_life)] {
        if (alive)
            m_launched = false;
    });
    const SaveRound round(*m_dialog, *m_messageHandler, m_caption, m_life);
    while (const std::optional<std::string> name = round.chooseName()) {
        m_selectedFileName = *name;
        const SaveRound::Outcome outcome = round.examine(*name);
        if (outcome != SaveRound::Outcome::ChooseAgain)
            return outcome == SaveRound::Outcome::Accepted;
    }
    return false;
}

QString SaveFlow::selectedFilter() const
{
    return dialog() ? m_dialog->selectedNameFilter() : QString();
}

int SaveFlow::selectedWriter() const
{
    return dialog() ? m_dialog->nameFilters().indexOf(m_dialog->selectedNameFilter()) : -1;
}

} // namespace zelmar::internal
