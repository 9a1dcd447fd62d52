#pragma once

#include "app/Alerts.h"
#include "app/FileManagerKey.h"
#include "app/MainLoop.h"

#include "desktopbus/FakeService.h"
#include "intake/IntakeFixture.h"
#include "support/MainLoop.h"
#include "support/ManualTimer.h"
#include "support/PrivateBus.h"
#include "ui/AccentButton.h"

#include <QApplication>

#include <algorithm>

namespace vexmoor::test {

/// The dependencies of the windows, in a session without key capturing, accessibility service and
/// programs, except for the test's file managers.
class WiredParts : public IntakeTest {
  protected:
    WiredParts() { qputenv("PATH", QByteArray::fromStdString(home / "programs")); }
    ~WiredParts() override {
        qputenv("PATH", m_path);
        for (const char* const name : {"program", "services"})
            QDBusConnection::disconnectFromBus(name);
    }

    [[nodiscard]] QDBusConnection connection(const char* name) const {
        return QDBusConnection::connectToBus(QString::fromStdString(bus.address()), name);
    }
    void installProgram(const std::string& name, const std::string& script) const {
        std::filesystem::permissions(home.write(Path("programs") / name, "#!/bin/sh\n" + script),
                                     std::filesystem::perms::owner_all);
    }
    /// Applies settings and consent, with these file managers installed.
    void beginWith(const std::vector<std::string>& managers) {
        for (const std::string& manager : managers)
            installProgram(manager, "exit 0\n");
        key.begin();
        ASSERT_TRUE(eventuallyInLoop([this] { return key.outlook().states.has_value(); }));
    }

    /// Timers that the test fires.
    [[nodiscard]] MakeFrameTimer makeTimer() {
        return [this] {
            struct Listed : ManualTimer {
                explicit Listed(std::vector<ManualTimer*>& all) : m_all(all) {
                    m_all.push_back(this);
                }
                ~Listed() override { std::erase(m_all, this); }

              private:
                std::vector<ManualTimer*>& m_all;
            };
            return std::make_unique<Listed>(m_timers);
        };
    }
    /// Fires the one-second timers by which windows query the session again.
    void poll() const {
        for (ManualTimer* const timer : std::vector(m_timers))
            if (timer->fire && timer->seconds == 1)
                timer->fire();
    }

    /// Returns the shown window of that type; null if there is none.
    template <typename Window>
    [[nodiscard]] static Window* shown() {
        for (QWidget* const widget : QApplication::topLevelWidgets())
            if (auto* const window = qobject_cast<Window*>(widget); window && window->isVisible())
                return window;
        return nullptr;
    }
    /// Presses the button with that text as soon as it is shown.
    void pressButton(QWidget& in, const QString& text) const {
        AccentButton* button = nullptr;
        EXPECT_TRUE(eventuallyInLoop([&] {
            poll();
            for (auto* const one : in.findChildren<AccentButton*>())
                if (one->text() == text && one->isVisible())
                    button = one;
            return button != nullptr;
        })) << text.toStdString();
        if (button)
            button->click();
    }
    [[nodiscard]] bool tells(const QString& sentence) const {
        return eventuallyInLoop([&] {
            const auto* const box = shown<QMessageBox>();
            return box && box->text() == sentence;
        });
    }

  private:
    std::vector<ManualTimer*> m_timers;
    QByteArray m_path = qgetenv("PATH");

  protected:
    PrivateBus bus;
    MainLoop main;
    Alerts alerts;
    AccessibilityBus accessibility{connection("program")};
    FileManagerKey key{{*program->defaults, program->settings, around, around, main, accessibility,
                        connection("program"),
                        IntegrationContext{.directories = {home.path(), home / ".local/share",
                                                           geteuid(), home / ".config"},
                                           .program = "/usr/bin/vexmoor",
                                           .desktopProgram = std::nullopt,
                                           .searchPath = home / "programs",
                                           .configDirs = home / "system"}}};
};

} // namespace vexmoor::test
