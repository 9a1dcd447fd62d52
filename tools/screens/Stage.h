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

/// The environment in which windows are rendered: sample stores with the scene's skin and mode, in
/// the colours of a light or dark desktop.
class Stage {
  public:
    Stage(std::filesystem::path folder, bool isDark, double scale);

    test::SampleStores& stores() { return m_stores; }

    /// Keeps an object that a window uses but does not own until the picture is taken.
    template <typename T, typename... Arguments>
    T& make(Arguments&&... arguments) {
        auto made = std::make_shared<T>(std::forward<Arguments>(arguments)...);
        m_kept.push_back(made);
        return *made;
    }

    /// Shows the window at that size (default: its own) and writes
    /// <folder>/<name>-<light|dark>-<scale>x.png. Returns whether it was written.
    bool picture(QWidget& window, const std::string& name, QSize size);

  private:
    std::filesystem::path m_folder;
    std::string m_suffix;
    test::SampleStores m_stores;
    std::vector<std::shared_ptr<void>> m_kept;
};

/// A window to render.
struct Scene {
    const char* name;
    QSize size; ///< in points; empty for the window's own size
    std::function<std::unique_ptr<QWidget>(Stage&)> make;
};

/// Returns all scenes in program order.
const std::vector<Scene>& scenes();

} // namespace vexmoor::screens
