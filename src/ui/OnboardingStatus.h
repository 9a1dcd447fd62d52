#pragma once

#include "Accent.h"
#include "Onboarding.h"

#include <QWidget>

class QHBoxLayout;
class QLabel;

namespace vexmoor {

class AccentButton;
class SymbolText;

/// What a page of the walkthrough says about the permission: a ticked row, folders with their
/// badges, a link, a caption. Main thread.
class OnboardingStatus : public QWidget {
    Q_OBJECT

  public:
    explicit OnboardingStatus(QWidget* parent = nullptr);

    void setStatus(const Onboarding::Status& status);
    void setAccent(const Accent& accent);

    /// The whole as one text, for screen readers.
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
