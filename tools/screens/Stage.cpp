#include "Stage.h"

#include "support/DesktopPalette.h"

#include "art/CauldronArt.h"

#include <QApplication>
#include <QImage>
#include <QString>
#include <QWidget>

#include <iostream>

namespace vexmoor::screens {

Stage::Stage(std::filesystem::path folder, bool isDark, double scale)
    : m_folder(std::move(folder)), m_suffix(std::string(isDark ? "-dark-" : "-light-") +
                                            QString::number(scale).toStdString() + "x.png") {
    QApplication::setPalette(test::desktopPalette(isDark));
    CauldronArt::setCurrent(Skin::iron());
}

bool Stage::picture(QWidget& window, const std::string& name, QSize size) {
    if (!size.isEmpty())
        window.resize(size);
    window.show();
    QCoreApplication::processEvents();
    const auto file = m_folder / (name + m_suffix);
    std::filesystem::create_directories(m_folder);
    const bool isWritten = window.grab().toImage().save(QString::fromStdString(file));
    (isWritten ? std::cout : std::cerr)
        << (isWritten ? "" : "cannot write ") << file.string() << "\n";
    return isWritten;
}

} // namespace vexmoor::screens
