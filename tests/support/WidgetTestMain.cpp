#include "TestEnvironment.h"

#include <QApplication>

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" VANTLE_TEST_SCREENS);
    QApplication application(argc, argv);
    return runAllTests(argc, argv);
}
