#pragma once

#include <QtGlobal>

#include <functional>

namespace gallery {

/// Told how far a load has come, 0 to 100, never falling. Runs in the thread that loads.
/// Returning false stops the load at the next step.
using ProgressCallback = std::function<bool(int percent)>;

/// Maps the bytes done by one stage of a load onto that stage's share of the percentage.
class ProgressStage
{
public:
    /// \a callback may be empty; it must outlive the stage. \a total counts bytes.
    ProgressStage(const ProgressCallback& callback, int firstPercent, int lastPercent, quint64 total)
        : m_callback(callback)
        , m_first(firstPercent)
        , m_last(lastPercent)
        , m_total(total)
    {
    }

    /// False when the load is to stop. Cheap enough to be asked after every cell.
    bool reached(quint64 done) { return done < m_next || report(done); }

private:
    bool report(quint64 done)
    {
        m_next = done + Step;
        if (!m_callback)
            return true;
        const double share = m_total > 0 ? qMin(1.0, double(done) / double(m_total)) : 1.0;
        return m_callback(m_first + int(share * (m_last - m_first)));
    }

    // Small enough that a cancelled load ends within milliseconds.
    static constexpr quint64 Step = 1U << 20;

    const ProgressCallback& m_callback;
    int m_first;
    int m_last;
    quint64 m_total;
    quint64 m_next = 0;
};

} // namespace gallery
