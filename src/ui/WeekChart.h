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

/// Seven bars, one per day, oldest first, and a caption for today, the hovered day, or the day
/// selected with the arrow keys. For screen readers each bar is a text. Main thread.
class WeekChart : public QWidget {
    Q_OBJECT

  public:
    static constexpr int kDays = 7;

    explicit WeekChart(QWidget* parent = nullptr);

    /// `week` comes from Ledger::week(). If `grows`, visible bars animate to their new heights.
    void setWeek(const std::vector<Ledger::DayOfWeek>& week, bool grows = true);
    void setSkin(const Skin& skin);

    /// Returns the largest count of the week, at least 1.
    [[nodiscard]] std::int64_t peak() const;

    /// Returns the zero-based index of the hovered or selected bar, or nullopt.
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
