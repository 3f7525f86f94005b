#include "testing/FileDialogScript.h"

#include "testing/ScriptStep_p.h"

#include <QDebug>

#include <ostream>
#include <tuple>
#include <utility>

namespace zelmar::testing {

using internal::quoted;

namespace {

auto members(const ShownControl& control)
{
    return std::tie(control.kind, control.label, control.ticked, control.enabled, control.visible);
}

auto members(const ShownFileDialog& dialog)
{
    return std::tie(dialog.kind, dialog.acceptMode, dialog.fileMode, dialog.caption, dialog.folder, dialog.defaultName,
                    dialog.nameFilters, dialog.selectedNameFilter, dialog.asksBeforeOverwriting, dialog.controls);
}

auto members(const ShownQuestion& question)
{
    return std::tie(question.kind, question.caption, question.text);
}

QString nameOf(ShownControl::Kind kind)
{
    switch (kind) {
    case ShownControl::Kind::Button:
        return QStringLiteral("button");
    case ShownControl::Kind::CheckBox:
        return QStringLiteral("check box");
    case ShownControl::Kind::MenuEntry:
        return QStringLiteral("menu entry");
    }
    return {};
}

QString choosing(QFileDialog::FileMode mode)
{
    switch (mode) {
    case QFileDialog::ExistingFile:
        return QStringLiteral("an existing file");
    case QFileDialog::ExistingFiles:
        return QStringLiteral("existing files");
    case QFileDialog::AnyFile:
        return QStringLiteral("any file");
    default:
        return QStringLiteral("a folder");
    }
}

QString withControls(const std::vector<ShownControl>& controls)
{
    QString lines;
    for (const ShownControl& control : controls)
        lines += QStringLiteral("\n  ") + describe(control);
    return lines;
}

QString withFilters(const ShownFileDialog& dialog)
{
    QString lines;
    for (const QString& filter : dialog.nameFilters) {
        lines += QStringLiteral("\n  name filter ") + quoted(filter);
        if (filter == dialog.selectedNameFilter)
            lines += QStringLiteral(", selected");
    }
    return lines;
}

template <typename Record>
QDebug debugged(QDebug debug, const Record& record)
{
    const QDebugStateSaver saver(debug);
    debug.noquote() << describe(record);
    return debug;
}

template <typename Record>
char* newText(const Record& record)
{
    return qstrdup(describe(record).toUtf8().constData());
}

} // namespace

bool operator==(const ShownControl& left, const ShownControl& right)
{
    return members(left) == members(right);
}

bool operator==(const ShownFileDialog& left, const ShownFileDialog& right)
{
    return members(left) == members(right);
}

bool operator==(const ShownQuestion& left, const ShownQuestion& right)
{
    return members(left) == members(right);
}

QString describe(const ShownControl& control)
{
    QString text = nameOf(control.kind) + QLatin1Char(' ') + quoted(control.label);
    if (control.ticked)
        text += QStringLiteral(", ticked");
    if (!control.enabled)
        text += QStringLiteral(", disabled");
    if (!control.visible)
        text += QStringLiteral(", hidden");
    return text;
}

QString describe(const ShownFileDialog& dialog)
{
    QString text = dialog.acceptMode == QFileDialog::AcceptSave ? QStringLiteral("save") : QStringLiteral("open");
    text += QStringLiteral(" dialog ") + quoted(dialog.caption) + QStringLiteral(" for ") + choosing(dialog.fileMode);
    text += dialog.kind == ShownFileDialog::Kind::Native ? QStringLiteral(", native") : QStringLiteral(", drawn by Qt");
    if (dialog.asksBeforeOverwriting)
        text += QStringLiteral(", asks before overwriting");
    text += QStringLiteral("\n  folder ") + quoted(dialog.folder) + QStringLiteral("\n  name ")
            + quoted(dialog.defaultName);
    return text + withFilters(dialog) + withControls(dialog.controls);
}

QString describe(const ShownQuestion& question)
{
    const bool overwrite = question.kind == ShownQuestion::Kind::Overwrite;
    return (overwrite ? QStringLiteral("question whether to overwrite, ")
                      : QStringLiteral("question whether to choose another place, "))
           + quoted(question.caption) + QStringLiteral(": ") + quoted(question.text);
}

QDebug operator<<(QDebug debug, const ShownControl& control)
{
    return debugged(std::move(debug), control);
}

QDebug operator<<(QDebug debug, const ShownFileDialog& dialog)
{
    return debugged(std::move(debug), dialog);
}

QDebug operator<<(QDebug debug, const ShownQuestion& question)
{
    return debugged(std::move(debug), question);
}

std::ostream& operator<<(std::ostream& stream, const ShownControl& control)
{
    return stream << describe(control).toStdString();
}

std::ostream& operator<<(std::ostream& stream, const ShownFileDialog& dialog)
{
    return stream << describe(dialog).toStdString();
}

std::ostream& operator<<(std::ostream& stream, const ShownQuestion& question)
{
    return stream << describe(question).toStdString();
}

char* toString(const ShownControl& control)
{
    return newText(control);
}

char* toString(const ShownFileDialog& dialog)
{
    return newText(dialog);
}

char* toString(const ShownQuestion& question)
{
    return newText(question);
}

} // namespace zelmar::testing
