#include "app/Alerts.h"

#include "support/ManualTimer.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QTest>

#include <gmock/gmock.h>

namespace vexmoor {
namespace {

using testing::ElementsAre;

const Question kQuestion{"Dissolve?", "Forever.", "Dissolve", "Cancel", "Don't ask again"};

QMessageBox* shown() {
    QMessageBox* found = nullptr;
    int count = 0;
    for (QWidget* const widget : QApplication::topLevelWidgets())
        if (auto* const box = qobject_cast<QMessageBox*>(widget); box && box->isVisible()) {
            found = box;
            ++count;
        }
    EXPECT_LE(count, 1) << "one at a time";
    return found;
}

struct AlertsTest : testing::Test {
    /// Asks a question and records the answer.
    void ask(const Question& question) {
        alerts.ask(question, [this](const Answer& answer) { answers.push_back(answer); });
    }
    /// Records the text of the shown alert and presses a key in it.
    void press(Qt::Key key) {
        ASSERT_NE(shown(), nullptr);
        passGuard();
        seen.push_back(shown()->text().toStdString());
        QTest::keyClick(shown(), key);
    }
    static void sendToAlert(QEvent::Type type) {
        QEvent event(type);
        QApplication::sendEvent(shown(), &event);
    }
    /// Gives the alert the focus and lets the guard's timer fire.
    void passGuard() {
        sendToAlert(QEvent::WindowActivate);
        for (test::ManualTimer* const timer : timers)
            if (const auto fire = timer->fire)
                fire();
    }

    std::vector<test::ManualTimer*> timers; ///< of the existing questions
    Alerts alerts{[this] {
        struct Listed : test::ManualTimer {
            explicit Listed(std::vector<test::ManualTimer*>& all) : m_all(all) {
                m_all.push_back(this);
            }
            ~Listed() override { std::erase(m_all, this); }
            std::vector<test::ManualTimer*>& m_all;
        };
        return std::make_unique<Listed>(timers);
    }};
    std::vector<Answer> answers;
    std::vector<std::string> seen;
};

TEST_F(AlertsTest, RecordsAYesAndTheSuppression) {
    ask(kQuestion);
    ASSERT_NE(shown(), nullptr);
    passGuard();
    QTest::keyClick(shown()->checkBox(), Qt::Key_Space);
    EXPECT_EQ(answers.size(), 0U);
    press(Qt::Key_Return);
    ASSERT_EQ(answers.size(), 1U);
    EXPECT_TRUE(answers[0].confirmed);
    EXPECT_TRUE(answers[0].suppressed);
    EXPECT_EQ(shown(), nullptr);
}

TEST_F(AlertsTest, ShowsAlertsInTheOrderOfTheCalls) {
    ask(kQuestion);
    alerts.report({"Rejected a", "", {}});
    ask({"Second?", "", "Yes", "No", std::nullopt});
    press(Qt::Key_Return);
    ASSERT_EQ(answers.size(), 1U) << "an answer does not wait for later alerts";
    EXPECT_TRUE(answers[0].confirmed);
    press(Qt::Key_Return);
    press(Qt::Key_Escape);
    ASSERT_EQ(answers.size(), 2U);
    EXPECT_FALSE(answers[1].confirmed);
    EXPECT_THAT(seen, ElementsAre("Dissolve?", "Rejected a", "Second?"));
}

TEST_F(AlertsTest, CollectsReportsInOneAlertIfManyWait) {
    constexpr auto kWaiting = static_cast<int>(Alerts::kMostTurns);
    const auto fill = [this] {
        for (int i = 0; i < kWaiting + 10; ++i)
            alerts.report({"Rejected " + std::to_string(i), "Full.", {}});
    };
    fill();
    for (int i = 0; i < kWaiting; ++i)
        press(Qt::Key_Return);
    ASSERT_NE(shown(), nullptr);
    EXPECT_THAT(shown()->informativeText().toStdString(),
                testing::AllOf(testing::StartsWith("Rejected 16. Full.\nRejected 17. Full.\n"),
                               testing::EndsWith("Rejected 23. Full.\n…and 2 more.")));
    press(Qt::Key_Return);
    EXPECT_EQ(seen.back(), "10 more failures");
    EXPECT_EQ(shown(), nullptr);

    fill();
    std::vector<std::string> ended;
    alerts.close([&](const FailureReport& report) { ended.push_back(report.message); });
    EXPECT_THAT(ended, testing::Contains("10 more failures"));
}

TEST_F(AlertsTest, IgnoresKeysTypedForAnotherWindow) {
    ask(kQuestion);
    ASSERT_EQ(timers.size(), 1U);
    const auto type = [] {
        for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape})
            QTest::keyClick(shown(), key);
        QTest::keyClick(shown()->checkBox(), Qt::Key_Space);
    };
    sendToAlert(QEvent::WindowDeactivate);
    type();
    sendToAlert(QEvent::WindowActivate);
    EXPECT_EQ(timers[0]->seconds, 0.5);
    type();
    ASSERT_NE(shown(), nullptr);
    sendToAlert(QEvent::WindowDeactivate);
    EXPECT_FALSE(timers[0]->fire) << "the alert lost the focus before the guard's time was over";
    sendToAlert(QEvent::WindowActivate);
    type();
    EXPECT_TRUE(answers.empty());
    passGuard();
    EXPECT_FALSE(shown()->checkBox()->isChecked());
    QTest::keyClick(shown(), Qt::Key_Return);
    ASSERT_EQ(answers.size(), 1U);
    EXPECT_TRUE(answers[0].confirmed);
    EXPECT_FALSE(answers[0].suppressed);
}

