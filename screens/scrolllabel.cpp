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
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::black, 1, Qt::SolidLine));
    painter.setBrush(QBrush(Qt::white, Qt::SolidPattern));

    QPainterPath path;
    const int baseline = m_yOffset + m_pointSize;
    path.addText(m_x, baseline, font(), text());
    // The head of the text comes round again half a widget behind its tail.
    if (m_x < 0 && m_timer.isActive())
        path.addText(m_wrap, baseline, font(), text());

    if (m_hold == 0) {
        if (m_x >= 0 && m_x <= m_step && m_timer.isActive()) {
            m_timer.stop();
            m_running = false;
            emit slabelState(false);
        }
        if (m_x <= -m_textWidth)
            m_x = m_wrap;
    }
    painter.drawPath(path);
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
