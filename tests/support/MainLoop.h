#pragma once

#include "support/BackgroundProgram.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>

#include <gtest/gtest.h>

#include <memory>

// For the tests of what needs Qt's main loop; header only, since other tests have no Qt.

namespace vexmoor::test {

/// An application without a screen, as long as the tests run: one line in a test program is
/// `const auto* const kApplication = testing::AddGlobalTestEnvironment(new
/// ApplicationEnvironment<QCoreApplication>);`
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

/// Runs the main loop until the condition holds; false where it does not in half a minute.
inline bool eventuallyInLoop(const std::function<bool()>& condition) {
    return eventually([&condition] {
        QCoreApplication::processEvents();
        return condition();
    });
}

/// Lets everything arrive that these connections, in their order, have sent to one another.
inline void settle(std::initializer_list<const char*> connections) {
    for (const char* name : connections) // the bus answers when it has handed on what came before
        EXPECT_TRUE(
            QDBusConnection(name).interface()->serviceOwner("org.freedesktop.DBus").isValid());
    QCoreApplication::processEvents();
}

} // namespace vexmoor::test
