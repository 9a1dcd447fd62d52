#pragma once

#include "DesktopSession.h"

#include <memory>
#include <ostream>

namespace vexmoor::test {

/// A file manager that the tests can control.
struct DrivenFileManager {
    const char* program;
    const char* className;
    QRgb selection;     ///< its selection colour; only for drags
    const char* rename; ///< keys that start renaming the selected file
    const char* search; ///< keys that start a search

    static const DrivenFileManager kThunar;
    static const DrivenFileManager kPcmanfmQt;
    static const DrivenFileManager kNautilus;
    static const DrivenFileManager kNemo;
    static const DrivenFileManager kCaja;
    static const DrivenFileManager kDolphin;

    friend void PrintTo(const DrivenFileManager& manager, std::ostream* out) {
        *out << manager.program;
    }
};

/// A window of a file manager that shows a folder. The destructor ends the file manager.
class FileManagerWindow {
  public:
    /// Opens the window in the corner of the screen. `folder` is a path or a URI; `changes` are
    /// applied to the environment. Throws if no window appears.
    FileManagerWindow(DesktopSession& session, const DrivenFileManager& manager,
                      const std::string& folder,
                      const BackgroundProgram::Environment& changes = {});

    /// Selects all items when that many are shown; false if that never happens.
    [[nodiscard]] bool selectAll(std::size_t count);
    [[nodiscard]] xcb_window_t id() const { return window().value().id; }
    [[nodiscard]] QPoint middle() const { return window().value().frame.center(); }
    /// Drags the selection with the mouse. Returns false if no selected item is visible.
    [[nodiscard]] bool dragSelection(QPoint to);

  private:
    [[nodiscard]] std::optional<SeenWindow> window() const;
    [[nodiscard]] std::size_t copiedItems() const;
    [[nodiscard]] std::optional<QPoint> selectedPoint() const;

    DesktopSession& m_session;
    const DrivenFileManager& m_manager;
    std::unique_ptr<BackgroundProgram> m_program;
};

} // namespace vexmoor::test
