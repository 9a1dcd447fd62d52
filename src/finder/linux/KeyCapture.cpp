#include "finder/KeyCapture.h"

#include "X11EventTap.h"
#include "X11FinderSelection.h"

#include "finder/FocusTracker.h"

#include <QGuiApplication>

#include <utility>

namespace vexmoor {

namespace {

/// Captures keys with X11 grabs, synthesised keys and the accessibility bus.
class X11KeyCapture : public KeyCapture, public EventTap {
  public:
    explicit X11KeyCapture(Parts parts)
        : m_focus(parts.session, std::move(parts.programIsInvisible)),
          m_tap({.bindsKeyItself = std::move(parts.bindsKeyItself),
                 .keyIsHeld = std::move(parts.keyIsHeld),
                 .fileManagerActivated = [this](auto process) { m_focus.setProcess(process); },
                 .userActed = [this] { m_selection.userActed(); }}),
          m_selection(
              parts.automation, parts.main, parts.session, [this] { m_tap.waitForRelease(); },
              [this](std::uint8_t key) { m_tap.ignoreNext(key); }) {}

    [[nodiscard]] bool isPossible() const override { return true; }
    EventTap& tap() override { return *this; }
    Workspace& workspace() override { return m_tap; }
    FocusedElement& focus() override { return m_focus; }
    FinderSelection& selection() override { return m_selection; }
    void refresh() override { m_tap.refresh(); }

    /// Tracks the focus only while keys are captured.
    bool install(Handler handler) override {
        m_focus.start();
        const bool isInstalled = m_tap.install(std::move(handler));
        if (!isInstalled)
            m_focus.stop();
        return isInstalled;
    }
    void enable() override { m_tap.enable(); }
    void remove() override {
        m_tap.remove();
        m_focus.stop();
    }
    void captureUndoKey(bool captures) override { m_tap.captureUndoKey(captures); }

  private:
    FocusTracker m_focus;
    X11EventTap m_tap;
    X11FinderSelection m_selection;
};

class NoKeyCapture : public KeyCapture,
                     public EventTap,
                     public Workspace,
                     public FocusedElement,
                     public FinderSelection {
  public:
    [[nodiscard]] bool isPossible() const override { return false; }
    EventTap& tap() override { return *this; }
    Workspace& workspace() override { return *this; }
    FocusedElement& focus() override { return *this; }
    FinderSelection& selection() override { return *this; }
    void refresh() override {}

    bool install(Handler) override { return false; }
    void enable() override {}
    void remove() override {}
    void captureUndoKey(bool) override {}
    std::optional<std::string> frontmostApplication() override { return std::nullopt; }
    bool isText() override { return true; }
    void query(Completion completion) override { completion(SelectionError::failed); }
};

/// Under Wayland, XWayland delivers only the keys of X11 windows.
bool isX11Session() {
    return QGuiApplication::platformName() == QStringLiteral("xcb") &&
           !qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
}

} // namespace

std::unique_ptr<KeyCapture> KeyCapture::forSession(Parts parts) {
    if (isX11Session())
        return std::make_unique<X11KeyCapture>(std::move(parts));
    return std::make_unique<NoKeyCapture>();
}

} // namespace vexmoor
