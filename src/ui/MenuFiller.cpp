#include "MenuFiller.h"

#include "ClosureMenuItem.h"
#include "MenuStyle.h"

#include "base/Printable.h"

#include <QActionGroup>

namespace vexmoor {
namespace {

constexpr qsizetype kLongest = 60; ///< characters

/// Truncates without splitting a character.
QString shortened(const QString& text) {
    if (text.size() <= kLongest)
        return text;
    qsizetype head = kLongest / 2;
    qsizetype tail = text.size() - kLongest / 2;
    head -= text[head].isLowSurrogate() ? 1 : 0;
    tail += text[tail].isLowSurrogate() ? 1 : 0;
    return text.left(head) + QChar(0x2026) + text.mid(tail);
}

} // namespace

QString menuTitle(const MenuEntry& entry) {
    QString title = shortened(QString::fromStdString(printable(entry.title.toStdString())));
    title.replace('&', QStringLiteral("&&"));
    return QString(entry.indentation, MenuStyle::kIndentation) + title;
}

void MenuFiller::fill(QMenu& menu, const std::vector<MenuEntry>& entries) const {
    for (const MenuEntry& entry : entries) {
        switch (entry.kind) {
        case MenuEntry::Kind::header:
            addHeader(menu);
            break;
        case MenuEntry::Kind::separator:
            menu.addSeparator();
            break;
        case MenuEntry::Kind::section:
            addSection(menu, menuTitle(entry));
            break;
        case MenuEntry::Kind::item:
            addItem(menu, entry);
            break;
        case MenuEntry::Kind::submenu:
            fill(*addSubmenu(menu, menuTitle(entry)), entry.children);
            break;
        }
    }
}

void MenuFiller::addItem(QMenu& menu, const MenuEntry& entry) const {
    auto* const item = new ClosureMenuItem(menuTitle(entry), entry.run, &menu);
    item->setEnabled(entry.isEnabled);
    item->setToolTip(entry.toolTip);
    if (entry.checked) {
        item->setCheckable(true);
        item->setChecked(*entry.checked);
        if (entry.isChoice) {
            auto* group = menu.findChild<QActionGroup*>({}, Qt::FindDirectChildrenOnly);
            group = group != nullptr ? group : new QActionGroup(&menu);
            group->addAction(item);
        }
    }
    if (entry.symbol)
        item->setIcon(symbolIcon(*entry.symbol, symbolColour));
    menu.addAction(item);
}

} // namespace vexmoor
