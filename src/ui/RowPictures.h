#pragma once

#include "base/Uuid.h"
#include "thumbnails/BinnedPictures.h"

#include <QObject>

#include <functional>
#include <map>
#include <set>

namespace vexmoor {

/// Loads the picture of an item and calls the completion once, later or never.
using LoadPicture = std::function<void(const Sacrifice&, BinnedPictures::Completion)>;

/// The pictures of a list's rows, each loaded when it is first needed. Main thread.
class RowPictures : public QObject {
    Q_OBJECT

  public:
    RowPictures(LoadPicture load, QObject* parent);

    /// The picture, null until it was loaded; the first call starts that.
    [[nodiscard]] ItemPicture find(const Sacrifice& item);

    /// Forgets those of other items.
    void retain(const std::set<Uuid>& items);

  signals:
    void loaded(const vexmoor::Uuid& item);

  private:
    LoadPicture m_load;
    std::map<Uuid, ItemPicture> m_pictures;
};

} // namespace vexmoor
