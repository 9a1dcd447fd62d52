#pragma once

#include "support/SampleStores.h"

#include <QSize>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class QWidget;

namespace vexmoor::screens {

/// Where windows are shown and pictured: the sample stores, with the skin and the mode that the
/// scene wants, in the colours of a light or a dark desktop.
class Stage {
  public:
    Stage(std::filesystem::path folder, bool isDark, double scale);

    test::SampleStores& stores() { return m_stores; }

    /// What a window works with and does not own: lives until after the picture.
    template <typename T, typename... Arguments>
    T& make(Arguments&&... arguments) {
        auto made = std::make_shared<T>(std::forward<Arguments>(arguments)...);
        m_kept.push_back(made);
        return *made;
    }

    /// Shows the window at that size, its own one if that is empty, and writes
    /// <folder>/<name>-<light|dark>-<scale>x.png. \return whether it was written.
    bool picture(QWidget& window, const std::string& name, QSize size);

  private:
    std::filesystem::path m_folder;
    std::string m_suffix;
    test::SampleStores m_stores;
    std::vector<std::shared_ptr<void>> m_kept;
};

/// One thing to picture.
struct Scene {
    const char* name;
    QSize size; ///< in points; empty for the window's own
    std::function<std::unique_ptr<QWidget>(Stage&)> make;
};

/// All, in the order of the program.
const std::vector<Scene>& scenes();

} // namespace vexmoor::screens
