#pragma once

#include "MenuEntry.h"

#include "skins/Skin.h"

#include <QMenu>

#include <functional>
#include <vector>

namespace vexmoor {

/// The cauldron's menu as a popup of our own, in the skin's colours, with the rich header. It
/// is deleted when it is closed. Main thread.
class PopupMenu : public QMenu {
    Q_OBJECT

  public:
    /// `makeHeader` makes the header as a child of the menu. `translucent`: windows may be so.
    PopupMenu(const std::vector<MenuEntry>& entries,
              const std::function<QWidget*(QWidget* parent)>& makeHeader, const Skin& skin,
              bool translucent);

  private:
    void addHeader(QWidget* header);
};

} // namespace vexmoor
