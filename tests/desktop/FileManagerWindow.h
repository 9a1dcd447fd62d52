#pragma once

#include "DesktopSession.h"

#include <memory>
#include <ostream>

namespace vexmoor::test {

/// A file manager of the desktop, as a program that the tests can drive.
struct DrivenFileManager {
    const char* program;
    const char* className;
    QRgb selection;     ///< what it paints behind what is selected; of those that drag
    const char* rename; ///< keys that begin to rename the selected file
    const char* search; ///< keys that begin a search

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

/// A window of a file manager on a folder. The file manager ends with it.
class FileManagerWindow {
  public:
    /// In the corner of the screen. `folder` is a path or a URI; `changes` to the environment.
    /// Throws where no window comes.
    FileManagerWindow(DesktopSession& session, const DrivenFileManager& manager,
                      const std::string& folder,
                      const BackgroundProgram::Environment& changes = {});

    /// Selects all items as soon as there are so many; false where there never are.
    [[nodiscard]] bool selectAll(std::size_t count);
    [[nodiscard]] xcb_window_t id() const { return window().value().id; }
    [[nodiscard]] QPoint middle() const { return window().value().frame.center(); }
    /// Drags by the mouse what is selected. False where nothing of it can be seen.
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
