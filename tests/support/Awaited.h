#pragma once

#include <QtCore/qtestsupport_core.h>

#include <gtest/gtest.h>

#include <memory>
#include <optional>

/// An answer that is given once, at once or later by the event loop: `Awaited<bool> answer;
/// ask(answer.take());`
template <class T>
class Awaited
{
public:
    /// The callback that takes the answer; it may outlive this object.
    auto take()
    {
        return [slot = m_slot](const T &value) {
            EXPECT_FALSE(slot->has_value()) << "answered twice";
            *slot = value;
        };
    }

    bool isGiven() const { return m_slot->has_value(); }

    /// The answer, for which the event loop runs; without one the case fails.
    T value() const
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return isGiven(); }, 60000)) << "no answer";
        return m_slot->value_or(T());
    }

private:
    std::shared_ptr<std::optional<T>> m_slot = std::make_shared<std::optional<T>>();
};
