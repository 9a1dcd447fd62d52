#pragma once

#include <QTranslator>

namespace vexmoor {

/// Makes tr() use the catalogue of text(). Ignores contexts: a text has one translation everywhere.
class GettextTranslator : public QTranslator {
    Q_OBJECT

  public:
    using QTranslator::QTranslator;

    [[nodiscard]] bool isEmpty() const override { return false; }

    [[nodiscard]] QString translate(const char* context, const char* source,
                                    const char* disambiguation = nullptr,
                                    int count = -1) const override;
};

/// Installs the translator for the application's lifetime, and Qt's own catalogue behind it if it
/// is installed. Call before creating the first window.
void installTranslators();

} // namespace vexmoor
