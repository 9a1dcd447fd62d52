#include "FocusSearch.h"

#include <QDBusArgument>
#include <QDBusMessage>

#include <chrono>
#include <deque>
#include <ranges>

namespace vexmoor {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kTimeoutMilliseconds = 100;
constexpr std::chrono::milliseconds kWhole{500};
constexpr int kMostElements = 400;

/// Bits of AtspiStateType.
constexpr unsigned kFocused = 1u << 12;
constexpr unsigned kShowing = 1u << 25;

QList<QVariant> ask(const QDBusConnection& bus, const FocusSearch::Reference& element,
                    const char* method) {
    const auto answer =
        bus.call(QDBusMessage::createMethodCall(element.service, element.path,
                                                QStringLiteral("org.a11y.atspi.Accessible"),
                                                QString::fromLatin1(method)),
                 QDBus::Block, kTimeoutMilliseconds);
    return answer.type() == QDBusMessage::ReplyMessage ? answer.arguments() : QList<QVariant>();
}

} // namespace

std::vector<FocusSearch::Reference> FocusSearch::programs() const {
    return childrenOf({QStringLiteral("org.a11y.atspi.Registry"),
                       QStringLiteral("/org/a11y/atspi/accessible/root")});
}

std::vector<FocusSearch::Reference> FocusSearch::childrenOf(const Reference& element) const {
    std::vector<Reference> children;
    const auto answer = ask(m_bus, element, "GetChildren");
    if (answer.isEmpty())
        return children;
    const auto list = answer.constFirst().value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        Reference child;
        QDBusObjectPath path;
        list.beginStructure();
        list >> child.service >> path;
        list.endStructure();
        child.path = path.path();
        children.push_back(std::move(child));
    }
    list.endArray();
    return children;
}

unsigned FocusSearch::stateOf(const Reference& element) const {
    const auto answer = ask(m_bus, element, "GetState");
    const auto words =
        answer.isEmpty() ? QList<uint>() : qdbus_cast<QList<uint>>(answer.constFirst());
    return words.isEmpty() ? 0 : words.constFirst();
}

std::optional<FocusSearch::Reference> FocusSearch::focusedIn(const Reference& program) const {
    const auto deadline = Clock::now() + kWhole;
    std::optional<Reference> found;
    std::deque<Reference> waiting{program};
    for (int i = 0; i < kMostElements && !waiting.empty() && Clock::now() < deadline; ++i) {
        const Reference element = waiting.front();
        waiting.pop_front();
        for (const Reference& child : std::views::reverse(childrenOf(element))) {
            const unsigned state = stateOf(child);
            if ((state & kFocused) != 0)
                found = child;
            if ((state & kShowing) != 0)
                waiting.push_front(child);
        }
    }
    return found;
}

} // namespace vexmoor
