#pragma once

#include <QLabel>

namespace vexmoor {

/// One dot per page, the current one dark. Screen readers read "Page 2 of 5".
class PageDots : public QLabel {
    Q_OBJECT

  public:
    explicit PageDots(int pages, QWidget* parent = nullptr);

    /// `page` is zero-based.
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
