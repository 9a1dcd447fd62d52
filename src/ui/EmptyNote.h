#pragma once

#include <QWidget>

class QLabel;

namespace vexmoor {

/// What stands in the middle of a place where there is nothing to list: a picture in pixels, a
/// sentence and a line under it.
class EmptyNote : public QWidget {
    Q_OBJECT

  public:
    /// `icon` is an achievement's id; no picture if it is empty.
    EmptyNote(const char* icon, const QString& sentence, const QString& line, QWidget* parent);

    void setSentence(const QString& sentence);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void recolour();

    QLabel* m_sentence;
    QLabel* m_line;
};

} // namespace vexmoor
