#pragma once

#include "Accent.h"
#include "Onboarding.h"

#include <QWidget>

class QHBoxLayout;
class QLabel;

namespace vexmoor {

class AccentButton;
class SymbolText;

/// The permission status on a walkthrough page: a row with a tick, folders with badges, a link and
/// a caption. Main thread.
class OnboardingStatus : public QWidget {
    Q_OBJECT

  public:
    explicit OnboardingStatus(QWidget* parent = nullptr);

    void setStatus(const Onboarding::Status& status);
    void setAccent(const Accent& accent);

    /// Returns all texts as one, for screen readers.
    [[nodiscard]] QString spokenText() const;

  signals:
    void linkClicked();

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void recolour();
    void showBadges(const std::vector<Onboarding::Badge>& badges);

    Onboarding::Status m_status;
    Accent m_accent;
    SymbolText* m_tick;
    QLabel* m_note;
    QLabel* m_line;
    QWidget* m_badges;
    AccentButton* m_link;
    QLabel* m_caption;
};

} // namespace vexmoor
