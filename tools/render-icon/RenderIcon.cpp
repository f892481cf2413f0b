// render-icon SVG INSET SIZE PNG
//
// Draws the application's icon once, SIZE pixels square, for the build. INSET is the empty share of the
// picture's width on each side, which icon sets ask for in different amounts.

#include <QImage>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>

#include <cstdio>

namespace
{

int fail(const char *reason, const char *about)
{
    std::fprintf(stderr, "render-icon: %s: %s\n", reason, about);
    return 1;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 5)
        return fail("wants four arguments", "SVG INSET SIZE PNG");
    QSvgRenderer drawing(QString::fromLocal8Bit(argv[1]));
    if (!drawing.isValid())
        return fail("not a drawing", argv[1]);
    bool insetGiven = false;
    const double inset = QByteArray(argv[2]).toDouble(&insetGiven);
    if (!insetGiven || inset < 0 || inset >= 0.5)
        return fail("not a share of the width", argv[2]);
    const int size = QByteArray(argv[3]).toInt();
    if (size <= 0)
        return fail("not a size", argv[3]);

    QImage picture(size, size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    {
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        const double margin = size * inset;
        drawing.render(&painter, QRectF(0, 0, size, size).adjusted(margin, margin, -margin, -margin));
    }
    if (!picture.save(QString::fromLocal8Bit(argv[4]), "PNG"))
        return fail("cannot write", argv[4]);
    return 0;
}
