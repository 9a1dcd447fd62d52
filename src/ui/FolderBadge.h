#pragma once

#include "Accent.h"

#include <QLabel>

namespace vexmoor {

/// A folder with a badge that shows whether it can be read, and its name.
class FolderBadge : public QLabel {
    Q_OBJECT

  public:
    FolderBadge(const QString& name, bool ok, const Accent& accent, QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    [[nodiscard]] QFont captionFont() const;

    QString m_name;
    bool m_ok;
    Accent m_accent;
};

/// The colour of what is allowed, and of what is not; readable on the ground.
QColor allowedColour(const QColor& ground);
QColor refusedColour(const QColor& ground);

} // namespace vexmoor
