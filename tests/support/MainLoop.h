#pragma once

#include "support/BackgroundProgram.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>

#include <gtest/gtest.h>

#include <memory>

// Helpers for tests that need Qt's main loop. Header only, since not all tests link Qt.

namespace vexmoor::test {

/// Owns an application without a screen during the tests. A test program defines `const auto* const
/// kApplication = testing::AddGlobalTestEnvironment(new ApplicationEnvironment<QCoreApplication>);`
template <typename Application>
class ApplicationEnvironment : public testing::Environment {
    void SetUp() override {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        m_application = std::make_unique<Application>(m_count, m_arguments);
    }
    void TearDown() override { m_application.reset(); }

    int m_count = 1;
    char m_name[5] = "test";
    char* m_arguments[2] = {m_name, nullptr};
    std::unique_ptr<Application> m_application;
};

/// Runs the main loop until the condition holds. Returns false after 30 seconds.
inline bool eventuallyInLoop(const std::function<bool()>& condition) {
    return eventually([&condition] {
        QCoreApplication::processEvents();
        return condition();
    });
}

/// Waits until these connections have received everything they sent to one another, in this order.
inline void deliverMessages(std::initializer_list<const char*> connections) {
    for (const char* name : connections) // the bus replies after it has delivered earlier messages
        EXPECT_TRUE(
            QDBusConnection(name).interface()->serviceOwner("org.freedesktop.DBus").isValid());
    QCoreApplication::processEvents();
}

} // namespace vexmoor::test
