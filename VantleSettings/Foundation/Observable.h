#pragma once

#include <QObject>

#include <memory>
#include <utility>

/// An object that views can watch. It announces every change before it happens, so a view reads the new state
/// on the next turn of the event loop and never sees half of a change.
class Observable : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;
    ~Observable() override;

Q_SIGNALS:
    /// Sent before a value changes, also when the new value equals the old one.
    void objectWillChange();
};

/// A value of an Observable. Assigning emits `objectWillChange` of the owner, then stores; reading emits
/// nothing.
template <class T>
class Published
{
public:
    explicit Published(Observable &owner, T value = {}) : m_owner(owner), m_value(std::move(value)) {}
    Published(const Published &) = delete;
    Published(Published &&) = delete;
    ~Published() = default;
    Published &operator=(const Published &other) = delete;
    Published &operator=(Published &&other) = delete;

    Published &operator=(T value)
    {
        Q_EMIT m_owner.objectWillChange();
        m_value = std::move(value);
        return *this;
    }

    /// Announces, then hands the stored value to `change` to edit in place.
    template <class Change>
    void modify(Change change)
    {
        Q_EMIT m_owner.objectWillChange();
        change(m_value);
    }

    /// The stored value; valid until the next change.
    const T &value() const { return m_value; }
    operator const T &() const
    {
        return m_value;
    } // NOLINT(google-explicit-constructor): reads like the value
    const T *operator->() const { return &m_value; }

private:
    Observable &m_owner;
    T m_value;
};

/// Calls `draw` now, and again on the next turn of the event loop after each announcement of `observed`, once
/// however many announcements came, until `owner` is gone.
template <class Draw>
void renderOnChange(QObject *owner, Observable &observed, Draw draw)
{
    draw();
    struct State {
        Draw draw;
        bool pending = false;
    };
    auto state = std::make_shared<State>(State{std::move(draw)});
    QObject::connect(&observed, &Observable::objectWillChange, owner, [owner, state] {
        if (std::exchange(state->pending, true))
            return;
        const auto redraw = [state] {
            state->pending = false;
            state->draw();
        };
        QMetaObject::invokeMethod(owner, redraw, Qt::QueuedConnection);
    });
}
