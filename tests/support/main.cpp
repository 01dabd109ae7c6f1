#include "support/testenvironment.h"

#include <QApplication>
#include <QLocale>
#include <gtest/gtest.h>

/// Every test program runs with an application object on the offscreen platform and in the C-like English locale.
int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    prepareTestEnvironment();
    QApplication app(argc, argv);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    return RUN_ALL_TESTS();
}
