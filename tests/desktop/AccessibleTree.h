#pragma once

#include <QDBusConnection>
#include <QRect>

#include <string>
#include <vector>

namespace vexmoor::test {

/// An element of a program as seen by a screen reader.
struct AccessibleElement {
    QString role; ///< AT-SPI role name: "push button"
    std::string name;
    std::string description;
    QRect place; ///< on the screen, in the program's pixels
    bool isShowing = false;
    bool isEnabled = false;
    bool isChecked = false;
};

/// Reads programs like a screen reader, over the accessibility bus of a session.
class AccessibleTree {
  public:
    explicit AccessibleTree(const QDBusConnection& session);
    ~AccessibleTree();
    AccessibleTree(const AccessibleTree&) = delete;
    AccessibleTree& operator=(const AccessibleTree&) = delete;

    /// Returns all elements of the program, each before its children; none if the program is
    /// not accessible.
    [[nodiscard]] std::vector<AccessibleElement> elementsOf(const std::string& program) const;

  private:
    struct Reference {
        QString service;
        QString path;
    };
    [[nodiscard]] std::vector<Reference> childrenOf(const Reference& element) const;
    [[nodiscard]] std::string nameOf(const Reference& element) const;
    [[nodiscard]] std::string propertyOf(const Reference& element, const char* property) const;
    void collect(const Reference& element, std::vector<AccessibleElement>& all) const;
    [[nodiscard]] QList<QVariant> ask(const Reference& element, const QString& interface,
                                      const QString& method,
                                      const QList<QVariant>& arguments = {}) const;

    QString m_connection;
};

} // namespace vexmoor::test
