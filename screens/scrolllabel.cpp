#include "scrolllabel.h"

#include <QPainter>
#include <QPainterPath>

namespace {
constexpr int kTickMs = 20;
constexpr int kPauseMs = 2000;
} // namespace

ScrollLabel::ScrollLabel(QWidget *parent)
    : QLabel(parent)
{
    m_wrap = m_textWidth + width() / 2;
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, SIGNAL(timeout()), this, SLOT(refreshLabel()));
}

void ScrollLabel::onStart()
{
    m_timer.start(kTickMs);
    m_textWidth = fontMetrics().horizontalAdvance(text());
}

void ScrollLabel::onStop()
{
    if (m_timer.isActive())
        m_timer.stop();
    m_x = 0;
}

void ScrollLabel::show()
{
    QLabel::show();
}

void ScrollLabel::updateCoordinates()
{
    // On the panel a point is a pixel; a font sized in pixels gives that size.
    m_pointSize = font().pointSize() > 0 ? font().pointSize() : font().pixelSize();
    m_textWidth = fontMetrics().horizontalAdvance(text());
}

// Starts a pass from the beginning after a pause. The interval stays at the
// pause until onStart() sets the scrolling speed again.
void ScrollLabel::slotClicked()
{
    m_x = 0;
    m_step = 2;
    repaint(); // may end a pass still in progress, before the hold is set
    m_hold = 1;
    m_timer.start(kPauseMs);
}

void ScrollLabel::refreshLabel()
{
    if (m_hold)
        m_hold = 0;
    m_running = true;
    emit slabelState(true);
    update();
    m_x -= m_step;
    if (m_x > 0 && m_x <= m_step && m_timer.isActive())
        m_x = 0;
    m_wrap = m_x + m_textWidth + width() / 2;
}

void ScrollLabel::paintEvent(QPaintEvent *)
{
    // Where the copies go is decided before a completed pass changes the state.
    const int x = m_x;
    const int wrap = m_wrap;
    // The head of the text comes round again half a widget behind its tail.
    const bool trailingCopy = m_x < 0 && m_timer.isActive();

    if (m_hold == 0) {
        if (m_x >= 0 && m_x <= m_step && m_timer.isActive()) {
            m_timer.stop();
            m_running = false;
            emit slabelState(false);
        }
        if (m_x <= -m_textWidth)
            m_x = m_wrap;
    }

    const QPixmap &image = textImage();
    if (image.isNull())
        return;
    QPainter painter(this);
    painter.drawPixmap(m_textImageOrigin + QPoint(x, 0), image);
    if (trailingCopy)
        painter.drawPixmap(m_textImageOrigin + QPoint(wrap, 0), image);
}

// The outlined text is rendered once per text and font, at x = 0; a tick only
// draws that image at another offset, which gives the same pixels as filling
// the glyph path there.
const QPixmap &ScrollLabel::textImage()
{
    const int baseline = m_yOffset + m_pointSize;
    const qreal ratio = devicePixelRatioF();
    if (m_imageText == text() && m_imageFont == font() && m_imageBaseline == baseline && m_imageRatio == ratio)
        return m_textImage;
    m_imageText = text();
    m_imageFont = font();
    m_imageBaseline = baseline;
    m_imageRatio = ratio;
    m_textImage = QPixmap();
    if (m_imageText.isEmpty())
        return m_textImage;

    QPainterPath path;
    path.addText(0, baseline, m_imageFont, m_imageText);
    // The outline is a 1-pixel pen centred on the path, plus antialiasing.
    const QRect box = path.boundingRect().adjusted(-2, -2, 2, 2).toAlignedRect();
    m_textImageOrigin = box.topLeft();
    m_textImage = QPixmap(box.size() * ratio);
    m_textImage.setDevicePixelRatio(ratio);
    m_textImage.fill(Qt::transparent);
    QPainter painter(&m_textImage);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::black, 1, Qt::SolidLine));
    painter.setBrush(QBrush(Qt::white, Qt::SolidPattern));
    painter.translate(-m_textImageOrigin);
    painter.drawPath(path);
    return m_textImage;
}

void ScrollLabel::resizeEvent(QResizeEvent *event)
{
    updateCoordinates();
    QLabel::resizeEvent(event);
}

void ScrollLabel::mousePressEvent(QMouseEvent *)
{
    emit clicked();
}
