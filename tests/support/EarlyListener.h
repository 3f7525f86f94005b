#pragma once

#include <QObject>

#include <functional>
#include <utility>

/// An object that runs an action once at a signal, before objects receive the signal that connect later.
class EarlyListener : public QObject
{
    Q_OBJECT

public:
    /// Connects to the signal, which is given as by SIGNAL().
    EarlyListener(QObject& sender, const char* signal) { connect(&sender, signal, this, SLOT(onSignal())); }

    std::function<void()> action;

private Q_SLOTS:
    void onSignal()
    {
        if (const auto once = std::exchange(action, nullptr))
            once();
    }
};
