#include <QApplication>
#include <QLabel>

/// The least that a window with a word in it costs: what the program's own start is measured against.
int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    QLabel line(QStringLiteral("One line of text"));
    line.resize(860, 640);
    line.show();
    return QApplication::exec();
}
