#include "app/Alerts.h"

#include "support/MainLoop.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>

namespace vexmoor {
namespace {

using test::eventuallyInLoop;
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

/// Once an alert is there: does that to it.
void whenShown(std::function<void(QMessageBox&)> act) {
    QTimer::singleShot(0, qApp, [act = std::move(act)] {
        ASSERT_TRUE(eventuallyInLoop([] { return shown() != nullptr; }));
        act(*shown());
    });
}

struct AlertsTest : testing::Test {
    Alerts alerts{[] { return nullptr; }};
};

TEST_F(AlertsTest, TakesAYesAndThatItIsTheLastOne) {
    whenShown([](QMessageBox& box) {
        QTest::keyClick(box.checkBox(), Qt::Key_Space);
        QTest::keyClick(&box, Qt::Key_Return);
    });
    const auto answer = alerts.ask(kQuestion);
    EXPECT_TRUE(answer.confirmed);
    EXPECT_TRUE(answer.suppressed);
}

TEST_F(AlertsTest, TakesTurnsInTheOrderInWhichTheyCame) {
    std::vector<std::string> seen;
    const auto note = [&](QMessageBox& box) {
        seen.push_back(box.text().toStdString());
        box.accept();
    };
    bool inner = true;
    whenShown([&](QMessageBox& box) {
        alerts.report({"Rejected a", "", {}});
        EXPECT_EQ(shown(), &box) << "a report waits for the question";
        QTimer::singleShot(0, qApp, [&] {
            seen.push_back(box.text().toStdString());
            QTest::keyClick(&box, Qt::Key_Return);
            whenShown([&](QMessageBox& report) {
                note(report);
                whenShown([&](QMessageBox& second) {
                    seen.push_back(second.text().toStdString());
                    QTest::keyClick(&second, Qt::Key_Escape);
                });
            });
        });
        inner = alerts.ask({"Second?", "", "Yes", "No", std::nullopt}).confirmed;
    });
    EXPECT_TRUE(alerts.ask(kQuestion).confirmed);
    EXPECT_FALSE(inner);
    EXPECT_THAT(seen, ElementsAre("Dissolve?", "Rejected a", "Second?"));
}

TEST_F(AlertsTest, DoesNotGrowWiderThanTheScreenByALongName) {
    alerts.report({"The cauldron rejected " + std::string(255, 'W'), "x", {}});
    ASSERT_NE(shown(), nullptr);
    EXPECT_LT(shown()->sizeHint().width(), 760);
    shown()->accept();
}

TEST_F(AlertsTest, AnswersNoToAllWhenItIsClosed) {
    std::vector<std::string> told;
    whenShown([&](QMessageBox&) {
        alerts.report({"Waiting", "", {}});
        alerts.close([&](const FailureReport& report) { told.push_back(report.message); });
    });
    EXPECT_FALSE(alerts.ask(kQuestion).confirmed);
    EXPECT_FALSE(alerts.ask(kQuestion).confirmed) << "without asking";
    alerts.report({"Late", "", {}});
    EXPECT_EQ(shown(), nullptr);
    EXPECT_THAT(told, ElementsAre("Waiting", "Late")) << "a report that nobody saw is not lost";
}

} // namespace
} // namespace vexmoor
