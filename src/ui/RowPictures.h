#pragma once

#include "base/Uuid.h"
#include "thumbnails/BinnedPictures.h"

#include <QObject>

#include <functional>
#include <map>
#include <set>

namespace vexmoor {

/// Loads an item's picture. Calls the completion at most once, later.
using LoadPicture = std::function<void(const Sacrifice&, BinnedPictures::Completion)>;

/// The pictures of a list's rows, loaded on first use. Main thread.
class RowPictures : public QObject {
    Q_OBJECT

  public:
    RowPictures(LoadPicture load, QObject* parent);

    /// Returns the picture, or null until it is loaded. The first call starts loading.
    [[nodiscard]] ItemPicture find(const Sacrifice& item);

    /// Drops the pictures of all other items.
    void retain(const std::set<Uuid>& items);

  signals:
    void loaded(const vexmoor::Uuid& item);

  private:
    LoadPicture m_load;
    std::map<Uuid, ItemPicture> m_pictures;
};

} // namespace vexmoor
