#include "testing/FileDialogScript.h"

#include "testing/FileDialogScriptImpl_p.h"

#include <utility>

namespace zelmar::testing {

using internal::ScriptStep;

namespace {

using FailureHandler = std::function<void(const QString&)>;

FailureHandler& failureHandler()
{
    static FailureHandler handler;
    return handler;
}

} // namespace

FileDialogScript::FileDialogScript()
    : m_impl(std::make_shared<Impl>())
{
}

FileDialogScript::~FileDialogScript()
{
    m_impl->end();
    const QString failures = verify();
    if (failures.isEmpty())
        return;
    if (m_impl->isUnwinding() && !failureHandler())
        qCritical("%s", qUtf8Printable(failures));
    else
        internal::reportFailure(failures);
}

FileDialogScript& FileDialogScript::accept(const QString& file, const QString& nameFilter)
{
    return acceptSeveral({file}, nameFilter);
}

FileDialogScript& FileDialogScript::acceptSeveral(const QStringList& files, const QString& nameFilter)
{
    m_impl->add({ScriptStep::Kind::Accept, files, nameFilter, false});
    return *this;
}

FileDialogScript& FileDialogScript::cancel()
{
    m_impl->add({ScriptStep::Kind::Cancel, {}, {}, false});
    return *this;
}

FileDialogScript& FileDialogScript::press(const QString& label)
{
    m_impl->add({ScriptStep::Kind::Press, {}, label, false});
    return *this;
}

FileDialogScript& FileDialogScript::tick(const QString& label, bool on)
{
    m_impl->add({ScriptStep::Kind::Tick, {}, label, on});
    return *this;
}

FileDialogScript& FileDialogScript::pick(const QString& label)
{
    m_impl->add({ScriptStep::Kind::Pick, {}, label, false});
    return *this;
}

FileDialogScript& FileDialogScript::overwrite(Answer answer)
{
    m_impl->add({ScriptStep::Kind::Overwrite, {}, {}, answer == Answer::Yes});
    return *this;
}

FileDialogScript& FileDialogScript::refuse(Answer chooseAnother)
{
    m_impl->add({ScriptStep::Kind::Refuse, {}, {}, chooseAnother == Answer::Yes});
    return *this;
}

FileDialogScript& FileDialogScript::useFileSystem(bool on)
{
    m_impl->usesFileSystem = on;
    return *this;
}

const std::deque<ShownFileDialog>& FileDialogScript::dialogs() const
{
    return m_impl->dialogs;
}

const std::deque<ShownQuestion>& FileDialogScript::questions() const
{
    return m_impl->questions;
}

QString FileDialogScript::verify()
{
    return m_impl->takeFailures();
}

void FileDialogScript::setFailureHandler(std::function<void(const QString&)> handler)
{
    failureHandler() = std::move(handler);
}

} // namespace zelmar::testing

namespace zelmar::internal {

void reportFailure(const QString& text)
{
    const auto handler = testing::failureHandler(); // a copy, because it may set another handler
    if (handler)
        handler(text);
    else
        qFatal("%s", qUtf8Printable(text));
}

} // namespace zelmar::internal
