#pragma once

#include <functional>
#include <map>
#include <memory>
#include <utility>

namespace vexmoor {

/// Cancels a subscription on destruction.
class [[nodiscard]] Subscription {
  public:
    Subscription() = default;
    explicit Subscription(std::shared_ptr<void> keepAlive) : m_keepAlive(std::move(keepAlive)) {}

  private:
    std::shared_ptr<void> m_keepAlive;
};

/// An observable value. A subscriber is called immediately with the current value and then after
/// each assignment, when get() already returns the new value. Not thread-safe.
template <typename T>
class Published {
  public:
    using Subscriber = std::function<void(const T&)>;

    Published() = default;
    explicit Published(T value) : m_value(std::move(value)) {}
    Published(const Published&) = delete;
    Published& operator=(const Published&) = delete;

    const T& get() const { return m_value; }

    void set(T value) {
        m_value = std::move(value);
        const auto subscribers =
            *m_subscribers; // a copy, because a subscriber may subscribe or unsubscribe
        for (const auto& [id, subscriber] : subscribers)
            if (m_subscribers->contains(id))
                subscriber(m_value);
    }

    Subscription subscribe(Subscriber subscriber) {
        subscriber(m_value);
        const int id = m_nextId++;
        m_subscribers->emplace(id, std::move(subscriber));
        std::weak_ptr<Subscribers> weak = m_subscribers;
        return Subscription(std::shared_ptr<void>(nullptr, [weak, id](void*) {
            if (const auto subscribers = weak.lock())
                subscribers->erase(id);
        }));
    }

  private:
    using Subscribers = std::map<int, Subscriber>;

    T m_value{};
    std::shared_ptr<Subscribers> m_subscribers = std::make_shared<Subscribers>();
    int m_nextId = 0;
};

} // namespace vexmoor
