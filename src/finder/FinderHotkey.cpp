#include "FinderHotkey.h"

#include <utility>

namespace vexmoor {

namespace {

bool isMousePress(InputEvent::Type type) {
    using Type = InputEvent::Type;
    return type == Type::leftMouseDown || type == Type::rightMouseDown ||
           type == Type::otherMouseDown;
}

bool isUndoKey(const InputEvent& event) {
    return event.characters == "z" || event.characters == "Z";
}

} // namespace

FinderHotkey::FinderHotkey(Parts parts) : m_parts(std::move(parts)) {}

FinderHotkey::~FinderHotkey() {
    stop();
}

void FinderHotkey::start() {
    if (m_isLive || install())
        return;
    m_parts.retry->start(FrameTimer::Interval(kRetrySeconds), [this] {
        if (install())
            m_parts.retry->stop();
    });
}

bool FinderHotkey::install() {
    if (!m_parts.isTrusted())
        return false;
    m_isLive = m_parts.tap.install([this](const InputEvent& event) { return handle(event); });
    return m_isLive;
}

void FinderHotkey::stop() {
    m_parts.retry->stop();
    if (std::exchange(m_isLive, false))
        m_parts.tap.remove();
    disarm();
}

void FinderHotkey::disarm() {
    const std::lock_guard lock(m_mutex);
    setArmed(false);
}

bool FinderHotkey::undoArmed() const {
    const std::lock_guard lock(m_mutex);
    return m_undoArmed;
}

bool FinderHotkey::fedByMenuCommand() {
    const std::lock_guard lock(m_mutex);
    if (std::exchange(m_keyPassed, false)) {
        setArmed(true);
        return true;
    }
    return false;
}

void FinderHotkey::setArmed(bool armed) {
    if (std::exchange(m_undoArmed, armed) != armed)
        m_parts.tap.captureUndoKey(armed);
}

Verdict FinderHotkey::handle(const InputEvent& event) {
    using Type = InputEvent::Type;
    if (event.type == Type::tapDisabledByTimeout || event.type == Type::tapDisabledByUserInput) {
        m_parts.tap.enable();
        return Verdict::pass;
    }
    const std::lock_guard lock(m_mutex);
    if (isMousePress(event.type)) {
        m_keyPassed = false;
        setArmed(false);
        return Verdict::pass;
    }
    if (event.type != Type::keyDown)
        return Verdict::pass;
    if (event.isRepeat)
        return m_swallowing == event.keyCode ? Verdict::swallow : Verdict::pass;
    return handlePress(event);
}

Verdict FinderHotkey::handlePress(const InputEvent& event) {
    const bool wasArmed = m_undoArmed;
    m_swallowing.reset();
    m_keyPassed = false;
    // The tap keeps capturing Ctrl+Z until the decision about this press.
    m_undoArmed = false;
    Verdict verdict = Verdict::pass;
    const bool isShortcut = (event.flags & InputEvent::kModifiers) == InputEvent::kCommand;
    if (isShortcut && m_parts.workspace.frontmostApplication() == Workspace::kFinder) {
        if (wasArmed && isUndoKey(event) && event.canBeSwallowed)
            verdict = undo(event);
        else if (event.keyCode == InputEvent::kBackspace && !event.canBeSwallowed)
            m_keyPassed = true;
        else if (event.keyCode == InputEvent::kBackspace && !m_parts.focus.isText())
            verdict = trigger();
    }
    if (wasArmed != m_undoArmed)
        m_parts.tap.captureUndoKey(m_undoArmed);
    return verdict;
}

Verdict FinderHotkey::undo(const InputEvent& event) {
    if (m_parts.focus.isText())
        return Verdict::pass;
    m_swallowing = event.keyCode;
    m_parts.main.post([this] {
        if (onUndo)
            onUndo();
    });
    return Verdict::swallow;
}

Verdict FinderHotkey::trigger() {
    m_swallowing = InputEvent::kBackspace;
    m_undoArmed = true;
    if (!std::exchange(m_querying, true))
        m_parts.main.post([this] { querySelection(); });
    return Verdict::swallow;
}

void FinderHotkey::querySelection() {
    m_parts.selection.query([this](const SelectionResult& result) { finishQuery(result); });
}

void FinderHotkey::finishQuery(const SelectionResult& result) {
    if (const auto* const selection = std::get_if<Selection>(&result)) {
        if (onTrigger)
            onTrigger(*selection);
    } else {
        fail(std::get<SelectionError>(result));
    }
    const std::lock_guard lock(m_mutex);
    m_querying = false;
}

void FinderHotkey::fail(SelectionError error) {
    disarm();
    if (error != SelectionError::notPermitted || std::exchange(m_reportedDenial, true))
        m_parts.beep();
    else if (onAutomationDenied)
        onAutomationDenied();
}

} // namespace vexmoor
