#pragma once

#include "Accent.h"

#include <QLabel>

namespace vexmoor {

/// A folder's name and icon with a badge that shows whether it is readable.
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

/// Return the colours of granted and refused permissions, readable on the ground.
QColor allowedColour(const QColor& ground);
QColor refusedColour(const QColor& ground);

} // namespace vexmoor
