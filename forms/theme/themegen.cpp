// nilo-themegen IMAGES_TXT OUTPUT_DIR
// Draws the tuner's images listed in IMAGES_TXT into OUTPUT_DIR: a dark
// automotive look, legible at 800 x 480, amber for what is pressed or lit.

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QTextStream>

namespace {

const QColor kAmber(0xff, 0xb0, 0x3b);
const QColor kInk(0xe6, 0xed, 0xf3);
const QColor kDim(0x5a, 0x63, 0x6d);
const QColor kKey(0x22, 0x2a, 0x33);
const QColor kKeyEdge(0x3a, 0x46, 0x52);
const QColor kDeep(0x0d, 0x11, 0x17);
const QString kFont = QStringLiteral("DejaVu Sans");

enum class State { Normal, Pressed, Selected, Disabled };

State stateOf(const QString &path)
{
    const QString base = QFileInfo(path).completeBaseName();
    if (base.endsWith(QLatin1String("_p")))
        return State::Pressed;
    if (base.endsWith(QLatin1String("_s")))
        return State::Selected;
    if (base.endsWith(QLatin1String("_d")))
        return State::Disabled;
    return State::Normal;
}

QColor glyphColor(State state)
{
    switch (state) {
    case State::Pressed:
        return kDeep;
    case State::Selected:
        return kAmber;
    case State::Disabled:
        return kDim;
    default:
        return kInk;
    }
}

void triangle(QPainterPath &path, QPointF tip, qreal size, bool right)
{
    const qreal d = right ? -size : size;
    path.moveTo(tip);
    path.lineTo(tip.x() + d, tip.y() - size);
    path.lineTo(tip.x() + d, tip.y() + size);
    path.closeSubpath();
}

void drawGlyph(QPainter &p, const QRectF &r, const QString &glyph, State state)
{
    const QColor ink = glyphColor(state);
    p.setPen(Qt::NoPen);
    p.setBrush(ink);
    const QPointF c = r.center();
    const qreal s = qMin(r.width(), r.height());
    QPainterPath path;
    if (glyph == QLatin1String("seekup") || glyph == QLatin1String("seekdown")) {
        const bool up = glyph == QLatin1String("seekup");
        const qreal size = s * 0.16;
        const qreal dir = up ? 1 : -1;
        triangle(path, QPointF(c.x() + dir * size * 1.2, c.y()), size, up);
        triangle(path, QPointF(c.x() + dir * size * 0.0 - dir * size * 0.2, c.y()), size, up);
        p.drawPath(path);
        p.drawRect(QRectF(c.x() + dir * size * 1.2 - (up ? 0 : 3), c.y() - size, 3, 2 * size));
    } else if (glyph == QLatin1String("stepup") || glyph == QLatin1String("stepdown")) {
        const bool up = glyph == QLatin1String("stepup");
        QPen pen(ink, 5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
        p.setPen(pen);
        p.setBrush(Qt::NoBrush);
        const qreal w = s * 0.16, h = s * 0.28;
        const qreal dir = up ? 1 : -1;
        QPolygonF chevron;
        chevron << QPointF(c.x() - dir * w, c.y() - h) << QPointF(c.x() + dir * w, c.y())
                << QPointF(c.x() - dir * w, c.y() + h);
        p.drawPolyline(chevron);
    } else if (glyph == QLatin1String("back")) {
        QPen pen(ink, 4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
        p.setPen(pen);
        p.setBrush(Qt::NoBrush);
        QPolygonF arrow;
        arrow << QPointF(c.x() - 2, c.y() - 9) << QPointF(c.x() - 11, c.y()) << QPointF(c.x() - 2, c.y() + 9);
        p.drawPolyline(arrow);
        p.drawLine(QPointF(c.x() - 10, c.y()), QPointF(c.x() + 12, c.y()));
    } else if (glyph == QLatin1String("menu")) {
        for (int i = -1; i <= 1; ++i)
            p.drawRoundedRect(QRectF(c.x() - 14, c.y() + i * 8 - 1.5, 28, 3), 1.5, 1.5);
    } else if (glyph != QLatin1String("plain")) {
        QFont font(kFont);
        font.setBold(true);
        font.setPixelSize(int(r.height() * 0.5));
        p.setFont(font);
        p.setPen(ink);
        p.drawText(r, Qt::AlignCenter, glyph);
    }
}

void drawKey(QPainter &p, const QRectF &bounds, const QString &glyph, State state)
{
    const QRectF r = bounds.adjusted(1.5, 1.5, -1.5, -1.5);
    const qreal radius = qMin(r.width(), r.height()) * 0.18;
    if (state == State::Pressed) {
        p.setPen(QPen(kAmber.lighter(115), 1.5));
        p.setBrush(kAmber);
    } else {
        QLinearGradient fill(r.topLeft(), r.bottomLeft());
        fill.setColorAt(0, kKey.lighter(125));
        fill.setColorAt(1, kKey);
        p.setPen(QPen(state == State::Selected ? kAmber : kKeyEdge, state == State::Selected ? 3 : 1.5));
        p.setBrush(fill);
    }
    p.drawRoundedRect(r, radius, radius);
    drawGlyph(p, r, glyph, state);
}

void drawBadge(QPainter &p, const QRectF &bounds, const QString &text)
{
    const QRectF r = bounds.adjusted(1, 1, -1, -1);
    p.setPen(QPen(kAmber, 2));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(r, 4, 4);
    QFont font(kFont);
    font.setBold(true);
    font.setPixelSize(14);
    p.setFont(font);
    p.drawText(r, Qt::AlignCenter, text);
}

void drawPages(QPainter &p, const QRectF &r, const QString &arg)
{
    const int current = arg.section(QLatin1Char('/'), 0, 0).toInt();
    const int count = arg.section(QLatin1Char('/'), 1, 1).toInt();
    const qreal gap = 22;
    const qreal x0 = r.center().x() - gap * (count - 1) / 2;
    p.setPen(Qt::NoPen);
    for (int i = 1; i <= count; ++i) {
        p.setBrush(i == current ? kAmber : kDim);
        const qreal radius = i == current ? 6 : 4.5;
        p.drawEllipse(QPointF(x0 + gap * (i - 1), r.center().y()), radius, radius);
    }
}

void drawFooter(QPainter &p, const QRectF &r)
{
    QLinearGradient fill(r.topLeft(), r.bottomLeft());
    fill.setColorAt(0, QColor(0x18, 0x1f, 0x28));
    fill.setColorAt(1, kDeep);
    p.fillRect(r, fill);
    p.fillRect(QRectF(r.left(), r.top(), r.width(), 2), kKeyEdge);
}

void drawBackground(QPainter &p, const QRectF &r)
{
    QRadialGradient glow(QPointF(r.center().x(), r.height() * 0.35), r.width() * 0.7);
    glow.setColorAt(0, QColor(0x1b, 0x24, 0x30));
    glow.setColorAt(1, kDeep);
    p.fillRect(r, glow);
}

void drawPanel(QPainter &p, const QRectF &bounds)
{
    const QRectF r = bounds.adjusted(2, 2, -2, -2);
    QLinearGradient fill(r.topLeft(), r.bottomLeft());
    fill.setColorAt(0, QColor(0x26, 0x30, 0x3c));
    fill.setColorAt(1, QColor(0x16, 0x1c, 0x24));
    p.setPen(QPen(kAmber, 3));
    p.setBrush(fill);
    p.drawRoundedRect(r, 16, 16);
}

void drawItem(QPainter &p, const QRectF &r, State state)
{
    if (r.width() < 20) { // the check mark: a bar at the row's edge
        p.fillRect(r, kAmber);
        return;
    }
    if (state == State::Pressed)
        p.fillRect(r, QColor(kAmber.red(), kAmber.green(), kAmber.blue(), 70));
    p.fillRect(QRectF(r.left() + 12, r.bottom() - 1, r.width() - 24, 1), kKeyEdge);
}

bool isOpaque(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y) {
        const auto *row = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(row[x]) != 255)
                return false;
        }
    }
    return true;
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    if (argc != 3) {
        QTextStream(stderr) << "usage: nilo-themegen IMAGES_TXT OUTPUT_DIR\n";
        return 2;
    }
    QFile list(QString::fromLocal8Bit(argv[1]));
    if (!list.open(QIODevice::ReadOnly | QIODevice::Text)) {
        QTextStream(stderr) << "cannot read " << list.fileName() << "\n";
        return 1;
    }
    const QDir out(QString::fromLocal8Bit(argv[2]));
    int written = 0;
    while (!list.atEnd()) {
        const QString line = QString::fromUtf8(list.readLine()).trimmed();
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        const QStringList f = line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        if (f.size() != 5)
            continue;
        const QString &path = f[0];
        const QSize size(f[1].toInt(), f[2].toInt());
        const QString &kind = f[3];
        const QString &arg = f[4];
        QImage image(size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter p(&image);
        p.setRenderHint(QPainter::Antialiasing);
        p.setRenderHint(QPainter::TextAntialiasing);
        const QRectF r(QPointF(0, 0), QSizeF(size));
        const State state = stateOf(path);
        if (kind == QLatin1String("key"))
            drawKey(p, r, arg, state);
        else if (kind == QLatin1String("badge"))
            drawBadge(p, r, arg);
        else if (kind == QLatin1String("pages"))
            drawPages(p, r, arg);
        else if (kind == QLatin1String("footer"))
            drawFooter(p, r);
        else if (kind == QLatin1String("background"))
            drawBackground(p, r);
        else if (kind == QLatin1String("panel"))
            drawPanel(p, r);
        else if (kind == QLatin1String("item"))
            drawItem(p, r, state);
        p.end();
        // Stored without alpha when nothing is transparent: such a file decodes
        // straight into the screen's format, with no premultiplying pass.
        if (isOpaque(image))
            image = image.convertToFormat(QImage::Format_RGB32);
        const QString file = out.filePath(QStringLiteral("Resource/") + path);
        QDir().mkpath(QFileInfo(file).absolutePath());
        if (!image.save(file, "PNG")) {
            QTextStream(stderr) << "cannot write " << file << "\n";
            return 1;
        }
        ++written;
    }
    QTextStream(stdout) << written << " theme images drawn\n";
    return 0;
}
