#pragma once

#include <QtGlobal>

#include <utility>

/// The access to one part of the outside world, which tests can replace. `Seam<X>::current()` is
/// `X::system()`, the system's own `X`, unless a test has put a stand-in in its place. Main thread only.
template <class Interface>
class Seam
{
public:
    static Interface &current() { return s_standIn ? *s_standIn : Interface::system(); }

    /// Puts a stand-in in the place of the current `X` while this object exists. Replacements nest.
    class Replacement
    {
    public:
        explicit Replacement(Interface &standIn) : m_previous(std::exchange(s_standIn, &standIn)) {}
        ~Replacement() { s_standIn = m_previous; }
        Q_DISABLE_COPY_MOVE(Replacement)

    private:
        Interface *m_previous;
    };

private:
    static inline Interface *s_standIn = nullptr;
};
