#pragma once

#include "disposal/Ledger.h"
#include "skins/Skin.h"

#include <QWidget>

#include <array>
#include <optional>

class QLabel;

namespace vexmoor {

class DayBar;
class FocusRing;

/// Seven bars, one a day, oldest first, and a caption that describes today, or the day under the
/// pointer or chosen with the arrow keys. To a screen reader each bar is a text of its own. Main
/// thread.
class WeekChart : public QWidget {
    Q_OBJECT

  public:
    static constexpr int kDays = 7;

    explicit WeekChart(QWidget* parent = nullptr);

    /// `week` as Ledger::week() has it. If `grows`, visible bars move to their new heights.
    void setWeek(const std::vector<Ledger::DayOfWeek>& week, bool grows = true);
    void setSkin(const Skin& skin);

    /// The largest count of the week, never less than 1.
    [[nodiscard]] std::int64_t peak() const;

    /// The bar under the pointer or chosen by key, from 0; nullopt if there is none.
    [[nodiscard]] std::optional<int> hovered() const { return m_hovered; }

    [[nodiscard]] QString caption() const;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void layOut();
    void describe(std::optional<int> day);
    void recolour();

    Skin m_skin;
    std::vector<Ledger::DayOfWeek> m_week;
    std::optional<int> m_hovered;
    FocusRing* m_focus;
    std::array<DayBar*, kDays> m_bars{};
    QLabel* m_caption;
};

} // namespace vexmoor
