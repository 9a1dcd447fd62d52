#pragma once

#include "MenuEntry.h"

#include "skins/Skin.h"

#include <QMenu>

#include <functional>
#include <vector>

namespace vexmoor {

/// The cauldron's menu as our own popup in the skin's colours, with the graphical header. Deletes
/// itself when closed. Main thread.
class PopupMenu : public QMenu {
    Q_OBJECT

  public:
    /// `makeHeader` creates the header as a child of the menu. `translucent` is true if windows can
    /// be translucent.
    PopupMenu(const std::vector<MenuEntry>& entries,
              const std::function<QWidget*(QWidget* parent)>& makeHeader, const Skin& skin,
              bool translucent);

  private:
    void addHeader(QWidget* header);
};

} // namespace vexmoor
