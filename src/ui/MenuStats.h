#pragma once

#include "MenuStatsText.h"

#include "base/Published.h"

#include <QWidget>

#include <array>
#include <vector>

class QLabel;

namespace vexmoor {

class Ledger;
class Progression;

/// The menu's header: three statistics and a caption. Follows the stores during its lifetime. Main
/// thread.
class MenuStats : public QWidget {
    Q_OBJECT

  public:
    /// The stores must outlive it.
    MenuStats(Ledger& ledger, Progression& progression, Clock clock, QWidget* parent = nullptr);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    struct Statistic {
        QLabel* value;
        QLabel* label;
    };

    QLabel* makeLine();
    void refresh();
    void restyle();
    [[nodiscard]] int neededWidth() const;

    const Ledger& m_ledger;
    const Progression& m_progression;
    Clock m_clock;
    std::array<Statistic, 3> m_statistics{};
    QLabel* m_caption;
    std::vector<Subscription> m_subscriptions; ///< last member, so that they end first
};

} // namespace vexmoor
