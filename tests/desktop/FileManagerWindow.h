#pragma once

#include "DesktopSession.h"

#include <memory>
#include <ostream>

namespace vexmoor::test {

/// A file manager of the desktop, as a program that the tests can drive.
struct FileManager {
    const char* program;
    const char* className;
    QRgb selection; ///< what it paints behind what is selected

    static const FileManager kThunar;
    static const FileManager kPcmanfmQt;

    friend void PrintTo(const FileManager& manager, std::ostream* out) { *out << manager.program; }
};

/// A window of a file manager on a folder. The file manager ends with it.
class FileManagerWindow {
  public:
    /// In the corner of the screen. `folder` is a path or a URI; `changes` to the environment.
    /// Throws where no window comes.
    FileManagerWindow(DesktopSession& session, const FileManager& manager,
                      const std::string& folder,
                      const BackgroundProgram::Environment& changes = {});

    /// Selects all items as soon as there are so many; false where there never are.
    [[nodiscard]] bool selectAll(std::size_t count);
    /// Drags by the mouse what is selected. False where nothing of it can be seen.
    [[nodiscard]] bool dragSelection(QPoint to);

  private:
    [[nodiscard]] std::optional<SeenWindow> window() const;
    [[nodiscard]] std::size_t copiedItems() const;
    [[nodiscard]] std::optional<QPoint> selectedPoint() const;

    DesktopSession& m_session;
    const FileManager& m_manager;
    std::unique_ptr<BackgroundProgram> m_program;
};

} // namespace vexmoor::test
