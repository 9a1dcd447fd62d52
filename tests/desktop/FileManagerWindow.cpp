#include "FileManagerWindow.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace vexmoor::test {
namespace {

/// Returns the first horizontal run of at least that many pixels in the colour.
std::optional<QRect> firstRun(const QImage& picture, QRgb colour, int shortest) {
    for (int y = 0; y < picture.height(); ++y) {
        int length = 0;
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) == colour)
                ++length;
            else if (length >= shortest)
                return QRect(x - length, y, length, 1);
            else
                length = 0;
        }
    }
    return std::nullopt;
}

} // namespace

const DrivenFileManager DrivenFileManager::kThunar{"thunar", "Thunar", 0xff3584e4, "F2", "ctrl+f"};
const DrivenFileManager DrivenFileManager::kPcmanfmQt{"pcmanfm-qt", "pcmanfm-qt", 0xff308cc6, "F2",
                                                      "ctrl+i"};
const DrivenFileManager DrivenFileManager::kNautilus{"nautilus", "org.gnome.Nautilus", 0, "F2",
                                                     "ctrl+f"};
const DrivenFileManager DrivenFileManager::kNemo{"nemo", "Nemo", 0, "F2", "ctrl+f"};
const DrivenFileManager DrivenFileManager::kCaja{"caja", "Caja", 0, "F2", "ctrl+f"};
const DrivenFileManager DrivenFileManager::kDolphin{"dolphin", "dolphin", 0, "F2", "ctrl+i"};

FileManagerWindow::FileManagerWindow(DesktopSession& session, const DrivenFileManager& manager,
                                     const std::string& folder,
                                     const BackgroundProgram::Environment& changes)
    : m_session(session), m_manager(manager) {
    const auto shows = [&] {
        m_program.reset();
        m_program.reset(new BackgroundProgram(session.start({manager.program, folder}, changes)));
        return eventually([this] { return window().has_value(); });
    };
    // Start it twice: rarely a file manager shows no window, which these tests are not about.
    if (!shows() && !shows()) {
        session.screen().keepPicture(std::string("without-") + manager.program);
        throw std::runtime_error(std::string(manager.program) + " shows no window");
    }
    m_session.xdotool("windowmove --sync " + std::to_string(window().value().id) + " 10 40");
}

bool FileManagerWindow::selectAll(std::size_t count) {
    const bool areSelected = eventually([&] {
        m_session.click(middle());
        const auto active = m_session.screen().active();
        if (!active || active->className != m_manager.className)
            return false;
        m_session.xdotool("key ctrl+a sleep 0.1 key ctrl+c sleep 0.1"); // a user's speed
        return copiedItems() == count;
    });
    if (!areSelected)
        m_session.screen().keepPicture(std::string("not-selected-") + m_manager.program);
    return areSelected;
}

bool FileManagerWindow::dragSelection(QPoint to) {
    std::optional<QPoint>
        from; // items that have just moved may still be painted at their old position
    const auto staysThere = [&] {
        const auto before = std::exchange(from, selectedPoint());
        return from && from == before;
    };
    if (!eventually(staysThere))
        return false;
    m_session.drag(*from, to);
    return true;
}

std::optional<SeenWindow> FileManagerWindow::window() const {
    return m_session.screen().find([this](const SeenWindow& window) {
        return window.isManaged && window.className == m_manager.className;
    });
}

/// Returns the number of items that the file manager put on the clipboard.
std::size_t FileManagerWindow::copiedItems() const {
    const auto uris =
        m_session.command({"xclip", "-out", "-selection", "clipboard", "-target", "text/uri-list"})
            .run();
    const auto lines = std::count(uris.output.begin(), uris.output.end(), '\n');
    const bool endsWithin = !uris.output.empty() && uris.output.back() != '\n';
    return static_cast<std::size_t>(lines) + (endsWithin ? 1 : 0);
}

/// Returns the centre of the area in the selection colour that starts with the first run wider than
/// a letter.
std::optional<QPoint> FileManagerWindow::selectedPoint() const {
    constexpr int kRun = 20;
    const QRect frame = window().value().frame;
    const QImage picture = m_session.screen().picture().copy(frame);
    const auto run = firstRun(picture, m_manager.selection, kRun);
    if (!run)
        return std::nullopt;
    QRect item = *run;
    while (countOf(picture.copy(run->translated(0, item.height())), {m_manager.selection}) > 0)
        item.setHeight(item.height() + 1);
    return frame.topLeft() + item.center();
}

} // namespace vexmoor::test