TEST_F(AlertsTest, ListsTheItemsOfAQuestionAsPlainText) {
    Question question = kQuestion;
    question.items = "<b>a</b>\nb\n…and 1 more.";
    ask(question);
    ASSERT_NE(shown(), nullptr);
    const auto* const list = shown()->findChild<QLabel*>("items");
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->text().toStdString(), question.items);
    EXPECT_EQ(list->textFormat(), Qt::PlainText);
    EXPECT_TRUE(list->isVisible());
    EXPECT_EQ(shown()->informativeText(), "Forever.");
    press(Qt::Key_Escape);
}

TEST_F(AlertsTest, NeverInterpretsANameAsMarkup) {
    const QString names = "<i><!--: gone\n<a href=\"https://elsewhere\">b</a>: gone";
    alerts.report({"The cauldron rejected 2 items", names.toStdString(), {}});
    ASSERT_NE(shown(), nullptr);
    int found = 0;
    for (const QLabel* const label : shown()->findChildren<QLabel*>())
        if (label->text() == names) {
            EXPECT_EQ(label->textFormat(), Qt::PlainText);
            ++found;
        }
    EXPECT_EQ(found, 1);
    press(Qt::Key_Return);
}

TEST_F(AlertsTest, IsNotWidenedBeyondTheScreenByALongName) {
    alerts.report({"The cauldron rejected " + std::string(255, 'W'), "x", {}});
    ASSERT_NE(shown(), nullptr);
    EXPECT_LT(shown()->sizeHint().width(), 760);
    shown()->accept();
}

TEST_F(AlertsTest, AnswersAllQuestionsWithNoOnClose) {
    std::vector<std::string> told;
    ask(kQuestion);
    passGuard();
    QTest::keyClick(shown()->checkBox(), Qt::Key_Space);
    alerts.report({"Waiting", "", {}});
    ask(kQuestion);
    alerts.close([&](const FailureReport& report) { told.push_back(report.message); });
    ask(kQuestion);
    alerts.report({"Late", "", {}});
    EXPECT_EQ(shown(), nullptr);
    ASSERT_EQ(answers.size(), 3U);
    for (const Answer& answer : answers) {
        EXPECT_FALSE(answer.confirmed);
        EXPECT_FALSE(answer.suppressed) << "the user did not choose it";
    }
    EXPECT_THAT(told, ElementsAre("Waiting", "Late")) << "a report that was not shown is not lost";
}

} // namespace
} // namespace vexmoor
