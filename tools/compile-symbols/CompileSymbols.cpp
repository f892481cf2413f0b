// compile-symbols SOURCE SVG…
//
// Compiles the drawings of symbols into a C++ source, which defines the function of SymbolShapes.h. A symbol
// has the name of its file. The toolkit reads each drawing, and the paths that it paints are recorded.

#include <QFile>
#include <QFileInfo>
#include <QMetaEnum>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QSvgRenderer>

#include <cstdio>
#include <utility>

namespace
{

int fail(const char *reason, const char *about)
{
    std::fprintf(stderr, "compile-symbols: %s: %s\n", reason, about);
    return 1;
}

template <class Enumerator>
QByteArray enumerator(Enumerator value)
{
    return QByteArray("Qt::") + QMetaEnum::fromType<Enumerator>().valueToKey(value);
}

QByteArray number(qreal value)
{
    return QByteArray::number(value, 'g', 17); // every digit that the number has
}

QByteArray pointList(const QPainterPath &path)
{
    QByteArray list;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element point = path.elementAt(i);
        list += "    {QPainterPath::ElementType(" + QByteArray::number(point.type) + "), " + number(point.x) +
                ", " + number(point.y) + "},\n";
    }
    return list;
}

/// Records the paths that are painted: the points of each in `points`, all else in `shapes`.
class Recorder : public QPaintEngine
{
public:
    explicit Recorder(QByteArray symbol) : QPaintEngine(AllFeatures), m_symbol(std::move(symbol)) {}

    bool begin(QPaintDevice *) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState &) override {}
    void drawPixmap(const QRectF &, const QPixmap &, const QRectF &) override {}
    Type type() const override { return User; }

    // The toolkit fills and strokes a path one after the other, both with a brush and a pen, of which one is
    // empty.
    void drawPath(const QPainterPath &path) override
    {
        const QPen &pen = painter()->pen();
        const QBrush &brush = painter()->brush();
        if (brush.style() != Qt::NoBrush)
            add(path, brush.color(), 0, pen);
        if (pen.style() != Qt::NoPen)
            add(path, pen.color(), pen.widthF(), pen);
    }

    QByteArray points;
    QByteArray shapes;

private:
    void add(const QPainterPath &path, const QColor &color, qreal strokeWidth, const QPen &pen)
    {
        const QByteArray name = m_symbol + "Points" + QByteArray::number(++m_count);
        points += "constexpr SymbolPoint " + name + "[]{\n" + pointList(path) + "};\n\n";
        shapes += "    {" + enumerator(color == Qt::white ? Qt::white : Qt::black) + ", " +
                  number(strokeWidth) + ", " + enumerator(pen.capStyle()) + ", " +
                  enumerator(pen.joinStyle()) + ", " + transform() + ", " + name + "},\n";
    }

    QByteArray transform() const
    {
        const QTransform &of = painter()->transform();
        return "{" + number(of.m11()) + ", " + number(of.m12()) + ", " + number(of.m21()) + ", " +
               number(of.m22()) + ", " + number(of.dx()) + ", " + number(of.dy()) + "}";
    }

    QByteArray m_symbol;
    int m_count = 0;
};

/// A device of the drawings' size that gives what is painted to a recorder.
class Recording : public QPaintDevice
{
public:
    Recording(Recorder &recorder, QSize size) : m_recorder(recorder), m_size(size) {}

    QPaintEngine *paintEngine() const override { return &m_recorder; }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth:
            return m_size.width();
        case PdmHeight:
            return m_size.height();
        case PdmDevicePixelRatioScaled:
            return int(devicePixelRatioFScale());
        default:
            return 1;
        }
    }

private:
    Recorder &m_recorder;
    QSize m_size;
};

} // namespace

int main(int argc, char **argv)
{
    if (argc < 3)
        return fail("wants at least two arguments", "SOURCE SVG…");
    QByteArray tables;
    QByteArray symbols;
    for (int i = 2; i < argc; ++i) {
        const QString file = QFile::decodeName(argv[i]);
        QSvgRenderer drawing(file);
        if (!drawing.isValid())
            return fail("not a drawing", argv[i]);
        const QByteArray name = QFileInfo(file).completeBaseName().toUtf8();
        const QByteArray symbol = "symbol" + QByteArray::number(i - 1);
        Recorder recorder(symbol);
        Recording recording(recorder, drawing.defaultSize());
        QPainter painter(&recording);
        drawing.render(&painter, drawing.viewBoxF());
        painter.end();
        tables += recorder.points + "constexpr SymbolShape " + symbol + "[]{\n" + recorder.shapes + "};\n\n";
        symbols += "    {u\"" + name + "\", " + symbol + "},\n";
    }
    QFile source(QFile::decodeName(argv[1]));
    const QByteArray text =
        "#include \"Platform/Desktop/Appearance/detail/SymbolShapes.h\"\n\nnamespace\n{\n\n" + tables +
        "constexpr DrawnSymbol all[]{\n" + symbols +
        "};\n\n} // namespace\n\nstd::span<const DrawnSymbol> drawnSymbols()\n{\n    return all;\n}\n";
    if (!source.open(QIODevice::WriteOnly) || source.write(text) != text.size() || !source.flush())
        return fail("cannot write", argv[1]);
    return 0;
}
