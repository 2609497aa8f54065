#ifndef DEPTHGUARD_H
#define DEPTHGUARD_H

/// Counts one level more for as long as it lives. `tooDeep` is called, and must throw, at the limit.
class DepthGuard
{
public:
    template <class TooDeep>
    DepthGuard(unsigned& depth, unsigned limit, TooDeep tooDeep) : m_depth(depth)
    {
        if (m_depth >= limit)
            tooDeep();
        ++m_depth;
    }
    DepthGuard(const DepthGuard&) = delete;
    DepthGuard& operator=(const DepthGuard&) = delete;
    ~DepthGuard() { --m_depth; }

private:
    unsigned& m_depth;
};

#endif
