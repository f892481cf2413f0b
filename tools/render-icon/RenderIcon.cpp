// render-icon SVG INSET SIZE PICTURE
//
// Draws the application's icon once, SIZE pixels square, for the build. INSET is the empty share of the
// picture's width on each side, which icon sets ask for in different amounts. The picture is a PNG if its
// name says so, else the bare pixels of QImage::Format_ARGB32_Premultiplied, row by row.

#include <QFile>
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

bool save(const QImage &picture, const QString &name)
{
    if (name.endsWith(QStringLiteral(".png")))
        return picture.save(name);
    QFile file(name);
    const auto size = picture.sizeInBytes();
    return file.open(QIODevice::WriteOnly) &&
           file.write(reinterpret_cast<const char *>(picture.constBits()), size) == size && file.flush();
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 5)
        return fail("wants four arguments", "SVG INSET SIZE PICTURE");
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
    if (!save(picture, QString::fromLocal8Bit(argv[4])))
        return fail("cannot write", argv[4]);
    return 0;
}
