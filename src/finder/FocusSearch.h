#pragma once

#include <QDBusConnection>
#include <QString>

#include <optional>
#include <vector>

namespace vexmoor {

/// Looks for a focused element in the trees of programs on the accessibility bus. Blocks; any
/// thread.
class FocusSearch {
  public:
    struct Reference {
        QString service;
        QString path;
    };

    explicit FocusSearch(QDBusConnection bus) : m_bus(std::move(bus)) {}

    /// The roots of all programs.
    [[nodiscard]] std::vector<Reference> programs() const;

    /// The innermost focused element on the screen; nullopt if there is none among the first
    /// hundreds, or the program does not answer in time.
    [[nodiscard]] std::optional<Reference> focusedIn(const Reference& program) const;

  private:
    [[nodiscard]] std::vector<Reference> childrenOf(const Reference& element) const;
    [[nodiscard]] unsigned stateOf(const Reference& element) const;

    QDBusConnection m_bus;
};

} // namespace vexmoor
