#include "GettextTranslator.h"

#include "base/Text.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

namespace vexmoor {
namespace {

/// Texts of Qt's dialogs, for systems without Qt's catalogue.
[[maybe_unused]] constexpr const char* kTextsOfQt[] = {
    marked("OK"), marked("Cancel"), marked("&Yes"), marked("&No"), marked("Close"),
};

} // namespace

QString GettextTranslator::translate(const char*, const char* source, const char*, int) const {
    const std::string translation = text(source);
    return translation == source ? QString() : QString::fromStdString(translation);
}

void installTranslators() {
    auto* const application = QCoreApplication::instance();
    auto* const qt = new QTranslator(application);
    if (qt->load(QLocale(), QStringLiteral("qtbase"), QStringLiteral("_"),
                 QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(qt);
    QCoreApplication::installTranslator(
        new GettextTranslator(application)); // consulted before translators installed earlier
}

} // namespace vexmoor
