#include "GermanFixture.h"

#include "base/Text.h"
#include "ui/AboutPanel.h"

#include <QDialog>
#include <QMessageBox>
#include <QPushButton>

#include <gtest/gtest.h>

namespace vexmoor {
namespace {

using namespace test;

using GettextTranslatorTest = GermanFixture;

TEST_F(GettextTranslatorTest, TranslatesTrWithTheCatalogue) {
    QWidget window;
    showAbout(&window);
    QStringList titles;
    for (const QWidget* const widget : QApplication::topLevelWidgets())
        titles << widget->windowTitle();
    EXPECT_TRUE(titles.contains("Info zu Vexmoor")) << titles.join(", ").toStdString();
    QMessageBox box(QMessageBox::Question, {}, {}, QMessageBox::Cancel);
    EXPECT_EQ(box.button(QMessageBox::Cancel)->text().remove('&'), "Abbrechen");
    EXPECT_EQ(text("In the Bin"), "Im Papierkorb");
}

TEST_F(GettextTranslatorTest, LeavesUnknownTextsToOtherTranslators) {
    EXPECT_TRUE(translator.translate("QShortcut", "No such text").isNull());
}

} // namespace
} // namespace vexmoor
