#pragma once

#include <QWidget>

class QLabel;

namespace vexmoor {

/// The placeholder of an empty list: a pixel picture, a sentence and a second line.
class EmptyNote : public QWidget {
    Q_OBJECT

  public:
    /// `icon` is an achievement's id; empty for no picture.
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
