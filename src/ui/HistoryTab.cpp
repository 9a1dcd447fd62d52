#include "HistoryTab.h"

#include "EmptyNote.h"
#include "FilterField.h"
#include "HistoryFooter.h"
#include "HistoryList.h"
#include "HistoryModel.h"
#include "HistoryText.h"
#include "Picked.h"

#include "base/LowerCase.h"
#include "base/Path.h"

#include <QKeyEvent>
#include <QStackedLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace vexmoor {
namespace {

constexpr int kTypingMilliseconds = 120;

} // namespace

HistoryTab::HistoryTab(Parts parts, QWidget* parent)
    : QWidget(parent), m_parts(std::move(parts)),
      m_model(new HistoryModel(m_parts.loadPicture, this)), m_filter(new FilterField(this)),
      m_list(new HistoryList(*m_model, this)), m_footer(new HistoryFooter(this)),
      m_nothing(new EmptyNote("first", tr("Nothing has been sacrificed yet."),
                              tr("Drop files on the Dock icon to feed the cauldron."), this)),
      m_noMatch(new EmptyNote("", {}, {}, this)), m_pages(new QStackedLayout) {
    layOut();
    m_typed.setSingleShot(true);
    m_typed.setInterval(kTypingMilliseconds);
    connect(&m_typed, &QTimer::timeout, this, &HistoryTab::showItems);
    connect(m_filter, &FilterField::changed, &m_typed, qOverload<>(&QTimer::start));
    connect(m_filter, &FilterField::left, this, [this] {
        showItems();
        takeFocus();
    });
    connect(m_list, &HistoryList::pickedChanged, this, &HistoryTab::countPicked);
    connect(m_list, &HistoryList::restoreRequested, this, &HistoryTab::restoreRequested);
    connect(m_list, &HistoryList::deleteRequested, this, &HistoryTab::deleteRequested);
    connect(m_footer, &HistoryFooter::restoreClicked, this, &HistoryTab::restorePickedRequested);
    connect(m_footer, &HistoryFooter::deleteClicked, this, &HistoryTab::deletePickedRequested);
    connect(m_footer, &HistoryFooter::testClicked, this, &HistoryTab::testFlamesRequested);
    connect(m_model, &HistoryModel::dataChanged, this, &HistoryTab::countPicked);
}

void HistoryTab::layOut() {
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(0);
    column->addWidget(m_filter);
    for (QWidget* const page : {static_cast<QWidget*>(m_nothing), static_cast<QWidget*>(m_noMatch),
                                static_cast<QWidget*>(m_list)})
        m_pages->addWidget(page);
    column->addLayout(m_pages, 1);
    column->addWidget(m_footer);
}

void HistoryTab::setRecent(const std::vector<Sacrifice>& recent) {
    m_recent = recent;
    showItems();
}

void HistoryTab::refresh() {
    m_model->setItems(m_model->items(), m_parts.clock());
}

std::vector<Sacrifice> HistoryTab::filtered() const {
    if (m_filter->text().isEmpty())
        return m_recent;
    const std::string wanted = lowercased(m_filter->text().toStdString());
    const auto matches = [&](const std::string& name) {
        return lowercased(displayText(name)).find(wanted) != std::string::npos;
    };
    std::vector<Sacrifice> found;
    std::set<Uuid> ids;
    for (const Sacrifice& item : m_recent)
        if (matches(item.name) && ids.insert(item.id).second)
            found.push_back(item);
    if (m_parts.findBinned)
        for (Sacrifice& item : m_parts.findBinned(matches, kMostFound))
            if (ids.insert(item.id).second)
                found.push_back(std::move(item));
    std::ranges::stable_sort(found, std::greater(), &Sacrifice::date);
    return found;
}

void HistoryTab::showItems() {
    m_typed.stop();
    auto items = filtered();
    const bool isEmpty = items.empty();
    const bool isFirst = !isEmpty && m_pages->currentWidget() == m_nothing;
    m_model->setItems(std::move(items), m_parts.clock());
    if (!isEmpty)
        m_pages->setCurrentWidget(m_list);
    else if (m_filter->text().isEmpty())
        m_pages->setCurrentWidget(m_nothing);
    else
        m_pages->setCurrentWidget(m_noMatch);
    m_noMatch->setSentence(tr("Nothing is called “%1”.").arg(m_filter->text()));
    m_footer->setHidden(m_recent.empty());
    countPicked();
    if (isFirst && isVisible())
        takeFocus();
}

void HistoryTab::countPicked() {
    // An item that can be put back can also be deleted.
    const std::size_t count = pickedInBin(shown(), picked()).size();
    const bool hadFocus = m_footer->isAncestorOf(focusWidget());
    m_footer->setCounts(count, count);
    if (hadFocus && count == 0)
        takeFocus(); // the hidden button lost the focus
}

void HistoryTab::setSkin(const Skin& skin) {
    m_filter->setSkin(skin);
    m_list->setSkin(skin);
    m_footer->setSkin(skin);
}

const std::vector<Sacrifice>& HistoryTab::shown() const {
    return m_model->items();
}

std::set<Uuid> HistoryTab::picked() const {
    return m_list->picked();
}

void HistoryTab::openFilter() {
    if (!m_recent.empty())
        m_filter->open();
}

void HistoryTab::startAgain() {
    m_filter->close();
    showItems();
    m_list->clearSelection();
    m_list->setCurrentIndex({});
    m_list->scrollToTop();
}

void HistoryTab::takeFocus() {
    if (m_pages->currentWidget() == m_list)
        m_list->setFocus(Qt::OtherFocusReason);
}

void HistoryTab::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape || m_filter->isHidden()) {
        QWidget::keyPressEvent(event);
        return;
    }
    m_filter->close();
    showItems();
    takeFocus();
}

} // namespace vexmoor
