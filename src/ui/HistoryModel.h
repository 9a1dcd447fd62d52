#pragma once

#include "RowPictures.h"

#include "disposal/Sacrifice.h"

#include <QAbstractListModel>
#include <QLocale>

#include <optional>
#include <vector>

namespace vexmoor {

/// The history items as rows. Emits changes only for rows that changed. Main thread.
class HistoryModel : public QAbstractListModel {
    Q_OBJECT

  public:
    enum Role {
        statusRole = Qt::UserRole, ///< "In the Bin · 2.1 MB · 14:02"
        shortStatusRole,           ///< "In the Bin · 14:02"
        previewRole,               ///< whether the decoration is a preview instead of an icon
    };

    HistoryModel(LoadPicture load, QObject* parent);

    /// Sets the items, newest first. Times are formatted relative to `now`.
    void setItems(std::vector<Sacrifice> items, Date now);
    [[nodiscard]] const std::vector<Sacrifice>& items() const { return m_items; }
    [[nodiscard]] const Sacrifice& at(const QModelIndex& index) const;
    [[nodiscard]] QModelIndex indexOf(const Uuid& item) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    [[nodiscard]] Qt::DropActions supportedDragActions() const override { return Qt::CopyAction; }

  signals:
    /// A row's item was put back.
    void restored(const vexmoor::Uuid& item);

  private:
    void removeOthers(const std::vector<Sacrifice>& items);
    void update(int row, const Sacrifice& item);
    void setNow(Date now);

    std::vector<Sacrifice> m_items;
    Date m_now;
    QLocale m_locale;
    RowPictures* m_pictures;
};

} // namespace vexmoor
