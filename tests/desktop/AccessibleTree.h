#pragma once

#include <QDBusConnection>
#include <QRect>

#include <string>
#include <vector>

namespace vexmoor::test {

/// What a screen reader knows of one element of a program.
struct AccessibleElement {
    QString role; ///< as AT-SPI names it: "push button"
    std::string name;
    std::string description;
    QRect place; ///< on the screen, in what the program takes for pixels
    bool isShowing = false;
    bool isEnabled = false;
    bool isChecked = false;
};

/// Reads programs as a screen reader does, over the accessibility bus of a session.
class AccessibleTree {
  public:
    explicit AccessibleTree(const QDBusConnection& session);
    ~AccessibleTree();
    AccessibleTree(const AccessibleTree&) = delete;
    AccessibleTree& operator=(const AccessibleTree&) = delete;

    /// All elements of the program, each before its children; none where no such program shows
    /// itself.
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
