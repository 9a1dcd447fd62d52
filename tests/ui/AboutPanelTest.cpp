#include "WindowFixture.h"

#include "ui/AboutPanel.h"
#include "ui/CauldronView.h"

#include <QDialog>
#include <QLabel>

#include <gmock/gmock.h>

namespace vexmoor {
namespace {

using namespace test;
using testing::IsEmpty;
using testing::SizeIs;

struct AboutPanelTest : WindowFixture {
    QWidget window;

    /// Returns the open panels.
    [[nodiscard]] static std::vector<QDialog*> panels() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        std::vector<QDialog*> found;
        for (QWidget* const widget : QApplication::topLevelWidgets())
            if (auto* const dialog = qobject_cast<QDialog*>(widget))
                found.push_back(dialog);
        return found;
    }
};

TEST_F(AboutPanelTest, ShowsNameVersionAndLicense) {
    showAbout(&window);
    ASSERT_THAT(panels(), SizeIs(1));
    QStringList lines;
    for (const QLabel* const label : panels().front()->findChildren<QLabel*>())
        lines << label->text();
    EXPECT_EQ(lines, QStringList({"Vexmoor", QString("Version ") + VEXMOOR_VERSION,
                                  "Turns deleting files into a small ritual.",
                                  "© 2026 The Vexmoor authors", "MIT License"}));
    EXPECT_EQ(panels().front()->findChild<CauldronView*>()->width(), 136);
    EXPECT_EQ(panels().front()->windowTitle(), "About Vexmoor");
}

TEST_F(AboutPanelTest, IsUniqueAndNotModal) {
    showAbout(&window);
    const auto first = panels();
    EXPECT_TRUE(first.front()->isVisible());
    EXPECT_FALSE(first.front()->isModal());
    showAbout(nullptr);
    EXPECT_EQ(panels(), first);
    press(*first.front(), Qt::Key_Escape);
    EXPECT_THAT(panels(), IsEmpty());
    showAbout(nullptr);
    ASSERT_THAT(panels(), SizeIs(1));
    panels().front()->close();
    EXPECT_THAT(panels(), IsEmpty());
}

} // namespace
} // namespace vexmoor
