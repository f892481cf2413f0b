#include "Platform/Window/Application.h"
#include "TestEnvironment.h"

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" VANTLE_TEST_SCREENS);
    Application application(argc, argv);
    return runAllTests(argc, argv);
}
