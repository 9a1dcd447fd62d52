#include <QGuiApplication>

#include <gtest/gtest.h>

#include <memory>

namespace {

/// What icons and the bus need: an application, without a screen.
class Application : public testing::Environment {
    void SetUp() override {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        m_application = std::make_unique<QGuiApplication>(m_count, m_arguments);
    }
    void TearDown() override { m_application.reset(); }

    int m_count = 1;
    char m_name[5] = "test";
    char* m_arguments[2] = {m_name, nullptr};
    std::unique_ptr<QGuiApplication> m_application;
};

[[maybe_unused]] const testing::Environment* const kApplication =
    testing::AddGlobalTestEnvironment(new Application);

} // namespace
