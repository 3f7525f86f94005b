#include "ui/qt/dialogs/windows/builtin/ControlBar_p.h"

#include "ui/qt/dialogs/qtdialog/mnemonics_p.h"
#include "ui/qt/dialogs/windows/builtin/FileDialogListener_p.h"
#include "ui/qt/dialogs/windows/builtin/WrappingLayout_p.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QSignalBlocker>

#include <algorithm>

namespace zelmar::internal {

namespace {

/// Returns the text of a prominent control: the label, with a mnemonic that is not in `taken` if it has one at all.
/// Only the Help button is prominent, and the mnemonics of all other labels have precedence over its own.
QString prominentText(const QString& label, const QSet<QKeySequence>& taken)
{
    return QKeySequence::mnemonic(label).isEmpty() ? label : withAnyFreeMnemonic(label, taken);
}

} // namespace

ControlBar::ControlBar(ControlModel& model, FileDialogListener& listener, QDialogButtonBox& prominentPlace,
                       QWidget* parent)
    : QWidget(parent)
    , m_model(model)
    , m_listener(listener)
    , m_prominentPlace(prominentPlace)
{
    setObjectName(QStringLiteral("controlBar"));
    auto* layout = new WrappingLayout(this);
    layout->setObjectName(QStringLiteral("controlBarLayout"));
}

void ControlBar::update(const QSet<QKeySequence>& taken)
{
    const QSet<QKeySequence> takenForProminent = taken + mnemonicsOfRow(taken);
    bool rowNeeded = false;
    for (const Control& control : m_model.controls()) {
        if (control.kind == Control::Kind::AcceptMenu)
            continue;
        QAbstractButton& button = *buttonFor(control);
        if (control.prominent && button.parentWidget() == this)
            moveToButtonBox(button);
        button.setText(control.prominent ? prominentText(control.label, takenForProminent)
                                         : withoutTakenMnemonic(control.label, taken));
        applyState(button, control);
        rowNeeded = rowNeeded || (!control.prominent && isShown(control.state));
    }
    setVisible(rowNeeded);
}

/// Returns the mnemonics of the visible controls in the row.
QSet<QKeySequence> ControlBar::mnemonicsOfRow(const QSet<QKeySequence>& taken) const
{
    QSet<QKeySequence> mnemonics;
    for (const Control& control : m_model.controls()) {
        if (control.kind != Control::Kind::AcceptMenu && !control.prominent && isShown(control.state))
            mnemonics.insert(QKeySequence::mnemonic(withoutTakenMnemonic(control.label, taken)));
    }
    mnemonics.remove(QKeySequence());
    return mnemonics;
}

std::vector<QWidget*> ControlBar::inOrder() const
{
    std::vector<QWidget*> order;
    for (const Control& control : m_model.controls()) {
        const auto button = m_buttons.find(control.id);
        if (button != m_buttons.end())
            order.push_back(button->second);
    }
    return order;
}

bool ControlBar::isAnyShown() const
{
    return std::any_of(m_buttons.begin(), m_buttons.end(), [](const auto& entry) { return !entry.second->isHidden(); });
}

bool ControlBar::contains(const QAbstractButton& button) const
{
    return std::any_of(m_buttons.begin(), m_buttons.end(),
                       [&button](const auto& entry) { return entry.second == &button; });
}

QAbstractButton* ControlBar::buttonFor(const Control& control)
{
    QAbstractButton*& button = m_buttons[control.id];
    if (!button) {
        button = control.kind == Control::Kind::CheckButton ? makeCheckBox(control.id) : makePushButton(control.id);
        layout()->addWidget(button);
    }
    return button;
}

QAbstractButton* ControlBar::makePushButton(DWORD id)
{
    auto* button = new QPushButton(this);
    button->setAutoDefault(false); // The accept button stays the default button, which Return presses.
    connect(button, &QPushButton::clicked, this, [this, id] { m_listener.buttonClicked(id); });
    return button;
}

QAbstractButton* ControlBar::makeCheckBox(DWORD id)
{
    auto* box = new QCheckBox(this);
    connect(box, &QCheckBox::toggled, this, [this, id](bool checked) {
        m_model.setChecked(id, checked);
        m_listener.checkButtonToggled(id, checked);
    });
    return box;
}

void ControlBar::applyState(QAbstractButton& button, const Control& control)
{
    button.setEnabled(isUsable(control.state));
    button.setVisible(isShown(control.state));
    // The listener is notified only when the user toggles the button.
    const QSignalBlocker blocker(&button);
    button.setChecked(control.checked);
}

void ControlBar::moveToButtonBox(QAbstractButton& button)
{
    layout()->removeWidget(&button);
    m_prominentPlace.addButton(&button, QDialogButtonBox::HelpRole);
}

} // namespace zelmar::internal
