#pragma once

#include "ui/qt/dialogs/SaveFileMessageHandlerInterface.h"

#include <functional>
#include <string>
#include <vector>

/// A message handler that records the calls of a save flow in order. Each text that it returns is the name of its
/// function.
class RecordingMessageHandler : public zelmar::SaveFileMessageHandlerInterface
{
public:
    using Calls = std::vector<std::string>;

    /// Records into `calls`, which must outlive the handler; a save flow owns the handler.
    explicit RecordingMessageHandler(Calls& calls)
        : m_calls(calls)
    {
    }

    std::string filenameToCheck(const std::string& filename) override
    {
        m_calls.push_back("check " + filename);
        return whenChecked ? whenChecked(filename) : filename;
    }
    std::string okToOverwriteMessage() const override { return record("overwrite"); }
    std::string unableToOverwriteMessage() const override { return record("unable"); }
    std::string systemAccessError(const std::string& error) const override { return record("error " + error); }

    /// Returns the name to check for the chosen name.
    std::function<std::string(const std::string&)> whenChecked;
    /// Called with the name of each requested text.
    std::function<void(const std::string&)> whenAsked;

private:
    std::string record(const std::string& call) const
    {
        m_calls.push_back(call);
        if (whenAsked)
            whenAsked(call);
        return call;
    }

    Calls& m_calls;
};
