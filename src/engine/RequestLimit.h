#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>

namespace engine {

/// Lets through at most so many requests within any span of time of a given length.
class RequestLimit
{
public:
    RequestLimit(std::size_t most, int64_t withinMs)
        : m_most(most)
        , m_withinMs(withinMs)
    {}

    /// Whether a request at the time `nowMs` (of any clock that only goes forward) passes. One that does not pass does
    /// not count.
    bool passes(int64_t nowMs)
    {
        while (!m_passed.empty() && nowMs - m_passed.front() >= m_withinMs)
            m_passed.pop_front();
        if (m_passed.size() >= m_most)
            return false;
        m_passed.push_back(nowMs);
        return true;
    }

    void reset() { m_passed.clear(); }

private:
    std::size_t m_most;
    int64_t m_withinMs;
    std::deque<int64_t> m_passed;
};

} // namespace engine
