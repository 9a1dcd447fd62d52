#include "RowPictures.h"

#include <QPointer>

namespace vexmoor {

RowPictures::RowPictures(LoadPicture load, QObject* parent)
    : QObject(parent), m_load(std::move(load)) {}

ItemPicture RowPictures::find(const Sacrifice& item) {
    const auto [found, isNew] = m_pictures.try_emplace(item.id);
    if (isNew && m_load) {
        const ItemPicture before = found->second; // a copy, since the call may change the map
        m_load(item, [self = QPointer(this), id = item.id](const ItemPicture& picture) {
            if (!self || picture.image.isNull() || !self->m_pictures.contains(id))
                return;
            self->m_pictures[id] = picture;
            emit self->loaded(id);
        });
        return before;
    }
    return found->second;
}

void RowPictures::retain(const std::set<Uuid>& items) {
    std::erase_if(m_pictures, [&](const auto& entry) { return !items.contains(entry.first); });
}

} // namespace vexmoor
