#pragma once

#include "WindowFixture.h"

#include "base/UserLocale.h"
#include "ui/GettextTranslator.h"

namespace vexmoor::test {

/// Windows are German while a test runs.
struct GermanFixture : WindowFixture {
    GermanFixture() {
        ::setenv("LANGUAGE", "de", 1);
        useUserLocale();
        QCoreApplication::installTranslator(&translator);
    }
    ~GermanFixture() override {
        QCoreApplication::removeTranslator(&translator);
        ::unsetenv("LANGUAGE");
        useUserLocale();
    }

    GettextTranslator translator;
};

} // namespace vexmoor::test
