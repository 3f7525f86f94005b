#include "ui/qt/dialogs/windows/builtin/portalQuestion_p.h"

#include "ui/qt/dialogs/qtdialog/mnemonics_p.h"
#include "ui/qt/dialogs/windows/builtin/ControlModel_p.h"
#include "ui/qt/dialogs/windows/builtin/FileDialogRequest_p.h"
#include "ui/qt/dialogs/windows/builtin/acceptMenuName_p.h"
#include "ui/qt/dialogs/windows/portal/portalOptions_p.h"

#include <QFileInfo>
#include <QKeySequence>

#include <algorithm>
#include <vector>

namespace zelmar::internal {

namespace {

QString plainLabel(const QString& label)
{
    return withoutMnemonic(label).replace(QLatin1String("&&"), QLatin1String("&"));
}

/// Returns a label whose mnemonic follows "_" instead of "&".
QString portalLabel(const QString& label)
{
    QString result;
    for (int i = 0; i < label.size(); ++i) {
        if (label[i] == QLatin1Char('_'))
            result += QLatin1String("__");
        else if (label[i] != QLatin1Char('&'))
            result += label[i];
        else if (label.mid(i, 2) == QLatin1String("&&"))
            result += label[i++];
        else
            result += QLatin1Char('_');
    }
    return result;
}

bool isShownDisabled(CDCONTROLSTATEF state)
{
    return isShown(state) && !isUsable(state);
}

std::vector<ControlItem> shownItems(const Control& menu)
{
    std::vector<ControlItem> items;
    if (isShown(menu.state)) {
        std::copy_if(menu.items.begin(), menu.items.end(), std::back_inserter(items),
                     [](const ControlItem& item) { return isShown(item.state); });
    }
    return items;
}

bool canShow(const FileDialogRequest& request)
{
    const bool saving = request.kind == DialogKind::Save;
    return request.fileNameLabel.isEmpty() && request.defaultExtension.isEmpty()
           && !(saving && request.options & (FOS_PICKFOLDERS | FOS_ALLOWMULTISELECT));
}

bool canShow(const Control& control)
{
    if (!isShown(control.state))
        return true;
    const std::vector<ControlItem> items = shownItems(control);
    const bool isEmptyMenu = control.kind == Control::Kind::AcceptMenu && items.empty();
    return control.kind != Control::Kind::PushButton && (isEmptyMenu || isUsable(control.state))
           && std::none_of(items.begin(), items.end(),
                           [](const ControlItem& item) { return isShownDisabled(item.state); });
}

PortalChoice checkBox(const Control& control)
{
    return {QString::number(control.id),
            plainLabel(control.label),
            {},
            control.checked ? QStringLiteral("true") : QStringLiteral("false")};
}

PortalChoice menuChoice(const Control& menu, const std::vector<ControlItem>& items, DialogKind kind)
{
    PortalChoice choice;
    choice.id = QString::number(menu.id);
    choice.label = acceptMenuName(kind);
    for (const ControlItem& item : items)
        choice.values += {QString::number(item.id), plainLabel(item.text)};
    choice.initial = choice.values.first().id;
    return choice;
}

void addControls(PortalQuestion& question, const ControlModel& controls, DialogKind kind)
{
    for (const Control& control : controls.controls()) {
        const std::vector<ControlItem> items = shownItems(control);
        if (items.size() > 1)
            question.choices += menuChoice(control, items, kind);
        else if (items.size() == 1)
            question.acceptLabel = portalLabel(items.front().text);
        else if (control.kind == Control::Kind::CheckButton && isShown(control.state))
            question.choices += checkBox(control);
    }
}

QList<PortalFilter> portalFilters(const FileTypes& types)
{
    QList<PortalFilter> filters;
    const QStringList names = types.nameFilters();
    for (int type = 0; type < types.count(); ++type) {
        PortalFilter filter{names[type], {}};
        for (const QString& pattern : types.patterns(type))
            filter.rules += {PortalFilterRule::globPattern, anyCasePattern(pattern)};
        if (filter.rules.isEmpty())
            filter.rules += {PortalFilterRule::globPattern, QStringLiteral("*")};
        filters += filter;
    }
    return filters;
}

} // namespace

std::optional<PortalQuestion> portalQuestion(const FileDialogRequest& request, const ControlModel& controls)
{
    const std::vector<Control>& all = controls.controls();
    if (!canShow(request)
        || !std::all_of(all.begin(), all.end(), [](const Control& control) { return canShow(control); }))
        return std::nullopt;
    PortalQuestion question;
    question.kind = request.kind == DialogKind::Save ? PortalQuestion::Kind::SaveFile : PortalQuestion::Kind::OpenFile;
    question.title = request.title;
    question.acceptLabel = portalLabel(request.acceptLabel);
    question.several = request.options & FOS_ALLOWMULTISELECT;
    question.folders = request.options & FOS_PICKFOLDERS;
    question.filters = question.folders ? QList<PortalFilter>() : portalFilters(request.types);
    question.filter = request.types.validIndex(request.type);
    question.folder = request.folder.isEmpty() ? request.defaultFolder : request.folder;
    question.name = request.fileName;
    const QFileInfo named(request.fileName);
    if (named.isAbsolute()) {
        question.folder = named.path();
        question.name = named.fileName();
    }
    addControls(question, controls, request.kind);
    return question;
}

} // namespace zelmar::internal
