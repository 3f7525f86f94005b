#pragma once

#include "ui/qt/dialogs/SaveFileMessageHandlerInterface.h"

#include <functional>
#include <string>
#include <vector>

/// Writes down, in order, what a save flow asks of its handler. The texts are the names of the operations.
class RecordingMessageHandler : public zelmar::SaveFileMessageHandlerInterface
{
public:
    using Calls = std::vector<std::string>;

    /// `calls` outlives the handler, which a flow owns.
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

    /// Gives the name to check in place of the one that was chosen.
    std::function<std::string(const std::string&)> whenChecked;
    /// Called when a text is asked for, with its name.
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
