#pragma once

#include "skins/Skin.h"

#include <QWidget>

namespace vexmoor {

/// A frame over a window while something that it takes is dragged above it. It takes no events.
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
