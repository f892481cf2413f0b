#include "TestEnvironment.h"

#include <QCoreApplication>

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    return runAllTests(argc, argv);
}
