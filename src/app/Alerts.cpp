#include "Alerts.h"

#include "app/PotIcon.h"

#include "intake/Texts.h"

#include <QApplication>
#include <QCheckBox>
#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <cmath>
#include <iostream>
#include <utility>

namespace vexmoor {
namespace {

constexpr double kCellPoints = 2;
constexpr int kLongestRun = 48; ///< characters of a name that stay on one line

/// Adds invisible break opportunities, so that a long name does not make the alert wider than the
/// screen.
QString breakable(const std::string& text) {
    QString result;
    int run = 0;
    for (const QChar& c : QString::fromStdString(text)) {
        run = c.isSpace() ? 0 : run + 1;
        if (run > kLongestRun && !c.isLowSurrogate()) {
            result += QChar(0x200B); // ZERO WIDTH SPACE
            run = 0;
        }
        result += c;
    }
    return result;
}

std::unique_ptr<QMessageBox> makeBox(const std::string& message, const std::string& informative) {
    auto box = std::make_unique<QMessageBox>();
    box->setWindowTitle(QStringLiteral("Vexmoor"));
    box->setTextFormat(Qt::PlainText);
    box->setText(breakable(message));
    box->setInformativeText(breakable(informative));
    // The box applies its text format to its own text only; names would be read as markup.
    if (auto* const label = box->findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel")))
        label->setTextFormat(Qt::PlainText);
    const double ratio = box->devicePixelRatioF();
    QPixmap pot = potPicture(static_cast<int>(std::lround(kCellPoints * ratio)));
    pot.setDevicePixelRatio(ratio);
    box->setIconPixmap(pot);
    if (auto* const headline = box->findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))) {
        QFont font = headline->font();
        font.setBold(true);
        headline->setFont(font);
    }
    return box;
}

/// Adds a list below the informative text. Call it last: every setter of the box rebuilds its
/// layout.
void addItems(QMessageBox& box, const std::string& items) {
    auto* const text = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel"));
    if (text == nullptr || box.layout() == nullptr)
        return;
    auto* const both = new QWidget(&box);
    delete box.layout()->replaceWidget(text, both);
    auto* const column = new QVBoxLayout(both);
    column->setContentsMargins({});
    column->addWidget(text);
    auto* const list = new QLabel(breakable(items), both);
    list->setObjectName(QStringLiteral("items"));
    list->setTextFormat(Qt::PlainText);
    list->setWordWrap(true);
    column->addWidget(list);
}

/// Enables the buttons of a question only after it has had the focus for a while. Owned by the box.
class AnswerGuard : public QObject {
  public:
    AnswerGuard(QMessageBox& box, QPushButton& usual, std::unique_ptr<FrameTimer> timer)
        : QObject(&box), m_box(box), m_usual(usual), m_timer(std::move(timer)) {
        allow(false);
        box.installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::WindowActivate) {
            m_timer->start(Alerts::kGuard, [this] {
                m_timer->stop();
                allow(true);
                m_usual.setFocus();
            });
        } else if (event->type() == QEvent::WindowDeactivate) {
            m_timer->stop();
            allow(false);
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    void allow(bool isAllowed) {
        for (QAbstractButton* const button : m_box.findChildren<QAbstractButton*>())
            button->setEnabled(isAllowed);
    }

    QMessageBox& m_box;
    QPushButton& m_usual;
    std::unique_ptr<FrameTimer> m_timer;
};

std::unique_ptr<QMessageBox> makeMessage(const std::string& message,
                                         const std::string& informative) {
    auto box = makeBox(message, informative);
    // Not a standard button: those have icons.
    box->addButton(Alerts::tr("OK"), QMessageBox::AcceptRole);
    return box;
}

} // namespace

void Alerts::ask(const Question& question, std::function<void(const Answer&)> answered) {
    if (m_instead) {
        answered({});
        return;
    }
    auto box = makeBox(question.message, question.informative);
    QPushButton* const confirm =
        box->addButton(QString::fromStdString(question.confirm), QMessageBox::AcceptRole);
    box->setDefaultButton(confirm);
    box->setEscapeButton(
        box->addButton(QString::fromStdString(question.cancel), QMessageBox::RejectRole));
    if (question.suppression)
        box->setCheckBox(new QCheckBox(QString::fromStdString(*question.suppression), box.get()));
    if (!question.items.empty())
        addItems(*box, question.items);
    new AnswerGuard(*box, *confirm, m_makeTimer());
    await({.box = std::move(box),
           .report = std::nullopt,
           .answered = [this, confirm, answered = std::move(answered)](const QMessageBox& closed) {
               const bool isAnswer = !m_instead; // false: close() closed it, not the user
               answered({.confirmed = isAnswer && closed.clickedButton() == confirm,
                         .suppressed = isAnswer && closed.checkBox() != nullptr &&
                                       closed.checkBox()->isChecked(),
                         .isGiven = isAnswer});
           }});
}

void Alerts::report(const FailureReport& report) {
    if (m_instead) {
        m_instead(report);
        return;
    }
    if (m_turns.size() >= kMostTurns)
        addToRest(report);
    else
        await({.box = makeMessage(report.message, report.informative), .report = report});
}

void Alerts::addToRest(const FailureReport& report) {
    const std::string line = report.message + ". " + report.informative;
    std::cerr << "vexmoor-desktop: " << line << "\n";
    if (m_rest.count++ < kListedFailures)
        m_rest.lines.push_back(line);
}

FailureReport Alerts::takeRest() {
    const Rest rest = std::exchange(m_rest, {});
    return furtherReports(rest.count, rest.lines);
}

void Alerts::inform(const QString& message, const QString& informative) {
    if (!m_instead)
        await({.box = makeMessage(message.toStdString(), informative.toStdString()),
               .report = std::nullopt});
}

void Alerts::beep() {
    QApplication::beep();
}

void Alerts::await(Turn turn) {
    m_turns.push_back(std::move(turn));
    if (m_turns.size() == 1)
        showFirst();
}

void Alerts::showFirst() {
    const Turn& first = m_turns.front();
    if (first.report)
        beep();
    QMessageBox& box = *first.box;
    box.setWindowModality(Qt::NonModal); // first, as it resets the window flags
    // On top, because it answers something that was done in another window.
    box.setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                       Qt::WindowCloseButtonHint | Qt::WindowStaysOnTopHint);
    connect(&box, &QMessageBox::finished, this, &Alerts::firstIsOver);
    box.show();
    box.raise();
    box.activateWindow();
}

void Alerts::firstIsOver() {
    Turn over = std::move(m_turns.front());
    m_turns.pop_front();
    if (over.answered)
        over.answered(*over.box);
    over.box.release()->deleteLater(); // the call comes from its own signal
    if (!m_turns.empty())
        showFirst();
    else if (m_rest.count > 0 && !m_instead)
        report(takeRest());
}

void Alerts::close(std::function<void(const FailureReport&)> instead) {
    m_instead = std::move(instead);
    if (m_rest.count > 0)
        m_instead(takeRest());
    if (m_turns.empty())
        return;
    auto waiting = std::move(m_turns);
    m_turns.clear();
    m_turns.push_back(std::move(waiting.front()));
    waiting.pop_front();
    m_turns.front().box->reject();
    for (Turn& turn : waiting) {
        if (turn.report)
            m_instead(*turn.report);
        else if (turn.answered)
            turn.answered(*turn.box);
    }
}

} // namespace vexmoor
