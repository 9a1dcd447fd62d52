#pragma once

#include <QLabel>

namespace vexmoor {

/// One dot a page, the current one dark; read aloud as "Page 2 of 5".
class PageDots : public QLabel {
    Q_OBJECT

  public:
    explicit PageDots(int pages, QWidget* parent = nullptr);

    /// `page` counts from 0.
    void setPage(int page);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    int m_pages;
    int m_page = 0;
};

} // namespace vexmoor
