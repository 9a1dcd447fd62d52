#include "HistoryModel.h"

#include "HistoryText.h"

#include "base/Calendar.h"

#include <algorithm>

namespace vexmoor {

HistoryModel::HistoryModel(LoadPicture load, QObject* parent)
    : QAbstractListModel(parent), m_pictures(new RowPictures(std::move(load), this)) {
    connect(m_pictures, &RowPictures::loaded, this, [this](const Uuid& item) {
        if (const QModelIndex index = indexOf(item); index.isValid())
            emit dataChanged(index, index, {Qt::DecorationRole, previewRole});
    });
}

const Sacrifice& HistoryModel::at(const QModelIndex& index) const {
    return m_items[static_cast<std::size_t>(index.row())];
}

QModelIndex HistoryModel::indexOf(const Uuid& item) const {
    const auto found = std::ranges::find(m_items, item, &Sacrifice::id);
    return found == m_items.end() ? QModelIndex()
                                  : index(static_cast<int>(found - m_items.begin()));
}

void HistoryModel::setItems(std::vector<Sacrifice> items, Date now) {
    setNow(now);
    removeOthers(items);
    const auto count = static_cast<int>(items.size());
    for (int row = 0; row < count; ++row) {
        const auto at = static_cast<std::size_t>(row);
        const Sacrifice& item = items[at];
        if (at < m_items.size() && m_items[at].id == item.id) {
            update(row, item);
            continue;
        }
        int end = count; // end of the items to insert at this row
        if (at < m_items.size())
            end = static_cast<int>(
                std::find_if(items.begin() + row, items.end(),
                             [&](const Sacrifice& other) { return other.id == m_items[at].id; }) -
                items.begin());
        beginInsertRows({}, row, end - 1);
        m_items.insert(m_items.begin() + row, items.begin() + row, items.begin() + end);
        endInsertRows();
        row = end - 1;
    }
    if (rowCount() > count) { // rows that had another order
        beginRemoveRows({}, count, rowCount() - 1);
        m_items.resize(items.size());
        endRemoveRows();
    }
    std::set<Uuid> ids;
    for (const Sacrifice& item : m_items)
        ids.insert(item.id);
    m_pictures->retain(ids);
}

void HistoryModel::removeOthers(const std::vector<Sacrifice>& items) {
    std::set<Uuid> wanted;
    for (const Sacrifice& item : items)
        wanted.insert(item.id);
    for (int last = rowCount() - 1; last >= 0; --last) {
        int first = last;
        while (first >= 0 && !wanted.contains(m_items[static_cast<std::size_t>(first)].id))
            --first;
        if (first == last)
            continue;
        beginRemoveRows({}, first + 1, last);
        m_items.erase(m_items.begin() + first + 1, m_items.begin() + last + 1);
        endRemoveRows();
        last = first + 1;
    }
}

void HistoryModel::update(int row, const Sacrifice& item) {
    Sacrifice& known = m_items[static_cast<std::size_t>(row)];
    if (known == item)
        return;
    const bool isBack = !known.restored && item.restored;
    known = item;
    if (isBack)
        emit restored(item.id);
    emit dataChanged(index(row), index(row));
}

void HistoryModel::setNow(Date now) {
    const bool isAnotherDay = Calendar().daysBetween(m_now, now) != 0;
    m_now = now;
    if (isAnotherDay && !m_items.empty())
        emit dataChanged(index(0), index(rowCount() - 1), {statusRole, shortStatusRole});
}

int HistoryModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_items.size());
}

QVariant HistoryModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const Sacrifice& item = at(index);
    switch (role) {
    case Qt::DisplayRole:
        return HistoryText::name(item);
    case statusRole:
        return HistoryText::status(item, m_now, m_locale);
    case shortStatusRole:
        return HistoryText::shortStatus(item, m_now, m_locale);
    case Qt::AccessibleTextRole:
        return tr("%1, %2").arg(HistoryText::name(item),
                                HistoryText::status(item, m_now, m_locale));
    case Qt::DecorationRole:
        return m_pictures->find(item).image;
    case previewRole:
        return m_pictures->find(item).isPreview;
    default:
        return {};
    }
}

Qt::ItemFlags HistoryModel::flags(const QModelIndex& index) const {
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    if (index.isValid() && at(index).canRestore())
        flags |= Qt::ItemIsDragEnabled;
    return flags;
}

} // namespace vexmoor
