#pragma once

#include <QtGlobal>

#include <functional>

namespace gallery {

/// A function that receives the progress of a load in percent, which never decreases. It runs on the loading thread. If
/// it returns false, the load stops at the next step.
using ProgressCallback = std::function<bool(int percent)>;

/// A converter from the bytes that one stage of a load has processed to its share of the percentage.
class ProgressStage
{
public:
    /// Reports to \a callback, which may be empty and must outlive the stage. \a total is the number of bytes.
    ProgressStage(const ProgressCallback& callback, int firstPercent, int lastPercent, quint64 total)
        : m_callback(callback)
        , m_first(firstPercent)
        , m_last(lastPercent)
        , m_total(total)
    {
    }

    /// Returns false if the load must stop. Fast enough to be called after every cell.
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

    // A step is small enough that a cancelled load ends within milliseconds.
    static constexpr quint64 Step = 1U << 20;

    const ProgressCallback& m_callback;
    int m_first;
    int m_last;
    quint64 m_total;
    quint64 m_next = 0;
};

} // namespace gallery
