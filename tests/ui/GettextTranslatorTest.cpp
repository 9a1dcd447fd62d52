#include "WindowFixture.h"

#include "base/Text.h"
#include "base/UserLocale.h"
#include "ui/AboutPanel.h"
#include "ui/GettextTranslator.h"

#include <QDialog>
#include <QMessageBox>
#include <QPushButton>

#include <gtest/gtest.h>

namespace vexmoor {
namespace {

using namespace test;

/// Windows read German while a test runs.
struct GettextTranslatorTest : WindowFixture {
    GettextTranslatorTest() {
        ::setenv("LANGUAGE", "de", 1);
        useUserLocale();
        QCoreApplication::installTranslator(&m_translator);
    }
    ~GettextTranslatorTest() override {
        QCoreApplication::removeTranslator(&m_translator);
        ::unsetenv("LANGUAGE");
        useUserLocale();
    }

    GettextTranslator m_translator;
};

TEST_F(GettextTranslatorTest, HasWindowsAskTheCatalogue) {
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

TEST_F(GettextTranslatorTest, LeavesToOthersWhatItDoesNotHave) {
    EXPECT_TRUE(m_translator.translate("QShortcut", "No such text").isNull());
}

} // namespace
} // namespace vexmoor
