#pragma once

#include "skins/Skin.h"

#include <QWidget>

namespace vexmoor {

/// A frame drawn over a window during a drag that the window accepts. Transparent for events.
class DropFrame : public QWidget {
    Q_OBJECT

  public:
    explicit DropFrame(QWidget& window);

    void setShown(bool isShown, const Skin& skin);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Skin m_skin;
};

} // namespace vexmoor
