#pragma once

#include <QTranslator>

namespace vexmoor {

/// Has tr() ask the catalogue that text() asks. Contexts are not looked at: a text means the same
/// everywhere.
class GettextTranslator : public QTranslator {
    Q_OBJECT

  public:
    using QTranslator::QTranslator;

    [[nodiscard]] bool isEmpty() const override { return false; }

    [[nodiscard]] QString translate(const char* context, const char* source,
                                    const char* disambiguation = nullptr,
                                    int count = -1) const override;
};

/// Installs it for as long as the application lives, and Qt's own catalogue below it, where that is
/// on this system. Before the first window.
void installTranslators();

} // namespace vexmoor
