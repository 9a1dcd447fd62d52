#pragma once

#include <QDBusConnection>
#include <QString>

#include <optional>
#include <vector>

namespace vexmoor {

/// Searches the trees of programs on the accessibility bus for the focused element. Blocks;
/// thread-safe.
class FocusSearch {
  public:
    struct Reference {
        QString service;
        QString path;
    };

    explicit FocusSearch(QDBusConnection bus) : m_bus(std::move(bus)) {}

    /// Returns the root element of each program.
    [[nodiscard]] std::vector<Reference> programs() const;

    /// Returns the innermost focused visible element; nullopt if there is none among the first few
    /// hundred elements or the program does not reply in time.
    [[nodiscard]] std::optional<Reference> focusedIn(const Reference& program) const;

  private:
    [[nodiscard]] std::vector<Reference> childrenOf(const Reference& element) const;
    [[nodiscard]] unsigned stateOf(const Reference& element) const;

    QDBusConnection m_bus;
};

} // namespace vexmoor
