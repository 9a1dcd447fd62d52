#include "PopupMenu.h"

#include "MenuFiller.h"
#include "MenuStyle.h"

#include <QWidgetAction>

namespace vexmoor {
namespace {

void makeRoom(QMenu& menu, bool translucent) {
    menu.setAttribute(Qt::WA_TranslucentBackground, translucent);
    menu.setToolTipsVisible(true);
}

} // namespace

PopupMenu::PopupMenu(const std::vector<MenuEntry>& entries,
                     const std::function<QWidget*(QWidget* parent)>& makeHeader, const Skin& skin,
                     bool translucent) {
    setAttribute(Qt::WA_DeleteOnClose);
    setAccessibleName(QStringLiteral("Vexmoor"));
    auto* const style = new MenuStyle(skin, translucent);
    style->setParent(this);
    setStyle(style);
    makeRoom(*this, translucent);
    const MenuFiller filler{
        .addHeader = [&](QMenu&) { addHeader(makeHeader(this)); },
        .addSection = [](QMenu& menu, const QString& title) { menu.addSection(title); },
        .addSubmenu =
            [style, translucent](QMenu& parent, const QString& title) {
                QMenu* const menu = parent.addMenu(title);
                menu->setStyle(style);
                makeRoom(*menu, translucent);
                return menu;
            },
        .symbolColour = Qt::black, // the style replaces it by the text's colour
    };
    filler.fill(*this, entries);
}

/// The header is disabled, so that the keyboard skips it.
void PopupMenu::addHeader(QWidget* header) {
    auto* const action = new QWidgetAction(this);
    action->setDefaultWidget(header);
    action->setEnabled(false);
    addAction(action);
}

} // namespace vexmoor
